// The temperature runs with the flow solver: natural ventilation, order of runs, generated mines.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "airflow/flow_run.h"
#include "flows.h"
#include "thermal/seasonal.h"

namespace branok {
namespace {

struct Runs {
  Test_Dialogue dialogue;
  Test_Panel panel;

  Flow_Result flow(Database& db) { return Ana_Flow_Press(db, dialogue, panel); }
  Annual_Result annual(Database& db) { return Ana_Annual_Temp(db, dialogue, panel); }
  Season_Result season(Database& db) { return Ana_Season_Temp(db, dialogue, panel); }
};

// The largest flow that is lost at a node with more than one airway, m3/s.
double Largest_Imbalance(const Database& db) {
  double largest = 0;
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] < 2 || db.Node_Type[i] != 0) continue;
    double sum = 0;
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) sum += db.Root_Flow(j, i);
    largest = std::max(largest, std::abs(sum));
  }
  return largest;
}

void Expect_Air(const Database& db) {
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_JuncCount[i] == 0) continue;
    EXPECT_TRUE(std::isfinite(db.Node_DBT[i])) << i;
    EXPECT_GE(db.Node_Hum[i], 0) << i;
    EXPECT_LE(db.Node_Hum[i], 1.0001) << i;
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      EXPECT_TRUE(std::isfinite(db.Root_Temp(j, i))) << i;
      EXPECT_GE(db.Root_Hum(j, i), 0) << i;
      EXPECT_LE(db.Root_Hum(j, i), 1.0001) << i;
    }
  }
}

// No air is colder than the intake's wet bulb or the coldest rock, none hotter than 30 degrees
// above the hottest rock.
void Expect_Between_Air_And_Rock(const Database& db) {
  float coldest = std::min(db.Para_IntakeWBT, db.Para_RockTemp);
  float hottest = db.Para_RockTemp;
  for (int i = 1; i <= db.Node_Total; ++i) {
    coldest = std::min(coldest, db.Node_VRT[i]);
    hottest = std::max(hottest, db.Node_VRT[i]);
  }
  for (int i = 1; i <= db.Node_Total; ++i) {
    EXPECT_GE(db.Node_DBT[i], coldest) << i;
    EXPECT_LE(db.Node_DBT[i], hottest + 30) << i;
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      EXPECT_GE(db.Root_Temp(j, i), coldest) << i;
      EXPECT_LE(db.Root_Temp(j, i), hottest + 30) << i;
    }
  }
}

// The season adds no more than the wave at the intake.
void Expect_Within_Wave(const Database& db) {
  const double amplitude = db.Para_TempDiff / 2 * 1.0001;
  for (int i = 1; i <= db.Node_Total; ++i) {
    if (db.Node_Type[i] == 0) {
      EXPECT_LE(std::abs(db.Node_DBT[i] - db.Node_TempInit[i]), amplitude) << i;
    }
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j) {
      EXPECT_LE(std::abs(db.Root_Temp(j, i) - db.Root_TempInit(j, i)), amplitude) << i;
    }
  }
}

TEST(Coupled, RunsTheSampleThroughTheYear) {
  Database db;
  New_Database(db, "2024/01/01");
  Derive_After_Load(db);
  Runs runs;
  ASSERT_TRUE(runs.flow(db).ok());
  const Annual_Result annual = runs.annual(db);
  ASSERT_TRUE(annual.ok());
  EXPECT_TRUE(annual.flow.ok());
  EXPECT_GT(db.Node_DBT[5], db.Node_DBT[1]);
  EXPECT_EQ(db.Root_FlowSign(1, 1), 1);
  const float mean = db.Node_DBT[5];
  db.Para_Month = 7;
  ASSERT_EQ(runs.season(db).end, Season_End::complete);
  EXPECT_GT(db.Node_DBT[5], mean);
  db.Para_Month = 1;
  ASSERT_EQ(runs.season(db).end, Season_End::complete);
  EXPECT_LT(db.Node_DBT[5], mean);
  EXPECT_EQ(db.Flag_Temp, -1);
  EXPECT_EQ(runs.panel.result_state, "Seasonal-Flow");
  ASSERT_TRUE(runs.annual(db).ok());
  EXPECT_EQ(db.Flag_Annual, 1);
  EXPECT_EQ(db.Flag_Season, 0);
}

