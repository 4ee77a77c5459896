#include "batch/output.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "core/text.h"
#include "thermal/result_grids.h"

namespace branok {

namespace {

// The shortest text that reads back as the same number.
template <class Number>
std::string Exact(Number value) {
  std::array<char, 40> text{};
  const auto end = std::to_chars(text.data(), text.data() + text.size(), value).ptr;
  return {text.data(), end};
}

std::string Quoted(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string quoted = "\"";
  for (const char c : text) {
    if (c == '"') quoted += '"';
    quoted += c;
  }
  return quoted + '"';
}

std::string Right(std::string_view text, std::size_t width) {
  return std::string(width > text.size() ? width - text.size() : 0, ' ') + std::string(text);
}

std::string Left(std::string_view text, std::size_t width) {
  return std::string(text) + std::string(width > text.size() ? width - text.size() : 0, ' ');
}

std::string Line(std::string_view what, const std::string& value) {
  return "  " + Left(what, 24) + value + '\n';
}

std::string Kind_Of_Results(const Database& db) {
  if (db.Flag_Results == 0) return "none";
  if (db.Flag_Annual == 1) return "annual";
  if (db.Flag_Season == 1) return "seasonal, " + std::string(Trim(Season_Of(db)));
  return "flow for given temperatures";
}

}  // namespace

std::string Nodes_Csv(const Database& db) {
  std::string csv =
      "Nodal No.,Pressure (mmAq),DBT (deg C),Hum. (%),WBT (deg C),T.Leng. (m),Elevation (m),"
      "E-W (m),S-N (m)\n";
  for (const Node_Row& row : Node_Rows(db)) {
    csv += Exact(row.node) + ',' + Exact(row.pressure) + ',' + Exact(row.dbt) + ',' +
           Exact(row.hum) + ',' + Exact(row.wbt) + ',' + Exact(row.tleng) + ',' + Exact(row.elev) +
           ',' + Exact(row.ew) + ',' + Exact(row.sn) + '\n';
  }
  return csv;
}

std::string Airways_Csv(const Database& db) {
  std::string csv =
      "Airway i -> j,Flow Rate (m3/min),Velo. (m/sec),Temp. (deg C),Hum. (%),Lev. Diff. (m),"
      "NVP (mmAq),Switch Airway,Comm.\n";
  for (const Airway_Row& row : Airway_Rows(db)) {
    csv += Airway_Name(row) + ',' + Exact(row.flow) + ',' +
           (row.velocity ? Exact(*row.velocity) : "") + ',' + Exact(row.temp) + ',' +
           Exact(row.hum) + ',' + Exact(row.level_diff) + ',' + Exact(row.nvp) + ',' +
           std::string(Trim(Switch_Word(row.closed))) + ',' + Quoted(To_Utf8(row.comment)) + '\n';
  }
  return csv;
}

std::string Result_Tables(const Database& db) {
  std::string text =
      "  Node   Pressure      DBT     Hum.      WBT   T.Leng.  Elevation\n"
      "           (mmAq)  (deg C)      (%)  (deg C)       (m)        (m)\n";
  for (const Node_Row& row : Node_Rows(db)) {
    const auto [node, pressure, dbt, hum, wbt, tleng, elev, ew, sn] = Node_Texts(row);
    text += Right(node, 6) + Right(pressure, 11) + Right(dbt, 9) + Right(hum, 9) + Right(wbt, 9) +
            Right(tleng, 10) + Right(elev, 11) + '\n';
  }
  text +=
      "\n   Airway    Flow Rate    Velo.    Temp.     Hum.      NVP  Switch  Comm.\n"
      "              (m3/min)  (m/sec)  (deg C)      (%)   (mmAq)\n";
  for (const Airway_Row& row : Airway_Rows(db)) {
    if (row.far < row.node) continue;  // each airway once, from its lower-numbered end
    const auto [name, flow, velocity, temp, hum, level, nvp, state, comment] = Airway_Texts(row);
    text += Right(name, 11) + Right(flow, 11) + Right(velocity, 9) + Right(temp, 9) +
            Right(hum, 9) + Right(nvp, 9) + "  " + Left(state, 8) + To_Utf8(comment) + '\n';
  }
  return text;
}

std::string Mine_Summary(const Database& db) {
  int nodes = 0;
  int airways = 0;
  for (int i = 1; i <= db.Node_Total; ++i) {
    nodes += db.Node_JuncCount[i] > 0 ? 1 : 0;
    airways += db.Node_UpCount[i];
  }
  std::string text = "Mine: " + To_Utf8(Trim(db.Mine_Name)) + " (" + To_Utf8(db.Mine_Date) + ")\n";
  text += Line("nodes, airways", std::to_string(nodes) + ", " + std::to_string(airways));
  text += Line("intakes", std::to_string(db.Inlet_Total));
  text += Line("main, assist fans",
               std::to_string(db.MFan_Total) + ", " + std::to_string(db.AFan_Total));
  text += Line("special thermal rows", std::to_string(db.Thermo_Total));
  return text + Line("results", Kind_Of_Results(db));
}

std::string Flow_Summary(const Database& db, const Flow_Result& result) {
  static constexpr Picture imbalance("0.0000");
  static constexpr Picture press("##0.00");
  static constexpr Picture flow("####0.0");
  std::string text =
      Line("passes", std::to_string(result.passes)) +
      Line("largest imbalance",
           imbalance(result.imbalance).text() + " m3/min at node " + std::to_string(result.node));
  for (std::size_t f = 1; f <= static_cast<std::size_t>(result.fans); ++f) {
    text += Line("main fan #" + std::to_string(f), press(-result.fan_press[f]).text() + " mmH2O, " +
                                                       flow(result.fan_flow[f] * 60).text() +
                                                       " m3/min");
  }
  double intake = 0;
  for (int k = 1; k <= db.Inlet_Total; ++k) {
    const int i = db.Inlet_Node[k];
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) intake += db.Root_Flow(j, i);
  }
  return text + Line("intake flow in all", flow(intake * 60).text() + " m3/min");
}

std::string Temperature_Summary(const Database& db) {
  static constexpr Picture degrees("##0.00");
  float hottest = -1e30F;
  float coldest = 1e30F;
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      hottest = std::max(hottest, db.Root_Temp(j, i));
      coldest = std::min(coldest, db.Root_Temp(j, i));
    }
  }
  if (hottest < coldest) return {};
  return Line("temperature range",
              degrees(coldest).text() + " to " + degrees(hottest).text() + " deg C");
}

}  // namespace branok
