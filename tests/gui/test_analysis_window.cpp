// The Analysis window, driven by mouse and keyboard.
#include "ui/analysis_window.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalSpy>
#include <QTest>
#include <memory>

#include "demo_mine.h"
#include "ui/grid_view.h"
#include "ui/qt_text.h"

namespace branok {
namespace {

class Analysis : public testing::Test {
 protected:
  // The window of a mine that has just been opened.
  void open(Database mine) {
    db = std::move(mine);
    panel.reset(db);
    window = std::make_unique<MDIAna>(db, panel);
    window->load();
    window->resize(900, 600);
    window->show();
    // Where no window manager does it.
    ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    QApplication::setActiveWindow(window.get());
  }
  template <class Widget>
  Widget* find(const char* name) const {
    auto* const widget = window->findChild<Widget*>(name);
    if (widget == nullptr) throw Run_Time_Error(std::string("no ") + name);
    return widget;
  }
  [[nodiscard]] std::string shown(const char* name) const {
    return find<QLabel>(name)->text().toStdString();
  }
  [[nodiscard]] bool available(const char* name) const { return find<QWidget>(name)->isEnabled(); }
  [[nodiscard]] QTabWidget* pages() const { return find<QTabWidget>("tabAna"); }
  [[nodiscard]] Grid_View* nodes() const { return find<Grid_View>("grdPress"); }
  [[nodiscard]] Grid_View* airways() const { return find<Grid_View>("grdFlow"); }
  void turn_to(int page) {
    pages()->setCurrentIndex(page);
    QCoreApplication::processEvents();
  }

