// Undo and redo: every act can be taken back to the last character, and done again.
#include "prep/edit_history.h"

#include <gtest/gtest.h>

#include <random>

#include "prep/edit_commands.h"
#include "prep/edit_mine.h"

namespace branok {
namespace {

using Folders = std::vector<Folder>;

// All that an engineer can have typed.
struct Texts {
  std::vector<Text_Grid> grids;
  std::vector<Picture_Rows> pictures;
  std::vector<Fan_Page> fans;
  int MFan_GridTotal = 0;
  bool operator==(const Texts&) const = default;
};

Texts Texts_Of(const Edit_Copy& copy) {
  return {
      .grids = {copy.grdRoot, copy.grdNode, copy.grdInlet, copy.grdAFan, copy.grdThermo},
      .pictures = {copy.Grid_RootPict, copy.Node_PictGrid, copy.Inlet_PictGrid, copy.AFan_PictGrid},
      .fans = {copy.fan_pages.begin(), copy.fan_pages.end()},
      .MFan_GridTotal = copy.MFan_GridTotal};
}

class Edit_History_Test : public testing::Test {
 protected:
  Edit_History_Test() { history.start(mine.copy); }
  // A text typed, as one act.
  void type(Folder folder, int row, int col, std::string_view text) {
    mine.type(folder, row, col, text);
    EXPECT_TRUE(history.note(mine.copy));
  }
  std::optional<Edit_Place> undo() { return history.undo(mine.db, mine.copy); }
  std::optional<Edit_Place> redo() { return history.redo(mine.db, mine.copy); }

