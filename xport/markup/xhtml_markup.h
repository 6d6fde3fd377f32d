#ifndef XPORT_MARKUP_XHTML_MARKUP_H
#define XPORT_MARKUP_XHTML_MARKUP_H

#include <cstddef>
#include <cstdint>
#include <new>
#include <typeinfo>

#include "xport/markup/markup_iterator.h"
#include "xport/markup/node_memory.h"
#include "xport/markup/text_map.h"
#include "xport/text/char16.h"
#include "xport/vocabulary/tag_table.h"

namespace Xport {

class text_leaf;
class xhtml_writer;

/// The numbers that xhtml_markup::node_kind() returns.
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

/// Whether the dynamic class of `object` is exactly the one that `own` describes, not a
/// derived one. Only then may a shortcut replace calls of its virtual operations. Compares
/// addresses, which is fast; if a program holds two descriptions of one class, the result is
/// false, which is safe.
template <class Object>
bool is_exactly(const Object& object, const std::type_info& own) noexcept {
  return &typeid(object) == &own;
}

/// A node of a markup tree, and the one interface through which all nodes are used.
/// Operations that make no sense for a kind of node have a harmless default: the end
/// position, false, null, an empty text. A refusal is a result, not an error. `node_kind()`
/// and `tag()` say what a node is.
///
/// Ownership. A node owns its children. Trees are built from prototypes: a node made on the
/// stack is passed by reference, a deep copy is inserted into the tree, and the returned
/// position is that of the copy. Only adopt_child takes ownership of an existing node.
/// `delete` and std::unique_ptr work for every node, wherever it was made.
///
/// Text is stored unchanged, unit by unit. Operations that insert or store throw
/// std::bad_alloc, and std::length_error for a text of 2^32 units or more; the tree is then
/// unchanged. (insert_range and insert_copies keep the copies that they made before.)
///
/// Derived classes. Hosts may derive from every class of nodes. A tree uses a node of such
/// a class only through its virtual operations: can_contain() calls its category_flags(),
/// node_kind(), tag_trait() and tag(), insertion and copying call its clone(), the writer
/// calls its write(). The caller owns the result of clone(). A node whose clone() returns
/// null can't be inserted by copy and is left out of a copy of its parent. (g++ 12 gives a
/// false -Wfree-nonheap-object warning for a class whose first base isn't the node, and
/// can't compile one with a virtual base.)
///
/// Depth. No operation needs more machine stack for a deeper tree of our own classes.
/// Copying, writing and deleting recurse once for each node of a derived class on the way
/// down.
class xhtml_markup {
 public:
  /// A node of no kind, without a parent.
  xhtml_markup();

  /// A node of no kind with the parent of `other` and copies of its children, made by their
  /// clone(). Nothing else of `other` is copied: see clone().
  xhtml_markup(const xhtml_markup& other);
  xhtml_markup& operator=(const xhtml_markup&) = delete;

  /// Deletes the children.
  virtual ~xhtml_markup();

  /// Destroys `node` and frees its memory, wherever it was made.
  static void operator delete(xhtml_markup* node, std::destroying_delete_t, std::size_t bytes,
                              std::align_val_t alignment);

  /// Allocate on the general heap, as for any class. The forms of `delete` are for
  /// constructors that throw. None is inline: g++ would warn of a mismatch with the `delete`
  /// above.
  static void* operator new(std::size_t bytes);
  static void* operator new(std::size_t bytes, std::align_val_t alignment);
  static void* operator new(std::size_t bytes, const std::nothrow_t&) noexcept;
  static void* operator new(std::size_t bytes, std::align_val_t alignment,
                            const std::nothrow_t&) noexcept;
  static void* operator new(std::size_t, void* memory) noexcept { return memory; }
  static void operator delete(void* memory);
  static void operator delete(void* memory, std::align_val_t alignment);
  static void operator delete(void* memory, const std::nothrow_t&);
  static void operator delete(void* memory, std::align_val_t alignment, const std::nothrow_t&);

  /// Takes ownership of `node`, which is in no tree, and appends it. If it is refused or
  /// null, the result is the end, and the caller keeps it. (A derived class may return any
  /// position without a node to say the same.)
  virtual markup_iterator adopt_child(xhtml_markup* node);

