#ifndef VELLOMARK_PICTURE_PATH_H
#define VELLOMARK_PICTURE_PATH_H

#include <string>

namespace vellomark {

/// Turns the path of a picture, as the system writes it, into the form in which a
/// section's text line is recognised as a picture and gets a good name in the
/// folder of pictures: its last separator becomes a backslash. "/tmp/charts/a.bmp"
/// gives "/tmp/charts\a.bmp", which names the same file to the library on every
/// system. A path without a forward slash, or with a backslash behind the last
/// one, is given back as it is.
inline std::u16string PicturePath(std::u16string path) {
  const std::u16string::size_type separator = path.find_last_of(u"/\\");
  if (separator != std::u16string::npos) path[separator] = u'\\';
  return path;
}

}  // namespace vellomark

#endif
