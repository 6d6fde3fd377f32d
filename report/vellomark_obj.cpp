#include "report/vellomark_obj.h"

using Xport::tag_id;

IVellomark::IVellomark() = default;

IVellomark::IVellomark(const IVellomark&) = default;

IVellomark& IVellomark::operator=(const IVellomark&) = default;

IVellomark::~IVellomark() = default;

namespace vellomark {

boost::shared_ptr<IVellomark> CreateInstance() {
  return boost::shared_ptr<IVellomark>(new VellomarkObj);
}

}  // namespace vellomark

VellomarkObj::VellomarkObj()
    : VellomarkObj(platform::file_system::native(), platform::url_opener::native()) {}

VellomarkObj::VellomarkObj(platform::file_system& files_to_use,
                           platform::url_opener& browser_to_use)
    : files(files_to_use),
      browser(browser_to_use),
      doc(std::make_unique<Xport::xhtml_doc>(1)),
      section_table(tag_id::table, {}, u"main"),
      link_cell(tag_id::td, {}, {}),
      link_anchor(tag_id::a, {}, {}),
      template_doc(0) {
  if (Xport::xhtml_markup* const title = doc->title()) title->append_text(u"Report");
  InstallDefaultStyles();
}

VellomarkObj::~VellomarkObj() = default;
