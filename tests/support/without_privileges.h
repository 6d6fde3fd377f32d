#ifndef TESTS_SUPPORT_WITHOUT_PRIVILEGES_H
#define TESTS_SUPPORT_WITHOUT_PRIVILEGES_H

#include <gtest/gtest.h>
#include <sys/types.h>
#include <unistd.h>

#include <filesystem>

namespace test {

/// Drops the rights of root until the end of the scope, as no permission of a file stops root.
class without_privileges {
 public:
  without_privileges() {
    if (::geteuid() == 0) changed_ = ::setresuid(nobody, nobody, 0) == 0;
  }
  without_privileges(const without_privileges&) = delete;
  without_privileges& operator=(const without_privileges&) = delete;
  ~without_privileges() {
    if (changed_ && ::setresuid(0, 0, 0) != 0) ADD_FAILURE() << "root's rights don't come back";
  }

  /// Makes the user without rights the owner of a file or a folder.
  static void give(const std::filesystem::path& path) {
    if (::geteuid() != 0) return;
    EXPECT_EQ(::chown(path.c_str(), nobody, nobody), 0);
  }

 private:
  static constexpr uid_t nobody = 65534;
  bool changed_ = false;
};

}  // namespace test

#endif
