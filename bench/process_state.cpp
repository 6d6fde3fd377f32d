#include "bench/process_state.h"

#include <linux/magic.h>
#include <sys/resource.h>
#include <sys/vfs.h>

#include <fstream>

namespace bench {

namespace {

/// The number after `key` in a file of lines "key: number".
std::uint64_t number_in(const char* path, const std::string& key) {
  std::ifstream file(path);
  std::string word;
  std::uint64_t number = 0;
  while (file >> word) {
    if (word == key && file >> number) {
      return number;
    }
  }
  return 0;
}

}  // namespace

write_counts written_so_far() {
  return {number_in("/proc/self/io", "syscw:"), number_in("/proc/self/io", "wchar:")};
}

std::uint64_t resident_bytes() { return 1024 * number_in("/proc/self/status", "VmRSS:"); }

std::uint64_t peak_resident_bytes() { return 1024 * number_in("/proc/self/status", "VmHWM:"); }

void limit_memory() {
  constexpr rlim_t most = rlim_t{8} << 30;
  const rlimit limit = {most, most};
  setrlimit(RLIMIT_AS, &limit);
}

std::string file_system_of(const std::string& folder) {
  struct statfs about;
  if (statfs(folder.c_str(), &about) != 0) {
    return "unknown file system";
  }
  switch (about.f_type) {
    case TMPFS_MAGIC:
      return "tmpfs";
    case EXT4_SUPER_MAGIC:
      return "ext4";
    case OVERLAYFS_SUPER_MAGIC:
      return "overlayfs";
    case BTRFS_SUPER_MAGIC:
      return "btrfs";
    case XFS_SUPER_MAGIC:
      return "xfs";
    default:
      return "file system " + std::to_string(about.f_type);
  }
}

}  // namespace bench
