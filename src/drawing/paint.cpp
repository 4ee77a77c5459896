#include "drawing/paint.h"

#include <cmath>

#include "core/numbers.h"
#include "drawing/marks.h"

namespace branok {

namespace {

constexpr double printer_shift = 1.5;  // pens that a printer's texts stand further left

void Paint_Text(Surface& surface, Point at, float height, float angle, std::int32_t color,
                std::string_view text, double factor) {
  if (!text.empty() && text.front() == ' ') text.remove_prefix(1);
  if (text.empty() || !std::isfinite(at.x + at.y + height + angle)) return;
  if (factor != 1) at.x -= printer_shift * factor / surface.pixels_per_unit();
  const Text_Cell cell = Place_Text(at, height, angle, surface.pixels_per_unit());
  if (cell.width > 0) surface.Text(cell, color, text);
}

void Paint_From(const Primitive_Lists& lists, const List_Ends& from, Surface& surface,
                double factor) {
  for (std::size_t k = from.line; k < lists.Line.size(); ++k) {
    const Line_Record& line = lists.Line[k];
    const Point at{line.X, line.Y};
    if (line.Kind == 'M') {
      surface.PSet(at, line.Color, line.Width * factor);
    } else {
      surface.Line(at, line.Color, line.Width * factor);
    }
  }
  for (std::size_t k = from.circle; k < lists.Circle.size(); ++k) {
    const Circle_Record& c = lists.Circle[k];
    if (c.Kind == 'A') {
      surface.Arc({c.X, c.Y}, c.Radius, c.Start, c.End, c.Color, c.Width * factor);
    } else {
      surface.Circle({c.X, c.Y}, c.Radius, c.Color, c.Width * factor);
    }
  }
  for (std::size_t k = from.text; k < lists.Text.size(); ++k) {
    const Text_Record& text = lists.Text[k];
    Paint_Text(surface, {text.X, text.Y}, text.Height, text.Angle, text.Color, text.Text, factor);
  }
  surface.finish();
}

}  // namespace

Text_Cell Place_Text(Point at, double size, double angle, double pixels_per_unit) {
  Text_Cell cell;
  cell.width = static_cast<int>(Round(size * pixels_per_unit));
  cell.escapement = static_cast<int>(Round(angle * 1800 / drawing_pi));
  cell.corner = at + Point{-(1.5 * std::sin(angle) + 0.2) * size, -std::cos(angle) * size};
  return cell;
}

void Paint_Lists(const Primitive_Lists& lists, Surface& surface, double factor) {
  Paint_From(lists, {}, surface, factor);
}

void Paint_Info(const Primitive_Lists& lists, Surface& surface, std::int32_t color, double factor) {
  for (const Info_Record& info : lists.Info) {
    Paint_Text(surface, {info.X, info.Y}, info.Height, info.Angle, color, info.Text, factor);
  }
  surface.finish();
}

List_Ends Ends_Of(const Primitive_Lists& lists) {
  return {lists.Line.size(), lists.Circle.size(), lists.Text.size()};
}

void Paint_New(const Primitive_Lists& lists, const List_Ends& from, Surface& surface) {
  Paint_From(lists, from, surface, 1);
}

}  // namespace branok
