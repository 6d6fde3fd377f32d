// Attributes and inline style, rule records, and numbers that have none.

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

#include "tests/markup/content_model.h"
#include "tests/markup/tree_text.h"
#include "tests/support/golden.h"
#include "tests/support/vocabulary_numbers.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

/// The attributes as "name=value " in their order.
std::string attributes_of(const xhtml_markup& node) {
  std::string text;
  for (const auto& entry : *node.attributes())
    text +=
        printable(xhtml_strict::attribute_name(entry.first)) + "=" + printable(entry.second) + " ";
  return text;
}

TEST(ElementAttributes, ComeFromTheConstructor) {
  EXPECT_EQ(attributes_of(xhtml_element(tag_id::p, u"one", u"two")), "class=two id=one ");
  EXPECT_EQ(attributes_of(xhtml_element(tag_id::p, u"one", u"")), "id=one ");
  EXPECT_EQ(attributes_of(xhtml_element(tag_id::p, u"", u"two")), "class=two ");
  EXPECT_EQ(attributes_of(xhtml_element(tag_id::p, u"", u"")), "");
}

TEST(ElementAttributes, OfTheConstructorAreDroppedWhereTheElementAcceptsNone) {
  EXPECT_EQ(attributes_of(xhtml_element(tag_id::html, u"one", u"two")), "");
  EXPECT_EQ(attributes_of(xhtml_element(tag_id::head, u"one", u"two")), "");
  EXPECT_EQ(attributes_of(xhtml_element(tag_id::param, u"one", u"two")), "id=one ");
  EXPECT_EQ(attributes_of(xhtml_element(tag_id::doc_root, u"one", u"two")), "");
  EXPECT_EQ(attributes_of(xhtml_element(tag_id::invalid_tag, u"one", u"two")), "");
  EXPECT_EQ(attributes_of(xhtml_element(tag_id{1000}, u"one", u"two")), "");
}

TEST(ElementAttributes, AreAcceptedWhereTheRecordListsThem) {
  for (int tag = 0; tag <= invalid_number; ++tag)
    for (int attribute = -1; attribute <= attribute_end; ++attribute) {
      const bool listed = attribute >= 0 && attribute < attribute_end &&
                          tag_table[tag_id{tag}]->allowed_attributes.contains(attr_id{attribute});
      xhtml_element node = element(tag);
      ASSERT_EQ(node.set_attribute(attr_id{attribute}, u"v"), listed) << tag << " " << attribute;
      ASSERT_EQ(node.get_attribute(attr_id{attribute}), listed ? u"v" : u"");
      ASSERT_EQ(node.attributes()->size(), listed ? 1u : 0u);
    }
}

TEST(ElementAttributes, ThatAreKnownToBeAcceptedOrNot) {
  EXPECT_TRUE(element(tag_id::base).set_attribute(attr_id::href, u"v"));
  EXPECT_FALSE(element(tag_id::base).set_attribute(attr_id::target, u"v"));
  EXPECT_TRUE(element(tag_id::a).set_attribute(attr_id::target, u"v"));
  EXPECT_TRUE(element(tag_id::html).set_attribute(attr_id::xmlns, u"v"));
  EXPECT_FALSE(element(tag_id::p).set_attribute(attr_id::href, u"v"));
  for (int attribute = 0; attribute < attribute_end; ++attribute) {
    EXPECT_FALSE(element(tag_id::doc_root).set_attribute(attr_id{attribute}, u"v"));
    EXPECT_FALSE(element(tag_id::invalid_tag).set_attribute(attr_id{attribute}, u"v"));
  }
}

TEST(ElementAttributes, AreReplacedAndKeptInOrder) {
  xhtml_element td = element(tag_id::td);
  EXPECT_TRUE(td.set_attribute(attr_id::title, u"t"));
  EXPECT_TRUE(td.set_attribute(attr_id::abbr, u"a"));
  EXPECT_TRUE(td.set_attribute(attr_id::id, u"i"));
  EXPECT_TRUE(td.set_attribute(attr_id::colspan, u"2"));
  EXPECT_TRUE(td.set_attribute(attr_id::id, u"other"));
  EXPECT_FALSE(td.set_attribute(attr_id::href, u"x"));
  EXPECT_EQ(attributes_of(td), "abbr=a colspan=2 id=other title=t ");
}

TEST(ElementAttributes, MayBeEmpty) {
  xhtml_element p = element(tag_id::p);
  EXPECT_TRUE(p.set_attribute(attr_id::id, u""));
  EXPECT_EQ(p.get_attribute(attr_id::id), u"");
  EXPECT_TRUE(p.attributes()->contains(attr_id::id));
  EXPECT_FALSE(p.attributes()->contains(attr_id::class_));
}

