// Runs the program that the page about templates shows.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "tests/examples/host_test.h"

namespace test {
namespace {

namespace fs = std::filesystem;

const fs::path samples = DOCS_DIR "/samples";

TEST(FillTemplate, PutsItsContentWhereTheMarkersStand) {
  const temp_folder scratch;
  fs::copy_file(samples / "delivery_note.htm", scratch.path() / "delivery_note.htm");
  const process_result result =
      run_process({"env", "-C", scratch.path().string(), FILL_TEMPLATE_PROGRAM});
  EXPECT_EQ(result.exit_code, 0) << result.err;

  const std::string page = page_as_utf8(scratch.path() / "Vellomark/note.htm");
  const std::size_t body = page.find("  <body>\n");
  ASSERT_NE(body, std::string::npos);
  EXPECT_EQ(page.substr(body), R"(  <body>
    <h1>
      Delivery note
    </h1>
    <p>
      <a>Ada Lovelace, London</a><br/>
    </p>
    <p>
      This is what we sent you:
    </p>
    <p>
    </p>
    <table border='1' class='main' width='100%'>
      <tr>
        <td valign='top'>
          Ribbon
        </td>
        <td valign='top'>
          3
        </td>
      </tr>
      <tr>
        <td valign='top'>
          Ink
        </td>
        <td valign='top'>
          1
        </td>
      </tr>
    </table>
    <p>
    </p>
    <p>
      With our best wishes
    </p>
    <p>
    </p>
  </body>
</html>
)");
}

}  // namespace
}  // namespace test
