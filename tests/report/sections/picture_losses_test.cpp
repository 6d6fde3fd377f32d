#include <sys/mount.h>
#include <sys/stat.h>

#include <filesystem>
#include <memory>
#include <stdexcept>
#include <string>

#include "tests/report/sections/picture_report.h"

namespace test {
namespace {

namespace fs = std::filesystem;

using names = std::set<std::string>;

class PictureLosses : public picture_test {
 protected:
  // Makes the folder of pictures before Save and returns the text of a file in it.
  ustring among_the_pictures(ustring_view name) {
    fs::create_directories(pictures());
    return folder.text(ustring(u"\\out\\Vellomark\\page_files\\").append(name));
  }

  void expect_text_stays(const ustring& text) {
    EXPECT_TRUE(same_units(saved(), paragraph(text_line(text))));
  }
};

TEST_F(PictureLosses, PictureThatIsAtItsPlaceStays) {
  const ustring text = among_the_pictures(u"x.bmp");
  make_file(pictures() / "x.bmp", "bytes");
  add_line(text);
  expect_text_stays(text);
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "bytes");
  EXPECT_EQ(names_in(pictures()), names{"x.bmp"});
}

TEST_F(PictureLosses, PictureThatIsAtItsPlaceByAnotherPathStays) {
  among_the_pictures(u"");
  make_file(pictures() / "x.bmp", "bytes");
  fs::create_directory_symlink(pictures(), folder.path() / "other");
  const ustring text = folder.text(u"/other/../other\\x.bmp");
  add_line(text);
  expect_text_stays(text);
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "bytes");

  const ustring through = folder.text(u"\\other\\x.bmp");
  add_line(through);
  EXPECT_TRUE(
      same_units(saved(), paragraph(text_line(text)) + block() + paragraph(text_line(through))));
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "bytes");
  EXPECT_EQ(names_in(pictures()), names{"x.bmp"});
}

TEST_F(PictureLosses, SymbolicLinkToTheTargetStays) {
  among_the_pictures(u"");
  make_file(pictures() / "x.bmp", "bytes");
  fs::create_symlink(pictures() / "x.bmp", source(u"x.tmp"));
  const ustring text = folder.text(u"\\x.tmp");
  add_line(text);
  expect_text_stays(text);
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "bytes");
  EXPECT_TRUE(fs::is_symlink(source(u"x.tmp")));
}

TEST_F(PictureLosses, TargetThatIsASymbolicLinkToTheSourceStays) {
  among_the_pictures(u"");
  const ustring text = make_picture(u"x.tmp", "bytes");
  fs::create_symlink(source(u"x.tmp"), pictures() / "x.bmp");
  add_line(text);
  expect_text_stays(text);
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "bytes");
  EXPECT_FALSE(fs::is_symlink(source(u"x.tmp")));
}

TEST_F(PictureLosses, HardLinkOfTheTargetStays) {
  among_the_pictures(u"");
  const ustring text = make_picture(u"x.tmp", "bytes");
  fs::create_hard_link(source(u"x.tmp"), pictures() / "x.bmp");
  add_line(text);
  expect_text_stays(text);
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "bytes");
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "bytes");
}

// The picture is copied, and the link is deleted.
TEST_F(PictureLosses, SymbolicLinkToAPictureIsCopiedWithItsContent) {
  make_picture(u"real.dat", "bytes");
  fs::create_symlink(source(u"real.dat"), source(u"x.tmp"));
  add_line(folder.text(u"\\x.tmp"));
  EXPECT_TRUE(same_units(saved(), paragraph(image(u"page_files\\x.bmp"))));
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "bytes");
  EXPECT_FALSE(fs::is_symlink(pictures() / "x.bmp"));
  EXPECT_FALSE(fs::is_symlink(source(u"x.tmp")));
  EXPECT_EQ(bytes_of(source(u"real.dat")), "bytes");
}

TEST_F(PictureLosses, FolderIsNoPicture) {
  fs::create_directory(source(u"charts.tmp"));
  make_file(source(u"charts.tmp") / "inside", "bytes");
  for (const ustring_view name : {u"\\charts.tmp", u"\\charts.tmp\\"}) {
    VellomarkObj one(platform::file_system::native(), browser);
    const ustring text = folder.text(name);
    add_section(one, {}, u"", {text.c_str()});
    ASSERT_TRUE(one.Save(folder.text(u"/out").c_str(), u"page.htm"));
    EXPECT_TRUE(same_units(body_of(saved_page()), block() + paragraph(text_line(text))));
  }
  EXPECT_EQ(bytes_of(source(u"charts.tmp") / "inside"), "bytes");
}

