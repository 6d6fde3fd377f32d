#ifndef XPORT_MARKUP_XHTML_ELEMENT_H
#define XPORT_MARKUP_XHTML_ELEMENT_H

#include <cstddef>
#include <cstdint>
#include <memory>

#include "xport/markup/xhtml_markup.h"

namespace Xport {

class character_classes;
class xhtml_parser;

/// An element: a rule record, attributes, an inline style and children. Elements are the
/// only nodes with children. Whatever XHTML 1.0 Strict doesn't permit is refused silently:
/// only the result shows it.
///
/// In addition to the rules of the record, insert_copy and the operations that call it
/// allow one `head` and one `body` in `html`, in this order, and one `title` in `head`. They
/// refuse a position that isn't in this element's list.
///
/// An element made with a number outside the table has no record. It behaves like the row
/// "invalid tag", except that end_tag_text throws: it stores nothing, every parent refuses
/// it, and it writes nothing. (A derived one writes what its operations return.)
///
/// Insertion takes constant time, apart from the copy itself and, for `html` and `head`, a
/// search of their children. Attribute and style operations take time linear in the
/// element's attributes and properties.
///
/// The virtual operations of a derived element are called too: insertion calls
/// can_contain(), tag() and, for a text, accepts_text(), and every operation that inserts
/// calls insert_copy() in the end. can_contain() calls accepts_text() and tag(), and uses
/// the rule record for everything else.
class xhtml_element : public xhtml_markup {
 public:
  /// An element by number. `id` and `class_name` become the attributes `id` and `class`,
  /// unless they are empty or the element doesn't allow them.
  xhtml_element(tag_id tag, ustring_view id, ustring_view class_name);

  /// As above, with its content in the memory of `pool`, which must outlive it.
  xhtml_element(tag_id tag, ustring_view id, ustring_view class_name, node_pool* pool);

  /// An empty element at `where` with the rules `record`, a row of tag_table.
  xhtml_element(const Tag_trait& record, const node_place& where);

  /// An element from the text of a start tag, with its "<" and its ">", if it has one. It has
  /// the row "invalid tag" if no known name follows the "<". A name ends at the first unit
  /// that isn't `alnum`; attributes are read only if white space follows it. The parser
  /// reports an unknown name, and a "/" after the name of an element that may have content.
  xhtml_element(ustring_view start_tag_text, xhtml_parser& parser);

  /// A deep copy on the heap; children are copied by their clone(). Its parent is the parent
  /// of `other` until it is inserted: see clone().
  xhtml_element(const xhtml_element& other);

  /// A copy at `where` without the children.
  xhtml_element(const xhtml_element& other, const node_place& where);

  ~xhtml_element() override;

  /// Deletes all children. Attributes and style stay.
  void clear_children() noexcept;

  markup_iterator adopt_child(xhtml_markup* node) override;
  void insert_range(const_markup_iterator position, const_markup_iterator first,
                    const_markup_iterator last) override;
  void insert_copies(const_markup_iterator position, std::size_t count,
                     const xhtml_markup& node) override;
  markup_iterator insert_text(const_markup_iterator position, ustring_view text) override;
  markup_iterator insert_copy(const_markup_iterator position, const xhtml_markup& node) override;
  markup_iterator append_text(ustring_view text) override;
  markup_iterator append_copy(const xhtml_markup& node) override;
  xhtml_markup& operator<<(const xhtml_markup& node) override;
  xhtml_markup& operator<<(ustring_view text) override;
  markup_iterator push_back_text(ustring_view text) override;
  markup_iterator push_back_copy(const xhtml_markup& node) override;
  markup_iterator push_front_text(ustring_view text) override;
  markup_iterator push_front_copy(const xhtml_markup& node) override;
  bool set_attribute(attr_id attribute, ustring_view value) override;
  ustring get_attribute(attr_id attribute) const override;
  const attribute_map* attributes() const override { return &attributes_; }
  attribute_map* attributes() override { return &attributes_; }
  bool set_style(css_property_id property, ustring_view value) override;
  ustring get_style(css_property_id property) const override;
  const style_map* style_properties() const override { return &style_; }
  style_map* style_properties() override { return &style_; }
  tag_id tag() const override { return rules().id; }
  ustring tag_name() const override { return ustring(rules().name); }
  void write(xhtml_writer& writer) const override;
  bool accepts_text() const override;
  std::uint32_t content_flags() const override { return rules().content_flags; }
  xhtml_markup* clone() const override;
  bool is_empty_element() const override;
  ustring end_tag_text() const override;
  const Tag_trait_handle* tag_trait() const override { return &trait_; }
  std::uint32_t category_flags() const override { return rules().category_flags; }
  bool can_contain(const xhtml_markup& node) const override;

  /// Stores the attributes in `text`, the part of a start tag after its name. The first of
  /// equal names counts, and attributes that the element already has stay. Whether the
  /// element allows them isn't checked; unknown names are dropped. The value of "style" is
  /// read into the inline style, as by parse_style_attribute(). Time is linear in `text`.
  void parse_attributes(ustring_view text);

  /// The same with white space as `classes` define it.
  void parse_attributes(ustring_view text, const character_classes& classes);

  /// append_copy of an empty element with this number, made in place.
  markup_iterator append_element(tag_id tag);

  /// The rule record; the record of "invalid tag" if the element has none.
  const Tag_trait& rules() const { return trait_.rules(); }

  /// Where the memory of the content comes from; null for the heap.
  node_pool* pool() const { return attributes_.pool(); }

 private:
  friend class xhtml_doc;
  friend class xhtml_parser;

  void set_trait(const Tag_trait_handle& trait) { std::construct_at(&trait_, trait); }

  // adopt_child() of a node that this element is known to accept.
  void append_accepted(xhtml_markup* node) noexcept { link(node, nullptr); }

  struct without_children {};
  xhtml_element(const xhtml_element& other, without_children);

  bool takes(const xhtml_markup& node) const;
  bool fits(const xhtml_markup& node) const;
  bool has_position(const const_markup_iterator& position) const;
  bool has_child(tag_id tag) const;
  bool keeps_order(tag_id parent, const const_markup_iterator& position, tag_id child) const;
  markup_iterator put_text(const const_markup_iterator& position, ustring_view text);
  xhtml_markup* copy_tree(const xhtml_markup& node);

  // Drops the children without visiting them: their pool is freed as a whole.
  void abandon_children() noexcept { first_child_ = nullptr; }

  attribute_map attributes_;
  style_map style_;
};

inline xhtml_element* xhtml_markup::as_element() {
  return type_ == node_type::element ? static_cast<xhtml_element*>(this) : nullptr;
}
inline const xhtml_element* xhtml_markup::as_element() const {
  return type_ == node_type::element ? static_cast<const xhtml_element*>(this) : nullptr;
}

/// node.tag(), without a virtual call if the node's class is our own.
inline tag_id tag_of(const xhtml_markup& node) {
  if (!node.is_own_class()) return node.tag();
  const xhtml_element* const element = node.as_element();
  return element != nullptr ? element->rules().id : tag_id::invalid_tag;
}

inline node_place::node_place(xhtml_element& parent)
    : pool_(parent.pool()), parent_(pool_ != nullptr ? &parent : nullptr) {}

/// append_copy of an empty element with this number to any node.
markup_iterator append_element(xhtml_markup& parent, tag_id tag);

}  // namespace Xport

#endif
