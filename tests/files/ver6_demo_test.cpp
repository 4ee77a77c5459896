// The demo mines: read and written without an edit they come back byte for byte.
#include <gtest/gtest.h>

#include "core/safe_file.h"
#include "files/ver6.h"

namespace branok {
namespace {

class Demo_Mine : public testing::TestWithParam<const char*> {
 protected:
  std::string bytes_ = Read_Whole(std::string(BRANOK_TEST_DATA) + "/DATA/" + GetParam());
};

TEST_P(Demo_Mine, comes_back_byte_for_byte) {
  Database db;
  Reset_Database(db);
  Comment_Template comments;
  const Read_Result result = Read_Ver6_Text(db, bytes_, comments);
  ASSERT_TRUE(result.ok) << result.line << ": " << result.fault;
  EXPECT_EQ(Ver6_Text(db, comments), bytes_);
}

INSTANTIATE_TEST_SUITE_P(all, Demo_Mine, testing::Values("mine-a.abk", "mine-c.abk"));

}  // namespace
}  // namespace branok
