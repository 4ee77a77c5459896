// The three projections of the mine onto the unit square.
#include <algorithm>
#include <cmath>

#include "drawing/graphic.h"
#include "drawing/trap.h"

namespace branok {

namespace {

constexpr double margin = 1.111;  // a view is this much wider than what it shows
constexpr double filled = 0.8;    // part of the unit square that is drawn on
constexpr int most_rows = 250;    // grid lines
constexpr double furthest = 1e6;  // that a node which is not drawn may lie from the picture

double Whole(double value) {
  if (value == 0) throw Run_Time_Error("the mine has no extent in this view");
  return value;
}

// What lies between two whole numbers, in 64 bits.
double Span(double low, double high) { return high - low; }

void Set_Used(Database& db) {
  for (int i = 1; i <= db.Node_Total; ++i) db.Node_Used[i] = db.Node_JuncCount[i] > 0 ? 1 : 0;
}

// Adds a grid line or a part of the north arrow.
void Add_Segment(Graphic& g, int row, Point p1, Point p2) {
  g.Grid_Row[row] = {static_cast<float>(p1.x), static_cast<float>(p2.x), static_cast<float>(p1.y),
                     static_cast<float>(p2.y)};
}

void Add_Line(Graphic& g, Point p1, Point p2) {
  if (g.Grid_Count < most_rows) Add_Segment(g, ++g.Grid_Count, p1, p2);
}

// Centres the running extremes in the unit square.
struct Fit {
  double cx, cy, f;
  [[nodiscard]] Point operator()(Point p) const {
    return {(p.x - cx) * f + 0.5, (p.y - cy) * f + 0.5};
  }
};

// A section: what its two sides are.
struct Section {
  const Node_Table<std::int32_t>& position;  // along the horizontal axis
  double centre, low, high;                  // of that axis
  double end_on;                             // span of the axis that is looked along
  const List<std::int32_t, 100>& grid;
  int first, last;
};

// The later side wins although an earlier one may be wider: all sections are drawn to that scale.
double Section_Scale(const Section& s, const Graphic& g) {
  // Of the counts, not of the positions: a shaft too deep for its grid is drawn without one.
  const auto grid_span = [&](int first, int last) { return Span(first, last) * g.Grid_Unit; };
  const double a = Round(margin * grid_span(s.first, s.last));
  const double b = Round(margin * grid_span(g.Grid_ZFirst, g.Grid_ZLast));
  const double c = Round(margin * s.end_on);
  double divisor = c;
  if (c < a) divisor = a;
  if (c < b) divisor = b;
  return 1 / Whole(divisor);
}

void Project_Section(Database& db, Graphic& g, const Section& s) {
  Set_Used(db);
  g.Grid_Count = g.Arrow_Count = 0;
  const double scale = Section_Scale(s, g);
  const double width = (s.high - s.low) * scale;
  const double height = Span(db.Range_ZMin, db.Range_ZMax) * scale;
  const double f = filled / Whole(std::max({width, height, s.end_on * scale}));
  const auto place = [&](double position, double level) {
    return Point{position * scale * f + 0.5, -level * scale * f + 0.5};
  };
  // A node without airways stays where it was.
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_Used[i] == 0) continue;
    const Point p = place(s.position[i] - s.centre, Span(g.Centre_Z, db.Node_Elev[i]));
    db.Node_GraphX[i] = To_Single(p.x);
    db.Node_GraphY[i] = To_Single(p.y);
  }
  for (int i = s.first; i <= s.last; ++i) {
    Add_Line(g, place(s.grid[i], g.Grid_Z[g.Grid_ZFirst]),
             place(s.grid[i], g.Grid_Z[g.Grid_ZLast]));
  }
  for (int i = g.Grid_ZFirst; i <= g.Grid_ZLast; ++i) {
    Add_Line(g, place(s.grid[s.first], g.Grid_Z[i]), place(s.grid[s.last], g.Grid_Z[i]));
  }
}

// The plan's scale; elevation gives a small oblique shift.
struct Plan {
  double ew, sn, z;  // factors of the three coordinates
  [[nodiscard]] Point operator()(double east, double north, double level) const {
    return {east * ew, -north * sn - level * z};
  }
};

Plan Plan_Of(const Database& db, const Graphic& g) {
  const double e = Round(margin * Span(g.Range_EWMin, g.Range_EWMax) * db.GPara_EWTimes);
  const double n = Round(margin * Span(g.Range_SNMin, g.Range_SNMax) * db.GPara_NSTimes);
  const double s = 1 / Whole(std::max(e, n));
  const double k = 5 * Whole(g.Grid_Unit);
  return {db.GPara_EWTimes * s, db.GPara_NSTimes * s, s / k};
}

