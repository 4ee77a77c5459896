// A grid shown to Qt.
#include <gtest/gtest.h>

#include "ui/text_grid_model.h"

namespace branok {
namespace {

TEST(Text_Grid_Model, Headings_And_Titles_Are_Headers) {
  Text_Grid grid({"Nodal\rNo.", "Pressure\r(mmAq)"});
  grid.set_data_rows(1);
  grid.set_text(1, 0, "12");
  grid.set_text(1, 1, "-3.50");
  const Text_Grid_Model model(grid);
  EXPECT_EQ(model.rowCount(), 1);
  EXPECT_EQ(model.columnCount(), 2);
  EXPECT_EQ(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), "Pressure\n(mmAq)");
  EXPECT_EQ(model.headerData(0, Qt::Vertical, Qt::DisplayRole).toString(), "12");
  EXPECT_EQ(model.data(model.index(0, 1), Qt::DisplayRole).toString(), "-3.50");
}

TEST(Text_Grid_Model, A_Long_Text_Is_Shown_To_Its_First_Thousand_Characters) {
  Text_Grid grid({"No.", "Comment"});
  grid.set_data_rows(1);
  const Text_Grid_Model model(grid);
  const auto shown = [&](const std::string& text) {
    grid.set_text(1, 1, text);
    return model.data(model.index(0, 1), Qt::DisplayRole).toString();
  };
  const auto many = [](int count, const std::string& character) {
    std::string text;
    for (int k = 0; k < count; ++k) text += character;
    return text;
  };
  EXPECT_EQ(shown(many(1000, "x")), QString(1000, 'x'));
  EXPECT_EQ(shown(many(10'000'000, "x")), QString(1000, 'x'));
  // Characters of two bytes, of three and of two halves are shown whole.
  EXPECT_EQ(shown(many(5000, "\u00e2")), QString(1000, QChar(0xe2)));
  EXPECT_EQ(shown("x" + many(5000, "\u00e2")), "x" + QString(999, QChar(0xe2)));
  EXPECT_EQ(shown("xx" + many(5000, "\u6708")), "xx" + QString(998, QChar(0x6708)));
  const QString halves = shown("x" + many(5000, "\U0001F300"));
  EXPECT_EQ(halves.size(), 999);
  EXPECT_TRUE(halves.back().isLowSurrogate());
  EXPECT_EQ(shown(many(5000, "\xe2")), QString(1000, QChar(0xe2)));  // bytes of Windows
}

}  // namespace
}  // namespace branok
