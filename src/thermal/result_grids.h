// The two result grids of the Analysis window: the texts of a result row, which grid row a node
// number means, and the switch of an airway worked from its row.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "core/database.h"
#include "core/text_grid.h"
#include "thermal/results.h"

namespace branok {

inline constexpr int result_columns = 9;
using Result_Texts = std::array<std::string, result_columns>;

/// Columns of the airways' grid that are read as words.
inline constexpr int switch_column = 7;
inline constexpr int airway_comment_column = 8;

/// The cells of a row. An airway without area has no velocity. Raises Run_Time_Error on a number
/// that is none.
Result_Texts Node_Texts(const Node_Row& row);
Result_Texts Airway_Texts(const Airway_Row& row);

/// Empty grids with their headings.
Text_Grid Nodal_Results_Grid();
Text_Grid Airway_Results_Grid();

/// Fills a grid with the present results; without results only the headings stay. Raises
/// Run_Time_Error, and leaves the grid as it was, when the results hold a number outside its table.
void Display_Data_Press(const Database& db, Text_Grid& grid);
void Display_Data_Flow(const Database& db, Text_Grid& grid);

/// The grid row of a node, and the first of its rows in the airways' grid. A number below 1 counts
/// as 1 and one above Node_Total as Node_Total; an unused number gives the row of the next node in
/// use, which after the last one is a row beyond the grid.
int Find_Node_Row(const Database& db, int number);
int Find_Airway_Row(const Database& db, int number);

/// The airway end that a row of the airways' grid shows; node 0 when there is no such row.
struct Airway_End {
  int node = 0;
  int slot = 0;
};
Airway_End Airway_Of_Row(const Database& db, int row);

/// Opens or closes the airway of a row and writes its state into the row and into that of its far
/// end. Returns the rows that have changed: none for a row below 1 or beyond the grid, and none for
/// a fixed stop.
std::vector<int> Change_Switch_Of_Row(Database& db, Text_Grid& grid, int row);

}  // namespace branok
