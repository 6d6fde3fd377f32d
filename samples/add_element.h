#ifndef SAMPLES_ADD_ELEMENT_H
#define SAMPLES_ADD_ELEMENT_H

#include "xport/markup/xhtml_element.h"
#include "xport/markup/xhtml_markup.h"

namespace samples {

/// Appends an element to `parent` and returns it. An empty `id` or `class_name` omits that
/// attribute. If `parent` may not contain the element, returns a node that ignores all
/// content.
inline Xport::xhtml_markup& add_element(Xport::xhtml_markup& parent, Xport::tag_id tag,
                                        Xport::ustring_view id = {},
                                        Xport::ustring_view class_name = {}) {
  return *parent.append_copy(Xport::xhtml_element(tag, id, class_name));
}

/// Calls add_element() and appends `text` to the element. An empty text becomes an empty text node.
inline Xport::xhtml_markup& add_text_element(Xport::xhtml_markup& parent, Xport::tag_id tag,
                                             Xport::ustring_view text, Xport::ustring_view id = {},
                                             Xport::ustring_view class_name = {}) {
  Xport::xhtml_markup& added = add_element(parent, tag, id, class_name);
  added.append_text(text);
  return added;
}

}  // namespace samples

#endif
