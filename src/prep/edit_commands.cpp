#include "prep/edit_commands.h"

#include <algorithm>
#include <map>

#include "core/vocabulary.h"
#include "prep/airway_name.h"

namespace branok {

namespace {

constexpr double new_fan_rpm = 500;
constexpr double new_fan_limit = 9000;  // m3/min

// Rows and columns of a clipboard text. The first row sets the width.
Paste_Result Extent(std::string_view text) {
  Paste_Result extent;
  char last = '\r';
  for (const char c : text) {
    if (c == '\n') continue;
    if ((c == '\r' || c == '\t') && extent.rows == 0) ++extent.cols;
    if (c == '\r') ++extent.rows;
    last = c;
  }
  extent.tail_left = last != '\r';
  return extent;
}

std::string Without_Line_Feeds(std::string_view text) {
  std::string out(text);
  out.erase(std::remove(out.begin(), out.end(), '\n'), out.end());
  return out;
}

void Select_And_Fill(Text_Grid& grid, const Paste_Result& extent, std::string_view text) {
  grid.select(grid.Row, grid.Col, grid.Row + extent.rows - 1, grid.Col + extent.cols - 1);
  grid.set_Clip(Without_Line_Feeds(text));
}

// The picture names follow what has come into the picture column.
void Take_Picture_Column(Edit_Copy& copy, Folder folder) {
  copy.fit_pictures();
  const Text_Grid& grid = copy.grid(folder);
  Picture_Rows* const pictures = copy.pictures(folder);
  if (pictures == nullptr) return;
  for (int row = Text_Grid::FixedRows; row < grid.Rows(); ++row) {
    (*pictures)[static_cast<std::size_t>(row)][0] = grid.text(row, Picture_Column(folder));
  }
}

// The second and third picture names of the airways, which stand in no cell, by the airway's name:
// a table that comes back from a spreadsheet in another order keeps each airway's pictures.
class Hidden_Pictures {
 public:
  explicit Hidden_Pictures(const Edit_Copy& copy)
      : names_(Names(copy)), by_name_(copy.cut_pictures) {
    for (std::size_t row = 1; row < names_.size(); ++row) {
      if (!names_[row].empty()) by_name_[names_[row]] = copy.Grid_RootPict[row];
    }
  }
  /// Keeps the pictures of a row whose name is about to be cut.
  void keep(Edit_Copy& copy, int row) const {
    const auto at = static_cast<std::size_t>(row);
    if (!names_[at].empty()) copy.cut_pictures[names_[at]] = copy.Grid_RootPict[at];
  }
  /// Gives rows whose name has changed the pictures of that name, or none.
  void restore(Edit_Copy& copy) const {
    const std::vector<std::string> now = Names(copy);
    for (std::size_t row = 1; row < now.size(); ++row) {
      if (row < names_.size() && names_[row] == now[row]) continue;
      const auto known = by_name_.find(now[row]);
      const bool any = known != by_name_.end() && !now[row].empty();
      if (!any && row < names_.size() && names_[row].empty()) continue;
      for (const std::size_t p : {1, 2}) {
        copy.Grid_RootPict[row][p] = any ? known->second[p] : std::string();
      }
    }
  }

 private:
  // Names by row, in the grid's own form where they name two nodes.
  static std::vector<std::string> Names(const Edit_Copy& copy) {
    std::vector<std::string> names;
    for (int row = 0; row < copy.grdRoot.Rows(); ++row) {
      const std::string& text = copy.grdRoot.text(row, root_column::name);
      const std::optional<Airway_Nodes> nodes = Get_Row_Nodes(text);
      const bool pair = nodes && nodes->left > 0 && nodes->right > 0;
      names.push_back(pair ? Airway_Title(std::min(nodes->left, nodes->right),
                                          std::max(nodes->left, nodes->right))
                           : text);
    }
    return names;
  }

