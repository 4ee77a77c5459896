// Mines made for tests and benchmarks: connected, planar, of any size, the same for the same seed.
#pragma once

#include "core/database.h"

namespace branok {

struct Mine_Plan {
  int nodes = 50;  ///< 5..550
  unsigned seed = 1;
  int inlets = 2;
  int fans = 1;  ///< surface main fans, at the highest-numbered nodes
  int assist_fans = 0;
  int thermo_rows = 0;
  bool hills = true;   ///< elevations vary
  double extra = 0.5;  ///< share of the possible cross-connections that are airways
};

/// A mine whose tables are as a load leaves them (Derive_After_Load has run), without results.
Database Make_Mine(const Mine_Plan& plan);

/// Adds the airway i-j with a new airway's values and `resist` murgue, at both ends. Slots are not
/// sorted. Node_Total, Node_UpCount and Node_UpSlot follow.
void Add_Airway(Database& db, int i, int j, float resist);

/// Gives an airway's two cells the same value of one attribute.
template <class T>
void Set_Both(Database& db, Root_Table<T>& table, int i, int j, T value) {
  table(Find_Slot(db, i, j), i) = value;
  table(Find_Slot(db, j, i), j) = value;
}

}  // namespace branok
