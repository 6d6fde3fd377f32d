// A host's way through a template: fields, gaps, and the page that results.
#include <string>

#include "tests/report/templates/template_page.h"

namespace test {
namespace {

using Filling = template_test;

TEST_F(Filling, ContentReplacesItsMarker) {
  load(two_fields());
  EXPECT_TRUE(set(u"A"));
  report.AddText(u"for A", false);
  EXPECT_TRUE(set(u"B"));
  report.AddText(u"for B", false);
  EXPECT_TRUE(same_units(body(), shown(u"x") + block({u"for A"}) + shown(u"y") + block({u"for B"}) +
                                     shown(u"z") + block()));
}

TEST_F(Filling, PiecesAreWrittenInTheOrderOfThePageForAnyName) {
  load(two_fields());
  EXPECT_TRUE(set(u"B"));
  report.AddText(u"for B", false);
  EXPECT_TRUE(set(u"A"));
  report.AddText(u"for A", false);
  EXPECT_TRUE(same_units(body(), shown(u"x") + block({u"for B"}) + shown(u"y") + block({u"for A"}) +
                                     shown(u"z") + block()));
}

TEST_F(Filling, WithoutReplaceItOnlyReturnsWhetherTheFieldExists) {
  load(two_fields());
  EXPECT_TRUE(report.SetTemplateField(u"A", false, u"value"));
  EXPECT_TRUE(report.SetTemplateField(u"B", false, nullptr));
  EXPECT_FALSE(report.SetTemplateField(u"C", false, u"value"));
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block()));
}

TEST_F(Filling, WithANullValueItOnlyReturnsWhetherTheFieldExists) {
  load(two_fields());
  EXPECT_TRUE(report.SetTemplateField(u"A", true, nullptr));
  EXPECT_FALSE(report.SetTemplateField(u"C", true, nullptr));
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block()));
}

TEST_F(Filling, AnUnknownFieldPlacesNothing) {
  load(two_fields());
  EXPECT_FALSE(set(u"C"));
  EXPECT_FALSE(set(u""));
  EXPECT_FALSE(set(u"a"));
  EXPECT_FALSE(set(u"A "));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block()));
}

TEST_F(Filling, ANullNameIsNoField) {
  EXPECT_FALSE(set(nullptr));
  load(two_fields());
  EXPECT_FALSE(set(nullptr));
  EXPECT_FALSE(report.SetTemplateField(nullptr, true, nullptr));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block()));
}

TEST_F(Filling, ANullNameIsNoEmptyFieldEither) {
  load(content(span(u" ")));
  EXPECT_EQ(fields(), texts{u""});
  EXPECT_TRUE(report.SetTemplateField(u"", false, nullptr));
  EXPECT_FALSE(report.SetTemplateField(nullptr, false, nullptr));
  EXPECT_FALSE(set(nullptr));
}

TEST_F(Filling, TheValueReplacesTheField) {
  load(two_fields());
  EXPECT_TRUE(set(u"A", u"new"));
  EXPECT_EQ(fields(), (texts{u"new", u"B"}));
  EXPECT_FALSE(report.SetTemplateField(u"A", false, nullptr));
  EXPECT_TRUE(report.SetTemplateField(u"new", false, nullptr));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y") + block()))
      << "the value itself isn't placed";
}

TEST_F(Filling, AFieldIsFoundByItsValueAgain) {
  load(two_fields());
  EXPECT_TRUE(set(u"A", u"new"));
  EXPECT_TRUE(set(u"new", u""));
  EXPECT_EQ(fields(), (texts{u"", u"B"}));
  EXPECT_TRUE(set(u"", u"A"));
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
  EXPECT_TRUE(same_units(
      body(), shown(u"x") + block() + shown(u"y") + block() + shown(u"z") + block() + block()));
}

TEST_F(Filling, OfEqualFieldsTheFirstIsMeant) {
  load(marker(u"A") + content(u"x") + marker(u"B") + marker(u"A"));
  EXPECT_TRUE(set(u"A", u"B"));
  EXPECT_EQ(fields(), (texts{u"B", u"B", u"A"}));
  EXPECT_TRUE(set(u"B", u"C"));
  EXPECT_EQ(fields(), (texts{u"C", u"B", u"A"}));
  EXPECT_TRUE(set(u"A", u"A"));
  EXPECT_EQ(fields(), (texts{u"C", u"B", u"A"}));
}

