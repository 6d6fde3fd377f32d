#include "report/written_text.h"

#include "xport/markup/xhtml_writer.h"
#include "xport/stream/ustring_stream.h"

Xport::ustring WrittenText(const Xport::xhtml_markup& node) {
  Xport::ustring_stream stream;
  Xport::xhtml_writer writer(stream);
  node.write(writer);
  return stream.str();
}
