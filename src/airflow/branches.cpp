#include "airflow/branches.h"

#include <cmath>

namespace branok {

Branches::Branches(const Database& db) : nodes(db.Node_Total) {
  if (nodes < 0) Outside_Table(nodes, max_nodes);
  first.resize(static_cast<std::size_t>(nodes) + 2);
  for (int i = 1; i <= nodes; ++i) {
    first[static_cast<std::size_t>(i)] = static_cast<int>(far.size());
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      node.push_back(i);
      slot.push_back(j);
      far.push_back(db.Node_Junc(j, i));
    }
  }
  first.back() = static_cast<int>(far.size());
  for (std::vector<float>* table : {&nat_head, &head, &r, &g, &flow}) table->resize(far.size());
}

void Set_Natural_Heads(Database& db, Branches& branches) {
  // The outside air of the first intake, taken at each airway's own mean elevation.
  const double outside = 1.293 / (1 + 0.00366 * db.Node_DBT[db.Inlet_Node[1]]);
  for (std::size_t b = 0; b < branches.far.size(); ++b) {
    const int i = branches.node[b];
    const int j = branches.slot[b];
    const int m = branches.far[b];
    const int dz = db.Node_Elev[m] - db.Node_Elev[i];
    const double mean = Int(0.5 * (db.Node_Elev[m] + db.Node_Elev[i]));
    const double e = std::exp(-mean / 8620);
    const float density = static_cast<float>(1.293 / (1 + 0.00366 * db.Root_Temp(j, i)) * e);
    db.Root_Density(j, i) = density;
    branches.nat_head[b] = static_cast<float>((outside * e - density) * dz);
    branches.head[b] = branches.nat_head[b];
    // A closed airway stays in the network behind 10 mmH2O per (m3/s)2 more.
    branches.r[b] = static_cast<float>(db.Root_Resist(j, i) * 0.001 + 10.0 * db.Root_Switch(j, i));
  }
}

void Add_Assist_Fans(const Database& db, Branches& branches) {
  // A fan whose nodes are not connected keeps the slots of the fan before it (0 at the first).
  int a = 0;
  int b = 0;
  for (int k = 1; k <= db.AFan_Total; ++k) {
    const int s = db.AFan_Suction[k];
    const int d = db.AFan_Discharge[k];
    if (const int found = Find_Slot(db, s, d)) a = found;
    if (const int found = Find_Slot(db, d, s)) b = found;
    const double head = db.AFan_Head[k];
    const double q = db.AFan_Flow[k] / 60.0;
    const double rf = head / (q * q);
    auto sum = static_cast<float>(rf);
    if (const int near = branches.find(s, a); near >= 0) {
      const auto n = static_cast<std::size_t>(near);
      branches.nat_head[n] = static_cast<float>(branches.nat_head[n] + head);
      branches.head[n] = branches.nat_head[n];
      branches.r[n] = static_cast<float>(branches.r[n] + rf);
      sum = branches.r[n];
    }
    if (const int end = branches.find(d, b); end >= 0) {
      const auto n = static_cast<std::size_t>(end);
      branches.nat_head[n] = static_cast<float>(branches.nat_head[n] - head);
      branches.head[n] = branches.nat_head[n];
      branches.r[n] = sum;
    }
  }
}

}  // namespace branok
