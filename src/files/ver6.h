// The one-file format: a mine as one text file of fixed columns, which the user's comments travel
// with. The layout of its records stands in ver6_layout.h and ver6_rows.h.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/database.h"
#include "core/dialogue.h"
#include "files/comment_template.h"

namespace branok {

struct Read_Result {
  bool ok = false;
  int line = 0;         ///< of the fault, from 1; 0 when the file itself could not be read
  std::string fault;    ///< what was wrong, for a terminal or the status bar; empty when ok
  bool silent = false;  ///< a failure that shows no message: another version, too many lines
};

/// Reads a mine from the bytes of a data file. The tables should be empty (Reset_Database); after a
/// failure they are as the faulty line left them. `comments` is replaced by the comments read, also
/// by those before a fault. Raises nothing.
Read_Result Read_Ver6_Text(Database& db, std::string_view bytes, Comment_Template& comments);

/// As Read_Ver6_Text, from a file. A file that cannot be opened leaves `comments` as they were.
Read_Result Read_Ver6(Database& db, const std::filesystem::path& file, Comment_Template& comments);

/// The same with the busy pointer and the failure message.
Read_Result Read_Ver6(Database& db, const std::filesystem::path& file, Comment_Template& comments,
                      Dialogue& dialogue);

/// The bytes of the data file of a mine. Raises Run_Time_Error when a number is infinite or none,
/// or a total is beyond its table.
std::string Ver6_Text(const Database& db, const Comment_Template& comments);

/// Writes the data file. False, after the failure message, when that is impossible; a file of that
/// name is then as it was.
bool Write_Ver6(const Database& db, const std::filesystem::path& file,
                const Comment_Template& comments, Dialogue& dialogue);

}  // namespace branok
