#ifndef XPORT_VOCABULARY_CONTENT_RULES_H
#define XPORT_VOCABULARY_CONTENT_RULES_H

#include <cstdint>

#include "xport/vocabulary/tag_table.h"

namespace Xport::detail {

/// What some elements accept as content, and where they may be placed themselves.
struct content_rule {
  tag_set elements;
  std::uint32_t category_flags;
  std::uint32_t content_flags;
  tag_set allowed_children;
  tag_set excluded_children;
};

namespace content_rules {

using enum tag_id;

inline constexpr std::uint32_t content_flow = content_block | content_inline;

/// The content models of XHTML 1.0 Strict as membership: the order and the number of children
/// don't matter here. They differ from the published models:
/// - `ins` and `del` have no category, so only `body`, which names them, accepts them;
/// - `form` and `noscript` accept inline elements and character data directly;
/// - `address` accepts `p` too, `head` no `object`, and `map` no `script`.
/// Each element belongs to one rule, except those that Strict lacks, which belong to none.
inline constexpr content_rule rules[] = {
    // Parts of other elements, accepted only by a parent that names them.
    {{area, base, col, link, meta, param}, category_none, content_none, {}, {}},
    {{head}, category_none, content_none, {base, link, meta, script, style, title}, {}},
    {{html}, category_none, content_none, {body, head}, {}},
    {{colgroup}, category_none, content_none, {col}, {}},
    {{optgroup}, category_none, content_none, {option}, {}},
    {{tr}, category_none, content_none, {td, th}, {}},
    {{tbody, tfoot, thead}, category_none, content_none, {tr}, {}},
    {{body}, category_none, content_block, {del, ins, script}, {}},
    {{caption, dt, legend}, category_none, content_inline, {}, {}},
    {{dd, del, ins, li, td, th}, category_none, content_flow, {}, {}},
    {{option, style, title}, category_none, content_text, {}, {}},

    // Block elements.
    {{hr}, category_block, content_none, {}, {}},
    {{table}, category_block, content_none, {caption, col, colgroup, tbody, tfoot, thead, tr}, {}},
    {{dl}, category_block, content_none, {dd, dt}, {}},
    {{ol, ul}, category_block, content_none, {li}, {}},
    {{blockquote}, category_block, content_block, {script}, {}},
    {{h1, h2, h3, h4, h5, h6, p}, category_block, content_inline, {}, {}},
    {{pre}, category_block, content_inline, {}, {big, img, object, small, sub, sup}},
    {{address}, category_block, content_inline, {p}, {}},
    {{div, noscript}, category_block, content_flow, {}, {}},
    {{form}, category_block, content_flow, {}, {form}},
    {{doc_root}, category_block, content_flow, {html}, {}},
    {{fieldset}, category_block, content_flow, {legend}, {}},

    // Inline elements.
    {{br, img, input}, category_inline, content_none, {}, {}},
    {{select}, category_inline, content_none, {optgroup, option}, {}},
    {{map}, category_inline, content_block, {area}, {}},
    {{abbr, acronym, b,    bdo,   big,  cite,   code, dfn, em, i,
      kbd,  q,       samp, small, span, strong, sub,  sup, tt, var},
     category_inline,
     content_inline,
     {},
     {}},
    {{a}, category_inline, content_inline, {}, {a}},
    {{label}, category_inline, content_inline, {}, {label}},
    {{button},
     category_inline,
     content_flow,
     {},
     {a, button, fieldset, form, input, label, select, textarea}},
    {{object}, category_inline, content_flow, {param}, {}},
    {{script, textarea}, category_inline, content_text, {}, {}},
};

}  // namespace content_rules

}  // namespace Xport::detail

#endif
