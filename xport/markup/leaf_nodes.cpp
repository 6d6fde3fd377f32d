#include "xport/markup/leaf_nodes.h"

#include "xport/markup/xhtml_writer.h"
#include "xport/text/character_class.h"

namespace Xport {

namespace {

// The body of a token that may carry its delimiters. A delimiter is dropped only
// where the token is longer than the limit that goes with it.
ustring_view body_of(ustring_view token, ustring_view head, std::size_t head_limit,
                     ustring_view tail, std::size_t tail_limit, const character_classes& classes) {
  if (token.size() > head_limit && token.starts_with(head)) token.remove_prefix(head.size());
  if (token.size() > tail_limit && token.ends_with(tail)) token.remove_suffix(tail.size());
  return classes.trim(token);
}

}  // namespace

void xhtml_pcdata::write(xhtml_writer& writer) const { writer.write(*this); }

xhtml_comment::xhtml_comment(ustring_view token)
    : text_leaf(node_type::comment, body(token, character_classes())) {}

ustring_view xhtml_comment::body(ustring_view token, const character_classes& classes) {
  return body_of(token, u"<--", 3, u"-->", 4, classes);
}

void xhtml_comment::write(xhtml_writer& writer) const { writer.write(*this); }

xhtml_processing_instruction::xhtml_processing_instruction(ustring_view token)
    : text_leaf(node_type::processing_instruction, body(token, character_classes())) {}

// The limit of the end is one more than its length needs, unlike that of the start.
ustring_view xhtml_processing_instruction::body(ustring_view token,
                                                const character_classes& classes) {
  return body_of(token, u"<?", 2, u"?>", 4, classes);
}

void xhtml_processing_instruction::write(xhtml_writer& writer) const { writer.write(*this); }

void xhtml_doctype_declaration::write(xhtml_writer& writer) const { writer.write(*this); }

}  // namespace Xport
