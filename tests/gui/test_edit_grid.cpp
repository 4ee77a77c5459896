// The grids of the Database window, worked with mouse and keyboard.
#include "ui/edit_grid.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>

#include "demo_mine.h"
#include "prep/edit_commands.h"

// How a failed comparison shows a text.
inline void PrintTo(const QString& text, std::ostream* out) { *out << qPrintable(text); }

namespace branok {
namespace {

using Place = std::pair<int, int>;

class Edit_Grid_Test : public testing::Test {
 protected:
  Edit_Grid_Test() { Fill_Database_Window(db, copy); }

  // A window with the folder's grid and another field.
  void show(Folder folder) {
    window = std::make_unique<QWidget>();
    auto* const rows = new QVBoxLayout(window.get());
    view = new Edit_Grid(db, copy, folder, window.get());
    other = new QLineEdit(window.get());
    rows->addWidget(view);
    rows->addWidget(other);
    window->resize(700, 500);
    window->show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    QApplication::setActiveWindow(window.get());
    view->setFocus();
    QCoreApplication::processEvents();
  }
  void key(Qt::Key which, Qt::KeyboardModifiers with = {}) const {
    QTest::keyClick(QApplication::focusWidget(), which, with);
  }
  void type(const char* text) const {
    for (const char c : std::string_view(text)) QTest::keyClick(QApplication::focusWidget(), c);
  }
  [[nodiscard]] Place current() const {
    return {view->currentIndex().row() + 1, view->currentIndex().column()};
  }
  [[nodiscard]] QPoint middle(int row, int col) const {
    return view->visualRect(view->model()->index(row - 1, col)).center();
  }
  void click(int row, int col, Qt::KeyboardModifiers with = {}) const {
    QTest::mouseClick(view->viewport(), Qt::LeftButton, with, middle(row, col));
  }
  [[nodiscard]] std::string text(int row, int col) const {
    return view->rows().grid().text(row, col);
  }
  [[nodiscard]] QVariant look(int row, int col, int role) const {
    return view->model()->index(row - 1, col).data(role);
  }

  Database db = Demo_Mine();
  Edit_Copy copy;
  std::unique_ptr<QWidget> window;
  Edit_Grid* view = nullptr;
  QLineEdit* other = nullptr;
};

TEST_F(Edit_Grid_Test, A_Printable_Key_Replaces_The_Text) {
  show(Folder::airway);
  view->show_cell(2, root_column::area);
  type("9");
  ASSERT_TRUE(view->editor()->hasFocus());
  EXPECT_EQ(view->editor()->objectName(), "txtEdit0");
  EXPECT_EQ(view->editor()->text(), "9");
  EXPECT_EQ(view->editor()->cursorPosition(), 1);
  EXPECT_EQ(view->editor()->geometry(), view->visualRect(view->currentIndex()));
  type(".5");
  EXPECT_NE(text(2, root_column::area), "9.5");  // not before it is committed
  key(Qt::Key_Return);
  EXPECT_EQ(text(2, root_column::area), "9.5");
  EXPECT_FALSE(view->editor()->isVisible());
  EXPECT_TRUE(view->hasFocus());
}

TEST_F(Edit_Grid_Test, Enter_F2_And_A_Double_Click_Keep_The_Text) {
  show(Folder::airway);
  const QString before = QString::fromStdString(text(1, root_column::length));
  const auto opened = [&] {
    const bool kept = view->editor()->isVisible() && view->editor()->text() == before &&
                      view->editor()->cursorPosition() == before.size();
    key(Qt::Key_Escape);
    return kept;
  };
  view->show_cell(1, root_column::length);
  key(Qt::Key_Return);
  EXPECT_TRUE(opened());
  key(Qt::Key_Enter);
  EXPECT_TRUE(opened());
  key(Qt::Key_F2);
  EXPECT_TRUE(opened());
  QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, middle(1, root_column::length));
  EXPECT_TRUE(opened());
}

TEST_F(Edit_Grid_Test, Enter_Moves_As_The_Options_Say) {
  show(Folder::inlet);
  db.Opt_MoveSel = 0;
  view->show_cell(1, inlet_column::node);
  type("4");
  key(Qt::Key_Return);
  EXPECT_EQ(current(), Place(2, inlet_column::node));
  view->show_cell(max_inlets, inlet_column::node);
  type("7");
  key(Qt::Key_Return);
  EXPECT_EQ(current(), Place(max_inlets, inlet_column::node));  // the last row
  EXPECT_EQ(text(max_inlets, inlet_column::node), "7");
  db.Opt_MoveSel = 1;
  view->show_cell(3, inlet_column::picture);
  type("a");
  key(Qt::Key_Enter);
  EXPECT_EQ(current(), Place(3, inlet_column::comment));
  type("b");
  key(Qt::Key_Enter);
  EXPECT_EQ(current(), Place(3, inlet_column::comment));  // the last column
  EXPECT_EQ(text(3, inlet_column::comment), "b");
}

TEST_F(Edit_Grid_Test, Escape_Leaves_The_Cell_As_It_Was) {
  show(Folder::node);
  db.Flag_Results = flag_true;
  view->show_cell(1, node_column::elev);
  const std::string before = text(1, node_column::elev);
  QSignalSpy edited(view, &Edit_Grid::edited);
  type("123");
  key(Qt::Key_Escape);
  EXPECT_EQ(text(1, node_column::elev), before);
  EXPECT_FALSE(view->editor()->isVisible());
  EXPECT_TRUE(view->hasFocus());
  EXPECT_EQ(edited.count(), 0);
  EXPECT_EQ(db.Flag_Results, flag_true);
}

TEST_F(Edit_Grid_Test, Up_And_Down_Commit_And_Stay_At_The_Edges) {
  show(Folder::thermal);
  view->show_cell(1, thermo_column::cond);
  type("1");
  key(Qt::Key_Up);
  EXPECT_EQ(current(), Place(1, thermo_column::cond));
  EXPECT_EQ(text(1, thermo_column::cond), "1");
  type("2");
  key(Qt::Key_Down);
  EXPECT_EQ(current(), Place(2, thermo_column::cond));
  EXPECT_EQ(text(1, thermo_column::cond), "2");
  view->show_cell(max_thermo_rows, thermo_column::cond);
  type("3");
  key(Qt::Key_Down);
  EXPECT_EQ(current(), Place(max_thermo_rows, thermo_column::cond));
  EXPECT_EQ(text(max_thermo_rows, thermo_column::cond), "3");
}

TEST_F(Edit_Grid_Test, Tab_Goes_From_Cell_To_Cell) {
  show(Folder::inlet);
  view->show_cell(1, inlet_column::comment);
  type("x");
  key(Qt::Key_Tab);
  EXPECT_EQ(text(1, inlet_column::comment), "x");
  EXPECT_EQ(current(), Place(2, inlet_column::node));
  key(Qt::Key_Backtab, Qt::ShiftModifier);
  EXPECT_EQ(current(), Place(1, inlet_column::comment));
  view->show_cell(max_inlets, inlet_column::comment);
  key(Qt::Key_Tab);
  EXPECT_TRUE(other->hasFocus());  // the keyboard is no prisoner of the grid
}

TEST_F(Edit_Grid_Test, Losing_The_Keyboard_Commits) {
  show(Folder::airway);
  view->show_cell(1, root_column::time);
  type("8");
  other->setFocus();
  EXPECT_EQ(text(1, root_column::time), "8");
  EXPECT_FALSE(view->editor()->isVisible());
  EXPECT_TRUE(other->hasFocus());
  // A click on another cell of the grid.
  view->show_cell(2, root_column::time);
  type("6");
  click(4, root_column::heat);
  EXPECT_EQ(text(2, root_column::time), "6");
  EXPECT_EQ(current(), Place(4, root_column::heat));
}

TEST_F(Edit_Grid_Test, An_Editor_Closed_Behind_Another_Window_Leaves_The_Keyboard_To_The_Grid) {
  show(Folder::airway);
  view->show_cell(1, root_column::time);
  type("8");
  QWidget second;
  second.setFocusPolicy(Qt::StrongFocus);
  second.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&second));
  QApplication::setActiveWindow(&second);
  second.setFocus();
  ASSERT_TRUE(view->commit_editor());
  EXPECT_TRUE(second.hasFocus());
  QApplication::setActiveWindow(window.get());
  EXPECT_TRUE(view->hasFocus());
  EXPECT_EQ(current(), Place(1, root_column::time));
}

