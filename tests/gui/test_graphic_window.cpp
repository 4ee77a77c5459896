// The Graphic window: views, zoom, picking, labels, marks, pictures taken from it.
#include "ui/graphic_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QScrollBar>
#include <QSignalSpy>

#include "demo_mine.h"
#include "drawing/level_band.h"
#include "picture_hand.h"

// How a failed comparison shows a text.
inline void PrintTo(const QString& text, std::ostream* out) { *out << qPrintable(text); }

namespace branok {
namespace {

class Graphic_Window : public testing::Test {
 protected:
  Graphic_Window() { open(Demo_Mine()); }

  void open(Database mine) {
    window.reset();
    db = std::move(mine);
    window = std::make_unique<MDIGraph>(db);
    window->load();
    window->resize(900, 720);
    window->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    QCoreApplication::processEvents();
  }
  [[nodiscard]] Picture_Hand hand() const { return Picture_Hand(*window); }
  [[nodiscard]] Point node(int i) const { return {db.Node_GraphX[i], db.Node_GraphY[i]}; }
  [[nodiscard]] QImage picture() const { return window->shown_picture(1); }
  void with_marks() {
    window->attach_marks(true);
    QCoreApplication::processEvents();
  }

  Database db;
  std::unique_ptr<MDIGraph> window;
};

TEST_F(Graphic_Window, Opens_On_The_Whole_Plan_Without_Marks) {
  EXPECT_EQ(window->objectName(), "MDIGraph");
  EXPECT_EQ(window->windowTitle(), "Graphic Window");
  EXPECT_EQ(window->graphic().view, "2dh");
  EXPECT_EQ(window->graphic().Mark_Attach, 0);
  EXPECT_EQ(window->shown(), View_Rectangle{});
  EXPECT_EQ(window->mode(), "none");
  for (const char* const name : {"picShade", "picDraw", "hsbControl", "vsbControl"}) {
    EXPECT_NE(window->findChild<QWidget*>(name), nullptr) << name;
  }
  EXPECT_TRUE(window->graphic().Graph.Circle.empty());
  EXPECT_GT(Pixels_Unlike(picture(), Qt::black), 1000);
}

TEST_F(Graphic_Window, A_Rubber_Band_Zooms_To_Its_Rectangle) {
  window->toggle_mode("zoom");
  hand().drag({0.2, 0.3}, {0.6, 0.7});
  EXPECT_NEAR(window->shown().X1, 0.2, 0.002);
  EXPECT_NEAR(window->shown().Y1, 0.3, 0.002);
  EXPECT_NEAR(window->shown().X2, 0.6, 0.002);
  EXPECT_NEAR(window->shown().Y2, 0.7, 0.002);
  EXPECT_NEAR(window->shown().Zoom, 2.5, 0.02);
  EXPECT_EQ(window->mode(), "zoom");
  window->toggle_mode("zoom");
  EXPECT_EQ(window->mode(), "none");
}

TEST_F(Graphic_Window, A_Rubber_Band_Drawn_Backwards_Zooms_Too) {
  window->toggle_mode("zoom");
  hand().drag({0.9, 0.8}, {0.5, 0.6});
  EXPECT_NEAR(window->shown().X1, 0.5, 0.002);
  EXPECT_NEAR(window->shown().X2, 0.9, 0.002);
  // The larger side wins, about the centre.
  EXPECT_NEAR(window->shown().Y1, 0.5, 0.002);
  EXPECT_NEAR(window->shown().Y2, 0.9, 0.002);
}

TEST_F(Graphic_Window, A_Zoom_Into_A_Point_Shows_The_Least_Side) {
  window->toggle_mode("zoom");
  hand().click({0.5, 0.5});
  EXPECT_GE(window->shown().X2 - window->shown().X1, 0.0199F);
  EXPECT_LE(window->shown().Zoom * window->frame_size().height(), largest_picture + 1);
}

TEST_F(Graphic_Window, The_Drawn_Rectangle_Lies_In_The_Middle_Of_The_Frame) {
  window->show_area({0.2F, 0.3F, 0.6F, 0.7F});
  const Picture_Hand h = hand();
  const auto* const frame = window->findChild<QWidget*>("picShade");
  const QPoint centre = h.draw()->mapTo(frame, h.place({0.4, 0.5}));
  EXPECT_NEAR(centre.x(), frame->width() / 2, 2);
  EXPECT_NEAR(centre.y(), frame->height() / 2, 2);
}

TEST_F(Graphic_Window, Scroll_Bars_Follow_The_Zoom_And_Move_The_Picture) {
  auto* const bar = window->findChild<QScrollBar*>("hsbControl");
  EXPECT_FALSE(bar->isEnabled());
  window->show_area({0.25F, 0.25F, 0.75F, 0.75F});
  ASSERT_TRUE(bar->isEnabled());
  const int frame = std::min(window->frame_size().width(), window->frame_size().height());
  EXPECT_EQ(bar->maximum(), frame);
  EXPECT_EQ(bar->singleStep(), frame / 20);
  EXPECT_NEAR(bar->value(), frame / 2, 1);
  bar->setValue(0);
  EXPECT_FLOAT_EQ(window->shown().X1, 0);
  EXPECT_NEAR(window->shown().X2, 0.5, 0.001);
  EXPECT_NEAR(window->shown().Y1, 0.25, 0.001);
}

TEST_F(Graphic_Window, The_Wheel_Zooms_At_The_Pointer) {
  const Picture_Hand h = hand();
  const auto* const frame = window->findChild<QWidget*>("picShade");
  const Point at = node(5);
  const QPoint before = h.draw()->mapTo(frame, h.place(at));
  h.wheel(at, 3);
  EXPECT_NEAR(window->shown().Zoom, 1.25 * 1.25 * 1.25, 0.01);
  const QPoint after = h.draw()->mapTo(frame, h.place(at));
  EXPECT_NEAR(before.x(), after.x(), 2);
  EXPECT_NEAR(before.y(), after.y(), 2);
  h.wheel(at, -9);
  EXPECT_EQ(window->shown(), View_Rectangle{});
}

TEST_F(Graphic_Window, The_Middle_Button_And_Space_Move_The_Part_On_Show) {
  window->show_area({0.25F, 0.25F, 0.75F, 0.75F});
  hand().press({0.5, 0.5}, Qt::MiddleButton);
  hand().move({0.4, 0.45}, Qt::MiddleButton);
  hand().release({0.5, 0.5}, Qt::MiddleButton);
  EXPECT_NEAR(window->shown().X1, 0.35, 0.005);
  EXPECT_NEAR(window->shown().Y1, 0.30, 0.005);
  QTest::keyPress(hand().draw(), Qt::Key_Space);
  hand().press({0.5, 0.5});
  hand().move({0.6, 0.5});
  hand().release({0.5, 0.5});
  QTest::keyRelease(hand().draw(), Qt::Key_Space);
  EXPECT_NEAR(window->shown().X1, 0.25, 0.005);
}

TEST_F(Graphic_Window, Keys_Zoom_Move_And_Show_All) {
  hand().key(Qt::Key_Plus);
  EXPECT_NEAR(window->shown().Zoom, 1.25, 0.001);
  const float left = window->shown().X1;
  hand().key(Qt::Key_Right);
  EXPECT_GT(window->shown().X1, left);
  hand().key(Qt::Key_Home);
  EXPECT_EQ(window->shown(), View_Rectangle{});
}

TEST_F(Graphic_Window, Every_Node_Is_Picked_Where_It_Is_Drawn) {
  with_marks();
  window->toggle_mode("view");
  QSignalSpy picked(window.get(), &Picture_Window::picked);
  for (int i = 1; i <= db.Node_Total; ++i) {
    // Close neighbours hide one another in the whole plan; near by each has its own circle.
    const auto x = static_cast<float>(node(i).x);
    const auto y = static_cast<float>(node(i).y);
    window->show_area({x - 0.05F, y - 0.05F, x + 0.05F, y + 0.05F});
    hand().click(node(i));
    ASSERT_EQ(picked.size(), i);
    const auto pick = picked.last().first().value<Pick>();
    EXPECT_EQ(pick.slot, 0);
    // The first of the nodes whose box holds the point.
    EXPECT_EQ(pick.node, Pick_Node(Ground_Of(db, window->graphic()), node(i)));
    EXPECT_LE(pick.node, i);
  }
}

TEST_F(Graphic_Window, Every_Airway_Is_Picked_On_Its_Line) {
  with_marks();
  window->toggle_mode("view");
  QCoreApplication::processEvents();
  QSignalSpy picked(window.get(), &Picture_Window::picked);
  const Airway_Directions& drawn = window->graphic().Root;
  int clicks = 0;
  int others = 0;
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int k = 1; k <= db.Node_UpCount[i]; ++k) {
      const int slot = db.Node_UpSlot(k, i);
      if (drawn.DirLen(slot, i) == 0) continue;  // too short for a line
      const Point middle = 0.5 * (node(i) + node(db.Node_Junc(slot, i)));
      hand().click(middle);
      ASSERT_EQ(picked.size(), ++clicks);
      const auto pick = picked.last().first().value<Pick>();
      // A node or another airway may lie over it; something always lies there.
      if (pick != Pick{i, slot}) others += 1;
      EXPECT_GT(pick.node, 0) << i << " slot " << slot;
    }
  }
  EXPECT_GT(clicks, 20);
  EXPECT_LE(others, clicks / 2);
}

