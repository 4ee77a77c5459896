// The level band on the screen.
#include "dialog_test.h"
#include "drawing/level_band.h"
#include "ui/level_dialog.h"

namespace branok {
namespace {

class Level_Dialog : public Dialog_Test<DlgLevel> {
 protected:
  Level_Dialog() {
    db.Range_ZMin = -300;
    db.Range_ZMax = 200;
    graphic.Band_Low = -77;
    graphic.Band_High = 88;
  }
  void open() { show(db, graphic, dialogue); }
  void expect_band(int low, int high) {
    EXPECT_EQ(graphic.Band_Low, low);
    EXPECT_EQ(graphic.Band_High, high);
  }
  bool shown(int level) {
    db.Node_Elev[1] = static_cast<std::int16_t>(level);
    return In_Band(db, graphic, 1);
  }
  Database db;
  Graphic graphic;
};

constexpr auto high_refused =
    "'Level high' Box in Level Band The value should be from -300  to  200 .\nChange value !";
constexpr auto low_refused =
    "'Level low' Box in Level Band The value should be from -300  to  200 .\nChange value !";

TEST_F(Level_Dialog, Opens_With_The_Range_Of_The_Mine) {
  open();
  EXPECT_EQ(dialog->windowTitle(), "Level Band");
  EXPECT_TRUE(dialog->isModal());
  EXPECT_EQ(captions(), QStringList({"1 . & Level high|txtLevel0", "2 .  &Level   low|txtLevel1"}));
  EXPECT_EQ(text("txtLevel0"), "200");
  EXPECT_EQ(text("txtLevel1"), "-300");
  expect_band(200, -300);
  EXPECT_TRUE(entry("txtLevel0").hasFocus());
  EXPECT_EQ(entry("txtLevel0").selectedText(), "200");
}

TEST_F(Level_Dialog, Ok_Takes_The_Band_By_Mouse_And_By_Enter) {
  open();
  type("txtLevel0", "100");
  type("txtLevel1", "-50");
  press("cmdOK");
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  expect_band(100, -50);
  open();
  type("txtLevel0", "90");
  key(Qt::Key_Tab);
  QTest::keyClicks(dialog->focusWidget(), "-40");
  key(Qt::Key_Return);
  EXPECT_FALSE(dialog->isVisible());
  expect_band(90, -40);
  EXPECT_TRUE(dialogue.shown.empty());
}

TEST_F(Level_Dialog, Ok_At_Once_Shows_The_Whole_Mine) {
  open();
  press("cmdOK");
  EXPECT_TRUE(shown(-300) && shown(200));
}

TEST_F(Level_Dialog, Levels_May_Be_Swapped) {
  open();
  type("txtLevel0", "-50");
  type("txtLevel1", "100");
  press("cmdOK");
  expect_band(100, -50);
  EXPECT_TRUE(shown(-50) && shown(0) && shown(100));
  EXPECT_FALSE(shown(-51) || shown(101));
}

TEST_F(Level_Dialog, One_Level_Shows_Its_Nodes) {
  for (const int level : {40, 200, -300}) {
    open();
    type("txtLevel0", QString::number(level));
    type("txtLevel1", QString::number(level));
    press("cmdOK");
    expect_band(level + 1, level - 1);
    EXPECT_TRUE(shown(level));
    EXPECT_FALSE(shown(level + 2) || shown(level - 2));
  }
}

TEST_F(Level_Dialog, What_Is_No_Level_Of_The_Mine_Is_Told) {
  for (const char* typed : {"201", "-301", "deep", "1,5", ""}) {
    SCOPED_TRACE(typed);
    open();
    type("txtLevel0", typed);
    type("txtLevel1", "nothing");
    refused_at("txtLevel0", high_refused);
    type("txtLevel0", "0");
    type("txtLevel1", typed);
    refused_at("txtLevel1", low_refused);
    expect_band(200, -300);
    EXPECT_EQ(text("txtLevel0"), "0");
    key(Qt::Key_Escape);
    expect_band(-77, 88);
  }
}

TEST_F(Level_Dialog, Cancel_Escape_And_Closing_Leave_The_Band) {
  const std::function<void()> ends[] = {
      [this] { press("cmdCancel"); }, [this] { key(Qt::Key_Escape); }, [this] { dialog->close(); }};
  for (const auto& end : ends) {
    open();
    type("txtLevel0", "100");
    end();
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    expect_band(-77, 88);
  }
  EXPECT_TRUE(dialogue.shown.empty());
}

TEST_F(Level_Dialog, The_Keyboard_Goes_Through_All_Controls) {
  open();
  EXPECT_EQ(tab_order(), QStringList({"txtLevel0", "txtLevel1", "cmdOK", "cmdCancel"}));
  key(Qt::Key_L, Qt::AltModifier);
  EXPECT_TRUE(entry("txtLevel1").hasFocus());
}

TEST_F(Level_Dialog, A_Level_Copied_With_Its_Line_End_Is_A_Number) {
  open();
  type("txtLevel0", "");
  entry("txtLevel0").insert("100\r\n");
  press("cmdOK");
  expect_band(100, -300);
}

}  // namespace
}  // namespace branok
