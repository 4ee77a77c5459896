// What a copied block looks like to other programs.
#include "ui/grid_clipboard.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>

#include "ui/grid_view.h"

// How a failed comparison shows a text.
inline void PrintTo(const QString& text, std::ostream* out) { *out << qPrintable(text); }

namespace branok {
namespace {

TEST(Grid_Clipboard, Text_Has_Tabs_And_A_Line_Feed_After_Every_Row) {
  EXPECT_EQ(Clipboard_Form("1\t2\r3\t4")->text(), "1\t2\n3\t4\n");
  EXPECT_EQ(Clipboard_Form("")->text(), "\n");  // an empty cell is one row
  EXPECT_EQ(Clipboard_Form("a\t\r\t")->text(), "a\t\n\t\n");
}

TEST(Grid_Clipboard, Table_Is_Escaped) {
  EXPECT_EQ(Clipboard_Form("  1 ->   2\ta & b\r<i>\t\"")->html(),
            "<meta charset=\"utf-8\"><table>\n"
            "<tr><td>  1 -&gt;   2</td><td>a &amp; b</td></tr>\n"
            "<tr><td>&lt;i&gt;</td><td>&quot;</td></tr>\n"
            "</table>\n");
}

TEST(Grid_Clipboard, Csv_Is_Quoted_Where_It_Must_Be) {
  const auto csv = [](const char* clip) {
    return QString::fromUtf8(Clipboard_Form(clip)->data("text/csv"));
  };
  EXPECT_EQ(csv("1\t2.5\r\tx"), "1,2.5\r\n,x\r\n");
  EXPECT_EQ(csv("a, b\tsay \"no\""), "\"a, b\",\"say \"\"no\"\"\"\r\n");
  EXPECT_EQ(csv("  1 ->   2"), "\"  1 ->   2\"\r\n");  // blanks at the edge belong to it
}

TEST(Grid_Clipboard, Texts_Of_Older_Files_Are_Shown_As_They_Are_Read) {
  EXPECT_EQ(Clipboard_Form("20 \xb0"
                           "C")
                ->text(),
            QString::fromUtf8("20 \u00b0C\n"));
}

TEST(Grid_Clipboard, Goes_Over_The_Clipboard) {
  Copy_To_Clipboard("1\t2\r3\t4");
  EXPECT_EQ(Clipboard_Text(), "1\t2\n3\t4\n");
  EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasHtml());
  EXPECT_TRUE(QApplication::clipboard()->mimeData()->hasFormat("text/csv"));
  QApplication::clipboard()->clear();
  EXPECT_EQ(Clipboard_Text(), "");
}

TEST(Grid_Clipboard, A_Grid_Without_A_Cell_Leaves_The_Clipboard_Alone) {
  Copy_To_Clipboard("before");
  Text_Grid grid({"No.\r", "A\r"});
  Grid_View view(grid);
  view.copy_selection();
  EXPECT_EQ(Clipboard_Text(), "before\n");
  grid.set_data_rows(1);
  view.show_grid();
  view.go_to_row(1);
  view.copy_selection();
  EXPECT_EQ(Clipboard_Text(), "\n");  // an empty cell is copied like any other
}

}  // namespace
}  // namespace branok
