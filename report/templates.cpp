#include "report/vellomark_obj.h"

void VellomarkObj::LoadTemplate(const char16_t*) {}

bool VellomarkObj::SetTemplateField(const char16_t*, bool, const char16_t*) { return false; }

void VellomarkObj::GetTemplateFields(zov_shared_array<CZovString>& fields) {
  fields.clear();
  for (const Xport::ustring& field : template_fields) fields.push_back(CZovString(field.c_str()));
}

void VellomarkObj::ClearTemplateFields() { template_fields.clear(); }

// Puts the next piece of the template on the page; what follows goes into a new
// block behind it.
void VellomarkObj::FlushTemplateSegment() {
  if (doc && !template_segments.empty()) {
    for (const Xport::markup_iterator& position : template_segments.front())
      doc->body()->append_copy(*position);
    template_segments.pop_front();
  }
  StartParagraph();
}
