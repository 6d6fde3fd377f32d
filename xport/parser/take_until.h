#ifndef XPORT_PARSER_TAKE_UNTIL_H
#define XPORT_PARSER_TAKE_UNTIL_H

#include <cstddef>

#include "xport/stream/unit_input.h"
#include "xport/text/char16.h"
#include "xport/text/find_any.h"

namespace Xport {

/// find_any as a function object.
template <char16... Stops>
inline constexpr auto any_of = [](ustring_view text) { return find_any<Stops...>(text); };

/// Takes the units before the first one that `find` looks for. The result is a part of the
/// input's window if that unit is in it; otherwise the units are copied to `gathered`. `find`
/// accepts a window and returns the index of the unit, or the size of the window; it must stop
/// at end_unit too. The result is valid until units after the found one are looked at.
template <class Find>
ustring_view take_until(unit_input in, ustring& gathered, Find find) {
  ustring_view window = in.window();
  std::size_t count = find(window);
  if (count < window.size()) {
    in.advance(count);
    return window.substr(0, count);
  }
  gathered.clear();
  while (true) {
    gathered.append(window, 0, count);
    in.advance(count);
    if (count < window.size() || window.empty()) return gathered;
    window = in.window();
    count = find(window);
  }
}

}  // namespace Xport

#endif
