#ifndef TESTS_SUPPORT_UNIT_BUFFERS_H
#define TESTS_SUPPORT_UNIT_BUFFERS_H

#include <cstddef>
#include <stdexcept>
#include <streambuf>
#include <utility>

#include "xport/text/char16.h"

namespace test {

using unit_buffer = std::basic_streambuf<Xport::char16>;

/// A stream buffer on a text that has one unit at hand at a time.
class one_unit_buffer : public unit_buffer {
 public:
  explicit one_unit_buffer(Xport::ustring text) : text_(std::move(text)) {}

  /// The units that were moved over.
  std::size_t taken() const { return shown_ - static_cast<std::size_t>(egptr() - gptr()); }

 protected:
  int_type underflow() override {
    if (gptr() == egptr()) {
      if (shown_ == text_.size()) return traits_type::eof();
      char_type* const unit = text_.data() + shown_++;
      setg(unit, unit, unit + 1);
    }
    return traits_type::to_int_type(*gptr());
  }

 private:
  Xport::ustring text_;
  std::size_t shown_ = 0;
};

/// A stream buffer on a text that has nothing at hand: it is asked for each unit. Unlike
/// the standard library's it answers with U+FFFF for a unit of that value.
class unbuffered_buffer : public unit_buffer {
 public:
  explicit unbuffered_buffer(Xport::ustring text) : text_(std::move(text)) {}

  /// The units that were moved over.
  std::size_t taken() const { return taken_; }

 protected:
  int_type underflow() override {
    return taken_ != text_.size() ? static_cast<int_type>(text_[taken_]) : traits_type::eof();
  }
  int_type uflow() override {
    const int_type unit = underflow();
    if (taken_ != text_.size()) ++taken_;
    return unit;
  }

 private:
  Xport::ustring text_;
  std::size_t taken_ = 0;
};

/// What a raising_buffer raises.
struct input_broke : std::runtime_error {
  input_broke() : std::runtime_error("the input broke") {}
};

/// A stream buffer on a text that raises input_broke behind it.
class raising_buffer : public unit_buffer {
 public:
  explicit raising_buffer(Xport::ustring text) : text_(std::move(text)) {
    setg(text_.data(), text_.data(), text_.data() + text_.size());
  }

 protected:
  int_type underflow() override {
    if (gptr() == egptr()) throw input_broke();
    return traits_type::to_int_type(*gptr());
  }

 private:
  Xport::ustring text_;
};

}  // namespace test

#endif
