#include "xport/stylesheet/xhtml_stylesheet.h"

#include <sstream>
#include <utility>

#include "xport/stream/byte_order.h"
#include "xport/stream/unit_input.h"
#include "xport/stylesheet/stylesheet_reader.h"

namespace Xport {

namespace {

// A stream in whose place another one may be put.
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

}  // namespace Xport
