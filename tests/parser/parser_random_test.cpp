// The parser compared with the plain one, on every short text of a few signs and on random ones.

#include <gtest/gtest.h>

#include <cstddef>
#include <random>
#include <string>
#include <vector>

#include "tests/parser/plain_parser.h"

namespace test {
namespace {

parse_case case_in(std::vector<tag_id> path) {
  parse_case how;
  how.message_mask = 15;
  how.path = std::move(path);
  return how;
}

/// Whether both parsers agree on `text`; the message says what differs.
testing::AssertionResult agree(const ustring& text, const parse_case& how) {
  const parse_result result = parse(text, how);
  const parse_result expected = parse_plainly(text, how);
  if (result == expected) return testing::AssertionSuccess();
  return testing::AssertionFailure()
         << "of \"" << printable(text) << "\"\n--- expected\n"
         << expected.children << "\nline " << expected.line << ", last tag "
         << static_cast<int>(expected.last_tag) << ", left \"" << expected.rest << "\"\n"
         << expected.messages << "--- actual\n"
         << result.children << "\nline " << result.line << ", last tag "
         << static_cast<int>(result.last_tag) << ", left \"" << result.rest << "\"\n"
         << result.messages;
}

/// Tries `head`, up to `length` of the signs in `signs`, and `tail`.
void try_all(const ustring& head, ustring_view signs, std::size_t length, const ustring& tail,
             const parse_case& how) {
  ASSERT_TRUE(agree(head + tail, how));
  if (length == 0) return;
  for (const char16_t sign : signs) {
    try_all(head + sign, signs, length - 1, tail, how);
    if (testing::Test::HasFatalFailure()) return;
  }
}

const std::vector<tag_id> div = {tag_id::html, tag_id::body, tag_id::div};
const std::vector<tag_id> script = {tag_id::html, tag_id::body, tag_id::div, tag_id::script};
const std::vector<tag_id> style = {tag_id::html, tag_id::head, tag_id::style};
const std::vector<tag_id> pre = {tag_id::html, tag_id::body, tag_id::pre};

TEST(ParserAgainstPlainOne, CommentsAndDeclarations) {
  try_all(u"<!-", u"-><!\n", 5, u"", case_in(div));
  try_all(u"x<!-", u"->", 9, u"y", case_in(div));
  try_all(u"<!", u"-><", 4, u"<b>", case_in({}));
}

TEST(ParserAgainstPlainOne, Instructions) { try_all(u"<?", u"?>\n", 6, u"", case_in(div)); }

TEST(ParserAgainstPlainOne, Tags) {
  try_all(u"<", u"b/> \nx", 4, u"", case_in(div));
  try_all(u"</", u"b/> ", 4, u">y", case_in(div));
}

TEST(ParserAgainstPlainOne, Attributes) {
  try_all(u"<p id", u"=' \"x", 5, u" class='c'>y", case_in(div));
}

TEST(ParserAgainstPlainOne, SpaceInText) {
  for (const std::vector<tag_id>& path : {div, script, style}) {
    parse_case how = case_in(path);
    try_all(u"", u" \n\tx<", 4, u"", how);
    try_all(u"x", u" \n\t", 4, u"<!--c-->", how);
    how.preserve_newlines = true;
    try_all(u"", u" \n\tx", 4, u"<!--c-->", how);
    try_all(u"</pre>", u" \n\tx<", 4, u"", case_in(path));
  }
}

TEST(ParserAgainstPlainOne, QuotesInText) {
  for (const std::vector<tag_id>& path : {div, script, style})
    try_all(u"", u"\"'<\nx", 4, u"<!--c-->", case_in(path));
}

TEST(ParserAgainstPlainOne, EndOfPreformattedText) {
  try_all(u"", u"<a/", 4, u"</pre>x", case_in(pre));
  try_all(u"<pre>x</p", u"/REe>", 4, u"", case_in(div));
}

TEST(ParserAgainstPlainOne, EverySingleChangeOfATrickyPage) {
  const ustring page =
      u"<p>a \"q\" <b id='d' e=f >x\n y</b><!-- z -- --><?i ?><br/><pre>k</pre><foo g='h'>m<li>";
  for (std::size_t at = 0; at < page.size(); ++at) {
    ASSERT_TRUE(agree(page.substr(0, at) + page.substr(at + 1), case_in(div)));
    for (const char16_t sign : ustring_view(u"<>\"'=-/ \np\uFFFF\0", 12)) {
      ustring changed = page;
      changed[at] = sign;
      ASSERT_TRUE(agree(changed, case_in(div)));
      ASSERT_TRUE(agree(ustring(page).insert(at, 1, sign), case_in(div)));
    }
  }
}

/// What random texts are made of. No brace: reading a stylesheet with an unclosed one never ends.
constexpr ustring_view signs(u"<>/!-?='\" \n\t\rab&\u00E9\u2003\xD83D\0", 20);
const char16_t* const words[] = {u"--",
                                 u"   ",
                                 u"\n  ",
                                 u"\r\n",
                                 u"text",
                                 u"&#34;",
                                 u"&lt;",
                                 u"<p>",
                                 u"</p>",
                                 u"<P CLASS='c'>",
                                 u"<b>",
                                 u"</b>",
                                 u"<br/>",
                                 u"<br />",
                                 u"<p/>",
                                 u"<pre>",
                                 u"</pre>",
                                 u"<script>",
                                 u"</script>",
                                 u"<!--",
                                 u"-->",
                                 u"<?",
                                 u"?>",
                                 u"<!x",
                                 u"<foo ",
                                 u"<foo>",
                                 u"</foo>",
                                 u"<font a>",
                                 u"<center/>",
                                 u"<a href=",
                                 u"<i id='",
                                 u"title=\"",
                                 u"style='color:red'",
                                 u" class=x ",
                                 u"<ul>",
                                 u"<li>",
                                 u"</ul>",
                                 u"<table>",
                                 u"<td>",
                                 u"</table>",
                                 u"<div>",
                                 u"</div>",
                                 u"<\n",
                                 u"<b:c>",
                                 u"</doc root>",
                                 u"<textarea>",
                                 u"<select>",
                                 u"*/"};

ustring random_text(std::mt19937& random) {
  const auto below = [&random](std::size_t count) { return random() % count; };
  ustring text;
  for (std::size_t left = below(40); left != 0; --left) {
    if (below(4) == 0)
      text += signs[below(signs.size())];
    else
      text += words[below(std::size(words))];
  }
  if (below(20) == 0) text.insert(below(text.size() + 1), 1, u'\uFFFF');
  return text;
}

TEST(ParserAgainstPlainOne, RandomTexts) {
  const std::vector<tag_id> paths[] = {
      {},
      div,
      script,
      style,
      pre,
      {tag_id::html, tag_id::body},
      {tag_id::html, tag_id::body, tag_id::p, tag_id::b},
      {tag_id::html, tag_id::body, tag_id::ul, tag_id::li},
      {tag_id::html, tag_id::body, tag_id::table},
  };
  std::mt19937 random(20240229);
  for (int count = 0; count < 4000; ++count) {
    parse_case how = case_in(paths[random() % std::size(paths)]);
    how.normalize_text = random() % 4 == 0;
    how.preserve_newlines = random() % 4 == 0;
    ASSERT_TRUE(agree(random_text(random), how)) << "text " << count;
  }
}

}  // namespace
}  // namespace test
