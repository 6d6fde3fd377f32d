#include "bench/reading/page_blocks.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <utility>

#include "tests/support/utf8.h"

namespace bench {

namespace {

/// Most bytes that one unit becomes.
constexpr std::size_t growth = 3;

/// Converts blocks. A pair of surrogates may be cut between two of them.
class narrowing {
 public:
  explicit narrowing(char* out) : out_(out) {}

  void put(std::u16string_view units) {
    for (const char16_t unit : units) {
      if (unit < 0x80 && high_ == 0) {
        *out_++ = static_cast<char>(unit);
      } else {
        put_wide(unit);
      }
    }
  }

  char* finish() {
    if (high_ != 0) out_ = test::put_utf8(replacement, out_);
    return out_;
  }

 private:
  static constexpr char32_t replacement = 0xFFFD;

  void put_wide(char16_t unit) {
    const bool low = test::is_low_surrogate(unit);
    const char32_t high = std::exchange(high_, 0);
    if (high != 0 && low) {
      out_ = test::put_utf8(0x10000 + ((high & 0x3FFu) << 10 | (unit & 0x3FFu)), out_);
      return;
    }
    if (high != 0) out_ = test::put_utf8(replacement, out_);
    if (test::is_high_surrogate(unit)) {
      high_ = unit;
    } else {
      out_ = test::put_utf8(low ? replacement : char32_t{unit}, out_);
    }
  }

  char* out_;
  char32_t high_ = 0;  // a high surrogate that waits for its other half
};

}  // namespace

page_blocks::page_blocks(const std::string& path) : file_(open(path.c_str(), O_RDONLY)) {}

page_blocks::~page_blocks() {
  if (file_ >= 0) ::close(file_);
}

std::size_t page_blocks::size() const {
  struct stat about;
  return fstat(file_, &about) == 0 ? static_cast<std::size_t>(about.st_size) : 0;
}

std::u16string_view page_blocks::next() {
  // A file on a disk fills the whole block, so a unit is never cut.
  const ssize_t got = ::read(file_, block_, sizeof block_);
  return {block_, got > 0 ? static_cast<std::size_t>(got) / sizeof(char16_t) : 0};
}

narrow_page read_narrow_page(const std::string& path) {
  page_blocks file(path);
  if (!file.opened()) return {};
  // Room for the worst case. Memory that isn't written to costs nothing.
  narrow_page page;
  page.bytes.reset(static_cast<char*>(std::malloc(file.size() / sizeof(char16_t) * growth + 1)));
  if (page.bytes == nullptr) return {};
  narrowing out(page.bytes.get());
  bool at_front = true;
  for (std::u16string_view block = file.next(); !block.empty(); block = file.next()) {
    if (at_front && block.front() == u'\uFEFF') block.remove_prefix(1);
    at_front = false;
    out.put(block);
  }
  char* const end = out.finish();
  *end = '\0';
  page.size = static_cast<std::size_t>(end - page.bytes.get());
  // Frees the unused part, so that it doesn't count as memory of the tree.
  if (void* const shorter = std::realloc(page.bytes.get(), page.size + 1); shorter != nullptr) {
    static_cast<void>(page.bytes.release());
    page.bytes.reset(static_cast<char*>(shorter));
  }
  return page;
}

}  // namespace bench
