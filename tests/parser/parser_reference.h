#ifndef TESTS_PARSER_PARSER_REFERENCE_H
#define TESTS_PARSER_PARSER_REFERENCE_H

#include "tests/parser/parse_kit.h"

namespace test {

/// What parse() is to give, worked out the plain way: unit by unit, with a text of its own
/// for each construct and a call of its own for each open element. For texts of little
/// depth.
parse_result parse_plainly(Xport::ustring_view text, const parse_case& how);

}  // namespace test

#endif
