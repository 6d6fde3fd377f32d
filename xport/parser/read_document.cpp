#include "xport/parser/read_document.h"

#include <utility>

#include "xport/markup/null_codecvt.h"
#include "xport/text/byte_order.h"
#include "xport/text/file_input_stream.h"

namespace Xport {

namespace {

// Takes the byte-order mark out of the parser's input while this lives. A stream that
// comes into being by that goes with it, unless the parser owns what it reads.
class ordered_input {
 public:
  explicit ordered_input(xhtml_parser& parser) : parser_(parser), given_(parser.input) {
    detect_byte_order(parser_.input, parser_.owns_input);
  }
  ordered_input(const ordered_input&) = delete;
  ordered_input& operator=(const ordered_input&) = delete;
  ~ordered_input() {
    if (parser_.owns_input || parser_.input == given_) return;
    delete parser_.input;
    parser_.input = given_;
  }

 private:
  xhtml_parser& parser_;
  xhtml_parser::input_type* given_;
};

// Whatever becomes of the reading, a document must not know elements of its old tree.
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
