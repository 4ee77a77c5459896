// Which node or airway lies under a point of a picture.
#pragma once

#include "core/database.h"
#include "drawing/primitives.h"

namespace branok {

/// What a picture is picked by.
struct Pick_Ground {
  const Database& db;
  const Node_Table<float>& X;  ///< of the nodes, as they are drawn
  const Node_Table<float>& Y;
  const Airway_Directions& directions;
  double S;              ///< size of the marks; 0 finds nothing
  int last = max_nodes;  ///< nodes above it are not placed yet
  bool bare = false;     ///< nodes without airways are found too, where they lay last
};

/// A node, an airway (node and slot, from its lower-numbered end), or nothing.
struct Pick {
  int node = 0;  ///< 0: nothing
  int slot = 0;  ///< 0: the node itself
  bool operator==(const Pick&) const = default;
};

/// The first node 1..Node_Total whose box of half-side S holds the point; a point on the box's edge
/// is outside. A node without airways is in no picture: unless the ground has them, nothing is
/// found where it lay before its deletion. 0 for none.
int Pick_Node(const Pick_Ground& ground, Point at);

/// The airway that lies nearest to the point, less than 2 S away; of two as near the earlier.
Pick Pick_Airway(const Pick_Ground& ground, Point at);

/// The node at the point, else the airway.
Pick Pick_At(const Pick_Ground& ground, Point at);

/// How the status bar tells what was picked: numbers, flow in m3/min and temperature when there are
/// results. Empty for nothing.
std::string Pick_Text(const Database& db, const Pick& pick);

}  // namespace branok
