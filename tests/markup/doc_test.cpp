// The document: its skeleton, its well-known elements and its output.

#include <gtest/gtest.h>

#include <climits>
#include <ios>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/markup/tree_text.h"
#include "tests/support/golden.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

static_assert(std::has_virtual_destructor_v<xhtml_doc>);

const ustring skeleton_text =
    u"<!DOCTYPE html PUBLIC \"-//W3C//DTD XHTML 1.0 Strict//EN\"\n"
    u"     \"http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd\">\n"
    u"\n"
    u"<html xmlns='http://www.w3.org/1999/xhtml'>\n"
    u"  <head>\n"
    u"    <title>\n"
    u"    </title>\n"
    u"  </head>\n"
    u"  <body>\n"
    u"  </body>\n"
    u"</html>\n";

const ustring marked_skeleton = ustring(1, u'\uFEFF').append(skeleton_text);

ustring page(const xhtml_doc& doc) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  EXPECT_TRUE(doc.write(writer));
  return stream.str();
}

/// Adopts a new element, which isn't subject to the rules of order.
xhtml_markup* adopt(xhtml_markup* parent, tag_id tag) {
  auto node = std::make_unique<xhtml_element>(tag, u"", u"");
  EXPECT_TRUE(parent->adopt_child(node.get()) != parent->end());
  return node.release();
}

TEST(Document, OfMode1HasTheSkeleton) {
  xhtml_doc doc(1);
  EXPECT_TRUE(is_tree(*doc.root(), "document root(!! html(head(title) body))"));
  EXPECT_EQ(doc.html(), std::next(doc.root()->begin()).cell());
  EXPECT_EQ(doc.head(), doc.html()->begin().cell());
  EXPECT_EQ(doc.title(), doc.head()->begin().cell());
  EXPECT_EQ(doc.body(), std::next(doc.html()->begin()).cell());
  EXPECT_EQ(doc.stray(), nullptr);
  EXPECT_EQ(doc.html()->get_attribute(attr_id::xmlns), u"http://www.w3.org/1999/xhtml");
  EXPECT_EQ(doc.html()->attributes()->size(), 1u);
  EXPECT_TRUE(doc.head()->attributes()->empty());
  EXPECT_TRUE(doc.title()->attributes()->empty());
  EXPECT_TRUE(doc.body()->attributes()->empty());
}

TEST(Document, OfAnyOtherModeHasTheRootAlone) {
  for (const int mode : {0, 2, -1, 3, INT_MAX, INT_MIN}) {
    xhtml_doc doc(mode);
    EXPECT_TRUE(is_tree(*doc.root(), "document root"));
    EXPECT_EQ(doc.html(), nullptr);
    EXPECT_EQ(doc.head(), nullptr);
    EXPECT_EQ(doc.title(), nullptr);
    EXPECT_EQ(doc.body(), nullptr);
    EXPECT_EQ(doc.stray(), nullptr);
  }
}

TEST(Document, HasARootWithoutAttributes) {
  xhtml_doc doc(0);
  EXPECT_EQ(doc.root()->tag(), tag_id::doc_root);
  EXPECT_EQ(doc.root()->node_kind(), 2);
  EXPECT_EQ(doc.root()->parent(), nullptr);
  EXPECT_TRUE(doc.root()->attributes()->empty());
  EXPECT_EQ(std::as_const(doc).root(), doc.root());
}

TEST(Document, FindsTheLastTitleAtTheFirstLook) {
  xhtml_doc doc(1);
  xhtml_markup* const second = adopt(doc.head(), tag_id::title);
  EXPECT_EQ(doc.title(), second);
  adopt(doc.head(), tag_id::title);
  EXPECT_EQ(doc.title(), second) << "looked up once";
}

