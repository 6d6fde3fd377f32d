#ifndef PLATFORM_URL_OPENER_H
#define PLATFORM_URL_OPENER_H

#include "xport/text/char16.h"

namespace platform {

/// Shows a page to the user.
class url_opener {
 public:
  /// Opens `url` with the user's default handler. Returns once the handler's program is
  /// loaded, without waiting for it to finish. Prints nothing and ignores every failure. Does
  /// nothing if the system can't express `url` (on POSIX, a lone surrogate or a zero unit).
  /// Throws std::bad_alloc and nothing else.
  ///
  /// On POSIX the handler is `xdg-open`, looked up in PATH, and `url` is its only
  /// argument; no shell is involved. The handler runs in a session of its own with
  /// every signal at its default and none blocked, and with the null device as its
  /// standard streams; with glibc 2.34 or later it inherits no other descriptor. The
  /// time to start it doesn't grow with the memory of the host.
  ///
  /// The signal mask, the signal actions and the errno of the caller are unchanged
  /// afterwards. The handler isn't a child of the host, so the host needn't wait for it. The
  /// exception is a host that is process 1 or a subreaper: it inherits orphans as children,
  /// and must reap the handler like any other.
  virtual void open(const Xport::ustring& url) = 0;

  /// The opener of the operating system. It has no state, and exists before any code runs
  /// and until the process ends. May be used from any thread.
  static url_opener& native();

 protected:
  // Not virtual, so that the object of native() needs no destruction. Nobody deletes an
  // opener through this class.
  ~url_opener() = default;
};

}  // namespace platform

#endif
