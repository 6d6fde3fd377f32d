#ifndef TESTS_PARSER_PARSE_KIT_H
#define TESTS_PARSER_PARSE_KIT_H

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/text.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/xhtml_parser.h"

namespace test {

/// The children of `node` in a line, with blanks between them. Elements by name, their attributes
/// in ascending number as [name="value" ...], their style as {name:value;...}, and their
/// children in brackets; texts as 'text', comments as #text#, instructions as ?text?, doctypes
/// as !text!, other nodes by tag_name(). Units as printable() shows them. Any depth will do.
std::string outline_with_attributes(const Xport::xhtml_markup& node);

/// `node` alone, which isn't of no kind, as it stands in that line.
std::string node_with_attributes(const Xport::xhtml_markup& node);

/// How a text is parsed, and what came of it.
struct parse_case {
  bool normalize_text = false;
  std::uint32_t message_mask = 0;  ///< nonzero: messages are gathered
  bool preserve_newlines = false;

  /// The chain of elements below a document's root whose last one is parsed into; none: the
  /// root itself.
  std::vector<Xport::tag_id> path = {Xport::tag_id::html, Xport::tag_id::body, Xport::tag_id::div};
};

struct parse_result {
  std::string children;  ///< of the receiving node, as outline_with_attributes
  std::string returned;  ///< of the node that parse_children gave: its name, else empty
  std::string messages;
  std::uint32_t line = 0;
  Xport::tag_id last_tag{};
  std::string rest;  ///< what was left in the input

  bool operator==(const parse_result&) const = default;
};

/// Parses `text` with references loaded and indexed. It is done four times: with all of the
/// text in the buffer's window, with one unit at a time, and into an element on the heap with
/// three units at a time and with none at hand. Then a derived parser does it, and a derived
/// element receives it. All must agree (else a test fails), and the trees must be intact. Long
/// texts are parsed the first two ways only, in larger pieces.
parse_result parse(Xport::ustring_view text, const parse_case& how = {});

/// The children that parse() makes of `text` in a `div` in `body`, in `p`, in `body`, in the root.
std::string in_div(Xport::ustring_view text);
std::string in_p(Xport::ustring_view text);
std::string in_body(Xport::ustring_view text);
std::string in_root(Xport::ustring_view text);

/// The messages that parse() makes of `text` under `mask`.
std::string messages_of(Xport::ustring_view text, std::uint32_t mask,
                        const std::vector<Xport::tag_id>& path = parse_case().path);

/// What the parser reports for `text` in `line`: the line number, the text, and a newline.
std::string message(unsigned line, const std::string& text);

}  // namespace test

#endif
