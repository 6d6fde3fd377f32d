#include "report/vellomark_obj.h"

using Xport::tag_id;
using Xport::ustring;
using Xport::xhtml_element;

void VellomarkObj::BeginSection(const char16_t*, const char16_t*) {}

void VellomarkObj::AddSectionHeading(const char16_t*, std::int32_t) {}

// Text for an open section table is a cell, other text a line of the last section.
// Without a section there is nothing to take it.
void VellomarkObj::AppendSectionText(const char16_t* text) {
  if (text == nullptr) return;
  if (!table_stack.empty()) {
    if (in_table) AppendCell(text, true);
    return;
  }
  if (sections.empty()) return;
  xhtml_element line(tag_id::a, {}, {});
  line.insert_text(line.end(), text);
  std::list<xhtml_element>& elements = sections.back().elements;
  elements.push_back(line);
  elements.push_back(xhtml_element(tag_id::br, {}, {}));
}

// Sections can't be made yet, so there are never any to be placed.
void VellomarkObj::WriteSections(ustring, ustring) {}
