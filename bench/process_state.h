#ifndef BENCH_PROCESS_STATE_H
#define BENCH_PROCESS_STATE_H

#include <cstdint>
#include <string>

namespace bench {

/// What the kernel knows of this process. A value that can't be read is 0.
struct write_counts {
  std::uint64_t calls;  ///< of write and its kin, from whatever library
  std::uint64_t bytes;
};
write_counts written_so_far();

/// Memory that is resident now, and the most that ever was, in bytes.
std::uint64_t resident_bytes();
std::uint64_t peak_resident_bytes();

/// Limits the address space of this process to 8 GiB, so that a run that goes astray ends itself
/// and not the machine. For child processes.
void limit_memory();

/// "tmpfs" and the like: the kind of file system that `folder` is on, or its
/// magic number if the kind isn't known here.
std::string file_system_of(const std::string& folder);

}  // namespace bench

#endif
