#include <vellomark/picture_path.h>

#include <filesystem>
#include <string>

#include "tests/report/sections/picture_report.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class Pictures : public picture_test {};

TEST_F(Pictures, FileMovesIntoTheFolderAndAnImageTakesItsPlace) {
  const ustring text = make_picture(u"x.tmp", "picture");
  add_section(report, {u"A"}, u"S", {u"above", text.c_str(), u"below"});
  EXPECT_TRUE(same_units(
      saved(),
      heading(u'1', u"A") + section(u"S") +
          paragraph(lines({u"      <a>above</a><br/>", u"      <img src='page_files\\x.bmp'/>",
                           u"      <br/>", u"      <a>below</a><br/>"}))));
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "picture");
  EXPECT_FALSE(fs::exists(source(u"x.tmp")));
  EXPECT_EQ(names_in(pictures()), (std::set<std::string>{"x.bmp"}));
}

// The last four units are always cut off, so the dot of a longer extension stays.
TEST_F(Pictures, NameLosesItsLastFourUnits) {
  const struct {
    const char16_t* name;
    const char16_t* picture;
  } rows[] = {
      {u"a.bmp", u"a.bmp"}, {u"x.jpeg", u"x..bmp"},     {u"noextension", u"noexten.bmp"},
      {u"abcd", u".bmp"},   {u"c.tar.gz", u"c.ta.bmp"}, {u".hidden", u".hi.bmp"},
  };
  for (const auto& row : rows) {
    const ustring text = make_picture(row.name, "bytes");
    VellomarkObj one(platform::file_system::native(), browser);
    add_section(one, {}, u"", {text.c_str()});
    ASSERT_TRUE(one.Save(folder.text(u"/out").c_str(), u"page.htm"));
    EXPECT_TRUE(
        same_units(body_of(saved_page()),
                   block() + paragraph(image(ustring(u"page_files\\").append(row.picture)))));
    EXPECT_EQ(bytes_of(pictures() / fs::path(row.picture)), "bytes");
    EXPECT_FALSE(fs::exists(source(row.name)));
    fs::remove_all(pictures());
  }
}

// A name of three units loses its backslash too, so the folder above names it.
TEST_F(Pictures, ShortNameIsReplacedByTheNameOfTheFolderAbove) {
  fs::create_directory(folder.path() / "charts");
  make_file(folder.path() / "charts" / "b.x", "bytes");
  add_line(folder.text(u"\\charts\\b.x"));
  EXPECT_TRUE(same_units(saved(), paragraph(image(u"page_files\\charts.bmp"))));
  EXPECT_EQ(bytes_of(pictures() / "charts.bmp"), "bytes");
}

TEST_F(Pictures, ContentIsCopiedAsItIs) {
  std::string bytes;
  for (int i = 0; i < 1000000; ++i) bytes += static_cast<char>(i * 7 + i / 256);
  add_line(make_picture(u"big.png", bytes));
  ASSERT_TRUE(save());
  EXPECT_EQ(bytes_of(pictures() / "big.bmp"), bytes);
}

TEST_F(Pictures, EmptyFileIsAPicture) {
  add_line(make_picture(u"e.tmp", ""));
  EXPECT_TRUE(same_units(saved(), paragraph(image(u"page_files\\e.bmp"))));
  EXPECT_EQ(fs::file_size(pictures() / "e.bmp"), 0u);
}

TEST_F(Pictures, LinkAndFolderHaveTheStem) {
  add_line(make_picture(u"x.tmp", "1"));
  ASSERT_TRUE(report.Save(folder.text(u"/out").c_str(), u"a.b.htm"));
  add_line(make_picture(u"y.tmp", "2"));
  ASSERT_TRUE(report.Save(folder.text(u"/out").c_str(), u"bare"));
  EXPECT_TRUE(same_units(body_of(page_text(pages() / "bare")),
                         block() + paragraph(image(u"a_files\\x.bmp")) + block() +
                             paragraph(image(u"_files\\y.bmp"))));
  EXPECT_EQ(bytes_of(pages() / "a_files" / "x.bmp"), "1");
  EXPECT_EQ(bytes_of(pages() / "_files" / "y.bmp"), "2");
}

TEST_F(Pictures, NumberedPageHasANumberedFolder) {
  add_line(make_picture(u"x.tmp", "1"));
  ASSERT_TRUE(report.Save(folder.text(u"/out").c_str(), nullptr));
  add_line(make_picture(u"x.tmp", "2"));
  ASSERT_TRUE(report.Save(folder.text(u"/out").c_str(), nullptr));
  EXPECT_EQ(bytes_of(pages() / "Report1_files" / "x.bmp"), "1");
  EXPECT_EQ(bytes_of(pages() / "Report2_files" / "x.bmp"), "2");
  EXPECT_EQ(count_of(u"<img src='Report2_files\\x.bmp'/>", page_text(pages() / "Report2.htm")), 1u);
}

