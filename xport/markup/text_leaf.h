#ifndef XPORT_MARKUP_TEXT_LEAF_H
#define XPORT_MARKUP_TEXT_LEAF_H

#include <cstddef>
#include <cstdint>

#include "xport/markup/xhtml_markup.h"
#include "xport/text/character_class.h"

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
  ustring_view text() const { return {units(), text_size_}; }

  using xhtml_markup::operator<<;

  /// Extends the text.
  xhtml_markup& operator<<(ustring_view text) override;

  /// Cuts white space, as `classes` know it, from the end of the text.
  void trim_right(const character_classes& classes) {
    text_size_ = static_cast<std::uint32_t>(classes.trim_right(text()).size());
  }

  /// The memory that a node takes to hold all of `text` itself; 0 for a text that is too
  /// long for that.
  static constexpr std::size_t bytes_with(ustring_view text) {
    return text.size() <= longest_in_node ? bytes_before_text + text.size() * sizeof(char16) : 0;
  }

 protected:
  /// `type` is one of the four kinds that are a text.
  text_leaf(node_type type, ustring_view text, const node_place& where = {});

  text_leaf(const text_leaf& other);

 private:
  static constexpr std::size_t longest_in_node = 220;
  static constexpr std::size_t bytes_before_text = sizeof(xhtml_markup) - sizeof(char16*);

  node_pool* text_pool() const;
  std::size_t room() const;
  const char16* units() const { return text_outside_ ? outside_text_ : inside_text_; }
  char16* units() { return text_outside_ ? outside_text_ : inside_text_; }
  void store(ustring_view text);
  char16* allocate(std::size_t capacity);
  void release_outside() noexcept;

  // In units, of a text outside. An inline text extends over this field, from the last
  // one of the base class.
  std::size_t outside_capacity_;
};

inline text_leaf* xhtml_markup::as_text() {
  return holds_text() ? static_cast<text_leaf*>(this) : nullptr;
}
inline const text_leaf* xhtml_markup::as_text() const {
  return holds_text() ? static_cast<const text_leaf*>(this) : nullptr;
}

}  // namespace Xport

#endif
