#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ios>
#include <ostream>
#include <streambuf>
#include <type_traits>

#include "tests/markup/writer_kit.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

xhtml_element sample() {
  xhtml_element p = make(tag_id::p, u"x\ny");
  p.set_attribute(attr_id::id, u"i");
  p.set_style(css_property_id::color, u"red");
  p.set_style(css_property_id::margin, u"0");
  return make(tag_id::div, p);
}

ustring with_step(std::int32_t step) {
  return write_with(sample(), [step](xhtml_writer& writer) { writer.indent_step = step; }).text;
}

TEST(WriterOption, Defaults) {
  ustring_stream stream;
  const xhtml_writer writer(stream);
  EXPECT_EQ(writer.stream_mode, 1u);
  EXPECT_EQ(writer.indent_step, 2);
  EXPECT_EQ(writer.indent_level, 0);
  EXPECT_EQ(writer.max_line_length, 0u);
  EXPECT_EQ(writer.column, 0u);
  EXPECT_EQ(writer.stream, &stream);
  EXPECT_FALSE(writer.double_quotes);
  EXPECT_FALSE(writer.spaced_equals);
  EXPECT_EQ(writer.byte_order_mark, 2u);
  static_assert(std::is_same_v<decltype(writer.indent_level), std::int16_t>);
  static_assert(std::is_same_v<decltype(writer.column), std::uint64_t>);
}

TEST(WriterOption, QuotesAndEquals) {
  const auto text = [](bool quotes, bool spaced) {
    return write_with(sample(),
                      [=](xhtml_writer& writer) {
                        writer.double_quotes = quotes;
                        writer.spaced_equals = spaced;
                      })
        .text;
  };
  const ustring rest = u">\n    x\n    y\n  </p>\n</div>\n";
  EXPECT_TRUE(
      same_units(text(false, false), u"<div>\n  <p id='i' style='color: red; margin: 0;'" + rest));
  EXPECT_TRUE(same_units(text(true, false),
                         u"<div>\n  <p id=\"i\" style=\"color: red; margin: 0;\"" + rest));
  EXPECT_TRUE(same_units(text(false, true),
                         u"<div>\n  <p id = 'i' style = 'color: red; margin: 0;'" + rest));
  EXPECT_TRUE(same_units(text(true, true),
                         u"<div>\n  <p id = \"i\" style = \"color: red; margin: 0;\"" + rest));
}

TEST(WriterOption, TheDoctypeIsNotQuotedDifferently) {
  xhtml_doctype_declaration doctype;
  const outcome out =
      write_with(doctype, [](xhtml_writer& writer) { writer.double_quotes = true; });
  EXPECT_TRUE(same_units(out.text, written(doctype)));
}

TEST(WriterOption, IndentStep) {
  const ustring tag = u"<p id='i' style='color: red; margin: 0;'>";
  const ustring flat = u"<div>\n" + tag + u"\nx\ny\n</p>\n</div>\n";
  EXPECT_TRUE(same_units(with_step(0), flat));
  EXPECT_TRUE(same_units(with_step(1), u"<div>\n " + tag + u"\n  x\n  y\n </p>\n</div>\n"));
  EXPECT_TRUE(same_units(with_step(4),
                         u"<div>\n    " + tag + u"\n        x\n        y\n    </p>\n</div>\n"));
  EXPECT_TRUE(same_units(with_step(-1), flat));
  EXPECT_TRUE(same_units(with_step(INT32_MIN), flat));
}

TEST(WriterOption, WideIndentation) {
  for (const std::int32_t step : {31, 32, 33, 40'000, 70'000}) {
    const ustring blanks(static_cast<std::size_t>(step), u' ');
    EXPECT_TRUE(same_units(
        write_with(make(tag_id::p, u"x"), [step](xhtml_writer& w) { w.indent_step = step; }).text,
        u"<p>\n" + blanks + u"x\n</p>\n"))
        << step;
  }
}