TEST_F(Edit_Grid_Test, A_Menu_And_Another_Window_Do_Not_Commit) {
  show(Folder::airway);
  view->show_cell(1, root_column::time);
  const std::string before = text(1, root_column::time);
  type("8");
  for (const Qt::FocusReason reason : {Qt::PopupFocusReason, Qt::MenuBarFocusReason}) {
    QFocusEvent out(QEvent::FocusOut, reason);
    QCoreApplication::sendEvent(view->editor(), &out);
    EXPECT_TRUE(view->editor()->isVisible());
  }
  QWidget second;
  second.setFocusPolicy(Qt::StrongFocus);
  second.show();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&second));
  QApplication::setActiveWindow(&second);
  second.setFocus();
  ASSERT_FALSE(view->editor()->hasFocus());
  EXPECT_TRUE(view->editor()->isVisible());
  EXPECT_EQ(text(1, root_column::time), before);
  QApplication::setActiveWindow(window.get());
  EXPECT_TRUE(view->editor()->hasFocus());
  EXPECT_TRUE(view->commit_editor());
  EXPECT_EQ(text(1, root_column::time), "8");
}

TEST_F(Edit_Grid_Test, A_Keystroke_Sets_The_Flag_And_A_Change_Clears_The_Results) {
  const std::array cols = {root_column::area + 0,     node_column::elev + 0,
                           inlet_column::comment + 0, fan_column::head + 0,
                           assist_column::head + 0,   thermo_column::cond + 0};
  for (const Folder folder : all_folders) {
    show(folder);
    db.Flag_Results = flag_true;
    view->show_cell(1, cols.at(static_cast<std::size_t>(folder)));
    QSignalSpy keystroke(view, &Edit_Grid::keystroke);
    QSignalSpy edited(view, &Edit_Grid::edited);
    EXPECT_EQ(Edit_Flag(db, folder), 0);
    type("77");
    EXPECT_EQ(Edit_Flag(db, folder), 1);
    EXPECT_EQ(keystroke.count(), 1);
    EXPECT_EQ(db.Flag_Results, flag_true);
    EXPECT_EQ(view->editor()->objectName(), "txtEdit" + QString::number(int(folder)));
    key(Qt::Key_Return);
    EXPECT_EQ(db.Flag_Results, 0);
    EXPECT_EQ(edited.count(), 1);
  }
}

