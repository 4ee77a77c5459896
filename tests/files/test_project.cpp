// Open, Save and Save As without their windows.
#include "files/project.h"

#include <gtest/gtest.h>

#include "core/safe_file.h"
#include "files/ver6_text.h"
#include "support/german_locale.h"
#include "support/temporary_folder.h"
#include "support/test_doors.h"

namespace branok {
namespace {

namespace fs = std::filesystem;

class Project_Commands : public testing::Test {
 protected:
  void SetUp() override {
    fs::create_directory(home_.path() / "own");
    Write_Whole(file_, Golden("ver6-comments.abk"));
  }

  Read_Result open() { return Open_Project(project_, file_, folders_, settings_, user_); }
  bool save(Save_Command command = Save_Command::save) {
    return Save_Project(project_, file_, folders_, settings_, user_, command);
  }

  Temporary_Folder home_;
  Program_Folders folders_{.own = home_ / "own", .installed = {BRANOK_TEST_DATA}};
  fs::path file_ = home_ / "mine.abk";
  Project project_;
  Database& db_ = project_.db;
  Settings settings_;
  Test_Dialogue user_;
};

TEST_F(Project_Commands, opens_and_saves_what_it_has_opened) {
  db_.Check_Count = 3;
  ASSERT_TRUE(open().ok);
  EXPECT_EQ(db_.Check_Count, 0);
  EXPECT_EQ(settings_.Recent_File[0], file_.string());
  db_.Check_Count = 2;
  ASSERT_TRUE(save());
  EXPECT_EQ(db_.Check_Count, 0);
  EXPECT_EQ(Read_Whole(file_), Golden("ver6-comments.abk"));
  EXPECT_TRUE(user_.shown.empty());
  EXPECT_EQ(user_.busy_depth, 0);
  EXPECT_GT(user_.times_busy, 0);
}

TEST_F(Project_Commands, keeps_its_comments_in_the_users_template) {
  ASSERT_TRUE(open().ok);
  const Comment_Template mine = Comment_Template::Load(folders_.user_template());
  EXPECT_EQ(mine.text().substr(0, 11), "* block 1\r\n");
}

TEST_F(Project_Commands, that_is_new_is_saved_with_the_default_comments_and_keeps_them) {
  New_Database(db_, "2024/01/02");
  ASSERT_TRUE(save(Save_Command::save_as));
  EXPECT_EQ(db_.Data_Ver, 6);
  const std::string first = Read_Whole(file_);
  EXPECT_NE(first.find("* Name of the mine"), std::string::npos);
  ASSERT_TRUE(save());
  EXPECT_EQ(Read_Whole(file_), first);
  ASSERT_TRUE(open().ok);
  ASSERT_TRUE(save());
  EXPECT_EQ(Read_Whole(file_), first);
}

TEST_F(Project_Commands, without_a_template_is_not_saved) {
  New_Database(db_, "2024/01/02");
  folders_.installed = {home_ / "nothing"};
  EXPECT_FALSE(save(Save_Command::save_as));
  ASSERT_EQ(user_.shown.size(), 1U);
  EXPECT_EQ(user_.shown[0].text, "Sorry, failed Save Ver.6 Data File command.");
  EXPECT_EQ(db_.Data_Ver, 0);
  EXPECT_EQ(Read_Whole(file_), Golden("ver6-comments.abk"));

  user_.shown.clear();
  EXPECT_FALSE(save());
  ASSERT_EQ(user_.shown.size(), 2U);
  EXPECT_EQ(user_.shown[1].text, "Sorry, failed 'Save' command.");
}

TEST_F(Project_Commands, that_cannot_be_written_changes_nothing) {
  ASSERT_TRUE(open().ok);
  db_.Check_Count = 1;
  settings_ = {};
  EXPECT_FALSE(Save_Project(project_, home_ / "no folder/mine.abk", folders_, settings_, user_));
  EXPECT_EQ(db_.Check_Count, 1);
  EXPECT_EQ(settings_, Settings{});
  EXPECT_TRUE(user_.showed("Sorry, failed Save Ver.6 Data File command."));
  EXPECT_FALSE(user_.remarks.empty());
  EXPECT_EQ(user_.busy_depth, 0);
}

TEST_F(Project_Commands, of_another_version_leaves_an_empty_database_without_a_message) {
  New_Database(db_, "2024/01/02");
  Write_Whole(file_, "BRANOK Data File Version 7\r\n");
  const Read_Result result = open();
  EXPECT_FALSE(result.ok);
  EXPECT_TRUE(user_.shown.empty());
  EXPECT_EQ(db_.Node_Total, 0);
  EXPECT_EQ(db_.Mine_Name, "");
  EXPECT_EQ(settings_, Settings{});
}

TEST_F(Project_Commands, with_a_fault_leaves_an_empty_database_and_the_comments_before_it) {
  Sections file(Golden("ver6-comments.abk"));
  file[6].emplace_back("    2     abc nowhere");
  Write_Whole(file_, file.text());
  const Read_Result result = open();
  EXPECT_FALSE(result.ok);
  EXPECT_EQ(result.fault, "'abc' is not a number");
  ASSERT_EQ(user_.shown.size(), 1U);
  EXPECT_EQ(user_.shown[0].text, "Sorry, failed Read Ver.6 Data File command.");
  EXPECT_EQ(user_.remarks.size(), 1U);
  EXPECT_EQ(db_.Node_Total, 0);
  EXPECT_EQ(db_.Node_JuncCount[1], 0);
  EXPECT_EQ(user_.busy_depth, 0);
  const std::string kept = Comment_Template::Load(folders_.user_template()).text();
  EXPECT_NE(kept.find("* block 9\r\n"), std::string::npos);
  EXPECT_EQ(kept.find("* block 10\r\n"), std::string::npos);
}

TEST_F(Project_Commands, that_failed_to_open_has_no_file_to_save_over) {
  ASSERT_TRUE(open().ok);
  EXPECT_EQ(project_.file, file_);
  const fs::path broken = home_ / "broken.abk";
  Write_Whole(broken, "BRANOK Data File Version 6\r\nx");
  EXPECT_FALSE(Open_Project(project_, broken, folders_, settings_, user_).ok);
  EXPECT_TRUE(project_.file.empty());
}

TEST_F(Project_Commands, keeps_its_comments_when_the_template_is_taken_away) {
  ASSERT_TRUE(open().ok);
  fs::remove(folders_.user_template());
  ASSERT_TRUE(save());
  EXPECT_EQ(Read_Whole(file_), Golden("ver6-comments.abk"));
}

TEST_F(Project_Commands, is_remembered_by_its_full_name) {
  const fs::path before = fs::current_path();
  fs::current_path(home_.path());
  EXPECT_TRUE(Open_Project(project_, "mine.abk", folders_, settings_, user_).ok);
  fs::current_path(before);
  EXPECT_EQ(settings_.Recent_File[0], file_.string());
}

TEST_F(Project_Commands, opens_a_recent_file) {
  settings_.Recent_File[2] = file_.string();
  EXPECT_TRUE(Open_Recent(project_, 2, folders_, settings_, user_).value().ok);
  EXPECT_EQ(settings_.Recent_File[0], file_.string());
}

TEST_F(Project_Commands, a_recent_file_that_has_gone_leaves_everything_as_it_was) {
  ASSERT_TRUE(open().ok);
  settings_.Recent_File[1] = (home_ / "gone.abk").string();
  const Settings settings = settings_;
  const Database before = db_;
  EXPECT_FALSE(Open_Recent(project_, 1, folders_, settings_, user_).has_value());
  ASSERT_EQ(user_.shown.size(), 1U);
  EXPECT_EQ(user_.shown[0].text,
            "Not found \"" + settings.Recent_File[1] + "\"file.\nPlease Try Again.");
  EXPECT_EQ(settings_, settings);
  EXPECT_TRUE(db_ == before);
}

TEST_F(Project_Commands, that_cannot_be_opened_leaves_the_template) {
  ASSERT_TRUE(open().ok);
  const Comment_Template before = Comment_Template::Load(folders_.user_template());
  fs::remove(file_);
  EXPECT_FALSE(open().ok);
  EXPECT_TRUE(user_.showed("Sorry, failed Read Ver.6 Data File command."));
  EXPECT_EQ(Comment_Template::Load(folders_.user_template()), before);
}

TEST_F(Project_Commands, whose_comments_cannot_be_kept_is_not_opened) {
  folders_.own = home_ / "nowhere";
  EXPECT_FALSE(open().ok);
  EXPECT_EQ(user_.shown.size(), 1U);
  EXPECT_EQ(db_.Node_Total, 0);
}

class Project_In_Germany : public German_Locale {};

TEST_F(Project_In_Germany, reads_and_writes_the_same_file) {
  const Loaded mine(Golden("ver6-comments.abk"));
  ASSERT_TRUE(mine.result.ok) << mine.result.fault;
  EXPECT_EQ(mine.db.Node_Press[2], -101.1234567891);
  EXPECT_EQ(mine.db.Para_RockDiff, 0.0059F);
  EXPECT_EQ(mine.text(), Golden("ver6-comments.abk"));
}

TEST(Default_File_Name, is_the_start_of_the_mines_name) {
  Database db;
  db.Mine_Name = "Sample      ";
  EXPECT_EQ(Default_File_Name(db), "Sample.abk");
  db.Mine_Name = " West shaft two";
  EXPECT_EQ(Default_File_Name(db), "West sh.abk");
  db.Mine_Name =
      "\xc3\x9c"
      "berr\xc3\xb6hre Nord";
  EXPECT_EQ(Default_File_Name(db),
            "\xc3\x9c"
            "berr\xc3\xb6hr.abk");
  db.Mine_Name = "";
  EXPECT_EQ(Default_File_Name(db), ".abk");
}

}  // namespace
}  // namespace branok
