#ifndef XPORT_MARKUP_LEAF_NODES_H
#define XPORT_MARKUP_LEAF_NODES_H

#include <cstddef>
#include <cstdint>

#include "xport/markup/xhtml_markup.h"
#include "xport/text/character_class.h"

namespace Xport {

/// A leaf with a text: character data, a comment, an instruction, a doctype.
///
/// A short text is stored in the node itself: up to 8 units in a node on the stack or the
/// heap; in a tree's pool the node is made with room for its text, up to a few hundred
/// units. A longer text has a block of its own.
class text_leaf : public xhtml_markup {
 public:
  ~text_leaf() override;

  /// The text. Valid until it is changed.
  ustring_view text() const { return {units(), text_size_}; }

  using xhtml_markup::operator<<;

  /// Extends the text. Time is linear in `text` on average.
  xhtml_markup& operator<<(ustring_view text) override;

  /// Removes white space, as `classes` define it, from the end of the text.
  void trim_right(const character_classes& classes) {
    text_size_ = static_cast<std::uint32_t>(classes.trim_right(text()).size());
  }

  /// The memory of a node that stores `text` in itself; 0 if `text` is too long for that.
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

  // In units, for a text outside the node. A text inside starts in the last field of the
  // base class and extends over this one.
  std::size_t outside_capacity_;
};

inline text_leaf* xhtml_markup::as_text() {
  return holds_text() ? static_cast<text_leaf*>(this) : nullptr;
}
inline const text_leaf* xhtml_markup::as_text() const {
  return holds_text() ? static_cast<const text_leaf*>(this) : nullptr;
}

/// Character data in the form in which it is written: nothing is decoded, escaped or
/// checked on the way in or out.
class xhtml_pcdata : public text_leaf {
 public:
  explicit xhtml_pcdata(ustring_view text) : text_leaf(node_type::pcdata, text) {}

  /// A node with `text` at `where`.
  xhtml_pcdata(ustring_view text, const node_place& where)
      : text_leaf(node_type::pcdata, text, where) {}

  void write(xhtml_writer& writer) const override;
  xhtml_markup* clone() const override { return new xhtml_pcdata(*this); }
  std::uint32_t category_flags() const override { return category_text; }
  void trim_trailing_space() override { trim_right(character_classes()); }
};

/// A comment. Its text is the body without the delimiters.
class xhtml_comment : public text_leaf {
 public:
  /// `token` is a comment as the parser reads it, without the exclamation mark. If it has
  /// more than 3 units, "<--" is removed from its start; if more than 4 units are left, "-->"
  /// is removed from its end. White space is removed from both ends.
  explicit xhtml_comment(ustring_view token);

  /// A node with the body `text` at `where`.
  xhtml_comment(ustring_view text, const node_place& where)
      : text_leaf(node_type::comment, text, where) {}

  /// The part of a token that the constructor keeps.
  static ustring_view body(ustring_view token, const character_classes& classes);

  void write(xhtml_writer& writer) const override;
  xhtml_markup* clone() const override { return new xhtml_comment(*this); }
  std::uint32_t category_flags() const override { return category_inline; }

  /// The object itself.
  virtual xhtml_comment& comment_self() { return *this; }
};

/// A processing instruction. Its text is the body without the delimiters.
class xhtml_processing_instruction : public text_leaf {
 public:
  /// `token` is an instruction as the parser reads it. If it has more than 2 units, "<?" is
  /// removed from its start; if more than 4 units are left, "?>" is removed from its end.
  /// White space is removed from both ends.
  explicit xhtml_processing_instruction(ustring_view token);

  /// A node with the body `text` at `where`.
  xhtml_processing_instruction(ustring_view text, const node_place& where)
      : text_leaf(node_type::processing_instruction, text, where) {}

  /// The part of a token that the constructor keeps.
  static ustring_view body(ustring_view token, const character_classes& classes);

  void write(xhtml_writer& writer) const override;
  xhtml_markup* clone() const override { return new xhtml_processing_instruction(*this); }
  std::uint32_t category_flags() const override { return category_block; }
};

/// A document type declaration. Its text is kept but never written: the writer always
/// writes the declaration of XHTML 1.0 Strict.
class xhtml_doctype_declaration : public text_leaf {
 public:
  xhtml_doctype_declaration() : text_leaf(node_type::doctype, {}) {}

  /// A node with `text` at `where`.
  xhtml_doctype_declaration(ustring_view text, const node_place& where)
      : text_leaf(node_type::doctype, text, where) {}

  void write(xhtml_writer& writer) const override;
  xhtml_markup* clone() const override { return new xhtml_doctype_declaration(*this); }
  std::uint32_t category_flags() const override { return category_block; }
};

/// An end tag as the parser reads it. It exists only during parsing: it can't be cloned or
/// inserted, and it writes nothing.
class xhtml_end_tag : public xhtml_markup {
 public:
  /// Keeps `token` unchanged. The element is looked up, in any case, by the token without a
  /// leading "<", a "/" after that, and a trailing ">".
  explicit xhtml_end_tag(ustring_view token);

  tag_id tag() const override { return tag_; }

  /// The token.
  ustring tag_name() const override { return source_; }
  bool is_end_tag() const override { return true; }

 private:
  tag_id tag_;
  ustring source_;
};

}  // namespace Xport

#endif
