#include "xport/stylesheet/style_attribute.h"

#include <array>
#include <cstddef>
#include <span>

#include "xport/vocabulary/xhtml_strict.h"

namespace Xport {

namespace {

// Reads declarations one after another from a text.
class declaration_reader {
 public:
  declaration_reader(ustring_view text, const character_classes& classes)
      : text_(text), classes_(classes) {}

  // Reads the next declaration; false if there is none.
  bool read(style_map::value_type& declaration) {
    skip_space();
    const ustring_view name = take_until(u':');
    if (text_.empty()) return false;
    text_.remove_prefix(1);
    skip_space();
    declaration = {xhtml_strict::css_property_from_name(name), take_until(u';')};
    return true;
  }

 private:
  void skip_space() {
    while (!text_.empty() && classes_.is_space_or_blank(text_.front())) text_.remove_prefix(1);
  }

  ustring_view take_until(char16 stop) {
    std::size_t size = 0;
    while (size < text_.size() && text_[size] != stop && !classes_.is_space_or_blank(text_[size]))
      ++size;
    const ustring_view taken = text_.substr(0, size);
    text_.remove_prefix(size);
    return taken;
  }

  ustring_view text_;
  const character_classes& classes_;
};

}  // namespace

void parse_style_attribute(xhtml_element& element, ustring_view text,
                           const character_classes& classes) {
  if (element.tag_trait()->get() == nullptr) return;
  style_map& style = *element.style_properties();
  // Store a few at a time: each insertion rebuilds the map.
  std::array<style_map::value_type, style_map::most_additions> read;
  std::size_t count = 0;
  declaration_reader reader(text, classes);
  while (reader.read(read[count])) {
    if (read[count].first == css_property_id::not_found || read[count].second.empty()) continue;
    if (++count < read.size()) continue;
    style.insert_missing(read);
    count = 0;
  }
  style.insert_missing(std::span(read.data(), count));
}

}  // namespace Xport
