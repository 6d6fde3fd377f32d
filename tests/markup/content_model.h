#ifndef TESTS_MARKUP_CONTENT_MODEL_H
#define TESTS_MARKUP_CONTENT_MODEL_H

#include <cstdint>
#include <string>

/// The rules of XHTML 1.0 Strict as this library holds them, written down a
/// second time to compare it with.
namespace test::content_model {

/// The rows of elements, by number from 0; "doc root" is the first.
inline constexpr int row_count = 92;

/// Whether the element with the number `parent` takes the element with the
/// number `child`; 92 is the row of what isn't in the table.
bool takes_element(int parent, int child);

/// Whether it takes character data.
bool takes_text(int parent);

/// Whether it is void.
bool takes_nothing(int parent);

/// Its name, empty where the number can't be used.
std::string name_of(int number);

}  // namespace test::content_model

#endif
