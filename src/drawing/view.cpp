#include "drawing/view.h"

#include <algorithm>

namespace branok {

namespace {

constexpr double least_side = 0.02;  // of a zoom to a rectangle

struct Side {
  double low, high;
};

// One side of a zoom rectangle, in order.
Side Zoom_Side(double a, double b) {
  Side side{std::min(a, b), std::max(a, b)};
  if (side.high - side.low < least_side) {
    const double centre = (side.low + side.high) / 2;
    side = {centre - least_side / 2, centre + least_side / 2};
  }
  if (side.low < 0) side = {0, least_side};
  if (side.high > 1) side = {1 - least_side, 1};
  return side;
}

// Where a side of this width begins so that it lies within the square.
double Within(double low, double width) { return std::clamp(low, 0.0, std::max(0.0, 1 - width)); }

void Place(View_Rectangle& view, double x1, double y1, double width) {
  view.X1 = static_cast<float>(x1);
  view.Y1 = static_cast<float>(y1);
  view.X2 = static_cast<float>(x1 + width);
  view.Y2 = static_cast<float>(y1 + width);
}

}  // namespace

void Set_View(View_Rectangle& view, double side) {
  constexpr double least_height = 0.01;
  constexpr double tolerance = 0.0001;
  double x1 = view.X1;
  double x2 = view.X2;
  double y1 = view.Y1;
  double y2 = view.Y2;
  const double width = x2 - x1;
  double height = y2 - y1;
  const double cx = (x1 + x2) / 2;
  const double cy = (y1 + y2) / 2;
  if (height < least_height) {
    height = least_height;
    y1 = cy - least_height / 2;
    y2 = cy + least_height / 2;
  }
  const double ratio = width / height;
  if (ratio > 1 + tolerance) {
    y1 = cy - width / 2;
    y2 = cy + width / 2;
  } else if (ratio < 1 - tolerance) {
    x1 = cx - height / 2;
    x2 = cx + height / 2;
  }
  double zoom = 1 / (x2 - x1);
  if (zoom * side > largest_picture) {
    zoom = largest_picture / side;
    x1 = cx - cx / zoom;
    x2 = (1 - cx) / zoom + cx;
    y1 = cy - cy / zoom;
    y2 = (1 - cy) / zoom + cy;
  }
  view = {static_cast<float>(x1), static_cast<float>(y1), static_cast<float>(x2),
          static_cast<float>(y2), static_cast<float>(zoom)};
}

Area Zoom_Rectangle(Point from, Point to) {
  const Side x = Zoom_Side(from.x, to.x);
  const Side y = Zoom_Side(from.y, to.y);
  return {static_cast<float>(x.low), static_cast<float>(y.low), static_cast<float>(x.high),
          static_cast<float>(y.high)};
}

Area Ordered(Point from, Point to) {
  const auto within = [](double v) { return static_cast<float>(std::clamp(v, 0.0, 1.0)); };
  return {within(std::min(from.x, to.x)), within(std::min(from.y, to.y)),
          within(std::max(from.x, to.x)), within(std::max(from.y, to.y))};
}

void Scroll_To(View_Rectangle& view, double x1, double y1) {
  Place(view, x1, y1, view.X2 - view.X1);
}

void Zoom_At(View_Rectangle& view, Point at, double factor, double side) {
  const double width = view.X2 - view.X1;
  const double least = side / largest_picture;
  const double to = std::clamp(width / factor, std::min(least, 1.0), 1.0);
  const double share = to / width;
  Place(view, Within(at.x - (at.x - view.X1) * share, to),
        Within(at.y - (at.y - view.Y1) * share, to), to);
  Set_View(view, side);
}

void Pan(View_Rectangle& view, double dx, double dy) {
  const double width = view.X2 - view.X1;
  Scroll_To(view, Within(view.X1 + dx, width), Within(view.Y1 + dy, width));
}

}  // namespace branok
