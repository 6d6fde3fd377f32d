#ifndef PLATFORM_URL_OPENER_H
#define PLATFORM_URL_OPENER_H

#include "xport/text/char16.h"

namespace platform {

/// Shows a page to the user.
class url_opener {
 public:
  /// Opens `url` with the user's default handler. Returns once the handler's program
  /// is loaded and doesn't wait for what it does. Prints nothing, and ignores every
  /// failure. Throws nothing but std::bad_alloc.
  ///
  /// On POSIX the handler is `xdg-open`, looked up in PATH, and `url` is its only
  /// argument; no shell is involved. The handler runs in a session of its own with
  /// every signal at its default and none blocked, and with the null device as its
  /// standard streams; with glibc 2.34 or later it inherits no other descriptor. The
  /// time to start it doesn't grow with the memory of the host.
  ///
  /// The signal mask, the signal actions and the errno of the caller are unchanged
  /// afterwards. The handler isn't a child of the host, so the host has nothing to wait
  /// for. The exception is a host that is process 1 or a subreaper: orphans become its
  /// children, and it has to reap the handler like the others.
  virtual void open(const Xport::ustring& url) = 0;

  /// The opener of the operating system. Holds no state; may be used from any thread,
  /// and from the start of the process to its very end: it is never destroyed.
  static url_opener& native();

 protected:
  // Nobody deletes an opener through this class. Not virtual, so that native() has nothing
  // to destroy.
  ~url_opener() = default;
};

}  // namespace platform

#endif
