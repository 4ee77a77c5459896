// The rows of the node and airway folders.
#include "core/messages.h"
#include "prep/airway_name.h"
#include "prep/cell_rules.h"
#include "prep/check_folders.h"
#include "prep/check_rows.h"

namespace branok {

namespace {

struct Typed_Node {
  int number = 0, row = 0;
};

// The number in a node row's title. Rows that a paste has added have none.
std::optional<int> Node_Number(const Grid_Row& row) {
  if (row.is_blank(node_column::number)) return std::nullopt;
  const std::optional<int> number = row.whole_number(node_column::number);
  if (!number || *number < 1 || *number > max_nodes) {
    row.stop(node_column::number, messages::Node_Out_Of_Range(max_nodes, "Nodal No."));
  }
  return number;
}

// A paste has put it behind the nodes. The tables have no place for it, and its texts must not go
// with the next fill of the grid.
[[noreturn]] void Stop_Without_Number(int row) {
  throw Check_Fault(messages::Node_Row_Missing(row),
                    "Node Folder, row " + std::to_string(row) +
                        ": nodes come from the airways; a row without a node number cannot be used",
                    Edit_Place{.folder = Folder::node, .row = row, .col = node_column::number});
}

void Check_Node_Row(const Grid_Row& row) {
  for (const int col : {node_column::elev, node_column::ew, node_column::sn}) {
    if (row.is_blank(col)) row.stop(col, messages::Node_Row_Missing(row.row()));
  }
  for (const int col : {node_column::elev, node_column::ew, node_column::sn}) {
    (void)row.number(col);
  }
}

void Commit_Node(Database& db, const Edit_Copy& copy, const Typed_Node& node) {
  const Grid_Row row(copy, Folder::node, node.row);
  const int i = node.number;
  db.Node_Elev[i] = Parse_Int16(row.text(node_column::elev));
  db.Node_EW[i] = Parse_Int32(row.text(node_column::ew));
  db.Node_SN[i] = Parse_Int32(row.text(node_column::sn));
  const std::string& comment = row.text(node_column::comment);
  db.Node_Comm[i] = comment.empty() ? blank_comment : comment;
  for (int p = 1; p <= max_pictures; ++p) {
    db.Node_Pict(p, i) = row.pictures()[static_cast<std::size_t>(p - 1)];
  }
}

}  // namespace

void Check_Node_Rows(Database& db, const Edit_Copy& copy) {
  std::vector<Typed_Node> nodes;
  for (int k = Text_Grid::FixedRows; k < copy.grdNode.Rows(); ++k) {
    const Grid_Row row(copy, Folder::node, k);
    if (const auto number = Node_Number(row)) {
      Check_Node_Row(row);
      nodes.push_back({.number = *number, .row = k});
    } else if (!copy.grdNode.is_blank(k)) {
      Stop_Without_Number(k);
    }
  }
  for (const Typed_Node& node : nodes) Commit_Node(db, copy, node);
}

std::vector<std::uint8_t> Mark_Airway_Rows(const Text_Grid& grdRoot) {
  std::vector<std::uint8_t> Grid_RootBad(static_cast<std::size_t>(grdRoot.Rows()));
  for (int row = Text_Grid::FixedRows; row < grdRoot.Rows(); ++row) {
    const bool is_airway = Is_Airway_Name(grdRoot.text(row, root_column::name));
    Grid_RootBad[static_cast<std::size_t>(row)] = is_airway ? 1 : 0;
  }
  return Grid_RootBad;
}

void Check_Root_Rows(Edit_Copy& copy, const std::vector<std::uint8_t>& Grid_RootBad) {
  for (int row = Text_Grid::FixedRows; row < copy.grdRoot.Rows(); ++row) {
    if (Grid_RootBad[static_cast<std::size_t>(row)] == 0) continue;
    try {
      Check_Root_Row(copy, row);
    } catch (Check_Fault& fault) {
      fault.row_message = messages::Airway_Row_Fault(row);
      throw;
    }
  }
}

void Check_Root_Row(Edit_Copy& copy, int row) {
  const Grid_Row cells(copy, Folder::airway, row);
  for (int col = root_column::resist; col <= root_column::height; ++col) {
    if (cells.is_blank(col)) {
      copy.grdRoot.set_text(row, col, std::string(Blank_Takes(col)));
    } else if (auto fault = Cell_Fault(Folder::airway, col, cells.text(col))) {
      cells.stop(col, std::move(*fault));
    }
  }
}

}  // namespace branok
