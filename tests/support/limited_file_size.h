#ifndef TESTS_SUPPORT_LIMITED_FILE_SIZE_H
#define TESTS_SUPPORT_LIMITED_FILE_SIZE_H

#include <signal.h>
#include <sys/resource.h>

namespace test {

/// Limits the size of the files that this process writes. A write past the limit fails after
/// a part of the file was written, as on a full disk.
class limited_file_size {
 public:
  explicit limited_file_size(rlim_t bytes) {
    before_action_ = ::signal(SIGXFSZ, SIG_IGN);
    ::getrlimit(RLIMIT_FSIZE, &before_);
    rlimit limit = before_;
    limit.rlim_cur = bytes;
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  limited_file_size(const limited_file_size&) = delete;
  limited_file_size& operator=(const limited_file_size&) = delete;
  ~limited_file_size() {
    ::setrlimit(RLIMIT_FSIZE, &before_);
    ::signal(SIGXFSZ, before_action_);
  }

 private:
  rlimit before_;
  void (*before_action_)(int);
};

}  // namespace test

#endif
