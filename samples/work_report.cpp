#include <vellomark/samples.h>

#include "platform/file_system.h"
#include "samples/work_body.h"
#include "samples/work_stylesheet.h"
#include "xport/markup/xhtml_doc.h"

namespace vellomark {

bool CreateWorkVellomark(const char16_t* path) {
  if (path == nullptr) return false;

  Xport::xhtml_doc doc(1);
  doc.title()->append_text(u"Document 2");
  Xport::xhtml_stylesheet sheet;
  samples::add_work_rules(sheet);
  doc.add_stylesheet(sheet);
  samples::add_work_body(*doc.body());

  return Xport::write_document(doc, platform::file_system::native().open_for_writing(path));
}

}  // namespace vellomark
