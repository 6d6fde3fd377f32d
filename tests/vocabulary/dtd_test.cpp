#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <map>
#include <set>
#include <string>

#include "tests/support/names.h"
#include "tests/support/vocabulary_numbers.h"
#include "tests/vocabulary/dtd.h"
#include "tests/vocabulary/narrow.h"
#include "xport/vocabulary/tag_table.h"

namespace test {
namespace {

using names = std::set<std::string>;

constexpr const char* pcdata = "#PCDATA";

const Tag_trait& record(const std::string& element) {
  return *tag_table[xhtml_strict::tag_from_name(widen(element))];
}

/// The records compared with the published document type.
class PublishedDtd : public testing::Test {
 protected:
  void SetUp() override {
    std::ifstream file(VELLOMARK_XHTML_DTD, std::ios::binary);
    if (!file) GTEST_SKIP() << "no file " << VELLOMARK_XHTML_DTD << " (package w3c-sgml-lib)";
    elements_ = read_dtd(std::string(std::istreambuf_iterator<char>(file), {}));
  }

  std::map<std::string, dtd_element> elements_;
};

TEST_F(PublishedDtd, HasTheElementsThatHaveUsableRecords) {
  names published;
  for (const auto& element : elements_) published.insert(element.first);
  names usable;
  for (int number = 1; number < invalid_number; ++number)
    if (tag_table[tag_id{number}]->id == tag_id{number})
      usable.insert(narrow(tag_table[tag_id{number}]->name));
  EXPECT_EQ(published.size(), 77u);
  EXPECT_EQ(usable, published);
}

// --- Attributes ---------------------------------------------------------------------

struct departure {
  const char* element;
  names additions;
  names losses;
};

const departure departures[] = {
    {"a", {"target"}, {}},
    {"acronym", {}, {"dir"}},
    {"base", {}, {"id"}},
    {"col", {}, {"onkeypress", "onkeyup", "onmousedown"}},
    {"form", {"target"}, {}},
    {"head", {}, {"id"}},
    {"html", {}, {"id"}},
    {"img", {"align"}, {}},
    {"input", {"align", "ismap"}, {}},
    {"legend", {"align"}, {}},
    {"meta", {}, {"id"}},
    {"object", {"align", "border", "hspace", "vspace"}, {}},
    {"optgroup", {"selected", "value"}, {}},
    {"script", {"for"}, {"defer", "id"}},
    {"select", {"datafld", "dataformatas", "datasrc"}, {}},
    {"style", {}, {"id"}},
    {"title", {"abbr"}, {"id"}},
};

names allowed_attributes(const Tag_trait& trait) {
  names allowed;
  for (int number = 0; number < 244; ++number)
    if (trait.allowed_attributes.contains(attr_id{number}))
      allowed.insert(narrow(xhtml_strict::attribute_name(attr_id{number})));
  return allowed;
}

/// Replaces the published names by the library's own.
void rename(names& attributes) {
  if (attributes.erase("char")) attributes.insert("char-attr");
  if (attributes.erase("xml:space")) attributes.insert("xmlspaceL");
}

TEST_F(PublishedDtd, HasTheAttributesButForTheKnownDepartures) {
  for (auto& [element, published] : elements_) {
    names expected = published.attributes;
    rename(expected);
    for (const departure& change : departures)
      if (change.element == element) {
        for (const std::string& name : change.additions)
          EXPECT_TRUE(expected.insert(name).second) << name << " isn't new in " << element;
        for (const std::string& name : change.losses)
          EXPECT_TRUE(expected.erase(name)) << name << " isn't in " << element;
      }
    EXPECT_EQ(allowed_attributes(record(element)), expected) << element;
  }
}

// --- Content ------------------------------------------------------------------------

/// What the recommendation forbids in its appendix B without the DTD saying so.
const std::map<std::string, names> prohibitions = {
    {"a", {"a"}},
    {"pre", {"img", "object", "big", "small", "sub", "sup"}},
    {"button",
     {"input", "select", "textarea", "label", "button", "form", "fieldset", "iframe", "isindex"}},
    {"label", {"label"}},
    {"form", {"form"}},
};

/// The membership that the records must have, from what is published.
std::map<std::string, names> expected_content(const std::map<std::string, dtd_element>& dtd) {
  std::map<std::string, names> content;
  for (const auto& [element, published] : dtd) content[element] = published.children;

  // These two take flow content.
  content["form"] = content["noscript"] = content["div"];
  content["address"].insert("p");
  content["head"].erase("object");
  content["map"].erase("script");
  // Only the body accepts these two.
  for (auto& [element, children] : content)
    if (element != "body") {
      children.erase("ins");
      children.erase("del");
    }
  for (const auto& [element, children] : prohibitions)
    for (const std::string& child : children) content[element].erase(child);
  return content;
}

/// What the record admits by category or by name.
names admitted(const Tag_trait& parent, const std::map<std::string, dtd_element>& dtd) {
  names children;
  if (parent.content_flags & 6) children.insert(pcdata);
  for (const auto& element : dtd) {
    const Tag_trait& child = record(element.first);
    const bool by_category = (parent.content_flags & 3 & child.category_flags) != 0;
    if (by_category ? !parent.excluded_children.contains(child.id)
                    : parent.allowed_children.contains(child.id))
      children.insert(element.first);
  }
  return children;
}

TEST_F(PublishedDtd, HasTheContentButForTheKnownDepartures) {
  for (const auto& [element, expected] : expected_content(elements_))
    EXPECT_EQ(admitted(record(element), elements_), expected) << element;
}

// --- The reader itself ----------------------------------------------------------------

TEST(DtdReader, ExpandsEntitiesAndSkipsCommentsAndExternalEntities) {
  const auto elements = read_dtd(
      "<!-- <!ELEMENT no (x)> -->\n"
      "<!ENTITY % ext PUBLIC \"-//A//B\" \"c.ent\">\n%ext;\n"
      "<!ENTITY % inner \"b | c\">\n"
      "<!ENTITY % outer \"(#PCDATA | %inner;)*\">\n"
      "<!ENTITY % common \"id ID #IMPLIED dir (ltr|rtl) #IMPLIED\">\n"
      "<!ELEMENT a %outer;>\n"
      "<!ATTLIST a %common; xmlns CDATA #FIXED 'x > y' shape (r | s) \"r\">\n"
      "<!ELEMENT b EMPTY>\n");
  ASSERT_EQ(elements.size(), 2u);
  EXPECT_EQ(elements.at("a").children, (names{"#PCDATA", "b", "c"}));
  EXPECT_EQ(elements.at("a").attributes, (names{"dir", "id", "shape", "xmlns"}));
  EXPECT_EQ(elements.at("b").children, names{});
}

}  // namespace
}  // namespace test
