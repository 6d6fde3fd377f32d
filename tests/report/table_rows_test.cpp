// Which row of which table a cell lands in after any calls.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <random>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "tests/report/report_page.h"

namespace test {
namespace {

// Makes the calls of `script`, whose words are:
//   [n     OpenTable(n)             ]      CloseTable
//   *n     SetFirstCellRows(n)      !      CloseTable, which throws
//   S+ S-  SetSectionMode           D+ D-  BeginDirectLinks, EndDirectLinks
//   s:x    AddText(x, true)         L:x    AddLink(x, null)
//   0      AddText(null, false)     any other word: AddText(word, false)
void run(IVellomark& report, const std::string& script) {
  std::istringstream words(script);
  for (std::string word; words >> word;) {
    const auto text_from = [&word](std::ptrdiff_t at) {
      return ustring(word.begin() + at, word.end());
    };
    if (word[0] == '[') {
      EXPECT_TRUE(report.OpenTable(std::stoi(word.substr(1))));
    } else if (word[0] == '*') {
      report.SetFirstCellRows(std::stoi(word.substr(1)));
    } else if (word == "]" || word == "!") {
      EXPECT_EQ(thrown_by_close(report), word == "!" ? "invalid vector subscript" : "");
    } else if (word[0] == 'S') {
      report.SetSectionMode(word == "S+");
    } else if (word == "D+") {
      report.BeginDirectLinks();
    } else if (word == "D-") {
      report.EndDirectLinks();
    } else if (word.starts_with("s:")) {
      report.AddText(text_from(2).c_str(), true);
    } else if (word.starts_with("L:")) {
      report.AddLink(text_from(2).c_str(), nullptr);
    } else if (word == "0") {
      report.AddText(nullptr, false);
    } else {
      report.AddText(text_from(0).c_str(), false);
    }
  }
}

class TableRows : public report_test {
 protected:
  // The tables of the page after these calls.
  std::string tables_after(const std::string& script) {
    VellomarkObj one(files, browser);
    run(one, script);
    EXPECT_TRUE(one.Save(u"/out", u"rows.htm"));
    return tables_of(files.units(u"/out/Vellomark/rows.htm"));
  }

  struct row {
    const char* script;
    const char* tables;
  };

