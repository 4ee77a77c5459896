// The Database and Edit menus in the program's window: from typing to the analysis.
#include <QClipboard>
#include <QContextMenuEvent>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTabWidget>

#include "files/project.h"
#include "main_window_test.h"
#include "prep/check.h"
#include "support/generated_mine.h"
#include "support/test_doors.h"
#include "ui/edit_grid.h"

namespace branok {
namespace {

class Database_Commands : public Main_Window {
 protected:
  [[nodiscard]] Database& db() const { return window_->project().db; }
  [[nodiscard]] QTabWidget* tabs() const { return control<QTabWidget>("tabData"); }
  [[nodiscard]] Edit_Grid* grid(const QString& name) const { return control<Edit_Grid>(name); }
  [[nodiscard]] QString cell(const QString& name, int row, int col) const {
    const QAbstractItemModel* const model = grid(name)->model();
    return model->index(row - 1, col).data().toString();
  }

  // Turns to a page and gives its grid the keyboard at a cell.
  Edit_Grid* at(int page, const QString& name, int row, int col) {
    tabs()->setCurrentIndex(page);
    Edit_Grid* const view = grid(name);
    view->setFocus();
    view->setCurrentIndex(view->model()->index(row - 1, col));
    return view;
  }

  // Types a text into the current cell and ends it with Enter.
  static void type(Edit_Grid* view, const QString& text) {
    if (text.isEmpty()) {
      QTest::keyClick(view, Qt::Key_Delete);
      return;
    }
    QTest::keyClick(view, text[0].toLatin1());
    QTest::keyClicks(view->editor(), text.mid(1));
    QTest::keyClick(view->editor(), Qt::Key_Return);
  }
  void type_at(int page, const QString& name, int row, int col, const QString& text) {
    type(at(page, name, row, col), text);
  }

