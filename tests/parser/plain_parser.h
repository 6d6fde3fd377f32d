#ifndef TESTS_PARSER_PLAIN_PARSER_H
#define TESTS_PARSER_PLAIN_PARSER_H

#include "tests/parser/parse_kit.h"

namespace test {

/// What parse() must return, computed the plain way: unit by unit, with a text of its own
/// for each construct and a call of its own for each open element. For texts of little
/// depth.
parse_result parse_plainly(ustring_view text, const parse_case& how);

}  // namespace test

#endif
