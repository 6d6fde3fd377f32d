// A host as anybody may write one, in C++11: builds a report with the installed library,
// saves it below the folder named by the first argument and reads the page back.
// Answers 0 if the page holds what it should, else a message and 1.
#include <vellomark/vellomark.h>

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

namespace {

// The units of `text`, which is ASCII, as they stand in a little-endian page.
std::string units(const std::string& text) {
  std::string bytes;
  for (char c : text) {
    bytes += c;
    bytes += '\0';
  }
  return bytes;
}

bool fail(const std::string& message) {
  std::cerr << "host: " << message << '\n';
  return false;
}

bool write_report(const std::u16string& folder) {
  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  report->AddHeading(u"Consumer heading", 1);
  report->AddText(u"Consumer text", false);
  if (!report->OpenTable(2)) return fail("the table was refused");
  report->AddText(u"left cell", false);
  report->AddText(u"right cell", false);
  report->CloseTable();
  zov_shared_array<CZovString> fields;
  report->GetTemplateFields(fields);
  if (!fields.empty()) return fail("a report without a template has fields");
  return report->Save(folder.c_str(), u"consumer.htm") || fail("the report was not saved");
}

bool check_page(const std::string& path) {
  std::ifstream file(path.c_str(), std::ios::binary);
  if (!file) return fail("there is no page " + path);
  const std::string page((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (page.compare(0, 4, std::string("\xFF\xFE<\0", 4)) != 0)
    return fail("the page does not begin with a byte-order mark and markup");
  for (const char* text : {"<h1", "Consumer heading", "Consumer text", "<table", "left cell",
                           "right cell", "</html>"}) {
    if (page.find(units(text)) == std::string::npos)
      return fail(std::string("the page lacks ") + text);
  }
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    fail("usage: host FOLDER");
    return 2;
  }
  const std::string folder = argv[1];
  const std::u16string wide_folder(folder.begin(), folder.end());  // the folder's name is ASCII
  return write_report(wide_folder) && check_page(folder + "/Vellomark/consumer.htm") ? 0 : 1;
}
