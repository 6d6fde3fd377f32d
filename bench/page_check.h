#ifndef BENCH_PAGE_CHECK_H
#define BENCH_PAGE_CHECK_H

#include <cstdint>
#include <string>

namespace bench {

/// Whether both files can be read and hold the same bytes, at least one of them.
bool same_bytes(const std::string& first, const std::string& second);

/// A number that is equal for two pages of the same tree, whatever their layout:
/// a hash of the page without white space, with one kind of quote, and with an
/// empty `p` always written with two tags. 0 if the file can't be read or isn't
/// UTF-16LE with a mark.
std::uint64_t tree_fingerprint(const std::string& path);

}  // namespace bench

#endif
