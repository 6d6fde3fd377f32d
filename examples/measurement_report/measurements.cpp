#include "measurements.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <map>
#include <stdexcept>
#include <system_error>

namespace measurement_report {

using examples::csv_record;
using examples::csv_table;

namespace {

constexpr std::size_t columns_after_path = 3;  // name, label, value
constexpr double limit = 1e12;

[[noreturn]] void refuse(std::size_t record, const std::string& problem) {
  throw std::runtime_error("row " + std::to_string(record + 1) + " after the header " + problem);
}

double to_number(const std::u16string& text, std::size_t record) {
  std::string digits;
  for (const char16_t unit : text) digits += unit < 0x80 ? static_cast<char>(unit) : '?';
  double value = 0;
  const char* const end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, value, std::chars_format::fixed);
  if (error != std::errc() || stop != end || !(std::abs(value) < limit))
    refuse(record, "has no number below 1e12 as its value");
  return value;
}

}  // namespace

measurement_table group_measurements(const csv_table& table) {
  const std::size_t depth = table.header.size() - columns_after_path;
  const auto name_of = [depth](const csv_record& record) {
    return record.begin() + static_cast<std::ptrdiff_t>(depth);
  };
  measurement_table result;
  result.path_titles.assign(table.header.begin(), name_of(table.header));
  result.name_title = table.header[depth];
  result.label_title = table.header[depth + 1];
  result.value_title = table.header[depth + 2];

  std::map<csv_record, std::size_t> places;
  for (std::size_t i = 0; i < table.records.size(); ++i) {
    const csv_record& record = table.records[i];
    const csv_record key(record.begin(), name_of(record) + 1);
    if (std::any_of(key.begin(), key.end(), [](const auto& field) { return field.empty(); }))
      refuse(i, "does not name its group");
    const auto [place, is_new] = places.emplace(key, result.groups.size());
    if (is_new) result.groups.push_back({{key.begin(), key.end() - 1}, key.back(), {}});
    result.groups[place->second].measurements.push_back(
        {record[depth + 1], record[depth + 2], to_number(record[depth + 2], i)});
  }
  return result;
}

}  // namespace measurement_report
