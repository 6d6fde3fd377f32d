#include "tests/markup/content_model.h"

#include <map>
#include <set>
#include <sstream>
#include <stdexcept>
#include <vector>

#include "tests/support/vocabulary_numbers.h"

namespace test {
namespace {

// All names in the order of their numbers. Those in capitals are elements that Strict lacks.
const char rows[] =
    "doc_root a abbr acronym address APPLET area b base BASEFONT bdo big blockquote body br button "
    "caption CENTER cite code col colgroup dd del dfn DIR div dl dt em fieldset FONT form FRAME "
    "FRAMESET h1 h2 h3 h4 h5 h6 head hr html i IFRAME img input ins ISINDEX kbd label legend li "
    "link map MENU meta NOFRAMES noscript object ol optgroup option p param pre q S samp script "
    "select small span STRIKE strong style sub sup table tbody td textarea tfoot th thead title "
    "tr tt U ul var INVALID";

const char blocks[] =
    "address blockquote div dl doc_root fieldset form h1 h2 h3 h4 h5 h6 hr noscript ol p pre "
    "table ul";

const char inlines[] =
    "a abbr acronym b bdo big br button cite code dfn em i img input kbd label map object q samp "
    "script select small span strong sub sup textarea tt var";

struct content {
  const char* parents;
  const char* children;  // +block and +inline mean the groups above, -x removes x again
};

const content contents[] = {
    {"area base br col hr img input link meta param", ""},
    {"head", "base link meta script style title"},
    {"html", "body head"},
    {"colgroup", "col"},
    {"optgroup", "option"},
    {"select", "optgroup option"},
    {"table", "caption col colgroup tbody tfoot thead tr"},
    {"tbody tfoot thead", "tr"},
    {"tr", "td th"},
    {"dl", "dd dt"},
    {"ol ul", "li"},
    {"body", "+block del ins script"},
    {"blockquote", "+block script"},
    {"map", "+block area"},
    {"option script style textarea title", "+text"},
    {"abbr acronym b bdo big caption cite code dfn dt em h1 h2 h3 h4 h5 h6 i kbd legend p q samp "
     "small span strong sub sup tt var",
     "+text +inline"},
    {"a", "+text +inline -a"},
    {"address", "+text +inline p"},
    {"label", "+text +inline -label"},
    {"pre", "+text +inline -big -img -object -small -sub -sup"},
    {"dd del div ins li noscript td th", "+text +block +inline"},
    {"button", "+text +block +inline -a -button -fieldset -form -input -label -select -textarea"},
    {"doc_root", "+text +block +inline html"},
    {"fieldset", "+text +block +inline legend"},
    {"form", "+text +block +inline -form"},
    {"object", "+text +block +inline param"},
    // What can't be used admits by category what the row before it does.
    {"BASEFONT INVALID NOFRAMES", ""},
    {"MENU", "+block"},
    {"APPLET CENTER DIR IFRAME S STRIKE U", "+text +inline"},
    {"FONT FRAME FRAMESET ISINDEX", "+text +block +inline"},
};

using names = std::set<std::string>;

std::vector<std::string> words(const char* text) {
  std::istringstream stream(text);
  std::vector<std::string> found;
  for (std::string word; stream >> word;) found.push_back(word);
  return found;
}

names children_of(const char* text) {
  names found;
  for (const std::string& word : words(text)) {
    if (word == "+block" || word == "+inline")
      for (const std::string& name : words(word == "+block" ? blocks : inlines)) found.insert(name);
    else if (word[0] == '-')
      found.erase(word.substr(1));
    else
      found.insert(word);
  }
  return found;
}

const std::vector<std::string>& row_names() {
  static const std::vector<std::string> all = words(rows);
  return all;
}

const names& children(int parent) {
  static const auto by_name = [] {
    std::map<std::string, names> all;
    for (const content& row : contents)
      for (const std::string& name : words(row.parents))
        if (!all.insert({name, children_of(row.children)}).second)
          throw std::logic_error(name + " stands in two rows");
    if (all.size() != invalid_number + 1) throw std::logic_error("a row is missing");
    return all;
  }();
  return by_name.at(row_names().at(static_cast<std::size_t>(parent)));
}

}  // namespace

bool may_contain(int parent, int child) {
  return children(parent).count(row_names().at(static_cast<std::size_t>(child))) != 0;
}

bool may_contain_text(int parent) { return children(parent).count("+text") != 0; }

bool may_contain_nothing(int parent) { return children(parent).empty(); }

std::string row_name(int number) {
  if (number == 0) return "document root";
  if (number == invalid_number) return "invalid tag";
  const std::string& name = row_names().at(static_cast<std::size_t>(number));
  return name[0] >= 'a' && name[0] <= 'z' ? name : std::string();
}

}  // namespace test
