// The depth of a page costs memory, but no machine stack and no more time than its length.

#include <gtest/gtest.h>
#include <time.h>

#include <cstddef>
#include <functional>
#include <memory>
#include <sstream>

#include "tests/support/allocation_failure.h"
#include "tests/support/derived_nodes.h"
#include "tests/support/golden.h"
#include "tests/support/small_stack.h"
#include "tests/support/tree_check.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/markup/xhtml_writer.h"
#include "xport/parser/read_document.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

constexpr std::size_t levels = 200'000;

// Less than six bytes for each level, so that one call for each would not go well.
constexpr std::size_t stack_size = std::size_t{1} << 20;

ustring repeated(ustring_view part, std::size_t count) {
  ustring text;
  text.reserve(part.size() * count);
  for (; count != 0; --count) text += part;
  return text;
}

ustring nested(ustring_view open, ustring_view close, std::size_t count) {
  return repeated(open, count) + u"x" + repeated(close, count);
}

template <class Parser>
void parse_into(xhtml_element& receiver, const ustring& text) {
  std::basic_istringstream<char16> input(text);
  Parser parser(&input);
  parse_page(parser, receiver);
}

/// The number of levels below `top`, each of them the first child of the one above, and the
/// text in the last one.
std::size_t depth_of(const xhtml_markup& top) {
  std::size_t depth = 0;
  const xhtml_markup* node = &top;
  while (node->begin().cell() != nullptr && node->begin()->type() == node_type::element) {
    node = node->begin().cell();
    ++depth;
  }
  EXPECT_EQ(node->begin()->type(), node_type::pcdata);
  return depth;
}

ustring written_page(const xhtml_markup& top) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  top.write(writer);
  return stream.str();
}

void use_deep_page(const ustring& text) {
  const ustring closed = nested(u"<b>", u"</b>", levels);
  xhtml_doc doc(0);
  parse_into<xhtml_parser>(*doc.root(), text);
  EXPECT_EQ(depth_of(*doc.root()), levels);
  EXPECT_TRUE(is_intact(*doc.root()));

  std::size_t walked = 0;
  const auto end = doc.descendant_end();
  for (auto at = doc.descendant_begin(); at != end; ++at) ++walked;
  EXPECT_GE(walked, levels);

  EXPECT_TRUE(same_units(written_page(*doc.root()), closed));

  const std::unique_ptr<xhtml_markup> copy(doc.root()->clone());
  EXPECT_EQ(depth_of(*copy), levels);
  doc.root()->clear_children();
  EXPECT_TRUE(same_units(written_page(*copy), closed));
}

TEST(ParserDepth, ClosedElements) {
  on_small_stack(stack_size, [] { use_deep_page(nested(u"<b>", u"</b>", levels)); });
}

TEST(ParserDepth, OpenElements) {
  on_small_stack(stack_size, [] { use_deep_page(nested(u"<b>", u"", levels)); });
}

// Each open element is a call of parse_children, so the stack sets a limit, which is far beyond
// the pages that people write.
TEST(ParserDepth, ElementsOfADerivedParser) {
  on_small_stack(std::size_t{8} << 20, [] {
    constexpr std::size_t levels_by_calls = 5'000;
    for (const ustring_view end : {u"</b>", u""}) {
      xhtml_doc doc(0);
      parse_into<derived_parser>(*doc.root(), nested(u"<b>", end, levels_by_calls));
      EXPECT_EQ(depth_of(*doc.root()), levels_by_calls);
    }
  });
}

TEST(ParserDepth, ElementsOnTheHeap) {
  on_small_stack(stack_size, [] {
    for (const ustring_view end : {u"</b>", u""}) {
      xhtml_element root(tag_id::doc_root, {}, {});
      parse_into<xhtml_parser>(root, nested(u"<b>", end, levels));
      EXPECT_EQ(depth_of(root), levels);
      const xhtml_element copy(root);
      root.clear_children();
      EXPECT_TRUE(same_units(written_page(copy), nested(u"<b>", u"</b>", levels)));
    }
  });
}

