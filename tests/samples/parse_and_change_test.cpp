#include <iterator>

#include "tests/samples/sample_files.h"

namespace test {
namespace {

using vellomark::CreateSampleVellomark1;
using vellomark::ParseAndChangeSampleVellomark;

class ParseAndChange : public SampleFiles {
 protected:
  bool change(const std::string& source, const std::string& target) const {
    return ParseAndChangeSampleVellomark(path(source).c_str(), path(target).c_str());
  }

  void make_sample(const std::string& name) const {
    EXPECT_EQ(CreateSampleVellomark1(path(name).c_str()), has_strings);
  }

  // Makes a page of this text, changes it into "target" and checks what the function
  // returns: `complete`, if there is a string.
  ustring changed(ustring_view text, bool complete) const {
    make_file("source", marked_bytes(text));
    EXPECT_EQ(change("source", "target"), complete && has_strings);
    EXPECT_EQ(bytes_of("source"), marked_bytes(text));
    return page("target");
  }

  // The same for the content of a body. What is added is cut off again.
  ustring changed_body(ustring_view content, bool complete) const {
    const ustring text =
        changed(ustring(u"<html><body>").append(content).append(u"</body></html>"), complete);
    const ustring head = lines({u"<html>", u"  <body>"});
    const ustring tail = added_heading() + lines({u"  </body>", u"</html>"});
    if (!text.starts_with(head) || !text.ends_with(tail)) {
      ADD_FAILURE() << printable(text);
      return {};
    }
    return text.substr(head.size(), text.size() - head.size() - tail.size());
  }
};

constexpr ustring_view four_items =
    u"<ul><li id='elem1'>a</li><li id='elem2'>b</li><li id='elem3'>c</li><li "
    u"id='elem4'>d</li></ul>";

TEST_F(ParseAndChange, ReversesTheLabelsOfTheSample) {
  make_sample("sample.htm");
  EXPECT_EQ(change("sample.htm", "changed.htm"), has_strings);
  EXPECT_TRUE(is_golden(page("changed.htm"), golden("sample_report_changed")));
}

TEST_F(ParseAndChange, ReadsTheOtherByteOrderAndWritesItsOwn) {
  make_sample("sample.htm");
  make_file("other.htm", swapped_bytes(bytes_of("sample.htm")));
  EXPECT_EQ(bytes_of("other.htm").substr(0, 4), std::string("\xFE\xFF\0<", 4));
  EXPECT_EQ(change("other.htm", "changed.htm"), has_strings);
  EXPECT_TRUE(is_golden(page("changed.htm"), golden("sample_report_changed")));
}

TEST_F(ParseAndChange, ReadsAPageWithoutAMark) {
  make_sample("sample.htm");
  make_file("bare.htm", bytes_of("sample.htm").substr(2));
  EXPECT_EQ(change("bare.htm", "changed.htm"), has_strings);
  EXPECT_TRUE(is_golden(page("changed.htm"), golden("sample_report_changed")));
}

TEST_F(ParseAndChange, WorksWithOneFileAsSourceAndTarget) {
  make_sample("page.htm");
  EXPECT_EQ(change("page.htm", "page.htm"), has_strings);
  EXPECT_TRUE(is_golden(page("page.htm"), golden("sample_report_changed")));
}

TEST_F(ParseAndChange, WorksWithOneFileUnderTwoNames) {
  make_sample("page.htm");
  fs::create_symlink(file("page.htm"), file("link.htm"));
  fs::create_hard_link(file("page.htm"), file("hard.htm"));
  EXPECT_EQ(change("page.htm", "link.htm"), has_strings);
  EXPECT_TRUE(is_golden(page("hard.htm"), golden("sample_report_changed")));
}

TEST_F(ParseAndChange, ReplacesALongerTarget) {
  make_sample("sample.htm");
  make_file("changed.htm", std::string(100000, 'x'));
  EXPECT_EQ(change("sample.htm", "changed.htm"), has_strings);
  EXPECT_TRUE(is_golden(page("changed.htm"), golden("sample_report_changed")));
}

// The labels stay as they are, and each time there is one heading more. It is read without
// its text node where the text is empty.
TEST_F(ParseAndChange, ChangesAChangedPage) {
  make_sample("page.htm");
  change("page.htm", "page.htm");
  ustring text = page("page.htm");
  EXPECT_EQ(change("page.htm", "page.htm"), has_strings);
  const ustring tail = lines({u"  </body>", u"</html>"});
  ASSERT_TRUE(text.ends_with(added_heading() + tail));
  text.resize(text.size() - (added_heading() + tail).size());
  text += has_strings ? added_heading() : lines({u"    <h1>", u"    </h1>"});
  text += added_heading() + tail;
  EXPECT_TRUE(same_units(page("page.htm"), text));
}

TEST_F(ParseAndChange, ChangesTheFirstOfTwoElementsWithOneId) {
  EXPECT_TRUE(
      same_units(changed_body(u"<ul><li id='elem1'>a</li><li id='elem1'>b</li></ul>"
                              u"<p id='elem2'>c</p><h2 id='elem3'>d</h2><h3 id='elem4'>e</h3>",
                              true),
                 lines({u"    <ul>", u"      <li id='elem1'>", u"        Element4", u"      </li>",
                        u"      <li id='elem1'>", u"        b", u"      </li>", u"    </ul>",
                        u"    <p id='elem2'>", u"      Element3", u"    </p>",
                        u"    <h2 id='elem3'>", u"      Element2", u"    </h2>",
                        u"    <h3 id='elem4'>", u"      Element1", u"    </h3>"})));
}

// The deeper one is found first if it comes first, but an outer one before those inside it.
TEST_F(ParseAndChange, LooksInDocumentOrder) {
  EXPECT_TRUE(
      same_units(changed_body(u"<div><p><span id='elem1'>a</span></p></div><p id='elem1'>b</p>"
                              u"<div id='elem2'><p id='elem2'>c</p></div>",
                              false),
                 lines({u"    <div>", u"      <p>", u"        <span id='elem1'>Element4</span>",
                        u"      </p>", u"    </div>", u"    <p id='elem1'>", u"      b",
                        u"    </p>", u"    <div id='elem2'>", u"      Element3", u"    </div>"})));
}

TEST_F(ParseAndChange, ReplacesAllContentByTheText) {
  EXPECT_TRUE(same_units(
      changed_body(u"<div id='elem1' class='x' style='color: red'>a<p>b<br/>c</p><!-- d --><ul>"
                   u"<li>e</li></ul></div><p id='elem2'></p>",
                   false),
      lines({u"    <div class='x' id='elem1' style='color: red;'>", u"      Element4",
             u"    </div>", u"    <p id='elem2'>", u"      Element3", u"    </p>"})));
}

// Nothing reports that the text wasn't inserted.
TEST_F(ParseAndChange, LeavesElementsThatTakeNoTextEmpty) {
  EXPECT_TRUE(same_units(
      changed_body(u"<p id='elem1'>a</p><table id='elem2'><tr><td>b</td></tr></table>"
                   u"<dl id='elem3'><dd>c</dd></dl><p><img id='elem4' src='d'/></p>",
                   true),
      lines({u"    <p id='elem1'>", u"      Element4", u"    </p>", u"    <table id='elem2'>",
             u"    </table>", u"    <dl id='elem3'>", u"    </dl>", u"    <p>",
             u"      <img id='elem4' src='d'/>", u"    </p>"})));
}

// Elements that were deleted with the content of another one aren't found.
TEST_F(ParseAndChange, DoesNotFindWhatItHasDeleted) {
  EXPECT_TRUE(same_units(
      changed_body(u"<ul id='elem1'><li id='elem2'>a</li></ul><p id='elem4'>b</p>"
                   u"<div id='elem3'><p>c</p></div>",
                   false),
      lines({u"    <ul id='elem1'>", u"    </ul>", u"    <p id='elem4'>", u"      Element1",
             u"    </p>", u"    <div id='elem3'>", u"      Element2", u"    </div>"})));
}

// Body and html accept no text. What was added to the body is deleted as well.
TEST_F(ParseAndChange, DeletesTheContentOfThePageItself) {
  EXPECT_TRUE(same_units(
      changed(u"<html><head></head><body id='elem1'><p id='elem2'>a</p></body></html>", false),
      lines({u"<html>", u"  <head>", u"  </head>", u"  <body id='elem1'>", u"  </body>",
             u"</html>"})));
  EXPECT_TRUE(
      same_units(changed(u"<html id='elem4'><body><p id='elem1'>a</p></body></html>", false),
                 lines({u"<html id='elem4'>", u"</html>"})));
}

TEST_F(ParseAndChange, ReturnsFalseIfAnElementIsMissing) {
  for (int missing = 1; missing <= 4; ++missing) {
    ustring content;
    ustring expected;
    for (int i = 1; i <= 4; ++i) {
      if (i == missing) continue;
      const char16_t number = static_cast<char16_t>(u'0' + i);
      const char16_t label = static_cast<char16_t>(u'5' - i);
      content += ustring(u"<p id='elem") + number + u"'>x</p>";
      expected +=
          ustring(u"    <p id='elem") + number + u"'>\n      Element" + label + u"\n    </p>\n";
    }
    EXPECT_TRUE(same_units(changed_body(content, false), expected)) << missing;
  }
}

TEST_F(ParseAndChange, ComparesTheWholeIdAndItsCase) {
  const ustring content =
      u"<p id='Elem1'>a</p><p id='elem11'>b</p><p id='elem1 '>c</p>"
      u"<p id=' elem1'>d</p><p class='elem1'>e</p><p id='ELEM2'>f</p>";
  const ustring expected =
      lines({u"    <p id='Elem1'>", u"      a", u"    </p>", u"    <p id='elem11'>", u"      b",
             u"    </p>", u"    <p id='elem1 '>", u"      c", u"    </p>", u"    <p id=' elem1'>",
             u"      d", u"    </p>", u"    <p class='elem1'>", u"      e", u"    </p>",
             u"    <p id='ELEM2'>", u"      f", u"    </p>"});
  EXPECT_TRUE(same_units(changed_body(content, false), expected));
}

TEST_F(ParseAndChange, LeavesTheHeadingOutWithoutABody) {
  EXPECT_TRUE(same_units(changed(u"<html><head><title>T</title></head></html>", false),
                         lines({u"<html>", u"  <head>", u"    <title>", u"      T", u"    </title>",
                                u"  </head>", u"</html>"})));
  EXPECT_TRUE(same_units(
      changed(four_items, true),
      lines({u"<ul>", u"  <li id='elem1'>", u"    Element4", u"  </li>", u"  <li id='elem2'>",
             u"    Element3", u"  </li>", u"  <li id='elem3'>", u"    Element2", u"  </li>",
             u"  <li id='elem4'>", u"    Element1", u"  </li>", u"</ul>"})));
}

TEST_F(ParseAndChange, WritesTheMarkAloneForAnEmptyFile) {
  make_file("source", "");
  EXPECT_FALSE(change("source", "target"));
  EXPECT_EQ(bytes_of("target"), "\xFF\xFE");
  EXPECT_EQ(changed(u"", false), u"");
}

// Pairs of bytes are read as units, which makes nonsense and no failure.
TEST_F(ParseAndChange, ReadsWhatIsNoPage) {
  make_file("source", "<html><body><ul><li id='elem1'>abc</li></ul></body></html>");
  EXPECT_FALSE(change("source", "target"));
  EXPECT_EQ(bytes_of("target").substr(0, 2), "\xFF\xFE");
  EXPECT_EQ(bytes_of("target").find("Element4"), std::string::npos);
}

// Open elements stay as far as they were read.
TEST_F(ParseAndChange, UsesWhatABadPageHolds) {
  EXPECT_TRUE(
      same_units(changed(u"<html><body><ul><li id='elem1'>a<li id='elem2'>b</p><foo>", false),
                 lines({u"<html>", u"  <body>", u"    <ul>", u"      <li id='elem1'>",
                        u"        Element4", u"      </li>", u"      <li id='elem2'>",
                        u"        Element3", u"      </li>", u"    </ul>"}) +
                     added_heading() + lines({u"  </body>", u"</html>"})));
}

TEST_F(ParseAndChange, ChangesADeepElementAmongMany) {
  ustring content = u"<p>";
  for (int i = 0; i < 50000; ++i) content += u"<em>";
  content += u"<span id='elem1'>a</span>";
  for (int i = 0; i < 50000; ++i) content += u"</em>";
  content += u"</p>";
  for (int i = 0; i < 50000; ++i) content += u"<p id='x'></p>";
  content += u"<p id='elem2'>b</p>";
  const ustring text = changed_body(content, false);
  EXPECT_NE(text.find(u"<em><span id='elem1'>Element4</span></em>"), ustring::npos);
  EXPECT_TRUE(text.ends_with(u"    <p id='elem2'>\n      Element3\n    </p>\n"));
}

// The stylesheet stays as it was, as none of its values is short. The style of the
// control ends at its first blank and is written after the attributes.
TEST_F(ParseAndChange, ReadsTheWorkReport) {
  ASSERT_TRUE(vellomark::CreateWorkVellomark(path("work.htm").c_str()));
  EXPECT_FALSE(change("work.htm", "changed.htm"));
  ustring expected = page("work.htm");
  const auto replace = [&expected](ustring_view from, const ustring& to) {
    ASSERT_NE(expected.find(from), ustring::npos);
    expected.replace(expected.find(from), from.size(), to);
  };
  replace(u" style='border: 1px solid #000;'", u"");
  replace(u" width='800'>", u" width='800' style='border: 1px;'>");
  replace(u"  </body>\n", added_heading() + u"  </body>\n");
  EXPECT_TRUE(same_units(page("changed.htm"), expected));
}

TEST_F(ParseAndChange, ReturnsFalseForANullPath) {
  make_sample("sample.htm");
  const std::string bytes = bytes_of("sample.htm");
  EXPECT_FALSE(ParseAndChangeSampleVellomark(nullptr, path("target").c_str()));
  EXPECT_FALSE(ParseAndChangeSampleVellomark(path("sample.htm").c_str(), nullptr));
  EXPECT_FALSE(ParseAndChangeSampleVellomark(nullptr, nullptr));
  make_file("target", "kept");
  EXPECT_FALSE(ParseAndChangeSampleVellomark(nullptr, path("target").c_str()));
  EXPECT_EQ(bytes_of("target"), "kept");
  EXPECT_EQ(bytes_of("sample.htm"), bytes);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder_.path()), {}), 2);
}

