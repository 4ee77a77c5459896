// The Analysis menu and the buttons of the Analysis window.
#include <QApplication>
#include <QMdiSubWindow>

#include "airflow/flow_run.h"
#include "core/messages.h"
#include "thermal/annual.h"
#include "thermal/diagrams.h"
#include "thermal/parameters.h"
#include "thermal/seasonal.h"
#include "ui/analysis_window.h"
#include "ui/diagram_dialog.h"
#include "ui/icon.h"
#include "ui/main_window.h"
#include "ui/parameter_dialog.h"

namespace branok {

namespace {

// The parameters that results depend on: not the month of the next season, and not how exactly and
// how fast the solver works.
std::vector<double> Physical_Parameters(const Database& db) {
  std::vector<double> values;
  for (const Parameter& parameter : Calculation_Parameters()) {
    if (parameter.name == "Para_Month" || parameter.name == "Para_FlowTol" ||
        parameter.name == "Para_Accel" || parameter.entry == Entry::derived) {
      continue;
    }
    values.push_back(parameter.get(db));
  }
  return values;
}

// The first fan whose table gives a curve; the first of all when none does.
int First_Fan_With_Curve(const Database& db) {
  for (int fan = 1; fan <= db.MFan_Total; ++fan) {
    try {
      (void)Make_Diagram(db, Diagram_Kind::fan, fan);
      return fan;
    } catch (const Run_Time_Error&) {
      continue;
    }
  }
  return 1;
}

}  // namespace

MDIAna& BRANOK60::analysis_window() {
  if (analysis_ != nullptr) return *analysis_;
  analysis_ = new MDIAna(project_.db, panel_, area_);
  connect(analysis_, &MDIAna::command, this, [this](const QString& name) {
    if (name == "fan_diagram") {
      give_command("mnuDataComGraph");
    } else {
      give_command(name);
    }
  });
  connect(analysis_, &MDIAna::wet_method_chosen, this, &BRANOK60::wet_method_chosen);
  connect(analysis_, &MDIAna::edit_target, this, &BRANOK60::show_analysis_state);
  connect(analysis_, &MDIAna::state_changed, this, &BRANOK60::show_analysis_state);
  QMdiSubWindow* const frame = area_->addSubWindow(analysis_);
  frame->setAttribute(Qt::WA_DeleteOnClose);
  frame->setWindowIcon(Icon_Of("window-analysis"));
  connect(frame, &QObject::destroyed, this, &BRANOK60::window_activated);
  if (font_) analysis_->apply_font(*font_);
  analysis_->load();
  frame->showMaximized();
  return *analysis_;
}

void BRANOK60::Analysis_Display(int) {
  MDIAna& window = analysis_window();
  window.Display_Data_Press();
  window.Display_Data_Flow();
}

void BRANOK60::Analysis_Find(int) {
  const std::optional<std::string> text = dialogue_.ask("Please input nodal number.", "Find node");
  if (!text) return;
  try {
    analysis_window().Find(Parse_Int32(*text));
  } catch (const Run_Time_Error&) {
    dialogue_.show(messages::Not_Numeric());
  }
}

// A run: its values are shown while it goes on, the last ones and the result grids when it has
// ended, well or not.
void BRANOK60::run_analysis(const std::function<void()>& calculation) {
  MDIAna& window = analysis_window();
  if (project_.db.Node_Total == 0) {
    dialogue_.remark("No mine is open: File, Open reads one");
    return;
  }
  panel_.start_run();
  calculation();
  panel_.show_all();
  if (project_.db.Flag_Results == 0) window.Set_Result_State("none");
  window.Display_Data_Press();
  window.Display_Data_Flow();
  show_analysis_state();
  refresh_status();
}

// The season of seasonal results, as their run or their file has left it in the parameters.
void BRANOK60::take_season() { season_ = Trim(Season_Of(project_.db)); }

// The other wet-wall method counts from the next run on; temperatures on show are of the one
// before.
void BRANOK60::wet_method_chosen() {
  const Database& db = project_.db;
  const bool of_temperatures = db.Flag_Annual == 1 || db.Flag_Season == 1;
  const bool same = (db.Wet_Tag == "evaporate") == (db.Para_WetMode == 1);
  constexpr std::string_view reason = "the wetness selection was changed";
  if (of_temperatures && !same) old_temp_ = reason;
  if (same && old_temp_ == reason) old_temp_.clear();
  show_analysis_state();
  refresh_status();
}

void BRANOK60::Analysis_Press(int) {
  run_analysis([this] {
    if (!Ana_Flow_Press(project_.db, dialogue_, panel_).ok()) return;
    old_flow_.clear();
    const bool given = project_.db.Flag_Annual != 1 && project_.db.Flag_Season != 1;
    if (given) old_temp_.clear();
  });
}

void BRANOK60::Analysis_Annual(int) {
  run_analysis([this] {
    const Annual_Result result = Ana_Annual_Temp(project_.db, dialogue_, panel_);
    if (!result.fault.empty()) dialogue_.remark(result.fault);
    if (!result.ok()) {
      old_temp_ = "the last temperature run failed";
      return;
    }
    old_temp_.clear();
    old_flow_ = result.flow.ok() ? "" : "the last flow solution did not converge";
  });
}

void BRANOK60::Analysis_Monthly(int) {
  run_analysis([this] {
    const Season_Result result = Ana_Season_Temp(project_.db, dialogue_, panel_);
    if (!result.fault.empty()) dialogue_.remark(result.fault);
    if (result.end == Season_End::needs_annual || result.end == Season_End::declined) return;
    take_season();
    if (result.end == Season_End::complete) old_flow_.clear();
    if (result.end == Season_End::fault || result.end == Season_End::too_many_passes) {
      old_temp_ = "the last temperature run failed";
    }
    if (result.end == Season_End::without_flow || result.end == Season_End::flow_failed) {
      old_flow_ = "the flow is not of this season";
    }
  });
}

void BRANOK60::Analysis_Set_Const_Temp(int) {
  Set_Constant_Temp(project_.db, true);
  dialogue_.remark("All air has the intake's annual average state");
  old_flow_ = "constant temperatures were set";
  refresh_status();
}

void BRANOK60::draw_diagram(Diagram_Kind kind) {
  QWidget* const front = QApplication::activeModalWidget();
  Draw_Diagram(front != nullptr ? front : this, Make_Diagram(project_.db, kind));
}

void BRANOK60::Analysis_Diagram(int) { draw_diagram(Diagram_Kind::press); }
void BRANOK60::Analysis_Graph(int) { draw_diagram(Diagram_Kind::month); }
void BRANOK60::Analysis_Leng(int) { draw_diagram(Diagram_Kind::temp); }

void BRANOK60::Fan_Diagram(int) {
  const Database& db = project_.db;
  Draw_Fan_Diagram(this, db.MFan_Total, First_Fan_With_Curve(db),
                   [&db](int fan) { return Make_Diagram(db, Diagram_Kind::fan, fan); });
}

void BRANOK60::Analysis_Switch(int) {
  MDIAna& window = analysis_window();
  const int row = window.selected_airway();
  if (row < 1) {
    dialogue_.remark("Choose an airway's row on the page Airways Results first");
  } else if (window.change_switch()) {
    const Text_Grid& grid = window.airway_results();
    dialogue_.remark("Airway " + grid.text(row, 0) + ": " + grid.text(row, switch_column));
    old_flow_ = old_temp_ = "an airway was switched";
    refresh_status();
  } else {
    dialogue_.remark("Above 10000 murgue an airway is a fixed stop and no switch");
  }
}

void BRANOK60::Analysis_Para(int) {
  const std::vector<double> before = Physical_Parameters(project_.db);
  DlgCPara dialog(
      project_.db, dialogue_,
      [this](std::string_view kind) {
        draw_diagram(kind == "gtemp" ? Diagram_Kind::gtemp : Diagram_Kind::intemp);
      },
      this);
  dialog.exec();
  if (Physical_Parameters(project_.db) != before) {
    old_flow_ = old_temp_ = "parameters were changed";
  }
  refresh_status();
}

}  // namespace branok
