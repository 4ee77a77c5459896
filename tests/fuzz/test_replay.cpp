// The corpus of the fuzzer, replayed as a test: what it once found stays found.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/safe_file.h"
#include "fuzz/ver6_property.h"

namespace branok {
namespace {

TEST(Corpus, data_files) {
  const std::filesystem::path corpus = BRANOK_TEST_SOURCE "/fuzz/corpus/ver6";
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(corpus)) {
    SCOPED_TRACE(entry.path().filename());
    Check_Ver6(Read_Whole(entry.path()));
    ++files;
  }
  EXPECT_GT(files, 0);
}

}  // namespace
}  // namespace branok
