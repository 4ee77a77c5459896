#include "prep/typed_digits.h"

#include <algorithm>

#include "prep/airway_name.h"
#include "prep/check_rows.h"

namespace branok {

namespace {

Airway_Nodes Named_Nodes(const Text_Grid& grid, Folder folder, int row) {
  const auto node = [&](int col) { return Whole_Number(grid.text(row, col)).value_or(0); };
  switch (folder) {
    case Folder::airway:
      return Get_Row_Nodes(grid.text(row, root_column::name)).value_or(Airway_Nodes{});
    case Folder::assistfan:
      return {.left = node(assist_column::suction), .right = node(assist_column::discharge)};
    default:
      return {.left = node(thermo_column::node1), .right = node(thermo_column::node2)};
  }
}

bool Holds(std::string_view text, float number) {
  if (Trim(text).empty()) return false;
  try {
    return Parse_Single(text) == number;
  } catch (const Run_Time_Error&) {
    return false;
  }
}

}  // namespace

Typed_Digits::Typed_Digits(const Text_Grid& grid, Folder folder) : grid_(grid) {
  for (int row = Text_Grid::FixedRows; row < grid.Rows(); ++row) {
    const Airway_Nodes nodes = Named_Nodes(grid, folder, row);
    if (nodes.left > 0 && nodes.right > 0) {
      rows_.emplace(std::minmax({nodes.left, nodes.right}), row);
    }
  }
}

std::string Typed_Digits::Keep_Digits(int i, int j, int col, const Picture& picture,
                                      float number) const {
  std::string shown = picture(number).text();
  const auto [first, last] = rows_.equal_range(std::minmax({i, j}));
  for (auto at = first; at != last; ++at) {
    const std::string& typed = grid_.text(at->second, col);
    if (typed == shown) break;
    if (Holds(typed, number)) return Holds(shown, number) ? shown : typed;
  }
  return shown;
}

}  // namespace branok
