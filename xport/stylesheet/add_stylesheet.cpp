#include "xport/markup/xhtml_doc.h"
#include "xport/stream/ustring_stream.h"
#include "xport/stylesheet/stylesheet_writer.h"
#include "xport/stylesheet/xhtml_stylesheet.h"

namespace Xport {

markup_iterator xhtml_doc::add_stylesheet(const xhtml_stylesheet& sheet) {
  if (head_ == nullptr) return root_.end();
  xhtml_element style(tag_id::style, {}, {});
  style.set_attribute(attr_id::type, u"text/css");
  ustring_stream text;
  stylesheet_writer writer(text);
  for (const xhtml_stylesheet_item& item : sheet) item.write(writer);
  style << text.str();
  return head_->append_copy(style);
}

}  // namespace Xport
