// How nodes free their memory, those of derived classes too.

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "tests/markup/derived_node_kit.h"
#include "tests/markup/tree_text.h"
#include "tests/support/allocation_failure.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

TEST(DeletedNodes, EveryClassFreesItsMemory) {
  const ustring long_text(3000, u'x');
  std::vector<std::unique_ptr<xhtml_markup>> nodes;
  nodes.reserve(7);
  const std::size_t before = live_allocations();
  nodes.emplace_back(new xhtml_markup);
  nodes.emplace_back(new xhtml_pcdata(long_text));
  nodes.emplace_back(new xhtml_comment(u"c"));
  nodes.emplace_back(new xhtml_processing_instruction(long_text));
  nodes.emplace_back(new xhtml_doctype_declaration);
  nodes.emplace_back(new xhtml_element(tag_id::p, u"id", long_text));
  nodes.emplace_back(new told_element(tag_id::p));
  for (int i = 0; i < 3; ++i) *nodes[5] << u"t" << long_text << *nodes[2];
  for (const auto& node : nodes)
    if (xhtml_markup* const copy = node->clone()) delete copy;
  nodes.clear();
  EXPECT_EQ(live_allocations(), before);
}

struct other_base {
  virtual ~other_base() = default;
  std::uint64_t filler = 1;
};

// g++ mistakes the operator delete that destroys a node for one that only frees memory.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wfree-nonheap-object"
#endif
struct second_element : other_base, told_element {
  second_element() : told_element(tag_id::div) {}
  second_element(const second_element&) = default;
  xhtml_markup* clone() const override { return new second_element(*this); }
};
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic pop
#endif

struct alignas(64) wide_element : xhtml_element {
  wide_element() : xhtml_element(tag_id::div, {}, {}) {}
  std::uint64_t filler = 2;
};

struct throwing_element : xhtml_element {
  throwing_element() : xhtml_element(tag_id::div, u"a", u"b") { throw std::runtime_error("no"); }
};

struct throwing_wide_element : wide_element {
  throwing_wide_element() { throw std::runtime_error("no"); }
};

TEST(DeletedNodes, ClassesOfAnyAlignment) {
  const std::size_t before = live_allocations();
  {
    const std::unique_ptr<xhtml_markup> node(new wide_element);
    EXPECT_EQ(reinterpret_cast<std::uintptr_t>(node.get()) % 64, 0u);
    xhtml_element div = element(tag_id::div);
    EXPECT_FALSE(div.adopt_child(new wide_element) == div.end());
    xhtml_doc doc(1);
    EXPECT_FALSE(doc.body()->adopt_child(new wide_element) == doc.body()->end());
  }
  EXPECT_EQ(live_allocations(), before);
}

TEST(DeletedNodes, ClassesWithTheNodeAsTheirSecondBase) {
  const std::size_t before = live_allocations();
  {
    const std::unique_ptr<xhtml_markup> node(new second_element);
    *node << u"a" << second_element();
    const std::unique_ptr<other_base> as_other(new second_element);
    xhtml_doc doc(1);
    doc.body()->append_copy(*node);
    EXPECT_TRUE(is_tree(*doc.body(), "body(div('a' div))"));
  }
  EXPECT_EQ(live_allocations(), before);
}

TEST(DeletedNodes, NewWithoutExceptions) {
  const std::size_t before = live_allocations();
  delete new (std::nothrow) told_element(tag_id::p);
  delete new (std::nothrow) wide_element;
  EXPECT_THROW(delete new (std::nothrow) throwing_element, std::runtime_error);
  EXPECT_THROW(delete new (std::nothrow) throwing_wide_element, std::runtime_error);
  EXPECT_EQ(live_allocations(), before);
}

TEST(DeletedNodes, ConstructorThatThrowsLosesNothing) {
  const std::size_t before = live_allocations();
  EXPECT_THROW(delete new throwing_element, std::runtime_error);
  EXPECT_THROW(delete new throwing_wide_element, std::runtime_error);
  EXPECT_EQ(live_allocations(), before);
}

TEST(DeletedNodes, PlacementAndArraysAreAsForAnyClass) {
  alignas(xhtml_element) std::byte memory[sizeof(xhtml_element)];
  xhtml_element* const placed = new (memory) xhtml_element(tag_id::p, u"id", {});
  EXPECT_EQ(static_cast<void*>(placed), memory);
  placed->~xhtml_element();
  const std::size_t before = live_allocations();
  delete[] new xhtml_markup[3];
  EXPECT_EQ(live_allocations(), before);
}

