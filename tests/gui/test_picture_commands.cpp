// The Graphic and CAD menus in the main window: routing, dialogs, files, and how the pictures
// follow the mine.
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFontDialog>
#include <QImage>
#include <QInputDialog>
#include <QPushButton>
#include <QTabWidget>
#include <QXmlStreamReader>
#include <algorithm>

#include "files/ver6.h"
#include "main_window_test.h"
#include "picture_hand.h"
#include "ui/cad_window.h"
#include "ui/edit_grid.h"
#include "ui/graphic_window.h"
#include "ui/status_bar.h"

namespace branok {
namespace {

class Picture_Commands : public Main_Window {
 protected:
  Picture_Commands() { open(mine("mine-a.abk")); }

  [[nodiscard]] Database& db() const { return window_->project().db; }
  [[nodiscard]] MDIGraph* graphic() const { return control<MDIGraph>("MDIGraph"); }
  [[nodiscard]] MDICad* cad() const { return control<MDICad>("MDICad"); }
  void give_index(const QString& name, int index) const { window_->give_command(name, index); }
  void show_graphic() const { give_index("mnuWinSelCom", 2); }
  void show_cad() const { give_index("mnuWinSelCom", 3); }
  [[nodiscard]] bool checked(const QString& name) const { return action(name)->isChecked(); }

