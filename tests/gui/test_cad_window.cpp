// The CAD window: placing, moving and picking nodes with the mouse.
#include "ui/cad_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QContextMenuEvent>
#include <QSignalSpy>
#include <algorithm>
#include <limits>

#include "airflow/flow_run.h"
#include "demo_mine.h"
#include "picture_hand.h"
#include "support/test_doors.h"

// How a failed comparison shows a text.
inline void PrintTo(const QString& text, std::ostream* out) { *out << qPrintable(text); }

namespace branok {
namespace {

class Cad_Window : public testing::Test {
 protected:
  Cad_Window() {
    Database mine = Demo_Mine();
    Test_Dialogue dialogue;
    Cad passing;
    Cad_Generate(mine, passing, Cad_Source::survey, dialogue, [] {});
    open(std::move(mine));
  }

  void open(Database mine) {
    window.reset();
    db = std::move(mine);
    window = std::make_unique<MDICad>(db);
    window->load();
    window->resize(900, 720);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    QCoreApplication::processEvents();
  }
  [[nodiscard]] Picture_Hand hand() const { return Picture_Hand(*window); }
  [[nodiscard]] Point node(int i) const { return {db.Node_CadX[i], db.Node_CadY[i]}; }
  /// Whom a click on a node grasps: the first of those that lie there.
  [[nodiscard]] int at_node(int i) const {
    return Pick_Node(Ground_Of(db, window->cad()), node(i));
  }
  [[nodiscard]] QImage picture() const { return window->shown_picture(1); }

