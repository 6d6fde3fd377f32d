#include <cstddef>
#include <memory>
#include <new>
#include <ostream>
#include <string>

#include "tests/report/report_page.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/refusing_file.h"

namespace test {
namespace {

// A table that has a row begun and a first cell that spans further rows.
void begin_table(IVellomark& report) {
  report.OpenTable(4);
  report.SetFirstCellRows(3);
  add_texts(report, {u"group", u"1", u"2"});
}

// Adds something everywhere, so that the page shows which tables are open and which cell
// comes next.
void add_everywhere(IVellomark& report) {
  const auto add = [&report] { add_texts(report, {u"v", u"w", u"x", u"y", u"z"}); };
  add();
  report.SetSectionMode(true);
  add();
  while (thrown_by_close(report).empty()) add();
  report.SetSectionMode(false);
  add();
  report.CloseTable();
  add();
}

// A report in memory.
class small_report {
 public:
  IVellomark& object() { return report_; }

  // Adds to the report and returns the page.
  ustring finish() {
    add_everywhere(report_);
    EXPECT_TRUE(report_.Save(u"/out", u"page.htm"));
    return files_.units(u"/out/Vellomark/page.htm");
  }

 private:
  memory_files files_;
  recording_opener browser_;
  VellomarkObj report_{files_, browser_};
};

// Makes `call` on a report on which `prepare` was called, with the first, second ...
// allocation failing, until it passes. A call that fails must leave no trace: the page has to
// be the one of a report without the call, or, if the call is repeated, the one of a report on
// which it didn't fail. Returns the number of failures.
template <class Prepare, class Call>
std::size_t expect_all_or_nothing(Prepare prepare, Call call) {
  const auto page = [&](auto calls) {
    small_report report;
    prepare(report.object());
    calls(report.object());
    return report.finish();
  };
  const ustring without_call = page([](IVellomark&) {});
  const ustring with_call = page(call);
  EXPECT_NE(without_call, with_call);
  return for_each_allocation([&](std::size_t number) {
    bool failed = false;
    const auto try_call = [&](IVellomark& report) {
      failed = try_without_memory(number, [&] { call(report); }).threw;
    };
    const ustring tried = page(try_call);
    EXPECT_TRUE(same_units(tried, failed ? without_call : with_call));
    if (!failed) return false;
    const ustring repeated = page([&](IVellomark& report) {
      try_call(report);
      call(report);
    });
    EXPECT_TRUE(same_units(repeated, with_call));
    return true;
  });
}

// As above, with more and more lines on the page before, of which one grows by less than a node.
// They decide for which node the memory of the page's tree has to grow.
template <class Prepare, class Call>
std::size_t expect_all_or_nothing_after_lines(Prepare prepare, Call call) {
  std::size_t failures = 0;
  for (std::size_t step = 0; step < 320 && !testing::Test::HasFailure(); ++step) {
    const std::size_t lines = step / 8;
    const std::size_t units = step % 8 * 24;
    SCOPED_TRACE(std::to_string(lines) + " lines and " + std::to_string(units) + " units");
    failures += expect_all_or_nothing(
        [&](IVellomark& report) {
          for (std::size_t line = 0; line < lines; ++line) report.AddText(u"", false);
          report.AddText(ustring(units, u'-').c_str(), false);
          prepare(report);
        },
        call);
  }
  return failures;
}

TEST(TableMemory, ATableIsOpenedOnThePageOrNothingHappens) {
  const auto open = [](IVellomark& report) { EXPECT_TRUE(report.OpenTable(3)); };
  EXPECT_GT(expect_all_or_nothing_after_lines([](IVellomark&) {}, open), 0u);
  EXPECT_GT(expect_all_or_nothing_after_lines(begin_table, open), 0u);
}

TEST(TableMemory, ATableIsClosedOnThePageOrStaysOpen) {
  const auto close = [](IVellomark& report) { report.CloseTable(); };
  EXPECT_GT(expect_all_or_nothing_after_lines(begin_table, close), 0u);
}

// What a report holds before a table is opened in section mode.
struct content {
  const char* name;
  void (*add)(IVellomark& report);
};

void PrintTo(const content& before, std::ostream* out) { *out << before.name; }

void add_section(IVellomark& report) {
  report.BeginSection(u"S", nullptr);
  report.SetSectionMode(true);
}

constexpr content contents[] = {
    {"EmptySection", add_section},
    {"Line",
     [](IVellomark& report) {
       add_section(report);
       report.AddText(u"line", false);
     }},
    {"OpenTableOnThePage",
     [](IVellomark& report) {
       begin_table(report);
       add_section(report);
     }},
    {"ClosedTable",
     [](IVellomark& report) {
       add_section(report);
       begin_table(report);
       report.CloseTable();
     }},
    {"OpenTable",
     [](IVellomark& report) {
       add_section(report);
       begin_table(report);
     }},
    {"OpenTablesEverywhere",
     [](IVellomark& report) {
       begin_table(report);
       add_section(report);
       begin_table(report);
       begin_table(report);
     }},
};

class SectionTableMemory : public testing::TestWithParam<content> {};

TEST_P(SectionTableMemory, ATableIsOpenedOrNothingHappens) {
  const std::size_t failures = expect_all_or_nothing(
      GetParam().add, [](IVellomark& report) { EXPECT_TRUE(report.OpenTable(3)); });
  EXPECT_GT(failures, 0u);
}

TEST_P(SectionTableMemory, ATableIsHandedOverWholeOrStaysOpen) {
  constexpr std::size_t cells = 30;
  const std::size_t failures = expect_all_or_nothing(
      [](IVellomark& report) {
        GetParam().add(report);
        report.OpenTable(3);
        for (std::size_t cell = 0; cell < cells; ++cell)
          report.AddText(u"A cell that doesn't fit a short text", false);
        report.SetFirstCellRows(2);
        add_texts(report, {u"group", u"1"});
      },
      [](IVellomark& report) { report.CloseTable(); });
  EXPECT_GT(failures, 2 * cells);
}

INSTANTIATE_TEST_SUITE_P(After, SectionTableMemory, testing::ValuesIn(contents));

// Files in memory whose pages can't be written, and leave no memory.
class refusing_files : public memory_files {
 public:
  std::unique_ptr<byte_output> open_for_writing(const ustring& path) override {
    if (!refusing) return memory_files::open_for_writing(path);
    return std::make_unique<refusing_file>(record);
  }

