// The two real mines against their published flow shares.
#include <gtest/gtest.h>

#include <cmath>
#include <sstream>

#include "airflow/flow_run.h"
#include "core/safe_file.h"
#include "files/ver6.h"
#include "support/test_doors.h"
#include "thermal/annual.h"
#include "thermal/seasonal.h"

namespace branok {
namespace {

struct Published {
  int i, j;
  double share_published, share_file, flow;  // flow in m3/min
};

std::vector<Published> Read_Published(const std::string& name) {
  std::istringstream text(Read_Whole(BRANOK_TEST_DATA "/DATA/" + name));
  std::vector<Published> rows;
  std::string line;
  std::getline(text, line);
  while (std::getline(text, line)) {
    std::vector<std::string> cells;
    std::istringstream cell_text(line);
    for (std::string cell; std::getline(cell_text, cell, ',');) cells.push_back(cell);
    if (!cells.empty() && cells.back().ends_with('\r')) cells.back().pop_back();
    rows.push_back({Parse_Int32(cells.at(0)), Parse_Int32(cells.at(1)), Parse_Double(cells.at(2)),
                    Parse_Double(cells.at(3)), Parse_Double(cells.at(4))});
  }
  return rows;
}

class Demo_Mine : public testing::TestWithParam<std::tuple<const char*, double>> {
 protected:
  Demo_Mine() {
    Reset_Database(db);
    Comment_Template comments;
    const std::string name = std::get<0>(GetParam());
    const Read_Result read =
        Read_Ver6(db, BRANOK_TEST_DATA "/DATA/" + name + ".abk", comments, dialogue);
    EXPECT_TRUE(read.ok) << read.fault;
    published = Read_Published(name + ".expected.csv");
  }
  [[nodiscard]] double flow(int i, int j) const {
    return 60 * db.Root_Flow(Find_Slot(db, i, j), i);
  }
  [[nodiscard]] double intake_flow() const {
    double sum = 0;
    for (int k = 1; k <= db.Inlet_Total; ++k) {
      const int i = db.Inlet_Node[k];
      for (int j = 1; j <= db.Node_JuncCount[i]; ++j) sum += 60 * db.Root_Flow(j, i);
    }
    return sum;
  }
  // Largest difference of a flow share from the given column.
  [[nodiscard]] double worst_share(double Published::*column) const {
    const double total = intake_flow();
    double worst = 0;
    for (const Published& row : published) {
      worst = std::max(worst, std::abs(flow(row.i, row.j) / total - row.*column));
    }
    return worst;
  }
  Database db;
  Test_Dialogue dialogue;
  Test_Panel panel;
  std::vector<Published> published;
};

TEST_P(Demo_Mine, FlowSharesAreThePublishedOnes) {
  const double tolerance = std::get<1>(GetParam());
  ASSERT_FALSE(published.empty());
  Set_Constant_Temp(db, true);
  ASSERT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
  EXPECT_LT(worst_share(&Published::share_file), tolerance);
  EXPECT_LT(worst_share(&Published::share_published), tolerance);
  // The comparison sees a wrong airway.
  const Published& row = published[published.size() / 2];
  db.Root_Flow(Find_Slot(db, row.i, row.j), row.i) *= 1.5F;
  EXPECT_GT(worst_share(&Published::share_file), tolerance);
}

TEST_P(Demo_Mine, TotalFlowIsThePublishedOne) {
  Set_Constant_Temp(db, true);
  ASSERT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
  const Published* largest = &published[0];
  for (const Published& row : published) {
    if (row.share_file > largest->share_file) largest = &row;
  }
  const double total = largest->flow / largest->share_file;
  EXPECT_NEAR(intake_flow() / total, 1, 1e-3);
}

TEST_P(Demo_Mine, YearAndSeasonsCanBeComputed) {
  ASSERT_TRUE(Ana_Flow_Press(db, dialogue, panel).ok());
  ASSERT_TRUE(Ana_Annual_Temp(db, dialogue, panel).ok());
  for (std::int16_t month = 0; month <= 12; ++month) {
    db.Para_Month = month;
    EXPECT_TRUE(Ana_Season_Temp(db, dialogue, panel).ok()) << month;
  }
}

INSTANTIATE_TEST_SUITE_P(Mines, Demo_Mine,
                         testing::Values(std::tuple("mine-a", 1e-4), std::tuple("mine-c", 3e-5)),
                         [](const auto& mine) {
                           return std::string(std::get<0>(mine.param)) == "mine-a" ? "A" : "C";
                         });

}  // namespace
}  // namespace branok
