#ifndef TESTS_SUPPORT_TREE_OUTLINE_H
#define TESTS_SUPPORT_TREE_OUTLINE_H

#include <string>
#include <vector>

#include "tests/support/names.h"
#include "xport/markup/xhtml_markup.h"
#include "xport/text/char16.h"

namespace test {

/// The children of `node` in a line, with blanks between them: elements by name, their attributes
/// in ascending number as [name="value" ...], their style as {name:value;...}, and their children
/// in brackets; texts as 'text', comments as #text#, instructions as ?text?, doctypes as !text!,
/// other nodes by tag_name(). Units as printable() shows them. Any depth will do.
std::string outline_of_children(const xhtml_markup& node);

/// `node` alone in the same form.
std::string outline_of_one(const xhtml_markup& node);

/// `node` and what is below it in the same form, without attributes and styles.
std::string bare_outline(const xhtml_markup& node);

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
std::vector<ustring> outline_of(const xhtml_markup& top, const outline_form& form = {});

/// The first difference of two outlines, empty if there is none.
std::string outline_difference(const std::vector<ustring>& actual,
                               const std::vector<ustring>& expected);

}  // namespace test

#endif