TEST(ElementAttributes, AreKeptUnitByUnit) {
  ustring all;
  for (std::uint32_t unit = 0; unit <= 65535; ++unit) all += static_cast<char16_t>(unit);
  xhtml_element p = element(tag_id::p);
  p.set_attribute(attr_id::title, all);
  p.set_style(css_property_id::color, all);
  EXPECT_TRUE(same_units(p.get_attribute(attr_id::title), all));
  EXPECT_TRUE(same_units(p.get_style(css_property_id::color), all));
}

TEST(ElementAttributes, MayBeHuge) {
  xhtml_doc doc(1);
  auto p = doc.body()->append_copy(element(tag_id::p));
  const ustring huge(3000000, u'x');
  for (const std::size_t size : {1u, 500u, 3000000u, 2u})
    for (const attr_id attribute : {attr_id::id, attr_id::title, attr_id::class_})
      EXPECT_TRUE(p->set_attribute(attribute, ustring_view(huge).substr(0, size)));
  EXPECT_EQ(attributes_of(*p), "class=xx id=xx title=xx ");
}

TEST(ElementAttributes, MayComeOutOfTheElementItself) {
  xhtml_element p(tag_id::p, u"0123456789", u"");
  p.set_attribute(attr_id::class_, (*p.attributes())[attr_id::id]);
  p.set_attribute(attr_id::id, (*p.attributes())[attr_id::id].substr(2, 3));
  p.set_style(css_property_id::color, (*p.attributes())[attr_id::class_]);
  p.set_style(css_property_id::color, (*p.style_properties())[css_property_id::color].substr(5));
  EXPECT_EQ(attributes_of(p), "class=0123456789 id=234 ");
  EXPECT_EQ(p.get_style(css_property_id::color), u"56789");
}

TEST(ElementAttributes, AreUncheckedInTheMap) {
  xhtml_element p = element(tag_id::p);
  p.attributes()->insert_or_assign(attr_id::href, u"x");
  EXPECT_EQ(p.get_attribute(attr_id::href), u"x");
  EXPECT_EQ(std::as_const(p).attributes(), p.attributes());
  p.attributes()->clear();
  EXPECT_EQ(p.get_attribute(attr_id::href), u"");
}

TEST(ElementAttributes, ThatCantBeCountedAreRefused) {
  xhtml_element p(tag_id::p, u"kept", u"");
  p.set_style(css_property_id::color, u"kept");
  const char16_t unit = u'a';
  const ustring_view endless(&unit, std::size_t{1} << 32);
  EXPECT_THROW(p.set_attribute(attr_id::id, endless), std::length_error);
  EXPECT_THROW(p.set_style(css_property_id::color, endless), std::length_error);
  EXPECT_EQ(p.get_attribute(attr_id::id), u"kept");
  EXPECT_EQ(p.get_style(css_property_id::color), u"kept");
}

TEST(ElementStyle, AcceptsAnyPropertyOnAnyElement) {
  for (int tag = 0; tag <= invalid_number; ++tag) {
    xhtml_element node = element(tag);
    for (int property = 101; property >= 0; --property)
      ASSERT_TRUE(node.set_style(css_property_id{property}, u"v")) << tag << " " << property;
    ASSERT_EQ(node.style_properties()->size(), 102u);
    int expected = 0;
    for (const auto& entry : *std::as_const(node).style_properties())
      ASSERT_EQ(entry.first, css_property_id{expected++});
    ASSERT_TRUE(node.attributes()->empty());
  }
}

TEST(ElementStyle, AcceptsUnknownNumbers) {
  xhtml_element p = element(tag_id::p);
  EXPECT_TRUE(p.set_style(css_property_id{-1}, u"a"));
  EXPECT_TRUE(p.set_style(css_property_id{5000}, u"b"));
  EXPECT_EQ(p.get_style(css_property_id{-1}), u"a");
  EXPECT_EQ(p.get_style(css_property_id{5000}), u"b");
}

TEST(ElementStyle, IsReplaced) {
  xhtml_element p = element(tag_id::p);
  EXPECT_TRUE(p.set_style(css_property_id::color, u"red"));
  EXPECT_TRUE(p.set_style(css_property_id::color, u"not; a colour"));
  EXPECT_EQ(p.get_style(css_property_id::color), u"not; a colour");
  EXPECT_EQ(p.get_style(css_property_id::width), u"");
  EXPECT_EQ(p.style_properties()->size(), 1u);
}

