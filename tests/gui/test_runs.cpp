// A mine analysed in the windows, against the same run without them.
#include <QListWidget>
#include <QRadioButton>
#include <sstream>

#include "batch/commands.h"
#include "core/pictures.h"
#include "files/ver6.h"
#include "main_window_test.h"
#include "support/test_doors.h"
#include "ui/value_grid.h"

namespace branok {
namespace {

// What branok-batch comes to with a mine: the rows of its CSV files.
struct Csv {
  std::vector<QStringList> nodes, airways;
};

std::vector<QStringList> Csv_Rows(const std::filesystem::path& file) {
  std::ifstream stream(file);
  std::vector<QStringList> rows;
  std::string line;
  std::getline(stream, line);  // headings
  while (std::getline(stream, line)) rows.push_back(QString::fromStdString(line).split(','));
  return rows;
}

// A number of a CSV file in the picture of its grid column.
QString In(const char* picture, const QString& number) {
  return QString::fromStdString(Picture(picture)(number.toFloat()).text());
}

class Runs : public Main_Window {
 protected:
  Csv batch(const std::vector<std::string>& steps) {
    const auto folder = home_ / "csv";
    std::vector<std::string> words = {(home_ / "mine-a.abk").string()};
    words.insert(words.end(), steps.begin(), steps.end());
    words.insert(words.end(), {"--csv", folder.string()});
    EXPECT_EQ(Run_Batch(words), Exit::done);
    return {Csv_Rows(folder / "nodes.csv"), Csv_Rows(folder / "airways.csv")};
  }

