// A host in C++11: builds a report with the installed library, saves it in the folder that the
// argument names, writes the samples there, and reads the pages back. Returns 0 if they are right,
// otherwise prints a message and returns 1.
#include <vellomark/samples.h>
#include <vellomark/vellomark.h>

#include <fstream>
#include <initializer_list>
#include <iostream>
#include <iterator>
#include <string>

namespace {

// The bytes of `text`, which is ASCII, in a little-endian page.
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

// The list of fields outlives its report.
bool read_fields(const std::string& folder, const std::u16string& wide_folder) {
  {
    std::ofstream file((folder + "/template.htm").c_str(), std::ios::binary);
    file << units("<html><body><p><b id='Template'>Field</b></p></body></html>");
  }
  zov_shared_array<CZovString> fields;
  {
    boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
    report->LoadTemplate((wide_folder + u"/template.htm").c_str());
    report->GetTemplateFields(fields);
  }
  if (fields.size() != 1) return fail("the template does not have one field");
  return fields[0] == CZovString(u"Field") || fail("the template has another field");
}

// Both sample functions return the same, whichever string table the library has.
bool write_samples(const std::u16string& folder) {
  const std::u16string sample = folder + u"/sample.htm";
  const std::u16string changed = folder + u"/changed.htm";
  const std::u16string work = folder + u"/work.htm";
  const bool has_strings = vellomark::CreateSampleVellomark1(sample.c_str());
  if (vellomark::ParseAndChangeSampleVellomark(sample.c_str(), changed.c_str()) != has_strings)
    return fail("one sample function finds a string and the other one doesn't");
  return vellomark::CreateWorkVellomark(work.c_str()) || fail("the work report was not written");
}

bool check_page(const std::string& path, std::initializer_list<const char*> texts) {
  std::ifstream file(path.c_str(), std::ios::binary);
  if (!file) return fail("there is no page " + path);
  const std::string page((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  if (page.compare(0, 4, std::string("\xFF\xFE<\0", 4)) != 0)
    return fail("the page does not begin with a byte-order mark and markup");
  for (const char* text : texts) {
    if (page.find(units(text)) == std::string::npos)
      return fail("the page " + path + " lacks " + text);
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
  const bool good =
      write_report(wide_folder) && write_samples(wide_folder) &&
      check_page(folder + "/Vellomark/consumer.htm",
                 {"<h1", "Consumer heading", "Consumer text", "<table", "left cell", "right cell",
                  "</html>"}) &&
      check_page(folder + "/changed.htm", {"'elem1'>\n        Element4\n", "</html>"}) &&
      check_page(folder + "/work.htm", {"Decription", "</html>"});
  return good ? 0 : 1;
}
