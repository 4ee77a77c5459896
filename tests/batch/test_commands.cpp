// branok-batch as a user meets it: exit codes, what is printed where, what is written.
#include "batch/commands.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "core/database.h"
#include "core/safe_file.h"
#include "core/vocabulary.h"
#include "files/ver6.h"
#include "prep/calculators.h"
#include "run_batch.h"
#include "support/generated_mine.h"
#include "support/temporary_folder.h"

namespace branok {
namespace {

const std::string mine_a = BRANOK_TEST_DATA "/DATA/mine-a.abk";

bool Has(const std::string& text, std::string_view part) {
  return text.find(part) != std::string::npos;
}

class Batch_Program : public testing::Test {
 protected:
  // The mine written to a file of its own.
  std::string file_of(const Database& db, const std::string& name = "mine.abk") {
    const auto path = folder.path() / name;
    Write_Whole(path, Ver6_Text(db, {}));
    return path.string();
  }
  Temporary_Folder folder;
};

TEST_F(Batch_Program, HelpAndVersion) {
  const Outcome help = Batch({"--help"});
  EXPECT_EQ(help.exit, Exit::done);
  EXPECT_TRUE(Has(help.out, "Usage: branok-batch MINE STEP..."));
  EXPECT_EQ(Batch({"--version"}).out, "branok-batch 6.0.0\n");
}

TEST_F(Batch_Program, WithoutStepsTellsWhatTheMineHolds) {
  const Outcome o = Batch({mine_a});
  EXPECT_EQ(o.exit, Exit::done);
  EXPECT_TRUE(Has(o.out, "Mine A"));
  EXPECT_TRUE(Has(o.out, "38, 46"));
  EXPECT_TRUE(Has(o.out, "none"));
}

TEST_F(Batch_Program, WrongUsage) {
  const Outcome o = Batch({mine_a, "--season", "13"});
  EXPECT_EQ(o.exit, Exit::wrong_usage);
  EXPECT_TRUE(Has(o.err, "0 to 12"));
  EXPECT_EQ(o.out, "");
}

TEST_F(Batch_Program, FlowSummary) {
  const Outcome o = Batch({mine_a, "--flow"});
  EXPECT_EQ(o.exit, Exit::done);
  EXPECT_TRUE(Has(o.out, "Flow analysis: converged"));
  EXPECT_TRUE(Has(o.out, "main fan #1"));
  EXPECT_TRUE(Has(o.out, "intake flow in all"));
  EXPECT_TRUE(Has(o.err, "After confirmation, push button !"));
}

TEST_F(Batch_Program, AllRunsInOneCommand) {
  const Outcome o = Batch({mine_a, "--flow", "--annual", "--season", "7"});
  EXPECT_EQ(o.exit, Exit::done);
  EXPECT_TRUE(Has(o.out, "Annual temperature and flow: converged"));
  EXPECT_TRUE(Has(o.out, "Seasonal temperature, mid Summer: complete"));
  EXPECT_TRUE(Has(o.out, "temperature range"));
  EXPECT_TRUE(Has(o.out, "recirculated nodes"));
  EXPECT_TRUE(Has(o.err, "Recommendation: Save Annual calculation results,"));
  EXPECT_TRUE(Has(o.err, "Calculate Press. & Flow for Monthly Temp. ?\n-> Yes"));
}

TEST_F(Batch_Program, SeasonWithoutFlowAnswersNo) {
  const Outcome o = Batch({mine_a, "--flow", "--annual", "--season-temperature", "1"});
  EXPECT_EQ(o.exit, Exit::done);
  EXPECT_TRUE(Has(o.err, "Calculate Press. & Flow for Monthly Temp. ?\n-> No"));
}

TEST_F(Batch_Program, FlowFromResultsAnswersYes) {
  const Outcome o = Batch({mine_a, "--flow", "--flow-from-results"});
  EXPECT_EQ(o.exit, Exit::done);
  EXPECT_TRUE(Has(o.err, "do not analyze pressure.\n-> Yes"));
  EXPECT_TRUE(Has(Batch({mine_a, "--flow", "--flow"}).err, "do not analyze pressure.\n-> No"));
}

TEST_F(Batch_Program, SeasonBeforeAnnualFails) {
  const Outcome o = Batch({mine_a, "--flow", "--season", "7"});
  EXPECT_EQ(o.exit, Exit::run_failed);
  EXPECT_TRUE(Has(o.err, "Seasonal Temp. can be calculated after calculation of Annual Flow"));
}

TEST_F(Batch_Program, AnnualBeforeFlowFails) {
  const Outcome o = Batch({mine_a, "--annual"});
  EXPECT_EQ(o.exit, Exit::run_failed);
  EXPECT_TRUE(Has(o.err, "needs flow results"));
}

TEST_F(Batch_Program, AFailedRunEndsTheSteps) {
  Database db = Make_Mine({.nodes = 20});
  Set_Both(db, db.Root_Resist, 1, 2, 0.0F);
  const auto saved = folder.path() / "saved.abk";
  const Outcome o = Batch({file_of(db), "--flow", "--save", saved.string()});
  EXPECT_EQ(o.exit, Exit::run_failed);
  EXPECT_TRUE(Has(o.err, "Calculation Error about Nodal Pressure occurred, please check data !"));
  EXPECT_TRUE(Has(o.err, "Airway 1-2 has no resistance"));
  EXPECT_TRUE(Has(o.out, "Flow analysis: failed"));
  EXPECT_FALSE(std::filesystem::exists(saved));
}

TEST_F(Batch_Program, AMineWithoutFansOrIntakesSaysSo) {
  Database db = Make_Mine({.nodes = 20});
  db.MFan_Total = 0;
  const Outcome no_fan = Batch({file_of(db), "--flow"});
  EXPECT_EQ(no_fan.exit, Exit::done);  // air at rest is in balance: a result, if a useless one
  EXPECT_TRUE(Has(no_fan.err, "no main fan"));
  db = Make_Mine({.nodes = 20});
  db.Inlet_Total = 0;
  const Outcome no_inlet = Batch({file_of(db), "--flow"});
  EXPECT_EQ(no_inlet.exit, Exit::done);
  EXPECT_TRUE(Has(no_inlet.err, "no intake"));
}

TEST_F(Batch_Program, WhatIsStrangeInTheNetworkIsToldAlsoWhenTheRunEndsWell) {
  const Database sound = Make_Mine({.nodes = 30, .assist_fans = 1, .extra = 1});
  EXPECT_EQ(Batch({file_of(sound), "--flow"}).err, "After confirmation, push button !\n");

  const auto told = [this](const Database& db, std::string_view part) {
    const Outcome o = Batch({file_of(db), "--flow"});
    EXPECT_EQ(o.exit, Exit::done);
    EXPECT_TRUE(Has(o.err, part)) << o.err;
  };
  Database db = sound;
  Add_Airway(db, 40, 41, 1);
  Add_Airway(db, 41, 42, 1);
  told(db, "Node 40 cannot be reached from any intake");
  db = sound;
  db.Node_Total = 33;
  db.Inlet_Node[2] = 33;
  told(db, "Intake 2 stands at node 33, which has no airway");
  db = sound;
  db.AFan_Discharge[1] = 30;
  told(db, "No airway 11-30 for assist fan 1");
  db = sound;
  Add_Airway(db, 3, 31, 1);
  told(db, "Node 31 is a dead end whose airway carries ");
}

TEST_F(Batch_Program, SavedResultsComeBack) {
  const std::string saved = (folder.path() / "saved.abk").string();
  ASSERT_EQ(Batch({mine_a, "--flow", "--annual", "--save", saved}).exit, Exit::done);
  const Outcome o = Batch({saved});
  EXPECT_TRUE(Has(o.out, "annual"));
  // A season starts straight from the saved annual results.
  EXPECT_EQ(Batch({saved, "--season", "7"}).exit, Exit::done);
  // A second save is the same to the byte.
  const std::string again = (folder.path() / "again.abk").string();
  ASSERT_EQ(Batch({saved, "--save", again}).exit, Exit::done);
  EXPECT_EQ(Read_Whole(saved), Read_Whole(again));
}

TEST_F(Batch_Program, CommentsOfTheMineGoBackIntoItsSave) {
  std::string text = Read_Whole(mine_a);
  const std::string mark = "* a remark for the reader\r\n";
  text.insert(text.find("\r\n") + 2, mark);
  const auto file = folder.path() / "remarked.abk";
  Write_Whole(file, text);
  ASSERT_EQ(Batch({file.string(), "--save", file.string()}).exit, Exit::done);
  EXPECT_EQ(Read_Whole(file), text);
}

TEST_F(Batch_Program, NothingIsWrittenUnasked) {
  const std::string file = file_of(Make_Mine({.nodes = 20}));
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  EXPECT_EQ(Batch({file, "--flow", "--annual", "--season", "1"}).exit, Exit::done);
  std::filesystem::current_path(before);
  int files = 0;
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    ++files;
    EXPECT_EQ(entry.path().filename(), "mine.abk");
  }
  EXPECT_EQ(files, 1);
}

TEST_F(Batch_Program, CsvHasTheColumnsOfTheResultGrids) {
  const auto csv = folder.path() / "made" / "here";
  ASSERT_EQ(Batch({mine_a, "--flow", "--csv", csv.string()}).exit, Exit::done);
  const std::string nodes = Read_Whole(csv / "nodes.csv");
  EXPECT_EQ(nodes.substr(0, nodes.find('\n')),
            "Nodal No.,Pressure (mmAq),DBT (deg C),Hum. (%),WBT (deg C),T.Leng. (m),"
            "Elevation (m),E-W (m),S-N (m)");
  EXPECT_EQ(std::count(nodes.begin(), nodes.end(), '\n'), 39);
  const std::string airways = Read_Whole(csv / "airways.csv");
  EXPECT_EQ(airways.substr(0, airways.find('\n')),
            "Airway i -> j,Flow Rate (m3/min),Velo. (m/sec),Temp. (deg C),Hum. (%),"
            "Lev. Diff. (m),NVP (mmAq),Switch Airway,Comm.");
  EXPECT_EQ(std::count(airways.begin(), airways.end(), '\n'), 93);
  EXPECT_TRUE(Has(airways, "\n1 ->   3,"));
  EXPECT_TRUE(Has(airways, "\n3 <-   1,-"));
}

TEST_F(Batch_Program, CsvQuotesComments) {
  Database db = Make_Mine({.nodes = 10});
  Set_Both(db, db.Root_Comm, 1, 2, std::string("a \"b\", c \xe4"));
  ASSERT_EQ(Batch({file_of(db), "--csv", folder.path().string()}).exit, Exit::done);
  EXPECT_TRUE(Has(Read_Whole(folder.path() / "airways.csv"), "\"a \"\"b\"\", c \u00e4\""));
}

TEST_F(Batch_Program, SwitchClosesAndOpens) {
  const Outcome o = Batch({mine_a, "--switch", "4-3", "--switch", "3-4", "--switch", "8-18"});
  EXPECT_EQ(o.exit, Exit::done);
  EXPECT_TRUE(Has(o.out, "Switch 4-3: closed\nSwitch 3-4: open\n"));
  EXPECT_EQ(Batch({mine_a, "--switch", "1-38"}).exit, Exit::run_failed);
}

TEST_F(Batch_Program, ASwitchReducesTheFlow) {
  const auto csv = folder.path().string();
  ASSERT_EQ(Batch({mine_a, "--switch", "4-3", "--flow", "--csv", csv}).exit, Exit::done);
  EXPECT_TRUE(Has(Read_Whole(folder.path() / "airways.csv"), ",Close,"));
}

TEST_F(Batch_Program, SettingsApplyToWhatFollows) {
  const Outcome cold = Batch({mine_a, "--flow", "--set", "Para_IntakeTemp=-10", "--annual"});
  const Outcome warm = Batch({mine_a, "--flow", "--set", "Para_IntakeTemp=30", "--annual"});
  EXPECT_EQ(cold.exit, Exit::done);
  EXPECT_EQ(warm.exit, Exit::done);
  EXPECT_NE(cold.out, warm.out);
  const Outcome area = Batch({mine_a, "--flow", "--wet", "area", "--annual"});
  const Outcome evaporate = Batch({mine_a, "--flow", "--wet", "evaporate", "--annual"});
  EXPECT_NE(area.out, evaporate.out);
}

class Batch_Network : public Batch_Program {
 protected:
  // What a saved mine holds.
  static Database Read(const std::filesystem::path& file) {
    Database db;
    Reset_Database(db);
    Comment_Template comments;
    const Read_Result read = Read_Ver6(db, file, comments);
    EXPECT_TRUE(read.ok) << read.fault;
    return db;
  }
  std::filesystem::path saved = folder.path() / "saved.abk";
};

TEST_F(Batch_Network, TheDemoMinesPassTheCheck) {
  for (const char* const name : {"mine-a", "mine-c"}) {
    const std::string mine = BRANOK_TEST_DATA "/DATA/" + std::string(name) + ".abk";
    const Outcome o = Batch({mine, "--check", "--flow"});
    EXPECT_EQ(o.exit, Exit::done) << name;
    EXPECT_TRUE(o.out.starts_with("Check of the data: passed\nFlow analysis: converged\n"));
    EXPECT_TRUE(o.err.starts_with("The data are all right !\n")) << o.err;
    EXPECT_FALSE(Has(o.err, "Deleted airway"));
    EXPECT_FALSE(Has(o.err, "Add airway"));
  }
}

TEST_F(Batch_Network, ACheckedMineIsTheSameMine) {
  const Outcome o = Batch({mine_a, "--flow", "--check", "--save", saved.string()});
  ASSERT_EQ(o.exit, Exit::done);
  const Database before = Read(mine_a);
  const Database after = Read(saved);
  EXPECT_EQ(after.Flag_Results, flag_true);  // a check is no edit
  ASSERT_EQ(after.Node_Total, before.Node_Total);
  EXPECT_EQ(after.Node_JuncCount, before.Node_JuncCount);
  EXPECT_EQ(after.Node_Elev, before.Node_Elev);
  EXPECT_EQ(after.Inlet_Node, before.Inlet_Node);
  EXPECT_EQ(after.MFan_Suction, before.MFan_Suction);
  for (int i = 1; i <= before.Node_Total; ++i) {
    for (int j = 1; j <= before.Node_JuncCount[i]; ++j) {
      const int slot = Find_Slot(after, i, before.Node_Junc(j, i));
      ASSERT_GT(slot, 0);
      const float resist = before.Root_Resist(j, i);
      EXPECT_NEAR(after.Root_Resist(slot, i), resist, 0.0051 * resist);
      EXPECT_NEAR(after.Root_Area(slot, i), before.Root_Area(j, i), 0.051);
    }
  }
}

TEST_F(Batch_Network, AFaultInTheMineFailsItsCheck) {
  struct Case {
    void (*spoil)(Database&);
    const char* message;
    const char* where;
  };
  const std::vector<Case> cases = {
      {[](Database& db) { Set_Both(db, db.Root_Area, 1, 2, 1000.5F); },
       "'Area' Column in Airway Folder The value should be from 0.001  to  1000 .\nChange value !\n"
       "Please input airway  data on row No.1\n",
       "Airway Folder, row 1"},
      {[](Database& db) { db.Node_Elev[3] = 2001; },
       "'Elevation' Column in Node Folder The value should be from -2000  to  2000 .", "row 3"},
      {[](Database& db) { db.Inlet_Total = 0; }, "The number of connected airways at Node No.1 is",
       ""}};
  for (const Case& c : cases) {
    Database db;
    New_Database(db, "2024/05/06");
    c.spoil(db);
    const Outcome o = Batch({file_of(db), "--check", "--save", saved.string()});
    EXPECT_EQ(o.exit, Exit::run_failed);
    EXPECT_EQ(o.out, "Check of the data: failed\n");
    EXPECT_TRUE(Has(o.err, c.message)) << o.err;
    EXPECT_TRUE(Has(o.err, c.where)) << o.err;
    EXPECT_FALSE(std::filesystem::exists(saved));  // the steps after it were not taken
  }
}

TEST_F(Batch_Network, ACellSpoiltInTheFileFailsItsCheck) {
  Database db;
  New_Database(db, "2024/05/06");
  Set_Both(db, db.Root_Wet, 2, 3, 98.7F);
  std::string text = Ver6_Text(db, {});
  int spoilt = 0;
  for (std::size_t at = text.find("98.7"); at != std::string::npos; at = text.find("98.7", at)) {
    text.replace(at, 4, "998.");
    ++spoilt;
  }
  ASSERT_GT(spoilt, 0);
  const auto file = folder.path() / "spoilt.abk";
  Write_Whole(file, text);
  const Outcome o = Batch({file.string(), "--check"});
  EXPECT_EQ(o.exit, Exit::run_failed);
  EXPECT_TRUE(
      Has(o.err, "'Wet Area' Column in Airway Folder The value should be from 0  to  100 ."))
      << o.err;
  EXPECT_TRUE(Has(o.err, "Please input airway  data on row No.2")) << o.err;
}

TEST_F(Batch_Network, CalculatedValuesAreInTheSavedMine) {
  const Outcome o = Batch({mine_a, "--flow", "--calculate", "standard", "--calculate", "height",
                           "--calculate", "length", "--save", saved.string()});
  ASSERT_EQ(o.exit, Exit::done);
  EXPECT_TRUE(Has(o.out,
                  "Calculate standard: done for all airways\n"
                  "Calculate height: done for all airways\n"
                  "Calculate length: done for all airways\n"));
  const Database db = Read(saved);
  EXPECT_EQ(db.Flag_Results, 0);  // of the mine before
  int airways = 0;
  for (int i = 1; i <= db.Node_Total; ++i) {
    for (int j = 1; j <= db.Node_JuncCount[i]; ++j, ++airways) {
      const auto kind = static_cast<std::size_t>(db.Root_Kind(j, i));
      const auto wind = static_cast<std::size_t>(db.Root_Wind(j, i));
      EXPECT_FLOAT_EQ(db.Root_Fric(j, i), Root_FricTable.at(kind).at(wind));
      const float high = Height_Of_Shape(db.Root_Area(j, i), db.Root_Shape(j, i));
      EXPECT_NEAR(db.Root_Height(j, i), high, 0.051);
      const double distance = Node_Distance(db, i, db.Node_Junc(j, i));
      EXPECT_NEAR(db.Root_Length(j, i), distance + 1, 0.501);
    }
  }
  EXPECT_EQ(airways, 2 * 46);
}

TEST_F(Batch_Network, LaterStepsWorkOnWhatWasCalculated) {
  Database db;
  New_Database(db, "2024/05/06");
  const std::string mine = file_of(db);
  const Outcome before = Batch({mine, "--flow"});
  const Outcome after =
      Batch({mine, "--calculate", "standard", "--calculate", "resistance", "--flow"});
  ASSERT_EQ(after.exit, Exit::done);
  const std::size_t at = after.out.find("Flow analysis");
  ASSERT_NE(at, std::string::npos);
  EXPECT_NE(after.out.substr(at), before.out);
}

TEST_F(Batch_Network, ACalculationThatFailsEndsTheSteps) {
  Database db;
  New_Database(db, "2024/05/06");
  Set_Both(db, db.Root_Area, 2, 3, 0.0F);
  const Outcome o = Batch({file_of(db), "--calculate", "perimeter", "--save", saved.string()});
  EXPECT_EQ(o.exit, Exit::run_failed);
  EXPECT_EQ(o.out, "Calculate perimeter: failed\n");
  EXPECT_EQ(o.err,
            "  (Airway Folder, row 2)\n"
            "Please input Area(>0)  in Airway Folder has not inputed.\n");
  EXPECT_FALSE(std::filesystem::exists(saved));
}

TEST_F(Batch_Network, WhatIsCalculatedIsCheckedToo) {
  Database db;
  New_Database(db, "2024/05/06");
  Set_Both(db, db.Root_Length, 1, 2, 1.0F);  // 0.01 murgue is shown as none
  const Outcome o = Batch({file_of(db), "--calculate", "resistance"});
  EXPECT_EQ(o.exit, Exit::run_failed);
  EXPECT_EQ(o.out, "Calculate resistance: failed\n");
  EXPECT_TRUE(Has(o.err, "'Resistance' Column in Airway Folder\nPlease Input Positive Value."));
}

TEST_F(Batch_Network, WrongWords) {
  for (const auto& words : {std::vector<std::string>{mine_a, "--calculate"},
                            std::vector<std::string>{mine_a, "--calculate", "fric"},
                            std::vector<std::string>{mine_a, "--checks"}}) {
    const Outcome o = Batch(words);
    EXPECT_EQ(o.exit, Exit::wrong_usage);
    EXPECT_EQ(o.out, "");
    EXPECT_TRUE(Has(o.err, "Try 'branok-batch --help'."));
  }
  EXPECT_TRUE(Has(Batch({mine_a, "--calculate", "fric"}).err, "not 'fric'"));
}

TEST_F(Batch_Program, TraceHasALineForEachPassAndSweep) {
  const Outcome o = Batch({mine_a, "--trace", "--flow", "--annual"});
  EXPECT_TRUE(Has(o.err, "pass 1  largest imbalance "));
  EXPECT_TRUE(Has(o.err, "sweep 1  passes "));
  const Outcome quiet = Batch({mine_a, "--quiet", "--flow"});
  EXPECT_FALSE(Has(quiet.err, "pass 1"));
  EXPECT_TRUE(Has(quiet.err, "After confirmation"));
}

TEST_F(Batch_Program, TablesArePrinted) {
  const Outcome o = Batch({mine_a, "--flow", "--table"});
  EXPECT_TRUE(Has(o.out, "Pressure"));
  EXPECT_TRUE(Has(o.out, "  1 ->   3"));
}

class Bad_File : public Batch_Program {};

TEST_F(Bad_File, EachGivesExitThreeAndIsLeftAlone) {
  const auto path = [this](const char* name) { return (folder.path() / name).string(); };
  const std::string good = Read_Whole(mine_a);
  std::string month = good;
  month.replace(month.find("        10\r\n"), 10, "        13");
  std::string nan = good;
  nan.replace(nan.find("       0.979"), 12, "         nan");
  std::string huge = good;
  huge.replace(huge.find("       0.979"), 12, "        1e39");
  std::string number = good;
  number.replace(number.find("     1    1466"), 6, "   999");
  const std::vector<std::pair<std::string, std::string>> files = {
      {path("empty.abk"), ""},
      {path("wrong.abk"),
       "\x7f"
       "ELF\x01\x02\n\0x"},
      {path("old.abk"), "BRANOK Data File Version 5\r\n"},
      {path("nan.abk"), nan},
      {path("huge.abk"), huge},
      {path("number.abk"), number},
      {path("month.abk"), month},
  };
  for (const auto& [name, bytes] : files) {
    Write_Whole(name, bytes);
    const Outcome o = Batch({name, "--flow", "--save", name});
    EXPECT_EQ(o.exit, Exit::file_failed) << name;
    EXPECT_TRUE(Has(o.err, name)) << o.err;
    EXPECT_EQ(Read_Whole(name), bytes);
  }
  EXPECT_TRUE(Has(Batch({path("nan.abk")}).err, "Sorry, failed Read Ver.6 Data File command."));
  EXPECT_TRUE(Has(Batch({path("nan.abk")}).err, "line 49")) << Batch({path("nan.abk")}).err;
  EXPECT_FALSE(Has(Batch({path("old.abk")}).err, "Sorry"));
}

TEST_F(Bad_File, APipeIsRefused) {
  const std::string pipe = (folder.path() / "pipe").string();
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const Outcome o = Batch({pipe, "--flow"});
  EXPECT_EQ(o.exit, Exit::file_failed);
  EXPECT_TRUE(Has(o.err, "not a regular file"));
}

TEST_F(Bad_File, MissingFilesAndFolders) {
  EXPECT_EQ(Batch({(folder.path() / "none.abk").string()}).exit, Exit::file_failed);
  EXPECT_EQ(Batch({folder.path().string()}).exit, Exit::file_failed);
}

// The program in a process of its own, where no administrator may read everything.
[[noreturn]] void Batch_As_Nobody(const std::vector<std::string>& words) {
  constexpr uid_t nobody = 65534;
  if (::geteuid() == 0 && (::setgid(nobody) != 0 || ::setuid(nobody) != 0)) ::_exit(99);
  ::_exit(static_cast<int>(Run_Batch(words)));
}

TEST_F(Bad_File, Unreadable) {
  namespace fs = std::filesystem;
  const std::string file = file_of(Make_Mine({.nodes = 20}));
  fs::permissions(folder.path(), fs::perms::all);
  EXPECT_EXIT(Batch_As_Nobody({file}), testing::ExitedWithCode(0), "");
  fs::permissions(file, fs::perms::none);
  EXPECT_EXIT(Batch_As_Nobody({file}), testing::ExitedWithCode(3), "mine.abk.*Permission denied");
}

TEST_F(Bad_File, OutputThatCannotBeWritten) {
  const auto file = folder.path() / "file";
  Write_Whole(file, "x");
  EXPECT_EQ(Batch({mine_a, "--csv", (file / "below").string()}).exit, Exit::file_failed);
  const Outcome o = Batch({mine_a, "--save", (folder.path() / "no" / "mine.abk").string()});
  EXPECT_EQ(o.exit, Exit::file_failed);
  EXPECT_TRUE(Has(o.err, "Sorry, failed Save Ver.6 Data File command."));
}

}  // namespace
}  // namespace branok
