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

// A vector of eight units. g++ and clang++ have this extension on every machine.
using unit_vector __attribute__((vector_size(16))) = std::uint16_t;
constexpr std::size_t vector_units = sizeof(unit_vector) / sizeof(char16);

inline unit_vector load_units(const char16* units) {
  unit_vector loaded;
  std::memcpy(&loaded, units, sizeof(loaded));
  return loaded;
}

// The index of the first unit whose bits are ones in `marks`, the result of a comparison.
// vector_units or more if there is none.
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

// The index of the first unit for which `is_found` holds, or the size of `text`. `is_found`
// is called with vectors and with single units.
template <class Condition>
std::size_t find_if(ustring_view text, Condition is_found) {
  std::size_t at = 0;
  for (; text.size() - at >= vector_units; at += vector_units) {
    const std::size_t found = first_marked(is_found(load_units(text.data() + at)));
    if (found < vector_units) return at + found;
  }
  while (at < text.size() && !is_found(static_cast<std::uint16_t>(text[at]))) ++at;
  return at;
}

}  // namespace detail

/// The index of the first unit in `text` that is one of `Stops`, or the size of `text`. Like
/// the other functions here, it compares eight units at a time, because most texts are long
/// runs without a match.
template <char16... Stops>
std::size_t find_any(ustring_view text) {
  return detail::find_if(
      text, [](auto units) { return (... | (units == static_cast<std::uint16_t>(Stops))); });
}

/// The index of the first `unit` in `text`, or the size of `text`.
inline std::size_t find_unit(ustring_view text, char16 unit) {
  return detail::find_if(text,
                         [unit](auto units) { return units == static_cast<std::uint16_t>(unit); });
}

/// The number of units at the beginning of `text` that are equal to `unit`.
inline std::size_t count_leading(ustring_view text, char16 unit) {
  return detail::find_if(text,
                         [unit](auto units) { return units != static_cast<std::uint16_t>(unit); });
}

}  // namespace Xport

#endif