  refusals record;
  bool refusing = true;
};

TEST(SaveMemory, APageThatCannotBeWrittenNeedsNoMemoryAndStaysWhole) {
  for (const int lines : {0, 5'000}) {
    refusing_files files;
    recording_opener browser;
    VellomarkObj report(files, browser);
    ustring expected;
    for (int line = 0; line < lines; ++line) {
      report.AddText(u"A line that doesn't fit a short text", false);
      expected += text_line(u"A line that doesn't fit a short text");
    }
    bool saved = false;
    bool ran_out = false;
    try {
      saved = report.Save(u"/out", u"page.htm");
    } catch (const std::bad_alloc&) {
      ran_out = true;
    }
    fail_allocation(0);
    EXPECT_TRUE(saved) << lines;
    EXPECT_FALSE(ran_out) << lines;
    EXPECT_EQ(files.record.writes, 1) << lines;
    EXPECT_EQ(files.record.closes, 1) << lines;

    files.refusing = false;
    EXPECT_TRUE(report.Save(u"/out", u"page.htm"));
    const ustring blocks = (lines != 0 ? paragraph(expected) : ustring()) + block() + block();
    EXPECT_TRUE(same_units(files.units(u"/out/Vellomark/page.htm"),
                           u'\uFEFF' + page_head() + blocks + page_tail()))
        << lines;
  }
}

}  // namespace
}  // namespace test
