#include "drawing/marks.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <string>

#include "core/text.h"

namespace branok {

namespace {

// Regulator classes, Root_Type without its sign.
enum Airway_Class { open = 0, door = 1, assist_fan = 2, regulator = 3, two_doors = 4, stop = 5 };

constexpr int wide = 2;                     // pen of a mark's strong sides
constexpr double blocked_intake = 2000;     // murgue: an intake above it is drawn crossed
constexpr double eighth_turn = 0.39269909;  // pi/8: half the opening of an underground fan

bool Is_Continuation(char c) { return (static_cast<unsigned char>(c) & 0xC0) == 0x80; }

Point Middle(Point a, Point b) { return 0.5 * (a + b); }

// Half the opening angle under which a mark of half-width `half` is seen from distance r. A mark
// that would open wider than 1 radian is not drawn.
struct Opening {
  double u;
  [[nodiscard]] bool fits() const { return u <= 1; }
};
Opening Opening_Of(double half, double r) { return {r > 0 ? half / r : HUGE_VAL}; }

// --- Airways

// The arrow is seen from the airway's far end, by the flow's sign there, and points with the air.
// Without results no sign holds: the barbs then fall together.
void Flow_Arrow(const Drawing& d, int node, int slot) {
  const int far = d.db.Node_Junc(slot, node);
  const Airway_Vector v = Vector_Of(d, far, node);
  if (v.len < 3 * d.S) return;
  const int back = Find_Slot(d.db, far, node);
  const int sign = d.db.Flag_Results != 0 ? d.db.Root_FlowSign(back, far) : 0;
  const double r = v.len / 2 - sign * 0.8 * d.S;
  const double u = std::atan(0.2 * d.S / r);
  d.polyline({v.polar(r, v.t - u), Middle(v.a, v.b), v.polar(r, v.t + u)}, color::number);
}

// One bar across the airway for a door, two for two doors, as long as no flow is known.
void Door_Bars(const Drawing& d, const Airway_Vector& v, bool two) {
  const double r = v.len / 2 + 0.5 * d.S;
  const Opening opening = Opening_Of(0.5 * d.S, r);
  if (!opening.fits()) return;
  const Point p1 = v.polar(r, v.t - opening.u);
  const Point p2 = v.polar(r, v.t + opening.u);
  d.polyline({p1, p2}, color::door);
  const Point back = v.along(-0.5 * d.S);
  if (two) d.polyline({p1 + back, p2 + back}, color::door);
}

// A leaf with a wedge that points against the air.
void Door_Leaves(const Drawing& d, const Airway_Vector& v, int sign, bool two) {
  const double h = v.len / 2;
  const double r1 = h + sign * d.S;
  const double r2 = h + 0.8 * d.S;
  const Opening first = Opening_Of(0.6 * d.S, r1);
  const Opening second = Opening_Of(0.6 * d.S, r2);
  if (r1 < 0 || !first.fits() || !second.fits()) return;
  const Point A = Middle(v.polar(r1, v.t - first.u), v.polar(r2, v.t - second.u));
  const Point B = Middle(v.polar(r1, v.t + first.u), v.polar(r2, v.t + second.u));
  const Point Q3 = 0.25 * (3 * A + B);
  const Point Q4 = 0.25 * (A + 3 * B);
  const Point apex = Middle(A, B) + v.along(-sign * 0.5 * d.S);
  const auto leaf = [&](Point shift) {
    d.polyline({A + shift, B + shift}, color::door);
    d.polyline({Q3 + shift, apex + shift, Q4 + shift}, color::door);
  };
  leaf({0, 0});
  if (two) leaf(v.along(-0.5 * d.S));
}

void Door_Mark(const Drawing& d, const Airway_Vector& v, int node, int slot, bool two) {
  if (v.len < 2 * d.S) return;
  if (d.db.Flag_Results == 0) {
    Door_Bars(d, v, two);
  } else {
    Door_Leaves(d, v, d.db.Root_FlowSign(slot, node), two);
  }
}

// A box with an arrow in the fan's direction: from a to b, or from b to a when `reversed`.
void Assist_Fan_Box(const Drawing& d, const Airway_Vector& v, bool reversed) {
  if (v.len < 3 * d.S) return;
  const double r = v.len / 2 - 0.7 * d.S;
  const double u = std::atan(0.4 * d.S / r);
  const Point P1 = v.polar(r, v.t - u);
  const Point P2 = v.polar(r, v.t + u);
  const Point P4 = P1 + v.along(1.4 * d.S);
  const Point P3 = P2 + v.along(1.4 * d.S);
  d.move(P4, color::assist_fan, wide);
  d.line(P1, color::assist_fan, wide);
  d.line(P2, color::assist_fan);
  d.line(P3, color::assist_fan, wide);
  d.line(P4, color::assist_fan);
  const Point M1 = Middle(P1, P4);
  const Point M2 = Middle(P2, P3);
  const Point M3 = Middle(P1, P2);
  const Point M4 = Middle(P3, P4);
  const Point tip = reversed ? M3 : M4;
  d.polyline({M1, tip, M2}, color::airway);
  d.polyline({tip, reversed ? M4 : M3}, color::airway);
}

// The four corners of a regulator or a stopping: a bar at each side of the airway's middle.
struct Two_Bars {
  Point p1, p2, q1, q2;
  bool fits;
};
Two_Bars Bars_Of(const Drawing& d, const Airway_Vector& v, double half) {
  const double r = v.len / 2 - 0.6 * d.S;
  const Opening opening = Opening_Of(half, r);
  const Point p1 = v.polar(r, v.t - opening.u);
  const Point p2 = v.polar(r, v.t + opening.u);
  const Point shift = v.along(1.2 * d.S);
  return {p1, p2, p1 + shift, p2 + shift, v.len >= 2 * d.S && opening.fits()};
}

void Regulator_Mark(const Drawing& d, const Airway_Vector& v) {
  const Two_Bars bars = Bars_Of(d, v, 0.4 * d.S);
  if (!bars.fits) return;
  d.move(bars.p1, color::door);
  d.line(bars.p2, color::door);
  d.line(bars.q1, color::door, wide);
  d.line(bars.q2, color::door);
  d.line(bars.p1, color::door, wide);
}

void Stop_Mark(const Drawing& d, const Airway_Vector& v) {
  const Two_Bars bars = Bars_Of(d, v, 0.3 * d.S);
  if (!bars.fits) return;
  d.move(bars.p1, color::door);
  d.line(bars.p2, color::door);
  d.line(bars.q2, color::door, wide);
  d.line(bars.q1, color::door);
  d.line(bars.p1, color::door, wide);
  // The diagonals.
  d.line(bars.q2, color::door);
  d.line(bars.q1, color::door);
  d.line(bars.p2, color::door);
}

void Airway_Mark(const Drawing& d, const Airway_Vector& v, int node, int slot) {
  const int type = d.db.Root_Type(slot, node);
  switch (std::abs(type)) {
    case open:
      if (d.db.Flag_Results != 0) Flow_Arrow(d, node, slot);
      return;
    case door:
    case two_doors:
      return Door_Mark(d, v, node, slot, std::abs(type) == two_doors);
    case assist_fan:
      return Assist_Fan_Box(d, v, type < 0);
    case regulator:
      Regulator_Mark(d, v);
      return Flow_Arrow(d, node, slot);
    case stop:
      return Stop_Mark(d, v);
    default:
      return;
  }
}

// --- Nodes

// Which way an intake or a surface fan looks: along x or y, v = -1 or 1 away from the airway. The
// marks are told along x and turned here.
struct Outlook {
  Point node;
  bool along_x;
  int v;
  [[nodiscard]] Point at(double along, double across) const {
    return along_x ? node + Point{along, across} : node + Point{across, along};
  }
};
Outlook Outlook_Of(const Drawing& d, int node) {
  const Airway_Vector way = Vector_Of(d, d.db.Node_Junc(1, node), node);
  const bool along_x = 1.5 * std::abs(way.dy) <= std::abs(way.dx);
  return {d.node(node), along_x, -Sign(along_x ? way.dx : way.dy)};
}

// A funnel that opens to the outside; crossed when hardly any air can come in.
void Intake_Mark(const Drawing& d, int node) {
  const Outlook o = Outlook_Of(d, node);
  const double S = d.S;
  const Point p1 = o.at(-0.5 * o.v * S, -1.5 * S);
  const Point p2 = o.at(-0.5 * o.v * S, -0.7 * S);
  const Point p3 = o.at(o.v * S, -0.7 * S);
  const Point p4 = o.at(o.v * S, 0.7 * S);
  const Point p5 = o.at(-0.5 * o.v * S, 0.7 * S);
  const Point p6 = o.at(-0.5 * o.v * S, 1.5 * S);
  d.polyline({p1, p2, p3, p4, p5, p6}, color::inlet);
  if (d.db.Root_Resist(1, node) < blocked_intake) return;
  for (const Point p : {p2, p4, p5, p3}) d.line(p, color::inlet);
}

void Surface_Fan_Mark(const Drawing& d, int node) {
  const Outlook o = Outlook_Of(d, node);
  const double S = d.S;
  d.polyline({o.at(0, -S), o.at(-3 * o.v * S, -1.5 * S), o.at(-3 * o.v * S, 1.5 * S), o.at(0, S)},
             color::main_fan);
  d.circle(d.node(node), color::main_fan);
}

// A wedge from the suction node to its discharge node.
void Underground_Fan_Mark(const Drawing& d, int node) {
  for (int f = 1; f <= d.db.MFan_Total; ++f) {
    if (d.db.MFan_Suction[f] != node) continue;
    const int discharge = d.db.MFan_Discharge[f];
    if (discharge == node) return;
    const Airway_Vector v = Vector_Of(d, node, discharge);
    d.polyline({v.polar(d.S, v.t + eighth_turn), v.polar(3 * d.S, v.t + eighth_turn),
                v.polar(3 * d.S, v.t - eighth_turn), v.polar(d.S, v.t - eighth_turn)},
               color::main_fan);
    d.circle(v.b, color::main_fan);
    return;
  }
}

void Node_Number(const Drawing& d, int node) {
  const std::string number = std::to_string(node);
  const double height = 0.4 * d.S;
  const double size = 2.5 * height;
  const Point shift{-(static_cast<double>(number.size()) + 0.75) * 0.5 * height, -0.15 * size};
  d.text(d.node(node) + shift, color::number, height, size, 0, number);
}

}  // namespace

bool Has_Label_Room(const Database& db, int node, int slot) {
  const int type = std::abs(int{db.Root_Type(slot, node)});
  return type < two_doors && type != door;
}

std::string_view First_Characters(std::string_view utf8, int count) {
  std::size_t end = 0;
  for (; end < utf8.size(); ++end) {
    if (!Is_Continuation(utf8[end]) && count-- == 0) break;
  }
  return utf8.substr(0, end);
}

int Character_Count(std::string_view utf8) {
  return static_cast<int>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return !Is_Continuation(c); }));
}

