// The extent of the mine, its grid, and the graphic parameters that follow from them.
#include <algorithm>
#include <cmath>
#include <limits>

#include "drawing/graphic.h"
#include "drawing/level_band.h"
#include "drawing/trap.h"

namespace branok {

namespace {

// What lies between two whole numbers, in 64 bits.
double Span(double low, double high) { return high - low; }

// The extent of one axis over all connected nodes.
struct Extent {
  double low, high;
  void take(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  [[nodiscard]] double span() const { return high - low; }
  [[nodiscard]] double centre() const { return 0.5 * (low + high); }
};

struct Mine_Extent {
  Extent ew{9000000, -9000000}, sn{9000000, -9000000}, z{10000, -10000};
};

Mine_Extent Extent_Of(const Database& db) {
  Mine_Extent mine;
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] == 0) continue;
    mine.ew.take(db.Node_EW[i]);
    mine.sn.take(db.Node_SN[i]);
    mine.z.take(db.Node_Elev[i]);
  }
  return mine;
}

// The centre never has a 0 in it: a mine that is centred on an axis is moved off it a little.
void Set_Centre(Graphic& g, const Mine_Extent& mine) {
  constexpr float nudge = 0.22F;
  g.Centre_EW = To_Single(mine.ew.centre());
  g.Centre_SN = To_Single(mine.sn.centre());
  g.Centre_Z = To_Single(mine.z.centre());
  if (double{g.Centre_EW} * g.Centre_SN * g.Centre_Z != 0) return;
  g.Centre_SN += nudge;
  g.Centre_EW += nudge;
  g.Centre_Z -= nudge;
}

// A power of ten, about a twentieth of the mine's three spans. (2.3052 instead of the logarithm of
// ten decides the unit of mines that lie on the border.) A mine of a few metres has none.
std::int32_t Unit_Of(const Mine_Extent& mine) {
  const double spans = mine.z.span() + mine.sn.span() + mine.ew.span();
  if (spans <= 0) throw Run_Time_Error("all connected nodes lie at one point");
  const double unit = Round(std::pow(10, Round(std::log(0.05 * spans) / 2.3052)));
  if (unit < 1) throw Run_Time_Error("the mine is smaller than its grid");
  return To_Int32(unit);
}

double Rounded_Up(double value, double unit) { return Int(value / unit + 1) * unit; }
double Rounded_Down(double value, double unit) { return Int(value / unit) * unit; }

void Set_Ranges(Database& db, Graphic& g, const Mine_Extent& mine) {
  const double unit = g.Grid_Unit;
  g.Range_EWMax = To_Int32(Rounded_Up(mine.ew.high, unit));
  g.Range_EWMin = To_Int32(Rounded_Down(mine.ew.low, unit));
  g.Range_SNMax = To_Int32(Rounded_Up(mine.sn.high, unit));
  g.Range_SNMin = To_Int32(Rounded_Down(mine.sn.low, unit));
  db.Range_ZMax = To_Int16(Rounded_Up(mine.z.high, unit));
  db.Range_ZMin = To_Int16(Rounded_Down(mine.z.low, unit));
}

void Set_Far_Length(Database& db, const Graphic& g) {
  constexpr double half_view = (90 - 45 / 2.0) * drawing_pi / 180;
  const double furthest = std::max(g.Range_EWMax, g.Range_SNMax);
  db.GPara_FarLength =
      std::abs(std::tan(half_view) * furthest) + Span(db.Range_ZMin, db.Range_ZMax);
}

void Open_Band(Graphic& g) {
  using Level = std::numeric_limits<std::int16_t>;
  g.Band_Low = Level::min();
  g.Band_High = Level::max();
}

// How many steps of the unit a range has; small ranges get `more`.
int Grid_Steps(double range, double unit, int least, int more) {
  const int steps = static_cast<int>(Round(range / unit));
  return steps < least ? steps + more : steps;
}

void Set_Grid(const Database& db, Graphic& g) {
  const double unit = g.Grid_Unit;
  const double z_range = Span(db.Range_ZMin, db.Range_ZMax);
  g.Grid_EWFirst = g.Grid_SNFirst = g.Grid_ZFirst = 0;
  g.Grid_EWLast = Grid_Steps(Span(g.Range_EWMin, g.Range_EWMax), unit, 4, 2);
  g.Grid_SNLast = Grid_Steps(Span(g.Range_SNMin, g.Range_SNMax), unit, 3, 2);
  const int z_steps = static_cast<int>(Round(z_range / unit));
  g.Grid_ZLast = z_steps < 3 ? 3 : z_steps;
  const auto place = [&](int i, double half) { return To_Int32(unit * i - Round(half)); };
  for (int i = 0; i <= g.Grid_SNLast; ++i) g.Grid_SN[i] = place(i, 0.5 * unit * g.Grid_SNLast);
  for (int i = 0; i <= g.Grid_ZLast; ++i) g.Grid_Z[i] = place(i, 0.5 * z_range);
  // One position further: the number of the last line.
  for (int i = 0; i <= g.Grid_EWLast + 1; ++i) g.Grid_EW[i] = place(i, 0.5 * unit * g.Grid_EWLast);
}

}  // namespace

std::string Graph_Range(Database& db, Graphic& g) {
  return Trap([&] {
    g.Grid_EW.fill(0);
    g.Grid_SN.fill(0);
    g.Grid_Z.fill(0);
    g.Grid_EWLast = g.Grid_SNLast = g.Grid_ZLast = 0;
    g.Grid_Unit = 0;
    Open_Band(g);  // when no range is found, all levels are shown
    const Mine_Extent mine = Extent_Of(db);
    Set_Centre(g, mine);
    g.Grid_Unit = Unit_Of(mine);
    Set_Ranges(db, g, mine);
    Set_Far_Length(db, g);
    Set_Grid(db, g);
    Reset_Band(db, g);
  });
}

Slider_Steps Gpara_Default(Database& db, const Graphic& g) {
  constexpr double least = 100;
  constexpr double deepest = 3000;
  constexpr double furthest = 6000;
  const double ew = std::max(least, Round(0.5 * (Span(g.Range_EWMin, g.Range_EWMax))));
  const double ns = std::max(least, Round(0.5 * (Span(g.Range_SNMin, g.Range_SNMax))));
  const double z =
      std::min(deepest, std::max({least, std::abs(Span(db.Range_ZMin, db.Range_ZMax)), ns, ew}));
  db.GPara_TransEW = To_Int32(ew);
  db.GPara_TransNS = To_Int32(ns);
  db.GPara_TransZ = To_Int32(z);
  db.GPara_RotEW = db.GPara_RotSN = 90;
  db.GPara_RotVer = 180;
  db.GPara_ZoomAngle = 20;
  db.GPara_EWTimes = db.GPara_NSTimes = db.GPara_ElevTimes = 1;
  db.GPara_DiaTimes = 2;
  // The angle itself is the factor here, not its tangent.
  const double far = (90 - 45 / 2.0) * drawing_pi / 180 * 2.5 * z;
  db.GPara_FarLength = std::min(far < z ? z + 1000 : far, furthest);
  const auto step = [](double range) {
    return static_cast<int>(10 * Round(std::log(2 * range) / std::log(10)));
  };
  return {step(ew), step(ns), step(z)};
}

}  // namespace branok