// A stream that counts how often it is destroyed.
class mortal_stream : public ustring_stream {
 public:
  explicit mortal_stream(int& deaths) : deaths_(deaths) {}
  ~mortal_stream() override { ++deaths_; }

 private:
  int& deaths_;
};

TEST(WriterOption, ABorrowedStreamIsNotDeleted) {
  int deaths = 0;
  {
    mortal_stream stream(deaths);
    {
      xhtml_writer writer(stream);
      make(tag_id::b).write(writer);
    }
    EXPECT_EQ(deaths, 0);
    EXPECT_TRUE(same_units(stream.str(), u"<b></b>"));
  }
  EXPECT_EQ(deaths, 1);
}

TEST(WriterOption, AnOwnedStreamIsDeletedOnce) {
  for (const std::uint32_t mode : {0u, 2u, 0xFFFFFFFFu}) {
    int deaths = 0;
    {
      xhtml_writer writer(*new mortal_stream(deaths));
      writer.stream_mode = mode;
      make(tag_id::b).write(writer);
      EXPECT_EQ(deaths, 0) << mode;
    }
    EXPECT_EQ(deaths, 1) << mode;
  }
}

// The field `stream` is the target of all output.
TEST(WriterOption, AnotherStreamMayBeSet) {
  ustring_stream first;
  ustring_stream second;
  xhtml_writer writer(first);
  make(tag_id::b).write(writer);
  writer.stream = &second;
  make(tag_id::i).write(writer);
  EXPECT_TRUE(same_units(first.str(), u"<b></b>"));
  EXPECT_TRUE(same_units(second.str(), u"<i></i>"));
}

// Accepts units up to a limit.
class short_buffer : public std::basic_streambuf<char16> {
 public:
  explicit short_buffer(std::streamsize room) : room_(room) {}

 protected:
  std::streamsize xsputn(const char16*, std::streamsize count) override {
    const std::streamsize taken = std::min(count, room_);
    room_ -= taken;
    return taken;
  }
  int_type overflow(int_type) override { return traits_type::eof(); }

 private:
  std::streamsize room_;
};

xhtml_element large_tree() {
  xhtml_element div = make(tag_id::div);
  for (int i = 0; i < 5000; ++i) add(div, make(tag_id::p, u"some text to fill the page"));
  return div;
}

TEST(WriterOption, FailuresShowInTheStreamOnly) {
  const xhtml_element tree = large_tree();
  for (const std::streamsize room : {0, 1, 40'000, 100'000}) {
    short_buffer buffer(room);
    std::basic_ostream<char16> stream(&buffer);
    xhtml_writer writer(stream);
    EXPECT_NO_THROW(tree.write(writer)) << room;
    EXPECT_TRUE(stream.bad()) << room;
    EXPECT_EQ(writer.indent_level, 0) << room;
  }
}

TEST(WriterOption, ADocumentWithAStreamThatFailsOnTheWayIsTrue) {
  short_buffer buffer(10);
  std::basic_ostream<char16> stream(&buffer);
  xhtml_writer writer(stream);
  EXPECT_TRUE(xhtml_doc(1).write(writer));
  EXPECT_TRUE(stream.bad());
}

// Leaks show under the address sanitizer.
TEST(WriterOption, ExceptionsOfTheStreamPassThrough) {
  const xhtml_element tree = large_tree();
  for (const std::streamsize room : {0, 40'000}) {
    short_buffer buffer(room);
    auto* const stream = new std::basic_ostream<char16>(&buffer);
    stream->exceptions(std::ios_base::failbit | std::ios_base::badbit);
    xhtml_writer writer(*stream);
    writer.stream_mode = 0;
    writer.max_line_length = 20;
    EXPECT_THROW(tree.write(writer), std::ios_base::failure) << room;
  }
}

}  // namespace
}  // namespace test
