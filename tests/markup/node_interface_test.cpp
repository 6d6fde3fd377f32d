// The defaults of the node interface, on every kind of node that has them.

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <type_traits>
#include <typeinfo>
#include <utility>

#include "tests/markup/tree_text.h"
#include "tests/support/golden.h"
#include "tests/support/vocabulary_numbers.h"
#include "xport/markup/leaf_nodes.h"

namespace test {
namespace {

static_assert(static_cast<int>(node_type::none) == 0);
static_assert(static_cast<int>(node_type::doctype) == 1);
static_assert(static_cast<int>(node_type::element) == 2);
static_assert(static_cast<int>(node_type::comment) == 3);
static_assert(static_cast<int>(node_type::processing_instruction) == 4);
static_assert(static_cast<int>(node_type::pcdata) == 5);
static_assert(category_none == 0 && category_block == 1);
static_assert(category_inline == 2 && category_text == 4);

static_assert(std::has_virtual_destructor_v<xhtml_markup>);
static_assert(std::is_base_of_v<xhtml_markup, xhtml_element>);
static_assert(std::is_base_of_v<xhtml_markup, xhtml_pcdata>);
static_assert(std::is_base_of_v<xhtml_markup, xhtml_comment>);
static_assert(std::is_base_of_v<xhtml_markup, xhtml_processing_instruction>);
static_assert(std::is_base_of_v<xhtml_markup, xhtml_doctype_declaration>);
static_assert(std::is_base_of_v<xhtml_markup, xhtml_end_tag>);
static_assert(std::is_same_v<decltype(std::declval<xhtml_markup>().node_kind()), std::int32_t>);
static_assert(std::is_same_v<decltype(std::declval<xhtml_markup>().tag()), tag_id>);
static_assert(
    std::is_same_v<decltype(std::declval<xhtml_markup>().category_flags()), std::uint32_t>);
static_assert(
    std::is_same_v<decltype(std::declval<xhtml_markup>().content_flags()), std::uint32_t>);

/// A node that isn't an element, and how its kind differs from the defaults.
struct kind {
  const char* name;
  std::function<std::unique_ptr<xhtml_markup>()> make;
  std::int32_t node_kind;
  tag_id tag;
  std::uint32_t category_flags;
  const char* text;     ///< the text that it has, null if it isn't a text
  const char* trimmed;  ///< the text followed by " \t", trimmed at its end
  bool is_end_tag;
  const char* tag_name;

  friend void PrintTo(const kind& k, std::ostream* out) { *out << k.name; }
};

/// The text of a node that is one, else empty.
std::string text_if_any(const xhtml_markup& node) {
  const auto* const leaf = dynamic_cast<const text_leaf*>(&node);
  return leaf != nullptr ? printable(leaf->text()) : std::string();
}

template <class Node, class... Arguments>
std::function<std::unique_ptr<xhtml_markup>()> maker(Arguments... arguments) {
  return [=] { return std::make_unique<Node>(arguments...); };
}

constexpr tag_id none = tag_id::invalid_tag;

const kind kinds[] = {
    {"base", maker<xhtml_markup>(), 0, none, 0, nullptr, "", false, ""},
    {"doctype", maker<xhtml_doctype_declaration>(), 1, none, 1, "", " \\u0009", false, ""},
    {"comment", maker<xhtml_comment>(u"text"), 3, none, 2, "text", "text \\u0009", false, ""},
    {"instruction", maker<xhtml_processing_instruction>(u"text"), 4, none, 1, "text",
     "text \\u0009", false, ""},
    {"pcdata", maker<xhtml_pcdata>(u"text"), 5, none, 4, "text", "text", false, ""},
    {"end_tag", maker<xhtml_end_tag>(u"</p>"), 0, tag_id::p, 0, nullptr, "", true, "</p>"},
};

class NodeInterface : public ::testing::TestWithParam<kind> {
 protected:
  const kind& expected() const { return GetParam(); }
  xhtml_markup& node() { return *node_; }
  bool is_a_text() const { return expected().text != nullptr; }
  std::string original_text() const { return is_a_text() ? expected().text : ""; }

