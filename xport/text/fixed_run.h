#ifndef XPORT_TEXT_FIXED_RUN_H
#define XPORT_TEXT_FIXED_RUN_H

#include <cstddef>
#include <cstdint>
#include <initializer_list>

#include "xport/text/char16.h"

namespace Xport {

/// A short text that is known at compile time, in memory of a fixed size, so that it can be copied
/// as a whole, without a loop.
struct fixed_run {
  static constexpr std::size_t most_units = 16;

  constexpr fixed_run() = default;

  /// `parts`, one after the other; empty if they have more than most_units.
  constexpr fixed_run(std::initializer_list<ustring_view> parts) {
    std::size_t all = 0;
    for (const ustring_view part : parts) all += part.size();
    if (all > most_units) return;
    for (const ustring_view part : parts)
      for (const char16 unit : part) units[size++] = unit;
  }

  constexpr ustring_view text() const { return {units, size}; }

  char16 units[most_units] = {};
  std::uint32_t size = 0;
};

}  // namespace Xport

#endif
