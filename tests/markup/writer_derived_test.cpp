// Nodes of derived classes in the writer: each is written by its own `write`.

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>
#include <string>

#include "tests/markup/writer_kit.h"
#include "tests/support/locale.h"
#include "tests/support/vocabulary_numbers.h"

namespace test {
namespace {

void put(xhtml_writer& writer, ustring_view text) {
  writer.stream->write(text.data(), static_cast<std::streamsize>(text.size()));
}

/// A node of a host that returns a given kind, and writes a word past the writer.
struct word_node : xhtml_markup {
  explicit word_node(std::int32_t its_kind) : kind(its_kind) {}

  std::int32_t node_kind() const override { return kind; }
  xhtml_markup* clone() const override { return new word_node(*this); }
  void write(xhtml_writer& writer) const override {
    put(writer, u"[" + ustring(1, static_cast<char16_t>(u'0' + writer.indent_level)) + u"]");
    writer.column += 3;
  }

  std::int32_t kind;
};

TEST(WriterDerived, NodeIsWrittenByItsOwnWrite) {
  EXPECT_TRUE(same_units(written(word_node(3)), u"[0]"));
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"a", word_node(3), make(tag_id::b, u"b"))),
                         u"<p>\n"
                         u"  a[1]<b>b</b>\n"
                         u"</p>\n"));
}

TEST(WriterDerived, LevelIsThatOfTheContent) {
  EXPECT_TRUE(same_units(
      written(make(tag_id::div, make(tag_id::div, make(tag_id::p, make(tag_id::b, word_node(3)))))),
      u"<div>\n"
      u"  <div>\n"
      u"    <p>\n"
      u"      <b>[3]</b>\n"
      u"    </p>\n"
      u"  </div>\n"
      u"</div>\n"));
}

// All four breaks, but it writes no line end of its own.
TEST(WriterDerived, InstructionIsABlock) {
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"a", word_node(4), u"b")),
                         u"<p>\n"
                         u"  a\n"
                         u"  [1]  b\n"
                         u"</p>\n"));
}

TEST(WriterDerived, DoctypeLeavesItsLineOpen) {
  EXPECT_TRUE(same_units(written(make(tag_id::doc_root, word_node(1), make(tag_id::html))),
                         u"[0]\n"
                         u"<html>\n"
                         u"</html>\n"));
}

/// Claims to be an element of any number.
struct numbered_node : word_node {
  explicit numbered_node(tag_id its_number) : word_node(3), number(its_number) {}
  tag_id tag() const override { return number; }
  xhtml_markup* clone() const override { return new numbered_node(*this); }
  tag_id number;
};

TEST(WriterDerived, NumberDecidesBeforeTheKind) {
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"a", numbered_node(tag_id::div))),
                         u"<p>\n"
                         u"  a\n"
                         u"  [1]</p>\n"));
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"a", numbered_node(tag_id::b))),
                         u"<p>\n"
                         u"  a[1]\n"
                         u"</p>\n"));
}

/// Counts the units on a stream whenever somebody asks for the number of the element.
struct watching_element : xhtml_element {
  explicit watching_element(const ustring_stream& its_stream)
      : xhtml_element(tag_id::p, {}, {}), stream(&its_stream) {}
  tag_id tag() const override {
    seen.push_back(stream->view().size());
    return xhtml_element::tag();
  }
  const ustring_stream* stream;
  mutable std::vector<std::size_t> seen;
};

TEST(WriterDerived, AllThatIsWrittenIsOnTheStreamWhenAnOperationIsCalled) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  watching_element p(stream);
  p << u"hello";
  p.seen.clear();
  p.write(writer);
  EXPECT_TRUE(same_units(stream.view(), u"<p>\n  hello\n</p>\n"));
  ASSERT_FALSE(p.seen.empty());
  // The text asks last, after the start tag, the line feed and its two blanks.
  EXPECT_EQ(p.seen.back(), 6u);
}

