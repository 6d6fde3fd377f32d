// Shows that each rule finds its violations in small trees.
#include "tests/architecture/source_rules.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>

#include "tests/support/temp_folder.h"

namespace test {
namespace {

namespace fs = std::filesystem;

class SourceRules : public testing::Test {
 protected:
  void add(const std::string& path, const std::string& text) const {
    const fs::path file = root_.path() / path;
    fs::create_directories(file.parent_path());
    make_file(file, text);
  }

  source_tree tree() const { return read_source_tree(root_.path()); }

  temp_folder root_;
};

const findings none;

TEST_F(SourceRules, LowerLayerMayBeIncluded) {
  add("xport/text/a.h", "");
  add("xport/markup/b.h", "#include \"xport/text/a.h\"\n");
  add("include/vellomark/c.h", "");
  add("report/d.cpp", "#include <vellomark/c.h>\n#include \"xport/markup/b.h\"\n");
  add("examples/e.cpp", "#include <vellomark/c.h>\n#include <vector>\n");
  EXPECT_EQ(check_layers(tree()), none);
}

TEST_F(SourceRules, HigherLayerMayNotBeIncluded) {
  add("xport/text/a.h", "# include  \"xport/markup/b.h\"  // up\n");
  add("xport/markup/b.h", "");
  EXPECT_EQ(check_layers(tree()),
            findings{"xport/text/a.h: xport/text may not include xport/markup/b.h"});
}

TEST_F(SourceRules, PlatformKnowsTextAlone) {
  add("xport/text/a.h", "");
  add("xport/vocabulary/b.h", "");
  add("platform/posix/c.cpp", "#include \"xport/text/a.h\"\n#include \"xport/vocabulary/b.h\"\n");
  EXPECT_EQ(check_layers(tree()),
            findings{"platform/posix/c.cpp: platform may not include xport/vocabulary/b.h"});
}

TEST_F(SourceRules, ExamplesKnowInstalledHeadersAlone) {
  add("report/page.h", "");
  add("examples/host/main.cpp", "#include \"../../report/page.h\"\n");
  EXPECT_EQ(check_layers(tree()),
            findings{"examples/host/main.cpp: examples may not include report/page.h"});
}

TEST_F(SourceRules, AngleBracketsDontHideAnInclude) {
  add("report/page.h", "");
  add("zov_utils/a.h", "#include <report/page.h>\n");
  EXPECT_EQ(check_layers(tree()),
            findings{"zov_utils/a.h: zov_utils may not include report/page.h"});
}

TEST_F(SourceRules, QuotedNameHasToExist) {
  add("report/a.cpp", "#include \"report/gone.h\"\n");
  EXPECT_EQ(check_layers(tree()), findings{"report/a.cpp: there is no \"report/gone.h\""});
}

TEST_F(SourceRules, FolderWithoutALayerIsFound) {
  add("xport/extra/a.h", "");
  EXPECT_EQ(check_layers(tree()), findings{"xport/extra/a.h: is in no layer"});
}

TEST_F(SourceRules, CycleIsFound) {
  add("xport/text/a.h", "#include \"xport/text/b.h\"\n");
  add("xport/text/b.h", "#include \"c.h\"\n");
  add("xport/text/c.h", "#include \"xport/text/a.h\"\n");
  EXPECT_EQ(check_cycles(tree()), findings{"include cycle: xport/text/a.h -> xport/text/b.h -> "
                                           "xport/text/c.h -> xport/text/a.h"});
}

TEST_F(SourceRules, TwoRoadsToOneFileAreNoCycle) {
  add("xport/text/a.h", "#include \"xport/text/b.h\"\n#include \"xport/text/c.h\"\n");
  add("xport/text/b.h", "#include \"xport/text/c.h\"\n");
  add("xport/text/c.h", "");
  EXPECT_EQ(check_cycles(tree()), none);
}

TEST_F(SourceRules, OtherThanAsciiIsFoundWithItsLine) {
  add("report/a.cpp", "int a;\nint b;  // caf\xC3\xA9\n");
  add("CMakeLists.txt", "# \xE2\x80\x93\n");
  EXPECT_EQ(check_ascii(tree()),
            (findings{"CMakeLists.txt:1: is not ASCII", "report/a.cpp:2: is not ASCII"}));
}

TEST_F(SourceRules, GuardIsNamedByThePath) {
  add("xport/text/a.h", "// Rights.\n#ifndef XPORT_TEXT_A_H\n#define XPORT_TEXT_A_H\n#endif\n");
  add("include/vellomark/b.h", "#ifndef VELLOMARK_B_H\n#define VELLOMARK_B_H\n#endif\n");
  add("tests/c.h", "#ifndef ANY_NAME\n#define ANY_NAME\n#endif\n");
  EXPECT_EQ(check_guards(tree()), none);
}

TEST_F(SourceRules, MissingOrWrongGuardIsFound) {
  add("xport/text/a.h", "int a;\n");
  add("xport/text/b.h", "#ifndef XPORT_TEXT_B_H\n#define XPORT_TEXT_C_H\n#endif\n");
  add("xport/text/c.h", "#ifndef OTHER_H\n#define OTHER_H\n#endif\n");
  EXPECT_EQ(
      check_guards(tree()),
      (findings{"xport/text/a.h: has no include guard", "xport/text/b.h: has no include guard",
                "xport/text/c.h: has the guard OTHER_H instead of XPORT_TEXT_C_H"}));
}

TEST_F(SourceRules, OwnHeaderComesFirst) {
  add("report/a.h", "");
  add("report/a.cpp", "#include <string>\n#include \"report/a.h\"\n");
  add("report/b.h", "");
  add("report/b.cpp", "#include \"report/b.h\"\n#include <string>\n");
  EXPECT_EQ(check_own_header_first(tree()),
            findings{"report/a.cpp: does not include report/a.h first"});
}

TEST_F(SourceRules, PrintingIsFound) {
  add("report/a.cpp", "#include <iostream>\n");
  add("report/b.cpp", "void f() { std::printf(\"x\"); }\n");
  add("platform/c.cpp", "void f() { std::clog << 1; }\n");
  EXPECT_EQ(check_silence(tree()),
            (findings{"platform/c.cpp: uses clog", "report/a.cpp: includes <iostream>",
                      "report/b.cpp: uses printf("}));
}

TEST_F(SourceRules, WordsInCommentsAndTextsAreNoPrinting) {
  add("report/a.cpp",
      "// printf(x) and cout\n/* exit( */ const char* a = \"\\\"cerr abort(\";\n"
      "const int b = 1'000'000; const char c = '\"';  // cout\n");
  add("examples/b.cpp", "#include <iostream>\nvoid f() { std::cout << 1; }\n");
  add("tests/c.cpp", "#include <cstdio>\n");
  EXPECT_EQ(check_silence(tree()), none);
}

TEST_F(SourceRules, BuildFoldersAreNotRead) {
  add("build/dev/a.h", "");
  add(".git/b.h", "");
  add("report/build/c.h", "");
  EXPECT_EQ(tree().size(), 1u);
}

TEST_F(SourceRules, MissingRootIsAnError) {
  EXPECT_THROW(read_source_tree(root_.path() / "gone"), std::runtime_error);
}

}  // namespace
}  // namespace test
