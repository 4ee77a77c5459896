// What branok-batch is told on its command line.
#pragma once

#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

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
};

struct Step {
  Step_Kind kind;
  /// The wet-wall method, the calculator, the file, the folder, or a parameter's value.
  std::string text;
  std::string name;  ///< a parameter's name
  int month = 0;
  int node1 = 0, node2 = 0;
  Calculator calculator = Calculator::resistance;
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
