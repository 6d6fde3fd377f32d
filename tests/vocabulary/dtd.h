#ifndef TESTS_VOCABULARY_DTD_H
#define TESTS_VOCABULARY_DTD_H

#include <map>
#include <set>
#include <string>

namespace test {

/// What a document type definition says of one element.
struct dtd_element {
  std::set<std::string> children;    ///< the names in its content model, "#PCDATA" among them
  std::set<std::string> attributes;  ///< the names in its attribute list
};

/// Reads the element and attribute-list declarations of the DTD in `text`, with parameter
/// entities expanded. External entities are left out. Throws `std::runtime_error` for text
/// that it can't read.
std::map<std::string, dtd_element> read_dtd(const std::string& text);

}  // namespace test

#endif