// A forward slash is part of the name, and there is no such folder among the pictures.
TEST_F(Pictures, ForwardSlashDoesNotSeparate) {
  make_picture(u"x.tmp", "bytes");
  const ustring native = folder.text(u"/x.tmp");
  add_line(native);
  EXPECT_TRUE(same_units(saved(), paragraph(text_line(native))));
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "bytes");
  EXPECT_TRUE(fs::is_empty(pictures()));

  add_line(vellomark::PicturePath(native));
  ASSERT_TRUE(save());
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "bytes");
}

TEST_F(Pictures, PathWithoutAFolderIsThatOfTheWorkingFolder) {
  make_picture(u"here.tmp", "bytes");
  const working_folder inside(folder.path());
  add_line(u"here.tmp");
  EXPECT_TRUE(same_units(saved(), paragraph(image(u"page_files\\here.bmp"))));
  EXPECT_EQ(bytes_of(pictures() / "here.bmp"), "bytes");
}

TEST_F(Pictures, NamesWithBlanksAndOtherScripts) {
  for (const ustring_view name :
       {ustring_view(u"two  blanks "), ustring_view(u"\u00FC\u4E2D\u0436"),
        ustring_view(u"\xD83D\xDE00"), ustring_view(u"quote\"&amp;#%")}) {
    const ustring text = make_picture(ustring(name) + u".tmp", "bytes");
    VellomarkObj one(platform::file_system::native(), browser);
    add_section(one, {}, u"", {text.c_str()});
    ASSERT_TRUE(one.Save(folder.text(u"/out").c_str(), u"page.htm"));
    EXPECT_TRUE(same_units(
        body_of(saved_page()),
        block() + paragraph(image(ustring(u"page_files\\").append(name).append(u".bmp")))));
    EXPECT_EQ(bytes_of(pictures() / fs::path(ustring(name) + u".bmp")), "bytes");
    EXPECT_FALSE(fs::exists(source(ustring(name) + u".tmp")));
  }
}

TEST_F(Pictures, LongNames) {
  const ustring name(246, u'n');
  add_line(make_picture(name + u".tmp", "bytes"));
  EXPECT_TRUE(same_units(saved(), paragraph(image(u"page_files\\" + name + u".bmp"))));
  EXPECT_EQ(bytes_of(pictures() / fs::path(name + u".bmp")), "bytes");
}

// The tags of the text are cut before it is looked up; the image replaces all of it.
TEST_F(Pictures, TagsInTheTextDoNotCount) {
  ustring text = make_picture(u"x.tmp", "bytes");
  text.insert(text.size() - 2, u"<b>");
  add_line(text);
  EXPECT_TRUE(same_units(saved(), paragraph(image(u"page_files\\x.bmp"))));
}

TEST_F(Pictures, TextBesideThePathIsNoPicture) {
  const ustring text = make_picture(u"x.tmp", "bytes");
  add_line(u" " + text);
  add_line(text + u"\nmore");
  ASSERT_TRUE(save());
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "bytes");
  EXPECT_TRUE(fs::is_empty(pictures()));
}

TEST_F(Pictures, LinesOfThePageAreNoPictures) {
  const ustring text = make_picture(u"x.tmp", "bytes");
  report.AddText(text.c_str(), false);
  add_section(report, {text.c_str()}, text.c_str());
  ASSERT_TRUE(save());
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "bytes");
  EXPECT_EQ(count_of(u"<img", saved_page()), 0u);
}

TEST_F(Pictures, ModeOfTheFileIsKept) {
  const ustring text = make_picture(u"x.tmp", "bytes");
  fs::permissions(source(u"x.tmp"), fs::perms(0640));
  add_line(text);
  ASSERT_TRUE(save());
  EXPECT_EQ(fs::status(pictures() / "x.bmp").permissions(), fs::perms(0640));
}

TEST_F(Pictures, SecondSaveMovesNothing) {
  add_line(make_picture(u"x.tmp", "first"));
  ASSERT_TRUE(save());
  make_picture(u"x.tmp", "second");
  EXPECT_TRUE(same_units(saved(), paragraph(image(u"page_files\\x.bmp")) + block()));
  EXPECT_EQ(bytes_of(pictures() / "x.bmp"), "first");
  EXPECT_EQ(bytes_of(source(u"x.tmp")), "second");
}

}  // namespace
}  // namespace test