TEST_F(Filling, TheValueMayBeTheFieldItself) {
  load(two_fields());
  const ustring name = u"A";
  EXPECT_TRUE(set(name.c_str(), name.c_str()));
  EXPECT_TRUE(set(u"A", u"A"));
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
  EXPECT_TRUE(
      same_units(body(), shown(u"x") + block() + shown(u"y") + block() + shown(u"z") + block()));
}

TEST_F(Filling, AfterTheLastPieceEachFieldOnlyStartsABlock) {
  load(two_fields());
  for (int time = 0; time < 5; ++time) EXPECT_TRUE(set(u"A", u"A"));
  report.AddText(u"text", false);
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y") + block() + shown(u"z") +
                                     block() + block() + block({u"text"}) + block()));
}

TEST_F(Filling, EachSavePlacesOnePiece) {
  load(two_fields());
  const ustring first = shown(u"x") + block();
  const ustring second = first + shown(u"y") + block();
  const ustring third = second + shown(u"z") + block();
  EXPECT_TRUE(same_units(body(), first));
  EXPECT_TRUE(same_units(body(), second));
  EXPECT_TRUE(same_units(body(), third));
  EXPECT_TRUE(same_units(body(), third + block()));
}

TEST_F(Filling, ASaveThatCannotMakeItsFolderPlacesAPieceAllTheSame) {
  load(two_fields());
  EXPECT_FALSE(report.Save(folder.text(u"/no/folder").c_str(), u"page.htm"));
  EXPECT_FALSE(report.Save(nullptr, u"page.htm")) << "but nothing is done without a folder";
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y") + block()));
}

TEST_F(Filling, ClearedFieldsLeaveThePieces) {
  load(two_fields());
  EXPECT_TRUE(set(u"A"));
  report.ClearTemplateFields();
  EXPECT_EQ(fields(), texts());
  EXPECT_FALSE(set(u"B"));
  EXPECT_FALSE(set(u"value"));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y") + block()));
  EXPECT_TRUE(
      same_units(body(), shown(u"x") + block() + shown(u"y") + block() + shown(u"z") + block()));
}

TEST_F(Filling, ClearingFieldsWithoutATemplateIsHarmless) {
  report.ClearTemplateFields();
  report.ClearTemplateFields();
  EXPECT_EQ(fields(), texts());
  EXPECT_TRUE(same_units(body(), block()));
}

TEST_F(Filling, TheArrayIsEmptiedEvenWithoutFields) {
  zov_shared_array<CZovString> array;
  array.push_back(CZovString(u"old"));
  report.GetTemplateFields(array);
  EXPECT_TRUE(array.empty());
}

TEST_F(Filling, TheArrayGetsNothingButTheFields) {
  load(two_fields());
  zov_shared_array<CZovString> array;
  for (int count = 0; count < 9; ++count) array.push_back(CZovString(u"old"));
  const zov_shared_array<CZovString> copy = array;
  report.GetTemplateFields(array);
  ASSERT_EQ(array.size(), 2u);
  EXPECT_TRUE(array[0] == CZovString(u"A"));
  EXPECT_TRUE(array[1] == CZovString(u"B"));
  ASSERT_EQ(copy.size(), 9u);
  EXPECT_TRUE(copy[8] == CZovString(u"old"));
}

// The array's own storage is kept, and grows by half where it is full.
TEST_F(Filling, TheArrayGrowsAsAnyOther) {
  ustring body;
  for (char16_t name = u'a'; name < u'l'; ++name) body += marker(ustring(1, name));
  load(body);
  zov_shared_array<CZovString> array;
  report.GetTemplateFields(array);
  EXPECT_EQ(array.size(), 11u);
  EXPECT_EQ(array.capacity(), 11u) << "1, 2, 4, 7, 11";
  const CZovString* const first = array.begin();
  report.GetTemplateFields(array);
  EXPECT_EQ(array.begin(), first);
}