TEST(Document, FindsTheLastBodyAtTheFirstLook) {
  xhtml_doc doc(0);
  xhtml_markup* const html = adopt(doc.root(), tag_id::html);
  EXPECT_EQ(doc.body(), nullptr) << "html isn't known";
  doc.reindex();
  EXPECT_EQ(doc.html(), html);
  EXPECT_EQ(doc.head(), nullptr);
  EXPECT_EQ(doc.body(), nullptr);
  adopt(html, tag_id::body);
  xhtml_markup* const second = adopt(html, tag_id::body);
  EXPECT_EQ(doc.body(), second);
  adopt(html, tag_id::body);
  EXPECT_EQ(doc.body(), second);
}

TEST(Document, FindsNoTitleWithoutAHead) {
  xhtml_doc doc(0);
  xhtml_markup* const html = adopt(doc.root(), tag_id::html);
  doc.reindex();
  EXPECT_EQ(doc.title(), nullptr);
  xhtml_markup* const head = adopt(html, tag_id::head);
  EXPECT_EQ(doc.title(), nullptr) << "head isn't known";
  doc.reindex();
  EXPECT_EQ(doc.head(), head);
  EXPECT_EQ(doc.title(), nullptr);
  EXPECT_EQ(doc.title(), nullptr);
  xhtml_markup* const title = adopt(head, tag_id::title);
  EXPECT_EQ(doc.title(), title);
}

TEST(Reindex, FindsAllOfAFreshTree) {
  xhtml_doc doc(0);
  *doc.root() << xhtml_comment(u"above");
  xhtml_markup* const html = adopt(doc.root(), tag_id::html);
  xhtml_markup* const head = adopt(html, tag_id::head);
  adopt(head, tag_id::meta);
  xhtml_markup* const title = adopt(head, tag_id::title);
  *head << xhtml_comment(u"in head");
  xhtml_markup* const stray = html->append_copy(xhtml_comment(u"stray")).cell();
  xhtml_markup* const body = adopt(html, tag_id::body);
  *body << xhtml_comment(u"in body");
  doc.reindex();
  EXPECT_EQ(doc.html(), html);
  EXPECT_EQ(doc.head(), head);
  EXPECT_EQ(doc.title(), title);
  EXPECT_EQ(doc.body(), body);
  EXPECT_EQ(doc.stray(), stray);
}

TEST(Reindex, OfAnEmptyTreeFindsNothing) {
  xhtml_doc doc(0);
  doc.reindex();
  *doc.root() << xhtml_comment(u"c") << element(tag_id::p);
  doc.reindex();
  EXPECT_EQ(doc.html(), nullptr);
  EXPECT_EQ(doc.head(), nullptr);
  EXPECT_EQ(doc.title(), nullptr);
  EXPECT_EQ(doc.body(), nullptr);
  EXPECT_EQ(doc.stray(), nullptr);
}

TEST(Reindex, OfASkeletonFindsWhatWasKnown) {
  xhtml_doc doc(1);
  xhtml_markup* const known[] = {doc.html(), doc.head(), doc.title(), doc.body()};
  for (int i = 0; i < 3; ++i) {
    doc.reindex();
    EXPECT_EQ(doc.html(), known[0]);
    EXPECT_EQ(doc.head(), known[1]);
    EXPECT_EQ(doc.title(), known[2]);
    EXPECT_EQ(doc.body(), known[3]);
    EXPECT_EQ(doc.stray(), nullptr);
  }
  EXPECT_TRUE(is_tree(*doc.root(), "document root(!! html(head(title) body))"));
}

