#include "thermal/fan_state.h"

#include <cmath>

#include "airflow/branches.h"
#include "core/faults.h"
#include "prep/fan.h"

namespace branok {

namespace {

// What drives the air through an underground fan's airway besides the fan, seen from its discharge
// node: natural ventilation and an assist fan, mmH2O. Writes Root_Density.
double Natural_Head(Database& db, int fan) {
  Branches branches(db);
  Set_Natural_Heads(db, branches);
  Add_Assist_Fans(db, branches);
  const int d = db.MFan_Discharge[fan];
  const int b = branches.find(d, Find_Slot(db, d, db.MFan_Suction[fan]));
  return b < 0 ? 0 : branches.nat_head[static_cast<std::size_t>(b)];
}

// The head that the nodal pressures and the flow Q (m3/s) tell, as the solver sets the pressure of
// the suction node: a surface fan's is minus its head; an underground fan lifts the air from the
// pressure of its suction node to that of its discharge node, and along its own airway.
double Head_At_Nodes(const Database& db, int fan, double natural_head, double Q) {
  const int s = db.MFan_Suction[fan];
  const int d = db.MFan_Discharge[fan];
  if (s == d) return -db.Node_Press[s];
  const int a = Find_Slot(db, s, d);
  const double drop = a == 0 ? 0 : Q * db.Root_Resist(a, s) * 0.001 * Q;
  return db.Node_Press[d] - db.Node_Press[s] - natural_head + drop;
}

// What the fan draws through its suction node, m3/s: the flows as the table holds them, and the
// same taken back from each airway's own density to that of the outside air.
struct Drawn_Flow {
  double in_table = 0;
  double outside = 0;
};

Drawn_Flow Draw_Flow(const Database& db, int fan) {
  const int s = db.MFan_Suction[fan];
  const double outside = 1 + 0.0037 * db.Node_DBT[db.Inlet_Node[1]];
  Drawn_Flow drawn;
  for (int j = 1; j <= db.Node_JuncCount[s]; ++j) {
    if (db.Node_Junc(j, s) == db.MFan_Discharge[fan]) continue;
    drawn.in_table += db.Root_Flow(j, s);
    drawn.outside += db.Root_Flow(j, s) * outside / (1 + 0.0037 * db.Root_Temp(j, s));
  }
  return {std::abs(drawn.in_table), std::abs(drawn.outside)};
}

// The solver leaves volumes of outside air, which a flow run (not a temperature run) then turns
// into volumes at the airways' own densities, and no table tells which of the two it holds. The fan
// does: its working point lies on its curve. A fan whose table gives no curve cannot tell.
double Flow_On_Curve(Database& db, int fan, double natural_head, const Drawn_Flow& drawn) {
  try {
    Fit_Fan_Curve(db, fan);
  } catch (const Calculation_Fault&) {
    return drawn.outside;
  }
  const double n = db.MFan_Ratio[fan];
  const auto beside_curve = [&](double Q) {
    return std::abs(Fan_Head(db, fan, n, Q) - Head_At_Nodes(db, fan, natural_head, Q));
  };
  // A flat curve cannot tell either: mere rounding must not decide.
  constexpr double clearly = 0.01;  // mmH2O
  const bool as_in_table = beside_curve(drawn.in_table) + clearly < beside_curve(drawn.outside);
  return as_in_table ? drawn.in_table : drawn.outside;
}

}  // namespace

Fan_State Present_Fan_State(const Database& db, int fan) {
  if (fan < 1) Outside_Table(fan, max_main_fans);
  if (db.Iter_No > 0) return {.press = db.MFan_Press[fan], .flow = 60 * double{db.MFan_Flow[fan]}};
  const Float_Faults faults;
  Database work = db;
  const bool surface = db.MFan_Suction[fan] == db.MFan_Discharge[fan];
  const double natural_head = surface ? 0 : Natural_Head(work, fan);
  const double Q = Flow_On_Curve(work, fan, natural_head, Draw_Flow(work, fan));
  const Fan_State state{.press = Head_At_Nodes(work, fan, natural_head, Q), .flow = 60 * Q};
  faults.check("the working point of a main fan");
  return state;
}

}  // namespace branok
