#ifndef XPORT_MARKUP_XHTML_DOC_H
#define XPORT_MARKUP_XHTML_DOC_H

#include "xport/markup/descendant_markup_iterator.h"
#include "xport/markup/markup_iterator.h"
#include "xport/markup/xhtml_element.h"

namespace Xport {

class xhtml_stylesheet;
class xhtml_writer;

/// The owner of one markup tree and the short way to its well-known elements.
/// The nodes of the tree live in the document's pool, so dropping a document doesn't
/// visit them, unless some were adopted or are of derived classes. It opens no files.
class xhtml_doc {
 public:
  /// With `mode` 1 a document with the skeleton: the doctype and `html` with its
  /// namespace, in which are `head` with an empty `title`, and `body`. With any
  /// other value the root alone, the form into which a file is parsed.
  explicit xhtml_doc(int mode);
  xhtml_doc(const xhtml_doc&) = delete;
  xhtml_doc& operator=(const xhtml_doc&) = delete;
  virtual ~xhtml_doc();

  /// The node above the doctype and `html`, element number 0, which is never
  /// written itself. Never null.
  xhtml_element* root() { return &root_; }
  const xhtml_element* root() const { return &root_; }

  /// The elements as they are known, null where they aren't there. Clearing their
  /// parents makes what is known of them invalid, until reindex.
  xhtml_markup* html() const { return html_; }
  xhtml_markup* head() const { return head_; }

  /// As above; looked up among the children of `head` and of `html` where it
  /// isn't known yet, the last one of several. `title` needs both elements.
  xhtml_markup* title();
  xhtml_markup* body();

  /// The last child of `html` that isn't an element, as reindex found it.
  xhtml_markup* stray() const { return stray_; }

  /// The walk over the root and all nodes of the document, from its start to where it
  /// is over.
  descendant_markup_iterator descendant_begin();
  descendant_markup_iterator descendant_end();

  /// Works out the known elements from the tree, for a tree that was filled
  /// through root(): the last `html`, and in any `html` the last `head`, `title`,
  /// `body` and stray node. What isn't found is null, so that nothing leads to nodes
  /// of a tree that was cleared. No node is ever deleted by it.
  void reindex();

  /// Renders `sheet` into a `style` element of the type "text/css" at the end of
  /// `head` and gives its position. Without a `head` nothing changes and the
  /// result is the end of the root's list. The sheet itself isn't kept.
  markup_iterator add_stylesheet(const xhtml_stylesheet& sheet);

  /// Writes the byte-order mark that the writer asks for and the whole tree, and
  /// flushes the stream. False, with nothing written, if the stream is in a fail
  /// or bad state to begin with; later failures show in the stream's state only.
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

}  // namespace Xport

#endif