  /// Types into the next input box and closes it with OK.
  void answer_with(const QString& text) {
    user_.dialogs.push_back([text](QDialog& dialog) {
      qobject_cast<QInputDialog*>(&dialog)->setTextValue(text);
      dialog.accept();
    });
  }
  /// Saves the picture on top under a name, with the file dialog.
  void save_as(const std::filesystem::path& file) {
    choose(file);
    give(window_->window_tag() == "cad" ? "mnuCADComSave" : "mnuGraphComSave");
  }
};

TEST_F(Picture_Commands, The_Graphic_Window_Brings_Its_Menu_And_Tools) {
  show_graphic();
  ASSERT_NE(graphic(), nullptr);
  EXPECT_EQ(window_->window_tag(), "graphic");
  EXPECT_EQ(window_->edit_tag(), "graphic");
  EXPECT_TRUE(action("mnuGraphcom")->isVisible());
  EXPECT_FALSE(action("mnuCADCom")->isVisible());
  EXPECT_TRUE(action("mnuGraphComIn")->isEnabled());
  EXPECT_FALSE(action("mnuGraphComRoll")->isEnabled());
  for (const char* const key : {"zoomin", "zoomout", "rect", "mark attach", "refresh", "copy"}) {
    EXPECT_TRUE(tool(key)->isEnabled()) << key;
  }
  EXPECT_FALSE(tool("camera")->isEnabled());
  EXPECT_FALSE(tool("cut")->isEnabled());
  EXPECT_TRUE(checked("mnuGraphDim2"));
  EXPECT_TRUE(checked("mnuGraphNode_Info0"));
  EXPECT_FALSE(checked("mnuGraphComAttach"));
}

TEST_F(Picture_Commands, The_Toolbar_Goes_By_The_Window_On_Top) {
  show_graphic();
  user_.answers = {QMessageBox::Yes};
  show_cad();
  EXPECT_EQ(window_->window_tag(), "cad");
  EXPECT_EQ(window_->edit_tag(), "cad");
  EXPECT_TRUE(action("mnuCADCom")->isVisible());
  EXPECT_FALSE(action("mnuGraphcom")->isVisible());
  tool("rect")->click();
  EXPECT_EQ(cad()->mode(), "area");
  EXPECT_EQ(graphic()->mode(), "none");
  EXPECT_TRUE(tool("rect")->isChecked());
  EXPECT_TRUE(checked("mnuCADComArea"));
  tool("zoomin")->click();
  EXPECT_EQ(cad()->mode(), "zoom");
  EXPECT_FALSE(tool("rect")->isChecked());
  tool("mark attach")->click();
  EXPECT_EQ(cad()->cad().Cad_Mark_Attach, 0);
  EXPECT_FALSE(checked("mnuCADComAttach"));
  cad()->show_area({0.25F, 0.25F, 0.5F, 0.5F});
  tool("zoomout")->click();
  EXPECT_EQ(cad()->shown(), View_Rectangle{});
  show_graphic();
  EXPECT_FALSE(tool("zoomin")->isChecked());
  tool("zoomin")->click();
  EXPECT_EQ(graphic()->mode(), "zoom");
}

TEST_F(Picture_Commands, Views_And_Labels_Are_Checked_While_They_Show) {
  show_graphic();
  give_index("mnuGraphDim", 3);
  EXPECT_EQ(graphic()->graphic().view, "2dew");
  EXPECT_TRUE(checked("mnuGraphDim3"));
  EXPECT_EQ(action("mnuGraphComDim")->property("Tag"), "2dew");
  EXPECT_FALSE(checked("mnuGraphDim2"));
  give_index("mnuGraphNode_Info", 2);
  EXPECT_EQ(graphic()->graphic().Graph_NodeInfo, Node_Info::sn);
  EXPECT_TRUE(checked("mnuGraphNode_Info2"));
  give_index("mnuGraphDim", 0);
  EXPECT_TRUE(user_.saw("is not available yet."));
  EXPECT_EQ(graphic()->graphic().view, "2dew");
  EXPECT_TRUE(checked("mnuGraphDim3"));
  EXPECT_FALSE(checked("mnuGraphDim0"));
}

TEST_F(Picture_Commands, Every_Colour_And_Mono_And_Default_Reach_The_Picture) {
  show_graphic();
  const List<std::int32_t, 10> before = db().Graph_Color;
  user_.dialogs.push_back([](QDialog& dialog) {
    dialog.findChild<QPushButton*>("cmdMono")->click();
    dialog.findChild<QPushButton*>("cmdCancel")->click();
  });
  give("mnuGraphComColor");
  EXPECT_EQ(db().Graph_Color, before);
  user_.dialogs.push_back([](QDialog& dialog) {
    dialog.findChild<QPushButton*>("cmdMono")->click();
    dialog.findChild<QPushButton*>("cmdOK")->click();
  });
  give("mnuGraphComColor");
  for (int k = 1; k <= 9; ++k) EXPECT_EQ(db().Graph_Color[k], 0);
  EXPECT_EQ(db().Graph_Color[10], 0xFFFFFF);
  EXPECT_EQ(db().BackColor, 0xFFFFFF);
  EXPECT_EQ(graphic()->shown_picture(1).pixelColor(0, 0), QColor(Qt::white));
  user_.dialogs.push_back([](QDialog& dialog) {
    dialog.findChild<QPushButton*>("cmdDefault")->click();
    dialog.findChild<QPushButton*>("cmdOK")->click();
  });
  give("mnuGraphComColor");
  EXPECT_EQ(graphic()->shown_picture(1).pixelColor(0, 0), QColor(Qt::black));
}

TEST_F(Picture_Commands, The_Colours_Of_The_Cad_Picture_Are_Its_Own) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  user_.dialogs.push_back([](QDialog& dialog) {
    EXPECT_EQ(dialog.findChild<QComboBox*>("cboColor")->count(), 10);
    dialog.findChild<QPushButton*>("cmdMono")->click();
    dialog.findChild<QPushButton*>("cmdOK")->click();
  });
  give("mnuCADComColor");
  EXPECT_EQ(db().Cad_Color[10], 0xFFFFFF);
  EXPECT_EQ(db().Graph_Color[10], 0);
  EXPECT_EQ(cad()->shown_picture(1).pixelColor(0, 0), QColor(Qt::white));
}

TEST_F(Picture_Commands, The_Level_Band_Hides_Nodes_And_Zoom_Out_Shows_Them) {
  show_graphic();
  give("mnuGraphComAttach");
  (void)graphic()->grab();
  const std::size_t all = graphic()->graphic().Graph.Text.size();
  user_.dialogs.push_back([this](QDialog& dialog) {
    dialog.findChild<QLineEdit*>("txtLevel0")->setText(QString::number(db().Range_ZMin));
    dialog.findChild<QLineEdit*>("txtLevel1")->setText(QString::number(db().Range_ZMin));
    dialog.findChild<QPushButton*>("cmdOK")->click();
  });
  give("mnuGraphComLvl");
  (void)graphic()->grab();
  EXPECT_LT(graphic()->graphic().Graph.Text.size(), all);
  give("mnuGraphComOut");
  (void)graphic()->grab();
  EXPECT_EQ(graphic()->graphic().Graph.Text.size(), all);
}

TEST_F(Picture_Commands, A_Picture_Is_Saved_In_Each_Kind_And_Read_Back) {
  show_graphic();
  give("mnuGraphComAttach");
  (void)graphic()->grab();
  for (const char* const name : {"p.bmp", "p.png"}) {
    save_as(home_ / name);
    const QImage image((home_ / name).c_str());
    ASSERT_FALSE(image.isNull()) << name;
    EXPECT_GE(image.width(), graphic()->frame_size().width());
    EXPECT_GT(Pixels_Unlike(image, Qt::black), 1000) << name;
  }
  save_as(home_ / "p.svg");
  QXmlStreamReader svg(QByteArray::fromStdString(bytes(home_ / "p.svg")));
  int shapes = 0;
  while (!svg.atEnd()) {
    if (svg.readNext() != QXmlStreamReader::StartElement) continue;
    shapes += svg.name() == u"polyline" || svg.name() == u"path" || svg.name() == u"ellipse" ||
                      svg.name() == u"circle" || svg.name() == u"text"
                  ? 1
                  : 0;
  }
  EXPECT_FALSE(svg.hasError());
  EXPECT_GT(shapes, 50);
  save_as(home_ / "p.pdf");
  EXPECT_TRUE(bytes(home_ / "p.pdf").starts_with("%PDF"));
}

TEST_F(Picture_Commands, A_Picture_That_Cannot_Be_Written_Is_Told) {
  show_graphic();
  save_as("/proc/p.bmp");
  EXPECT_TRUE(user_.saw("Sorry, failed 'Save Picture...' command."));
}

TEST_F(Picture_Commands, A_Name_Without_An_Ending_Is_A_Bitmap) {
  show_graphic();
  save_as(home_ / "plan");
  EXPECT_FALSE(QImage((home_ / "plan.bmp").c_str()).isNull());
}

TEST_F(Picture_Commands, Without_A_Drawing_The_Cad_Window_Asks) {
  ASSERT_EQ(db().Flag_Cad, 0);
  user_.answers = {QMessageBox::Yes};
  show_cad();
  ASSERT_FALSE(user_.boxes.empty());
  EXPECT_EQ(user_.boxes[0].text,
            "Gnerate rough CAD data from E-W,N-S data (Yes)\n"
            "Drawing CAD with mouse pointing for each node (No)");
  EXPECT_EQ(user_.boxes[0].title, "BRANOK for Windows");
  EXPECT_TRUE(user_.saw("Generate CAD Data !"));
  EXPECT_EQ(db().Flag_Cad, flag_true);
}

TEST_F(Picture_Commands, Another_Mine_Without_A_Drawing_Is_Asked_About_Too) {
  user_.answers = {QMessageBox::No};
  show_cad();
  user_.boxes.clear();
  user_.answers = {QMessageBox::Yes};
  open(mine("mine-c.abk"));
  ASSERT_FALSE(user_.boxes.empty());
  EXPECT_TRUE(user_.boxes[0].text.startsWith("Gnerate rough CAD data"));
  EXPECT_EQ(db().Flag_Cad, flag_true);
}

TEST_F(Picture_Commands, With_The_Graphic_Window_Its_Picture_Is_The_Source) {
  show_graphic();
  user_.answers = {QMessageBox::Yes};
  show_cad();
  EXPECT_TRUE(user_.boxes[0].text.startsWith("Gnerate rough CAD data from graphic picture (Yes)"));
}

TEST_F(Picture_Commands, A_Click_That_Brings_The_Window_Up_Does_No_More) {
  user_.answers = {QMessageBox::No};
  show_cad();
  show_graphic();
  give("mnuWindowComTile");
  QCoreApplication::processEvents();
  ASSERT_EQ(window_->window_tag(), "graphic");
  const Picture_Hand hand(*cad());
  hand.click({0.3, 0.3});
  EXPECT_EQ(window_->window_tag(), "cad");
  EXPECT_EQ(cad()->cad().Cad_InputNode, 0);
  hand.click({0.3, 0.3});
  EXPECT_EQ(cad()->cad().Cad_InputNode, 1);
}

TEST_F(Picture_Commands, No_Leaves_The_Window_To_The_Mouse) {
  user_.answers = {QMessageBox::No};
  show_cad();
  EXPECT_EQ(db().Flag_Cad, 0);
  Picture_Hand(*cad()).click({0.3, 0.3});
  EXPECT_EQ(cad()->cad().Cad_InputNode, 1);
}

TEST_F(Picture_Commands, A_Graphic_Picture_That_Was_Seen_And_Closed_Is_The_Source) {
  show_graphic();
  control<QMdiArea>("area")->closeActiveSubWindow();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_EQ(graphic(), nullptr);
  db().Node_EW[3] += 500;  // since it was seen
  user_.answers = {QMessageBox::Yes};
  show_cad();
  EXPECT_TRUE(user_.boxes[0].text.startsWith("Gnerate rough CAD data from graphic picture (Yes)"));
  Graphic plan;
  Database expected = db();
  ASSERT_EQ(Graph_Range(expected, plan), "");
  ASSERT_EQ(Graph_Project(expected, plan), "");
  expected.Node_CadX = expected.Node_GraphX;
  expected.Node_CadY = expected.Node_GraphY;
  Cad_Normalize(expected);
  EXPECT_EQ(db().Node_CadX[3], expected.Node_CadX[3]);
}

TEST_F(Picture_Commands, The_Picture_Of_Another_Mine_Is_No_Source) {
  show_graphic();
  control<QMdiArea>("area")->closeActiveSubWindow();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  open(mine("mine-c.abk"));
  db().Flag_Cad = 0;
  user_.boxes.clear();
  user_.answers = {QMessageBox::Yes};
  show_cad();
  EXPECT_TRUE(user_.boxes.at(0).text.startsWith("Gnerate rough CAD data from E-W,N-S data (Yes)"));
}

TEST_F(Picture_Commands, Another_Mine_Without_A_Drawing_Asks_In_The_Open_Cad_Window) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  user_.boxes.clear();
  user_.answers = {QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
  open(mine("mine-a.abk"));
  EXPECT_TRUE(user_.saw("Drawing CAD with mouse pointing for each node (No)"));
  EXPECT_EQ(db().Flag_Cad, flag_true);
}

TEST_F(Picture_Commands, A_Drawing_By_Mouse_Goes_On_After_Its_Window_Was_Closed) {
  user_.answers = {QMessageBox::No};
  show_cad();
  for (const double x : {0.2, 0.4, 0.6}) Picture_Hand(*cad()).click({x, 0.3});
  const float x = db().Node_CadX[2];
  control<QMdiArea>("area")->closeActiveSubWindow();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  ASSERT_EQ(cad(), nullptr);
  user_.answers = {QMessageBox::No};
  show_cad();
  EXPECT_EQ(cad()->cad().Cad_InputNode, 3);
  EXPECT_EQ(db().Node_CadX[2], x);
  Picture_Hand(*cad()).click({0.8, 0.3});
  EXPECT_EQ(cad()->cad().Cad_InputNode, 4);
  user_.answers = {QMessageBox::Yes, QMessageBox::No};
  open(mine("mine-a.abk"));
  EXPECT_EQ(cad()->cad().Cad_InputNode, 0);  // another mine begins anew
}

TEST_F(Picture_Commands, A_Smaller_Mine_Does_Not_Take_The_Clicks_Of_The_One_Before) {
  user_.answers = {QMessageBox::No};
  show_cad();
  for (int i = 1; i <= 8; ++i) Picture_Hand(*cad()).click({0.1 * i, 0.3});
  Database small;
  New_Database(small, "2024/05/06");
  std::ofstream(home_ / "small.abk", std::ios::binary) << Ver6_Text(small, Comment_Template());
  user_.answers = {QMessageBox::Yes, QMessageBox::No};
  open(home_ / "small.abk");
  ASSERT_EQ(db().Node_Total, 5);
  EXPECT_EQ(db().Flag_Cad, 0);
  EXPECT_EQ(cad()->cad().Cad_InputNode, 0);
}

TEST_F(Picture_Commands, A_Save_Tells_That_A_Drawing_By_Mouse_Is_Not_In_The_File) {
  user_.answers = {QMessageBox::No};
  show_cad();
  Picture_Hand(*cad()).click({0.2, 0.3});
  user_.answers = {QMessageBox::No};
  give("mnuFileComSave");
  EXPECT_TRUE(status("stbRemark").startsWith("Saved without the drawing, of which 1 of "))
      << status("stbRemark").toStdString();
  user_.boxes.clear();
  user_.answers = {QMessageBox::No};
  give("mnuFileComNew");
  EXPECT_TRUE(user_.saw("Do you really want to leave the present mine?"));
  EXPECT_NE(cad(), nullptr);
}

TEST_F(Picture_Commands, A_Node_That_A_Check_Brings_In_Is_Seen_In_The_Drawing) {
  give("mnuFileComNew");
  user_.answers = {QMessageBox::Yes};
  show_cad();
  give("mnuWinSelCom0");
  control<QTabWidget>("tabData")->setCurrentIndex(1);
  auto* const grid = control<Edit_Grid>("grdRoot");
  grid->setFocus();
  grid->setCurrentIndex(grid->model()->index(4, 0));
  QTest::keyClick(grid, Qt::Key_3);
  QTest::keyClicks(grid->editor(), " - 7");
  QTest::keyClick(grid->editor(), Qt::Key_Return);
  const Node_Table<float> x = db().Node_CadX;
  give("mnuDataComCheck");
  ASSERT_EQ(db().Node_JuncCount[7], 1);
  for (int i = 1; i <= 5; ++i) EXPECT_EQ(db().Node_CadX[i], x[i]);
  EXPECT_GE(db().Node_CadX[7], 0.015F);
  EXPECT_GE(db().Node_CadY[7], 0.015F);
  show_cad();
  give("mnuCADComMove");
  Picture_Hand(*cad()).drag({db().Node_CadX[7], db().Node_CadY[7]}, {0.3, 0.8});
  EXPECT_NEAR(db().Node_CadX[7], 0.3, 0.002);
  EXPECT_NEAR(db().Node_CadY[7], 0.8, 0.002);
}

TEST_F(Picture_Commands, A_Second_Drawing_Asks_And_Keeps_The_First_Beside_The_Mine) {
  show_graphic();
  give("mnuGraphComCreate");
  EXPECT_FALSE(user_.saw("Clear Present CAD Data. Are you sure ?"));
  EXPECT_FALSE(std::filesystem::exists(home_ / "bakfile.cad"));
  user_.answers = {QMessageBox::No};
  give("mnuGraphComCreate");
  EXPECT_TRUE(user_.saw("Clear Present CAD Data. Are you sure ?"));
  EXPECT_FALSE(std::filesystem::exists(home_ / "bakfile.cad"));
  user_.answers = {QMessageBox::Yes};
  give("mnuGraphComCreate");
  EXPECT_TRUE(std::filesystem::exists(home_ / "bakfile.cad"));
}

TEST_F(Picture_Commands, A_Drawing_That_Cannot_Be_Kept_Stays) {
  show_graphic();
  give("mnuGraphComCreate");
  const Node_Table<float> x = db().Node_CadX;
  std::filesystem::create_directory(home_ / "bakfile.cad");
  user_.answers = {QMessageBox::Yes};
  give("mnuGraphComCreate");
  EXPECT_TRUE(user_.saw("Sorry, failed Save Check CAD File command."));
  EXPECT_EQ(db().Flag_Cad, flag_true);
  EXPECT_EQ(db().Node_CadX, x);
}

TEST_F(Picture_Commands, The_Drawing_Comes_Back_From_The_File) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  give("mnuCADComMove");
  const Picture_Hand hand(*cad());
  hand.drag({db().Node_CadX[9], db().Node_CadY[9]}, {0.81, 0.33});
  const Node_Table<float> x = db().Node_CadX;
  user_.answers = {QMessageBox::No};
  give("mnuFileComSave");
  Database read;
  Reset_Database(read);
  Comment_Template comments;
  ASSERT_TRUE(Read_Ver6_Text(read, bytes(home_ / "mine-a.abk"), comments).ok);
  EXPECT_EQ(read.Flag_Cad, flag_true);
  for (int i = 1; i <= read.Node_Total; ++i) EXPECT_NEAR(read.Node_CadX[i], x[i], 1e-5);
}

