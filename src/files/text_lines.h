// A text in memory, line by line.
#pragma once

#include <cstddef>
#include <string_view>

namespace branok {

/// The lines of a text that end in LF or CR LF; a last line without a line end is a line. Lines are
/// views of the text, byte for byte, without their line ends.
class Text_Lines {
 public:
  explicit Text_Lines(std::string_view text) : rest_(text) {}

  /// Puts the next line into `line`; false, and `line` as it was, at the end of the text.
  bool next(std::string_view& line) {
    if (rest_.empty()) return false;
    const std::size_t end = rest_.find('\n');
    line = rest_.substr(0, end);
    rest_.remove_prefix(end == std::string_view::npos ? rest_.size() : end + 1);
    if (end != std::string_view::npos && line.ends_with('\r')) line.remove_suffix(1);
    ++number_;
    return true;
  }

  [[nodiscard]] bool at_end() const { return rest_.empty(); }

  /// The number of the line last taken, from 1; 0 before the first.
  [[nodiscard]] int number() const { return number_; }

 private:
  std::string_view rest_;
  int number_ = 0;
};

}  // namespace branok
