// The main window: its menus and toolbar, what is enabled when, settings, the exit question.
#include <QClipboard>
#include <QRadioButton>
#include <map>

#include "main_window_test.h"

namespace branok {
namespace {

using Lines = QStringList;

// "name caption" of every entry of a menu, in order, submenus inside; separators are left out.
Lines Entries(const QMenu* menu) {
  Lines lines;
  for (const QAction* const entry : menu->actions()) {
    if (entry->isSeparator()) continue;
    lines << entry->objectName() + " " + entry->text();
    if (entry->menu() != nullptr) lines << Entries(entry->menu());
  }
  return lines;
}

TEST_F(Main_Window, Menus_Have_Every_Entry_In_Its_Order) {
  const auto menu = [&](const char* name) { return Entries(window_->findChild<QMenu*>(name)); };
  QStringList top;
  for (const QAction* const entry : window_->menuBar()->actions()) {
    top << entry->objectName() + " " + entry->text();
  }
  EXPECT_EQ(top, Lines({"mnuFileCom &File", "mnuEditCom &Edit", "mnuDataCom &Database",
                        "mnuAnalysisCom &Analysis", "mnuGraphcom &Graphic", "mnuCADCom &CAD",
                        "mnuOptionCom &Option", "mnuWindowCom &Window", "mnuHelpCom &Help"}));
  EXPECT_EQ(menu("mnuFileCom"),
            Lines({"mnuFileComNew &New", "mnuFileComOpen &Open...", "mnuFileComSave &Save",
                   "mnuFileComSaveAs Save &As...", "mnuFileComImport &Import Ver.4 and 5 Data ..",
                   "mnuFileComExport &Export Ver.5 Data ...", "mnuFileComPrint &Print...",
                   "mnuFileComPrefile0 ", "mnuFileComPrefile1 ", "mnuFileComPrefile2 ",
                   "mnuFileComPrefile3 ", "mnuFileComExit E&xit"}));
  EXPECT_EQ(menu("mnuEditCom"),
            Lines({"mnuEditComUndo &Undo", "mnuEditComRedo &Redo", "mnuEditComCut Cu&t",
                   "mnuEditComCopy &Copy", "mnuEditComPaste &Paste Overwrite",
                   "mnuEditComPasteIns Paste &Insert", "mnuEditComInsert1 Insert a row",
                   "mnuEditComDel1 Delete a row", "mnuEditComInserts Insert rows",
                   "mnuEditComDels Delete rows"}));
  EXPECT_EQ(menu("mnuDataCom"), Lines({"mnuDataComCheck &Check and Fix Data",
                                       "mnuDataComFind &Find...",
                                       "mnuDataComGraph Fan &Diagram",
                                       "mnuDataComView &View Attached Picture File",
                                       "mnuDataComAssc &Import Picture File...",
                                       "mnuDataComCalc Ca&lculate",
                                       "mnuDataCalc0 Cal. &Resistance based on Friction F.",
                                       "mnuDataCalc1 Cal. &Length between 2 Nodes",
                                       "mnuDataCalc2 Cal. &Perimeter from Area",
                                       "mnuDataCalc3 Cal. &Friction Factor from Resistance",
                                       "mnuDataCalc4 Input Friction F. from &Standard Table",
                                       "mnuDataCalc5 Cal. Hight based on Area && Shape",
                                       "mnuDataComWend Degree of &Winding",
                                       "mnuDataWend0 A = &Straight",
                                       "mnuDataWend1 B = &Midium Curve",
                                       "mnuDataWend2 C = Ha&rd Curve",
                                       "mnuDataComKind &Kind of Support",
                                       "mnuDataKind0 Steel Support",
                                       "mnuDataKind1 Wood Support",
                                       "mnuDataKind2 Smooth Lining",
                                       "mnuDataKind3 Rough Lining",
                                       "mnuDataKind4 Lining+St.Sup.",
                                       "mnuDataKind5 Non - Support",
                                       "mnuDataKind6 Leak",
                                       "mnuDataKind7 Air Duct",
                                       "mnuDataComShape Shape of Cross Section",
                                       "mnuDataShape0 C = &Circle",
                                       "mnuDataShape1 H = &Horseshoe",
                                       "mnuDataShape2 S = &Square",
                                       "mnuDataShape3 R = &Rectangle",
                                       "mnuDataOption &Option Setting...",
                                       "mnuDataReset Reset Database to Last Check"}));
  EXPECT_EQ(menu("mnuAnalysisCom"), Lines({"mnuAnalysisComDisp D&ispaly/Refresh Results",
                                           "mnuAnalysisComFind &Find Node/Airway...",
                                           "mnuAnalysisComPress Flow Analysis for &Given Con.",
                                           "mnuAnalysisComAnnual &Annual Temp. and Flow",
                                           "mnuAnalysisComMonthly Seasonal Temp. &Var. and Flow",
                                           "mnuAnalysisComSetConst_Temp Set Constant &Temp.",
                                           "mnuAnalysisComDiagram Press.Convergence Diagram",
                                           "mnuAnalysisComGraph Seasonal Temp. Var Graph",
                                           "mnuAnalysisComLeng Length-Temp. Graph",
                                           "mnuAnalysisComSwitch Change &Switch Airway Stop/Open",
                                           "mnuAnalysisComPara &Edit Parameter..."}));
  EXPECT_EQ(menu("mnuGraphcom"), Lines({"mnuGraphComClear &Redraw",
                                        "mnuGraphComIn Zoom &In",
                                        "mnuGraphComOut Zoom &Out",
                                        "mnuGraphComAttach Mark Attach",
                                        "mnuGraphComArea Select &Area",
                                        "mnuGraphComView Show &View",
                                        "mnuGraphComColor &Color Setting...",
                                        "mnuGraphComDim Graphic &Dimension",
                                        "mnuGraphDim0 3D &WF",
                                        "mnuGraphDim1 3D &Surf",
                                        "mnuGraphDim2 2D&H",
                                        "mnuGraphDim3 2D &E-W",
                                        "mnuGraphDim4 2D &N-S",
                                        "mnuGraphComNode_Info Node_&Info",
                                        "mnuGraphNode_Info0 &None",
                                        "mnuGraphNode_Info1 Sea &Level",
                                        "mnuGraphNode_Info2 &S-N Pos.",
                                        "mnuGraphNode_Info3 &E-W Pos.",
                                        "mnuGraphComSave &Save Picture...",
                                        "mnuGraphComMax &Full Screen",
                                        "mnuGraphComCamera &Camera...",
                                        "mnuGraphComRoll A&uto Rolling",
                                        "mnuGraphComTemp Color Index for Temp..",
                                        "mnuGraphComPara Graphic &Parameter...",
                                        "mnuGraphComLvl Level &Band...",
                                        "mnuGraphComCreate Cr&eate CAD Data"}));
  EXPECT_EQ(menu("mnuCADCom"), Lines({"mnuCADComClear &Redraw",
                                      "mnuCADComIn Zoom &In",
                                      "mnuCADComOut Zoom &Out",
                                      "mnuCADComAttach Mark Attach",
                                      "mnuCADComArea Select &Area",
                                      "mnuCADComView Show &View",
                                      "mnuCADComColor &Color Setting...",
                                      "mnuCADComAirway_Info &Airway_Info",
                                      "mnuCADAirway_Info0 &None",
                                      "mnuCADAirway_Info1 &Resistance",
                                      "mnuCADAirway_Info2 &Flow Rate",
                                      "mnuCADAirway_Info3 &Temperature",
                                      "mnuCADAirway_Info4 F&riction F.x1000",
                                      "mnuCADAirway_Info5 N&ote/Caption",
                                      "mnuCADComSave &Save Picture...",
                                      "mnuCADComMax &Full Screen",
                                      "mnuCADComMove Move &Node",
                                      "mnuCADComDel &Delete Node...",
                                      "mnuCADComFrm &Edit Frame...",
                                      "mnuCADComRenum_Node &Renumbering Nodes..."}));
  EXPECT_EQ(menu("mnuOptionCom"),
            Lines({"mnuOptionComTool &ToolBar View", "mnuOptionComFont &Font..."}));
  EXPECT_EQ(menu("mnuWindowCom"), Lines({"mnuWindowComCascade &Cascade", "mnuWindowComTile &Tile",
                                         "mnuWindowComIcon &Icon", "mnuWinSelCom0 &1 Database",
                                         "mnuWinSelCom1 &2 Analysis", "mnuWinSelCom2 &3 Graphic",
                                         "mnuWinSelCom3 &4 CAD"}));
  EXPECT_EQ(menu("mnuHelpCom"),
            Lines({"mnuHelpComBRN &Help BRANOK...", "mnuHelpComAbout &About..."}));
  for (int k = 1; k <= 10; ++k) {
    const QAction* const line = action("mnuSepereter" + QString::number(k));
    ASSERT_NE(line, nullptr) << k;
    EXPECT_TRUE(line->isSeparator());
  }
  EXPECT_TRUE(action("Separeter11")->isSeparator());
  EXPECT_TRUE(action("Separeter12")->isSeparator());
}

TEST_F(Main_Window, Toolbar_Has_Its_Keys_In_Order) {
  QStringList keys;
  for (const QAction* const entry : window_->findChild<QToolBar*>("tlbBRANOK")->actions()) {
    keys << entry->objectName();
    if (!entry->isSeparator()) {
      EXPECT_FALSE(entry->icon().isNull()) << qPrintable(entry->objectName());
      EXPECT_FALSE(entry->toolTip().isEmpty());
    }
  }
  keys.removeAll("Separater");
  EXPECT_EQ(keys, Lines({"new", "open", "save", "Check Data", "print", "cut", "copy", "paste",
                         "zoomin", "zoomout", "rect", "camera", "mark attach", "refresh", "help"}));
}

TEST_F(Main_Window, Starts_With_Nothing_On_Top) {
  EXPECT_EQ(window_->windowTitle(), "BRANOK(Mine Ventilation Analysis) for Windows Ver.6");
  EXPECT_EQ(window_->window_tag(), "none");
  EXPECT_EQ(window_->edit_tag(), "none");
  EXPECT_EQ(action("mnuWindowCom")->property("Tag").toString(), "none");
  for (const char* const menu :
       {"mnuEditCom", "mnuDataCom", "mnuAnalysisCom", "mnuGraphcom", "mnuCADCom"}) {
    EXPECT_FALSE(action(menu)->isVisible()) << menu;
  }
  for (const char* const menu : {"mnuFileCom", "mnuOptionCom", "mnuWindowCom", "mnuHelpCom"}) {
    EXPECT_TRUE(action(menu)->isVisible()) << menu;
  }
  for (const char* const entry : {"mnuFileComPrint", "mnuEditComCopy", "mnuEditComCut",
                                  "mnuEditComPaste", "mnuEditComPasteIns", "mnuEditComInsert1",
                                  "mnuEditComDel1", "mnuEditComInserts", "mnuEditComDels"}) {
    EXPECT_FALSE(action(entry)->isEnabled()) << entry;
  }
  for (const char* const key : {"print", "copy", "cut", "paste", "camera", "zoomin", "zoomout",
                                "mark attach", "rect", "refresh"}) {
    EXPECT_FALSE(tool(key)->isEnabled()) << key;
  }
  for (const char* const key : {"new", "open", "save", "Check Data", "help"}) {
    EXPECT_TRUE(tool(key)->isEnabled()) << key;
  }
  EXPECT_FALSE(window_->findChild<QTimer*>("tmrRolling")->isActive());
  EXPECT_EQ(window_->findChild<QTimer*>("tmrRolling")->interval(), 25);
  EXPECT_EQ(status("stbMine"), "Sample");
  EXPECT_EQ(status("stbFile"), "not saved");
  EXPECT_EQ(status("stbResults"), "No results");
  EXPECT_TRUE(control<QWidget>("Start_Page")->isVisible());
}

TEST_F(Main_Window, Each_Menu_Flag_Shows_Its_Menu_And_Edit) {
  const QStringList menus = {"mnuDataCom", "mnuAnalysisCom", "mnuGraphcom", "mnuCADCom"};
  for (int shown = 0; shown < 4; ++shown) {
    window_->Set_Menu_Visible(shown == 0, shown == 1, shown == 2, shown == 3);
    for (int k = 0; k < 4; ++k) EXPECT_EQ(action(menus[k])->isVisible(), k == shown);
    EXPECT_TRUE(action("mnuEditCom")->isVisible());
  }
  window_->Set_Menu_Visible(false, false, false, false);
  EXPECT_FALSE(action("mnuEditCom")->isVisible());
}

TEST_F(Main_Window, Each_Edit_Flag_Enables_Its_Entries) {
  const std::vector<QStringList> entries = {
      {"mnuFileComPrint"},
      {"mnuEditComCopy"},
      {"mnuEditComCut"},
      {"mnuEditComPaste"},
      {"mnuEditComPasteIns", "mnuEditComInsert1", "mnuEditComDel1", "mnuEditComInserts",
       "mnuEditComDels"}};
  for (std::size_t on = 0; on < entries.size(); ++on) {
    window_->Set_Edit_Menu_State(on == 0, on == 1, on == 2, on == 3, on == 4);
    for (std::size_t k = 0; k < entries.size(); ++k) {
      for (const QString& name : entries[k]) {
        EXPECT_EQ(action(name)->isEnabled(), k == on) << qPrintable(name);
      }
    }
  }
}

TEST_F(Main_Window, Each_Toolbar_Flag_Enables_Its_Buttons) {
  const std::vector<QStringList> keys = {{"print"},
                                         {"copy"},
                                         {"cut"},
                                         {"paste"},
                                         {"camera"},
                                         {"zoomin", "zoomout"},
                                         {"mark attach", "rect"},
                                         {"refresh"}};
  for (std::size_t on = 0; on < keys.size(); ++on) {
    window_->Set_Toolbar_State(on == 0, on == 1, on == 2, on == 3, on == 4, on == 5, on == 6,
                               on == 7);
    for (std::size_t k = 0; k < keys.size(); ++k) {
      for (const QString& key : keys[k]) {
        EXPECT_EQ(tool(key)->isEnabled(), k == on) << qPrintable(key);
      }
    }
  }
}

TEST_F(Main_Window, Graphic_Menu_Zooms_Flat_Pictures_And_Rolls_Those_In_Space) {
  window_->Set_Graph_Menu_State(true, false);
  EXPECT_TRUE(action("mnuGraphComIn")->isEnabled());
  EXPECT_TRUE(action("mnuGraphComOut")->isEnabled());
  EXPECT_FALSE(action("mnuGraphComRoll")->isEnabled());
  for (const char* const name : {"mnuGraphComColor", "mnuGraphComLvl", "mnuGraphComSave"}) {
    EXPECT_FALSE(action(name)->isEnabled());
  }
  window_->Set_Graph_Menu_State(false, true);
  EXPECT_FALSE(action("mnuGraphComIn")->isEnabled());
  EXPECT_FALSE(action("mnuGraphComOut")->isEnabled());
  EXPECT_TRUE(action("mnuGraphComRoll")->isEnabled());
  for (const char* const name : {"mnuGraphComColor", "mnuGraphComLvl", "mnuGraphComSave"}) {
    EXPECT_TRUE(action(name)->isEnabled());
  }
  EXPECT_FALSE(action("mnuGraphComTemp")->isEnabled()) << "without results";
}

TEST_F(Main_Window, Colour_Index_Needs_Results) {
  user_.answers = {QMessageBox::Ok};
  give("mnuWinSelCom1");
  give("mnuAnalysisComPress");
  window_->Set_Graph_Menu_State(true, true);
  EXPECT_TRUE(action("mnuGraphComTemp")->isEnabled());
  window_->Set_Graph_Menu_State(true, false);
  EXPECT_FALSE(action("mnuGraphComTemp")->isEnabled());
}

TEST_F(Main_Window, Analysis_Window_Shows_Its_Menu_While_It_Is_On_Top) {
  give("mnuWinSelCom1");
  ASSERT_NE(analysis(), nullptr);
  EXPECT_EQ(window_->window_tag(), "analysis");
  EXPECT_TRUE(action("mnuAnalysisCom")->isVisible());
  EXPECT_TRUE(action("mnuEditCom")->isVisible());
  for (const char* const menu : {"mnuDataCom", "mnuGraphcom", "mnuCADCom"}) {
    EXPECT_FALSE(action(menu)->isVisible()) << menu;
  }
  EXPECT_TRUE(tool("print")->isEnabled());
  EXPECT_TRUE(tool("refresh")->isEnabled());
  EXPECT_FALSE(tool("copy")->isEnabled()) << "nothing to copy on the first page";
  EXPECT_FALSE(tool("cut")->isEnabled());
  EXPECT_FALSE(control<QWidget>("Start_Page")->isVisible());

  give("mnuWinSelCom1");
  EXPECT_EQ(window_->findChild<QMdiArea*>()->subWindowList().size(), 1)
      << "brought up, not doubled";

  window_->findChild<QMdiArea*>()->closeAllSubWindows();
  QTRY_VERIFY_WITH_TIMEOUT(analysis() == nullptr, 2000);
  EXPECT_EQ(window_->window_tag(), "none");
  EXPECT_FALSE(action("mnuAnalysisCom")->isVisible());
  EXPECT_FALSE(action("mnuEditCom")->isVisible());
  EXPECT_FALSE(tool("refresh")->isEnabled());
  EXPECT_TRUE(control<QWidget>("Start_Page")->isVisible());
}

TEST_F(Main_Window, Ctrl_F4_Closes_The_Child_Window) {
  give("mnuWinSelCom1");
  QTest::keyClick(analysis(), Qt::Key_F4, Qt::ControlModifier);
  QTRY_VERIFY_WITH_TIMEOUT(analysis() == nullptr, 2000);
}

TEST_F(Main_Window, Keys_Turn_The_Pages_Of_The_Analysis_Window) {
  give("mnuWinSelCom1");
  const auto* const tabs = control<QTabWidget>("tabAna");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(tabs->currentIndex(), 1);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(tabs->currentIndex(), 0);
}

TEST_F(Main_Window, Edit_Commands_Follow_The_Page_In_Front) {
  give("mnuWinSelCom1");
  auto* const tabs = control<QTabWidget>("tabAna");
  const QStringList words = {"none", "pressure", "flow"};
  for (int page = 0; page < 3; ++page) {
    tabs->setCurrentIndex(page);
    EXPECT_EQ(window_->edit_tag(), words[page]);
    EXPECT_EQ(action("mnuEditComCopy")->isEnabled(), page > 0);
    EXPECT_EQ(tool("copy")->isEnabled(), page > 0);
    EXPECT_FALSE(action("mnuEditComCut")->isEnabled());
    EXPECT_FALSE(action("mnuEditComInsert1")->isEnabled());
    EXPECT_TRUE(action("mnuFileComPrint")->isEnabled());
  }
}

TEST_F(Main_Window, Drawing_Buttons_Do_Nothing_Without_A_Picture) {
  window_->Set_Toolbar_State(true, true, true, true, true, true, true, true);
  for (const char* const key : {"zoomin", "zoomout", "rect", "mark attach", "refresh"}) {
    tool(key)->click();
  }
  EXPECT_TRUE(user_.boxes.empty());
  EXPECT_EQ(window_->window_tag(), "none");
}

// With everything dismissed that comes up.
TEST_F(Main_Window, Every_Picture_Command_Can_Be_Given_At_Any_Time) {
  for (const char* const name : {"mnuGraphcom", "mnuCADCom"}) {
    for (QAction* const entry : window_->findChild<QMenu*>(name)->findChildren<QAction*>()) {
      if (entry->isSeparator() || entry->menu() != nullptr) continue;
      window_->Set_Menu_Visible(true, true, true, true);
      entry->setEnabled(true);
      entry->trigger();
      EXPECT_FALSE(user_.saw("Sorry, failed")) << qPrintable(entry->objectName());
      EXPECT_FALSE(user_.saw("Calculation Error")) << qPrintable(entry->objectName());
    }
  }
}

TEST_F(Main_Window, Commands_To_Come_Say_So) {
  for (const char* const name : {"mnuGraphDim0", "mnuGraphDim1", "mnuGraphComCamera",
                                 "mnuGraphComRoll", "mnuCADComRenum_Node"}) {
    window_->Set_Menu_Visible(true, true, true, true);
    action(name)->setEnabled(true);
    give(name);
    ASSERT_FALSE(user_.boxes.empty()) << name;
    EXPECT_TRUE(user_.boxes.back().text.endsWith("is not available yet.")) << name;
    EXPECT_EQ(user_.boxes.back().icon, QMessageBox::Information);
    EXPECT_FALSE(action(name)->isChecked()) << name;
  }
  give("mnuFileComImport");
  EXPECT_EQ(user_.boxes.back().text, "\"Import Ver.4 and 5 Data\" is not available yet.");
  tool("Check Data")->click();
  EXPECT_EQ(user_.boxes.back().text, "The data are all right !");
}

TEST_F(Main_Window, Hiding_The_Toolbar_Keeps_All_Commands) {
  const auto* const bar = window_->findChild<QToolBar*>("tlbBRANOK");
  EXPECT_TRUE(action("mnuOptionComTool")->isChecked());
  give("mnuOptionComTool");
  EXPECT_FALSE(bar->isVisible());
  EXPECT_FALSE(action("mnuOptionComTool")->isChecked());
  for (const Tool& line : Toolbar_Keys()) {
    if (*line.command == '\0') continue;
    EXPECT_NE(action(line.command), nullptr) << line.command;
  }
  give("mnuFileComOpen");
  EXPECT_EQ(user_.dialogs_seen.size(), 1U);
  give("mnuOptionComTool");
  EXPECT_TRUE(bar->isVisible());
}

TEST_F(Main_Window, Shortcuts_Are_Shown_In_The_Menus) {
  const std::vector<std::pair<const char*, const char*>> keys = {
      {"mnuFileComNew", "Ctrl+N"},   {"mnuFileComOpen", "Ctrl+O"},     {"mnuFileComSave", "Ctrl+S"},
      {"mnuFileComPrint", "Ctrl+P"}, {"mnuEditComCut", "Ctrl+X"},      {"mnuEditComCopy", "Ctrl+C"},
      {"mnuEditComPaste", "Ctrl+V"}, {"mnuAnalysisComFind", "Ctrl+F"}, {"mnuHelpComBRN", "F1"},
      {"mnuAnalysisComDisp", "F5"}};
  for (const auto& [name, key] : keys) {
    EXPECT_EQ(action(name)->shortcut().toString(), key) << name;
  }
}

TEST_F(Main_Window, Font_Goes_To_The_Window_On_Top_And_Cancel_Changes_Nothing) {
  give("mnuWinSelCom1");
  const QFont before = control<Grid_View>("grdFlow")->font();
  give("mnuOptionComFont");  // cancelled
  EXPECT_EQ(user_.dialogs_seen, std::vector<QString>{"cmnDlgBRANOK"});
  EXPECT_EQ(control<Grid_View>("grdFlow")->font(), before);
  user_.dialogs.push_back([](QDialog& dialog) {
    QFont font("DejaVu Serif", 15);
    font.setBold(true);
    dialog.setProperty("currentFont", font);
    dialog.accept();
  });
  give("mnuOptionComFont");
  const QFont after = control<Grid_View>("grdFlow")->font();
  EXPECT_EQ(after.family(), "DejaVu Serif");
  EXPECT_EQ(after.pointSize(), 15);
  EXPECT_TRUE(after.bold());
}

TEST_F(Main_Window, Windows_Are_Arranged) {
  give("mnuWinSelCom1");
  QMdiSubWindow* const frame = window_->findChild<QMdiArea*>()->subWindowList().first();
  EXPECT_TRUE(frame->isMaximized());
  give("mnuWindowComTile");
  EXPECT_FALSE(frame->isMaximized());
  give("mnuWindowComCascade");
  EXPECT_FALSE(frame->isMaximized());
  frame->showMinimized();
  give("mnuWindowComIcon");
  EXPECT_EQ(frame->x(), 0);
  give("mnuWinSelCom1");
  EXPECT_FALSE(frame->isMinimized());
  EXPECT_EQ(window_->window_tag(), "analysis");
}

// --- Settings and exit

TEST_F(Main_Window, Letters_Of_Menus_Go_Before_Those_Of_Controls) {
  give("mnuWinSelCom1");
  give("mnuAnalysisComPress");
  auto* const area = control<QRadioButton>("optWetR0");
  auto* const evaporative = control<QRadioButton>("optWetR1");
  const bool before = area->isChecked();
  for (const auto& [key, name] : {std::pair(Qt::Key_A, "mnuAnalysisCom"),
                                  {Qt::Key_E, "mnuEditCom"},
                                  {Qt::Key_W, "mnuWindowCom"}}) {
    window_->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window_.get()));
    QTest::keyClick(control<QWidget>("Com_Calc_Flow"), key, Qt::AltModifier);
    EXPECT_TRUE(window_->findChild<QMenu*>(name)->isVisible()) << name;
    QTest::keyClick(window_->findChild<QMenu*>(name), Qt::Key_Escape);
    QTest::keyClick(window_->menuBar(), Qt::Key_Escape);
  }
  EXPECT_EQ(area->isChecked(), before);
  EXPECT_FALSE(area->hasFocus());
  EXPECT_FALSE(evaporative->hasFocus());
}

