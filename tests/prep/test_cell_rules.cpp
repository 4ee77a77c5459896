// What the columns of the grids take: both sides of every bound.
#include "prep/cell_rules.h"

#include <gtest/gtest.h>

#include "core/messages.h"

namespace branok {
namespace {

// The text of what is wrong with a cell; empty when nothing is.
std::string Fault(Folder folder, int col, std::string_view text) {
  const std::optional<Message> fault = Cell_Fault(folder, col, text);
  return fault ? fault->text : "";
}

struct Bounded {
  Folder folder;
  int col;
  const char* right_low;
  const char* wrong_low;
  const char* right_high;  // empty where the column has no upper bound
  const char* wrong_high;
  const char* message;  // of a number out of bounds
};

const std::vector<Bounded> bounded = {
    {Folder::airway, root_column::resist, "1.01E-7", "1E-7", "3E38", "",
     "'Resistance' Column in Airway Folder\nPlease Input Positive Value."},
    {Folder::airway, root_column::area, "0.001", "0.00099", "1000", "1000.1",
     "'Area' Column in Airway Folder The value should be from 0.001  to  1000 .\nChange value !"},
    {Folder::airway, root_column::peri, "0.0001", "0", "1E9", "",
     "'Perimeter' Column in Airway Folder\nPlease Input Positive Value."},
    {Folder::airway, root_column::length, "1", "0.999", "9999", "9999.1",
     "'Length' Column in Airway Folder The value should be from 1  to  9999 .\nChange value !"},
    {Folder::airway, root_column::time, "0", "-0.1", "100", "100.1",
     "'Time' Column in Airway Folder The value should be from 0  to  100 .\nChange value !"},
    {Folder::airway, root_column::heat, "0", "-1", "1E9", "",
     "'Heat' Column in Airway Folder\nPlease Input Positive Value."},
    {Folder::airway, root_column::wet, "0", "-0.1", "100", "100.1",
     "'Wet Area' Column in Airway Folder The value should be from 0  to  100 .\nChange value !"},
    {Folder::airway, root_column::fric, "0", "-0.0001", "9", "",
     "'Friction Factor' Column in Airway Folder\nPlease Input Positive Value."},
    {Folder::airway, root_column::height, "0", "-0.1", "50", "",
     "'Airway Hight' Column in Airway Folder\nPlease Input Positive Value."},
    {Folder::node, node_column::elev, "-2000", "-2001", "2000", "2001",
     "'Elevation' Column in Node Folder The value should be from -2000  to  2000 .\n"
     "Change value !"},
    {Folder::node, node_column::ew, "-100000", "-100001", "100000", "100001",
     "'E-W' Column in Node Folder The value should be from -100000  to  100000 .\n"
     "Change value !"},
    {Folder::node, node_column::sn, "-100000", "-100001", "100000", "100001",
     "'S-N' Column in Node Folder The value should be from -100000  to  100000 .\n"
     "Change value !"},
    {Folder::inlet, inlet_column::node, "1", "0", "550", "551",
     "Nodal No. range =  1 - 550\n'Node No.' data is out of range.\nPlease reinput this data."},
    {Folder::mainfan, fan_column::flow, "0", "-1", "20000", "20001",
     "'Flow' Column in Fan H-Q The value should be from 0  to  20000 .\nChange value !"},
    {Folder::mainfan, fan_column::head, "0", "-1", "500", "500.1",
     "'Head' Column in Main Fan H-Q The value should be from 0  to  500 .\nChange value !"},
    {Folder::assistfan, assist_column::suction, "1", "0", "550", "551",
     "Nodal No. range =  1 - 550\n'Node No.' data is out of range.\nPlease reinput this data."},
    {Folder::assistfan, assist_column::discharge, "1", "0", "550", "551",
     "Nodal No. range =  1 - 550\n'Node No.' data is out of range.\nPlease reinput this data."},
    {Folder::assistfan, assist_column::head, "0", "-0.1", "700", "700.1",
     "'Head' Column in Assist Fan Folder The value should be from 0  to  700 .\nChange value !"},
    {Folder::assistfan, assist_column::flow, "1", "0.9", "10000", "10000.1",
     "'Flow' Column in Assist Fan Folder The value should be from 1  to  10000 .\nChange value !"},
    {Folder::thermal, thermo_column::node1, "1", "0", "550", "551",
     "Nodal No. range =  1 - 550\n'Node No.' data is out of range.\nPlease reinput this data."},
    {Folder::thermal, thermo_column::node2, "1", "0", "550", "551",
     "Nodal No. range =  1 - 550\n'Node No.' data is out of range.\nPlease reinput this data."},
    {Folder::thermal, thermo_column::cond, "0.2", "0.199", "15", "15.1",
     "'Thermal Conductivity' Column in Thermal Folder The value should be from 0.2  to  15 .\n"
     "Change value !"},
    {Folder::thermal, thermo_column::density, "800", "799.9", "7000", "7000.1",
     "'Rock Density' Column in Thermal Folder The value should be from 800  to  7000 .\n"
     "Change value !"},
    {Folder::thermal, thermo_column::specific, "0.1", "0.099", "4", "4.01",
     "'Specific Heat' Column in Thermal Folder The value should be from 0.1  to  4 .\n"
     "Change value !"},
    {Folder::thermal, thermo_column::rock_temp, "-20", "-20.1", "100", "100.1",
     "'Ini. Rock Temp.' Column in Thermal Folder The value should be from -20  to  100 .\n"
     "Change value !"},
};

TEST(Cell_Fault, Both_Sides_Of_Every_Bound) {
  for (const Bounded& b : bounded) {
    SCOPED_TRACE(b.message);
    EXPECT_EQ(Fault(b.folder, b.col, b.right_low), "");
    EXPECT_EQ(Fault(b.folder, b.col, b.wrong_low), b.message);
    EXPECT_EQ(Fault(b.folder, b.col, b.right_high), "");
    if (*b.wrong_high != '\0') {
      EXPECT_EQ(Fault(b.folder, b.col, b.wrong_high), b.message);
    }
  }
}

TEST(Cell_Fault, A_Text_That_Is_No_Number) {
  for (const Bounded& b : bounded) {
    SCOPED_TRACE(b.message);
    for (const char* text : {"x", "1,5", "1 2", "inf", "nan", "1E999"}) {
      EXPECT_EQ(Fault(b.folder, b.col, text), "Please input numeric data.") << text;
    }
  }
  // A number that fits no 32-bit float is none that the tables could hold.
  EXPECT_EQ(Fault(Folder::airway, root_column::heat, "1E39"), "Please input numeric data.");
}

TEST(Cell_Fault, A_Blank_Cell_Is_Right_Everywhere) {
  for (const Folder folder : all_folders) {
    for (int col = 0; col < Edit_Copy().grid(folder).Cols(); ++col) {
      EXPECT_EQ(Fault(folder, col, ""), "");
      EXPECT_EQ(Fault(folder, col, "  "), "");
    }
  }
}

TEST(Cell_Fault, A_Zero_Stands_For_The_Default_Rock_But_Not_For_A_Default_Temperature) {
  for (const int col : {thermo_column::cond, thermo_column::density, thermo_column::specific}) {
    EXPECT_EQ(Fault(Folder::thermal, col, "0"), "");
    EXPECT_EQ(Fault(Folder::thermal, col, " 0.00"), "");
    EXPECT_NE(Fault(Folder::thermal, col, "0.05"), "");
    EXPECT_NE(Fault(Folder::thermal, col, "-1"), "");
  }
  EXPECT_FALSE(Rule_Of(Folder::thermal, thermo_column::rock_temp)->bound ==
               Number_Rule::Bound::or_zero);
}

TEST(Cell_Fault, Node_Numbers_Are_Whole) {
  EXPECT_EQ(Fault(Folder::inlet, inlet_column::node, " 12 "), "");
  EXPECT_NE(Fault(Folder::inlet, inlet_column::node, "12.5"), "");
  EXPECT_EQ(Fault(Folder::inlet, inlet_column::node, "12.0"), "");
}

TEST(Cell_Fault, Letters_Of_The_Lists) {
  struct List {
    int col;
    std::string_view letters;
    const char* message;
  };
  const std::vector<List> lists = {
      {root_column::kind, "01234567", "Input data on Support Kind List in Airway Folder is Wrong!"},
      {root_column::wind, "AaBbCc", "Input data on Winding List in Airway Folder is Wrong!"},
      {root_column::shape, "CcHhSsRr", "Input data on Shape List in Airway Folder is Wrong!"}};
  for (const List& list : lists) {
    for (int c = '!'; c <= '~'; ++c) {
      const std::string text(1, static_cast<char>(c));
      const bool right = list.letters.find(text) != std::string_view::npos;
      EXPECT_EQ(Fault(Folder::airway, list.col, text), right ? "" : list.message) << text;
    }
    const std::string twice(2, list.letters[0]);
    EXPECT_EQ(Fault(Folder::airway, list.col, twice), list.message);
    EXPECT_EQ(Fault(Folder::airway, list.col, " " + twice.substr(1)), "");
  }
}

TEST(Cell_Fault, Names_Of_Airways) {
  const auto name = [](std::string_view text) {
    return Fault(Folder::airway, root_column::name, text);
  };
  EXPECT_EQ(name("1 -> 550"), "");
  EXPECT_EQ(name("7 - 3"), "");
  EXPECT_EQ(name("no airway"), "");  // without a digit the row is none
  EXPECT_EQ(name("12"), "Input Node Number.");
  EXPECT_EQ(name("0 -> 2"), "Input Node Number.");
  EXPECT_EQ(name("1 -> 551"), "Input Node Number.\n(Max550)");
  EXPECT_EQ(name("4 -> 4"), "Nodes have Same Number.");
  EXPECT_EQ(name("1 -> 2 -> 3"), "The airway No. can't define!");
}

TEST(Cell_Fault, A_Text_Of_A_Hundred_Characters_Is_The_Longest_That_Is_Read) {
  const std::string zeros(99, '0');
  for (const Bounded& b : bounded) {
    SCOPED_TRACE(b.message);
    EXPECT_NE(Fault(b.folder, b.col, zeros + '1'), "Please input numeric data.");
    EXPECT_EQ(Fault(b.folder, b.col, zeros + "01"), "Please input numeric data.");
    const std::string blanks(200, ' ');
    EXPECT_NE(Fault(b.folder, b.col, blanks + '1' + blanks), "Please input numeric data.");
  }
  EXPECT_EQ(Fault(Folder::airway, root_column::name, "1 -> 2" + std::string(94, '.')), "");
  EXPECT_EQ(Fault(Folder::airway, root_column::name, "1 -> 2" + std::string(95, '.')),
            "The airway No. can't define!");
  EXPECT_EQ(Fault(Folder::airway, root_column::wind, std::string(101, 'A')),
            "Input data on Winding List in Airway Folder is Wrong!");
  EXPECT_EQ(Fault(Folder::airway, root_column::comment, std::string(101, 'A')), "");
  EXPECT_TRUE(Fan_Field_Fault(Fan_Page::drive_rpm, zeros + "01").has_value());
}

TEST(Cell_Fault, Notes_And_Pictures_Take_Anything) {
  EXPECT_EQ(Fault(Folder::airway, root_column::picture, "x?*"), "");
  EXPECT_EQ(Fault(Folder::airway, root_column::comment, "12 -> x"), "");
  EXPECT_EQ(Fault(Folder::node, node_column::comment, "-1"), "");
  EXPECT_EQ(Fault(Folder::node, node_column::junctions, "x"), "");
  EXPECT_EQ(Fault(Folder::thermal, thermo_column::comment, "x"), "");
}

TEST(Rule_Of, Columns_Without_A_Number_Have_None) {
  EXPECT_EQ(Rule_Of(Folder::airway, root_column::name), nullptr);
  EXPECT_EQ(Rule_Of(Folder::airway, root_column::kind), nullptr);
  EXPECT_EQ(Rule_Of(Folder::airway, root_column::comment), nullptr);
  EXPECT_EQ(Rule_Of(Folder::node, node_column::number), nullptr);
  EXPECT_EQ(Rule_Of(Folder::node, node_column::junctions), nullptr);
  EXPECT_EQ(Rule_Of(Folder::inlet, inlet_column::node), nullptr);
  EXPECT_EQ(Rule_Of(Folder::mainfan, fan_column::title), nullptr);
  EXPECT_EQ(Rule_Of(Folder::assistfan, assist_column::suction), nullptr);
  EXPECT_EQ(Rule_Of(Folder::thermal, thermo_column::node2), nullptr);
  EXPECT_EQ(Rule_Of(Folder::thermal, thermo_column::comment), nullptr);
}

TEST(Number_Fault, Limit_Flow_Of_A_Main_Fan) {
  EXPECT_FALSE(Number_Fault(limit_flow_rule, "0").has_value());
  EXPECT_FALSE(Number_Fault(limit_flow_rule, "20000").has_value());
  EXPECT_EQ(Number_Fault(limit_flow_rule, "20000.5").value().text,
            "'Limit Flow Rate' Column in Main Fan Flow-Limit The value should be from 0  to  20000 "
            ".\nChange value !");
  EXPECT_TRUE(Number_Fault(limit_flow_rule, "-0.1").has_value());
  EXPECT_EQ(Number_Fault(limit_flow_rule, "").value().text, "Please input numeric data.");
}

TEST(Blank_Takes, Has_The_Default_Of_Each_Column_And_Each_Default_Is_Right) {
  const std::vector<std::string_view> defaults = {"1.43", "10.", "11.8", "100.",     "0.3", "0.",
                                                  "1.0",  "1",   "A",    "0.001213", "H",   "2.8"};
  for (int col = root_column::resist; col <= root_column::height; ++col) {
    EXPECT_EQ(Blank_Takes(col), defaults[static_cast<std::size_t>(col - 1)]);
    EXPECT_EQ(Fault(Folder::airway, col, Blank_Takes(col)), "");
  }
}

}  // namespace
}  // namespace branok
