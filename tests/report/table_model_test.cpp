#include "tests/report/table_model.h"

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <limits>
#include <random>
#include <sstream>
#include <stdexcept>
#include <string>

#include "tests/report/report_page.h"
#include "xport/text/number_format.h"

namespace report_test {

namespace {

constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();

// Makes the same random calls on a report and on the model, and notes them.
class random_calls {
 public:
  random_calls(VellomarkObj& report, std::uint32_t seed) : report_(report), random_(seed) {}

  // What a host does: cells, spans and tables on the page.
  void page_call() {
    switch (below(12)) {
      case 0:
        return open_table();
      case 1:
        return below(2) ? close_table() : other_content();
      case 2:
      case 3:
        return set_first_cell_rows();
      case 4:
        return add_link();
      default:
        return add_text(false);
    }
  }

  // All operations that touch the state of tables.
  void any_call() {
    switch (below(16)) {
      case 0:
        return set_section_mode();
      case 1:
        return set_direct_links();
      case 2:
      case 3:
        return open_table();
      case 4:
        return close_table();
      case 5:
        return add_text(true);
      case 6:
        return add_null_text();
      default:
        return page_call();
    }
  }

  const table_model& model() const { return model_; }
  std::string log() const { return log_.str(); }
  std::size_t raised() const { return raised_; }

 private:
  std::uint32_t below(std::uint32_t limit) { return static_cast<std::uint32_t>(random_()) % limit; }

  void open_table() {
    const std::int32_t columns =
        below(40) == 0 ? (below(2) ? smallest : largest) : static_cast<std::int32_t>(below(10)) - 3;
    log_ << "OpenTable(" << columns << ") ";
    EXPECT_EQ(report_.OpenTable(columns), model_.open_table(columns));
  }

  void close_table() {
    log_ << "CloseTable ";
    bool closed = true;
    try {
      report_.CloseTable();
    } catch (const std::out_of_range& error) {
      EXPECT_STREQ(error.what(), "invalid vector subscript");
      closed = false;
      ++raised_;
    }
    EXPECT_EQ(closed, model_.close_table());
  }

  void set_first_cell_rows() {
    static const std::int32_t rows[] = {1, 2, 2, 3, 3, 4, 5, 0, -1, -7, smallest, largest};
    const std::int32_t chosen = rows[below(std::size(rows))];
    log_ << "SetFirstCellRows(" << chosen << ") ";
    report_.SetFirstCellRows(chosen);
    model_.set_first_cell_rows(chosen);
  }

  void add_text(bool to_section) {
    const Xport::ustring text = u"c" + Xport::to_ustring(++cells_);
    log_ << (to_section ? "AddText(s) " : "AddText ");
    report_.AddText(text.c_str(), to_section);
    model_.add_text(text.c_str(), to_section);
  }

  void add_null_text() {
    const bool to_section = below(4) == 0;
    log_ << (to_section ? "AddText(null,s) " : "AddText(null) ");
    report_.AddText(nullptr, to_section);
    model_.add_text(nullptr, to_section);
  }

  void add_link() {
    const char16_t* const text = below(3) ? u"text " : nullptr;
    const char16_t* const target = below(3) ? u"goal" : nullptr;
    log_ << "AddLink(" << (text ? 1 : 0) << (target ? 1 : 0) << ") ";
    report_.AddLink(text, target);
    model_.add_link(text, target);
  }

  // Headings and blocks leave tables alone.
  void other_content() {
    log_ << "other ";
    if (below(2))
      report_.NewParagraph();
    else
      report_.AddHeading(u"heading", static_cast<std::int32_t>(below(5)));
  }

  void set_section_mode() {
    model_.section_mode = below(2) != 0;
    log_ << "SectionMode(" << model_.section_mode << ") ";
    report_.SetSectionMode(model_.section_mode);
  }

  void set_direct_links() {
    model_.direct_links = below(2) != 0;
    log_ << "DirectLinks(" << model_.direct_links << ") ";
    if (model_.direct_links)
      report_.BeginDirectLinks();
    else
      report_.EndDirectLinks();
  }

  VellomarkObj& report_;
  table_model model_;
  std::mt19937 random_;
  std::ostringstream log_;
  std::int32_t cells_ = 0;
  std::size_t raised_ = 0;
};

class TableModel : public report_test {
 protected:
  // Runs `sequences` sequences of calls and compares the page's tables after each.
  template <class Call>
  void compare(std::uint32_t sequences, Call call) {
    std::size_t cells = 0;
    std::size_t spans = 0;
    for (std::uint32_t seed = 1; seed <= sequences; ++seed) {
      VellomarkObj one(files, browser);
      random_calls calls(one, seed);
      for (std::uint32_t count = seed % 60 + 1; count != 0; --count) call(calls);
      ASSERT_TRUE(one.Save(u"/out", u"model.htm"));
      const page_tables got = tables_of(files.units(u"/out/Vellomark/model.htm"));
      ASSERT_EQ(got, calls.model().tables()) << "seed " << seed << ": " << calls.log();
      for (const page_table& table : got)
        for (const page_row& row : table)
          for (const page_cell& cell : row) {
            ++cells;
            if (!cell.rowspan.empty()) ++spans;
          }
      raised += calls.raised();
    }
    // The sequences are of use only if much of what they do reaches the page.
    EXPECT_GT(cells, sequences);
    EXPECT_GT(spans, sequences / 10);
  }

  std::size_t raised = 0;
};

TEST_F(TableModel, RandomCallsOnThePage) {
  compare(6000, [](random_calls& calls) { calls.page_call(); });
}

TEST_F(TableModel, RandomCallsWithSectionsAndDirectLinks) {
  compare(6000, [](random_calls& calls) { calls.any_call(); });
  EXPECT_GT(raised, 100u);
}

// Every span from 1 to 6 in every width from -1 to 6, over enough cells for two groups.
TEST_F(TableModel, EverySmallSpanInEverySmallWidth) {
  for (std::int32_t columns = -1; columns <= 6; ++columns) {
    for (std::int32_t rows = 1; rows <= 6; ++rows) {
      VellomarkObj one(files, browser);
      table_model model;
      one.OpenTable(columns);
      model.open_table(columns);
      one.SetFirstCellRows(rows);
      model.set_first_cell_rows(rows);
      for (std::int32_t cell = 0; cell < 30; ++cell) {
        const Xport::ustring text = Xport::to_ustring(cell);
        one.AddText(text.c_str(), false);
        model.add_text(text.c_str(), false);
      }
      ASSERT_TRUE(one.Save(u"/out", u"span.htm"));
      EXPECT_EQ(tables_of(files.units(u"/out/Vellomark/span.htm")), model.tables())
          << columns << " columns, span " << rows;
    }
  }
}

}  // namespace

}  // namespace report_test
