#ifndef TESTS_SUPPORT_SMALL_STACK_H
#define TESTS_SUPPORT_SMALL_STACK_H

#include <gtest/gtest.h>
#include <pthread.h>

#include <cstddef>
#include <functional>

namespace test {

/// Runs `work` on a thread with a stack of this size.
inline void on_small_stack(std::size_t bytes, std::function<void()> work) {
  pthread_attr_t attributes;
  ASSERT_EQ(::pthread_attr_init(&attributes), 0);
  ASSERT_EQ(::pthread_attr_setstacksize(&attributes, bytes), 0);
  pthread_t thread;
  const auto run = [](void* given) -> void* {
    (*static_cast<std::function<void()>*>(given))();
    return nullptr;
  };
  ASSERT_EQ(::pthread_create(&thread, &attributes, run, &work), 0);
  EXPECT_EQ(::pthread_join(thread, nullptr), 0);
  ::pthread_attr_destroy(&attributes);
}

}  // namespace test

#endif
