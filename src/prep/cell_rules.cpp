#include "prep/cell_rules.h"

#include <algorithm>

#include "core/messages.h"
#include "prep/airway_name.h"

namespace branok {

namespace {

using Bound = Number_Rule::Bound;

constexpr std::string_view airway = "Airway Folder";
constexpr std::string_view node = "Node Folder";
constexpr std::string_view assist = "Assist Fan Folder";
constexpr std::string_view thermal = "Thermal Folder";

constexpr Number_Rule root_rules[] = {
    {},  // the name
    {"'Resistance' Column", airway, "1E-7", "", Bound::above},
    {"'Area' Column", airway, "0.001", "1000"},
    {"'Perimeter' Column", airway, "0", "", Bound::above},
    {"'Length' Column", airway, "1", "9999"},
    {"'Time' Column", airway, "0", "100"},
    {"'Heat' Column", airway, "0", "", Bound::at_least},
    {"'Wet Area' Column", airway, "0", "100"},
    {},
    {},
    {"'Friction Factor' Column", airway, "0", "", Bound::at_least},
    {},
    {"'Airway Hight' Column", airway, "0", "", Bound::at_least},
};
constexpr Number_Rule node_rules[] = {
    {},  // the number
    {"'Elevation' Column", node, "-2000", "2000"},
    {"'E-W' Column", node, "-100000", "100000"},
    {"'S-N' Column", node, "-100000", "100000"},
};
constexpr Number_Rule assist_head{"'Head' Column", assist, "0", "700"};
constexpr Number_Rule assist_flow{"'Flow' Column", assist, "1", "10000"};
constexpr Number_Rule thermo_rules[] = {
    {"'Thermal Conductivity' Column", thermal, "0.2", "15", Bound::or_zero},
    {"'Rock Density' Column", thermal, "800", "7000", Bound::or_zero},
    {"'Specific Heat' Column", thermal, "0.1", "4", Bound::or_zero},
    {"'Ini. Rock Temp.' Column", thermal, "-20", "100"},
};

constexpr std::array<std::string_view, root_column::height + 1> blanks = {
    "", "1.43", "10.", "11.8", "100.", "0.3", "0.", "1.0", "1", "A", "0.001213", "H", "2.8"};

// No number and no name of an airway is longer. A longer text, as of a whole file that was pasted
// into one cell, is refused unread.
constexpr std::size_t longest_entry = 100;

bool Is_Too_Long(std::string_view text) { return Trim(text).size() > longest_entry; }

double Entered_Number(std::string_view text) {
  if (Is_Too_Long(text)) throw Run_Time_Error("too long for a number");
  return Parse_Double(text);
}

bool Is_One_Of(std::string_view letters, std::string_view text) {
  text = Trim(text);
  return text.size() == 1 && letters.find(text) != std::string_view::npos;
}

std::optional<Message> List_Fault(int col, std::string_view text) {
  struct List {
    int col;
    std::string_view letters, item;
  };
  static constexpr List lists[] = {{root_column::kind, "01234567", "Support Kind List"},
                                   {root_column::wind, "AaBbCc", "Winding List"},
                                   {root_column::shape, "CcHhSsRr", "Shape List"}};
  for (const List& list : lists) {
    if (list.col == col && !Is_One_Of(list.letters, text)) {
      return messages::Wrong_Input(list.item, airway);
    }
  }
  return std::nullopt;
}

// A node number of its own; whether there is such a node is not asked here.
std::optional<Message> Node_Fault(std::string_view text) {
  try {
    const double number = Entered_Number(text);
    if (number >= 1 && number <= max_nodes && number == Int(number)) return std::nullopt;
    return messages::Node_Out_Of_Range(max_nodes, "Node No.");
  } catch (const Run_Time_Error&) {
    return messages::Not_Numeric();
  }
}

std::optional<Message> Name_Fault(std::string_view text) {
  if (Is_Too_Long(text)) return messages::Airway_Undefined();
  if (!Is_Airway_Name(text)) return std::nullopt;
  const std::optional<Airway_Nodes> nodes = Get_Row_Nodes(text);
  if (!nodes) return messages::Airway_Undefined();
  if (nodes->left < 1 || nodes->right < 1) return messages::Input_Node_Number();
  if (std::max(nodes->left, nodes->right) > max_nodes) {
    return messages::Input_Node_Number(max_nodes);
  }
  if (nodes->left == nodes->right) return messages::Same_Node_Numbers();
  return std::nullopt;
}

// A speed of a main fan; `which` is its word in the message.
std::optional<Message> Revolution_Fault(std::string_view which, std::string_view text) {
  try {
    if (To_Single(Entered_Number(text)) > 0) return std::nullopt;
    return messages::Change_Revolution(which);
  } catch (const Run_Time_Error&) {
    return messages::Not_Numeric();
  }
}

bool Is_Node_Column(Folder folder, int col) {
  switch (folder) {
    case Folder::inlet:
      return col == inlet_column::node;
    case Folder::assistfan:
      return col == assist_column::suction || col == assist_column::discharge;
    case Folder::thermal:
      return col == thermo_column::node1 || col == thermo_column::node2;
    default:
      return false;
  }
}

}  // namespace

const Number_Rule limit_flow_rule{"'Limit Flow Rate' Column", "Main Fan Flow-Limit", "0", "20000"};
const Number_Rule fan_flow_rule{"'Flow' Column", "Fan H-Q", "0", "20000"};
const Number_Rule fan_head_rule{"'Head' Column", "Main Fan H-Q", "0", "500"};

std::optional<Message> Number_Fault(const Number_Rule& rule, std::string_view text) {
  double value = 0;
  float stored = 0;  // as its table holds it
  try {
    value = Entered_Number(text);
    stored = To_Single(value);
  } catch (const Run_Time_Error&) {
    return messages::Not_Numeric();
  }
  const double low = Parse_Double(rule.low);
  switch (rule.bound) {
    case Bound::above:
      if (stored > To_Single(low)) return std::nullopt;
      return messages::Not_Positive(rule.item, rule.folder);
    case Bound::at_least:
      if (value >= low) return std::nullopt;
      return messages::Not_Positive(rule.item, rule.folder);
    case Bound::or_zero:
      if (value == 0) return std::nullopt;
      break;
    case Bound::from_to:
      break;
  }
  if (value >= low && value <= Parse_Double(rule.high)) return std::nullopt;
  return messages::Out_Of_Range(rule.item, rule.folder, rule.low, rule.high);
}

const Number_Rule* Rule_Of(Folder folder, int col) {
  const auto at = static_cast<std::size_t>(col);
  switch (folder) {
    case Folder::airway:
      return at < std::size(root_rules) && !root_rules[at].item.empty() ? &root_rules[at] : nullptr;
    case Folder::node:
      return at < std::size(node_rules) && !node_rules[at].item.empty() ? &node_rules[at] : nullptr;
    case Folder::inlet:
      return nullptr;
    case Folder::mainfan:
      return col == fan_column::flow   ? &fan_flow_rule
             : col == fan_column::head ? &fan_head_rule
                                       : nullptr;
    case Folder::assistfan:
      return col == assist_column::head   ? &assist_head
             : col == assist_column::flow ? &assist_flow
                                          : nullptr;
    case Folder::thermal:
      break;
  }
  const bool rock = col >= thermo_column::cond && col <= thermo_column::rock_temp;
  return rock ? &thermo_rules[col - thermo_column::cond] : nullptr;
}

std::string_view Blank_Takes(int col) { return blanks.at(static_cast<std::size_t>(col)); }

std::optional<Message> Cell_Fault(Folder folder, int col, std::string_view text) {
  if (Trim(text).empty()) return std::nullopt;
  if (const Number_Rule* const rule = Rule_Of(folder, col)) return Number_Fault(*rule, text);
  if (Is_Node_Column(folder, col)) return Node_Fault(text);
  if (folder != Folder::airway) return std::nullopt;
  return col == root_column::name ? Name_Fault(text) : List_Fault(col, text);
}

std::optional<Message> Fan_Field_Fault(int field, std::string_view text) {
  if (Trim(text).empty()) return std::nullopt;
  switch (field) {
    case Fan_Page::suction:
    case Fan_Page::discharge:
      return Node_Fault(text);
    case Fan_Page::std_rpm:
      return Revolution_Fault(" Standard ", text);
    case Fan_Page::drive_rpm:
      return Revolution_Fault(" Driving ", text);
    case Fan_Page::limit_flow:
      return Number_Fault(limit_flow_rule, text);
    default:
      return std::nullopt;
  }
}

}  // namespace branok
