#include "template_page.h"

#include <fstream>
#include <stdexcept>

#include "../support/host.h"
#include "../support/unicode.h"

namespace template_report {
namespace {

std::u16string read_page(const std::string& path) {
  try {
    return examples::to_utf16(examples::read_file(path));
  } catch (const examples::invalid_utf8& error) {
    throw std::runtime_error(path + ": byte " + std::to_string(error.offset() + 1) +
                             " is where it stops being UTF-8");
  }
}

}  // namespace

void write_template_page(const std::string& source, const std::filesystem::path& target) {
  std::string bytes = "\xFF\xFE";
  for (const char16_t unit : read_page(source)) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>(unit >> 8);
  }
  std::ofstream file(target, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + target.string());
}

}  // namespace template_report
