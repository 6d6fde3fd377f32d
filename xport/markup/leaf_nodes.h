#ifndef XPORT_MARKUP_LEAF_NODES_H
#define XPORT_MARKUP_LEAF_NODES_H

#include "xport/markup/text_leaf.h"

namespace Xport {

/// Character data, held in its final written form: nothing is decoded, escaped
/// or checked on the way in or out.
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

/// A comment. The text is its body without the delimiters.
class xhtml_comment : public text_leaf {
 public:
  /// Takes a comment as the parser cuts it, which is without the exclamation
  /// mark. A token of more than 3 units loses "<--" at its start; if more than 4
  /// units are left, it loses "-->" at its end. White space is cut from both ends.
  explicit xhtml_comment(ustring_view token);

  /// A node with the body `text` at `where`.
  xhtml_comment(ustring_view text, const node_place& where)
      : text_leaf(node_type::comment, text, where) {}

  /// What the constructor keeps of a token.
  static ustring_view body(ustring_view token, const character_classes& classes);

  void write(xhtml_writer& writer) const override;
  xhtml_markup* clone() const override { return new xhtml_comment(*this); }
  std::uint32_t category_flags() const override { return category_inline; }

  /// The object itself.
  virtual xhtml_comment& comment_self() { return *this; }
};

/// A processing instruction. The text is its body without the delimiters.
class xhtml_processing_instruction : public text_leaf {
 public:
  /// Takes an instruction as the parser cuts it. A token of more than 2 units
  /// loses "<?" at its start; if more than 4 units are left, it loses "?>" at its
  /// end. White space is cut from both ends.
  explicit xhtml_processing_instruction(ustring_view token);

  /// A node with the body `text` at `where`.
  xhtml_processing_instruction(ustring_view text, const node_place& where)
      : text_leaf(node_type::processing_instruction, text, where) {}

  /// What the constructor keeps of a token.
  static ustring_view body(ustring_view token, const character_classes& classes);

  void write(xhtml_writer& writer) const override;
  xhtml_markup* clone() const override { return new xhtml_processing_instruction(*this); }
  std::uint32_t category_flags() const override { return category_block; }
};

/// A document type declaration. Its text is kept but never written: the writer
/// has one declaration, that of XHTML 1.0 Strict.
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

}  // namespace Xport

#endif
