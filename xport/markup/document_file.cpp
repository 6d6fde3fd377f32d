#include "xport/markup/document_file.h"

#include <utility>

#include "xport/markup/null_codecvt.h"
#include "xport/markup/xhtml_writer.h"
#include "xport/stream/file_output_stream.h"

namespace Xport {

bool write_document(const xhtml_doc& doc, std::unique_ptr<byte_output> file) {
  file_output_stream stream;
  stream.imbue(with_null_codecvt(stream.getloc()));
  stream.open(std::move(file));
  if (stream.fail()) return false;
  xhtml_writer writer(stream);
  doc.write(writer);
  stream.close();
  return true;
}

}  // namespace Xport
