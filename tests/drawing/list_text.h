// The lists of a picture as text, one record a line, so that pictures can be compared number by
// number with files and with other programs.
#pragma once

#include <string>
#include <vector>

#include "core/database.h"
#include "drawing/primitives.h"

namespace branok {

/// `L kind x y color width`, `C kind x y color width radius start end`,
/// `T x y color len height size angle text`, `I x y len height size angle text`: all lines, then
/// all circles, texts and labels. Numbers have 7 significant digits; blanks at the end of a text
/// are left out.
std::vector<std::string> List_Text(const Primitive_Lists& lists);

/// Gives every colour its index, so that the lists tell what a part was drawn as.
void Number_Colors(Database& db);

}  // namespace branok