TEST(ElementRecord, ReturnsNameNumbersAndEndTag) {
  for (int number = 0; number <= invalid_number; ++number) {
    SCOPED_TRACE(number);
    const xhtml_element node = element(number);
    const std::string name = row_name(number);
    EXPECT_EQ(node.node_kind(), 2);
    EXPECT_EQ(node.tag(), name.empty() ? tag_id::invalid_tag : tag_id{number});
    EXPECT_EQ(printable(node.tag_name()), name);
    ASSERT_NE(node.tag_trait(), nullptr);
    EXPECT_EQ(node.tag_trait()->get(), tag_table[tag_id{number}]);
    EXPECT_EQ(printable(node.end_tag_text()), may_contain_nothing(number) ? "" : "</" + name + ">");
    EXPECT_FALSE(node.is_end_tag());
  }
}

TEST(ElementRecord, ReturnsKnownEndTags) {
  EXPECT_EQ(element(tag_id::br).end_tag_text(), u"");
  EXPECT_EQ(element(tag_id::p).end_tag_text(), u"</p>");
  EXPECT_EQ(element(tag_id::center).end_tag_text(), u"</>");
  EXPECT_EQ(element(tag_id::basefont).end_tag_text(), u"");
  EXPECT_EQ(element(tag_id::invalid_tag).end_tag_text(), u"");
  EXPECT_EQ(element(tag_id::tr).end_tag_text(), u"</tr>");
}

TEST(ElementRecord, OfUnusableRowsIsEmptyButForTwoNumbers) {
  const int center = 17;
  EXPECT_EQ(element(center).category_flags(), 0u);
  EXPECT_EQ(element(center).content_flags(), 2u);
  EXPECT_FALSE(element(center).is_empty_element());
  for (const int number : {9, 58}) {
    EXPECT_EQ(element(number).category_flags(), 0u);
    EXPECT_EQ(element(number).content_flags(), 0u);
    EXPECT_TRUE(element(number).is_empty_element());
  }
  for (const int number : {5, 9, 17, 25, 31, 33, 34, 45, 49, 56, 58, 68, 74, 89, invalid_number})
    for (int attribute = 0; attribute < attribute_end; ++attribute)
      EXPECT_FALSE(element(number).set_attribute(attr_id{attribute}, u"v"));
}

class ElementWithoutRecord : public ::testing::TestWithParam<int> {
 protected:
  xhtml_element node{tag_id{GetParam()}, u"one", u"two"};
};

INSTANTIATE_TEST_SUITE_P(Numbers, ElementWithoutRecord,
                         ::testing::Values(first_number_without_record, 1000, -1, 32768, 65536 + 64,
                                           std::numeric_limits<std::int32_t>::min(),
                                           std::numeric_limits<std::int32_t>::max()));

TEST_P(ElementWithoutRecord, ThrowsWhenAskedForItsEndTag) {
  ASSERT_NE(node.tag_trait(), nullptr);
  EXPECT_EQ(node.tag_trait()->get(), nullptr);
  try {
    node.end_tag_text();
    FAIL() << "it threw nothing";
  } catch (const std::domain_error& error) {
    EXPECT_STREQ(error.what(), "pTag_trait invlaid");
  }
}

TEST_P(ElementWithoutRecord, StoresNoAttributeAndIsAcceptedNowhere) {
  EXPECT_EQ(attributes_of(node), "");
  EXPECT_FALSE(node.set_attribute(attr_id::id, u"v"));
  EXPECT_EQ(node.get_attribute(attr_id::id), u"");
  EXPECT_FALSE(node.accepts_text());
  EXPECT_EQ(written(node), u"");
  for (int number = -1; number <= first_number_without_record; ++number) {
    xhtml_element parent = element(number);
    EXPECT_TRUE(parent.append_copy(node) == parent.end()) << number;
    EXPECT_TRUE(parent.adopt_child(&node) == parent.end()) << number;
    EXPECT_TRUE(parent.append_element(tag_id{GetParam()}) == parent.end()) << number;
  }
}

TEST_P(ElementWithoutRecord, StoresNoStyle) {
  EXPECT_FALSE(node.set_style(css_property_id::color, u"red"));
  EXPECT_TRUE(node.style_properties()->empty());
}

TEST_P(ElementWithoutRecord, IsCopiedAsItIs) {
  const std::unique_ptr<xhtml_markup> copy(node.clone());
  ASSERT_NE(copy->tag_trait(), nullptr);
  EXPECT_EQ(copy->tag_trait()->get(), nullptr);
  EXPECT_THROW(copy->end_tag_text(), std::domain_error);
}

}  // namespace
}  // namespace test
