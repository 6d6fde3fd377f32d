#include "platform/posix/copy_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>
#include <string>

#include "platform/posix/byte_file.h"

namespace platform::posix {

namespace {

// Owns a descriptor whose close can't lose data, and closes it.
class descriptor {
 public:
  explicit descriptor(int number) : number_(number) {}
  descriptor(const descriptor&) = delete;
  descriptor& operator=(const descriptor&) = delete;
  ~descriptor() {
    if (number_ >= 0) ::close(number_);
  }
  int number() const { return number_; }

 private:
  int number_;
};

constexpr std::size_t block_size = 128 * 1024;

// The result of a copy that starts as an unnamed file.
enum class outcome { copied, failed, unsupported };

// Copies the rest of `from` and closes `to`. Returns whether all of that succeeded.
bool copy_content(int from, output_file& to, char* block) {
  while (true) {
    const ssize_t got = ::read(from, block, block_size);
    if (got == 0) return to.close();
    if (got < 0 && errno == EINTR) continue;
    if (got < 0 || !to.write(block, static_cast<std::size_t>(got))) return false;
  }
}

// Whether the target doesn't exist, or is a writable file other than the source.
bool may_replace(const std::string& target, const struct stat& source) {
  struct stat status;
  if (::stat(target.c_str(), &status) != 0) return true;
  return S_ISREG(status.st_mode) &&
         (status.st_dev != source.st_dev || status.st_ino != source.st_ino) &&
         ::access(target.c_str(), W_OK) == 0;
}

// The folder of a file, including the trailing separator; empty for the current folder.
std::string folder_of(const std::string& path) { return path.substr(0, path.rfind('/') + 1); }

// Copies the mode. Best effort: some file systems have no modes.
void set_mode(int file, const struct stat& source) { ::fchmod(file, source.st_mode & 0777); }

// Gives the complete copy its final name; deletes the copy if that fails.
bool finish(const std::string& unfinished, const std::string& target) {
  if (::rename(unfinished.c_str(), target.c_str()) == 0) return true;
  ::unlink(unfinished.c_str());
  return false;
}

#ifdef O_TMPFILE
outcome copy_unnamed(int from, const struct stat& source, const std::string& target, char* block) {
  const std::string folder = folder_of(target);
  const descriptor copy(open_file((folder + ".").c_str(), O_WRONLY | O_TMPFILE, 0600));
  if (copy.number() < 0) return outcome::unsupported;
  set_mode(copy.number(), source);

  // Closing this second descriptor reports late errors while the first one keeps the file.
  const int second = ::fcntl(copy.number(), F_DUPFD_CLOEXEC, 0);
  if (second < 0) return outcome::unsupported;
  output_file to(second);
  if (!copy_content(from, to, block)) return outcome::failed;

  // Not /proc/self: the threads of a process need not share their descriptors.
  const std::string file = "/proc/thread-self/fd/" + std::to_string(copy.number());
  const auto link_to = [&file](const std::string& name) {
    return ::linkat(AT_FDCWD, file.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
  };
  if (link_to(target)) return outcome::copied;
  if (errno != EEXIST) return outcome::unsupported;

  // linkat() replaces nothing, so the copy gets a name of its own first. The target may have
  // appeared only now.
  if (!may_replace(target, source)) return outcome::failed;
  for (int number = 0; number < 1000; ++number) {
    const std::string unfinished = folder + ".copy-" + std::to_string(number);
    if (link_to(unfinished)) return finish(unfinished, target) ? outcome::copied : outcome::failed;
    if (errno != EEXIST) break;
  }
  return outcome::unsupported;
}
#else
outcome copy_unnamed(int, const struct stat&, const std::string&, char*) {
  return outcome::unsupported;
}
#endif

bool copy_named(int from, const struct stat& source, const std::string& target, char* block) {
  std::string unfinished = folder_of(target) + ".copy-XXXXXX";
  // Nothing below throws, so the unfinished copy is always deleted.
  const int number = ::mkostemp(unfinished.data(), O_CLOEXEC);
  if (number < 0) return false;
  set_mode(number, source);
  output_file to(number);
  if (copy_content(from, to, block)) return finish(unfinished, target);
  ::unlink(unfinished.c_str());
  return false;
}

}  // namespace

bool copy_file(const std::string& source, const std::string& target, unfinished_copy unfinished) {
  const descriptor from(open_file(source.c_str(), O_RDONLY | O_NONBLOCK, 0));
  struct stat source_status;
  if (from.number() < 0 || ::fstat(from.number(), &source_status) != 0 ||
      !S_ISREG(source_status.st_mode))
    return false;
  if (!may_replace(target, source_status)) return false;

  const auto block = std::make_unique<char[]>(block_size);
  if (unfinished == unfinished_copy::unnamed) {
    const outcome result = copy_unnamed(from.number(), source_status, target, block.get());
    if (result != outcome::unsupported) return result == outcome::copied;
    // The content may have been copied before naming the copy failed.
    if (::lseek(from.number(), 0, SEEK_SET) != 0) return false;
  }
  return copy_named(from.number(), source_status, target, block.get());
}

}  // namespace platform::posix
