#include "bench/reading/narrow_page.h"

#include "bench/reading/block_input.h"

namespace bench {

namespace {

/// Most bytes that one unit becomes.
constexpr std::size_t growth = 3;

char* put_code_point(char* out, char32_t point) {
  const auto byte = [](char32_t bits) { return static_cast<char>(static_cast<unsigned>(bits)); };
  if (point < 0x800) {
    *out++ = byte(0xC0 | point >> 6);
  } else {
    if (point < 0x10000) {
      *out++ = byte(0xE0 | point >> 12);
    } else {
      *out++ = byte(0xF0 | point >> 18);
      *out++ = byte(0x80 | (point >> 12 & 0x3F));
    }
    *out++ = byte(0x80 | (point >> 6 & 0x3F));
  }
  *out++ = byte(0x80 | (point & 0x3F));
  return out;
}

/// Converts blocks, with a pair of surrogates that is cut between two of them.
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
    if (high_ != 0) out_ = put_code_point(out_, replacement);
    return out_;
  }

 private:
  static constexpr char32_t replacement = 0xFFFD;

  void put_wide(char16_t unit) {
    const bool low = unit >= 0xDC00 && unit < 0xE000;
    if (high_ != 0 && low) {
      out_ = put_code_point(out_, 0x10000 + ((high_ & 0x3FFu) << 10 | (unit & 0x3FFu)));
      high_ = 0;
      return;
    }
    if (high_ != 0) out_ = put_code_point(out_, replacement);
    high_ = 0;
    if (unit >= 0xD800 && unit < 0xDC00) {
      high_ = unit;
    } else if (unit < 0x80) {
      *out_++ = static_cast<char>(unit);
    } else {
      out_ = put_code_point(out_, low ? replacement : char32_t{unit});
    }
  }

  char* out_;
  char32_t high_ = 0;  // a high surrogate that waits for its other half
};

}  // namespace

narrow_page read_narrow_page(const std::string& path) {
  block_input file(path);
  if (!file.opened()) {
    return {};
  }
  // Room for the worst, without touching it: memory that isn't written to costs nothing.
  narrow_page page;
  page.bytes.reset(static_cast<char*>(std::malloc(file.size() / sizeof(char16_t) * growth + 1)));
  if (page.bytes == nullptr) {
    return {};
  }
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
  // What isn't used goes back, so that it doesn't count as memory of the tree.
  if (void* const shorter = std::realloc(page.bytes.get(), page.size + 1); shorter != nullptr) {
    static_cast<void>(page.bytes.release());
    page.bytes.reset(static_cast<char*>(shorter));
  }
  return page;
}

}  // namespace bench
