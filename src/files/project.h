// Opening and saving a project: the data file together with the template of its comments, the
// check counter and the recent files. What needs a window (which file, which question) stands
// above.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

#include "core/settings.h"
#include "files/ver6.h"

namespace branok {

/// The open mine: its tables, the comments of its file, and the file that Save writes.
struct Project {
  Database db;
  Comment_Template comments;
  std::filesystem::path file;      ///< of the last open or save; empty: Save acts as Save As
  bool template_is_stale = false;  ///< the user's template could not take the comments
};

/// Empties the database and reads a data file into it. Its comments replace the user's template,
/// those before a fault as well. After success Check_Count is 0, the project's file is this one and
/// heads the recent files by its full name. After a failure the database is empty but for Data_Ver,
/// the project has no file, so that a save cannot put the empty mine in the place of a good one,
/// and the messages have been shown.
Read_Result Open_Project(Project& project, const std::filesystem::path& file,
                         const Program_Folders& folders, Settings& settings, Dialogue& dialogue);

/// Opens recent file `row` (0..3). A file that cannot be opened for reading any more is told, and
/// leaves project and list as they were: then nothing is returned.
std::optional<Read_Result> Open_Recent(Project& project, int row, const Program_Folders& folders,
                                       Settings& settings, Dialogue& dialogue);

enum class Save_Command { save, save_as };

/// Writes the data file with the comments of the user's template (with those that the project holds
/// when that template is gone), or with the default ones when the data do not come from a data file
/// (Data_Ver is not 6). After success Check_Count is 0, the project's file is this one and heads
/// the recent files by its full name, and Data_Ver is 6: from then on the user's template holds the
/// file's comments, or, where it cannot be written, the project does. False after a failure, when
/// its messages have been shown and nothing has changed.
bool Save_Project(Project& project, const std::filesystem::path& file,
                  const Program_Folders& folders, Settings& settings, Dialogue& dialogue,
                  Save_Command command = Save_Command::save);

/// The file name that Save As proposes: the first eight characters of the mine's name, without the
/// blanks around them, and ".abk".
std::string Default_File_Name(const Database& db);

}  // namespace branok
