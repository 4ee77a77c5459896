#include "support/generated_mine.h"

#include <algorithm>
#include <cmath>
#include <random>
#include <utility>
#include <vector>

#include "core/sample.h"

namespace branok {

namespace {

// Numbers that are the same on every machine: the library's distributions are not.
class Dice {
 public:
  explicit Dice(unsigned seed) : engine_(seed) {}
  double between(double low, double high) { return low + (high - low) * engine_() / 4294967295.0; }
  int number(int low, int high) { return low + static_cast<int>(engine_() % (high - low + 1U)); }
  bool chance(double p) { return between(0, 1) < p; }

 private:
  std::mt19937 engine_;
};

// The pairs of a lattice of the given width: each node with its right and its lower neighbour.
// A spanning tree of them is always kept, the others by chance.
std::vector<std::pair<int, int>> Lattice(int nodes, int width, double extra, Dice& dice) {
  std::vector<std::pair<int, int>> pairs;
  for (int i = 1; i <= nodes; ++i) {
    const bool row_start = (i - 1) % width == 0;
    if (!row_start) pairs.emplace_back(i - 1, i);
    if (i > width && (row_start || dice.chance(extra))) pairs.emplace_back(i - width, i);
  }
  return pairs;
}

// A seam that dips gently, with the steps of a real roadway.
std::int16_t Seam_Level(int ew, int sn, Dice& dice) {
  return To_Int16(-150 + 60 * std::sin(ew / 500.0) - 0.05 * sn + dice.number(-3, 3));
}

void Describe_Airway(Database& db, int i, int j, Dice& dice) {
  const double dz = db.Node_Elev[i] - db.Node_Elev[j];
  const double dx = db.Node_EW[i] - db.Node_EW[j];
  const double dy = db.Node_SN[i] - db.Node_SN[j];
  Set_Both(db, db.Root_Length, i, j,
           static_cast<float>(std::round(std::sqrt(dx * dx + dy * dy + dz * dz) * 10) / 10));
  Set_Both(db, db.Root_Area, i, j, static_cast<float>(dice.number(40, 200) / 10.0));
  Set_Both(db, db.Root_Peri, i, j, 0.0F);
  Set_Both(db, db.Root_Wet, i, j, static_cast<float>(dice.number(0, 100)));
  Set_Both(db, db.Root_Time, i, j, static_cast<float>(dice.number(0, 200) / 10.0));
  Set_Both(db, db.Root_Heat, i, j, dice.chance(0.1) ? 5000.0F : 0.0F);
  Set_Both(db, db.Root_Kind, i, j, static_cast<std::int16_t>(dice.number(0, 7)));
  Set_Both(db, db.Root_Shape, i, j, static_cast<std::int16_t>(dice.number(0, 3)));
}

void Add_Assist_Fan(Database& db, int k, int i, int j) {
  db.AFan_Suction[k] = static_cast<std::int16_t>(i);
  db.AFan_Discharge[k] = static_cast<std::int16_t>(j);
  db.AFan_Head[k] = 20;
  db.AFan_Flow[k] = 600;
}

}  // namespace

void Add_Airway(Database& db, int i, int j, float resist) {
  db.Node_Total = static_cast<std::int16_t>(std::max<int>({db.Node_Total, i, j}));
  for (const auto& [from, to] : {std::pair{i, j}, std::pair{j, i}}) {
    const int slot = ++db.Node_JuncCount[from];
    db.Node_Junc(slot, from) = static_cast<std::int16_t>(to);
    db.Node_Used[from] = 1;
    Set_Default_Airway(db, from, slot);
    db.Root_Resist(slot, from) = resist;
    if (to > from) {
      const int up = ++db.Node_UpCount[from];
      db.Node_UpSlot(up, from) = static_cast<std::int16_t>(slot);
    }
  }
}

Database Make_Mine(const Mine_Plan& plan) {
  Database db;
  Reset_Database(db);
  Dice dice(plan.seed);
  db.Data_Ver = 6;
  db.Mine_Name = "Generated   ";
  db.Mine_Date = "2024/01/01";
  const int width = std::max(2, static_cast<int>(std::sqrt(plan.nodes)));
  for (int i = 1; i <= plan.nodes; ++i) {
    Clear_Node(db, i);
    db.Node_EW[i] = (i - 1) % width * 80 + dice.number(-20, 20);
    db.Node_SN[i] = (i - 1) / width * 80 + dice.number(-20, 20);
    if (plan.hills) db.Node_Elev[i] = Seam_Level(db.Node_EW[i], db.Node_SN[i], dice);
  }
  for (const auto& [i, j] : Lattice(plan.nodes, width, plan.extra, dice)) {
    const double resist = std::exp(dice.between(std::log(0.5), std::log(200.0)));
    Add_Airway(db, i, j, static_cast<float>(std::round(resist * 1000) / 1000));
    Describe_Airway(db, i, j, dice);
  }

  // Intakes at the lowest numbers, main fans at the highest.
  for (int k = 1; k <= plan.inlets; ++k) {
    db.Inlet_Node[k] = static_cast<std::int16_t>(1 + (k - 1) * std::max(1, width / plan.inlets));
  }
  db.Inlet_Total = static_cast<std::int16_t>(plan.inlets);
  for (int f = 1; f <= plan.fans; ++f) {
    Set_Default_Fan(db, f, 9000);
    const int node = plan.nodes - (f - 1) * std::max(1, width / plan.fans);
    db.MFan_Suction[f] = db.MFan_Discharge[f] = static_cast<std::int16_t>(node);
    db.MFan_HQCount[f] = 5;
    for (int k = 1; k <= 5; ++k) {
      const double part = (k - 1) / 4.0;
      db.MFan_HQ_Flow(k, f) = static_cast<float>(9000 * part);
      db.MFan_HQ_Head(k, f) = static_cast<float>(200 * (1 - 0.7 * part * part));
    }
  }
  db.MFan_Total = static_cast<std::int16_t>(plan.fans);

  for (int k = 1; k <= plan.assist_fans; ++k) {
    const int i = plan.nodes / 3 + k;
    Add_Assist_Fan(db, k, i, db.Node_Junc(1, i));
  }
  db.AFan_Total = static_cast<std::int16_t>(plan.assist_fans);
  for (int k = 1; k <= plan.thermo_rows; ++k) {
    const int i = plan.nodes / 2 + k;
    db.Thermo_Node1[k] = static_cast<std::int16_t>(i);
    db.Thermo_Node2[k] = db.Node_Junc(1, i);
    db.Thermo_Cond[k] = 2.5F;
    db.Thermo_Density[k] = 2600;
    db.Thermo_Specific[k] = 0.2F;
    db.Thermo_RockTemp[k] = 25;
  }
  db.Thermo_Total = static_cast<std::int16_t>(plan.thermo_rows);
  Derive_After_Load(db);
  return db;
}

}  // namespace branok
