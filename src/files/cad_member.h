// The drawing of a mine as a file of its own: the `.cad` member of the older file set. The copy
// that is kept of a drawing before a new one takes its place is such a file.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "core/database.h"

namespace branok {

/// The bytes of the file, lines ending in CR LF: name of the mine, `today`, totals, colours, then
/// every node with its position and the classes of its airways. Raises Run_Time_Error when a
/// position is no number or a count is outside its table.
std::string Cad_Member(const Database& db, std::string_view today);

/// Makes the file hold them. Raises Run_Time_Error on any fault; an older file is then untouched.
void Write_Cad_Member(const Database& db, const std::filesystem::path& file,
                      std::string_view today);

}  // namespace branok
