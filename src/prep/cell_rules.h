// What each column of the grids takes: the one table behind the check of the data, the blank cells
// that it fills, and the tint of a doubtful cell while the engineer types.
#pragma once

#include <optional>
#include <string_view>

#include "core/dialogue.h"
#include "prep/edit_copy.h"

namespace branok {

/// A number's bounds. Texts as messages show them; empty where there is no bound.
struct Number_Rule {
  enum class Bound {
    from_to,   ///< low..high, both included
    above,     ///< above low
    at_least,  ///< low or more
    or_zero,   ///< low..high, or 0, which stands for a default value
  };
  std::string_view item;  ///< how messages name the column: "'Area' Column"
  std::string_view folder;
  std::string_view low, high;
  Bound bound = Bound::from_to;
};

/// What is wrong with a text as a number under a rule: that it is none, that it is out of range,
/// that it is not positive. Nothing when it is right.
std::optional<Message> Number_Fault(const Number_Rule& rule, std::string_view text);

// The rules of the fields that have their own words.
extern const Number_Rule limit_flow_rule;  ///< of a main fan, m3/min
extern const Number_Rule fan_flow_rule;    ///< of a point of a main fan's table, m3/min
extern const Number_Rule fan_head_rule;    ///< mmH2O

/// The rule of a column that takes a number within bounds; null for any other column. Node numbers
/// have none: whether they are right depends on the network.
const Number_Rule* Rule_Of(Folder folder, int col);

/// The text that a blank cell of the airway grid takes, columns 1 to 12.
std::string_view Blank_Takes(int col);

/// What is wrong with a cell for itself, whatever stands in others; nothing when it is right or
/// blank.
std::optional<Message> Cell_Fault(Folder folder, int col, std::string_view text);

/// The same for a field 1..6 of a main fan's page.
std::optional<Message> Fan_Field_Fault(int field, std::string_view text);

}  // namespace branok
