#ifndef XPORT_MARKUP_XHTML_MARKUP_H
#define XPORT_MARKUP_XHTML_MARKUP_H

#include <cstddef>
#include <cstdint>

#include "xport/markup/markup_iterator.h"
#include "xport/markup/text_map.h"
#include "xport/text/char16.h"
#include "xport/vocabulary/tag_table.h"

namespace Xport {

class xhtml_element;
class xhtml_writer;

/// The numbers that xhtml_markup::node_kind() answers with.
enum class node_type : std::uint8_t {
  none = 0,  ///< xhtml_markup itself and xhtml_end_tag
  doctype = 1,
  element = 2,
  comment = 3,
  processing_instruction = 4,
  pcdata = 5
};

/// The category of character data, among the values of `category`.
inline constexpr std::uint32_t category_text = 4;

/// A node of a markup tree, and the one interface through which all nodes are
/// used. Operations that make no sense for a kind of node have a harmless
/// default: the end position, false, null, an empty text. A refusal is an answer
/// and no error. Code asks `node_kind()` and `tag()` what a node is and never
/// tests a class.
///
/// Ownership. A node owns its children. Trees are built from prototypes: a node
/// made on the stack is passed by reference, a deep copy goes into the tree, and
/// the returned position leads to the copy. Only adopt_child takes a node over.
/// Children of nodes in an xhtml_doc live in that document's pool, others on the
/// heap.
///
/// Text is taken as it stands, unit by unit. Operations that insert or store
/// raise std::bad_alloc, and std::length_error for a text of 2^32 units or more;
/// the tree is then as it was. (insert_range and insert_copies keep the copies
/// that they had made by then.)
///
/// The kinds of node are those of this library: a class of one's own is a node of
/// no kind, which no parent takes.
///
/// No operation uses the machine stack by the depth of the tree.
class xhtml_markup {
 public:
  /// A node of no kind, without a parent.
  xhtml_markup();

  /// A copy of what all nodes have in common: a node of no kind with the parent of
  /// `other`. For a copy of the whole node see clone().
  xhtml_markup(const xhtml_markup& other);
  xhtml_markup& operator=(const xhtml_markup&) = delete;

  virtual ~xhtml_markup();

  /// Takes over `node`, made with new and in no tree, as the last child. If it
  /// is refused, or null, the result is the end and it stays with the caller.
  virtual markup_iterator adopt_child(xhtml_markup* node);

  /// Inserts copies of the nodes from `first` up to `last` at `position`, each
  /// as by insert_copy and with the next one behind it. A refused copy gives the
  /// end, behind which comes the first child: later copies then land in front.
  /// The range may lie in this node; positions of two lists are no range.
  virtual void insert_range(const_markup_iterator position, const_markup_iterator first,
                            const_markup_iterator last);

  /// Inserts `count` copies of `node` in the same way.
  virtual void insert_copies(const_markup_iterator position, std::size_t count,
                             const xhtml_markup& node);

  /// Inserts character data before `position` and gives its position.
  virtual markup_iterator insert_text(const_markup_iterator position, ustring_view text);

  /// Inserts a deep copy of `node` before `position` and gives its position.
  virtual markup_iterator insert_copy(const_markup_iterator position, const xhtml_markup& node);

  /// insert_text and insert_copy at the end.
  virtual markup_iterator append_text(ustring_view text);
  virtual markup_iterator append_copy(const xhtml_markup& node);

  /// append_copy and append_text that give the node itself. Nodes that are a
  /// text extend it.
  virtual xhtml_markup& operator<<(const xhtml_markup& node);
  virtual xhtml_markup& operator<<(ustring_view text);

  /// The same as append_text and append_copy.
  virtual markup_iterator push_back_text(ustring_view text);
  virtual markup_iterator push_back_copy(const xhtml_markup& node);

  /// insert_text and insert_copy before the first child.
  virtual markup_iterator push_front_text(ustring_view text);
  virtual markup_iterator push_front_copy(const xhtml_markup& node);