  Edit_Mine mine = Edit_Mine::Sample();
  Edit_History history;
};

TEST_F(Edit_History_Test, At_The_Beginning_There_Is_Nothing_To_Undo) {
  EXPECT_FALSE(history.can_undo());
  EXPECT_FALSE(history.can_redo());
  EXPECT_FALSE(undo().has_value());
  EXPECT_FALSE(redo().has_value());
  EXPECT_FALSE(history.note(mine.copy));
  EXPECT_FALSE(history.can_undo());
}

TEST_F(Edit_History_Test, A_Cell_Goes_Back_And_Forth) {
  const Texts before = Texts_Of(mine.copy);
  type(Folder::airway, 3, 2, "12");
  const Texts after = Texts_Of(mine.copy);
  EXPECT_EQ(undo(), (Edit_Place{.folder = Folder::airway, .row = 3, .col = 2}));
  EXPECT_EQ(Texts_Of(mine.copy), before);
  EXPECT_FALSE(history.can_undo());
  EXPECT_TRUE(history.can_redo());
  EXPECT_EQ(redo(), (Edit_Place{.folder = Folder::airway, .row = 3, .col = 2}));
  EXPECT_EQ(Texts_Of(mine.copy), after);
}

TEST_F(Edit_History_Test, A_New_Edit_Forgets_What_Could_Be_Done_Again) {
  type(Folder::airway, 1, 2, "12");
  type(Folder::airway, 1, 2, "13");
  undo();
  EXPECT_TRUE(history.can_redo());
  type(Folder::node, 1, 1, "-5");
  EXPECT_FALSE(history.can_redo());
  undo();
  EXPECT_EQ(mine.copy.grdRoot.text(1, 2), "12");
  undo();
  EXPECT_EQ(mine.copy.grdRoot.text(1, 2), "10.0");
}

TEST_F(Edit_History_Test, What_Is_Selected_Is_No_Edit) {
  mine.copy.grdRoot.select(2, 2, 3, 3);
  EXPECT_FALSE(history.note(mine.copy));
}

TEST_F(Edit_History_Test, An_Undo_Is_An_Edit_Of_Its_Folders) {
  type(Folder::thermal, 1, 1, "1");
  mine.mark_clean();
  undo();
  EXPECT_EQ(mine.edited(), Folders{Folder::thermal});
  EXPECT_EQ(mine.db.Flag_Results, 0);
  mine.mark_clean();
  redo();
  EXPECT_EQ(mine.edited(), Folders{Folder::thermal});
  EXPECT_EQ(mine.db.Flag_Results, 0);
}

TEST_F(Edit_History_Test, One_Act_On_Several_Folders_Is_One_Step) {
  const Texts before = Texts_Of(mine.copy);
  mine.type(Folder::airway, 1, 1, "9");
  mine.type(Folder::inlet, 1, 1, "2");
  Set_Fan_Field(mine.db, mine.copy, Fan_Page::limit_flow, "5000");
  history.note(mine.copy);
  mine.mark_clean();
  undo();
  EXPECT_EQ(Texts_Of(mine.copy), before);
  EXPECT_EQ(mine.edited(), (Folders{Folder::airway, Folder::inlet, Folder::mainfan}));
  EXPECT_FALSE(history.can_undo());
}

TEST_F(Edit_History_Test, Picture_Names_Behind_A_Row_Are_Kept) {
  Set_Picture_Name(mine.copy, Folder::node, 2, 3, "third.bmp");
  EXPECT_TRUE(history.note(mine.copy));
  undo();
  EXPECT_EQ(mine.copy.Node_PictGrid.at(2)[2], "");
  redo();
  EXPECT_EQ(mine.copy.Node_PictGrid.at(2)[2], "third.bmp");
}

TEST_F(Edit_History_Test, A_Place_Is_Inside_The_Grid) {
  mine.copy.grdRoot.select(5, 0, 5, 0);
  Paste_Folder(mine.db, mine.copy, Folder::airway, "6 -> 7\r7 -> 8\r");
  history.note(mine.copy);
  const std::optional<Edit_Place> place = undo();
  ASSERT_TRUE(place.has_value());
  EXPECT_EQ(place->row, 5);
  mine.copy.grdInlet.select(15, 1, 15, 1);
  Paste_Folder(mine.db, mine.copy, Folder::inlet, "\r6\r7\r");
  history.note(mine.copy);
  EXPECT_EQ(undo().value().row, 15);
  EXPECT_EQ(mine.copy.grdInlet.Rows(), 16);
}

TEST_F(Edit_History_Test, The_Fan_That_Has_Changed_Comes_To_The_Front) {
  for (int f = 2; f <= 4; ++f) {
    Add_Fan_Page(mine.db, mine.copy);
    history.note(mine.copy);
  }
  mine.copy.fan_in_front = 3;
  Set_Fan_Field(mine.db, mine.copy, Fan_Page::comment, "third");
  history.note(mine.copy);
  mine.copy.fan(3).grdMFan.set_text(7, fan_column::head, "9");
  history.note(mine.copy);
  EXPECT_EQ(undo(), (Edit_Place{.folder = Folder::mainfan, .row = 7, .col = 2, .fan = 3}));
  EXPECT_EQ(undo(), (Edit_Place{.folder = Folder::mainfan, .fan = 3, .field = Fan_Page::comment}));
  EXPECT_EQ(mine.copy.fan_in_front, 3);
  EXPECT_EQ(mine.copy.fan(3).text[Fan_Page::comment], "");
  EXPECT_EQ(undo().value().fan, 3);  // the page that came last is gone
  EXPECT_EQ(mine.copy.MFan_GridTotal, 3);
  EXPECT_EQ(mine.db.MFan_GridTotal, 3);
  EXPECT_EQ(redo().value().fan, 4);
  EXPECT_EQ(mine.db.MFan_GridTotal, 4);
}

TEST_F(Edit_History_Test, The_Only_Fan_Can_Go_And_Come_Back) {
  const Texts before = Texts_Of(mine.copy);
  Remove_Fan_Page(mine.db, mine.copy);
  history.note(mine.copy);
  undo();
  EXPECT_EQ(Texts_Of(mine.copy), before);
  EXPECT_EQ(mine.copy.fan_in_front, 1);
  redo();
  EXPECT_EQ(mine.copy.fan_in_front, 0);
  EXPECT_EQ(mine.db.MFan_GridTotal, 0);
}

TEST_F(Edit_History_Test, Starting_Anew_Forgets_All_Steps) {
  type(Folder::airway, 1, 2, "12");
  undo();
  history.start(mine.copy);
  EXPECT_FALSE(history.can_undo());
  EXPECT_FALSE(history.can_redo());
}

// What is kept is bounded: the oldest steps go, the newest can always be taken back.
TEST_F(Edit_History_Test, Many_Large_Steps_Forget_The_Oldest_Only) {
  std::string block;
  for (int row = 0; row < 2700; ++row) block += "1 -> 2\t1\r";
  std::string other = block;
  std::replace(other.begin(), other.end(), '2', '3');
  mine.copy.grdRoot.select(1, 0, 1, 0);
  constexpr int steps = 100;
  for (int n = 0; n < steps; ++n) {
    mine.copy.grdRoot.select(1, 0, 1, 0);
    Paste_Folder(mine.db, mine.copy, Folder::airway, n % 2 == 0 ? block : other);
    ASSERT_TRUE(history.note(mine.copy));
  }
  int undone = 0;
  while (undo().has_value()) {
    ++undone;
    ASSERT_EQ(mine.copy.grdRoot.text(2700, 0), (steps - undone) % 2 == 1 ? "1 -> 2" : "1 -> 3")
        << undone;
  }
  EXPECT_GE(undone, 20);
  EXPECT_LT(undone, steps);
}

// A step that can no longer be done again takes no room from those that can be taken back.
TEST_F(Edit_History_Test, Steps_Given_Up_Do_Not_Count) {
  std::string block;
  for (int row = 0; row < 2700; ++row) block += "1 -> 2\t1\r";
  type(Folder::airway, 1, 2, "11");
  for (int n = 0; n < 120; ++n) {
    mine.copy.grdRoot.select(1, 0, 1, 0);
    Paste_Folder(mine.db, mine.copy, Folder::airway, block);
    history.note(mine.copy);
    undo();
  }
  type(Folder::airway, 1, 2, "12");
  EXPECT_TRUE(undo().has_value());
  EXPECT_TRUE(undo().has_value());
  EXPECT_EQ(mine.copy.grdRoot.text(1, 2), "10.0");
}

// Every command on every folder, in any order: each state comes back to the last character.
class Random_Edits : public testing::TestWithParam<unsigned> {
 protected:
  int number(int low, int high) {
    return low + static_cast<int>(engine() % (static_cast<unsigned>(high - low) + 1U));
  }
  Folder any_folder() { return all_folders.at(static_cast<std::size_t>(number(0, 5))); }
  std::string any_text() {
    static const std::vector<std::string> texts = {
        "", " ", "1", "-2.5", "12 -> 34", "note", "\xc3\xa4", "\xff", "a\tb", "C", "x.bmp"};
    return texts[static_cast<std::size_t>(number(0, static_cast<int>(texts.size()) - 1))];
  }
  std::string any_block() {
    std::string text;
    for (int row = number(0, 6); row > 0; --row) {
      for (int col = number(0, 4); col > 0; --col) text += any_text() + '\t';
      text += any_text() + (number(0, 9) == 0 ? "" : "\r");
    }
    return text;
  }
  void select_any(Folder folder) {
    Text_Grid& grid = mine.copy.grid(folder);
    grid.select(number(0, grid.Rows() - 1), number(0, grid.Cols() - 1), number(0, grid.Rows() - 1),
                number(0, grid.Cols() - 1));
  }
  void edit() {
    const Folder folder = any_folder();
    select_any(folder);
    switch (number(0, 12)) {
      case 0:
      case 1:
      case 2:
        Commit_Cell(mine.db, mine.copy, folder, any_text());
        break;
      case 3:
        Paste_Folder(mine.db, mine.copy, folder, any_block());
        break;
      case 4:
        Paste_Insert(mine.db, mine.copy, any_block());
        break;
      case 5:
        Empty_Cells(mine.db, mine.copy, folder);
        break;
      case 6:
        Insert_Rows(mine.db, mine.copy, number(1, 4));
        break;
      case 7:
        Delete_Rows(mine.db, mine.copy, number(1, 4));
        break;
      case 8:
        Set_Winding(mine.db, mine.copy, number(0, 2));
        Set_Shape(mine.db, mine.copy, number(0, 3));
        break;
      case 9:
        Set_Kind(mine.db, mine.copy, number(0, 7));
        break;
      case 10:
        Add_Fan_Page(mine.db, mine.copy);
        break;
      case 11:
        if (number(0, 1) == 0) Remove_Fan_Page(mine.db, mine.copy);
        mine.copy.fan_in_front = std::min(mine.copy.fan_in_front, number(1, 15));
        break;
      default:
        edit_rarely();
        break;
    }
  }
  void edit_rarely() {
    if (mine.copy.fan_in_front > 0 && number(0, 1) == 0) {
      Set_Fan_Field(mine.db, mine.copy, number(1, Fan_Page::last_field), any_text());
      Set_Surface_Fan(mine.db, mine.copy, number(0, 1) == 1);
      mine.copy.fan(mine.copy.fan_in_front).pictures.at(1) = any_text();
      return;
    }
    Set_Picture_Name(mine.copy, Folder::airway, number(1, mine.copy.grdRoot.Rows() - 1),
                     number(1, 3), any_text());
  }

