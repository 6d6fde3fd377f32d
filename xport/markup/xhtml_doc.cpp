#include "xport/markup/xhtml_doc.h"

#include <utility>

#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_writer.h"
#include "xport/stream/file_output_stream.h"
#include "xport/stream/null_codecvt.h"

namespace Xport {

namespace {

// The namespace name in the XHTML 1.0 recommendation.
constexpr ustring_view xhtml_namespace = u"http://www.w3.org/1999/xhtml";

xhtml_element element(tag_id tag) { return xhtml_element(tag, {}, {}); }

// The last child of `parent` with `tag`; `known` if there is none.
xhtml_markup* last_child_with(tag_id tag, xhtml_markup& parent, xhtml_markup* known) {
  for (xhtml_markup& child : parent)
    if (child.tag() == tag) known = &child;
  return known;
}

}  // namespace

xhtml_doc::xhtml_doc(int mode) : root_(tag_id::doc_root, {}, {}, &pool_) {
  if (mode != 1) return;
  root_ << xhtml_doctype_declaration();
  html_ = root_.append_copy(element(tag_id::html)).cell();
  head_ = html_->append_copy(element(tag_id::head)).cell();
  head_->append_copy(element(tag_id::title));
  body_ = html_->append_copy(element(tag_id::body)).cell();
  html_->set_attribute(attr_id::xmlns, xhtml_namespace);
}

xhtml_doc::~xhtml_doc() {
  if (!pool_.holds_heap_nodes()) root_.abandon_children();
}

xhtml_markup* xhtml_doc::title() {
  if (title_ == nullptr && html_ != nullptr && head_ != nullptr)
    title_ = last_child_with(tag_id::title, *head_, nullptr);
  return title_;
}

xhtml_markup* xhtml_doc::body() {
  if (body_ == nullptr && html_ != nullptr) body_ = last_child_with(tag_id::body, *html_, nullptr);
  return body_;
}

descendant_markup_iterator xhtml_doc::descendant_begin() {
  return descendant_markup_iterator(root_.begin(), &root_, true);
}

descendant_markup_iterator xhtml_doc::descendant_end() {
  return descendant_markup_iterator(root_.end(), &root_, false);
}

void xhtml_doc::reindex() {
  html_ = head_ = title_ = body_ = stray_ = nullptr;
  for (xhtml_markup& top : root_) {
    if (top.tag() != tag_id::html) continue;
    html_ = &top;
    for (xhtml_markup& child : top) {
      switch (child.tag()) {
        case tag_id::head:
          head_ = &child;
          title_ = last_child_with(tag_id::title, child, title_);
          break;
        case tag_id::body:
          body_ = &child;
          break;
        case tag_id::invalid_tag:
          stray_ = &child;
          break;
        default:
          break;
      }
    }
  }
}

bool xhtml_doc::write(xhtml_writer& writer) const {
  if (writer.stream->fail()) return false;
  writer.write_byte_order_mark();
  root_.write(writer);
  writer.stream->flush();
  return true;
}

bool write_document(const xhtml_doc& doc, std::unique_ptr<byte_output> file) {
  file_output_stream stream;
  stream.imbue(with_null_codecvt(stream.getloc()));
  stream.open(std::move(file));
  if (stream.fail()) return false;
  xhtml_writer writer(stream);
  doc.write(writer);
  stream.close();
  return true;
}

}  // namespace Xport
