// A mine analysed in the windows, against the same run without them.
#include <QRadioButton>
#include <sstream>

#include "batch/commands.h"
#include "core/pictures.h"
#include "main_window_test.h"

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

TEST_F(Runs, Flow_Annual_And_Season_Agree_With_The_Batch_Program_And_Survive_A_Save) {
  const auto file = mine("mine-a.abk");
  open(file);
  give("mnuAnalysisComSetConst_Temp");
  user_.answers = {QMessageBox::No, QMessageBox::Ok};
  if (status("stbResults").startsWith("No results")) user_.answers.pop_front();
  control<QPushButton>("Com_Calc_Flow")->click();
  EXPECT_EQ(user_.boxes.back().text, "After confirmation, push button !");
  expect_grids(batch({"--constant-temperature", "--flow"}));
  EXPECT_EQ(status("stbResults"), "Results: Flow");

  control<QPushButton>("Com_Calc_Annu")->click();
  EXPECT_EQ(user_.boxes.back().text,
            "Recommendation: Save Annual calculation results,\n"
            "before calculation of Monthly Temp. & Hum.");
  expect_grids(batch({"--constant-temperature", "--flow", "--annual"}));
  EXPECT_EQ(status("stbResults"), "Results: Annual");

  user_.boxes.clear();
  user_.answers = {QMessageBox::Yes, QMessageBox::Yes, QMessageBox::Ok};
  control<QPushButton>("Com_Calc_Season")->click();
  ASSERT_EQ(user_.boxes.size(), 3U);
  EXPECT_TRUE(user_.boxes[0].text.startsWith("Annual Temp. Data will be replaced"));
  EXPECT_TRUE(user_.boxes[1].text.startsWith("Temp. & Hum. calculations are complete!"));
  EXPECT_TRUE(user_.boxes[2].text.startsWith("Flow, Temp. & Hum. calculation are complete"));
  const Csv season = batch({"--constant-temperature", "--flow", "--annual", "--season", "10"});
  expect_grids(season);
  EXPECT_EQ(status("stbResults"), "Results: mid Autumn");

  user_.answers = {QMessageBox::No};
  give("mnuFileComSave");
  const auto nodes = rows("grdPress");
  const auto airways = rows("grdFlow");
  give("mnuFileComNew");
  give("mnuFileComPrefile0");
  EXPECT_EQ(status("stbResults"), "Results: mid Autumn");
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
  EXPECT_EQ(status("stbResults"), "Results: Annual");
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
  EXPECT_EQ(status("stbResults"), "Results: Flow") << "no row, no change";
  control<QTabWidget>("tabAna")->setCurrentIndex(2);
  auto* const grid = control<Grid_View>("grdFlow");
  const QString name = rows("grdFlow")[4][0];
  grid->setCurrentIndex(grid->model()->index(4, 1));
  give("mnuAnalysisComSwitch");
  int closed = 0;
  for (const QStringList& row : rows("grdFlow")) closed += row[7] == "Close" ? 1 : 0;
  EXPECT_EQ(closed, 2);
  EXPECT_EQ(rows("grdFlow")[4][7], "Close") << qPrintable(name);
  EXPECT_EQ(status("stbResults"), "Results: Flow, out of date: an airway was switched");
  give("mnuAnalysisComSwitch");
  EXPECT_EQ(rows("grdFlow")[4][7], " Open");
}

TEST_F(Runs, Changed_Parameters_Make_Results_Old_And_Leave_Them) {
  open(mine("mine-a.abk"));
  give("mnuAnalysisComPress");
  const auto before = rows("grdFlow");
  give("mnuAnalysisComPara");  // Escape
  EXPECT_EQ(user_.dialogs_seen.back(), "DlgCPara");
  EXPECT_EQ(status("stbResults"), "Results: Flow");
  EXPECT_EQ(rows("grdFlow"), before);
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

TEST_F(Runs, The_Main_Window_Does_Not_Close_Under_A_Box) {
  give("mnuWinSelCom1");
  bool closed = true;
  user_.dialogs.push_back([&](QDialog& dialog) {
    // As the desktop's close button asks for it.
    closed = !window_->windowHandle()->isVisible();
    QTest::keyClick(&dialog, Qt::Key_Escape);
  });
  give("mnuAnalysisComPara");
  EXPECT_FALSE(closed);
  EXPECT_TRUE(window_->isVisible());
}

}  // namespace
}  // namespace branok
