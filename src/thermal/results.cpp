#include "thermal/results.h"

#include <cmath>

#include "core/numbers.h"

namespace branok {

namespace {

// Natural ventilation pressure of an airway end, mmAq. The shown value uses the expansion
// coefficient 0.0037 and the intake's annual average; it is not the solver's head.
float Shown_Nvp(const Database& db, int i, int j, int level_diff) {
  const int far = db.Node_Junc(j, i);
  const double mean = Int(0.5 * (db.Node_Elev[i] + db.Node_Elev[far]));
  const double outside = 1.293 / (1 + 0.0037 * db.Para_IntakeTemp);
  const double inside = 1.293 / (1 + 0.0037 * db.Root_Temp(j, i));
  return static_cast<float>((outside - inside) * std::exp(-mean / 8620) * level_diff);
}

// A node number right-aligned in three characters.
std::string In_Three(int number) {
  const std::string digits = std::to_string(number);
  return std::string(digits.size() < 3 ? 3 - digits.size() : 0, ' ') + digits;
}

}  // namespace

std::vector<Node_Row> Node_Rows(const Database& db) {
  std::vector<Node_Row> rows;
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] == 0) continue;
    rows.push_back({.node = i,
                    .pressure = db.Node_Press[i],
                    .dbt = db.Node_DBT[i],
                    .hum = 100 * db.Node_Hum[i],
                    .wbt = db.Node_WBT[i],
                    .tleng = db.Node_TLeng[i],
                    .elev = db.Node_Elev[i],
                    .ew = db.Node_EW[i],
                    .sn = db.Node_SN[i]});
  }
  return rows;
}

std::vector<Airway_Row> Airway_Rows(const Database& db) {
  std::vector<Airway_Row> rows;
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      const int far = db.Node_Junc(j, i);
      if (far < 1 || far > db.Node_Total) Outside_Table(far, db.Node_Total);
      const float flow = db.Root_Flow(j, i);
      const float area = db.Root_Area(j, i);
      const int level_diff = db.Node_Elev[far] - db.Node_Elev[i];
      rows.push_back({.node = i,
                      .slot = j,
                      .far = far,
                      .outward = flow > 0,
                      .flow = flow * 60,
                      .velocity = area != 0 ? std::optional(std::abs(flow) / area) : std::nullopt,
                      .temp = db.Root_Temp(j, i),
                      .hum = 100 * db.Root_Hum(j, i),
                      .level_diff = level_diff,
                      .nvp = Shown_Nvp(db, i, j, level_diff),
                      .closed = db.Root_Switch(j, i) == 1,
                      .comment = db.Root_Comm(j, i)});
    }
  }
  return rows;
}

std::string Airway_Name(const Airway_Row& row) {
  return std::string(
      Trim(In_Three(row.node) + (row.outward ? " -> " : " <- ") + In_Three(row.far)));
}

std::string_view Switch_Word(bool closed) { return closed ? "Close" : " Open"; }

}  // namespace branok
