// The name of an airway as it is typed: two node numbers with anything between them.
#pragma once

#include <optional>
#include <string_view>

namespace branok {

/// The two numbers of a name. One that is not there is 0, one that no table could hold 32767.
struct Airway_Nodes {
  int left = 0, right = 0;
  bool operator==(const Airway_Nodes&) const = default;
};

/// The first and the next run of digits of an airway's name: "7 - 3" is 7 and 3. Nothing when there
/// is a third run: which two are meant cannot be told; nor for more than 100 characters.
std::optional<Airway_Nodes> Get_Row_Nodes(std::string_view name);

/// True when a name cell holds a digit: its row is an airway.
bool Is_Airway_Name(std::string_view name);

}  // namespace branok
