// Real pages: the HTML files that this machine has. VELLOMARK_CORPUS_DIR names another folder to
// look for them in, and VELLOMARK_CORPUS_FILES=all lifts the limits of an ordinary run.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "tests/support/golden.h"
#include "tests/support/guarded_parser.h"
#include "tests/support/round_trip.h"
#include "tests/support/tree_check.h"
#include "tests/support/tree_outline.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/read_document.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t most_files = 300;
constexpr std::uintmax_t most_bytes = 4'000'000;

std::string setting(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

bool takes_all() { return setting("VELLOMARK_CORPUS_FILES") == "all"; }

bool is_page(const fs::path& path) {
  const std::string extension = path.extension().string();
  return extension == ".html" || extension == ".htm" || extension == ".xhtml";
}

// Adds the pages below `folder`. Skips what can't be opened.
void find_pages(const fs::path& folder, std::vector<fs::path>& pages) {
  std::error_code error;
  constexpr auto options = fs::directory_options::skip_permission_denied;
  for (fs::recursive_directory_iterator at(folder, options, error), end; !error && at != end;
       at.increment(error)) {
    std::error_code unknown;
    if (is_page(at->path()) && at->is_regular_file(unknown)) pages.push_back(at->path());
  }
}

// A sample of the files, unless all are to be read.
std::vector<fs::path> choose(std::vector<fs::path> pages) {
  std::sort(pages.begin(), pages.end());
  if (takes_all() || pages.empty()) return pages;
  std::vector<fs::path> chosen;
  std::uintmax_t bytes = 0;
  const std::size_t step = pages.size() / most_files + 1;
  for (std::size_t i = 0; i < pages.size(); i += step) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(pages[i], error);
    if (error || bytes + size > most_bytes) continue;
    bytes += size;
    chosen.push_back(pages[i]);
  }
  return chosen;
}

std::string bytes_of(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

// UTF-8, or else Latin-1, as most old pages are.
ustring units_of(const std::string& bytes) {
  try {
    return from_utf8(bytes);
  } catch (const std::runtime_error&) {
    ustring text;
    for (const char byte : bytes) text += static_cast<unsigned char>(byte);
    return text;
  }
}

std::size_t count_by_walk(xhtml_doc& doc) {
  std::size_t count = 0;
  for (auto at = doc.descendant_begin(); at != doc.descendant_end(); ++at) ++count;
  return count - 1;  // without the root
}

std::size_t count_by_outline(const std::vector<ustring>& outline) {
  return outline.size() -
         static_cast<std::size_t>(std::count(outline.begin(), outline.end(), ustring(u"/")));
}

template <class Parser>
void read_into(xhtml_doc& doc, Parser& parser, const round_trip_options& options) {
  ustring_stream messages;
  parser.normalize_text = options.normalize_text;
  parser.preserve_newlines = options.preserve_newlines;
  parser.message_mask = level_structure | level_end_tag;
  parser.messages = &messages;
  parse_page(parser, *doc.root());
  doc.reindex();
}

class Corpus : public testing::Test {
 protected:
  void read_page(const ustring& text, const round_trip_options& options) {
    xhtml_doc doc(0);
    std::basic_istringstream<char16> stream(text);
    guarded_parser parser(&stream);
    read_into(doc, parser, options);

    EXPECT_TRUE(is_intact(*doc.root()));
    const std::vector<ustring> outline = outline_of(*doc.root());
    const std::size_t nodes = count_by_outline(outline);
    EXPECT_EQ(count_by_walk(doc), nodes);
    EXPECT_EQ(round_trip_fault(*doc.root(), options), "");
    if (parser.met_endless())
      ++endless_;
    else
      EXPECT_EQ(outline_difference(unguarded_outline(text, options), outline), "");

    const char* const exemption = round_trip_exemption(*doc.root(), options);
    ++outcomes_[exemption != nullptr ? exemption : "the same tree comes back"];
    nodes_ += nodes;
  }

  void tell(std::size_t found, std::size_t read, std::size_t bytes) const {
    std::cout << "Read " << read << " of the " << found << " HTML files that were found (" << bytes
              << " bytes, " << nodes_ << " nodes in two ways of reading each).\n";
    for (const auto& [outcome, count] : outcomes_)
      std::cout << "  " << count << " trees: " << outcome << "\n";
    std::cout << "  " << endless_ << " trees hold a style text whose reading never ends\n";
  }

 private:
  // The outline of a page that the parser reads to its end.
  static std::vector<ustring> unguarded_outline(const ustring& text,
                                                const round_trip_options& options) {
    xhtml_doc doc(0);
    std::basic_istringstream<char16> stream(text);
    xhtml_parser parser(&stream);
    read_into(doc, parser, options);
    return outline_of(*doc.root());
  }

  std::map<std::string, std::size_t> outcomes_;
  std::size_t nodes_ = 0;
  std::size_t endless_ = 0;
};

TEST_F(Corpus, RealPagesAreReadWrittenAndReadAgain) {
  std::vector<fs::path> pages;
  const std::string folder = setting("VELLOMARK_CORPUS_DIR");
  find_pages(folder.empty() ? "/usr/share" : folder, pages);
  if (pages.empty()) GTEST_SKIP() << "there are no HTML files on this machine";

  round_trip_options plain;
  round_trip_options other;
  other.normalize_text = true;
  other.preserve_newlines = true;
  other.double_quotes = true;
  other.max_line_length = 80;
  const std::vector<fs::path> chosen = choose(pages);
  std::size_t bytes = 0;
  for (const fs::path& path : chosen) {
    SCOPED_TRACE(path.string());
    const std::string content = bytes_of(path);
    bytes += content.size();
    const ustring text = units_of(content);
    read_page(text, plain);
    read_page(text, other);
  }
  RecordProperty("files", std::to_string(chosen.size()));
  tell(pages.size(), chosen.size(), bytes);
}

}  // namespace
}  // namespace test
