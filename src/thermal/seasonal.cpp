// The seasonal run around its sweep, which stands in seasonal_sweep.cpp.
#include "thermal/seasonal.h"

#include "airflow/flow_run.h"
#include "core/faults.h"
#include "core/messages.h"
#include "thermal/temperature_run.h"

namespace branok {

namespace {

constexpr Picture whole("##0");
constexpr Picture distance("#####0");
constexpr Picture two_decimals("##0.00");

bool Agreed(Dialogue& dialogue, const Message& question) {
  return dialogue.show(question) == Answer::yes;
}

// The sweep, and the flow when it is wanted.
void Sweep_And_Solve(Database& db, Dialogue& dialogue, Panel& panel, const Flow_Solver& solve,
                     Season_Result& result) {
  const Busy busy(dialogue);
  Season_Sweep sweep = Calc_Season_Temp(db, dialogue, panel, db.Para_Month);
  result.end = sweep.end;
  result.recirculation = std::move(sweep.recirculation);
  result.fault = std::move(sweep.fault);
  if (!result.ok()) return;
  panel.sweep_ended({.sweep = 1,
                     .passes = sweep.passes,
                     .max_change = sweep.max_change,
                     .recirculated = static_cast<int>(result.recirculation.size())});
  if (!Agreed(dialogue, messages::Ask_Season_Flow())) {
    result.end = Season_End::without_flow;
    return;
  }
  result.flow = solve(db, dialogue, panel);
  if (!result.flow.ok()) result.end = Season_End::flow_failed;
}

void Run(Database& db, Dialogue& dialogue, Panel& panel, const Flow_Solver& solve,
         Season_Result& result) {
  if (db.Flag_Temp == 0) {
    result.end = Season_End::needs_annual;
    dialogue.show(messages::Season_Needs_Annual());
    return;
  }
  Init_Disp_Season(db, panel);
  if (!Agreed(dialogue, messages::Ask_Replace_Annual())) {
    result.end = Season_End::declined;
    return;
  }
  Sweep_And_Solve(db, dialogue, panel, solve, result);
  if (!result.ok()) return;
  if (result.end == Season_End::complete) {
    Set_Temperature_Band(db);
    Set_Flow_Sign(db);
    dialogue.show(messages::Season_Complete(Season_Of(db)));
    panel.Set_Result_State("Seasonal-Flow");
  }
  panel.mnuAnalysisComGraph = true;
}

}  // namespace

void Init_Disp_Season(const Database& db, Panel& panel) {
  const Float_Faults faults;
  const std::string season(Season_Of(db));
  const double T_in = Intake_Temperature(db, db.Para_Month);
  faults.check("the intake's temperature");
  Set_Season_Titles(panel);
  panel.lblDisp[0].set("for " + season);
  panel.lblDisp[8].set(0, whole);
  panel.lblDisp[9].set(static_cast<int>(db.Inlet_Node[1]), whole);
  panel.lblDisp[10].set(static_cast<float>(T_in), two_decimals);
  panel.lblDisp[11].set(static_cast<int>(db.Node_Total), whole);
  panel.lblDisp[12].set(0, distance);
  panel.lblDisp[13].set(static_cast<float>(T_in), two_decimals);
  panel.lblDisp[14].set(db.Para_IntakeHum, two_decimals);
  panel.refresh();
}

Season_Result Ana_Season_Temp(Database& db, Dialogue& dialogue, Panel& panel,
                              const Flow_Solver& solve) {
  Season_Result result;
  try {
    Run(db, dialogue, panel, solve, result);
  } catch (const Run_Time_Error& error) {
    result.end = Season_End::fault;
    result.fault = error.what();
    dialogue.show(messages::Calculation_Error(" Seasonal Temp. Var."));
  }
  return result;
}

}  // namespace branok
