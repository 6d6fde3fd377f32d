#include "bench/options.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <exception>

namespace bench {

namespace {

std::string default_folder() {
  if (access("/dev/shm", W_OK) == 0) return "/dev/shm";
  const char* const chosen = std::getenv("TMPDIR");
  return chosen != nullptr && *chosen != '\0' ? chosen : "/tmp";
}

// The number of words that belong to the option with which `words` begin; 0 if they can't be
// understood.
std::size_t read_option(const program& what, std::span<char* const> words, options& read) {
  const std::string word = words[0];
  if (word == "--quick") {
    read.quick = true;
    return 1;
  }
  if (word == "--cpu-time") {
    read.clock = clock_kind::cpu;
    return 1;
  }
  if (word == "--repeat" && words.size() > 1) {
    read.repeat = positive_number(words[1]).value_or(0);
    return read.repeat != 0 ? 2 : 0;
  }
  if (word == "--folder" && words.size() > 1) {
    read.folder = words[1];
    return 2;
  }
  return what.read_option ? what.read_option(words) : 0;
}

std::optional<options> read_options(const program& what, std::span<char* const> words) {
  options read;
  while (!words.empty()) {
    const std::size_t understood = read_option(what, words, read);
    if (understood == 0) return std::nullopt;
    words = words.subspan(understood);
  }
  if (read.repeat == 0) read.repeat = read.quick ? 3 : what.usual_repeat;
  if (read.folder.empty()) read.folder = default_folder();
  return read;
}

}  // namespace

int run_program(const program& what, int count, char** words,
                const std::function<int(const options&)>& work) {
  const std::span<char* const> all(words, static_cast<std::size_t>(count));
  const std::optional<options> chosen = read_options(what, all.subspan(1));
  if (!chosen) {
    std::fputs(what.usage, stderr);
    return 2;
  }
  try {
    return work(*chosen);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "%s: %s\n", what.name, error.what());
    return 1;
  }
}

std::optional<std::size_t> positive_number(const std::string& text) {
  if (text.empty() || text.find_first_not_of("0123456789") != text.npos) return std::nullopt;
  const std::size_t number = std::strtoul(text.c_str(), nullptr, 10);
  if (number == 0) return std::nullopt;
  return number;
}

}  // namespace bench