TEST(ParserDepth, DestroyedWithItsDocument) {
  on_small_stack(stack_size, [] {
    auto doc = std::make_unique<xhtml_doc>(0);
    parse_into<xhtml_parser>(*doc->root(), nested(u"<span class='a long class'>", u"", levels));
    doc.reset();
    auto root = std::make_unique<xhtml_element>(tag_id::doc_root, ustring_view(), ustring_view());
    parse_into<xhtml_parser>(*root, nested(u"<span class='a long class'>", u"", levels));
    root.reset();
  });
}

TEST(ParserDepth, NestedLists) {
  on_small_stack(stack_size, [] {
    const struct {
      ustring_view open;
      ustring_view close;
    } forms[] = {{u"<ul><li>", u"</li></ul>"}, {u"<ul>\n<li>\n", u""}};
    for (const auto& form : forms) {
      xhtml_doc doc(0);
      xhtml_element& body = *doc.root();
      parse_into<xhtml_parser>(body, nested(form.open, form.close, levels / 2));
      EXPECT_EQ(depth_of(body), levels);
      EXPECT_TRUE(is_intact(body));
      const std::unique_ptr<xhtml_markup> copy(body.clone());
      EXPECT_EQ(depth_of(*copy), levels);
    }
  });
}

TEST(ParserDepth, EndTagsThatMatchNothing) {
  on_small_stack(stack_size, [] {
    xhtml_doc doc(0);
    parse_into<xhtml_parser>(*doc.root(), nested(u"<b>", u"</i>", levels));
    EXPECT_EQ(depth_of(*doc.root()), levels);
  });
}

TEST(ParserDepth, EndTagsThatCloseTwoLevelsEach) {
  on_small_stack(stack_size, [] {
    xhtml_doc doc(0);
    parse_into<xhtml_parser>(*doc.root(), nested(u"<b><i>", u"</b>", levels / 2));
    EXPECT_EQ(depth_of(*doc.root()), levels);
    EXPECT_TRUE(doc.root()->begin() == --doc.root()->end());
  });
}

// --- Cost in proportion to the input ---

double cpu_seconds() {
  timespec now{};
  ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
  return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

struct cost {
  std::size_t allocations;
  double seconds;
};

/// The cost of reading `text` into a new element on the heap and of destroying that.
cost cost_of(const ustring& text) {
  const std::size_t calls = allocation_calls();
  const double start = cpu_seconds();
  {
    xhtml_element root(tag_id::doc_root, {}, {});
    parse_into<xhtml_parser>(root, text);
  }
  return {allocation_calls() - calls, cpu_seconds() - start};
}

TEST(ParserDepth, FourTimesTheDepthCostsFourTimesAsMuch) {
  on_small_stack(stack_size, [] {
    const struct {
      ustring_view open;
      ustring_view close;
    } forms[] = {{u"<b>", u"</b>"}, {u"<b>", u""}, {u"<b>", u"</i>"}, {u"<ul><li>a", u"</ul>"}};
    for (const auto& form : forms) {
      const ustring quarter_text = nested(form.open, form.close, levels / 4);
      const ustring text = nested(form.open, form.close, levels);
      // Sixteen times would be quadratic; between four and sixteen is room for a busy machine,
      // which gets a second try.
      double ratio = 0;
      for (int tries = 0; tries != 2; ++tries) {
        const cost quarter = cost_of(quarter_text);
        const cost whole = cost_of(text);
        EXPECT_LE(whole.allocations, 4 * quarter.allocations);
        EXPECT_GE(whole.allocations, levels);
        ratio = whole.seconds / quarter.seconds;
        if (ratio < 12) break;
      }
      EXPECT_LT(ratio, 12) << printable(form.open);
    }
  });
}

}  // namespace
}  // namespace test
