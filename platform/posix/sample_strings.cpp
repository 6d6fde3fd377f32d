#include "platform/posix/string_table.h"

namespace platform::posix {

// The numbers are those that the sample functions ask for.
std::span<const string_entry> string_table() {
  static constexpr string_entry table[] = {
      {101, u"Header from the string table"},
      {102, u"Header of the changed page"},
  };
  return table;
}

}  // namespace platform::posix
