#include "batch/arguments.h"

#include <gtest/gtest.h>

namespace branok {
namespace {

TEST(Arguments, StepsAreKeptInTheirOrder) {
  const Arguments a = Parse_Arguments({"--quiet", "mine.abk", "--flow", "--set", "Para_Month=7",
                                       "--season", "12", "--switch", "3-14", "--save", "x.abk"});
  EXPECT_EQ(a.mine, "mine.abk");
  EXPECT_EQ(a.progress, Progress::quiet);
  ASSERT_EQ(a.steps.size(), 5U);
  EXPECT_EQ(a.steps[0].kind, Step_Kind::flow);
  EXPECT_EQ(a.steps[1].kind, Step_Kind::set);
  EXPECT_EQ(a.steps[1].name, "Para_Month");
  EXPECT_EQ(a.steps[1].text, "7");
  EXPECT_EQ(a.steps[2].month, 12);
  EXPECT_EQ(a.steps[3].node1, 3);
  EXPECT_EQ(a.steps[3].node2, 14);
  EXPECT_EQ(a.steps[4].text, "x.abk");
}

TEST(Arguments, CheckAndCalculators) {
  const std::vector<std::pair<const char*, Calculator>> words = {
      {"resistance", Calculator::resistance}, {"length", Calculator::length},
      {"perimeter", Calculator::perimeter},   {"friction", Calculator::friction},
      {"standard", Calculator::standard},     {"height", Calculator::height}};
  for (const auto& [word, calculator] : words) {
    const Arguments a = Parse_Arguments({"mine.abk", "--check", "--calculate", word});
    ASSERT_EQ(a.steps.size(), 2U);
    EXPECT_EQ(a.steps[0].kind, Step_Kind::check);
    EXPECT_EQ(a.steps[1].kind, Step_Kind::calculate);
    EXPECT_EQ(a.steps[1].calculator, calculator);
    EXPECT_EQ(a.steps[1].text, word);
  }
}

TEST(Arguments, APictureHasAViewAndAFile) {
  const Arguments a =
      Parse_Arguments({"--picture", "2dew", "a b.PDF", "mine.abk", "--marks", "off"});
  EXPECT_EQ(a.mine, "mine.abk");
  ASSERT_EQ(a.steps.size(), 2U);
  EXPECT_EQ(a.steps[0].kind, Step_Kind::picture);
  EXPECT_EQ(a.steps[0].name, "2dew");
  EXPECT_EQ(a.steps[0].text, "a b.PDF");
  EXPECT_EQ(a.steps[1].kind, Step_Kind::marks);
  EXPECT_EQ(a.steps[1].text, "off");
}

TEST(Arguments, EachWordOfInformationSetsItsOwnList) {
  const auto info = [](const char* word) {
    return Parse_Arguments({"mine.abk", "--info", word}).steps.at(0);
  };
  const std::vector<std::pair<const char*, Airway_Info>> airway = {
      {"resistance", Airway_Info::resistance},
      {"flow", Airway_Info::flow},
      {"temperature", Airway_Info::temperature},
      {"friction", Airway_Info::friction},
      {"note", Airway_Info::note}};
  for (const auto& [word, what] : airway) {
    EXPECT_EQ(info(word).airway_info, what) << word;
    EXPECT_EQ(info(word).node_info, std::nullopt);
  }
  const std::vector<std::pair<const char*, Node_Info>> node = {
      {"level", Node_Info::level}, {"sn", Node_Info::sn}, {"ew", Node_Info::ew}};
  for (const auto& [word, what] : node) {
    EXPECT_EQ(info(word).node_info, what) << word;
    EXPECT_EQ(info(word).airway_info, std::nullopt);
  }
  EXPECT_EQ(info("none").airway_info, Airway_Info::none);
  EXPECT_EQ(info("none").node_info, Node_Info::none);
}

TEST(Arguments, HelpAndVersionNeedNoMine) {
  EXPECT_TRUE(Parse_Arguments({"--help"}).help);
  EXPECT_TRUE(Parse_Arguments({"--version"}).version);
}

TEST(Arguments, HelpNamesEveryOption) {
  for (const char* option : {"--flow ",
                             "--flow-from-results",
                             "--annual",
                             "--season MONTH",
                             "--season-temperature MONTH",
                             "--wet area|evaporate",
                             "--set NAME=VALUE",
                             "--constant-temperature",
                             "--switch I-J",
                             "--check ",
                             "--calculate WHAT",
                             "--save FILE.abk",
                             "--csv FOLDER",
                             "--table",
                             "--info WHAT",
                             "--marks on|off",
                             "--picture VIEW FILE",
                             "--quiet",
                             "--trace",
                             "--version"}) {
    EXPECT_NE(Usage().find(option), std::string_view::npos) << option;
  }
}

TEST(Arguments, WrongUsageIsTold) {
  const std::vector<std::vector<std::string>> wrong = {
      {},
      {"--flow"},
      {"a.abk", "b.abk"},
      {"a.abk", "--unknown"},
      {"a.abk", "--season"},
      {"a.abk", "--season", "13"},
      {"a.abk", "--season", "-1"},
      {"a.abk", "--season", "7x"},
      {"a.abk", "--season", ""},
      {"a.abk", "--wet", "dry"},
      {"a.abk", "--set", "Para_Month"},
      {"a.abk", "--set", "Para_Unknown=1"},
      {"a.abk", "--set", "Para_IntakeTemp=46"},
      {"a.abk", "--set", "Para_IntakeTemp=warm"},
      {"a.abk", "--switch", "12"},
      {"a.abk", "--switch", "0-5"},
      {"a.abk", "--switch", "1-551"},
      {"a.abk", "--calculate"},
      {"a.abk", "--calculate", ""},
      {"a.abk", "--calculate", "Resistance"},
      {"a.abk", "--calculate", "all"},
      {"a.abk", "--save", ""},
      {"a.abk", "--picture", "2dh"},
      {"a.abk", "--picture", "2d", "x.png"},
      {"a.abk", "--picture", "2dh", "x.jpg"},
      {"a.abk", "--info", "all"},
      {"a.abk", "--marks", "1"},
  };
  for (const auto& words : wrong) {
    EXPECT_THROW(Parse_Arguments(words), Wrong_Usage) << (words.empty() ? "" : words.back());
  }
}

}  // namespace
}  // namespace branok
