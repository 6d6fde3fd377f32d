#include "platform/posix/copy_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <memory>

#include "platform/posix/output_file.h"

namespace platform::posix {

namespace {

// Closes what is only read.
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

bool copy_content(int from, output_file& to, char* block) {
  while (true) {
    const ssize_t got = ::read(from, block, block_size);
    if (got == 0) return true;
    if (got < 0 && errno == EINTR) continue;
    if (got < 0 || !to.write(block, static_cast<std::size_t>(got))) return false;
  }
}

// Whether the target is free, or a file that may be written and isn't the source.
bool may_replace(const std::string& target, const struct stat& source) {
  struct stat status;
  if (::stat(target.c_str(), &status) != 0) return true;
  return S_ISREG(status.st_mode) &&
         (status.st_dev != source.st_dev || status.st_ino != source.st_ino) &&
         ::access(target.c_str(), W_OK) == 0;
}

}  // namespace

bool copy_file(const std::string& source, const std::string& target) {
  const descriptor from(open_file(source.c_str(), O_RDONLY | O_NONBLOCK, 0));
  struct stat source_status;
  if (from.number() < 0 || ::fstat(from.number(), &source_status) != 0 ||
      !S_ISREG(source_status.st_mode))
    return false;
  if (!may_replace(target, source_status)) return false;

  // All memory is taken first: from here on nothing raises past the unfinished copy.
  const auto block = std::make_unique<char[]>(block_size);
  std::string unfinished = target.substr(0, target.rfind('/') + 1) + ".copy-XXXXXX";
  const int number = ::mkostemp(unfinished.data(), O_CLOEXEC);
  if (number < 0) return false;
  output_file to(number);
  ::fchmod(number, source_status.st_mode & 0777);  // where the disk has no modes, without
  const bool complete = copy_content(from.number(), to, block.get()) && to.close() &&
                        ::rename(unfinished.c_str(), target.c_str()) == 0;
  if (!complete) ::unlink(unfinished.c_str());
  return complete;
}

}  // namespace platform::posix