  // Every cell of both grids shows the batch program's number in the grid's own format.
  void expect_grids(const Csv& csv) const {
    const std::vector<QStringList> press = rows("grdPress");
    ASSERT_EQ(press.size(), csv.nodes.size());
    const std::vector<const char*> node_pictures = {"##0",    "###0.00",   "##0.00",
                                                    "##0.00", "##0.00",    "####0.0",
                                                    "####0",  "########0", "########0"};
    for (std::size_t row = 0; row < press.size(); ++row) {
      for (int col = 0; col < 9; ++col) {
        EXPECT_EQ(press[row][col],
                  In(node_pictures[static_cast<std::size_t>(col)], csv.nodes[row][col]))
            << "node row " << row << ", column " << col;
      }
    }
    const std::vector<QStringList> flow = rows("grdFlow");
    ASSERT_EQ(flow.size(), csv.airways.size());
    const std::vector<const char*> pictures = {"",       "######0.0", "##0.00", "###0.00",
                                               "##0.00", "###0.00",   "##0.00"};
    for (std::size_t row = 0; row < flow.size(); ++row) {
      for (int col = 1; col < 7; ++col) {
        EXPECT_EQ(flow[row][col],
                  In(pictures[static_cast<std::size_t>(col)], csv.airways[row][col]))
            << "airway row " << row << ", column " << col;
      }
    }
  }
};

// The first fan's head-flow rows all get the flow of the first.
void Break_Fan_Table(const std::filesystem::path& file) {
  Database db;
  Reset_Database(db);
  Comment_Template comments;
  Test_Dialogue quiet;
  ASSERT_TRUE(Read_Ver6(db, file, comments, quiet).ok);
  for (int k = 1; k <= db.MFan_HQCount[1]; ++k) db.MFan_HQ_Flow(k, 1) = 100;
  ASSERT_TRUE(Write_Ver6(db, file, comments, quiet));
}

// A copy of the mine in which a connection names a node beyond the last.
void Lead_To_Nowhere(const std::filesystem::path& good, const std::filesystem::path& bad) {
  Database db;
  Reset_Database(db);
  Comment_Template comments;
  Test_Dialogue quiet;
  ASSERT_TRUE(Read_Ver6(db, good, comments, quiet).ok);
  db.Node_Junc(1, 5) = 500;
  ASSERT_TRUE(Write_Ver6(db, bad, comments, quiet));
}

TEST_F(Runs, Flow_Annual_And_Season_Agree_With_The_Batch_Program_And_Survive_A_Save) {
  const auto file = mine("mine-a.abk");
  open(file);
  give("mnuAnalysisComSetConst_Temp");
  user_.answers = {QMessageBox::No, QMessageBox::Ok};
  if (results().startsWith("No results")) user_.answers.pop_front();
  control<QPushButton>("Com_Calc_Flow")->click();
  EXPECT_EQ(user_.boxes.back().text, "After confirmation, push button !");
  expect_grids(batch({"--constant-temperature", "--flow"}));
  EXPECT_EQ(results(), "Results: Flow");

  control<QPushButton>("Com_Calc_Annu")->click();
  EXPECT_EQ(user_.boxes.back().text,
            "Recommendation: Save Annual calculation results,\n"
            "before calculation of Monthly Temp. & Hum.");
  expect_grids(batch({"--constant-temperature", "--flow", "--annual"}));
  EXPECT_EQ(results(), "Results: Annual");

  user_.boxes.clear();
  user_.answers = {QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
  control<QPushButton>("Com_Calc_Season")->click();
  ASSERT_EQ(user_.boxes.size(), 3U);
  EXPECT_TRUE(user_.boxes[0].text.startsWith("Annual Temp. Data will be replaced"));
  EXPECT_TRUE(user_.boxes[1].text.startsWith("Temp. & Hum. calculations are complete!"));
  EXPECT_TRUE(user_.boxes[2].text.startsWith("Flow, Temp. & Hum. calculation are complete"));
  const Csv season = batch({"--constant-temperature", "--flow", "--annual", "--season", "10"});
  expect_grids(season);
  EXPECT_EQ(results(), "Results: mid Autumn");

  user_.answers = {QMessageBox::No};
  give("mnuFileComSave");
  const auto nodes = rows("grdPress");
  const auto airways = rows("grdFlow");
  give("mnuFileComNew");
  give("mnuFileComPrefile0");
  EXPECT_EQ(results(), "Results: mid Autumn");
  give("mnuWinSelCom1");
  EXPECT_EQ(analysis()->property("Tag").toString(), "Seasonal-Flow");
  EXPECT_EQ(rows("grdPress").size(), nodes.size());
  for (std::size_t row = 0; row < nodes.size(); ++row) {
    const QStringList again = rows("grdPress")[row];
    for (const int col : {0, 1, 2, 5, 6, 7, 8}) EXPECT_EQ(again[col], nodes[row][col]) << row;
    // The file keeps five decimals of the humidity's fraction.
    EXPECT_NEAR(again[3].toDouble(), nodes[row][3].toDouble(), 0.0101) << row;
  }
  for (std::size_t row = 0; row < airways.size(); ++row) {
    EXPECT_EQ(rows("grdFlow")[row][0], airways[row][0]);
    EXPECT_EQ(rows("grdFlow")[row][8], airways[row][8]);
  }
}

TEST_F(Runs, Commands_Open_As_Results_Come) {
  give("mnuWinSelCom1");  // the sample network
  const auto enabled = [&](const char* name) { return action(name)->isEnabled(); };
  EXPECT_FALSE(enabled("mnuAnalysisComAnnual"));
  EXPECT_FALSE(enabled("mnuAnalysisComDiagram"));
  EXPECT_FALSE(enabled("mnuAnalysisComLeng"));
  EXPECT_FALSE(enabled("mnuAnalysisComGraph"));
  for (const char* const name :
       {"mnuAnalysisComPress", "mnuAnalysisComMonthly", "mnuAnalysisComSetConst_Temp",
        "mnuAnalysisComPara", "mnuAnalysisComSwitch", "mnuAnalysisComDisp"}) {
    EXPECT_TRUE(enabled(name)) << name;
  }
  give("mnuAnalysisComMonthly");
  EXPECT_EQ(user_.boxes.back().text,
            "Seasonal Temp. can be calculated after calculation of Annual Flow Temperature!");
  give("mnuAnalysisComPress");
  EXPECT_TRUE(enabled("mnuAnalysisComAnnual"));
  EXPECT_TRUE(enabled("mnuAnalysisComDiagram"));
  EXPECT_FALSE(enabled("mnuAnalysisComLeng"));
  give("mnuAnalysisComAnnual");
  EXPECT_TRUE(enabled("mnuAnalysisComLeng"));
  EXPECT_FALSE(enabled("mnuAnalysisComGraph"));
  user_.answers = {QMessageBox::Yes, QMessageBox::No};
  give("mnuAnalysisComMonthly");
  EXPECT_TRUE(enabled("mnuAnalysisComGraph")) << "also without the flow of the month";
}

TEST_F(Runs, Declined_Season_Changes_No_Result) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  give("mnuAnalysisComAnnual");
  const auto before = rows("grdFlow");
  user_.boxes.clear();
  user_.answers = {QMessageBox::No};
  give("mnuAnalysisComMonthly");
  EXPECT_EQ(user_.boxes.size(), 1U);
  EXPECT_EQ(rows("grdFlow"), before);
  EXPECT_EQ(results(), "Results: Annual");
}

TEST_F(Runs, The_Question_Of_A_Second_Flow_Run) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  user_.boxes.clear();
  user_.answers = {QMessageBox::Cancel, QMessageBox::Ok};
  give("mnuAnalysisComPress");
  ASSERT_EQ(user_.boxes.size(), 2U);
  EXPECT_EQ(user_.boxes[0].title, "BRANOK for Windows");
  EXPECT_TRUE(user_.boxes[0].text.startsWith("Calculation results are existing!"));
  EXPECT_EQ(user_.boxes[0].buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
  EXPECT_EQ(user_.boxes[0].default_button, QMessageBox::No);
  EXPECT_EQ(user_.boxes[1].text, "After confirmation, push button !") << "Cancel does not stop it";
}

TEST_F(Runs, Find_Goes_To_The_Node) {
  open(mine("mine-c.abk"));
  user_.answers = {QMessageBox::No, QMessageBox::Ok};
  give("mnuAnalysisComPress");
  const auto find = [&](const QString& text) {
    user_.dialogs.push_back([text](QDialog& dialog) {
      EXPECT_EQ(dialog.windowTitle(), "Find node");
      EXPECT_EQ(dialog.findChild<QLabel*>()->text(), "Please input nodal number.");
      dialog.findChild<QLineEdit*>()->setText(text);
      dialog.accept();
    });
    give("mnuAnalysisComFind");
  };
  auto* const tabs = control<QTabWidget>("tabAna");
  tabs->setCurrentIndex(1);
  find("9");
  const auto* const nodes = control<Grid_View>("grdPress");
  EXPECT_EQ(nodes->model()->index(nodes->currentIndex().row(), 0).data().toString(), "9");
  find("32000");
  EXPECT_EQ(nodes->currentIndex().row(), nodes->model()->rowCount() - 1);
  tabs->setCurrentIndex(2);
  find("9");
  const auto* const airways = control<Grid_View>("grdFlow");
  EXPECT_TRUE(
      airways->model()->index(airways->currentIndex().row(), 0).data().toString().startsWith("9 "));
  const std::size_t boxes = user_.boxes.size();
  find("no number");
  EXPECT_EQ(user_.boxes.size(), boxes + 1);
  EXPECT_EQ(user_.boxes.back().text, "Please input numeric data.");
  give("mnuAnalysisComFind");  // cancelled
  EXPECT_EQ(user_.boxes.size(), boxes + 1);
}

TEST_F(Runs, Change_Switch_Writes_Both_Ends_And_Tells_That_Results_Are_Old) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  give("mnuAnalysisComSwitch");
  EXPECT_EQ(results(), "Results: Flow") << "no row, no change";
  control<QTabWidget>("tabAna")->setCurrentIndex(2);
  control<Grid_View>("grdFlow")->setFocus();
  give("mnuAnalysisComSwitch");
  EXPECT_EQ(results(), "Results: Flow") << "a row that has only the keyboard";
  auto* const grid = control<Grid_View>("grdFlow");
  const QString name = rows("grdFlow")[4][0];
  grid->setCurrentIndex(grid->model()->index(4, 1));
  give("mnuAnalysisComSwitch");
  int closed = 0;
  for (const QStringList& row : rows("grdFlow")) closed += row[7] == "Close" ? 1 : 0;
  EXPECT_EQ(closed, 2);
  EXPECT_EQ(rows("grdFlow")[4][7], "Close") << qPrintable(name);
  EXPECT_EQ(results(), "Results out of date: Flow, an airway was switched");
  control<QTabWidget>("tabAna")->setCurrentIndex(0);
  give("mnuAnalysisComSwitch");
  EXPECT_EQ(rows("grdFlow")[4][7], " Open");
  EXPECT_EQ(control<QTabWidget>("tabAna")->currentIndex(), 2) << "what was switched is in view";
  EXPECT_EQ(results(), "Results: Flow") << "the results' own network again";
}

TEST_F(Runs, A_Switch_At_Constant_Temperature_Is_Settled_By_A_Flow_Run) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  give("mnuAnalysisComAnnual");
  user_.answers = {QMessageBox::No, QMessageBox::Ok};
  give("mnuAnalysisComPress");
  control<QTabWidget>("tabAna")->setCurrentIndex(2);
  auto* const grid = control<Grid_View>("grdFlow");
  grid->setCurrentIndex(grid->model()->index(4, 1));
  give("mnuAnalysisComSwitch");
  EXPECT_EQ(results(), "Results out of date: Flow at constant temperature, an airway was switched");
  user_.answers = {QMessageBox::Yes, QMessageBox::Ok};
  give("mnuAnalysisComPress");
  EXPECT_EQ(results(), "Results: Flow at constant temperature");
}

