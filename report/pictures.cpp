#include <stdexcept>

#include "report/element_plain_text.h"
#include "report/vellomark_obj.h"

using Xport::attr_id;
using Xport::tag_id;
using Xport::ustring;
using Xport::xhtml_element;

namespace {

// The name that a picture gets in the folder of the page's pictures. Its last four
// units make way for the extension, whatever they are; a forward slash is part of
// the name.
ustring picture_name(const ustring& source) {
  constexpr std::size_t extension = 4;
  if (source.size() < extension) throw std::out_of_range("invalid string position");
  const ustring name = source.substr(0, source.size() - extension) + u".bmp";
  return name.substr(name.rfind(u'\\') + 1);
}

}  // namespace

// If the first element's text is the path of a file, moves the file into
// the folder of pictures and puts an `img` in the element's place. The source goes last, when
// the copy is complete and the `img` stands in for it, so that nothing is lost
// wherever this fails.
void VellomarkObj::RelocatePicture(std::list<xhtml_element>& elements,
                                   const ustring& picture_folder, const ustring& picture_link) {
  const ustring source = ElementPlainText(elements.front());
  if (source.empty() || !files.is_file(source)) return;
  const ustring picture = picture_name(source);
  if (!files.copy_file(source, picture_folder + picture)) return;

  std::list<xhtml_element> image;
  image.emplace_back(tag_id::img, u"", u"").set_attribute(attr_id::src, picture_link + picture);
  elements.pop_front();
  elements.splice(elements.begin(), image);
  files.remove_file(source);
}
