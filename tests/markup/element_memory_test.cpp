// Nothing is lost and nothing breaks where memory is refused.

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <iterator>
#include <locale>
#include <memory>
#include <ostream>
#include <string>

#include "tests/markup/tree_text.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/golden.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/stream/null_codecvt.h"

namespace test {
namespace {

const ustring long_text(3000, u'l');

/// A div whose copy is allocated in many pieces.
xhtml_element sample() {
  xhtml_element div(tag_id::div, u"top", u"kind");
  div.set_style(css_property_id::color, u"red");
  auto p = div.append_copy(xhtml_element(tag_id::p, u"inner", u""));
  *p << u"short" << long_text << xhtml_comment(long_text);
  p->append_copy(element(tag_id::em))->set_attribute(attr_id::title, long_text);
  div << xhtml_processing_instruction(u"abc") << element(tag_id::hr);
  return div;
}

/// A tree to which nodes are added: on the heap, or in a document.
struct target {
  virtual ~target() = default;
  virtual xhtml_element& place() = 0;
};

struct heap_target : target {
  xhtml_element div = element(tag_id::div);
  xhtml_element& place() override { return div; }
};

struct document_target : target {
  xhtml_doc doc{1};
  xhtml_element* div = doc.body()->append_copy(element(tag_id::div))->as_element();
  xhtml_element& place() override { return *div; }
};

struct operation {
  const char* name;
  std::function<void(xhtml_element&)> run;
  std::size_t least_failures_in_document;  // small requests don't reach the system