TEST_F(Edit_Grid_Test, An_Unchanged_Text_Is_No_Edit) {
  show(Folder::node);
  copy.grdNode.set_text(1, node_column::comment, blank_comment);
  db.Flag_Results = flag_true;
  QSignalSpy edited(view, &Edit_Grid::edited);
  view->show_cell(1, node_column::comment);
  key(Qt::Key_F2);
  EXPECT_EQ(view->editor()->text(), "");  // a cleared comment shows as empty
  key(Qt::Key_Return);
  EXPECT_EQ(text(1, node_column::comment), blank_comment);
  EXPECT_EQ(edited.count(), 0);
  EXPECT_EQ(db.Flag_Results, flag_true);
  EXPECT_EQ(db.Edit_Node, 0);
}

TEST_F(Edit_Grid_Test, Delete_Empties_The_Selection_In_One_Act) {
  show(Folder::airway);
  view->show_cell(2, root_column::resist);
  key(Qt::Key_Right, Qt::ShiftModifier);
  key(Qt::Key_Down, Qt::ShiftModifier);
  QSignalSpy edited(view, &Edit_Grid::edited);
  key(Qt::Key_Delete);
  EXPECT_EQ(edited.count(), 1);
  for (const int row : {2, 3}) {
    EXPECT_EQ(text(row, root_column::resist), "");
    EXPECT_EQ(text(row, root_column::area), "");
    EXPECT_NE(text(row, root_column::peri), "");
  }
  EXPECT_EQ(view->selectionModel()->selectedIndexes().size(), 4);  // what was emptied stays marked
  EXPECT_EQ(db.Edit_Root, 1);
  key(Qt::Key_Delete);
  EXPECT_EQ(edited.count(), 1);  // nothing more to empty
}

TEST_F(Edit_Grid_Test, Backspace_Opens_An_Empty_Editor) {
  show(Folder::airway);
  view->show_cell(1, root_column::area);
  key(Qt::Key_Backspace);
  EXPECT_TRUE(view->editor()->hasFocus());
  EXPECT_EQ(view->editor()->text(), "");
  key(Qt::Key_Return);
  EXPECT_EQ(text(1, root_column::area), "");
}

TEST_F(Edit_Grid_Test, Escape_Drops_The_Selection_To_The_Current_Cell) {
  show(Folder::airway);
  view->show_cell(2, 3);
  key(Qt::Key_Down, Qt::ShiftModifier);
  key(Qt::Key_Right, Qt::ShiftModifier);
  ASSERT_EQ(view->selectionModel()->selectedIndexes().size(), 4);
  key(Qt::Key_Escape);
  EXPECT_EQ(view->selectionModel()->selectedIndexes(), QModelIndexList{view->currentIndex()});
  EXPECT_EQ(current(), Place(3, 4));
  EXPECT_EQ(copy.grdRoot.Row, 3);
  EXPECT_EQ(copy.grdRoot.ColSel, 4);
}

TEST_F(Edit_Grid_Test, Keys_Move_As_In_A_Spreadsheet) {
  show(Folder::airway);
  const int last = copy.grdRoot.Rows() - 1;
  key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(current(), Place(last, root_column::comment));
  key(Qt::Key_Home);
  EXPECT_EQ(current(), Place(last, root_column::name));
  key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(current(), Place(1, root_column::name));
  key(Qt::Key_End);
  EXPECT_EQ(current(), Place(1, root_column::comment));
  key(Qt::Key_PageDown);
  EXPECT_GT(current().first, 3);
  key(Qt::Key_A, Qt::ControlModifier);
  EXPECT_EQ(copy.grdRoot.Row, 1);
  EXPECT_EQ(copy.grdRoot.RowSel, last);
  EXPECT_EQ(copy.grdRoot.Col, 0);
  EXPECT_EQ(copy.grdRoot.ColSel, root_column::comment);
}