TEST_F(Main_Window, Exit_Asks_And_No_Keeps_The_Window) {
  user_.answers = {QMessageBox::No};
  give("mnuFileComExit");
  ASSERT_EQ(user_.boxes.size(), 1U);
  const Seen_Box& box = user_.boxes[0];
  EXPECT_EQ(box.title, "BRANOK for Windows");
  EXPECT_EQ(box.text, "Do you really want to exit the application?");
  EXPECT_EQ(box.buttons, QMessageBox::Yes | QMessageBox::No);
  EXPECT_EQ(box.default_button, QMessageBox::No);
  EXPECT_TRUE(window_->isVisible());
  EXPECT_FALSE(std::filesystem::exists(folders().Ini_Path()));
}

TEST_F(Main_Window, Exit_Warns_After_A_Check) {
  window_->project().db.Check_Count = 1;
  user_.answers = {QMessageBox::No};
  window_->close();
  ASSERT_EQ(user_.boxes.size(), 1U);
  EXPECT_EQ(user_.boxes[0].text,
            "The edited Data may be lost.\nDo you really want to exit the application?");
}

TEST_F(Main_Window, Every_Command_Is_Named_In_Its_Fault) {
  const std::map<std::string, std::string> traps = {
      {"mnuFileComOpen", "'Open...'"},
      {"mnuFileComSave", "'Save'"},
      {"mnuFileComSaveAs", "'Save As...'"},
      {"mnuFileComImport", "'Import...'"},
      {"mnuFileComExport", "'Export...'"},
      {"mnuFileComPrefile", "'Open...'"},
      {"mnuEditComCut", "Cut command"},
      {"mnuEditComCopy", "Copy command"},
      {"mnuEditComPaste", "Paste command"},
      {"mnuEditComInsert1", "Insert Row command"},
      {"mnuEditComDel1", "Delete Row command"},
      {"mnuDataComGraph", "Fan Diagram menu"},
      {"mnuDataCalc", "Calcurate menu"},
      {"mnuDataWend", "Winding menu"},
      {"mnuDataKind", "Support Kind menu"},
      {"mnuDataShape", "Shape menu"},
      {"mnuAnalysisComDisp", "Display Analysis menu"},
      {"mnuAnalysisComDiagram", "Press. Diagram menu"},
      {"mnuAnalysisComGraph", "Display Temp. menu"},
      {"mnuAnalysisComLeng", "Display Temp. menu"},
      {"mnuAnalysisComSwitch", "Change Switch menu"},
      {"mnuAnalysisComPara", "Edit Parameter menu"},
      {"mnuGraphComColor", "Color Setting menu"},
      {"mnuGraphNode_Info", "Graphic Node_Info menu"},
      {"mnuGraphComRoll", "Auto Rolling command"},
      {"mnuGraphComSave", "'Save Picture...'"},
      {"mnuCADAirway_Info", "CAD Airway_Info menu"},
      {"mnuCADComSave", "'Save Picture...'"},
      {"mnuCADComDel", "Delete Node menu"},
      {"mnuCADComFrm", "Edit Frame menu"},
      {"mnuCADComRenum_Node", "Renumbering Nodal menu"},
      {"mnuOptionComTool", "ToolBar View menu"},
      {"mnuOptionComFont", "'Font...'"},
      {"mnuWinSelCom", "Select Window menu"},
      {"mnuHelpComAbout", "About command"}};
  std::size_t named = 0;
  for (const Top_Menu& menu : Menu_Bar()) {
    for (const Menu_Entry& entry : menu.entries) {
      if (entry.item != Item::command) continue;
      EXPECT_STRNE(entry.trap, "") << entry.name;
      const auto told = traps.find(entry.name);
      if (told == traps.end()) continue;
      EXPECT_EQ(entry.trap, told->second) << entry.name;
      named += entry.index < 1 ? 1 : 0;
    }
  }
  EXPECT_EQ(named, traps.size());
}

