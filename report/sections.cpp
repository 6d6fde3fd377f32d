#include <utility>

#include "report/section_index.h"
#include "report/vellomark_obj.h"

using Xport::tag_id;
using Xport::ustring;
using Xport::xhtml_element;

void VellomarkObj::SetSectionMode(bool on) { section_mode = on; }

void VellomarkObj::BeginDirectLinks() { direct_links = true; }

void VellomarkObj::EndDirectLinks() { direct_links = false; }

void VellomarkObj::AddSectionHeading(const char16_t* text, std::int32_t style) {
  if (text == nullptr) return;
  std::list<ustring> texts(1, text);
  path_styles.push_back(style);
  path_texts.splice(path_texts.end(), texts);
}

void VellomarkObj::BeginSection(const char16_t* name, const char16_t* target) {
  if (name == nullptr || (direct_links && section_mode)) return;
  if (direct_links && target == nullptr) return;
  ReportSection section;
  section.name = direct_links ? target : name;
  sections.push_back(std::move(section));
  sections.back().heading_texts.swap(path_texts);
  sections.back().heading_styles.swap(path_styles);
  if (direct_links) AddLink(name, target);
}

// Text for an open section table is a cell, other text a line of the last section.
// Without a section there is nothing to take it.
void VellomarkObj::AppendSectionText(const char16_t* text) {
  if (text == nullptr) return;
  if (!table_stack.empty()) {
    if (state.in_table) AppendCell(text, true);
    return;
  }
  if (sections.empty()) return;
  std::list<xhtml_element> line;
  line.emplace_back(tag_id::a, u"", u"").append_text(text);
  line.emplace_back(tag_id::br, u"", u"");
  std::list<xhtml_element>& elements = sections.back().elements;
  elements.splice(elements.end(), line);
}

// Sections that share headings come together: next is the one that has most of
// the page's last headings, and where none has any, the first one made. Content
// that is on the page leaves the record, and the record leaves the list with the last
// of it: another call completes what an exception interrupted.
void VellomarkObj::WriteSections(ustring folder, ustring stem) {
  stem += u"_files\\";  // now the folder of pictures as the page names it
  folder += stem;       // and as the disk does
  if (sections.empty()) return;
  files.create_directory(folder);

  section_index index(sections);
  PagePath path;
  while (const section_index::entry* const next = NextSection(index, path)) {
    // From here on it is changed: the rest of it comes first in another call.
    sections.splice(sections.begin(), sections, next->section);
    PlaceHeadings(*next, path);
    StartParagraph();
    ReportSection& section = *next->section;
    if (!section.name.empty()) {
      pending_id = u"#" + section.name;
      AddHeading(section.name.c_str(), 4);
      section.name.clear();
    }
    while (!section.elements.empty()) PlaceElement(section.elements, folder, stem);
    index.take(*next);
    sections.erase(next->section);
  }
}

const section_index::entry* VellomarkObj::NextSection(section_index& index, PagePath& path) {
  if (path.node != nullptr)
    if (const section_index::entry* const closest = index.closest(path.node)) return closest;
  path = PagePath();
  return index.first();
}

// Headings are compared place by place, so one may be left out although one above
// it differs.
void VellomarkObj::PlaceHeadings(const section_index::entry& next, PagePath& path) {
  ReportSection& section = *next.section;
  bool added = false;
  auto style = section.heading_styles.begin();
  std::size_t place = 0;
  for (const ustring& text : section.heading_texts) {
    if (place >= path.texts.size() || path.texts[place] != text) {
      AddHeading(text.c_str(), *style);
      added = true;
    }
    ++place;
    ++style;
  }
  if (added) {
    path.texts.assign(section.heading_texts.begin(), section.heading_texts.end());
    path.node = next.path;
  }
  section.heading_texts.clear();
  section.heading_styles.clear();
}

// Moves the first element to the page: a table between blocks, else into the
// block, as a picture if it names one.
void VellomarkObj::PlaceElement(std::list<xhtml_element>& elements, const ustring& picture_folder,
                                const ustring& picture_link) {
  if (elements.front().tag() == tag_id::table) {
    StartParagraph();
    doc->body()->append_copy(elements.front());
    elements.pop_front();
    StartParagraph();
    return;
  }
  RelocatePicture(elements, picture_folder, picture_link);
  state.cursor->push_back_copy(elements.front());
  elements.pop_front();
}