TEST_F(PictureLosses, DevicesAndPipesAreNoPictures) {
  ASSERT_EQ(::mkfifo(source(u"pipe.tmp").c_str(), 0600), 0);
  const ustring pipe = folder.text(u"\\pipe.tmp");
  add_section(report, {}, u"", {u"/dev\\null", u"/dev\\zero", pipe.c_str()});
  EXPECT_TRUE(same_units(
      saved(), paragraph(text_line(u"/dev\\null") + text_line(u"/dev\\zero") + text_line(pipe))));
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_TRUE(fs::is_character_file("/dev/zero"));
  EXPECT_TRUE(fs::is_fifo(source(u"pipe.tmp")));
  EXPECT_TRUE(fs::is_empty(pictures()));
}

TEST_F(PictureLosses, FolderOfPicturesThatIsAFile) {
  fs::create_directories(pages());
  make_file(pictures(), "in the way");
  const ustring text = make_picture(u"x.tmp", "bytes");
  add_line(text);
  expect_text_stays(text);
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "bytes");
  EXPECT_EQ(bytes_of(pictures()), "in the way");
}

// The name of the page leads into a missing folder.
TEST_F(PictureLosses, FolderOfPicturesThatIsMissing) {
  const ustring text = make_picture(u"x.tmp", "bytes");
  add_line(text);
  EXPECT_FALSE(report.Save(folder.text(u"/out").c_str(), u"missing\\page.htm"));
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "bytes");
  EXPECT_TRUE(names_in(pages()).empty());
}

TEST_F(PictureLosses, FolderOfPicturesThatCannotBeWritten) {
  const ustring text = make_picture(u"x.tmp", "bytes");
  among_the_pictures(u"");
  for (const fs::path& each : {folder.path(), source(u"x.tmp"), pages(), pictures()})
    without_privileges::give(each);
  fs::permissions(pictures(), fs::perms(0555));
  add_line(text);
  {
    const without_privileges lowered;
    expect_text_stays(text);
  }
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "bytes");
  EXPECT_TRUE(fs::is_empty(pictures()));
  fs::permissions(pictures(), fs::perms(0755));
}

TEST_F(PictureLosses, SourceThatCannotBeRead) {
  const ustring text = make_picture(u"x.tmp", "bytes");
  without_privileges::give(folder.path());
  without_privileges::give(source(u"x.tmp"));
  fs::permissions(source(u"x.tmp"), fs::perms(0));
  add_line(text);
  {
    const without_privileges lowered;
    expect_text_stays(text);
  }
  fs::permissions(source(u"x.tmp"), fs::perms(0600));
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "bytes");
  EXPECT_TRUE(fs::is_empty(pictures()));
}

TEST_F(PictureLosses, SourceThatCannotBeDeletedStaysAndThePictureIsThere) {
  fs::create_directory(source(u"locked"));
  make_file(source(u"locked") / "x.tmp", "bytes");
  without_privileges::give(folder.path());
  fs::permissions(source(u"locked"), fs::perms(0555));
  add_line(folder.text(u"\\locked\\x.tmp"));
  {
    const without_privileges lowered;
    EXPECT_TRUE(same_units(saved(), paragraph(image(u"page_files\\x.bmp"))));
  }
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "bytes");
  EXPECT_EQ(bytes_of(source(u"locked") / "x.tmp"), "bytes");
  fs::permissions(source(u"locked"), fs::perms(0755));
}

TEST_F(PictureLosses, PictureNamedTwiceMovesOnce) {
  const ustring text = make_picture(u"x.tmp", "bytes");
  add_section(report, {}, u"", {text.c_str(), text.c_str()});
  add_line(text);
  EXPECT_TRUE(same_units(saved(), paragraph(image(u"page_files\\x.bmp") + text_line(text)) +
                                      paragraph(text_line(text))));
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "bytes");
  EXPECT_EQ(names_in(pictures()), names{"x.bmp"});
}