Fit Fit_Nodes(const Database& db) {
  Point low{100000, 100000};
  Point high{-100000, -100000};
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_Used[i] == 0) continue;
    low = {std::min<double>(low.x, db.Node_GraphX[i]), std::min<double>(low.y, db.Node_GraphY[i])};
    high = {std::max<double>(high.x, db.Node_GraphX[i]),
            std::max<double>(high.y, db.Node_GraphY[i])};
  }
  const double span = std::max(high.x - low.x, high.y - low.y);
  const double w = span == 0 ? 1 : 1.1 * span;
  return {(low.x + high.x) / 2, (low.y + high.y) / 2, filled / w};
}

// A stem of two grid units to the north and two barbs to its tip; the second one comes from the
// grid's other end, one unit up.
void Add_North_Arrow(Graphic& g, const auto& place) {
  const double unit = g.Grid_Unit;
  const double ew = g.Grid_EW[g.Grid_EWFirst];
  const double sn = g.Grid_SN[g.Grid_SNLast];
  const Point tip = place(ew, sn + 2 * unit);
  const int row = g.Grid_Count;
  Add_Segment(g, row + 1, place(ew, sn), tip);
  Add_Segment(g, row + 2, place(ew - 0.2 * unit, sn - 0.7 * unit), tip);
  Add_Segment(g, row + 3, place(ew + 0.3 * unit, unit - sn), tip);
  g.Arrow_Count = 3;
}

}  // namespace

std::string Graph_Project_2dh(Database& db, Graphic& g) {
  return Trap([&] {
    Set_Used(db);
    g.Grid_Count = g.Arrow_Count = 0;
    const Plan plan = Plan_Of(db, g);
    for (int i = 1; i <= db.Node_Total; ++i) {
      if (db.Node_Used[i] == 0) continue;
      const Point p =
          plan(Span(g.Centre_EW, db.Node_EW[i]), Span(g.Centre_SN, db.Node_SN[i]), db.Node_Elev[i]);
      db.Node_GraphX[i] = To_Single(p.x);
      db.Node_GraphY[i] = To_Single(p.y);
    }
    const Fit fit = Fit_Nodes(db);
    for (int i = 1; i <= db.Node_Total; ++i) {
      const Point p = fit({db.Node_GraphX[i], db.Node_GraphY[i]});
      // A node without airways goes along from wherever it was, but not out of all bounds.
      if (db.Node_Used[i] == 0 && std::abs(p.x) + std::abs(p.y) > furthest) continue;
      db.Node_GraphX[i] = To_Single(p.x);
      db.Node_GraphY[i] = To_Single(p.y);
    }
    const auto place = [&](double east, double north) {
      return fit(plan(east, north, db.Range_ZMin));
    };
    for (int i = g.Grid_EWFirst; i <= g.Grid_EWLast; ++i) {
      Add_Line(g, place(g.Grid_EW[i], g.Grid_SN[g.Grid_SNFirst]),
               place(g.Grid_EW[i], g.Grid_SN[g.Grid_SNLast]));
    }
    for (int i = g.Grid_SNFirst; i <= g.Grid_SNLast; ++i) {
      Add_Line(g, place(g.Grid_EW[g.Grid_EWFirst], g.Grid_SN[i]),
               place(g.Grid_EW[g.Grid_EWLast], g.Grid_SN[i]));
    }
    Add_North_Arrow(g, place);
  });
}

std::string Graph_Project_2dew(Database& db, Graphic& g) {
  return Trap([&] {
    Project_Section(db, g,
                    {db.Node_EW, g.Centre_EW, Span(g.Centre_EW, g.Range_EWMin),
                     Span(g.Centre_EW, g.Range_EWMax), Span(g.Range_SNMin, g.Range_SNMax),
                     g.Grid_EW, g.Grid_EWFirst, g.Grid_EWLast});
  });
}

std::string Graph_Project_2dns(Database& db, Graphic& g) {
  return Trap([&] {
    Project_Section(db, g,
                    {db.Node_SN, g.Centre_SN, Span(g.Centre_SN, g.Range_SNMin),
                     Span(g.Centre_SN, g.Range_SNMax), Span(g.Range_EWMin, g.Range_EWMax),
                     g.Grid_SN, g.Grid_SNFirst, g.Grid_SNLast});
  });
}

std::string Graph_Project(Database& db, Graphic& g) {
  if (g.view == "2dew") return Graph_Project_2dew(db, g);
  if (g.view == "2dns") return Graph_Project_2dns(db, g);
  return Graph_Project_2dh(db, g);
}

}  // namespace branok
