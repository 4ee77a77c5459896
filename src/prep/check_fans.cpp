// The pages of the main fans.
#include <algorithm>
#include <array>
#include <cmath>

#include "core/messages.h"
#include "core/pictures.h"
#include "prep/cell_rules.h"
#include "prep/check_folders.h"
#include "prep/check_rows.h"

namespace branok {

namespace {

constexpr Picture old_speed("##0");
constexpr std::size_t fewest_points = 4;  // that give a cubic

[[noreturn]] void Stop_At_Field(int f, int field, Message message) {
  constexpr std::array<std::string_view, Fan_Page::last_field + 1> names = {
      "",           "Suction Node", "Discharge Node", "Standard r.p.m.", "Driving r.p.m.",
      "Limit Flow", "Comm."};
  std::string words = "Main Fan No." + std::to_string(f) + ", ";
  words += names[static_cast<std::size_t>(field)];
  throw Check_Fault(std::move(message), std::move(words),
                    Edit_Place{.folder = Folder::mainfan, .fan = f, .field = field});
}

const std::string& Field_Text(const Edit_Copy& copy, int f, int field) {
  return copy.fan(f).text.at(static_cast<std::size_t>(field));
}

// The fields of a page go to the work copy. A node that is none, and any other field that is no
// number, is 0 there: the tests look at the page itself.
void Take_Fan_Page(Database& db, const Edit_Copy& copy, int f) {
  const Fan_Page& page = copy.fan(f);
  const auto node = [&](int field) {
    const double number = Fan_Field_Number(page, field).value_or(0);
    const bool fits = number >= 0 && number <= max_nodes && number == Int(number);
    return static_cast<std::int16_t>(fits ? number : 0);
  };
  const auto number = [&](int field) {
    return static_cast<float>(Fan_Field_Number(page, field).value_or(0));
  };
  db.MFan_WorkSuction[f] = node(Fan_Page::suction);
  db.MFan_WorkDischarge[f] = node(Fan_Page::discharge);
  db.MFan_WorkStdRpm[f] = number(Fan_Page::std_rpm);
  db.MFan_WorkDriveRpm[f] = number(Fan_Page::drive_rpm);
  db.MFan_WorkLimit[f] = number(Fan_Page::limit_flow);
  db.MFan_WorkComm[f] = page.text[Fan_Page::comment];
}

// --- The six tests

void Check_Node_Field(const Database& db, const Edit_Copy& copy, int f, int field,
                      std::string_view item, int node) {
  if (Trim(Field_Text(copy, f, field)).empty()) Stop_At_Field(f, field, messages::Enter_Node(item));
  if (!Fan_Field_Number(copy.fan(f), field)) Stop_At_Field(f, field, messages::Not_Numeric());
  if (node < 1 || node > db.Node_Total) {
    Stop_At_Field(f, field, messages::Node_Out_Of_Range(db.Node_Total, item));
  }
}

void Check_Suction(const Database& db, const Edit_Copy& copy, int f) {
  const int node = db.MFan_WorkSuction[f];
  Check_Node_Field(db, copy, f, Fan_Page::suction, "Suction Node", node);
  const auto stop = [&](Message message) {
    Stop_At_Field(f, Fan_Page::suction, std::move(message));
  };
  if (db.Node_JuncCount[node] == 0) stop(messages::Node_Not_Existing(node, "Main Fan"));
  for (int k = 1; k <= db.Inlet_Total; ++k) {
    if (db.Inlet_Node[k] == node) stop(messages::Node_Double_Booked("Inlet"));
  }
  for (int other = 1; other <= copy.MFan_GridTotal; ++other) {
    if (other != f && db.MFan_WorkSuction[other] == node) {
      stop(messages::Node_Double_Booked("Fan"));
    }
  }
}

void Check_Discharge(const Database& db, const Edit_Copy& copy, int f) {
  const int node = db.MFan_WorkDischarge[f];
  const int suction = db.MFan_WorkSuction[f];
  Check_Node_Field(db, copy, f, Fan_Page::discharge, "Discharge Node", node);
  if (node != suction && Find_Slot(db, suction, node) == 0) {
    Stop_At_Field(f, Fan_Page::discharge, messages::No_Flow_Direction());
  }
}

// The speed that was there before comes back to the page.
[[noreturn]] void Take_Speed_Back(Database& db, Edit_Copy& copy, int f, int field,
                                  std::string_view which) {
  Fan_Page& page = copy.fan(f);
  const auto at = static_cast<std::size_t>(field);
  page.text.at(at) = old_speed(page.value.at(at)).text();
  page.typed.at(at) = false;
  Take_Fan_Page(db, copy, f);
  Stop_At_Field(f, field, messages::Change_Revolution(which));
}

void Check_Speed(Database& db, Edit_Copy& copy, int f, int field, std::string_view which,
                 float speed) {
  const bool blank = Trim(Field_Text(copy, f, field)).empty();
  if (!blank && !Fan_Field_Number(copy.fan(f), field)) {
    Stop_At_Field(f, field, messages::Not_Numeric());
  }
  if (!(speed > 0)) Take_Speed_Back(db, copy, f, field, which);
}

void Check_Standard_Speed(Database& db, Edit_Copy& copy, int f) {
  Check_Speed(db, copy, f, Fan_Page::std_rpm, " Standard ", db.MFan_WorkStdRpm[f]);
}

void Check_Driving_Speed(Database& db, Edit_Copy& copy, int f) {
  Check_Speed(db, copy, f, Fan_Page::drive_rpm, " Driving ", db.MFan_WorkDriveRpm[f]);
  // Two speeds that no table could hold the ratio of.
  const auto ratio = static_cast<float>(double{db.MFan_WorkDriveRpm[f]} / db.MFan_WorkStdRpm[f]);
  if (!std::isfinite(ratio) || ratio <= 0) {
    Take_Speed_Back(db, copy, f, Fan_Page::drive_rpm, " Driving ");
  }
}

void Check_Limit_Flow(const Edit_Copy& copy, int f) {
  if (auto fault = Number_Fault(limit_flow_rule, Field_Text(copy, f, Fan_Page::limit_flow))) {
    Stop_At_Field(f, Fan_Page::limit_flow, std::move(*fault));
  }
}

// --- The table

[[noreturn]] void Stop_In_Table(const Edit_Copy& copy, int f, int row, int col, Message message) {
  Stop_At_Cell(copy, {.folder = Folder::mainfan, .row = row, .col = col, .fan = f},
               std::move(message));
}

// The rows of the text table that hold a pair. A cell that is no number, and one without its
// counterpart, end the check.
std::vector<int> Pairs(const Database& db, const Edit_Copy& copy, int f) {
  std::vector<int> rows;
  for (int k = 1; k <= max_fan_points; ++k) {
    const std::string_view flow = Trim(db.MFan_GridFlow(k, f));
    const std::string_view head = Trim(db.MFan_GridHead(k, f));
    if (flow.empty() && head.empty()) continue;
    for (const auto& [col, text] :
         {std::pair{int{fan_column::flow}, flow}, std::pair{int{fan_column::head}, head}}) {
      if (!text.empty() && !Is_Number(text)) {
        Stop_In_Table(copy, f, k, col, messages::Not_Numeric());
      }
    }
    if (flow.empty() || head.empty()) {
      const int col = flow.empty() ? fan_column::flow : fan_column::head;
      const Number_Rule& rule = flow.empty() ? fan_flow_rule : fan_head_rule;
      Stop_In_Table(copy, f, k, col, messages::Missing_Input(rule.item, rule.folder));
    }
    rows.push_back(k);
  }
  return rows;
}

// A page has 20 rows, and more after a long paste: then blank rows go until the others fit.
void Close_Up(Text_Grid& grid) {
  for (int row = grid.Rows() - 1; row >= Text_Grid::FixedRows; --row) {
    if (grid.Rows() - 1 <= max_fan_points) break;
    const bool is_blank = Trim(grid.text(row, fan_column::flow)).empty() &&
                          Trim(grid.text(row, fan_column::head)).empty();
    if (is_blank) grid.remove_rows(row, 1);
  }
  for (int k = 1; k <= max_fan_points; ++k) {
    grid.set_text(k, fan_column::title, "No. " + std::to_string(k));
  }
}

void Check_Table(Database& db, const Edit_Copy& copy, int f) {
  if (copy.fan(f).grdMFan.Rows() - 1 > max_fan_points) {
    Stop_In_Table(copy, f, max_fan_points + 1, fan_column::flow,
                  messages::Out_Of_Range("Total Number", fan_flow_rule.folder, "0",
                                         std::to_string(max_fan_points)));
  }
  const std::vector<int> rows = Pairs(db, copy, f);
  if (rows.size() < fewest_points) {
    throw Check_Fault(
        messages::Too_Few_Fan_Points(f), {},
        Edit_Place{.folder = Folder::mainfan, .row = 1, .col = fan_column::flow, .fan = f});
  }
  for (const int k : rows) {
    if (auto fault = Number_Fault(fan_flow_rule, db.MFan_GridFlow(k, f))) {
      Stop_In_Table(copy, f, k, fan_column::flow, std::move(*fault));
    }
    if (auto fault = Number_Fault(fan_head_rule, db.MFan_GridHead(k, f))) {
      Stop_In_Table(copy, f, k, fan_column::head, std::move(*fault));
    }
  }
  db.MFan_WorkHQ[f] = static_cast<std::int16_t>(rows.size());
}

void Read_Page(Database& db, Edit_Copy& copy, int f) {
  Close_Up(copy.fan(f).grdMFan);
  Get_Fan_Grid(db, copy, f);
  Take_Fan_Page(db, copy, f);
}

// --- Commit

void Store_Table(Database& db, int f) {
  int points = 0;
  for (int k = 1; k <= max_fan_points; ++k) {
    if (Trim(db.MFan_GridFlow(k, f)).empty()) continue;
    ++points;
    db.MFan_HQ_Flow(points, f) = Parse_Single(db.MFan_GridFlow(k, f));
    db.MFan_HQ_Head(points, f) = Parse_Single(db.MFan_GridHead(k, f));
  }
  db.MFan_HQCount[f] = static_cast<std::int16_t>(points);
  for (int k = points + 1; k <= max_fan_points; ++k) {
    db.MFan_HQ_Flow(k, f) = db.MFan_HQ_Head(k, f) = 0;
  }
}

// Until a flow run fits its curve.
void Set_New_Coefficients(Database& db, int f) {
  db.MFan_Coef(0, f) = 100;
  for (int k = 1; k <= 3; ++k) db.MFan_Coef(k, f) = 0;
}

void Clear_Main_Fan(Database& db, int f) {
  for (auto* const table :
       {&db.MFan_Suction, &db.MFan_Discharge, &db.MFan_Surface, &db.MFan_HQCount,
        &db.MFan_WorkSuction, &db.MFan_WorkDischarge, &db.MFan_WorkHQ}) {
    (*table)[f] = 0;
  }
  for (auto* const table :
       {&db.MFan_StdRpm, &db.MFan_DriveRpm, &db.MFan_Ratio, &db.MFan_LimitFlow, &db.MFan_Flow,
        &db.MFan_WorkStdRpm, &db.MFan_WorkDriveRpm, &db.MFan_WorkLimit}) {
    (*table)[f] = 0;
  }
  db.MFan_Press[f] = 0;
  db.MFan_Comm[f].clear();
  db.MFan_WorkComm[f].clear();
  for (int k = 0; k <= 3; ++k) db.MFan_Coef(k, f) = 0;
  for (int p = 1; p <= max_pictures; ++p) db.MFan_Pict(p, f).clear();
  for (int k = 1; k <= max_fan_points; ++k) {
    db.MFan_HQ_Flow(k, f) = db.MFan_HQ_Head(k, f) = 0;
    db.MFan_GridFlow(k, f).clear();
    db.MFan_GridHead(k, f).clear();
  }
}

}  // namespace

void Get_Fan_Grid(Database& db, const Edit_Copy& copy, int f) {
  const Text_Grid& grid = copy.fan(f).grdMFan;
  for (int k = 1; k <= max_fan_points; ++k) {
    db.MFan_GridFlow(k, f) = grid.text(k, fan_column::flow);
    db.MFan_GridHead(k, f) = grid.text(k, fan_column::head);
  }
}

void Check_Main_Fans(Database& db, Edit_Copy& copy) {
  for (int f = 1; f <= copy.MFan_GridTotal; ++f) Read_Page(db, copy, f);
  for (int f = 1; f <= copy.MFan_GridTotal; ++f) {
    Check_Suction(db, copy, f);
    Check_Discharge(db, copy, f);
    Check_Standard_Speed(db, copy, f);
    Check_Driving_Speed(db, copy, f);
    Check_Limit_Flow(copy, f);
    Check_Table(db, copy, f);
  }
}

void Check_Fan_Curve(Database& db, Edit_Copy& copy, int f) {
  Read_Page(db, copy, f);
  Check_Standard_Speed(db, copy, f);
  Check_Driving_Speed(db, copy, f);
  Check_Table(db, copy, f);
}

void Commit_Main_Fans(Database& db, Edit_Copy& copy) {
  const int total = copy.MFan_GridTotal;
  for (int f = 1; f <= total; ++f) {
    // Where fans have come or gone a number may stand for another fan: its curve is not known yet.
    if (total != db.MFan_Total) Set_New_Coefficients(db, f);
    db.MFan_Suction[f] = db.MFan_WorkSuction[f];
    db.MFan_Discharge[f] = db.MFan_WorkDischarge[f];
    db.MFan_Comm[f] = db.MFan_WorkComm[f];
    for (int p = 1; p <= max_pictures; ++p) {
      db.MFan_Pict(p, f) = copy.fan(f).pictures[static_cast<std::size_t>(p - 1)];
    }
    Commit_Fan_Curve(db, f);
  }
  for (int f = total + 1; f <= max_main_fans; ++f) Clear_Main_Fan(db, f);
  db.MFan_Total = db.MFan_GridTotal = static_cast<std::int16_t>(total);
  Derive_Marks(db);
  Fill_Fans(db, copy);
}

void Commit_Fan_Curve(Database& db, int f) {
  Set_MFan_Ratio(db, f);
  Store_Table(db, f);
}

void Set_MFan_Ratio(Database& db, int f) {
  db.MFan_StdRpm[f] = db.MFan_WorkStdRpm[f];
  db.MFan_DriveRpm[f] = db.MFan_WorkDriveRpm[f];
  db.MFan_LimitFlow[f] = db.MFan_WorkLimit[f];
  db.MFan_Ratio[f] =
      db.MFan_StdRpm[f] > 0 ? To_Single(double{db.MFan_DriveRpm[f]} / db.MFan_StdRpm[f]) : 1.0F;
}

}  // namespace branok
