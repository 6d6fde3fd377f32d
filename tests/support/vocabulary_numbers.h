#ifndef TESTS_SUPPORT_VOCABULARY_NUMBERS_H
#define TESTS_SUPPORT_VOCABULARY_NUMBERS_H

#include "tests/support/names.h"
#include "xport/vocabulary/attr_id.h"
#include "xport/vocabulary/css_property_id.h"
#include "xport/vocabulary/tag_id.h"

// The limits of the numbers of elements, attributes and properties. Tests that walk over all
// of them use these, so that they also cover rows that are added later. name_table_test.cpp
// checks the values.

namespace test {

/// The number of `invalid_tag`, one after the last element.
inline constexpr int invalid_number = static_cast<int>(tag_id::invalid_tag);

/// The first number after the rule records.
inline constexpr int first_number_without_record = invalid_number + 1;

/// One after the last attribute.
inline constexpr int attribute_end = static_cast<int>(attribute_count);

/// One after the last property.
inline constexpr int property_end = static_cast<int>(css_property_count);

}  // namespace test

#endif