TEST_F(Graphic_Window, A_Double_Click_Picks_As_The_Mode_View_Does) {
  with_marks();
  QSignalSpy picked(window.get(), &Picture_Window::picked);
  hand().double_click(node(7));
  ASSERT_EQ(picked.size(), 1);
  EXPECT_GT(picked.last().first().value<Pick>().node, 0);
}

TEST_F(Graphic_Window, A_Click_Beside_Everything_Picks_Nothing) {
  with_marks();
  window->toggle_mode("view");
  QSignalSpy picked(window.get(), &Picture_Window::picked);
  hand().click({0.001, 0.001});
  ASSERT_EQ(picked.size(), 1);
  EXPECT_EQ(picked.last().first().value<Pick>(), Pick{});
}

TEST_F(Graphic_Window, Without_Marks_A_Click_Finds_Nothing_But_The_Pointer_Reads) {
  window->toggle_mode("view");
  QSignalSpy picked(window.get(), &Picture_Window::picked);
  QSignalSpy hint(window.get(), &Picture_Window::hint);
  hand().click(node(3));
  EXPECT_EQ(picked.last().first().value<Pick>(), Pick{});
  hand().hover(node(3));
  ASSERT_FALSE(hint.isEmpty());
  EXPECT_TRUE(hint.last().first().toString().startsWith("Node "));
}

