#include <cstddef>
#include <cstdint>

#include "report/vellomark_obj.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/text/number_format.h"

using platform::file_system;
using Xport::ustring;

namespace {

// The longest path that a search for a free name looks up; longer ones count as free.
constexpr std::size_t longest_path = 259;

// The part of the page's name before its first full stop; empty without a full stop.
ustring StemOf(const ustring& name) {
  const std::size_t full_stop = name.find(u'.');
  return full_stop == ustring::npos ? ustring() : name.substr(0, full_stop);
}

bool EnsureFolder(file_system& files, const ustring& path) {
  return files.create_directory(path) != platform::folder_result::failed;
}

// The first of Report1.htm, Report2.htm ... that `folder` doesn't contain. The last number
// before the counter wraps is used even if its name is taken.
ustring UniqueReportName(file_system& files, const ustring& folder) {
  std::uint32_t counter = 1;
  while (true) {
    const ustring name =
        u"Report" + Xport::to_ustring(static_cast<std::int32_t>(counter)) + u".htm";
    const ustring path = folder + u"\\" + name;
    ++counter;
    if (path.size() > longest_path || !files.exists(path) || counter == 0) return name;
  }
}

}  // namespace

bool VellomarkObj::Save(const char16_t* folder, const char16_t* file_name) {
  if (folder == nullptr) return false;
  FlushTemplateSegment();
  if (!doc) return false;

  ustring base(folder);
  if (!files.exists(base) && !EnsureFolder(files, base)) return false;
  base += u"/Vellomark/";
  if (!EnsureFolder(files, base)) return false;

  const ustring name = file_name != nullptr ? ustring(file_name) : UniqueReportName(files, base);
  WriteSections(base, StemOf(name));

  base += name;
  const bool opened = Xport::write_document(*doc, files.open_for_writing(base));
  // The page is shown even if it couldn't be written.
  if (file_name == nullptr) browser.open(u"file:///" + base);
  return opened;
}
