#ifndef BENCH_PAGE_FILE_H
#define BENCH_PAGE_FILE_H

#include <string>

namespace bench {

/// Writes the file `path`: a byte-order mark and the units as they lie in memory, as this is
/// for little-endian machines like the benchmark as a whole. False if that failed.
bool write_page(const std::u16string& page, const std::string& path);

}  // namespace bench

#endif
