// Small networks with given flows, for sweeps that need no solver.
#pragma once

#include "core/database.h"
#include "core/sample.h"
#include "support/generated_mine.h"
#include "support/test_doors.h"
#include "thermal/annual.h"

namespace branok {

/// The airway i-j with q m3/s from i to j. 10 m2, 12 m, 5 m long, one year old, unless changed.
inline void Add_Flow(Database& db, int i, int j, float q) {
  Add_Airway(db, i, j, 1);
  Set_Both(db, db.Root_Length, i, j, 5.0F);
  Set_Both(db, db.Root_Area, i, j, 10.0F);
  Set_Both(db, db.Root_Peri, i, j, 12.0F);
  Set_Both(db, db.Root_Time, i, j, 1.0F);
  db.Root_Flow(Find_Slot(db, i, j), i) = q;
  db.Root_Flow(Find_Slot(db, j, i), j) = -q;
}

/// An empty network with one intake at node 1, flat, at sea level.
inline Database Flat_Mine(int nodes) {
  Database db;
  Reset_Database(db);
  db.Node_Total = static_cast<std::int16_t>(nodes);
  db.Inlet_Total = 1;
  db.Inlet_Node[1] = 1;
  db.Flag_Results = flag_true;
  return db;
}

/// What a load and a flow run at the intake's temperature leave.
inline void Prepare(Database& db) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    db.Node_DBT[i] = db.Para_IntakeTemp;
    db.Node_Hum[i] = db.Para_IntakeHum * 0.01F;
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) db.Root_Temp(j, i) = db.Para_IntakeTemp;
  }
  Derive_After_Load(db);
}

/// A row of the special thermal table, with materials of 0.004 m2/h unless changed.
struct Special_Rock {
  int node1, node2;
  float cond = 2;
  float density = 2500;
  float specific = 0.2F;
  float temperature = 0;
};

inline void Add_Special_Rock(Database& db, const Special_Rock& row) {
  const int k = ++db.Thermo_Total;
  db.Thermo_Node1[k] = static_cast<std::int16_t>(row.node1);
  db.Thermo_Node2[k] = static_cast<std::int16_t>(row.node2);
  db.Thermo_Cond[k] = row.cond;
  db.Thermo_Density[k] = row.density;
  db.Thermo_Specific[k] = row.specific;
  db.Thermo_RockTemp[k] = row.temperature;
}

/// Intake 1 and a line of nodes behind it, with q m3/s through all.
inline Database Line_Mine(int nodes, float q = 10) {
  Database db = Flat_Mine(nodes);
  for (int i = 1; i < nodes; ++i) Add_Flow(db, i, i + 1, q);
  Prepare(db);
  return db;
}

/// Air that circulates: 1 feeds 2, and of what passes 2, 3, 4 half a cubic metre returns to 2. The
/// rest leaves through 5, which feeds the next such loop.
inline Database Loop_Mine(int loops = 1) {
  Database db = Flat_Mine(4 * loops + 1);
  for (int i = 1; i < db.Node_Total; i += 4) {
    Add_Flow(db, i, i + 1, 10);
    Add_Flow(db, i + 1, i + 2, 10.5F);
    Add_Flow(db, i + 2, i + 3, 10.5F);
    Add_Flow(db, i + 3, i + 1, 0.5F);
    Add_Flow(db, i + 3, i + 4, 10);
  }
  Prepare(db);
  return db;
}

/// A loop that cannot be opened: each of the nodes 2..6 takes air from two others of them.
inline Database Knot_Mine() {
  Database db = Flat_Mine(6);
  for (int i = 0; i < 5; ++i) {
    Add_Flow(db, 2 + i, 2 + (i + 1) % 5, 7);
    Add_Flow(db, 2 + i, 2 + (i + 2) % 5, 3);
  }
  Add_Flow(db, 1, 2, 1);
  Prepare(db);
  return db;
}

/// A flow solver that leaves the flow as it is, and counts its calls.
struct Still_Flow {
  int calls = 0;
  Flow_End end = Flow_End::converged;

  Flow_Solver solver() {
    return [this](Database&, Dialogue&, Panel&) {
      ++calls;
      Flow_Result result;
      result.end = end;
      return result;
    };
  }
};

}  // namespace branok
