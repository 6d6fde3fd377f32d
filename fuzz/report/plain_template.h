#ifndef FUZZ_REPORT_TEMPLATE_MODEL_H
#define FUZZ_REPORT_TEMPLATE_MODEL_H

#include <deque>
#include <vector>

#include "xport/text/char16.h"

namespace fuzz {

/// What a report has to make of a template.
struct template_model {
  /// A page without a template.
  template_model() = default;

  /// The template that is read from these units of a file.
  explicit template_model(const Xport::ustring& page);

  /// Whether a report that reads the page would never come to an end.
  bool is_endless = false;

  std::vector<Xport::ustring> fields;

  /// What the pieces that are left add to the end of a page's body, each with the empty block
  /// behind it.
  std::deque<Xport::ustring> pieces;
};

/// What an empty block adds.
Xport::ustring empty_block();

/// What follows the body's content on a page.
inline constexpr Xport::ustring_view page_end = u"  </body>\n</html>\n";

}  // namespace fuzz

#endif
