#ifndef XPORT_STYLESHEET_XHTML_STYLESHEET_H
#define XPORT_STYLESHEET_XHTML_STYLESHEET_H

#include <cstddef>
#include <istream>
#include <memory>
#include <vector>

#include "xport/stylesheet/stylesheet_items.h"
#include "xport/text/char16.h"

namespace Xport {

/// A list of rules, imports and comments in the order in which they are written.
/// There is no merging and no matching: two rules with one selector stay two. A
/// document takes a stylesheet's text (xhtml_doc::add_stylesheet) and doesn't
/// keep the stylesheet.
class xhtml_stylesheet {
 public:
  xhtml_stylesheet() = default;
  xhtml_stylesheet(const xhtml_stylesheet&) = delete;
  xhtml_stylesheet& operator=(const xhtml_stylesheet&) = delete;
  virtual ~xhtml_stylesheet();

  /// Appends a copy of `item`, which stays with the caller, and gives the copy's
  /// position. A neutral item can't be held: nothing is added, and the result is
  /// the end.
  stylesheet_iterator add_item(const xhtml_stylesheet_item& item);

  /// Replaces the content by what is read from the text of `stream`: rules, comments and
  /// `@import` lines. Anything else is dropped without a word, and the result is always
  /// true. The sheet is empty for a null pointer, and for a stream that has failed. A
  /// byte-order mark is taken out of the text first (see detect_byte_order). U+FFFF
  /// ends the text. Units come from the stream's buffer and leave the stream's state alone.
  /// White space is what the locale of the stream (`getloc()`) classifies as `space` or
  /// `blank`. After a big-endian mark the global locale decides instead.
  ///
  /// What is read isn't always what was written:
  /// - A comment within a selector or a property name stands ahead of its rule. The unit
  ///   behind it is lost, and likewise that behind a lone "/" there.
  /// - A value of up to two units goes on behind its end, less one unit, up to the next
  ///   ";" or "}": `margin: 0; padding: 1px;` gives `margin` the value `0padding: 1px`.
  /// - A quote at the end of a longer value is lost, and one behind its end; one at its
  ///   beginning stays.
  /// - A property that isn't in the table is dropped with its value.
  /// - An import is the next word without its first four units, and without double quotes,
  ///   closing parentheses and semicolons at its end; a word below nine units is none.
  ///
  /// parse() never returns from a text that ends within a rule, unless by an exception of
  /// the stream's buffer; a last value of up to two units takes the end of its rule in. It
  /// takes no more memory meanwhile. The stream's end-of-file flag,
  /// which reading itself never sets, ends the declarations of a rule where they stand.
  ///
  /// What the buffer throws and std::bad_alloc pass through; the sheet then holds the
  /// items that were complete. An empty text, and what the buffer throws where the units
  /// of a byte-order mark are looked for, are failures of the stream, which pass only if
  /// the stream's exceptions() say so; the sheet is empty then.
  bool parse(std::unique_ptr<std::basic_istream<char16>> stream);

  /// Copies all that is left in the buffer of `stream`, whatever the stream's state, and
  /// parses the copy. White space is that of the global locale, whatever the stream's. If
  /// copying throws an exception, the sheet is as it was.
  bool parse(std::basic_istream<char16>& stream);

  stylesheet_iterator begin() { return stylesheet_iterator(items_.begin()); }
  stylesheet_iterator end() { return stylesheet_iterator(items_.end()); }
  const_stylesheet_iterator begin() const { return const_stylesheet_iterator(items_.begin()); }
  const_stylesheet_iterator end() const { return const_stylesheet_iterator(items_.end()); }
  std::size_t size() const { return items_.size(); }

 private:
  std::vector<std::unique_ptr<xhtml_stylesheet_item>> items_;
};

}  // namespace Xport

#endif