TEST_F(Main_Window, A_Fault_Of_A_Command_Names_It) {
  give("mnuWinSelCom1");
  window_->project().db.MFan_Total = 0;
  give("mnuDataComGraph");
  ASSERT_EQ(user_.boxes.size(), 1U);
  EXPECT_EQ(user_.boxes[0].text,
            "Calculation Error about Fan Diagram menu occurred, please check data !\n"
            "[ Recommendation: For security of data, \nsave data as another group!]");
  EXPECT_EQ(user_.boxes[0].icon, QMessageBox::Warning);
}

TEST_F(Main_Window, Toolbar_Buttons_Give_Their_Commands) {
  tool("open")->click();
  EXPECT_EQ(user_.dialogs_seen, std::vector<QString>{"cmnDlgBRANOK"});
  user_.answers = {QMessageBox::No};
  tool("save")->click();
  EXPECT_TRUE(user_.saw("You have not checked Network Data."));
  give("mnuWinSelCom1");
  auto* const grid = control<Grid_View>("grdPress");
  give("mnuAnalysisComPress");
  window_->project().db.Node_Press[1] = -12.5;
  tool("refresh")->click();
  EXPECT_EQ(grid->model()->index(0, 1).data().toString(), "-12.50");
  control<QTabWidget>("tabAna")->setCurrentIndex(1);
  grid->setCurrentIndex(grid->model()->index(0, 1));
  tool("copy")->click();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "-12.50\n");
  tool("new")->click();
  EXPECT_EQ(analysis(), nullptr);
}

