#include "core/settings.h"

#include <gtest/gtest.h>
#include <stdlib.h>

#include "core/numbers.h"
#include "core/safe_file.h"
#include "support/temporary_folder.h"

namespace branok {
namespace {

namespace fs = std::filesystem;

class Settings_File : public testing::Test {
 protected:
  Temporary_Folder folder_;
  fs::path ini_ = folder_ / "branok.ini";
};

TEST_F(Settings_File, that_is_missing_gives_the_defaults) {
  EXPECT_EQ(Load_Settings(ini_), Settings{});
}

TEST_F(Settings_File, comes_back_as_it_was_written) {
  Settings settings{.top = -120, .left = 4500, .Recent_File = {"/mines/a b.abk", "", "c=[d];.abk"}};
  settings.Recent_File[3] = "caf\xe9.abk";
  Save_Settings(settings, ini_, true, "2024/05/06 07:08:09");
  EXPECT_EQ(Load_Settings(ini_), settings);
  EXPECT_NE(Read_Whole(ini_).find("EndTime = 2024/05/06 07:08:09"), std::string::npos);
}

TEST_F(Settings_File, keeps_the_old_place_of_a_maximised_window_and_entries_of_others) {
  Write_Whole(ini_, "[Position]\r\nTop=100\r\nLeft=200\r\n[Other]\r\nkey=value\r\n");
  Save_Settings({.top = 1, .left = 2, .Recent_File = {"a"}}, ini_, false, "now");
  const Settings settings = Load_Settings(ini_);
  EXPECT_EQ(settings.top, 100);
  EXPECT_EQ(settings.left, 200);
  EXPECT_EQ(settings.Recent_File[0], "a");
  EXPECT_NE(Read_Whole(ini_).find("key = value"), std::string::npos);
}

TEST_F(Settings_File, with_a_bad_place_reads_as_0) {
  for (const char* top : {"abc", "", "99999999999999999999", "5000000000"}) {
    Write_Whole(ini_, std::string("[Position]\nTop=") + top + "\nLeft=12.9 twips\n");
    EXPECT_EQ(Load_Settings(ini_).top, 0) << top;
    EXPECT_EQ(Load_Settings(ini_).left, 12);
  }
}

TEST_F(Settings_File, is_read_whatever_its_bytes) {
  Write_Whole(ini_, std::string("\xff\xfe\0[Files\n1=a\0b\n]]\n=x\n[Files]\n2=b\0c\n", 36));
  const Settings settings = Load_Settings(ini_);
  EXPECT_EQ(settings.top, 0);
  EXPECT_EQ(settings.Recent_File[1].find('\0'), std::string::npos);
}

TEST_F(Settings_File, cuts_a_name_at_a_NUL) {
  const std::string bytes("[Files]\n1=first\n2=b\0c\n", 22);
  ASSERT_EQ(bytes.substr(18), std::string("b\0c\n", 4));
  Write_Whole(ini_, bytes);
  const Settings settings = Load_Settings(ini_);
  EXPECT_EQ(settings.Recent_File[0], "first");
  EXPECT_EQ(settings.Recent_File[1], "b");
}

TEST_F(Settings_File, cuts_long_names) {
  Write_Whole(ini_, "[Files]\n1=" + std::string(400, 'n') + "\n");
  EXPECT_EQ(Load_Settings(ini_).Recent_File[0], std::string(259, 'n'));
}

TEST_F(Settings_File, cannot_be_broken_by_a_name_with_a_line_end) {
  Save_Settings({.top = 7, .left = 0, .Recent_File = {"a\n[Position]\nTop=1", "b"}}, ini_, true,
                "");
  const Settings settings = Load_Settings(ini_);
  EXPECT_EQ(settings.top, 7);
  EXPECT_EQ(settings.Recent_File[0], "");
  EXPECT_EQ(settings.Recent_File[1], "b");
}

TEST_F(Settings_File, that_cannot_be_written_is_a_fault) {
  EXPECT_THROW(Save_Settings({}, folder_ / "none/branok.ini", true, ""), Run_Time_Error);
}

TEST(Recent_files, put_the_newest_first) {
  Settings settings;
  for (const char* name : {"a", "b", "c", "d"}) Add_Recent(settings, name);
  EXPECT_EQ(settings.Recent_File, (std::array<std::string, 4>{"d", "c", "b", "a"}));
  Add_Recent(settings, "b");
  EXPECT_EQ(settings.Recent_File, (std::array<std::string, 4>{"b", "d", "c", "a"}));
  Add_Recent(settings, "e");
  EXPECT_EQ(settings.Recent_File, (std::array<std::string, 4>{"e", "b", "d", "c"}));
  Add_Recent(settings, "e");
  EXPECT_EQ(settings.Recent_File, (std::array<std::string, 4>{"e", "b", "d", "c"}));
}

class Folders : public testing::Test {
 protected:
  void SetUp() override {
    ::unsetenv("BRANOK_HOME");
    ::setenv("XDG_DATA_HOME", (place_ / "data").c_str(), 1);
    fs::create_directories(place_ / "bin");
    fs::create_directories(place_ / "share/branok");
  }
  void TearDown() override {
    ::unsetenv("BRANOK_HOME");
    ::unsetenv("XDG_DATA_HOME");
  }

