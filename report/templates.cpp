#include <utility>

#include "report/vellomark_obj.h"
#include "report/written_text.h"
#include "xport/parser/read_document.h"

using Xport::attr_id;
using Xport::descendant_markup_iterator;
using Xport::markup_iterator;
using Xport::tag_id;
using Xport::ustring;
using Xport::xhtml_doc;
using Xport::xhtml_markup;

namespace {

using segment = std::vector<markup_iterator>;

// The child that makes `node` a marker: what a writer makes of it is the field's text.
// Null for a node that is none.
const xhtml_markup* MarkerContent(const xhtml_markup& node) {
  const Xport::attribute_map* const attributes = node.attributes();
  const bool is_marker = attributes != nullptr && (*attributes)[attr_id::id] == u"Template";
  return is_marker ? node.first_child() : nullptr;
}

void CollectTemplateField(const xhtml_markup& node, std::vector<ustring>& fields) {
  if (const xhtml_markup* const content = MarkerContent(node))
    fields.push_back(WrittenText(*content));
}

bool IsTemplateField(const xhtml_markup& node, const ustring& field) {
  const xhtml_markup* const content = MarkerContent(node);
  return content != nullptr && WrittenText(*content) == field;
}

std::vector<ustring> CollectTemplateFields(xhtml_doc& page) {
  std::vector<ustring> fields;
  const descendant_markup_iterator end = page.descendant_end();
  for (descendant_markup_iterator at = page.descendant_begin(); at != end; ++at)
    CollectTemplateField(*at, fields);
  return fields;
}

// The first one of the page. Null if it has none.
xhtml_markup* TemplateBody(xhtml_doc& page) {
  const descendant_markup_iterator end = page.descendant_end();
  for (descendant_markup_iterator at = page.descendant_begin(); at != end; ++at)
    if (at->tag() == tag_id::body) return &*at;
  return nullptr;
}

// Cuts the body at the blocks whose first child is a marker. These go; so does all that
// isn't an element. A marker is taken for the next field of the page only: where a field
// stands elsewhere, the next one in its place isn't it, and nothing is cut from there on.
std::list<segment> SplitTemplate(xhtml_doc& page, const std::vector<ustring>& fields) {
  std::list<segment> segments;
  xhtml_markup* const body = TemplateBody(page);
  if (body == nullptr) return segments;
  auto field = fields.begin();
  segment current;
  for (markup_iterator at = body->begin(); at != body->end(); ++at) {
    if (at->as_element() == nullptr) continue;
    if (at->tag() == tag_id::p && field != fields.end() && IsTemplateField(*at->begin(), *field)) {
      segments.push_back(std::move(current));
      current.clear();
      ++field;
    } else {
      current.push_back(at);
    }
  }
  segments.push_back(std::move(current));
  return segments;
}

}  // namespace

// What is cleared takes the positions in it along, so nothing of the old template may
// be left when the new one is read. The page is cleared when nothing can fail any more.
void VellomarkObj::LoadTemplate(const char16_t* path) {
  if (path == nullptr) return;
  std::unique_ptr<Xport::byte_input> file = files.open_for_reading(path);
  if (!file) return;
  template_fields = {};
  template_segments.clear();
  Xport::read_document(template_doc, std::move(file));

  std::vector<ustring> texts = CollectTemplateFields(template_doc);
  std::list<segment> segments = SplitTemplate(template_doc, texts);
  field_texts fields(std::move(texts));
  ClearPage();
  template_fields = std::move(fields);
  template_segments.swap(segments);
}

bool VellomarkObj::SetTemplateField(const char16_t* name, bool replace, const char16_t* value) {
  if (name == nullptr || !template_fields.contains(name)) return false;
  if (replace && value != nullptr) {
    ustring text(value);
    FlushTemplateSegment();
    template_fields.replace(name, std::move(text));
  }
  return true;
}

void VellomarkObj::GetTemplateFields(zov_shared_array<CZovString>& fields) {
  fields.clear();
  for (const ustring& field : template_fields) fields.push_back(CZovString(field.c_str()));
}

void VellomarkObj::ClearTemplateFields() { template_fields = {}; }

// Puts the next piece of the template on the page; what follows goes into a new block
// behind it. What is on the page has left the piece, and the piece goes last: another
// call completes what an exception interrupted.
void VellomarkObj::FlushTemplateSegment() {
  if (!doc || template_segments.empty()) {
    StartParagraph();
    return;
  }
  segment& next = template_segments.front();
  auto at = next.begin();
  try {
    for (; at != next.end(); ++at) doc->body()->append_copy(**at);
  } catch (...) {
    next.erase(next.begin(), at);
    throw;
  }
  next.clear();
  StartParagraph();
  template_segments.pop_front();
}
