#include "prep/root_tables.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <optional>
#include <string>

#include "core/messages.h"
#include "core/vocabulary.h"
#include "prep/airway_name.h"
#include "prep/check_rows.h"

namespace branok {

namespace {

// By node and far node. 0 where there is no airway.
using Connections = Grid<std::int16_t, max_nodes, max_nodes>;

// Where an airway stands.
enum class Origin { none = 0, tables = 1, grid = 4, both = 5 };

template <std::size_t n>
std::int16_t Letter_Index(const std::array<std::string_view, n>& letters, std::string_view text) {
  const char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(Trim(text)[0])));
  const auto* const at = std::find_if(letters.begin(), letters.end(),
                                      [&](std::string_view one) { return one[0] == letter; });
  return static_cast<std::int16_t>(at - letters.begin());
}

class Root_Builder {
 public:
  Root_Builder(Database& db, Edit_Copy& copy, Dialogue& dialogue)
      : db_(db), copy_(copy), dialogue_(dialogue) {}

  void Read_Nodes();
  void Read_Airways(const std::vector<std::uint8_t>& Grid_RootBad);
  void Read_Tables();
  void Ask_About_Changes();
  void Check_Connections();
  void Rebuild();
  [[nodiscard]] std::string Left_Out() const;
  void Show_Tables();

 private:
  std::optional<Airway_Nodes> Row_Nodes(int row);
  int Ask_Node_No(std::string_view side);
  [[nodiscard]] Origin Origin_Of(int i, int j) const;
  Answer Ask(const Message& question, std::optional<Answer>& rest);
  void Build_Node(int i, const Database& before);
  void Set_Up_Node(int i);
  void Take_Row(int i, int slot, int row);
  [[noreturn]] void Stop(int row, Message message) const {
    Stop_At_Cell(copy_, {.folder = Folder::airway, .row = row, .col = root_column::name},
                 std::move(message));
  }

  Database& db_;
  Edit_Copy& copy_;
  Dialogue& dialogue_;

  Node_Table<std::uint8_t> has_row_;  // in the node grid
  // The slot of the node that leads to the far node; negative: the far node's slot, where only that
  // one knows of the airway.
  Connections Conn_Old;
  Connections Conn_New;        // the airway's row in the grid
  int last_ = 0;               // highest node number in either
  std::vector<int> left_out_;  // rows that hold something and are no airway
};

void Root_Builder::Read_Nodes() {
  for (int row = Text_Grid::FixedRows; row < copy_.grdNode.Rows(); ++row) {
    const auto node = Whole_Number(copy_.grdNode.text(row, node_column::number));
    if (!node) continue;
    if (*node < 1 || *node > max_nodes) {
      Stop_At_Cell(copy_, {.folder = Folder::node, .row = row},
                   messages::Node_Out_Of_Range(max_nodes, "Nodal No."));
    }
    has_row_[*node] = 1;
  }
}

// Asks for the number of an airway's end; 0 when none is given.
int Root_Builder::Ask_Node_No(std::string_view side) {
  dialogue_.show(messages::Input_Node_Number());
  const std::optional<std::string> answer =
      dialogue_.ask("Please input " + std::string(side) + " Nodal No.", "Input Box for Nodal No. ");
  if (!answer) return 0;
  const std::optional<int> node = Whole_Number(*answer);
  if (!node) dialogue_.show(messages::Not_Numeric());
  return std::max(node.value_or(0), 0);
}

// The two nodes of a row; nothing when the row is dropped for want of one.
std::optional<Airway_Nodes> Root_Builder::Row_Nodes(int row) {
  std::optional<Airway_Nodes> nodes = Get_Row_Nodes(copy_.grdRoot.text(row, root_column::name));
  if (!nodes) Stop(row, messages::Airway_Undefined());
  const bool incomplete = nodes->left < 1 || nodes->right < 1;
  if (incomplete) {
    dialogue_.remark("Airway Folder, row " + std::to_string(row) + ": " +
                     copy_.grdRoot.text(row, root_column::name));
  }
  if (nodes->left < 1) nodes->left = Ask_Node_No("Left");
  if (nodes->left > 0 && nodes->right < 1) nodes->right = Ask_Node_No("Right");
  if (nodes->left < 1 || nodes->right < 1) {
    left_out_.push_back(row);
    return std::nullopt;
  }
  if (std::max(nodes->left, nodes->right) > max_nodes) {
    Stop(row, messages::Input_Node_Number(max_nodes));
  }
  if (nodes->left == nodes->right) Stop(row, messages::Same_Node_Numbers());
  if (incomplete) {
    copy_.grdRoot.set_text(row, root_column::name, Airway_Title(nodes->left, nodes->right));
  }
  return nodes;
}

