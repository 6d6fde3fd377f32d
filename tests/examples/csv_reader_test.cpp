#include "examples/support/csv_reader.h"

#include <gtest/gtest.h>

#include <string>

namespace test {
namespace {

using namespace examples;

// The records of a valid text, including the header.
std::vector<csv_record> records(std::string_view text) {
  csv_table table = read_csv(text);
  table.records.insert(table.records.begin(), table.header);
  return table.records;
}

using rows = std::vector<csv_record>;

void expect_error(std::string_view text, std::size_t line, const std::string& problem) {
  try {
    read_csv(text);
    ADD_FAILURE() << "no error for " << text;
  } catch (const csv_error& error) {
    EXPECT_EQ(error.line(), line) << text;
    EXPECT_EQ(error.what(), problem) << text;
  }
}

TEST(CsvReader, DistinguishesTheHeaderFromTheRecords) {
  const csv_table table = read_csv("a,b\n1,2\n3,4\n");
  EXPECT_EQ(table.header, (csv_record{u"a", u"b"}));
  EXPECT_EQ(table.records, (rows{{u"1", u"2"}, {u"3", u"4"}}));
  EXPECT_TRUE(read_csv("a,b\n").records.empty());
}

TEST(CsvReader, AcceptsBothLineEndsAndNoneAtTheEnd) {
  const rows expected{{u"a", u"b"}, {u"1", u"2"}};
  EXPECT_EQ(records("a,b\n1,2\n"), expected);
  EXPECT_EQ(records("a,b\r\n1,2\r\n"), expected);
  EXPECT_EQ(records("a,b\r\n1,2\n"), expected);
  EXPECT_EQ(records("a,b\n1,2"), expected);
  EXPECT_EQ(records("a,b\n1,\"2\""), expected);
}

TEST(CsvReader, KeepsBlanksAndEmptyFields) {
  EXPECT_EQ(records(" a ,,\t\n,,"), (rows{{u" a ", u"", u"\t"}, {u"", u"", u""}}));
}

TEST(CsvReader, ReadsAnEmptyLineAsOneEmptyField) {
  EXPECT_EQ(records("a\n\nb\n"), (rows{{u"a"}, {u""}, {u"b"}}));
  EXPECT_EQ(records("\n"), (rows{{u""}}));
}

TEST(CsvReader, ReadsQuotedFields) {
  EXPECT_EQ(records("\"a\",\"b,c\"\n"), (rows{{u"a", u"b,c"}}));
  EXPECT_EQ(records("\"\",x"), (rows{{u"", u"x"}}));
  EXPECT_EQ(records("\"say \"\"hi\"\"\"\n"), (rows{{u"say \"hi\""}}));
  EXPECT_EQ(records("\"\"\"\""), (rows{{u"\""}}));
  EXPECT_EQ(records("\"two\nlines\",\"and\r\ntwo\"\r\nx,y"),
            (rows{{u"two\nlines", u"and\r\ntwo"}, {u"x", u"y"}}));
  EXPECT_EQ(records("\"a\rb\""), (rows{{u"a\rb"}}));
}

TEST(CsvReader, ReadsUtf8WithAndWithoutMark) {
  // U+00E9, U+4E2D and U+1F30D in two, three and four bytes.
  EXPECT_EQ(records("\xC3\xA9,\xE4\xB8\xAD,\xF0\x9F\x8C\x8D"),
            (rows{{u"\u00E9", u"\u4E2D", u"\U0001F30D"}}));
  EXPECT_EQ(records("\xEF\xBB\xBF\"a\"\n"), (rows{{u"a"}}));
  EXPECT_EQ(records("a\xEF\xBB\xBF"), (rows{{u"a\uFEFF"}}));
}

TEST(CsvReader, RefusesATextWithoutHeader) {
  expect_error("", 1, "there is no header");
  expect_error("\xEF\xBB\xBF", 1, "there is no header");
}

TEST(CsvReader, RefusesQuotesInTheWrongPlace) {
  const std::string inside = "a quote inside a field without quotes";
  expect_error("a,b\n1,2\"3\"\n", 2, inside);
  expect_error("a \"b\"", 1, inside);
  const std::string problem = "text after a closing quote";
  expect_error("a\n\"b\"c\n", 2, problem);
  expect_error("\"a\" ,b", 1, problem);
  expect_error("\"two\nlines\"x", 2, problem);
}

TEST(CsvReader, RefusesAQuoteThatIsNotClosed) {
  expect_error("a\nb\n\"c\nd\ne\n", 3, "a quote is not closed");
  expect_error("\"", 1, "a quote is not closed");
  expect_error("\"a\"\"", 1, "a quote is not closed");
}

TEST(CsvReader, RefusesACarriageReturnOfItsOwn) {
  const std::string problem = "a carriage return without a line feed";
  expect_error("a\rb\n", 1, problem);
  expect_error("a\nb\r", 2, problem);
  expect_error("a\n\"b\"\rc", 2, problem);
}

TEST(CsvReader, RefusesAnotherNumberOfFields) {
  expect_error("a,b\n1,2\n3\n", 3, "the record has 1 fields where the header has 2");
  expect_error("a,b\n1,2,3\n", 2, "the record has 3 fields where the header has 2");
  expect_error("a,b\n\"1\n1\",2\n\n", 4, "the record has 1 fields where the header has 2");
}

TEST(CsvReader, RefusesInvalidUtf8) {
  expect_error("a\nb\xFF\n", 2, "invalid UTF-8");
  expect_error("\xEF\xBB\xBF\"two\nlines\"\n\xC3", 3, "invalid UTF-8");
}

}  // namespace
}  // namespace test
