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

using Segment = std::vector<markup_iterator>;

// The first child of `node` if `node` is a marker, else null. The text of the field is that
// child as it is written.
const xhtml_markup* MarkerContent(const xhtml_markup& node) {
  const Xport::attribute_map* const attributes = node.attributes();
  const bool is_marker = attributes != nullptr && (*attributes)[attr_id::id] == u"Template";
  return is_marker ? node.first_child() : nullptr;
}

void CollectTemplateField(const xhtml_markup& node, std::vector<ustring>& fields) {
  if (const xhtml_markup* const content = MarkerContent(node))
    fields.push_back(report::WrittenText(*content));
}

bool IsTemplateField(const xhtml_markup& node, const ustring& field) {
  const xhtml_markup* const content = MarkerContent(node);
  return content != nullptr && report::WrittenText(*content) == field;
}

std::vector<ustring> CollectTemplateFields(xhtml_doc& page) {
  std::vector<ustring> fields;
  const descendant_markup_iterator end = page.descendant_end();
  for (descendant_markup_iterator at = page.descendant_begin(); at != end; ++at)
    CollectTemplateField(*at, fields);
  return fields;
}

// The first body of the page; null if it has none.
xhtml_markup* TemplateBody(xhtml_doc& page) {
  const descendant_markup_iterator end = page.descendant_end();
  for (descendant_markup_iterator at = page.descendant_begin(); at != end; ++at)
    if (at->tag() == tag_id::body) return &*at;
  return nullptr;
}

// Cuts the body at each `p` whose first child is the marker of the next field. That `p`
// belongs to no segment, and neither does any child that isn't an element. A field whose
// marker is elsewhere never matches, so there are no further cuts.
std::list<Segment> SplitTemplate(xhtml_doc& page, const std::vector<ustring>& fields) {
  std::list<Segment> segments;
  xhtml_markup* const body = TemplateBody(page);
  if (body == nullptr) return segments;
  auto field = fields.begin();
  Segment current;
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

// Fields and segments of the old template are dropped before the new page is read, because
// reading deletes the nodes to which the segments point. The page is cleared last, after
// the last step that can throw.
void VellomarkObj::LoadTemplate(const char16_t* path) {
  if (path == nullptr) return;
  std::unique_ptr<Xport::byte_input> file = files.open_for_reading(path);
  if (!file) return;
  template_fields = {};
  template_segments.clear();
  Xport::read_document(template_doc, std::move(file));

  std::vector<ustring> texts = CollectTemplateFields(template_doc);
  std::list<Segment> segments = SplitTemplate(template_doc, texts);
  report::FieldTexts fields(std::move(texts));
  ClearPage();
  template_fields = std::move(fields);
  template_segments.swap(segments);
}

bool VellomarkObj::SetTemplateField(const char16_t* name, bool replace, const char16_t* value) {
  if (name == nullptr || !template_fields.Contains(name)) return false;
  if (replace && value != nullptr) {
    ustring text(value);
    FlushTemplateSegment();
    template_fields.Replace(name, std::move(text));
  }
  return true;
}

void VellomarkObj::GetTemplateFields(zov_shared_array<CZovString>& fields) {
  fields.clear();
  for (const ustring& field : template_fields) fields.push_back(CZovString(field.c_str()));
}

void VellomarkObj::ClearTemplateFields() { template_fields = {}; }

// Copied nodes leave the segment even if copying a later one throws, and the segment is
// removed last. The next call then completes what the exception interrupted.
void VellomarkObj::FlushTemplateSegment() {
  if (!doc || template_segments.empty()) {
    StartParagraph();
    return;
  }
  Segment& next = template_segments.front();
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
