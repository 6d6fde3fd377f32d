#include "xport/parser/read_document.h"

#include <utility>

#include "xport/stream/byte_order.h"
#include "xport/stream/file_input_stream.h"
#include "xport/stream/null_codecvt.h"

namespace Xport {

namespace {

// Consumes the byte-order mark of the parser's input. For a big-endian page,
// detect_byte_order() replaces the input by a string stream of the swapped rest. Unless the
// parser owns its input, this object deletes that stream and restores the input.
class ordered_input {
 public:
  explicit ordered_input(xhtml_parser& parser) : parser_(parser), given_(parser.input) {
    const bool owns_input = parser.owns_input;
    detect_byte_order(parser_.input, owns_input);
    if (!owns_input && parser_.input != given_) made_.reset(parser_.input);
  }
  ordered_input(const ordered_input&) = delete;
  ordered_input& operator=(const ordered_input&) = delete;
  ~ordered_input() {
    if (made_ != nullptr && parser_.input == made_.get()) parser_.input = given_;
  }

 private:
  xhtml_parser& parser_;
  xhtml_parser::input_type* given_;
  std::unique_ptr<xhtml_parser::input_type> made_;
};

// Reindexes even if reading throws: the document must not refer to elements of its old tree.
class reindexed_after {
 public:
  explicit reindexed_after(xhtml_doc& doc) : doc_(doc) {}
  reindexed_after(const reindexed_after&) = delete;
  reindexed_after& operator=(const reindexed_after&) = delete;
  ~reindexed_after() { doc_.reindex(); }

 private:
  xhtml_doc& doc_;
};

}  // namespace

void parse_page(xhtml_parser& parser, xhtml_element& receiver) {
  load_default_references(parser.references);
  if (parser.input == nullptr || parser.input->fail()) return;
  receiver.clear_children();
  rebuild_reference_indexes(parser);
  if (parser.input->good()) parser.input->seekg(0, std::ios_base::beg);
  const ordered_input ordered(parser);
  delete parser.parse_children(&receiver);
}

bool read_document(xhtml_doc& doc, std::unique_ptr<byte_input> file) {
  file_input_stream stream;
  stream.imbue(with_null_codecvt(stream.getloc()));
  stream.open(std::move(file));
  if (stream.fail()) return false;
  xhtml_parser parser(&stream);
  const reindexed_after guard(doc);
  parse_page(parser, *doc.root());
  return true;
}

}  // namespace Xport
