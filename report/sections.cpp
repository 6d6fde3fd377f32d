#include <utility>

#include "report/section_index.h"
#include "report/vellomark_obj.h"

using report::PagePath;
using report::ReportSection;
using report::SectionIndex;
using Xport::tag_id;
using Xport::ustring;
using Xport::xhtml_element;

namespace {

// The section that shares the most leading headings with `path`. If none shares any, empties
// `path` and returns the first section that remains; null if there is none.
const SectionIndex::Entry* NextSection(SectionIndex& index, PagePath& path) {
  if (path.node != nullptr)
    if (const SectionIndex::Entry* const closest = index.Closest(path.node)) return closest;
  path = PagePath();
  return index.First();
}

}  // namespace

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

// Content that is on the page leaves its section, and a section leaves the list after its
// last element. The next call then completes what an exception interrupted.
void VellomarkObj::WriteSections(const ustring& folder, const ustring& stem) {
  if (sections.empty()) return;
  const ustring picture_link = stem + u"_files\\";
  const ustring picture_folder = folder + picture_link;
  files.create_directory(picture_folder);  // Not reported: then no picture can be copied.

  SectionIndex index(sections);
  PagePath path;
  while (const SectionIndex::Entry* const next = NextSection(index, path)) {
    // The section is about to change. If an exception interrupts it, the next call starts
    // with the rest of it.
    sections.splice(sections.begin(), sections, next->section);
    PlaceHeadings(*next, path);
    StartParagraph();
    ReportSection& section = *next->section;
    if (!section.name.empty()) {
      pending_id = u"#" + section.name;
      AddHeading(section.name.c_str(), 4);
      section.name.clear();
    }
    while (!section.elements.empty()) PlaceElement(section.elements, picture_folder, picture_link);
    index.Take(*next);
    sections.erase(next->section);
  }
}

// Headings are compared position by position, so one may be left out although one above it
// differs.
void VellomarkObj::PlaceHeadings(const SectionIndex::Entry& next, PagePath& path) {
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

// A table is a child of the body, between two paragraphs; other elements go into the current
// paragraph.
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