// The later one replaces the earlier one, as both have the same name.
TEST_F(PictureLosses, OfTwoWithOneNameTheLaterIsThere) {
  fs::create_directory(source(u"one"));
  fs::create_directory(source(u"two"));
  make_file(source(u"one") / "x.tmp", "first, and longer");
  make_file(source(u"two") / "x.png", "second");
  add_line(folder.text(u"\\one\\x.tmp"));
  add_line(folder.text(u"\\two\\x.png"));
  const ustring both = paragraph(image(u"page_files\\x.bmp"));
  EXPECT_TRUE(same_units(saved(), both + both));
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "second");
  EXPECT_TRUE(fs::is_empty(source(u"one")));
  EXPECT_TRUE(fs::is_empty(source(u"two")));
  EXPECT_EQ(names_in(pictures()), names{"x.bmp"});
}

TEST_F(PictureLosses, ExistingTargetIsOverwritten) {
  among_the_pictures(u"");
  make_file(pictures() / "x.bmp", "an old and longer one");
  add_line(make_picture(u"x.tmp", "new"));
  EXPECT_TRUE(same_units(saved(), paragraph(image(u"page_files\\x.bmp"))));
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "new");
}

TEST_F(PictureLosses, ReadOnlyTargetStays) {
  among_the_pictures(u"");
  make_file(pictures() / "x.bmp", "old");
  const ustring text = make_picture(u"x.tmp", "new");
  for (const fs::path& each :
       {folder.path(), source(u"x.tmp"), pages(), pictures(), pictures() / "x.bmp"})
    without_privileges::give(each);
  fs::permissions(pictures() / "x.bmp", fs::perms(0444));
  add_line(text);
  {
    const without_privileges lowered;
    expect_text_stays(text);
  }
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "new");
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "old");
  EXPECT_EQ(names_in(pictures()), names{"x.bmp"});
}

TEST_F(PictureLosses, TargetThatIsAFolderStays) {
  among_the_pictures(u"");
  fs::create_directory(pictures() / "x.bmp");
  const ustring text = make_picture(u"x.tmp", "bytes");
  add_line(text);
  expect_text_stays(text);
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "bytes");
  EXPECT_TRUE(fs::is_directory(pictures() / "x.bmp"));
  EXPECT_EQ(names_in(pictures()), names{"x.bmp"});
}

// The new extension is never longer than what was cut off, so every name still fits.
TEST_F(PictureLosses, NamesOfFullLengthFit) {
  const ustring name(255, u'n');
  const ustring wide = ustring(83, u'\u4E2D').append(u"nnnnnn");  // 255 bytes on the disk
  const ustring text = make_picture(name, "bytes");
  const ustring wide_text = make_picture(wide, "bytes");
  add_section(report, {}, u"", {text.c_str(), wide_text.c_str()});
  ASSERT_TRUE(save());
  EXPECT_EQ(bytes_of(pictures() / fs::path(name.substr(4).append(u".bmp"))), "bytes");
  EXPECT_EQ(bytes_of(pictures() / fs::path(wide.substr(0, 85).append(u".bmp"))), "bytes");
  EXPECT_EQ(names_in(pictures()).size(), 2u);
}

// A disk of 64 KiB mounted on a folder, if mounting is allowed.
class full_disk {
 public:
  explicit full_disk(const fs::path& where) : where_(where) {
    mounted_ = ::mount("tmpfs", where_.c_str(), "tmpfs", 0, "size=64k") == 0;
  }
  full_disk(const full_disk&) = delete;
  full_disk& operator=(const full_disk&) = delete;
  ~full_disk() {
    if (mounted_) ::umount(where_.c_str());
  }
  bool mounted() const { return mounted_; }

 private:
  fs::path where_;
  bool mounted_;
};

