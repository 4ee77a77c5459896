// The data options on the screen.
#include <gtest/gtest.h>

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <memory>

#include "support/generated_mine.h"
#include "support/test_doors.h"
#include "ui/data_option_dialog.h"

namespace branok {
namespace {

class Data_Options : public testing::Test {
 protected:
  Data_Options() : db(Make_Mine({.nodes = 8})) {
    db.Root_TypeMark = {40000, 20000, 10000, 200};
    Refresh_Regulator_Classes(db);
  }

  void open() {
    dialog = std::make_unique<DlgData_Option>(db, dialogue);
    dialog->show();
    dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
  }
  template <class Control>
  Control& control(const QString& name) {
    auto* const found = dialog->findChild<Control*>(name);
    if (found == nullptr) throw std::runtime_error(name.toStdString());
    return *found;
  }
  QLineEdit& mark(int k) { return control<QLineEdit>(QString("ResRange%1").arg(k)); }
  bool checked(const QString& name) { return control<QRadioButton>(name).isChecked(); }
  void choose(const QString& name) { control<QRadioButton>(name).setChecked(true); }
  void press(const QString& name) {
    QTest::mouseClick(&control<QPushButton>(name), Qt::LeftButton);
  }
  void type(int k, const QString& text) {
    mark(k).setFocus();
    mark(k).selectAll();
    QTest::keyClicks(&mark(k), text);
  }

  // The text of mark k is refused, and the dialog waits there.
  void refused(int k, const QString& text, const std::string& message) {
    const Database before = db;
    dialogue.shown.clear();
    type(k, text);
    press("cmdOK");
    ASSERT_EQ(dialogue.shown.size(), 1U) << text.toStdString();
    EXPECT_EQ(dialogue.shown[0].text, message);
    EXPECT_TRUE(dialog->isVisible());
    EXPECT_TRUE(mark(k).hasFocus());
    EXPECT_EQ(mark(k).selectedText(), text);
    EXPECT_EQ(db, before);
  }