void Root_Builder::Read_Airways(const std::vector<std::uint8_t>& Grid_RootBad) {
  for (int row = Text_Grid::FixedRows; row < copy_.grdRoot.Rows(); ++row) {
    if (Grid_RootBad[static_cast<std::size_t>(row)] == 0) {
      if (!copy_.grdRoot.is_blank(row)) left_out_.push_back(row);
      continue;
    }
    const std::optional<Airway_Nodes> nodes = Row_Nodes(row);
    if (!nodes) continue;
    if (Conn_New(nodes->left, nodes->right) != 0) Stop(row, messages::Airway_Exists_Already());
    Conn_New(nodes->left, nodes->right) = Conn_New(nodes->right, nodes->left) =
        static_cast<std::int16_t>(row);
    last_ = std::max({last_, nodes->left, nodes->right});
  }
}

std::string Root_Builder::Left_Out() const {
  if (left_out_.empty()) return {};
  return "Airway Folder, " + Rows_Text(left_out_) + ": left out, without an airway name";
}

void Root_Builder::Read_Tables() {
  for (int i = 1; i <= max_nodes; ++i) {
    for (int slot = 1; slot <= db_.Node_JuncCount[i]; ++slot) {
      const int far = db_.Node_Junc(slot, i);
      if (far == 0) continue;
      if (Conn_Old(i, far) <= 0) Conn_Old(i, far) = static_cast<std::int16_t>(slot);
      if (Conn_Old(far, i) == 0) Conn_Old(far, i) = static_cast<std::int16_t>(-slot);
      last_ = std::max({last_, i, far});
    }
  }
}

Origin Root_Builder::Origin_Of(int i, int j) const {
  const int tables = Conn_Old(i, j) != 0 ? static_cast<int>(Origin::tables) : 0;
  const int grid = Conn_New(i, j) != 0 ? static_cast<int>(Origin::grid) : 0;
  return static_cast<Origin>(tables + grid);
}

Answer Root_Builder::Ask(const Message& question, std::optional<Answer>& rest) {
  return rest ? *rest : dialogue_.show_one_of_many(question, rest);
}

void Root_Builder::Ask_About_Changes() {
  std::optional<Answer> all_deleted, all_added;
  for (int i = 1; i <= last_; ++i) {
    for (int j = i + 1; j <= last_; ++j) {
      const Origin origin = Origin_Of(i, j);
      if (origin != Origin::tables && origin != Origin::grid) continue;
      const std::string airway = std::to_string(i) + " -> " + std::to_string(j);
      if (origin == Origin::tables) {
        const Message question = messages::Ask_Deleted_Airway(airway);
        if (Ask(question, all_deleted) == Answer::ok) Conn_Old(i, j) = Conn_Old(j, i) = 0;
      } else {
        const Message question = messages::Ask_Add_Airway(airway);
        if (Ask(question, all_added) != Answer::ok) Conn_New(i, j) = Conn_New(j, i) = 0;
      }
    }
  }
}

void Root_Builder::Check_Connections() {
  for (int i = 1; i <= last_; ++i) {
    int connections = 0;
    int row = 0;
    for (int j = 1; j <= last_; ++j) {
      const Origin origin = Origin_Of(i, j);
      connections += origin != Origin::none ? 1 : 0;
      if (origin == Origin::grid) row = std::max<int>(row, Conn_New(i, j));
    }
    if (connections <= max_slots) continue;
    std::optional<Edit_Place> place;
    if (row > 0) place = Edit_Place{.folder = Folder::airway, .row = row, .col = root_column::name};
    throw Check_Fault(messages::Five_Connections(),
                      "Node No." + std::to_string(i) + " has " + std::to_string(connections) +
                          " airways; a node can have " + std::to_string(max_slots),
                      place);
  }
}

// A node that had no airway before starts with a new node's values and without results.
void Root_Builder::Set_Up_Node(int i) {
  Clear_Node(db_, i);
  db_.Node_Comm[i] = blank_comment;
  db_.Node_TempInit[i] = db_.Para_IntakeTemp;
  db_.Node_Press[i] = db_.Node_PressInit[i] = 0;
  db_.Node_DBT[i] = db_.Node_Hum[i] = db_.Node_WBT[i] = db_.Node_TLeng[i] = 0;
}