  /// Inserts copies of the nodes from `first` up to `last` at `position`, one after the
  /// other, each as by insert_copy. If a copy is refused, the next ones are inserted before
  /// the first child: insert_copy returns the end, and after the end comes the first child.
  /// The range may be in this node. If `first` and `last` are in different lists, nothing is
  /// inserted.
  virtual void insert_range(const_markup_iterator position, const_markup_iterator first,
                            const_markup_iterator last);

  /// Inserts `count` copies of `node` in the same way.
  virtual void insert_copies(const_markup_iterator position, std::size_t count,
                             const xhtml_markup& node);

  /// Inserts character data before `position` and returns its position.
  virtual markup_iterator insert_text(const_markup_iterator position, ustring_view text);

  /// Inserts a deep copy of `node` before `position` and returns its position.
  virtual markup_iterator insert_copy(const_markup_iterator position, const xhtml_markup& node);

  /// insert_text and insert_copy at the end.
  virtual markup_iterator append_text(ustring_view text);
  virtual markup_iterator append_copy(const xhtml_markup& node);

  /// append_copy, and append_text where text is accepted; both return the node itself.
  /// A text leaf appends the text to its own.
  virtual xhtml_markup& operator<<(const xhtml_markup& node);
  virtual xhtml_markup& operator<<(ustring_view text);

  /// The same as append_text and append_copy.
  virtual markup_iterator push_back_text(ustring_view text);
  virtual markup_iterator push_back_copy(const xhtml_markup& node);

  /// insert_text and insert_copy before the first child.
  virtual markup_iterator push_front_text(ustring_view text);
  virtual markup_iterator push_front_copy(const xhtml_markup& node);

  /// Stores an attribute, replacing its old value. False, without a change, if the element
  /// doesn't allow it.
  virtual bool set_attribute(attr_id attribute, ustring_view value);

  /// The attribute's value; empty if there is none.
  virtual ustring get_attribute(attr_id attribute) const;

  /// The attributes of an element; null for other nodes. Nothing stored directly in them is
  /// checked.
  virtual const attribute_map* attributes() const;
  virtual attribute_map* attributes();

  /// One of the values of node_type.
  virtual std::int32_t node_kind() const;

  /// Stores an inline style property, replacing its old value. Nothing is checked. False for
  /// nodes that aren't elements.
  virtual bool set_style(css_property_id property, ustring_view value);

  /// The property's value; empty if there is none.
  virtual ustring get_style(css_property_id property) const;

  /// The inline style of an element; null for other nodes.
  virtual const style_map* style_properties() const;
  virtual style_map* style_properties();

  /// The number of an element; tag_id::invalid_tag for all other nodes.
  virtual tag_id tag() const;

  /// The name of an element; the source text of an end tag.
  virtual ustring tag_name() const;

  /// Writes the node and all below it to the writer's stream.
  virtual void write(xhtml_writer& writer) const;

  /// Whether character data may be a child.
  virtual bool accepts_text() const;

  /// The element's content flags.
  virtual std::uint32_t content_flags() const;

  /// A deep copy on the heap, owned by the caller; null for kinds that can't be copied. Its
  /// parent() is the parent of this node until it is inserted: don't write the copy, call its
  /// parent() or parse into it after that parent was deleted.
  virtual xhtml_markup* clone() const;

  /// Whether this is an element that accepts no content.
  virtual bool is_empty_element() const;

  /// The text of the element's end tag; empty for an element without content. Throws
  /// std::domain_error ("pTag_trait invlaid") for an element without a record.
  virtual ustring end_tag_text() const;

  /// The handle of an element's rule record; null for other nodes.
  virtual const Tag_trait_handle* tag_trait() const;

  /// Whether this is an end tag as the parser reads it.
  virtual bool is_end_tag() const;

  /// How the node may be placed in others: a value of `category`, or category_text.
  virtual std::uint32_t category_flags() const;

  /// Removes white space from the end of character data.
  virtual void trim_trailing_space();

  /// Whether `node` may be a child of this one.
  virtual bool can_contain(const xhtml_markup& node) const;

  /// The child list. Leaves have an empty one.
  markup_iterator begin();
  const_markup_iterator begin() const;
  markup_iterator end() { return markup_iterator(nullptr, this); }
  const_markup_iterator end() const { return const_markup_iterator(nullptr, this); }

