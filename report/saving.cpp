#include <cstddef>
#include <cstdint>

#include "report/vellomark_obj.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/text/number_format.h"

using Xport::ustring;

namespace {

// Paths are looked up through a text of 260 units, the last of which ends it.
constexpr std::size_t longest_path = 259;

// The part of a page's name before its first full stop. It names the folder of
// the page's pictures; without a full stop it is empty.
ustring stem_of(const ustring& name) {
  const std::size_t full_stop = name.find(u'.');
  return full_stop == ustring::npos ? ustring() : name.substr(0, full_stop);
}

}  // namespace

bool VellomarkObj::Save(const char16_t* folder, const char16_t* file_name) {
  if (folder == nullptr) return false;
  FlushTemplateSegment();
  if (!doc) return false;

  ustring base(folder);
  if (!files.exists(base) && !EnsureFolder(base)) return false;
  base += u"/Vellomark/";
  if (!EnsureFolder(base)) return false;

  const ustring name = file_name != nullptr ? ustring(file_name) : UniqueReportName(base);
  WriteSections(base, stem_of(name));

  base += name;
  const bool opened = Xport::write_document(*doc, files.open_for_writing(base));
  // The page is shown even where it couldn't be written.
  if (file_name == nullptr) browser.open(u"file:///" + base);
  return opened;
}

bool VellomarkObj::EnsureFolder(const ustring& path) const {
  return files.create_directory(path) != platform::folder_result::failed;
}

// A path that is too long to be looked up counts as free.
ustring VellomarkObj::UniqueReportName(const ustring& folder) const {
  std::uint32_t counter = 1;
  while (true) {
    const ustring name =
        u"Report" + Xport::to_ustring(static_cast<std::int32_t>(counter)) + u".htm";
    const ustring path = folder + u"\\" + name;
    ++counter;
    if (path.size() > longest_path || !files.exists(path) || counter == 0) return name;
  }
}
