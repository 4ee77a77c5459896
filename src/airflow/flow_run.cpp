#include "airflow/flow_run.h"

#include <cmath>
#include <limits>
#include <utility>

#include "airflow/likely_causes.h"
#include "core/faults.h"
#include "core/messages.h"
#include "prep/fan.h"

namespace branok {

namespace {

constexpr Picture press_picture("###0.0##");
constexpr float fixed_stop = 10000;  // murgue

Answer Ask_Results_Initial(Dialogue& dialogue) {
  return dialogue.show(messages::Ask_Results_Initial());
}

// Average shut-off pressure of the main fans at their driving speeds, mmH2O.
double Average_Shut_Off(const Database& db) {
  double sum = 0;
  for (int f = 1; f <= db.MFan_Total; ++f) {
    sum += double{db.MFan_Coef(0, f)} * db.MFan_Ratio[f] * db.MFan_Ratio[f];
  }
  return db.MFan_Total > 0 ? sum / db.MFan_Total : 0;
}

// Where the free nodes start, mmH2O.
double Start_Press(const Database& db) { return -db.Para_InitPress * Average_Shut_Off(db); }

// Takes the fan's limit flow down, in steps that grow by 100 m3/min, until its curve is not
// negative there. The count of steps is a 16-bit number, which ends a curve that is negative
// everywhere.
void Lower_Limit_Flow(Database& db, int f) {
  const double n = db.MFan_Ratio[f];
  for (int k = 0; k <= std::numeric_limits<std::int16_t>::max(); ++k) {
    db.MFan_LimitFlow[f] = To_Single(db.MFan_LimitFlow[f] - 100.0 * k);
    const double x = db.MFan_LimitFlow[f] / 60.0 / n;
    if (!(Fan_Head(db, f, 1, x) * n * n < 0)) return;
  }
  throw Run_Time_Error("main fan #" + std::to_string(f) + ": its curve is negative at every flow");
}

// A fault of the fit tells which fan.
void Refit(Database& db, int f) {
  try {
    Fit_Fan_Curve(db, f);
  } catch (const Calculation_Fault& fault) {
    throw Calculation_Fault(fault.name, "main fan #" + std::to_string(f) + ": " + fault.what());
  }
}

// The flows of the solver are volumes of outside air; each becomes the volume at its airway's own
// density. The expansion coefficient here is 0.0037, unlike the solver's, and the mean elevation is
// not cut to an integer.
void Correct_Flows(Database& db) {
  const Float_Faults faults;
  Root_Table<float> density = db.Root_Density;
  Root_Table<float> flow = db.Root_Flow;
  const double outside = 1.293 / (1 + 0.0037 * db.Node_DBT[db.Inlet_Node[1]]);
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      const double mean = (db.Node_Elev[i] + db.Node_Elev[db.Node_Junc(j, i)]) / 2.0;
      const double e = std::exp(-mean / 8620);
      density(j, i) = static_cast<float>(1.293 / (1 + 0.0037 * db.Root_Temp(j, i)) * e);
      flow(j, i) = static_cast<float>(outside * e * db.Root_Flow(j, i) / density(j, i));
    }
  }
  faults.check("the density correction of the flows");
  db.Root_Density = std::move(density);
  db.Root_Flow = std::move(flow);
}

void Set_Start_Values(Database& db, Dialogue& dialogue, Panel& panel) {
  Answer answer = Answer::no;
  if (db.Flag_Results != 0) answer = Ask_Results_Initial(dialogue);
  if (answer == Answer::yes) return;
  // The question offers Cancel as a way to stop, yet the run goes on: only fans and intakes are
  // reset.
  const bool afresh = answer == Answer::no;
  Set_Initial_Press(db, panel, afresh);
  Set_Constant_Temp(db, afresh);
}

// The run itself; faults outside the solver come out as Run_Time_Error.
Flow_Result Run(Database& db, Dialogue& dialogue, Panel& panel) {
  panel.lblDisp[0].set(Run_Heading(db));
  panel.refresh();
  Set_Start_Values(db, dialogue, panel);
  db.Flag_Results = 0;
  Busy busy(dialogue);
  Flow_Result result = Calc_Press_Flow(db, dialogue, panel);
  busy.end();
  if (!result.ok()) return result;

  db.Flag_Results = flag_true;
  for (const std::string& strange : Network_Remarks(db)) dialogue.remark(strange);
  dialogue.show(messages::Confirm_Flow());
  panel.mnuAnalysisComDiagram = true;
  panel.mnuAnalysisComAnnual = true;
  panel.Set_Result_State("Flow-Given");
  Correct_Flows(db);
  Set_Flow_Sign(db);
  return result;
}

}  // namespace