TEST_F(Runs, Changed_Parameters_Make_Results_Old_And_Leave_Them) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  const auto before = rows("grdFlow");
  give("mnuAnalysisComPara");  // Escape
  EXPECT_EQ(user_.dialogs_seen.back(), "DlgCPara");
  EXPECT_EQ(results(), "Results: Flow");
  const auto fix = [&](const std::function<void(QDialog&)>& change) {
    user_.dialogs.push_back([change](QDialog& dialog) {
      change(dialog);
      dialog.findChild<QPushButton*>("cmdOK")->click();
    });
    give("mnuAnalysisComPara");
  };
  fix([](QDialog&) {});
  EXPECT_EQ(results(), "Results: Flow") << "nothing was changed";
  fix([](QDialog& dialog) { dialog.findChild<QListWidget*>("lstSeason")->setCurrentRow(3); });
  EXPECT_EQ(results(), "Results: Flow") << "the month is of the next season";
  constexpr int rock_temp = 6;
  fix([](QDialog& dialog) {
    dialog.findChild<Value_Grid*>("grdPara")->set_value(rock_temp, "21");
  });
  EXPECT_EQ(results(), "Results out of date: Flow, parameters were changed");
  EXPECT_EQ(rows("grdFlow"), before);
}

TEST_F(Runs, What_Is_Out_Of_Date_Is_Told_Until_It_Is_Calculated_Again) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  give("mnuAnalysisComAnnual");
  give("mnuAnalysisComSetConst_Temp");
  EXPECT_EQ(results(),
            "Results out of date: Flow at constant temperature, constant temperatures were set");
  user_.answers = {QMessageBox::No, QMessageBox::Ok};
  give("mnuAnalysisComPress");
  EXPECT_EQ(results(), "Results: Flow at constant temperature");
  give("mnuAnalysisComAnnual");
  EXPECT_EQ(results(), "Results: Annual");
  user_.answers = {QMessageBox::Yes, QMessageBox::No};
  give("mnuAnalysisComMonthly");
  EXPECT_EQ(results(), "Results out of date: mid Autumn, the flow is not of these temperatures");
  user_.answers = {QMessageBox::Yes, QMessageBox::Ok};
  give("mnuAnalysisComPress");
  EXPECT_EQ(results(), "Results: mid Autumn");
}

