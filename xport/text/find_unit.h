#ifndef XPORT_TEXT_FIND_UNIT_H
#define XPORT_TEXT_FIND_UNIT_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "xport/text/char16.h"

namespace Xport {

/// The index of the first `unit` in `text`, or its size. Looks at four units at a
/// time: most texts are long runs without what is looked for.
inline std::size_t find_unit(ustring_view text, char16 unit) {
  constexpr std::uint64_t ones = 0x0001'0001'0001'0001;
  const std::uint64_t pattern = ones * unit;
  std::size_t at = 0;
  for (; text.size() - at >= 4; at += 4) {
    std::uint64_t four;
    std::memcpy(&four, text.data() + at, sizeof(four));
    four ^= pattern;  // a unit that is found becomes 0, from which alone 1 borrows
    if (((four - ones) & ~four & (ones << 15)) != 0) break;
  }
  while (at < text.size() && text[at] != unit) ++at;
  return at;
}

}  // namespace Xport

#endif