  Database db;
  Analysis_Panel panel;
  std::unique_ptr<MDIAna> window;
};

void Expect_Same(const Text_Grid& shown, const Text_Grid& expected) {
  ASSERT_EQ(shown.Rows(), expected.Rows());
  for (int row = 0; row < shown.Rows(); ++row) {
    for (int col = 0; col < shown.Cols(); ++col) {
      EXPECT_EQ(shown.text(row, col), expected.text(row, col)) << row << ", " << col;
    }
  }
}

TEST_F(Analysis, HasItsControlsUnderTheirNames) {
  open(Demo_Mine());
  EXPECT_EQ(window->objectName(), "MDIAna");
  EXPECT_EQ(window->windowTitle(), "Analysis Window");
  ASSERT_EQ(pages()->count(), 3);
  EXPECT_EQ(pages()->tabText(0), "&Analyze");
  EXPECT_EQ(pages()->tabText(1), "&Nodal Results");
  EXPECT_EQ(pages()->tabText(2), "Airways &Results");
  EXPECT_EQ(find<QGroupBox>("fraBase0")->title(), "Pressure Analysis");
  EXPECT_EQ(find<QGroupBox>("fraBase1")->title(), "Temperature Analysis");
  EXPECT_EQ(find<QGroupBox>("fraSprtr")->title(), "&Wetness Selection");
  EXPECT_EQ(find<QRadioButton>("optWetR0")->text(), "&Area Ratio");
  EXPECT_EQ(find<QRadioButton>("optWetR1")->text(), "&Evaporative Ratio");
  EXPECT_TRUE(find<QGroupBox>("fraBase0")->isAncestorOf(find<QProgressBar>("pgbPercent0")));
  EXPECT_TRUE(find<QGroupBox>("fraBase1")->isAncestorOf(find<QProgressBar>("pgbPercent1")));
  for (int k = 0; k <= 16; ++k) find<QLabel>(("lblDisp" + std::to_string(k)).c_str());
  for (int k = 0; k <= 33; ++k) find<QLabel>(("lblTitle" + std::to_string(k)).c_str());
  EXPECT_EQ(shown("lblMethod"), "Skyline Choleski's method");
}

TEST_F(Analysis, ButtonsGiveTheirMenuCommands) {
  open(Demo_Flow());
  QSignalSpy commands(window.get(), &MDIAna::command);
  for (const auto& [name, caption, command] :
       {std::tuple("Com_Calc_Flow", "Calc Flow for given Temp.", "mnuAnalysisComPress"),
        {"Com_Calc_Annu", "Calc Ann. Temp.", "mnuAnalysisComAnnual"},
        {"Com_Calc_Season", "Calc Seasonal Var.", "mnuAnalysisComMonthly"},
        {"Com_Set_Temp", "Set Const. Temp", "mnuAnalysisComSetConst_Temp"},
        {"Com_EditPara", "Edit Para.", "mnuAnalysisComPara"},
        {"Com_Fan_Diagram", "Fan D&iagram...", "fan_diagram"}}) {
    auto* const button = find<QPushButton>(name);
    EXPECT_EQ(button->text(), caption);
    QTest::mouseClick(button, Qt::LeftButton);
    ASSERT_EQ(commands.size(), 1) << name;
    EXPECT_EQ(commands.takeFirst().at(0).toString(), command);
  }
}

TEST_F(Analysis, TheKeyboardStartsAtTheFirstButton) {
  open(Demo_Flow());
  QSignalSpy commands(window.get(), &MDIAna::command);
  EXPECT_EQ(QApplication::focusWidget(), find<QPushButton>("Com_Calc_Flow"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  ASSERT_EQ(commands.size(), 1);
  EXPECT_EQ(commands[0].at(0).toString(), "mnuAnalysisComPress");
  for (const char* next : {"Com_Calc_Annu", "Com_Calc_Season", "Com_Set_Temp", "Com_EditPara",
                           "optWetR0", "Com_Fan_Diagram"}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget()->objectName(), next);
  }
}

TEST_F(Analysis, WithoutResultsTheGridsTellWhatToDo) {
  open(Demo_Mine());
  EXPECT_EQ(window->nodal_results().Rows(), 1);
  EXPECT_EQ(window->airway_results().Rows(), 1);
  EXPECT_TRUE(nodes()->accessibleDescription().contains("Calc Flow for given Temp."));
  EXPECT_TRUE(airways()->accessibleDescription().contains("Calc Flow for given Temp."));
  EXPECT_EQ(window->selected_airway(), 0);
  EXPECT_FALSE(window->change_switch());
  window->Find(3);  // nowhere to go
  EXPECT_EQ(window->page_tag(), "pressure");
}

TEST_F(Analysis, GridsShowTheResults) {
  open(Demo_Flow());
  Text_Grid expected = Nodal_Results_Grid();
  Display_Data_Press(db, expected);
  ASSERT_GT(expected.Rows(), 30);
  Expect_Same(window->nodal_results(), expected);
  EXPECT_EQ(nodes()->model()->rowCount(), expected.Rows() - 1);
  expected = Airway_Results_Grid();
  Display_Data_Flow(db, expected);
  Expect_Same(window->airway_results(), expected);
  EXPECT_EQ(airways()->model()->rowCount(), expected.Rows() - 1);
  EXPECT_EQ(airways()->model()->headerData(0, Qt::Vertical).toString(), "1 ->   3");
  db.Flag_Results = 0;
  window->Display_Data_Press();
  window->Display_Data_Flow();
  EXPECT_EQ(nodes()->model()->rowCount(), 0);
  EXPECT_EQ(airways()->model()->rowCount(), 0);
}

// Frames, options and buttons that need results.
constexpr std::array needs_results = {"fraBase1", "fraSprtr", "optWetR0", "optWetR1",
                                      "Com_Calc_Annu"};
constexpr std::array always = {"fraBase0", "Com_Calc_Flow", "Com_Calc_Season", "Com_Set_Temp",
                               "Com_EditPara"};

TEST_F(Analysis, StatesMakeControlsAvailable) {
  open(Demo_Mine());
  QSignalSpy changes(window.get(), &MDIAna::state_changed);
  int calls = 0;
  const auto expect = [&](const char* kind, bool with_results) {
    window->Set_Result_State(kind);
    for (const char* name : needs_results) {
      EXPECT_EQ(available(name), with_results) << kind << ' ' << name;
    }
    for (const char* name : always) EXPECT_TRUE(available(name)) << kind << ' ' << name;
    EXPECT_EQ(window->property("Tag").toString(), kind);
    EXPECT_EQ(panel.result_state, kind);
    EXPECT_EQ(changes.size(), ++calls);
  };
  expect("none", false);
  expect("Flow-Given", true);
  expect("none", false);
  expect("Annual-Flow", true);
  expect("Seasonal-Flow", true);
  db.Flag_Results = flag_true;
  expect("none", true);
}

TEST_F(Analysis, ARunSetsTheStateThroughThePanel) {
  open(Demo_Mine());
  Test_Dialogue dialogue;
  ASSERT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
  EXPECT_EQ(window->property("Tag").toString(), "Flow-Given");
  EXPECT_TRUE(available("Com_Calc_Annu"));
  ASSERT_TRUE(Ana_Annual_Temp(db, dialogue, panel).ok());
  EXPECT_EQ(window->property("Tag").toString(), "Annual-Flow");
}

TEST_F(Analysis, TheFanDiagramNeedsAMainFan) {
  open(Demo_Mine());
  EXPECT_TRUE(available("Com_Fan_Diagram"));
  db.MFan_Total = 0;
  window->load();
  EXPECT_FALSE(available("Com_Fan_Diagram"));
}

TEST_F(Analysis, LoadShowsTheStartPressures) {
  Database mine = Demo_Mine();
  mine.MFan_Total = 2;
  mine.MFan_Coef(0, 1) = 100;
  mine.MFan_Coef(0, 2) = 200.5F;
  mine.MFan_Ratio[1] = 1;
  mine.MFan_Ratio[2] = 2;
  mine.Para_InitPress = 0.25F;
  open(mine);
  EXPECT_EQ(shown("lblTitle0"), "Ave. Shut-Out Press.");
  EXPECT_EQ(shown("lblTitle1"), "451.0mmH2O");
  EXPECT_EQ(shown("lblTitle2"), "Initial Nodal Press.");
  EXPECT_EQ(shown("lblTitle3"), "-112.75mmH2O");
}

TEST_F(Analysis, LoadShowsTheLastSolution) {
  Database mine = Demo_Flow();
  mine.MFan_Press[1] = 123.456;
  open(mine);
  EXPECT_EQ(shown("lblDisp1").find_first_not_of("0123456789"), std::string::npos);
  EXPECT_EQ(std::stoi(shown("lblDisp1")), mine.Iter_No);
  EXPECT_TRUE(shown("lblDisp5").find("E-0") != std::string::npos) << shown("lblDisp5");
  EXPECT_EQ(shown("lblDisp3"), "# 1  -> -123.46\n");
  EXPECT_EQ(shown("lblDisp0"), "for given Thermal Conditions");
}

TEST_F(Analysis, WithoutASolutionThereAreNoFanLines) {
  open(Demo_Mine());
  EXPECT_EQ(shown("lblDisp1"), "0");
  EXPECT_EQ(shown("lblDisp3"), "");
  EXPECT_EQ(shown("lblDisp4"), "");
}

TEST_F(Analysis, ASeasonalMineComesUpInItsState) {
  const Database solved = Demo_Summer();
  open(Reopened(solved));
  ASSERT_EQ(db.Iter_No, 0);
  EXPECT_EQ(window->property("Tag").toString(), "Seasonal-Flow");
  EXPECT_EQ(panel.result_state, "Seasonal-Flow");
  EXPECT_EQ(shown("lblDisp0"), "for mid Summer");
  EXPECT_EQ(shown("lblTitle24"), "Dist. from Node.");
  EXPECT_EQ(shown("lblTitle25"), "m");
  EXPECT_TRUE(find<QLabel>("lblDisp14")->isVisible());
  EXPECT_FALSE(find<QLabel>("lblDisp15")->isVisible());
  EXPECT_FALSE(find<QLabel>("lblDisp16")->isVisible());
  const std::string line = shown("lblDisp3");
  ASSERT_TRUE(line.starts_with("# 1  -> ")) << line;
  EXPECT_NEAR(std::stod(line.substr(8)), -solved.MFan_Press[1], 0.01);
  EXPECT_TRUE(shown("lblDisp4").starts_with("# 1  -> ")) << shown("lblDisp4");
  EXPECT_GT(std::stod(shown("lblDisp4").substr(8)), 1000);
  EXPECT_GT(nodes()->model()->rowCount(), 30);
}

TEST_F(Analysis, ASeasonHidesTheMoistureFieldsAndAYearShowsThemAgain) {
  open(Demo_Flow());
  Test_Dialogue dialogue;
  ASSERT_TRUE(Ana_Annual_Temp(db, dialogue, panel).ok());
  panel.show_all();
  EXPECT_TRUE(find<QLabel>("lblDisp15")->isVisible());
  EXPECT_EQ(shown("lblTitle33"), "kgWater / kgdAir");
  dialogue.answers = {Answer::yes, Answer::yes};
  ASSERT_TRUE(Ana_Season_Temp(db, dialogue, panel).ok());
  panel.show_all();
  EXPECT_FALSE(find<QLabel>("lblDisp15")->isVisible());
  EXPECT_FALSE(find<QLabel>("lblDisp16")->isVisible());
  EXPECT_EQ(shown("lblTitle33"), "");
}

TEST_F(Analysis, NothingMovesBetweenARunOfTheYearAndOfASeason) {
  open(Demo_Summer());
  QCoreApplication::processEvents();
  const auto place = [this](const char* name) {
    const auto* const label = find<QLabel>(name);
    return QRect(label->mapTo(window.get(), QPoint()), label->size());
  };
  std::vector<QRect> season;
  for (const char* name : {"lblDisp1", "lblDisp8", "lblTitle26", "lblDisp13", "lblTitle15"}) {
    season.push_back(place(name));
  }
  panel.reset(Demo_Mine());
  window->load();
  QCoreApplication::processEvents();
  std::size_t k = 0;
  for (const char* name : {"lblDisp1", "lblDisp8", "lblTitle26", "lblDisp13", "lblTitle15"}) {
    EXPECT_EQ(place(name), season[k++]) << name;
  }
}

// The labels whose text does not fit into them once the layout has settled.
std::string Cut_Labels(const MDIAna& window) {
  const auto cut = [&window] {
    std::string names;
    for (const QLabel* label : window.findChildren<QLabel*>()) {
      const QSize text = label->fontMetrics().size(0, label->text());
      if (label->text().isEmpty()) continue;
      if (label->width() < text.width() || label->height() < label->fontMetrics().height()) {
        names += label->objectName().toStdString() + ' ';
      }
    }
    return names;
  };
  (void)QTest::qWaitFor([&] { return cut().empty(); });
  return cut();
}

TEST_F(Analysis, NoTextIsCut) {
  for (const Database& mine : {Demo_Summer(), Demo_Flow()}) {
    open(mine);
    EXPECT_EQ(Cut_Labels(*window), "");
  }
}

TEST_F(Analysis, LoadTakesTheWetWallMethod) {
  for (const auto& [mode, tag] : {std::pair(1, "evaporate"), {2, "area"}, {0, "area"}}) {
    Database mine = Demo_Flow();
    mine.Para_WetMode = static_cast<std::int16_t>(mode);
    mine.Wet_Tag = "anything";
    open(mine);
    EXPECT_EQ(find<QRadioButton>("optWetR1")->isChecked(), mode == 1);
    EXPECT_EQ(find<QRadioButton>("optWetR0")->isChecked(), mode != 1);
    EXPECT_EQ(db.Wet_Tag, tag);
    EXPECT_EQ(db.Para_WetMode, mode);
  }
}

TEST_F(Analysis, OptionsWriteTheWetWallMethod) {
  Database mine = Demo_Flow();
  mine.Para_WetMode = 2;
  open(mine);
  QTest::mouseClick(find<QRadioButton>("optWetR1"), Qt::LeftButton, {}, QPoint(8, 8));
  EXPECT_EQ(db.Wet_Tag, "evaporate");
  EXPECT_EQ(db.Para_WetMode, 2);  // until a run starts
  QTest::keyClick(find<QRadioButton>("optWetR1"), Qt::Key_Up);
  EXPECT_EQ(db.Wet_Tag, "area");
}

TEST_F(Analysis, PagesTellTheEditTarget) {
  open(Demo_Flow());
  QSignalSpy targets(window.get(), &MDIAna::edit_target);
  EXPECT_EQ(window->page_tag(), "analyze");
  turn_to(1);
  EXPECT_EQ(window->page_tag(), "pressure");
  ASSERT_FALSE(targets.isEmpty());
  EXPECT_EQ(targets.last().at(0).toString(), "pressure");
  turn_to(2);
  EXPECT_EQ(window->page_tag(), "flow");
  EXPECT_EQ(targets.last().at(0).toString(), "flow");
  targets.clear();
  pages()->tabBar()->setFocus();
  airways()->setFocus();
  ASSERT_FALSE(targets.isEmpty());
  EXPECT_EQ(targets.last().at(0).toString(), "flow");
  turn_to(0);
  EXPECT_EQ(targets.last().at(0).toString(), "none");
}

TEST_F(Analysis, KeysTurnThePages) {
  open(Demo_Flow());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(window->page_tag(), "pressure");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab, Qt::ControlModifier);
  EXPECT_EQ(window->page_tag(), "flow");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp, Qt::ControlModifier);
  EXPECT_EQ(window->page_tag(), "pressure");
  EXPECT_EQ(QApplication::focusWidget(), nodes());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown, Qt::ControlModifier);
  EXPECT_EQ(window->page_tag(), "analyze");
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_R, Qt::AltModifier);
  EXPECT_EQ(window->page_tag(), "flow");
}