TEST_F(Runs, A_Failed_Flow_Run_Closes_The_Temperature_Commands) {
  // Two equal flows in the fan's table: no curve.
  const auto file = mine("mine-a.abk");
  open(file);
  give("mnuAnalysisComPress");
  EXPECT_TRUE(action("mnuAnalysisComAnnual")->isEnabled());
  give("mnuAnalysisComPara");
  Break_Fan_Table(file);
  open(file);
  give("mnuAnalysisComPress");
  EXPECT_TRUE(user_.saw("Calculation Error about Gauss Reduction occurred, please check data !"));
  EXPECT_EQ(results(), "No results");
  EXPECT_FALSE(action("mnuAnalysisComAnnual")->isEnabled());
  EXPECT_FALSE(control<QPushButton>("Com_Calc_Annu")->isEnabled());
  EXPECT_EQ(analysis()->property("Tag").toString(), "none");
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
  // The diagram of such a fan is a message too.
  user_.boxes.clear();
  give("mnuDataComGraph");
  EXPECT_TRUE(user_.saw("Calculation Error about Gauss Reduction"));
}

TEST_F(Runs, A_Mine_With_An_Airway_To_Nowhere_Is_Told_With_And_Without_A_Window) {
  const auto good = mine("mine-a.abk");
  open(good);
  give("mnuAnalysisComPress");
  user_.answers = {QMessageBox::No};
  give("mnuFileComSave");
  const auto bad = home_ / "bad.abk";
  Lead_To_Nowhere(good, bad);
  open(bad);
  EXPECT_TRUE(user_.saw("Sorry, failed 'Open...' command."));
  EXPECT_TRUE(rows("grdFlow").empty()) << "no row of the mine before";
  window_->findChild<QMdiArea*>()->closeAllSubWindows();
  QTRY_VERIFY_WITH_TIMEOUT(analysis() == nullptr, 2000);
  open(bad);
  open(good);
  EXPECT_GT(rows("grdFlow").size(), 0U);
}