// --- Drawing

std::int32_t Drawing::pen(int color) const { return colors[erase ? color::back : color]; }

void Drawing::move(Point to, int color, int width) const {
  lists.Line.push_back(
      {'M', static_cast<float>(to.x), static_cast<float>(to.y), pen(color), To_Int16(width)});
}

void Drawing::line(Point to, int color, int width) const {
  lists.Line.push_back(
      {'L', static_cast<float>(to.x), static_cast<float>(to.y), pen(color), To_Int16(width)});
}

void Drawing::polyline(std::initializer_list<Point> points, int color, int width) const {
  move(*points.begin(), color, width);
  for (const Point* p = points.begin() + 1; p != points.end(); ++p) line(*p, color, width);
}

void Drawing::circle(Point centre, int color) const {
  lists.Circle.push_back({'C', static_cast<float>(centre.x), static_cast<float>(centre.y),
                          pen(color), 1, static_cast<float>(S), 0, 0});
}

void Drawing::text(Point at, int color, double height, double size, double angle,
                   std::string_view text) const {
  constexpr int longest = 6;
  const std::string_view cut = First_Characters(text, longest);
  lists.Text.push_back({static_cast<float>(at.x), static_cast<float>(at.y), pen(color),
                        To_Int16(Character_Count(cut)), static_cast<float>(height),
                        static_cast<float>(size), static_cast<float>(angle), std::string(cut)});
}

