// The helpers that run parts of tests in other processes.
#include "tests/support/child_process.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>

#include <chrono>
#include <stdexcept>
#include <string>
#include <thread>

namespace test {
namespace {

void die_of(int number) {
  const rlimit no_core = {0, 0};
  ::setrlimit(RLIMIT_CORE, &no_core);
  ::signal(number, SIG_DFL);
  ::raise(number);
}

TEST(RunInChild, ReturnsTheResult) {
  const auto outcome = run_in_child([] { return 42; });
  EXPECT_EQ(outcome.made, 42);
  EXPECT_EQ(outcome.failure, "");
}

TEST(RunInChild, LeavesTheMemoryOfTheParentAlone) {
  int value = 1;
  EXPECT_EQ(run_in_child([&value] { return ++value; }).made, 2);
  EXPECT_EQ(value, 1);
}

TEST(RunInChild, ReportsWhyThereIsNoResult) {
  const auto thrown = run_in_child([]() -> int { throw std::runtime_error("no result"); });
  EXPECT_EQ(thrown.made, std::nullopt);
  EXPECT_EQ(thrown.failure, "failed");
  const auto killed = run_in_child([] {
    die_of(SIGKILL);
    return 1;
  });
  EXPECT_EQ(killed.made, std::nullopt);
  EXPECT_EQ(killed.failure, "SIGKILL");
  const auto other = run_in_child([] {
    die_of(SIGUSR1);
    return 1;
  });
  EXPECT_EQ(other.failure, "signal " + std::to_string(SIGUSR1));
}

TEST(RunInChild, EndsAChildThatTakesTooLong) {
  const auto sleep = [] {
    std::this_thread::sleep_for(std::chrono::minutes(5));
    return 1;
  };
  EXPECT_EQ(run_in_child(sleep, time_limit(1)).failure, "over 1 s");
}

TEST(RunProcess, CollectsOutputAndExitCode) {
  const process_result result = run_process({"sh", "-c", "echo out; echo err >&2; exit 3"});
  EXPECT_EQ(result.exit_code, 3);
  EXPECT_EQ(result.out, "out\n");
  EXPECT_EQ(result.err, "err\n");
  EXPECT_FALSE(result.timed_out);
}

TEST(RunProcess, ChangesTheEnvironmentAndHasNoInput) {
  const process_result result =
      run_process({"sh", "-c", "cat; echo $CHANGED"}, time_limit(60), {{"CHANGED", "a b"}});
  EXPECT_EQ(result.out, "a b\n");
}

TEST(RunProcess, ReportsAProgramThatCannotBeStarted) {
  EXPECT_EQ(run_process({"/no/such/program"}).exit_code, 127);
}

TEST(RunProcess, EndsAProgramThatTakesTooLong) {
  const auto start = std::chrono::steady_clock::now();
  const process_result result = run_process({"sh", "-c", "sleep 300; true"}, time_limit(1));
  EXPECT_TRUE(result.timed_out);
  EXPECT_EQ(result.exit_code, -1);
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}

TEST(FindProgram, LooksInThePath) {
  EXPECT_TRUE(find_program("sh").ends_with("/sh"));
  EXPECT_EQ(find_program("no-such-program"), "");
}

}  // namespace
}  // namespace test