TEST_F(Runs, The_Busy_Pointer_Rests_In_The_Boxes_Of_A_Run) {
  open(mine("mine-a.abk"));
  bool arrow_in_box = false;
  user_.look = [&](QWidget&) {
    const QCursor* const pointer = QApplication::overrideCursor();
    arrow_in_box = pointer == nullptr || pointer->shape() == Qt::ArrowCursor;
  };
  give("mnuAnalysisComPress");
  EXPECT_TRUE(arrow_in_box);
  give("mnuAnalysisComAnnual");
  EXPECT_TRUE(arrow_in_box);
  EXPECT_EQ(QApplication::overrideCursor(), nullptr);
}

TEST_F(Runs, Diagrams_Open_From_The_Menu) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  give("mnuAnalysisComAnnual");
  user_.answers = {QMessageBox::Yes, QMessageBox::Yes};
  give("mnuAnalysisComMonthly");
  QStringList titles;
  for (const char* const name :
       {"mnuAnalysisComDiagram", "mnuAnalysisComGraph", "mnuAnalysisComLeng", "mnuDataComGraph"}) {
    user_.dialogs.push_back([&](QDialog& dialog) {
      EXPECT_EQ(dialog.objectName(), "DlgGraph");
      titles << dialog.windowTitle();
      dialog.reject();
    });
    give(name);
  }
  EXPECT_EQ(titles, QStringList({"Calculation Result", "Temp. Fluctuation Diagram",
                                 "Calculation Result", "Fan Characteristic Diagram of Fan No.1"}));
}

TEST_F(Runs, Closing_Under_A_Dialog_Asks_First) {
  give("mnuWinSelCom1");
  user_.answers = {QMessageBox::No};
  user_.dialogs.push_back([&](QDialog& dialog) {
    window_->close();
    EXPECT_TRUE(dialog.isVisible());
    dialog.reject();
  });
  give("mnuAnalysisComPara");
  EXPECT_TRUE(user_.saw("Do you really want to exit the application?"));
  EXPECT_TRUE(window_->isVisible());
}

TEST_F(Runs, The_Season_Of_Results_Is_Not_The_One_To_Calculate_Next) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  give("mnuAnalysisComAnnual");
  user_.answers = {QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
  give("mnuAnalysisComMonthly");
  user_.dialogs.push_back([](QDialog& dialog) {
    dialog.findChild<QListWidget*>("lstSeason")->setCurrentRow(7);
    dialog.findChild<QPushButton*>("cmdOK")->click();
  });
  give("mnuAnalysisComPara");
  EXPECT_EQ(results(), "Results: mid Autumn");
}

TEST_F(Runs, Another_Wetness_Makes_Temperatures_Old) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  give("mnuAnalysisComAnnual");
  const bool evaporative = control<QRadioButton>("optWetR1")->isChecked();
  control<QRadioButton>(evaporative ? "optWetR0" : "optWetR1")->click();
  EXPECT_EQ(action("mnuAnalysisComAnnual")->property("Tag").toString(),
            evaporative ? "area" : "evaporate");
  EXPECT_EQ(results(), "Results out of date: Annual, the wetness selection was changed");
  control<QRadioButton>(evaporative ? "optWetR1" : "optWetR0")->click();
  EXPECT_EQ(results(), "Results: Annual");
}

}  // namespace
}  // namespace branok
