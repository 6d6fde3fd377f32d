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
#include "tests/support/tree_outline.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/xhtml_parser.h"

namespace test {

/// How a text is parsed, and what the result is.
struct parse_case {
  bool normalize_text = false;
  std::uint32_t message_mask = 0;  ///< nonzero: messages are gathered
  bool preserve_newlines = false;

  /// The chain of elements below a document's root whose last one is parsed into; none: the
  /// root itself.
  std::vector<tag_id> path = {tag_id::html, tag_id::body, tag_id::div};
};

struct parse_result {
  std::string children;  ///< of the receiving node, as outline_of_children
  std::string returned;  ///< of the node that parse_children gave: its name, else empty
  std::string messages;
  std::uint32_t line = 0;
  tag_id last_tag{};
  std::string rest;  ///< what was left in the input

  bool operator==(const parse_result&) const = default;
};

/// Parses `text` with references loaded and indexed. It is done four times: with all of the
/// text in the buffer's window, with one unit at a time, and into an element on the heap with
/// three units at a time and with none at hand. Then a derived parser does it, and a derived
/// element receives it. All must agree (else a test fails), and the trees must be intact. Long
/// texts are parsed the first two ways only, in larger pieces.
parse_result parse(ustring_view text, const parse_case& how = {});

/// The children that parse() makes of `text` in a `div` in `body`, in `p`, in `body`, in the root.
std::string in_div(ustring_view text);
std::string in_p(ustring_view text);
std::string in_body(ustring_view text);
std::string in_root(ustring_view text);

/// The messages that parse() makes of `text` under `mask`.
std::string messages_of(ustring_view text, std::uint32_t mask,
                        const std::vector<tag_id>& path = parse_case().path);

/// What the parser reports for `text` in `line`: the line number, the text, and a newline.
std::string message(unsigned line, const std::string& text);

}  // namespace test

#endif
