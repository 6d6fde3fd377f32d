#include "samples/work_body.h"

#include <gtest/gtest.h>

#include <iterator>
#include <vector>

#include "samples/filler_lines.h"
#include "samples/work_stylesheet.h"
#include "tests/support/tree_check.h"
#include "xport/markup/xhtml_doc.h"

namespace {

using Xport::find_by_id;
using Xport::tag_id;

class WorkBody : public testing::Test {
 protected:
  void SetUp() override { samples::add_work_body(*doc_.body()); }

  Xport::xhtml_doc doc_{1};
};

TEST_F(WorkBody, MakesATreeThatHangsTogether) {
  EXPECT_TRUE(test::is_intact(*doc_.root()));
  EXPECT_EQ(std::distance(doc_.body()->begin(), doc_.body()->end()), 16);
}

// One text for each line, not one for all.
TEST_F(WorkBody, HasTwentyTextsInTheParagraphOfResults) {
  const auto found = find_by_id(doc_.descendant_begin(), doc_.descendant_end(), u"abzac");
  ASSERT_NE(found, doc_.descendant_end());
  EXPECT_EQ(found->tag(), tag_id::p);
  EXPECT_EQ(std::distance(found->begin(), found->end()), 20);
  for (const Xport::xhtml_markup& child : *found) EXPECT_EQ(child.type(), Xport::node_type::pcdata);
  EXPECT_EQ(samples::description_lines().size(), 4u);
}

TEST_F(WorkBody, HasElevenRules) {
  Xport::xhtml_stylesheet sheet;
  samples::add_work_rules(sheet);
  EXPECT_EQ(sheet.size(), 11u);
  std::vector<std::ptrdiff_t> declarations;
  for (const Xport::xhtml_stylesheet_item& item : sheet) {
    EXPECT_EQ(item.item_kind(), 1);
    declarations.push_back(std::distance(item.declarations_begin(), item.declarations_end()));
  }
  EXPECT_EQ(declarations, (std::vector<std::ptrdiff_t>{1, 1, 2, 3, 3, 4, 4, 1, 4, 1, 1}));
}

}  // namespace