TEST_F(Main_Window, Long_Texts_Do_Not_Widen_The_Window) {
  const int width = window_->width();
  give("mnuWinSelCom1");
  window_->project().db.Mine_Name = std::string(400, 'W');
  give("mnuAnalysisComPress");
  QCoreApplication::processEvents();
  EXPECT_EQ(window_->width(), width);
  window_->resize(500, 500);
  QTRY_COMPARE_WITH_TIMEOUT(window_->width(), 500, 2000);
  EXPECT_TRUE(control<QLabel>("stbMine")->toolTip().startsWith("WWW"));
}

TEST_F(Main_Window, Exit_Writes_The_Settings) {
  window_->move(90, 60);
  QTRY_COMPARE_WITH_TIMEOUT(window_->pos(), QPoint(90, 60), 2000);
  user_.answers = {QMessageBox::Yes};
  give("mnuFileComExit");
  EXPECT_FALSE(window_->isVisible());
  const Settings settings = Load_Settings(folders().Ini_Path());
  const double twips = 1440.0 / window_->logicalDpiX();
  EXPECT_EQ(settings.left, qRound(90 * twips));
  EXPECT_EQ(settings.top, qRound(60 * twips));
  EXPECT_NE(bytes(folders().Ini_Path()).find("EndTime"), std::string::npos);

  start();
  EXPECT_EQ(window_->pos(), QPoint(90, 60));
}

