// Memory runs out at every allocation of every operation on templates.
#include <optional>
#include <string>

#include "tests/report/templates/template_page.h"
#include "tests/support/allocation_failure.h"

namespace test {
namespace {

constexpr ustring_view old_line = u"A line that was on the page before and doesn't fit inside";
constexpr ustring_view long_text = u"some content that is too long to be kept inside a node";

// A template with pieces of several nodes.
ustring source() {
  const ustring two =
      content(ustring(long_text) + u" 1") + u"<ul><li>item<li>" + ustring(long_text) + u" 2</ul>";
  return page(two + marker(u"A field with a long name, so that it needs memory") + two +
              marker(u"B") + content(u"end"));
}

const texts source_fields = {u"A field with a long name, so that it needs memory", u"B"};

ustring piece() {
  return shown(ustring(long_text) + u" 1") +
         u"    <ul>\n      <li>\n        item\n      </li>\n      <li>\n        " +
         ustring(long_text) + u" 2\n      </li>\n    </ul>\n";
}

struct template_folder : temp_folder {
  template_folder() { make_file(path() / "t.htm", marked_bytes(source())); }
};

// One for all attempts.
const template_folder& folder() {
  static const template_folder one;
  return one;
}

// Each attempt has a new one, with a number of blocks on the page that decides at which node
// the page's memory runs out.
class small_report {
 public:
  explicit small_report(int blocks) : blocks_(blocks) {
    path_ = folder().text(u"/t.htm");
    out_ = folder().text(u"/out");
    report_.emplace(platform::file_system::native(), browser_);
  }

  VellomarkObj& object() { return *report_; }

  void load() { report_->LoadTemplate(path_.c_str()); }

  void add_blocks() {
    for (int number = 0; number < blocks_; ++number) report_->NewParagraph();
  }

  bool save() { return report_->Save(out_.c_str(), u"page.htm"); }

  ustring saved() {
    EXPECT_TRUE(save());
    return body_of(page_text(folder().path() / "out" / "Vellomark" / "page.htm"));
  }

