// What LoadTemplate does to the report, with any content of the file.
#include <filesystem>

#include "tests/report/templates/template_page.h"

namespace test {
namespace {

using Loading = template_test;

TEST_F(Loading, EmptiesTheBody) {
  report.AddText(u"old", false);
  load(two_fields());
  EXPECT_TRUE(same_units(body(), shown(u"x") + block()));
}

TEST_F(Loading, AMissingFileLeavesTheReportAsItWas) {
  report.AddText(u"old", false);
  report.LoadTemplate(folder.text(u"/missing.htm").c_str());
  report.LoadTemplate(folder.text(u"/no/folder/missing.htm").c_str());
  report.LoadTemplate(u"");
  report.AddText(u"more", false);
  EXPECT_EQ(fields(), texts());
  EXPECT_TRUE(same_units(body(), block({u"old", u"more"}) + block()));
}

TEST_F(Loading, AMissingFileLeavesTheTemplateAsItWas) {
  load(two_fields());
  set(u"A");
  report.LoadTemplate(folder.text(u"/missing.htm").c_str());
  report.AddText(u"for A", false);
  EXPECT_EQ(fields(), (texts{u"value", u"B"}));
  EXPECT_TRUE(set(u"B"));
  EXPECT_TRUE(same_units(
      body(), shown(u"x") + block({u"for A"}) + shown(u"y") + block() + shown(u"z") + block()));
}

TEST_F(Loading, AFolderIsNoTemplate) {
  load(two_fields());
  set(u"A");
  report.LoadTemplate(folder.text().c_str());
  EXPECT_EQ(fields(), (texts{u"value", u"B"}));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y") + block()));
}

TEST_F(Loading, APathThatCannotBeExpressedIsNoTemplate) {
  load(two_fields());
  report.LoadTemplate(folder.text(u"/\xD800.htm").c_str());
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
}

TEST_F(Loading, ANullPathDoesNothing) {
  report.AddText(u"old", false);
  report.LoadTemplate(nullptr);
  report.AddText(u"more", false);
  EXPECT_TRUE(same_units(body(), block({u"old", u"more"}) + block()));
}

TEST_F(Loading, EitherSeparatorLeadsToTheFile) {
  std::filesystem::create_directory(folder.path() / "pages");
  make_file(folder.path() / "pages" / "t.htm", marked_bytes(page(marker(u"A"))));
  report.LoadTemplate(folder.text(u"\\pages\\t.htm").c_str());
  EXPECT_EQ(fields(), texts{u"A"});
}

TEST_F(Loading, AnEmptyFileIsAnEmptyTemplate) {
  for (const std::string& bytes : {std::string(), std::string("\xFF\xFE"), std::string("\xFF")}) {
    load(two_fields());
    report.AddText(u"old", false);
    load_bytes(bytes);
    EXPECT_EQ(fields(), texts());
    EXPECT_FALSE(set(u"A"));
    EXPECT_TRUE(same_units(body(), block()));
  }
}

TEST_F(Loading, APageInBytesIsAnEmptyTemplate) {
  report.AddText(u"old", false);
  load_bytes(
      "<html><head><title>t</title></head><body><p><span id='Template'>A</span></p>"
      "</body></html>");
  EXPECT_EQ(fields(), texts());
  EXPECT_TRUE(same_units(body(), block()));
  load_bytes("\xEF\xBB\xBF<html><body><p><span id='Template'>A</span></p></body></html>");
  EXPECT_EQ(fields(), texts());
  EXPECT_TRUE(same_units(body(), block()));
}

TEST_F(Loading, BytesOfAnyKindDoNoHarm) {
  std::string bytes;
  for (int byte = 0; byte < 256; ++byte) bytes += static_cast<char>(byte);
  for (std::size_t length = 1; length <= bytes.size(); length += 17) {
    load_bytes(bytes.substr(0, length));
    load_bytes(bytes.substr(length));
    EXPECT_EQ(fields(), texts());
    EXPECT_TRUE(same_units(body(), block()));
  }
}

TEST_F(Loading, TheMarkMayBeLeftOut) {
  load_bytes(file_bytes(page(two_fields())));
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block()));
}

TEST_F(Loading, TheBytesOfUnitsMayStandInEitherOrder) {
  std::string bytes;
  for (const unsigned unit : u"\uFEFF" + page(content(u"x\u20AC") + marker(u"A\u0100"))) {
    bytes += static_cast<char>(unit >> 8);
    bytes += static_cast<char>(unit & 0xFF);
  }
  load_bytes(bytes);
  EXPECT_EQ(fields(), texts{u"A\u0100"});
  EXPECT_TRUE(set(u"A\u0100"));
  EXPECT_TRUE(same_units(body(), shown(u"x\u20AC") + block() + block()));
}

