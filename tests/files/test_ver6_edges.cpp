// What a reader meets in real files: missing lines, wrong numbers, other versions, wide values.
#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "files/ver6_text.h"

namespace branok {
namespace {

// `text` put over the columns from `column` on.
void Put(std::string& line, std::size_t column, std::string_view text) {
  line.replace(column - 1, text.size(), text);
}

Loaded Read(const Sections& file) { return Loaded(file.text()); }

TEST(Version, of_another_digit_is_refused_without_a_message) {
  const Loaded mine("BRANOK Data File Version 5\r\n         5         1         1         0\r\n");
  EXPECT_FALSE(mine.result.ok);
  EXPECT_TRUE(mine.result.silent);
  EXPECT_EQ(mine.result.line, 1);
  EXPECT_FALSE(mine.result.fault.empty());
  EXPECT_EQ(mine.db.Node_Total, 0);
}

TEST(Version, that_is_no_digit_is_an_error) {
  for (const char* bytes : {"", "\r\n", "BRANOK Data File Version 6 \r\n", "%PDF\n"}) {
    const Loaded mine{bytes};
    EXPECT_FALSE(mine.result.ok) << bytes;
    EXPECT_FALSE(mine.result.silent) << bytes;
  }
}

TEST(Lines, may_end_in_LF_and_the_last_one_in_nothing) {
  std::string bytes = Golden("ver6-comments.abk");
  const std::string expected = Loaded(bytes).text();
  std::erase(bytes, '\r');
  EXPECT_EQ(Loaded(bytes).text(), expected);
  bytes.pop_back();
  EXPECT_EQ(Loaded(bytes).text(), expected);
}

TEST(Lines, that_end_before_the_last_section_are_a_file) {
  const std::string bytes = Golden("ver6-plain.abk");
  const std::size_t end = bytes.find("      0.20\r\n      1.30");
  ASSERT_NE(end, std::string::npos);
  const Loaded mine(std::string_view(bytes).substr(0, end));
  ASSERT_TRUE(mine.result.ok) << mine.result.fault;
  EXPECT_EQ(mine.db.Flag_Results, 0);
  EXPECT_FLOAT_EQ(mine.db.Para_FlowTol, 0.1F);
  EXPECT_EQ(mine.db.Root_TypeMark[3], 100);
}

TEST(Lines, that_end_within_the_head_are_an_error) {
  const Loaded mine("BRANOK Data File Version 6\r\n         5         1         1         0\r\n");
  EXPECT_FALSE(mine.result.ok);
  EXPECT_FALSE(mine.result.silent);
}

TEST(Head, takes_the_fourth_total_from_the_end_of_its_line) {
  Sections file;
  file[1][0] = "         4         2         1              1";
  EXPECT_EQ(Read(file).db.AFan_Total, 1);
}

TEST(Head, trims_the_date_only) {
  Sections file;
  file[1][1] = "  2020/01/02  ";
  file[1][2] = "  Name  ";
  file[1][3] = " note ";
  const Loaded mine = Read(file);
  EXPECT_EQ(mine.db.Mine_Date, "2020/01/02");
  EXPECT_EQ(mine.db.Mine_Name, "  Name  ");
  EXPECT_EQ(mine.db.Mine_Note[1], " note ");
}

TEST(Head, takes_the_second_and_third_note_as_they_stand) {
  Sections file;
  file[1].insert(file[1].begin() + 3, "* before the notes");
  file[1][5] = "* second";
  const Loaded mine = Read(file);
  EXPECT_EQ(mine.db.Mine_Note[1], "note one");
  EXPECT_EQ(mine.db.Mine_Note[2], "* second");
  EXPECT_EQ(mine.comments.text().substr(0, 25), "* before the notes\r\n**\r\n*");
}

TEST(Head, with_a_line_too_many_is_an_error) {
  Sections file;
  file[1].emplace_back("a fourth note");
  const Loaded mine = Read(file);
  EXPECT_FALSE(mine.result.ok);
  EXPECT_EQ(mine.result.line, 8);
}

TEST(Nodes, take_the_number_without_its_sign_and_raise_the_total) {
  Sections file;
  Put(file[1][0], 1, "         2");
  Put(file[2][3], 1, "    -4");
  const Loaded mine = Read(file);
  ASSERT_TRUE(mine.result.ok) << mine.result.fault;
  EXPECT_EQ(mine.db.Node_Total, 4);
  EXPECT_EQ(mine.db.Node_Elev[4], -700);
}

TEST(Nodes, set_the_depth_range_and_a_new_top_is_not_compared_with_the_bottom) {
  Sections file;
  const Loaded mixed = Read(file);  // -12, 30, 250, -700
  EXPECT_EQ(mixed.db.Range_ZMax, 250);
  EXPECT_EQ(mixed.db.Range_ZMin, -700);
  Put(file[2][3], 7, "     700");
  const Loaded rising = Read(file);
  EXPECT_EQ(rising.db.Range_ZMax, 700);
  EXPECT_EQ(rising.db.Range_ZMin, 10000);
}

TEST(Nodes, beyond_the_table_are_an_error) {
  Sections file;
  Put(file[2][3], 1, "   551");
  const Loaded mine = Read(file);
  EXPECT_FALSE(mine.result.ok);
  EXPECT_FALSE(mine.result.silent);
  EXPECT_EQ(mine.result.line, 12);

  Sections far;
  Put(far[2][3], 47, "     600");
  EXPECT_FALSE(Read(far).result.ok);
}

TEST(Fields, that_hold_no_number_are_an_error) {
  for (const char* elev : {"        ", "     abc", "    1 2 ", "   1e999"}) {
    Sections file;
    Put(file[2][1], 7, elev);
    const Loaded mine = Read(file);
    EXPECT_FALSE(mine.result.ok) << elev;
    EXPECT_FALSE(mine.result.silent);
    EXPECT_EQ(mine.result.line, 10);
  }
}

TEST(Fields, of_integers_round_decimals_to_the_even_neighbour) {
  Sections file;
  Put(file[2][0], 7, "     2.5");
  Put(file[2][1], 7, "     3.5");
  const Loaded mine = Read(file);
  EXPECT_EQ(mine.db.Node_Elev[1], 2);
  EXPECT_EQ(mine.db.Node_Elev[2], 4);
}

TEST(Fields, too_wide_lose_their_leading_digits) {
  Loaded mine{Golden("ver6-plain.abk")};
  mine.db.Node_CadX[1] = 12345.25F;
  mine.db.Root_Area(1, 1) = 12345.6F;
  Loaded again(mine.text());
  ASSERT_TRUE(again.result.ok);
  EXPECT_FLOAT_EQ(again.db.Node_CadX[1], 2345.25F);
  EXPECT_FLOAT_EQ(again.db.Root_Area(1, 1), 2345.6F);
}

TEST(Texts, lose_line_ends_and_nothing_else) {
  Loaded mine{Golden("ver6-plain.abk")};
  mine.db.Node_Comm[2] = "two\r\nlines\t\xff ";
  const Loaded again(mine.text());
  ASSERT_TRUE(again.result.ok);
  EXPECT_EQ(again.db.Node_Comm[2], "two  lines\t\xff ");
}

TEST(Pictures, close_up_in_the_order_of_their_lines) {
  Loaded mine{Golden("ver6-plain.abk")};
  mine.db.Node_Pict(1, 1).clear();
  mine.db.Node_Pict(3, 1) = "third.bmp";
  const Loaded again(mine.text());
  EXPECT_EQ(again.db.Node_Pict(1, 1), "head frame.bmp");
  EXPECT_EQ(again.db.Node_Pict(2, 1), "third.bmp");
  EXPECT_EQ(again.db.Node_Pict(3, 1), "");
}

TEST(Pictures, beyond_three_are_an_error) {
  Sections file;
  file[7].assign(4, "     1 x.bmp");
  EXPECT_FALSE(Read(file).result.ok);
}

TEST(Pictures, of_an_airway_that_is_none_go_to_the_slot_of_the_line_before) {
  Sections file;
  file[5] = {"     2       3 b.bmp", "     2       9 stray.bmp", "     4       9 other.bmp"};
  const Loaded mine = Read(file);
  ASSERT_TRUE(mine.result.ok) << mine.result.fault;
  EXPECT_EQ(mine.db.Root_Pict(1, 2, 2), "stray.bmp");
  EXPECT_EQ(mine.db.Root_Pict(1, 2, 4), "other.bmp");
}

TEST(Airways, of_a_missing_node_come_back_as_comments) {
  Sections file;
  file[2].pop_back();
  const std::string lost = file[4][3];
  const Loaded mine = Read(file);
  ASSERT_TRUE(mine.result.ok) << mine.result.fault;
  EXPECT_EQ(mine.db.Node_JuncCount[2], 2);
  EXPECT_NE(mine.text().find("\r\n*" + lost + "\r\n"), std::string::npos);
}

TEST(Airways, keep_different_values_at_their_two_ends) {
  Sections file;
  Put(file[4][0], 9, "       7.500");
  const Loaded mine = Read(file);
  EXPECT_FLOAT_EQ(mine.db.Root_Resist(1, 1), 7.5F);
  EXPECT_FLOAT_EQ(mine.db.Root_Resist(1, 2), 1.25F);
  EXPECT_EQ(mine.text(), file.text());
}

TEST(Airways, fewer_than_the_node_says_lower_its_count) {
  Sections file;
  file[4].erase(file[4].begin() + 3);  // 2 to 4
  const Loaded mine = Read(file);
  EXPECT_EQ(mine.db.Node_JuncCount[2], 2);
  EXPECT_EQ(mine.db.Node_Junc(3, 2), 0);
}

TEST(Airways, more_than_the_node_says_raise_its_count) {
  Sections file;
  Put(file[2][0], 55, "       3");  // a second far node that its count of 1 leaves out
  std::string line = file[4][0];    // 1 to 2
  Put(line, 4, "    3");
  Put(line, 9, "       7.500");
  file[4].insert(file[4].begin() + 1, line);
  const Loaded mine = Read(file);
  ASSERT_TRUE(mine.result.ok) << mine.result.fault;
  EXPECT_EQ(mine.db.Node_JuncCount[1], 2);
  EXPECT_EQ(mine.db.Node_Junc(2, 1), 3);
  EXPECT_FLOAT_EQ(mine.db.Root_Resist(1, 1), 1.25F);
  EXPECT_FLOAT_EQ(mine.db.Root_Resist(2, 1), 7.5F);
  EXPECT_EQ(mine.db.Node_UpCount[1], 2);
  EXPECT_EQ(mine.db.Node_UpSlot(2, 1), 2);
}

TEST(Airways, more_than_the_node_says_may_lead_to_no_node) {
  Sections file;
  file[4].insert(file[4].begin(), file[4][0]);  // 1 to 2 twice
  const Loaded mine = Read(file);
  ASSERT_TRUE(mine.result.ok) << mine.result.fault;
  EXPECT_EQ(mine.db.Node_JuncCount[1], 2);
  EXPECT_EQ(mine.db.Node_Junc(2, 1), 0);
}

TEST(Airways, trust_the_far_nodes_of_the_nodes_section) {
  Sections file;
  std::swap(file[4][2], file[4][3]);  // 2 to 4 before 2 to 3
  const Loaded mine = Read(file);
  EXPECT_EQ(mine.db.Node_Junc(2, 2), 3);
  EXPECT_FLOAT_EQ(mine.db.Root_Resist(2, 2), 40000);
}

TEST(Airways, beyond_five_slots_are_an_error) {
  Sections file;
  file[4].assign(6, file[4][0]);
  const Loaded mine = Read(file);
  EXPECT_FALSE(mine.result.ok);
  EXPECT_FALSE(mine.result.silent);
}

TEST(Comments, after_the_first_row_are_lost_but_for_airways) {
  const std::string unchanged = Sections().text();
  for (const int section : {2, 3, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 18, 19, 20}) {
    Sections file;
    // In sections 19 and 20 the rows begin behind a line of their own.
    const int first_row = section >= 19 ? 1 : 0;
    file[section].insert(file[section].begin() + first_row + 1, "* behind the first row");
    const Loaded mine = Read(file);
    ASSERT_TRUE(mine.result.ok) << section << ": " << mine.result.fault;
    EXPECT_EQ(mine.text(), unchanged) << section;
  }
  Sections file;
  file[4].insert(file[4].begin() + 1, "* behind the first row");
  EXPECT_NE(Read(file).text().find("\r\n* behind the first row\r\n"), std::string::npos);
}

TEST(Comments, before_the_first_row_are_kept) {
  for (int section = 2; section <= 20; ++section) {
    Sections file;
    file[section].insert(file[section].begin(), "* before the rows");
    EXPECT_NE(Read(file).text().find("\r\n* before the rows\r\n"), std::string::npos) << section;
  }
  for (const int section : {17, 19, 20}) {
    Sections file;
    file[section].insert(file[section].begin() + 1, "* before the rows");
    EXPECT_NE(Read(file).text().find("\r\n* before the rows\r\n"), std::string::npos) << section;
  }
}

TEST(Comments, of_fixed_lines_are_all_kept) {
  Sections file;
  for (const int section : {15, 16, 17}) {
    file[section].emplace_back("* end of " + std::to_string(section));
  }
  const std::string text = Read(file).text();
  for (const int section : {15, 16, 17}) {
    EXPECT_NE(text.find("* end of " + std::to_string(section)), std::string::npos) << section;
  }
}

TEST(Head, words_of_the_user_are_never_read_as_comments) {
  Loaded mine(Golden("ver6-plain.abk"));
  mine.db.Mine_Date = "* today";
  mine.db.Mine_Name = "*";
  mine.db.Mine_Note[1] = "* first";
  mine.db.Mine_Note[2] = "* second";
  mine.db.Mine_Note[3] = "**";
  const Loaded again(mine.text());
  ASSERT_TRUE(again.result.ok) << again.result.fault;
  EXPECT_EQ(again.db.Mine_Date, "* today");
  EXPECT_EQ(again.db.Mine_Name, " *");
  EXPECT_EQ(again.db.Mine_Note[1], " * first");
  EXPECT_EQ(again.db.Mine_Note[2], "* second");
  EXPECT_EQ(again.db.Mine_Note[3], "**");
  EXPECT_EQ(again.text(), mine.text());
}

TEST(Comments, move_up_into_a_head_that_has_none_and_then_rest) {
  Sections file;
  file[3].insert(file[3].begin(), "* pictures");
  std::string text = file.text();
  for (int round = 0; round < 3; ++round) text = Loaded(text).text();
  EXPECT_EQ(Loaded(text).text(), text);
  EXPECT_EQ(text.find("* pictures"), text.find('\n') + 1);
}

TEST(Comments, stay_where_they_were_with_results_and_marks_missing) {
  Sections file(Golden("ver6-comments.abk"));
  std::erase_if(file[17], [](const std::string& line) { return !line.starts_with('*'); });
  const Loaded mine = Read(file);
  ASSERT_TRUE(mine.result.ok);
  EXPECT_EQ(mine.db.Root_TypeMark[3], 100);
  const std::string text = mine.text();
  EXPECT_NE(text.find("* block 45\r\n     1     0.0000000000"), std::string::npos);
  EXPECT_EQ(Loaded(text).text(), text);
}

TEST(Fan_points, count_themselves) {
  Sections file;
  Put(file[8][0], 56, "      19");
  file[11].pop_back();
  const Loaded mine = Read(file);
  EXPECT_EQ(mine.db.MFan_HQCount[1], 4);
  EXPECT_EQ(mine.db.MFan_HQCount[2], 1);
}

TEST(Fan_points, beyond_the_table_are_an_error) {
  Sections file;
  file[11].assign(21, file[11][0]);
  EXPECT_FALSE(Read(file).result.ok);
  Sections claimed;
  Put(claimed[8][0], 56, "      21");
  claimed[11].clear();
  EXPECT_FALSE(Read(claimed).result.ok);
}

TEST(Thermal_rows, count_by_their_highest_number) {
  Sections file;
  Put(file[14][0], 1, "   50");
  EXPECT_EQ(Read(file).db.Thermo_Total, 50);
  Put(file[14][0], 1, "   51");
  EXPECT_FALSE(Read(file).result.ok);
}

TEST(Parameters, with_a_line_too_many_fail_without_a_message) {
  for (const int section : {15, 16}) {
    Sections file;
    file[section].push_back(file[section].front());
    const Loaded mine = Read(file);
    EXPECT_FALSE(mine.result.ok);
    EXPECT_TRUE(mine.result.silent);
    EXPECT_FALSE(mine.result.fault.empty());
  }
}

TEST(Parameters, keep_an_unknown_wet_wall_method_as_it_stands) {
  Sections file;
  file[15].back() = " other ";
  const Loaded mine = Read(file);
  EXPECT_EQ(mine.db.Wet_Tag, " other ");
  EXPECT_EQ(mine.db.Para_WetMode, 1);
  EXPECT_EQ(mine.text(), file.text());
}

TEST(Marks, may_stand_without_the_option) {
  Sections file;
  file[17].resize(1);
  const Loaded mine = Read(file);
  ASSERT_TRUE(mine.result.ok) << mine.result.fault;
  EXPECT_EQ(mine.db.Root_TypeMark, (std::array<float, 4>{39000, 19000, 9000, 150}));
  EXPECT_EQ(mine.db.Opt_MoveSel, 0);
  EXPECT_EQ(mine.db.Node_Press[4], -210.01);
  EXPECT_NE(mine.text().find("      150\r\n         0\r\n**\r\n"), std::string::npos);
}

TEST(Node_results, take_a_missing_pressure_from_the_first_far_node) {
  Sections file;
  file[18].erase(file[18].begin() + 2);  // node 3, which leads to node 2
  const Loaded mine = Read(file);
  EXPECT_EQ(mine.db.Node_Press[3], -101.1234567891);
  EXPECT_EQ(mine.db.Node_PressInit[3], -101.1234567891);
}

TEST(Airway_results, know_their_kind_by_its_first_eleven_characters) {
  Sections file;
  file[19][0] = "Season_Temp mid Summer";
  const Loaded season = Read(file);
  EXPECT_EQ(season.db.Flag_Season, 1);
  EXPECT_EQ(season.db.Flag_Annual, 0);
  EXPECT_EQ(season.db.Flag_Temp, 0);
  EXPECT_EQ(season.db.Para_Month, 7);
  EXPECT_EQ(season.text(), file.text());
  file[19][0] = "Given_Temp";
  const Loaded given = Read(file);
  EXPECT_EQ(given.db.Flag_Season, 0);
  EXPECT_EQ(given.db.Flag_Annual, 0);
  EXPECT_EQ(given.db.Flag_Temp, 0);
  EXPECT_EQ(given.db.Flag_Results, flag_true);
}

TEST(Airway_results, may_be_missing_with_their_kind) {
  Sections file;
  file[19].clear();
  const Loaded mine = Read(file);
  ASSERT_TRUE(mine.result.ok) << mine.result.fault;
  EXPECT_EQ(mine.db.Flag_Annual, 0);
  EXPECT_EQ(mine.db.Flag_Temp, 0);
  EXPECT_EQ(mine.db.Root_Flow(1, 1), 0);
  EXPECT_EQ(mine.db.Flag_Results, flag_true);  // the nodes have theirs
  EXPECT_EQ(mine.db.Node_Press[4], -210.01);
  EXPECT_EQ(mine.db.Flag_Cad, flag_true);
  EXPECT_EQ(mine.db.Cad_Color[1], 256);
  EXPECT_FLOAT_EQ(mine.db.Node_CadX[1], 0.1F);
}

TEST(Airway_results, without_an_airway_are_passed_over) {
  Sections file;
  Put(file[19][1], 4, "    4");
  const Loaded mine = Read(file);
  ASSERT_TRUE(mine.result.ok);
  EXPECT_EQ(mine.db.Root_Flow(1, 1), 0);
}

TEST(Airway_results, write_their_kind_even_when_there_are_none) {
  Loaded mine{Golden("ver6-plain.abk")};
  mine.db.Flag_Results = 0;
  const std::string text = mine.text();
  EXPECT_NE(text.find("**\r\n**\r\nAnnual_Temp\r\n**\r\n"), std::string::npos);
}

TEST(Cad, ends_only_at_a_line_of_two_stars) {
  Sections file;
  file[20].emplace_back("**more");
  EXPECT_FALSE(Read(file).result.ok);

  std::string other = Golden("ver6-plain.abk");
  other.insert(other.find("**\r\n     1 collar") + 2, " end of nodes");
  EXPECT_TRUE(Loaded(other).result.ok);
}

TEST(Cad, without_rows_leaves_its_flag) {
  Sections file;
  file[20].resize(1);
  const Loaded mine = Read(file);
  EXPECT_EQ(mine.db.Flag_Cad, 0);
  EXPECT_EQ(mine.text(), file.text());
}

TEST(Nodes_without_connections, are_lost_but_for_the_highest_number) {
  Loaded mine{Golden("ver6-plain.abk")};
  mine.db.Node_Total = 6;
  mine.db.Node_Comm[6] = "free";
  mine.db.Node_Elev[6] = 99;
  const Loaded again(mine.text());
  ASSERT_TRUE(again.result.ok) << again.result.fault;
  EXPECT_EQ(again.db.Node_Total, 6);
  EXPECT_EQ(again.db.Node_Comm[6], "");
  EXPECT_EQ(again.db.Node_Elev[6], 0);
}

TEST(Writing, refuses_what_is_no_number) {
  Loaded mine{Golden("ver6-plain.abk")};
  mine.db.Node_Press[2] = std::numeric_limits<double>::quiet_NaN();
  EXPECT_THROW(mine.text(), Run_Time_Error);
}

TEST(Writing, leaves_switches_out) {
  Loaded mine{Golden("ver6-plain.abk")};
  const std::string before = mine.text();
  mine.db.Root_Switch(1, 1) = 1;
  EXPECT_EQ(mine.text(), before);
}

}  // namespace
}  // namespace branok