  Database db;
  std::unique_ptr<MDICad> window;
};

TEST_F(Cad_Window, Opens_Whole_With_Marks) {
  EXPECT_EQ(window->objectName(), "MDICad");
  EXPECT_EQ(window->windowTitle(), "CAD Window");
  EXPECT_EQ(window->cad().Cad_Mark_Attach, 1);
  EXPECT_EQ(window->shown(), View_Rectangle{});
  for (int i = 1; i <= db.Node_Total; ++i) {
    EXPECT_GE(node(i).x, 0.09);
    EXPECT_LE(node(i).y, 0.91);
  }
  EXPECT_GT(Pixels_Unlike(picture(), Qt::black), 1000);
}

TEST_F(Cad_Window, A_Node_Is_Dragged_And_Survey_Coordinates_Stay) {
  const Database before = db;
  QSignalSpy edited(window.get(), &MDICad::edited);
  window->toggle_mode("move");
  const int moved = at_node(4);
  hand().drag(node(4), {0.77, 0.31});
  EXPECT_NEAR(node(moved).x, 0.77, 0.002);
  EXPECT_NEAR(node(moved).y, 0.31, 0.002);
  EXPECT_EQ(db.Node_EW, before.Node_EW);
  EXPECT_EQ(db.Node_SN, before.Node_SN);
  EXPECT_EQ(db.Node_Elev, before.Node_Elev);
  EXPECT_EQ(edited.size(), 1);
  EXPECT_EQ(window->mode(), "move");
}

TEST_F(Cad_Window, Escape_Puts_A_Dragged_Node_Back) {
  const Database before = db;
  const QImage seen = picture();
  window->toggle_mode("move");
  hand().press(node(4));
  hand().move({0.77, 0.31});
  QCoreApplication::processEvents();
  hand().key(Qt::Key_Escape);
  hand().release({0.77, 0.31});
  QCoreApplication::processEvents();
  EXPECT_EQ(db.Node_CadX, before.Node_CadX);
  EXPECT_EQ(picture(), seen);
  EXPECT_EQ(window->mode(), "move");
}

TEST_F(Cad_Window, The_Right_Button_Breaks_A_Drag_Off) {
  const Database before = db;
  QSignalSpy menu(window.get(), &Picture_Window::menu_wanted);
  window->toggle_mode("move");
  hand().press(node(4));
  hand().move({0.77, 0.31});
  const QPoint at = hand().place({0.77, 0.31});
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, hand().draw()->mapToGlobal(at));
  QCoreApplication::sendEvent(hand().draw(), &event);
  hand().release({0.77, 0.31});
  EXPECT_EQ(menu.size(), 0);
  EXPECT_EQ(db, before);
  EXPECT_EQ(window->cad().Cad_MoveNode, 0);
}

TEST_F(Cad_Window, A_Drag_Whose_Release_Went_Elsewhere_Is_Over) {
  const Database before = db;
  window->toggle_mode("move");
  hand().press(node(4));
  hand().move({0.77, 0.31});
  hand().hover({0.6, 0.4});
  EXPECT_EQ(window->cad().Cad_MoveNode, 0);
  hand().release({0.6, 0.4});
  EXPECT_EQ(db, before);
}

TEST_F(Cad_Window, What_Is_Asked_For_Stands_In_The_Windows_Font) {
  db.Flag_Cad = 0;
  window->load();
  const QImage seen = window->findChild<QWidget*>("picShade")->grab().toImage();
  const int line = window->fontMetrics().height();
  const QColor ground = window->palette().color(QPalette::ToolTipBase);
  int lowest = 0;
  for (int y = 0; y < seen.height(); ++y) {
    if (seen.pixelColor(seen.width() / 2, y) == ground) lowest = y;
  }
  EXPECT_GT(lowest, line / 2);
  EXPECT_LT(lowest, 2 * line + 8);
}

TEST_F(Cad_Window, A_Press_Beside_Every_Node_Leaves_The_Mode_On) {
  const Database before = db;
  window->toggle_mode("move");
  hand().drag({0.02, 0.02}, {0.5, 0.5});
  EXPECT_EQ(db.Node_CadX, before.Node_CadX);
  EXPECT_EQ(window->mode(), "move");
}

TEST_F(Cad_Window, A_Node_Cannot_Be_Dragged_Out_Of_The_Drawing) {
  window->toggle_mode("move");
  const int grasped = at_node(4);
  hand().drag(node(4), {-0.4, 1.6});
  EXPECT_FLOAT_EQ(db.Node_CadX[grasped], 0.015F);
  EXPECT_FLOAT_EQ(db.Node_CadY[grasped], 0.985F);
}

TEST_F(Cad_Window, While_It_Is_Moved_The_Node_Is_Not_In_The_Lists) {
  const auto number = [&](int i) {
    const std::string text = std::to_string(i);
    int count = 0;
    for (const Text_Record& record : window->cad().Lists.Text) count += record.Text == text ? 1 : 0;
    return count;
  };
  const int grasped = at_node(4);
  EXPECT_EQ(number(grasped), 1);
  window->toggle_mode("move");
  hand().press(node(4));
  (void)picture();
  EXPECT_EQ(number(grasped), 0);
  hand().release(node(4));
  (void)picture();
  EXPECT_EQ(number(grasped), 1);
}

TEST_F(Cad_Window, With_Marks_Off_Nothing_Is_Picked_Or_Moved) {
  window->attach_marks(false);
  QCoreApplication::processEvents();
  const Database before = db;
  window->toggle_mode("move");
  hand().drag(node(4), {0.5, 0.5});
  EXPECT_EQ(db.Node_CadX, before.Node_CadX);
  window->toggle_mode("view");
  QSignalSpy picked(window.get(), &Picture_Window::picked);
  const int far = db.Node_Junc(1, 4);
  hand().click(0.5 * (node(4) + node(far)));
  ASSERT_EQ(picked.size(), 1);
  EXPECT_EQ(picked.last().first().value<Pick>(), Pick{});
}

TEST_F(Cad_Window, A_New_Drawing_Takes_A_Click_For_Each_Node) {
  Database bare = Demo_Mine();
  bare.Flag_Cad = 0;
  bare.Node_CadX.fill(0);
  bare.Node_CadY.fill(0);
  open(std::move(bare));
  EXPECT_TRUE(window->cad().Lists.Circle.empty());
  const int nodes = db.Node_Total;
  for (int i = 1; i <= nodes; ++i) {
    EXPECT_EQ(db.Flag_Cad, 0);
    const Point at{0.05 + 0.9 * ((i - 1) % 7) / 6.0, 0.05 + 0.9 * ((i - 1) / 7) / 6.0};
    hand().click(at);
    ASSERT_EQ(window->cad().Cad_InputNode, i);
    if (db.Node_JuncCount[i] == 0) continue;
    EXPECT_NEAR(node(i).x, at.x, 0.002);
    EXPECT_NEAR(node(i).y, at.y, 0.002);
  }
  EXPECT_EQ(db.Flag_Cad, flag_true);
  const Database drawn = db;
  hand().click({0.5, 0.5});
  EXPECT_EQ(db, drawn);
}

TEST_F(Cad_Window, With_Its_Discharge_Node_An_Underground_Fan_Gets_Its_Mark) {
  Database bare = Demo_Mine();
  bare.Flag_Cad = 0;
  bare.MFan_Total = 1;
  bare.MFan_Suction[1] = 1;
  bare.MFan_Discharge[1] = 2;
  bare.Node_Type[1] = 3;
  bare.Cad_Color[color::main_fan] = 0x123456;
  open(std::move(bare));
  const auto fan = [&] {
    (void)picture();
    return std::ranges::count(window->cad().Lists.Line, 0x123456, &Line_Record::Color);
  };
  hand().click({0.3, 0.3});
  EXPECT_EQ(fan(), 0);
  hand().click({0.6, 0.3});
  EXPECT_EQ(fan(), 4);
}

TEST_F(Cad_Window, Two_Quick_Clicks_Place_Two_Nodes) {
  Database bare = Demo_Mine();
  bare.Flag_Cad = 0;
  open(std::move(bare));
  QSignalSpy picked(window.get(), &Picture_Window::picked);
  hand().click({0.3, 0.3});
  hand().double_click({0.304, 0.3});  // how a second click at once arrives
  EXPECT_EQ(window->cad().Cad_InputNode, 2);
  EXPECT_TRUE(picked.empty());
}

TEST_F(Cad_Window, A_Drawing_That_Only_Wanted_A_Node_Which_Left_Is_Complete) {
  Database bare = Demo_Mine();
  bare.Flag_Cad = 0;
  open(std::move(bare));
  const int nodes = db.Node_Total;
  for (int i = 1; i < nodes; ++i) hand().click({0.02 * i, 0.5});
  ASSERT_EQ(db.Flag_Cad, 0);
  QSignalSpy edited(window.get(), &MDICad::edited);
  Delete_Node(db, nodes);
  window->data_changed();
  EXPECT_EQ(db.Flag_Cad, flag_true);
  EXPECT_EQ(edited.size(), 1);
}

TEST_F(Cad_Window, A_Drawing_That_A_Deletion_Completed_Does_Not_Go_Back_To_Its_Clicks) {
  Database bare = Demo_Mine();
  bare.Flag_Cad = 0;
  open(std::move(bare));
  const int nodes = db.Node_Total;
  for (int i = 1; i < nodes; ++i) hand().click({0.02 * i, 0.5});
  Delete_Node(db, nodes);
  window->forget_steps();
  window->data_changed();
  window->toggle_mode("move");
  const Node_Table<float> drawn = db.Node_CadX;
  hand().drag({0.02, 0.5}, {0.3, 0.2});
  ASSERT_NE(db.Node_CadX, drawn);
  window->undo();
  EXPECT_EQ(db.Node_CadX, drawn);
  EXPECT_EQ(db.Flag_Cad, flag_true);
  EXPECT_FALSE(window->can_undo());
}

TEST_F(Cad_Window, In_A_Mode_The_Notice_Does_Not_Ask_For_A_Click_That_Is_Not_Taken) {
  struct Read_Aloud : MDICad {
    using MDICad::MDICad;
    using MDICad::notice;
  };
  db.Flag_Cad = 0;
  Read_Aloud cad(db);
  cad.load();
  EXPECT_EQ(cad.notice(), "Click where node 1 of " + QString::number(db.Node_Total) + " lies");
  for (const char* const mode : {"move", "view", "zoom", "area"}) {
    cad.set_mode(mode);
    EXPECT_TRUE(cad.notice().startsWith("Press Escape")) << mode;
  }
  cad.set_mode("none");
  EXPECT_TRUE(cad.notice().startsWith("Click"));
}

TEST_F(Cad_Window, The_Menu_Waits_For_The_End_Of_A_Drag) {
  QSignalSpy menu(window.get(), &Picture_Window::menu_wanted);
  const auto ask_menu = [&] {
    const QPoint at = hand().place({0.5, 0.5});
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, hand().draw()->mapToGlobal(at));
    QCoreApplication::sendEvent(hand().draw(), &event);
  };
  window->toggle_mode("move");
  hand().press(node(4));
  ask_menu();
  EXPECT_TRUE(menu.empty());
  hand().release(node(4));
  ask_menu();
  EXPECT_EQ(menu.size(), 1);
}