TEST_F(PictureLosses, FullDiskLeavesTargetAndSourceAsTheyWere) {
  among_the_pictures(u"");
  const full_disk disk(pictures());
  if (!disk.mounted()) GTEST_SKIP() << "needs the right to mount";
  make_file(pictures() / "x.bmp", "old");
  const std::string bytes(200000, 'b');
  const ustring x = make_picture(u"x.tmp", bytes);
  const ustring y = make_picture(u"y.tmp", bytes);
  const ustring z = make_picture(u"z.tmp", "small");
  add_section(report, {}, u"", {x.c_str(), y.c_str(), z.c_str()});
  EXPECT_TRUE(
      same_units(saved(), paragraph(text_line(x) + text_line(y) + image(u"page_files\\z.bmp"))));
  EXPECT_EQ(bytes_of(source(u"x.tmp")), bytes);
  EXPECT_EQ(bytes_of(source(u"y.tmp")), bytes);
  EXPECT_FALSE(fs::exists(source(u"z.tmp")));
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "old");
  EXPECT_EQ(bytes_of(pictures() / "z.bmp"), "small");
  EXPECT_EQ(names_in(pictures()), (names{"x.bmp", "z.bmp"}));
}

// Every copy or every removal fails, without an exception.
class failing_files : public platform::file_system {
 public:
  bool exists(const ustring& path) override { return disk_.exists(path); }
  bool is_file(const ustring& path) override { return disk_.is_file(path); }
  platform::folder_result create_directory(const ustring& path) override {
    return disk_.create_directory(path);
  }
  std::unique_ptr<byte_output> open_for_writing(const ustring& path) override {
    return disk_.open_for_writing(path);
  }
  std::unique_ptr<byte_input> open_for_reading(const ustring& path) override {
    return disk_.open_for_reading(path);
  }
  bool copy_file(const ustring& from, const ustring& to) override {
    return copies && disk_.copy_file(from, to);
  }
  bool remove_file(const ustring& path) override { return removes && disk_.remove_file(path); }

  bool copies = true;
  bool removes = true;

 private:
  platform::file_system& disk_ = platform::file_system::native();
};

class FailingFiles : public PictureLosses {
 protected:
  void add_sections() {
    add_section(failing, {u"A"}, u"S", {u"line 1", one.c_str(), two.c_str(), u"line 2"});
    add_section(failing, {}, u"", {three.c_str()});
  }

  ustring body() {
    EXPECT_TRUE(failing.Save(folder.text(u"/out").c_str(), u"page.htm"));
    return body_of(saved_page());
  }

  // The body after one Save, with these three in the places of the pictures.
  static ustring body_with(ustring_view first, ustring_view second, ustring_view third) {
    return block() + heading(u'1', u"A") + section(u"S") +
           paragraph(text_line(u"line 1").append(first).append(second) + text_line(u"line 2")) +
           paragraph(third);
  }

  void expect_sources() const {
    EXPECT_EQ(bytes_of(source(u"one.tmp")), "picture one");
    EXPECT_EQ(bytes_of(source(u"two.tmp")), "picture two");
    EXPECT_EQ(bytes_of(source(u"three.tmp")), "");
  }

  const ustring one = make_picture(u"one.tmp", "picture one");
  const ustring two = make_picture(u"two.tmp", "picture two");
  const ustring three = make_picture(u"three.tmp", "");
  failing_files files;
  VellomarkObj failing{files, browser};
};

TEST_F(FailingFiles, PictureWhoseSourceStaysIsOnThePage) {
  files.removes = false;
  add_sections();
  EXPECT_TRUE(
      same_units(body(), body_with(image(u"page_files\\one.bmp"), image(u"page_files\\two.bmp"),
                                   image(u"page_files\\three.bmp"))));
  expect_sources();
  EXPECT_EQ(bytes_of(pictures() / "one.bmp"), "picture one");
  EXPECT_EQ(bytes_of(pictures() / "two.bmp"), "picture two");
  EXPECT_EQ(bytes_of(pictures() / "three.bmp"), "");
  EXPECT_EQ(names_in(pictures()), (names{"one.bmp", "two.bmp", "three.bmp"}));
}

TEST_F(FailingFiles, PicturesThatCannotBeCopiedStay) {
  files.copies = false;
  add_sections();
  EXPECT_TRUE(same_units(body(), body_with(text_line(one), text_line(two), text_line(three))));
  expect_sources();
  EXPECT_TRUE(fs::is_empty(pictures()));
}

// Their elements have been placed, and only elements of sections are looked at.
TEST_F(FailingFiles, AnotherSaveDoesNotTryThemAgain) {
  files.copies = false;
  add_sections();
  const ustring first = body();
  files.copies = true;
  EXPECT_TRUE(same_units(body(), first + block()));
  expect_sources();
  EXPECT_TRUE(fs::is_empty(pictures()));
}

