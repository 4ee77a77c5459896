// The comments that travel with a data file. A read lifts the comment lines out of the data file
// into a template; a write merges the template back, one block before each record or run of rows.
#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <string_view>

namespace branok {

/// A line that closes a section of a data file or a block of a template: it begins with "**".
inline bool Is_Terminator(std::string_view line) { return line.starts_with("**"); }

/// A line for the human reader: its first character is "*" and its second is not.
inline bool Is_Comment(std::string_view line) {
  return line.starts_with('*') && !line.starts_with("**");
}

/// Blocks of comment lines, each closed by a "**" line; the last one may be open.
class Comment_Template {
 public:
  void clear() { text_.clear(); }

  /// Adds a line to the present block. A line that is no comment gets a "*" in front: it would be
  /// read as data once it stands in a data file.
  void add_comment(std::string_view line);

  /// Closes the present block.
  void end_block(std::string_view terminator = "**");

  /// The blocks as a template file holds them, lines ended by CR LF.
  [[nodiscard]] const std::string& text() const { return text_; }

  /// The blocks of a template file's text, whose lines may end in LF as well.
  static Comment_Template From_Text(std::string_view text);

  /// Reads a template file. Raises Run_Time_Error when it is missing or cannot be read.
  static Comment_Template Load(const std::filesystem::path& file);

  /// Replaces a template file. Raises Run_Time_Error when it cannot be written.
  void save(const std::filesystem::path& file) const;

  bool operator==(const Comment_Template&) const = default;

 private:
  std::string text_;
};

/// Walks through a template while a data file is written.
class Template_Cursor {
 public:
  explicit Template_Cursor(const Comment_Template& comments) : rest_(comments.text()) {}

  /// Appends the lines up to the next "**" line to `out` and passes that line; at the end of the
  /// template it appends nothing.
  void Copy_Comment_Block(std::string& out);

 private:
  std::string_view rest_;
};

}  // namespace branok
