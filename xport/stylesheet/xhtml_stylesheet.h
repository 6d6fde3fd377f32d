#ifndef XPORT_STYLESHEET_XHTML_STYLESHEET_H
#define XPORT_STYLESHEET_XHTML_STYLESHEET_H

#include <cstddef>
#include <istream>
#include <memory>
#include <vector>

#include "xport/stylesheet/stylesheet_items.h"
#include "xport/text/char16.h"

namespace Xport {

/// A list of rules, imports and comments in the order in which they are written. Rules are
/// neither merged nor matched: two rules with one selector stay two.
/// xhtml_doc::add_stylesheet copies the text of a stylesheet into a document, which doesn't
/// keep the stylesheet.
class xhtml_stylesheet {
 public:
  xhtml_stylesheet() = default;
  xhtml_stylesheet(const xhtml_stylesheet&) = delete;
  xhtml_stylesheet& operator=(const xhtml_stylesheet&) = delete;
  virtual ~xhtml_stylesheet();

  /// Appends a copy of `item` and returns the position of the copy. A neutral item can't be
  /// stored: nothing is added, and the end is returned. If an exception is thrown, the sheet
  /// is unchanged.
  stylesheet_iterator add_item(const xhtml_stylesheet_item& item);

  /// Replaces all items by those read from the text of `stream`: rules, comments and
  /// `@import` lines. Everything else is silently dropped, and the result is always true. A
  /// null pointer or a failed stream leaves the sheet empty. A byte-order mark is removed
  /// first (see detect_byte_order). U+FFFF ends the text. Units are read from the stream's
  /// buffer without changing the stream's state. White space is what the stream's locale
  /// (`getloc()`) classifies as `space` or `blank`; after a big-endian mark the global locale
  /// decides instead.
  ///
  /// What is read isn't always what was written:
  /// - A comment inside a selector or a property name is stored before its rule. The unit
  ///   after the comment is lost, and so is the unit after a lone "/" there.
  /// - A value of at most two units continues past its end, without the next unit, up to the
  ///   next ";" or "}": `margin: 0; padding: 1px;` sets `margin` to `0padding: 1px`.
  /// - A quote at the end of a longer value is lost, and so is a quote after its end; a quote
  ///   at its beginning stays.
  /// - A property outside the table is dropped with its value.
  /// - The URL of an import is the word after `@import` without its first four units and
  ///   without the double quotes, closing parentheses and semicolons at its end. An import
  ///   whose word has fewer than nine units is dropped.
  ///
  /// parse() never returns from a text that ends inside a rule unless the stream's buffer
  /// throws; its memory doesn't grow meanwhile. A last value of at most two units swallows
  /// the end of its rule. If the stream's end-of-file flag is set, which reading itself never
  /// does, the declarations of a rule end at that point.
  ///
  /// Throws what the buffer throws, and std::bad_alloc; the sheet then holds the items that
  /// were complete. Two cases are failures of the stream instead, which throw only if the
  /// stream's exceptions() ask for it and leave the sheet empty: an empty text, and an
  /// exception of the buffer during the search for a byte-order mark.
  bool parse(std::unique_ptr<std::basic_istream<char16>> stream);

  /// Copies the rest of the buffer of `stream`, whatever the stream's state, and parses the
  /// copy. White space is that of the global locale, not of the stream's. If copying throws,
  /// the sheet is unchanged.
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
