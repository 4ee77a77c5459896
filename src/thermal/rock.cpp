#include "thermal/rock.h"

#include <cmath>
#include <string>

#include "core/numbers.h"

namespace branok {

namespace {

// What the parameters say of a node and its airways.
void Set_Default_Rock(Database& db, int i) {
  const int depth = To_Int16(db.Node_Elev[i] - db.Para_DatumElev);
  db.Node_VRT[i] = static_cast<float>(db.Para_RockTemp - double{db.Para_RockGrad} * depth);
  for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
    db.Root_RockDiff(j, i) = db.Para_RockDiff;
    db.Root_RockCond(j, i) = db.Para_RockCond;
  }
}

void Set_Special_Rock(Database& db, int k) {
  const int node1 = db.Thermo_Node1[k];
  const int node2 = db.Thermo_Node2[k];
  const int j1 = Find_Slot(db, node1, node2);
  const int j2 = Find_Slot(db, node2, node1);
  if (j1 == 0 || j2 == 0) return;
  const float cond = db.Thermo_Cond[k];
  const float specific = db.Thermo_Specific[k];
  const float density = db.Thermo_Density[k];
  const bool complete = cond != 0 && specific != 0 && density != 0;
  const float diffusivity =
      complete ? static_cast<float>(double{cond} / specific / density) : db.Para_RockDiff;
  const float conductivity = cond != 0 ? cond : db.Para_RockCond;
  db.Root_RockDiff(j1, node1) = db.Root_RockDiff(j2, node2) = diffusivity;
  db.Root_RockCond(j1, node1) = db.Root_RockCond(j2, node2) = conductivity;
  db.Node_VRT[node1] = db.Node_VRT[node2] = db.Thermo_RockTemp[k];
}

}  // namespace

void Set_RockData(Database& db) {
  for (int i = 1; i <= db.Node_Total; ++i) Set_Default_Rock(db, i);
  for (int k = 1; k <= db.Thermo_Total; ++k) Set_Special_Rock(db, k);
}

float Raise_Age(Database& db, int j, int i, float least) {
  float& age = db.Root_Time(j, i);
  if (age < least) age = least;
  return age;
}

double Air_Speed(double Qs, double area, double unknown) { return area <= 0 ? unknown : Qs / area; }

double Heat_Transfer(double speed, int kind) {
  if (kind < 0 || kind > 7) Outside_Table(kind, 7, 0);
  return (3.6 * speed + 5.4) * kinds[static_cast<std::size_t>(kind)];
}

double Hydraulic_Diameter(double area, double peri) {
  if (peri > 0) return 4 * area / peri;
  return area > 0 ? 1.1 * std::sqrt(area) : 3.0;
}

double Conduction_Function(double Fo, double previous) {
  if (Fo < 0.1) return previous;
  const double L = std::log(Fo);
  if (Fo <= 1.5) return 1 / (0.03064 * L * L + 0.3281 * L + 0.9879);
  if (Fo <= 10) return 1 / (0.37386 * L + 0.979813);
  if (Fo <= 100) return 1 / (0.444718 * L + 0.839337);
  if (Fo <= 1000) return 1 / (0.479054 * L + 0.683043);
  const double e = 0.57722 / (std::log(4 * Fo) - 1.15444);
  return 2 * e * (1 - e - e * e - e * e * e) / 0.57722;
}

Wall::Wall(double B, double G, double w, int Para_WetMode)
    : G_over_B_(G / B), rock_part_(B / (B + G)) {
  const bool known = Para_WetMode == 1 || Para_WetMode == 2;
  curve_part_ = Para_WetMode == 1 ? w : 1;
  wet_part_ = Para_WetMode == 2 ? w : 1;
  a_ = known ? 0.0467 * curve_part_ : 0;
  b_ = known ? G_over_B_ + 1 + 0.436 * curve_part_ : 0;
  half_over_a_ = 0.5 / a_;
}

}  // namespace branok