TEST_F(Graphic_Window, The_Pointer_Tells_The_Flow_Of_An_Airway) {
  with_marks();
  (void)picture();
  Pick longest;
  float length = 0;
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int k = 1; k <= db.Node_UpCount[i]; ++k) {
      const int slot = db.Node_UpSlot(k, i);
      if (window->graphic().Root.DirLen(slot, i) <= length) continue;
      length = window->graphic().Root.DirLen(slot, i);
      longest = {i, slot};
    }
  }
  const int from = longest.node;
  const int far = db.Node_Junc(longest.slot, from);
  db.Flag_Results = flag_true;
  db.Root_Flow(longest.slot, from) = -2.5F;
  db.Root_Temp(longest.slot, from) = 21.25F;
  QSignalSpy hint(window.get(), &Picture_Window::hint);
  hand().hover(0.5 * (node(from) + node(far)));
  ASSERT_FALSE(hint.isEmpty());
  const QString text = hint.last().first().toString();
  EXPECT_TRUE(text.startsWith(QString("Airway %1 -> %2, 150.0 m³/min, 21.3 °C").arg(far).arg(from)))
      << qPrintable(text);
  hand().hover({0.001, 0.001});
  EXPECT_EQ(hint.last().first().toString(), "");
}

TEST_F(Graphic_Window, Sections_Begin_Whole_And_Keep_The_Marks) {
  with_marks();
  window->show_area({0.2F, 0.3F, 0.6F, 0.7F});
  const QImage plan = picture();
  window->show_view("2dew");
  EXPECT_EQ(window->shown(), View_Rectangle{});
  EXPECT_EQ(window->graphic().Mark_Attach, 1);
  const QImage section = picture();
  window->show_view("2dns");
  EXPECT_NE(picture(), section);
  window->show_view("2dh");
  EXPECT_NE(picture(), plan);  // the zoom has gone
}

