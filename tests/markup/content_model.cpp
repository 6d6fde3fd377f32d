#include "tests/markup/content_model.h"

#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

#include "tests/support/content_rows.h"

namespace test::content_model {

namespace {

// All names in the order of their numbers. Those in capitals are elements that
// Strict lacks.
const char rows[] =
    "doc_root a abbr acronym address APPLET area b base BASEFONT bdo big blockquote body br button "
    "caption CENTER cite code col colgroup dd del dfn DIR div dl dt em fieldset FONT form FRAME "
    "FRAMESET h1 h2 h3 h4 h5 h6 head hr html i IFRAME img input ins ISINDEX kbd label legend li "
    "link map MENU meta NOFRAMES noscript object ol optgroup option p param pre q S samp script "
    "select small span STRIKE strong style sub sup table tbody td textarea tfoot th thead title "
    "tr tt U ul var INVALID";

// What can't be used keeps the two numbers of the row before it.
const content_row unusable_rows[] = {
    {"APPLET", 1, 2, "", ""},
    {"BASEFONT NOFRAMES INVALID", 0, 0, "", ""},
    {"CENTER", 0, 2, "", ""},
    {"DIR IFRAME S STRIKE U", 2, 2, "", ""},
    {"FONT FRAME FRAMESET", 1, 3, "", ""},
    {"ISINDEX", 0, 3, "", ""},
    {"MENU", 2, 1, "", ""},
};

struct rule {
  std::string name;
  std::uint32_t category;
  std::uint32_t content;
  std::set<std::string> named;
  std::set<std::string> excluded;
};

std::set<std::string> words(const char* text) {
  std::istringstream stream(text);
  std::set<std::string> found;
  for (std::string word; stream >> word;) found.insert(word);
  return found;
}

const rule& rule_of(int number) {
  static const auto rules = [] {
    std::map<std::string, rule> by_name;
    const auto add = [&by_name](const content_row& row) {
      for (const std::string& member : words(row.elements))
        if (!by_name
                 .insert({member,
                          {member, row.category_flags, row.content_flags,
                           words(row.allowed_children), words(row.excluded_children)}})
                 .second)
          throw std::logic_error(member + " stands in two rows");
    };
    for (const content_row& row : content_rows) add(row);
    for (const content_row& row : unusable_rows) add(row);
    std::map<int, rule> by_number;
    std::istringstream stream(rows);
    for (std::string name; stream >> name;)
      by_number.insert({static_cast<int>(by_number.size()), by_name.at(name)});
    if (by_number.size() != row_count + 1) throw std::logic_error("a row is missing");
    return by_number;
  }();
  return rules.at(number);
}

bool is_usable(const rule& r) { return r.name[0] >= 'a' && r.name[0] <= 'z'; }

}  // namespace

bool takes_element(int parent, int child) {
  const rule& outer = rule_of(parent);
  const rule& inner = rule_of(child);
  if (!is_usable(inner)) return false;
  const bool by_block = inner.category == 1 && (outer.content == 1 || outer.content == 3);
  const bool by_inline = inner.category == 2 && (outer.content == 2 || outer.content == 3);
  if (by_block || by_inline) return outer.excluded.count(inner.name) == 0;
  return outer.named.count(inner.name) != 0;
}

bool takes_text(int parent) { return rule_of(parent).content >= 2; }

bool takes_nothing(int parent) {
  return rule_of(parent).content == 0 && rule_of(parent).named.empty();
}

std::string name_of(int number) {
  if (number == 0) return "document root";
  if (number == 92) return "invalid tag";
  return is_usable(rule_of(number)) ? rule_of(number).name : std::string();
}

}  // namespace test::content_model