  Database db;
  Test_Dialogue dialogue;
  std::unique_ptr<DlgData_Option> dialog;
};

TEST_F(Data_Options, Frames_And_Options_Have_Their_Texts) {
  open();
  EXPECT_EQ(dialog->windowTitle(), "Data Range Option");
  EXPECT_TRUE(dialog->isModal());
  QStringList frames;
  for (const QGroupBox* frame : dialog->findChildren<QGroupBox*>()) frames << frame->title();
  EXPECT_EQ(frames, QStringList({"Move Selection after Enter", "Grid Selection",
                                 "Calculation Option", "Resistance Range [Murgue] VS. CAD Mark"}));
  QStringList options;
  for (const QRadioButton* option : dialog->findChildren<QRadioButton*>()) {
    options << option->objectName() + " " + option->text();
  }
  EXPECT_EQ(options,
            QStringList({"Move_sel0 Down", "Move_sel1 Right", "Op_GridSel0 Individual Cells",
                         "Op_GridSel1 Selection by Row", "Op_GridSel2 Selection by Column",
                         "Op_CalRange0 All Airways", "Op_CalRange1 One Airway"}));
  QStringList labels;
  for (const QLabel* label : dialog->findChildren<QLabel*>()) labels << label->text();
  for (const char* text :
       {"Selection of Airways Grid Cells",
        "Calculation Airways for Length, Perimeter, Resistance, Friction Factor", "Stopping",
        "Double Doors", "Single Door", "Regulator", "Ordinary Airway"}) {
    EXPECT_TRUE(labels.contains(text)) << text;
  }
}

TEST_F(Data_Options, Show_What_The_Mine_Holds) {
  open();
  EXPECT_TRUE(checked("Move_sel0"));
  EXPECT_TRUE(checked("Op_GridSel0"));
  EXPECT_TRUE(checked("Op_CalRange1"));
  db.Opt_MoveSel = 1;
  db.Opt_GridSel = 2;
  db.Opt_CalRange = -1;
  db.Root_TypeMark = {50000, 30000.5F, 7, 0.1F};
  open();
  EXPECT_TRUE(checked("Move_sel1"));
  EXPECT_TRUE(checked("Op_GridSel2"));
  EXPECT_TRUE(checked("Op_CalRange0"));
  EXPECT_EQ(mark(0).text(), "50000");
  EXPECT_EQ(mark(1).text(), "30000.5");
  EXPECT_EQ(mark(2).text(), "7");
  EXPECT_EQ(mark(3).text(), "0.1");
}

TEST_F(Data_Options, Ok_Stores_Each_Option) {
  for (const auto& [move, grid, range, stored_range] :
       {std::tuple(1, 1, 0, -1), std::tuple(0, 2, 1, 0), std::tuple(1, 0, 0, -1)}) {
    open();
    choose(QString("Move_sel%1").arg(move));
    choose(QString("Op_GridSel%1").arg(grid));
    choose(QString("Op_CalRange%1").arg(range));
    press("cmdOK");
    EXPECT_EQ(dialog->result(), QDialog::Accepted);
    EXPECT_EQ(db.Opt_MoveSel, move);
    EXPECT_EQ(db.Opt_GridSel, grid);
    EXPECT_EQ(db.Opt_CalRange, stored_range);
  }
  EXPECT_TRUE(dialogue.shown.empty());
}

TEST_F(Data_Options, Cancel_And_Escape_Leave_Everything) {
  const Database before = db;
  for (const bool escape : {false, true}) {
    open();
    choose("Move_sel1");
    choose("Op_GridSel1");
    choose("Op_CalRange0");
    type(0, "60000");
    press("Com_Default");
    type(3, "no number");
    if (escape) {
      QTest::keyClick(&mark(3), Qt::Key_Escape);
    } else {
      press("cmdCancel");
    }
    EXPECT_EQ(dialog->result(), QDialog::Rejected);
    EXPECT_FALSE(dialog->isVisible());
    EXPECT_EQ(db, before);
  }
  EXPECT_TRUE(dialogue.shown.empty());
}

TEST_F(Data_Options, New_Marks_Give_New_Regulator_Classes) {
  const int far = db.Node_Junc(1, 1);
  Set_Both(db, db.Root_Resist, 1, far, 15000.0F);
  Refresh_Regulator_Classes(db);
  ASSERT_EQ(db.Root_Type(1, 1), 1);
  open();
  type(1, "15000");
  type(3, "150.4");
  QTest::keyClick(&mark(3), Qt::Key_Return);
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  EXPECT_EQ(db.Root_TypeMark, (std::array<float, 4>{40000, 15000, 10000, 150}));
  EXPECT_EQ(db.Root_Type(1, 1), 4);
  EXPECT_EQ(db.Root_Type(Find_Slot(db, far, 1), far), 4);
}

TEST_F(Data_Options, Default_Restores_The_Marks_In_The_Dialog) {
  db.Root_TypeMark = {5, 4, 3, 2};
  open();
  press("Com_Default");
  EXPECT_EQ(db.Root_TypeMark[0], 5);
  EXPECT_EQ(mark(0).text(), "40000");
  press("cmdOK");
  EXPECT_EQ(db.Root_TypeMark, (std::array<float, 4>{40000, 20000, 10000, 200}));
}

TEST_F(Data_Options, A_Wrong_Mark_Is_Told_And_Selected) {
  open();
  for (const char* text : {"much", "1,5", "12 000"}) {
    refused(0, text, "Please input numeric data.");
  }
  refused(0, "0", "'Stopping' Box in Data Range Option\nPlease Input Positive Value.");
  refused(0, "-3", "'Stopping' Box in Data Range Option\nPlease Input Positive Value.");
  refused(0, "10000000",
          "'Stopping' Box in Data Range Option The value should be from 4  to  9999999 .\n"
          "Change value !");
  refused(0, "3",
          "'Stopping' Box in Data Range Option The value should be from 4  to  9999999 .\n"
          "Change value !");
  type(0, "9999999");
  refused(1, "9999999",
          "'Double Doors' Box in Data Range Option The value should be from 3  to  9999998 .\n"
          "Change value !");
  type(1, "20000");
  refused(2, "20000",
          "'Single Door' Box in Data Range Option The value should be from 2  to  19999 .\n"
          "Change value !");
  type(2, "19999");
  refused(3, "30000",
          "'Regulator' Box in Data Range Option The value should be from 1  to  19998 .\n"
          "Change value !");
  refused(3, "0.4", "'Regulator' Box in Data Range Option\nPlease Input Positive Value.");
  type(3, "1");
  press("cmdOK");
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  EXPECT_EQ(db.Root_TypeMark, (std::array<float, 4>{9999999, 20000, 19999, 1}));
}

TEST_F(Data_Options, A_Blank_Mark_Is_No_Number) {
  open();
  const Database before = db;
  mark(2).clear();
  press("cmdOK");
  ASSERT_EQ(dialogue.shown.size(), 1U);
  EXPECT_EQ(dialogue.shown[0].text, "Please input numeric data.");
  EXPECT_TRUE(mark(2).hasFocus());
  EXPECT_EQ(db, before);
}

TEST_F(Data_Options, Marks_Of_A_File_That_Are_Left_Alone_Stay) {
  db.Root_TypeMark = {100, 200, 200, -1.5F};
  const auto marks = db.Root_TypeMark;
  open();
  choose("Move_sel1");
  press("cmdOK");
  EXPECT_EQ(dialog->result(), QDialog::Accepted);
  EXPECT_EQ(db.Opt_MoveSel, 1);
  EXPECT_EQ(db.Root_TypeMark, marks);
}

TEST_F(Data_Options, The_Keyboard_Goes_Through_All_Controls) {
  open();
  control<QRadioButton>("Move_sel0").setFocus();
  QStringList order;
  for (int k = 0; k < 10; ++k) {
    order << dialog->focusWidget()->objectName();
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Tab);
  }
  EXPECT_EQ(order,
            QStringList({"Move_sel0", "Op_GridSel0", "Op_CalRange1", "ResRange0", "ResRange1",
                         "ResRange2", "ResRange3", "Com_Default", "cmdOK", "cmdCancel"}));
}

}  // namespace
}  // namespace branok
