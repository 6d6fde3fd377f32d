#include "record_groups.h"

#include <map>

namespace examples {

std::vector<record_group> group_records(const csv_table& table) {
  std::vector<record_group> groups;
  std::map<std::u16string, std::size_t> places;
  for (std::size_t i = 0; i < table.records.size(); ++i) {
    const std::u16string& name = table.records[i][0];
    const auto [place, is_new] = places.emplace(name, groups.size());
    if (is_new) groups.push_back({name, {}});
    groups[place->second].records.push_back(i);
  }
  return groups;
}

}  // namespace examples
