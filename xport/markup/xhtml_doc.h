#ifndef XPORT_MARKUP_XHTML_DOC_H
#define XPORT_MARKUP_XHTML_DOC_H

#include <memory>

#include "xport/markup/descendant_markup_iterator.h"
#include "xport/markup/markup_iterator.h"
#include "xport/markup/xhtml_element.h"
#include "xport/stream/byte_file.h"

namespace Xport {

class xhtml_stylesheet;
class xhtml_writer;

/// Owns one markup tree and knows its well-known elements. The nodes live in the document's
/// pool, so destroying a document doesn't visit them, unless some were adopted or are of
/// derived classes.
class xhtml_doc {
 public:
  /// `mode` 1 makes a skeleton: the doctype, and `html` with its namespace, a `head` with an
  /// empty `title`, and a `body`. Any other value makes the root alone, into which a file is
  /// parsed.
  explicit xhtml_doc(int mode);
  xhtml_doc(const xhtml_doc&) = delete;
  xhtml_doc& operator=(const xhtml_doc&) = delete;
  virtual ~xhtml_doc();

  /// The parent of the doctype and `html`: element number 0, which is never written itself.
  /// Never null.
  xhtml_element* root() { return &root_; }
  const xhtml_element* root() const { return &root_; }

  /// The known elements; null for those that don't exist. Clearing their parents leaves
  /// these pointers dangling until reindex().
  xhtml_markup* html() const { return html_; }
  xhtml_markup* head() const { return head_; }

  /// As above. If unknown, `title` is looked up among the children of `head`, and `body` among
  /// those of `html`; the last match counts. `title` needs both `html` and `head`.
  xhtml_markup* title();
  xhtml_markup* body();

  /// The last child of `html` that isn't an element, as of the last reindex().
  xhtml_markup* stray() const { return stray_; }

  /// Start and end of the walk over the root and all nodes of the document.
  descendant_markup_iterator descendant_begin();
  descendant_markup_iterator descendant_end();

  /// Finds the known elements again after the tree was changed through root(): the last
  /// `html`, and in any `html` the last `head`, `title`, `body` and stray node. Those that
  /// aren't found become null. Deletes no node. Time is linear in the children of the root,
  /// of `html` and of `head`.
  void reindex();

  /// Appends a `style` element of the type "text/css" with the text of `sheet` to `head` and
  /// returns its position. Without a `head` nothing changes and the result is the end of the
  /// root's list. The sheet itself isn't kept.
  markup_iterator add_stylesheet(const xhtml_stylesheet& sheet);

  /// Writes the writer's byte-order mark and the whole tree, and flushes the stream. False,
  /// with nothing written, if the stream already has failbit or badbit. Later failures
  /// set the stream's state; whether they also throw depends on the stream's exceptions(). Time
  /// is linear in the tree and the output.
  bool write(xhtml_writer& writer) const;

 private:
  node_pool pool_;
  xhtml_element root_;
  xhtml_markup* html_ = nullptr;
  xhtml_markup* head_ = nullptr;
  xhtml_markup* title_ = nullptr;
  xhtml_markup* body_ = nullptr;
  xhtml_markup* stray_ = nullptr;
};

/// Writes `doc` to `file` with the writer's default options, in UTF-16 little-endian with a
/// byte-order mark, and closes it. False if `file` is null, which means that it couldn't be
/// opened; true otherwise, even if writing or closing fails and the file is incomplete.
bool write_document(const xhtml_doc& doc, std::unique_ptr<byte_output> file);

}  // namespace Xport

#endif
