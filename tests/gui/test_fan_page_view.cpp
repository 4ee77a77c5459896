// The page of the main fans: fields, tabs, table.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>
#include <QVBoxLayout>
#include <memory>

#include "prep/edit_commands.h"
#include "prep/edit_history.h"
#include "ui/edit_grid.h"
#include "ui/fan_page_view.h"

namespace branok {
namespace {

class Fan_Page_Test : public testing::Test {
 protected:
  Fan_Page_Test() {
    New_Database(db, "2024/01/01");
    Fill_Database_Window(db, copy);
    db.Flag_Results = flag_true;
  }

  void open(int fans = 1) {
    while (copy.MFan_GridTotal < fans) Add_Fan_Page(db, copy);
    while (copy.MFan_GridTotal > fans) Remove_Fan_Page(db, copy);
    copy.fan_in_front = fans > 0 ? 1 : 0;
    db.Edit_MFan = 0;
    db.Flag_Results = flag_true;
    history.start(copy);
    auto* const rows = new QVBoxLayout(&window);
    view = new Fan_Page_View(db, copy);
    elsewhere = new QPushButton("Elsewhere");
    rows->addWidget(view);
    rows->addWidget(elsewhere);
    window.resize(800, 600);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    typed = std::make_unique<QSignalSpy>(view, &Fan_Page_View::typed);
    edited = std::make_unique<QSignalSpy>(view, &Fan_Page_View::edited);
    command = std::make_unique<QSignalSpy>(view, &Fan_Page_View::command);
  }

  template <class Control>
  Control& control(const QString& name) {
    auto* const found = view->findChild<Control*>(name);
    if (found == nullptr) throw std::runtime_error(name.toStdString());
    return *found;
  }
  QLineEdit& field(int k) { return control<QLineEdit>(QString("txtData%1").arg(k)); }
  QCheckBox& box() { return control<QCheckBox>("Surface_Fan"); }
  QComboBox& pictures() { return control<QComboBox>("cboView3"); }
  QTabBar& tabs() { return control<QTabBar>("tabFan"); }
  const Fan_Page& page(int f = 1) const { return copy.fan(f); }

  // Types over a field, and stays there.
  void type(int k, const QString& text) {
    field(k).setFocus();
    field(k).selectAll();
    QTest::keyClicks(&field(k), text);
  }
  // Types into a cell of the table; its editor has the keyboard from the first key on.
  void type_cell(int row, int col, const QString& text) {
    view->grid()->show_cell(row, col);
    for (const QChar& c : text) QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
  }
  void leave() { elsewhere->setFocus(); }
  static void press(int key) { QTest::keyClick(QApplication::focusWidget(), Qt::Key(key)); }
  static QString focus() { return QApplication::focusWidget()->objectName(); }
  static bool tinted(const QLineEdit& text) {
    return text.palette().color(QPalette::Base) == Doubt_Color(QApplication::palette());
  }

