#ifndef XPORT_MARKUP_TEXT_LEAF_H
#define XPORT_MARKUP_TEXT_LEAF_H

#include <cstddef>
#include <cstdint>

#include "xport/markup/xhtml_markup.h"

namespace Xport {

/// A leaf that is a text: character data, a comment, an instruction, a doctype.
///
/// The text stands in the node itself where there is room: 8 units in a node of
/// the stack or the heap; in a tree's pool the node is made with room for its
/// text, up to a few hundred units. Otherwise it has a block of its own.
class text_leaf : public xhtml_markup {
 public:
  ~text_leaf() override;

  /// The text, valid until it is changed.
  ustring_view text() const { return {units(), size_}; }

  using xhtml_markup::operator<<;

  /// Extends the text.
  xhtml_markup& operator<<(ustring_view text) override;

 protected:
  /// Where a node of a tree is made: below `parent`, in `bytes` of its pool.
  struct place {
    xhtml_element& parent;
    std::size_t bytes;
  };

  text_leaf(node_type type, ustring_view text);
  text_leaf(node_type type, ustring_view text, const place& where);
  text_leaf(const text_leaf& other);

  /// Keeps the first `size` units, of which there must be as many.
  void truncate(std::size_t size) { size_ = static_cast<std::uint32_t>(size); }

 private:
  friend class xhtml_element;

  struct outside_text {
    char16* units;
    std::size_t capacity;
  };
  static constexpr std::size_t units_inside = sizeof(outside_text) / sizeof(char16);

  /// Texts up to this length stand in the node where the pool makes it.
  static constexpr std::size_t longest_in_node = 220;

  node_pool* text_pool() const;
  std::size_t room() const;
  const char16* units() const { return text_outside_ ? storage_.outside.units : storage_.inside; }
  char16* units() { return text_outside_ ? storage_.outside.units : storage_.inside; }
  void store(ustring_view text);
  char16* allocate(std::size_t capacity);
  void release_outside() noexcept;

  std::uint32_t size_ = 0;
  union {
    char16 inside[units_inside];
    outside_text outside;
  } storage_;
};

}  // namespace Xport

#endif