TEST_F(Picture_Commands, A_Moved_Node_Is_An_Unsaved_Edit) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  user_.answers = {QMessageBox::No};
  give("mnuFileComNew");
  EXPECT_TRUE(user_.boxes.back().buttons.testFlag(QMessageBox::No));
  EXPECT_NE(cad(), nullptr);
}

TEST_F(Picture_Commands, Moves_And_Frames_Are_Taken_Back) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  EXPECT_FALSE(action("mnuEditComUndo")->isEnabled());
  const Node_Table<float> start = db().Node_CadX;
  give("mnuCADComMove");
  (void)cad()->grab();
  Picture_Hand(*cad()).drag({db().Node_CadX[34], db().Node_CadY[34]}, {0.2, 0.2});
  const Node_Table<float> moved = db().Node_CadX;
  ASSERT_NE(moved, start);
  user_.dialogs.push_back([](QDialog& dialog) {
    dialog.findChild<QLineEdit*>("txtValue2")->setText("30");
    dialog.findChild<QPushButton*>("cmdOK")->click();
  });
  give("mnuCADComFrm");
  ASSERT_NE(db().Node_CadX, moved);
  QWidget* const draw = cad()->findChild<QWidget*>("picDraw");
  draw->setFocus();
  QTest::keyClick(draw, Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(db().Node_CadX, moved);
  give("mnuEditComUndo");
  EXPECT_EQ(db().Node_CadX, start);
  EXPECT_FALSE(action("mnuEditComUndo")->isEnabled());
  give("mnuEditComRedo");
  EXPECT_EQ(db().Node_CadX, moved);
  EXPECT_TRUE(action("mnuEditComRedo")->isEnabled());
  show_graphic();
  EXPECT_FALSE(action("mnuEditComUndo")->isEnabled());
}

