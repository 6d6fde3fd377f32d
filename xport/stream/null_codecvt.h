#ifndef XPORT_STREAM_NULL_CODECVT_H
#define XPORT_STREAM_NULL_CODECVT_H

#include <algorithm>
#include <cstddef>
#include <cwchar>
#include <locale>
#include <memory>

#include "xport/text/char16.h"

namespace Xport {

/// A conversion between code units and bytes that converts nothing: it reports to streams
/// that no conversion is needed. Create it with new and pass it to a locale, which then owns it.
class NullCodecvt : public std::codecvt<char16, char, std::mbstate_t> {
 public:
  NullCodecvt() = default;

 protected:
  bool do_always_noconv() const noexcept override { return true; }
  int do_max_length() const noexcept override { return 2; }
  int do_encoding() const noexcept override { return 2; }
  result do_in(state_type&, const char* from, const char*, const char*& from_next, char16* to,
               char16*, char16*& to_next) const override {
    from_next = from;
    to_next = to;
    return noconv;
  }
  result do_out(state_type&, const char16* from, const char16*, const char16*& from_next, char* to,
                char*, char*& to_next) const override {
    from_next = from;
    to_next = to;
    return noconv;
  }
  result do_unshift(state_type&, char* to, char*, char*& to_next) const override {
    to_next = to;
    return noconv;
  }
  int do_length(state_type&, const char* from, const char* end, std::size_t count) const override {
    return static_cast<int>(std::min(count, static_cast<std::size_t>(end - from)));
  }
};

/// `base` with NullCodecvt in it; its name is "*".
inline std::locale with_null_codecvt(const std::locale& base) {
  auto facet = std::make_unique<NullCodecvt>();
  std::locale locale(base, facet.get());  // owns the facet once it is constructed
  facet.release();
  return locale;
}

}  // namespace Xport

#endif
