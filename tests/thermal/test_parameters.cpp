#include "thermal/parameters.h"

#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
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
  for (const Parameter& parameter : Parameter_Rows()) {
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

// One row typed, the others as they are.
std::optional<Parameter_Fault> Fix_Row(Database& db, int row, const std::string& text) {
  std::vector<std::string> texts = Row_Texts(db);
  texts[static_cast<std::size_t>(row)] = text;
  return Fix_Parameters(db, texts);
}

// All digits of a 32-bit float.
std::string Digits(double value) {
  std::array<char, 32> text{};
  const auto end = std::to_chars(text.begin(), text.end(), static_cast<float>(value)).ptr;
  return {text.begin(), end};
}

// The number next to a bound, on its far side.
std::string Beyond(const Parameter& parameter, double bound, int direction) {
  if (parameter.integer != nullptr) return std::to_string(static_cast<int>(bound) + direction);
  return Digits(std::nextafter(static_cast<float>(bound), direction * 1e9F));
}

TEST(Parameters, RowsPassAtTheirBoundsAndNotBeyond) {
  const Database start = Line_Mine(3);
  for (int row = 0; row < 12; ++row) {
    const Parameter& parameter = Parameter_Rows()[static_cast<std::size_t>(row)];
    if (parameter.entry == Entry::derived) continue;
    SCOPED_TRACE(parameter.name);
    Database db = start;
    EXPECT_EQ(Fix_Row(db, row, Digits(parameter.high)), std::nullopt);
    EXPECT_EQ(parameter.get(db), static_cast<float>(parameter.high));
    db = start;
    auto fault = Fix_Row(db, row, Beyond(parameter, parameter.high, 1));
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(fault->row, row);
    EXPECT_FALSE(fault->no_number);
    EXPECT_EQ(db, start);
    if (parameter.low < -1e30) continue;
    EXPECT_EQ(Fix_Row(db, row, Digits(parameter.low)), std::nullopt);
    EXPECT_EQ(parameter.get(db), static_cast<float>(parameter.low));
    db = start;
    fault = Fix_Row(db, row, Beyond(parameter, parameter.low, -1));
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(fault->row, row);
    EXPECT_FALSE(fault->no_number);
    EXPECT_EQ(db, start);
  }
}

TEST(Parameters, FaultsTellTheBoundsInTheRowsFormat) {
  Database db = Line_Mine(3);
  const auto bounds = [&db](int row) {
    const auto fault = Fix_Row(db, row, "1e30");
    return fault ? fault->low + " | " + fault->high : "";
  };
  EXPECT_EQ(bounds(0), "0.001 | 100.0");
  EXPECT_EQ(bounds(1), "0.4 | 1.5");
  EXPECT_EQ(bounds(2), "-20.0 | 45.0");
  EXPECT_EQ(bounds(3), "0.00 | 50.00");
  EXPECT_EQ(bounds(4), "0.0 | 100.0");
  EXPECT_EQ(bounds(6), "-20.0 | 50.0");
  EXPECT_EQ(bounds(7), "any value below | 0.3");
  EXPECT_EQ(bounds(8), "0.2 | 15.0");
  EXPECT_EQ(bounds(9), "0.0003 | 0.1");
  EXPECT_EQ(bounds(10), "-32768.0 | 2000.0");
  EXPECT_EQ(bounds(11), "0 | 12");
}

TEST(Parameters, FaultsTellWhatIsNoNumber) {
  Database db = Line_Mine(3);
  for (const char* text : {"", "  ", "abc", "1,5", "1.2.3", "nan", "inf", "0x10", "5 m"}) {
    const auto fault = Fix_Row(db, 8, text);
    ASSERT_TRUE(fault.has_value()) << text;
    EXPECT_TRUE(fault->no_number) << text;
  }
  for (const char* text : {"1e39", "-1e39", "16"}) {
    const auto fault = Fix_Row(db, 8, text);
    ASSERT_TRUE(fault.has_value()) << text;
    EXPECT_FALSE(fault->no_number) << text;
  }
  EXPECT_EQ(Fix_Row(db, 8, " 1.5 "), std::nullopt);
  EXPECT_EQ(db.Para_RockCond, 1.5F);
}

TEST(Parameters, RowsThatStayKeepEveryDigit) {
  Database db = Line_Mine(3);
  db.Para_RockGrad = 0.03004F;
  db.Para_IntakeTemp = 9.126F;
  Database expected = db;
  expected.Para_Accel = 1.2F;
  Derive_Intake_WBT(expected);
  EXPECT_EQ(Fix_Row(db, 1, "1.2"), std::nullopt);
  EXPECT_EQ(db, expected);
  EXPECT_EQ(Fix_Row(db, 7, "0.030"), std::nullopt);
  EXPECT_EQ(db.Para_RockGrad, 0.03F);
}

// Else the engineer would be told to change 45 into 45.
TEST(Parameters, AreTestedAsTheyAreShown) {
  Database db = Line_Mine(3);
  db.Para_IntakeTemp = 45.004F;
  EXPECT_EQ(Fix_Parameters(db, Row_Texts(db)), std::nullopt);
  EXPECT_EQ(db.Para_IntakeTemp, 45);
  db.Para_IntakeTemp = 45.06F;
  EXPECT_EQ(Fix_Parameters(db, Row_Texts(db))->row, 2);
}

TEST(Parameters, RefuseAMonthThatIsNone) {
  Database db = Line_Mine(3);
  for (const std::int16_t month : {std::int16_t{-1}, std::int16_t{13}, std::int16_t{32767}}) {
    std::vector<std::string> texts = Row_Texts(db);
    Database odd = db;
    odd.Para_Month = month;
    texts[11] = std::to_string(month);
    const auto fault = Fix_Parameters(odd, texts);
    ASSERT_TRUE(fault.has_value());
    EXPECT_EQ(fault->row, 11);
  }
}

TEST(ParameterTrial, GivesBackWhatItTook) {
  Database db = Line_Mine(3);
  db.Para_IntakeTemp = 9.126F;
  const Database before = db;
  {
    Parameter_Trial trial(db);
    EXPECT_EQ(trial.take(2, "9.13"), std::nullopt);  // what the row shows
    EXPECT_EQ(db.Para_IntakeTemp, 9.126F);
    EXPECT_EQ(trial.take(2, "60"), std::nullopt);  // beyond the bounds
    EXPECT_EQ(db.Para_IntakeTemp, 60);
    EXPECT_EQ(trial.take(10, "-300"), std::nullopt);
    EXPECT_EQ(db.Para_DatumElev, -300);
    EXPECT_EQ(trial.take_allowed(3, "51")->row, 3);
    EXPECT_TRUE(trial.take(3, "")->no_number);
    EXPECT_FALSE(trial.take(3, "1e39")->no_number);
    Derive_Intake_WBT(db);
    EXPECT_NE(db, before);
  }
  EXPECT_EQ(db, before);
}

TEST(ParameterTrial, KeepsOnRequest) {
  Database db = Line_Mine(3);
  {
    Parameter_Trial trial(db);
    trial.take(3, "12.5");
    trial.keep();
  }
  EXPECT_EQ(db.Para_TempDiff, 12.5F);
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