TEST_F(Picture_Commands, A_Check_That_Leaves_The_Nodes_Leaves_The_Steps) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  const Node_Table<float> start = db().Node_CadX;
  give("mnuCADComMove");
  (void)cad()->grab();
  Picture_Hand(*cad()).drag({db().Node_CadX[34], db().Node_CadY[34]}, {0.2, 0.2});
  give("mnuDataComCheck");
  show_cad();
  ASSERT_NE(db().Node_CadX, start);
  EXPECT_TRUE(action("mnuEditComUndo")->isEnabled());
  give("mnuEditComUndo");
  EXPECT_EQ(db().Node_CadX, start);
}

TEST_F(Picture_Commands, The_Font_Of_The_Window_On_Top_Is_That_Of_A_Picture_Too) {
  user_.answers = {QMessageBox::No};
  show_cad();
  user_.dialogs.push_back([](QDialog& dialog) {
    qobject_cast<QFontDialog*>(&dialog)->setCurrentFont(QFont("DejaVu Serif", 15));
    dialog.accept();
  });
  give("mnuOptionComFont");
  EXPECT_EQ(cad()->findChild<QWidget*>("picDraw")->font().pointSize(), 15);
}

TEST_F(Picture_Commands, A_Deleted_Node_Cannot_Be_Moved_Back) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  give("mnuCADComMove");
  (void)cad()->grab();
  Picture_Hand(*cad()).drag({db().Node_CadX[34], db().Node_CadY[34]}, {0.2, 0.2});
  EXPECT_TRUE(action("mnuEditComUndo")->isEnabled());
  answer_with("34");
  user_.answers = {QMessageBox::Ok};
  give("mnuCADComDel");
  EXPECT_FALSE(action("mnuEditComUndo")->isEnabled());
}

