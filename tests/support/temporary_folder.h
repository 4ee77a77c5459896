// A folder that is gone after the test.
#pragma once

#include <stdlib.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <system_error>

namespace branok {

class Temporary_Folder {
 public:
  Temporary_Folder() {
    std::string name = (std::filesystem::temp_directory_path() / "branok-test-XXXXXX").string();
    if (::mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    path_ = name;
  }
  Temporary_Folder(const Temporary_Folder&) = delete;
  Temporary_Folder& operator=(const Temporary_Folder&) = delete;
  Temporary_Folder(Temporary_Folder&&) = delete;
  Temporary_Folder& operator=(Temporary_Folder&&) = delete;
  ~Temporary_Folder() {
    std::error_code gone;
    std::filesystem::remove_all(path_, gone);
  }

  [[nodiscard]] const std::filesystem::path& path() const { return path_; }
  std::filesystem::path operator/(const std::string& name) const { return path_ / name; }

  /// How many things stand in the folder.
  [[nodiscard]] int count() const {
    int n = 0;
    for (const auto& entry : std::filesystem::directory_iterator(path_))
      n += entry.exists() ? 1 : 0;
    return n;
  }

 private:
  std::filesystem::path path_;
};

}  // namespace branok
