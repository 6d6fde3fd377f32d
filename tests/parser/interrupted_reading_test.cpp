// Memory is refused while a page is read: nothing is lost, and what is in the document
// is intact.

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <sstream>
#include <string>
#include <utility>

#include "tests/parser/parse_kit.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/fake_file.h"
#include "tests/support/tree_check.h"
#include "tests/support/utf8.h"
#include "xport/parser/read_document.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

/// A page with a construct of every kind, short and long, and recoveries of every kind.
ustring page_text() {
  const ustring longer(700, u'l');
  return u"\uFEFF<?xml version='1.0'?><!DOCTYPE html><html><!-- stray --><head><title>" + longer +
         u"</title><style>p { color: red; }</style><script>var a = '<" + longer +
         u"';</script></head><body class='x' id='" + longer + u"'><p style='color: red' title='" +
         longer + u"'>a\n   b & &#169; " + longer + u"<p>c<div>d</div></p><ul><li>e<li>" +
         u"<!-- " + longer + u" --></ul><foo " + longer + u"><bar><center>f</center><b><i>g</b>" +
         u"<pre>h\n" + longer + u"</pre><table><tr><td>i<tr><td>j</table>k</td></tr></table>" +
         u"<?php " + longer + u"?><br/></" + longer + u"></body></html><li></html><";
}

/// Whether `node` is null or in the document.
bool is_known(const xhtml_doc& doc, const xhtml_markup* node) {
  if (node == nullptr) return true;
  for (const xhtml_markup& top : *doc.root()) {
    if (&top == node) return true;
    for (const xhtml_markup& child : top) {
      if (&child == node) return true;
      for (const xhtml_markup& below : child)
        if (&below == node) return true;
    }
  }
  return false;
}

void expect_whole(xhtml_doc& doc) {
  EXPECT_TRUE(is_intact(*doc.root()));
  EXPECT_TRUE(is_known(doc, doc.html()));
  EXPECT_TRUE(is_known(doc, doc.head()));
  EXPECT_TRUE(is_known(doc, doc.title()));
  EXPECT_TRUE(is_known(doc, doc.body()));
  EXPECT_TRUE(is_known(doc, doc.stray()));
}

/// Runs `read` with its first, second, third ... request for memory refused until none is.
/// `read` gets the number of the request and returns whether it was never made. A refusal that a
/// stream has taken as a state of its own counts, too. Each run must free all it allocated.
/// Returns the number of refusals.
template <class Read>
std::size_t refuse_each(Read read) {
  read(0);  // what is made once for the whole program
  return for_each_allocation([&](std::size_t number) {
    const std::size_t before = live_allocations();
    const bool passed = read(number);
    EXPECT_EQ(live_allocations(), before);
    return !passed;
  });
}

/// Calls `work` with request `number` refused. Returns whether the request was never made.
template <class Work>
bool passes(std::size_t number, Work work) {
  return !try_without_memory(number, work).ran_out;
}

TEST(InterruptedReading, OfAFile) {
  for (const bool big_endian : {false, true}) {
    const ustring text = big_endian ? swapped(page_text()) : page_text();
    const std::string bytes = file_bytes(text);
    std::string outline;
    const std::size_t refusals = refuse_each([&](std::size_t number) {
      input_record record;
      record.bytes = bytes;
      record.reads.reserve(100);
      xhtml_doc doc(1);
      auto file = std::make_unique<fake_input>(record);
      bool done = false;
      const bool passed = passes(number, [&] { done = read_document(doc, std::move(file)); });
      expect_whole(doc);
      EXPECT_EQ(record.deaths, 1);
      if (number == 0) outline = outline_of_children(*doc.root());
      if (passed) {
        EXPECT_TRUE(done);
        EXPECT_EQ(outline_of_children(*doc.root()), outline);
        EXPECT_NE(doc.body(), nullptr);
        EXPECT_NE(doc.stray(), nullptr);
      }
      return passed;
    });
    EXPECT_GT(refusals, 100u);
  }
}

