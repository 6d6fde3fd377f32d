#include "report/element_plain_text.h"

#include "xport/markup/xhtml_writer.h"
#include "xport/text/ustring_stream.h"

Xport::ustring ElementPlainText(const Xport::xhtml_element& element) {
  Xport::ustring_stream stream;
  Xport::xhtml_writer writer(stream);
  element.write(writer);

  Xport::ustring plain;
  Xport::ustring_view rest = stream.str();
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
