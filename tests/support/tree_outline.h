#ifndef TESTS_SUPPORT_TREE_OUTLINE_H
#define TESTS_SUPPORT_TREE_OUTLINE_H

#include <string>
#include <vector>

#include "xport/markup/xhtml_markup.h"
#include "xport/text/char16.h"

namespace test {

/// How much of the white space in texts and comments an outline shows.
enum class outline_space {
  exact,      ///< all of it
  at_breaks,  ///< none at the ends of a text, one blank for a run with a newline in it
  single,     ///< none at the ends of a text, one blank for a run
  none        ///< none at all; in comments as `single`
};

struct outline_form {
  outline_space space = outline_space::exact;

  /// Neighbouring texts are one, and empty texts are none.
  bool joins_texts = false;

  /// Texts in `style` aren't shown, and of an inline style only the first property is.
  bool hides_style = false;
};

/// A tree in document order, to compare it with another one: a line for each start of an
/// element with its attributes, each leaf and each end of an element. Without `top` itself.
/// Any depth will do.
std::vector<Xport::ustring> outline_of(const Xport::xhtml_markup& top,
                                       const outline_form& form = {});

/// The first difference of two outlines, empty if there is none.
std::string outline_difference(const std::vector<Xport::ustring>& actual,
                               const std::vector<Xport::ustring>& expected);

}  // namespace test

#endif
