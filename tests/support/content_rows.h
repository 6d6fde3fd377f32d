#ifndef TESTS_SUPPORT_CONTENT_ROWS_H
#define TESTS_SUPPORT_CONTENT_ROWS_H

#include <cstdint>

namespace test {

/// A row of the content rules: elements that are alike, and what they take. Names
/// have blanks between them.
struct content_row {
  const char* elements;
  std::uint32_t category_flags;  ///< 1 block, 2 inline, 0 neither
  std::uint32_t content_flags;   ///< 1 blocks, 2 inline elements and text, 4 text
  const char* allowed_children;
  const char* excluded_children;
};

/// The rules of the 77 elements of XHTML 1.0 Strict and of the document root as this
/// library holds them, written down a second time to compare it with.
inline constexpr content_row content_rows[] = {
    {"area base col link meta param", 0, 0, "", ""},
    {"head", 0, 0, "base link meta script style title", ""},
    {"html", 0, 0, "body head", ""},
    {"colgroup", 0, 0, "col", ""},
    {"optgroup", 0, 0, "option", ""},
    {"tr", 0, 0, "td th", ""},
    {"tbody tfoot thead", 0, 0, "tr", ""},
    {"body", 0, 1, "del ins script", ""},
    {"caption dt legend", 0, 2, "", ""},
    {"dd del ins li td th", 0, 3, "", ""},
    {"option style title", 0, 4, "", ""},
    {"hr", 1, 0, "", ""},
    {"table", 1, 0, "caption col colgroup tbody tfoot thead tr", ""},
    {"dl", 1, 0, "dd dt", ""},
    {"ol ul", 1, 0, "li", ""},
    {"blockquote", 1, 1, "script", ""},
    {"h1 h2 h3 h4 h5 h6 p", 1, 2, "", ""},
    {"pre", 1, 2, "", "big img object small sub sup"},
    {"address", 1, 2, "p", ""},
    {"div noscript", 1, 3, "", ""},
    {"form", 1, 3, "", "form"},
    {"doc_root", 1, 3, "html", ""},
    {"fieldset", 1, 3, "legend", ""},
    {"br img input", 2, 0, "", ""},
    {"select", 2, 0, "optgroup option", ""},
    {"map", 2, 1, "area", ""},
    {"abbr acronym b bdo big cite code dfn em i kbd q samp small span strong sub sup tt var", 2, 2,
     "", ""},
    {"a", 2, 2, "", "a"},
    {"label", 2, 2, "", "label"},
    {"button", 2, 3, "", "a button fieldset form input label select textarea"},
    {"object", 2, 3, "param", ""},
    {"script textarea", 2, 4, "", ""},
};

}  // namespace test

#endif