TEST_F(Cad_Window, Clicks_At_The_Edge_Are_Taken_Inside) {
  Database bare = Demo_Mine();
  bare.Flag_Cad = 0;
  open(std::move(bare));
  hand().click({0.0, 0.999});
  EXPECT_FLOAT_EQ(db.Node_CadX[1], 0.015F);
  EXPECT_FLOAT_EQ(db.Node_CadY[1], 0.985F);
}

TEST_F(Cad_Window, Each_Click_Of_A_Growing_Drawing_Shows_And_Stays) {
  Database bare = Demo_Mine();
  bare.Flag_Cad = 0;
  open(std::move(bare));
  const auto seen = [&] { return window->findChild<QWidget*>("picShade")->grab().toImage(); };
  const auto unlike = [](const QImage& a, const QImage& b) {
    int count = 0;
    for (int y = 0; y < a.height(); ++y) {
      for (int x = 0; x < a.width(); ++x) count += a.pixel(x, y) != b.pixel(x, y) ? 1 : 0;
    }
    return count;
  };
  QImage before = seen();
  for (const Point at : {Point{0.2, 0.2}, Point{0.6, 0.25}, Point{0.4, 0.7}, Point{0.8, 0.8}}) {
    hand().click(at);
    const QImage now = seen();
    EXPECT_GT(unlike(now, before), 50);  // a circle and its number
    before = now;
  }
  // Built anew the parts come in another order, which shows only where they cross.
  const std::size_t lines = window->cad().Lists.Line.size();
  window->rebuild();
  EXPECT_LT(unlike(seen(), before), 50);
  EXPECT_EQ(window->cad().Lists.Line.size(), lines);
}