TEST_F(Filling, EverythingMayStandInAGap) {
  load(two_fields());
  set(u"A");
  report.AddHeading(u"h", 1);
  report.OpenTable(2);
  report.AddText(u"cell", false);
  report.CloseTable();
  set(u"B");
  report.AddLink(nullptr, u"target");
  EXPECT_TRUE(same_units(
      body(), shown(u"x") + block() + heading(u'1', u"h") + table(u"cell") + block() + shown(u"y") +
                  u"    <p>\n      <a href='#target'>target</a><br/>\n    </p>\n" + shown(u"z") +
                  block()));
}

TEST_F(Filling, SectionsComeAfterTheLastPiece) {
  load(content(u"x") + marker(u"A") + content(u"y"));
  add_section(report, {}, u"S", {u"in the section"});
  set(u"A");
  report.AddText(u"for A", false);
  EXPECT_TRUE(same_units(body(), shown(u"x") + block({u"for A"}) + shown(u"y") + block() +
                                     section(u"S") + block({u"in the section"})));
}

TEST_F(Filling, OnlyTheBodyOfTheTemplateIsUsed) {
  load_source(
      u"<html lang='en'><head><title>Not this title</title><style type='text/css'>"
      u"p { color: red; }</style></head><body class='not'><p class='kept' id='k'>x</p>"
      u"</body></html>");
  const ustring content = body();
  EXPECT_TRUE(same_units(content, u"    <p class='kept' id='k'>\n      x\n    </p>\n" + block()));
  const ustring whole = saved_page();
  EXPECT_NE(whole.find(u"    <title>\n      Report\n    </title>\n"), ustring::npos);
  EXPECT_NE(whole.find(u"      .Style1 { \n"), ustring::npos);
  for (const ustring_view absent : {u"Not this title", u"red", u"lang", u"<body c"})
    EXPECT_EQ(whole.find(absent), ustring::npos) << printable(absent);
}

TEST_F(Filling, ThePiecesKeepTheirWholeContent) {
  load(
      u"<table border='1'><tr><td style='color: red'>c &amp; d</td></tr></table>"
      u"<ul><li>one<li>two</ul><pre>a\n  b</pre><hr/>" +
      marker(u"A"));
  EXPECT_TRUE(set(u"A"));
  EXPECT_TRUE(same_units(
      body(),
      lines({u"    <table border='1'>", u"      <tr>", u"        <td style='color: red;'>",
             u"          c &amp; d", u"        </td>", u"      </tr>", u"    </table>", u"    <ul>",
             u"      <li>", u"        one", u"      </li>", u"      <li>", u"        two",
             u"      </li>", u"    </ul>", u"    <pre>a", u"  b", u"    </pre>", u"    <hr/>"}) +
          block() + block()));
}

TEST_F(Filling, APageOfAReportIsATemplateToo) {
  report.AddText(u"one", false);
  report.AddText(span(u"A").c_str(), false);
  report.NewParagraph();
  report.AddHeading(u"h", 1);
  body();
  const std::string written = bytes_of(folder.path() / "out" / "Vellomark" / "page.htm");
  load_bytes(written);
  EXPECT_EQ(fields(), texts{u"A"}) << "it is in an anchor, so nothing is cut";
  EXPECT_TRUE(
      same_units(body(),
                 u"    <p>\n      <a>one</a><br/>\n      <a><span id='Template'>A</span></a><br/>\n"
                 u"    </p>\n" +
                     block() + heading(u'1', u"h") + block() + block()));
}

TEST_F(Filling, ThousandsOfFields) {
  ustring source;
  ustring expected;
  texts names;
  for (int number = 0; number < 3000; ++number) {
    const std::string digits = std::to_string(number);
    const ustring name(digits.begin(), digits.end());
    source += content(u"x" + name) + marker(name);
    expected += shown(u"x" + name) + block({name});
    names.push_back(name);
  }
  load(source);
  ASSERT_EQ(fields(), names);
  for (const ustring& name : names) {
    ASSERT_TRUE(set(name.c_str()));
    report.AddText(name.c_str(), false);
  }
  EXPECT_TRUE(same_units(body(), expected + block()));
}

}  // namespace
}  // namespace test
