#ifndef TESTS_SUPPORT_GUARDED_PARSER_H
#define TESTS_SUPPORT_GUARDED_PARSER_H

#include "tests/support/names.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/text/char16.h"

namespace test {

/// Whether reading `text` as a stylesheet never ends.
bool is_endless_stylesheet(ustring_view text);

/// A parser that comes to an end on every page: a text in `style` whose reading as a stylesheet
/// would never end is added to the tree unchanged. All else is as in xhtml_parser.
class guarded_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;

  /// Whether there was such a text.
  bool met_endless() const { return met_endless_; }

  xhtml_markup* read_pcdata(xhtml_markup* parent, const ustring& prefix) override;

 private:
  bool met_endless_ = false;
};

}  // namespace test

#endif