  /// The first and the last child, and the next sibling; null if there is none.
  const xhtml_markup* first_child() const { return holds_text() ? nullptr : first_child_; }
  xhtml_markup* first_child() { return holds_text() ? nullptr : first_child_; }
  xhtml_markup* last_child();
  const xhtml_markup* next_sibling() const { return next_; }

  /// The node that this one was inserted into; null if there was none. A copy that isn't
  /// inserted yet has the parent of the original.
  const xhtml_markup* parent() const { return parent_; }

  /// Which of our classes this node has or derives from. Derived classes may return another
  /// number from node_kind().
  node_type type() const { return type_; }

  /// Whether the class of this node is exactly that of its type(). Nodes in a pool always are;
  /// node_type::none never is, since there are no shortcuts for it.
  bool is_own_class() const noexcept {
    return in_pool_ || is_exactly(*this, *own_classes[static_cast<std::size_t>(type_)]);
  }

  /// This node as the class of its type(); null for other types.
  inline xhtml_element* as_element();
  inline const xhtml_element* as_element() const;
  inline text_leaf* as_text();
  inline const text_leaf* as_text() const;

 private:
  friend class const_markup_iterator;
  friend class text_leaf;
  friend class xhtml_element;

  // For derived node classes: a node at `where` that occupies `bytes` of memory.
  xhtml_markup(node_type type, std::size_t bytes, const node_place& where = {});

  // A copy on the heap, of `bytes`, with the parent of `other` and without children.
  xhtml_markup(const xhtml_markup& other, std::size_t bytes);

  // The class of each node_type, by number.
  static const std::type_info* const own_classes[6];

  bool holds_text() const { return type_ > node_type::element || type_ == node_type::doctype; }

  // The list of children.
  void link(xhtml_markup* node, const xhtml_markup* before) noexcept;
  void note_heap_node() noexcept;
  void copy_children(const xhtml_markup& source);
  void delete_children() noexcept;
  xhtml_markup* take_first_child() noexcept;

  // Siblings are linked both ways. The first child's `previous_` is the last child, so that
  // the parent needs only one pointer.
  xhtml_markup* parent_ = nullptr;
  xhtml_markup* next_ = nullptr;
  xhtml_markup* previous_ = nullptr;
  node_type type_ = node_type::none;
  bool in_pool_ : 1 = false;
  bool text_outside_ : 1 = false;  // see text_leaf
  std::uint16_t granules_;         // the node's memory, in granules of the pool

  union {
    std::uint32_t text_size_ = 0;  // see text_leaf
    Tag_trait_handle trait_;       // of an element
  };

  // A node has children or a text, never both, so they share memory.
  union {
    xhtml_markup* first_child_ = nullptr;
    char16* outside_text_;
    char16 inside_text_[sizeof(void*) / sizeof(char16)];
  };
};

inline xhtml_markup::xhtml_markup(node_type type, std::size_t bytes, const node_place& where)
    : parent_(where.parent()),
      type_(type),
      in_pool_(where.pool() != nullptr),
      granules_(static_cast<std::uint16_t>(node_pool::round_up(bytes) / node_pool::granule)) {}

// Links `node` before `before`, or after the last child if that is null.
inline void xhtml_markup::link(xhtml_markup* node, const xhtml_markup* before) noexcept {
  node->parent_ = this;
  if (!node->in_pool_) note_heap_node();
  if (first_child_ == nullptr) {
    node->next_ = nullptr;
    node->previous_ = node;
    first_child_ = node;
  } else if (before == nullptr) {
    xhtml_markup* const last = first_child_->previous_;
    node->next_ = nullptr;
    node->previous_ = last;
    last->next_ = node;
    first_child_->previous_ = node;
  } else {
    xhtml_markup* const successor = const_cast<xhtml_markup*>(before);
    node->next_ = successor;
    node->previous_ = successor->previous_;
    (successor == first_child_ ? first_child_ : successor->previous_->next_) = node;
    successor->previous_ = node;
  }
}

inline xhtml_markup* xhtml_markup::last_child() {
  xhtml_markup* const first = first_child();
  return first != nullptr ? first->previous_ : nullptr;
}

}  // namespace Xport

#endif