void Set_Initial_Press(Database& db, Panel& panel, bool reset) {
  const Float_Faults faults;
  for (int f = 1; f <= db.MFan_Total; ++f) {
    Refit(db, f);
    Lower_Limit_Flow(db, f);
    faults.check("the curve of a main fan");
  }
  const double start = Start_Press(db);
  if (reset) {
    for (int i = 1; i <= db.Node_Total; ++i) db.Node_PressInit[i] = db.Node_Press[i] = start;
  }
  for (int f = 1; f <= db.MFan_Total; ++f) {
    const double n = db.MFan_Ratio[f];
    db.MFan_Press[f] = db.MFan_Coef(0, f) * (db.Para_InitPress + 0.4) * n * n;
    const int suction = db.MFan_Suction[f];
    db.Node_PressInit[suction] = db.Node_Press[suction] = -db.MFan_Press[f];
  }
  for (int k = 1; k <= db.Inlet_Total; ++k) {
    db.Node_PressInit[db.Inlet_Node[k]] = db.Node_Press[db.Inlet_Node[k]] = 0;
  }
  faults.check("the start pressures");
  Show_Start_Press(db, panel);
  panel.refresh();
}

std::string Run_Heading(const Database& db) {
  if (db.Flag_Annual == 1) return "for Anual Ave. Temp.";
  if (db.Flag_Season == 1) return "for " + std::string(Season_Of(db));
  return "for given Thermal Conditions";
}

void Show_Start_Press(const Database& db, Panel& panel) {
  panel.lblTitle[1].set(Average_Shut_Off(db), press_picture, "mmH2O");
  panel.lblTitle[3].set(Start_Press(db), press_picture, "mmH2O");
}

void Set_Constant_Temp(Database& db, bool reset) {
  if (!reset) return;
  const auto density = static_cast<float>(1.293 / (1 + 0.00366 * db.Para_IntakeTemp));
  const auto humidity = static_cast<float>(0.01 * db.Para_IntakeHum);
  for (int i = 1; i <= db.Node_Total; ++i) {
    db.Node_DBT[i] = db.Node_TempInit[i] = db.Para_IntakeTemp;
    db.Node_Hum[i] = humidity;
    db.Node_WBT[i] = db.Para_IntakeWBT;
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      db.Root_Temp(j, i) = db.Root_TempInit(j, i) = db.Para_IntakeTemp;
      db.Root_Density(j, i) = density;
      db.Root_Hum(j, i) = humidity;
    }
  }
}

void Set_Flow_Sign(Database& db) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      db.Root_FlowSign(j, i) = static_cast<std::int16_t>(Sign(db.Root_Flow(j, i)));
    }
  }
}

bool Change_Switch(Database& db, int i, int slot) {
  if (db.Root_Resist(slot, i) > fixed_stop) return false;
  const std::int16_t state = db.Root_Switch(slot, i) == 0 ? 1 : 0;
  db.Root_Switch(slot, i) = state;
  const int far = db.Node_Junc(slot, i);
  if (const int back = Find_Slot(db, far, i)) db.Root_Switch(back, far) = state;
  return true;
}

Flow_Result Ana_Flow_Press(Database& db, Dialogue& dialogue, Panel& panel) {
  std::string name = "Airflow ";
  std::string detail;
  try {
    return Run(db, dialogue, panel);
  } catch (const Calculation_Fault& fault) {
    name = fault.name;
    detail = fault.what();
  } catch (const Run_Time_Error& fault) {
    detail = fault.what();
  }
  db.Flag_Results = 0;
  Flow_Result result;
  result.fault = detail;
  result.likely_causes = Likely_Causes(db);
  for (const std::string& cause : result.likely_causes) dialogue.remark(cause);
  dialogue.remark(detail);
  dialogue.show(messages::Calculation_Error(name));
  return result;
}

}  // namespace branok