/// Reads the page with all options, into a document or onto the heap.
bool parse_with_options(std::size_t number, const ustring& text, xhtml_element& receiver,
                        bool owns_input) {
  auto given = std::make_unique<std::basic_istringstream<char16>>(text);
  std::basic_istream<char16>* const input = owns_input ? given.release() : given.get();
  ustring_stream messages;
  xhtml_parser parser(input);
  parser.owns_input = owns_input;
  parser.messages = &messages;
  parser.message_mask = 15;
  parser.normalize_text = true;
  return passes(number, [&] { parse_page(parser, receiver); });
}

TEST(InterruptedReading, IntoADocument) {
  for (const bool owns_input : {false, true}) {
    for (const ustring& text : {page_text(), swapped(page_text())}) {
      const std::size_t refusals = refuse_each([&](std::size_t number) {
        xhtml_doc doc(1);
        const bool passed = parse_with_options(number, text, *doc.root(), owns_input);
        doc.reindex();
        expect_whole(doc);
        // What was read can still be changed.
        *doc.root() << u"more";
        if (doc.body() != nullptr) doc.body()->append_copy(xhtml_element(tag_id::p, u"i", {}));
        expect_whole(doc);
        return passed;
      });
      EXPECT_GT(refusals, 200u);
    }
  }
}

TEST(InterruptedReading, IntoAnElementOnTheHeap) {
  const ustring text = page_text();
  const std::size_t refusals = refuse_each([&](std::size_t number) {
    xhtml_element root(tag_id::doc_root, {}, {});
    root << u"old";
    const bool passed = parse_with_options(number, text, root, false);
    EXPECT_TRUE(is_intact(root));
    return passed;
  });
  EXPECT_GT(refusals, 250u);
}

/// A leftover of a receiver in a document: an element or an end tag moved to the heap.
TEST(InterruptedReading, ThatReturnsALeftover) {
  const ustring element = u"<div title='" + ustring(700, u'v') + u"' class='short'>";
  const ustring end_tag = u"</body>";
  for (const ustring& left : {element, end_tag}) {
    const std::size_t refusals = refuse_each([&](std::size_t number) {
      xhtml_doc doc(1);
      xhtml_markup& p = *append_element(*doc.body(), tag_id::p);
      std::basic_istringstream<char16> input(u"a<b>c</b>" + left);
      xhtml_parser parser(&input);
      std::unique_ptr<xhtml_markup> returned;
      const bool passed = passes(number, [&] { returned.reset(parser.parse_children(&p)); });
      expect_whole(doc);
      EXPECT_EQ(returned != nullptr, passed);
      return passed;
    });
    EXPECT_GT(refusals, 0u);
  }
}

TEST(InterruptedReading, LosesNoLeftoverOfAPage) {
  xhtml_element body(tag_id::body, {}, {});
  auto& p = *append_element(body, tag_id::p)->as_element();
  const std::size_t before = live_allocations();
  for (const ustring& left : {u"<div title='" + ustring(700, u'v') + u"'>", ustring(u"</body>")})
    EXPECT_TRUE(parse_with_options(0, left, p, false));
  EXPECT_EQ(live_allocations(), before);
}

TEST(InterruptedReading, ReleasesASwappedPage) {
  const ustring text = swapped(u"\uFEFF<p>" + ustring(5000, u'a'));
  xhtml_element div(tag_id::div, {}, {});
  const std::size_t before = live_allocations();
  for (const bool owns_input : {false, true}) {
    EXPECT_TRUE(parse_with_options(0, text, div, owns_input));
    EXPECT_FALSE(div.begin() == div.end());
    div.clear_children();
    EXPECT_EQ(live_allocations(), before);
  }
}

// A text that there is no memory for is lost as a whole, and what comes after it is read.
TEST(InterruptedReading, GoesOnAfterTheText) {
  refuse_each([](std::size_t number) {
    // On the heap, where each node needs memory of its own.
    std::basic_istringstream<char16> input(u"<b>x</b>\n  abc<i>  d</i>\n e");
    xhtml_parser parser(&input);
    xhtml_element root(tag_id::doc_root, {}, {});
    const bool passed = passes(number, [&] { parser.parse_children(&root); });
    parser.parse_children(&root);
    EXPECT_EQ(parser.line, 3u) << number;
    const std::string children = outline_of_children(root);
    const bool has_text = children.find("'abc'") != std::string::npos;
    EXPECT_EQ(children.find("bc'") != std::string::npos, has_text) << number << ": " << children;
    return passed;
  });
}

}  // namespace
}  // namespace test
