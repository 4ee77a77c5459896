#include "thermal/diagrams.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/pictures.h"
#include "core/vocabulary.h"
#include "prep/fan.h"
#include "thermal/fan_state.h"
#include "thermal/seasonal.h"

namespace branok {

namespace {

constexpr Picture press_picture("##0.00");
constexpr Picture speed_picture("###0.0");

Diagram Temp_Diagram(const Database& db) {
  Diagram diagram{.title = "Calculation Result",
                  .x_title = "Length (m)",
                  .y_title = "Temp. (deg. C)",
                  .series = {{}}};
  bool travelled = false;
  for (int i = 1; i <= db.Node_Total; ++i) {
    diagram.series[0].points.push_back({db.Node_TLeng[i], db.Node_DBT[i]});
    travelled = travelled || db.Node_TLeng[i] > 0;
  }
  if (!travelled) diagram.hint = "No travel lengths yet: calculate a season first.";
  return diagram;
}

Diagram Press_Diagram(const Database& db) {
  Diagram diagram{.title = "Calculation Result",
                  .x_title = "Iteration No.",
                  .y_title = "Max. Flow Torelance (m\u00b3/min)",
                  .series = {{}}};
  for (int i = 1; i <= db.Iter_No; ++i) {
    diagram.series[0].points.push_back({static_cast<double>(i), db.Iter_Error[i]});
  }
  if (db.Iter_No == 0) diagram.hint = "No flow run yet: calculate the flow first.";
  return diagram;
}

Diagram Month_Diagram(const Database& db) {
  Diagram diagram{.title = "Temp. Fluctuation Diagram",
                  .x_title = "Months from the Specific Month",
                  .y_title = "Temp. (deg. C)",
                  .show_legend = true};
  for (int k = 1; k <= db.Trace_Count; ++k) {
    Diagram_Series trace{.name = "Airway " + std::to_string(db.Trace_Node1[k]) + "-" +
                                 std::to_string(db.Trace_Node2[k])};
    for (int s = 1; s <= trace_steps; ++s) {
      trace.points.push_back({0.2 * s, db.Trace_Temp(s, k)});
    }
    diagram.series.push_back(std::move(trace));
  }
  if (db.Trace_Count == 0) diagram.hint = "No seasonal run yet: calculate a season first.";
  return diagram;
}

// --- The main fan

// A mine of its own for the fan, whose curve is the one of the fan's table.
Database With_Fitted_Fan(const Database& db, int fan) {
  if (fan < 1 || fan > db.MFan_Total) Outside_Table(fan, db.MFan_Total);
  Database fitted = db;
  Fit_Fan_Curve(fitted, fan);
  return fitted;
}

// The speed of a curve. A fan without a standard speed runs at its driving speed, which then is the
// one that ratios count from; without either the ratio itself is told.
std::string Speed_Name(const Database& db, int fan, float ratio) {
  const float base = db.MFan_StdRpm[fan] != 0 ? db.MFan_StdRpm[fan] : db.MFan_DriveRpm[fan];
  if (base == 0) return speed_picture(ratio).text() + " x r.p.m.";
  return speed_picture(ratio * base).text() + " r.p.m.";
}

std::string Fan_Footnote(const Database& db, int fan,
                         const std::optional<Diagram_Point>& working_point) {
  const double press = working_point ? working_point->y : db.MFan_Press[fan];
  std::string note = "Pf = " + press_picture(press).text() + " mmH2O";
  if (!working_point) note += " (no present results)";
  return note;
}

Diagram Fan_Diagram(const Database& db, int fan) {
  const Database fitted = With_Fitted_Fan(db, fan);
  const Fan_Curves curves = Calc_Fan_Curves(fitted, fan);
  Diagram diagram = Blank_Fan_Diagram(fan);
  for (std::size_t j = 1; j <= fan_curves; ++j) {
    if (curves.count[j] == 0) continue;
    Diagram_Series curve{.name = Speed_Name(db, fan, curves.ratio[j]), .main = j == 3};
    for (std::size_t i = 1; i <= static_cast<std::size_t>(curves.count[j]); ++i) {
      curve.points.push_back({curves.flow[j][i], curves.head[j][i]});
    }
    diagram.series.push_back(std::move(curve));
  }
  diagram.working_point = Fan_Working_Point(db, fan);
  diagram.footnote = Fan_Footnote(db, fan, diagram.working_point);
  if (diagram.series.empty())
    diagram.hint = "The fan has no speed: enter its driving r.p.m. first.";
  return diagram;
}

// --- The parameters

Diagram Rock_Diagram(const Database& db) {
  Diagram diagram{.title = "Ground/Rock Virgine Temperature Distribution",
                  .x_title = "Initial Ground/Rock Temp. [deg.C]",
                  .y_title = "Elevation[m]",
                  .series = {{}}};
  const double step = std::max(Int((db.Range_ZMax - db.Range_ZMin) / 10.0), 20.0);
  for (int k = 0; k <= 10; ++k) {
    const double E = db.Range_ZMax - (k + 1) * step;
    const double T = db.Para_RockTemp - (E - db.Para_DatumElev) * db.Para_RockGrad;
    diagram.series[0].points.push_back({T, E});
  }
  return diagram;
}

Diagram Intake_Diagram(const Database& db) {
  const int month = db.Para_MonthPrev;
  if (month < 0 || month > 12) Outside_Table(month, 12, 0);
  Diagram diagram{
      .title = "Intake Air Temp.",
      .x_title = "Days from The " + std::string(Season_Name[static_cast<std::size_t>(month)]),
      .y_title = "Intake Air Temp.(deg. C)",
      .series = {{}}};
  for (int s = 0; s <= 100; ++s) {
    // A hundredth of the year is 3.65 days or 0.12 months.
    diagram.series[0].points.push_back({3.65 * s, Intake_Temperature(db, month + 0.12 * s)});
  }
  return diagram;
}

Diagram Diagram_Of(const Database& db, Diagram_Kind kind, int fan) {
  switch (kind) {
    case Diagram_Kind::press:
      return Press_Diagram(db);
    case Diagram_Kind::month:
      return Month_Diagram(db);
    case Diagram_Kind::fan:
      return Fan_Diagram(db, fan);
    case Diagram_Kind::gtemp:
      return Rock_Diagram(db);
    case Diagram_Kind::intemp:
      return Intake_Diagram(db);
    case Diagram_Kind::temp:
      break;
  }
  return Temp_Diagram(db);
}

}  // namespace

Diagram Blank_Fan_Diagram(int fan, std::string hint) {
  return {.kind = Diagram_Kind::fan,
          .title = "Fan Characteristic Diagram of Fan No." + std::to_string(fan),
          .x_title = "Flow Rate [m\u00b3/min]",
          .y_title = "Head [mmH2O]",
          .show_legend = true,
          .hint = std::move(hint)};
}

std::optional<Diagram_Point> Fan_Working_Point(const Database& db, int fan) {
  if (db.Flag_Results == 0 || !(db.MFan_Ratio[fan] > 0)) return std::nullopt;
  const Fan_State state = Present_Fan_State(db, fan);
  return Diagram_Point{state.flow, state.press};
}

Diagram Make_Diagram(const Database& db, Diagram_Kind kind, int fan) {
  Diagram diagram = Diagram_Of(db, kind, fan);
  diagram.kind = kind;
  return diagram;
}

}  // namespace branok
