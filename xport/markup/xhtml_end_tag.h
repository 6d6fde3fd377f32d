#ifndef XPORT_MARKUP_XHTML_END_TAG_H
#define XPORT_MARKUP_XHTML_END_TAG_H

#include "xport/markup/xhtml_markup.h"

namespace Xport {

/// A closing tag as the parser reads it. It lives only during parsing: it has no
/// clone, no parent takes it, and it writes nothing.
class xhtml_end_tag : public xhtml_markup {
 public:
  /// Keeps `token` as it is. The element is looked up by the token without a
  /// leading "<", a "/" behind it and a trailing ">", whatever its case.
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
