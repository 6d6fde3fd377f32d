#include "bmp_file.h"

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <stdexcept>

namespace measurement_report {
namespace {

// Appends a number, the lowest byte first.
void append(std::string& bytes, std::uint32_t number, int size) {
  for (int i = 0; i < size; ++i) bytes += static_cast<char>(number >> (8 * i) & 0xFF);
}

}  // namespace

std::string to_bmp(const image& picture) {
  constexpr std::uint32_t file_header = 14;
  constexpr std::uint32_t image_header = 40;
  constexpr std::uint32_t headers = file_header + image_header;
  constexpr std::uint32_t dots_per_metre = 3780;  // 96 in an inch
  const auto width = static_cast<std::uint32_t>(picture.width());
  const auto height = static_cast<std::uint32_t>(picture.height());
  const std::uint32_t row_size = (width * 3 + 3) / 4 * 4;  // rows end at multiples of four
  const std::uint32_t pixels_size = row_size * height;

  std::string bytes = "BM";
  bytes.reserve(headers + pixels_size);
  append(bytes, headers + pixels_size, 4);
  append(bytes, 0, 4);  // reserved
  append(bytes, headers, 4);

  append(bytes, image_header, 4);
  append(bytes, width, 4);
  append(bytes, height, 4);
  append(bytes, 1, 2);   // planes
  append(bytes, 24, 2);  // bits for a pixel
  append(bytes, 0, 4);   // not compressed
  append(bytes, pixels_size, 4);
  append(bytes, dots_per_metre, 4);
  append(bytes, dots_per_metre, 4);
  append(bytes, 0, 4);  // no palette
  append(bytes, 0, 4);

  for (int y = picture.height() - 1; y >= 0; --y) {
    for (int x = 0; x < picture.width(); ++x) {
      const color pixel = picture.at(x, y);
      append(bytes, pixel.blue, 1);
      append(bytes, pixel.green, 1);
      append(bytes, pixel.red, 1);
    }
    bytes.append(row_size - width * 3, '\0');
  }
  return bytes;
}

void write_bmp(const std::filesystem::path& path, const image& picture) {
  const std::string bytes = to_bmp(picture);
  std::ofstream file(path, std::ios::binary);
  file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write the picture " + path.string());
}

}  // namespace measurement_report
