#include "batch/arguments.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <optional>
#include <stdexcept>

#include "core/database.h"
#include "paint/picture_file.h"
#include "thermal/parameters.h"

namespace branok {

namespace {

struct Option {
  std::string_view word;
  Step_Kind kind;
  std::string_view value = {};   // what follows the word, empty when nothing does
  std::string_view value2 = {};  // what follows that
};

constexpr std::array options = {
    Option{"--flow", Step_Kind::flow},
    Option{"--flow-from-results", Step_Kind::flow_from_results},
    Option{"--annual", Step_Kind::annual},
    Option{"--season", Step_Kind::season, "MONTH"},
    Option{"--season-temperature", Step_Kind::season_temperature, "MONTH"},
    Option{"--wet", Step_Kind::wet, "area|evaporate"},
    Option{"--set", Step_Kind::set, "NAME=VALUE"},
    Option{"--constant-temperature", Step_Kind::constant_temperature},
    Option{"--switch", Step_Kind::switch_airway, "I-J"},
    Option{"--check", Step_Kind::check},
    Option{"--calculate", Step_Kind::calculate,
           "resistance|length|perimeter|friction|standard|height"},
    Option{"--save", Step_Kind::save, "FILE.abk"},
    Option{"--csv", Step_Kind::csv, "FOLDER"},
    Option{"--table", Step_Kind::table},
    Option{"--info", Step_Kind::info, "none|resistance|flow|temperature|friction|note|level|sn|ew"},
    Option{"--marks", Step_Kind::marks, "on|off"},
    Option{"--picture", Step_Kind::picture, "2dh|2dew|2dns|cad", "FILE.(png|svg|pdf|bmp)"},
};

std::optional<int> Whole_Number(std::string_view text) {
  int number = 0;
  const auto [end, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (fault != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

void Read_Month(Step& step) {
  const std::optional<int> month = Whole_Number(step.text);
  if (!month || *month < 0 || *month > 12) {
    throw Wrong_Usage("the month is a number from 0 to 12, not '" + step.text + "'");
  }
  step.month = *month;
}

void Read_Wet(const Step& step) {
  if (step.text != "area" && step.text != "evaporate") {
    throw Wrong_Usage("--wet takes 'area' or 'evaporate', not '" + step.text + "'");
  }
}

// A parameter that does not exist, or a value out of its range, is seen before anything runs.
void Read_Setting(Step& step) {
  const std::size_t equals = step.text.find('=');
  if (equals == std::string::npos) {
    throw Wrong_Usage("--set takes NAME=VALUE, not '" + step.text + "'");
  }
  step.name = step.text.substr(0, equals);
  if (step.name.empty()) throw Wrong_Usage("--set takes NAME=VALUE, not '" + step.text + "'");
  step.text = step.text.substr(equals + 1);
  Database trial;
  Reset_Database(trial);
  try {
    Set_Parameter(trial, step.name, step.text);
  } catch (const Run_Time_Error& error) {
    throw Wrong_Usage(std::string("--set: ") + error.what());
  }
}

void Read_Airway(Step& step) {
  const std::size_t dash = step.text.find('-');
  const auto text = std::string_view(step.text);
  const std::optional<int> i = Whole_Number(text.substr(0, dash));
  const std::optional<int> j =
      dash == std::string::npos ? std::nullopt : Whole_Number(text.substr(dash + 1));
  if (!i || !j || *i < 1 || *j < 1 || *i > max_nodes || *j > max_nodes) {
    throw Wrong_Usage("--switch takes the two node numbers of an airway as I-J, not '" + step.text +
                      "'");
  }
  step.node1 = *i;
  step.node2 = *j;
}

void Read_Calculator(Step& step) {
  // In the order of Calculator.
  constexpr std::array<std::string_view, 6> words = {"resistance", "length",   "perimeter",
                                                     "friction",   "standard", "height"};
  const auto* const word = std::find(words.begin(), words.end(), step.text);
  if (word == words.end()) {
    throw Wrong_Usage(
        "--calculate takes resistance, length, perimeter, friction, standard or "
        "height, not '" +
        step.text + "'");
  }
  step.calculator = static_cast<Calculator>(word - words.begin());
}

void Read_Info(Step& step) {
  if (step.text == "none") {
    step.node_info = Node_Info::none;
    step.airway_info = Airway_Info::none;
    return;
  }
  // In the order of Airway_Info and Node_Info, without "none".
  constexpr std::array<std::string_view, 5> airway = {"resistance", "flow", "temperature",
                                                      "friction", "note"};
  constexpr std::array<std::string_view, 3> node = {"level", "sn", "ew"};
  const auto* const a = std::find(airway.begin(), airway.end(), step.text);
  const auto* const n = std::find(node.begin(), node.end(), step.text);
  if (a != airway.end()) {
    step.airway_info = static_cast<Airway_Info>(a - airway.begin() + 1);
  } else if (n != node.end()) {
    step.node_info = static_cast<Node_Info>(n - node.begin() + 1);
  } else {
    throw Wrong_Usage(
        "--info takes none, resistance, flow, temperature, friction, note, level, sn or ew, not '" +
        step.text + "'");
  }
}

void Read_Marks(const Step& step) {
  if (step.text != "on" && step.text != "off") {
    throw Wrong_Usage("--marks takes 'on' or 'off', not '" + step.text + "'");
  }
}

void Read_Picture(const Step& step) {
  constexpr std::array<std::string_view, 4> views = {"2dh", "2dew", "2dns", "cad"};
  if (std::find(views.begin(), views.end(), step.name) == views.end()) {
    throw Wrong_Usage("--picture takes 2dh, 2dew, 2dns or cad, not '" + step.name + "'");
  }
  try {
    Picture_Kind_Of(step.text);
  } catch (const Run_Time_Error& error) {
    throw Wrong_Usage(std::string("--picture: ") + error.what());
  }
}

void Read_Value(Step& step) {
  switch (step.kind) {
    case Step_Kind::season:
    case Step_Kind::season_temperature:
      return Read_Month(step);
    case Step_Kind::wet:
      return Read_Wet(step);
    case Step_Kind::set:
      return Read_Setting(step);
    case Step_Kind::switch_airway:
      return Read_Airway(step);
    case Step_Kind::calculate:
      return Read_Calculator(step);
    case Step_Kind::info:
      return Read_Info(step);
    case Step_Kind::marks:
      return Read_Marks(step);
    case Step_Kind::picture:
      return Read_Picture(step);
    default:
      break;
  }
  if (step.text.empty()) throw Wrong_Usage("a file or folder has no name");
}

// The option's step with the values that follow its word; `w` goes to the last of them.
Step Read_Step(const Option& option, const std::vector<std::string>& words, std::size_t& w) {
  Step step{.kind = option.kind, .text = {}, .name = {}};
  if (option.value.empty()) return step;
  const std::size_t wanted = option.value2.empty() ? 1 : 2;
  if (words.size() - w <= wanted) {
    throw Wrong_Usage(words[w] + (wanted == 1 ? " needs a value: " : " needs two values: ") +
                      std::string(option.value) + (wanted == 1 ? "" : " ") +
                      std::string(option.value2));
  }
  if (wanted == 2) step.name = words[++w];
  step.text = words[++w];
  Read_Value(step);
  return step;
}

}  // namespace

Arguments Parse_Arguments(const std::vector<std::string>& words) {
  Arguments arguments;
  bool has_mine = false;
  for (std::size_t w = 0; w < words.size(); ++w) {
    const std::string& word = words[w];
    const auto* const option = std::find_if(options.begin(), options.end(),
                                            [&](const Option& o) { return o.word == word; });
    if (option != options.end()) {
      arguments.steps.push_back(Read_Step(*option, words, w));
    } else if (word == "--quiet") {
      arguments.progress = Progress::quiet;
    } else if (word == "--trace") {
      arguments.progress = Progress::trace;
    } else if (word == "--help" || word == "-h") {
      arguments.help = true;
    } else if (word == "--version") {
      arguments.version = true;
    } else if (word.size() > 1 && word[0] == '-') {
      throw Wrong_Usage("unknown option '" + word + "'");
    } else if (has_mine) {
      throw Wrong_Usage("one mine at a time: what is '" + word + "'?");
    } else {
      arguments.mine = word;
      has_mine = true;
    }
  }
  if (!has_mine && !arguments.help && !arguments.version) throw Wrong_Usage("which mine?");
  return arguments;
}

std::string_view Usage() {
  return R"(Usage: branok-batch MINE STEP...

Loads the mine, takes the steps in the order given, any number of them, and
prints a short summary of each. Without a step it tells what the mine holds.

  MINE                        an .abk file

Runs
  --flow                      flow run from fresh start values
  --flow-from-results         flow run that starts from the present results
  --annual                    annual temperature and flow (needs flow results)
  --season MONTH              temperatures of a season 0..12 and the flow for
                              them (needs annual results): 0 and 12 early Winter,
                              1 mid Winter, ... 7 mid Summer, ... 11 late Autumn
  --season-temperature MONTH  the same without the flow

Settings, for the steps that follow
  --wet area|evaporate        wet-wall method
  --set NAME=VALUE            a calculation parameter, e.g. Para_IntakeTemp=12;
                              Para_FlowTol, Para_Accel, Para_IntakeTemp,
                              Para_TempDiff, Para_IntakeHum, Para_RockTemp,
                              Para_RockGrad, Para_RockCond, Para_RockDiff,
                              Para_DatumElev, Para_Month, Para_InitPress
  --constant-temperature      all air takes the intake's annual average
  --switch I-J                closes the airway between nodes I and J, or opens
                              it again; one above 10000 murgue stays as it is
  --info WHAT                 what pictures tell beside the airways: resistance
                              (murgue), flow (m3/min), temperature (deg C),
                              friction (factor x 1000) or note in a CAD picture;
                              level, sn or ew (of the nodes, m) in the others;
                              none takes away both
  --marks on|off              pictures with numbers, doors, fans and arrows, or
                              with airways only

The network
  --check                     checks the whole mine as its grids show it, and
                              takes it over from there: with the digits shown
  --calculate WHAT            computes a value of every airway, then checks:
                              resistance (from the friction factor), length
                              (between the two nodes), perimeter (from the area),
                              friction (from the resistance), standard (friction
                              factors of the table), height (from area and shape)

Output
  --save FILE.abk             writes the mine with its results
  --csv FOLDER                writes nodes.csv and airways.csv, full precision
  --table                     prints the result tables
  --picture VIEW FILE         draws the mine as a .png, .svg, .pdf or .bmp file:
                              2dh (plan), 2dew (E-W section), 2dns (N-S section)
                              or cad (the arranged drawing; from the survey
                              coordinates when the mine has none)

Anywhere
  --quiet                     no progress on standard error
  --trace                     a line for each solver pass and temperature sweep
  --help (-h), --version

Questions that a step asks are answered Yes or OK, unless the step says otherwise;
every message is printed to standard error. Nothing else is written anywhere.

Exit code: 0 all steps done; 1 a run, a check or a picture failed, its message
printed, and the steps after it were not taken; 2 wrong usage; 3 a file could not be read or written.
)";
}

}  // namespace branok
