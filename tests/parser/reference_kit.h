#ifndef TESTS_PARSER_REFERENCE_KIT_H
#define TESTS_PARSER_REFERENCE_KIT_H

#include <cstdint>
#include <utility>

#include "tests/support/names.h"
#include "xport/parser/character_reference.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/text/char16.h"

namespace test {

/// A parser with the stock table.
class stock_parser : public xhtml_parser {
 public:
  stock_parser() : xhtml_parser(nullptr) {
    load_default_references(references);
    rebuild_reference_indexes(*this);
  }

  /// Changes the form of the entry with that code, which must be there.
  void prefer(int code, reference_form form) {
    auto entry = references.extract(references.find(static_cast<std::int16_t>(code)));
    entry.value().form = form;
    references.insert(std::move(entry));
    rebuild_reference_indexes(*this);
  }

  /// Adds an entry, unless one has that code.
  void add(reference_form form, char16 character, ustring_view name, std::int16_t code) {
    references.insert({form, character, ustring(name), code});
    rebuild_reference_indexes(*this);
  }
};

/// `text` as the parser rewrites it.
inline ustring normalized_by(xhtml_parser& parser, ustring_view text) {
  ustring rewritten(text);
  parser.normalize_references(rewritten);
  return rewritten;
}

}  // namespace test

#endif
