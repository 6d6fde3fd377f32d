#ifndef TESTS_ARCHITECTURE_SOURCE_RULES_H
#define TESTS_ARCHITECTURE_SOURCE_RULES_H

#include <string>
#include <vector>

#include "tests/architecture/source_tree.h"

namespace test {

/// The violations of a rule, one readable line each; empty if the tree keeps the rule.
using findings = std::vector<std::string>;

/// A folder includes only the layers below it: see the table in source_rules.cpp. Quoted names
/// have to be files of the tree.
findings check_layers(const source_tree& tree);

/// No file includes itself, directly or through others.
findings check_cycles(const source_tree& tree);

/// Sources are ASCII, so that they mean the same to every compiler and editor.
findings check_ascii(const source_tree& tree);

/// Every header has an include guard. In the library's folders it is named after the path:
/// XPORT_TEXT_CHAR16_H for xport/text/char16.h.
findings check_guards(const source_tree& tree);

/// A source file of the library includes its own header first, which proves that the header is
/// complete.
findings check_own_header_first(const source_tree& tree);

/// The library prints nothing and ends no program: hosts own the standard streams.
findings check_silence(const source_tree& tree);

}  // namespace test

#endif
