#ifndef XPORT_STREAM_USTRING_STREAM_H
#define XPORT_STREAM_USTRING_STREAM_H

#include <algorithm>
#include <cstddef>
#include <ostream>
#include <streambuf>
#include <utility>

#include "xport/text/char16.h"

namespace Xport {

/// An output stream of code units into a string. Unlike the standard library's string
/// stream it keeps U+FFFF anywhere in a run of units, and it throws std::bad_alloc when
/// memory runs out.
class ustring_stream : public std::basic_ostream<char16> {
 public:
  ustring_stream() : std::basic_ostream<char16>(nullptr) {
    rdbuf(&buffer_);
    exceptions(badbit);
  }

  /// What was written so far. Valid until more is written.
  ustring_view view() const { return buffer_.view(); }

  /// A copy of what was written so far.
  ustring str() const { return ustring(view()); }

 private:
  class buffer : public std::basic_streambuf<char16> {
   public:
    buffer() {
      text_.resize(text_.capacity());
      setp(text_.data(), text_.data() + text_.size());
    }

    ustring_view view() const {
      return {text_.data(), static_cast<std::size_t>(pptr() - text_.data())};
    }

   protected:
    int_type overflow(int_type unit) override {
      if (!traits_type::eq_int_type(unit, traits_type::eof())) {
        const char16 added = traits_type::to_char_type(unit);
        xsputn(&added, 1);
      }
      return traits_type::not_eof(unit);
    }

    std::streamsize xsputn(const char16* units, std::streamsize count) override {
      const std::size_t used = view().size();
      const std::size_t size = used + static_cast<std::size_t>(count);
      if (size <= text_.size()) {
        std::copy_n(units, count, text_.data() + used);
      } else {
        // `units` may lie in text_: copy them before it is replaced.
        ustring grown(std::max(size, 2 * text_.size() + least_growth), u'\0');
        view().copy(grown.data(), used);
        std::copy_n(units, count, grown.data() + used);
        text_ = std::move(grown);
      }
      setp(text_.data() + size, text_.data() + text_.size());
      return count;
    }

   private:
    static constexpr std::size_t least_growth = 64;

    ustring text_;  // what was written, followed by the put area
  };

  buffer buffer_;
};

}  // namespace Xport

#endif