 private:
  int blocks_;
  recording_opener browser_;
  ustring path_;
  ustring out_;
  std::optional<VellomarkObj> report_;
};

// Makes `attempt` on a report with its first, second ... allocation failing, each time on one
// that `prepare` has made ready, until it passes. Calls `check` after each, with whether
// memory ran out.
template <class Prepare, class Attempt, class Check>
void at_each_allocation(int blocks, Prepare prepare, Attempt attempt, Check check) {
  const std::size_t failures = for_each_allocation([&](std::size_t number) {
    small_report report(blocks);
    prepare(report);
    const auto [ran_out, threw] = try_without_memory(number, [&] { attempt(report); });
    EXPECT_EQ(threw, ran_out) << "nothing keeps it from the caller";
    check(report, threw);
    return ran_out;
  });
  EXPECT_GT(failures, 0u);
}

TEST(TemplateMemory, ALoadThatFailsLeavesThePageAsItWas) {
  at_each_allocation(
      0, [](small_report& report) { report.object().AddText(old_line.data(), false); },
      [](small_report& report) { report.load(); },
      [](small_report& report, bool failed) {
        if (!failed) return;
        EXPECT_EQ(fields_of(report.object()), texts());
        EXPECT_FALSE(report.object().SetTemplateField(u"B", true, u""));
        EXPECT_TRUE(same_units(report.saved(), block({old_line}) + block()));
      });
}

TEST(TemplateMemory, ALoadThatFailsMayBeRepeated) {
  at_each_allocation(
      0,
      [](small_report& report) {
        report.load();
        report.object().SetTemplateField(u"B", true, u"old");
        report.object().OpenTable(2);
        report.object().AddText(u"cell", false);
      },
      [](small_report& report) { report.load(); },
      [](small_report& report, bool failed) {
        if (failed) report.load();
        report.object().CloseTable();
        EXPECT_EQ(fields_of(report.object()), source_fields);
        EXPECT_TRUE(same_units(report.saved(), block() + piece() + block()));
      });
}

// A failure before the file is open changes nothing; after it, the old template is
// deleted. The two are never mixed.
TEST(TemplateMemory, ALoadThatFailsLeavesTheOldTemplateOrNone) {
  at_each_allocation(
      0, [](small_report& report) { report.load(); }, [](small_report& report) { report.load(); },
      [](small_report& report, bool failed) {
        const bool kept = !fields_of(report.object()).empty();
        EXPECT_EQ(report.object().SetTemplateField(u"B", true, u"value"), kept);
        EXPECT_TRUE(failed || kept);
        const ustring first = kept ? piece() + block() : ustring();
        EXPECT_TRUE(same_units(report.saved(), first + (kept ? piece() : ustring()) + block()));
      });
}

class TemplateMemoryAfterBlocks : public testing::TestWithParam<int> {};

// What was placed isn't placed again, and what wasn't comes with the next attempt.
TEST_P(TemplateMemoryAfterBlocks, AFieldThatFailsLosesAndRepeatsNothing) {
  const char16_t* const value = u"A value that needs memory of its own, being so long";
  const auto fill = [value](small_report& report) {
    EXPECT_TRUE(report.object().SetTemplateField(source_fields[0].c_str(), true, value));
  };
  at_each_allocation(
      GetParam(),
      [](small_report& report) {
        report.load();
        report.add_blocks();
      },
      fill,
      [&](small_report& report, bool failed) {
        if (failed) {
          EXPECT_EQ(fields_of(report.object()), source_fields);
          fill(report);
        }
        EXPECT_EQ(fields_of(report.object()), (texts{value, u"B"}));
        report.object().AddText(u"text", false);
        ustring blocks;
        for (int number = 0; number < GetParam(); ++number) blocks += block();
        EXPECT_TRUE(
            same_units(report.saved(), blocks + piece() + block({u"text"}) + piece() + block()));
      });
}

INSTANTIATE_TEST_SUITE_P(Blocks, TemplateMemoryAfterBlocks, testing::Range(0, 40));

// Save places a piece before all else, so if it fails after that, the next attempt places
// the next one. All of them are placed, once and in order.
TEST(TemplateMemory, ASaveThatFailsLosesAndRepeatsNoPiece) {
  for_each_allocation([](std::size_t number) {
    small_report report(0);
    report.load();
    const bool ran_out = try_without_memory(number, [&] { report.save(); }).ran_out;
    for (int save = 0; save < 2; ++save) report.save();
    ustring body = report.saved();
    const ustring empty = block();
    for (std::size_t at = body.find(empty); at != body.npos; at = body.find(empty))
      body.erase(at, empty.size());
    EXPECT_TRUE(same_units(body, piece() + piece() + shown(u"end")));
    return ran_out;
  });
}

TEST(TemplateMemory, AnArrayThatFailsHoldsTheFirstFields) {
  at_each_allocation(
      0, [](small_report& report) { report.load(); },
      [](small_report& report) {
        zov_shared_array<CZovString> fields;
        report.object().GetTemplateFields(fields);
        EXPECT_EQ(fields.size(), 2u);
      },
      [](small_report& report, bool) { EXPECT_EQ(fields_of(report.object()), source_fields); });
}

TEST(TemplateMemory, AllOfItComesBack) {
  const auto use = [](small_report& report) {
    report.load();
    report.object().SetTemplateField(source_fields[0].c_str(), true, long_text.data());
    zov_shared_array<CZovString> fields;
    report.object().GetTemplateFields(fields);
    report.load();
    report.object().SetTemplateField(u"B", true, long_text.data());
    report.object().ClearTemplateFields();
  };
  {
    small_report first(0);  // what the process makes once and keeps
    use(first);
  }
  for_each_allocation([&](std::size_t number) {
    const std::size_t live = live_allocations();
    bool failed = false;
    {
      small_report report(0);
      failed = try_without_memory(number, [&] { use(report); }).threw;
    }
    EXPECT_EQ(live_allocations(), live);
    return failed;
  });
}

}  // namespace
}  // namespace test
