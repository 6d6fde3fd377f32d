#ifndef FUZZ_SUPPORT_EXPECT_H
#define FUZZ_SUPPORT_EXPECT_H

#include <cstdio>
#include <cstdlib>
#include <string>

namespace test {

/// Prints the fault and aborts, so that the input counts as a find.
[[noreturn]] inline void fail(const std::string& fault) {
  std::fprintf(stderr, "fault: %s\n", fault.c_str());
  std::abort();
}

/// Fails if `fault` isn't empty.
inline void expect_no(const std::string& fault) {
  if (!fault.empty()) fail(fault);
}

/// Fails with `rule` unless it is kept.
inline void expect(bool kept, const char* rule) {
  if (!kept) fail(std::string("not so: ") + rule);
}

}  // namespace test

#endif
