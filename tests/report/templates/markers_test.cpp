// Where markers work, and how a template with markers elsewhere is read.
#include "tests/report/templates/template_page.h"

namespace test {
namespace {

class Markers : public template_test {
 protected:
  /// Loads a body and returns the pieces that it is cut into, each as a page shows it.
  texts pieces_of(ustring_view source) {
    load(source);
    texts pieces;
    ustring before;
    // An empty piece counts too: saves until all pieces are placed.
    for (int save = 0; save < 8; ++save) {
      const ustring after = body();
      EXPECT_EQ(after.substr(0, before.size()), before);
      const ustring empty = block();
      EXPECT_TRUE(after.ends_with(empty));
      pieces.push_back(after.substr(before.size(), after.size() - before.size() - empty.size()));
      before = after;
    }
    while (!pieces.empty() && pieces.back().empty()) pieces.pop_back();
    return pieces;
  }
};

TEST_F(Markers, CutTheBodyAndVanish) {
  EXPECT_EQ(pieces_of(two_fields()), (texts{shown(u"x"), shown(u"y"), shown(u"z")}));
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
}

TEST_F(Markers, MayStandFirstLastAndSideBySide) {
  EXPECT_EQ(pieces_of(marker(u"A") + marker(u"B") + content(u"x") + marker(u"C")),
            (texts{u"", u"", shown(u"x")}));
  EXPECT_EQ(fields(), (texts{u"A", u"B", u"C"}));
}

TEST_F(Markers, APageWithoutThemIsOnePiece) {
  EXPECT_EQ(pieces_of(content(u"x") + content(u"y")), texts{shown(u"x") + shown(u"y")});
  EXPECT_EQ(fields(), texts());
  EXPECT_FALSE(set(u"A"));
}

TEST_F(Markers, MayBeOfAnyKindThatABlockAccepts) {
  EXPECT_EQ(pieces_of(u"<p><a id='Template'>A</a></p>"
                      u"<p><b id='Template'>B</b></p>"
                      u"<p><code id='Template'>C</code></p>" +
                      content(u"x")),
            (texts{u"", u"", u"", shown(u"x")}));
  EXPECT_EQ(fields(), (texts{u"A", u"B", u"C"}));
}

TEST_F(Markers, MayHaveOtherAttributesAndAnyQuotes) {
  EXPECT_EQ(pieces_of(u"<p class='c'><SPAN class=\"c\" ID='Template' title='t'>A</SPAN></p>" +
                      content(u"x")),
            (texts{u"", shown(u"x")}));
  EXPECT_EQ(fields(), texts{u"A"});
}

TEST_F(Markers, AreKnownByTheExactValueOfTheirId) {
  const ustring body =
      u"<p><span id='template'>a</span></p><p><span id='Template '>b</span></p>"
      u"<p><span class='Template'>c</span></p><p><span id='Templates'>d</span></p>"
      u"<p><span id='TEMPLATE'>e</span></p>";
  EXPECT_EQ(pieces_of(body + marker(u"A") + content(u"x")).size(), 2u);
  EXPECT_EQ(fields(), texts{u"A"});
}

TEST_F(Markers, TakeTheBlockAlongWithAllThatIsInIt) {
  EXPECT_EQ(pieces_of(content(u"x") + content(span(u"A") + u" and <b>more</b>" + span(u"B")) +
                      content(u"y")),
            (texts{shown(u"x"), shown(u"y")}));
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
}

TEST_F(Markers, NameTheirFieldByTheirFirstChildAsItIsWritten) {
  EXPECT_EQ(pieces_of(content(span(u"A<b>c</b>")) + content(span(u"<b class=\"d\">A</b>c")) +
                      content(span(u"<!-- note -->A")) + content(span(u"A &amp; &lt;B&gt;")) +
                      content(span(u"<br/>A")) + content(u"x")),
            (texts{u"", u"", u"", u"", u"", shown(u"x")}));
  EXPECT_EQ(fields(), (texts{u"A", u"<b class='d'>A</b>", u"<!-- note -->", u"A &amp; &lt;B&gt;",
                             u"<br/>\n"}));
  EXPECT_TRUE(set(u"<b class='d'>A</b>"));
}

TEST_F(Markers, MayStandOnLinesOfTheirOwn) {
  EXPECT_EQ(pieces_of(u"\n  <p>x</p>\n  <p>\n    <span id='Template'>\n      A\n      B\n"
                      u"    </span>\n  </p>\n  <p>y</p>\n"),
            (texts{shown(u"x"), shown(u"y")}));
  EXPECT_EQ(fields(), texts{u"A B"});
}

TEST_F(Markers, KeepTheBlankBeforeTheirText) {
  load(content(span(u" A ")));
  EXPECT_EQ(fields(), texts{u" A"});
}

TEST_F(Markers, MayHaveAnEmptyText) {
  EXPECT_EQ(pieces_of(content(u"x") + content(span(u" ")) + content(u"y")),
            (texts{shown(u"x"), shown(u"y")}));
  EXPECT_EQ(fields(), texts{u""});
  EXPECT_TRUE(report.SetTemplateField(u"", false, nullptr));
}

TEST_F(Markers, AreComparedUnitByUnit) {
  load(marker(u"\xD800\xE4\xDC00") + marker(u"\xFFFE"));
  EXPECT_EQ(fields(), (texts{u"\xD800\xE4\xDC00", u"\xFFFE"}));
  EXPECT_TRUE(set(u"\xD800\xE4\xDC00"));
  EXPECT_FALSE(set(u"\xD800\xE4"));
}

TEST_F(Markers, TextBetweenBlocksCommentsAndInstructionsAreInNoPiece) {
  EXPECT_EQ(pieces_of(u"text<!-- c --><?php x?><p>x</p>text<!-- d -->" + marker(u"A") +
                      u"<!-- e --><p>y</p><!-- f -->text"),
            (texts{shown(u"x"), shown(u"y")}));
  EXPECT_EQ(fields(), texts{u"A"});
}

// Where they don't work.

TEST_F(Markers, AfterOtherContentAreFieldsWithoutACut) {
  for (const ustring_view before : {u"text", u" ", u"<br/>", u"<b>c</b>", u"<!-- c -->"}) {
    SCOPED_TRACE(printable(before));
    const texts pieces =
        pieces_of(content(u"x") + content(ustring(before) + span(u"A")) + content(u"y"));
    ASSERT_EQ(pieces.size(), 1u);
    EXPECT_EQ(count_of(u"<span id='Template'>A</span>", pieces[0]), 1u);
    EXPECT_TRUE(pieces[0].ends_with(shown(u"y")));
    EXPECT_EQ(fields(), texts{u"A"});
  }
}

TEST_F(Markers, InOtherElementsAreFieldsWithoutACut) {
  for (const ustring& body :
       {u"<div>" + marker(u"A") + u"</div>", u"<div>" + span(u"A") + u"</div>",
        u"<h1>" + span(u"A") + u"</h1>", u"<ul><li>" + marker(u"A") + u"</li></ul>",
        u"<table><tr><td>" + marker(u"A") + u"</td></tr></table>",
        u"<blockquote>" + marker(u"A") + u"</blockquote>", u"<p><b>" + span(u"A") + u"</b></p>"}) {
    SCOPED_TRACE(printable(body));
    const texts pieces = pieces_of(content(u"x") + body + content(u"y"));
    ASSERT_EQ(pieces.size(), 1u);
    EXPECT_EQ(count_of(u"<span id='Template'>", pieces[0]), 1u);
    EXPECT_EQ(fields(), texts{u"A"});
  }
}

TEST_F(Markers, BlocksThatAreMarkersThemselvesAreFieldsWithoutACut) {
  EXPECT_EQ(pieces_of(content(u"x") + u"<p id='Template'>A</p><h1 id='Template'>B</h1>"),
            texts{shown(u"x") + u"    <p id='Template'>\n      A\n    </p>\n"
                                u"    <h1 id='Template'>\n      B\n    </h1>\n"});
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
  EXPECT_EQ(
      pieces_of(u"<p id='Template'>" + span(u"A") + u"</p>" + content(u"x")),
      texts{u"    <p id='Template'>\n      <span id='Template'>A</span>\n    </p>\n" + shown(u"x")})
      << "the field of the block comes first";
  EXPECT_EQ(fields(), (texts{u"<span id='Template'>A</span>", u"A"}));
}

TEST_F(Markers, OutOfPlaceStopAllLaterCuts) {
  const ustring misplaced = content(u"text" + span(u"M"));
  EXPECT_EQ(pieces_of(content(u"x") + marker(u"A") + misplaced + marker(u"B") + marker(u"C") +
                      content(u"z")),
            (texts{shown(u"x"), shown(u"text<span id='Template'>M</span>") +
                                    shown(u"<span id='Template'>B</span>") +
                                    shown(u"<span id='Template'>C</span>") + shown(u"z")}));
  EXPECT_EQ(fields(), (texts{u"A", u"M", u"B", u"C"}));
}

TEST_F(Markers, OutOfPlaceDoNoHarmAfterTheLastOne) {
  EXPECT_EQ(
      pieces_of(marker(u"A") + content(u"x") + marker(u"B") + u"<h1>" + span(u"M") + u"</h1>"),
      (texts{u"", shown(u"x"), u"    <h1>\n      <span id='Template'>M</span>\n    </h1>\n"}));
  EXPECT_EQ(fields(), (texts{u"A", u"B", u"M"}));
}

TEST_F(Markers, OutOfStepCutAgainWhereTheTextsHappenToBeEqual) {
  EXPECT_EQ(
      pieces_of(content(u"text" + span(u"A")) + marker(u"B") + marker(u"A") + content(u"x") +
                marker(u"B") + content(u"y")),
      (texts{shown(u"text<span id='Template'>A</span>") + shown(u"<span id='Template'>B</span>"),
             shown(u"x"), shown(u"y")}))
      << "the third one is cut for the first field, the fourth for the second";
  EXPECT_EQ(fields(), (texts{u"A", u"B", u"A", u"B"}));
}

TEST_F(Markers, InMarkersAreFieldsOfTheirOwn) {
  EXPECT_EQ(
      pieces_of(content(u"x") + content(span(u"<b id='Template'>A</b>")) + content(u"y") +
                marker(u"B") + content(u"z")),
      (texts{shown(u"x"), shown(u"y") + shown(u"<span id='Template'>B</span>") + shown(u"z")}));
  EXPECT_EQ(fields(), (texts{u"<b id='Template'>A</b>", u"A", u"B"}));
}

TEST_F(Markers, InTheHeadAreFieldsAndStopAllCuts) {
  load_source(u"<html><head><title id='Template'>T</title></head><body>" + two_fields() +
              u"</body></html>");
  EXPECT_EQ(fields(), (texts{u"T", u"A", u"B"}));
  EXPECT_TRUE(same_units(body(), shown(u"x") + shown(u"<span id='Template'>A</span>") +
                                     shown(u"y") + shown(u"<span id='Template'>B</span>") +
                                     shown(u"z") + block()));
}

TEST_F(Markers, WithoutAChildAreNoFields) {
  EXPECT_EQ(
      pieces_of(content(u"x") + u"<p><span id='Template'></span></p>" + marker(u"A") +
                u"<p><br id='Template'/></p>" + marker(u"B") + u"<hr id='Template'/>"),
      (texts{shown(u"x") + shown(u"<span id='Template'></span>"),
             u"    <p>\n      <br id='Template'/>\n    </p>\n", u"    <hr id='Template'/>\n"}));
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
}

TEST_F(Markers, BlocksWithoutAChildAreOrdinaryContent) {
  EXPECT_EQ(pieces_of(u"<p></p>" + marker(u"A") + u"<p>\n</p><p id='Template'></p>"),
            (texts{block(), block() + u"    <p id='Template'>\n    </p>\n"}));
  EXPECT_EQ(fields(), texts{u"A"});
}

TEST_F(Markers, OutsideTheBodyCountAsFields) {
  load_source(u"<html><head><title>t</title></head></html>");
  EXPECT_EQ(fields(), texts());
  load_source(u"<html><head><title id='Template'>A</title></head></html>");
  EXPECT_EQ(fields(), texts{u"A"});
}

TEST_F(Markers, OfASecondBodyAreFieldsWithoutACut) {
  load_source(u"<html><head><title>t</title></head><body>" + content(u"x") + marker(u"A") +
              u"</body><body>" + content(u"y") + marker(u"B") + content(u"z") + u"</body></html>");
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block()));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + block()));
}

TEST_F(Markers, AtAnyDepthAreFound) {
  constexpr int depth = 100000;
  ustring deep;
  for (int level = 0; level < depth; ++level) deep += u"<b>";
  deep += span(u"A");
  for (int level = 0; level < depth; ++level) deep += u"</b>";
  load(content(u"x" + deep) + marker(u"B"));
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
  EXPECT_TRUE(set(u"A"));
  const ustring content = body();
  EXPECT_EQ(count_of(u"<b>", content), static_cast<std::size_t>(depth));
  EXPECT_EQ(count_of(u"</b>", content), static_cast<std::size_t>(depth));
}

}  // namespace
}  // namespace test
