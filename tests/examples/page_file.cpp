#include "tests/examples/page_file.h"

#include <stdlib.h>

#include <cerrno>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <system_error>

namespace examples_test {
namespace {

void append_utf8(std::string& text, char32_t number) {
  const auto add = [&text](char32_t byte) { text += static_cast<char>(byte); };
  if (number < 0x80) {
    add(number);
    return;
  }
  if (number < 0x800) {
    add(0xC0 | number >> 6);
  } else {
    if (number < 0x10000) {
      add(0xE0 | number >> 12);
    } else {
      add(0xF0 | number >> 18);
      add(0x80 | (number >> 12 & 0x3F));
    }
    add(0x80 | (number >> 6 & 0x3F));
  }
  add(0x80 | (number & 0x3F));
}

}  // namespace

scratch_folder::scratch_folder() {
  std::string name = (std::filesystem::temp_directory_path() / "vellomark-XXXXXX").string();
  if (::mkdtemp(name.data()) == nullptr)
    throw std::system_error(errno, std::generic_category(), name);
  path_ = name;
}

scratch_folder::~scratch_folder() {
  std::error_code ignored;
  std::filesystem::remove_all(path_, ignored);
}

std::string read_bytes(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("cannot read " + path.string());
  return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

void write_bytes(const std::filesystem::path& path, std::string_view bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  if (!file.flush()) throw std::runtime_error("cannot write " + path.string());
}

std::string page_as_utf8(const std::filesystem::path& path) {
  const std::string bytes = read_bytes(path);
  if (bytes.size() % 2 != 0) throw std::runtime_error("half a unit at the end of " + path.string());
  if (bytes.compare(0, 2, "\xFF\xFE") != 0)
    throw std::runtime_error("no byte-order mark in " + path.string());
  const auto unit = [&bytes](std::size_t at) -> char32_t {
    if (at >= bytes.size()) return 0;
    return static_cast<unsigned char>(bytes[at]) |
           static_cast<char32_t>(static_cast<unsigned char>(bytes[at + 1])) << 8;
  };
  std::string text;
  for (std::size_t at = 2; at < bytes.size(); at += 2) {
    char32_t number = unit(at);
    if (number >= 0xD800 && number < 0xE000) {
      const char32_t low = unit(at + 2);
      if (number >= 0xDC00 || low < 0xDC00 || low >= 0xE000)
        throw std::runtime_error("a lone surrogate in " + path.string());
      number = 0x10000 + ((number - 0xD800) << 10) + (low - 0xDC00);
      at += 2;
    }
    append_utf8(text, number);
  }
  return text;
}

std::string last_line(const std::string& text) {
  const std::string lines = text.substr(0, text.find_last_not_of('\n') + 1);
  return lines.substr(lines.find_last_of('\n') + 1);
}

}  // namespace examples_test
