#ifndef XPORT_MARKUP_NODE_MAKER_H
#define XPORT_MARKUP_NODE_MAKER_H

#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"
#include "xport/markup/xhtml_end_tag.h"

namespace Xport {

/// Makes single nodes that adopt_child is to take: in the memory of a tree, so that
/// they needn't be copied into it, or on the heap. What comes out of a tree's memory
/// must go into that tree, or back through discard() while the tree lives.
///
/// All operations raise std::bad_alloc, and std::length_error for a text of 2^32
/// units or more.
class node_maker {
 public:
  /// For the tree of `tree`, which must outlive the nodes; null for the heap.
  explicit node_maker(xhtml_element* tree = nullptr)
      : tree_(tree != nullptr && tree->pool() != nullptr ? tree : nullptr) {}

  /// An element with nothing in it. `tag` is the number of a row.
  xhtml_element* element(tag_id tag) const;

  xhtml_pcdata* pcdata(ustring_view text) const;

  /// From a token, as the classes of the nodes take it.
  xhtml_comment* comment(ustring_view token, const character_classes& classes) const;
  xhtml_processing_instruction* processing_instruction(ustring_view token,
                                                       const character_classes& classes) const;

  xhtml_doctype_declaration* doctype() const;
  xhtml_end_tag* end_tag(ustring_view token) const;

  /// Deletes a node that is in no tree, wherever it was made. Null is ignored.
  static void discard(xhtml_markup* node) noexcept;

  /// A node like `node`, which is in no tree and of the kinds made here, on the heap.
  /// Deletes `node`, also if an exception passes.
  static xhtml_markup* move_to_heap(xhtml_markup* node);

 private:
  xhtml_element* tree_;
};

}  // namespace Xport

#endif
