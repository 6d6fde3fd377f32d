#ifndef TESTS_SUPPORT_REFUSING_FILE_H
#define TESTS_SUPPORT_REFUSING_FILE_H

#include <cstddef>

#include "tests/support/allocation_failure.h"
#include "tests/support/names.h"
#include "xport/stream/byte_file.h"

namespace test {

/// What was done to a refusing_file. Must outlive the file.
struct refusals {
  int writes = 0;
  int closes = 0;
};

/// A file whose first write fails. From then on no memory is left, until fail_allocation(0).
class refusing_file : public byte_output {
 public:
  explicit refusing_file(refusals& record) : record_(record) {}

  bool write(const void*, std::size_t) override {
    ++record_.writes;
    fail_all_allocations();
    return false;
  }

  bool close() override {
    ++record_.closes;
    return true;
  }

 private:
  refusals& record_;
};

}  // namespace test

#endif
