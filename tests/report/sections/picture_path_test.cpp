#include <vellomark/picture_path.h>

#include <gtest/gtest.h>

#include "tests/support/golden.h"

namespace test {
namespace {

TEST(PicturePath, LastSeparatorBecomesABackslash) {
  const struct {
    const char16_t* path;
    const char16_t* expected;
  } rows[] = {
      {u"/srv/charts/a.bmp", u"/srv/charts\\a.bmp"},
      {u"/a.bmp", u"\\a.bmp"},
      {u"charts/a.bmp", u"charts\\a.bmp"},
      {u"a/b/", u"a/b\\"},
      {u"/", u"\\"},
      {u"//", u"/\\"},
      {u"a.bmp", u"a.bmp"},
      {u"", u""},
      {u"C:\\charts\\a.bmp", u"C:\\charts\\a.bmp"},
      {u"/srv/charts\\a.bmp", u"/srv/charts\\a.bmp"},
      {u"C:\\charts/a.bmp", u"C:\\charts\\a.bmp"},
      {u"/srv/\u00FC \u4E2D.bmp", u"/srv\\\u00FC \u4E2D.bmp"},
  };
  for (const auto& row : rows) {
    const std::u16string once = vellomark::PicturePath(row.path);
    EXPECT_TRUE(same_units(once, row.expected)) << printable(row.path);
    EXPECT_TRUE(same_units(vellomark::PicturePath(once), once));
  }
}

}  // namespace
}  // namespace test
