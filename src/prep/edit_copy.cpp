#include "prep/edit_copy.h"

#include <algorithm>
#include <utility>

#include "core/pictures.h"
#include "core/vocabulary.h"
#include "prep/typed_digits.h"

namespace branok {

namespace {

constexpr Picture node_number("##0");
constexpr Picture junctions("###");
constexpr Picture elevation("####0");
constexpr Picture coordinate("########0");
constexpr Picture resistance("0.00E+00");
constexpr Picture area_perimeter("##0.0");
constexpr Picture length("###0");
constexpr Picture one_decimal("#0.0");
constexpr Picture heat("####0");
constexpr Picture kind("0");
constexpr Picture friction("#####0.000000");
constexpr Picture rpm("###0");
constexpr Picture limit_flow("####0");
constexpr Picture assist_value("####0.0");
constexpr Picture rock_value("###0.0##");

Text_Grid Root_Grid() {
  return Text_Grid({"Airway\r i -> j", "Resist.\r(murgue)", "Area\r(m\u00b2)", "Peri.\r(m)",
                    "Length\r(m)", "Time\r(year)", "Heat\r(kcal/h)", "Wet\r(%)", "Kind\r",
                    "Wind.\r", "Fric. F.\r(-)", "Shape\r", "Height\r(m)", "Picture\rFile Name",
                    "Comm.\r"});
}

Text_Grid Node_Grid() {
  return Text_Grid({"Nodal\r No.", "Elevation\r(m)", "  E-W\r   (m)", "  S-N\r   (m)",
                    "Total No.\rJunctions", "Junc.\r  1", "Junc.\r  2", "Junc.\r  3", "Junc.\r  4",
                    "Junc.\r  5", "Picture\rFile Name", "Comm.\r"});
}

Text_Grid Inlet_Grid() {
  return Text_Grid({"No.\r", "Set Node No.\r", "Picure\rFile Name", "Comm.\r"});
}

Text_Grid Fan_Grid() { return Text_Grid({"No.\r", "Flow\r(m\u00b3/min)", "Head\r(mmH2O)"}); }

Text_Grid Assist_Grid() {
  return Text_Grid({"Assist\rFan", "Suction\rNode", "Discharge\rNode", "Head\r(mmH2O)",
                    "Flow\r(m\u00b3/min)", "Picture\rFile Name", "Comm.\r"});
}

Text_Grid Thermo_Grid() {
  return Text_Grid({"Special\r", "Airway\rNode#1", "Airway \rNode#2",
                    "Thermal\rConductivity (kcal/mh\u00b0C)", "Rock\rDensity (kg/m\u00b3)",
                    "Specific\rHeat (kcal/kg\u00b0C)", "Ini. Rock\rTemp. (\u00b0C)", "Comment\r"});
}

// An empty grid of a folder whose number of rows is that of the table.
Text_Grid With_Rows(Text_Grid grid, int rows, std::string_view title) {
  grid.set_data_rows(rows);
  for (int row = 1; row <= rows; ++row) {
    grid.set_text(row, 0, std::string(title) + std::to_string(row));
  }
  return grid;
}

// Writes the cells of one row from left to right.
class Row_Writer {
 public:
  Row_Writer(Text_Grid& grid, int row, int first_col = 1)
      : grid_(grid), row_(row), col_(first_col) {}

  // From here on the row is that of the airway i-j, and the digits typed for it stay.
  Row_Writer& of(const Typed_Digits& typed, int i, int j) {
    typed_ = &typed;
    i_ = i;
    j_ = j;
    return *this;
  }
  Row_Writer& number(const Picture& picture, float value) {
    return text(typed_ != nullptr ? typed_->Keep_Digits(i_, j_, col_, picture, value)
                                  : picture(value).text());
  }
  template <class Number>
  Row_Writer& number(const Picture& picture, Number value) {
    return text(picture(value).text());
  }
  Row_Writer& text(std::string_view text) {
    grid_.set_text(row_, col_++, std::string(text));
    return *this;
  }
  // A number of a file that has no letter is shown as it is: the check will ask for another.
  template <std::size_t n>
  Row_Writer& letter(const std::array<std::string_view, n>& letters, int index) {
    const bool known = index >= 0 && index < static_cast<int>(n);
    return text(known ? letters[static_cast<std::size_t>(index)] : std::to_string(index));
  }

