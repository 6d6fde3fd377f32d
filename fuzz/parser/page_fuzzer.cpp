// Pages with all options of the parser. The input is five bytes of options and the page.
#include <algorithm>
#include <cstdint>
#include <istream>
#include <memory>
#include <sstream>
#include <string>
#include <type_traits>
#include <vector>

#include "fuzz/support/expect.h"
#include "fuzz/support/fuzz_input.h"
#include "tests/parser/plain_parser.h"
#include "tests/support/guarded_parser.h"
#include "tests/support/round_trip.h"
#include "tests/support/tree_check.h"
#include "tests/support/tree_outline.h"
#include "tests/support/unit_buffers.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/read_document.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

using Xport::char16;
using Xport::tag_id;
using Xport::ustring;
using Xport::xhtml_element;
using Xport::xhtml_markup;

// The chains of elements below the root of which one receives the page.
const std::vector<std::vector<tag_id>>& receivers() {
  static const std::vector<std::vector<tag_id>> paths = {
      {},
      {tag_id::html, tag_id::body},
      {tag_id::html, tag_id::body, tag_id::div},
      {tag_id::html, tag_id::body, tag_id::p},
      {tag_id::html, tag_id::body, tag_id::table},
      {tag_id::html, tag_id::body, tag_id::ul, tag_id::li},
      {tag_id::html, tag_id::body, tag_id::p, tag_id::b},
      {tag_id::html, tag_id::body, tag_id::pre},
      {tag_id::html, tag_id::body, tag_id::script},
      {tag_id::html, tag_id::head},
      {tag_id::html, tag_id::head, tag_id::style},
      {tag_id::html, tag_id::head, tag_id::title},
      {tag_id::html, tag_id::body, tag_id::p, tag_id::br},
  };
  return paths;
}

struct page_case {
  explicit page_case(fuzz_input& in) {
    const unsigned flags = in.take_byte();
    round.normalize_text = (flags & 1) != 0;
    round.preserve_newlines = (flags & 2) != 0;
    on_heap = (flags & 4) != 0;
    swapped = (flags & 8) != 0;
    owns_input = (flags & 16) != 0;
    in_one_call = (flags & 32) != 0 || swapped;
    const unsigned levels = in.take_byte();
    mask = levels & 15;
    reports = (levels & 16) != 0;
    path = receivers()[in.take_byte() % receivers().size()];
    block = 1 + (in.take_byte() & 63);
    const unsigned form = in.take_byte();
    round.double_quotes = (form & 1) != 0;
    round.spaced_equals = (form & 2) != 0;
    round.indent_step = (form & 4) != 0 ? 0 : 2;
    round.max_line_length = (form >> 3 & 7) * 11;
    text = in.take_text();
  }

  round_trip_options round;
  bool on_heap;
  bool swapped;
  bool owns_input;
  bool in_one_call;  ///< by parse_page
  std::uint32_t mask;
  bool reports;
  std::vector<tag_id> path;
  std::size_t block;
  ustring text;
};

// A root on the heap or in a document, and a receiver in it.
class tree {
 public:
  tree(bool on_heap, const std::vector<tag_id>& path)
      : root_(on_heap ? new xhtml_element(tag_id::doc_root, {}, {}) : nullptr) {
    xhtml_markup* node = &root();
    for (const tag_id tag : path) node = &*append_element(*node, tag);
    receiver_ = node->as_element();
  }

  xhtml_element& root() { return root_ ? *root_ : *doc_.root(); }
  xhtml_element& receiver() { return *receiver_; }
  Xport::xhtml_doc& doc() { return doc_; }

 private:
  Xport::xhtml_doc doc_{0};
  std::unique_ptr<xhtml_element> root_;
  xhtml_element* receiver_;
};

// A stream that owns its buffer.
class page_stream : public std::basic_istream<char16> {
 public:
  explicit page_stream(std::unique_ptr<std::basic_streambuf<char16>> buffer)
      : std::basic_istream<char16>(buffer.get()), buffer_(std::move(buffer)) {}

 private:
  std::unique_ptr<std::basic_streambuf<char16>> buffer_;
};

ustring swapped_page(const ustring& text) {
  ustring page(1, u'\uFFFE');
  for (const char16 unit : text) page += static_cast<char16>((unit << 8 | unit >> 8) & 0xFFFF);
  return page;
}

std::unique_ptr<page_stream> make_stream(const page_case& how, bool whole) {
  const ustring page = how.swapped ? swapped_page(how.text) : how.text;
  if (whole)
    return std::make_unique<page_stream>(std::make_unique<std::basic_stringbuf<char16>>(page));
  return std::make_unique<page_stream>(std::make_unique<dribble_buffer>(page, how.block));
}

struct reading {
  parse_result result;
  std::vector<ustring> outline;  ///< of the whole tree
  bool endless = false;          ///< whether reading a style text never returns

  bool operator==(const reading&) const = default;
};

void set_options(Xport::xhtml_parser& parser, const page_case& how) {
  parser.normalize_text = how.round.normalize_text;
  parser.preserve_newlines = how.round.preserve_newlines;
  parser.message_mask = how.mask;
}

std::string rest_of(Xport::unit_input in) {
  ustring rest;
  for (; !in.at_end(); in.advance()) rest += in.peek();
  return printable(rest);
}

