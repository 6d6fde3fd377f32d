#include "xport/markup/node_maker.h"

#include <memory>

#include "xport/markup/make_node.h"

namespace Xport {

xhtml_element* node_maker::element(tag_id tag) const {
  if (tree_ == nullptr) return new xhtml_element(tag, {}, {});
  return tree_->make_node<xhtml_element>(sizeof(xhtml_element), *tag_table[tag],
                                         xhtml_element::place{*tree_});
}

xhtml_pcdata* node_maker::pcdata(ustring_view text) const {
  return tree_ != nullptr ? tree_->make_leaf<xhtml_pcdata>(text) : new xhtml_pcdata(text);
}

xhtml_comment* node_maker::comment(ustring_view token, const character_classes& classes) const {
  return tree_ != nullptr ? tree_->make_leaf<xhtml_comment>(xhtml_comment::body(token, classes))
                          : new xhtml_comment(token);
}

xhtml_processing_instruction* node_maker::processing_instruction(
    ustring_view token, const character_classes& classes) const {
  return tree_ != nullptr ? tree_->make_leaf<xhtml_processing_instruction>(
                                xhtml_processing_instruction::body(token, classes))
                          : new xhtml_processing_instruction(token);
}

xhtml_doctype_declaration* node_maker::doctype() const {
  return tree_ != nullptr ? tree_->make_leaf<xhtml_doctype_declaration>({})
                          : new xhtml_doctype_declaration();
}

xhtml_end_tag* node_maker::end_tag(ustring_view token) const {
  if (tree_ == nullptr) return new xhtml_end_tag(token);
  xhtml_end_tag* const made = tree_->make_node<xhtml_end_tag>(sizeof(xhtml_end_tag), token);
  xhtml_markup& node = *made;
  node.parent_ = tree_;
  node.in_pool_ = true;
  return made;
}

void node_maker::discard(xhtml_markup* node) noexcept {
  if (node == nullptr) return;
  if (node->in_pool_)
    xhtml_element::dispose(node, static_cast<const xhtml_element*>(node->parent_)->pool());
  else
    delete node;
}

xhtml_markup* node_maker::move_to_heap(xhtml_markup* node) {
  if (node == nullptr || !node->in_pool_) return node;
  const std::unique_ptr<xhtml_markup, decltype(&discard)> pooled(node, &discard);
  xhtml_markup* const copy =
      node->is_end_tag() ? new xhtml_end_tag(node->tag_name()) : node->clone();
  copy->parent_ = nullptr;
  return copy;
}

}  // namespace Xport
