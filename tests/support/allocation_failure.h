#ifndef TESTS_SUPPORT_ALLOCATION_FAILURE_H
#define TESTS_SUPPORT_ALLOCATION_FAILURE_H

#include <gtest/gtest.h>

#include <cstddef>
#include <new>
#include <string>

namespace test {

// Programs that have allocation_failure.cpp among their sources get memory by
// `new` that is counted and can be made to fail. For one thread at a time.

/// The blocks that were allocated by `new` and not freed.
std::size_t live_allocations();

/// The calls of `new` so far.
std::size_t allocation_calls();

/// Makes the `number`th call of `new` from now on throw std::bad_alloc, counted
/// from 1; with 0 all succeed.
void fail_allocation(std::size_t number);

/// Makes all calls of `new` from now on throw std::bad_alloc, until fail_allocation() is called.
void fail_all_allocations();

/// What happened to an attempt of which an allocation was to fail.
struct failed_attempt {
  bool ran_out;  ///< it came to that allocation, even if std::bad_alloc was caught inside
  bool threw;    ///< std::bad_alloc
};

/// Runs `attempt` with its `number`th allocation failing.
template <class Attempt>
failed_attempt try_without_memory(std::size_t number, Attempt attempt) {
  const std::size_t before = allocation_calls();
  failed_attempt result{false, false};
  fail_allocation(number);
  try {
    attempt();
  } catch (const std::bad_alloc&) {
    result.threw = true;
  }
  fail_allocation(0);
  result.ran_out = number != 0 && allocation_calls() - before >= number;
  return result;
}

/// Calls `round` with 1, 2, 3 ..., the number of the allocation that it is to fail, until it
/// returns that the allocation didn't fail, or until the test fails. Returns the number of
/// failures.
template <class Round>
std::size_t for_each_allocation(Round round) {
  for (std::size_t number = 1;; ++number) {
    SCOPED_TRACE("allocation " + std::to_string(number));
    if (!round(number) || testing::Test::HasFailure()) return number - 1;
  }
}

/// Repeats `attempt` with its first, second, third ... allocation failing until it passes.
/// Calls `check` after each failure. Returns the number of failures.
template <class Attempt, class Check>
std::size_t fail_each_allocation(Attempt attempt, Check check) {
  std::size_t failures = 0;
  for (; try_without_memory(failures + 1, attempt).threw; ++failures) check();
  return failures;
}

}  // namespace test

#endif
