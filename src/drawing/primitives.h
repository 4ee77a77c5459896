// A picture as lists of primitives in the unit square: x to the right, y downward, 0..1. The lists
// are rebuilt from the database whenever it or the view changes, and painted on any surface.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "core/database.h"

namespace branok {

struct Point {
  double x = 0, y = 0;
  friend Point operator+(Point a, Point b) { return {a.x + b.x, a.y + b.y}; }
  friend Point operator-(Point a, Point b) { return {a.x - b.x, a.y - b.y}; }
  friend Point operator*(double k, Point a) { return {k * a.x, k * a.y}; }
  bool operator==(const Point&) const = default;
};

/// One pen operation.
struct Line_Record {
  char Kind = 'M';  ///< 'M' the pen moves to the point, 'L' it draws to it
  float X = 0, Y = 0;
  std::int32_t Color = 0;  ///< 0x00BBGGRR
  std::int16_t Width = 1;  ///< of the pen, pixels
  bool operator==(const Line_Record&) const = default;
};

struct Circle_Record {
  char Kind = 'C';  ///< 'C' circle, 'A' arc
  float X = 0, Y = 0;
  std::int32_t Color = 0;
  std::int16_t Width = 1;
  float Radius = 0;
  float Start = 0, End = 0;  ///< angles of an arc, radians, counterclockwise; 0 for a circle
  bool operator==(const Circle_Record&) const = default;
};

/// A number beside a node or a grid line.
struct Text_Record {
  float X = 0, Y = 0;
  std::int32_t Color = 0;
  std::int16_t Len = 0;  ///< characters
  float Height = 0;      ///< width of a character's cell
  float Size = 0;        ///< room that the text's place was reckoned with
  float Angle = 0;       ///< radians, counterclockwise
  std::string Text;      ///< at most 6 characters
  bool operator==(const Text_Record&) const = default;
};

/// An information label. It has no colour of its own, so that it can be wiped alone.
struct Info_Record {
  float X = 0, Y = 0;
  std::int16_t Len = 0;
  float Height = 0, Size = 0, Angle = 0;
  std::string Text;  ///< at most 12 characters
  bool operator==(const Info_Record&) const = default;
};

/// The four lists of a picture.
struct Primitive_Lists {
  std::vector<Line_Record> Line;
  std::vector<Circle_Record> Circle;
  std::vector<Text_Record> Text;
  std::vector<Info_Record> Info;

  /// Empties all lists; their memory stays for the next build.
  void clear();
  bool operator==(const Primitive_Lists&) const = default;
};

/// Vector and length of each airway as it was drawn last, by (slot, node) of its lower-numbered
/// end; 0 for an airway that was not drawn. Picking reads them.
struct Airway_Directions {
  Root_Table<float> DirX, DirY, DirLen;
  void clear();
};

/// The indices of the two colour tables, Graph_Color and Cad_Color.
namespace color {
inline constexpr int node_circle = 1, airway = 2, number = 3, inlet = 4, main_fan = 5,
                     assist_fan = 6, door = 7, marking = 8, grid = 9, back = 10;
}

}  // namespace branok
