#include <vellomark/vellomark.h>

#include "bench/templates/template_filler.h"
#include "bench/templates/template_page.h"

namespace bench {

bool fill_with_vellomark(const std::string& path, const page_target& target) {
  const std::u16string content = widen(field_content);
  const boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  report->LoadTemplate(widen(path).c_str());
  zov_shared_array<CZovString> fields;
  report->GetTemplateFields(fields);
  for (const CZovString& field : fields) {
    report->SetTemplateField(field.c_str(), true, field.c_str());
    report->AddText(content.c_str(), false);
  }
  return !fields.empty() && report->Save(widen(target.folder).c_str(), widen(target.name).c_str());
}

}  // namespace bench
