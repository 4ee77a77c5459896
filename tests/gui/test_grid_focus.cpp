// The grids in the program's window: where the keyboard is after a command has closed the editor.
#include <QScrollBar>
#include <QTabBar>
#include <QTabWidget>

#include "main_window_test.h"
#include "prep/edit_copy.h"
#include "ui/edit_grid.h"

namespace branok {
namespace {

class Grid_Focus : public Main_Window {
 protected:
  Grid_Focus() {
    give("mnuFileComNew");
    root_ = control<Edit_Grid>("grdRoot");
  }

  // Opens the editor with a digit in a cell of the airways.
  void type_at(int row, int col) {
    tabs()->setCurrentIndex(1);
    root_->show_cell(row, col);
    QTest::keyClick(root_, '8');
    ASSERT_TRUE(root_->editor()->hasFocus());
  }
  [[nodiscard]] QTabWidget* tabs() const { return control<QTabWidget>("tabData"); }
  void expect_at(int row, int col) const {
    EXPECT_FALSE(root_->editing());
    EXPECT_EQ(QApplication::focusWidget(), root_);
    EXPECT_EQ(root_->currentIndex().row() + 1, row);
    EXPECT_EQ(root_->currentIndex().column(), col);
  }

  Edit_Grid* root_ = nullptr;
};

TEST_F(Grid_Focus, Stays_In_The_Cell_When_A_File_Is_Chosen_And_Not_Opened) {
  type_at(2, root_column::area);
  user_.answers = {QMessageBox::No};
  open(mine("mine-a.abk"));
  ASSERT_EQ(user_.boxes.size(), 1U);
  expect_at(2, root_column::area);
}

TEST_F(Grid_Focus, Stays_In_The_Cell_When_The_Window_Is_Not_Closed) {
  type_at(2, root_column::area);
  user_.answers = {QMessageBox::No};
  EXPECT_FALSE(window_->close());
  ASSERT_EQ(user_.boxes.size(), 1U);
  expect_at(2, root_column::area);
}

TEST_F(Grid_Focus, Stays_In_The_Cell_When_The_Check_Finds_It_Wrong) {
  type_at(2, root_column::area);
  QTest::keyClicks(root_->editor(), "888");
  give("mnuDataComCheck");
  ASSERT_FALSE(user_.boxes.empty());
  expect_at(2, root_column::area);
}

TEST_F(Grid_Focus, Comes_Back_To_The_Grid_When_Its_Page_Comes_Back) {
  for (const bool changed : {false, true}) {
    tabs()->setCurrentIndex(1);
    root_->show_cell(2, root_column::area);
    QTest::keyClick(root_, Qt::Key_F2);
    if (changed) QTest::keyClick(root_->editor(), '8');
    QTest::keyClick(root_->editor(), Qt::Key_M, Qt::AltModifier);
    ASSERT_EQ(tabs()->currentIndex(), 4);
    EXPECT_FALSE(tabs()->tabBar()->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_A, Qt::AltModifier);
    ASSERT_EQ(tabs()->currentIndex(), 1);
    expect_at(2, root_column::area);
  }
}

TEST_F(Grid_Focus, Stays_At_The_Tabs_While_They_Are_Turned) {
  type_at(2, root_column::area);
  tabs()->tabBar()->setFocus();
  for (int k = 0; k < 3; ++k) {
    QTest::keyClick(tabs()->tabBar(), Qt::Key_Right);
    EXPECT_TRUE(tabs()->tabBar()->hasFocus());
  }
  EXPECT_EQ(tabs()->currentIndex(), 4);
}

TEST_F(Grid_Focus, All_Columns_Of_The_Airways_Are_In_View_In_A_Window_Of_The_First_Size) {
  tabs()->setCurrentIndex(1);
  root_->rows().grid().insert_rows(2, 60);
  root_->refresh();
  QCoreApplication::processEvents();
  EXPECT_GT(root_->verticalScrollBar()->maximum(), 0);
  EXPECT_EQ(root_->horizontalScrollBar()->maximum(), 0);
}

}  // namespace
}  // namespace branok