void Drawing::info(Point at, double height, double size, double angle,
                   std::string_view text) const {
  constexpr int longest = 12;
  const std::string_view cut = First_Characters(text, longest);
  lists.Info.push_back({static_cast<float>(at.x), static_cast<float>(at.y),
                        To_Int16(Character_Count(cut)), static_cast<float>(height),
                        static_cast<float>(size), static_cast<float>(angle), std::string(cut)});
}

// --- Airway_Vector

Airway_Vector Vector_Of(const Drawing& d, int a, int b) {
  constexpr double shortest = 0.001;
  Airway_Vector v{.a = d.node(a), .b = d.node(b)};
  v.dx = v.b.x - v.a.x;
  v.dy = v.b.y - v.a.y;
  v.len = std::max(std::sqrt(v.dx * v.dx + v.dy * v.dy), shortest);
  if (v.dx == 0) {
    v.t = Sign(-v.dy) * drawing_pi / 2;
  } else {
    v.t = std::atan(-v.dy / v.dx) + (v.dx < 0 ? drawing_pi : 0);
  }
  return v;
}

Point Airway_Vector::polar(double r, double u) const {
  return {a.x + r * std::cos(u), a.y - r * std::sin(u)};
}

Point Airway_Vector::along(double length) const { return {dx * length / len, dy * length / len}; }

