// The part of the unit square that a picture shows, and how zooming and scrolling change it.
#pragma once

#include "drawing/primitives.h"

namespace branok {

/// The largest side of a whole picture in pixels: what it would measure if the unit square were
/// shown at the present zoom.
inline constexpr double largest_picture = 32700;

/// The shown rectangle of the unit square: View_X1 ... View_Zoom, Cad_X1 ... Cad_Zoom.
struct View_Rectangle {
  float X1 = 0, Y1 = 0, X2 = 1, Y2 = 1;
  float Zoom = 1;  ///< 1 / width
  bool operator==(const View_Rectangle&) const = default;
};

/// Two corners of the unit square.
struct Area {
  float X1 = 0, Y1 = 0, X2 = 1, Y2 = 1;
  [[nodiscard]] bool whole() const { return *this == Area{}; }
  bool operator==(const Area&) const = default;
};

/// Makes the rectangle square (the larger side wins, about its centre; a height below 0.01 first
/// becomes 0.01) and sets its zoom. When the whole picture would exceed largest_picture, the zoom
/// is the last one that fits. `side` is the frame's side in pixels, above 0.
void Set_View(View_Rectangle& view, double side);

/// What a zoom to the rectangle between two corners shows: the corners in order; a side below 0.02
/// becomes 0.02 about its centre; one that passes the square becomes 0..0.02 or 0.98..1.
Area Zoom_Rectangle(Point from, Point to);

/// The two corners in order, within the unit square.
Area Ordered(Point from, Point to);

/// Moves the rectangle so that its corner X1, Y1 lies there; its size stays. No rebuild is needed.
void Scroll_To(View_Rectangle& view, double x1, double y1);

/// Enlarges by `factor` (below 1: shrinks) so that the point `at` of the unit square stays where
/// it is shown. Never shows more than the whole square, nor more detail than largest_picture
/// allows, and stays within the square.
void Zoom_At(View_Rectangle& view, Point at, double factor, double side);

/// Moves the rectangle by a part of the unit square; it stays within the square.
void Pan(View_Rectangle& view, double dx, double dy);

}  // namespace branok
