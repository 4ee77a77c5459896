#include "files/ver6_lines.h"

#include "core/database.h"

namespace branok::ver6 {

void Row_Reader::node_number(const Field& field, std::int16_t& value) const {
  number(field, value);
  if (value < 0 || value > max_nodes) Outside_Table(value, max_nodes);
}

std::string_view Section_Lines::raw_line() {
  if (!lines_.next(line_)) throw Run_Time_Error("the file ends within its head");
  return line_;
}

std::string_view Section_Lines::Next_Data_Line() {
  bool commented = false;
  while (Is_Comment(raw_line())) {
    comments_.add_comment(line_);
    commented = true;
  }
  if (commented && !Is_Terminator(line_)) comments_.end_block();
  return line_;
}

void Section_Lines::end_head() {
  while (lines_.next(line_)) {
    if (Is_Terminator(line_)) return;
    if (!Is_Comment(line_)) throw Run_Time_Error("the head does not end after its third note");
  }
}

bool Section_Lines::next_row(std::string_view& row, bool keep_comments, End end) {
  while (lines_.next(line_)) {
    if (end == End::exact ? line_ == "**" : Is_Terminator(line_)) {
      comments_.end_block(line_);
      return false;
    }
    if (!Is_Comment(line_)) {
      row = line_;
      return true;
    }
    if (keep_comments) comments_.add_comment(line_);
  }
  return false;
}

bool Section_Lines::first_line(std::string_view& row, End end) {
  if (next_row(row, true, end)) {
    comments_.end_block();
    return true;
  }
  missing_block();
  return false;
}

}  // namespace branok::ver6
