#ifndef VELLOMARK_PICTURE_PATH_H
#define VELLOMARK_PICTURE_PATH_H

#include <string>

namespace vellomark {

/// Converts the native path of a picture into the form that a section's line of
/// text needs: Save then names the picture after its file and not after its whole
/// path. The last separator becomes a backslash: "/tmp/charts/a.bmp" becomes
/// "/tmp/charts\a.bmp", which names the same file to the library on every system.
/// A path without a forward slash after its last backslash is returned unchanged.
/// Time is linear in the length of the path.
inline std::u16string PicturePath(std::u16string path) {
  const std::u16string::size_type separator = path.find_last_of(u"/\\");
  if (separator != std::u16string::npos) path[separator] = u'\\';
  return path;
}

}  // namespace vellomark

#endif
