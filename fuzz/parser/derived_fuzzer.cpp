// A parser of a derived class that does with the nodes of its readers what their owner may do:
// deletes them, adopts them elsewhere, returns them later, copies and replaces them, or throws. The
// input is two bytes of options, a byte for each choice up to a line feed, and the page.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>
#include <utility>
#include <vector>

#include "fuzz/support/expect.h"
#include "fuzz/support/fuzz_input.h"
#include "tests/support/derived_nodes.h"
#include "tests/support/guarded_parser.h"
#include "tests/support/text.h"
#include "tests/support/tree_check.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/read_document.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

using Xport::tag_id;
using Xport::ustring;
using Xport::xhtml_element;
using Xport::xhtml_markup;
using owned_node = std::unique_ptr<xhtml_markup>;

// Places where nodes are adopted besides the page: in a document and on the heap.
struct other_trees {
  other_trees() : div(append_element(*doc.body(), tag_id::div)->as_element()) {}

  Xport::xhtml_doc doc{1};
  xhtml_element* div;
  xhtml_element heap{tag_id::p, {}, {}};
};

struct broken_off {};

class meddling_parser : public guarded_parser {
 public:
  meddling_parser(input_type* stream, other_trees& others, std::vector<unsigned> choices)
      : guarded_parser(stream), others_(others), choices_(std::move(choices)) {}

  xhtml_markup* read_comment(xhtml_markup* parent) override {
    return meddled(guarded_parser::read_comment(parent));
  }
  xhtml_markup* read_end_tag() override { return meddled(guarded_parser::read_end_tag()); }
  xhtml_markup* read_start_tag(xhtml_markup* parent) override {
    return meddled(guarded_parser::read_start_tag(parent));
  }
  xhtml_markup* read_next(xhtml_markup* parent) override {
    return meddled(guarded_parser::read_next(parent));
  }
  xhtml_markup* read_preformatted() override {
    return meddled(guarded_parser::read_preformatted());
  }
  xhtml_markup* read_processing_instruction() override {
    return meddled(guarded_parser::read_processing_instruction());
  }

 private:
  unsigned choice() { return next_choice_ < choices_.size() ? choices_[next_choice_++] & 15U : 0U; }

  xhtml_markup* meddled(xhtml_markup* returned) {
    owned_node node(returned);
    if (node == nullptr) return nullptr;
    switch (choice()) {
      case 1:  // deletes it
        return new Xport::xhtml_comment(u"deleted");
      case 2:  // keeps it in another document
        return kept_in(*others_.div, std::move(node));
      case 3:
        return kept_in(others_.heap, std::move(node));
      case 4:  // returns it later
        node.swap(held_);
        return node != nullptr ? node.release() : new Xport::xhtml_pcdata(u"held");
      case 5:
        return copy_of(*node);
      case 6:  // a derived class in its place
        return node->type() == Xport::node_type::none ? node.release()
                                                      : derived_copy(*node).release();
      case 7: {  // fills an element of its own first
        auto box = std::make_unique<derived_element>(tag_id::span, u"box", u"");
        box->append_text(u"text");
        if (box->adopt_child(node.get()) != box->end()) node.release();
        return box.release();
      }
      case 8:  // what was kept before comes back as a copy
        return others_.heap.first_child() != nullptr ? copy_of(*others_.heap.first_child())
                                                     : node.release();
      case 9:
        others_.heap.clear_children();
        return node.release();
      case 10:  // ends the element that is open
        return nullptr;
      case 11:
        throw broken_off();
      default:
        return node.release();
    }
  }

  static xhtml_markup* kept_in(xhtml_element& element, owned_node node) {
    if (element.adopt_child(node.get()) == element.end()) return node.release();
    const xhtml_markup* const kept = node.release();
    return copy_of(*kept);
  }

  // End tags have no clone.
  static xhtml_markup* copy_of(const xhtml_markup& node) {
    if (xhtml_markup* const copy = node.clone()) return copy;
    return new Xport::xhtml_processing_instruction(u"copied");
  }

  other_trees& others_;
  std::vector<unsigned> choices_;
  std::size_t next_choice_ = 0;
  owned_node held_;
};

void expect_intact(const xhtml_markup& tree) {
  if (const auto intact = is_intact(tree); !intact) fail(intact.message());
}

struct derived_case {
  explicit derived_case(fuzz_input& in) {
    const unsigned flags = in.take_byte();
    on_heap = (flags & 1) != 0;
    others_first = (flags & 2) != 0;
    derived_receiver = (flags & 4) != 0;
    normalizes = (flags & 8) != 0;
    mask = in.take_byte() & 15;
    for (unsigned byte = in.take_byte(); byte != '\n' && choices.size() < 256;
         byte = in.take_byte())
      choices.push_back(byte);
    text = in.take_text();
  }

  bool on_heap;
  bool others_first;  ///< whether the page outlives what was kept elsewhere
  bool derived_receiver;
  bool normalizes;
  std::uint32_t mask;
  std::vector<unsigned> choices;
  ustring text;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz_input in(data, size);
  const derived_case how(in);

  auto others = std::make_unique<other_trees>();
  auto page = std::make_unique<Xport::xhtml_doc>(1);
  auto heap = std::make_unique<xhtml_element>(tag_id::div, u"", u"");
  xhtml_markup& above = how.on_heap ? *heap : *page->body();
  xhtml_markup& receiver = how.derived_receiver
                               ? *above.append_copy(derived_element(tag_id::div, {}, {}))
                               : *append_element(above, tag_id::div);
  {
    std::basic_istringstream<Xport::char16> input(how.text);
    Xport::ustring_stream messages;
    meddling_parser parser(&input, *others, how.choices);
    parser.normalize_text = how.normalizes;
    parser.message_mask = how.mask;
    parser.messages = &messages;
    load_default_references(parser.references);
    rebuild_reference_indexes(parser);
    try {
      const owned_node left(parser.parse_children(&receiver));
    } catch (const broken_off&) {
    }
  }
  expect_intact(above);
  expect_intact(*others->doc.root());
  expect_intact(others->heap);

  const ustring text = written(receiver);
  if (how.others_first) {
    others.reset();
    expect(written(receiver) == text, "the page doesn't depend on other trees");
    xhtml_element box(tag_id::div, {}, {});
    const xhtml_markup& copy = *box.append_copy(receiver);
    expect(written(copy) == text, "a copy is written like its original");
    page.reset();
    heap.reset();
    expect(written(copy) == text, "a copy doesn't depend on its original");
  } else {
    const ustring kept = written(*others->doc.root());
    const ustring kept_on_heap = written(others->heap);
    page.reset();
    heap.reset();
    expect(written(*others->doc.root()) == kept, "what was kept outlives the page");
    expect(written(others->heap) == kept_on_heap, "what was kept outlives the page");
  }
  return 0;
}

}  // namespace test
