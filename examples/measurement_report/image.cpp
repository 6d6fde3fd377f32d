#include "image.h"

#include <algorithm>
#include <array>

namespace measurement_report {
namespace {

// A glyph has three columns and five rows of dots, and a column between it and the next one.
constexpr int glyph_columns = 3;
constexpr int glyph_rows = 5;
constexpr int dot = 2;  // pixels on each side

using glyph = std::array<std::uint8_t, glyph_rows>;  // the lowest bit is the right column

glyph glyph_of(char character) {
  static constexpr std::array<glyph, 10> digits = {{{7, 5, 5, 5, 7},
                                                    {2, 6, 2, 2, 7},
                                                    {7, 1, 7, 4, 7},
                                                    {7, 1, 7, 1, 7},
                                                    {5, 5, 7, 1, 1},
                                                    {7, 4, 7, 1, 7},
                                                    {7, 4, 7, 5, 7},
                                                    {7, 1, 1, 1, 1},
                                                    {7, 5, 7, 5, 7},
                                                    {7, 5, 7, 1, 7}}};
  if (character >= '0' && character <= '9')
    return digits[static_cast<std::size_t>(character - '0')];
  if (character == '-') return {0, 0, 7, 0, 0};
  if (character == '.') return {0, 0, 0, 0, 2};
  return {};
}

}  // namespace

image::image(int width, int height, color background)
    : width_(width),
      height_(height),
      pixels_(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), background) {}

void image::fill(int x, int y, int width, int height, color paint) {
  const int left = std::max(x, 0);
  const int right = std::min(x + width, width_);
  const int bottom = std::min(y + height, height_);
  if (left >= right) return;
  for (int row = std::max(y, 0); row < bottom; ++row)
    std::fill_n(pixels_.begin() + static_cast<std::ptrdiff_t>(place(left, row)), right - left,
                paint);
}

void image::write(int x, int y, std::string_view text, color paint) {
  for (const char character : text) {
    const glyph dots = glyph_of(character);
    for (int row = 0; row < glyph_rows; ++row) {
      for (int column = 0; column < glyph_columns; ++column) {
        const int bit = glyph_columns - 1 - column;
        if ((dots[static_cast<std::size_t>(row)] >> bit & 1) != 0)
          fill(x + column * dot, y + row * dot, dot, dot, paint);
      }
    }
    x += (glyph_columns + 1) * dot;
  }
}

int image::text_width(std::string_view text) {
  return static_cast<int>(text.size()) * (glyph_columns + 1) * dot - (text.empty() ? 0 : dot);
}

int image::text_height() { return glyph_rows * dot; }

}  // namespace measurement_report