 private:
  Text_Grid& grid_;
  int row_, col_;
  const Typed_Digits* typed_ = nullptr;
  int i_ = 0, j_ = 0;
};

template <class Names>
Picture_Row Three_Names(const Names& name) {
  return {name(1), name(2), name(3)};
}

void Write_Airway(const Database& db, Text_Grid& grid, int row, int i, int slot,
                  const Picture_Row& pictures, const Typed_Digits& typed) {
  const int j = db.Node_Junc(slot, i);
  Row_Writer(grid, row, root_column::name)
      .of(typed, i, j)
      .text(Airway_Title(i, j))
      .number(resistance, db.Root_Resist(slot, i))
      .number(area_perimeter, db.Root_Area(slot, i))
      .number(area_perimeter, db.Root_Peri(slot, i))
      .number(length, db.Root_Length(slot, i))
      .number(one_decimal, db.Root_Time(slot, i))
      .number(heat, db.Root_Heat(slot, i))
      .number(one_decimal, db.Root_Wet(slot, i))
      .number(kind, int{db.Root_Kind(slot, i)})
      .letter(Wind_Letter, db.Root_Wind(slot, i))
      .number(friction, db.Root_Fric(slot, i))
      .letter(Shape_Letter, db.Root_Shape(slot, i))
      .number(one_decimal, db.Root_Height(slot, i))
      .text(pictures[0])
      .text(db.Root_Comm(slot, i));
}

void Write_Node(const Database& db, Text_Grid& grid, int row, int i, const Picture_Row& pictures) {
  Row_Writer writer(grid, row, node_column::number);
  writer.number(node_number, i)
      .number(elevation, int{db.Node_Elev[i]})
      .number(coordinate, std::int64_t{db.Node_EW[i]})
      .number(coordinate, std::int64_t{db.Node_SN[i]})
      .number(junctions, int{db.Node_JuncCount[i]});
  for (int slot = 1; slot <= max_slots; ++slot) {
    const bool used = slot <= db.Node_JuncCount[i];
    writer.number(junctions, used ? int{db.Node_Junc(slot, i)} : 0);
  }
  writer.text(pictures[0]).text(db.Node_Comm[i]);
}

const Picture& Field_Picture(int field) {
  return field <= Fan_Page::discharge    ? node_number
         : field == Fan_Page::limit_flow ? limit_flow
                                         : rpm;
}

Fan_Page Page_Of(const Database& db, int f) {
  Fan_Page page;
  page.value = {0,
                double(db.MFan_WorkSuction[f]),
                double(db.MFan_WorkDischarge[f]),
                db.MFan_WorkStdRpm[f],
                db.MFan_WorkDriveRpm[f],
                db.MFan_WorkLimit[f]};
  for (std::size_t field = Fan_Page::suction; field <= Fan_Page::limit_flow; ++field) {
    page.text[field] = Field_Picture(static_cast<int>(field))(page.value[field]).text();
  }
  page.text[Fan_Page::comment] = db.MFan_WorkComm[f];
  page.surface = db.MFan_WorkSuction[f] == db.MFan_WorkDischarge[f];
  page.pictures = Three_Names([&](int p) { return db.MFan_Pict(p, f); });
  for (int k = 1; k <= max_fan_points; ++k) {
    page.grdMFan.set_text(k, fan_column::flow, db.MFan_GridFlow(k, f));
    page.grdMFan.set_text(k, fan_column::head, db.MFan_GridHead(k, f));
  }
  return page;
}

// The grid's texts are replaced, what is current and selected in it stays.
void Replace(Text_Grid& grid, Text_Grid fresh) {
  fresh.select(grid.Row, grid.Col, grid.RowSel, grid.ColSel);
  grid = std::move(fresh);
}

void Fill_Folder(const Database& db, Edit_Copy& copy, Folder folder) {
  switch (folder) {
    case Folder::airway:
      return Fill_Airways(db, copy);
    case Folder::node:
      return Fill_Nodes(db, copy);
    case Folder::inlet:
      return Fill_Inlets(db, copy);
    case Folder::mainfan:
      return Fill_Fans(db, copy);
    case Folder::assistfan:
      return Fill_Assist_Fans(db, copy);
    case Folder::thermal:
      return Fill_Thermal(db, copy);
  }
}

// The folder's texts are what the tables give, with the digits that were typed.
bool Is_As_Filled(const Database& db, const Edit_Copy& copy, Folder folder) {
  Edit_Copy filled;
  filled.grid(folder) = copy.grid(folder);
  Fill_Folder(db, filled, folder);
  const Picture_Rows* const names = copy.pictures(folder);
  return copy.grid(folder) == filled.grid(folder) &&
         (names == nullptr || *names == *filled.pictures(folder));
}

// The fans' work copy follows what is tested, so the pages are compared with what they were.
bool Same_Pages(const Database& db, const Edit_Copy& copy) {
  return copy.MFan_GridTotal == db.MFan_Total && copy.fan_pages == copy.checked_pages;
}

std::int16_t Database::*Flag_Of(Folder folder) {
  constexpr std::array<std::int16_t Database::*, folder_count> flags = {
      &Database::Edit_Root, &Database::Edit_Node, &Database::Edit_Inlet,
      &Database::Edit_MFan, &Database::Edit_AFan, &Database::Edit_Thermo};
  return flags.at(static_cast<std::size_t>(folder));
}

bool Ends_A_Cell(char c) { return c == '\r' || c == '\n' || c == '\t'; }

}  // namespace

std::string_view Page_Tag(Folder folder) {
  constexpr std::array<std::string_view, folder_count> tags = {"airway",  "node",      "Inlet",
                                                               "mainfan", "assistfan", "thermal"};
  return tags.at(static_cast<std::size_t>(folder));
}

std::string_view Folder_Name(Folder folder) {
  constexpr std::array<std::string_view, folder_count> names = {
      "Airway Folder", "Node Folder",       "Intakes Folder",
      "Main Fan",      "Assist Fan Folder", "Thermal Folder"};
  return names.at(static_cast<std::size_t>(folder));
}

Fan_Page::Fan_Page() : grdMFan(With_Rows(Fan_Grid(), max_fan_points, "No. ")) {}

Edit_Copy::Edit_Copy()
    : grdRoot(Root_Grid()),
      grdNode(Node_Grid()),
      grdInlet(With_Rows(Inlet_Grid(), max_inlets, "No. ")),
      grdAFan(With_Rows(Assist_Grid(), max_assist_fans, "# ")),
      grdThermo(With_Rows(Thermo_Grid(), max_thermo_rows, "# ")) {
  grdRoot.set_data_rows(1);
  fit_pictures();
}

Text_Grid& Edit_Copy::grid(Folder folder) {
  return const_cast<Text_Grid&>(std::as_const(*this).grid(folder));
}

const Text_Grid& Edit_Copy::grid(Folder folder) const {
  switch (folder) {
    case Folder::airway:
      return grdRoot;
    case Folder::node:
      return grdNode;
    case Folder::inlet:
      return grdInlet;
    case Folder::mainfan:
      return fan(std::max(fan_in_front, 1)).grdMFan;
    case Folder::assistfan:
      return grdAFan;
    case Folder::thermal:
      break;
  }
  return grdThermo;
}

Fan_Page& Edit_Copy::fan(int f) { return const_cast<Fan_Page&>(std::as_const(*this).fan(f)); }

const Fan_Page& Edit_Copy::fan(int f) const {
  if (f < 1 || f > max_main_fans) Outside_Table(f, max_main_fans);
  return fan_pages.at(static_cast<std::size_t>(f - 1));
}

Picture_Rows* Edit_Copy::pictures(Folder folder) {
  switch (folder) {
    case Folder::airway:
      return &Grid_RootPict;
    case Folder::node:
      return &Node_PictGrid;
    case Folder::inlet:
      return &Inlet_PictGrid;
    case Folder::assistfan:
      return &AFan_PictGrid;
    default:
      return nullptr;
  }
}

const Picture_Rows* Edit_Copy::pictures(Folder folder) const {
  return const_cast<Edit_Copy*>(this)->pictures(folder);
}

void Edit_Copy::fit_pictures() {
  for (const Folder folder : all_folders) {
    Picture_Rows* const rows = pictures(folder);
    if (rows != nullptr) rows->resize(static_cast<std::size_t>(grid(folder).Rows()));
  }
}

int Picture_Column(Folder folder) {
  switch (folder) {
    case Folder::airway:
      return root_column::picture;
    case Folder::node:
      return node_column::picture;
    case Folder::inlet:
      return inlet_column::picture;
    case Folder::assistfan:
      return assist_column::picture;
    default:
      return 0;
  }
}

void Fill_Database_Window(const Database& db, Edit_Copy& copy) {
  Edit_Copy fresh;
  for (const Folder folder : all_folders) Fill_Folder(db, fresh, folder);
  copy = std::move(fresh);
}

void Fill_Airways(const Database& db, Edit_Copy& copy) {
  int airways = 0;
  for (int i = 1; i <= db.Node_Total; ++i) airways += db.Node_UpCount[i];
  const Typed_Digits typed(copy.grdRoot, Folder::airway);
  Text_Grid grid = Root_Grid();
  grid.set_data_rows(std::min(airways + 1, max_grid_rows));
  Picture_Rows pictures(static_cast<std::size_t>(grid.Rows()));
  int row = 0;
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int k = 1; k <= db.Node_UpCount[i]; ++k) {
      const int slot = db.Node_UpSlot(k, i);
      Picture_Row& names = pictures[static_cast<std::size_t>(++row)];
      names = Three_Names([&](int p) { return db.Root_Pict(p, slot, i); });
      Write_Airway(db, grid, row, i, slot, names, typed);
    }
  }
  Replace(copy.grdRoot, std::move(grid));
  copy.Grid_RootPict = std::move(pictures);
}

