// The lines of a data file as its sections take them: comments go to the template on the way, rows
// are handed over field by field.
#pragma once

#include <algorithm>
#include <string>
#include <string_view>

#include "core/table.h"
#include "files/comment_template.h"
#include "files/text_lines.h"
#include "files/ver6_layout.h"

namespace branok::ver6 {

/// Takes the fields out of one line. Raises Run_Time_Error where a field holds no number.
class Row_Reader {
 public:
  explicit Row_Reader(std::string_view line) : line_(line) {}

  [[nodiscard]] int integer(const Field& field) const { return Parse_Int32(cut(field)); }

  template <class Number>
  void number(const Field& field, Number& value) const {
    parse(cut(field), value);
  }
  void number(const Last_Field& field, std::int16_t& value) const {
    const auto width = static_cast<std::size_t>(field.width);
    parse(line_.substr(line_.size() - std::min(line_.size(), width)), value);
  }
  template <class Number>
  void number(const Whole_Line&, Number& value) const {
    parse(line_, value);
  }

  /// The number of a node, 0 where none is meant: it must fit the node table.
  void node_number(const Field& field, std::int16_t& value) const;

  void text(const Tail& tail, std::string& value) const { value = from(tail.column); }

 private:
  [[nodiscard]] std::string_view from(int column) const {
    return line_.substr(std::min(line_.size(), static_cast<std::size_t>(column - 1)));
  }
  [[nodiscard]] std::string_view cut(const Field& field) const {
    return from(field.column).substr(0, static_cast<std::size_t>(field.width));
  }

  static void parse(std::string_view text, std::int16_t& value) { value = Parse_Int16(text); }
  static void parse(std::string_view text, std::int32_t& value) { value = Parse_Int32(text); }
  static void parse(std::string_view text, float& value) { value = Parse_Single(text); }
  static void parse(std::string_view text, double& value) { value = Parse_Double(text); }

  std::string_view line_;
};

/// What closes a section: a line that begins with "**", or, for the last section, only "**" itself.
enum class End { marked, exact };

class Section_Lines {
 public:
  Section_Lines(std::string_view bytes, Comment_Template& comments)
      : lines_(bytes), comments_(comments) {}

  [[nodiscard]] int line_number() const { return lines_.number(); }

  /// The next line, whatever it is. Raises Run_Time_Error at the end of the file.
  std::string_view raw_line();

  /// A line of the head: comments before it go to the template as a block of their own, if there
  /// are any. A "**" line is a line like others here. Raises Run_Time_Error at the end of the file.
  std::string_view Next_Data_Line();

  /// Passes the "**" of the head. Raises Run_Time_Error when data stand there instead.
  void end_head();

  /// Hands every data row up to the end of the section to `store`; the end of the file ends it as
  /// well. Comments before the first row are kept, with `all_comments` all of them. The number of
  /// rows.
  template <class Store>
  int rows(Store store, bool all_comments = false, End end = End::marked) {
    int count = 0;
    for (std::string_view row; next_row(row, all_comments || count == 0, end); ++count) {
      store(Row_Reader(row));
    }
    return count;
  }

  /// Hands the lines 1..count of a section with a block of comments before each to
  /// `store`(row, line number). The number of data lines; one beyond `count` is not stored and ends
  /// the section.
  template <class Store>
  int fixed_lines(int count, Store store) {
    int n = 0;
    for (std::string_view row; next_row(row, true, End::marked);) {
      if (++n > count) break;
      store(Row_Reader(row), n);
      if (n < count) comments_.end_block();
    }
    return n;
  }

  /// The first line of a section whose rows have a block of comments of their own. False when the
  /// section has no line at all.
  bool first_line(std::string_view& row, End end = End::marked);

  /// Adds an empty block for a line that the section did not have, so that the comments of the
  /// sections below it stay where they are.
  void missing_block() {
    if (!lines_.at_end()) comments_.end_block();
  }

  /// Keeps a data row as a comment.
  void keep_as_comment(std::string_view row) { comments_.add_comment(row); }

  /// The row last handed over.
  [[nodiscard]] std::string_view row() const { return line_; }

 private:
  /// False at the end of the section, which is copied to the template, or of the file.
  bool next_row(std::string_view& row, bool keep_comments, End end);

  Text_Lines lines_;
  Comment_Template& comments_;
  std::string_view line_;
};

}  // namespace branok::ver6
