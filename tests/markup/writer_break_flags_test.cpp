#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

#include "tests/markup/writer_kit.h"
#include "tests/support/vocabulary_numbers.h"
#include "xport/markup/xhtml_writer.h"

namespace test {
namespace {

// One letter for each element by number, in groups of ten: I inline, B block, P
// preformatted, R `br`. Written down from the classes of the elements.
constexpr char classes[] =
    "BIIIBIBIBI"  // doc root a abbr acronym address applet area b base basefont
    "IIBBRIBBII"  // bdo big blockquote body br button caption center cite code
    "BBBIIBBBBI"  // col colgroup dd del dfn dir div dl dt em
    "BIBBBBBBBB"  // fieldset font form frame frameset h1 h2 h3 h4 h5
    "BBBBIBBBIB"  // h6 head hr html i iframe img input ins isindex
    "IBBBBBBBBB"  // kbd label legend li link map menu meta noframes noscript
    "BBBBBBPIII"  // object ol optgroup option p param pre q s samp
    "BBIIIIBIIB"  // script select small span strike strong style sub sup table
    "BBBBBBBBII"  // tbody td textarea tfoot th thead title tr tt u
    "BI";         // ul var
static_assert(sizeof(classes) == invalid_number + 1);

std::uint32_t flags_of(char element_class) {
  switch (element_class) {
    case 'I':
      return 0;
    case 'R':
      return 10;
    case 'P':
      return 32;
    default:
      return 15;
  }
}

// Elements without a row in Strict write no name.
constexpr std::array<int, 14> unusable = {5, 9, 17, 25, 31, 33, 34, 45, 49, 56, 58, 68, 74, 89};
bool is_unusable(int number) {
  for (const int row : unusable)
    if (row == number) return true;
  return false;
}

constexpr std::array<int, 10> empty_elements = {6, 8, 14, 20, 42, 46, 47, 54, 57, 65};
bool is_empty(int number) {
  for (const int row : empty_elements)
    if (row == number) return true;
  return false;
}

TEST(WriterBreakFlags, DefaultTable) {
  ustring_stream stream;
  const xhtml_writer writer(stream);
  ASSERT_EQ(writer.layout_table.size(), static_cast<std::size_t>(invalid_number));
  for (std::size_t number = 0; number < invalid_number; ++number)
    EXPECT_EQ(writer.layout_table[number], flags_of(classes[number])) << number;
}

TEST(WriterBreakFlags, ClassesHaveTheRightSizes) {
  const std::string all = classes;
  EXPECT_EQ(std::count(all.begin(), all.end(), 'I'), 30);
  EXPECT_EQ(std::count(all.begin(), all.end(), 'R'), 1);
  EXPECT_EQ(std::count(all.begin(), all.end(), 'P'), 1);
  EXPECT_EQ(std::count(all.begin(), all.end(), 'B'), 60);
}

TEST(WriterBreakFlags, EachElementAlone) {
  for (int number = 1; number < invalid_number; ++number) {
    if (is_unusable(number)) continue;
    const xhtml_element element = make(static_cast<tag_id>(number));
    const ustring name = element.tag_name();
    ustring expected = u'<' + name;
    if (is_empty(number)) {
      expected += classes[number] == 'I' ? u"/>" : u"/>\n";
    } else {
      expected += u'>';
      if (classes[number] != 'I') expected += u'\n';
      expected += u"</" + name + u'>';
      if (classes[number] == 'B') expected += u'\n';
    }
    EXPECT_TRUE(same_units(written(element), expected)) << number;
  }
}

// A text on both sides shows all four flags of the element between.
TEST(WriterBreakFlags, EachElementThatADivAcceptsBetweenTexts) {
  int placed = 0;
  for (int number = 1; number < invalid_number; ++number) {
    xhtml_element div = make(tag_id::div, u"a");
    const auto child = div.append_copy(make(static_cast<tag_id>(number)));
    if (child == div.end()) continue;
    ++placed;
    add(div, u"b");
    const ustring name = child->tag_name();
    ustring inside;
    switch (classes[number]) {
      case 'I':
        inside = u"a<" + name + u"></" + name + u">b";
        break;
      case 'R':
        inside = u"a<br/>\n  b";
        break;
      case 'P':
        inside = u"a<pre>\n  </pre>b";
        break;
      default:
        inside = u"a\n  <" + name;
        inside += is_empty(number) ? u"/>\n  b" : u">\n  </" + name + u">\n  b";
    }
    EXPECT_TRUE(same_units(written(div), u"<div>\n  " + inside + u"\n</div>\n")) << number;
  }
  // 19 block elements without the document root, 31 inline ones.
  EXPECT_EQ(placed, 50);
}

TEST(WriterBreakFlags, ElementsThatStrictLacksAreBlocksWithoutAName) {
  for (const int number : unusable) {
    const bool is_void = number == 9 || number == 58;
    EXPECT_TRUE(
        same_units(written(make(static_cast<tag_id>(number))), is_void ? u"</>\n" : u"<>\n</>\n"))
        << number;
  }
}

TEST(WriterBreakFlags, ElementsThatStrictLacksIndentTheirContent) {
  EXPECT_TRUE(same_units(written(make(tag_id::font, make(tag_id::p, u"x"))),
                         u"<>\n  <p>\n    x\n  </p>\n</>\n"));
  EXPECT_TRUE(same_units(written(make(tag_id::center, comment(u"x"))), u"<>\n  <!-- x -->\n</>\n"));
}

TEST(WriterBreakFlags, TheirFlagsAreNotThoseOfTheTable) {
  const auto out =
      write_with(make(tag_id::font), [](xhtml_writer& writer) { writer.layout_table.fill(0); });
  EXPECT_TRUE(same_units(out.text, u"<>\n</>\n"));
}

TEST(WriterBreakFlags, TheRowInvalidTagIsWrittenAsABlock) {
  EXPECT_TRUE(same_units(written(make(tag_id::invalid_tag)), u"<invalid tag/>\n"));
}

// An element with no record has no name to write.
TEST(WriterBreakFlags, AnElementWithoutARecordWritesNothing) {
  for (const int number : {first_number_without_record, 1000, -1}) {
    const xhtml_element element = make(static_cast<tag_id>(number));
    const auto out = write_with(element, [](xhtml_writer& writer) {
      writer.column = 4;
      writer.indent_level = -3;
    });
    EXPECT_TRUE(is_outcome(out, u"", 4)) << number;
    EXPECT_EQ(out.indent_level, -3) << number;
  }
}

TEST(WriterBreakFlags, AChangedTableIsObeyed) {
  const xhtml_element div = make(tag_id::div, u"a", make(tag_id::p, u"b"), u"c");
  const auto as_inline = write_with(div, [](xhtml_writer& writer) {
    writer.layout_table[static_cast<std::size_t>(tag_id::p)] = 0;
  });
  EXPECT_TRUE(same_units(as_inline.text, u"<div>\n  a<p>b</p>c\n</div>\n"));
  // All four breaks, but not the value 15: no level is added.
  const auto no_level = write_with(div, [](xhtml_writer& writer) {
    writer.layout_table[static_cast<std::size_t>(tag_id::p)] = 15 + 16;
  });
  EXPECT_TRUE(same_units(no_level.text, u"<div>\n  a\n  <p>\n  b\n  </p>\n  c\n</div>\n"));
}

}  // namespace
}  // namespace test
