// A test within a German locale, whose decimal comma our numbers must never see. The locale is made
// for the test, so that nothing depends on what the machine has installed.
#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <clocale>
#include <cstdio>
#include <optional>
#include <string>

#include "support/temporary_folder.h"

namespace branok {

class German_Locale : public testing::Test {
 protected:
  // Made once for all the tests of a fixture.
  static void SetUpTestSuite() {
    folder_.emplace();
    const std::string command =
        "localedef -f UTF-8 -i de_DE " + (folder_->path() / "de_DE.UTF-8").string();
    // It may warn; whether the locale is there is seen below.
    made_ = std::system(command.c_str());
  }
  static void TearDownTestSuite() { folder_.reset(); }

  void SetUp() override {
    if (const char* path = ::getenv("LOCPATH")) path_before_ = path;
    ::setenv("LOCPATH", folder_->path().c_str(), 1);
    locale_before_ = std::setlocale(LC_ALL, nullptr);
    ASSERT_NE(std::setlocale(LC_ALL, "de_DE.UTF-8"), nullptr)
        << "localedef ended with " << made_ << "; are the locale sources installed?";
    char text[8];
    std::snprintf(text, sizeof text, "%.1f", 1.5);
    ASSERT_STREQ(text, "1,5");
  }
  void TearDown() override {
    std::setlocale(LC_ALL, locale_before_.c_str());
    if (path_before_) {
      ::setenv("LOCPATH", path_before_->c_str(), 1);
    } else {
      ::unsetenv("LOCPATH");
    }
  }

 private:
  static inline std::optional<Temporary_Folder> folder_;
  static inline int made_ = 0;
  std::optional<std::string> path_before_;
  std::string locale_before_;
};

}  // namespace branok