TEST_F(Graphic_Window, Zoom_Out_Shows_All_Levels_Again) {
  Graphic& g = window->graphic();
  Set_Band(g, db.Range_ZMin, db.Range_ZMin);
  window->rebuild();
  QCoreApplication::processEvents();
  const std::size_t few = g.Graph.Line.size();
  window->show_area({0.2F, 0.3F, 0.6F, 0.7F});
  window->zoom_out();
  QCoreApplication::processEvents();
  EXPECT_EQ(g.Band_Low, db.Range_ZMin - 10);
  EXPECT_EQ(g.Band_High, db.Range_ZMax + 10);
  EXPECT_GT(g.Graph.Line.size(), few);
  EXPECT_EQ(window->shown(), View_Rectangle{});
}

TEST_F(Graphic_Window, Labels_Come_And_Leave_Gaps_Until_The_Redraw) {
  with_marks();
  window->show_area({0.3F, 0.3F, 0.7F, 0.7F});
  QCoreApplication::processEvents();
  const auto seen = [&] { return window->findChild<QWidget*>("picShade")->grab().toImage(); };
  const QImage before = seen();
  window->show_info(Node_Info::level);
  const QImage labelled = seen();
  EXPECT_NE(labelled, before);
  window->show_info(Node_Info::none);
  const QImage gaps = seen();
  EXPECT_NE(gaps, labelled);
  EXPECT_NE(gaps, before);
  window->redraw();
  EXPECT_EQ(seen(), before);
}

TEST_F(Graphic_Window, Redraw_Selects_All_And_Keeps_The_Zoom) {
  window->show_area({0.25F, 0.25F, 0.75F, 0.75F});
  window->toggle_mode("area");
  hand().drag({0.3, 0.3}, {0.5, 0.4});
  EXPECT_NEAR(window->graphic().Selected.X1, 0.3, 0.003);
  EXPECT_NEAR(window->graphic().Selected.Y2, 0.4, 0.003);
  window->redraw();
  EXPECT_TRUE(window->graphic().Selected.whole());
  EXPECT_NEAR(window->shown().Zoom, 2, 0.01);
}

TEST_F(Graphic_Window, Escape_Drops_A_Rubber_Band_And_Then_Leaves_The_Mode) {
  window->toggle_mode("zoom");
  hand().press({0.2, 0.2});
  hand().move({0.5, 0.5});
  hand().key(Qt::Key_Escape);
  hand().release({0.5, 0.5});
  EXPECT_EQ(window->shown(), View_Rectangle{});
  EXPECT_EQ(window->mode(), "zoom");
  hand().key(Qt::Key_Escape);
  EXPECT_EQ(window->mode(), "none");
}

TEST_F(Graphic_Window, Copy_Takes_The_Selected_Area) {
  window->copy_picture();
  const QSize all = QGuiApplication::clipboard()->image().size();
  window->toggle_mode("area");
  hand().drag({0.25, 0.25}, {0.75, 0.5});
  window->copy_picture();
  const QSize part = QGuiApplication::clipboard()->image().size();
  EXPECT_LT(part.height(), all.height());
  EXPECT_NEAR(part.width(), 2.0 * part.height(), 4);
}

