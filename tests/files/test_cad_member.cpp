// The file of a drawing: every line of the sample network, numbers at the edge of their fields.
#include "files/cad_member.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

#include "core/safe_file.h"
#include "support/generated_mine.h"
#include "support/temporary_folder.h"

namespace branok {
namespace {

// The sample network with its nodes on a line through the middle.
Database Sample_With_Drawing() {
  Database db;
  New_Database(db, "2024/05/06");
  Derive_Marks(db);
  for (int i = 1; i <= 5; ++i) {
    db.Node_CadX[i] = static_cast<float>(0.1 + 0.2 * (i - 1));
    db.Node_CadY[i] = 0.5F;
  }
  db.Flag_Cad = flag_true;
  return db;
}

std::string Line_Of(const std::string& text, int number) {
  std::size_t start = 0;
  while (--number > 0) start = text.find("\r\n", start) + 2;
  return text.substr(start, text.find("\r\n", start) - start);
}

TEST(Cad_Member, The_Sample_Network_Line_By_Line) {
  const std::string blank(15, ' ');
  const std::string expected =
      "Sample      \r\n"
      "2025/01/02\r\n"
      "    5    1    1\r\n"
      "  16776960  16777215     65535     65280  16776960"
      "       255     65280  12632256   8388608         0\r\n"
      "    1    1    1    1   0.10000   0.50000\r\n"
      "    1    2    0\r\n" +
      blank + "\r\n" + blank + "\r\n" + blank + "\r\n" + blank +
      "\r\n\r\n"
      "    2    2    1    0   0.30000   0.50000\r\n"
      "    2    1    0\r\n"
      "    2    3    0\r\n" +
      blank + "\r\n" + blank + "\r\n" + blank +
      "\r\n\r\n"
      "    3    2    1    0   0.50000   0.50000\r\n"
      "    3    2    0\r\n"
      "    3    4    0\r\n" +
      blank + "\r\n" + blank + "\r\n" + blank +
      "\r\n\r\n"
      "    4    2    1    0   0.70000   0.50000\r\n"
      "    4    3    0\r\n"
      "    4    5    0\r\n" +
      blank + "\r\n" + blank + "\r\n" + blank +
      "\r\n\r\n"
      "    5    1    1    2   0.90000   0.50000\r\n"
      "    5    4    0\r\n" +
      blank + "\r\n" + blank + "\r\n" + blank + "\r\n" + blank + "\r\n\r\n";
  EXPECT_EQ(Cad_Member(Sample_With_Drawing(), "2025/01/02"), expected);
}

TEST(Cad_Member, An_Assist_Fan_Keeps_Its_Sign_In_Both_Slots) {
  Database db = Sample_With_Drawing();
  db.AFan_Total = 1;
  db.AFan_Suction[1] = 2;
  db.AFan_Discharge[1] = 3;
  Refresh_Regulator_Classes(db);
  const std::string text = Cad_Member(db, "today");
  EXPECT_NE(text.find("\r\n    2    3    2\r\n"), std::string::npos);
  EXPECT_NE(text.find("\r\n    3    2   -2\r\n"), std::string::npos);
}

TEST(Cad_Member, A_Number_Too_Wide_Loses_Its_Leading_Digits) {
  Database db = Sample_With_Drawing();
  db.Node_CadX[1] = 12345.0F;
  db.Node_CadY[1] = -0.25F;
  EXPECT_EQ(Line_Of(Cad_Member(db, "today"), 5), "    1    1    1    12345.00000  -0.25000");
}

TEST(Cad_Member, A_Node_Without_Airways_Keeps_Its_Lines) {
  Database db = Sample_With_Drawing();
  db.Node_JuncCount[3] = db.Node_Used[3] = 0;
  const std::string text = Cad_Member(db, "today");
  EXPECT_EQ(Line_Of(text, 19), "    3    0    0    0   0.50000   0.50000");
  for (int line = 20; line <= 24; ++line) EXPECT_EQ(Line_Of(text, line), std::string(15, ' '));
  EXPECT_EQ(Line_Of(text, 25), "");
  EXPECT_EQ(Line_Of(text, 26).substr(0, 5), "    4");
}

TEST(Cad_Member, A_Line_End_In_The_Name_Does_Not_Break_The_Record) {
  Database db = Sample_With_Drawing();
  db.Mine_Name = "North\r\nmine";
  EXPECT_EQ(Line_Of(Cad_Member(db, "today"), 1), "North  mine");
}

TEST(Cad_Member, A_Written_File_Holds_The_Text) {
  const Temporary_Folder folder;
  const Database db = Sample_With_Drawing();
  Write_Cad_Member(db, folder / "bakfile.cad", "2025/01/02");
  EXPECT_EQ(Read_Whole(folder / "bakfile.cad"), Cad_Member(db, "2025/01/02"));
}

TEST(Cad_Member, A_Fault_Leaves_The_Older_File) {
  const Temporary_Folder folder;
  Database db = Sample_With_Drawing();
  Write_Cad_Member(db, folder / "bakfile.cad", "2025/01/02");
  const std::string before = Read_Whole(folder / "bakfile.cad");
  db.Node_CadX[2] = std::numeric_limits<float>::infinity();
  EXPECT_THROW(Write_Cad_Member(db, folder / "bakfile.cad", "later"), Run_Time_Error);
  EXPECT_EQ(Read_Whole(folder / "bakfile.cad"), before);
  EXPECT_EQ(folder.count(), 1);
}

}  // namespace
}  // namespace branok