TEST_F(Loading, AnOddLastByteIsIgnored) {
  load_bytes(marked_bytes(page(two_fields())) + "<");
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
}

TEST_F(Loading, ReadingEndsAtAUnitFfff) {
  load(content(u"x") + marker(u"A") + content(u"y\xFFFFz") + marker(u"B"));
  EXPECT_EQ(fields(), texts{u"A"});
  EXPECT_TRUE(set(u"A"));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y") + block()));
}

TEST_F(Loading, APageThatIsCutOffIsUsedUpToItsEnd) {
  load_source(u"<html><head><title>t</title></head><body>" + content(u"x") + marker(u"A") +
              u"<p>y<b>z");
  EXPECT_EQ(fields(), texts{u"A"});
  EXPECT_TRUE(set(u"A"));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y<b>z</b>") + block()));
}

TEST_F(Loading, APageWithoutABodyHasFieldsAndNoPieces) {
  report.AddText(u"old", false);
  load_source(u"<html><head><title id='Template'>A</title></head></html>");
  EXPECT_EQ(fields(), texts{u"A"});
  EXPECT_TRUE(set(u"A"));
  EXPECT_EQ(fields(), texts{u"value"});
  report.AddText(u"for A", false);
  EXPECT_TRUE(same_units(body(), block({u"for A"}) + block()));
}

TEST_F(Loading, AnEmptyBodyIsOneEmptyPiece) {
  report.AddText(u"old", false);
  load(u"");
  EXPECT_EQ(fields(), texts());
  EXPECT_TRUE(same_units(body(), block()));
  EXPECT_TRUE(same_units(body(), block() + block()));
}

TEST_F(Loading, AnotherTemplateReplacesAConsumedOne) {
  load(two_fields());
  set(u"A");
  set(u"B");
  body();
  load(content(u"other") + marker(u"C") + content(u"end"));
  EXPECT_EQ(fields(), texts{u"C"});
  EXPECT_FALSE(set(u"B"));
  EXPECT_TRUE(set(u"C"));
  report.AddText(u"for C", false);
  EXPECT_TRUE(same_units(body(), shown(u"other") + block({u"for C"}) + shown(u"end") + block()));
}

TEST_F(Loading, AnotherTemplateDropsThePiecesThatAreLeft) {
  load(two_fields());
  set(u"A");
  report.AddText(u"for A", false);
  load(content(u"other") + marker(u"C") + content(u"end"));
  EXPECT_EQ(fields(), texts{u"C"});
  EXPECT_TRUE(set(u"C"));
  EXPECT_TRUE(same_units(body(), shown(u"other") + block() + shown(u"end") + block()));
  EXPECT_TRUE(same_units(body(), shown(u"other") + block() + shown(u"end") + block() + block()));
}

TEST_F(Loading, ATemplateThatIsNoneDropsThePiecesThatAreLeft) {
  load(two_fields());
  load_bytes("no page");
  EXPECT_EQ(fields(), texts());
  EXPECT_TRUE(same_units(body(), block()));
}

TEST_F(Loading, TheSameTemplateMayBeLoadedOverAndOver) {
  for (int time = 0; time < 20; ++time) {
    load(two_fields());
    EXPECT_TRUE(set(u"A"));
    if (time % 2 == 0) {
      EXPECT_TRUE(set(u"B"));
    }
  }
  EXPECT_EQ(fields(), (texts{u"value", u"B"}));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y") + block()));
}

TEST_F(Loading, AfterClearedFieldsTheNextTemplateHasItsOwn) {
  load(two_fields());
  report.ClearTemplateFields();
  load(two_fields());
  EXPECT_EQ(fields(), (texts{u"A", u"B"}));
}

TEST_F(Loading, TheFileIsLeftAloneAndClosed) {
  const std::string bytes = marked_bytes(page(two_fields()));
  load_bytes(bytes);
  const std::filesystem::path file = folder.path() / "template.htm";
  EXPECT_EQ(bytes_of(file), bytes);
  std::filesystem::remove(file);
  EXPECT_TRUE(set(u"A"));
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y") + block()));
}

TEST_F(Loading, ThePageItselfMayBeTheTemplate) {
  load(two_fields());
  set(u"A");
  body();
  report.LoadTemplate((folder.path() / "out" / "Vellomark" / "page.htm").u16string().c_str());
  EXPECT_EQ(fields(), texts());
  EXPECT_TRUE(same_units(body(), shown(u"x") + block() + shown(u"y") + block() + block()));
}

}  // namespace
}  // namespace test
