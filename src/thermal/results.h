// The results as the engineer reads them: one row a node, one row an airway end, with the columns
// of the two result grids. Grids, reports and CSV files format these rows; nobody else computes
// them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "core/database.h"

namespace branok {

/// A connected node. Pressure mmAq, temperatures deg C, humidity %, lengths m.
struct Node_Row {
  int node;
  double pressure;
  float dbt, hum, wbt, tleng;
  int elev, ew, sn;
};

/// A slot of a connected node: the airway seen from one of its ends.
struct Airway_Row {
  int node, slot, far;
  bool outward;                   ///< the air flows from `node` to `far`
  float flow;                     ///< m3/min, positive outward
  std::optional<float> velocity;  ///< m/s; an airway without area has none
  float temp;                     ///< deg C
  float hum;                      ///< %
  int level_diff;                 ///< m, elevation of the far end less that of the node
  float nvp;                      ///< natural ventilation pressure, mmAq
  bool closed;                    ///< by Change Switch
  std::string comment;
};

/// Connected nodes, ascending.
std::vector<Node_Row> Node_Rows(const Database& db);

/// Slots of the connected nodes, in slot order. Raises Run_Time_Error on a connection to a
/// number outside 1..Node_Total.
std::vector<Airway_Row> Airway_Rows(const Database& db);

/// The two node numbers, each right-aligned in three characters, without the blanks in front:
/// "1 ->   2", or "1 <-   2" when the air does not flow outward.
std::string Airway_Name(const Airway_Row& row);

/// "Close" or " Open".
std::string_view Switch_Word(bool closed);

}  // namespace branok