TEST_F(Picture_Commands, The_Highest_Node_Is_Deleted) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  const int last = db().Node_Total;
  answer_with(QString::number(last));
  user_.answers = {QMessageBox::Ok};
  give("mnuCADComDel");
  EXPECT_TRUE(user_.saw("Deleted nodal No. is " + QString::number(last)));
  EXPECT_TRUE(user_.saw("Are you sure ?"));
  EXPECT_LT(db().Node_Total, last);
  EXPECT_EQ(db().Node_Max, db().Node_Total);
  (void)cad()->grab();
}

TEST_F(Picture_Commands, Every_Node_Can_Be_Deleted_And_The_Rest_Is_Refused_In_Words) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  for (int node = db().Node_Total; node >= 1; --node) {
    if (node > db().Node_Total) continue;
    answer_with(QString::number(node));
    user_.answers = {QMessageBox::Ok};
    give("mnuCADComDel");
    (void)cad()->grab();
  }
  for (int node = 1; node <= db().Node_Total; ++node) EXPECT_EQ(db().Node_JuncCount[node], 0);
  EXPECT_EQ(db().Flag_Results, 0);
  give("mnuCADComClear");
  show_graphic();
  (void)graphic()->grab();
  EXPECT_TRUE(status("stbRemark").contains("not complete")) << qPrintable(status("stbRemark"));
}

TEST_F(Picture_Commands, A_Middle_Node_Leaves_A_Gap_In_The_Numbers) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  const int total = db().Node_Total;
  answer_with("10");
  user_.answers = {QMessageBox::Ok};
  give("mnuCADComDel");
  EXPECT_EQ(db().Node_Total, total);
  EXPECT_EQ(db().Node_JuncCount[10], 0);
  (void)cad()->grab();
  for (const Text_Record& text : cad()->cad().Lists.Text) EXPECT_NE(text.Text, "10");
}

TEST_F(Picture_Commands, An_Intake_Node_Is_Deleted_And_The_Intakes_Stay) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  const int inlet = db().Inlet_Node[1];
  answer_with(QString::number(inlet));
  user_.answers = {QMessageBox::Ok};
  give("mnuCADComDel");
  EXPECT_EQ(db().Inlet_Node[1], inlet);
  EXPECT_EQ(db().Node_JuncCount[inlet], 0);
  (void)cad()->grab();
  show_graphic();
  (void)graphic()->grab();
}

