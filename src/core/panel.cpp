#include "core/panel.h"

#include <algorithm>

namespace branok {

void Label::set_lines(const float* values, int count, const Picture& picture) {
  kind_ = Kind::lines;
  picture_ = &picture;
  line_count_ = std::min(count, static_cast<int>(lines_.size()));
  std::copy_n(values, line_count_, lines_.begin());
}

std::string Label::text() const {
  switch (kind_) {
    case Kind::text:
      return text_;
    case Kind::real:
      return (*picture_)(value_).text() + std::string(unit_);
    case Kind::single:
      return (*picture_)(static_cast<float>(value_)).text() + std::string(unit_);
    case Kind::lines:
      break;
  }
  std::string lines;
  for (int fan = 1; fan <= line_count_; ++fan) {
    // The blank between "#" and the number is the place of its sign.
    lines += "# " + std::to_string(fan) + "  -> ";
    lines += (*picture_)(lines_[static_cast<std::size_t>(fan - 1)]).view();
    lines += '\n';
  }
  return lines;
}

}  // namespace branok