void Fill_Nodes(const Database& db, Edit_Copy& copy) {
  std::vector<int> nodes;
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] > 0) nodes.push_back(i);
  }
  Text_Grid grid = Node_Grid();
  grid.set_data_rows(static_cast<int>(nodes.size()));
  Picture_Rows pictures(static_cast<std::size_t>(grid.Rows()));
  int row = 0;
  for (const int i : nodes) {
    Picture_Row& names = pictures[static_cast<std::size_t>(++row)];
    names = Three_Names([&](int p) { return db.Node_Pict(p, i); });
    Write_Node(db, grid, row, i, names);
  }
  Replace(copy.grdNode, std::move(grid));
  copy.Node_PictGrid = std::move(pictures);
}

void Fill_Inlets(const Database& db, Edit_Copy& copy) {
  Text_Grid grid = With_Rows(Inlet_Grid(), max_inlets, "No. ");
  Picture_Rows pictures(static_cast<std::size_t>(grid.Rows()));
  for (int k = 1; k <= db.Inlet_Total; ++k) {
    Picture_Row& names = pictures.at(static_cast<std::size_t>(k));
    names = Three_Names([&](int p) { return db.Inlet_Pict(p, k); });
    Row_Writer(grid, k)
        .number(node_number, int{db.Inlet_Node[k]})
        .text(names[0])
        .text(db.Inlet_Comm[k]);
  }
  Replace(copy.grdInlet, std::move(grid));
  copy.Inlet_PictGrid = std::move(pictures);
}

