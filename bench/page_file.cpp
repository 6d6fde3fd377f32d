#include "bench/page_file.h"

#include <cstddef>
#include <cstdio>

#include "tests/support/utf8.h"

namespace bench {

bool write_page(std::u16string_view page, const std::string& path) {
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  const std::u16string whole = u'\uFEFF' + std::u16string(page);
  const bool written =
      std::fwrite(whole.data(), sizeof(char16_t), whole.size(), file) == whole.size();
  return std::fclose(file) == 0 && written;
}

bool same_bytes(const std::string& first, const std::string& second) {
  const std::string bytes = test::bytes_of(first);
  return !bytes.empty() && bytes == test::bytes_of(second);
}

std::uint64_t tree_fingerprint(const std::string& path) {
  const std::string bytes = test::bytes_of(path);
  if (!bytes.starts_with("\xFF\xFE") || bytes.size() % 2 != 0) return 0;
  std::u16string page;
  page.reserve(bytes.size() / 2);
  for (const char16_t unit : test::file_units(bytes).substr(1)) {
    if (unit == u' ' || unit == u'\n' || unit == u'\t') continue;
    page += unit == u'"' ? u'\'' : unit;
    if (page.ends_with(u"<p/>")) page.replace(page.size() - 2, 2, u"></p>");
  }
  // FNV-1a, over units.
  std::uint64_t hash = 14695981039346656037u;
  for (const char16_t unit : page) hash = (hash ^ unit) * 1099511628211u;
  return hash;
}

}  // namespace bench
