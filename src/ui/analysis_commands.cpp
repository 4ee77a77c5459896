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
        parameter.name == "Para_Accel") {
      continue;
    }
    values.push_back(parameter.get(db));
  }
  return values;
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
  connect(analysis_, &MDIAna::edit_target, this, &BRANOK60::show_analysis_state);
  connect(analysis_, &MDIAna::state_changed, this, &BRANOK60::show_analysis_state);
  QMdiSubWindow* const frame = area_->addSubWindow(analysis_);
  frame->setAttribute(Qt::WA_DeleteOnClose);
  frame->setWindowIcon(Icon_Of("window-analysis"));
  connect(frame, &QObject::destroyed, this, &BRANOK60::window_activated);
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
void BRANOK60::run_analysis(const std::function<bool()>& calculation) {
  MDIAna& window = analysis_window();
  panel_.start_run();
  if (calculation()) outdated_.clear();
  panel_.show_all();
  window.Display_Data_Press();
  window.Display_Data_Flow();
  show_analysis_state();
  refresh_status();
}

void BRANOK60::Analysis_Press(int) {
  run_analysis([this] { return Ana_Flow_Press(project_.db, dialogue_, panel_).ok(); });
}

void BRANOK60::Analysis_Annual(int) {
  run_analysis([this] {
    const Annual_Result result = Ana_Annual_Temp(project_.db, dialogue_, panel_);
    if (!result.fault.empty()) dialogue_.remark(result.fault);
    if (result.ok() && !result.flow.ok()) {
      dialogue_.remark("The last flow solution of the annual run did not converge");
    }
    return result.ok();
  });
}

void BRANOK60::Analysis_Monthly(int) {
  run_analysis([this] {
    const Season_Result result = Ana_Season_Temp(project_.db, dialogue_, panel_);
    if (!result.fault.empty()) dialogue_.remark(result.fault);
    return result.ok();
  });
}

void BRANOK60::Analysis_Set_Const_Temp(int) {
  Set_Constant_Temp(project_.db, true);
  dialogue_.remark("All air has the intake's annual average state");
  outdated_ = "constant temperatures were set";
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
  Draw_Fan_Diagram(this, project_.db.MFan_Total, 1,
                   [this](int fan) { return Make_Diagram(project_.db, Diagram_Kind::fan, fan); });
}

void BRANOK60::Analysis_Switch(int) {
  MDIAna& window = analysis_window();
  if (window.selected_airway() < 1) {
    dialogue_.remark("Choose an airway's row on the page Airways Results first");
  } else if (window.change_switch()) {
    outdated_ = "an airway was switched";
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
  if (Physical_Parameters(project_.db) != before) outdated_ = "parameters were changed";
  refresh_status();
}

}  // namespace branok
