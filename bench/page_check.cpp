#include "bench/page_check.h"

#include <cstddef>
#include <fstream>
#include <iterator>
#include <string_view>

namespace bench {

namespace {

std::string file_bytes(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool ends_with(const std::u16string& text, std::u16string_view end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

}  // namespace

bool same_bytes(const std::string& first, const std::string& second) {
  const std::string bytes = file_bytes(first);
  return !bytes.empty() && bytes == file_bytes(second);
}

std::uint64_t tree_fingerprint(const std::string& path) {
  const std::string bytes = file_bytes(path);
  if (bytes.size() < 2 || bytes.size() % 2 != 0 || bytes.compare(0, 2, "\xFF\xFE") != 0) {
    return 0;
  }
  std::u16string page;
  page.reserve(bytes.size() / 2);
  for (std::size_t at = 2; at < bytes.size(); at += 2) {
    const auto low = static_cast<unsigned char>(bytes[at]);
    const auto high = static_cast<unsigned char>(bytes[at + 1]);
    const auto unit = static_cast<char16_t>(high << 8 | low);
    if (unit == u' ' || unit == u'\n') {
      continue;
    }
    page += unit == u'"' ? u'\'' : unit;
    if (ends_with(page, u"<p/>")) {
      page.replace(page.size() - 2, 2, u"></p>");
    }
  }
  // FNV-1a, over units.
  std::uint64_t hash = 14695981039346656037u;
  for (const char16_t unit : page) {
    hash = (hash ^ unit) * 1099511628211u;
  }
  return hash;
}

}  // namespace bench
