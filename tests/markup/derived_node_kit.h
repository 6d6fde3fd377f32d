#ifndef TESTS_MARKUP_DERIVED_NODE_KIT_H
#define TESTS_MARKUP_DERIVED_NODE_KIT_H

#include "tests/support/names.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"

// Nodes of a host that override questions and copies.

namespace test {

/// An element that returns what a host sets.
struct told_element : Xport::xhtml_element {
  explicit told_element(tag_id tag) : xhtml_element(tag, {}, {}) {}
  told_element(const told_element&) = default;

  bool takes_text = true;
  tag_id number = tag_id::div;

  bool accepts_text() const override { return takes_text; }
  tag_id tag() const override { return number; }
  Xport::xhtml_markup* clone() const override { return new told_element(*this); }
};

/// Counts its objects. Its clone can be another node, or none.
struct counted_comment : Xport::xhtml_comment {
  explicit counted_comment(int& count) : xhtml_comment(u"counted"), alive(count) { ++alive; }
  counted_comment(const counted_comment& other) : xhtml_comment(other), alive(other.alive) {
    ++alive;
  }
  ~counted_comment() override { --alive; }
  Xport::xhtml_markup* clone() const override { return new counted_comment(*this); }

  int& alive;
};

struct without_clone : counted_comment {
  using counted_comment::counted_comment;
  Xport::xhtml_markup* clone() const override { return nullptr; }
};

struct cloned_as_text : counted_comment {
  using counted_comment::counted_comment;
  Xport::xhtml_markup* clone() const override { return new xhtml_pcdata(u"clone"); }
};

/// A node of a host with the base's copy constructor alone.
struct wrapper : Xport::xhtml_markup {
  wrapper() = default;
  explicit wrapper(const Xport::xhtml_markup& other) : xhtml_markup(other) {}
};

}  // namespace test

#endif