  std::mt19937 engine{GetParam()};
  Edit_Mine mine = Edit_Mine::Sample();
};

TEST_P(Random_Edits, All_States_Come_Back) {
  Edit_History history;
  history.start(mine.copy);
  std::vector<Texts> states = {Texts_Of(mine.copy)};
  for (int n = 0; n < 200; ++n) {
    edit();
    const bool differs = !(Texts_Of(mine.copy) == states.back());
    ASSERT_EQ(history.note(mine.copy), differs) << n;
    if (differs) states.push_back(Texts_Of(mine.copy));
  }
  ASSERT_GT(states.size(), 100U);
  for (int round = 0; round < 2; ++round) {
    for (std::size_t s = states.size() - 1; s > 0; --s) {
      ASSERT_TRUE(history.undo(mine.db, mine.copy).has_value());
      ASSERT_EQ(Texts_Of(mine.copy), states[s - 1]) << s;
    }
    ASSERT_FALSE(history.can_undo());
    for (std::size_t s = 1; s < states.size(); ++s) {
      ASSERT_TRUE(history.redo(mine.db, mine.copy).has_value());
      ASSERT_EQ(Texts_Of(mine.copy), states[s]) << s;
    }
    ASSERT_FALSE(history.can_redo());
  }
  EXPECT_EQ(mine.db.MFan_GridTotal, mine.copy.MFan_GridTotal);
}

INSTANTIATE_TEST_SUITE_P(Seeds, Random_Edits, testing::Range(1U, 9U));

}  // namespace
}  // namespace branok