TEST_F(Analysis, FindGoesToTheNode) {
  Database mine = Demo_Flow();
  open(mine);
  window->Find(12);
  EXPECT_EQ(window->page_tag(), "pressure");
  EXPECT_EQ(window->nodal_results().text(nodes()->currentIndex().row() + 1, 0), "12");
  EXPECT_TRUE(nodes()->selectionModel()->hasSelection());
  EXPECT_TRUE(nodes()->viewport()->rect().contains(nodes()->visualRect(nodes()->currentIndex())));
  window->Find(10000);
  EXPECT_EQ(window->nodal_results().text(nodes()->currentIndex().row() + 1, 0),
            std::to_string(db.Node_Total));
  turn_to(2);
  window->Find(12);
  EXPECT_EQ(window->page_tag(), "flow");
  EXPECT_EQ(window->selected_airway(), Find_Airway_Row(db, 12));
  EXPECT_TRUE(window->airway_results().text(window->selected_airway(), 0).starts_with("12 "));
  EXPECT_TRUE(
      airways()->viewport()->rect().contains(airways()->visualRect(airways()->currentIndex())));
  window->Find(-5);
  EXPECT_EQ(window->selected_airway(), 1);
}

TEST_F(Analysis, ChangeSwitchShowsBothEnds) {
  open(Demo_Flow());
  turn_to(2);
  window->Find(3);
  const int row = window->selected_airway();
  const Airway_End end = Airway_Of_Row(db, row);
  const int far = db.Node_Junc(end.slot, end.node);
  const int back = Find_Airway_Row(db, far) + Find_Slot(db, far, end.node) - 1;
  const auto word = [this](int at) {
    return airways()->model()->index(at - 1, switch_column).data().toString();
  };
  QSignalSpy changes(airways()->model(), &QAbstractItemModel::dataChanged);
  ASSERT_TRUE(window->change_switch());
  EXPECT_EQ(word(row), "Close");
  EXPECT_EQ(word(back), "Close");
  ASSERT_EQ(changes.size(), 2);
  EXPECT_EQ(changes[0].at(0).toModelIndex().row(), row - 1);
  EXPECT_EQ(changes[1].at(0).toModelIndex().row(), back - 1);
  EXPECT_EQ(window->selected_airway(), row);
  ASSERT_TRUE(window->change_switch());
  EXPECT_EQ(word(row), " Open");
  EXPECT_EQ(word(back), " Open");
}

