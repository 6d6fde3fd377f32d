#ifndef EXAMPLES_MEASUREMENT_REPORT_IMAGE_H
#define EXAMPLES_MEASUREMENT_REPORT_IMAGE_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace measurement_report {

/// A colour by its red, green and blue components.
struct color {
  std::uint8_t red;
  std::uint8_t green;
  std::uint8_t blue;
  friend bool operator==(const color&, const color&) = default;
};

/// A picture of a fixed size in pixels. Its upper left corner is (0, 0). Drawing is clipped to the
/// picture.
class image {
 public:
  /// A picture of one colour; both sizes must be above 0.
  image(int width, int height, color background);

  int width() const { return width_; }
  int height() const { return height_; }

  /// The colour of a pixel, which must be inside the picture.
  color at(int x, int y) const { return pixels_[place(x, y)]; }

  /// Fills the rectangle with the upper left corner (x, y). A size of 0 or less
  /// draws nothing.
  void fill(int x, int y, int width, int height, color paint);

  /// Writes digits, "-" and "." with (x, y) as the upper left corner; any other
  /// character leaves a blank.
  void write(int x, int y, std::string_view text, color paint);

  /// The size of a text that `write` draws.
  static int text_width(std::string_view text);
  static int text_height();

 private:
  std::size_t place(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
           static_cast<std::size_t>(x);
  }

  int width_;
  int height_;
  std::vector<color> pixels_;
};

}  // namespace measurement_report

#endif
