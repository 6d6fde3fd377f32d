// Texts of all lengths, on their own, in a tree on the heap and in a document.

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <stdexcept>

#include "tests/markup/tree_text.h"
#include "tests/support/golden.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

/// `size` units that differ from their neighbours.
ustring units(std::size_t size, std::size_t from = 0) {
  ustring text(size, u'\0');
  for (std::size_t i = 0; i < size; ++i) text[i] = static_cast<char16>((from + i) * 7 % 65535 + 1);
  return text;
}

ustring_view text_in(const xhtml_markup& node) {
  return dynamic_cast<const text_leaf&>(node).text();
}

/// A place for texts: a `p` on its own, or in a document.
class TextPlace : public ::testing::TestWithParam<bool> {
 protected:
  xhtml_markup& p() { return *p_; }

 private:
  xhtml_doc doc_{1};
  xhtml_element own_ = element(tag_id::p);
  xhtml_markup* p_ = GetParam() ? doc_.body()->append_copy(element(tag_id::p)).cell() : &own_;
};

INSTANTIATE_TEST_SUITE_P(Trees, TextPlace, ::testing::Bool(), [](const auto& test) {
  return std::string(test.param ? "document" : "heap");
});

TEST_P(TextPlace, KeepsTextsOfEveryLength) {
  for (std::size_t size = 0; size <= 1000; ++size)
    ASSERT_TRUE(same_units(text_in(*p().append_text(units(size))), units(size))) << size;
  std::size_t size = 0;
  for (const xhtml_markup& child : p()) {
    ASSERT_TRUE(same_units(text_in(child), units(size))) << size;
    ++size;
  }
  EXPECT_EQ(size, 1001u);
  EXPECT_TRUE(is_intact(p()));
}

TEST_P(TextPlace, KeepsAMillionUnits) {
  const ustring million = units(1000000);
  auto text = p().append_text(million);
  EXPECT_TRUE(same_units(text_in(*text), million));
  *text << million;
  EXPECT_TRUE(same_units(text_in(*text), million + million));
}

TEST_P(TextPlace, KeepsEveryUnit) {
  ustring all;
  for (std::uint32_t unit = 1; unit <= 65535; ++unit) all += static_cast<char16>(unit);
  all += u'\0';
  EXPECT_TRUE(same_units(text_in(*p().append_text(all)), all));
  for (std::uint32_t unit = 0; unit <= 65535; unit += 255) {
    const ustring one(1, static_cast<char16>(unit));
    ASSERT_TRUE(same_units(text_in(*p().append_text(one)), one)) << unit;
  }
}

TEST_P(TextPlace, GrowsTextsUnitByUnit) {
  auto text = p().append_text(u"");
  for (std::size_t size = 1; size <= 1000; ++size) {
    EXPECT_EQ(&(*text << units(1, size - 1)), &*text);
    ASSERT_TRUE(same_units(text_in(*text), units(size))) << size;
  }
}

TEST_P(TextPlace, GrowsTextsOfEveryLengthByEveryLength) {
  for (std::size_t size = 0; size <= 260; size += 1 + size / 16)
    for (std::size_t more = 0; more <= 260; more += 1 + more / 16) {
      auto text = p().append_text(units(size));
      *text << units(more, size);
      ASSERT_TRUE(same_units(text_in(*text), units(size + more))) << size << " + " << more;
    }
  EXPECT_TRUE(is_intact(p()));
}

TEST_P(TextPlace, AppendsATextToItself) {
  for (std::size_t size = 0; size <= 300; ++size) {
    auto text = p().append_text(units(size));
    *text << text_in(*text);
    *text << text_in(*text);
    const ustring twice = units(size) + units(size);
    ASSERT_TRUE(same_units(text_in(*text), twice + twice)) << size;
  }
}

TEST_P(TextPlace, AppendsPartOfATextToItself) {
  for (std::size_t size = 4; size <= 300; size += 7) {
    auto text = p().append_text(units(size));
    *text << text_in(*text).substr(size / 4, size / 2);
    ASSERT_TRUE(same_units(text_in(*text), units(size) + units(size).substr(size / 4, size / 2)))
        << size;
  }
}

