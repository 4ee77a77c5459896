// What the program remembers from one start to the next: the place of its window and the last
// files, in "branok.ini"; and the folders in which it keeps its own things.
#pragma once

#include <array>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace branok {

/// Where the program keeps and finds its own files.
struct Program_Folders {
  std::filesystem::path own;                     ///< writable: branok.ini, UserDef.cmt
  std::vector<std::filesystem::path> installed;  ///< where installed files are looked for, in order

  /// An installed file or folder ("branok-def.cmt", "DATA"), each looked for by itself; where none
  /// of the folders holds it, its place in the first one.
  [[nodiscard]] std::filesystem::path installed_file(std::string_view name) const;

  [[nodiscard]] std::filesystem::path Ini_Path() const { return own / "branok.ini"; }
  [[nodiscard]] std::filesystem::path user_template() const { return own / "UserDef.cmt"; }
  [[nodiscard]] std::filesystem::path default_template() const {
    return installed_file("branok-def.cmt");
  }
};

/// The folders of the program that stands in `program`. Own is BRANOK_HOME when that is set, else
/// the program's folder; where that one is not writable it is $XDG_DATA_HOME/branok
/// (~/.local/share/branok). It is made when it is missing. Installed files are looked for in
/// BRANOK_HOME, in the program's folder and in ../share/branok beside it.
Program_Folders Find_Program_Folders(const std::filesystem::path& program);

/// The folder of the running program.
std::filesystem::path Running_Program_Folder();

inline constexpr int recent_rows = 4;
inline constexpr std::size_t longest_recent = 259;  ///< characters of a recent file name

struct Settings {
  int top = 0;                                       ///< of the main window, twips
  int left = 0;                                      ///< twips
  std::array<std::string, recent_rows> Recent_File;  ///< newest first; a row may be empty

  bool operator==(const Settings&) const = default;
};

/// The settings in a file; a missing file or a bad entry gives the defaults. Raises nothing.
Settings Load_Settings(const std::filesystem::path& ini);

/// Writes the recent files and `end_time` (a date, a blank, a time), and the window's place when
/// `with_position` (a window that is maximised keeps its old place). Other entries of the file
/// stay. Raises Run_Time_Error when the file cannot be written.
void Save_Settings(const Settings& settings, const std::filesystem::path& ini, bool with_position,
                   std::string_view end_time);

/// The present date and time as the settings file shows them, "YYYY/MM/DD hh:mm:ss".
std::string End_Time();

/// Puts a file name at the head of the recent files. A name that stands there already moves up; a
/// new one pushes the last one out.
void Add_Recent(Settings& settings, const std::string& name);

}  // namespace branok
