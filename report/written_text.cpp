#include "report/written_text.h"

#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_writer.h"
#include "xport/stream/ustring_stream.h"

namespace report {

// A text is written unchanged at level 0. Most fields are texts, so that saves many writers.
Xport::ustring WrittenText(const Xport::xhtml_markup& node) {
  if (node.type() == Xport::node_type::pcdata && node.is_own_class())
    return Xport::ustring(node.as_text()->text());
  Xport::ustring_stream stream;
  Xport::xhtml_writer writer(stream);
  node.write(writer);
  return stream.str();
}

Xport::ustring ElementPlainText(const Xport::xhtml_element& element) {
  const Xport::ustring written = WrittenText(element);
  Xport::ustring plain;
  Xport::ustring_view rest = written;
  while (true) {
    const std::size_t open = rest.find(u'<');
    const std::size_t close = rest.find(u'>');
    if (open == rest.npos || close == rest.npos || close < open) break;
    plain += rest.substr(0, open);
    rest.remove_prefix(close + 1);
  }
  plain += rest;
  return plain;
}

}  // namespace report
