#include "thermal/temperature_run.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>

namespace branok {

namespace {

struct Row {
  std::size_t field;
  std::string_view title;
  std::string_view unit;
};

constexpr std::string_view deg_C = "\u00b0C";

void Set_Row(Panel& panel, const Row& row) {
  const std::size_t title = 2 * row.field;
  panel.lblTitle[title].set(row.title);
  panel.lblTitle[title + 1].set(row.unit);
}

void Set_Common_Titles(Panel& panel) {
  Set_Row(panel, {7, "No.  Node  Ratio", "Recirculation"});
  Set_Row(panel, {8, "Calculation Time", "sec"});
  Set_Row(panel, {9, "Calculate Node", ""});
}

void Hide_Moisture(Panel& panel, bool hide) {
  panel.lblDisp_hidden[15] = panel.lblDisp_hidden[16] = hide;
}

}  // namespace

void Set_Annual_Titles(Panel& panel) {
  Set_Common_Titles(panel);
  for (const Row& row : std::array<Row, 7>{{{10, "Vir. Rock Temp.", deg_C},
                                            {11, "Rock Surf. Temp.", deg_C},
                                            {12, "Node D.B.Temp.", deg_C},
                                            {13, "Node W.B.Temp.", deg_C},
                                            {14, "Node Hum.", "%"},
                                            {15, "Node Enthalpy", "kcal/kg"},
                                            {16, "Absolute Hum.", "kgWater / kgdAir"}}}) {
    Set_Row(panel, row);
  }
  Hide_Moisture(panel, false);
}

void Set_Season_Titles(Panel& panel) {
  Set_Common_Titles(panel);
  for (const Row& row : std::array<Row, 7>{{{10, "Intake Air Temp.", deg_C},
                                            {11, "Unknown Number", ""},
                                            {12, "Dist. from Node.", "m"},
                                            {13, "Nodal Temp.", deg_C},
                                            {14, "Relative Hum.", "%"},
                                            {15, "", ""},
                                            {16, "", ""}}}) {
    Set_Row(panel, row);
  }
  Hide_Moisture(panel, true);
}

void Set_Temperature_Band(Database& db) {
  float hottest = -50;
  float coldest = 100;
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      hottest = std::max(hottest, db.Root_Temp(j, i));
      coldest = std::min(coldest, db.Root_Temp(j, i));
    }
  }
  Set_Temperature_Band(db, hottest, coldest);
}

}  // namespace branok
