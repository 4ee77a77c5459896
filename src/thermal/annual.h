// The annual temperature run: dry bulb, wet bulb and humidity of the air at every node and along
// every airway for the annual mean intake condition, and how they act back on the airflow through
// natural ventilation.
//
// The run alternates a sweep, which marches heat and moisture down all airways in flow order, and a
// solution of the flow network, until the nodal temperatures settle.
//
// Labels of the temperature panel. A field lblDisp(k) has its title in lblTitle(2k) and its unit in
// lblTitle(2k + 1); the recirculation lines of lblDisp(7) have two titles instead.
//
//   field  title          unit     annual run                     seasonal run
//     7    14, 15                  "No.  Node  Ratio"             the same
//                                  "Recirculation"
//     8    16             17       "Calculation Time" (sec)       the same
//     9    18             19       "Calculate Node"               the same
//    10    20             21       "Vir. Rock Temp." (deg C)      "Intake Air Temp." (deg C)
//    11    22             23       "Rock Surf. Temp." (deg C)     "Unknown Number"
//    12    24             25       "Node D.B.Temp." (deg C)       "Dist. from Node." (m)
//    13    26             27       "Node W.B.Temp." (deg C)       "Nodal Temp." (deg C)
//    14    28             29       "Node Hum." (%)                "Relative Hum." (%)
//    15    30             31       "Node Enthalpy" (kcal/kg)      hidden
//    16    32             33       "Absolute Hum." (kgWater /     hidden
//                                  kgdAir)
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "airflow/skyline_solver.h"
#include "core/database.h"
#include "core/dialogue.h"
#include "core/panel.h"

namespace branok {

/// What solves the flow network between sweeps: Calc_Press_Flow, or a test's own.
using Flow_Solver = std::function<Flow_Result(Database&, Dialogue&, Panel&)>;

inline constexpr int most_sweeps = 1000;

enum class Annual_End {
  converged,
  too_many_passes,  ///< a sweep could not open the loops of the flow
  too_many_sweeps,  ///< the temperatures do not settle
  fault,            ///< a run-time fault: overflow, division by zero, a number outside its table
};

/// What one sweep came to.
struct Annual_Sweep {
  Annual_End end = Annual_End::fault;
  float max_change = 0;                    ///< largest change of a nodal temperature, deg C
  int passes = 0;                          ///< over the nodes
  std::vector<std::string> recirculation;  ///< one line an inflow left out
  std::string fault;                       ///< detail of a run-time fault

  [[nodiscard]] bool ok() const { return end == Annual_End::converged; }
};

/// What a run came to.
struct Annual_Result {
  Annual_End end = Annual_End::fault;
  int sweeps = 0;                          ///< repetitions of sweep and flow solution
  float max_change = 0;                    ///< of the last sweep, deg C
  std::vector<std::string> recirculation;  ///< of the last sweep
  Flow_Result flow;                        ///< the last flow solution; a failed one ends no run
  std::string fault;                       ///< detail of a run-time fault

  [[nodiscard]] bool ok() const { return end == Annual_End::converged; }
};

/// Prepares the fields above for an annual run, with the intake's air as first values, and derives
/// Para_IntakeWBT. Raises Run_Time_Error.
void Init_Disp_Annual(Database& db, Panel& panel);

/// One sweep from Node_TempInit, Root_TempInit, Node_Hum and Root_Flow. Writes Node_DBT, Node_WBT,
/// Node_Hum, Root_Temp, Root_Hum, Root_Density, raises Root_Time to 0.1 year, and leaves in
/// Node_DBT, Node_TempInit, Root_Temp and Root_TempInit 0.4 of the new nodal temperature and 0.6 of
/// the old (airways too). Flag_Annual is 1 after it, Flag_Season 0. Reports its own failures; then
/// Flag_Annual is 0 and the tables are half written: with what was computed before, nothing that
/// the fault has touched. Never throws Run_Time_Error.
Annual_Sweep Calc_Annual_Temp(Database& db, Dialogue& dialogue, Panel& panel);

/// The annual run. Sets Para_FlowTol to 0.1 m3/min for good, and Para_WetMode from Wet_Tag.
/// Sweeps and flow solutions alternate until no node with 0.1 m3/s of air or more changes by more
/// than Int(Node_Total / 60) + 1 deg C; Flag_Temp is true only after such a run. Reports all
/// failures itself. Never throws Run_Time_Error.
Annual_Result Ana_Annual_Temp(Database& db, Dialogue& dialogue, Panel& panel,
                              const Flow_Solver& solve = Calc_Press_Flow);

}  // namespace branok