  std::vector<std::string> names_;
  std::map<std::string, Picture_Row> by_name_;
};

// Picture names move with their rows.
void Insert_Empty_Rows(Edit_Copy& copy, int row, int count) {
  copy.grdRoot.insert_rows(row, count);
  copy.Grid_RootPict.insert(copy.Grid_RootPict.begin() + row, static_cast<std::size_t>(count), {});
}

int Current_Row(const Text_Grid& grid) {
  return std::clamp(grid.Row, Text_Grid::FixedRows, std::max(grid.Rows() - 1, 1));
}

bool Set_In_Rows(Database& db, Edit_Copy& copy, int col, std::string_view text) {
  const auto [first, last] = Selected_Rows(copy.grdRoot);
  bool any = false;
  for (int row = first; row <= last; ++row) {
    if (copy.grdRoot.is_blank(row)) continue;
    Set_Cell(copy, Folder::airway, row, col, text);
    any = true;
  }
  if (any) Note_Edit(db, Folder::airway);
  return any;
}

void Take_Page_Count(Database& db, const Edit_Copy& copy) {
  db.MFan_GridTotal = static_cast<std::int16_t>(copy.MFan_GridTotal);
  Note_Edit(db, Folder::mainfan);
}

Fan_Page New_Fan_Page() {
  Fan_Page page;
  page.value = {0, 0, 0, new_fan_rpm, new_fan_rpm, new_fan_limit};
  for (const int field : {Fan_Page::std_rpm, Fan_Page::drive_rpm, Fan_Page::limit_flow}) {
    const auto at = static_cast<std::size_t>(field);
    page.text.at(at) = std::to_string(static_cast<int>(page.value.at(at)));
  }
  return page;
}

// A number that is typed counts as typed as long as it is another than the field was filled from.
void Put_Field(Fan_Page& page, int field, std::string_view text) {
  const auto at = static_cast<std::size_t>(field);
  page.text.at(at) = text;
  if (field > Fan_Page::limit_flow) return;
  page.typed.at(at) = true;
  page.typed.at(at) = Fan_Field_Number(page, field) != page.value.at(at);
}

// Rows that a paste has added are numbered on: messages name them so.
void Title_New_Rows(Text_Grid& grid, Folder folder) {
  if (folder == Folder::airway || folder == Folder::node) return;
  const std::string_view title =
      folder == Folder::inlet || folder == Folder::mainfan ? "No. " : "# ";
  for (int row = grid.Rows() - 1; row >= Text_Grid::FixedRows && grid.text(row, 0).empty(); --row) {
    grid.set_text(row, 0, std::string(title) + std::to_string(row));
  }
}

}  // namespace

std::string From_Clipboard(std::string_view text) {
  std::string out;
  out.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\n') {
      if (i == 0 || text[i - 1] != '\r') out += '\r';
    } else {
      out += text[i];
    }
  }
  return out;
}

Paste_Result Paste_Grid(Text_Grid& grid, std::string_view text) {
  Paste_Result extent = Extent(text);
  if (extent.rows == 0) return extent;
  // Where no cell is current yet the first one is meant.
  if (grid.Row < Text_Grid::FixedRows) grid.Row = grid.Col = 1;
  const int last = grid.Rows() - 1;
  const int room = last - grid.Row + 1;
  if (extent.rows > room) {
    extent.no_room = extent.rows - room > max_grid_rows - last;
    if (extent.no_room) return extent;
    grid.insert_rows(grid.Rows(), extent.rows - room);
  }
  Select_And_Fill(grid, extent, text);
  return extent;
}

Paste_Result Paste_Folder(Database& db, Edit_Copy& copy, Folder folder, std::string_view text) {
  Edit_Flag(db, folder) = 1;
  std::optional<Hidden_Pictures> before;
  if (folder == Folder::airway) before.emplace(copy);
  Text_Grid& grid = copy.grid(folder);
  if (grid.Row < Text_Grid::FixedRows && folder == Folder::airway) {
    grid.select(1, root_column::name, 1, root_column::name);
  }
  const Paste_Result done = Paste_Grid(grid, text);
  Title_New_Rows(grid, folder);
  Take_Picture_Column(copy, folder);
  if (folder == Folder::airway) {
    before->restore(copy);
    Leave_Empty_Row(copy);
  }
  return done;
}

