#include "bench/page_file.h"

#include <cstdio>

namespace bench {

bool write_page(const std::u16string& page, const std::string& path) {
  std::FILE* const file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) {
    return false;
  }
  const std::u16string whole = u'\uFEFF' + page;
  const bool written =
      std::fwrite(whole.data(), sizeof(char16_t), whole.size(), file) == whole.size();
  return std::fclose(file) == 0 && written;
}

}  // namespace bench
