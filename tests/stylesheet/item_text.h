#ifndef TESTS_STYLESHEET_ITEM_TEXT_H
#define TESTS_STYLESHEET_ITEM_TEXT_H

#include "xport/stream/ustring_stream.h"
#include "xport/stylesheet/stylesheet_items.h"
#include "xport/stylesheet/stylesheet_writer.h"

namespace test {

/// What a writer with the default options makes of `item`.
inline Xport::ustring text_of(const Xport::xhtml_stylesheet_item& item) {
  Xport::ustring_stream stream;
  Xport::stylesheet_writer writer(stream);
  item.write(writer);
  return stream.str();
}

/// What a writer that `set_up` has changed makes of `item`.
template <class SetUp>
Xport::ustring text_of(const Xport::xhtml_stylesheet_item& item, SetUp set_up) {
  Xport::ustring_stream stream;
  Xport::stylesheet_writer writer(stream);
  set_up(writer);
  item.write(writer);
  return stream.str();
}

}  // namespace test

#endif