Paste_Result Paste_Insert(Database& db, Edit_Copy& copy, std::string_view text) {
  Text_Grid& grid = copy.grdRoot;
  Paste_Result extent = Extent(text);
  if (extent.rows == 0) return extent;
  const int filled = grid.Rows() - 1 - (grid.is_blank(grid.Rows() - 1) ? 1 : 0);
  extent.no_room = extent.rows > max_grid_rows - filled;
  if (extent.no_room) return extent;
  const int row = Current_Row(grid);
  // The empty row at the end makes room where the grid is full.
  const int over = grid.Rows() - 1 + extent.rows - max_grid_rows;
  if (over > 0) grid.remove_rows(grid.Rows() - over, over);
  copy.fit_pictures();
  Insert_Empty_Rows(copy, row, extent.rows);
  grid.Row = row;
  Edit_Flag(db, Folder::airway) = 1;
  const Hidden_Pictures before(copy);
  Select_And_Fill(grid, extent, text);
  Take_Picture_Column(copy, Folder::airway);
  before.restore(copy);
  Leave_Empty_Row(copy);
  return extent;
}

bool Empty_Cells(Database& db, Edit_Copy& copy, Folder folder) {
  const Text_Grid& grid = copy.grid(folder);
  if (grid.Row < Text_Grid::FixedRows) return false;
  const auto [top, bottom] = std::minmax(grid.Row, grid.RowSel);
  const auto [left, right] = std::minmax(grid.Col, grid.ColSel);
  bool any = false;
  std::optional<Hidden_Pictures> pictures;
  if (folder == Folder::airway && left == root_column::name) pictures.emplace(copy);
  for (int row = top; row <= bottom; ++row) {
    if (pictures) pictures->keep(copy, row);
    for (int col = left; col <= right; ++col) {
      if (grid.text(row, col).empty()) continue;
      Set_Cell(copy, folder, row, col, {});
      any = true;
    }
    // What is typed here next has other pictures.
    if (Picture_Rows* const names = copy.pictures(folder); names != nullptr && grid.is_blank(row)) {
      names->at(static_cast<std::size_t>(row)) = {};
    }
  }
  if (any) Note_Edit(db, folder);
  return any;
}

int Insert_Rows(Database& db, Edit_Copy& copy, int count) {
  const int added = std::min(count, max_grid_rows - (copy.grdRoot.Rows() - 1));
  if (added <= 0) return 0;
  Insert_Empty_Rows(copy, Current_Row(copy.grdRoot), added);
  db.Edit_Root = 1;  // the mine itself is what it was
  return added;
}

int Delete_Rows(Database& db, Edit_Copy& copy, int count) {
  Text_Grid& grid = copy.grdRoot;
  const int row = Current_Row(grid);
  const int taken = std::min(count, grid.Rows() - row);
  if (taken <= 0) return 0;
  db.Edit_Root = 1;
  for (int gone = row; gone < row + taken; ++gone) {
    if (!grid.is_blank(gone)) Note_Edit(db, Folder::airway);
  }
  grid.remove_rows(row, taken);
  const auto first = copy.Grid_RootPict.begin() + row;
  copy.Grid_RootPict.erase(first, first + taken);
  Leave_Empty_Row(copy);
  return taken;
}

Row_Range Selected_Rows(const Text_Grid& grid) {
  if (grid.Row < Text_Grid::FixedRows) return {};
  const auto [first, last] = std::minmax(grid.Row, grid.RowSel);
  return {.first = std::max(first, Text_Grid::FixedRows), .last = std::min(last, grid.Rows() - 1)};
}

