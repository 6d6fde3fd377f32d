#ifndef TESTS_PARSER_REFERENCE_KIT_H
#define TESTS_PARSER_REFERENCE_KIT_H

#include <cstdint>
#include <utility>

#include "xport/parser/character_reference.h"
#include "xport/parser/xhtml_parser.h"
#include "xport/text/char16.h"

namespace test {

/// A parser with the stock table.
class stock_parser : public Xport::xhtml_parser {
 public:
  stock_parser() : Xport::xhtml_parser(nullptr) {
    load_default_references(references);
    rebuild_reference_indexes(*this);
  }

  /// Changes the form of the entry with that code, which must be there.
  void prefer(int code, Xport::reference_form form) {
    auto entry = references.extract(references.find(static_cast<std::int16_t>(code)));
    entry.value().form = form;
    references.insert(std::move(entry));
    rebuild_reference_indexes(*this);
  }

  /// Adds an entry, unless one has that code.
  void add(Xport::reference_form form, Xport::char16 character, Xport::ustring_view name,
           std::int16_t code) {
    references.insert({form, character, Xport::ustring(name), code});
    rebuild_reference_indexes(*this);
  }
};

/// What the parser makes of `text`.
inline Xport::ustring normalized(Xport::xhtml_parser& parser, Xport::ustring_view text) {
  Xport::ustring rewritten(text);
  parser.normalize_references(rewritten);
  return rewritten;
}

}  // namespace test

#endif
