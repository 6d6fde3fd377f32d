#ifndef TESTS_STYLESHEET_PLAIN_SHEET_H
#define TESTS_STYLESHEET_PLAIN_SHEET_H

#include "tests/support/names.h"
#include "xport/text/char16.h"

namespace test {

/// What read_listing (sheet_text.h) must return for `text`, which begins with no byte-order
/// mark: the rules of reading, unit by unit and by position,
/// for the white space of the classic locale.
ustring plain_listing(ustring_view text);

}  // namespace test

#endif