  void expect_tables(std::initializer_list<row> rows) {
    for (const row& each : rows) EXPECT_EQ(tables_after(each.script), each.tables) << each.script;
  }
};

TEST_F(TableRows, AFullRowIsFollowedByANewOne) {
  expect_tables({
      {"[3 a b c d e f g", "a b c | d e f | g"},
      {"[2147483647 a b c d", "a b c d"},
      {"[2 L:a b L:c d e", "a b | c d | e"},
      {"[2 L:a 0 0", "a a | a"},
      {"[2 a s:b c", "a c"},
      {"[2 a [3 b c d e", "a || b c d | e"},
      {"[2 a ] b [2 c", "a || c"},
  });
}

// The first cell never ends a row, so a row has at least two.
TEST_F(TableRows, OneColumnAndFewerTakeTwoCells) {
  for (const char* const columns : {"1", "0", "-1", "-3", "-2147483648"})
    EXPECT_EQ(tables_after("[" + std::string(columns) + " a b c d e"), "a b | c d | e") << columns;
}

// The first cell of the group has the rowspan and shares its row with the second. Each further
// cell has a row of its own, until the group has as many cells as columns and the further rows.
TEST_F(TableRows, ASpanHoldsForOneGroup) {
  expect_tables({
      {"[2 *1 a b c", "a b | c"},
      {"[2 *3 g 1 2 3 n 4", "g*3 1 | 2 | 3 | n 4"},
      {"[2 *2 g 1 2 n 3", "g*2 1 | 2 | n 3"},
      {"[2 *2 g 1 2 *2 h 3 4", "g*2 1 | 2 | h*2 3 | 4"},
      {"[2 *2 L:g 1 L:2 n", "g*2 1 | 2 | n"},
      {"[1 *3 g 1 2 3 n", "g*3 1 | 2 | 3 | n"},
      {"[4 *2 g 1 2 3 4 n 5 6 7 8", "g*2 1 | 2 | 3 | 4 | n 5 6 7 | 8"},
      {"[4 *3 g 1 2 3 4 5 n", "g*3 1 | 2 | 3 | 4 | 5 | n"},
  });
}

// Every span from 1 to 6 in every width from -1 to 6: the group, and then rows without a span.
TEST_F(TableRows, EverySmallSpanInEverySmallWidth) {
  for (int columns = -1; columns <= 6; ++columns) {
    for (int span = 1; span <= 6; ++span) {
      std::string script = "[" + std::to_string(columns) + " *" + std::to_string(span);
      const int in_a_row = std::max(columns, 2);
      const int in_the_group = span - 1 + in_a_row;
      script += " c0 c1";
      std::string expected = "c0" + (span == 1 ? "" : "*" + std::to_string(span)) + " c1";
      for (int cell = 2; cell < 30; ++cell) {
        const std::string text = "c" + std::to_string(cell);
        const bool alone = span != 1 && cell < in_the_group;
        const bool starts = (cell - in_the_group) % in_a_row == 0;
        script += " " + text;
        expected += (alone || (cell >= in_the_group && starts) ? " | " : " ") + text;
      }
      EXPECT_EQ(tables_after(script), expected) << columns << " columns, span " << span;
    }
  }
}

// In the middle of a row the next cell stays in it, with any number of columns. Then
// every cell starts a row until the span is used up.
TEST_F(TableRows, ASpanThatIsSetWithinARowHasNoRowspan) {
  expect_tables({
      {"[3 a *2 b c d e", "a b | c | d | e"},
      {"[2 a *3 b c d e", "a b | c | d | e"},
      {"[3 a b *2 c d e f", "a b c | d | e f"},
      {"[3 a *2 b *2 c *2 d e", "a b c d | e"},
      {"[2 *4 a b *1 c d e", "a*4 b c | d e"},
      {"[2 *3 *2 a b c d", "a*2 b | c | d"},
  });
}

TEST_F(TableRows, ASpanDoesNotOutliveItsTable) {
  expect_tables({
      {"*4 [2 a b c", "a b | c"},
      {"[2 *3 a b ] [2 c d e", "a*3 b || c d | e"},
      {"[2 *3 a b [2 c d e", "a*3 b || c d | e"},
  });
}

// The number of further rows wraps in 32 bits. A negative one is never used up.
TEST_F(TableRows, SpansOutsideTheContractCountOn) {
  expect_tables({
      {"[2 *0 a b c d", "a*0 b | c | d"},
      {"[2 *-7 a b c d", "a*-7 b | c | d"},
      {"[2 *-2147483648 a b c", "a*-2147483648 b | c"},
      {"[2 *2147483647 a b c", "a*2147483647 b | c"},
  });
}

// A table in section mode has counters of its own; closing it brings those of the page back.
TEST_F(TableRows, ATableOfASectionLeavesThePagesTableAlone) {
  expect_tables({
      {"[3 *2 g 1 S+ ! ! S- 2 3 n", "g*2 1 | 2 | 3 | n"},
      {"[3 *3 g 1 S+ [5 *4 x y z ] S- 2 3 4 n", "g*3 1 | 2 | 3 | 4 | n"},
      {"[3 *3 g 1 S+ [5 [2 x ] ] ! S- 2 3 4 n", "g*3 1 | 2 | 3 | 4 | n"},
      {"[2 a S+ [2 b c d ] ! S- e f", "a e | f"},
  });
}

// With direct links in section mode the counters are those of the section's table while the
// row may still be the page's, or a row of the section's table.
TEST_F(TableRows, DirectTextsTakeTheCountersOfTheOpenTable) {
  expect_tables({
      {"[3 a S+ D+ [2 b c d ] e f", "a e f | b c | d"},
      {"[3 a S+ [2 s:b D+ c ] D- S- d", "a d"},
      {"S+ D+ [2 a b c L:d ]", ""},
      // The second opening clears the row to which the first closing returns, so b gets a new one.
      {"[4 a S+ D+ [4 s:i [4 ] b ] c", "a c | b"},
  });
}

// Leaving section mode closes nothing: the section's table counts as open on the page.
TEST_F(TableRows, ATableOfASectionThatStaysOpenIsClosedOnThePage) {
  expect_tables({
      {"[2 a S+ [2 S- b", "a | b"},
      {"[3 a S+ [2 S- b ] S+ ] S- c", "a c | b"},
      {"S+ [2 S- a ] b S+ ] !", ""},
  });
}

// A script of random calls.
class random_script {
 public:
  explicit random_script(std::uint32_t seed) : random_(seed) {}

  // What a host does: cells, spans and tables on the page.
  void add_page_call() {
    switch (below(10)) {
      case 0:
        return open();
      case 1:
        return close();
      case 2:
      case 3:
        return add(one_of({"*1", "*2", "*2", "*3", "*4", "*0", "*-1", "*-7", "*2147483647"}));
      default:
        return add_cell(below(6) == 0 ? "L:" : "");
    }
  }