TEST_F(Main_Window, A_Maximised_Window_Keeps_Its_Old_Place_In_The_Settings) {
  std::ofstream(folders().Ini_Path()) << "[Position]\nTop=300\nLeft=450\n";
  start();
  window_->showMaximized();
  QTRY_VERIFY_WITH_TIMEOUT(window_->isMaximized(), 2000);
  user_.answers = {QMessageBox::Yes};
  window_->close();
  const Settings settings = Load_Settings(folders().Ini_Path());
  EXPECT_EQ(settings.top, 300);
  EXPECT_EQ(settings.left, 450);
}

TEST_F(Main_Window, A_Place_Outside_All_Screens_Is_Not_Taken) {
  std::ofstream(folders().Ini_Path()) << "[Position]\nTop=9000000\nLeft=-9000000\n";
  start();
  EXPECT_TRUE(window_->screen()->geometry().intersects(window_->geometry()));
}

TEST_F(Main_Window, Settings_That_Cannot_Be_Written_Are_Told_And_The_Program_Ends) {
  std::ofstream(home_ / "file") << "no folder";
  window_ = std::make_unique<BRANOK60>(
      Program_Folders{.own = home_ / "file", .installed = {BRANOK_TEST_DATA}}, Settings());
  window_->show();
  user_.answers = {QMessageBox::Yes, QMessageBox::Ok};
  window_->close();
  ASSERT_EQ(user_.boxes.size(), 2U);
  EXPECT_EQ(user_.boxes[1].text, "Sorry, failed 'Exit' command.");
  EXPECT_FALSE(window_->isVisible());
}

TEST_F(Main_Window, Garbage_In_The_Settings_Gives_Defaults) {
  std::ofstream(folders().Ini_Path()) << "[Position\nTop==\xff\xfe\n" << '\0' << "[Files]\n1=";
  start();
  EXPECT_FALSE(action("mnuFileComPrefile0")->isVisible());
  EXPECT_FALSE(action("Separeter12")->isVisible());
}

TEST_F(Main_Window, Help_And_About_Open) {
  give("mnuHelpComAbout");
  EXPECT_EQ(user_.dialogs_seen, std::vector<QString>{"DlgAbout"});
  give("mnuHelpComBRN");
  QWidget* help = nullptr;
  for (QWidget* const top : QApplication::topLevelWidgets()) {
    if (top->objectName() == "Help") help = top;
  }
  ASSERT_NE(help, nullptr);
  EXPECT_TRUE(help->isVisible());
}

}  // namespace
}  // namespace branok