TEST_P(TextPlace, InsertsATextOfItsOwnTree) {
  auto text = p().append_text(units(300));
  auto copy = p().insert_text(text, text_in(*text));
  EXPECT_TRUE(same_units(text_in(*copy), units(300)));
  EXPECT_TRUE(++copy == text);
}

TEST_P(TextPlace, TrimsItsTexts) {
  for (const std::size_t size : {0u, 5u, 8u, 9u, 219u, 220u, 221u, 1000u}) {
    auto text = p().append_text(ustring(size, u'a') + u" \t\n");
    text->trim_trailing_space();
    EXPECT_TRUE(same_units(text_in(*text), ustring(size, u'a')));
    *text << u"!";
    EXPECT_TRUE(same_units(text_in(*text), ustring(size, u'a') + u'!'));
  }
}

TEST_P(TextPlace, CopiesTextsOfAllKinds) {
  for (std::size_t size = 1; size <= 300; ++size) {
    const ustring body = ustring(size, u'x');
    auto comment = p().append_copy(xhtml_comment(body));
    auto instruction = p().append_copy(xhtml_processing_instruction(body));
    EXPECT_EQ(comment->node_kind(), 3);
    EXPECT_EQ(instruction->node_kind(), 4);
    *comment << body;
    *instruction << body;
    ASSERT_TRUE(same_units(text_in(*comment), body + body));
    ASSERT_TRUE(same_units(text_in(*instruction), body + body));
  }
  EXPECT_TRUE(is_intact(p()));
}

// A comment stays as it is in a tree, and isn't cut again as a token is.
TEST_P(TextPlace, CopiesTextsThatLookLikeTokens) {
  xhtml_comment comment(u"<-- a -->");
  comment << u" <-- b --> ";
  EXPECT_EQ(text_of(*p().append_copy(comment)), "a <-- b --> ");
  const std::unique_ptr<xhtml_markup> clone(comment.clone());
  EXPECT_EQ(text_of(*clone), "a <-- b --> ");
}

TEST_P(TextPlace, ClonesTextsThatLiveOnTheirOwn) {
  for (const std::size_t size : {0u, 1u, 8u, 9u, 220u, 221u, 1000u}) {
    auto text = p().append_text(units(size));
    const std::unique_ptr<xhtml_markup> clone(text->clone());
    EXPECT_EQ(clone->parent(), &p());
    *clone << u"more";
    EXPECT_TRUE(same_units(text_in(*text), units(size)));
    EXPECT_TRUE(same_units(text_in(*clone), units(size) + u"more"));
  }
}

TEST_P(TextPlace, RefusesTextsThatCantBeCounted) {
  const char16 unit = u'a';
  const ustring_view endless(&unit, std::size_t{1} << 32);
  p().append_text(u"kept");
  EXPECT_THROW(p().append_text(endless), std::length_error);
  EXPECT_THROW(p() << endless, std::length_error);
  EXPECT_THROW(*p().begin() << endless, std::length_error);
  EXPECT_THROW(xhtml_pcdata{endless}, std::length_error);
  EXPECT_TRUE(is_tree(p(), "p('kept')"));
}

TEST(TextLeaf, OnTheStackKeepsTextsOfEveryLength) {
  for (std::size_t size = 0; size <= 1000; ++size) {
    xhtml_pcdata text(units(size));
    ASSERT_TRUE(same_units(text.text(), units(size)));
    const xhtml_pcdata copy(text);
    text << units(size);
    ASSERT_TRUE(same_units(text.text(), units(size) + units(size)));
    ASSERT_TRUE(same_units(copy.text(), units(size)));
  }
}

TEST(TextLeaf, AdoptedByADocumentCanStillGrow) {
  xhtml_doc doc(1);
  auto p = doc.body()->append_copy(element(tag_id::p));
  for (const std::size_t size : {0u, 8u, 9u, 300u}) {
    auto text = p->adopt_child(new xhtml_pcdata(units(size)));
    *text << units(300, size);
    EXPECT_TRUE(same_units(text_in(*text), units(size + 300)));
  }
  EXPECT_TRUE(is_intact(*doc.root()));
}

}  // namespace
}  // namespace test