TEST_F(Picture_Commands, Cancel_And_Nonsense_Delete_Nothing) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  const Database before = db();
  for (const char* const text : {"", "abc", "0", "-3", "39", "99999999999"}) {
    answer_with(text);
    give("mnuCADComDel");
    EXPECT_EQ(db(), before) << text;
  }
  answer_with("5");
  user_.answers = {QMessageBox::Cancel};
  give("mnuCADComDel");
  EXPECT_EQ(db(), before);
}

TEST_F(Picture_Commands, The_Frame_Gets_Its_Space) {
  user_.answers = {QMessageBox::Yes};
  show_cad();
  const float y = db().Node_CadY[3];
  user_.dialogs.push_back([](QDialog& dialog) {
    dialog.findChild<QLineEdit*>("txtValue0")->setText("25");
    dialog.findChild<QPushButton*>("cmdOK")->click();
  });
  give("mnuCADComFrm");
  EXPECT_NEAR(db().Node_CadY[3], (0.25 + y) / 1.25, 1e-6);
}

TEST_F(Picture_Commands, Views_Of_Picked_Things_And_Of_Nothing) {
  show_graphic();
  give("mnuGraphComAttach");
  give("mnuGraphComView");
  (void)graphic()->grab();
  const Picture_Hand hand(*graphic());
  hand.click({0.002, 0.002});
  const std::size_t boxes = user_.boxes.size();
  EXPECT_GT(boxes, 0U);
  hand.click({db().Node_GraphX[1], db().Node_GraphY[1]});
  EXPECT_EQ(user_.boxes.size(), boxes + 1);
  EXPECT_TRUE(user_.boxes.back().text.contains("Node 1 (intake)"));
}

TEST_F(Picture_Commands, A_Click_While_Marks_Are_Off_Says_Why_It_Finds_Nothing) {
  show_graphic();
  give("mnuGraphComView");
  (void)graphic()->grab();
  Picture_Hand(*graphic()).click({db().Node_GraphX[1], db().Node_GraphY[1]});
  EXPECT_TRUE(user_.saw("There is neither a node nor an airway at this point."));
  EXPECT_TRUE(status("stbRemark").contains("Marks are off"));
}

TEST_F(Picture_Commands, The_Status_Bar_Tells_What_Lies_Under_The_Pointer) {
  show_graphic();
  give("mnuGraphComAttach");
  (void)graphic()->grab();
  const Picture_Hand hand(*graphic());
  hand.hover({db().Node_GraphX[1], db().Node_GraphY[1]});
  EXPECT_TRUE(status("stbRemark").startsWith("Node 1"));
  hand.hover({0.002, 0.002});
  EXPECT_FALSE(status("stbRemark").startsWith("Node"));
}

TEST_F(Picture_Commands, A_Flow_Run_Shows_In_The_Pictures) {
  show_graphic();
  give("mnuGraphComAttach");
  (void)graphic()->grab();
  const std::size_t lines = graphic()->graphic().Graph.Line.size();
  user_.answers = {QMessageBox::No, QMessageBox::Ok};
  give("mnuAnalysisComPress");
  show_graphic();
  (void)graphic()->grab();
  EXPECT_GT(graphic()->graphic().Graph.Line.size(), lines);
}

TEST_F(Picture_Commands, Other_Limits_Of_The_Marks_Show_At_Once) {
  show_graphic();
  give("mnuGraphComAttach");
  (void)graphic()->grab();
  const std::size_t lines = graphic()->graphic().Graph.Line.size();
  user_.dialogs.push_back([](QDialog& dialog) {
    dialog.findChild<QLineEdit*>("ResRange3")->setText("1");  // most airways regulators
    QTest::keyClick(dialog.findChild<QLineEdit*>("ResRange3"), Qt::Key_Return);
  });
  give("mnuDataOption");
  (void)graphic()->grab();
  EXPECT_GT(graphic()->graphic().Graph.Line.size(), lines);
}

TEST_F(Picture_Commands, Another_Mine_Begins_With_A_Whole_Plan) {
  show_graphic();
  give("mnuGraphComAttach");
  graphic()->show_area({0.2F, 0.2F, 0.4F, 0.4F});
  open(mine("mine-c.abk"));
  ASSERT_NE(graphic(), nullptr);
  EXPECT_EQ(graphic()->shown(), View_Rectangle{});
  EXPECT_EQ(graphic()->graphic().Mark_Attach, 0);
}

TEST_F(Picture_Commands, The_Whole_Screen_Shows_The_Picture_Until_A_Key) {
  show_graphic();
  user_.dialogs.push_back([](QDialog& dialog) {
    EXPECT_EQ(dialog.objectName(), "DlgMax");
    QTest::keyClick(&dialog, Qt::Key_A);
    EXPECT_FALSE(dialog.isVisible());
  });
  give("mnuGraphComMax");
  EXPECT_TRUE(user_.dialogs.empty());
}

TEST_F(Picture_Commands, The_Colour_Index_Opens_Only_With_Temperatures) {
  show_graphic();
  EXPECT_FALSE(action("mnuGraphComTemp")->isEnabled());
  db().Flag_Results = flag_true;
  give_index("mnuGraphDim", 3);
  EXPECT_TRUE(action("mnuGraphComTemp")->isEnabled());
  give("mnuGraphComTemp");
  EXPECT_TRUE(user_.dialogs_seen.empty() || user_.dialogs_seen.back() != "DlgIndex");
  EXPECT_TRUE(status("stbRemark").contains("no temperatures"));
  db().Flag_Annual = 1;
  give("mnuGraphComTemp");
  EXPECT_EQ(user_.dialogs_seen.back(), "DlgIndex");
}

