#include "xport/stylesheet/xhtml_stylesheet.h"

#include <sstream>
#include <utility>

#include "xport/markup/xhtml_doc.h"
#include "xport/stream/byte_order.h"
#include "xport/stream/unit_input.h"
#include "xport/stream/ustring_stream.h"
#include "xport/stylesheet/stylesheet_reader.h"
#include "xport/stylesheet/stylesheet_writer.h"

namespace Xport {

namespace {

// Owns a stream that detect_byte_order() may replace by another one.
struct owned_stream {
  explicit owned_stream(std::basic_istream<char16>* owned) : stream(owned) {}
  owned_stream(const owned_stream&) = delete;
  owned_stream& operator=(const owned_stream&) = delete;
  ~owned_stream() { delete stream; }

  std::basic_istream<char16>* stream;
};

}  // namespace

xhtml_stylesheet::~xhtml_stylesheet() = default;

stylesheet_iterator xhtml_stylesheet::add_item(const xhtml_stylesheet_item& item) {
  std::unique_ptr<xhtml_stylesheet_item> copy(item.clone());
  if (!copy) return end();
  items_.push_back(std::move(copy));
  return --end();
}

bool xhtml_stylesheet::parse(std::unique_ptr<std::basic_istream<char16>> stream) {
  items_.clear();
  if (!stream) return true;
  owned_stream source(stream.release());
  detect_byte_order(source.stream, true);
  if (!source.stream->fail()) read_stylesheet(*source.stream, items_);
  return true;
}

bool xhtml_stylesheet::parse(std::basic_istream<char16>& stream) {
  return parse(
      std::make_unique<std::basic_istringstream<char16>>(take_rest(unit_input(stream.rdbuf()))));
}

// Defined here because xport/markup/ doesn't depend on stylesheets.
markup_iterator xhtml_doc::add_stylesheet(const xhtml_stylesheet& sheet) {
  if (head_ == nullptr) return root_.end();
  xhtml_element style(tag_id::style, {}, {});
  style.set_attribute(attr_id::type, u"text/css");
  ustring_stream text;
  stylesheet_writer writer(text);
  for (const xhtml_stylesheet_item& item : sheet) item.write(writer);
  style << text.view();
  return head_->append_copy(style);
}

}  // namespace Xport
