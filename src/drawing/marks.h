// The marks of nodes and airways, as the Graphic and the CAD picture share them: circles, intakes,
// fans, doors, regulators, stoppings, arrows and node numbers, all measured in the mark size S.
#pragma once

#include <initializer_list>

#include "core/database.h"
#include "drawing/primitives.h"

namespace branok {

using Color_Table = List<std::int32_t, 10>;

/// What Node_Type says of a node.
namespace node_class {
inline constexpr int plain = 0, inlet = 1, surface_fan = 2, underground_fan = 3;
}

/// What a drawing of the network is made from, and where it goes.
struct Drawing {
  const Database& db;
  const Node_Table<float>& X;  ///< of the nodes, in the unit square
  const Node_Table<float>& Y;
  double S = 0;     ///< radius of a node's circle and unit of every mark; 0: no marks
  double trim = 1;  ///< an airway's line begins this many S from its node
  const Color_Table& colors;
  Primitive_Lists& lists;
  /// Everything is drawn in the colour of the background, which wipes it from a picture.
  bool erase = false;
  /// Where the airways' vectors are kept for picking; null when a part is drawn for the moment.
  Airway_Directions* directions = nullptr;

  void move(Point to, int color, int width = 1) const;
  void line(Point to, int color, int width = 1) const;
  void polyline(std::initializer_list<Point> points, int color, int width = 1) const;
  void circle(Point centre, int color) const;
  /// A text record; Size is `size`, the text is cut to 6 characters.
  void text(Point at, int color, double height, double size, double angle,
            std::string_view text) const;
  void info(Point at, double height, double size, double angle, std::string_view text) const;
  [[nodiscard]] Point node(int i) const { return {X[i], Y[i]}; }

 private:
  [[nodiscard]] std::int32_t pen(int color) const;
};

/// The way from node a to node b.
struct Airway_Vector {
  Point a, b;
  double dx = 0, dy = 0;
  double len = 0;  ///< at least 0.001
  double t = 0;    ///< direction, radians, counterclockwise from the x axis

  /// The point at distance r from a, at angle u.
  [[nodiscard]] Point polar(double r, double u) const;
  /// A vector of this length from a towards b.
  [[nodiscard]] Point along(double length) const;
};
Airway_Vector Vector_Of(const Drawing& drawing, int a, int b);

/// The node's mark by its Node_Type, with its number. Raises Run_Time_Error when a number is
/// outside its table.
void Build_Node(const Drawing& drawing, int node);
/// A circle with the node's number, whatever its Node_Type.
void Build_Plain_Node(const Drawing& drawing, int node);

/// The airway of a slot: its line, a second one when it is switched, and its mark by Root_Type.
/// Raises Run_Time_Error when a number is outside its table.
void Build_Airway(const Drawing& drawing, int node, int slot);

/// Whether the airway's mark leaves room for an information label: doors and stoppings do not.
bool Has_Label_Room(const Database& db, int node, int slot);

/// The first `count` characters of a text whose bytes may be UTF-8, and how many they are.
std::string_view First_Characters(std::string_view utf8, int count);
int Character_Count(std::string_view utf8);

/// pi as the angles of all drawings have it.
inline constexpr double drawing_pi = 3.1415927;

}  // namespace branok