// Where there are two of a kind the last one is known and both stay alive.
TEST(Reindex, FindsTheLastOfSeveralAndKeepsAll) {
  xhtml_doc doc(1);
  xhtml_markup* const first_head = doc.head();
  xhtml_markup* const first_body = doc.body();
  adopt(first_head, tag_id::title);
  *doc.html() << xhtml_comment(u"one") << xhtml_processing_instruction(u"two");
  xhtml_markup* const stray = doc.html()->append_copy(xhtml_comment(u"three")).cell();
  xhtml_markup* const head = adopt(doc.html(), tag_id::head);
  adopt(head, tag_id::title);
  xhtml_markup* const title = adopt(head, tag_id::title);
  xhtml_markup* const body = adopt(doc.html(), tag_id::body);
  for (int i = 0; i < 2; ++i) {
    doc.reindex();
    EXPECT_EQ(doc.head(), head);
    EXPECT_EQ(doc.title(), title);
    EXPECT_EQ(doc.body(), body);
    EXPECT_EQ(doc.stray(), stray);
    *first_head->begin() << u"t";
    *first_body << element(tag_id::p);
    *stray << u"!";
  }
  EXPECT_TRUE(is_tree(*doc.root(),
                      "document root(!! html(head(title('t' 't') title) body(p p) #one# ?two? "
                      "#three!!# head(title title) body))"));
}

TEST(Reindex, KeepsTheTitleOfAnEarlierHead) {
  xhtml_doc doc(1);
  xhtml_markup* const title = doc.title();
  xhtml_markup* const head = adopt(doc.html(), tag_id::head);
  doc.reindex();
  EXPECT_EQ(doc.head(), head);
  EXPECT_EQ(doc.title(), title);
}

TEST(Reindex, LooksIntoEveryHtml) {
  xhtml_doc doc(1);
  xhtml_markup* const head = doc.head();
  xhtml_markup* const html = adopt(doc.root(), tag_id::html);
  xhtml_markup* const body = adopt(html, tag_id::body);
  doc.reindex();
  EXPECT_EQ(doc.html(), html);
  EXPECT_EQ(doc.head(), head) << "only the first html has one";
  EXPECT_EQ(doc.body(), body);
}

TEST(Reindex, ForgetsWhatWasCleared) {
  xhtml_doc doc(1);
  EXPECT_NE(doc.title(), nullptr);
  *doc.html() << xhtml_comment(u"stray");
  doc.reindex();
  EXPECT_NE(doc.stray(), nullptr);
  doc.root()->clear_children();
  doc.reindex();
  EXPECT_EQ(doc.html(), nullptr);
  EXPECT_EQ(doc.head(), nullptr);
  EXPECT_EQ(doc.title(), nullptr);
  EXPECT_EQ(doc.body(), nullptr);
  EXPECT_EQ(doc.stray(), nullptr);
  xhtml_markup* const html = adopt(doc.root(), tag_id::html);
  doc.reindex();
  EXPECT_EQ(doc.html(), html);
  EXPECT_EQ(doc.body(), nullptr);
}

TEST(DocumentOutput, OfMode0IsTheMarkAlone) { EXPECT_EQ(page(xhtml_doc(0)), u"\uFEFF"); }

TEST(DocumentOutput, OfTheSkeletonIsThis) {
  EXPECT_TRUE(same_units(page(xhtml_doc(1)), marked_skeleton));
}

TEST(DocumentOutput, IgnoresTheTextOfTheDoctype) {
  xhtml_doc doc(1);
  *doc.root()->begin() << u"anything";
  EXPECT_TRUE(same_units(page(doc), marked_skeleton));
}

TEST(DocumentOutput, StartsWithTheRequestedMark) {
  const struct {
    std::uint32_t mode;
    ustring mark;
  } marks[] = {{0, {}}, {1, {}}, {2, {0xFEFF}}, {3, {0, 0xFEFF}}, {4, {}}, {0xFFFFFFFF, {}}};
  const xhtml_doc empty(0);
  const xhtml_doc skeleton(1);
  for (const auto& m : marks) {
    for (const xhtml_doc* doc : {&empty, &skeleton}) {
      ustring_stream stream;
      xhtml_writer writer(stream);
      writer.byte_order_mark = m.mode;
      EXPECT_TRUE(doc->write(writer));
      EXPECT_TRUE(same_units(stream.str(), m.mark + (doc == &skeleton ? skeleton_text : ustring())))
          << m.mode;
    }
  }
}

