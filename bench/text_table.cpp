#include "bench/text_table.h"

#include <cstdio>

namespace bench {

void text_table::print_head() const {
  std::vector<std::string> first;
  std::vector<std::string> second;
  bool has_first = false;
  for (const column& each : columns_) {
    first.push_back(each.first_head);
    second.push_back(each.second_head);
    has_first = has_first || !each.first_head.empty();
  }
  if (has_first) print_row(first);
  print_row(second);
}

void text_table::print_row(const std::vector<std::string>& cells) const {
  for (std::size_t at = 0; at < cells.size(); ++at) {
    const char* const separator = at == 0 ? "" : columns_[at].bar ? " | " : " ";
    std::printf("%s%*s", separator, columns_[at].width, cells[at].c_str());
  }
  std::printf("\n");
  std::fflush(stdout);
}

std::string fixed(double value, int decimals) {
  char text[64];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  return text;
}

std::string grouped(std::size_t number) {
  std::string digits = std::to_string(number);
  for (std::size_t place = digits.size(); place > 3; place -= 3) digits.insert(place - 3, 1, ',');
  return digits;
}

}  // namespace bench
