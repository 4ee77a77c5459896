#include "thermal/result_grids.h"

#include <algorithm>

#include "airflow/flow_run.h"
#include "core/pictures.h"

namespace branok {

namespace {

constexpr Picture whole("##0");
constexpr Picture one_decimal("####0.0");
constexpr Picture two_decimals("##0.00");

// A fresh grid filled row by row takes the place of the old one only when all of it could be made.
template <class Row>
void Fill(Text_Grid& grid, Text_Grid fresh, const std::vector<Row>& rows,
          Result_Texts (*texts)(const Row&)) {
  fresh.set_data_rows(static_cast<int>(rows.size()));
  int at = Text_Grid::FixedRows;
  for (const Row& row : rows) {
    Result_Texts cells = texts(row);
    for (int col = 0; col < result_columns; ++col) {
      fresh.set_text(at, col, std::move(cells[static_cast<std::size_t>(col)]));
    }
    ++at;
  }
  grid = std::move(fresh);
}

int Known_Number(const Database& db, int number) {
  return std::clamp(number, 1, std::max<int>(db.Node_Total, 1));
}

}  // namespace

Result_Texts Node_Texts(const Node_Row& row) {
  return {whole(row.node).text(),       two_decimals(row.pressure).text(),
          two_decimals(row.dbt).text(), two_decimals(row.hum).text(),
          two_decimals(row.wbt).text(), one_decimal(row.tleng).text(),
          whole(row.elev).text(),       whole(row.ew).text(),
          whole(row.sn).text()};
}

Result_Texts Airway_Texts(const Airway_Row& row) {
  return {Airway_Name(row),
          one_decimal(row.flow).text(),
          row.velocity ? two_decimals(*row.velocity).text() : std::string(),
          two_decimals(row.temp).text(),
          two_decimals(row.hum).text(),
          two_decimals(row.level_diff).text(),
          two_decimals(row.nvp).text(),
          std::string(Switch_Word(row.closed)),
          row.comment};
}

Text_Grid Nodal_Results_Grid() {
  return Text_Grid({"Nodal\rNo.", "Pressure\r(mmAq)", "DBT\r(\u00b0C)", "Hum.\r(%)",
                    "WBT\r(\u00b0C)", "T.Leng.\r(m)", "Elevation\r(m)", "E-W\r(m)", "S-N\r(m)"});
}

Text_Grid Airway_Results_Grid() {
  return Text_Grid({"Airway\ri -> j", "Flow Rate\r(m\u00b3/min)", "Velo.\r(m/sec)",
                    "Temp.\r(\u00b0C)", "Hum.\r(%)", "Lev. Diff.\r(m)", "NVP\r(mmAq)",
                    "Switch\r Airway", "Comm.\r"});
}

void Display_Data_Press(const Database& db, Text_Grid& grid) {
  const bool shown = db.Flag_Results != 0;
  Fill(grid, Nodal_Results_Grid(), shown ? Node_Rows(db) : std::vector<Node_Row>(), Node_Texts);
}

void Display_Data_Flow(const Database& db, Text_Grid& grid) {
  const bool shown = db.Flag_Results != 0;
  Fill(grid, Airway_Results_Grid(), shown ? Airway_Rows(db) : std::vector<Airway_Row>(),
       Airway_Texts);
}

int Find_Node_Row(const Database& db, int number) {
  const int node = Known_Number(db, number);
  int row = Text_Grid::FixedRows;
  for (int i = 1; i < node; ++i) row += db.Node_JuncCount[i] > 0 ? 1 : 0;
  return row;
}

int Find_Airway_Row(const Database& db, int number) {
  const int node = Known_Number(db, number);
  int row = Text_Grid::FixedRows;
  for (int i = 1; i < node; ++i) row += db.Node_JuncCount[i];
  return row;
}

Airway_End Airway_Of_Row(const Database& db, int row) {
  int above = row - Text_Grid::FixedRows;
  if (above < 0) return {};
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (above < db.Node_JuncCount[i]) return {.node = i, .slot = above + 1};
    above -= db.Node_JuncCount[i];
  }
  return {};
}

std::vector<int> Change_Switch_Of_Row(Database& db, Text_Grid& grid, int row) {
  if (row < Text_Grid::FixedRows || row >= grid.Rows()) return {};
  const Airway_End end = Airway_Of_Row(db, row);
  if (end.node == 0 || !Change_Switch(db, end.node, end.slot)) return {};
  std::vector<int> rows = {row};
  const int far = db.Node_Junc(end.slot, end.node);
  if (const int back = Find_Slot(db, far, end.node)) {
    rows.push_back(Find_Airway_Row(db, far) + back - 1);
  }
  const std::string_view word = Switch_Word(db.Root_Switch(end.slot, end.node) == 1);
  for (const int changed : rows) grid.set_text(changed, switch_column, std::string(word));
  return rows;
}

}  // namespace branok