// --- What the pictures are built from

void Build_Plain_Node(const Drawing& d, int node) {
  d.circle(d.node(node), color::node_circle);
  Node_Number(d, node);
}

void Build_Node(const Drawing& d, int node) {
  switch (d.db.Node_Type[node]) {
    case node_class::plain:
      return Build_Plain_Node(d, node);
    case node_class::inlet:
      Intake_Mark(d, node);
      break;
    case node_class::surface_fan:
      Surface_Fan_Mark(d, node);
      break;
    case node_class::underground_fan:
      Underground_Fan_Mark(d, node);
      break;
    default:
      break;
  }
  Node_Number(d, node);
}

void Build_Airway(const Drawing& d, int node, int slot) {
  if (d.db.Node_Used[node] == 0) return;
  const Airway_Vector v = Vector_Of(d, node, d.db.Node_Junc(slot, node));
  if (v.len < 2 * d.S) return;
  const Point end = v.along(d.trim * d.S);
  const int width = To_Int16(Round(10.0 / (d.db.Node_Total + 40) * d.db.Root_Area(slot, node) + 1));
  if (d.directions != nullptr) {
    d.directions->DirX(slot, node) = static_cast<float>(v.dx);
    d.directions->DirY(slot, node) = static_cast<float>(v.dy);
    d.directions->DirLen(slot, node) = static_cast<float>(v.len);
  }
  const int closed = d.db.Root_Switch(slot, node);
  d.polyline({v.a + end, v.b - end}, color::airway, width);
  if (closed != 0) d.polyline({v.a + end, v.b - end}, color::assist_fan, width);
  if (closed == 1 || d.S <= 0) return;
  Airway_Mark(d, v, node, slot);
}

}  // namespace branok