TEST_F(Picture_Commands, The_Colour_Index_Stays_Until_The_Window_Begins_Anew) {
  db().Flag_Results = flag_true;
  db().Flag_Annual = 1;
  show_graphic();
  bool before = true;
  const auto toggle = [&before](const char* end) {
    return [&before, end](QDialog& dialog) {
      auto* const box = dialog.findChild<QCheckBox*>("chkIndex");
      before = box->isChecked();
      box->toggle();
      dialog.findChild<QPushButton*>(end)->click();
    };
  };
  user_.dialogs = {toggle("cmdOK"), toggle("cmdCancel"), toggle("cmdOK")};
  give("mnuGraphComTemp");
  EXPECT_FALSE(before);
  EXPECT_EQ(graphic()->graphic().GType, "display");
  give("mnuGraphComTemp");
  EXPECT_TRUE(before);
  EXPECT_EQ(graphic()->graphic().GType, "display");
  give("mnuGraphComTemp");
  EXPECT_EQ(graphic()->graphic().GType, "none");
  graphic()->graphic().GType = "display";
  graphic()->load();
  EXPECT_EQ(graphic()->graphic().GType, "none");
}

TEST_F(Picture_Commands, Keys_Belong_To_The_Window_On_Top) {
  show_graphic();
  user_.answers = {QMessageBox::Yes};
  show_cad();
  give_index("mnuWinSelCom", 1);
  const auto press = [this](Qt::Key key, Qt::KeyboardModifiers held = Qt::NoModifier) {
    QTest::keyClick(QApplication::focusWidget(), key, held);
    QCoreApplication::processEvents();
  };
  press(Qt::Key_Plus, Qt::ControlModifier);
  press(Qt::Key_Equal, Qt::ControlModifier);
  press(Qt::Key_F11);
  EXPECT_EQ(graphic()->mode(), "none");
  EXPECT_EQ(cad()->mode(), "none");
  EXPECT_TRUE(std::ranges::find(user_.dialogs_seen, QString("DlgMax")) == user_.dialogs_seen.end());
  for (const int index : {2, 3}) {
    press(index == 2 ? Qt::Key_3 : Qt::Key_4, Qt::ControlModifier);
    Picture_Window* const top = index == 2 ? static_cast<Picture_Window*>(graphic()) : cad();
    const Picture_Window* const other =
        index == 2 ? static_cast<Picture_Window*>(cad()) : graphic();
    EXPECT_EQ(QApplication::focusWidget(), top->findChild<QWidget*>("picDraw"));
    press(Qt::Key_Plus, Qt::ControlModifier);
    EXPECT_EQ(top->mode(), "zoom");
    EXPECT_EQ(other->mode(), "none");
    press(Qt::Key_Equal, Qt::ControlModifier);
    EXPECT_EQ(top->mode(), "none");
    EXPECT_EQ(top->shown(), View_Rectangle{});
    press(Qt::Key_Plus);
    EXPECT_GT(top->shown().Zoom, 1);
    EXPECT_EQ(other->shown(), View_Rectangle{});
    press(Qt::Key_Minus, Qt::ControlModifier);
    EXPECT_EQ(top->shown(), View_Rectangle{});
    user_.dialogs_seen.clear();
    press(Qt::Key_F11);
    EXPECT_EQ(user_.dialogs_seen, std::vector<QString>{"DlgMax"});
    EXPECT_EQ(QApplication::focusWidget(), top->findChild<QWidget*>("picDraw"));
    Picture_Hand(*top).key(Qt::Key_Home);
    give(index == 2 ? "mnuGraphComArea" : "mnuCADComArea");
    Picture_Hand(*top).drag({0.2, 0.2}, {0.4, 0.4});
    press(Qt::Key_F5);
    const Area& selected = index == 2 ? graphic()->graphic().Selected : cad()->cad().Selected;
    EXPECT_TRUE(selected.whole());
    press(Qt::Key_Escape);
  }
}

TEST_F(Picture_Commands, The_Keyboard_Comes_Back_To_The_Picture_After_A_Dialog) {
  show_graphic();
  for (const char* const command : {"mnuGraphComLvl", "mnuGraphComPara", "mnuGraphComColor"}) {
    give(command);
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::focusWidget(), graphic()->findChild<QWidget*>("picDraw")) << command;
  }
}

TEST_F(Picture_Commands, The_Menu_Key_Opens_The_Menu_Over_The_Picture) {
  show_graphic();
  graphic()->show_area({0, 0, 0.1F, 0.1F});  // the middle of the whole is far out of sight
  QPoint at;
  QObject::connect(graphic(), &Picture_Window::menu_wanted, graphic(),
                   [&at](const QPoint& place) { at = place; });
  QWidget* const draw = graphic()->findChild<QWidget*>("picDraw");
  const QPoint middle = draw->rect().center();
  QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, draw->mapToGlobal(middle));
  QCoreApplication::sendEvent(draw, &event);
  QMenu* const menu = control<QMenu>("mnuGraphcom");
  EXPECT_TRUE(menu->isVisible());
  menu->hide();
  const auto* const frame = graphic()->findChild<QWidget*>("picShade");
  EXPECT_TRUE(frame->rect().contains(frame->mapFromGlobal(at)));
}