TEST_F(Graphic_Window, A_Pasted_Picture_Follows_The_Mouse_Until_A_Click) {
  QImage stamp(40, 20, QImage::Format_RGB32);
  stamp.fill(Qt::magenta);
  QGuiApplication::clipboard()->setImage(stamp);
  ASSERT_TRUE(window->paste_picture());
  EXPECT_EQ(window->mode(), "paste");
  hand().hover({0.5, 0.5});
  hand().click({0.5, 0.5});
  EXPECT_EQ(window->mode(), "none");
  const auto magenta = [&] {
    const QImage now = picture();
    int count = 0;
    for (int y = 0; y < now.height(); ++y) {
      for (int x = 0; x < now.width(); ++x) {
        count += now.pixelColor(x, y) == QColor(Qt::magenta) ? 1 : 0;
      }
    }
    return count;
  };
  EXPECT_NEAR(magenta(), 40 * 20, 150);
  window->rebuild();
  EXPECT_GT(magenta(), 0);
  window->redraw();
  EXPECT_EQ(magenta(), 0);
}

TEST_F(Graphic_Window, A_Pasted_Picture_Is_Copied_With_Its_Part_And_Goes_With_Its_Mine) {
  QImage stamp(40, 20, QImage::Format_RGB32);
  stamp.fill(Qt::magenta);
  QGuiApplication::clipboard()->setImage(stamp);
  ASSERT_TRUE(window->paste_picture());
  hand().hover({0.5, 0.5});
  hand().click({0.5, 0.5});
  window->set_mode("area");
  hand().drag({0.5, 0.5}, {0.52, 0.51});
  const QImage part = window->selected_picture();
  EXPECT_EQ(part.pixelColor(part.rect().center()), QColor(Qt::magenta));
  window->load();
  const QImage now = picture();
  for (int y = 0; y < now.height(); ++y) {
    for (int x = 0; x < now.width(); ++x) ASSERT_NE(now.pixelColor(x, y), QColor(Qt::magenta));
  }
}

TEST_F(Graphic_Window, Escape_Drops_A_Picture_That_Is_Being_Pasted) {
  QImage stamp(40, 20, QImage::Format_RGB32);
  stamp.fill(Qt::magenta);
  QGuiApplication::clipboard()->setImage(stamp);
  const QImage before = picture();
  ASSERT_TRUE(window->paste_picture());
  hand().hover({0.5, 0.5});
  hand().key(Qt::Key_Escape);
  EXPECT_EQ(window->mode(), "none");
  EXPECT_EQ(picture(), before);
}

TEST_F(Graphic_Window, The_Right_Button_Asks_For_The_Menu) {
  QSignalSpy menu(window.get(), &Picture_Window::menu_wanted);
  const QPoint at = hand().place({0.5, 0.5});
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, hand().draw()->mapToGlobal(at));
  QCoreApplication::sendEvent(hand().draw(), &event);
  EXPECT_EQ(menu.size(), 1);
}

// --- Mines that have no picture

TEST_F(Graphic_Window, A_Mine_At_One_Point_Says_Why_It_Has_No_Picture) {
  QSignalSpy fault(window.get(), &Picture_Window::fault);
  db.Node_EW.fill(100);
  db.Node_SN.fill(100);
  db.Node_Elev.fill(5);
  window->data_changed();
  const QImage seen = window->findChild<QWidget*>("picShade")->grab().toImage();
  ASSERT_EQ(fault.size(), 1);
  EXPECT_EQ(fault[0][0].toString(),
            "The picture is not complete: all connected nodes lie at one point");
  EXPECT_GT(Pixels_Unlike(seen, Qt::black), 500);  // the reason stands over it
  hand().wheel({0.5, 0.5}, 2);
  for (const char* const view : {"2dew", "2dns"}) {
    window->show_view(view);
    (void)picture();
    EXPECT_TRUE(window->graphic().Graph.Circle.empty());
  }
  hand().click({0.5, 0.5});
}

