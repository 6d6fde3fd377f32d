#ifndef XPORT_PARSER_TAKE_UNTIL_H
#define XPORT_PARSER_TAKE_UNTIL_H

#include <cstddef>

#include "xport/stream/unit_input.h"
#include "xport/text/char16.h"
#include "xport/text/find_any.h"

namespace Xport {

/// find_any as something to hand over.
template <char16... Stops>
inline constexpr auto any_of = [](ustring_view text) { return find_any<Stops...>(text); };

/// Moves over the units in front of the one that `find` looks for, and gives them: out
/// of the input's window where they are whole in it, else gathered in `gathered`. `find`
/// takes a window and returns the index of its find or the window's size; it must
/// stop at end_unit. The result holds until units behind the found one are looked at.
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