TEST_F(Picture_Commands, A_Pasted_Picture_Leaves_With_Its_Mine) {
  QImage stamp(40, 20, QImage::Format_RGB32);
  stamp.fill(Qt::magenta);
  show_graphic();
  const QImage plain = graphic()->shown_picture(1);
  QGuiApplication::clipboard()->setImage(stamp);
  give("mnuEditComPaste");
  Picture_Hand(*graphic()).click({0.5, 0.5});
  EXPECT_NE(graphic()->shown_picture(1), plain);
  open(mine("mine-a.abk"));
  EXPECT_EQ(graphic()->shown_picture(1), plain);
}

TEST_F(Picture_Commands, The_File_Dialog_Offers_Bitmaps_First) {
  show_graphic();
  const auto look = [](const QString& first) {
    return [first](QDialog& dialog) {
      auto& files = dynamic_cast<QFileDialog&>(dialog);
      EXPECT_EQ(files.windowTitle(), "'Save Picture...'");
      EXPECT_EQ(files.nameFilters().first(), first);
      EXPECT_EQ(files.selectedNameFilter(), first);
      EXPECT_EQ(files.defaultSuffix(), "bmp");
      files.reject();
    };
  };
  user_.dialogs.push_back(look("BitMap Data (*.bmp)"));
  give("mnuGraphComSave");
  user_.answers = {QMessageBox::Yes};
  show_cad();
  user_.dialogs.push_back(look("BitMap Files (*.bmp)"));
  give("mnuCADComSave");
  EXPECT_TRUE(user_.dialogs.empty());
}

TEST_F(Picture_Commands, Choosing_A_Picture_Again_Draws_It_Anew) {
  show_graphic();
  give("mnuGraphComAttach");
  graphic()->show_area({0.3F, 0.3F, 0.7F, 0.7F});
  const auto seen = [this] { return graphic()->findChild<QWidget*>("picShade")->grab().toImage(); };
  const QImage before = seen();
  give_index("mnuGraphNode_Info", 1);
  give_index("mnuGraphNode_Info", 0);
  EXPECT_NE(seen(), before);
  show_graphic();
  EXPECT_EQ(seen(), before);
}

TEST_F(Picture_Commands, After_A_Failure_The_Check_Marks_Tell_What_Holds) {
  show_graphic();
  (void)graphic()->grab();
  db().Node_Junc(1, 1) = 9999;
  give_index("mnuGraphNode_Info", 1);
  EXPECT_TRUE(user_.saw("Graphic Node_Info menu"));
  int marked = 0;
  for (int i = 0; i <= 3; ++i) {
    const bool on = static_cast<int>(graphic()->graphic().Graph_NodeInfo) == i;
    EXPECT_EQ(checked("mnuGraphNode_Info" + QString::number(i)), on) << i;
    marked += on ? 1 : 0;
  }
  EXPECT_EQ(marked, 1);
}

TEST_F(Picture_Commands, Tools_Tell_Their_Keys) {
  EXPECT_EQ(tool("zoomin")->toolTip(), "Enlarge a part of the picture (Ctrl++)");
  EXPECT_EQ(tool("zoomout")->toolTip(), "Show the whole picture (Ctrl+-)");
  EXPECT_EQ(tool("refresh")->toolTip(), "Show the window on top anew (F5)");
  for (const QToolButton* const button :
       control<QToolBar>("tlbBRANOK")->findChildren<QToolButton*>()) {
    if (button->defaultAction() == nullptr) continue;
    EXPECT_EQ(button->accessibleName(), button->toolTip());
  }
}

TEST_F(Picture_Commands, The_Whole_Screen_Has_Thin_Lines_From_A_Small_Window_Too) {
  show_graphic();
  const auto drawn_share = [&](const QSize& window) {
    QMdiSubWindow* const frame = control<QMdiArea>("area")->activeSubWindow();
    frame->showNormal();
    frame->resize(window);
    QCoreApplication::processEvents();
    double share = 0;
    user_.dialogs.push_back([&](QDialog& dialog) {
      const QImage image = dialog.findChild<QLabel*>("picMax")->pixmap().toImage();
      share = Pixels_Unlike(image, Qt::black) / (1.0 * image.width() * image.height());
      QTest::keyClick(&dialog, Qt::Key_A);
    });
    give("mnuGraphComMax");
    return share;
  };
  const double large = drawn_share({640, 640});
  EXPECT_NEAR(drawn_share({200, 200}) / large, 1, 0.4);
}

TEST_F(Picture_Commands, Closing_The_Window_Takes_Its_Menu_Along) {
  show_graphic();
  control<QMdiArea>("area")->closeActiveSubWindow();
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(graphic(), nullptr);
  EXPECT_FALSE(action("mnuGraphcom")->isVisible());
  EXPECT_FALSE(tool("zoomin")->isEnabled());
}

TEST_F(Picture_Commands, Paste_Without_A_Picture_Says_So) {
  show_graphic();
  QGuiApplication::clipboard()->setText("no picture");
  give("mnuEditComPaste");
  EXPECT_EQ(graphic()->mode(), "none");
  EXPECT_TRUE(status("stbRemark").contains("no picture"));
}

}  // namespace
}  // namespace branok
