#include "platform/string_resources.h"

#include "platform/posix/string_table.h"

namespace platform {

Xport::ustring_view string_resource(std::uint32_t number) {
  for (const posix::string_entry& entry : posix::string_table()) {
    if (entry.number != number) continue;
    const Xport::ustring_view text = entry.text.substr(0, longest_string_resource);
    return text.substr(0, text.find(u'\0'));
  }
  return {};
}

}  // namespace platform