TEST_F(Cad_Window, Labels_Of_Flows_Show_Zero_Without_Results) {
  db.Flag_Results = 0;
  window->show_info(Airway_Info::flow);
  ASSERT_FALSE(window->cad().Lists.Info.empty());
  for (const Info_Record& label : window->cad().Lists.Info) EXPECT_EQ(label.Text, "0");
}

TEST_F(Cad_Window, A_Mine_Without_Airways_Is_A_Usable_Window) {
  Database empty;
  Reset_Database(empty);
  open(std::move(empty));
  hand().click({0.5, 0.5});
  hand().wheel({0.5, 0.5}, 3);
  window->show_info(Airway_Info::note);
  window->zoom_out();
  window->toggle_mode("move");
  hand().drag({0.1, 0.1}, {0.5, 0.5});
}

// A mine whose tables hold numbers that are none: no command's trap stands above the mouse.
TEST_F(Cad_Window, A_Fault_In_A_Drag_Breaks_It_Off_And_Is_Told) {
  window->toggle_mode("move");
  const int grasped = at_node(4);
  const Point lies = node(grasped);
  (void)picture();
  db.Node_JuncCount[grasped] = max_slots + 2;
  QSignalSpy fault(window.get(), &Picture_Window::fault);
  hand().press(lies);
  EXPECT_EQ(fault.size(), 1);
  EXPECT_EQ(window->cad().Cad_MoveNode, 0);
  hand().move({0.7, 0.3});
  hand().release({0.7, 0.3});
  EXPECT_EQ(node(grasped), lies);
}

TEST_F(Cad_Window, A_Node_Placed_With_A_Fault_Counts_And_Is_Told) {
  Database bare = Demo_Mine();
  bare.Flag_Cad = 0;
  bare.Node_JuncCount[1] = max_slots + 2;
  open(std::move(bare));
  QSignalSpy fault(window.get(), &Picture_Window::fault);
  QSignalSpy edited(window.get(), &MDICad::edited);
  hand().click({0.3, 0.4});
  EXPECT_EQ(fault.size(), 1);
  EXPECT_EQ(edited.size(), 1);
  EXPECT_EQ(window->cad().Cad_InputNode, 1);
  EXPECT_TRUE(window->can_undo());
}

TEST_F(Cad_Window, Positions_That_Are_None_Leave_The_Others_On_Show) {
  db.Node_CadX[2] = std::numeric_limits<float>::quiet_NaN();
  db.Node_CadY[3] = 1e30F;
  db.Flag_Results = flag_true;
  Set_Flow_Sign(db);
  window->show_info(Airway_Info::note);
  window->data_changed();
  EXPECT_GT(Pixels_Unlike(picture(), Qt::black), 1000);
  hand().hover(node(4));
  hand().wheel(node(4), 5);
  window->toggle_mode("move");
  hand().drag(node(4), {0.6, 0.6});
  window->redraw();
  EXPECT_GT(Pixels_Unlike(picture(), Qt::black), 1000);
}

}  // namespace
}  // namespace branok
