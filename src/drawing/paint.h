// Lists of primitives on a surface.
#pragma once

#include <optional>

#include "drawing/primitives.h"
#include "drawing/surface.h"

namespace branok {

/// Where a text goes whose record says (x, y), size and angle: its centre line stays on the point.
/// `size` is the width of a character's cell in the unit square.
Text_Cell Place_Text(Point at, double size, double angle, double pixels_per_unit);

/// All lines, then all circles, then all texts. Pens are `factor` times as wide; a printer passes
/// its own, and its texts stand 1.5 such pens further left.
void Paint_Lists(const Primitive_Lists& lists, Surface& surface, double factor = 1);

/// The information labels in one colour.
void Paint_Info(const Primitive_Lists& lists, Surface& surface, std::int32_t color,
                double factor = 1);

/// Lines, circles and texts that were added behind these counts: the part of a picture that is new.
struct List_Ends {
  std::size_t line = 0, circle = 0, text = 0;
};
List_Ends Ends_Of(const Primitive_Lists& lists);
void Paint_New(const Primitive_Lists& lists, const List_Ends& from, Surface& surface);

}  // namespace branok
