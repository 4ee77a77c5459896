// The graphic parameters on the screen.
#include "core/sample.h"
#include "dialog_test.h"
#include "support/generated_mine.h"
#include "ui/graphic_parameter_dialog.h"
#include "ui/value_grid.h"

namespace branok {
namespace {

constexpr int trans_ew = 0, rot_ver = 5, ns_times = 8, far_length = 10, dia_times = 11;

class Graphic_Parameter_Dialog : public Dialog_Test<DlgGPara> {
 protected:
  Graphic_Parameter_Dialog() : db(Make_Mine({.nodes = 30})) {
    Set_Default_Parameters(db);
    EXPECT_EQ(Graph_Range(db, graphic), "");
  }
  void open() {
    before = db;
    show(db, graphic, dialogue);
  }
  Value_Grid& grid() { return control<Value_Grid>("grdPara"); }
  // The open cell, or null. Closed ones live on, hidden, until the event loop comes round.
  QLineEdit* cell() {
    for (QLineEdit* editor : grid().findChildren<QLineEdit*>("txtEdit")) {
      if (!editor->isHidden()) return editor;
    }
    return nullptr;
  }
  void type_row(int row, const QString& typed) {
    grid().setCurrentCell(row, 1);
    QTest::keyClick(&grid(), Qt::Key_Return);
    cell()->selectAll();
    QTest::keyClick(cell(), Qt::Key_Delete);
    QTest::keyClicks(cell(), typed);
    QTest::keyClick(cell(), Qt::Key_Return);
  }
  void refused(int row, const QString& typed, const std::string& message) {
    SCOPED_TRACE(typed.toStdString());
    dialogue.shown.clear();
    open();
    type_row(row, typed);
    press("cmdOK");
    ASSERT_EQ(dialogue.shown.size(), 1U);
    EXPECT_EQ(dialogue.shown[0].text, message);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_EQ(grid().currentRow(), row);
    ASSERT_NE(cell(), nullptr);
    EXPECT_EQ(cell()->selectedText(), typed);
    EXPECT_EQ(db, before);
  }

  Database db, before;
  Graphic graphic;
};

TEST_F(Graphic_Parameter_Dialog, Shows_Captions_And_Values) {
  db.GPara_TransNS = -50;
  db.GPara_FarLength = 1499.6;
  db.GPara_NSTimes = 1.25F;
  open();
  EXPECT_TRUE(dialog->isModal());
  ASSERT_EQ(grid().rowCount(), 12);
  EXPECT_EQ(grid().item(0, 0)->text(), "Trans. E-W Range(m)  /2");
  EXPECT_EQ(grid().item(5, 0)->text(), "Rotate Ver.Ax.Range(deg.)/2");
  EXPECT_EQ(grid().item(11, 0)->text(), "Airway Diameter Times");
  const char* const values[] = {"1000", "-50", "1000", "90",  "90",   "180",
                                "0",    "1.0", "1.3",  "1.0", "1500", "2"};
  for (int row = 0; row < 12; ++row) EXPECT_EQ(grid().value(row), values[row]) << row;
}

TEST_F(Graphic_Parameter_Dialog, Ok_Stores_What_Was_Typed_And_Leaves_The_Rest) {
  db.GPara_FarLength = 1499.6;
  open();
  type_row(trans_ew, "1234");
  type_row(rot_ver, "45");
  type_row(ns_times, "2.5");
  type_row(dia_times, "3");
  EXPECT_EQ(db, before);
  press("cmdOK");
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  Database expected = before;
  expected.GPara_TransEW = 1234;
  expected.GPara_RotVer = 45;
  expected.GPara_NSTimes = 2.5F;
  expected.GPara_DiaTimes = 3;
  EXPECT_EQ(db, expected);
  EXPECT_TRUE(dialogue.shown.empty());
}

TEST_F(Graphic_Parameter_Dialog, Ok_Takes_The_Open_Cell) {
  open();
  grid().setCurrentCell(far_length, 1);
  QTest::keyClicks(&grid(), "7");
  QTest::keyClicks(cell(), "00");
  press("cmdOK");
  EXPECT_EQ(db.GPara_FarLength, 700);
}

TEST_F(Graphic_Parameter_Dialog, Default_Shows_It_And_Stores_It_With_Ok) {
  db.GPara_EWTimes = 7;
  db.GPara_TransZ = 1;
  open();
  type_row(dia_times, "9");
  Database standard = db;
  Gpara_Default(standard, graphic);
  press("cmdDefault");
  EXPECT_EQ(db, before);
  EXPECT_EQ(grid().value(dia_times), "2");
  press("cmdCancel");
  EXPECT_EQ(db, before);
  open();
  type_row(dia_times, "9");
  key(Qt::Key_D, Qt::AltModifier);
  EXPECT_TRUE(QTest::qWaitFor([this] { return grid().value(dia_times) == "2"; }));
  press("cmdOK");
  EXPECT_EQ(db, standard);
}

TEST_F(Graphic_Parameter_Dialog, A_Wrong_Row_Is_Told_And_Opens_Again) {
  refused(trans_ew, "wide", "Please input numeric data.");
  refused(dia_times, "", "Please input numeric data.");
  refused(trans_ew, "2147483648",
          "'Trans. E-W Range' Column in Graphic Parameter The value should be from -2147483648  "
          "to  2147483647 .\nChange value !");
  refused(rot_ver, "32768",
          "'Rotate Ver.Ax.Range' Column in Graphic Parameter The value should be from -32768  to  "
          "32767 .\nChange value !");
  refused(ns_times, "0",
          "'N-S  Times' Column in Graphic Parameter The value should be from 0.1  to  100.0 .\n"
          "Change value !");
  EXPECT_TRUE(dialogue.remarks.empty());
  refused(ns_times, "1,5", "Please input numeric data.");
  EXPECT_EQ(dialogue.remarks, std::vector<std::string>{"The decimal sign is a point: 12.5"});
}

TEST_F(Graphic_Parameter_Dialog, Cancel_Escape_And_Closing_Leave_All) {
  const std::function<void()> ends[] = {[this] { press("cmdCancel"); },
                                        [this] { QTest::keyClick(&grid(), Qt::Key_Escape); },
                                        [this] { dialog->close(); }};
  for (const auto& end : ends) {
    open();
    type_row(trans_ew, "5");
    end();
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_EQ(db, before);
  }
}

TEST_F(Graphic_Parameter_Dialog, The_Default_Of_The_Widest_Mine_Is_A_Number) {
  graphic.Range_EWMin = -2147483647;
  graphic.Range_EWMax = 2147483647;
  db.Range_ZMax = 32767;
  open();
  press("cmdDefault");
  EXPECT_TRUE(dialogue.shown.empty());
  EXPECT_EQ(grid().value(trans_ew), "2147483647");
}

// A plan is drawn with what the dialog takes, up to its bounds.
TEST_F(Graphic_Parameter_Dialog, The_Plan_Can_Be_Drawn_With_The_Smallest_And_Largest_Factors) {
  for (const char* ew : {"0.1", "100"}) {
    for (const char* ns : {"0.1", "100"}) {
      open();
      type_row(ns_times - 1, ew);
      type_row(ns_times, ns);
      press("cmdOK");
      ASSERT_EQ(Graph_Range(db, graphic), "");
      EXPECT_EQ(Graph_Project_2dh(db, graphic), "");
    }
  }
}

}  // namespace
}  // namespace branok