bool Set_Winding(Database& db, Edit_Copy& copy, int wind) {
  if (wind < 0 || wind > 2) Outside_Table(wind, 2, 0);
  return Set_In_Rows(db, copy, root_column::wind, Wind_Letter[static_cast<std::size_t>(wind)]);
}

bool Set_Kind(Database& db, Edit_Copy& copy, int kind) {
  if (kind < 0 || kind > 7) Outside_Table(kind, 7, 0);
  return Set_In_Rows(db, copy, root_column::kind, std::to_string(kind));
}

bool Set_Shape(Database& db, Edit_Copy& copy, int shape) {
  if (shape < 0 || shape > 3) Outside_Table(shape, 3, 0);
  return Set_In_Rows(db, copy, root_column::shape, Shape_Letter[static_cast<std::size_t>(shape)]);
}

bool Add_Fan_Page(Database& db, Edit_Copy& copy) {
  if (copy.MFan_GridTotal >= max_main_fans) return false;
  copy.fan_in_front = ++copy.MFan_GridTotal;
  copy.fan(copy.fan_in_front) = New_Fan_Page();
  Take_Page_Count(db, copy);
  return true;
}

bool Remove_Fan_Page(Database& db, Edit_Copy& copy) {
  if (copy.fan_in_front < 1) return false;
  auto* const pages = copy.fan_pages.begin();
  std::rotate(pages + copy.fan_in_front - 1, pages + copy.fan_in_front,
              pages + copy.MFan_GridTotal);
  copy.fan(copy.MFan_GridTotal) = Fan_Page();
  --copy.MFan_GridTotal;
  copy.fan_in_front = std::min(copy.fan_in_front, copy.MFan_GridTotal);
  Take_Page_Count(db, copy);
  return true;
}

bool Set_Fan_Field(Database& db, Edit_Copy& copy, int field, std::string_view text) {
  Fan_Page& page = copy.fan(copy.fan_in_front);
  if (page.text.at(static_cast<std::size_t>(field)) == text) return false;
  Put_Field(page, field, text);
  if (field == Fan_Page::suction && page.surface) Put_Field(page, Fan_Page::discharge, text);
  Note_Edit(db, Folder::mainfan);
  return true;
}

bool Set_Surface_Fan(Database& db, Edit_Copy& copy, bool surface) {
  Fan_Page& page = copy.fan(copy.fan_in_front);
  if (page.surface == surface) return false;
  page.surface = surface;
  if (surface) Put_Field(page, Fan_Page::discharge, page.text[Fan_Page::suction]);
  Note_Edit(db, Folder::mainfan);
  return true;
}

bool Set_Fan_Picture(Database& db, Edit_Copy& copy, int slot, std::string_view name) {
  if (slot < 1 || slot > max_pictures) Outside_Table(slot, max_pictures);
  std::string& old = copy.fan(copy.fan_in_front).pictures.at(static_cast<std::size_t>(slot - 1));
  if (old == name) return false;
  old = name;
  Note_Edit(db, Folder::mainfan);
  return true;
}

int Find_Row(const Database& db, const Edit_Copy& copy, Folder folder, int number) {
  const int node = std::clamp(number, 1, std::max<int>(db.Node_Total, 1));
  int row = Text_Grid::FixedRows;
  if (folder == Folder::node) {
    for (int i = 1; i < node; ++i) row += db.Node_JuncCount[i] > 0 ? 1 : 0;
  } else if (folder == Folder::airway) {
    for (int i = 1; i < node; ++i) row += db.Node_UpCount[i];
  } else {
    return 0;
  }
  // The highest node has no airway of its own: its search ends at the last airway, not in the empty
  // row behind it.
  const Text_Grid& grid = copy.grid(folder);
  const int last = grid.Rows() - 1;
  return std::min(row, last > 1 && grid.is_blank(last) ? last - 1 : last);
}

}  // namespace branok
