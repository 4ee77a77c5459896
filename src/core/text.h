// Texts from files are kept byte for byte; this is how they are shown.
#pragma once

#include <string>
#include <string_view>

namespace branok {

/// The bytes as UTF-8: as they are when they are valid UTF-8, else taken for Windows-1252.
std::string To_Utf8(std::string_view bytes);

}  // namespace branok
