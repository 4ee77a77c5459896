// The panel behind the Analysis window: how often it shows, and what.
#include "ui/analysis_panel.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QProgressBar>
#include <cfenv>

#include "core/faults.h"
#include "demo_mine.h"
#include "ui/analysis_window.h"

namespace branok {
namespace {

using std::chrono::milliseconds;

class Panel_Of_Runs : public testing::Test {
 protected:
  void SetUp() override {
    window.resize(1200, 700);
    window.show();
    panel.start_run();
  }
  [[nodiscard]] std::string shown(const char* name) const {
    return window.findChild<QLabel*>(name)->text().toStdString();
  }
  // One node later: the run writes a value and tells the panel.
  void step(int value, milliseconds later) {
    time += later;
    panel.lblDisp[9].set(value, number);
    panel.refresh();
  }
  static constexpr Picture number = Picture("##0");
  Database db = Demo_Mine();
  std::chrono::steady_clock::time_point time{};
  Analysis_Panel panel{[this] { return time; }};
  MDIAna window{db, panel};
};

TEST_F(Panel_Of_Runs, ShowsAfterThirtyThreeMilliseconds) {
  step(1, milliseconds(32));
  EXPECT_EQ(shown("lblDisp9"), "");
  step(2, milliseconds(1));
  EXPECT_EQ(shown("lblDisp9"), "2");
  step(3, milliseconds(32));
  EXPECT_EQ(shown("lblDisp9"), "2");
  step(4, milliseconds(1));
  EXPECT_EQ(shown("lblDisp9"), "4");
}

TEST_F(Panel_Of_Runs, CountsFromTheStartOfARun) {
  time += milliseconds(500);
  panel.start_run();
  step(1, milliseconds(32));
  EXPECT_EQ(shown("lblDisp9"), "");
}

TEST_F(Panel_Of_Runs, TheLastValuesAreAlwaysShown) {
  step(1, milliseconds(40));
  step(2, milliseconds(1));
  panel.pgbPercent = {70, 30};
  EXPECT_EQ(shown("lblDisp9"), "1");
  panel.show_all();
  EXPECT_EQ(shown("lblDisp9"), "2");
  EXPECT_EQ(window.findChild<QProgressBar*>("pgbPercent0")->value(), 70);
  EXPECT_EQ(window.findChild<QProgressBar*>("pgbPercent1")->value(), 30);
}

// Counts the times that a label is painted.
class Paint_Counter : public QObject {
 public:
  explicit Paint_Counter(QWidget& watched) { watched.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    count += event->type() == QEvent::Paint ? 1 : 0;
    return false;
  }
  int count = 0;
};

TEST_F(Panel_Of_Runs, PaintsWithoutWaitingForEvents) {
  QCoreApplication::processEvents();
  Paint_Counter value(*window.findChild<QLabel*>("lblDisp9"));
  Paint_Counter lines(*window.findChild<QLabel*>("lblDisp7"));
  panel.lblDisp[7].set("  1    12   0.01\n");
  step(1, milliseconds(40));
  EXPECT_EQ(value.count, 1);
  EXPECT_EQ(lines.count, 1);
}

TEST_F(Panel_Of_Runs, GrowingListsAreNotCut) {
  QCoreApplication::processEvents();
  const auto* const list = window.findChild<QLabel*>("lblDisp7");
  std::string lines;
  for (int i = 1; i <= 300; ++i) lines += std::to_string(i) + "   12   0.05\n";
  panel.lblDisp[7].set(lines);
  step(1, milliseconds(40));
  EXPECT_EQ(list->text().toStdString(), lines);
  EXPECT_GE(list->height(), 300 * list->fontMetrics().lineSpacing());
}

TEST_F(Panel_Of_Runs, PaintingIsNoFaultOfTheRun) {
  const Float_Faults run;
  panel.lblDisp[10].set(std::numeric_limits<double>::infinity(), number);
  step(1, milliseconds(40));
  EXPECT_EQ(shown("lblDisp10"), "");
  EXPECT_NO_THROW(run.check("the run"));
  // What the run itself did before a show stays its fault.
  std::feraiseexcept(FE_OVERFLOW);
  step(2, milliseconds(40));
  EXPECT_THROW(run.check("the run"), Run_Time_Error);
}

TEST_F(Panel_Of_Runs, AFlowRunLeavesTheLabelsAsThePanelHasThem) {
  Test_Dialogue dialogue;
  ASSERT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
  panel.show_all();
  EXPECT_NE(panel.lblDisp[1].text(), "0");
  EXPECT_TRUE(panel.lblDisp[3].text().starts_with("# 1  -> -"));
  for (std::size_t k = 0; k < 17; ++k) {
    EXPECT_EQ(shown(("lblDisp" + std::to_string(k)).c_str()), panel.lblDisp[k].text()) << k;
  }
  for (std::size_t k = 0; k < 34; ++k) {
    EXPECT_EQ(shown(("lblTitle" + std::to_string(k)).c_str()), panel.lblTitle[k].text()) << k;
  }
}

TEST(Analysis_Panel_Alone, OutlivesItsWindow) {
  Database db = Demo_Mine();
  Analysis_Panel panel;
  panel.reset(db);
  Test_Dialogue dialogue;
  {
    MDIAna window(db, panel);
    window.load();
    ASSERT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
  }
  panel.show_all();
  panel.Set_Result_State("Flow-Given");
  const std::string flow = panel.lblDisp[4].text();
  const std::string node = panel.lblDisp[6].text();
  MDIAna again(db, panel);
  again.load();
  EXPECT_EQ(again.findChild<QLabel*>("lblDisp0")->text(), "for given Thermal Conditions");
  EXPECT_EQ(again.findChild<QLabel*>("lblDisp1")->text().toInt(), db.Iter_No);
  EXPECT_EQ(again.findChild<QLabel*>("lblDisp4")->text().toStdString(), flow);
  EXPECT_EQ(again.findChild<QLabel*>("lblDisp6")->text().toStdString(), node);
}

TEST(Analysis_Panel_Alone, ForgetsTheRunsOfTheMineBefore) {
  Database db = Demo_Mine();
  Analysis_Panel panel;
  Test_Dialogue dialogue;
  ASSERT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
  ASSERT_TRUE(Ana_Annual_Temp(db, dialogue, panel).ok());
  ASSERT_TRUE(panel.mnuAnalysisComDiagram);
  panel.reset(Demo_Mine());
  EXPECT_EQ(panel.lblDisp[0].text(), "");
  EXPECT_EQ(panel.lblDisp[3].text(), "");
  EXPECT_EQ(panel.lblDisp[6].text(), "0");
  EXPECT_EQ(panel.lblDisp[12].text(), "");
  EXPECT_EQ(panel.pgbPercent, (std::array<int, 2>{0, 0}));
  EXPECT_FALSE(panel.last_pass().has_value());
  EXPECT_EQ(panel.result_state, "none");
  EXPECT_FALSE(panel.mnuAnalysisComDiagram);
  EXPECT_FALSE(panel.mnuAnalysisComAnnual);
  EXPECT_FALSE(panel.mnuAnalysisComLeng);
  EXPECT_FALSE(panel.mnuAnalysisComGraph);
}

TEST(Analysis_Panel_Alone, TakesTheStateOfAMineWithResults) {
  Analysis_Panel panel;
  panel.reset(Reopened(Demo_Summer()));
  EXPECT_EQ(panel.lblDisp[0].text(), "for mid Summer");
  EXPECT_EQ(panel.lblTitle[20].text(), "Intake Air Temp.");
  EXPECT_TRUE(panel.lblDisp_hidden[15]);
  EXPECT_FALSE(panel.mnuAnalysisComDiagram);
  EXPECT_TRUE(panel.mnuAnalysisComAnnual);
  EXPECT_TRUE(panel.mnuAnalysisComLeng);
  EXPECT_FALSE(panel.mnuAnalysisComGraph);
  panel.reset(Demo_Mine());
  EXPECT_EQ(panel.lblTitle[20].text(), "Vir. Rock Temp.");
  EXPECT_FALSE(panel.lblDisp_hidden[15]);
}

}  // namespace
}  // namespace branok
