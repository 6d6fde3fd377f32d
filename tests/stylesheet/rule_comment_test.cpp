#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>

#include "tests/stylesheet/sheet_text.h"
#include "tests/support/golden.h"

namespace test {
namespace {

// The comment of a rule with nothing in it, without the rule.
ustring comment_of(ustring_view rule_comment, ustring_view selector) {
  ustring text =
      text_of(xhtml_stylesheet_rule(selector),
              [rule_comment](stylesheet_writer& writer) { writer.rule_comment = rule_comment; });
  const ustring rule = ustring(selector) + u" { \n}\n\n";
  EXPECT_TRUE(text.ends_with(rule)) << printable(text);
  text.resize(text.size() - std::min(text.size(), rule.size()));
  return text;
}

// The rule itself: the first mark is cut out, and the search starts from the beginning.
ustring replaced(ustring text, ustring_view selector) {
  for (std::size_t at = text.find(u"<s>"); at != ustring::npos; at = text.find(u"<s>"))
    text.replace(at, 3, selector);
  return text;
}

TEST(RuleComment, ComesBeforeTheRuleWithoutSpaces) {
  EXPECT_TRUE(same_units(comment_of(u"the rule", u"p"), u"/*the rule*/\n"));
}

TEST(RuleComment, AnEmptyOneIsNotWritten) { EXPECT_EQ(comment_of(u"", u"p").size(), 0u); }

TEST(RuleComment, IsNotIndented) {
  const ustring text = text_of(xhtml_stylesheet_rule(u"p"), [](stylesheet_writer& writer) {
    writer.rule_comment = u"<s>";
    writer.rule_indent = 4;
  });
  EXPECT_TRUE(same_units(text, u"/*p*/\n    p     { \n    }\n\n"));
}

TEST(RuleComment, EveryMarkIsReplaced) {
  EXPECT_TRUE(same_units(comment_of(u"<s>", u"h1"), u"/*h1*/\n"));
  EXPECT_TRUE(same_units(comment_of(u"a <s> b <s><s>", u"h1"), u"/*a h1 b h1h1*/\n"));
  EXPECT_TRUE(same_units(comment_of(u"<s> <S> < s> <s >", u"h1"), u"/*h1 <S> < s> <s >*/\n"));
}

TEST(RuleComment, AnEmptySelectorRemovesTheMarks) {
  EXPECT_TRUE(same_units(comment_of(u"a<s>b<s>", u""), u"/*ab*/\n"));
}

TEST(RuleComment, TheTemplateStaysForTheNextRule) {
  ustring_stream stream;
  stylesheet_writer writer(stream);
  writer.rule_comment = u"<s>";
  xhtml_stylesheet_rule(u"a").write(writer);
  xhtml_stylesheet_rule(u"b").write(writer);
  EXPECT_TRUE(same_units(stream.str(), u"/*a*/\na { \n}\n\n/*b*/\nb { \n}\n\n"));
}

TEST(RuleComment, MarksMadeUpWithTheSurroundingsAreReplaced) {
  // "<s>" is cut out of "<<s>s>" and leaves "<s>".
  EXPECT_TRUE(same_units(comment_of(u"<<s>s>", u""), u"/**/\n"));
  EXPECT_TRUE(same_units(comment_of(u"<<<s>s>s>x", u""), u"/*x*/\n"));
  // "<" + "s" + ">".
  EXPECT_TRUE(same_units(comment_of(u"<<s>>", u"s"), u"/*s*/\n"));
  // The selector ends in the mark's beginning: "s>" follows it.
  EXPECT_TRUE(same_units(comment_of(u"<s>s>", u"a<"), u"/*aa<*/\n"));
  // It starts with the mark's end: "<" is before it.
  EXPECT_TRUE(same_units(comment_of(u"<<s>", u"s>b"), u"/*s>bb*/\n"));
}

TEST(RuleComment, LongChainsComeToTheirEnd) {
  for (const ustring& selector : {ustring(), ustring(u"<"), ustring(u"s>"), ustring(u"><"),
                                  ustring(u"s><<"), ustring(u"s>x<")})
    for (const ustring_view rule_comment :
         {ustring_view(u"<s>s>s>s>s>"), ustring_view(u"<<<<<s>s>s>"), ustring_view(u"<<s>"),
          ustring_view(u"<s><s>s>s>s>s>s>"), ustring_view(u"s><s><s")})
      EXPECT_TRUE(same_units(comment_of(rule_comment, selector),
                             u"/*" + replaced(ustring(rule_comment), selector) + u"*/\n"))
          << printable(selector);
}

TEST(RuleComment, ManyMarksAreLinearInTheTemplate) {
  ustring rule_comment;
  ustring expected;
  for (int i = 0; i < 20'000; ++i) {
    rule_comment += u"<s>";
    expected += u"a";
  }
  EXPECT_TRUE(same_units(comment_of(rule_comment, u"a"), u"/*" + expected + u"*/\n"));
}

// Replacing in a selector that holds the mark would never end.
TEST(RuleComment, WhatNeverEndsIsReplacedInOnePass) {
  EXPECT_TRUE(same_units(comment_of(u"<s>", u"<s>"), u"/*<s>*/\n"));
  EXPECT_TRUE(same_units(comment_of(u"a<s>b<s>", u"x<s>y"), u"/*ax<s>ybx<s>y*/\n"));
  EXPECT_TRUE(same_units(comment_of(u"no mark", u"<s>"), u"/*no mark*/\n"));
}

// Two selectors side by side make a mark.
TEST(RuleComment, WhatIsMadeUpByTheSelectorAlone) {
  EXPECT_TRUE(same_units(comment_of(u"<s><s>", u"s><"), u"/*s>s><<*/\n"));
}

}  // namespace
}  // namespace test
