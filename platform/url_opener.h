#ifndef PLATFORM_URL_OPENER_H
#define PLATFORM_URL_OPENER_H

#include "xport/text/char16.h"

namespace platform {

/// Shows a page to the user.
class url_opener {
 public:
  virtual ~url_opener();

  /// Opens `url` with the user's default handler. Doesn't wait, prints nothing,
  /// and ignores every failure.
  virtual void open(const Xport::ustring& url) = 0;

  /// The operating system's. Holds no state; may be used from any thread.
  static url_opener& native();
};

}  // namespace platform

#endif
