// What a picture is painted on: the few operations that a list of primitives needs. The screen, a
// bitmap, SVG, PDF and paper are surfaces.
#pragma once

#include <cstdint>
#include <string_view>

#include "drawing/primitives.h"

namespace branok {

/// Where and how a text is written on a surface.
struct Text_Cell {
  Point corner;        ///< upper left corner of the first character's cell, unit square
  int width = 0;       ///< of a character's cell, pixels of the surface
  int escapement = 0;  ///< tenths of a degree, counterclockwise
  [[nodiscard]] int height() const { return 3 * width; }
};

/// Coordinates and radii are those of the unit square, pen widths pixels of the surface, colours
/// 0x00BBGGRR.
class Surface {
 public:
  Surface() = default;
  Surface(const Surface&) = delete;
  Surface& operator=(const Surface&) = delete;
  Surface(Surface&&) = delete;
  Surface& operator=(Surface&&) = delete;
  virtual ~Surface() = default;

  /// The pen goes to a point: a lone dot where no line follows.
  virtual void PSet(Point at, std::int32_t color, double width) = 0;
  /// A straight, solid line from the pen to the point.
  virtual void Line(Point to, std::int32_t color, double width) = 0;
  virtual void Circle(Point centre, double radius, std::int32_t color, double width) = 0;
  /// A part of a circle between two angles, radians, counterclockwise.
  virtual void Arc(Point centre, double radius, double start, double end, std::int32_t color,
                   double width) = 0;
  /// A line of text (UTF-8) in a serif face, weight 550, upright.
  virtual void Text(const Text_Cell& cell, std::int32_t color, std::string_view text) = 0;
  /// How many pixels of the surface the unit square's side is.
  [[nodiscard]] virtual double pixels_per_unit() const = 0;
  /// What was begun is painted now.
  virtual void finish() = 0;
};

}  // namespace branok
