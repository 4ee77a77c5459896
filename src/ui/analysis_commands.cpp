// The Analysis menu and the buttons of the Analysis window.
#include <QApplication>
#include <QMdiSubWindow>

#include "airflow/flow_run.h"
#include "core/messages.h"
#include "thermal/annual.h"
#include "thermal/diagrams.h"
#include "thermal/seasonal.h"
#include "ui/analysis_window.h"
#include "ui/diagram_dialog.h"
#include "ui/icon.h"
#include "ui/main_window.h"
#include "ui/parameter_dialog.h"

namespace branok {

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
  connect(analysis_, &MDIAna::wet_method_chosen, this, [this] {
    show_command_state();
    refresh_status();
  });
  connect(analysis_, &MDIAna::edit_target, this, &BRANOK60::show_command_state);
  connect(analysis_, &MDIAna::state_changed, this, &BRANOK60::show_command_state);
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
  show_command_state();
  refresh_status();
}

void BRANOK60::Analysis_Press(int) {
  run_analysis([this] {
    if (Ana_Flow_Press(project_.db, dialogue_, panel_).ok()) basis_.take_flow(project_.db);
  });
}

void BRANOK60::Analysis_Annual(int) {
  run_analysis([this] {
    const Annual_Result result = Ana_Annual_Temp(project_.db, dialogue_, panel_);
    if (!result.fault.empty()) dialogue_.remark(result.fault);
    basis_.take_temperatures(project_.db, result.ok());
    if (result.ok()) basis_.take_flow(project_.db, result.flow.ok());
  });
}

void BRANOK60::Analysis_Monthly(int) {
  run_analysis([this] {
    const Season_Result result = Ana_Season_Temp(project_.db, dialogue_, panel_);
    if (!result.fault.empty()) dialogue_.remark(result.fault);
    if (result.end == Season_End::needs_annual || result.end == Season_End::declined) return;
    const bool temperatures =
        result.end != Season_End::fault && result.end != Season_End::too_many_passes;
    basis_.take_season(project_.db, temperatures);
    if (result.end == Season_End::complete) basis_.take_flow(project_.db);
    if (result.end == Season_End::flow_failed) basis_.take_flow(project_.db, false);
  });
}

void BRANOK60::Analysis_Set_Const_Temp(int) {
  Set_Constant_Temp(project_.db, true);
  dialogue_.remark("All air has the intake's annual average state");
  refresh_status();
}

void BRANOK60::draw_diagram(Diagram_Kind kind) {
  QWidget* const front = QApplication::activeModalWidget();
  Draw_Diagram(front != nullptr ? front : this, Make_Diagram(project_.db, kind));
}

void BRANOK60::Analysis_Diagram(int) { draw_diagram(Diagram_Kind::press); }
void BRANOK60::Analysis_Graph(int) { draw_diagram(Diagram_Kind::month); }
void BRANOK60::Analysis_Leng(int) { draw_diagram(Diagram_Kind::temp); }

void BRANOK60::Analysis_Switch(int) {
  MDIAna& window = analysis_window();
  const int row = window.selected_airway();
  if (row < 1) {
    dialogue_.remark("Choose an airway's row on the page Airways Results first");
  } else if (window.change_switch()) {
    const Text_Grid& grid = window.airway_results();
    dialogue_.remark("Airway " + grid.text(row, 0) + ": " + grid.text(row, switch_column));
    refresh_status();
  } else {
    dialogue_.remark("Above 10000 murgue an airway is a fixed stop and no switch");
  }
}

void BRANOK60::Analysis_Para(int) {
  DlgCPara dialog(
      project_.db, dialogue_,
      [this](std::string_view kind) {
        draw_diagram(kind == "gtemp" ? Diagram_Kind::gtemp : Diagram_Kind::intemp);
      },
      this);
  dialog.exec();
  refresh_status();
}

}  // namespace branok