void Fill_Fans(const Database& db, Edit_Copy& copy) {
  std::array<Fan_Page, max_main_fans> pages;
  for (int f = 1; f <= db.MFan_GridTotal; ++f) {
    Fan_Page& page = pages.at(static_cast<std::size_t>(f - 1));
    page = Page_Of(db, f);
    const Text_Grid& before = copy.fan(f).grdMFan;
    page.grdMFan.select(before.Row, before.Col, before.RowSel, before.ColSel);
  }
  copy.fan_pages = std::move(pages);
  copy.checked_pages = copy.fan_pages;
  copy.MFan_GridTotal = db.MFan_GridTotal;
  copy.fan_in_front = std::clamp(copy.fan_in_front, copy.MFan_GridTotal > 0 ? 1 : 0,
                                 std::max(copy.MFan_GridTotal, 0));
}

void Fill_Assist_Fans(const Database& db, Edit_Copy& copy) {
  const Typed_Digits typed(copy.grdAFan, Folder::assistfan);
  Text_Grid grid = With_Rows(Assist_Grid(), max_assist_fans, "# ");
  Picture_Rows pictures(static_cast<std::size_t>(grid.Rows()));
  for (int k = 1; k <= db.AFan_Total; ++k) {
    Picture_Row& names = pictures.at(static_cast<std::size_t>(k));
    names = Three_Names([&](int p) { return db.AFan_Pict(p, k); });
    Row_Writer(grid, k)
        .of(typed, db.AFan_Suction[k], db.AFan_Discharge[k])
        .number(node_number, int{db.AFan_Suction[k]})
        .number(node_number, int{db.AFan_Discharge[k]})
        .number(assist_value, db.AFan_Head[k])
        .number(assist_value, db.AFan_Flow[k])
        .text(names[0])
        .text(db.AFan_Comm[k]);
  }
  Replace(copy.grdAFan, std::move(grid));
  copy.AFan_PictGrid = std::move(pictures);
}