TEST(WriterDerived, NumbersOutsideTheTableAreNoElements) {
  for (const int number : {-1, invalid_number, first_number_without_record, 100'000})
    EXPECT_TRUE(same_units(written(make(tag_id::p, u"a", numbered_node(tag_id{number}))),
                           u"<p>\n"
                           u"  a[1]\n"
                           u"</p>\n"))
        << number;
}

// 259 and 261 have the low byte of a comment and of a text.
TEST(WriterDerived, UnknownKindsAreBlocks) {
  for (const std::int32_t kind : {0, 6, -1, 259, 261}) {
    struct unknown_node : word_node {
      using word_node::word_node;
      std::uint32_t category_flags() const override { return 4; }
      xhtml_markup* clone() const override { return new unknown_node(*this); }
    };
    EXPECT_TRUE(same_units(written(make(tag_id::p, u"a", unknown_node(kind), u"b")),
                           u"<p>\n"
                           u"  a\n"
                           u"  [1]  b\n"
                           u"</p>\n"))
        << kind;
  }
}

/// Writes marks around what the library writes.
struct marked_element : xhtml_element {
  explicit marked_element(tag_id tag) : xhtml_element(tag, u"i", {}) {}
  marked_element(const marked_element&) = default;
  xhtml_markup* clone() const override { return new marked_element(*this); }
  void write(xhtml_writer& writer) const override {
    put(writer, u"{");
    xhtml_element::write(writer);
    put(writer, u"}");
  }
};

TEST(WriterDerived, ElementMayWriteMoreThanTheLibraryDoes) {
  marked_element b(tag_id::b);
  b << u"x" << make(tag_id::i, u"y") << marked_element(tag_id::em);
  EXPECT_TRUE(same_units(written(make(tag_id::p, u"a", b, u"c")),
                         u"<p>\n"
                         u"  a{<b id='i'>x<i>y</i>{<em id='i'></em>}</b>}c\n"
                         u"</p>\n"));
}

TEST(WriterDerived, BlockElementKeepsItsLines) {
  marked_element div(tag_id::div);
  div << marked_element(tag_id::p);
  EXPECT_TRUE(same_units(written(make(tag_id::body, div)),
                         u"<body>\n"
                         u"  {<div id='i'>\n"
                         u"    {<p id='i'>\n"
                         u"    </p>\n"
                         u"}  </div>\n"
                         u"}</body>\n"));
}

/// Overrides the functions about its tags.
struct renamed_element : xhtml_element {
  explicit renamed_element(tag_id tag) : xhtml_element(tag, u"i", {}) {}
  renamed_element(const renamed_element&) = default;
  xhtml_markup* clone() const override { return new renamed_element(*this); }
  ustring tag_name() const override { return u"x:name"; }
  ustring end_tag_text() const override { return u"</x:end >"; }
  bool is_empty_element() const override { return is_void; }
  bool is_void = false;
};

TEST(WriterDerived, TagsAreWhatTheOperationsSay) {
  renamed_element b(tag_id::b);
  b << u"x" << make(tag_id::i);
  EXPECT_TRUE(same_units(written(b), u"<x:name id='i'>x<i></i></x:end >"));
  EXPECT_TRUE(same_units(written(make(tag_id::p, b)),
                         u"<p>\n"
                         u"  <x:name id='i'>x<i></i></x:end >\n"
                         u"</p>\n"));
  b.is_void = true;
  EXPECT_TRUE(same_units(written(b), u"<x:name id='i'/>x<i></i>"));
}

TEST(WriterDerived, LengthOfTheTagsCountsInTheColumn) {
  renamed_element b(tag_id::b);
  const auto out = write_with(b, [](xhtml_writer&) {});
  EXPECT_TRUE(is_outcome(out, u"<x:name id='i'></x:end >", 24));
}

TEST(WriterDerived, EndTagWrapsByItsOwnLength) {
  renamed_element b(tag_id::b);
  const auto wrapped = [&b](std::uint64_t length) {
    return write_with(b, [&](xhtml_writer& writer) { writer.max_line_length = length; }).text;
  };
  EXPECT_TRUE(same_units(wrapped(24), u"<x:name id='i'></x:end >"));
  EXPECT_TRUE(same_units(wrapped(23), u"<x:name id='i'>\n</x:end >"));
}

/// Claims to be another element.
struct disguised_element : xhtml_element {
  disguised_element(tag_id tag, tag_id says) : xhtml_element(tag, {}, {}), number(says) {}
  disguised_element(const disguised_element&) = default;
  xhtml_markup* clone() const override { return new disguised_element(*this); }
  tag_id tag() const override { return number; }
  tag_id number;
};

TEST(WriterDerived, LayoutIsThatOfTheNumberItSays) {
  disguised_element span(tag_id::span, tag_id::div);
  span << u"a\nb";
  EXPECT_TRUE(same_units(written(span), u"<span>\n  a\n  b\n</span>\n"));
  disguised_element pre(tag_id::span, tag_id::pre);
  pre << u"a\nb" << make(tag_id::i, u"c\nd");
  EXPECT_TRUE(same_units(written(make(tag_id::p, pre)),
                         u"<p>\n"
                         u"  <span>a\nb<i>c\n"
                         u"  d</i>\n"
                         u"  </span>\n"
                         u"</p>\n"));
}

TEST(WriterDerived, RootInDisguiseHasNoTags) {
  disguised_element div(tag_id::div, tag_id::doc_root);
  div << make(tag_id::p);
  EXPECT_TRUE(same_units(written(div), u"<p>\n</p>\n"));
}

/// Cannot be closed.
struct endless_element : renamed_element {
  using renamed_element::renamed_element;
  xhtml_markup* clone() const override { return new endless_element(*this); }
  ustring end_tag_text() const override { throw std::domain_error("no end"); }
};

TEST(WriterDerived, WhatWasWrittenBeforeAnExceptionIsOnTheStream) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  const xhtml_element p = make(tag_id::p, u"a", endless_element(tag_id::b), u"c");
  EXPECT_THROW(p.write(writer), std::domain_error);
  EXPECT_TRUE(same_units(stream.str(), u"<p>\n  a<x:name id='i'>"));
}

/// Has no record, but a name.
struct lawless_element : renamed_element {
  lawless_element() : renamed_element(tag_id{500}) {}
  xhtml_markup* clone() const override { return new lawless_element(*this); }
  tag_id tag() const override { return tag_id::b; }
};

TEST(WriterDerived, ElementWithoutARecordIsAskedToo) {
  EXPECT_TRUE(same_units(written(lawless_element()), u"<x:name></x:end >"));
}

// --- What an operation fetches at its start ---

TEST(WriterLocale, IsThatAtTheStartOfEachWrite) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  const xhtml_comment comment = test::comment(u"axxb");
  comment.write(writer);
  {
    const global_locale changed(locale_with(L'x', std::ctype_base::space));
    comment.write(writer);
  }
  comment.write(writer);
  EXPECT_TRUE(same_units(stream.str(), u"<!-- axxb --><!-- axb --><!-- axxb -->"));
}

/// Writes `b` with lines of `length` units that start in column -6, without blanks.
outcome written_before_the_line(const xhtml_element& b, std::uint64_t length) {
  return write_with(b, [length](xhtml_writer& writer) {
    writer.indent_level = 3;
    writer.indent_step = -2;
    writer.max_line_length = length;
  });
}

// `</b>` doesn't fit into 5 units after `<b>c `. It has 4 units from column -6 on.
TEST(WriterColumn, NegativeNumberOfBlanksWraps) {
  EXPECT_TRUE(is_outcome(written_before_the_line(make(tag_id::b, u"c"), 5), u"<b>c\n</b>",
                         std::uint64_t{0} - 2));
}

// Column -6 is far beyond the longest line, so that every word is on a line of its own. `</b>`
// ends in column 0, which is short enough.
TEST(WriterColumn, NegativeNumberOfBlanksWrapsEveryWord) {
  EXPECT_TRUE(
      is_outcome(written_before_the_line(make(tag_id::b, u"c d e"), 4), u"<b>c \nd \ne</b>", 0));
}

}  // namespace
}  // namespace test
