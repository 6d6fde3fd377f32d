#ifndef XPORT_TEXT_FIND_ANY_H
#define XPORT_TEXT_FIND_ANY_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

#include "xport/text/char16.h"

namespace Xport {

namespace detail {

// Eight units in a vector, as g++ and clang++ offer them on every machine.
using unit_vector __attribute__((vector_size(16))) = std::uint16_t;
constexpr std::size_t vector_units = sizeof(unit_vector) / sizeof(char16);

inline unit_vector load_units(const char16* units) {
  unit_vector loaded;
  std::memcpy(&loaded, units, sizeof(loaded));
  return loaded;
}

// The index of the first unit that a comparison has marked by ones, vector_units or more
// if none is.
template <class Marks>
std::size_t first_marked(const Marks& marks) {
  static_assert(sizeof(Marks) == sizeof(unit_vector));
#ifdef __SSE2__
  __m128i bytes;
  std::memcpy(&bytes, &marks, sizeof(bytes));
  return static_cast<std::size_t>(
             std::countr_zero(static_cast<std::uint32_t>(_mm_movemask_epi8(bytes)))) /
         2;
#else
  std::uint16_t units[vector_units];
  std::memcpy(units, &marks, sizeof(units));
  std::size_t at = 0;
  while (at < vector_units && units[at] == 0) ++at;
  return at;
#endif
}

}  // namespace detail

/// The index of the first unit in `text` that is one of `Stops`, or its size. Looks at
/// eight units at a time.
template <char16... Stops>
std::size_t find_any(ustring_view text) {
  std::size_t at = 0;
  for (; text.size() - at >= detail::vector_units; at += detail::vector_units) {
    const detail::unit_vector units = detail::load_units(text.data() + at);
    const std::size_t found =
        detail::first_marked((... | (units == static_cast<std::uint16_t>(Stops))));
    if (found < detail::vector_units) return at + found;
  }
  while (at < text.size() && ((text[at] != Stops) && ...)) ++at;
  return at;
}

/// How many units at the beginning of `text` are `unit`.
inline std::size_t count_leading(ustring_view text, char16 unit) {
  std::size_t at = 0;
  for (; text.size() - at >= detail::vector_units; at += detail::vector_units) {
    const std::size_t other = detail::first_marked(detail::load_units(text.data() + at) !=
                                                   static_cast<std::uint16_t>(unit));
    if (other < detail::vector_units) return at + other;
  }
  while (at < text.size() && text[at] == unit) ++at;
  return at;
}

}  // namespace Xport

#endif
