// The program's line diagrams as data: what stands on the axes, which series are drawn, and what
// the diagram is called. The screen, the printer and the clipboard only paint it.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "core/database.h"

namespace branok {

enum class Diagram_Kind {
  temp,    ///< air temperature by travel length, one point a node
  press,   ///< largest imbalance of every pass of the flow solver
  month,   ///< temperatures of the traced airways over a year
  fan,     ///< characteristic curves of a main fan
  gtemp,   ///< virgin rock temperature by elevation
  intemp,  ///< intake air temperature over a year
};

struct Diagram_Point {
  double x = 0;
  double y = 0;
  bool operator==(const Diagram_Point&) const = default;
};

struct Diagram_Series {
  std::string name{};  ///< in the legend
  std::vector<Diagram_Point> points{};
  bool main = false;  ///< stands out among the others: a fan's curve at its driving speed
};

/// One diagram. Texts are UTF-8.
struct Diagram {
  Diagram_Kind kind = Diagram_Kind::temp;
  std::string title{};
  std::string x_title{};
  std::string y_title{};
  std::vector<Diagram_Series> series{};
  bool show_legend = false;
  std::string footnote{};
  std::optional<Diagram_Point> working_point{};  ///< of a fan: m3/min, mmH2O
  std::string hint{};  ///< what to do first, when there is nothing to see yet
};

/// The diagram of the present tables and parameters. `fan` is the number of the main fan and serves
/// the kind "fan" alone, whose curves are fitted anew to the fan's table; nothing in the database
/// changes. Raises Calculation_Fault when that table gives no curve, Run_Time_Error when there is
/// no such fan, or when Para_MonthPrev is no season.
Diagram Make_Diagram(const Database& db, Diagram_Kind kind, int fan = 1);

/// The diagram of a main fan without its curves, and why they are not there.
Diagram Blank_Fan_Diagram(int fan, std::string hint = {});

/// Where main fan `fan` works, as a point of its diagram: flow in m3/min, head in mmH2O. Nothing
/// without results or without speed.
std::optional<Diagram_Point> Fan_Working_Point(const Database& db, int fan);

}  // namespace branok
