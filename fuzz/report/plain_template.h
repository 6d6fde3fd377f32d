#ifndef FUZZ_REPORT_PLAIN_TEMPLATE_H
#define FUZZ_REPORT_PLAIN_TEMPLATE_H

#include <deque>
#include <vector>

#include "xport/text/char16.h"

namespace test {

/// What a report must make of a template, found by the plain rules.
struct plain_template {
  /// A page without a template.
  plain_template() = default;

  /// Reads the template from the units of a file.
  explicit plain_template(const Xport::ustring& page);

  /// Whether reading the page never returns.
  bool is_endless = false;

  std::vector<Xport::ustring> fields;

  /// What each piece that is left adds to the end of a page's body, with the empty block after it.
  std::deque<Xport::ustring> pieces;
};

/// What an empty block adds.
Xport::ustring empty_block();

/// What follows the body's content on a page.
inline constexpr Xport::ustring_view page_end = u"  </body>\n</html>\n";

}  // namespace test

#endif
