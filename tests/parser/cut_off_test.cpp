// Texts that end anywhere: every beginning of a text is parsed.

#include <gtest/gtest.h>

#include <cstddef>
#include <initializer_list>
#include <istream>
#include <string>
#include <vector>

#include "tests/parser/plain_parser.h"
#include "tests/support/tree_check.h"
#include "tests/support/unit_buffers.h"

namespace test {
namespace {

/// Parses `text` unit by unit longer, each of its beginnings in a `div`; the first of `expected`
/// is the result of an empty text.
void expect_each(ustring_view text, std::initializer_list<std::string> expected) {
  ASSERT_EQ(expected.size(), text.size() + 1);
  std::size_t length = 0;
  for (const std::string& children : expected) {
    const ustring_view beginning = text.substr(0, length++);
    EXPECT_EQ(in_div(beginning), children) << printable(beginning);
    EXPECT_EQ(in_div(ustring(beginning) + u"\uFFFF<b>\">'--?"), children)
        << printable(beginning) << " and U+FFFF";
  }
}

TEST(CutOff, StartTag) {
  expect_each(u"<p id=\"x\">y", {"", "", "p", "p", "p", "p", "p[id=\"\"]", "p[id=\"\"]",
                                 "p[id=\"\"]", "p[id=\"x\"]", "p[id=\"x\"]", "p[id=\"x\"]('y')"});
}

TEST(CutOff, StartTagWithUnquotedValue) {
  expect_each(u"<br id=xy />", {"", "", "b", "br", "br", "br", "br", "br[id=\"\"]", "br[id=\"\"]",
                                "br[id=\"\"]", "br[id=\"y\"]", "br[id=\"y\"]", "br[id=\"y\"]"});
}

TEST(CutOff, UnknownTag) {
  expect_each(u"<xy a=\"b\">c<i>",
              {"", "", "", "", "'<xy '", "'<xy  a'", "'<xy  a='", "'<xy  a=\"'", "'<xy  a=\"b'",
               "'<xy  a=\"b\"'", "'<xy  a=\"b\">'", "'<xy  a=\"b\">c'", "'<xy  a=\"b\">c'",
               "'<xy  a=\"b\">c' i", "'<xy  a=\"b\">c' i"});
}

TEST(CutOff, EndTag) {
  expect_each(u"<b>a </b>c", {"", "", "b", "b", "b('a')", "b('a ')", "b('a ')", "b('a ')",
                              "b('a ')", "b('a')", "b('a') 'c'"});
}

TEST(CutOff, Comment) {
  expect_each(u"<!-- a-b --->-->c", {"", "", "", "", "##", "##", "#a#", "#a---#", "#a-b#", "#a-b#",
                                     "#a-b ---#", "#a-b ---#", "#a-b ---#", "#a-b -#",
                                     "#a-b --->---#", "#a-b --->---#", "#a-b -#", "#a-b -# 'c'"});
}

TEST(CutOff, Instruction) {
  expect_each(u"<?a?b?\?>?>c", {"", "", "??", "?a?", "?a???", "?a?b?", "?a?b???", "?a?b???",
                                "?a?b??", "?a?b?\?>???", "?a?b??", "?a?b?? 'c'"});
}

TEST(CutOff, Declaration) {
  expect_each(u"<!DOC [<x>]>", {"", "", "", "", "", "", "", "", "", "", "", "']'", "']>'"});
}

TEST(CutOff, PreformattedText) {
  expect_each(u"<pre><</PR</pre>x",
              {"", "", "p", "", "pre", "pre", "pre('<')", "pre('<<')", "pre('<</')", "pre('<</P')",
               "pre('<</PR')", "pre('<</PR<')", "pre('<</PR</')", "pre('<</PR</p')",
               "pre('<</PR</pr')", "pre('<</PR</pre')", "pre('<</PR')", "pre('<</PR') 'x'"});
}

TEST(CutOff, Quotes) {
  expect_each(u"a \n\"<b>\" <i>",
              {"", "'a'", "'a '", "'a '", "'a \"'", "'a \"<'", "'a \"<b'", "'a \"<b>'",
               "'a \"<b>\"'", "'a \"<b>\" '", "'a \"<b>\" '", "'a \"<b>\" ' i", "'a \"<b>\" ' i"});
}

/// Texts that contain every construct, some of them broken.
const ustring texts[] = {
    u"<p class='a' title=\"b > c\" style='color:red' id=x y>z</p\n><br/><hr /></P>",
    u"<!DOCTYPE html [ <!ENTITY a \"b\"> ]><?xml version=\"1.0\"?\?> ?><!-- a --- b --><!-x-->",
    u"<ul><li>a<b><i>c</b>d</li><li>\"<li>\"</ul><table><tr><td>x<p>y</table>",
    u"<script type='a'>if (a < b && '</script>') // it's\n \"</script>\"</script><p>",
    u"<pre>\n a<b></pr</PRE></pre>x\n y<pre>z</pre ",
    u"<\n\r<foo\n bar='1'>&amp; & &#38; &foo; \u00A9</foo></doc root></font><font/>",
    u"<div><div><div></p></div \n></div></div></div></body></html></html>",
    ustring(u"<p\0 id='a'>\0</p\0>\0<\0><!--\0--><?\0?><!\0>", 38),
    u"\xD83D<\xDE00>\U0001F600<p \u00E9='\u00E9'>\uFFFE</p>\u2028",
};

// Wherever the text ends, the tree is intact, as parse() checks.
TEST(CutOff, TrickyTexts) {
  const std::vector<tag_id> paths[] = {
      {},
      {tag_id::html},
      {tag_id::html, tag_id::head},
      {tag_id::html, tag_id::body},
      {tag_id::html, tag_id::body, tag_id::div},
      {tag_id::html, tag_id::body, tag_id::p, tag_id::b},
      {tag_id::html, tag_id::body, tag_id::ul, tag_id::li},
  };
  for (const ustring& text : texts)
    for (const std::vector<tag_id>& path : paths)
      for (std::size_t length = 0; length <= text.size(); ++length) {
        parse_case how;
        how.path = path;
        how.message_mask = 15;
        const ustring_view beginning = ustring_view(text).substr(0, length);
        ASSERT_EQ(parse(beginning, how), parse_plainly(beginning, how)) << printable(beginning);
      }
}

// What was read so far stays, and nothing is lost.
TEST(CutOff, ByAnExceptionOfTheInput) {
  for (const ustring& text : texts)
    for (std::size_t length = 0; length <= text.size(); ++length)
      for (const bool in_pool : {false, true}) {
        throwing_buffer buffer(text.substr(0, length));
        std::basic_istream<char16_t> input(&buffer);
        xhtml_parser parser(&input);
        xhtml_element body(tag_id::body, {}, {});
        xhtml_doc doc(0);
        xhtml_element* const receiver = in_pool ? doc.root() : &body;
        try {
          delete parser.parse_children(receiver);  // an end tag may end it before
        } catch (const input_broke&) {
        }
        ASSERT_TRUE(is_intact(*receiver)) << printable(text.substr(0, length));
      }
}

}  // namespace
}  // namespace test
