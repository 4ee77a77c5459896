#include "core/safe_file.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

#include "core/numbers.h"
#include "support/temporary_folder.h"

namespace branok {
namespace {

namespace fs = std::filesystem;

// A disk with room for a few bytes only: writing more fails as on a full one.
class Little_Room {
 public:
  explicit Little_Room(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    rlimit small = before_;
    small.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &small);
    signal_ = std::signal(SIGXFSZ, SIG_IGN);
  }
  Little_Room(const Little_Room&) = delete;
  Little_Room& operator=(const Little_Room&) = delete;
  Little_Room(Little_Room&&) = delete;
  Little_Room& operator=(Little_Room&&) = delete;
  ~Little_Room() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    std::signal(SIGXFSZ, signal_);
  }

 private:
  rlimit before_{};
  void (*signal_)(int);
};

class Safe_File : public testing::Test {
 protected:
  Temporary_Folder folder_;
  fs::path file_ = folder_ / "mine.abk";
};

TEST_F(Safe_File, writes_and_reads_any_bytes) {
  const std::string bytes("a\0\r\n\xff", 5);
  Write_Whole(file_, bytes);
  EXPECT_EQ(Read_Whole(file_), bytes);
  Write_Whole(file_, "");
  EXPECT_EQ(Read_Whole(file_), "");
  EXPECT_EQ(folder_.count(), 1);
}

TEST_F(Safe_File, keeps_permissions_of_the_old_file) {
  Write_Whole(file_, "old");
  fs::permissions(file_, fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
  Write_Whole(file_, "new");
  EXPECT_EQ(fs::status(file_).permissions(),
            fs::perms::owner_read | fs::perms::owner_write | fs::perms::others_read);
}

TEST_F(Safe_File, leaves_another_users_file_to_him) {
  Write_Whole(file_, "old");
  constexpr uid_t someone = 12345;
  if (::chown(file_.c_str(), someone, someone) != 0) return;  // only the administrator may do that
  Write_Whole(file_, "new");
  struct stat status {};
  ASSERT_EQ(::stat(file_.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, someone);
}

TEST_F(Safe_File, gives_a_new_file_what_the_mask_allows) {
  const mode_t mask = ::umask(0027);
  Write_Whole(file_, "new");
  ::umask(mask);
  EXPECT_EQ(static_cast<int>(fs::status(file_).permissions()), 0640);
}

TEST_F(Safe_File, follows_links_and_keeps_them) {
  fs::create_directory(folder_ / "store");
  Write_Whole(folder_ / "store/real.abk", "old");
  fs::create_symlink("store/real.abk", file_);
  Write_Whole(file_, "new");
  EXPECT_TRUE(fs::is_symlink(file_));
  EXPECT_EQ(Read_Whole(folder_ / "store/real.abk"), "new");

  fs::create_symlink("store/unborn.abk", folder_ / "dangling.abk");
  Write_Whole(folder_ / "dangling.abk", "born");
  EXPECT_EQ(Read_Whole(folder_ / "store/unborn.abk"), "born");
}

TEST_F(Safe_File, leaves_the_old_file_whole_when_the_disk_is_full) {
  Write_Whole(file_, "the old mine");
  {
    const Little_Room room(1000);
    EXPECT_THROW(Write_Whole(file_, std::string(100000, 'x')), Run_Time_Error);
  }
  EXPECT_EQ(Read_Whole(file_), "the old mine");
  EXPECT_EQ(folder_.count(), 1);
}

TEST_F(Safe_File, refuses_targets_that_are_no_file) {
  EXPECT_THROW(Write_Whole(folder_ / "no such folder/mine.abk", "x"), Run_Time_Error);
  EXPECT_THROW(Write_Whole(folder_.path(), "x"), Run_Time_Error);
  EXPECT_THROW(Write_Whole("/dev/full", "x"), Run_Time_Error);
  EXPECT_THROW(Write_Whole("", "x"), Run_Time_Error);
  EXPECT_EQ(folder_.count(), 0);
}

TEST_F(Safe_File, tells_why_a_file_cannot_be_read) {
  const auto reason = [](const fs::path& file) -> std::string {
    try {
      Read_Whole(file);
    } catch (const Run_Time_Error& fault) {
      return fault.what();
    }
    return "";
  };
  EXPECT_NE(reason(file_).find("No such file"), std::string::npos);
  EXPECT_NE(reason(folder_.path()).find("Is a directory"), std::string::npos);
  Write_Whole(file_, "x");
  fs::resize_file(file_, largest_file + 1);
  EXPECT_NE(reason(file_).find("File too large"), std::string::npos);
}

}  // namespace
}  // namespace branok
