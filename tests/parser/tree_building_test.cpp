#include <gtest/gtest.h>

#include "parser/parse_kit.h"

namespace {

using test::in_body;
using test::in_div;
using test::in_p;
using test::in_root;
using test::message;
using test::messages_of;
using Xport::tag_id;

TEST(TreeBuilding, EndTagClosesElement) { EXPECT_EQ(in_div(u"<p>a</p>"), "p('a')"); }

TEST(TreeBuilding, ParagraphEndsParagraph) {
  EXPECT_EQ(in_body(u"<p>a<p>b"), "p('a') p('b')");
  EXPECT_EQ(messages_of(u"<p>a<p>b", 1, {tag_id::html, tag_id::body}),
            message(1, "Couldn't insert <p> into <p>.\nEnding <p> element.\n"));
}

}  // namespace
