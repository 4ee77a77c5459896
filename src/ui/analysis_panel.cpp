#include "ui/analysis_panel.h"

#include "airflow/flow_run.h"
#include "core/faults.h"
#include "thermal/temperature_run.h"
#include "ui/analysis_window.h"

namespace branok {

namespace {

constexpr std::chrono::milliseconds between_shows(33);

constexpr Picture whole("##0");
constexpr Picture one_decimal("###0.0");

}  // namespace

void Set_Flow_Titles(Panel& panel) {
  panel.lblTitle[0].set("Ave. Shut-Out Press.");
  panel.lblTitle[2].set("Initial Nodal Press.");
  panel.lblTitle[4].set("Iteration Number");
  panel.lblTitle[5].set("Calculation Time");
  panel.lblTitle[6].set("sec");
  panel.lblTitle[7].set("Fan Pressure");
  panel.lblTitle[8].set("mmH2O");
  panel.lblTitle[9].set("Fan Flow Rate");
  panel.lblTitle[10].set("m\u00b3/min");
  panel.lblTitle[11].set("Max. Flow Torelance");
  panel.lblTitle[12].set("m\u00b3/min");
  panel.lblTitle[13].set("on the Nodal No.");
}

std::string_view Opening_State(const Database& db) {
  return db.Flag_Results != 0 && db.Flag_Season == 1 ? "Seasonal-Flow" : "none";
}

Analysis_Panel::Analysis_Panel(Clock now) : now_(std::move(now)), last_shown_(now_()) {
  Set_Flow_Titles(*this);
  Set_Annual_Titles(*this);
}

void Analysis_Panel::reset(const Database& db) {
  const bool seasonal = Opening_State(db) == "Seasonal-Flow";
  const std::string heading = db.Flag_Results != 0 ? Run_Heading(db) : std::string();
  lblDisp.fill(Label());
  pgbPercent.fill(0);
  last_pass_.reset();
  result_state = Opening_State(db);
  lblDisp[0].set(heading);
  lblDisp[2].set(0, one_decimal);
  lblDisp[6].set(0, whole);
  if (seasonal) {
    Set_Season_Titles(*this);
  } else {
    Set_Annual_Titles(*this);
  }
  mnuAnalysisComDiagram = db.Iter_No > 1;
  mnuAnalysisComAnnual = db.Flag_Results != 0;
  mnuAnalysisComLeng = db.Flag_Results != 0 && (db.Flag_Annual == 1 || seasonal);
  mnuAnalysisComGraph = db.Trace_Count > 0;
}

void Analysis_Panel::refresh() {
  if (now_() - last_shown_ >= between_shows) show_all();
}

void Analysis_Panel::show_all() {
  if (window_ != nullptr) {
    // The arithmetic of painting is not the run's.
    const Float_Faults painting;
    window_->show_panel();
  }
  // The time that the painting took is not counted: on a slow display the run must still go on.
  last_shown_ = now_();
}

void Analysis_Panel::Set_Result_State(std::string_view kind) {
  Panel::Set_Result_State(kind);
  const Float_Faults painting;
  if (window_ != nullptr) window_->Set_Result_State(kind);
}

}  // namespace branok
