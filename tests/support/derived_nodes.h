#ifndef TESTS_SUPPORT_DERIVED_NODES_H
#define TESTS_SUPPORT_DERIVED_NODES_H

#include <memory>

#include "tests/support/names.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"
#include "xport/parser/xhtml_parser.h"

// Classes of a host that add nothing to those of the library. Everything must come out
// the same with them, although the library has to take its other way, the virtual one.

namespace test {

class derived_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
};

class derived_element : public Xport::xhtml_element {
 public:
  using xhtml_element::xhtml_element;
  derived_element(const derived_element&) = default;
  explicit derived_element(const Xport::xhtml_element& other) : xhtml_element(other) {}
  Xport::xhtml_markup* clone() const override { return new derived_element(*this); }
};

template <class Leaf>
class derived_leaf : public Leaf {
 public:
  explicit derived_leaf(const Leaf& other) : Leaf(other) {}
  Xport::xhtml_markup* clone() const override { return new derived_leaf(*this); }
};

/// A copy of `node`, a leaf or an element, with every node below it of a derived class,
/// and itself too. For trees of little depth.
inline std::unique_ptr<Xport::xhtml_markup> derived_copy(const Xport::xhtml_markup& node) {
  switch (node.type()) {
    case node_type::pcdata:
      return std::make_unique<derived_leaf<xhtml_pcdata>>(static_cast<const xhtml_pcdata&>(node));
    case node_type::comment:
      return std::make_unique<derived_leaf<xhtml_comment>>(static_cast<const xhtml_comment&>(node));
    case node_type::processing_instruction:
      return std::make_unique<derived_leaf<xhtml_processing_instruction>>(
          static_cast<const xhtml_processing_instruction&>(node));
    case node_type::doctype:
      return std::make_unique<derived_leaf<xhtml_doctype_declaration>>(
          static_cast<const xhtml_doctype_declaration&>(node));
    default:
      break;
  }
  auto copy = std::make_unique<derived_element>(*node.as_element());
  copy->clear_children();
  for (const xhtml_markup& child : node) {
    std::unique_ptr<xhtml_markup> below = derived_copy(child);
    if (copy->adopt_child(below.get()) != copy->end()) below.release();
  }
  return copy;
}

}  // namespace test

#endif
