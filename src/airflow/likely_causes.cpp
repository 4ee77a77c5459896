#include "airflow/likely_causes.h"

#include <cmath>
#include <initializer_list>

#include "core/pictures.h"

namespace branok {

namespace {

std::string No(int number) { return std::to_string(number); }

std::string Airway(int i, int j) { return No(i) + "-" + No(j); }

bool Is_Fan_Suction(const Database& db, int node) {
  for (int f = 1; f <= db.MFan_Total; ++f) {
    if (db.MFan_Suction[f] == node) return true;
  }
  return false;
}

bool Is_Held(const Database& db, int node) {
  for (int k = 1; k <= db.Inlet_Total; ++k) {
    if (db.Inlet_Node[k] == node) return true;
  }
  return Is_Fan_Suction(db, node);
}

// A far node that is a node at all: tables that failed may name none.
bool Exists(const Database& db, int node) { return node >= 1 && node <= db.Node_Total; }

void See_Bad_Resistances(const Database& db, std::vector<std::string>& causes) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      if (db.Root_Resist(j, i) > 0) continue;
      causes.push_back("Airway " + Airway(i, db.Node_Junc(j, i)) +
                       " has no resistance: every airway needs one above 0.");
      return;
    }
  }
}

// The last row of the matrix keeps its entry for a held neighbour, so the highest-numbered node
// must not be a free neighbour of one.
void See_Last_Node(const Database& db, std::vector<std::string>& causes) {
  const int last = db.Node_Total;
  if (last < 1 || Is_Held(db, last) || db.Node_JuncCount[last] < 2) return;
  for (int j = 1; j <= db.Node_JuncCount[last]; ++j) {
    const int far = db.Node_Junc(j, last);
    if (!Is_Held(db, far)) continue;
    causes.push_back("Node " + No(last) + ", the highest number, is a free neighbour of node " +
                     No(far) +
                     ", an intake or main-fan suction node: an unused higher number, or "
                     "renumbering the nodes, cures it.");
    return;
  }
}

void See_Unreached_Nodes(const Database& db, std::vector<std::string>& causes) {
  std::vector<char> reached(static_cast<std::size_t>(max_nodes) + 1, 0);
  std::vector<int> open;
  for (int k = 1; k <= db.Inlet_Total; ++k) open.push_back(db.Inlet_Node[k]);
  while (!open.empty()) {
    const int i = open.back();
    open.pop_back();
    if (!Exists(db, i) || reached[static_cast<std::size_t>(i)] != 0) continue;
    reached[static_cast<std::size_t>(i)] = 1;
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) open.push_back(db.Node_Junc(j, i));
  }
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] == 0 || reached[static_cast<std::size_t>(i)] != 0) continue;
    causes.push_back("Node " + No(i) + " cannot be reached from any intake.");
    return;
  }
}

// Several fans that a drift of almost no resistance joins fight one another: the relaxation of one
// overthrows the other's.
void See_Joined_Fans(const Database& db, std::vector<std::string>& causes) {
  constexpr float almost_nothing = 0.1F;  // murgue
  int surface_fans = 0;
  for (int f = 1; f <= db.MFan_Total; ++f) {
    if (db.MFan_Suction[f] == db.MFan_Discharge[f]) ++surface_fans;
  }
  if (surface_fans < 2) return;
  for (int f = 1; f <= db.MFan_Total; ++f) {
    const int s = db.MFan_Suction[f];
    if (s != db.MFan_Discharge[f]) continue;
    for (int j = 1; j <= db.Node_JuncCount[s]; ++j) {
      if (db.Root_Resist(j, s) >= almost_nothing) continue;
      causes.push_back("Main fan #" + No(f) +
                       ", one of several surface fans, stands behind airway " +
                       Airway(s, db.Node_Junc(j, s)) + " of almost no resistance.");
      break;
    }
  }
}

void See_Fan_States(const Database& db, std::vector<std::string>& causes) {
  for (int f = 1; f <= db.MFan_Total; ++f) {
    const int s = db.MFan_Suction[f];
    const int d = db.MFan_Discharge[f];
    double flow = 0;  // through the suction node, m3/s
    for (int j = 1; j <= db.Node_JuncCount[s]; ++j) {
      if (db.Node_Junc(j, s) != d) flow += db.Root_Flow(j, s);
    }
    flow = std::abs(flow);
    if (const int a = s == d ? 0 : Find_Slot(db, s, d)) {
      const double drop = db.Root_Resist(a, s) * 0.001 * flow * flow;
      if (drop < 0.01 * std::abs(db.MFan_Press[f])) {
        causes.push_back("The airway " + Airway(s, d) + " of underground main fan #" + No(f) +
                         " takes almost none of the fan's head.");
      }
    }
    if (db.MFan_LimitFlow[f] > 0 && flow * 60 >= 0.98 * db.MFan_LimitFlow[f]) {
      causes.push_back("Main fan #" + No(f) + " runs at the end of its head-flow table.");
    }
  }
}

