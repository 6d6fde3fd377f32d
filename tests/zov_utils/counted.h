#ifndef TESTS_ZOV_UTILS_COUNTED_H
#define TESTS_ZOV_UTILS_COUNTED_H

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <stdexcept>

namespace test {

/// A number whose class records which of its objects are alive. Finds objects that are destroyed
/// twice, never, or without having been constructed. Compiles as C++11.
class counted {
 public:
  explicit counted(int value) : value_(value) { born(); }

  /// Throws std::runtime_error if throw_at_copy asked for it.
  counted(const counted& other) : value_(other.value_) {
    EXPECT_EQ(state().living.count(&other), 1u) << "copied from an object that isn't alive";
    if (state().throwing != 0 && --state().throwing == 0) throw std::runtime_error("copy");
    ++state().copies;
    born();
  }

  counted& operator=(const counted&) = delete;

  ~counted() { EXPECT_EQ(state().living.erase(this), 1u) << "destroyed, but not alive"; }

  int value() const { return value_; }

  /// The number of objects that are alive, and of copies since reset().
  static std::size_t alive() { return state().living.size(); }
  static std::size_t copies() { return state().copies; }

  /// Makes the `number`th copy from now on throw; 0 for none.
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

  void born() {
    EXPECT_TRUE(state().living.insert(this).second) << "constructed over a living object";
  }

  int value_;
};

}  // namespace test

#endif