  enum Page { basic, airways, nodes, intake, main_fans, assist_fans, thermal };
};

TEST_F(Database_Commands, File_New_Shows_The_Sample_Network) {
  give("mnuFileComNew");
  ASSERT_NE(control<QWidget>("MDIData"), nullptr);
  EXPECT_EQ(window_->window_tag(), "database");
  EXPECT_TRUE(action("mnuDataCom")->isVisible());
  EXPECT_FALSE(action("mnuAnalysisCom")->isVisible());
  EXPECT_EQ(cell("grdRoot", 1, 0), "  1 ->   2");
  EXPECT_EQ(cell("grdRoot", 4, 0), "  4 ->   5");
  EXPECT_EQ(grid("grdNode")->model()->rowCount(), 5);
}

TEST_F(Database_Commands, Row_Commands_Are_For_The_Airway_Grid_Alone) {
  give("mnuFileComNew");
  at(airways, "grdRoot", 1, 1);
  EXPECT_EQ(window_->edit_tag(), "airway");
  for (const char* const name : {"mnuEditComPasteIns", "mnuEditComInsert1", "mnuEditComDel1",
                                 "mnuEditComInserts", "mnuEditComDels"}) {
    EXPECT_TRUE(action(name)->isEnabled()) << name;
  }
  at(nodes, "grdNode", 1, 1);
  EXPECT_EQ(window_->edit_tag(), "node");
  for (const char* const name : {"mnuEditComPasteIns", "mnuEditComInsert1", "mnuEditComDel1",
                                 "mnuEditComInserts", "mnuEditComDels"}) {
    EXPECT_FALSE(action(name)->isEnabled()) << name;
  }
  EXPECT_TRUE(action("mnuEditComCut")->isEnabled());
  tabs()->setCurrentIndex(basic);
  control<QLineEdit>("txtMine")->setFocus();
  EXPECT_EQ(window_->edit_tag(), "datatextM");
  control<QLineEdit>("txtTime")->setFocus();
  EXPECT_EQ(window_->edit_tag(), "datatextT");
}

TEST_F(Database_Commands, Typing_Clears_The_Results_At_Once_And_A_Paste_Does_Not) {
  give("mnuFileComNew");
  give("mnuWinSelCom1");
  give("mnuAnalysisComPress");
  ASSERT_NE(db().Flag_Results, 0);
  ASSERT_GT(rows("grdPress").size(), 0U);
  give("mnuWinSelCom0");
  at(airways, "grdRoot", 1, 1);
  QApplication::clipboard()->setText("2.00\n");
  give("mnuEditComPaste");
  EXPECT_EQ(cell("grdRoot", 1, 1), "2.00");
  EXPECT_EQ(db().Edit_Root, 1);
  EXPECT_NE(db().Flag_Results, 0);
  type_at(airways, "grdRoot", 1, 1, "3.00");
  EXPECT_EQ(db().Flag_Results, 0);
  EXPECT_EQ(rows("grdPress").size(), 0U);  // the Analysis window shows it
  EXPECT_EQ(status("stbResults"), "No results");
}

TEST_F(Database_Commands, A_Checked_Paste_Makes_The_Results_Out_Of_Date) {
  give("mnuFileComNew");
  give("mnuWinSelCom1");
  give("mnuAnalysisComPress");
  give("mnuWinSelCom0");
  at(airways, "grdRoot", 1, 1);
  QApplication::clipboard()->setText("2.00\n");
  give("mnuEditComPaste");
  give("mnuDataComCheck");
  EXPECT_TRUE(user_.saw("The data are all right !"));
  EXPECT_NE(db().Flag_Results, 0);
  EXPECT_TRUE(results().contains("the network was changed")) << qPrintable(results());
}

TEST_F(Database_Commands, A_Fault_Is_Pointed_At) {
  give("mnuFileComNew");
  type_at(airways, "grdRoot", 3, 2, "0.0005");
  tabs()->setCurrentIndex(basic);
  give("mnuDataComCheck");
  EXPECT_TRUE(
      user_.saw("'Area' Column in Airway Folder The value should be from 0.001  to  1000 ."));
  EXPECT_TRUE(user_.saw("Please input airway  data on row No.3"));
  EXPECT_EQ(tabs()->currentIndex(), airways);
  EXPECT_EQ(grid("grdRoot")->currentIndex().row(), 2);
  EXPECT_EQ(grid("grdRoot")->currentIndex().column(), 2);
  EXPECT_EQ(cell("grdRoot", 3, 2), "0.0005");
}

TEST_F(Database_Commands, A_New_Airway_Is_Asked_About_And_Analysed) {
  give("mnuFileComNew");
  type_at(airways, "grdRoot", 5, 0, "5 - 2");
  user_.boxes.clear();
  give("mnuDataComCheck");
  EXPECT_TRUE(user_.saw("Add airway is 2 -> 5."));
  EXPECT_TRUE(user_.saw("The data are all right !"));
  EXPECT_GT(Find_Slot(db(), 2, 5), 0);
  EXPECT_EQ(cell("grdRoot", 3, 0), "  2 ->   5");  // in its order
  EXPECT_EQ(cell("grdRoot", 3, 1), "1.43E+00");    // with the defaults
  EXPECT_EQ(db().Check_Count, 1);
  give("mnuWinSelCom1");
  give("mnuAnalysisComPress");
  EXPECT_NE(db().Flag_Results, 0);
}

TEST_F(Database_Commands, Undo_And_Redo_Go_Step_By_Step_And_A_Check_Ends_Them) {
  give("mnuFileComNew");
  EXPECT_FALSE(action("mnuEditComUndo")->isEnabled());
  type_at(airways, "grdRoot", 1, 4, "250");
  type_at(airways, "grdRoot", 2, 4, "300");
  at(airways, "grdRoot", 1, 1);
  give("mnuEditComDel1");
  EXPECT_EQ(cell("grdRoot", 1, 4), "300");
  ASSERT_TRUE(action("mnuEditComUndo")->isEnabled());
  give("mnuEditComUndo");
  EXPECT_EQ(cell("grdRoot", 1, 4), "250");
  give("mnuEditComUndo");
  EXPECT_EQ(cell("grdRoot", 2, 4), "100");
  give("mnuEditComUndo");
  EXPECT_EQ(cell("grdRoot", 1, 4), "100");
  EXPECT_FALSE(action("mnuEditComUndo")->isEnabled());
  give("mnuEditComRedo");
  EXPECT_EQ(cell("grdRoot", 1, 4), "250");
  EXPECT_TRUE(action("mnuEditComRedo")->isEnabled());
  give("mnuDataComCheck");
  EXPECT_FALSE(action("mnuEditComUndo")->isEnabled());
  EXPECT_FALSE(action("mnuEditComRedo")->isEnabled());
}

TEST_F(Database_Commands, Cut_And_Paste_Insert_Move_An_Airway) {
  give("mnuFileComNew");
  Edit_Grid* const view = at(airways, "grdRoot", 1, 0);
  QTest::keyClick(view, Qt::Key_End, Qt::ShiftModifier);
  give("mnuEditComCut");
  EXPECT_EQ(cell("grdRoot", 1, 0), "");
  EXPECT_EQ(db().Edit_Root, 1);
  at(airways, "grdRoot", 3, 0);
  give("mnuEditComPasteIns");
  EXPECT_EQ(cell("grdRoot", 3, 0), "  1 ->   2");
  EXPECT_EQ(cell("grdRoot", 4, 0), "  3 ->   4");
}

TEST_F(Database_Commands, Row_Commands_Mean_The_Current_Row_In_Every_Selection_Mode) {
  for (const std::int16_t mode : {0, 1, 2}) {
    user_.answers = {QMessageBox::Yes};
    give("mnuFileComNew");
    db().Opt_GridSel = mode;
    grid("grdRoot")->apply_options();
    at(airways, "grdRoot", 3, 4);
    give("mnuEditComDel1");
    EXPECT_EQ(cell("grdRoot", 1, 0), "  1 ->   2") << mode;
    EXPECT_EQ(cell("grdRoot", 3, 0), "  4 ->   5") << mode;
    at(airways, "grdRoot", 2, 4);
    give("mnuEditComInsert1");
    EXPECT_EQ(cell("grdRoot", 2, 0), "") << mode;
    EXPECT_EQ(cell("grdRoot", 3, 0), "  2 ->   3") << mode;
    QApplication::clipboard()->setText("99\n");
    at(airways, "grdRoot", 2, 4);
    give("mnuEditComPasteIns");
    EXPECT_EQ(cell("grdRoot", 2, 4), "99") << mode;
    EXPECT_EQ(cell("grdRoot", 3, 0), "") << mode;
  }
}

TEST_F(Database_Commands, A_Copied_Cell_Is_Pasted_Into_A_Field_Without_Its_Line_End) {
  give("mnuFileComNew");
  at(main_fans, "grdMFan", 2, 1);
  give("mnuEditComCopy");
  auto* const limit = control<QLineEdit>("txtData5");
  limit->setFocus();
  limit->selectAll();
  give("mnuEditComPaste");
  EXPECT_EQ(limit->text(), "2000.0");
  control<QLineEdit>("txtData6")->setFocus();
  EXPECT_EQ(limit->text(), "2000");
  tabs()->setCurrentIndex(basic);
  auto* const name = control<QLineEdit>("txtMine");
  name->setFocus();
  name->selectAll();
  QApplication::clipboard()->setText("a\tb\nc\n");
  QTest::keyClick(name, Qt::Key_V, Qt::ControlModifier);
  EXPECT_EQ(name->text(), "a b c");
  EXPECT_EQ(db().Mine_Name, "a b c");
}

TEST_F(Database_Commands, Undo_In_An_Untouched_Field_Is_The_Grids_Undo) {
  give("mnuFileComNew");
  type_at(airways, "grdRoot", 1, 4, "250");
  tabs()->setCurrentIndex(basic);
  auto* const name = control<QLineEdit>("txtMine");
  name->setFocus();
  ASSERT_TRUE(action("mnuEditComUndo")->isEnabled());
  QTest::keyClick(name, 'x');
  EXPECT_TRUE(action("mnuEditComUndo")->isEnabled());
  QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_FALSE(name->text().contains('x'));
  EXPECT_EQ(cell("grdRoot", 1, 4), "250");
  QTest::keyClick(name, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(cell("grdRoot", 1, 4), "100");
  EXPECT_EQ(tabs()->currentIndex(), airways);
}

TEST_F(Database_Commands, In_A_Small_Window_Every_Page_Fits_Into_It) {
  give("mnuFileComNew");
  window_->resize(500, 350);
  QTest::qWait(50);
  auto* const area = window_->findChild<QMdiArea*>();
  for (int page = 0; page < tabs()->count(); ++page) {
    tabs()->setCurrentIndex(page);
    QTest::qWait(20);
    const QSize frame = area->subWindowList().first()->size();
    EXPECT_LE(frame.width(), area->viewport()->width()) << page;
    EXPECT_LE(frame.height(), area->viewport()->height()) << page;
  }
}

TEST_F(Database_Commands, The_Chosen_Font_Is_That_Of_The_Whole_Window) {
  give("mnuFileComNew");
  user_.dialogs.push_back([](QDialog& dialog) {
    dialog.setProperty("currentFont", QFont("DejaVu Serif", 15));
    dialog.accept();
  });
  give("mnuOptionComFont");
  for (const char* const name : {"grdRoot", "grdMFan", "txtMine", "txtData1", "lblTitle1"}) {
    EXPECT_EQ(control<QWidget>(name)->font().pointSize(), 15) << name;
  }
}

TEST_F(Database_Commands, A_Window_That_Comes_Back_Has_The_Keyboard_Where_It_Was) {
  open(mine("mine-a.abk"));  // the Analysis window comes up
  give("mnuWinSelCom0");
  QTest::qWait(50);
  at(airways, "grdRoot", 3, 4);
  give("mnuWinSelCom1");
  QTest::qWait(50);  // the other window is on the screen
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
  QTest::qWait(50);
  give("mnuWinSelCom0");
  QTest::qWait(50);
  QTRY_VERIFY_WITH_TIMEOUT(grid("grdRoot")->hasFocus(), 2000);
  EXPECT_EQ(grid("grdRoot")->currentIndex().row(), 2);
  QTest::keyClick(QApplication::focusWidget(), '7');
  EXPECT_EQ(grid("grdRoot")->editor()->text(), "7");
}

TEST_F(Database_Commands, The_Edit_Menu_Comes_Up_Beside_A_Cell) {
  give("mnuFileComNew");
  at(airways, "grdRoot", 3, 4);
  QMenu* const menu = window_->findChild<QMenu*>("mnuEditCom");
  QContextMenuEvent event(QContextMenuEvent::Keyboard, {5, 5}, {5, 5});
  QApplication::sendEvent(grid("grdRoot")->viewport(), &event);
  EXPECT_TRUE(menu->isVisible());
  menu->close();
}

TEST_F(Database_Commands, What_A_Stopped_Check_Has_Taken_In_Does_Not_Go_Unasked) {
  give("mnuFileComNew");
  type_at(airways, "grdRoot", 1, 4, "250");
  type_at(intake, "grdInlet", 1, 1, "abc");
  give("mnuDataComCheck");
  type_at(intake, "grdInlet", 1, 1, "1");
  user_.boxes.clear();
  give("mnuFileComNew");
  EXPECT_TRUE(user_.saw("The edited Data may be lost."));
  EXPECT_EQ(cell("grdRoot", 1, 4), "250");
}

TEST_F(Database_Commands, A_Field_That_Only_Shows_Is_Not_Pasted_Into) {
  give("mnuFileComNew");
  tabs()->setCurrentIndex(main_fans);
  auto* const discharge = control<QLineEdit>("txtData2");
  ASSERT_TRUE(discharge->isReadOnly());
  discharge->setFocus(Qt::MouseFocusReason);
  QApplication::clipboard()->setText("77");
  EXPECT_FALSE(action("mnuEditComPaste")->isEnabled());
  action("mnuEditComPaste")->setEnabled(true);
  give("mnuEditComPaste");
  EXPECT_EQ(discharge->text(), "5");
}

TEST_F(Database_Commands, Without_A_Fan_There_Is_No_Diagram) {
  give("mnuFileComNew");
  tabs()->setCurrentIndex(main_fans);
  user_.answers = {QMessageBox::Yes};
  control<QAbstractButton>("cmdMinus")->click();
  user_.boxes.clear();
  give("mnuDataComGraph");
  EXPECT_TRUE(user_.boxes.empty());
  EXPECT_EQ(control<QLabel>("stbRemark")->toolTip(), "This mine has no main fan");
}

TEST_F(Database_Commands, A_Save_Leaves_The_Window_On_Top_And_The_Keyboard_Where_It_Is) {
  open(mine("mine-a.abk"));
  give("mnuWinSelCom0");
  type_at(airways, "grdRoot", 1, 4, "321");
  user_.answers = {QMessageBox::No};
  give("mnuFileComSave");
  EXPECT_EQ(window_->window_tag(), "database");
  EXPECT_TRUE(grid("grdRoot")->hasFocus());
  type_at(airways, "grdRoot", 2, 1, "abc");
  user_.answers = {QMessageBox::Yes};
  give("mnuFileComSave");
  EXPECT_EQ(window_->window_tag(), "database");
  EXPECT_EQ(grid("grdRoot")->currentIndex(), grid("grdRoot")->model()->index(1, 1));
  EXPECT_TRUE(grid("grdRoot")->hasFocus());
}

TEST_F(Database_Commands, A_Mine_Opened_Over_Another_Has_Its_Widths_And_The_Keyboard) {
  for (int time = 0; time < 2; ++time) {
    open(mine("mine-a.abk"));
    give("mnuWinSelCom0");
    at(airways, "grdRoot", 1, 1);
  }
  open(mine("mine-c.abk"));
  EXPECT_EQ(window_->window_tag(), "database");
  const int wide = grid("grdRoot")->columnWidth(root_column::fric);
  EXPECT_GE(wide, grid("grdRoot")->fontMetrics().horizontalAdvance("0.001213"));
  EXPECT_TRUE(control<QLineEdit>("txtMine")->hasFocus());
  QTest::keyClick(control<QLineEdit>("txtMine"), Qt::Key_N, Qt::AltModifier);
  EXPECT_TRUE(grid("grdNode")->hasFocus());
}

TEST_F(Database_Commands, A_Typed_Name_Does_Not_Go_Unasked) {
  give("mnuFileComNew");
  QTest::keyClicks(control<QLineEdit>("txtMine"), "x");
  user_.boxes.clear();
  give("mnuFileComNew");
  EXPECT_TRUE(user_.saw("The edited Data may be lost."));
  EXPECT_TRUE(db().Mine_Name.find('x') != std::string::npos);
}

TEST_F(Database_Commands, Letters_And_Calculators_Show_The_Airways_That_They_Change) {
  give("mnuFileComNew");
  at(airways, "grdRoot", 2, 1);
  tabs()->setCurrentIndex(nodes);
  give("mnuDataWend2");
  EXPECT_EQ(tabs()->currentIndex(), airways);
  EXPECT_EQ(cell("grdRoot", 2, 9), "C");
}

TEST_F(Database_Commands, Without_A_Fan_There_Is_Nothing_To_Cut) {
  give("mnuFileComNew");
  tabs()->setCurrentIndex(main_fans);
  user_.answers = {QMessageBox::Yes};
  control<QAbstractButton>("cmdMinus")->click();
  EXPECT_EQ(db().MFan_GridTotal, 0);
  EXPECT_FALSE(action("mnuEditComCut")->isEnabled());
  EXPECT_FALSE(action("mnuEditComPaste")->isEnabled());
}

TEST_F(Database_Commands, Rows_Answers) {
  give("mnuFileComNew");
  at(airways, "grdRoot", 2, 1);
  const auto answer = [](const QString& text) {
    return [text](QDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Insert rows");
      auto* const field = dialog.findChild<QLineEdit*>();
      field->setText(text);
      QTest::keyClick(field, Qt::Key_Return);
    };
  };
  const auto count = [this] { return grid("grdRoot")->model()->rowCount(); };
  const int before = count();
  user_.dialogs.push_back(answer("3"));
  give("mnuEditComInserts");
  EXPECT_EQ(count(), before + 3);
  EXPECT_EQ(cell("grdRoot", 5, 0), "  2 ->   3");
  user_.dialogs.push_back(answer("0"));
  give("mnuEditComInserts");
  user_.dialogs.push_back(answer("-2"));
  give("mnuEditComInserts");
  EXPECT_EQ(count(), before + 3);
  user_.dialogs.push_back(answer("99999999999"));
  give("mnuEditComInserts");
  EXPECT_EQ(count(), 2750);
  EXPECT_FALSE(user_.saw("Please input numeric data."));
  give("mnuEditComUndo");
  EXPECT_EQ(count(), before + 3);
  user_.dialogs.push_back(answer("many"));
  give("mnuEditComInserts");
  EXPECT_TRUE(user_.saw("Please input numeric data."));
  give("mnuEditComInserts");  // Escape
  EXPECT_EQ(count(), before + 3);
}

TEST_F(Database_Commands, Calculators_And_Letters_Work_On_The_Selected_Rows) {
  give("mnuFileComNew");
  Edit_Grid* view = at(airways, "grdRoot", 2, 1);
  QTest::keyClick(view, Qt::Key_Down, Qt::ShiftModifier);
  give("mnuDataWend1");
  give("mnuDataKind0");
  give("mnuDataShape0");
  EXPECT_EQ(cell("grdRoot", 1, 9), "A");
  for (const int row : {2, 3}) {
    EXPECT_EQ(cell("grdRoot", row, 8), "0");
    EXPECT_EQ(cell("grdRoot", row, 9), "B");
    EXPECT_EQ(cell("grdRoot", row, 11), "C");
  }
  EXPECT_EQ(cell("grdRoot", 4, 9), "A");
  give("mnuDataCalc4");
  EXPECT_EQ(cell("grdRoot", 2, 10), "0.001800");
  EXPECT_EQ(cell("grdRoot", 1, 10), "0.001213");
}

TEST_F(Database_Commands, Find_Goes_To_The_Node) {
  open(mine("mine-a.abk"));
  give("mnuWinSelCom0");
  tabs()->setCurrentIndex(nodes);
  const auto answer = [](const QString& text) {
    return [text](QDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Find node");
      auto* const field = dialog.findChild<QLineEdit*>();
      field->setText(text);
      QTest::keyClick(field, Qt::Key_Return);
    };
  };
  user_.dialogs.push_back(answer("5"));
  give("mnuDataComFind");
  const int row = grid("grdNode")->currentIndex().row() + 1;
  EXPECT_EQ(cell("grdNode", row, 0), "5");
  user_.dialogs.push_back(answer("5000"));
  give("mnuDataComFind");
  EXPECT_EQ(grid("grdNode")->currentIndex().row() + 1, grid("grdNode")->model()->rowCount());
  tabs()->setCurrentIndex(airways);
  user_.dialogs.push_back(answer("5"));
  give("mnuDataComFind");
  EXPECT_EQ(cell("grdRoot", grid("grdRoot")->currentIndex().row() + 1, 0).left(3), "  5");
}

TEST_F(Database_Commands, Save_Offers_The_Check_And_Tells_Of_Unchecked_Edits) {
  const auto file = mine("mine-a.abk");
  open(file);
  give("mnuWinSelCom0");
  type_at(airways, "grdRoot", 1, 4, "321");
  EXPECT_EQ(status("stbEdits"), "Unchecked edits");
  user_.answers = {QMessageBox::No};
  give("mnuFileComSave");
  EXPECT_TRUE(control<QLabel>("stbRemark")->toolTip().contains("without the unchecked edits"));
  user_.answers = {QMessageBox::Yes};
  give("mnuFileComSave");
  EXPECT_TRUE(user_.saw("The data are all right !"));
  EXPECT_EQ(status("stbEdits"), "");
  Database read;
  Comment_Template comments;
  Test_Dialogue quiet;
  Reset_Database(read);
  ASSERT_TRUE(Read_Ver6(read, file, comments, quiet).ok);
  EXPECT_EQ(read.Root_Length(read.Node_UpSlot(1, 1), 1), 321);
}

TEST_F(Database_Commands, Edits_That_Are_In_No_File_Do_Not_Go_Unasked) {
  give("mnuFileComNew");
  type_at(airways, "grdRoot", 1, 4, "321");
  user_.boxes.clear();
  give("mnuFileComNew");
  ASSERT_EQ(user_.boxes.size(), 1U);
  EXPECT_TRUE(user_.saw("The edited Data may be lost."));
  EXPECT_EQ(cell("grdRoot", 1, 4), "321");
  user_.answers = {QMessageBox::Yes};
  give("mnuFileComNew");
  EXPECT_EQ(cell("grdRoot", 1, 4), "100");
}

TEST_F(Database_Commands, Reset_Takes_The_Edits_Back) {
  give("mnuFileComNew");
  type_at(airways, "grdRoot", 1, 4, "321");
  give("mnuDataReset");  // the default is No
  EXPECT_EQ(cell("grdRoot", 1, 4), "321");
  user_.answers = {QMessageBox::Yes};
  give("mnuDataReset");
  EXPECT_EQ(user_.boxes.back().title, "Reset Database");
  EXPECT_EQ(cell("grdRoot", 1, 4), "100");
  EXPECT_EQ(status("stbEdits"), "");
}

TEST_F(Database_Commands, Fans_Come_And_Go_By_Their_Buttons) {
  give("mnuFileComNew");
  tabs()->setCurrentIndex(main_fans);
  control<QAbstractButton>("cmdPlus")->click();
  EXPECT_EQ(db().MFan_GridTotal, 2);
  user_.boxes.clear();
  control<QAbstractButton>("cmdMinus")->click();  // the default is No
  EXPECT_TRUE(user_.saw("Delete Main Fan No.2"));
  EXPECT_EQ(db().MFan_GridTotal, 2);
  user_.answers = {QMessageBox::Yes};
  control<QAbstractButton>("cmdMinus")->click();
  EXPECT_EQ(db().MFan_GridTotal, 1);
  for (int f = 2; f <= 15; ++f) control<QAbstractButton>("cmdPlus")->click();
  EXPECT_EQ(db().MFan_GridTotal, 15);
  user_.boxes.clear();
  control<QAbstractButton>("cmdPlus")->click();
  EXPECT_EQ(db().MFan_GridTotal, 15);
  EXPECT_EQ(user_.boxes.size(), 1U);
}

TEST_F(Database_Commands, The_Fan_Diagram_Shows_The_Page_And_Stops_At_Its_Faults) {
  give("mnuFileComNew");
  tabs()->setCurrentIndex(main_fans);
  auto* const rpm = control<QLineEdit>("txtData4");
  rpm->setFocus();
  rpm->selectAll();
  QTest::keyClicks(rpm, "0");
  user_.boxes.clear();
  give("mnuDataComGraph");
  EXPECT_TRUE(user_.saw("Change the Driving revolution rate !"));
  EXPECT_TRUE(user_.dialogs_seen.empty());
  rpm->setFocus();
  rpm->selectAll();
  QTest::keyClicks(rpm, "250");
  give("mnuDataComGraph");
  ASSERT_EQ(user_.dialogs_seen.size(), 1U);
  EXPECT_EQ(user_.dialogs_seen[0], "DlgGraph");
  EXPECT_EQ(db().MFan_DriveRpm[1], 500);  // nothing is committed by looking
}

// An engineer types a whole mine, key by key, into the sample network's grids.
TEST_F(Database_Commands, A_Typed_Mine_Is_The_Same_As_Its_File) {
  Database expected = Make_Mine({.nodes = 7,
                                 .seed = 3,
                                 .inlets = 2,
                                 .fans = 1,
                                 .assist_fans = 1,
                                 .thermo_rows = 1,
                                 .hills = true,
                                 .extra = 0.5});
  expected.Mine_Name = "Typed       ";
  expected.Root_TypeMark = db().Root_TypeMark;  // a new mine's marks are not those of a file
  Edit_Copy texts;
  Test_Dialogue doors;
  Fill_Database_Window(expected, texts);
  Mark_All_Edited(expected);
  ASSERT_TRUE(Check_Data(expected, texts, doors).passed);
  Fill_Database_Window(expected, texts);

  give("mnuFileComNew");
  auto* const name = control<QLineEdit>("txtMine");
  name->setFocus();
  name->selectAll();
  QTest::keyClicks(name, "Typed");
  const auto type_grid = [&](int page, const QString& view, const Text_Grid& grid, int first_col) {
    for (int row = 1; row < grid.Rows(); ++row) {
      for (int col = first_col; col < grid.Cols() && !grid.is_blank(row); ++col) {
        const QString text = QString::fromStdString(grid.text(row, col)).trimmed();
        if (text != cell(view, row, col).trimmed()) type_at(page, view, row, col, text);
      }
    }
  };
  // Rows of the sample that the mine does not have are emptied.
  type_grid(airways, "grdRoot", texts.grdRoot, 0);
  user_.boxes.clear();
  // The nodes come from the airways, and everything else stands on nodes.
  type_at(intake, "grdInlet", 1, 1, "1");
  give("mnuDataComCheck");
  type_grid(nodes, "grdNode", texts.grdNode, 1);
  type_grid(intake, "grdInlet", texts.grdInlet, 1);
  type_grid(assist_fans, "grdAFan", texts.grdAFan, 1);
  type_grid(thermal, "grdThermo", texts.grdThermo, 1);
  tabs()->setCurrentIndex(main_fans);
  const Fan_Page& page = texts.fan(1);
  for (const int field :
       {Fan_Page::suction, Fan_Page::std_rpm, Fan_Page::drive_rpm, Fan_Page::limit_flow}) {
    auto* const box = control<QLineEdit>("txtData" + QString::number(field));
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, QString::fromStdString(page.text.at(static_cast<std::size_t>(field))));
  }
  for (int row = 1; row <= max_fan_points; ++row) {
    for (const int col : {1, 2}) {
      type_at(main_fans, "grdMFan", row, col, QString::fromStdString(page.grdMFan.text(row, col)));
    }
  }
  user_.boxes.clear();
  give("mnuDataComCheck");
  ASSERT_TRUE(user_.saw("The data are all right !"))
      << qPrintable(user_.boxes.empty() ? QString() : user_.boxes.back().text);

  Database typed = db();
  typed.Mine_Date = expected.Mine_Date;
  EXPECT_EQ(typed.Node_Total, expected.Node_Total);
  EXPECT_EQ(typed.Node_JuncCount, expected.Node_JuncCount);
  EXPECT_EQ(typed.Node_Junc, expected.Node_Junc);
  EXPECT_EQ(typed.Node_UpSlot, expected.Node_UpSlot);
  EXPECT_EQ(typed.Node_Elev, expected.Node_Elev);
  EXPECT_EQ(typed.Node_EW, expected.Node_EW);
  EXPECT_EQ(typed.Node_SN, expected.Node_SN);
  EXPECT_EQ(typed.Node_Type, expected.Node_Type);
  EXPECT_EQ(typed.Node_Used, expected.Node_Used);
  EXPECT_EQ(typed.Root_Resist, expected.Root_Resist);
  EXPECT_EQ(typed.Root_Area, expected.Root_Area);
  EXPECT_EQ(typed.Root_Peri, expected.Root_Peri);
  EXPECT_EQ(typed.Root_Length, expected.Root_Length);
  EXPECT_EQ(typed.Root_Time, expected.Root_Time);
  EXPECT_EQ(typed.Root_Heat, expected.Root_Heat);
  EXPECT_EQ(typed.Root_Wet, expected.Root_Wet);
  EXPECT_EQ(typed.Root_Kind, expected.Root_Kind);
  EXPECT_EQ(typed.Root_Wind, expected.Root_Wind);
  EXPECT_EQ(typed.Root_Fric, expected.Root_Fric);
  EXPECT_EQ(typed.Root_Shape, expected.Root_Shape);
  EXPECT_EQ(typed.Root_Height, expected.Root_Height);
  EXPECT_EQ(typed.Root_Type, expected.Root_Type);
  EXPECT_EQ(typed.Inlet_Total, expected.Inlet_Total);
  EXPECT_EQ(typed.Inlet_Node, expected.Inlet_Node);
  EXPECT_EQ(typed.MFan_Suction, expected.MFan_Suction);
  EXPECT_EQ(typed.MFan_Discharge, expected.MFan_Discharge);
  EXPECT_EQ(typed.MFan_StdRpm, expected.MFan_StdRpm);
  EXPECT_EQ(typed.MFan_Ratio, expected.MFan_Ratio);
  EXPECT_EQ(typed.MFan_HQCount, expected.MFan_HQCount);
  EXPECT_EQ(typed.MFan_HQ_Flow, expected.MFan_HQ_Flow);
  EXPECT_EQ(typed.MFan_HQ_Head, expected.MFan_HQ_Head);
  EXPECT_EQ(typed.AFan_Suction, expected.AFan_Suction);
  EXPECT_EQ(typed.AFan_Head, expected.AFan_Head);
  EXPECT_EQ(typed.Thermo_Node1, expected.Thermo_Node1);
  EXPECT_EQ(typed.Thermo_Cond, expected.Thermo_Cond);
  EXPECT_EQ(typed.Thermo_RockTemp, expected.Thermo_RockTemp);
}

TEST_F(Database_Commands, A_Mine_Is_Pasted_From_A_Spreadsheet) {
  give("mnuFileComNew");
  at(airways, "grdRoot", 1, 0);
  QString block;
  for (int i = 1; i <= 100; ++i) block += QString("%1 - %2\t2.0\t12\n").arg(i).arg(i + 1);
  QApplication::clipboard()->setText(block);
  give("mnuEditComPaste");
  at(intake, "grdInlet", 1, 1);
  type_at(main_fans, "grdMFan", 1, 1, "0");
  auto* const suction = control<QLineEdit>("txtData1");
  suction->setFocus();
  suction->selectAll();
  QTest::keyClicks(suction, "101");
  user_.boxes.clear();
  user_.look = [](QWidget& box) {
    if (auto* const for_all = box.findChild<QAbstractButton*>("chkForAll")) for_all->click();
  };
  give("mnuDataComCheck");
  // One question stands for the 96 airways that are new.
  ASSERT_EQ(user_.boxes.size(), 2U) << qPrintable(user_.boxes.back().text);
  EXPECT_TRUE(user_.saw("Add airway is 5 -> 6."));
  EXPECT_TRUE(user_.saw("The data are all right !"));
  EXPECT_EQ(db().Node_Total, 101);
  give("mnuWinSelCom1");
  give("mnuAnalysisComPress");
  EXPECT_NE(db().Flag_Results, 0);
}

}  // namespace
}  // namespace branok
