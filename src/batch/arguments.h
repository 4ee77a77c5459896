// What branok-batch is told on its command line.
#pragma once

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "drawing/cad.h"
#include "drawing/graphic.h"
#include "prep/calculators.h"

namespace branok {

enum class Step_Kind {
  flow,
  flow_from_results,
  annual,
  season,
  season_temperature,
  wet,
  set,
  constant_temperature,
  switch_airway,
  check,
  calculate,
  save,
  csv,
  table,
  info,
  marks,
  picture,
};

struct Step {
  Step_Kind kind;
  /// The wet-wall method, the calculator, the file, the folder, a parameter's value, or a word.
  std::string text;
  std::string name;  ///< a parameter's name, a picture's view
  int month = 0;
  int node1 = 0, node2 = 0;
  Calculator calculator = Calculator::resistance;
  std::optional<Node_Info> node_info{};  ///< what the word says for pictures with nodal information
  std::optional<Airway_Info> airway_info{};  ///< and for those with airway information
};

enum class Progress { normal, quiet, trace };

struct Arguments {
  std::filesystem::path mine;
  std::vector<Step> steps;
  Progress progress = Progress::normal;
  bool help = false;
  bool version = false;
};

/// A command line that says nothing sensible; what() tells why.
struct Wrong_Usage : std::runtime_error {
  using std::runtime_error::runtime_error;
};

/// The command line without the program's name. Raises Wrong_Usage.
Arguments Parse_Arguments(const std::vector<std::string>& words);

/// What --help prints.
std::string_view Usage();

}  // namespace branok
