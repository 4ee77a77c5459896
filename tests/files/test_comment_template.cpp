#include "files/comment_template.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "core/safe_file.h"
#include "files/ver6.h"
#include "support/temporary_folder.h"

namespace branok {
namespace {

std::string Next_Block(Template_Cursor& cursor) {
  std::string block;
  cursor.Copy_Comment_Block(block);
  return block;
}

TEST(Template, gives_one_block_after_the_other_and_then_empty_ones) {
  const auto comments = Comment_Template::From_Text("* a\n* b\r\n**\r\n** end\n* c");
  Template_Cursor cursor(comments);
  EXPECT_EQ(Next_Block(cursor), "* a\r\n* b\r\n");
  EXPECT_EQ(Next_Block(cursor), "");
  EXPECT_EQ(Next_Block(cursor), "* c\r\n");
  EXPECT_EQ(Next_Block(cursor), "");
}

TEST(Template, never_lets_a_line_into_a_data_file_that_is_no_comment) {
  const auto comments = Comment_Template::From_Text("hand-written\n\n* comment\n");
  Template_Cursor cursor(comments);
  EXPECT_EQ(Next_Block(cursor), "*hand-written\r\n*\r\n* comment\r\n");
}

TEST(Template, comes_back_from_its_file) {
  const Temporary_Folder folder;
  const auto comments = Comment_Template::From_Text("* caf\xe9\r\n**\r\n**\r\n* open");
  comments.save(folder / "UserDef.cmt");
  EXPECT_EQ(Comment_Template::Load(folder / "UserDef.cmt"), comments);
  EXPECT_THROW(Comment_Template::Load(folder / "none.cmt"), Run_Time_Error);
}

TEST(Template, of_no_lines_gives_a_file_that_reads_back_the_same) {
  Database db;
  New_Database(db, "2024/01/02");
  const std::string text = Ver6_Text(db, {});
  Database again;
  Reset_Database(again);
  Comment_Template comments;
  ASSERT_TRUE(Read_Ver6_Text(again, text, comments).ok);
  EXPECT_EQ(text.find("\r\n* "), std::string::npos);
  EXPECT_EQ(Ver6_Text(again, comments), text);
  EXPECT_EQ(again.Mine_Name, db.Mine_Name);
  EXPECT_EQ(again.Root_Comm, db.Root_Comm);
}

class Default_Template : public testing::Test {
 protected:
  const Comment_Template comments_ =
      Comment_Template::Load(std::string(BRANOK_TEST_DATA) + "/branok-def.cmt");
};

TEST_F(Default_Template, has_a_block_for_every_place_of_a_data_file) {
  Database db;
  New_Database(db, "2024/01/02");
  const std::string text = Ver6_Text(db, comments_);
  Database again;
  Reset_Database(again);
  Comment_Template read_back;
  ASSERT_TRUE(Read_Ver6_Text(again, text, read_back).ok);
  EXPECT_EQ(read_back, comments_);
  EXPECT_EQ(Ver6_Text(again, read_back), text);
}

TEST_F(Default_Template, ends_every_block) {
  const std::string& text = comments_.text();
  EXPECT_EQ(text.substr(text.size() - 4), "**\r\n");
  std::size_t blocks = 0;
  for (std::size_t i = text.find("\n**"); i != std::string::npos; i = text.find("\n**", i + 1)) {
    ++blocks;
  }
  EXPECT_EQ(blocks, 49U);
}

}  // namespace
}  // namespace branok