  Temporary_Folder place_;
  fs::path program_ = place_ / "bin";
};

TEST_F(Folders, are_the_programs_own_when_that_can_be_written) {
  Write_Whole(program_ / "branok-def.cmt", "");
  Write_Whole(place_ / "share/branok/branok-def.cmt", "");
  const Program_Folders folders = Find_Program_Folders(program_);
  EXPECT_EQ(folders.own, program_);
  EXPECT_EQ(folders.default_template(), program_ / "branok-def.cmt");
  EXPECT_EQ(folders.Ini_Path(), program_ / "branok.ini");
}

TEST_F(Folders, are_shared_and_the_users_when_it_cannot) {
  Write_Whole(place_ / "share/branok/branok-def.cmt", "");
  EXPECT_EQ(Find_Program_Folders(program_).default_template(),
            place_ / "share/branok/branok-def.cmt");
  // A folder that is not there cannot be written either.
  const Program_Folders folders = Find_Program_Folders(place_ / "other");
  EXPECT_EQ(folders.own, place_ / "data/branok");
  EXPECT_TRUE(fs::is_directory(folders.own));
  EXPECT_EQ(folders.default_template(), place_ / "share/branok/branok-def.cmt");
}

TEST_F(Folders, follow_BRANOK_HOME) {
  Write_Whole(program_ / "branok-def.cmt", "");
  const fs::path home = place_ / "home";
  ::setenv("BRANOK_HOME", home.c_str(), 1);
  EXPECT_EQ(Find_Program_Folders(program_).own, home);
  EXPECT_EQ(Find_Program_Folders(program_).default_template(), program_ / "branok-def.cmt");
  Write_Whole(home / "branok-def.cmt", "");
  EXPECT_EQ(Find_Program_Folders(program_).default_template(), home / "branok-def.cmt");
  // Each installed file is looked for by itself.
  fs::create_directory(program_ / "DATA");
  EXPECT_EQ(Find_Program_Folders(program_).installed_file("DATA"), program_ / "DATA");
}

TEST_F(Folders, leave_a_BRANOK_HOME_that_cannot_be_written) {
  Write_Whole(place_ / "file", "");
  ::setenv("BRANOK_HOME", (place_ / "file" / "below").c_str(), 1);
  EXPECT_EQ(Find_Program_Folders(program_).own, place_ / "data" / "branok");
}

TEST_F(Folders, of_the_running_program_hold_it) {
  EXPECT_TRUE(fs::is_directory(Running_Program_Folder()));
}

TEST(End_time, is_a_date_a_blank_and_a_time) {
  const std::string now = End_Time();
  ASSERT_EQ(now.size(), 19U);
  EXPECT_EQ(now[10], ' ');
  EXPECT_EQ(now[4], '/');
  EXPECT_EQ(now[13], ':');
}

}  // namespace
}  // namespace branok