void See_Missing_Ends(const Database& db, std::vector<std::string>& causes) {
  if (db.MFan_Total <= 0) causes.emplace_back("The mine has no main fan.");
  if (db.Inlet_Total <= 0) causes.emplace_back("The mine has no intake.");
}

void See_Lone_Ends(const Database& db, std::vector<std::string>& causes) {
  for (int k = 1; k <= db.Inlet_Total; ++k) {
    const int node = db.Inlet_Node[k];
    if (db.Node_JuncCount[node] > 0) continue;
    causes.push_back("Intake " + No(k) + " stands at node " + No(node) + ", which has no airway.");
  }
  for (int f = 1; f <= db.MFan_Total; ++f) {
    const int s = db.MFan_Suction[f];
    const int d = db.MFan_Discharge[f];
    if (db.Node_JuncCount[s] == 0) {
      causes.push_back("Main fan #" + No(f) + " stands at node " + No(s) +
                       ", which has no airway.");
    } else if (s != d && Find_Slot(db, s, d) == 0) {
      causes.push_back("No airway " + Airway(s, d) + " for underground main fan #" + No(f) + ".");
    }
  }
  for (int k = 1; k <= db.AFan_Total; ++k) {
    const int s = db.AFan_Suction[k];
    const int d = db.AFan_Discharge[k];
    if (Find_Slot(db, s, d) == 0) {
      causes.push_back("No airway " + Airway(s, d) + " for assist fan " + No(k) + ".");
    }
  }
}

// A dead end has no balance: what its airway carries comes from nowhere.
void See_Dead_Ends(const Database& db, std::vector<std::string>& causes) {
  constexpr double noticed = 1;  // m3/min
  static constexpr Picture whole("0");
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] != 1 || Is_Held(db, i)) continue;
    const double flow = 60 * std::abs(double{db.Root_Flow(1, i)});
    if (flow < noticed) continue;
    causes.push_back("Node " + No(i) + " is a dead end whose airway carries " + whole(flow).text() +
                     " m3/min: set an intake or fan there, or remove it.");
  }
}

// Values that make a division by zero.
void See_Bad_Fans(const Database& db, std::vector<std::string>& causes) {
  for (int f = 1; f <= db.MFan_Total; ++f) {
    if (db.MFan_Ratio[f] == 0) {
      causes.push_back("Main fan #" + No(f) + " does not turn: its driving r.p.m. is 0.");
    }
    for (int k = 1; k <= db.Inlet_Total; ++k) {
      if (db.Inlet_Node[k] != db.MFan_Suction[f]) continue;
      causes.push_back("Main fan #" + No(f) + " and intake " + No(k) + " stand at the same node " +
                       No(db.MFan_Suction[f]) + ".");
    }
  }
  for (int k = 1; k <= db.AFan_Total; ++k) {
    if (db.AFan_Flow[k] == 0) causes.push_back("Assist fan " + No(k) + " has a flow of 0.");
  }
}

using See = void (*)(const Database&, std::vector<std::string>&);

std::vector<std::string> Look(const Database& db, std::initializer_list<See> sights) {
  std::vector<std::string> causes;
  try {
    for (const See see : sights) see(db, causes);
  } catch (const Run_Time_Error& error) {
    causes.push_back(std::string("The network names a thing that does not exist: ") + error.what() +
                     ".");
  }
  return causes;
}

}  // namespace

std::vector<std::string> Network_Remarks(const Database& db) {
  return Look(db, {See_Missing_Ends, See_Lone_Ends, See_Unreached_Nodes, See_Dead_Ends});
}

std::vector<std::string> Likely_Causes(const Database& db) {
  return Look(db, {See_Missing_Ends, See_Lone_Ends, See_Bad_Fans, See_Bad_Resistances,
                   See_Unreached_Nodes, See_Last_Node, See_Joined_Fans, See_Fan_States});
}

}  // namespace branok
