#include <filesystem>
#include <memory>
#include <new>
#include <string>

#include "tests/report/sections/picture_report.h"

namespace test {
namespace {

namespace fs = std::filesystem;

using platform::file_system;

// The disk, with one call that throws, before its work or after it.
class throwing_files final : public file_system {
 public:
  void throw_at(std::size_t call, bool after) {
    left_ = call;
    after_ = after;
  }

  bool exists(const ustring& path) override {
    return through([&] { return disk_.exists(path); });
  }
  bool is_file(const ustring& path) override {
    return through([&] { return disk_.is_file(path); });
  }
  platform::folder_result create_directory(const ustring& path) override {
    return through([&] { return disk_.create_directory(path); });
  }
  std::unique_ptr<byte_output> open_for_writing(const ustring& path) override {
    return through([&] { return disk_.open_for_writing(path); });
  }
  std::unique_ptr<byte_input> open_for_reading(const ustring& path) override {
    return through([&] { return disk_.open_for_reading(path); });
  }
  bool copy_file(const ustring& from, const ustring& to) override {
    return through([&] { return disk_.copy_file(from, to); });
  }
  bool remove_file(const ustring& path) override {
    return through([&] { return disk_.remove_file(path); });
  }

 private:
  template <class Call>
  auto through(Call call) -> decltype(call()) {
    const bool throws = left_ != 0 && --left_ == 0;
    if (throws && !after_) throw std::bad_alloc();
    auto result = call();
    if (throws) throw std::bad_alloc();
    return result;
  }

  file_system& disk_ = file_system::native();
  std::size_t left_ = 0;
  bool after_ = false;
};

struct picture_file {
  const char* source;
  const char* picture;
  const char* bytes;
};

constexpr picture_file files_of_report[] = {
    {"one.tmp", "one.bmp", "picture one"},
    {"two.tmp", "two.bmp", "picture two"},
    {"three.tmp", "three.bmp", ""},
};

// A report with pictures in two sections, and what must be on its disk.
class interrupted_report {
 public:
  explicit interrupted_report(file_system& files) : report_(files, browser_) {
    for (const picture_file& each : files_of_report)
      make_file(folder_.path() / each.source, each.bytes);
    const auto text = [this](const char16_t* name) { return folder_.text(name); };
    add_section(report_, {u"A", u"B"}, u"S",
                {u"line 1", text(u"\\one.tmp").c_str(), text(u"\\two.tmp").c_str(), u"line 2"});
    report_.SetSectionMode(true);
    report_.OpenTable(2);
    report_.AddText(u"cell", false);
    report_.CloseTable();
    report_.SetSectionMode(false);
    add_section(report_, {u"A", u"C"}, u"", {text(u"\\three.tmp").c_str(), u"line 3"});
  }

  bool save() { return report_.Save(folder_.text(u"/out").c_str(), u"page.htm"); }

  // Each picture is at its source or among the pictures, whole, and no other file is.
  void expect_no_loss() const {
    std::set<std::string> allowed;
    for (const picture_file& each : files_of_report) {
      const fs::path source = folder_.path() / each.source;
      const fs::path picture = pictures() / each.picture;
      EXPECT_TRUE(fs::exists(source) || fs::exists(picture)) << each.source;
      if (fs::exists(source)) {
        EXPECT_EQ(bytes_of(source), each.bytes);
      }
      if (fs::exists(picture)) {
        EXPECT_EQ(bytes_of(picture), each.bytes);
      }
      allowed.insert(each.picture);
    }
    for (const std::string& name : names_in(pictures())) EXPECT_EQ(allowed.count(name), 1u) << name;
  }

  // The page has all its content once. Only headings may be there again, and a line
  // and its end may be in two blocks.
  void expect_complete() const {
    expect_no_loss();
    const ustring body = body_of(page_text(folder_.path() / "out" / "Vellomark" / "page.htm"));
    for (const ustring_view once :
         {u"<a>line 1</a>", u"<a>line 2</a>", u"<a>line 3</a>", u"cell",
          u"<img src='page_files\\one.bmp'/>", u"<img src='page_files\\two.bmp'/>",
          u"<img src='page_files\\three.bmp'/>"})
      EXPECT_EQ(count_of(once, body), 1u) << printable(once) << printable(body);
    EXPECT_EQ(count_of(u"<br/>", body), 6u);
    EXPECT_EQ(count_of(u"<img", body), 3u);
    EXPECT_EQ(count_of(u"<table", body), 1u);
    for (const ustring_view at_least_once :
         {u"Style1'>\n      A\n", u"Style2'>\n      B\n", u"Style2'>\n      C\n", u"id='#S'"})
      EXPECT_GE(count_of(at_least_once, body), 1u) << printable(at_least_once);
  }

  // A source stays only where its deletion was interrupted.
  std::size_t sources_left() const {
    std::size_t left = 0;
    for (const picture_file& each : files_of_report)
      if (fs::exists(folder_.path() / each.source)) ++left;
    return left;
  }

 private:
  fs::path pictures() const { return folder_.path() / "out" / "Vellomark" / "page_files"; }

  temp_folder folder_;
  recording_opener browser_;
  VellomarkObj report_;
};

// Throws at the first, second, third ... call until Save passes. Returns the number
// of calls.
std::size_t throw_at_each_call(bool after) {
  for (std::size_t call = 1;; ++call) {
    SCOPED_TRACE("call " + std::to_string(call) + (after ? " after" : " before"));
    throwing_files files;
    interrupted_report report(files);
    files.throw_at(call, after);
    bool thrown = false;
    try {
      EXPECT_TRUE(report.save());
    } catch (const std::bad_alloc&) {
      thrown = true;
    }
    report.expect_no_loss();
    if (!thrown) {
      report.expect_complete();
      EXPECT_EQ(report.sources_left(), 0u);
      return call - 1;
    }
    EXPECT_TRUE(report.save());
    report.expect_complete();
    EXPECT_LE(report.sources_left(), 1u);
    if (testing::Test::HasFailure()) return call;
  }
}

// The folders, the look-ups of all elements but the table, three copies, three
// removals and the page: a look-up for the folder, two that are made, one for the
// pictures, 12 elements, 3 and 3, and one opening.
constexpr std::size_t calls_of_save = 1 + 2 + 1 + 12 + 3 + 3 + 1;

TEST(InterruptedSave, ExceptionBeforeEachCallLosesNothing) {
  EXPECT_EQ(throw_at_each_call(false), calls_of_save);
}

TEST(InterruptedSave, ExceptionAfterEachCallLosesNothing) {
  EXPECT_EQ(throw_at_each_call(true), calls_of_save);
}

}  // namespace
}  // namespace test
