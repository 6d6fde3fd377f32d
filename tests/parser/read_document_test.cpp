// Pages in files.

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <stdexcept>
#include <string>

#include "tests/parser/parse_kit.h"
#include "tests/support/fake_file.h"
#include "tests/support/tree_check.h"
#include "xport/parser/read_document.h"
#include "xport/stream/file_input_stream.h"

namespace test {
namespace {

const ustring page_text =
    u"<!DOCTYPE html>\n<html>\n  <head>\n    <title>\n      T\n    </title>\n  </head>\n"
    u"  <body>\n    <p>\n      a \u6F22\n    </p>\n  </body>\n</html>\n";
const std::string page_outline = "!! html(head(title('T')) body(p('a \\u6F22')))";

/// Reads files with read_document.
class ReadDocument : public ::testing::Test {
 protected:
  std::string read(const std::string& bytes) {
    record.bytes = bytes;
    EXPECT_TRUE(read_document(doc, std::make_unique<fake_input>(record)));
    EXPECT_TRUE(is_intact(*doc.root()));
    EXPECT_EQ(record.deaths, 1);
    record.deaths = 0;
    record.reads.clear();
    return outline_of_children(*doc.root());
  }

  input_record record;
  xhtml_doc doc{1};
};

TEST_F(ReadDocument, FileThatCannotBeOpened) {
  const xhtml_markup* const html = doc.html();
  EXPECT_FALSE(read_document(doc, nullptr));
  EXPECT_EQ(outline_of_children(*doc.root()),
            "!! html[xmlns=\"http://www.w3.org/1999/xhtml\"](head(title) body)");
  EXPECT_EQ(doc.html(), html);
}

TEST_F(ReadDocument, ReplacesThePageAndKnowsTheNewOne) {
  EXPECT_EQ(read(file_bytes(u"\uFEFF" + page_text)), page_outline);
  xhtml_markup& html = *++doc.root()->begin();
  EXPECT_EQ(doc.html(), &html);
  EXPECT_EQ(doc.head(), &*html.begin());
  EXPECT_EQ(doc.title(), &*html.begin()->begin());
  EXPECT_EQ(doc.body(), &*++html.begin());
  EXPECT_EQ(doc.stray(), nullptr);
}

TEST_F(ReadDocument, AFileOfEachByteOrderReadsAlike) {
  EXPECT_EQ(read(file_bytes(page_text)), page_outline);
  EXPECT_EQ(read(file_bytes(u"\uFEFF" + page_text)), page_outline);
  EXPECT_EQ(read(swapped_bytes(file_bytes(u"\uFEFF" + page_text))), page_outline);
}

TEST_F(ReadDocument, BigEndianWithoutAMarkIsTextOfOtherUnits) {
  EXPECT_EQ(read(swapped_bytes(file_bytes(u"<p>"))), "'\\u3C00\\u7000\\u3E00'");
}

TEST_F(ReadDocument, SingleByteTextIsReadInPairs) {
  EXPECT_EQ(read("<p>abc</p>"), "'\\u703C\\u613E\\u6362\\u2F3C\\u3E70'");
}

TEST_F(ReadDocument, Utf8IsReadInPairs) {
  // The mark has three bytes: the first two are read as one unit, the third one is half of
  // the next.
  EXPECT_EQ(read("\xEF\xBB\xBF<p>"), "'\\u3CBF\\u3E70'");
}

TEST_F(ReadDocument, EmptyFile) {
  EXPECT_EQ(read(""), "");
  EXPECT_EQ(doc.html(), nullptr);
  EXPECT_EQ(doc.head(), nullptr);
  EXPECT_EQ(doc.title(), nullptr);
  EXPECT_EQ(doc.body(), nullptr);
}

TEST_F(ReadDocument, FileOfOneByte) { EXPECT_EQ(read("<"), ""); }

TEST_F(ReadDocument, FileOfTheMarkAlone) {
  EXPECT_EQ(read("\xFF\xFE"), "");
  EXPECT_EQ(read("\xFE\xFF"), "");
  EXPECT_EQ(read("\xFF"), "");
}

TEST_F(ReadDocument, FileOfUnitsFFFF) {
  EXPECT_EQ(read(std::string(100'000, '\xFF')), "");
  EXPECT_EQ(read("\xFF\xFE" + std::string(100'000, '\xFF')), "");
}

TEST_F(ReadDocument, OddLastByteIsIgnored) {
  EXPECT_EQ(read(file_bytes(page_text) + "<"), page_outline);
  EXPECT_EQ(read(file_bytes(u"<p>a</p>").substr(0, 15)), "p('a')");
}

TEST_F(ReadDocument, ZeroUnitsAreTextLikeAnyOther) {
  EXPECT_EQ(read(file_bytes(u"<p>a" + ustring(2, u'\0') + u"b")), "p('a\\u0000\\u0000b')");
}

TEST_F(ReadDocument, PageOfManyBlocks) {
  const std::size_t block = file_input_buffer::block_units;
  for (const std::size_t more : {std::size_t{0}, std::size_t{1}, std::size_t{2}, std::size_t{3}}) {
    // The text ends before, at and after the end of the block.
    const std::size_t length = block - 5 + more;
    const ustring text = u"<p>" + ustring(length, u'a') + u"</p><p>b</p>";
    EXPECT_EQ(read(file_bytes(text)), "p('" + std::string(length, 'a') + "') p('b')");
  }
}

TEST_F(ReadDocument, ReadErrorEndsThePageThere) {
  const std::size_t block = file_input_buffer::block_units;
  const ustring text = u"<html><body><p>" + ustring(block, u'a') + u"</p><p>b</p></body></html>";
  record.failing_read = 2;
  EXPECT_EQ(read(file_bytes(text)), "html(body(p('" + std::string(block - 15, 'a') + "')))");
  ASSERT_NE(doc.html(), nullptr);
  EXPECT_EQ(doc.body(), &*doc.html()->begin());
  EXPECT_EQ(doc.head(), nullptr);
}

TEST_F(ReadDocument, ReadErrorAtTheStart) {
  record.failing_read = 1;
  EXPECT_EQ(read(file_bytes(page_text)), "");
  EXPECT_EQ(doc.html(), nullptr);
}

TEST_F(ReadDocument, IsSilentAndKeepsReferencesAsTheyAre) {
  EXPECT_EQ(read(file_bytes(u"<p>a & b &gt; &#62; \u00A9<li>\n\nc")),
            "p('a & b &gt; &#62; \\u00A9' 'c')");
}

TEST_F(ReadDocument, ReadsALineBreakInTextAsABlank) {
  EXPECT_EQ(read(file_bytes(u"<p>a\n  b")), "p('a b')");
}

TEST_F(ReadDocument, TheSamePageAgainAndAgain) {
  for (int i = 0; i < 3; ++i) EXPECT_EQ(read(file_bytes(u"\uFEFF" + page_text)), page_outline);
}

struct broken : std::runtime_error {
  broken() : std::runtime_error("broken") {}
};

/// Returns its bytes once, in as many reads as fill the first block, and then throws.
class breaking_file : public byte_input {
 public:
  explicit breaking_file(std::string bytes) : bytes_(std::move(bytes)) {}

  std::size_t read(void* bytes, std::size_t size) override {
    if (at_ == bytes_.size()) throw broken();
    const std::size_t count = bytes_.copy(static_cast<char*>(bytes), size, at_);
    at_ += count;
    return count;
  }
  bool rewind() override {
    at_ = 0;
    return true;
  }

 private:
  std::string bytes_;
  std::size_t at_ = 0;
};

TEST_F(ReadDocument, FileThatThrowsLeavesNothingThatDangles) {
  for (const bool big : {false, true}) {
    const std::size_t units = file_input_buffer::block_units;
    ustring text = u"\uFEFF<html><!--s--><head><title>t</title></head><body><p>";
    text += ustring(units - text.size(), u'a');
    std::string bytes = file_bytes(text);
    if (big) bytes = swapped_bytes(bytes);
    EXPECT_THROW(read_document(doc, std::make_unique<breaking_file>(bytes)), broken);
    EXPECT_TRUE(is_intact(*doc.root()));
    if (big) {  // nothing was parsed yet
      EXPECT_EQ(outline_of_children(*doc.root()), "");
      EXPECT_EQ(doc.html(), nullptr);
      EXPECT_EQ(doc.head(), nullptr);
      EXPECT_EQ(doc.stray(), nullptr);
      EXPECT_EQ(doc.title(), nullptr);
      EXPECT_EQ(doc.body(), nullptr);
      continue;
    }
    EXPECT_EQ(outline_of_children(*doc.root()), "html(#s# head(title('t')) body(p))");
    EXPECT_EQ(doc.html(), &*doc.root()->begin());
    EXPECT_EQ(doc.stray(), &*doc.html()->begin());
    EXPECT_EQ(doc.head(), &*++doc.html()->begin());
    EXPECT_EQ(doc.title(), &*doc.head()->begin());
    EXPECT_EQ(doc.body(), &*--doc.html()->end());
  }
}

// --- Pages with more well-known elements than a page may have ---

class ReindexedPage : public ReadDocument {};

TEST_F(ReindexedPage, TwoCommentsInHtml) {
  EXPECT_EQ(read(file_bytes(u"<html><!--a--><head></head><!--b--><body></body></html>")),
            "html(#a# head #b# body)");
  EXPECT_EQ(doc.stray(), &*++ ++doc.html()->begin());
  doc.reindex();
  EXPECT_EQ(outline_of_children(*doc.root()), "html(#a# head #b# body)");
}

TEST_F(ReindexedPage, TwoHeadsTitlesAndBodies) {
  const std::string outline =
      "html(head(title('1') title('2')) body(p('x')) head(#c#) body(p('y')))";
  EXPECT_EQ(read(file_bytes(u"<html><head><title>1</title><title>2</title></head>"
                            u"<body><p>x</p></body><head><!--c--></head><body><p>y</p></body>")),
            outline);
  xhtml_markup& html = *doc.html();
  EXPECT_EQ(doc.head(), &*++ ++html.begin());
  EXPECT_EQ(doc.body(), &*--html.end());
  EXPECT_EQ(doc.title(), &*++html.begin()->begin());
  for (int i = 0; i < 2; ++i) {
    doc.reindex();
    EXPECT_TRUE(is_intact(*doc.root()));
    EXPECT_EQ(outline_of_children(*doc.root()), outline);
  }
}

TEST_F(ReindexedPage, TwoHtmls) {
  EXPECT_EQ(read(file_bytes(u"<html><head><title>1</title></head></html><p>a</p><html><body>")),
            "html(head(title('1'))) p('a') html(body)");
  EXPECT_EQ(doc.html(), &*--doc.root()->end());
  EXPECT_EQ(doc.head(), &*doc.root()->begin()->begin());
  EXPECT_EQ(doc.title(), &*doc.head()->begin());
  EXPECT_EQ(doc.body(), &*doc.html()->begin());
}

TEST_F(ReindexedPage, PageWithoutHtml) {
  EXPECT_EQ(read(file_bytes(u"<head><title>1</title></head><body><p>a</p></body>")), "'1' p('a')");
  EXPECT_EQ(doc.html(), nullptr);
  EXPECT_EQ(doc.head(), nullptr);
  EXPECT_EQ(doc.body(), nullptr);
  EXPECT_EQ(doc.title(), nullptr);
  EXPECT_EQ(doc.stray(), nullptr);
}

TEST_F(ReindexedPage, HtmlInAnotherElementIsKnownIfTheRootAcceptsIt) {
  EXPECT_EQ(read(file_bytes(u"<div><html><body><p>a")), "div html(body(p('a')))");
  EXPECT_EQ(doc.html(), &*--doc.root()->end());
  EXPECT_EQ(read(file_bytes(u"<div><div><html><body><p>a")), "div(div(p('a')))");
  EXPECT_EQ(doc.html(), nullptr);
  EXPECT_EQ(doc.body(), nullptr);
}

}  // namespace
}  // namespace test
