#include "chart.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace measurement_report {
namespace {

constexpr color white{255, 255, 255};
constexpr color grey{216, 216, 216};
constexpr color black{64, 64, 64};
constexpr color blue{66, 114, 170};

constexpr int chart_width = 560;
constexpr int chart_height = 200;
constexpr int margin = 12;
constexpr int gap = 6;  // between a text and its bar or mark

}  // namespace

std::string axis::mark(int number) const {
  char text[32];
  std::snprintf(text, sizeof text, "%.*f", decimals, number * step);
  return text;
}

axis make_axis(double lowest, double highest) {
  lowest = std::min(lowest, 0.0);
  highest = std::max(highest, 0.0);
  // The range takes six steps or fewer, and up to one more at each end.
  const double wanted = std::max((highest - lowest) / 5, 0.001);
  for (int power = -3;; ++power) {
    for (const int factor : {1, 2, 5}) {
      const double step = power < 0 ? factor / std::pow(10, -power) : factor * std::pow(10, power);
      if (step < wanted) continue;
      return {step, static_cast<int>(std::floor(lowest / step)),
              static_cast<int>(std::ceil(highest / step)), std::max(-power, 0)};
    }
  }
}

image draw_chart(const std::vector<double>& values, const axis& scale) {
  image picture(chart_width, chart_height, white);
  const int text = image::text_height();
  const int marks = std::max(scale.last - scale.first, 1);
  const int label_width = std::max(image::text_width(scale.mark(scale.first)),
                                   image::text_width(scale.mark(scale.last)));
  const int left = margin + label_width + gap;
  const int width = chart_width - margin - left;
  const int top = margin;
  const int height = chart_height - margin - text - gap - top;
  const auto level = [&](double value) {
    const double part = (value / scale.step - scale.first) / marks;
    return top + height - static_cast<int>(std::lround(part * height));
  };

  for (int number = scale.first; number <= scale.last; ++number) {
    const int y = level(number * scale.step);
    picture.fill(left, y, width, 1, grey);
    const std::string label = scale.mark(number);
    picture.write(left - gap - image::text_width(label), y - text / 2, label, black);
  }

  const int zero = level(0);
  const int count = static_cast<int>(values.size());
  const auto edge = [&](int i) { return left + static_cast<int>(std::int64_t{width} * i / count); };
  for (int i = 0; i < count; ++i) {
    const int room = edge(i + 1) - edge(i);
    const int space = room / 6;
    const int y = level(values[static_cast<std::size_t>(i)]);
    picture.fill(edge(i) + space, std::min(y, zero), std::max(room - 2 * space, 1),
                 std::abs(y - zero), blue);
    const std::string label = std::to_string(i + 1);
    if (image::text_width(label) + gap <= room) {
      picture.write(edge(i) + (room - image::text_width(label)) / 2, top + height + gap, label,
                    black);
    }
  }
  picture.fill(left, zero, width, 1, black);
  picture.fill(left, top, 1, height + 1, black);
  return picture;
}

}  // namespace measurement_report
