#include <cstddef>
#include <string>

#include "tests/report/report_page.h"
#include "tests/support/utf8.h"

namespace test {
namespace {

ustring replaced(const ustring& text, char16_t unit, const ustring& by) {
  ustring changed;
  for (const char16_t each : text) {
    if (each == unit)
      changed += by;
    else
      changed += each;
  }
  return changed;
}

// Line feeds in a block's line and in a heading, both of which are indented by 6.
ustring indented(const ustring& text) { return replaced(text, u'\n', u"\n      "); }

class Text : public report_test {
 protected:
  // Compares the bytes of the saved page with the body's text, unit by unit.
  void expect_bytes(const ustring& body_text) {
    ASSERT_TRUE(report.Save(u"/out", u"page.htm"));
    const std::string expected =
        file_bytes(u"\uFEFF" + page_head() + body_text + block() + page_tail());
    const std::string& got = files.contents.at(u"/out/Vellomark/page.htm");
    if (got == expected) return;
    std::size_t at = 0;
    while (at < got.size() && at < expected.size() && got[at] == expected[at]) ++at;
    ADD_FAILURE() << got.size() << " bytes instead of " << expected.size()
                  << ", different from byte " << at << " on";
  }

  // A text as it has to pass through a line, a heading and a cell.
  void expect_unchanged_everywhere(const ustring& text) {
    report.AddText(text.c_str(), false);
    report.AddHeading(text.c_str(), 1);
    report.OpenTable(2);
    report.AddText(text.c_str(), false);
    report.CloseTable();
    expect_bytes(block({indented(text)}) + heading(u'1', indented(text)) +
                 table(replaced(text, u'\n', u"<BR>")) + block());
  }
};

TEST_F(Text, EveryUnitPassesThroughUnchanged) {
  ustring units;
  for (unsigned unit = 1; unit <= 0xFFFF; ++unit) units.push_back(static_cast<char16_t>(unit));
  expect_unchanged_everywhere(units);
}

TEST_F(Text, EveryUnitBackwardsPassesThroughUnchanged) {
  ustring units;
  for (unsigned unit = 0xFFFF; unit >= 1; --unit) units.push_back(static_cast<char16_t>(unit));
  expect_unchanged_everywhere(units);
}

TEST_F(Text, EveryUnitOnALineOfItsOwn) {
  ustring expected;
  for (unsigned unit = 1; unit <= 0xFFFF; ++unit) {
    const ustring text(1, static_cast<char16_t>(unit));
    report.AddText(text.c_str(), false);
    expected += u"      <a>" + indented(text) + u"</a><br/>\n";
  }
  expect_bytes(u"    <p>\n" + expected + u"    </p>\n");
}

TEST_F(Text, EveryUnitInALink) {
  ustring expected;
  for (unsigned first = 1; first <= 0xFFFF; first += 250) {
    ustring target;
    for (unsigned unit = first; unit < first + 250 && unit <= 0xFFFF; ++unit)
      target.push_back(static_cast<char16_t>(unit));
    report.AddLink(nullptr, target.c_str());
    expected += u"      <a href='#" + target + u"'>" + indented(target) + u"</a><br/>\n";
  }
  expect_bytes(u"    <p>\n" + expected + u"    </p>\n");
}

TEST_F(Text, MarksAndLoneSurrogatesInTheMiddleStay) {
  expect_unchanged_everywhere(ustring(u"a\uFEFFb") + char16_t(0xFFFF) + u"c" + char16_t(0xD800) +
                              u"d" + char16_t(0xDFFF) + u"e" + char16_t(0xDC00) + char16_t(0xD800) +
                              u"f" + char16_t(0xFFFE) + u"g");
}

// Units that a stream could take for the end of a file, at every place of its blocks.
TEST_F(Text, RunsOfTheLastUnitStay) {
  expect_unchanged_everywhere(ustring(200001, char16_t(0xFFFF)));
}

TEST_F(Text, MillionUnitsOnOneLine) { expect_unchanged_everywhere(ustring(1000000, u'x')); }

TEST_F(Text, MarkupInTextsStays) {
  expect_unchanged_everywhere(u"<b>&amp; & \"'</b></a></td>--><!--");
}

TEST_F(Text, EmptyTexts) {
  report.AddText(u"", false);
  report.AddHeading(u"", 1);
  report.AddHeading(u"", 0);
  report.AddHeading(u"", 5);
  report.AddLink(u"", nullptr);
  report.AddLink(nullptr, u"");
  report.AddLink(u"", u"");
  report.AddText(u"", true);
  report.BeginSection(u"", u"");
  report.SetSectionMode(false);
  expect_bytes(lines({
      u"    <p>",
      u"      <a></a><br/>",
      u"    </p>",
      u"    <h1 class='Style1'>",
      u"      ",
      u"    </h1>",
      u"    <p>",
      u"    </p>",
      u"    <h5 class=''>",
      u"      ",
      u"    </h5>",
      u"    <p>",
      u"      <a></a><br/>",
      u"      <a></a><br/>",
      u"      <a href='#'></a><br/>",
      u"      <a href='#'></a><br/>",
      u"    </p>",
      u"    <p>",  // of the section
      u"    </p>",
  }));
}

// Where null is no defined input, nothing happens.
TEST_F(Text, NullTexts) {
  for (const int style : {-1, 0, 1, 2, 3, 4, 5, 6}) report.AddHeading(nullptr, style);
  report.AddText(nullptr, true);
  report.BeginSection(nullptr, nullptr);
  report.BeginSection(nullptr, u"target");
  report.AddSectionHeading(nullptr, 1);
  report.LoadTemplate(nullptr);
  EXPECT_FALSE(report.SetTemplateField(nullptr, true, u"value"));
  EXPECT_FALSE(report.SetTemplateField(nullptr, false, nullptr));
  EXPECT_FALSE(report.Save(nullptr, u"page.htm"));
  EXPECT_FALSE(report.Save(nullptr, nullptr));
  EXPECT_TRUE(files.calls.empty());
  EXPECT_TRUE(browser.urls.empty());
  expect_bytes(u"");
}

TEST_F(Text, TextsAreCopiedBeforeTheCallReturns) {
  ustring text = u"text";
  ustring target = u"goal";
  report.AddText(text.c_str(), false);
  report.AddLink(text.c_str(), target.c_str());
  text.assign(4, u'?');
  target.assign(4, u'?');
  report.AddText(nullptr, false);
  expect_bytes(paragraph(lines({u"      <a>text</a><br/>", u"      <a href='#goal'>goal</a><br/>",
                                u"      <a href='#goal'>goal</a><br/>"})));
}

}  // namespace
}  // namespace test