std::string thrown_by_save(VellomarkObj& report, const ustring& where) {
  try {
    report.Save(where.c_str(), u"page.htm");
  } catch (const std::out_of_range& error) {
    return error.what();
  }
  return {};
}

TEST_F(PictureLosses, TextOfFewerThanFourUnitsThatNamesAFileThrows) {
  const working_folder inside(folder.path());
  for (const ustring_view name : {u"a", u"ab", u"abc", u".a\\"}) {
    const ustring file(name.substr(0, name.find(u'\\')));
    make_file(source(file), "bytes");
    VellomarkObj one(platform::file_system::native(), browser);
    add_section(one, {}, u"", {ustring(name).c_str()});
    // A path that ends in a separator names no file.
    const bool named = file == name;
    EXPECT_EQ(thrown_by_save(one, u"out"), named ? "invalid string position" : "");
    EXPECT_EQ(bytes_of(source(file)), "bytes");
  }
}

TEST_F(PictureLosses, ShortTextThatNamesAFolderDoesNotThrow) {
  const working_folder inside(folder.path());
  fs::create_directory(source(u"abc"));
  add_section(report, {}, u"", {u"abc", u".", u".."});
  EXPECT_TRUE(
      same_units(saved(), paragraph(text_line(u"abc") + text_line(u".") + text_line(u".."))));
}

// What was placed stays placed, and no heading is repeated.
TEST_F(PictureLosses, SecondSaveCompletesThePageAfterTheCauseIsRemoved) {
  const working_folder inside(folder.path());
  make_file(source(u"abc"), "bytes");
  const ustring picture = make_picture(u"x.tmp", "picture");
  add_section(report, {u"A"}, u"S", {u"above", u"abc", u"below", picture.c_str()});
  add_section(report, {u"B"}, u"T", {u"other"});
  EXPECT_EQ(thrown_by_save(report, folder.text(u"/out")), "invalid string position");
  EXPECT_FALSE(fs::exists(pages() / "page.htm"));
  EXPECT_EQ(bytes_of(source(u"abc")), "bytes");
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "picture");

  // While the cause remains, nothing more is placed.
  EXPECT_EQ(thrown_by_save(report, folder.text(u"/out")), "invalid string position");
  fs::remove(source(u"abc"));
  EXPECT_TRUE(same_units(
      saved(),
      heading(u'1', u"A") + section(u"S") + paragraph(text_line(u"above")) +  // first
          block() + block() +                                                 // second
          block() +
          paragraph(text_line(u"abc") + text_line(u"below") + image(u"page_files\\x.bmp")) +
          heading(u'1', u"B") + section(u"T") + paragraph(text_line(u"other"))));
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "picture");
  EXPECT_FALSE(fs::exists(source(u"x.tmp")));
  EXPECT_EQ(browser.urls.size(), 0u);
}

// Its path has been placed; the rest of the section comes first, after its beginning.
TEST_F(PictureLosses, InterruptedSectionIsOneWithoutAPath) {
  const working_folder inside(folder.path());
  make_file(source(u"abc"), "bytes");
  add_section(report, {u"A"}, u"", {u"1"});
  add_section(report, {u"C"}, u"", {u"2"});
  add_section(report, {u"A", u"B"}, u"", {u"3", u"abc"});
  EXPECT_EQ(thrown_by_save(report, folder.text(u"/out")), "invalid string position");
  fs::remove(source(u"abc"));
  EXPECT_TRUE(same_units(saved(), heading(u'1', u"A") + block({u"1"}) + heading(u'2', u"B") +
                                      block({u"3"}) + block() + block({u"abc"}) +
                                      heading(u'1', u"C") + block({u"2"})));
}

// The host may add to it in between: its record is the last one.
TEST_F(PictureLosses, InterruptedSectionStillAcceptsText) {
  const working_folder inside(folder.path());
  make_file(source(u"abc"), "bytes");
  add_section(report, {}, u"", {u"abc"});
  EXPECT_EQ(thrown_by_save(report, folder.text(u"/out")), "invalid string position");
  fs::remove(source(u"abc"));
  report.AddText(u"more", true);
  EXPECT_TRUE(
      same_units(saved(), block() + block() + paragraph(text_line(u"abc") + text_line(u"more"))));
}

}  // namespace
}  // namespace test
