// The Database window: its pages, its texts, what the Edit commands find in it.
#include "ui/database_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QSignalSpy>
#include <QTabBar>
#include <QTest>

#include "core/numbers.h"
#include "demo_mine.h"
#include "prep/edit_commands.h"
#include "ui/grid_clipboard.h"

// How a failed comparison shows a text.
inline void PrintTo(const QString& text, std::ostream* out) { *out << qPrintable(text); }

namespace branok {
namespace {

class Database_Window : public testing::Test {
 protected:
  Database_Window() { open(Demo_Mine()); }

  // The window with another mine.
  void open(Database mine) {
    window.reset();
    db = std::move(mine);
    Fill_Database_Window(db, copy);
    history.start(copy);
    window = std::make_unique<MDIData>(db, copy, history);
    window->load();
    window->resize(900, 600);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    QApplication::setActiveWindow(window.get());
    QCoreApplication::processEvents();
  }
  template <class Widget>
  [[nodiscard]] Widget* find(const char* name) const {
    return window->findChild<Widget*>(name);
  }
  [[nodiscard]] QTabWidget* tabs() const { return find<QTabWidget>("tabData"); }
  Edit_Grid* turn_to(Folder folder) const {
    tabs()->setCurrentIndex(static_cast<int>(folder) + 1);
    return window->grid_view();
  }
  static void key(Qt::Key which, Qt::KeyboardModifiers with = {}) {
    QTest::keyClick(QApplication::focusWidget(), which, with);
  }
  static void type(const std::string& text) {
    for (const char c : text) QTest::keyClick(QApplication::focusWidget(), c);
  }