TEST_F(Graphic_Window, An_Empty_Mine_Is_A_Usable_Window) {
  Database empty;
  Reset_Database(empty);
  open(std::move(empty));
  for (const char* const view : {"2dew", "2dns", "2dh"}) window->show_view(view);
  window->attach_marks(true);
  window->show_info(Node_Info::ew);
  hand().wheel({0.5, 0.5}, 2);
  window->toggle_mode("view");
  hand().click({0.5, 0.5});
  window->copy_picture();
}

TEST_F(Graphic_Window, Coordinates_At_The_Limits_Do_No_Harm) {
  Database wide = Demo_Mine();
  wide.Node_EW[1] = 2147483647;
  wide.Node_SN[2] = -2147483647;
  wide.Node_Elev[3] = 32767;
  wide.Node_Elev[4] = -32768;
  open(std::move(wide));
  for (const char* const view : {"2dew", "2dns", "2dh"}) {
    window->show_view(view);
    window->attach_marks(true);
    (void)picture();
  }
}

TEST_F(Graphic_Window, A_Tiny_Window_Is_Usable) {
  with_marks();
  window->resize(50, 50);
  QCoreApplication::processEvents();
  hand().wheel({0.5, 0.5}, 4);
  window->toggle_mode("zoom");
  hand().drag({0.1, 0.1}, {0.9, 0.9});
  (void)picture();
  window->resize(900, 720);
  QCoreApplication::processEvents();
  window->zoom_out();
  EXPECT_GT(Pixels_Unlike(picture(), Qt::black), 1000);
}

TEST_F(Graphic_Window, Changed_Data_Show_At_Once) {
  with_marks();
  const QImage before = picture();
  db.Node_EW[1] += 400;
  window->data_changed();
  QCoreApplication::processEvents();
  EXPECT_NE(picture(), before);
}

// A mine whose tables hold numbers that are none: no command's trap stands above the mouse.
TEST_F(Graphic_Window, A_Fault_Under_The_Pointer_Is_Told) {
  with_marks();
  db.Node_UpCount[1] = max_slots + 2;
  QSignalSpy fault(window.get(), &Picture_Window::fault);
  QSignalSpy picked(window.get(), &Picture_Window::picked);
  hand().hover({0.01, 0.01});
  EXPECT_EQ(fault.size(), 1);
  window->toggle_mode("view");
  hand().click({0.01, 0.01});
  hand().wheel({0.5, 0.5}, 1);
  EXPECT_EQ(fault.size(), 3);
  EXPECT_TRUE(picked.empty());
}

TEST_F(Graphic_Window, An_Airway_Under_The_Pointer_That_Loses_Its_End_Is_Let_Go) {
  with_marks();
  QSignalSpy hint(window.get(), &Picture_Window::hint);
  Pick under;
  for (int i = 1; i <= db.Node_Total && under.slot == 0; ++i) {
    if (db.Node_UpCount[i] == 0) continue;
    const Point middle = 0.5 * (node(i) + node(db.Node_Junc(db.Node_UpSlot(1, i), i)));
    under = Pick_At(Ground_Of(db, window->graphic()), middle);
    hand().hover(middle);
  }
  ASSERT_NE(under.slot, 0);
  ASSERT_NE(hint.last().first().toString(), "");
  db.Node_Junc(under.slot, under.node) = max_nodes + 1;
  QSignalSpy fault(window.get(), &Picture_Window::fault);
  (void)hand().draw()->grab();
  EXPECT_GE(fault.size(), 1);
  EXPECT_EQ(hint.last().first().toString(), "");
}

TEST_F(Graphic_Window, A_Frame_Without_Room_Is_Painted_On) {
  with_marks();
  window->findChild<QWidget*>("picShade")->resize(0, 0);
  window->show_info(Node_Info::level);
  EXPECT_FALSE(window->graphic().Graph.Info.empty());
}

TEST_F(Graphic_Window, A_Wide_Window_Is_Copied_In_A_Size_That_Others_Take) {
  window->resize(9000, 600);
  QCoreApplication::processEvents();
  ASSERT_GT(window->frame_size().width(), 8000);
  EXPECT_EQ(window->selected_picture().width(), 8000);
}

}  // namespace
}  // namespace branok
