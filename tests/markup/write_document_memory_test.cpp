#include <gtest/gtest.h>

#include <memory>
#include <new>
#include <utility>

#include "tests/markup/writer_kit.h"
#include "tests/support/refusing_file.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

void fill(xhtml_element& body, int lines) {
  xhtml_element table = make(tag_id::table);
  for (; lines != 0; --lines) {
    xhtml_element cell = make(tag_id::td, u"A text that doesn't fit a short string", comment(u"c"));
    cell.set_attribute(attr_id::title, u"a value that doesn't fit a short string");
    cell.set_style(css_property_id::color, u"red");
    add(table, make(tag_id::tr, cell));
    add(body, make(tag_id::pre, u"one\ntwo", instruction(u"three")));
  }
  add(body, table);
}

// The write fails in the middle of the tree, or when the file is closed.
TEST(WriteDocument, NeedsNoMemoryAfterAFailedWrite) {
  for (const int lines : {0, 1, 2'000}) {
    xhtml_doc doc(1);
    fill(*doc.body()->as_element(), lines);
    refusals record;
    auto file = std::make_unique<refusing_file>(record);
    bool written = false;
    bool ran_out = false;
    try {
      written = write_document(doc, std::move(file));
    } catch (const std::bad_alloc&) {
      ran_out = true;
    }
    fail_allocation(0);
    EXPECT_TRUE(written) << lines;
    EXPECT_FALSE(ran_out) << lines;
    EXPECT_EQ(record.writes, 1) << lines;
    EXPECT_EQ(record.closes, 1) << lines;
  }
}

}  // namespace
}  // namespace test
