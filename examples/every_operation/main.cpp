// Calls every operation and saves the page as Vellomark/every_operation.htm in the folder that the
// argument names. Some calls are unusual, to show their results, so parts of the page aren't valid;
// the tests say which and why. No template is loaded, since it would replace the page:
// template_report fills one.
#include <initializer_list>
#include <iostream>
#include <stdexcept>
#include <string>

#include <vellomark/vellomark.h>

namespace {

// Adds texts one by one: lines of a block, or cells of the open table.
void add_texts(IVellomark& report, std::initializer_list<const char16_t*> texts) {
  for (const char16_t* text : texts) report.AddText(text, false);
}

void add_headings(IVellomark& report) {
  report.AddHeading(u"<span id='Headings'>Headings</span>", 1);
  report.AddHeading(u"Style 2", 2);
  report.AddHeading(u"Style 3", 3);
  report.AddHeading(u"Style 4", 4);
  report.AddHeading(u"Style 0, an empty class", 0);
  report.AddHeading(u"Style -1, an empty class too", -1);
  report.AddHeading(u"Style 5, a line of text", 5);
}

void add_blocks(IVellomark& report) {
  report.AddHeading(u"<span id='Blocks'>Blocks</span>", 1);
  add_texts(report, {u"A line", u"A second one, with\na line feed", u"",
                     u"Scripts: \u0395\u03BB\u03BB\u03B7\u03BD\u03B9\u03BA\u03AC, "
                     u"\u0440\u0443\u0441\u0441\u043A\u0438\u0439, \u4E2D\u6587, \U00010348",
                     u"References: &lt; &amp; &#169;", u"Markup: <em>own</em>"});
  report.NewParagraph();
  report.NewParagraph();
  report.AddText(u"Behind an empty block", false);
}

void add_links(IVellomark& report) {
  report.AddHeading(u"<span id='Links'>Links</span>", 1);
  report.AddLink(nullptr, u"Headings");
  report.AddLink(u"left out on the page", u"Blocks");
  report.AddText(nullptr, false);
  report.AddLink(u"left out", nullptr);
  report.AddLink(nullptr, nullptr);
  report.OpenTable(2);
  report.AddLink(u"To the tables: ", u"Tables");
  report.AddLink(nullptr, u"Links");
  report.AddLink(u"No link", nullptr);
  report.AddText(u"Text", false);
  report.CloseTable();
}

void add_tables(IVellomark& report) {
  report.AddHeading(u"<span id='Tables'>Tables</span>", 1);
  report.OpenTable(3);
  add_texts(report, {u"1", u"2", u"3", u"4", u"5", u"6", u"a row that isn't full"});
  report.CloseTable();
  report.OpenTable(2);
  report.SetFirstCellRows(3);
  add_texts(report, {u"spans three rows", u"a", u"b", u"c"});
  report.SetFirstCellRows(1);
  add_texts(report, {u"spans one row", u"d"});
  report.CloseTable();
  report.OpenTable(1);
  add_texts(report, {u"one column", u"two cells"});
  report.AddHeading(u"A heading after the open table", 2);
  report.AddText(u"in the table", false);
  report.CloseTable();
  report.CloseTable();
  report.OpenTable(2);
  add_texts(report, {u"two\nlines", u"three\nlines\nhere"});
  report.CloseTable();
  report.OpenTable(2);
  report.CloseTable();
}

// In section mode, content is dropped while there is no section.
void use_section_mode(IVellomark& report) {
  report.AddHeading(u"Section mode", 1);
  report.SetSectionMode(true);
  report.AddText(u"left out", false);
  report.OpenTable(2);
  report.AddText(u"left out", false);
  report.CloseTable();
  report.BeginDirectLinks();
  report.AddText(u"On the page by direct links", false);
  report.AddLink(nullptr, u"Headings");
  report.EndDirectLinks();
  report.SetSectionMode(false);
  report.AddText(u"Behind section mode", false);
}

// Save adds the sections to the end of the page. The third one comes right after the first there,
// because they share a heading. The last heading has no section and isn't written.
void add_sections(IVellomark& report) {
  report.AddHeading(u"Sections", 1);
  report.AddSectionHeading(u"Shared", 2);
  report.AddSectionHeading(u"Above the first", 3);
  report.BeginSection(u"First", nullptr);
  report.AddText(u"In the first section", true);

  report.BeginDirectLinks();
  report.BeginSection(u"left out on the page", u"Second");
  report.EndDirectLinks();
  report.SetSectionMode(true);
  report.AddText(u"In the second section, above its table", false);
  report.OpenTable(2);
  report.SetFirstCellRows(2);
  add_texts(report, {u"spans two rows", u"a", u"b"});
  report.CloseTable();
  report.AddText(u"and below", false);

  report.AddSectionHeading(u"Shared", 2);
  report.AddSectionHeading(u"Above the third", 3);
  report.AddSectionHeading(nullptr, 4);
  report.BeginSection(nullptr, u"left out");
  report.BeginSection(u"", nullptr);
  report.AddText(u"In a section without a name", false);
  report.BeginDirectLinks();
  report.BeginSection(u"left out", u"left out");
  report.EndDirectLinks();
  report.SetSectionMode(false);
  report.AddSectionHeading(u"left out", 2);
}

// In section mode a table that isn't open can't be closed.
bool close_no_section_table(IVellomark& report) {
  report.SetSectionMode(true);
  try {
    report.CloseTable();
  } catch (const std::out_of_range&) {
    report.SetSectionMode(false);
    return true;
  }
  return false;
}

// A template that can't be opened changes nothing.
bool use_no_template(IVellomark& report) {
  report.LoadTemplate(u"");
  zov_shared_array<CZovString> fields;
  report.GetTemplateFields(fields);
  report.ClearTemplateFields();
  return fields.empty() && !report.SetTemplateField(u"none", false, nullptr);
}

// The folder's name must be ASCII.
std::u16string widen(const std::string& text) { return {text.begin(), text.end()}; }

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::cerr << "every_operation: usage: every_operation FOLDER\n";
    return 2;
  }
  const std::string folder = argv[1];
  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  add_headings(*report);
  add_blocks(*report);
  add_links(*report);
  add_tables(*report);
  use_section_mode(*report);
  add_sections(*report);
  if (!close_no_section_table(*report) || !use_no_template(*report) ||
      !report->Save(widen(folder).c_str(), u"every_operation.htm")) {
    std::cerr << "every_operation: cannot write below " << folder << '\n';
    return 1;
  }
  std::cout << folder << "/Vellomark/every_operation.htm" << std::endl;
  return 0;
}