TEST(Coupled, BalancesTheFlowOfGeneratedMines) {
  for (const int nodes : {20, 60, 150}) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
      Database db = Make_Mine(
          {.nodes = nodes, .seed = seed, .assist_fans = 0, .thermo_rows = 5, .hills = false});
      Runs runs;
      ASSERT_TRUE(runs.flow(db).ok()) << nodes << ' ' << seed;
      const Annual_Result annual = runs.annual(db);
      ASSERT_TRUE(annual.ok()) << nodes << ' ' << seed << ' ' << annual.fault;
      EXPECT_LE(annual.max_change, db.Node_Total / 60 + 1);
      Expect_Air(db);
      ASSERT_TRUE(annual.flow.ok()) << nodes << ' ' << seed;
      EXPECT_LT(Largest_Imbalance(db), 0.1 / 60 * 1.01);
      EXPECT_TRUE(runs.season(db).ok());
      Expect_Air(db);
      Expect_Within_Wave(db);
    }
  }
}

// Without dead ends, so that all air comes from the intakes.
TEST(Coupled, KeepsTheAirBetweenIntakeAndRock) {
  for (const float intake : {-5.0F, 9.0F, 25.0F}) {
    for (unsigned seed = 1; seed <= 4; ++seed) {
      Database db =
          Make_Mine({.nodes = 60, .seed = seed, .thermo_rows = 5, .hills = false, .extra = 1});
      db.Para_IntakeTemp = intake;
      Set_Constant_Temp(db, true);
      Runs runs;
      ASSERT_TRUE(runs.flow(db).ok()) << seed;
      ASSERT_TRUE(runs.annual(db).ok()) << seed;
      Expect_Between_Air_And_Rock(db);
    }
  }
}

TEST(Coupled, EndsInHillsWhateverTheirAirDoes) {
  for (unsigned seed = 1; seed <= 6; ++seed) {
    Database db = Make_Mine({.nodes = 40, .seed = seed, .hills = true});
    Runs runs;
    runs.flow(db);
    const Annual_Result annual = runs.annual(db);
    EXPECT_NE(annual.end, Annual_End::fault) << seed << ' ' << annual.fault;
    EXPECT_EQ(db.Flag_Temp != 0, annual.ok());
  }
}

// A shaft pair without fan pressure worth mention: warm rock draws the air through the mine.
TEST(Coupled, DrawsAirByTheWarmthOfTheRock) {
  Database db = Flat_Mine(4);
  Add_Airway(db, 1, 2, 10);
  Add_Airway(db, 2, 3, 10);
  Add_Airway(db, 3, 4, 10);
  db.Node_Elev[2] = db.Node_Elev[3] = -400;
  for (int i = 1; i < 4; ++i) Set_Both(db, db.Root_Length, i, i + 1, 400.0F);
  db.MFan_Total = 1;
  Set_Default_Fan(db, 1, 9000);
  for (int k = 1; k <= 5; ++k) db.MFan_HQ_Head(k, 1) = 10;
  db.MFan_Suction[1] = db.MFan_Discharge[1] = 4;
  db.Para_RockTemp = 30;
  Derive_After_Load(db);
  Runs runs;
  ASSERT_TRUE(runs.flow(db).ok());
  const float cold = db.Root_Flow(1, 1);
  ASSERT_TRUE(runs.annual(db).ok());
  EXPECT_GT(db.Root_Flow(1, 1), 1.05F * cold);
}

}  // namespace
}  // namespace branok