  // All calls that touch the state of tables.
  void add_any_call() {
    switch (below(16)) {
      case 0:
        section_mode_ = below(2) != 0;
        return add(section_mode_ ? "S+" : "S-");
      case 1:
        return add(below(2) ? "D+" : "D-");
      case 2:
      case 3:
        return open();
      case 4:
        return close();
      case 5:
        return add_cell("s:");
      case 6:
        return add("0");
      default:
        return add_page_call();
    }
  }

  const std::string& text() const { return text_; }
  std::size_t page_tables() const { return page_tables_; }

  // The cells that were added while a table was open, in page mode alone.
  const std::vector<std::string>& cells() const { return cells_; }

 private:
  std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_()) % limit; }

  const char* one_of(std::initializer_list<const char*> words) {
    return words.begin()[below(static_cast<std::uint32_t>(words.size()))];
  }

  void add(const std::string& word) { text_ += (text_.empty() ? "" : " ") + word; }

  void open() {
    add(one_of({"[-3", "[0", "[1", "[2", "[3", "[4", "[6", "[-2147483648", "[2147483647"}));
    open_ = true;
    ++(section_mode_ ? depth_ : page_tables_);
  }

  // In section mode it throws if no table of a section is open.
  void close() {
    open_ = false;
    const bool throws = section_mode_ && depth_ == 0;
    if (section_mode_ && !throws) --depth_;
    add(throws ? "!" : "]");
  }

  void add_cell(const std::string& prefix) {
    const std::string text = "c" + std::to_string(++count_);
    if (open_) cells_.push_back(text);
    add(prefix + text);
  }

  std::mt19937 random_;
  std::string text_;
  std::vector<std::string> cells_;
  bool section_mode_ = false;
  bool open_ = false;
  std::size_t depth_ = 0;
  std::size_t page_tables_ = 0;
  int count_ = 0;
};

std::vector<std::string> words_of(const std::string& text) {
  std::istringstream stream(text);
  return {std::istream_iterator<std::string>(stream), {}};
}

// The cells in their order, without their rowspans, which only the first cell of a row may have.
std::vector<std::string> cells_of(const std::string& tables) {
  std::vector<std::string> cells;
  bool first = true;
  for (const std::string& word : words_of(tables)) {
    const bool is_cell = word[0] == 'c';
    if (is_cell) cells.push_back(word.substr(0, word.find('*')));
    EXPECT_TRUE(first || word.find('*') == word.npos) << word << " in " << tables;
    EXPECT_FALSE(word.ends_with("*1")) << word << " in " << tables;
    first = !is_cell;
  }
  return cells;
}

TEST_F(TableRows, CellsOfThePageStandInTheirOrderAndNoneIsLost) {
  std::size_t spans = 0;
  for (std::uint32_t seed = 1; seed <= 3000; ++seed) {
    random_script script(seed);
    for (std::uint32_t count = seed % 60 + 1; count != 0; --count) script.add_page_call();
    const std::string tables = tables_after(script.text());
    ASSERT_EQ(cells_of(tables), script.cells()) << script.text();
    spans += static_cast<std::size_t>(std::count(tables.begin(), tables.end(), '*'));
  }
  EXPECT_GT(spans, 1000u);
}

// After any calls each table of the page is there, in its order, and no cell is in two places,
// except "0", which repeats a link's cell.
TEST_F(TableRows, NoCellIsOnThePageTwice) {
  std::size_t thrown = 0;
  for (std::uint32_t seed = 1; seed <= 3000; ++seed) {
    random_script script(seed);
    for (std::uint32_t count = seed % 60 + 1; count != 0; --count) script.add_any_call();
    VellomarkObj one(files, browser);
    run(one, script.text());
    ASSERT_TRUE(one.Save(u"/out", u"rows.htm"));
    const ustring page = files.units(u"/out/Vellomark/rows.htm");
    ASSERT_EQ(count_of(u"<table ", page), script.page_tables()) << script.text();
    std::set<std::string> seen;
    for (const std::string& cell : cells_of(tables_of(page))) {
      const bool linked = script.text().find("L:" + cell) != std::string::npos;
      ASSERT_TRUE(seen.insert(cell).second || linked) << cell << " of " << script.text();
    }
    ASSERT_FALSE(HasFailure()) << script.text();
    thrown += static_cast<std::size_t>(std::count(script.text().begin(), script.text().end(), '!'));
  }
  EXPECT_GT(thrown, 100u);
}

}  // namespace
}  // namespace test
