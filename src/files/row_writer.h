// A line of a data file as it is written, field by field.
#pragma once

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <string>
#include <string_view>
#include <type_traits>

#include "files/ver6_layout.h"

namespace branok::ver6 {

/// The line being written, at the end of the output.
class Row_Writer {
 public:
  explicit Row_Writer(std::string& out) : out_(out), start_(out.size()) {}

  template <class Number>
  void number(const Field& field, Number value) {
    assert(column() == field.column);
    const Picture_Text shown = Shown(field, value);
    const std::string_view text = shown;
    const auto width = static_cast<std::size_t>(field.width);
    if (text.size() < width) out_.append(width - text.size(), ' ');
    out_ += text.substr(text.size() - std::min(text.size(), width));
  }
  void node_number(const Field& field, std::int16_t value) { number(field, value); }

  /// A line end inside a text would break the record: it becomes a blank.
  void text(const Tail& tail, std::string_view value) {
    if (tail.column > 1) out_ += ' ';
    assert(column() == tail.column);
    const std::size_t first = out_.size();
    out_ += value;
    constexpr std::string_view ends = "\r\n";
    for (std::size_t i = out_.find_first_of(ends, first); i != std::string::npos;
         i = out_.find_first_of(ends, i)) {
      out_[i] = ' ';
    }
  }

  void end() { out_ += "\r\n"; }

 private:
  [[nodiscard]] int column() const { return static_cast<int>(out_.size() - start_) + 1; }

  template <class Number>
  static Picture_Text Shown(const Field& field, Number value) {
    if constexpr (std::is_integral_v<Number>)
      return field.picture(std::int64_t{value});
    else
      return field.picture(value);
  }

  std::string& out_;
  std::size_t start_;
};

}  // namespace branok::ver6