/// Looks at its children when it is destroyed.
struct watching_element : told_element {
  explicit watching_element(std::string& seen_at_the_end)
      : told_element(tag_id::div), seen(seen_at_the_end) {}
  ~watching_element() override { seen += bare_outline(*begin()) + " "; }

  std::string& seen;
};

TEST(DeletedNodes, DestructorOfADerivedElementStillHasItsChildren) {
  std::string seen;
  {
    xhtml_element div = element(tag_id::div);
    auto* const outer = new watching_element(seen);
    auto* const inner = new watching_element(seen);
    div.adopt_child(outer);
    *outer->append_copy(element(tag_id::p)) << u"a";
    outer->adopt_child(inner);
    *inner << u"b";
    div.clear_children();
    EXPECT_EQ(seen, "p('a') 'b' ");
    div.adopt_child(new watching_element(seen));
    *div.begin() << u"c";
  }
  EXPECT_EQ(seen, "p('a') 'b' 'c' ");
}

/// Walks over the siblings of its parent when it is destroyed.
struct wandering_comment : counted_comment {
  using counted_comment::counted_comment;
  ~wandering_comment() override {
    const_markup_iterator at = parent()->parent()->end();
    while (--at != parent()->parent()->end()) alive += at->node_kind() == 2 ? 0 : 100;
  }
};

TEST(DeletedNodes, ListIsWholeWhileItIsDeleted) {
  int alive = 0;
  xhtml_element div = element(tag_id::div);
  div << element(tag_id::p);
  div.append_copy(element(tag_id::p))->adopt_child(new wandering_comment(alive));
  div << element(tag_id::p);
  div.clear_children();
  EXPECT_EQ(alive, 0);
}

TEST(DeletedNodes, DerivedNodesFarDownInADocumentAreDeletedWithIt) {
  int alive = 0;
  {
    xhtml_doc doc(1);
    xhtml_markup* node = &*append_element(*doc.body(), tag_id::div);
    for (int depth = 0; depth < 100'000; ++depth) node = &*append_element(*node, tag_id::div);
    *node << counted_comment(alive);
    const xhtml_element copy(*doc.root());
    EXPECT_EQ(alive, 2);
  }
  EXPECT_EQ(alive, 0);
}

// --- Where memory is refused ---

/// A tree with derived nodes in several places.
xhtml_element sample(int& alive) {
  xhtml_element div = element(tag_id::div);
  told_element inner(tag_id::div);
  *inner.append_copy(element(tag_id::p)) << ustring(300, u'a') << counted_comment(alive);
  div << u"b" << inner << counted_comment(alive);
  return div;
}

template <class Operation>
void refuse_each(Operation operation, const xhtml_markup& tree, const std::string& before) {
  const std::size_t failures =
      fail_each_allocation([&] { operation(); }, [&] { EXPECT_TRUE(is_tree(tree, before)); });
  EXPECT_GE(failures, 3u);
}

TEST(DerivedNodesInRefusedMemory, InsertionChangesNothing) {
  int alive = 0;
  const std::size_t before = live_allocations();
  {
    const xhtml_element source = sample(alive);
    xhtml_element heap = element(tag_id::div);
    refuse_each([&] { heap.append_copy(source); }, heap, "div");
    refuse_each([&] { heap.push_front_copy(*std::next(source.begin())); }, heap,
                bare_outline(heap));
    xhtml_doc doc(1);
    refuse_each([&] { doc.body()->append_copy(source); }, *doc.body(), "body");
    told_element derived(tag_id::div);
    refuse_each([&] { derived.append_copy(source); }, derived, "div");
    const ustring long_text(300, u'c');
    const std::string tree = bare_outline(derived);
    const std::size_t failures = fail_each_allocation([&] { derived.append_text(long_text); },
                                                      [&] { EXPECT_TRUE(is_tree(derived, tree)); });
    EXPECT_EQ(failures, 3u) << "the units of the prototype, the node, and its units";
  }
  EXPECT_EQ(alive, 0);
  EXPECT_EQ(live_allocations(), before);
}

TEST(DerivedNodesInRefusedMemory, CopiesAreUndone) {
  int alive = 0;
  const std::size_t before = live_allocations();
  {
    const xhtml_element source = sample(alive);
    const int kept = alive;
    const auto check = [&] { EXPECT_EQ(alive, kept); };
    EXPECT_GE(fail_each_allocation([&] { const xhtml_element copy(source); }, check), 3u);
    EXPECT_GE(fail_each_allocation([&] { const wrapper copy(source); }, check), 3u);
    EXPECT_GE(fail_each_allocation([&] { delete source.clone(); }, check), 3u);
  }
  EXPECT_EQ(alive, 0);
  EXPECT_EQ(live_allocations(), before);
}

}  // namespace
}  // namespace test
