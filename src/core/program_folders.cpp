// Where the program's own files stand: beside it, or in the user's data folder.
#include <unistd.h>

#include <cstdlib>
#include <system_error>

#include "core/settings.h"

namespace branok {

namespace {

namespace fs = std::filesystem;

fs::path From_Environment(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? fs::path() : fs::path(value);
}

fs::path User_Data_Folder() {
  const fs::path data = From_Environment("XDG_DATA_HOME");
  if (data.is_absolute()) return data / "branok";
  return From_Environment("HOME") / ".local/share/branok";
}

bool Can_Be_Written(const fs::path& folder) { return ::access(folder.c_str(), W_OK) == 0; }

fs::path Own_Folder(const fs::path& home, const fs::path& program) {
  if (!home.empty()) {
    std::error_code no_folder;
    fs::create_directories(home, no_folder);
    if (Can_Be_Written(home)) return home;
  } else if (Can_Be_Written(program)) {
    return program;
  }
  return User_Data_Folder();
}

}  // namespace

fs::path Program_Folders::installed_file(std::string_view name) const {
  std::error_code absent;
  for (const fs::path& folder : installed) {
    if (fs::exists(folder / name, absent)) return folder / name;
  }
  return installed.empty() ? fs::path(name) : installed.front() / name;
}

Program_Folders Find_Program_Folders(const fs::path& program) {
  const fs::path home = From_Environment("BRANOK_HOME");
  Program_Folders folders{.own = Own_Folder(home, program),
                          .installed = {program, program.parent_path() / "share/branok"}};
  if (!home.empty()) folders.installed.insert(folders.installed.begin(), home);
  std::error_code no_folder;  // a save into it will tell
  fs::create_directories(folders.own, no_folder);
  return folders;
}

fs::path Running_Program_Folder() {
  std::error_code no_link;
  const fs::path program = fs::read_symlink("/proc/self/exe", no_link);
  return no_link ? fs::current_path(no_link) : program.parent_path();
}

}  // namespace branok