  /// Stores an attribute in place of one that is there. False, without a change,
  /// if the element doesn't take it.
  virtual bool set_attribute(attr_id attribute, ustring_view value);

  /// The attribute's value, empty if there is none.
  virtual ustring get_attribute(attr_id attribute) const;

  /// The attributes of an element, null for other nodes. Direct access: what is
  /// stored through it isn't checked.
  virtual const attribute_map* attributes() const;
  virtual attribute_map* attributes();

  /// One of the values of node_type.
  virtual std::int32_t node_kind() const;

  /// Stores an inline style property in place of one that is there; nothing is
  /// checked. False for nodes that aren't elements.
  virtual bool set_style(css_property_id property, ustring_view value);

  /// The property's value, empty if there is none.
  virtual ustring get_style(css_property_id property) const;

  /// The inline style of an element, null for other nodes.
  virtual const style_map* style_properties() const;
  virtual style_map* style_properties();

  /// What element this is; tag_id::invalid_tag for all other nodes.
  virtual tag_id tag() const;

  /// The name of an element, the source text of an end tag.
  virtual ustring tag_name() const;

  /// Writes the node and all below it to the writer's stream.
  virtual void write(xhtml_writer& writer) const;

  /// Whether character data may be a child.
  virtual bool accepts_text() const;

  /// The element's content flags.
  virtual std::uint32_t content_flags() const;

  /// A deep copy on the heap, which the caller owns; null where there is none. Its
  /// parent() is that of this node, which must live as long as the copy is written
  /// or asked for it without having been inserted.
  virtual xhtml_markup* clone() const;

  /// Whether this is an element that takes no content.
  virtual bool is_empty_element() const;

  /// The text that closes the element, empty where none does. Raises
  /// std::domain_error ("pTag_trait invlaid") for an element without a record.
  virtual ustring end_tag_text() const;

  /// The cell that leads to an element's rule record; null for other nodes.
  virtual const Tag_trait_handle* tag_trait() const;

  /// Whether this is an end tag as the parser reads it.
  virtual bool is_end_tag() const;

  /// How the node stands inside others: a value of `category` or category_text.
  virtual std::uint32_t category_flags() const;

  /// Cuts white space from the end of character data.
  virtual void trim_trailing_space();

  /// Whether `node` may be a child of this one.
  virtual bool can_contain(const xhtml_markup& node) const;

  /// The child list. Leaves have an empty one.
  markup_iterator begin();
  const_markup_iterator begin() const;
  markup_iterator end() { return markup_iterator(nullptr, this); }
  const_markup_iterator end() const { return const_markup_iterator(nullptr, this); }

  /// The node that this one was inserted into, null if there was none. A copy
  /// that is in no tree answers with the parent of what it was copied from.
  const xhtml_markup* parent() const { return parent_; }

  /// The same number as node_kind(), without a call.
  node_type type() const { return type_; }

 protected:
  /// For the kinds of node: `bytes` is the size of the object.
  xhtml_markup(node_type type, std::size_t bytes);

  /// A copy of the node without its children, which isn't in a tree.
  xhtml_markup(const xhtml_markup& other, std::size_t bytes);

 private:
  friend class const_markup_iterator;
  friend class node_maker;
  friend class text_leaf;
  friend class xhtml_element;
  friend class xhtml_writer;

  // Siblings are linked both ways. The first child's `previous_` is the last
  // child, so that the parent needs one pointer only.
  xhtml_markup* parent_ = nullptr;
  xhtml_markup* next_ = nullptr;
  xhtml_markup* previous_ = nullptr;
  node_type type_ = node_type::none;
  bool in_pool_ : 1 = false;
  bool text_outside_ : 1 = false;  // see text_leaf
  std::uint16_t granules_;         // the node's memory, in granules of the pool
};

}  // namespace Xport

#endif
