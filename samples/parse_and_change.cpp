#include <vellomark/samples.h>

#include "platform/file_system.h"
#include "samples/add_element.h"
#include "samples/string_resources.h"
#include "xport/markup/descendant_markup_iterator.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/read_document.h"

namespace {

struct replacement {
  Xport::ustring_view id;
  Xport::ustring_view text;
};

constexpr replacement replacements[] = {
    {u"elem1", u"Element4"},
    {u"elem2", u"Element3"},
    {u"elem3", u"Element2"},
    {u"elem4", u"Element1"},
};

// False if there is no such element.
bool replace_content(Xport::xhtml_doc& doc, const replacement& change) {
  const Xport::descendant_markup_iterator found =
      Xport::find_by_id(doc.descendant_begin(), doc.descendant_end(), change.id);
  if (found == doc.descendant_end()) return false;
  // Only elements have an id.
  found->as_element()->clear_children();
  found->append_text(change.text);
  return true;
}

}  // namespace

namespace vellomark {

bool ParseAndChangeSampleVellomark(const char16_t* source_path, const char16_t* target_path) {
  if (source_path == nullptr || target_path == nullptr) return false;
  platform::file_system& files = platform::file_system::native();

  Xport::xhtml_doc doc(0);
  if (!Xport::read_document(doc, files.open_for_reading(source_path))) return false;

  const Xport::ustring_view header = samples::string_resource(102);
  bool complete = !header.empty();
  if (Xport::xhtml_markup* const body = doc.body())
    samples::add_text_element(*body, Xport::tag_id::h1, header);
  for (const replacement& change : replacements) complete &= replace_content(doc, change);

  return Xport::write_document(doc, files.open_for_writing(target_path)) && complete;
}

}  // namespace vellomark