void Fill_Thermal(const Database& db, Edit_Copy& copy) {
  const Typed_Digits typed(copy.grdThermo, Folder::thermal);
  Text_Grid grid = With_Rows(Thermo_Grid(), max_thermo_rows, "# ");
  for (int k = 1; k <= db.Thermo_Total; ++k) {
    Row_Writer(grid, k)
        .of(typed, db.Thermo_Node1[k], db.Thermo_Node2[k])
        .number(node_number, int{db.Thermo_Node1[k]})
        .number(node_number, int{db.Thermo_Node2[k]})
        .number(rock_value, db.Thermo_Cond[k])
        .number(rock_value, db.Thermo_Density[k])
        .number(rock_value, db.Thermo_Specific[k])
        .number(rock_value, db.Thermo_RockTemp[k])
        .text(db.Thermo_Comm[k]);
  }
  Replace(copy.grdThermo, std::move(grid));
}

std::string Format_Fan_Field(int field, std::string_view text) {
  if (field > Fan_Page::limit_flow || Trim(text).empty()) return std::string(text);
  try {
    return Field_Picture(field)(Parse_Double(text)).text();
  } catch (const Run_Time_Error&) {
    return std::string(text);
  }
}

std::vector<Folder> Unchecked_Folders(const Database& db, const Edit_Copy& copy) {
  std::vector<Folder> unchecked;
  for (const Folder folder : all_folders) {
    if (Edit_Flag(db, folder) == 0) continue;
    const bool same =
        folder == Folder::mainfan ? Same_Pages(db, copy) : Is_As_Filled(db, copy, folder);
    if (!same) unchecked.push_back(folder);
  }
  return unchecked;
}

std::optional<double> Fan_Field_Number(const Fan_Page& page, int field) {
  const std::string& text = page.text.at(static_cast<std::size_t>(field));
  const double value = page.value.at(static_cast<std::size_t>(field));
  const bool typed = page.typed.at(static_cast<std::size_t>(field));
  if (!typed && text == Field_Picture(field)(value).view()) return value;
  try {
    const double number = Parse_Double(text);
    (void)To_Single(number);
    return number;
  } catch (const Run_Time_Error&) {
    return std::nullopt;
  }
}

std::int16_t Edit_Flag(const Database& db, Folder folder) { return db.*Flag_Of(folder); }
std::int16_t& Edit_Flag(Database& db, Folder folder) { return db.*Flag_Of(folder); }

void Note_Edit(Database& db, Folder folder) {
  Edit_Flag(db, folder) = 1;
  db.Flag_Results = 0;
}

void Set_Cell(Edit_Copy& copy, Folder folder, int row, int col, std::string_view text) {
  std::string clean(text);
  std::replace_if(clean.begin(), clean.end(), Ends_A_Cell, ' ');
  if (col != 0 && col == Picture_Column(folder)) {
    copy.pictures(folder)->at(static_cast<std::size_t>(row))[0] = clean;
  }
  copy.grid(folder).set_text(row, col, std::move(clean));
}

void Set_Picture_Name(Edit_Copy& copy, Folder folder, int row, int slot, std::string name) {
  if (slot < 1 || slot > max_pictures) Outside_Table(slot, max_pictures);
  if (slot == 1) return Set_Cell(copy, folder, row, Picture_Column(folder), name);
  copy.pictures(folder)->at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(slot - 1)) =
      std::move(name);
}

bool Commit_Cell(Database& db, Edit_Copy& copy, Folder folder, std::string_view text) {
  const Text_Grid& grid = copy.grid(folder);
  const int row = grid.Row;
  const int col = grid.Col;
  if (row < Text_Grid::FixedRows || grid.text(row, col) == text) return false;
  Set_Cell(copy, folder, row, col, text);
  Note_Edit(db, folder);
  if (folder == Folder::airway) Leave_Empty_Row(copy);
  return true;
}

void Leave_Empty_Row(Edit_Copy& copy) {
  Text_Grid& grid = copy.grdRoot;
  const int last = grid.Rows() - 1;
  const bool has_one = last >= Text_Grid::FixedRows && grid.is_blank(last);
  if (!has_one && last < max_grid_rows) grid.insert_rows(grid.Rows(), 1);
  copy.fit_pictures();
}

std::string Airway_Title(int i, int j) {
  const auto field = [](int number) {
    const std::string text = node_number(number).text();
    return text.size() < 3 ? std::string(3 - text.size(), ' ') + text : text;
  };
  return field(i) + " -> " + field(j);
}

}  // namespace branok
