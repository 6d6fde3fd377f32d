#include <gtest/gtest.h>

#include <cstdint>
#include <locale>
#include <stdexcept>
#include <string>

#include "tests/markup/plain_writer.h"
#include "tests/markup/writer_kit.h"
#include "tests/markup/writer_random_tree.h"
#include "tests/support/derived_nodes.h"
#include "tests/support/locale.h"

namespace test {
namespace {

// Writes random nodes with the library's writer and with the plain one; in every second
// case nodes of derived classes with the same content.
void compare_trees(std::uint32_t first_seed, std::uint32_t count) {
  for (std::uint32_t seed = first_seed; seed != first_seed + count; ++seed) {
    random_source random(seed);
    ustring_stream stream;
    xhtml_writer writer(stream);
    plain_writer plain;
    random.set_up(writer, plain);
    // Mostly one tree; sometimes several nodes, with the state carried on.
    for (std::uint32_t nodes = random.one_in(4) ? 3 : 1; nodes != 0; --nodes) {
      const xhtml_element tree = random.tree();
      if (seed % 2 == 0)
        derived_copy(tree)->write(writer);
      else
        tree.write(writer);
      plain.write(tree);
    }
    ASSERT_TRUE(same_units(stream.str(), plain.output)) << "seed " << seed;
    ASSERT_EQ(writer.column, plain.column) << "seed " << seed;
    ASSERT_EQ(writer.indent_level, plain.indent_level) << "seed " << seed;
  }
}

TEST(WriterRandom, TreesAreWrittenAsThePlainWriterDoes) { compare_trees(1, 6000); }

TEST(WriterRandom, WhiteSpaceIsThatOfTheGlobalLocale) {
  std::locale locale;
  try {
    locale = std::locale("C.UTF-8");
  } catch (const std::runtime_error&) {
    GTEST_SKIP() << "there is no locale C.UTF-8";
  }
  const global_locale guard(locale);
  compare_trees(100'001, 1500);
}

TEST(WriterRandom, LeavesAloneAreWrittenAsThePlainWriterDoes) {
  for (std::uint32_t seed = 1; seed <= 3000; ++seed) {
    random_source random(seed);
    ustring_stream stream;
    xhtml_writer writer(stream);
    plain_writer plain;
    random.set_up(writer, plain);
    const xhtml_pcdata text(random.text());
    const xhtml_comment comment = test::comment(random.text());
    const xhtml_processing_instruction instruction = test::instruction(random.text());
    for (const xhtml_markup* node :
         {static_cast<const xhtml_markup*>(&text), static_cast<const xhtml_markup*>(&comment),
          static_cast<const xhtml_markup*>(&instruction)}) {
      node->write(writer);
      plain.write(*node);
    }
    ASSERT_TRUE(same_units(stream.str(), plain.output)) << "seed " << seed;
    ASSERT_EQ(writer.column, plain.column) << "seed " << seed;
    ASSERT_EQ(writer.indent_level, plain.indent_level) << "seed " << seed;
  }
}

// The comparison means something only if the trees hold what it is about.
TEST(WriterRandom, TreesHoldAllKindsOfContent) {
  ustring all;
  for (std::uint32_t seed = 1; seed <= 600; ++seed) {
    random_source random(seed);
    ustring_stream stream;
    xhtml_writer writer(stream);
    plain_writer plain;
    random.set_up(writer, plain);
    random.tree().write(writer);
    all += stream.str();
  }
  for (ustring_view part : {u"<pre", u"<span", u"<br", u"<img", u"<!-- ", u"<?", u"<!DOCTYPE",
                            u" style='", u" style = \"", u"<td", u"<script", u"\n    "})
    EXPECT_NE(all.find(part), ustring::npos) << printable(part);
  for (char16 unit : {u'\x4E2D', static_cast<char16_t>(0xD83D), u'\xFFFF'})
    EXPECT_NE(all.find(unit), ustring::npos) << static_cast<unsigned>(unit);
}

}  // namespace
}  // namespace test
