#include "airflow/likely_causes.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/sample.h"
#include "support/generated_mine.h"

namespace branok {
namespace {

bool Names(const std::vector<std::string>& causes, std::string_view part) {
  return std::any_of(causes.begin(), causes.end(), [part](const std::string& cause) {
    return cause.find(part) != std::string::npos;
  });
}

class Causes : public testing::Test {
 protected:
  Causes() { New_Database(db, "x"); }
  Database db;
};

TEST_F(Causes, ASoundNetworkHasNone) { EXPECT_TRUE(Likely_Causes(db).empty()); }

TEST_F(Causes, MissingFanAndIntake) {
  db.MFan_Total = 0;
  db.Inlet_Total = 0;
  EXPECT_TRUE(Names(Likely_Causes(db), "no main fan"));
  EXPECT_TRUE(Names(Likely_Causes(db), "no intake"));
}

TEST_F(Causes, AirwayWithoutResistance) {
  Set_Both(db, db.Root_Resist, 2, 3, 0.0F);
  EXPECT_TRUE(Names(Likely_Causes(db), "Airway 2-3 has no resistance"));
}

TEST_F(Causes, HighestNumberBesideAHeldNode) {
  Add_Airway(db, 5, 6, 1);
  Add_Airway(db, 4, 6, 1);
  EXPECT_TRUE(
      Names(Likely_Causes(db), "Node 6, the highest number, is a free neighbour of node 5"));
  db.Node_Total = 7;  // an unused higher number cures it
  EXPECT_FALSE(Names(Likely_Causes(db), "highest number"));
}

TEST_F(Causes, NodeThatNoIntakeReaches) {
  Add_Airway(db, 7, 8, 1);
  EXPECT_TRUE(Names(Likely_Causes(db), "Node 7 cannot be reached from any intake"));
}

TEST_F(Causes, SeveralFansBehindAnEasyDrift) {
  Add_Airway(db, 4, 6, 0.01F);
  Set_Default_Fan(db, 2, 9000);
  db.MFan_Total = 2;
  db.MFan_Suction[2] = db.MFan_Discharge[2] = 6;
  EXPECT_TRUE(Names(Likely_Causes(db), "Main fan #2"));
}

TEST_F(Causes, UndergroundFanWithoutDropInItsAirway) {
  Add_Airway(db, 5, 6, 0.001F);
  db.MFan_Discharge[1] = 6;
  db.MFan_Press[1] = 100;
  db.Root_Flow(1, 5) = -10;
  EXPECT_TRUE(Names(Likely_Causes(db), "takes almost none of the fan's head"));
}

TEST_F(Causes, FanAtTheEndOfItsTable) {
  db.Root_Flow(1, 5) = -10000 / 60.0F;
  EXPECT_TRUE(Names(Likely_Causes(db), "end of its head-flow table"));
}

TEST_F(Causes, FansThatDivideByZero) {
  db.MFan_Ratio[1] = 0;
  db.AFan_Total = 1;
  db.AFan_Suction[1] = 2;
  db.AFan_Discharge[1] = 3;
  const auto causes = Likely_Causes(db);
  EXPECT_TRUE(Names(causes, "Main fan #1 does not turn"));
  EXPECT_TRUE(Names(causes, "Assist fan 1 has a flow of 0"));
}

TEST_F(Causes, IntakeAndFanAtOneNode) {
  db.Inlet_Node[1] = 5;
  EXPECT_TRUE(Names(Likely_Causes(db), "Main fan #1 and intake 1 stand at the same node 5"));
}

TEST_F(Causes, BrokenNumbersAreNamedNotFollowed) {
  db.Node_Junc(1, 3) = 9999;
  EXPECT_NO_THROW(Likely_Causes(db));
  db.MFan_Suction[1] = 9999;
  EXPECT_TRUE(Names(Likely_Causes(db), "does not exist"));
}

}  // namespace
}  // namespace branok
