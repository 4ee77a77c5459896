// Small mines whose airways lie in all eight directions.
#pragma once

#include <array>
#include <utility>

#include "core/database.h"

namespace branok {

/// Two centres at one spot and eight spokes, which go round counterclockwise from the east and
/// belong to the centres in turn. Outward: the centres are nodes 1 and 2, the spokes' ends 3..10,
/// so that every airway is drawn from its centre. Inward: the ends are 1..8, the centres 9 and 10.
struct Star {
  Database db;
  std::array<std::pair<int, int>, 8> spokes;  ///< centre and end of each

  explicit Star(bool outward);

  /// The class of all spokes; an assist fan's other end takes the other sign.
  void Set_Type(std::int16_t type);
  /// Results: air flows from the lower to the higher number for 1, the other way for -1.
  void Set_Flow(int sign);
  /// The spokes' ends become nodes of a kind: 1 intakes, 2 surface fans, 3 fans that blow inward.
  void Set_Ends(std::int16_t node_type);
};

/// Enters a main fan in the next row of the table.
void Add_Main_Fan(Database& db, int suction, int discharge);

}  // namespace branok