void Root_Builder::Take_Row(int i, int slot, int row) {
  const Text_Grid& grid = copy_.grdRoot;
  const auto number = [&](int col) { return Parse_Single(grid.text(row, col)); };
  db_.Root_Resist(slot, i) = number(root_column::resist);
  db_.Root_Area(slot, i) = number(root_column::area);
  db_.Root_Peri(slot, i) = number(root_column::peri);
  db_.Root_Length(slot, i) = number(root_column::length);
  db_.Root_Time(slot, i) = number(root_column::time);
  db_.Root_Heat(slot, i) = number(root_column::heat);
  db_.Root_Wet(slot, i) = number(root_column::wet);
  db_.Root_Kind(slot, i) = Parse_Int16(grid.text(row, root_column::kind));
  db_.Root_Wind(slot, i) = Letter_Index(Wind_Letter, grid.text(row, root_column::wind));
  db_.Root_Fric(slot, i) = number(root_column::fric);
  db_.Root_Shape(slot, i) = Letter_Index(Shape_Letter, grid.text(row, root_column::shape));
  db_.Root_Height(slot, i) = number(root_column::height);
  const std::string& comment = grid.text(row, root_column::comment);
  db_.Root_Comm(slot, i) = comment.empty() ? blank_comment : comment;
  const Picture_Row& pictures = copy_.Grid_RootPict.at(static_cast<std::size_t>(row));
  for (int p = 1; p <= max_pictures; ++p) {
    db_.Root_Pict(p, slot, i) = pictures[static_cast<std::size_t>(p - 1)];
  }
}

// The slots of one node, by ascending far node.
void Root_Builder::Build_Node(int i, const Database& before) {
  int slot = 0;
  for (int j = 1; j <= last_; ++j) {
    const Origin origin = Origin_Of(i, j);
    if (origin == Origin::none) continue;
    db_.Node_Junc(++slot, i) = static_cast<std::int16_t>(j);
    if (j > i) db_.Node_UpSlot(++db_.Node_UpCount[i], i) = static_cast<std::int16_t>(slot);
    const int old_slot = Conn_Old(i, j);
    if (old_slot > 0) {
      Copy_Airway(db_, i, slot, before, i, old_slot);
    } else if (old_slot < 0) {
      Copy_Airway(db_, i, slot, before, j, -old_slot);
      db_.Root_Flow(slot, i) *= -1;
      db_.Root_FlowSign(slot, i) *= -1;
    } else {
      db_.Root_TempInit(slot, i) = db_.Para_IntakeTemp;
    }
    if (origin != Origin::tables) Take_Row(i, slot, Conn_New(i, j));
  }
  db_.Node_JuncCount[i] = static_cast<std::int16_t>(slot);
  if (slot > 0 && has_row_[i] == 0) Set_Up_Node(i);
}

void Root_Builder::Rebuild() {
  const Database before = db_;
  db_.Node_Junc.fill(0);
  db_.Node_JuncCount.fill(0);
  db_.Node_UpCount.fill(0);
  db_.Node_UpSlot.fill(0);
  for (int i = 1; i <= max_nodes; ++i) {
    for (int slot = 1; slot <= max_slots; ++slot) Clear_Airway(db_, i, slot);
  }
  int highest = 0;
  for (int i = 1; i <= last_; ++i) {
    Build_Node(i, before);
    if (db_.Node_JuncCount[i] > 0) highest = i;
  }
  if (highest >= 2) db_.Node_Max = static_cast<std::int16_t>(highest);
  db_.Node_Total = std::max(db_.Node_Total, db_.Node_Max);
  Derive_Marks(db_);
}

// Rows that are no airway yet are carried over: they stand behind the airways, before the empty
// row.
void Root_Builder::Show_Tables() {
  const Text_Grid typed = copy_.grdRoot;
  const Picture_Rows names = copy_.Grid_RootPict;
  Fill_Airways(db_, copy_);
  Fill_Nodes(db_, copy_);
  Text_Grid& grid = copy_.grdRoot;
  for (const int from : left_out_) {
    const int row = grid.Rows() - 1;
    grid.insert_rows(row, 1);
    for (int col = 0; col < grid.Cols(); ++col) grid.set_text(row, col, typed.text(from, col));
    copy_.Grid_RootPict.insert(copy_.Grid_RootPict.begin() + row,
                               names.at(static_cast<std::size_t>(from)));
  }
  // A full grid has no empty row at its end.
  const int last = grid.Rows() - 1;
  if (last > max_grid_rows && grid.is_blank(last)) grid.remove_rows(last, 1);
  copy_.fit_pictures();
}

}  // namespace

std::string Build_Root_Tables(Database& db, Edit_Copy& copy,
                              const std::vector<std::uint8_t>& Grid_RootBad, Dialogue& dialogue) {
  Root_Builder builder(db, copy, dialogue);
  builder.Read_Nodes();
  builder.Read_Airways(Grid_RootBad);
  builder.Read_Tables();
  builder.Ask_About_Changes();
  builder.Check_Connections();
  builder.Rebuild();
  builder.Show_Tables();
  return builder.Left_Out();
}

}  // namespace branok
