#include "tests/report/sections/plain_sections.h"

#include <algorithm>

namespace test {
namespace {

using path_texts = std::vector<ustring>;

// The body as text. It ends with the block to which lines are added.
class plain_page {
 public:
  void start_block() { text_ += u"    <p>\n    </p>\n"; }

  void add_line(const ustring& line) {
    const ustring end = u"    </p>\n";
    text_.resize(text_.size() - end.size());
    text_ += u"      <a>" + line + u"</a><br/>\n" + end;
  }

  void add_heading(const ustring& text, std::int32_t style, const ustring& id = {}) {
    if (style >= 5) return add_line(text);
    const ustring number(1, style < 1 ? u'5' : static_cast<char16_t>(u'0' + style));
    text_ += u"    <h" + number + u" class='" + (style < 1 ? u"" : u"Style" + number) + u"'";
    if (!id.empty()) text_ += u" id='" + id + u"'";
    text_ += u">\n      " + text + u"\n    </h" + number + u">\n";
    start_block();
  }

  void add_table(const ustring& cell) {
    start_block();
    text_ +=
        u"    <table border='1' class='main' width='100%'>\n      <tr>\n"
        u"        <td valign='top'>\n          " +
        cell + u"\n        </td>\n      </tr>\n    </table>\n";
    start_block();
  }

  const ustring& text() const { return text_; }

 private:
  ustring text_;
};

using section_position = std::list<plain_section>::iterator;

// Places the headings of the section that comes next; none comes if there is a path
// and no section shares its first heading.
section_position next_section(std::list<plain_section>& sections, path_texts& path,
                              plain_page& page) {
  if (path.empty()) {
    const section_position first = sections.begin();
    path = first->headings;
    for (std::size_t i = 0; i < first->headings.size(); ++i)
      page.add_heading(first->headings[i], first->styles[i]);
    return first;
  }
  std::size_t most = 0;
  section_position chosen = sections.end();
  for (section_position each = sections.begin(); each != sections.end(); ++each) {
    const std::size_t shared = shared_headings(each->headings, path);
    if (shared <= most) continue;
    most = shared;
    chosen = each;
  }
  if (chosen == sections.end()) return chosen;
  bool added = false;
  for (std::size_t i = 0; i < chosen->headings.size(); ++i) {
    if (i < path.size() && path[i] == chosen->headings[i]) continue;
    page.add_heading(chosen->headings[i], chosen->styles[i]);
    added = true;
  }
  if (added) path = chosen->headings;
  return chosen;
}

}  // namespace

std::size_t shared_headings(const path_texts& a, const path_texts& b) {
  std::size_t count = 0;
  while (count < a.size() && count < b.size() && a[count] == b[count]) ++count;
  return count;
}

ustring plain_body(std::list<plain_section> sections) {
  plain_page page;
  page.start_block();
  path_texts path;
  while (!sections.empty()) {
    const section_position section = next_section(sections, path, page);
    if (section == sections.end()) {
      path.clear();
      continue;
    }
    page.start_block();
    if (!section->name.empty()) page.add_heading(section->name, 4, u"#" + section->name);
    for (const plain_element& element : section->elements) {
      if (element.is_table)
        page.add_table(element.text);
      else
        page.add_line(element.text);
    }
    sections.erase(section);
  }
  return page.text();
}

}  // namespace test
