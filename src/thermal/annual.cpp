// The annual run: sweeps and flow solutions in turn. The sweep stands in annual_sweep.cpp.
#include "thermal/annual.h"

#include <algorithm>
#include <cmath>

#include "airflow/flow_run.h"
#include "core/faults.h"
#include "core/messages.h"
#include "thermal/moist_air.h"
#include "thermal/parameters.h"
#include "thermal/temperature_run.h"

namespace branok {

namespace {

constexpr Picture whole("##0");
constexpr Picture one_decimal("##0.0");
constexpr Picture two_decimals("##0.00");
constexpr Picture four_decimals("0.0000");

// How near the largest change has come to the one that ends the run.
int Percent(int T_ok, float max_change) {
  if (max_change == 0) return 100;
  return static_cast<int>(std::min(Int(100 * std::sqrt(T_ok / double{max_change})), 100.0));
}

// Sweeps until the temperatures settle. True when they have; else the user has been told.
bool Settle(Database& db, Dialogue& dialogue, Panel& panel, const Flow_Solver& solve,
            Annual_Result& result) {
  const int T_ok = db.Node_Total / 60 + 1;  // deg C
  do {
    if (result.sweeps == most_sweeps) {
      db.Flag_Annual = 0;
      result.end = Annual_End::too_many_sweeps;
      dialogue.show(messages::Calculation_Error("Aunual Temp. Calc.Iteration#(> 1000)"));
      return false;
    }
    ++result.sweeps;
    Annual_Sweep sweep = Calc_Annual_Temp(db, dialogue, panel);
    result.end = sweep.end;
    result.max_change = sweep.max_change;
    result.recirculation = std::move(sweep.recirculation);
    result.fault = std::move(sweep.fault);
    if (!result.ok()) return false;
    panel.sweep_ended({.sweep = result.sweeps,
                       .passes = sweep.passes,
                       .max_change = sweep.max_change,
                       .recirculated = static_cast<int>(result.recirculation.size())});
    panel.pgbPercent[1] = Percent(T_ok, sweep.max_change);
    panel.refresh();
    result.flow = solve(db, dialogue, panel);
  } while (result.max_change > static_cast<float>(T_ok));
  return true;
}

void Run(Database& db, Dialogue& dialogue, Panel& panel, const Flow_Solver& solve,
         Annual_Result& result) {
  Init_Disp_Annual(db, panel);
  Busy busy(dialogue);
  panel.pgbPercent[0] = 0;
  db.Para_FlowTol = 0.1F;
  Take_Wet_Mode(db);
  db.Flag_Temp = 0;
  const bool settled = Settle(db, dialogue, panel, solve, result);
  busy.end();
  if (!settled) return;
  Set_Temperature_Band(db);
  Set_Flow_Sign(db);
  db.Flag_Temp = flag_true;
  dialogue.show(messages::Save_Annual_Results());
  panel.Set_Result_State("Annual-Flow");
  panel.mnuAnalysisComLeng = true;
}

}  // namespace

void Init_Disp_Annual(Database& db, Panel& panel) {
  const Float_Faults faults;
  const int node = db.Inlet_Node[1];
  const Intake_Air air = Derive_Intake_WBT(db);
  const double depth = db.Node_Elev[node] - db.Para_DatumElev;
  Set_Annual_Titles(panel);
  panel.lblDisp[0].set("for Anual Ave. Temp.");
  panel.lblDisp[8].set(0, whole);
  panel.lblDisp[9].set(node, whole);
  // As the march takes it: never colder than at the datum.
  panel.lblDisp[10].set(
      std::max<double>(db.Para_RockTemp - depth * db.Para_RockGrad, db.Para_RockTemp), one_decimal);
  panel.lblDisp[11].set(db.Para_IntakeTemp, two_decimals);
  panel.lblDisp[12].set(db.Para_IntakeTemp, two_decimals);
  panel.lblDisp[13].set(db.Para_IntakeWBT, two_decimals);
  panel.lblDisp[14].set(db.Para_IntakeHum, two_decimals);
  panel.lblDisp[15].set(Enthalpy(db.Para_IntakeTemp, air.x), two_decimals);
  panel.lblDisp[16].set(air.x, four_decimals);
  panel.refresh();
  faults.check("the intake's air");
}

Annual_Result Ana_Annual_Temp(Database& db, Dialogue& dialogue, Panel& panel,
                              const Flow_Solver& solve) {
  Annual_Result result;
  try {
    Run(db, dialogue, panel, solve, result);
  } catch (const Run_Time_Error& error) {
    result.end = Annual_End::fault;
    result.fault = error.what();
    dialogue.show(messages::Calculation_Error("Annual Temp"));
  }
  return result;
}

}  // namespace branok
