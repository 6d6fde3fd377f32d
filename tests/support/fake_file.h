#ifndef TESTS_SUPPORT_FAKE_FILE_H
#define TESTS_SUPPORT_FAKE_FILE_H

#include <cstddef>
#include <string>
#include <vector>

#include "tests/support/names.h"
#include "tests/support/utf8.h"
#include "xport/stream/byte_file.h"
#include "xport/text/char16.h"

namespace test {

/// The calls of a fake_file, and which of them fail. Must outlive the file.
struct file_record {
  std::string bytes;                ///< what was written, failed writes left out
  std::vector<std::size_t> writes;  ///< the size of each write, failed ones too
  int closes = 0;
  int deaths = 0;
  std::size_t failing_write = 0;  ///< the number of the write that fails, from 1; 0: none
  bool fail_close = false;

  /// The bytes as code units, least significant byte first.
  ustring units() const { return file_units(bytes); }
};

/// A file in memory that can be told to fail.
class fake_file : public byte_output {
 public:
  explicit fake_file(file_record& record) : record_(record) {}
  ~fake_file() override { ++record_.deaths; }

  bool write(const void* bytes, std::size_t size) override {
    record_.writes.push_back(size);
    if (record_.writes.size() == record_.failing_write) return false;
    record_.bytes.append(static_cast<const char*>(bytes), size);
    return true;
  }

  bool close() override {
    ++record_.closes;
    return !record_.fail_close;
  }

 private:
  file_record& record_;
};

/// What a fake_input reads, its calls, and which of them fail. Must outlive the file.
struct input_record {
  std::string bytes;
  std::vector<std::size_t> reads;  ///< the size of each read
  int rewinds = 0;                 ///< failed ones too
  int deaths = 0;
  std::size_t failing_read = 0;  ///< the number of the read that fails, from 1; 0: none
  bool fail_rewind = false;
};

/// A file in memory that is read and can be told to fail. A failing read returns nothing; the
/// next one returns what it should have returned.
class fake_input : public byte_input {
 public:
  explicit fake_input(input_record& record) : record_(record) {}
  ~fake_input() override { ++record_.deaths; }

  std::size_t read(void* bytes, std::size_t size) override {
    record_.reads.push_back(size);
    if (record_.reads.size() == record_.failing_read) return 0;
    const std::size_t count = record_.bytes.copy(static_cast<char*>(bytes), size, at_);
    at_ += count;
    return count;
  }

  bool rewind() override {
    ++record_.rewinds;
    if (record_.fail_rewind) return false;
    at_ = 0;
    return true;
  }

 private:
  input_record& record_;
  std::size_t at_ = 0;
};

}  // namespace test

#endif
