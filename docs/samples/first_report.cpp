#include <vellomark/vellomark.h>

// Writes Vellomark/harvest.htm below the current folder.
int main() {
  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  report->AddHeading(u"Harvest", 1);
  report->AddText(u"Fruit of this year, in tonnes.", false);
  report->OpenTable(2);
  for (const char16_t* cell : {u"Apples", u"12", u"Pears", u"7"}) {
    report->AddText(cell, false);
  }
  report->CloseTable();
  return report->Save(u".", u"harvest.htm") ? 0 : 1;
}
