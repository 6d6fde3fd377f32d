#ifndef TESTS_STYLESHEET_SHEET_REFERENCE_H
#define TESTS_STYLESHEET_SHEET_REFERENCE_H

#include "xport/text/char16.h"

namespace test {

/// What read_listing (sheet_text.h) is to give for `text`, which begins with no byte-order
/// mark: the rules of reading written down a second time, unit by unit and by position,
/// for the white space of the classic locale.
Xport::ustring expected_listing(Xport::ustring_view text);

}  // namespace test

#endif
