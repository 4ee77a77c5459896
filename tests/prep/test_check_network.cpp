// The rows of the node and airway folders.
#include "check_test.h"

namespace branok {
namespace {

constexpr const char* airways = "Airway Folder";

// --- Nodes

struct Typed {
  int col;
  std::string text;
  std::string fault;  // empty: it passes
};

TEST_F(Check_Test, NodeValuesHaveTheirRanges) {
  const std::string elev = Range_Text("'Elevation' Column", "Node Folder", "-2000", "2000");
  const std::string ew = Range_Text("'E-W' Column", "Node Folder", "-100000", "100000");
  const std::string sn = Range_Text("'S-N' Column", "Node Folder", "-100000", "100000");
  using namespace node_column;
  for (const Typed& typed : std::vector<Typed>{{node_column::elev, "-2000", ""},
                                               {node_column::elev, "2000", ""},
                                               {node_column::elev, "-2001", elev},
                                               {node_column::elev, "2000.1", elev},
                                               {node_column::elev, "high", not_numeric},
                                               {node_column::ew, "-100000", ""},
                                               {node_column::ew, "100000", ""},
                                               {node_column::ew, "-100001", ew},
                                               {node_column::ew, "100001", ew},
                                               {node_column::ew, "1,5", not_numeric},
                                               {node_column::sn, "-100000", ""},
                                               {node_column::sn, "100000", ""},
                                               {node_column::sn, "-100001", sn},
                                               {node_column::sn, "100001", sn},
                                               {node_column::sn, "-", not_numeric}}) {
    SCOPED_TRACE(typed.text);
    open(Small_Mine());
    const Database before = db;
    type(Folder::node, 3, typed.col, typed.text);
    if (typed.fault.empty()) {
      EXPECT_TRUE(check());
      continue;
    }
    EXPECT_EQ(fault(), typed.fault);
    EXPECT_EQ(*result.place, (Edit_Place{.folder = Folder::node, .row = 3, .col = typed.col}));
    EXPECT_TRUE(remark().starts_with("Node Folder, row 3, '"));
    EXPECT_EQ(db.Node_Elev, before.Node_Elev);
    EXPECT_EQ(db.Node_EW, before.Node_EW);
    EXPECT_EQ(db.Node_SN, before.Node_SN);
  }
}

TEST_F(Check_Test, NodesAreCommitted) {
  type(Folder::node, 2, node_column::elev, "-12.5");
  type(Folder::node, 2, node_column::ew, "40000");
  type(Folder::node, 2, node_column::sn, "-7");
  type(Folder::node, 2, node_column::comment, "shaft foot");
  type(Folder::node, 3, node_column::comment, "");
  Set_Picture_Name(copy, Folder::node, 2, 1, "a.jpg");
  Set_Picture_Name(copy, Folder::node, 2, 3, "c.jpg");
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Elev[2], -12);  // to the even neighbour
  EXPECT_EQ(db.Node_EW[2], 40000);
  EXPECT_EQ(db.Node_SN[2], -7);
  EXPECT_EQ(db.Node_Comm[2], "shaft foot");
  EXPECT_EQ(db.Node_Comm[3], std::string(12, ' '));
  EXPECT_EQ(db.Node_Pict(1, 2), "a.jpg");
  EXPECT_EQ(db.Node_Pict(2, 2), "");
  EXPECT_EQ(db.Node_Pict(3, 2), "c.jpg");
  EXPECT_EQ(copy.grdNode.text(2, node_column::elev), "-12");
}

TEST_F(Check_Test, ANodeRowWithoutDataIsTold) {
  type(Folder::node, 4, node_column::ew, " ");
  EXPECT_EQ(fault(), "Please input nodal data on row No.4");
  EXPECT_EQ(*result.place, (Edit_Place{.folder = Folder::node, .row = 4, .col = node_column::ew}));
}

TEST_F(Check_Test, ANodeRowWithoutANumberStops) {
  copy.grdNode.insert_rows(copy.grdNode.Rows(), 2);
  copy.fit_pictures();
  type(Folder::node, 1, node_column::elev, "12");
  type(Folder::node, 8, node_column::elev, "55");
  EXPECT_EQ(fault(), "Please input nodal data on row No.8");
  EXPECT_EQ(remark(),
            "Node Folder, row 8: nodes come from the airways; a row without a node number cannot "
            "be used");
  EXPECT_EQ(result.place->folder, Folder::node);
  EXPECT_EQ(result.place->row, 8);
  EXPECT_EQ(db.Node_Elev[1], 0);
  EXPECT_EQ(copy.grdNode.text(8, node_column::elev), "55");
  type(Folder::node, 8, node_column::elev, " ");  // blank rows are passed over
  EXPECT_TRUE(check());
  EXPECT_EQ(db.Node_Elev[1], 12);
  EXPECT_EQ(copy.grdNode.Rows(), 7);
}

TEST_F(Check_Test, ANodeNumberThatIsNoneStops) {
  for (const std::string number : {"0", "551", "2.5", "x"}) {
    open(Small_Mine());
    type(Folder::node, 2, node_column::number, number);
    EXPECT_TRUE(fault().starts_with("Nodal No. range =  1 - 550\n")) << number;
  }
}

// --- Airways

TEST_F(Check_Test, AirwayValuesHaveTheirRules) {
  const auto positive = [](const std::string& item) {
    return item + " in Airway Folder\nPlease Input Positive Value.";
  };
  const auto wrong = [](const std::string& item) {
    return "Input data on " + item + " in Airway Folder is Wrong!";
  };
  const std::string resist = positive("'Resistance' Column");
  const std::string area = Range_Text("'Area' Column", airways, "0.001", "1000");
  const std::string peri = positive("'Perimeter' Column");
  const std::string length = Range_Text("'Length' Column", airways, "1", "9999");
  const std::string time = Range_Text("'Time' Column", airways, "0", "100");
  const std::string heat = positive("'Heat' Column");
  const std::string wet = Range_Text("'Wet Area' Column", airways, "0", "100");
  const std::string kind = wrong("Support Kind List");
  const std::string wind = wrong("Winding List");
  const std::string fric = positive("'Friction Factor' Column");
  const std::string shape = wrong("Shape List");
  const std::string height = positive("'Airway Hight' Column");
  using namespace root_column;
  const std::vector<Typed> all = {{root_column::resist, "1E-7", resist},
                                  {root_column::resist, "1.1E-7", ""},
                                  // In 32 bits it is 1E-7 itself.
                                  {root_column::resist, "1.000000001E-7", resist},
                                  {root_column::resist, "1.000001E-7", ""},
                                  {root_column::resist, "-1", resist},
                                  {root_column::resist, "1e39", not_numeric},
                                  {root_column::resist, "Resist.", not_numeric},
                                  {root_column::area, "wide", not_numeric},
                                  {root_column::area, "0.001", ""},
                                  {root_column::area, "1000", ""},
                                  {root_column::area, "0.0009", area},
                                  {root_column::area, "1000.1", area},
                                  {root_column::peri, "0", peri},
                                  {root_column::peri, "-11.8", peri},
                                  {root_column::peri, "1e-50", peri},
                                  {root_column::peri, "1e-30", ""},
                                  {root_column::peri, "0.001", ""},
                                  {root_column::peri, "1,5", not_numeric},
                                  {root_column::length, "-", not_numeric},
                                  {root_column::time, "1 2", not_numeric},
                                  {root_column::heat, "hot", not_numeric},
                                  {root_column::wet, "1e39", not_numeric},
                                  {root_column::fric, "A", not_numeric},
                                  {root_column::height, "2.8m", not_numeric},
                                  {root_column::length, "1", ""},
                                  {root_column::length, "9999", ""},
                                  {root_column::length, "0.99", length},
                                  {root_column::length, "9999.1", length},
                                  {root_column::time, "0", ""},
                                  {root_column::time, "100", ""},
                                  {root_column::time, "-0.1", time},
                                  {root_column::time, "100.1", time},
                                  {root_column::heat, "0", ""},
                                  {root_column::heat, "-1", heat},
                                  {root_column::wet, "0", ""},
                                  {root_column::wet, "100", ""},
                                  {root_column::wet, "-1", wet},
                                  {root_column::wet, "101", wet},
                                  {root_column::kind, "8", kind},
                                  {root_column::kind, "-1", kind},
                                  {root_column::kind, "10", kind},
                                  {root_column::wind, "D", wind},
                                  {root_column::fric, "0", ""},
                                  {root_column::fric, "-0.001", fric},
                                  {root_column::shape, "X", shape},
                                  {root_column::height, "0", ""},
                                  {root_column::height, "-1", height}};
  for (const Typed& typed : all) {
    SCOPED_TRACE(typed.text + " in column " + std::to_string(typed.col));
    open(Small_Mine());
    const Database before = db;
    type(Folder::airway, 5, typed.col, typed.text);
    if (typed.fault.empty()) {
      EXPECT_TRUE(check());
      continue;
    }
    EXPECT_EQ(fault(), typed.fault);
    ASSERT_EQ(user.shown.size(), 2U);
    EXPECT_EQ(user.shown[1].text, "Please input airway  data on row No.5");
    EXPECT_EQ(*result.place, (Edit_Place{.folder = Folder::airway, .row = 5, .col = typed.col}));
    EXPECT_TRUE(remark().starts_with("Airway Folder, row 5, '"));
    db.Edit_Root = before.Edit_Root;
    EXPECT_EQ(db, before);
  }
}

TEST_F(Check_Test, EveryKindAndEveryLetterPassesInBothCases) {
  const std::string kinds = "01234567";
  const std::string winds = "AaBbCc";
  const std::string shapes = "CcHhSsRr";
  for (std::size_t k = 0; k < 8; ++k) {
    const std::size_t w = k % winds.size();
    type(Folder::airway, 5, root_column::kind, kinds.substr(k, 1));
    type(Folder::airway, 5, root_column::wind, winds.substr(w, 1));
    type(Folder::airway, 5, root_column::shape, shapes.substr(k, 1));
    ASSERT_TRUE(check()) << k;
    const int slot = Find_Slot(db, 4, 5);
    EXPECT_EQ(db.Root_Kind(slot, 4), static_cast<int>(k));
    EXPECT_EQ(db.Root_Wind(slot, 4), static_cast<int>(w / 2));
    EXPECT_EQ(db.Root_Shape(slot, 4), static_cast<int>(k / 2));
  }
}

TEST_F(Check_Test, TheFirstBadRowEndsTheCheck) {
  type(Folder::airway, 2, root_column::height, "tall");
  type(Folder::airway, 2, root_column::wet, "wet");
  type(Folder::airway, 4, root_column::area, "wide");
  EXPECT_EQ(fault(), not_numeric);
  EXPECT_EQ(user.shown.size(), 2U);
  EXPECT_EQ(result.place->row, 2);
  EXPECT_EQ(result.place->col, root_column::wet);
  EXPECT_EQ(remark(), "Airway Folder, row 2, 'Wet Area' Column");
}

TEST_F(Check_Test, BlankCellsTakeTheirDefaults) {
  for (int col = root_column::resist; col <= root_column::height; ++col) {
    type(Folder::airway, 1, col, col % 2 == 0 ? "" : "  ");
  }
  type(Folder::airway, 2, root_column::area, "none");
  EXPECT_EQ(fault(), not_numeric);
  const std::vector<std::string> taken = {"1.43", "10.", "11.8", "100.",     "0.3", "0.",
                                          "1.0",  "1",   "A",    "0.001213", "H",   "2.8"};
  for (int col = root_column::resist; col <= root_column::height; ++col) {
    EXPECT_EQ(copy.grdRoot.text(1, col), taken[static_cast<std::size_t>(col - 1)]);
  }
  type(Folder::airway, 2, root_column::area, "10");
  EXPECT_TRUE(check());
  EXPECT_FLOAT_EQ(db.Root_Resist(1, 1), 1.43F);
  EXPECT_FLOAT_EQ(db.Root_Area(1, 1), 10);
  EXPECT_FLOAT_EQ(db.Root_Peri(1, 1), 11.8F);
  EXPECT_FLOAT_EQ(db.Root_Length(1, 1), 100);
  EXPECT_FLOAT_EQ(db.Root_Time(1, 1), 0.3F);
  EXPECT_FLOAT_EQ(db.Root_Heat(1, 1), 0);
  EXPECT_FLOAT_EQ(db.Root_Wet(1, 1), 1);
  EXPECT_EQ(db.Root_Kind(1, 1), 1);
  EXPECT_EQ(db.Root_Wind(1, 1), 0);
  EXPECT_FLOAT_EQ(db.Root_Fric(1, 1), 0.001213F);
  EXPECT_EQ(db.Root_Shape(1, 1), 1);
  EXPECT_FLOAT_EQ(db.Root_Height(1, 1), 2.8F);
}

TEST_F(Check_Test, ABlankAirwayRowIsPassedOver) {
  Insert_Rows(db, copy, 2);
  EXPECT_TRUE(check());
  EXPECT_EQ(copy.grdRoot.Rows(), 8);
  EXPECT_TRUE(user.remarks.empty());
}

TEST_F(Check_Test, ARowWithoutANameIsLeftOutAndToldAndStays) {
  type(Folder::airway, 7, root_column::area, "none");
  EXPECT_TRUE(check());
  EXPECT_EQ(remark(), "Airway Folder, row 7: left out, without an airway name");
  ASSERT_EQ(copy.grdRoot.Rows(), 9);
  EXPECT_EQ(copy.grdRoot.text(7, root_column::area), "none");
  EXPECT_TRUE(copy.grdRoot.is_blank(8));
}

}  // namespace
}  // namespace branok