  Database db;
  Edit_Copy copy;
  Edit_History history;
  std::unique_ptr<MDIData> window;
};

TEST_F(Database_Window, Has_Its_Pages_In_Order) {
  EXPECT_EQ(window->objectName(), "MDIData");
  EXPECT_EQ(window->windowTitle(), "DataBase Window");
  const std::vector<std::pair<QString, std::string>> pages = {
      {"&Basic Data", "network"},   {"&Airways", "airway"},    {"&Nodes", "node"},
      {"&Intake", "Inlet"},         {"&Main Fans", "mainfan"}, {"Assist &Fans", "assistfan"},
      {"&Thermal Cond.", "thermal"}};
  ASSERT_EQ(tabs()->count(), static_cast<int>(pages.size()));
  EXPECT_EQ(tabs()->currentIndex(), 0);
  QSignalSpy turned(window.get(), &MDIData::target_changed);
  for (int k = 0; k < tabs()->count(); ++k) {
    tabs()->setCurrentIndex(k);
    EXPECT_EQ(tabs()->tabText(k), pages[static_cast<std::size_t>(k)].first);
    EXPECT_EQ(window->page_tag(), pages[static_cast<std::size_t>(k)].second);
    EXPECT_EQ(window->folder().has_value(), k > 0);
  }
  EXPECT_EQ(turned.count(), tabs()->count() - 1);
  for (const char* const name : {"grdRoot", "grdNode", "grdInlet", "grdAFan", "grdThermo"}) {
    EXPECT_NE(find<Edit_Grid>(name), nullptr) << name;
  }
  EXPECT_NE(find<QFrame>("fraContena"), nullptr);
}

TEST_F(Database_Window, Keys_Turn_The_Pages_And_Lead_To_The_Grid) {
  EXPECT_TRUE(find<QLineEdit>("txtMine")->hasFocus());
  key(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(window->page_tag(), "airway");
  EXPECT_TRUE(find<Edit_Grid>("grdRoot")->hasFocus());
  key(Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_TRUE(find<Edit_Grid>("grdNode")->hasFocus());
  for (int k = 0; k < 2; ++k) key(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_TRUE(find<QLineEdit>("txtMine")->hasFocus());
  key(Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(window->page_tag(), "thermal");
  // At the tabs themselves the arrows turn on.
  tabs()->tabBar()->setFocus();
  key(Qt::Key_Left);
  key(Qt::Key_Left);
  EXPECT_EQ(window->page_tag(), "mainfan");
}

TEST_F(Database_Window, Turning_The_Page_Keeps_What_Was_Typed) {
  turn_to(Folder::inlet)->show_cell(2, inlet_column::comment);
  type("shaft");
  turn_to(Folder::airway);
  EXPECT_EQ(copy.grdInlet.text(2, inlet_column::comment), "shaft");
  EXPECT_TRUE(history.can_undo());
}

TEST_F(Database_Window, Name_And_Date_Of_The_Mine_Are_Stored_As_They_Are_Typed) {
  db.Flag_Results = flag_true;
  auto* const txtMine = find<QLineEdit>("txtMine");
  auto* const txtTime = find<QLineEdit>("txtTime");
  EXPECT_EQ(find<QLabel>("lblDataVer")->text(), QString::number(db.Data_Ver));
  EXPECT_EQ(find<QGroupBox>("Frm_Mine")->title(), "Mine Data");
  EXPECT_EQ(txtMine->text().toStdString(), Trim(db.Mine_Name));
  EXPECT_EQ(txtTime->text().toStdString(), Trim(db.Mine_Date));
  QSignalSpy edited(window.get(), &MDIData::edited);
  txtMine->setFocus();
  EXPECT_EQ(window->edit_tag(), "datatextM");
  txtMine->selectAll();
  type("East");
  EXPECT_EQ(db.Mine_Name, "East");
  txtMine->insert(" 2");  // as a paste does
  EXPECT_EQ(db.Mine_Name, "East 2");
  txtTime->setFocus();
  EXPECT_EQ(window->edit_tag(), "datatextT");
  txtTime->clear();
  txtTime->setCursorPosition(0);
  type("2001/02/03");
  EXPECT_EQ(db.Mine_Date, "2001/02/03");
  EXPECT_EQ(edited.count(), 15);
  EXPECT_EQ(db.Flag_Results, flag_true);  // the results do not depend on them
}

TEST_F(Database_Window, Tells_What_The_Edit_Commands_Work_On) {
  for (const Folder folder : all_folders) {
    Edit_Grid* const grid = turn_to(folder);
    EXPECT_EQ(window->edit_tag(), Page_Tag(folder));
    EXPECT_EQ(window->focused_text(), nullptr);
    grid->show_cell(1, 2);
    QSignalSpy changed(window.get(), &MDIData::target_changed);
    type("1");
    EXPECT_EQ(window->edit_tag(), "datatext" + std::to_string(static_cast<int>(folder) + 1));
    EXPECT_EQ(window->focused_text(), grid->editor());
    EXPECT_EQ(changed.count(), 1);
    key(Qt::Key_Escape);
    EXPECT_EQ(window->edit_tag(), Page_Tag(folder));
    EXPECT_EQ(changed.count(), 2);
  }
}

TEST_F(Database_Window, A_Text_Stays_The_Target_While_The_Menu_Bar_Has_The_Keyboard) {
  QMenuBar bar(window.get());
  bar.addMenu("&Edit")->addAction("Cu&t");
  bar.show();
  auto* const txtMine = find<QLineEdit>("txtMine");
  tabs()->setCurrentIndex(0);
  txtMine->setFocus();
  Edit_Grid* const grid = turn_to(Folder::airway);
  grid->show_cell(1, 2);
  type("4");
  QFocusEvent out(QEvent::FocusOut, Qt::MenuBarFocusReason);
  QCoreApplication::sendEvent(grid->editor(), &out);
  EXPECT_EQ(window->edit_tag(), "datatext1");
  EXPECT_EQ(window->focused_text(), grid->editor());
}

TEST_F(Database_Window, Commands_Find_The_Typing_Finished) {
  Edit_Grid* const grid = turn_to(Folder::assistfan);
  grid->show_cell(1, assist_column::head);
  QSignalSpy edited(window.get(), &MDIData::edited);
  type("55");
  window->finish_typing();
  EXPECT_EQ(copy.grdAFan.text(1, assist_column::head), "55");
  EXPECT_EQ(edited.count(), 1);
  EXPECT_EQ(window->edit_tag(), "assistfan");
  window->finish_typing();
  EXPECT_EQ(edited.count(), 1);
}

TEST_F(Database_Window, Every_Act_Can_Be_Taken_Back) {
  Edit_Grid* const grid = turn_to(Folder::airway);
  const Edit_Copy before = copy;
  grid->show_cell(1, root_column::area);
  type("3");
  key(Qt::Key_Return);
  type("4");
  key(Qt::Key_Return);
  key(Qt::Key_Delete);
  for (int act = 0; act < 3; ++act) {
    const auto place = history.undo(db, copy);
    ASSERT_TRUE(place);
    window->refresh();
    window->show_place(*place);
  }
  EXPECT_FALSE(history.can_undo());
  EXPECT_EQ(copy.grdRoot, before.grdRoot);
  EXPECT_EQ(grid->currentIndex().row(), 0);
}

TEST_F(Database_Window, Goes_To_A_Place) {
  window->show_place({.folder = Folder::node, .row = 3, .col = node_column::ew});
  EXPECT_EQ(window->page_tag(), "node");
  const Edit_Grid* const nodes = window->grid_view();
  EXPECT_TRUE(nodes->hasFocus());
  EXPECT_EQ(nodes->currentIndex(), nodes->model()->index(2, node_column::ew));
  window->show_place({.folder = Folder::thermal});
  EXPECT_EQ(window->page_tag(), "thermal");
  window->show_place({.folder = Folder::mainfan, .fan = 1});
  EXPECT_EQ(window->page_tag(), "mainfan");
}

TEST_F(Database_Window, Copies_Cells_Or_Text) {
  turn_to(Folder::airway)->show_cell(1, root_column::kind);
  key(Qt::Key_Right, Qt::ShiftModifier);
  window->copy_selection();
  EXPECT_EQ(Clipboard_Text(), copy.grdRoot.text(1, root_column::kind) + "\t" +
                                  copy.grdRoot.text(1, root_column::wind) + "\n");
  type("abc");
  window->focused_text()->setSelection(1, 2);
  window->copy_selection();
  EXPECT_EQ(Clipboard_Text(), "bc");
}

// --- The main fans

TEST_F(Database_Window, Fields_And_Grid_Of_The_Fans_Are_Targets) {
  const Edit_Grid* const grid = turn_to(Folder::mainfan);
  ASSERT_EQ(grid, find<Edit_Grid>("grdMFan"));
  EXPECT_TRUE(grid->hasFocus());
  EXPECT_EQ(window->edit_tag(), "mainfan");
  auto* const limit = find<QLineEdit>("txtData5");
  limit->setFocus();
  EXPECT_EQ(window->edit_tag(), "datatext4");
  EXPECT_EQ(window->focused_text(), limit);
  QSignalSpy edited(window.get(), &MDIData::edited);
  QSignalSpy typed(window.get(), &MDIData::typed);
  limit->selectAll();
  type("8000");
  EXPECT_EQ(edited.count(), 0);
  EXPECT_EQ(typed.count(), 4);
  turn_to(Folder::airway);
  EXPECT_EQ(edited.count(), 1);
  EXPECT_TRUE(history.can_undo());
  EXPECT_EQ(copy.fan(1).text[Fan_Page::limit_flow], "8000");
}

TEST_F(Database_Window, Goes_To_A_Field_Of_A_Fan) {
  Add_Fan_Page(db, copy);
  window->refresh();
  window->show_place({.folder = Folder::mainfan, .fan = 1, .field = Fan_Page::drive_rpm});
  EXPECT_EQ(copy.fan_in_front, 1);
  EXPECT_TRUE(find<QLineEdit>("txtData4")->hasFocus());
  window->show_place({.folder = Folder::mainfan, .row = 3, .col = fan_column::head, .fan = 1});
  EXPECT_TRUE(find<Edit_Grid>("grdMFan")->hasFocus());
  EXPECT_EQ(copy.fan(1).grdMFan.Row, 3);
}

TEST_F(Database_Window, Buttons_Of_The_Fans_Ask_The_Main_Window) {
  turn_to(Folder::mainfan);
  QSignalSpy command(window.get(), &MDIData::command);
  find<QPushButton>("cmdPlus")->click();
  find<QPushButton>("Com_Graph")->click();
  ASSERT_EQ(command.count(), 2);
  EXPECT_EQ(command[0][0].toString(), "cmdPlus");
  EXPECT_EQ(command[1][0].toString(), "mnuDataComGraph");
}

// --- Pictures

TEST_F(Database_Window, The_Pictures_Of_The_Selected_Row_Are_Named) {
  for (const auto& [folder, name] :
       {std::pair(Folder::airway, "cboView0"), std::pair(Folder::node, "cboView1"),
        std::pair(Folder::inlet, "cboView2"), std::pair(Folder::assistfan, "cboView4")}) {
    Edit_Grid* const grid = turn_to(folder);
    auto* const box = find<Picture_Box>(name);
    ASSERT_NE(box, nullptr) << name;
    Set_Picture_Name(copy, folder, 2, 1, "one.png");
    Set_Picture_Name(copy, folder, 2, 3, "three.png");
    history.start(copy);
    grid->show_cell(2, 1);
    EXPECT_TRUE(box->isEnabled());
    EXPECT_EQ(box->currentText(), "one.png");
    EXPECT_EQ(box->itemText(2), "three.png");
    db.Flag_Results = flag_true;
    Edit_Flag(db, folder) = 0;
    box->setFocus();
    box->lineEdit()->selectAll();
    type("new.png");
    EXPECT_EQ(copy.grid(folder).text(2, Picture_Column(folder)), "new.png");
    EXPECT_EQ((*copy.pictures(folder))[2][0], "new.png");
    EXPECT_EQ(Edit_Flag(db, folder), 1);
    EXPECT_EQ(db.Flag_Results, 0);
    box->setCurrentIndex(1);
    type("two.png");
    EXPECT_EQ((*copy.pictures(folder))[2], (Picture_Row{"new.png", "two.png", "three.png"}));
    EXPECT_EQ(copy.grid(folder).text(2, Picture_Column(folder)), "new.png");
    EXPECT_EQ(box->lineEdit()->text(), "two.png");
    grid->show_cell(1, 1);
    // Two names, two acts.
    EXPECT_TRUE(history.undo(db, copy));
    EXPECT_EQ((*copy.pictures(folder))[2], (Picture_Row{"new.png", "", "three.png"}));
    EXPECT_TRUE(history.undo(db, copy));
    EXPECT_FALSE(history.can_undo());
    EXPECT_EQ((*copy.pictures(folder))[2], (Picture_Row{"one.png", "", "three.png"}));
  }
}

TEST_F(Database_Window, A_Name_Typed_Into_The_Cell_Shows_In_The_List) {
  turn_to(Folder::inlet)->show_cell(1, inlet_column::picture);
  type("shaft.png");
  key(Qt::Key_Up);
  EXPECT_EQ(find<Picture_Box>("cboView2")->itemText(0), "shaft.png");
}

TEST_F(Database_Window, Without_A_Row_There_Are_No_Pictures) {
  Database empty;
  Reset_Database(empty);
  open(std::move(empty));
  turn_to(Folder::node);
  EXPECT_FALSE(find<Picture_Box>("cboView1")->isEnabled());
  EXPECT_TRUE(find<Edit_Grid>("grdNode")->accessibleDescription().contains("airways"));
}

TEST_F(Database_Window, Pictures_Of_The_Mine) {
  auto* const box = find<Picture_Box>("cboView5");
  EXPECT_TRUE(box->isEnabled());
  box->setCurrentIndex(1);
  box->setFocus();
  type("plan.png");
  EXPECT_EQ(db.Mine_Pict[2], "plan.png");
  EXPECT_EQ(window->edit_tag(), "datatextM");
}

// --- Whole mines

TEST_F(Database_Window, Another_Mine_Drops_What_Was_Typed) {
  turn_to(Folder::airway)->show_cell(3, root_column::area);
  type("9");
  db.Mine_Name = "Another     ";
  copy.grdRoot.set_text(3, root_column::area, "1.5");
  window->load();
  EXPECT_EQ(copy.grdRoot.text(3, root_column::area), "1.5");
  EXPECT_EQ(window->page_tag(), "network");
  EXPECT_EQ(find<QLineEdit>("txtMine")->text(), "Another");
}

TEST_F(Database_Window, The_Selection_Of_Airways_Follows_The_Options) {
  db.Opt_GridSel = 1;
  window->apply_options();
  turn_to(Folder::airway)->show_cell(2, 5);
  window->take_selection();
  EXPECT_EQ(copy.grdRoot.Row, 2);
  EXPECT_EQ(copy.grdRoot.Col, 0);
  EXPECT_EQ(copy.grdRoot.ColSel, root_column::comment);
}

std::string Without_Blanks(const std::string& text) { return std::string(Trim(text)); }

// Cell by cell as an engineer does it, going right with Tab.
TEST_F(Database_Window, A_Mine_Typed_Key_By_Key) {
  const Edit_Copy wanted = copy;
  Database empty;
  Reset_Database(empty);
  db.Opt_MoveSel = 1;
  open(std::move(empty));
  copy.grdNode.set_data_rows(wanted.grdNode.Rows() - 1);  // as the check makes them
  copy.fit_pictures();
  window->refresh();
  for (const Folder folder : all_folders) {
    if (folder == Folder::mainfan) continue;
    Edit_Grid* const grid = turn_to(folder);
    const Text_Grid& texts = wanted.grid(folder);
    const int first = folder == Folder::airway ? root_column::name : 1;
    grid->show_cell(1, first);
    for (int row = 1; row < texts.Rows(); ++row) {
      for (int col = first; col < texts.Cols(); ++col) {
        type(Without_Blanks(texts.text(row, col)));
        if (row + 1 < texts.Rows() || col + 1 < texts.Cols()) key(Qt::Key_Tab);
      }
    }
    window->finish_typing();
    ASSERT_EQ(copy.grid(folder).Rows(), texts.Rows());
    for (int row = 1; row < texts.Rows(); ++row) {
      for (int col = first; col < texts.Cols(); ++col) {
        ASSERT_EQ(copy.grid(folder).text(row, col), Without_Blanks(texts.text(row, col)))
            << Page_Tag(folder) << " row " << row << ", column " << col;
      }
    }
    EXPECT_EQ(Edit_Flag(db, folder), texts.text(1, 1).empty() ? 0 : 1);
  }
}

}  // namespace
}  // namespace branok
