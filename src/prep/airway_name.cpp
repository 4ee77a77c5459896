#include "prep/airway_name.h"

#include <algorithm>
#include <cstdint>
#include <limits>

namespace branok {

namespace {

constexpr std::string_view digits = "0123456789";
constexpr int largest = std::numeric_limits<std::int16_t>::max();

int Number_Of(std::string_view run) {
  int number = 0;
  for (const char digit : run) number = std::min(number * 10 + (digit - '0'), largest);
  return number;
}

// Takes the next run of digits off the text; empty when there is none.
std::string_view Next_Run(std::string_view& text) {
  text.remove_prefix(std::min(text.find_first_of(digits), text.size()));
  const std::string_view run = text.substr(0, text.find_first_not_of(digits));
  text.remove_prefix(run.size());
  return run;
}

}  // namespace

std::optional<Airway_Nodes> Get_Row_Nodes(std::string_view name) {
  constexpr std::size_t longest = 100;
  if (name.size() > longest) return std::nullopt;
  Airway_Nodes nodes;
  nodes.left = Number_Of(Next_Run(name));
  nodes.right = Number_Of(Next_Run(name));
  if (!Next_Run(name).empty()) return std::nullopt;
  return nodes;
}

bool Is_Airway_Name(std::string_view name) {
  return name.find_first_of(digits) != std::string_view::npos;
}

}  // namespace branok
