#include "platform/posix/string_table.h"

namespace platform::posix {

std::span<const string_entry> string_table() { return {}; }

}  // namespace platform::posix