  Database db;
  Edit_Copy copy;
  Edit_History history;
  QWidget window;
  Fan_Page_View* view = nullptr;
  QPushButton* elsewhere = nullptr;
  std::unique_ptr<QSignalSpy> typed, edited, command;
};

TEST_F(Fan_Page_Test, Controls_Have_Their_Texts) {
  open();
  EXPECT_NE(view->findChild<QFrame*>("fraContena"), nullptr);
  const QStringList titles = {"Change\nTotal# of\n Main Fans",
                              "&1. Suction Node",
                              "&2. Discharge. Node",
                              "&3. Standard r.p.m.",
                              "&4. Driving r.p.m.",
                              "&5. Limit Flow",
                              "&6. Comm.",
                              "&7. Pic. File"};
  for (int k = 0; k < titles.size(); ++k) {
    auto& title = control<QLabel>(QString("lblTitle%1").arg(k));
    EXPECT_EQ(title.text(), titles[k]);
    if (k > 0) {
      EXPECT_EQ(title.buddy(),
                k < 7 ? static_cast<QWidget*>(&field(k)) : static_cast<QWidget*>(&pictures()));
    }
  }
  EXPECT_EQ(box().text(), "Surface Main Fan");
  EXPECT_EQ(control<QLabel>("Set_Fan").text(),
            "For the case of Surface Fan, Suction and Discharge Nodes are set to the same node.");
  EXPECT_EQ(control<QPushButton>("cmdPlus").text(), "+");
  EXPECT_EQ(control<QPushButton>("cmdMinus").text(), "-");
  EXPECT_EQ(control<QPushButton>("Com_Graph").text(), "Draw Graph");
  EXPECT_EQ(view->grid()->objectName(), "grdMFan");
  EXPECT_EQ(view->grid()->model()->rowCount(), 20);
}

TEST_F(Fan_Page_Test, Shows_The_Fan_In_Front) {
  Set_Fan_Field(db, copy, Fan_Page::comment, "north");
  Set_Fan_Picture(db, copy, 2, "b.jpg");
  open(2);
  EXPECT_EQ(tabs().count(), 2);
  EXPECT_EQ(tabs().tabText(1), "Main Fan No.2");
  EXPECT_EQ(field(1).text(), "5");
  EXPECT_EQ(field(2).text(), "5");
  EXPECT_TRUE(field(2).isReadOnly());
  EXPECT_EQ(field(3).text(), "500");
  EXPECT_EQ(field(4).text(), "500");
  EXPECT_EQ(field(5).text(), "10000");
  EXPECT_EQ(field(6).text(), "north");
  EXPECT_TRUE(box().isChecked());
  ASSERT_EQ(pictures().count(), 3);
  EXPECT_EQ(pictures().itemText(1), "b.jpg");
  EXPECT_EQ(view->grid()->model()->index(1, 1).data().toString(), "2000.0");
  tabs().setCurrentIndex(1);
  EXPECT_EQ(copy.fan_in_front, 2);
  EXPECT_EQ(field(1).text(), "");
  EXPECT_EQ(field(6).text(), "");
  EXPECT_EQ(pictures().itemText(1), "");
  EXPECT_EQ(view->grid()->model()->index(1, 1).data().toString(), "");
  EXPECT_EQ(db.Edit_MFan, 0);
  EXPECT_NE(db.Flag_Results, 0);
  EXPECT_TRUE(edited->isEmpty());
}

TEST_F(Fan_Page_Test, A_Mine_Without_Fans_Says_What_To_Do) {
  open(0);
  EXPECT_EQ(tabs().count(), 0);
  EXPECT_FALSE(tabs().isVisible());
  EXPECT_TRUE(control<QLabel>("lblNoFan").isVisible());
  EXPECT_EQ(control<QLabel>("lblNoFan").text(), "This mine has no main fan. + adds one.");
  for (int k = 1; k <= 6; ++k) {
    EXPECT_FALSE(field(k).isEnabled());
    EXPECT_EQ(field(k).text(), "");
  }
  EXPECT_FALSE(pictures().isEnabled());
  EXPECT_FALSE(box().isEnabled());
  EXPECT_FALSE(view->grid()->isEnabled());
  EXPECT_FALSE(control<QPushButton>("Com_Graph").isEnabled());
  EXPECT_FALSE(control<QPushButton>("cmdMinus").isEnabled());
  EXPECT_TRUE(control<QPushButton>("cmdPlus").isEnabled());
  view->finish_typing();
  Add_Fan_Page(db, copy);
  view->refresh();
  EXPECT_FALSE(control<QLabel>("lblNoFan").isVisible());
  EXPECT_TRUE(tabs().isVisible());
  EXPECT_TRUE(field(1).isEnabled());
  EXPECT_EQ(field(3).text(), "500");
}

TEST_F(Fan_Page_Test, Every_Key_Is_An_Edit_And_Leaving_Is_One_Act) {
  open();
  type(3, "750");
  EXPECT_EQ(page().text[3], "750");
  EXPECT_EQ(db.Edit_MFan, 1);
  EXPECT_EQ(db.Flag_Results, 0);
  EXPECT_EQ(typed->count(), 3);
  EXPECT_TRUE(edited->isEmpty());
  leave();
  EXPECT_EQ(edited->count(), 1);
  field(3).setFocus();
  leave();
  EXPECT_EQ(edited->count(), 1);  // nothing was typed
}

TEST_F(Fan_Page_Test, A_Field_Is_Formatted_When_It_Is_Left) {
  open();
  box().click();
  for (const auto& [k, text, shown] :
       {std::tuple(1, "3.4", "3"), std::tuple(2, " 4 ", "4"), std::tuple(3, "600.5", "601"),
        std::tuple(4, "6e2", "600"), std::tuple(5, "8999.6", "9000"), std::tuple(6, "1.50", "1.50"),
        std::tuple(5, "much", "much")}) {
    type(k, text);
    leave();
    EXPECT_EQ(field(k).text(), shown);
    EXPECT_EQ(page().text.at(static_cast<std::size_t>(k)), shown);
  }
}

TEST_F(Fan_Page_Test, A_Field_That_Is_Looked_At_Keeps_Its_Last_Digit) {
  copy.fan(1).value[3] = 500.25;
  open();
  field(3).setFocus();
  leave();
  EXPECT_EQ(page().value[3], 500.25);
  EXPECT_EQ(db.Edit_MFan, 0);
  EXPECT_TRUE(edited->isEmpty());
}

TEST_F(Fan_Page_Test, The_Discharge_Node_Follows_That_Of_A_Surface_Fan) {
  open();
  type(1, "12");
  EXPECT_EQ(field(2).text(), "12");
  EXPECT_EQ(page().text[2], "12");
  QTest::keyClicks(&field(2), "7");
  EXPECT_EQ(field(2).text(), "12");
  leave();
  QTest::mouseClick(&box(), Qt::LeftButton, {}, QPoint(8, box().height() / 2));
  EXPECT_FALSE(page().surface);
  EXPECT_FALSE(field(2).isReadOnly());
  EXPECT_EQ(edited->count(), 2);
  type(2, "3");
  type(1, "4");
  EXPECT_EQ(field(2).text(), "3");
  QTest::mouseClick(&box(), Qt::LeftButton, {}, QPoint(8, box().height() / 2));
  EXPECT_TRUE(page().surface);
  EXPECT_EQ(field(2).text(), "4");
  EXPECT_EQ(page().text[2], "4");
  EXPECT_EQ(edited->count(), 5);  // two fields and the box
}

TEST_F(Fan_Page_Test, Turning_The_Page_Ends_The_Typing_On_The_Old_One) {
  open(3);
  type(5, "8000.4");
  QTest::mouseClick(&tabs(), Qt::LeftButton, {}, tabs().tabRect(2).center());
  EXPECT_EQ(copy.fan_in_front, 3);
  EXPECT_EQ(page(1).text[5], "8000");
  EXPECT_EQ(page(3).text[5], "9000");
  EXPECT_EQ(field(5).text(), "9000");
  EXPECT_EQ(edited->count(), 1);
  type_cell(1, fan_column::flow, "123");
  tabs().setCurrentIndex(1);
  EXPECT_EQ(page(3).grdMFan.text(1, 1), "123");
  EXPECT_EQ(page(2).grdMFan.text(1, 1), "");
  EXPECT_EQ(edited->count(), 2);
}

TEST_F(Fan_Page_Test, Keys_Go_From_Field_To_Field) {
  open();
  field(1).setFocus();
  for (const char* name : {"txtData3", "txtData4", "txtData5", "txtData6", "txtData6"}) {
    press(Qt::Key_Down);
    EXPECT_EQ(focus(), name);
  }
  for (const char* name : {"txtData5", "txtData4", "txtData3", "txtData1", "txtData1"}) {
    press(Qt::Key_Up);
    EXPECT_EQ(focus(), name);
  }
  box().click();
  field(1).setFocus();
  for (const char* name :
       {"txtData2", "txtData3", "txtData4", "txtData5", "txtData6", "cboView3", "grdMFan"}) {
    press(Qt::Key_Return);
    EXPECT_EQ(focus(), name);
  }
  field(2).setFocus();
  press(Qt::Key_Enter);
  EXPECT_EQ(field(3).selectedText(), "500");
}

TEST_F(Fan_Page_Test, Tab_Goes_As_The_Fields_Are_Numbered) {
  open();
  box().click();
  tabs().setFocus();
  QStringList order;
  for (int k = 0; k < 12; ++k) {
    order << focus();
    press(Qt::Key_Tab);
  }
  EXPECT_EQ(order,
            QStringList({"tabFan", "cmdPlus", "cmdMinus", "txtData1", "txtData2", "Surface_Fan",
                         "txtData3", "txtData4", "txtData5", "txtData6", "cboView3", "grdMFan"}));
}

TEST_F(Fan_Page_Test, A_Doubtful_Text_Is_Tinted_And_Says_Why) {
  open();
  box().click();
  for (const auto& [k, text, why] :
       {std::tuple(1, "x", "Please input numeric data."), std::tuple(1, "551", "out of range"),
        std::tuple(2, "0", "out of range"), std::tuple(2, "1.5", "out of range"),
        std::tuple(3, "0", "Change the Standard revolution rate !"),
        std::tuple(4, "-1", "Change the Driving revolution rate !"),
        std::tuple(4, "fast", "Please input numeric data."),
        std::tuple(5, "20001", "'Limit Flow Rate' Column"),
        std::tuple(5, "1,5", "Please input numeric data.")}) {
    type(k, text);
    EXPECT_TRUE(tinted(field(k))) << k << text;
    EXPECT_TRUE(field(k).toolTip().contains(why)) << field(k).toolTip().toStdString();
  }
  for (const auto& [k, text] :
       {std::pair(1, "550"), std::pair(2, "1"), std::pair(3, "0.5"), std::pair(4, " 10 "),
        std::pair(5, "20000"), std::pair(5, "0"), std::pair(6, "anything")}) {
    type(k, text);
    EXPECT_FALSE(tinted(field(k))) << k << text;
    EXPECT_EQ(field(k).toolTip(), "");
  }
  field(1).clear();
  view->refresh();
  EXPECT_FALSE(tinted(field(1)));
}

TEST_F(Fan_Page_Test, Picture_Names_Are_Typed_Line_By_Line) {
  open();
  pictures().setFocus();
  QTest::keyClicks(&pictures(), "a.png");
  EXPECT_EQ(page().pictures[0], "a.png");
  EXPECT_EQ(db.Edit_MFan, 1);
  EXPECT_EQ(typed->count(), 5);
  pictures().setCurrentIndex(2);
  EXPECT_EQ(pictures().currentText(), "");
  QTest::keyClicks(&pictures(), "c");
  QTest::keyClick(&pictures(), Qt::Key_Return);
  EXPECT_EQ(edited->count(), 2);  // one act for each name
  EXPECT_EQ(page().pictures, (Picture_Row{"a.png", "", "c"}));
  view->refresh();
  EXPECT_EQ(pictures().currentIndex(), 2);
  EXPECT_EQ(pictures().itemText(0), "a.png");
}

TEST_F(Fan_Page_Test, The_Same_Name_In_Two_Lines_Stays_In_Both) {
  Set_Fan_Picture(db, copy, 1, "a");
  open();
  pictures().setCurrentIndex(1);
  pictures().setFocus();
  QTest::keyClicks(&pictures(), "ab");
  leave();
  EXPECT_EQ(pictures().currentIndex(), 1);
  EXPECT_EQ(page().pictures, (Picture_Row{"a", "ab", ""}));
}

TEST_F(Fan_Page_Test, Cells_Of_The_Table_Are_Edits) {
  open();
  type_cell(1, fan_column::flow, "1500");
  EXPECT_EQ(typed->count(), 1);
  EXPECT_TRUE(view->focused_text() != nullptr);
  EXPECT_EQ(view->focused_text(), view->grid()->editor());
  view->finish_typing();
  EXPECT_EQ(edited->count(), 1);
  EXPECT_EQ(page().grdMFan.text(1, fan_column::flow), "1500");
  EXPECT_EQ(db.Edit_MFan, 1);
  EXPECT_EQ(db.Flag_Results, 0);
}

TEST_F(Fan_Page_Test, Buttons_Ask_For_Their_Commands) {
  open(2);
  type(5, "7000");
  for (const char* name : {"cmdPlus", "cmdMinus", "Com_Graph"}) {
    QTest::mouseClick(&control<QPushButton>(name), Qt::LeftButton);
  }
  QStringList asked;
  for (const QList<QVariant>& arguments : *command) asked << arguments.first().toString();
  EXPECT_EQ(asked, QStringList({"cmdPlus", "cmdMinus", "mnuDataComGraph"}));
  EXPECT_EQ(edited->count(), 1);
  EXPECT_EQ(copy.MFan_GridTotal, 2);  // the commands themselves are the main window's
}

TEST_F(Fan_Page_Test, Shows_The_Place_Of_A_Fault) {
  open(3);
  view->show_place({.folder = Folder::mainfan, .fan = 2, .field = Fan_Page::limit_flow});
  EXPECT_EQ(copy.fan_in_front, 2);
  EXPECT_EQ(tabs().currentIndex(), 1);
  EXPECT_EQ(focus(), "txtData5");
  EXPECT_EQ(field(5).selectedText(), "9000");
  view->show_place(
      {.folder = Folder::mainfan, .row = 4, .col = fan_column::head, .fan = 3, .field = 0});
  EXPECT_EQ(copy.fan_in_front, 3);
  EXPECT_EQ(focus(), "grdMFan");
  EXPECT_EQ(view->grid()->currentIndex().row(), 3);
  EXPECT_EQ(view->grid()->currentIndex().column(), int{fan_column::head});
  view->show_place({.folder = Folder::mainfan, .fan = 1});
  EXPECT_EQ(tabs().currentIndex(), 0);
}

TEST_F(Fan_Page_Test, The_Text_That_Has_The_Keyboard) {
  open();
  leave();
  EXPECT_EQ(view->focused_text(), nullptr);
  field(6).setFocus();
  EXPECT_EQ(view->focused_text(), &field(6));
  pictures().setFocus();
  EXPECT_EQ(view->focused_text(), pictures().lineEdit());
  box().setFocus();
  EXPECT_EQ(view->focused_text(), nullptr);
}

TEST_F(Fan_Page_Test, A_Menu_Leaves_The_Field_As_It_Is) {
  open();
  type(5, "80.7");
  QFocusEvent menu(QEvent::FocusOut, Qt::MenuBarFocusReason);
  QApplication::sendEvent(&field(5), &menu);
  EXPECT_EQ(field(5).text(), "80.7");
  EXPECT_TRUE(edited->isEmpty());
  leave();
  EXPECT_EQ(field(5).text(), "81");
}

TEST_F(Fan_Page_Test, A_Refresh_Leaves_The_Caret_Of_A_Text_That_Is_The_Same) {
  open();
  field(5).setFocus();
  field(5).setCursorPosition(2);
  view->refresh();
  EXPECT_EQ(field(5).cursorPosition(), 2);
}

TEST_F(Fan_Page_Test, Undo_Of_Each_Act_Comes_Back_To_The_Beginning) {
  open(2);
  QObject::connect(view, &Fan_Page_View::edited, [this] { history.note(copy); });
  const Edit_Copy before = copy;
  type(1, "7");
  type(3, "601");
  leave();
  box().click();
  pictures().setFocus();
  QTest::keyClicks(&pictures(), "p");
  tabs().setCurrentIndex(1);
  type_cell(2, fan_column::flow, "95");
  view->finish_typing();
  int steps = 0;
  while (history.can_undo()) {
    const auto place = history.undo(db, copy);
    view->refresh();
    view->show_place(*place);
    ++steps;
  }
  EXPECT_EQ(steps, 5);
  EXPECT_EQ(copy.fan_pages, before.fan_pages);
  EXPECT_EQ(field(1).text(), "5");
  EXPECT_TRUE(box().isChecked());
  EXPECT_TRUE(field(2).isReadOnly());
}

TEST_F(Fan_Page_Test, Bytes_Of_An_Old_Comment_Stay) {
  copy.fan(1).text[Fan_Page::comment] =
      "Sch\xe4"
      "cht";  // Windows-1252
  open();
  EXPECT_EQ(field(6).text(), QString::fromUtf8("Sch\u00e4cht"));
  field(6).setFocus();
  leave();
  EXPECT_EQ(page().text[6],
            "Sch\xe4"
            "cht");
  EXPECT_EQ(db.Edit_MFan, 0);
}

}  // namespace
}  // namespace branok
