// Opening and saving a project: the data file together with the template of its comments, the
// check counter and the recent files. What needs a window (which file, which question) stands
// above.
#pragma once

#include <filesystem>
#include <string>

#include "core/settings.h"
#include "files/ver6.h"

namespace branok {

/// Empties the database and reads a data file into it. Its comments replace the user's template,
/// those before a fault as well. After success Check_Count is 0 and the file heads the recent
/// files. After a failure the database is empty but for Data_Ver, and the messages have been shown.
Read_Result Open_Project(Database& db, const std::filesystem::path& file,
                         const Program_Folders& folders, Settings& settings, Dialogue& dialogue);

enum class Save_Command { save, save_as };

/// Writes the data file with the comments of the user's template, or with the default ones when the
/// data do not come from a data file (Data_Ver is not 6). After success Check_Count is 0, the file
/// heads the recent files, and Data_Ver is 6: from then on the user's template holds the file's
/// comments. False after a failure, when its messages have been shown and nothing has changed.
bool Save_Project(Database& db, const std::filesystem::path& file, const Program_Folders& folders,
                  Settings& settings, Dialogue& dialogue,
                  Save_Command command = Save_Command::save);

/// The file name that Save As proposes: the first eight characters of the mine's name, without the
/// blanks around them, and ".abk".
std::string Default_File_Name(const Database& db);

}  // namespace branok
