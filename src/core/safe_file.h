// Whole files in and out of memory. A write replaces the old file in one step: a crash, a full disk
// or a kill at any moment leaves the old file or the new one, whole.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace branok {

/// The largest file that Read_Whole takes, in bytes: far above any mine, far below the memory.
inline constexpr std::size_t largest_file = std::size_t{256} * 1024 * 1024;

/// All bytes of a file. Raises Run_Time_Error, with the system's reason, when it is missing, cannot
/// be read, is a folder, a pipe or a device, or is larger than largest_file.
std::string Read_Whole(const std::filesystem::path& file);

/// Makes `bytes` the whole content of `file`. The bytes go to a new file in the same folder, which
/// takes the old one's name when it is safely on disk; the old one's permissions are kept, and a
/// symbolic link stays a link to the file so written. Raises Run_Time_Error, with the system's
/// reason, on any fault; the old file is then untouched and nothing else is left behind.
void Write_Whole(const std::filesystem::path& file, std::string_view bytes);

}  // namespace branok
