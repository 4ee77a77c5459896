#include "prep/check.h"

#include <algorithm>
#include <limits>

#include "core/messages.h"
#include "core/text.h"
#include "prep/check_folders.h"
#include "prep/check_rows.h"
#include "prep/root_tables.h"

namespace branok {

namespace {

constexpr std::size_t name_length = 12;

// The bytes of the first `count` characters; a text that is no UTF-8 has one byte a character.
std::size_t Size_Of_Characters(std::string_view text, std::size_t count) {
  const bool utf8 = To_Utf8(text) == text;
  const auto goes_on = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; };
  std::size_t size = 0;
  for (; count > 0 && size < text.size(); --count) {
    ++size;
    while (utf8 && size < text.size() && goes_on(text[size])) ++size;
  }
  return size;
}

// The name has the length that files keep.
void Fit_Mine_Name(Database& db, Dialogue& dialogue) {
  std::string& name = db.Mine_Name;
  const std::string whole = name;
  name.append(name_length, ' ');
  name.resize(Size_Of_Characters(name, name_length));
  if (whole.size() > name.size() && !Trim(whole.substr(name.size())).empty()) {
    dialogue.remark("The name of the mine was cut to " + std::to_string(name_length) +
                    " characters: " + To_Utf8(name));
  }
}

// Returns what is to be said of rows that were left out.
std::string Check_Network(Database& db, Edit_Copy& copy, Dialogue& dialogue) {
  if (db.Edit_Node == 1) {
    Check_Node_Rows(db, copy);
    Fill_Nodes(db, copy);
  }
  if (db.Edit_Root != 1) return {};
  const std::vector<std::uint8_t> Grid_RootBad = Mark_Airway_Rows(copy.grdRoot);
  Check_Root_Rows(copy, Grid_RootBad);
  return Build_Root_Tables(db, copy, Grid_RootBad, dialogue);
}

void Check_Equipment(Database& db, Edit_Copy& copy) {
  if (db.Edit_Inlet == 1) {
    Check_Inlets(db, copy);
    Commit_Inlets(db, copy);
  }
  if (db.Edit_MFan == 1) {
    Check_Main_Fans(db, copy);
    Commit_Main_Fans(db, copy);
  }
  if (db.Edit_AFan == 1) {
    Check_Assist_Fans(db, copy);
    Commit_Assist_Fans(db, copy);
  }
  if (db.Edit_Thermo == 1) {
    Check_Thermal_Rows(db, copy);
    Commit_Thermal_Rows(db, copy);
    // Nothing else takes this flag back: intakes once edited are looked at in every check until
    // one finds thermal rows edited as well.
    db.Edit_Inlet = 0;
  }
}

bool Is_Inlet_Or_Fan(const Database& db, int node) {
  for (int f = 1; f <= db.MFan_Total; ++f) {
    if (db.MFan_Suction[f] == node) return true;
  }
  for (int k = 1; k <= db.Inlet_Total; ++k) {
    if (db.Inlet_Node[k] == node) return true;
  }
  return false;
}

// A node with a single airway must be where air enters or leaves the mine.
std::optional<Check_Fault> Check_Dead_End(const Database& db, const Edit_Copy& copy) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] != 1 || Is_Inlet_Or_Fan(db, i)) continue;
    std::optional<Edit_Place> place;
    for (int row = Text_Grid::FixedRows; row < copy.grdNode.Rows(); ++row) {
      if (Whole_Number(copy.grdNode.text(row, node_column::number)) == i) {
        place = Edit_Place{.folder = Folder::node, .row = row, .col = node_column::junctions};
      }
    }
    return Check_Fault(messages::Dead_End(i), {}, place);
  }
  return std::nullopt;
}

void Count_Check(Database& db) {
  if (db.Check_Count < std::numeric_limits<std::int16_t>::max()) ++db.Check_Count;
}

Check_Result Failed(const Check_Fault& fault, Dialogue& dialogue) {
  Tell(fault, dialogue);
  return {.passed = false, .place = fault.place};
}

}  // namespace

Check_Result Check_Data(Database& db, Edit_Copy& copy, Dialogue& dialogue) {
  const Busy busy(dialogue);
  copy.fit_pictures();
  std::string left_out;
  // The fault is told first: its place is what the engineer looks for.
  const auto fail = [&](const Check_Fault& fault) {
    const Check_Result result = Failed(fault, dialogue);
    if (!left_out.empty()) dialogue.remark(left_out);
    return result;
  };
  try {
    Fit_Mine_Name(db, dialogue);
    left_out = Check_Network(db, copy, dialogue);
    Check_Equipment(db, copy);
  } catch (const Check_Fault& fault) {
    return fail(fault);
  }
  const std::optional<Check_Fault> dead_end = Check_Dead_End(db, copy);
  Count_Check(db);
  if (dead_end) {
    db.Edit_Root = 1;
    return fail(*dead_end);
  }
  if (!left_out.empty()) dialogue.remark(left_out);
  db.Edit_Node = db.Edit_Root = db.Edit_MFan = db.Edit_AFan = db.Edit_Thermo = 0;
  dialogue.show(messages::Data_All_Right());
  return {.passed = true, .place = std::nullopt};
}

void Mark_All_Edited(Database& db) {
  for (const Folder folder : all_folders) Edit_Flag(db, folder) = 1;
}

Check_Result Check_Fan_For_Diagram(Database& db, Edit_Copy& copy, int fan, Dialogue& dialogue) {
  const Busy busy(dialogue);
  try {
    Check_Fan_Curve(db, copy, fan);
  } catch (const Check_Fault& fault) {
    return Failed(fault, dialogue);
  }
  Commit_Fan_Curve(db, fan);
  db.MFan_Total = std::max(db.MFan_Total, static_cast<std::int16_t>(fan));
  return {.passed = true, .place = std::nullopt};
}

bool Reset_To_Last_Check(Database& db, Edit_Copy& copy, Dialogue& dialogue) {
  if (dialogue.show(messages::Ask_Reset_Database()) != Answer::yes) return false;
  const Busy busy(dialogue);
  Refill_All_Grids(db, copy);
  db.MFan_GridTotal = static_cast<std::int16_t>(copy.MFan_GridTotal);
  return true;
}

void Refill_All_Grids(const Database& db, Edit_Copy& copy) {
  Fill_Nodes(db, copy);
  Fill_Airways(db, copy);
  Fill_Thermal(db, copy);
  Fill_Inlets(db, copy);
  Fill_Assist_Fans(db, copy);
  if (db.MFan_Total > 0) return;
  copy.fan_pages.fill(Fan_Page());
  copy.checked_pages = copy.fan_pages;
  copy.MFan_GridTotal = copy.fan_in_front = 0;
}

}  // namespace branok
