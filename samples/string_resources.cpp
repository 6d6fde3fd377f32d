#include "samples/string_resources.h"

#include <cstddef>

namespace samples {

namespace {

constexpr std::size_t longest_text = 255;

#if VELLOMARK_SAMPLE_STRINGS
constexpr string_entry string_table[] = {
    {101, u"Header from the string table"},
    {102, u"Header of the changed page"},
};
#else
constexpr std::span<const string_entry> string_table;
#endif

}  // namespace

Xport::ustring_view find_string(std::span<const string_entry> table, std::uint32_t number) {
  for (const string_entry& entry : table) {
    if (entry.number != number) continue;
    const Xport::ustring_view text = entry.text.substr(0, longest_text);
    return text.substr(0, text.find(u'\0'));
  }
  return {};
}

Xport::ustring_view string_resource(std::uint32_t number) {
  return find_string(string_table, number);
}

}  // namespace samples
