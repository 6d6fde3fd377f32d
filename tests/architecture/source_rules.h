#ifndef TESTS_ARCHITECTURE_SOURCE_RULES_H
#define TESTS_ARCHITECTURE_SOURCE_RULES_H

#include <string>
#include <vector>

#include "tests/architecture/source_tree.h"

namespace architecture {

/// What breaks a rule, one readable line each; empty when the tree keeps it.
using findings = std::vector<std::string>;

/// A folder includes only what stands below it in the layers: see the table in
/// source_rules.cpp. Quoted names have to be files of the tree.
findings check_layers(const source_tree& tree);

/// No file includes itself, be it by way of others.
findings check_cycles(const source_tree& tree);

/// Sources are ASCII, so that they mean the same to every compiler and editor.
findings check_ascii(const source_tree& tree);

/// Every header has an include guard, in the library folders named by its path:
/// xport/text/char16.h has XPORT_TEXT_CHAR16_H.
findings check_guards(const source_tree& tree);

/// A source file of the library includes its own header first, which proves that
/// the header is complete.
findings check_own_header_first(const source_tree& tree);

/// The library prints nothing and ends no program: hosts own the standard streams.
findings check_silence(const source_tree& tree);

}  // namespace architecture

#endif
