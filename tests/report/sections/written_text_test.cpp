#include "report/written_text.h"

#include <random>
#include <string>

#include "tests/support/golden.h"
#include "tests/support/text.h"
#include "xport/markup/xhtml_element.h"
#include "xport/text/char16.h"

namespace test {
namespace {

using report::ElementPlainText;

xhtml_element line(const ustring& text) {
  xhtml_element element(tag_id::a, u"", u"");
  element.append_text(text);
  return element;
}

// Cuts by the rule's own steps: positions into one text, from which tags are erased.
// The search for ">" always starts at the beginning.
ustring cut(ustring text) {
  std::size_t start = 0;
  while (true) {
    const std::size_t open = text.find(u'<', start);
    const std::size_t close = text.find(u'>', 0);
    const bool both = open != ustring::npos && close != ustring::npos;
    if (both && close > open) {
      text.erase(open, close - open + 1);
      continue;
    }
    start += open + 1;
    if (!both) return text;
  }
}

TEST(ElementPlainText, LineIsItsText) {
  EXPECT_TRUE(same_units(ElementPlainText(line(u"C:\\charts\\a.tmp")), u"C:\\charts\\a.tmp"));
  EXPECT_TRUE(same_units(ElementPlainText(line(u"")), u""));
}

TEST(ElementPlainText, ReferencesStay) {
  EXPECT_TRUE(same_units(ElementPlainText(line(u"a&amp;b &#65;")), u"a&amp;b &#65;"));
}

TEST(ElementPlainText, TagsInTheTextAreCut) {
  EXPECT_TRUE(same_units(ElementPlainText(line(u"a<b>c</b>d")), u"acd"));
}

// The end tag of the line stays too, as nothing is cut after a lone ">".
TEST(ElementPlainText, LoneEndEndsTheCutting) {
  EXPECT_TRUE(same_units(ElementPlainText(line(u"a>b<i>c")), u"a>b<i>c</a>"));
}

TEST(ElementPlainText, LoneBeginningCutsWhatFollowsItToTheEndTag) {
  EXPECT_TRUE(same_units(ElementPlainText(line(u"a<b")), u"a"));
}

TEST(ElementPlainText, NestedElementsAreCut) {
  xhtml_element element = line(u"one ");
  xhtml_element inner(tag_id::b, u"id", u"class");
  inner.append_text(u"two");
  element.append_copy(inner);
  EXPECT_TRUE(same_units(ElementPlainText(element), u"one two"));
}

// The writer breaks the line after `br` and around `img`.
TEST(ElementPlainText, EmptyElementsLeaveTheirLineEnds) {
  EXPECT_TRUE(same_units(ElementPlainText(xhtml_element(tag_id::br, u"", u"")), u"\n"));
}

TEST(ElementPlainText, LongTextIsNotWrapped) {
  const ustring text = ustring(3000, u'x') + u' ' + ustring(3000, u'y');
  EXPECT_TRUE(same_units(ElementPlainText(line(text)), text));
}

TEST(ElementPlainText, RandomTextsAreCutByTheRule) {
  const ustring units = u"<>a/\n";
  for (std::mt19937::result_type seed = 1; seed <= 20000; ++seed) {
    std::mt19937 source(seed);
    ustring text(source() % 16, u'a');
    for (char16_t& unit : text) unit = units[source() % units.size()];
    const xhtml_element element = line(text);
    ASSERT_TRUE(same_units(ElementPlainText(element), cut(written(element))))
        << "text " << printable(text);
  }
}

// A start tag may itself have a ">" in a value.
TEST(ElementPlainText, RandomValuesAreCutByTheRule) {
  const ustring units = u"<>a/\n";
  for (std::mt19937::result_type seed = 1; seed <= 20000; ++seed) {
    std::mt19937 source(seed);
    ustring value(source() % 8, u'a');
    for (char16_t& unit : value) unit = units[source() % units.size()];
    xhtml_element element = line(u"t");
    element.set_attribute(attr_id::href, value);
    ASSERT_TRUE(same_units(ElementPlainText(element), cut(written(element))))
        << "value " << printable(value);
  }
}

}  // namespace
}  // namespace test
