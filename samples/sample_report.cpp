#include <vellomark/samples.h>

#include "platform/file_system.h"
#include "samples/add_element.h"
#include "samples/string_resources.h"
#include "xport/markup/xhtml_doc.h"

using samples::add_element;
using samples::add_text_element;
using Xport::tag_id;

namespace vellomark {

bool CreateSampleVellomark1(const char16_t* path) {
  if (path == nullptr) return false;
  const Xport::ustring_view header = samples::string_resource(101);

  Xport::xhtml_doc doc(1);
  doc.title()->append_text(u"Template Test");
  Xport::xhtml_markup& body = *doc.body();
  add_text_element(body, tag_id::h1, u"Header Main");
  add_text_element(body, tag_id::h1, header);
  Xport::xhtml_markup& list = add_element(body, tag_id::ul);
  add_text_element(list, tag_id::li, u"Element1", u"elem1");
  add_text_element(list, tag_id::li, u"Element2", u"elem2");
  add_text_element(list, tag_id::li, u"Element3", u"elem3");
  add_text_element(list, tag_id::li, u"Element4", u"elem4");

  const bool opened =
      Xport::write_document(doc, platform::file_system::native().open_for_writing(path));
  return opened && !header.empty();
}

}  // namespace vellomark
