#ifndef TESTS_SUPPORT_ALLOCATION_FAILURE_H
#define TESTS_SUPPORT_ALLOCATION_FAILURE_H

#include <cstddef>
#include <new>

namespace test {

/// Programs that have allocation_failure.cpp among their sources get memory by
/// `new` that is counted and can be made to fail. For one thread at a time.

/// The blocks that were taken by `new` and not given back.
std::size_t live_allocations();

/// The calls of `new` so far.
std::size_t allocation_calls();

/// Lets the `number`th call of `new` from now on raise std::bad_alloc, counted
/// from 1, and the others pass; 0 lets all pass.
void fail_allocation(std::size_t number);

/// Repeats `attempt` with its first, second, third ... allocation failing until
/// it passes. Calls `check` after each failure. Gives the number of failures.
template <class Attempt, class Check>
std::size_t fail_each_allocation(Attempt attempt, Check check) {
  for (std::size_t number = 1;; ++number) {
    fail_allocation(number);
    try {
      attempt();
      fail_allocation(0);
      return number - 1;
    } catch (const std::bad_alloc&) {
      fail_allocation(0);
      check();
    }
  }
}

}  // namespace test

#endif
