#include <stdexcept>

#include "report/vellomark_obj.h"
#include "report/written_text.h"

using Xport::attr_id;
using Xport::tag_id;
using Xport::ustring;
using Xport::xhtml_element;

namespace {

// The picture's name in the folder of pictures. ".bmp" replaces the last four units of the
// path, whatever they are. Only a backslash separates folders.
ustring PictureName(const ustring& source) {
  constexpr std::size_t extension = 4;
  if (source.size() < extension) throw std::out_of_range("invalid string position");
  const ustring name = source.substr(0, source.size() - extension) + u".bmp";
  return name.substr(name.rfind(u'\\') + 1);
}

}  // namespace

// The source is removed last, when the copy is complete and the `img` has replaced the
// path, so a failure at any step loses nothing.
void VellomarkObj::RelocatePicture(std::list<xhtml_element>& elements,
                                   const ustring& picture_folder, const ustring& picture_link) {
  const ustring source = report::ElementPlainText(elements.front());
  if (source.empty() || !files.is_file(source)) return;
  const ustring picture = PictureName(source);
  if (!files.copy_file(source, picture_folder + picture)) return;  // Not reported.

  std::list<xhtml_element> image;
  image.emplace_back(tag_id::img, u"", u"").set_attribute(attr_id::src, picture_link + picture);
  elements.pop_front();
  elements.splice(elements.begin(), image);
  files.remove_file(source);  // Not reported.
}