TEST_F(Analysis, DoubleClickAndEnterOnAnAirwayChangeNothing) {
  open(Demo_Flow());
  turn_to(2);
  window->Find(3);
  const Database before = db;
  QTest::keyClick(airways(), Qt::Key_Return);
  const QPoint cell = airways()->visualRect(airways()->currentIndex()).center();
  QTest::mouseClick(airways()->viewport(), Qt::LeftButton, {}, cell);
  QTest::mouseDClick(airways()->viewport(), Qt::LeftButton, {}, cell);
  EXPECT_TRUE(db == before);
}

TEST_F(Analysis, CopiesTheSelectionOfTheGridOnShow) {
  open(Demo_Flow());
  QClipboard* const clipboard = QApplication::clipboard();
  clipboard->setText("before");
  window->copy_selection();  // the first page has none
  EXPECT_EQ(clipboard->text(), "before");
  turn_to(1);
  window->Find(2);
  QTest::keyClick(nodes(), Qt::Key_Down, Qt::ShiftModifier);
  QTest::keyClick(nodes(), Qt::Key_Right, Qt::ShiftModifier);
  const Text_Grid& grid = window->nodal_results();
  const QString block = To_Qt(grid.text(2, 1) + '\t' + grid.text(2, 2) + '\n' + grid.text(3, 1) +
                              '\t' + grid.text(3, 2) + '\n');
  window->copy_selection();
  EXPECT_EQ(clipboard->text(), block);
  clipboard->setText("before");
  QTest::keyClick(nodes(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(clipboard->text(), block);
}

TEST_F(Analysis, TheFontGoesToGridsAndLabels) {
  open(Demo_Flow());
  QFont font = window->font();
  font.setPointSize(font.pointSize() + 6);
  window->apply_font(font);
  QCoreApplication::processEvents();
  EXPECT_EQ(nodes()->font().pointSize(), font.pointSize());
  EXPECT_EQ(airways()->font().pointSize(), font.pointSize());
  for (const QLabel* label : window->findChildren<QLabel*>()) {
    EXPECT_EQ(label->font().pointSize(), font.pointSize()) << label->objectName().toStdString();
  }
  for (const char* const columns : {"lblDisp7", "lblTitle14"}) {
    const QFontMetrics metrics(find<QLabel>(columns)->font());
    EXPECT_EQ(metrics.horizontalAdvance('i'), metrics.horizontalAdvance('W')) << columns;
  }
  EXPECT_EQ(Cut_Labels(*window), "");
}

TEST_F(Analysis, AnotherMineTakesThePlaceOfTheOneBefore) {
  open(Demo_Summer());
  db = Demo_Mine();
  panel.reset(db);
  window->load();
  EXPECT_EQ(window->property("Tag").toString(), "none");
  EXPECT_EQ(window->nodal_results().Rows(), 1);
  EXPECT_FALSE(available("Com_Calc_Annu"));
  EXPECT_EQ(shown("lblDisp0"), "");
  EXPECT_EQ(shown("lblDisp3"), "");
  EXPECT_TRUE(find<QLabel>("lblDisp15")->isVisible());
}

}  // namespace
}  // namespace branok
