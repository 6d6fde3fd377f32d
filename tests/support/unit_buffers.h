#ifndef TESTS_SUPPORT_UNIT_BUFFERS_H
#define TESTS_SUPPORT_UNIT_BUFFERS_H

#include <algorithm>
#include <cstddef>
#include <ios>
#include <memory>
#include <sstream>
#include <stdexcept>
#include <streambuf>
#include <utility>
#include <vector>

#include "tests/support/names.h"
#include "xport/stream/unit_input.h"
#include "xport/text/char16.h"

// Streams and stream buffers that are hard to read or to write, or that record how they are used.

namespace test {

using unit_buffer = std::basic_streambuf<char16>;

/// Has at most `at_once` units of its text at hand at a time, each time in fresh memory, so that
/// a look past them is a look at freed memory. It can be positioned anywhere, unless it is to be
/// like a pipe.
class dribble_buffer : public unit_buffer {
 public:
  explicit dribble_buffer(ustring_view text, std::size_t at_once = static_cast<std::size_t>(-1),
                          bool can_seek = true)
      : text_(text), at_once_(at_once), can_seek_(can_seek) {}

  /// The units that were moved over.
  std::size_t taken() const { return shown_ - static_cast<std::size_t>(egptr() - gptr()); }

  /// The units that are still to be read.
  ustring_view rest() const { return ustring_view(text_).substr(taken()); }

 protected:
  /// What a look at the end of the text returns.
  virtual int_type at_end() { return traits_type::eof(); }

  int_type underflow() override {
    // A unit U+FFFF at hand reads like the end, and stays.
    if (gptr() != egptr()) return traits_type::to_int_type(*gptr());
    const std::size_t count = std::min(at_once_, text_.size() - shown_);
    if (count == 0) return at_end();
    piece_ = std::make_unique<char16[]>(count);
    std::copy_n(text_.begin() + static_cast<std::ptrdiff_t>(shown_), count, piece_.get());
    shown_ += count;
    setg(piece_.get(), piece_.get(), piece_.get() + count);
    return traits_type::to_int_type(*gptr());
  }

  pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode) override {
    if (from == std::ios_base::cur) offset += static_cast<off_type>(taken());
    if (from == std::ios_base::end) offset += static_cast<off_type>(text_.size());
    if (!can_seek_ || offset < 0 || offset > static_cast<off_type>(text_.size()))
      return off_type(-1);
    shown_ = static_cast<std::size_t>(offset);
    setg(nullptr, nullptr, nullptr);
    return offset;
  }

  pos_type seekpos(pos_type position, std::ios_base::openmode mode) override {
    return seekoff(position, std::ios_base::beg, mode);
  }

 private:
  const ustring text_;
  const std::size_t at_once_;
  const bool can_seek_;
  std::size_t shown_ = 0;
  std::unique_ptr<char16[]> piece_;
};

/// Has one unit at hand at a time.
class one_unit_buffer : public dribble_buffer {
 public:
  explicit one_unit_buffer(ustring_view text) : dribble_buffer(text, 1, false) {}
};

/// What a throwing_buffer throws.
struct input_broke : std::runtime_error {
  input_broke() : std::runtime_error("the input broke") {}
};

/// Throws input_broke at the end of its text.
class throwing_buffer : public dribble_buffer {
 public:
  explicit throwing_buffer(ustring_view text, std::size_t at_once = static_cast<std::size_t>(-1),
                           bool can_seek = false)
      : dribble_buffer(text, at_once, can_seek) {}

 protected:
  int_type at_end() override { throw input_broke(); }
};

/// What a counting_end_buffer throws. Not of a standard type, so that no other exception is
/// mistaken for it.
struct looked_too_often {};

/// Counts the looks at the end of its text and throws looked_too_often when there were more than
/// a limit: the reader never returns. U+FFFF ends the text, as it does for every reader.
class counting_end_buffer : public dribble_buffer {
 public:
  explicit counting_end_buffer(ustring_view text, std::size_t limit = 1'000'000,
                               std::size_t at_once = static_cast<std::size_t>(-1))
      : dribble_buffer(text.substr(0, text.find(end_unit)), at_once), limit_(limit) {}

  /// The looks at the end so far.
  std::size_t looks() const { return looks_; }

 protected:
  int_type at_end() override {
    if (++looks_ > limit_) throw looked_too_often();
    return traits_type::eof();
  }

 private:
  const std::size_t limit_;
  std::size_t looks_ = 0;
};

/// Has nothing at hand: each unit needs a call. Unlike the standard library's buffers it
/// returns U+FFFF for a unit of that value.
class unbuffered_buffer : public unit_buffer {
 public:
  explicit unbuffered_buffer(ustring text) : text_(std::move(text)) {}

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
  const ustring text_;
  std::size_t taken_ = 0;
};

/// A text stream that counts its destruction.
class mortal_input : public std::basic_istringstream<char16> {
 public:
  mortal_input(const ustring& text, int& deaths)
      : std::basic_istringstream<char16>(text), deaths_(deaths) {}
  ~mortal_input() override { ++deaths_; }

 private:
  int& deaths_;
};

/// What an area_buffer throws.
struct output_broke : std::runtime_error {
  output_broke() : std::runtime_error("the output broke") {}
};

/// An output buffer with a put area of a few units. It can be told to fail or to throw instead
/// of emptying the area. It keeps U+FFFF in runs of units, as the library's own buffers do.
class area_buffer : public unit_buffer {
 public:
  explicit area_buffer(std::size_t room) : area_(room, u'x') { reset_area(); }

  /// All that was written, including what is still in the area.
  ustring text() const { return text_ + ustring(pbase(), pptr()); }

  /// The units of the area that nobody put, as they are.
  ustring rest() const { return {pptr(), epptr()}; }

  int overflows = 0;
  int syncs = 0;
  int failing = 0;   ///< the number of the overflow that fails, from 1; 0: none
  int throwing = 0;  ///< the same for throwing

 protected:
  int_type overflow(int_type unit) override {
    if (!empty_area()) return traits_type::eof();
    if (!traits_type::eq_int_type(unit, traits_type::eof()))
      append(traits_type::to_char_type(unit));
    return traits_type::not_eof(unit);
  }

  // The inherited function passes U+FFFF to overflow() as another unit.
  std::streamsize xsputn(const char16* units, std::streamsize count) override {
    for (std::streamsize done = 0; done < count; ++done) {
      if (pptr() == epptr() && !empty_area()) return done;
      append(units[done]);
    }
    return count;
  }

  int sync() override {
    ++syncs;
    return 0;
  }

 private:
  void append(char16 unit) {
    *pptr() = unit;
    pbump(1);
  }

  bool empty_area() {
    ++overflows;
    if (overflows == failing) return false;
    if (overflows == throwing) throw output_broke();
    text_.append(pbase(), pptr());
    reset_area();
    return true;
  }

  void reset_area() { setp(area_.data(), area_.data() + area_.size()); }

  ustring area_;
  ustring text_;
};

/// An output buffer without a put area. It records the size of each run.
class run_buffer : public unit_buffer {
 public:
  const ustring& text() const { return text_; }
  const std::vector<std::size_t>& runs() const { return runs_; }

 protected:
  std::streamsize xsputn(const char16* units, std::streamsize count) override {
    text_.append(units, static_cast<std::size_t>(count));
    runs_.push_back(static_cast<std::size_t>(count));
    return count;
  }

 private:
  ustring text_;
  std::vector<std::size_t> runs_;
};

}  // namespace test

#endif