template <class Parser>
reading read(const page_case& how, bool whole, tree& target) {
  reading read;
  std::unique_ptr<page_stream> stream = make_stream(how, whole);
  Xport::ustring_stream messages;
  {
    Parser parser(how.owns_input ? stream.release() : stream.get());
    set_options(parser, how);
    parser.owns_input = how.owns_input;
    if (how.reports) parser.messages = &messages;
    if (how.in_one_call) {
      parse_page(parser, target.receiver());
    } else {
      load_default_references(parser.references);
      rebuild_reference_indexes(parser);
      const std::unique_ptr<xhtml_markup> left(parser.parse_children(&target.receiver()));
      if (left) read.result.returned = printable(left->tag_name());
    }
    if constexpr (std::is_same_v<Parser, guarded_parser>) read.endless = parser.met_endless();
    read.result.line = parser.line;
    read.result.last_tag = parser.last_tag;
    read.result.rest = rest_of(Xport::unit_input(parser.input->rdbuf()));
  }
  read.result.messages = printable(messages.str());
  read.result.children = outline_of_children(target.receiver());
  if (const auto intact = is_intact(target.root()); !intact) fail(intact.message());
  read.outline = outline_of(target.root());
  return read;
}

// A parser without a guard, which may take shortcuts, and the plain one have the same result. The
// plain one doesn't look for a mark.
void check_against_others(const page_case& how, const reading& actual) {
  if (actual.endless) return;
  for (const bool whole : {true, false}) {
    tree target(how.on_heap, how.path);
    const reading unguarded = read<Xport::xhtml_parser>(how, whole, target);
    expect_no(outline_difference(unguarded.outline, actual.outline));
    expect(unguarded == actual, "the guard doesn't change the result");
  }
  if (how.in_one_call) return;
  parse_case plain;
  plain.normalize_text = how.round.normalize_text;
  plain.message_mask = how.reports ? how.mask : 0;
  plain.preserve_newlines = how.round.preserve_newlines;
  plain.path = how.path;
  const parse_result expected = parse_plainly(how.text, plain);
  if (actual.result.children != expected.children)
    fail(actual.result.children + "\nfor\n" + expected.children);
  if (actual.result.messages != expected.messages)
    fail(actual.result.messages + "\nfor\n" + expected.messages);
  expect(actual.result == expected, "the state is what the plain parser leaves");
}

// A page in the other byte order, after its mark, is read like the same page in little endian.
// Only with the little-endian mark, white space and a zero after it are removed.
void check_byte_order(const page_case& how, const reading& swapped) {
  if (!how.swapped || how.text.empty()) return;
  if (how.text[0] == 0 || Xport::character_classes().is_space(how.text[0])) return;
  page_case straight = how;
  straight.swapped = false;
  straight.text.insert(0, 1, u'\uFEFF');
  tree target(how.on_heap, how.path);
  reading same = read<guarded_parser>(straight, true, target);
  same.result.rest = swapped.result.rest;
  expect(same == swapped, "both byte orders are read alike");
}

// The nodes that the readers return one after the other to a caller who puts none of them into a
// tree. Each consumes a part of the input.
std::vector<ustring> read_singly(const page_case& how, bool whole) {
  std::vector<ustring> nodes;
  const std::unique_ptr<page_stream> stream = make_stream(how, whole);
  guarded_parser parser(stream.get());
  set_options(parser, how);
  tree target(how.on_heap, how.path);
  while (std::unique_ptr<xhtml_markup> node{parser.read_next(&target.receiver())}) {
    ustring line = node->tag_name();
    if (node->node_kind() == 3 || node->node_kind() == 4 || node->node_kind() == 5)
      line += node->as_text()->text();
    nodes.push_back(line);
    expect(nodes.size() <= how.text.size() + 1, "each node takes a unit at least");
  }
  return nodes;
}

// The walk visits each node once, and elements are found by their id.
void check_walk(Xport::xhtml_doc& doc, std::size_t nodes) {
  std::size_t count = 0;
  for (Xport::descendant_markup_iterator at = doc.descendant_begin(); at != doc.descendant_end();
       ++at) {
    ++count;
    const ustring id = at->get_attribute(Xport::attr_id::id);
    if (id.empty() || count > 64) continue;
    const Xport::descendant_markup_iterator found =
        find_by_id(doc.descendant_begin(), doc.descendant_end(), id);
    expect(found != doc.descendant_end() && found->get_attribute(Xport::attr_id::id) == id,
           "an id in the tree is found");
  }
  expect(count == nodes + 1, "the walk goes over the root and all nodes");
}

std::size_t count_nodes(const std::vector<ustring>& outline) {
  std::size_t count = 0;
  for (const ustring& line : outline)
    if (line != u"/") ++count;
  return count;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz_input in(data, size);
  const page_case how(in);

  tree whole(how.on_heap, how.path);
  const reading read_whole = read<guarded_parser>(how, true, whole);
  tree pieces(!how.on_heap, how.path);
  const reading read_pieces = read<guarded_parser>(how, false, pieces);
  expect_no(outline_difference(read_pieces.outline, read_whole.outline));
  expect(read_pieces == read_whole, "a page in pieces is read like the page as a whole");
  check_against_others(how, read_whole);
  check_byte_order(how, read_whole);
  expect(read_singly(how, true) == read_singly(how, false),
         "single nodes are read in pieces like from the page as a whole");

  Xport::xhtml_doc& doc = (how.on_heap ? pieces : whole).doc();
  check_walk(doc, count_nodes(read_whole.outline));
  doc.reindex();
  expect_no(round_trip_fault(whole.root(), how.round));
  return 0;
}

}  // namespace test
