#ifndef TESTS_MARKUP_CONTENT_MODEL_H
#define TESTS_MARKUP_CONTENT_MODEL_H

#include <string>

// What each element of XHTML 1.0 Strict accepts in this library, spelled out.

namespace test {

/// Whether the element with the number `parent` accepts the element with the number `child`.
bool may_contain(int parent, int child);

/// Whether it accepts character data.
bool may_contain_text(int parent);

/// Whether it is void.
bool may_contain_nothing(int parent);

/// The name of an element or of "invalid tag", empty where the number can't be used.
std::string row_name(int number);

}  // namespace test

#endif
