// A grid of the size of a large mine, worked with mouse and keyboard.
#include "ui/grid_view.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>

namespace branok {
namespace {

class Large_Grid : public testing::Test {
 protected:
  void SetUp() override {
    grid.set_data_rows(rows);
    for (int row = 0; row <= rows; ++row) {
      for (int col = 0; col < grid.Cols(); ++col) {
        if (row > 0) grid.set_text(row, col, std::to_string(row) + '/' + std::to_string(col));
      }
    }
    view.resize(500, 400);
    view.show_grid();
    view.show();
    // Where no window manager does it.
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&view));
    QApplication::setActiveWindow(&view);
    view.setFocus();
    QCoreApplication::processEvents();
  }
  [[nodiscard]] std::pair<int, int> current() const {
    return {view.currentIndex().row() + 1, view.currentIndex().column()};
  }
  void key(Qt::Key which, Qt::KeyboardModifiers with = {}) { QTest::keyClick(&view, which, with); }
  [[nodiscard]] QPoint cell(int row, int col) const {
    return view.visualRect(view.model()->index(row - 1, col)).center();
  }
  static QString copied() { return QApplication::clipboard()->text(); }
  using Place = std::pair<int, int>;

  static constexpr int rows = 2600;
  Text_Grid grid{{"No.\r", "A\r(m)", "B\r(m)", "C\r(m)"}};
  Grid_View view{grid};
};

TEST_F(Large_Grid, KeysMoveTheCurrentCell) {
  EXPECT_EQ(current(), Place(1, 1));
  key(Qt::Key_End);
  EXPECT_EQ(current(), Place(1, 3));
  key(Qt::Key_Home);
  EXPECT_EQ(current(), Place(1, 1));
  key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(current(), Place(rows, 3));
  key(Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(current(), Place(1, 1));
  key(Qt::Key_PageDown);
  EXPECT_GT(current().first, 5);
  EXPECT_LT(current().first, 50);
  key(Qt::Key_PageUp);
  EXPECT_EQ(current(), Place(1, 1));
  key(Qt::Key_Left);
  EXPECT_EQ(current(), Place(1, 1));  // the titles are no cells
}

TEST_F(Large_Grid, ABlockIsSelectedWithShiftAndArrows) {
  key(Qt::Key_Down);
  key(Qt::Key_Down, Qt::ShiftModifier);
  key(Qt::Key_Right, Qt::ShiftModifier);
  key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(copied(), "2/1\t2/2\n3/1\t3/2\n");
  view.take_selection();
  EXPECT_EQ(grid.Row, 2);
  EXPECT_EQ(grid.RowSel, 3);
  EXPECT_EQ(grid.Col, 1);
  EXPECT_EQ(grid.ColSel, 2);
}

TEST_F(Large_Grid, ABlockIsSelectedWithTheMouse) {
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, cell(2, 2));
  QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, cell(4, 3));
  key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(copied(), "2/2\t2/3\n3/2\t3/3\n4/2\t4/3\n");
}

TEST_F(Large_Grid, TitlesSelectRowsAndHeadingsColumns) {
  const QHeaderView* const titles = view.verticalHeader();
  QTest::mouseClick(titles->viewport(), Qt::LeftButton, {},
                    QPoint(5, titles->sectionViewportPosition(2) + 5));
  key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(copied(), "3/1\t3/2\t3/3\n");
  const QHeaderView* const headings = view.horizontalHeader();
  QTest::mouseClick(headings->viewport(), Qt::LeftButton, {},
                    QPoint(headings->sectionViewportPosition(2) + 20, 5));
  key(Qt::Key_C, Qt::ControlModifier);
  EXPECT_TRUE(copied().startsWith("1/2\n2/2\n3/2\n"));
  EXPECT_EQ(copied().count('\n'), rows);
}

TEST_F(Large_Grid, HeadingsStayWhileRowsScroll) {
  key(Qt::Key_End, Qt::ControlModifier);
  EXPECT_GT(view.verticalScrollBar()->value(), 2000);
  EXPECT_TRUE(view.horizontalHeader()->isVisible());
  EXPECT_EQ(view.horizontalHeader()->pos().y(), 1);
  EXPECT_EQ(view.model()->headerData(1, Qt::Horizontal).toString(), "A\n(m)");
}

TEST_F(Large_Grid, KeepsTheWidthsThatTheUserHasDragged) {
  QHeaderView* const headings = view.horizontalHeader();
  const int other = headings->sectionSize(1);
  const QPoint edge(headings->sectionViewportPosition(2) + headings->sectionSize(2) - 2, 10);
  QTest::mousePress(headings->viewport(), Qt::LeftButton, {}, edge);
  QTest::mouseMove(headings->viewport(), edge + QPoint(30, 0));
  QTest::mouseMove(headings->viewport(), edge + QPoint(60, 0));
  QTest::mouseRelease(headings->viewport(), Qt::LeftButton, {}, edge + QPoint(60, 0));
  const int dragged = headings->sectionSize(2);
  ASSERT_GT(dragged, other + 40);
  grid.set_text(1, 1, "a wider text");
  view.show_grid();
  EXPECT_EQ(headings->sectionSize(2), dragged);
  EXPECT_GT(headings->sectionSize(1), other);
  // Another font fits everything anew.
  QFont font = view.font();
  font.setPointSize(font.pointSize() - 1);
  view.setFont(font);
  EXPECT_LT(headings->sectionSize(2), dragged);
}

TEST_F(Large_Grid, StaysWhereItWasWhenFilledAnew) {
  view.go_to_row(1300);
  const int top = view.verticalScrollBar()->value();
  view.show_grid();
  EXPECT_EQ(current(), Place(1300, 1));
  EXPECT_EQ(view.verticalScrollBar()->value(), top);
  view.go_to_row(99999);
  EXPECT_EQ(current().first, rows);
}

}  // namespace
}  // namespace branok
