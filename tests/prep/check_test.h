// A mine in the Database window, its grids filled, for tests of the check.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "core/sample.h"
#include "prep/check.h"
#include "prep/edit_commands.h"
#include "support/generated_mine.h"
#include "support/test_doors.h"

namespace branok {

// Six nodes: an intake at 1, a surface fan at 6, two ways from 2 to 5. Rows of the airway grid:
// 1-2, 2-3, 2-4, 3-5, 4-5, 5-6.
inline Database Small_Mine() {
  Database db;
  Reset_Database(db);
  db.Mine_Name = "Small       ";
  for (int i = 1; i <= 6; ++i) Clear_Node(db, i);
  for (const auto& [i, j] : {std::pair{1, 2}, {2, 3}, {2, 4}, {3, 5}, {4, 5}, {5, 6}}) {
    Add_Airway(db, i, j, 2);
  }
  db.Inlet_Total = db.MFan_Total = 1;
  db.Inlet_Node[1] = 1;
  Set_Default_Fan(db, 1, 9000);
  db.MFan_Suction[1] = db.MFan_Discharge[1] = 6;
  Derive_After_Load(db);
  return db;
}

class Check_Test : public testing::Test {
 protected:
  Check_Test() { open(Small_Mine()); }

  void open(Database mine) {
    db = std::move(mine);
    Fill_Database_Window(db, copy);
  }

  // Types a text into a cell.
  void type(Folder folder, int row, int col, std::string_view text) {
    Set_Cell(copy, folder, row, col, text);
    Note_Edit(db, folder);
    if (folder == Folder::airway) Leave_Empty_Row(copy);
  }
  // Types a whole row of the airway grid: its name, and nothing that a blank cell does not take.
  void type_airway(std::string_view name) {
    type(Folder::airway, copy.grdRoot.Rows() - 1, root_column::name, name);
  }
  void type_field(int fan, int field, std::string_view text) {
    copy.fan_in_front = fan;
    Set_Fan_Field(db, copy, field, text);
    Note_Edit(db, Folder::mainfan);
  }

  bool check() {
    user.shown.clear();
    user.remarks.clear();
    result = Check_Data(db, copy, user);
    EXPECT_EQ(user.busy_depth, 0);
    EXPECT_EQ(user.times_busy, ++checks);
    return result.passed;
  }
  // Checks, expects to be stopped, and gives the text of the first box.
  std::string fault() {
    EXPECT_FALSE(check());
    return user.shown.empty() ? "" : user.shown.front().text;
  }
  std::string remark() const { return user.remarks.empty() ? "" : user.remarks.back(); }

  Database db;
  Edit_Copy copy;
  Test_Dialogue user;
  Check_Result result;
  int checks = 0;
};

inline const std::string all_right = "The data are all right !";
inline const std::string not_numeric = "Please input numeric data.";

inline std::string Range_Text(const std::string& item, const std::string& folder,
                              const std::string& low, const std::string& high) {
  return item + " in " + folder + " The value should be from " + low + "  to  " + high +
         " .\nChange value !";
}
inline std::string Missing_Text(const std::string& name, const std::string& folder) {
  return "Please input " + name + " in " + folder + " has not inputed.";
}

}  // namespace branok
