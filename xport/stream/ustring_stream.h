#ifndef XPORT_STREAM_USTRING_STREAM_H
#define XPORT_STREAM_USTRING_STREAM_H

#include <ostream>
#include <streambuf>

#include "xport/text/char16.h"

namespace Xport {

/// An output stream of code units into a string in memory. Unlike the standard
/// library's string stream it keeps U+FFFF wherever it stands in a run of units,
/// and it throws std::bad_alloc when memory runs out.
class ustring_stream : public std::basic_ostream<char16> {
 public:
  ustring_stream() : std::basic_ostream<char16>(nullptr) {
    rdbuf(&buffer_);
    exceptions(badbit);
  }

  /// What was written so far; valid until more is written.
  const ustring& str() const { return buffer_.text; }

 private:
  struct buffer : std::basic_streambuf<char16> {
    ustring text;

   protected:
    int_type overflow(int_type unit) override {
      if (!traits_type::eq_int_type(unit, traits_type::eof()))
        text.push_back(traits_type::to_char_type(unit));
      return traits_type::not_eof(unit);
    }
    std::streamsize xsputn(const char16* units, std::streamsize count) override {
      text.append(units, static_cast<std::size_t>(count));
      return count;
    }
  };

  buffer buffer_;
};

}  // namespace Xport

#endif
