#include "thermal/parameters.h"

#include <gtest/gtest.h>

#include <vector>

#include "flows.h"
#include "thermal/moist_air.h"

namespace branok {
namespace {

std::string Refusal(Database& db, std::string_view name, std::string_view text) {
  try {
    Set_Parameter(db, name, text);
  } catch (const Run_Time_Error& error) {
    return error.what();
  }
  return "";
}

std::vector<std::string> Row_Texts(const Database& db) {
  std::vector<std::string> texts;
  for (const Parameter& parameter : Calculation_Parameters().first(12)) {
    texts.push_back(parameter.entry == Entry::listed ? std::to_string(db.Para_Month)
                                                     : Parameter_Text(db, parameter));
  }
  return texts;
}

TEST(Parameters, HaveTheirDefaults) {
  Database db;
  New_Database(db, "2024/01/01");
  for (const Parameter& parameter : Calculation_Parameters()) {
    EXPECT_EQ(static_cast<float>(parameter.get(db)), static_cast<float>(parameter.standard))
        << parameter.name;
  }
}

TEST(Parameters, AreShownInTheirPictures) {
  Database db;
  New_Database(db, "2024/01/01");
  EXPECT_EQ(Row_Texts(db), (std::vector<std::string>{"0.1", "1.4", "9.0", "26.60", "60.0", "5.6",
                                                     "17.0", "0.03", "3.0", "0.006", "0.0", "10"}));
  EXPECT_EQ(Parameter_Text(db, *Find_Parameter("Para_Month")), "mid Autumn");
  EXPECT_EQ(Find_Parameter("Para_FlowTol")->title, "Allowable  Flow Tolerance     (m³/min)");
  EXPECT_EQ(Find_Parameter("Para_IntakeTemp")->column, "'Annual Ave. Intake Temp.' Column");
  EXPECT_EQ(Find_Parameter("Para_Nothing"), nullptr);
}

TEST(Parameters, PassAtTheirBounds) {
  Database db = Line_Mine(3);
  for (const Parameter& parameter : Calculation_Parameters()) {
    if (parameter.entry == Entry::derived) continue;
    const Picture plain("0.####");
    EXPECT_EQ(Refusal(db, parameter.name, plain(parameter.high).view()), "");
    EXPECT_EQ(static_cast<float>(parameter.get(db)), static_cast<float>(parameter.high));
    if (parameter.low < -1e30) continue;
    EXPECT_EQ(Refusal(db, parameter.name, plain(parameter.low).view()), "");
    EXPECT_EQ(static_cast<float>(parameter.get(db)), static_cast<float>(parameter.low));
  }
  EXPECT_EQ(Refusal(db, "Para_IntakeTemp", "45"), "");
  EXPECT_EQ(Refusal(db, "Para_IntakeTemp", "-20"), "");
}

TEST(Parameters, AreRefusedBeyondTheirBounds) {
  Database db = Line_Mine(3);
  const Database before = db;
  EXPECT_EQ(Refusal(db, "Para_FlowTol", "200"), "Para_FlowTol must be 0.001 to 100, not '200'");
  EXPECT_EQ(Refusal(db, "Para_RockGrad", "0.31"), "Para_RockGrad must be at most 0.3, not '0.31'");
  EXPECT_EQ(Refusal(db, "Para_DatumElev", "2001"),
            "Para_DatumElev must be at most 2000, not '2001'");
  EXPECT_EQ(Refusal(db, "Para_RockDiff", "0.0002"),
            "Para_RockDiff must be 0.0003 to 0.1, not '0.0002'");
  EXPECT_NE(Refusal(db, "Para_IntakeTemp", "45.1"), "");
  EXPECT_NE(Refusal(db, "Para_Month", "13"), "");
  EXPECT_NE(Refusal(db, "Para_Month", "-1"), "");
  EXPECT_NE(Refusal(db, "Para_InitPress", "1.1"), "");
  EXPECT_NE(Refusal(db, "Para_Accel", "fast"), "");
  EXPECT_NE(Refusal(db, "Para_Accel", ""), "");
  EXPECT_NE(Refusal(db, "Para_Accel", "nan"), "");
  EXPECT_NE(Refusal(db, "Para_RockGrad", "-1e99"), "");
  EXPECT_NE(Refusal(db, "Para_DatumElev", "-40000"), "");
  EXPECT_NE(Refusal(db, "Para_IntakeWBT", "5"), "");
  EXPECT_NE(Refusal(db, "Para_Speed", "5"), "");
  EXPECT_EQ(db, before);
}

TEST(Parameters, LetTheWetBulbFollow) {
  Database db = Line_Mine(3);
  Set_Parameter(db, "Para_IntakeTemp", "20");
  Set_Parameter(db, "Para_IntakeHum", "50");
  EXPECT_NEAR(db.Para_IntakeWBT, 13.8, 0.15);
}

TEST(Parameters, FixAllRowsOrNone) {
  Database db = Line_Mine(3);
  std::vector<std::string> texts = Row_Texts(db);
  texts[2] = "20";
  texts[7] = "0.04";
  texts[11] = "3";
  EXPECT_EQ(Fix_Parameters(db, texts), std::nullopt);
  EXPECT_EQ(db.Para_IntakeTemp, 20);
  EXPECT_EQ(db.Para_RockGrad, 0.04F);
  EXPECT_EQ(db.Para_Month, 3);
  const Database before = db;
  texts[0] = "5";
  texts[3] = "51";
  texts[4] = "101";
  const std::optional<Parameter_Fault> fault = Fix_Parameters(db, texts);
  ASSERT_TRUE(fault.has_value());
  EXPECT_EQ(fault->row, 3);
  EXPECT_EQ(db, before);
}

TEST(Parameters, FixLetsTheWetBulbFollow) {
  Database db = Line_Mine(3);
  std::vector<std::string> texts = Row_Texts(db);
  texts[2] = "20";
  texts[4] = "50";
  EXPECT_EQ(Fix_Parameters(db, texts), std::nullopt);
  EXPECT_NEAR(db.Para_IntakeWBT, 13.8, 0.15);
}

TEST(Parameters, StayWhenThereIsNoWetBulb) {
  Database db = Line_Mine(3);
  std::vector<std::string> texts = Row_Texts(db);
  texts[2] = "20";
  texts[7] = "0.04";
  db.Inlet_Node[1] = 600;
  const Database before = db;
  EXPECT_THROW(Fix_Parameters(db, texts), Run_Time_Error);
  EXPECT_THROW(Set_Parameter(db, "Para_IntakeTemp", "20"), Run_Time_Error);
  EXPECT_EQ(db, before);
}

// Up there water boils below the intake's temperature.
TEST(Parameters, AreFixedForAnIntakeAtAnyHeight) {
  Database db = Line_Mine(3);
  db.Node_Elev[1] = 25000;
  std::vector<std::string> texts = Row_Texts(db);
  texts[2] = "45";
  texts[4] = "0";
  EXPECT_EQ(Fix_Parameters(db, texts), std::nullopt);
  EXPECT_EQ(db.Para_IntakeWBT, 45);
}

TEST(IntakeWetBulb, IsTheTrueForm) {
  Database db = Line_Mine(3);
  db.Node_Elev[1] = 1000;
  const Intake_Air air = Derive_Intake_WBT(db);
  EXPECT_FLOAT_EQ(air.P, static_cast<float>(Air_Pressure(1000)));
  EXPECT_FLOAT_EQ(air.x, Calc_SatHum(air.P, 0.6F * Calc_SatPress(9)));
  EXPECT_EQ(db.Para_IntakeWBT, Calc_WetBulb(air.P, 9, air.x));
}

TEST(IntakeWetBulb, TakesSeaLevelBelowIt) {
  Database db = Line_Mine(3);
  db.Node_Elev[1] = -500;
  EXPECT_EQ(Derive_Intake_WBT(db).P, 1);
  EXPECT_NEAR(db.Para_IntakeWBT, 5.6, 0.15);
}

}  // namespace
}  // namespace branok
