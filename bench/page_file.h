#ifndef BENCH_PAGE_FILE_H
#define BENCH_PAGE_FILE_H

#include <cstdint>
#include <string>
#include <string_view>

#include "tests/support/temp_folder.h"

namespace bench {

/// Where a page is written: `folder` + "/Vellomark/" + `name`, the place that the library chooses,
/// for everybody. Both folders exist.
struct page_target {
  std::string folder;
  std::string name;

  std::string path() const { return folder + "/Vellomark/" + name; }
};

/// A new folder in `parent` for pages. The destructor deletes it with everything in it. The
/// constructor throws std::system_error if the folder can't be made.
class page_folder {
 public:
  explicit page_folder(const std::string& parent) : folder_(parent) {
    std::filesystem::create_directory(folder_.path() / "Vellomark");
  }

  page_target page(const std::string& name) const { return {folder_.path().string(), name}; }

 private:
  test::temp_folder folder_;
};

/// Writes a byte-order mark and the units as they lie in memory, since the benchmarks are for
/// little-endian machines. False if that failed.
bool write_page(std::u16string_view page, const std::string& path);

/// Whether both files can be read and hold the same bytes, at least one of them.
bool same_bytes(const std::string& first, const std::string& second);

/// A number that is equal for two pages of the same tree, whatever their layout: a hash of the page
/// without white space, with one kind of quote, and with an empty `p` always written with two tags.
/// 0 if the file can't be read or isn't UTF-16LE with a mark.
std::uint64_t tree_fingerprint(const std::string& path);

}  // namespace bench

#endif
