#include <vellomark/vellomark.h>

// Fills the template delivery_note.htm, which is in the current folder, and writes
// Vellomark/note.htm below it.
int main() {
  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  report->LoadTemplate(u"delivery_note.htm");

  zov_shared_array<CZovString> fields;
  report->GetTemplateFields(fields);
  for (const CZovString& field : fields) {
    // Adds the template up to this field to the page. The field keeps its name.
    report->SetTemplateField(field.c_str(), true, field.c_str());
    if (field == CZovString(u"Receiver")) {
      report->AddText(u"Ada Lovelace, London", false);
    } else if (field == CZovString(u"Items")) {
      report->OpenTable(2);
      for (const char16_t* cell : {u"Ribbon", u"3", u"Ink", u"1"}) report->AddText(cell, false);
      report->CloseTable();
    }
  }
  return report->Save(u".", u"note.htm") ? 0 : 1;
}
