// What the leaves store of the tokens that the parser cuts.

#include <gtest/gtest.h>

#include <clocale>
#include <cwctype>
#include <locale>
#include <string>

#include "tests/markup/tree_text.h"
#include "tests/support/golden.h"
#include "tests/support/locale.h"
#include "tests/support/vocabulary_numbers.h"
#include "xport/markup/leaf_nodes.h"

namespace test {
namespace {

struct token_case {
  const char16_t* token;
  const char16_t* body;
};

const token_case comments[] = {
    {u"", u""},
    {u"a", u"a"},
    {u"<", u"<"},
    {u" ", u""},
    {u"<-", u"<-"},
    {u"ab", u"ab"},
    {u"<--", u"<--"},  // not longer than 3: kept
    {u"-->", u"-->"},
    {u"abc", u"abc"},
    {u" a ", u"a"},
    {u"<-- ", u""},  // longer than 3: the head is removed
    {u"<--a", u"a"},
    {u"<-->", u">"},
    {u"a-->", u"a-->"},  // not longer than 4: the tail stays
    {u" -->", u"-->"},
    {u"ab-->", u"ab"},  // longer than 4: the tail is removed
    {u" a-->", u"a"},
    {u"<--->", u"->"},
    {u"<--ab", u"ab"},
    {u"<---->", u"-->"},  // what is left isn't longer than 4
    {u"<--abc", u"abc"},
    {u"abc-->", u"abc"},
    {u"<--a-->", u"a-->"},
    {u"<--ab-->", u"ab"},
    {u"<-- a -->", u"a"},
    {u"<--\t\n a b \r\n-->", u"a b"},
    {u"<-- <-- -->", u"<--"},
    {u"<-- --> -->", u"-->"},
    {u" <--a", u"<--a"},        // the head isn't at the start
    {u"<--ab--> ", u"ab-->"},   // the tail isn't at the end
    {u"<!--ab-->", u"<!--ab"},  // the token comes without the mark
    {u"-->text<--", u"-->text<--"},
};

const token_case instructions[] = {
    {u"", u""},
    {u"a", u"a"},
    {u"<?", u"<?"},  // not longer than 2: kept
    {u"?>", u"?>"},
    {u" a", u"a"},
    {u"<? ", u""},  // longer than 2: the head is removed
    {u"<?a", u"a"},
    {u"<?>", u">"},
    {u"a?>", u"a?>"},  // not longer than 4: the tail stays
    {u"ab?>", u"ab?>"},
    {u"<?\?>", u"?>"},
    {u"<?ab", u"ab"},
    {u"abc?>", u"abc"},  // longer than 4: the tail is removed
    {u"  a?>", u"a"},
    {u"<?a?>", u"a?>"},  // what is left isn't longer than 4
    {u"<?ab?>", u"ab?>"},
    {u"abcd?>", u"abcd"},
    {u"<?abc?>", u"abc"},
    {u"<? a ?>", u"a"},
    {u"<?xml version='1.0'?>", u"xml version='1.0'"},
    {u" <?a", u"<?a"},
    {u"<?abc?> ", u"abc?>"},
};

TEST(NodeTokens, GiveCommentsTheirBody) {
  for (const token_case& c : comments)
    EXPECT_TRUE(same_units(xhtml_comment(c.token).text(), c.body)) << printable(c.token);
}

TEST(NodeTokens, GiveInstructionsTheirBody) {
  for (const token_case& c : instructions)
    EXPECT_TRUE(same_units(xhtml_processing_instruction(c.token).text(), c.body))
        << printable(c.token);
}

/// The rule step by step, for tokens in which only the blank is white space.
ustring body(ustring token, const ustring& head, const ustring& tail) {
  if (token.size() > head.size() && token.compare(0, head.size(), head) == 0)
    token.erase(0, head.size());
  if (token.size() > 4 && token.compare(token.size() - tail.size(), tail.size(), tail) == 0)
    token.erase(token.size() - tail.size());
  const std::size_t first = token.find_first_not_of(u' ');
  if (first == ustring::npos) return {};
  return token.substr(first, token.find_last_not_of(u' ') - first + 1);
}

/// Calls `visit` with every text of 0 to 6 units of `alphabet`.
template <class Visit>
void for_each_token(ustring_view alphabet, Visit visit) {
  std::size_t count = 1;
  for (std::size_t length = 0; length <= 6; ++length, count *= alphabet.size())
    for (std::size_t number = 0; number < count; ++number) {
      ustring token;
      for (std::size_t left = number, i = 0; i < length; ++i, left /= alphabet.size())
        token += alphabet[left % alphabet.size()];
      visit(token);
    }
}

TEST(NodeTokens, OfAllShortFormsGiveCommentsTheirBody) {
  for_each_token(u"<-> a", [](const ustring& token) {
    ASSERT_TRUE(same_units(xhtml_comment(token).text(), body(token, u"<--", u"-->")))
        << printable(token);
  });
}

TEST(NodeTokens, OfAllShortFormsGiveInstructionsTheirBody) {
  for_each_token(u"<?> a", [](const ustring& token) {
    ASSERT_TRUE(same_units(xhtml_processing_instruction(token).text(), body(token, u"<?", u"?>")))
        << printable(token);
  });
}

struct end_tag_case {
  const char16_t* token;
  int tag;
};

constexpr int none = invalid_number;

const end_tag_case end_tags[] = {
    {u"", none},          {u"<", none},       {u">", none},
    {u"/", none},         {u"</", none},      {u"<>", none},
    {u"</>", none},       {u"p", 64},         {u"<p", 64},
    {u"p>", 64},          {u"</p", 64},       {u"<p>", 64},
    {u"</p>", 64},        {u"</P>", 64},      {u"</DiV>", 26},
    {u"/p>", none},       {u"//p>", none},    {u"<//p>", none},
    {u"<</p>", none},     {u"</p>>", none},   {u"</ p>", none},
    {u"</p >", none},     {u" </p>", none},   {u"</p> ", none},
    {u"</table>", 79},    {u"</h6>", 40},     {u"</doc root>", 0},
    {u"</nosuch>", none}, {u"</center>", 17}, {u"</document root>", none},
    {u"</a>", 1},         {u"</var>", 91},
};

TEST(NodeTokens, GiveEndTagsTheirElementAndStayAsTheyAre) {
  for (const end_tag_case& c : end_tags) {
    const xhtml_end_tag end_tag{ustring_view(c.token)};
    EXPECT_EQ(end_tag.tag(), tag_id{c.tag}) << printable(c.token);
    EXPECT_TRUE(same_units(end_tag.tag_name(), c.token));
    EXPECT_TRUE(end_tag.is_end_tag());
    EXPECT_EQ(end_tag.node_kind(), 0);
    EXPECT_EQ(end_tag.category_flags(), 0u);
  }
}

TEST(NodeTokens, MayHoldAnyUnits) {
  const ustring odd{0xD800, 0xFFFF, 0, 0xDC00, u'x'};
  EXPECT_TRUE(same_units(xhtml_comment(odd).text(), odd));
  EXPECT_TRUE(same_units(xhtml_processing_instruction(odd).text(), odd));
  EXPECT_TRUE(same_units(xhtml_pcdata(odd).text(), odd));
  EXPECT_TRUE(same_units(xhtml_end_tag(odd).tag_name(), odd));
  EXPECT_EQ(xhtml_end_tag(odd).tag(), tag_id::invalid_tag);
  EXPECT_EQ(xhtml_end_tag(ustring_view(u"</p\0q>", 6)).tag(), tag_id::p) << "cut at the zero";
}

TEST(NodeTokens, LeaveCharacterDataAndDoctypesAsTheyAre) {
  EXPECT_EQ(text_of(xhtml_pcdata(u"")), "");
  EXPECT_EQ(text_of(xhtml_pcdata(u" <-- a --> &amp; < ")), " <-- a --> &amp; < ");
  EXPECT_EQ(text_of(xhtml_doctype_declaration()), "");
}

/// White space as in some locale: '_' and U+2003 too, but no tab.
class odd_space : public std::ctype<wchar_t> {
 protected:
  bool do_is(mask wanted, wchar_t unit) const override {
    if ((wanted & space) != 0 && (unit == L'_' || unit == 0x2003)) return true;
    if (unit == L'\t') return false;
    return std::ctype<wchar_t>::do_is(wanted, unit);
  }
};

TEST(WhiteSpace, IsWhatTheGlobalLocaleSays) {
  const global_locale guard{std::locale(std::locale::classic(), new odd_space)};
  EXPECT_EQ(text_of(xhtml_comment(u"<--_ \u2003a b\u2003_-->")), "a b");
  EXPECT_EQ(text_of(xhtml_comment(u"\ta\t")), "\\u0009a\\u0009");
  EXPECT_EQ(text_of(xhtml_processing_instruction(u"<?_abc\u2003?>")), "abc");
  xhtml_pcdata text(u"__a\t_ \u2003");
  text.trim_trailing_space();
  EXPECT_EQ(text_of(text), "__a\\u0009");
}

TEST(WhiteSpace, OfTheClassicLocaleIsAsciiOnly) {
  const global_locale guard{std::locale::classic()};
  EXPECT_EQ(text_of(xhtml_comment(u" \t\n\v\f\ra\u00A0\u2003\u3000")), "a\\u00A0\\u2003\\u3000");
}

TEST(WhiteSpace, IsTrimmedFromTheEndOfCharacterDataOnly) {
  const token_case cases[] = {
      {u"", u""},     {u" ", u""},   {u" \t\r\n\f\v ", u""}, {u"a", u"a"},
      {u" a", u" a"}, {u"a ", u"a"}, {u" a b \n", u" a b"},  {u"a\u00A0", u"a\u00A0"}};
  for (const token_case& c : cases) {
    xhtml_pcdata text{ustring_view(c.token)};
    text.trim_trailing_space();
    EXPECT_TRUE(same_units(text.text(), c.body));
    text.trim_trailing_space();
    EXPECT_TRUE(same_units(text.text(), c.body));
  }
}

TEST(WhiteSpace, IsTrimmedFromLongCharacterData) {
  for (const std::size_t size : {1u, 7u, 8u, 9u, 220u, 221u, 100000u}) {
    xhtml_pcdata text(ustring(size, u'a') + ustring(size, u' '));
    text.trim_trailing_space();
    EXPECT_TRUE(same_units(text.text(), ustring(size, u'a')));
    text << u"b";
    EXPECT_TRUE(same_units(text.text(), ustring(size, u'a') + u'b'));
  }
}

// The letter case of an end tag is the C library's: some locales count
// U+212A as an upper-case k.
TEST(EndTagCase, FollowsTheCLibrary) {
  const std::string before = std::setlocale(LC_CTYPE, nullptr);
  if (std::setlocale(LC_CTYPE, "C.UTF-8") == nullptr) GTEST_SKIP() << "there is no C.UTF-8";
  const bool known = std::towlower(0x212A) == L'k';
  const tag_id tag = xhtml_end_tag(u"</\u212ABD>").tag();
  std::setlocale(LC_CTYPE, before.c_str());
  EXPECT_EQ(tag, known ? tag_id::kbd : tag_id::invalid_tag);
}

}  // namespace
}  // namespace test