TEST_F(Edit_Grid_Test, Ctrl_And_Shift_Select_All_On_The_Way) {
  show(Folder::airway);
  view->show_cell(2, 2);
  key(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(copy.grdRoot.Row, 2);
  EXPECT_EQ(copy.grdRoot.Col, 2);
  EXPECT_EQ(copy.grdRoot.RowSel, copy.grdRoot.Rows() - 1);
  EXPECT_EQ(copy.grdRoot.ColSel, root_column::comment);
}

TEST_F(Edit_Grid_Test, Columns_Keep_Their_Fit_When_Scroll_Bars_Come_And_Go) {
  show(Folder::airway);
  const Edit_Copy none;
  Edit_Copy many = copy;
  many.grdRoot.insert_rows(2, 200);
  const std::string wide = "1234567890123456";
  many.grdRoot.set_text(100, root_column::resist, wide);
  many.grdRoot.set_text(100, root_column::comment, "a long comment of some forty characters");
  many.fit_pictures();
  const int digits = view->fontMetrics().horizontalAdvance(QString::fromStdString(wide));
  for (int width = 500; width <= 1500; width += 25) {
    view->resize(width, 400);
    for (const Edit_Copy& mine : {many, none, many}) {
      copy = mine;
      view->refresh();
      QCoreApplication::processEvents();
    }
    ASSERT_GE(view->columnWidth(root_column::resist), digits) << width;
  }
}

TEST_F(Edit_Grid_Test, A_Doubtful_Text_Is_Tinted_While_It_Is_Typed) {
  show(Folder::airway);
  view->show_cell(1, root_column::area);
  type("2000");
  // The colour behind the digits, as it is on the screen.
  const auto shown = [&] { return view->editor()->grab().toImage().pixelColor(3, 3).name(); };
  EXPECT_EQ(shown(), Doubt_Color(view->palette()).name());
  EXPECT_TRUE(view->editor()->toolTip().contains("'Area' Column"));
  QTest::keyClick(view->editor(), Qt::Key_Backspace);
  EXPECT_EQ(shown(), view->palette().color(QPalette::Base).name());
  EXPECT_EQ(view->editor()->toolTip(), "");
}

TEST_F(Edit_Grid_Test, Undo_Leads_Back_To_The_Text_Before_The_First_Key) {
  show(Folder::airway);
  view->show_cell(2, root_column::area);
  const QString before = QString::fromStdString(text(2, root_column::area));
  QSignalSpy edited(view, &Edit_Grid::edited);
  type("88");
  ASSERT_EQ(view->editor()->text(), "88");
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(view->editor()->text(), before);
  EXPECT_FALSE(view->editor()->isUndoAvailable());
  key(Qt::Key_Return);
  EXPECT_EQ(edited.count(), 0);
  view->show_cell(2, root_column::area);
  key(Qt::Key_Backspace);
  ASSERT_EQ(view->editor()->text(), "");
  key(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(view->editor()->text(), before);
}

TEST_F(Edit_Grid_Test, The_Editor_Has_The_Grids_Font) {
  show(Folder::airway);
  QFont large = view->font();
  large.setPointSize(24);
  view->setFont(large);
  view->show_cell(1, root_column::area);
  type("2000");  // tinted
  EXPECT_EQ(view->editor()->fontInfo().pointSize(), 24);
  large.setPointSize(18);
  view->setFont(large);
  EXPECT_EQ(view->editor()->fontInfo().pointSize(), 18);
}

TEST_F(Edit_Grid_Test, Typing_Brings_The_Cell_Back_Into_View) {
  copy.grdRoot.set_data_rows(200);
  copy.fit_pictures();
  show(Folder::airway);
  view->show_cell(2, root_column::area);
  type("7");
  view->verticalScrollBar()->setValue(100);
  view->horizontalScrollBar()->setValue(view->horizontalScrollBar()->maximum());
  ASSERT_FALSE(view->viewport()->rect().intersects(view->editor()->geometry()));
  type("5");
  EXPECT_TRUE(view->viewport()->rect().contains(view->editor()->geometry()));
  EXPECT_GE(view->editor()->geometry().left(), view->frozen_width());
  EXPECT_EQ(view->editor()->text(), "75");
}

// --- A cell that holds a whole file

TEST_F(Edit_Grid_Test, A_Huge_Text_Is_Shown_In_Part_And_Told_To_Be_Wrong) {
  copy.grdRoot.set_text(2, root_column::area, std::string(10'000'000, '1'));
  show(Folder::airway);
  EXPECT_EQ(look(2, root_column::area, Qt::DisplayRole).toString().size(), 1000);
  EXPECT_EQ(look(2, root_column::area, Qt::ToolTipRole).toString(), "Please input numeric data.");
  EXPECT_TRUE(look(2, root_column::area, Qt::BackgroundRole).isValid());
  view->show_cell(1, root_column::area);
  key(Qt::Key_Down);
  EXPECT_EQ(current(), Place(2, root_column::area));
}

TEST_F(Edit_Grid_Test, A_Text_Too_Long_For_The_Editor_Is_Not_Cut_By_It) {
  const std::string huge(10'000'000, 'x');
  copy.grdRoot.set_text(2, root_column::comment, huge);
  show(Folder::airway);
  view->show_cell(2, root_column::comment);
  key(Qt::Key_F2);
  EXPECT_TRUE(view->editor()->hasFocus());
  EXPECT_EQ(view->editor()->toolTip(), "Too long to be edited here");
  type("y");
  key(Qt::Key_Return);
  EXPECT_EQ(text(2, root_column::comment), huge);
  view->show_cell(2, root_column::comment);
  type("y");
  key(Qt::Key_Return);
  EXPECT_EQ(text(2, root_column::comment), "y");
  // One that it holds is edited whole, though the cell does not show all of it.
  copy.grdRoot.set_text(2, root_column::comment, std::string(2000, 'x'));
  view->show_cell(2, root_column::comment);
  key(Qt::Key_F2);
  type("y");
  key(Qt::Key_Return);
  EXPECT_EQ(text(2, root_column::comment), std::string(2000, 'x') + 'y');
}

// --- Titles that stay in view

TEST_F(Edit_Grid_Test, An_Airways_Name_Is_Typed) {
  show(Folder::airway);
  const int last = copy.grdRoot.Rows() - 1;
  view->show_cell(last, root_column::name);
  type("7 - 3");
  EXPECT_EQ(view->editor()->text(), "7 - 3");
  key(Qt::Key_Return);
  EXPECT_EQ(text(last, root_column::name), "7 - 3");
  // The next airway has its row at once.
  EXPECT_EQ(view->model()->rowCount(), last + 1);
  EXPECT_EQ(current(), Place(last, root_column::name));
  key(Qt::Key_Down);
  EXPECT_EQ(current(), Place(last + 1, root_column::name));
  EXPECT_EQ(view->model()->headerData(6, Qt::Vertical).toString(), "7");  // as messages name a row
}

TEST_F(Edit_Grid_Test, Names_Stay_In_View_And_Are_Reached_By_The_Mouse) {
  show(Folder::airway);
  view->horizontalScrollBar()->setValue(150);
  const QRect name = view->visualRect(view->model()->index(2, 0));
  EXPECT_EQ(name.left(), 0);
  click(3, root_column::name);
  EXPECT_EQ(current(), Place(3, root_column::name));
  EXPECT_EQ(view->horizontalScrollBar()->value(), 150);
  type("9-8");
  EXPECT_EQ(view->editor()->geometry(), name);
  key(Qt::Key_Escape);
  // The heading over the names selects them all.
  QTest::mouseClick(view->horizontalHeader()->viewport(), Qt::LeftButton, {}, QPoint(20, 10));
  EXPECT_EQ(copy.grdRoot.Col, 0);
  EXPECT_EQ(copy.grdRoot.ColSel, 0);
  EXPECT_EQ(copy.grdRoot.RowSel, copy.grdRoot.Rows() - 1);
}

TEST_F(Edit_Grid_Test, No_Current_Cell_Hides_Under_The_Names) {
  show(Folder::airway);
  view->show_cell(1, root_column::comment);
  ASSERT_GT(view->horizontalScrollBar()->value(), 0);
  for (int col = root_column::comment - 1; col > root_column::name; --col) {
    key(Qt::Key_Left);
    ASSERT_EQ(current(), Place(1, col));
    EXPECT_GE(view->visualRect(view->currentIndex()).left(), view->frozen_width());
  }
}

TEST_F(Edit_Grid_Test, A_Block_Drawn_From_Under_The_Names_Keeps_Its_Columns) {
  show(Folder::airway);
  view->show_cell(2, root_column::resist);
  for (int step = 0; step < 13; ++step) key(Qt::Key_Right, Qt::ShiftModifier);
  ASSERT_LT(view->columnViewportPosition(root_column::resist), view->frozen_width());
  EXPECT_EQ(copy.grdRoot.Col, root_column::resist);
  EXPECT_EQ(copy.grdRoot.ColSel, root_column::comment);
  // With the mouse to the name of another row.
  click(4, root_column::name, Qt::ShiftModifier);
  EXPECT_EQ(copy.grdRoot.Row, 2);
  EXPECT_EQ(copy.grdRoot.RowSel, 4);
  EXPECT_EQ(copy.grdRoot.Col, root_column::name);
  EXPECT_EQ(copy.grdRoot.ColSel, root_column::resist);
}

TEST_F(Edit_Grid_Test, A_Block_Is_Drawn_Across_The_Edge_Of_The_Names) {
  show(Folder::airway);
  view->horizontalScrollBar()->setValue(150);
  const int col = view->columnAt(view->frozen_width() + 100);
  QTest::mousePress(view->viewport(), Qt::LeftButton, {}, middle(2, col));
  QTest::mouseMove(view->viewport(), middle(3, col));
  QTest::mouseMove(view->viewport(), middle(4, root_column::name));
  QTest::mouseRelease(view->viewport(), Qt::LeftButton, {}, middle(4, root_column::name));
  EXPECT_EQ(copy.grdRoot.Row, 2);
  EXPECT_EQ(copy.grdRoot.RowSel, 4);
  EXPECT_EQ(copy.grdRoot.Col, root_column::name);
  EXPECT_EQ(copy.grdRoot.ColSel, col);
  EXPECT_EQ(current(), Place(4, root_column::name));
}

TEST_F(Edit_Grid_Test, The_Names_Are_Widened_Where_They_Are_Seen) {
  show(Folder::airway);
  view->horizontalScrollBar()->setValue(150);
  QWidget* const headings = view->horizontalHeader()->viewport();
  const int before = view->frozen_width();
  const QPoint edge(before - 1, 10);
  QTest::mousePress(headings, Qt::LeftButton, {}, edge);
  QTest::mouseMove(headings, edge + QPoint(20, 0));
  QTest::mouseMove(headings, edge + QPoint(40, 0));
  QTest::mouseRelease(headings, Qt::LeftButton, {}, edge + QPoint(40, 0));
  EXPECT_EQ(view->frozen_width(), before + 40);
}

TEST_F(Edit_Grid_Test, The_Editor_Follows_Its_Cell) {
  show(Folder::airway);
  view->show_cell(2, root_column::length);
  type("5");
  const QRect before = view->editor()->geometry();
  view->horizontalScrollBar()->setValue(60);
  EXPECT_EQ(view->editor()->geometry(), before.translated(-60, 0));
  view->horizontalScrollBar()->setValue(0);
  view->setColumnWidth(root_column::length, 150);
  QFont font = view->font();
  font.setPointSize(font.pointSize() + 4);
  view->setFont(font);
  QCoreApplication::processEvents();
  EXPECT_EQ(view->editor()->geometry(), view->visualRect(view->currentIndex()));
  type("4444444444444444444444444444");
  EXPECT_GT(view->editor()->width(), view->visualRect(view->currentIndex()).width());
  EXPECT_LE(view->editor()->geometry().right(), view->viewport()->rect().right());
}

TEST_F(Edit_Grid_Test, A_Column_Grows_With_What_Is_Typed) {
  show(Folder::thermal);
  const int before = view->columnWidth(thermo_column::node1);
  view->show_cell(1, thermo_column::node1);
  type("12345678901234567890");
  key(Qt::Key_Return);
  EXPECT_GT(view->columnWidth(thermo_column::node1), before);
  EXPECT_GT(view->columnWidth(thermo_column::comment),
            16 * view->fontMetrics().horizontalAdvance('0'));
}

// --- Selection by rows and columns, places of a paste

TEST_F(Edit_Grid_Test, Selects_By_Cells_Rows_Or_Columns) {
  show(Folder::airway);
  const int last = copy.grdRoot.Rows() - 1;
  const auto block = [&] {
    return std::array{copy.grdRoot.Row, copy.grdRoot.Col, copy.grdRoot.RowSel, copy.grdRoot.ColSel};
  };
  click(3, 4);
  EXPECT_EQ(block(), (std::array{3, 4, 3, 4}));
  db.Opt_GridSel = 1;
  view->apply_options();
  click(3, 4);
  EXPECT_EQ(block(), (std::array{3, 0, 3, int(root_column::comment)}));
  EXPECT_EQ(current(), Place(3, 4));
  db.Opt_GridSel = 2;
  view->apply_options();
  click(3, 4);
  EXPECT_EQ(block(), (std::array{1, 4, last, 4}));
}

TEST_F(Edit_Grid_Test, A_Paste_Begins_Where_The_User_Means_It) {
  show(Folder::airway);
  const auto place = [&](const char* text) {
    view->take_paste_place(text);
    return Place(copy.grdRoot.Row, copy.grdRoot.Col);
  };
  view->show_cell(3, 4);
  key(Qt::Key_Up, Qt::ShiftModifier);
  EXPECT_EQ(place("1\r"), Place(2, 4));
  db.Opt_GridSel = 1;
  view->apply_options();
  view->show_cell(3, 4);
  EXPECT_EQ(place("1\t2\r"), Place(3, 4));
  EXPECT_EQ(place("n\t1\t2\t3\t4\t5\t6\t7\t8\t9\t10\t11\t12\tp\tc\r"), Place(3, 0));
  db.Opt_GridSel = 2;
  view->apply_options();
  EXPECT_EQ(place("1\r2\r"), Place(3, 4));
}

// --- Looks

TEST_F(Edit_Grid_Test, A_Doubtful_Cell_Is_Tinted_And_Says_Why) {
  show(Folder::airway);
  EXPECT_FALSE(look(1, root_column::area, Qt::BackgroundRole).isValid());
  view->show_cell(1, root_column::area);
  type("2000");
  key(Qt::Key_Return);
  EXPECT_EQ(look(1, root_column::area, Qt::BackgroundRole).value<QBrush>().color(),
            Doubt_Color(view->palette()));
  EXPECT_TRUE(look(1, root_column::area, Qt::ToolTipRole).toString().contains("'Area' Column"));
  EXPECT_NE(Doubt_Color(view->palette()), view->palette().color(QPalette::Base));
}

// The colours of a cell's edge and of its ground beside the text.
struct Edge {
  QColor edge, second, ground;
};

class Current_Cell : public Edit_Grid_Test {
 protected:
  [[nodiscard]] Edge edge(int row, int col) const {
    const QImage image = view->viewport()->grab().toImage();
    const QRect cell = view->visualRect(view->model()->index(row - 1, col));
    const auto at = [&](int inset) {
      const QPoint place(cell.left() + cell.width() / 2, cell.top() + inset);
      return image.pixelColor(place * image.devicePixelRatio());
    };
    return {at(0), at(1), at(2)};
  }
  static int contrast(const QColor& a, const QColor& b) {
    return std::abs(qGray(a.rgb()) - qGray(b.rgb()));
  }
  void expect_frame(int row, int col) const {
    const Edge with_keyboard = edge(row, col);
    EXPECT_EQ(with_keyboard.edge, with_keyboard.second);
    EXPECT_GE(contrast(with_keyboard.edge, with_keyboard.ground), 48);
    other->setFocus();
    const Edge without = edge(row, col);
    EXPECT_GE(contrast(without.edge, without.ground), 20);
    EXPECT_LT(contrast(without.edge, without.ground),
              contrast(with_keyboard.edge, with_keyboard.ground));
    view->setFocus();
  }
};

TEST_F(Current_Cell, Has_A_Frame_In_All_Kinds_Of_Selection) {
  for (const bool dark : {false, true}) {
    QPalette palette;
    if (dark) {
      palette.setColor(QPalette::Base, QColor(32, 32, 32));
      palette.setColor(QPalette::AlternateBase, QColor(38, 38, 38));
      palette.setColor(QPalette::Text, QColor(224, 224, 224));
      palette.setColor(QPalette::Highlight, QColor(47, 101, 158));
      palette.setColor(QPalette::HighlightedText, Qt::white);
    }
    for (const int selection : {0, 1, 2}) {
      db.Opt_GridSel = static_cast<std::int16_t>(selection);
      show(Folder::airway);
      view->setPalette(palette);
      view->show_cell(3, root_column::peri);
      if (selection == 0) key(Qt::Key_Down, Qt::ShiftModifier);
      expect_frame(current().first, root_column::peri);
      // Its neighbour of the selection has none.
      const Edge beside = selection == 1   ? edge(3, root_column::area)
                          : selection == 2 ? edge(5, root_column::peri)
                                           : edge(3, root_column::peri);
      EXPECT_LT(contrast(beside.edge, beside.ground), 20);
    }
  }
}

TEST_F(Current_Cell, Has_A_Frame_Over_The_Titles_And_Not_Below_Them) {
  show(Folder::airway);
  view->show_cell(2, root_column::name);
  view->horizontalScrollBar()->setValue(100);
  expect_frame(2, root_column::name);
  view->show_cell(2, root_column::resist);
  view->horizontalScrollBar()->setValue(view->columnWidth(root_column::resist));
  const Edge title = edge(2, root_column::name);
  EXPECT_LT(contrast(title.edge, title.ground), 20);
}

// --- The menu

TEST_F(Edit_Grid_Test, A_Right_Click_Asks_For_The_Menu_Of_The_Selection) {
  show(Folder::airway);
  QSignalSpy asked(view, &Edit_Grid::context_menu);
  const auto right_click = [&](QPoint at) {
    QTest::mouseClick(view->viewport(), Qt::RightButton, {}, at);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, view->viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(view->viewport(), &event);
    EXPECT_TRUE(event.isAccepted());
    return view->viewport()->mapToGlobal(at);
  };
  view->show_cell(2, 3);
  key(Qt::Key_Down, Qt::ShiftModifier);
  QPoint global = right_click(middle(2, 3));
  ASSERT_EQ(asked.count(), 1);
  EXPECT_EQ(asked.last().first().toPoint(), global);
  EXPECT_EQ(view->selectionModel()->selectedIndexes().size(), 2);  // inside it stays
  right_click(middle(5, 4));
  EXPECT_EQ(current(), Place(5, 4));
  EXPECT_EQ(copy.grdRoot.Row, 5);
  EXPECT_EQ(view->selectionModel()->selectedIndexes().size(), 1);
  // Of what is being typed elsewhere nothing is lost.
  type("77");
  right_click(middle(6, 4));
  EXPECT_EQ(text(5, 4), "77");
  EXPECT_EQ(asked.count(), 3);
}

TEST_F(Edit_Grid_Test, The_Menu_Key_Asks_For_The_Menu_At_The_Current_Cell) {
  show(Folder::airway);
  view->show_cell(4, root_column::comment);
  view->horizontalScrollBar()->setValue(0);
  QSignalSpy asked(view, &Edit_Grid::context_menu);
  QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
  QCoreApplication::sendEvent(view, &event);
  ASSERT_EQ(asked.count(), 1);
  const QPoint place = view->viewport()->mapFromGlobal(asked.last().first().toPoint());
  const QRect cell = view->visualRect(view->currentIndex());
  EXPECT_TRUE(view->viewport()->rect().contains(cell.center()));
  EXPECT_TRUE(cell.adjusted(0, 0, 0, 2).contains(place));
}

TEST_F(Edit_Grid_Test, A_Right_Click_On_A_Title_Is_For_Its_Row_And_On_A_Heading_For_Its_Column) {
  show(Folder::airway);
  QSignalSpy asked(view, &Edit_Grid::context_menu);
  const auto right_click = [](QHeaderView* header, QPoint at) {
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, header->viewport()->mapToGlobal(at));
    QCoreApplication::sendEvent(header->viewport(), &event);
  };
  right_click(view->verticalHeader(), QPoint(5, middle(3, 1).y()));
  EXPECT_EQ(asked.count(), 1);
  EXPECT_EQ(copy.grdRoot.Row, 3);
  EXPECT_EQ(copy.grdRoot.RowSel, 3);
  EXPECT_EQ(copy.grdRoot.ColSel, root_column::comment);
  right_click(view->horizontalHeader(), QPoint(middle(1, 2).x(), 5));
  EXPECT_EQ(asked.count(), 2);
  EXPECT_EQ(copy.grdRoot.Col, 2);
  EXPECT_EQ(copy.grdRoot.ColSel, 2);
  EXPECT_EQ(copy.grdRoot.RowSel, copy.grdRoot.Rows() - 1);
}

// --- Room

TEST_F(Edit_Grid_Test, Texts_Give_Way_Where_All_Columns_Fit_By_That) {
  show(Folder::airway);
  const int natural = view->horizontalHeader()->length();
  const int frame = view->width() - view->viewport()->width();
  const int comment = view->columnWidth(root_column::comment);
  const int area = view->columnWidth(root_column::area);
  const auto give = [&](int room) {
    window->resize(window->width() + room + frame - view->width(), window->height());
    QCoreApplication::processEvents();
  };
  give(natural + 40);
  EXPECT_EQ(view->horizontalHeader()->length(), natural);
  give(natural - 20);
  EXPECT_EQ(view->horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(view->horizontalHeader()->length(), view->viewport()->width());
  EXPECT_LT(view->columnWidth(root_column::comment), comment);
  EXPECT_EQ(view->columnWidth(root_column::area), area);
  // The bar that comes with more rows takes room away.
  copy.grdRoot.set_data_rows(200);
  copy.fit_pictures();
  view->refresh();
  QCoreApplication::processEvents();
  EXPECT_GT(view->verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(view->horizontalScrollBar()->maximum(), 0);
  // Where the bar is needed anyway the texts have their room.
  give(natural / 2);
  EXPECT_GT(view->horizontalScrollBar()->maximum(), 0);
  EXPECT_EQ(view->columnWidth(root_column::comment), comment);
}

TEST_F(Edit_Grid_Test, Junctions_Are_Shown_As_Filled_By_The_Program) {
  show(Folder::node);
  for (const int col : {int(node_column::junctions), node_column::junc + 4}) {
    EXPECT_EQ(look(1, col, Qt::ForegroundRole).value<QColor>(),
              view->palette().color(QPalette::PlaceholderText));
    EXPECT_EQ(look(1, col, Qt::ToolTipRole).toString(), "Filled from the airways by the check");
  }
  EXPECT_FALSE(look(1, node_column::elev, Qt::ForegroundRole).isValid());
}

// --- Characters composed of several keys

TEST_F(Edit_Grid_Test, A_Composed_Character_Opens_The_Editor) {
  show(Folder::node);
  view->show_cell(1, node_column::comment);
  EXPECT_TRUE(view->testAttribute(Qt::WA_InputMethodEnabled));
  QInputMethodEvent begun("^", {});
  QCoreApplication::sendEvent(view, &begun);
  EXPECT_TRUE(view->editor()->isVisible());
  EXPECT_TRUE(view->hasFocus());  // or the composition would break off
  QInputMethodEvent done;
  done.setCommitString(QString::fromUtf8("\u00e2"));
  QCoreApplication::sendEvent(view, &done);
  EXPECT_TRUE(view->editor()->hasFocus());
  EXPECT_EQ(view->editor()->text(), QString::fromUtf8("\u00e2"));
  EXPECT_EQ(db.Edit_Node, 1);
  key(Qt::Key_Return);
  EXPECT_EQ(text(1, node_column::comment), "\u00e2");
}

// --- Large mines, other grids

TEST_F(Edit_Grid_Test, A_Full_Airway_Grid_Takes_No_More_Rows) {
  copy.grdRoot.set_data_rows(max_grid_rows);
  for (int row = 1; row < max_grid_rows; ++row) copy.grdRoot.set_text(row, 0, Airway_Title(1, row));
  copy.fit_pictures();
  show(Folder::airway);
  EXPECT_EQ(view->model()->rowCount(), max_grid_rows);
  view->show_cell(max_grid_rows, root_column::name);
  type("7 - 3");
  key(Qt::Key_Return);
  EXPECT_EQ(text(max_grid_rows, root_column::name), "7 - 3");
  EXPECT_EQ(view->model()->rowCount(), max_grid_rows);
  EXPECT_EQ(current(), Place(max_grid_rows, root_column::name));
}

TEST_F(Edit_Grid_Test, Refresh_Keeps_Place_And_Selection) {
  show(Folder::airway);
  view->show_cell(5, 3);
  key(Qt::Key_Down, Qt::ShiftModifier);
  const int top = view->verticalScrollBar()->value();
  copy.grdRoot.set_text(5, 3, "0.5");
  view->refresh();
  EXPECT_EQ(look(5, 3, Qt::DisplayRole).toString(), "0.5");
  EXPECT_EQ(copy.grdRoot.Row, 5);
  EXPECT_EQ(copy.grdRoot.RowSel, 6);
  EXPECT_EQ(view->selectionModel()->selectedIndexes().size(), 2);
  EXPECT_EQ(view->verticalScrollBar()->value(), top);
  EXPECT_TRUE(view->hasFocus());
  // What a paste has selected is marked.
  Paste_Folder(db, copy, Folder::airway, "1\t2\t3\r4\t5\t6\r");
  view->refresh();
  EXPECT_EQ(view->selectionModel()->selectedIndexes().size(), 6);
  EXPECT_EQ(look(6, 5, Qt::DisplayRole).toString(), "6");
  // Rows that have gone take the current cell along with them.
  copy.grdRoot.set_data_rows(1);
  view->refresh();
  EXPECT_EQ(view->model()->rowCount(), 1);
}

TEST_F(Edit_Grid_Test, Shows_The_Fan_Page_In_Front) {
  Add_Fan_Page(db, copy);
  copy.fan_in_front = 1;
  show(Folder::mainfan);
  EXPECT_EQ(view->model()->headerData(0, Qt::Vertical).toString(), "No. 1");
  const QString first = look(1, fan_column::flow, Qt::DisplayRole).toString();
  ASSERT_FALSE(first.isEmpty());
  copy.fan_in_front = copy.MFan_GridTotal;
  view->refresh();
  EXPECT_EQ(look(1, fan_column::flow, Qt::DisplayRole).toString(), "");
  view->show_cell(1, fan_column::flow);
  type("600");
  key(Qt::Key_Return);
  EXPECT_EQ(copy.fan(copy.MFan_GridTotal).grdMFan.text(1, fan_column::flow), "600");
  copy.fan_in_front = 1;
  view->refresh();
  EXPECT_EQ(look(1, fan_column::flow, Qt::DisplayRole).toString(), first);
}

}  // namespace
}  // namespace branok