TEST_F(ParseAndChange, LeavesTheTargetAloneIfTheSourceCannotBeOpened) {
  make_file("target", "kept");
  fs::create_directory(file("folder"));
  for (const ustring& source : {ustring(), path("none"), path("none/source"), path("folder"),
                                path("target") + u"/source", path("") + char16_t(0xD800)}) {
    EXPECT_FALSE(ParseAndChangeSampleVellomark(source.c_str(), path("target").c_str()));
    EXPECT_FALSE(ParseAndChangeSampleVellomark(source.c_str(), path("new").c_str()));
  }
  EXPECT_EQ(bytes_of("target"), "kept");
  EXPECT_FALSE(fs::exists(file("new")));
}

TEST_F(ParseAndChange, LeavesTheTargetAloneIfTheSourceIsNotReadable) {
  make_sample("sample.htm");
  make_file("target", "kept");
  fs::permissions(folder_.path(), fs::perms(0777));
  fs::permissions(file("sample.htm"), fs::perms(0));
  fs::permissions(file("target"), fs::perms(0666));
  {
    const without_privileges plain_user;
    EXPECT_FALSE(change("sample.htm", "target"));
    EXPECT_FALSE(change("sample.htm", "new"));
  }
  EXPECT_EQ(bytes_of("target"), "kept");
  EXPECT_FALSE(fs::exists(file("new")));
}

TEST_F(ParseAndChange, ReturnsFalseWithoutATargetThatCanBeOpened) {
  make_sample("sample.htm");
  const std::string bytes = bytes_of("sample.htm");
  const temp_folder targets;
  fs::permissions(folder_.path(), fs::perms(0755));
  expect_unwritable(targets, [this](const char16_t* target) {
    return ParseAndChangeSampleVellomark(path("sample.htm").c_str(), target);
  });
  EXPECT_EQ(bytes_of("sample.htm"), bytes);
}

// Only the opening counts.
TEST_F(ParseAndChange, DoesNotNoticeAFullDisk) {
  if (!fs::exists("/dev/full")) GTEST_SKIP() << "there is no /dev/full";
  make_sample("sample.htm");
  EXPECT_EQ(ParseAndChangeSampleVellomark(path("sample.htm").c_str(), u"/dev/full"), has_strings);
}

}  // namespace
}  // namespace test
