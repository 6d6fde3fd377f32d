#include "bench/command_line.h"

#include <unistd.h>

#include <cstdlib>

namespace bench {

std::optional<std::size_t> positive_number(const char* text) {
  char* end = nullptr;
  const unsigned long number = std::strtoul(text, &end, 10);
  if (*text < '0' || *text > '9' || *end != '\0' || number == 0) {
    return std::nullopt;
  }
  return number;
}

std::string default_folder() {
  if (access("/dev/shm", W_OK) == 0) {
    return "/dev/shm";
  }
  const char* const chosen = std::getenv("TMPDIR");
  return chosen != nullptr && *chosen != '\0' ? chosen : "/tmp";
}

}  // namespace bench
