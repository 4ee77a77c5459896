// The network as the solver walks it: every connection slot of every node in one list, node by
// node, with what a pass needs of it side by side in memory.
#pragma once

#include <vector>

#include "core/database.h"

namespace branok {

struct Branches {
  explicit Branches(const Database& db);

  /// The branch of a node's slot, or -1 when the node has no such slot.
  [[nodiscard]] int find(int of_node, int at_slot) const {
    if (of_node < 1 || of_node > nodes) return -1;
    const int branch = first[static_cast<std::size_t>(of_node)] + at_slot - 1;
    return at_slot >= 1 && branch < first[static_cast<std::size_t>(of_node) + 1] ? branch : -1;
  }

  int nodes;               ///< Node_Total
  std::vector<int> first;  ///< branches of node i: first[i]..first[i + 1] - 1
  std::vector<int> node;   ///< by branch: its node, its slot there, its far node
  std::vector<int> slot;
  std::vector<int> far;
  std::vector<float> nat_head;  ///< Root_NatHead: natural ventilation and assist fan, mmH2O
  std::vector<float> head;      ///< Root_Head: with the main fan, mmH2O
  std::vector<float> r;         ///< Root_R, mmH2O per (m3/s)2
  std::vector<float> g;         ///< Root_G, conductance of the present pass
  std::vector<float> flow;      ///< Root_Flow, m3/s from the node towards the far node
};

/// Densities, natural ventilation and resistances: writes Root_Density of the database, and
/// nat_head, head and r. Raises Run_Time_Error through the flags that the caller watches.
void Set_Natural_Heads(Database& db, Branches& branches);

/// Adds the assist fans, each a parabola through its head at zero flow and its flow at zero head.
void Add_Assist_Fans(const Database& db, Branches& branches);

}  // namespace branok
