#include "content_model.h"

#include <map>
#include <set>
#include <sstream>
#include <stdexcept>

namespace test::content_model {

namespace {

// All names in the order of their numbers. Those in capitals are elements that
// Strict lacks.
const char rows[] =
    "ROOT a abbr acronym address APPLET area b base BASEFONT bdo big blockquote body br button "
    "caption CENTER cite code col colgroup dd del dfn DIR div dl dt em fieldset FONT form FRAME "
    "FRAMESET h1 h2 h3 h4 h5 h6 head hr html i IFRAME img input ins ISINDEX kbd label legend li "
    "link map MENU meta NOFRAMES noscript object ol optgroup option p param pre q S samp script "
    "select small span STRIKE strong style sub sup table tbody td textarea tfoot th thead title "
    "tr tt U ul var INVALID";

struct family {
  const char* members;
  std::uint32_t category;  // 1 block, 2 inline, 0 neither
  std::uint32_t content;   // 1 blocks, 2 inline elements and text, 4 text
  const char* named;
  const char* excluded;
};

const family families[] = {
    {"area base col link meta param", 0, 0, "", ""},
    {"head", 0, 0, "base link meta script style title", ""},
    {"html", 0, 0, "body head", ""},
    {"colgroup", 0, 0, "col", ""},
    {"optgroup", 0, 0, "option", ""},
    {"tr", 0, 0, "td th", ""},
    {"tbody tfoot thead", 0, 0, "tr", ""},
    {"body", 0, 1, "del ins script", ""},
    {"caption dt legend", 0, 2, "", ""},
    {"dd del ins li td th", 0, 3, "", ""},
    {"option style title", 0, 4, "", ""},
    {"hr", 1, 0, "", ""},
    {"table", 1, 0, "caption col colgroup tbody tfoot thead tr", ""},
    {"dl", 1, 0, "dd dt", ""},
    {"ol ul", 1, 0, "li", ""},
    {"blockquote", 1, 1, "script", ""},
    {"h1 h2 h3 h4 h5 h6 p", 1, 2, "", ""},
    {"pre", 1, 2, "", "big img object small sub sup"},
    {"address", 1, 2, "p", ""},
    {"div noscript", 1, 3, "", ""},
    {"form", 1, 3, "", "form"},
    {"ROOT", 1, 3, "html", ""},
    {"fieldset", 1, 3, "legend", ""},
    {"br img input", 2, 0, "", ""},
    {"select", 2, 0, "optgroup option", ""},
    {"map", 2, 1, "area", ""},
    {"abbr acronym b bdo big cite code dfn em i kbd q samp small span strong sub sup tt var", 2, 2,
     "", ""},
    {"a", 2, 2, "", "a"},
    {"label", 2, 2, "", "label"},
    {"button", 2, 3, "", "a button fieldset form input label select textarea"},
    {"object", 2, 3, "param", ""},
    {"script textarea", 2, 4, "", ""},
    // What can't be used keeps the two numbers of the row before it.
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
    for (const family& f : families)
      for (const std::string& member : words(f.members))
        if (!by_name
                 .insert(
                     {member, {member, f.category, f.content, words(f.named), words(f.excluded)}})
                 .second)
          throw std::logic_error(member + " stands in two families");
    std::map<int, rule> by_number;
    std::istringstream stream(rows);
    for (std::string name; stream >> name;)
      by_number.insert({static_cast<int>(by_number.size()), by_name.at(name)});
    if (by_number.size() != row_count + 1) throw std::logic_error("a row is missing");
    return by_number;
  }();
  return rules.at(number);
}

bool is_usable(const rule& r) { return r.name == "ROOT" || (r.name[0] >= 'a' && r.name[0] <= 'z'); }

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
