#include <gtest/gtest.h>

#include <cstdint>
#include <locale>
#include <stdexcept>
#include <string>

#include "tests/markup/writer_kit.h"
#include "tests/markup/writer_random_tree.h"
#include "tests/markup/writer_reference.h"
#include "tests/support/derived_nodes.h"
#include "tests/support/locale.h"

namespace {

// Writes random nodes with the library's writer and with the plain one; in every second
// case nodes of derived classes with the same content.
void compare_trees(std::uint32_t first_seed, std::uint32_t count) {
  for (std::uint32_t seed = first_seed; seed != first_seed + count; ++seed) {
    test::random_source random(seed);
    Xport::ustring_stream stream;
    Xport::xhtml_writer writer(stream);
    test::reference_writer reference;
    random.set_up(writer, reference);
    // Mostly one tree; sometimes several nodes, with the state carried on.
    for (std::uint32_t nodes = random.one_in(4) ? 3 : 1; nodes != 0; --nodes) {
      const Xport::xhtml_element tree = random.tree();
      if (seed % 2 == 0)
        test::derived_copy(tree)->write(writer);
      else
        tree.write(writer);
      reference.write(tree);
    }
    ASSERT_TRUE(test::same_units(stream.str(), reference.output)) << "seed " << seed;
    ASSERT_EQ(writer.column, reference.column) << "seed " << seed;
    ASSERT_EQ(writer.indent_level, reference.indent_level) << "seed " << seed;
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
  const test::global_locale guard(locale);
  compare_trees(100'001, 1500);
}

TEST(WriterRandom, LeavesAloneAreWrittenAsThePlainWriterDoes) {
  for (std::uint32_t seed = 1; seed <= 3000; ++seed) {
    test::random_source random(seed);
    Xport::ustring_stream stream;
    Xport::xhtml_writer writer(stream);
    test::reference_writer reference;
    random.set_up(writer, reference);
    const Xport::xhtml_pcdata text(random.text());
    const Xport::xhtml_comment comment = test::comment(random.text());
    const Xport::xhtml_processing_instruction instruction = test::instruction(random.text());
    for (const Xport::xhtml_markup* node :
         {static_cast<const Xport::xhtml_markup*>(&text),
          static_cast<const Xport::xhtml_markup*>(&comment),
          static_cast<const Xport::xhtml_markup*>(&instruction)}) {
      node->write(writer);
      reference.write(*node);
    }
    ASSERT_TRUE(test::same_units(stream.str(), reference.output)) << "seed " << seed;
    ASSERT_EQ(writer.column, reference.column) << "seed " << seed;
    ASSERT_EQ(writer.indent_level, reference.indent_level) << "seed " << seed;
  }
}

// The comparison means something only if the trees hold what it is about.
TEST(WriterRandom, TreesHoldAllKindsOfContent) {
  Xport::ustring all;
  for (std::uint32_t seed = 1; seed <= 600; ++seed) {
    test::random_source random(seed);
    Xport::ustring_stream stream;
    Xport::xhtml_writer writer(stream);
    test::reference_writer reference;
    random.set_up(writer, reference);
    random.tree().write(writer);
    all += stream.str();
  }
  for (Xport::ustring_view part :
       {u"<pre", u"<span", u"<br", u"<img", u"<!-- ", u"<?", u"<!DOCTYPE", u" style='",
        u" style = \"", u"<td", u"<script", u"\n    "})
    EXPECT_NE(all.find(part), Xport::ustring::npos) << test::printable(part);
  for (Xport::char16 unit : {u'\x4E2D', static_cast<char16_t>(0xD83D), u'\xFFFF'})
    EXPECT_NE(all.find(unit), Xport::ustring::npos) << static_cast<unsigned>(unit);
}

}  // namespace