TEST(DocumentOutput, IsRefusedByAFailedStream) {
  const xhtml_doc doc(1);
  for (const auto state : {std::ios_base::failbit, std::ios_base::badbit,
                           std::ios_base::failbit | std::ios_base::badbit}) {
    ustring_stream stream;
    stream.exceptions(std::ios_base::goodbit);
    xhtml_writer writer(stream);
    stream.setstate(state);
    EXPECT_FALSE(doc.write(writer));
    stream.clear();
    EXPECT_EQ(stream.str(), u"");
    EXPECT_TRUE(doc.write(writer)) << "and taken once the stream is good";
    EXPECT_TRUE(same_units(stream.str(), marked_skeleton));
  }
}

/// A stream buffer that fails at once and counts how often it is flushed.
struct failing_buffer : std::basic_streambuf<char16_t> {
  int flushes = 0;
  int sync() override { return ++flushes, 0; }
};

TEST(DocumentOutput, ThatFailsOnTheWayShowsInTheStream) {
  failing_buffer buffer;
  std::basic_ostream<char16_t> stream(&buffer);
  xhtml_writer writer(stream);
  EXPECT_TRUE(xhtml_doc(1).write(writer));
  EXPECT_TRUE(stream.fail());
}

struct counting_buffer : failing_buffer {
  std::streamsize xsputn(const char16_t*, std::streamsize count) override { return count; }
};

TEST(DocumentOutput, IsFlushed) {
  counting_buffer buffer;
  std::basic_ostream<char16_t> stream(&buffer);
  xhtml_writer writer(stream);
  EXPECT_TRUE(xhtml_doc(0).write(writer));
  EXPECT_GE(buffer.flushes, 1);
}

/// A file in memory that can fail.
class memory_file : public byte_output {
 public:
  memory_file(std::vector<unsigned char>& bytes, bool writes, bool closes)
      : bytes_(bytes), writes_(writes), closes_(closes) {}

  bool write(const void* bytes, std::size_t size) override {
    const auto* const first = static_cast<const unsigned char*>(bytes);
    if (writes_) bytes_.insert(bytes_.end(), first, first + size);
    return writes_;
  }
  bool close() override { return closes_; }

 private:
  std::vector<unsigned char>& bytes_;
  bool writes_;
  bool closes_;
};

TEST(DocumentFile, HoldsUnitsLowByteFirst) {
  const xhtml_doc doc(1);
  doc.html()->begin()->begin()->append_text(u"\u0416");
  std::vector<unsigned char> bytes;
  EXPECT_TRUE(write_document(doc, std::make_unique<memory_file>(bytes, true, true)));
  const ustring text = page(doc);
  ASSERT_EQ(bytes.size(), text.size() * 2);
  EXPECT_EQ(bytes[0], 0xFF);
  EXPECT_EQ(bytes[1], 0xFE);
  for (std::size_t i = 0; i < text.size(); ++i) {
    ASSERT_EQ(bytes[2 * i], text[i] & 0xFF);
    ASSERT_EQ(bytes[2 * i + 1], text[i] >> 8);
  }
  EXPECT_EQ(text.find(u'\r'), ustring::npos);
}

TEST(DocumentFile, ThatCouldntBeOpenedReturnsFalse) {
  EXPECT_FALSE(write_document(xhtml_doc(1), nullptr));
}

TEST(DocumentFile, ThatFailsLaterReturnsTrue) {
  std::vector<unsigned char> bytes;
  EXPECT_TRUE(write_document(xhtml_doc(1), std::make_unique<memory_file>(bytes, false, true)));
  EXPECT_TRUE(write_document(xhtml_doc(1), std::make_unique<memory_file>(bytes, true, false)));
}

}  // namespace
}  // namespace test
