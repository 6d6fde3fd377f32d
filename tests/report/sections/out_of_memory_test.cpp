#include <filesystem>
#include <memory>
#include <string>

#include "tests/report/sections/picture_report.h"
#include "tests/support/allocation_failure.h"

namespace test {
namespace {

namespace fs = std::filesystem;

constexpr const char* names[] = {"one", "two"};

// A report with two pictures after a number of blocks. Each attempt has a new one.
class small_report {
 public:
  explicit small_report(int blocks) {
    for (int block = 0; block < blocks; ++block) report_.NewParagraph();
    for (const char* const name : names)
      make_file(folder_.path() / (std::string(name) + ".tmp"), name);
    const ustring one = folder_.text(u"\\one.tmp");
    const ustring two = folder_.text(u"\\two.tmp");
    add_section(report_, {u"A heading that doesn't fit a short text", u"B"},
                u"A name that doesn't fit a short text", {u"line 1", one.c_str()});
    report_.SetSectionMode(true);
    report_.OpenTable(2);
    report_.AddText(u"cell", false);
    report_.CloseTable();
    report_.SetSectionMode(false);
    add_section(report_, {u"C"}, u"", {two.c_str(), u"line 2"});
    out_ = folder_.text(u"/out");
  }

  // A heading of the host's own, which must not get the `id` of a section's.
  void add_heading() { report_.AddHeading(u"Between", 1); }

  bool save() { return report_.Save(out_.c_str(), u"page.htm"); }

  void expect_no_loss() const {
    std::set<std::string> allowed;
    for (const char* const name : names) {
      const fs::path source = folder_.path() / (std::string(name) + ".tmp");
      const fs::path picture = pictures() / (std::string(name) + ".bmp");
      EXPECT_TRUE(fs::exists(source) || fs::exists(picture)) << name;
      if (fs::exists(source)) {
        EXPECT_EQ(bytes_of(source), name);
      }
      if (fs::exists(picture)) {
        EXPECT_EQ(bytes_of(picture), name);
      }
      allowed.insert(std::string(name) + ".bmp");
    }
    for (const std::string& name : names_in(pictures())) EXPECT_EQ(allowed.count(name), 1u) << name;
  }

  void expect_complete() const {
    const ustring body = body_of(page_text(folder_.path() / "out" / "Vellomark" / "page.htm"));
    for (const ustring_view once :
         {u"<a>line 1</a>", u"<a>line 2</a>", u"          cell\n",
          u"<img src='page_files\\one.bmp'/>", u"<img src='page_files\\two.bmp'/>"})
      EXPECT_EQ(count_of(once, body), 1u) << printable(once) << "\n" << printable(body);
    EXPECT_EQ(count_of(u"<br/>", body), 4u);
    EXPECT_EQ(count_of(u"<h1 class='Style1' id=", body), 0u);
    for (const ustring_view at_least_once :
         {u"      A heading that doesn't fit a short text\n", u"      B\n", u"      C\n",
          u" id='#A name that doesn't fit a short text'"})
      EXPECT_GE(count_of(at_least_once, body), 1u) << printable(at_least_once);
  }

 private:
  fs::path pictures() const { return folder_.path() / "out" / "Vellomark" / "page_files"; }

  temp_folder folder_;
  recording_opener browser_;
  VellomarkObj report_{platform::file_system::native(), browser_};
  ustring out_;
};

// Memory that runs out at any point of Save loses no picture and no content; the next
// Save completes the page. (Where it runs out while the page is written, the output
// stream keeps that to itself and Save passes.) The number of blocks before decides
// at which node the page's memory runs out.
class OutOfMemoryAfterBlocks : public testing::TestWithParam<int> {};

TEST_P(OutOfMemoryAfterBlocks, SaveLosesNothingAndMayBeRepeated) {
  const std::size_t failures = for_each_allocation([](std::size_t number) {
    small_report report(GetParam());
    const bool failed = try_without_memory(number, [&] { report.save(); }).ran_out;
    report.expect_no_loss();
    if (failed) {
      report.add_heading();
      EXPECT_TRUE(report.save());
      report.expect_no_loss();
    }
    report.expect_complete();
    return failed;
  });
  EXPECT_GT(failures, 50u);
}

INSTANTIATE_TEST_SUITE_P(Blocks, OutOfMemoryAfterBlocks, testing::Range(0, 60));

TEST(OutOfMemory, SaveAndReleaseGiveAllMemoryBack) {
  small_report(0).save();  // what the process makes once and keeps
  for_each_allocation([](std::size_t number) {
    const std::size_t before = live_allocations();
    bool failed = false;
    {
      small_report report(0);
      failed = try_without_memory(number, [&] { report.save(); }).ran_out;
    }
    EXPECT_EQ(live_allocations(), before);
    return failed;
  });
}

// A section's operations leave either what they add or nothing.
TEST(OutOfMemory, AddingToASectionAddsAllOrNothing) {
  temp_folder folder;
  recording_opener browser;
  VellomarkObj report(platform::file_system::native(), browser);
  const auto each = [](auto attempt) { fail_each_allocation(attempt, [] {}); };
  each([&] { report.AddSectionHeading(u"A heading that doesn't fit a short text", 1); });
  each([&] { report.BeginSection(u"A name that doesn't fit a short text", nullptr); });
  each([&] { report.AddText(u"A line that doesn't fit a short text", true); });
  ASSERT_TRUE(report.Save(folder.text().c_str(), u"page.htm"));
  const ustring body = body_of(page_text(folder.path() / "Vellomark" / "page.htm"));
  EXPECT_TRUE(same_units(body, block() + heading(u'1', u"A heading that doesn't fit a short text") +
                                   section(u"A name that doesn't fit a short text") +
                                   block({u"A line that doesn't fit a short text"})));
}

}  // namespace
}  // namespace test
