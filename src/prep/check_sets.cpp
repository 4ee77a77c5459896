// The folders with one row per thing: intakes, assist fans, special thermal rows. Filled rows may
// stand anywhere in the grid; in the tables they follow one another.
#include <array>

#include "core/messages.h"
#include "prep/check_folders.h"
#include "prep/check_rows.h"

namespace branok {

namespace {

// A row's three picture names, or none.
template <class Names>
void Store_Pictures(Names& names, int k, const Picture_Row& row) {
  for (int p = 1; p <= max_pictures; ++p) names(p, k) = row[static_cast<std::size_t>(p - 1)];
}

std::int16_t Node_Cell(const Grid_Row& row, int col) { return Parse_Int16(row.text(col)); }

// --- Intakes

constexpr std::string_view intake_node = "Intake Set Node";

int Inlet_Number(const Database& db, const Grid_Row& row) {
  const std::string_view folder = Folder_Name(Folder::inlet);
  const std::optional<int> node = row.whole_number(inlet_column::node);
  if (!node) row.stop(inlet_column::node, messages::Wrong_Input(intake_node, "Intake Data"));
  if (*node < 1 || *node > max_nodes) {
    row.stop(inlet_column::node,
             messages::Out_Of_Range(intake_node, folder, "1", std::to_string(max_nodes)));
  }
  if (db.Node_JuncCount[*node] == 0) {
    row.stop(inlet_column::node, messages::Node_Not_Existing(*node, folder));
  }
  return *node;
}

// The pages of the main fans count as they are now: they may be committed together with this.
bool Is_Fan_Suction(const Edit_Copy& copy, int node) {
  for (int f = 1; f <= copy.MFan_GridTotal; ++f) {
    if (Fan_Field_Number(copy.fan(f), Fan_Page::suction) == node) return true;
  }
  return false;
}

// --- Rows that stand for an airway

struct Airway_Columns {
  int first = 0, second = 0;
  std::string_view first_item, second_item;
  std::string_view thing;
};
constexpr Airway_Columns assist_ends{assist_column::suction, assist_column::discharge,
                                     "Suction Node", "Discharge Node", "Assist. Fan"};
constexpr Airway_Columns thermo_ends{thermo_column::node1, thermo_column::node2, "1st Node",
                                     "2nd Node", "Thermo Condition"};

void Check_Airway(const Database& db, const Grid_Row& row, Folder folder,
                  const Airway_Columns& ends) {
  const std::string_view name = Folder_Name(folder);
  const auto end = [&](int col, std::string_view item) {
    if (row.is_blank(col)) row.stop(col, messages::Missing_Input(item, name));
    return Connected_Node(db, row, col, item, ends.thing);
  };
  const int first = end(ends.first, ends.first_item);
  const int second = end(ends.second, ends.second_item);
  if (Find_Slot(db, first, second) != 0) return;
  const std::string airway = std::to_string(first) + " -> " + std::to_string(second);
  row.stop(ends.second, messages::Airway_Not_Existing(airway, name));
}

struct Value_Column {
  int col = 0;
  std::string_view name;  // of a value that is missing
};

template <std::size_t n>
void Check_Values(const Grid_Row& row, Folder folder, const std::array<Value_Column, n>& columns) {
  for (const Value_Column& value : columns) {
    if (row.is_blank(value.col)) {
      row.stop(value.col, messages::Missing_Input(value.name, Folder_Name(folder)));
    }
    (void)row.number(value.col);
  }
}

constexpr std::array<Value_Column, 2> assist_values = {
    {{assist_column::head, "'Head' Column"}, {assist_column::flow, "Air Flow(>0)"}}};
constexpr std::array<Value_Column, 4> thermo_values = {
    {{thermo_column::cond, "Thermal Conductivity(>0. or 0: Default Value)"},
     {thermo_column::density, "Rock Density(>0. or 0: Default Value)"},
     {thermo_column::specific, "Specific Heat(>0. or 0: Default Value)"},
     {thermo_column::rock_temp, "Ini. Rock Temp."}}};

}  // namespace

void Check_Inlets(const Database& db, const Edit_Copy& copy) {
  Node_Table<std::uint8_t> is_inlet;
  for (const Grid_Row& row : Filled_Rows(copy, Folder::inlet, max_inlets)) {
    const int node = Inlet_Number(db, row);
    if (is_inlet[node] != 0) row.stop(inlet_column::node, messages::Node_Double_Booked("Inlet"));
    if (Is_Fan_Suction(copy, node)) {
      row.stop(inlet_column::node, messages::Node_Double_Booked("Fan"));
    }
    is_inlet[node] = 1;
  }
}

void Commit_Inlets(Database& db, Edit_Copy& copy) {
  db.Inlet_Node.fill(0);
  db.Inlet_Comm.fill({});
  db.Inlet_Pict.fill({});
  int k = 0;
  for (const Grid_Row& row : Filled_Rows(copy, Folder::inlet, max_inlets)) {
    db.Inlet_Node[++k] = Node_Cell(row, inlet_column::node);
    db.Inlet_Comm[k] = row.text(inlet_column::comment);
    Store_Pictures(db.Inlet_Pict, k, row.pictures());
  }
  db.Inlet_Total = static_cast<std::int16_t>(k);
  Derive_Marks(db);
  Fill_Inlets(db, copy);
}

void Check_Assist_Fans(const Database& db, const Edit_Copy& copy) {
  for (const Grid_Row& row : Filled_Rows(copy, Folder::assistfan, max_assist_fans)) {
    Check_Airway(db, row, Folder::assistfan, assist_ends);
    Check_Values(row, Folder::assistfan, assist_values);
  }
}

void Commit_Assist_Fans(Database& db, Edit_Copy& copy) {
  db.AFan_Suction.fill(0);
  db.AFan_Discharge.fill(0);
  db.AFan_Head.fill(0);
  db.AFan_Flow.fill(0);
  db.AFan_Comm.fill({});
  db.AFan_Pict.fill({});
  int k = 0;
  for (const Grid_Row& row : Filled_Rows(copy, Folder::assistfan, max_assist_fans)) {
    db.AFan_Suction[++k] = Node_Cell(row, assist_column::suction);
    db.AFan_Discharge[k] = Node_Cell(row, assist_column::discharge);
    db.AFan_Head[k] = row.number(assist_column::head);
    db.AFan_Flow[k] = row.number(assist_column::flow);
    db.AFan_Comm[k] = row.text(assist_column::comment);
    Store_Pictures(db.AFan_Pict, k, row.pictures());
  }
  db.AFan_Total = static_cast<std::int16_t>(k);
  Derive_Marks(db);
  Fill_Assist_Fans(db, copy);
}

void Check_Thermal_Rows(const Database& db, const Edit_Copy& copy) {
  for (const Grid_Row& row : Filled_Rows(copy, Folder::thermal, max_thermo_rows)) {
    Check_Airway(db, row, Folder::thermal, thermo_ends);
    Check_Values(row, Folder::thermal, thermo_values);
  }
}

void Commit_Thermal_Rows(Database& db, Edit_Copy& copy) {
  db.Thermo_Node1.fill(0);
  db.Thermo_Node2.fill(0);
  for (auto* const values :
       {&db.Thermo_Cond, &db.Thermo_Density, &db.Thermo_Specific, &db.Thermo_RockTemp}) {
    values->fill(0);
  }
  db.Thermo_Comm.fill({});
  int k = 0;
  for (const Grid_Row& row : Filled_Rows(copy, Folder::thermal, max_thermo_rows)) {
    db.Thermo_Node1[++k] = Node_Cell(row, thermo_column::node1);
    db.Thermo_Node2[k] = Node_Cell(row, thermo_column::node2);
    db.Thermo_Cond[k] = row.number(thermo_column::cond);
    db.Thermo_Density[k] = row.number(thermo_column::density);
    db.Thermo_Specific[k] = row.number(thermo_column::specific);
    db.Thermo_RockTemp[k] = row.number(thermo_column::rock_temp);
    db.Thermo_Comm[k] = row.text(thermo_column::comment);
  }
  db.Thermo_Total = static_cast<std::int16_t>(k);
  Fill_Thermal(db, copy);
}

}  // namespace branok
