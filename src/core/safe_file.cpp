#include "core/safe_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "core/numbers.h"

namespace branok {

namespace {

namespace fs = std::filesystem;

constexpr mode_t permission_bits = 07777;
constexpr auto as_made_user = static_cast<uid_t>(-1);  // what fchown leaves as it is
constexpr auto as_made_group = static_cast<gid_t>(-1);

[[noreturn]] void Fail(const fs::path& file, int reason) {
  throw Run_Time_Error(file.string() + ": " + std::generic_category().message(reason));
}

/// An open file, closed on every way out.
class Descriptor {
 public:
  explicit Descriptor(int number) : number_(number) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  Descriptor(Descriptor&&) = delete;
  Descriptor& operator=(Descriptor&&) = delete;
  ~Descriptor() { close(); }
  [[nodiscard]] int number() const { return number_; }
  /// False when the system tells only now that the bytes did not reach the disk.
  bool close() {
    const int number = number_;
    number_ = -1;
    return number < 0 || ::close(number) == 0;
  }

 private:
  int number_;
};

/// Removes the temporary file unless it has taken the target's name.
class Temporary {
 public:
  explicit Temporary(std::string name) : name_(std::move(name)) {}
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;
  Temporary(Temporary&&) = delete;
  Temporary& operator=(Temporary&&) = delete;
  ~Temporary() {
    if (!name_.empty()) ::unlink(name_.c_str());
  }
  void keep() { name_.clear(); }

 private:
  std::string name_;
};

// The file that a name leads to in the end, also where that file is still to be made.
fs::path Follow_Links(fs::path file) {
  constexpr int most_links = 40;
  std::error_code no_link;
  for (int i = 0; i < most_links && fs::is_symlink(file, no_link); ++i) {
    const fs::path target = fs::read_symlink(file, no_link);
    if (no_link) break;
    file = target.is_absolute() ? target : file.parent_path() / target;
  }
  return file;
}

void Write_All(int descriptor, std::string_view bytes, const fs::path& file) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written <= 0) Fail(file, written < 0 ? errno : ENOSPC);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
}

struct Rights {
  mode_t permissions;
  uid_t owner;
  gid_t group;
};

// Those of the file to be replaced; of a new file what the user's mask allows.
Rights Rights_For(const fs::path& target) {
  struct stat old {};
  if (::stat(target.c_str(), &old) == 0) {
    if (S_ISDIR(old.st_mode)) Fail(target, EISDIR);
    if (!S_ISREG(old.st_mode)) Fail(target, EINVAL);
    if (::access(target.c_str(), W_OK) != 0) Fail(target, errno);
    return {old.st_mode & permission_bits, old.st_uid, old.st_gid};
  }
  if (errno != ENOENT) Fail(target, errno);
  const mode_t mask = ::umask(0);
  ::umask(mask);
  return {0666 & ~mask, as_made_user, as_made_group};
}

// Another user's file stays his where the system allows it; its permissions must come out right.
void Set_Rights(int descriptor, const Rights& rights, const fs::path& file) {
  const bool given = ::fchown(descriptor, rights.owner, rights.group) == 0;
  // An ordinary user cannot give a file away, but may leave it to a group of his own.
  if (!given) (void)!::fchown(descriptor, as_made_user, rights.group);
  const mode_t safe = given ? rights.permissions : rights.permissions & 0777;
  if (::fchmod(descriptor, safe) != 0) Fail(file, errno);
}

// The new name must survive a crash as well. Some file systems cannot sync a folder: no fault.
void Sync_Folder(const fs::path& folder) {
  const Descriptor opened(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (opened.number() >= 0) ::fsync(opened.number());
}

}  // namespace

std::string Read_Whole(const fs::path& file) {
  // A pipe that nobody writes to would be waited for without end.
  const Descriptor opened(::open(file.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
  if (opened.number() < 0) Fail(file, errno);
  struct stat status {};
  if (::fstat(opened.number(), &status) != 0) Fail(file, errno);
  if (S_ISDIR(status.st_mode)) Fail(file, EISDIR);
  if (!S_ISREG(status.st_mode)) throw Run_Time_Error(file.string() + ": not a regular file");

  // The size is a first guess only: a file may grow while it is read.
  std::string bytes;
  std::size_t size = 0;
  const auto expected = static_cast<std::size_t>(status.st_size);
  if (expected > largest_file) Fail(file, EFBIG);
  bytes.resize(expected + 1);
  for (;;) {
    const ssize_t got = ::read(opened.number(), bytes.data() + size, bytes.size() - size);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) Fail(file, errno);
    if (got == 0) break;
    size += static_cast<std::size_t>(got);
    if (size > largest_file) Fail(file, EFBIG);
    if (size == bytes.size()) bytes.resize(2 * size);
  }
  bytes.resize(size);
  return bytes;
}

void Write_Whole(const fs::path& file, std::string_view bytes) {
  const fs::path target = Follow_Links(file);
  const Rights rights = Rights_For(target);
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");

  std::string name = (folder / ".branok-XXXXXX").string();
  Descriptor opened(::mkostemp(name.data(), O_CLOEXEC));
  if (opened.number() < 0) Fail(folder, errno);
  Temporary temporary(name);

  Write_All(opened.number(), bytes, file);
  Set_Rights(opened.number(), rights, file);
  if (::fsync(opened.number()) != 0) Fail(file, errno);
  if (!opened.close()) Fail(file, errno);
  if (::rename(name.c_str(), target.c_str()) != 0) Fail(file, errno);
  temporary.keep();
  Sync_Folder(folder);
}

}  // namespace branok
