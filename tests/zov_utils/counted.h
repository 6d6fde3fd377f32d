#ifndef TESTS_ZOV_UTILS_COUNTED_H
#define TESTS_ZOV_UTILS_COUNTED_H

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <stdexcept>

/// A number that knows which objects of its class are alive, so that one which is
/// destroyed twice, never, or without having been made is found. Compiles as C++11.
class counted {
 public:
  explicit counted(int value) : value_(value) { born(); }

  /// Raises std::runtime_error if throw_at_copy asked for it.
  counted(const counted& other) : value_(other.value_) {
    EXPECT_EQ(state().living.count(&other), 1u) << "a copy of what isn't alive";
    if (state().throwing != 0 && --state().throwing == 0) throw std::runtime_error("copy");
    ++state().copies;
    born();
  }

  counted& operator=(const counted&) = delete;

  ~counted() { EXPECT_EQ(state().living.erase(this), 1u) << "destroyed, but not alive"; }

  int value() const { return value_; }

  /// The objects that are alive, and the copies that were made since reset().
  static std::size_t alive() { return state().living.size(); }
  static std::size_t copies() { return state().copies; }

  /// Makes the `number`th copy from now on raise; 0 for none.
  static void throw_at_copy(int number) { state().throwing = number; }

  static void reset() { state() = counts(); }

 private:
  struct counts {
    std::set<const counted*> living;
    std::size_t copies = 0;
    int throwing = 0;
  };

  static counts& state() {
    static counts all;
    return all;
  }

  void born() { EXPECT_TRUE(state().living.insert(this).second) << "made over a living one"; }

  int value_;
};

#endif