  /// Whether `result` is the end of the node's own list.
  bool is_end(const markup_iterator& result) { return result == node().end(); }

  void expect_unchanged() {
    EXPECT_TRUE(is_intact(node()));
    EXPECT_TRUE(node().begin() == node().end());
    EXPECT_EQ(node().parent(), nullptr);
    EXPECT_EQ(text_if_any(node()), original_text());
  }

  const xhtml_element span_ = element(tag_id::span);
  xhtml_element list_ = element(tag_id::ul);

 private:
  std::unique_ptr<xhtml_markup> node_ = GetParam().make();
};

INSTANTIATE_TEST_SUITE_P(Nodes, NodeInterface, ::testing::ValuesIn(kinds),
                         [](const auto& test) { return std::string(test.param.name); });

TEST_P(NodeInterface, ReturnsItsKind) {
  EXPECT_EQ(node().node_kind(), expected().node_kind);
  EXPECT_EQ(static_cast<std::int32_t>(node().type()), expected().node_kind);
  EXPECT_EQ(node().tag(), expected().tag);
  EXPECT_EQ(node().category_flags(), expected().category_flags);
  EXPECT_EQ(node().is_end_tag(), expected().is_end_tag);
  EXPECT_EQ(printable(node().tag_name()), expected().tag_name);
}

TEST_P(NodeInterface, HasAnEmptyChildListThatIsACircle) {
  EXPECT_TRUE(node().begin() == node().end());
  EXPECT_TRUE(std::as_const(node()).begin() == std::as_const(node()).end());
  auto at = node().begin();
  EXPECT_EQ(at.owner(), &node());
  EXPECT_TRUE(++at == node().end());
  EXPECT_TRUE(--at == node().end());
  expect_unchanged();
}

TEST_P(NodeInterface, AcceptsNoChild) {
  EXPECT_TRUE(is_end(node().insert_copy(node().begin(), span_)));
  EXPECT_TRUE(is_end(node().insert_copy(list_.end(), span_)));
  EXPECT_TRUE(is_end(node().append_copy(span_)));
  EXPECT_TRUE(is_end(node().push_back_copy(span_)));
  EXPECT_TRUE(is_end(node().push_front_copy(span_)));
  EXPECT_EQ(&(node() << span_), &node());
  EXPECT_TRUE(is_end(node().append_copy(node())));
  expect_unchanged();
}

TEST_P(NodeInterface, AcceptsNoText) {
  EXPECT_TRUE(is_end(node().insert_text(node().begin(), u"more")));
  EXPECT_TRUE(is_end(node().insert_text(list_.end(), u"more")));
  EXPECT_TRUE(is_end(node().append_text(u"more")));
  EXPECT_TRUE(is_end(node().push_back_text(u"more")));
  EXPECT_TRUE(is_end(node().push_front_text(u"more")));
  EXPECT_FALSE(node().accepts_text());
  expect_unchanged();
}

TEST_P(NodeInterface, AcceptsNoRangeAndNoCopies) {
  list_.append_copy(element(tag_id::li));
  node().insert_range(node().end(), list_.begin(), list_.end());
  node().insert_range(list_.end(), list_.begin(), list_.end());
  node().insert_copies(node().end(), 3, span_);
  node().insert_copies(list_.end(), 3, span_);
  EXPECT_TRUE(is_tree(list_, "ul(li)"));
  expect_unchanged();
}

TEST_P(NodeInterface, LeavesANodeToItsCaller) {
  const auto kept = std::make_unique<xhtml_element>(tag_id::span, u"", u"");
  EXPECT_TRUE(is_end(node().adopt_child(kept.get())));
  EXPECT_EQ(kept->parent(), nullptr);
  EXPECT_TRUE(is_end(node().adopt_child(nullptr)));
  expect_unchanged();
}

TEST_P(NodeInterface, ContainsNothing) {
  for (const kind& other : kinds) EXPECT_FALSE(node().can_contain(*other.make())) << other.name;
  for (int number = 0; number <= first_number_without_record; ++number)
    EXPECT_FALSE(node().can_contain(element(number))) << number;
  EXPECT_EQ(node().content_flags(), 0u);
}

TEST_P(NodeInterface, HasNoAttributes) {
  for (int number = -1; number <= attribute_end; ++number) {
    EXPECT_FALSE(node().set_attribute(attr_id{number}, u"value")) << number;
    EXPECT_EQ(node().get_attribute(attr_id{number}), u"") << number;
  }
  EXPECT_EQ(node().attributes(), nullptr);
  EXPECT_EQ(std::as_const(node()).attributes(), nullptr);
  expect_unchanged();
}

TEST_P(NodeInterface, HasNoStyle) {
  for (int number = -1; number <= property_end; ++number) {
    EXPECT_FALSE(node().set_style(css_property_id{number}, u"value")) << number;
    EXPECT_EQ(node().get_style(css_property_id{number}), u"") << number;
  }
  EXPECT_EQ(node().style_properties(), nullptr);
  EXPECT_EQ(std::as_const(node()).style_properties(), nullptr);
  expect_unchanged();
}

TEST_P(NodeInterface, IsNoElement) {
  EXPECT_EQ(node().tag_trait(), nullptr);
  EXPECT_FALSE(node().is_empty_element());
  EXPECT_EQ(node().end_tag_text(), u"");
  EXPECT_TRUE(append_element(node(), tag_id::span) == node().end());
  expect_unchanged();
}

TEST_P(NodeInterface, ClonesItselfOrReturnsNull) {
  const std::unique_ptr<xhtml_markup> copy(node().clone());
  ASSERT_EQ(copy != nullptr, is_a_text());
  if (copy == nullptr) return;
  const xhtml_markup& original = node();
  const xhtml_markup& made = *copy;
  EXPECT_EQ(typeid(made), typeid(original));
  EXPECT_EQ(copy->parent(), nullptr);
  EXPECT_EQ(text_of(*copy), text_of(node()));
  *copy << u"!";
  expect_unchanged();
}

TEST_P(NodeInterface, ExtendsItsTextOrIgnoresIt) {
  EXPECT_EQ(&(node() << u" and"), &node());
  EXPECT_EQ(&(node() << u"" << u" more"), &node());
  EXPECT_EQ(text_if_any(node()), is_a_text() ? original_text() + " and more" : "");
  EXPECT_TRUE(node().begin() == node().end());
}

TEST_P(NodeInterface, TrimsCharacterDataOnly) {
  node() << u" \t";
  node().trim_trailing_space();
  EXPECT_EQ(text_if_any(node()), expected().trimmed);
}

TEST(NodeDefaults, WriteNothing) {
  EXPECT_EQ(written(xhtml_markup()), u"");
  EXPECT_EQ(written(xhtml_end_tag(u"</p>")), u"");
}

TEST(NodeDefaults, LeaveACopyOfTheBaseClassAlone) {
  const xhtml_markup node;
  const xhtml_markup copy(node);
  EXPECT_EQ(copy.node_kind(), 0);
  EXPECT_EQ(copy.tag(), none);
  EXPECT_EQ(copy.parent(), nullptr);
  EXPECT_TRUE(copy.begin() == copy.end());
}

TEST(CommentSelf, IsTheComment) {
  xhtml_comment comment(u"text");
  EXPECT_EQ(&comment.comment_self(), &comment);
}

// A doctype's text has no effect on what is written.
TEST(NodeDefaults, LeaveADoctypesTextUnwritten) {
  xhtml_doctype_declaration doctype;
  const ustring plain = written(doctype);
  doctype << u"html SYSTEM";
  EXPECT_EQ(text_of(doctype), "html SYSTEM");
  EXPECT_TRUE(same_units(written(doctype), plain));
}

}  // namespace
}  // namespace test