  friend void PrintTo(const operation& o, std::ostream* out) { *out << o.name; }
};

const xhtml_element& shared_sample() {
  static const xhtml_element div = sample();
  return div;
}

const operation operations[] = {
    {"append_copy", [](xhtml_element& e) { e.append_copy(shared_sample()); }, 3},
    {"insert_copy", [](xhtml_element& e) { e.insert_copy(std::next(e.begin()), shared_sample()); },
     3},
    {"push_front_copy", [](xhtml_element& e) { e.push_front_copy(shared_sample()); }, 3},
    {"itself", [](xhtml_element& e) { e.append_copy(e); }, 0},
    {"append_text", [](xhtml_element& e) { e.append_text(long_text); }, 1},
    {"push_front_text", [](xhtml_element& e) { e.push_front_text(long_text); }, 1},
    {"streamed_text", [](xhtml_element& e) { e << long_text; }, 1},
    {"extended_text", [](xhtml_element& e) { *std::next(e.begin()) << long_text; }, 1},
    {"append_element", [](xhtml_element& e) { e.append_element(tag_id::p); }, 0},
    {"set_attribute", [](xhtml_element& e) { e.set_attribute(attr_id::title, long_text); }, 1},
    {"replaced_attribute", [](xhtml_element& e) { e.set_attribute(attr_id::id, long_text); }, 1},
    {"set_style", [](xhtml_element& e) { e.set_style(css_property_id::color, long_text); }, 1},
};

/// All that can be read of a tree.
ustring state_of(const xhtml_markup& node) { return written(node); }

class RefusedMemory : public ::testing::TestWithParam<operation> {
 protected:
  /// Runs the operation with each of its requests refused in turn. Between the
  /// failures the tree must be unchanged, and in the end nothing may be lost.
  template <class Target>
  std::size_t run() {
    shared_sample();
    std::size_t failures = 0;
    const std::size_t before = live_allocations();
    {
      Target tree;
      xhtml_element& div = tree.place();
      div.set_attribute(attr_id::id, u"old");
      div.set_style(css_property_id::color, u"old");
      div << element(tag_id::p) << u"a text";
      const ustring state = state_of(div);
      failures = fail_each_allocation([&] { GetParam().run(div); },
                                      [&] {
                                        EXPECT_TRUE(is_intact(div));
                                        EXPECT_TRUE(same_units(state_of(div), state));
                                      });
      EXPECT_TRUE(is_intact(div));
      EXPECT_FALSE(state_of(div) == state) << "it passed and did something";
    }
    EXPECT_EQ(live_allocations(), before);
    return failures;
  }
};

INSTANTIATE_TEST_SUITE_P(Operations, RefusedMemory, ::testing::ValuesIn(operations),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(RefusedMemory, LeavesATreeOfTheHeapAsItWas) { EXPECT_GE(run<heap_target>(), 1u); }

TEST_P(RefusedMemory, LeavesADocumentAsItWas) {
  EXPECT_GE(run<document_target>(), GetParam().least_failures_in_document);
}

TEST(RefusedMemory, DoesNotGrowADocument) {
  xhtml_doc doc(1);
  xhtml_markup& body = *doc.body();
  body.as_element()->append_copy(sample());
  body.as_element()->clear_children();
  const xhtml_element div = sample();
  const std::size_t before = live_allocations();
  fail_allocation(2);
  EXPECT_THROW(body.append_copy(div), std::bad_alloc);
  fail_allocation(0);
  EXPECT_EQ(live_allocations(), before) << "what the copy had taken is given back";
  for (int round = 0; round < 1000; ++round) {
    body.append_copy(div);
    body.as_element()->clear_children();
  }
  EXPECT_EQ(live_allocations(), before);
}

// What a range has inserted before the failure stays, in one piece.
TEST(RefusedMemory, LeavesTheFirstNodesOfARange) {
  xhtml_element source = element(tag_id::div);
  for (int i = 0; i < 5; ++i) source.append_text(long_text);
  const std::size_t before = live_allocations();
  std::ptrdiff_t most = 0;
  for (std::size_t number = 1; most < 5; ++number) {
    ASSERT_LT(number, 100u);
    xhtml_element div = element(tag_id::div);
    try_without_memory(number, [&] { div.insert_range(div.end(), source.begin(), source.end()); });
    EXPECT_TRUE(is_intact(div));
    const std::ptrdiff_t count = std::distance(div.begin(), div.end());
    EXPECT_TRUE(count == most || count == most + 1) << count;
    most = count;
  }
  EXPECT_EQ(live_allocations(), before);
}

/// Builds something with each request refused in turn and checks that nothing is lost.
template <class Build>
void expect_nothing_lost(Build build) {
  const std::size_t before = live_allocations();
  const std::size_t failures =
      fail_each_allocation(build, [before] { ASSERT_EQ(live_allocations(), before); });
  EXPECT_GE(failures, 1u);
  EXPECT_EQ(live_allocations(), before);
}

TEST(LostMemory, IsNoneInConstructors) {
  expect_nothing_lost([] { xhtml_element(tag_id::p, u"an id", u"a class"); });
  expect_nothing_lost([] { xhtml_pcdata text{long_text}; });
  expect_nothing_lost([] { xhtml_comment text{long_text}; });
  expect_nothing_lost([] { xhtml_processing_instruction text{long_text}; });
  expect_nothing_lost([] { xhtml_end_tag text{long_text}; });
  expect_nothing_lost([] { xhtml_doc doc(1); });
  expect_nothing_lost([] { with_null_codecvt(std::locale::classic()); });
}

TEST(LostMemory, IsNoneInCopies) {
  const xhtml_element div = sample();
  expect_nothing_lost([&div] { const xhtml_element copy(div); });
  expect_nothing_lost([&div] { const std::unique_ptr<xhtml_markup> copy(div.clone()); });
  for (const xhtml_markup& child : *div.begin())
    expect_nothing_lost([&child] { const std::unique_ptr<xhtml_markup> copy(child.clone()); });
  expect_nothing_lost([&div] { const attribute_map copy(*div.attributes()); });
}

TEST(LostMemory, IsNoneInWholeDocuments) {
  const xhtml_element div = sample();
  expect_nothing_lost([&div] {
    xhtml_doc doc(1);
    for (int i = 0; i < 50; ++i) doc.body()->append_copy(div);
    doc.body()->begin()->adopt_child(
        std::make_unique<xhtml_element>(tag_id::p, u"", u"").release());
    doc.body()->insert_range(doc.body()->begin(), doc.body()->begin(), doc.body()->end());
  });
}

TEST(Allocations, OfADocumentGrowWithItsBytesAndNotWithItsNodes) {
  xhtml_doc doc(1);
  xhtml_markup& body = *doc.body();
  const std::size_t calls = allocation_calls();
  for (int i = 0; i < 100000; ++i) append_element(body, tag_id::p)->append_text(u"some text");
  EXPECT_LT(allocation_calls() - calls, 40u);
}

}  // namespace
}  // namespace test
