#ifndef BENCH_COMMAND_LINE_H
#define BENCH_COMMAND_LINE_H

#include <cstddef>
#include <optional>
#include <string>

namespace bench {

/// The number that `text` spells in decimal digits; nothing for 0 and for all other texts.
std::optional<std::size_t> positive_number(const char* text);

/// Where files are written unless the user says otherwise: /dev/shm, or else $TMPDIR, or
/// else /tmp.
std::string default_folder();

}  // namespace bench

#endif
