#include <vellomark/picture_path.h>
#include <vellomark/vellomark.h>

// Writes Vellomark/places.htm below the current folder, and moves the picture charts/oslo.bmp
// to Vellomark/places_files/oslo.bmp.
int main() {
  boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  report->AddHeading(u"Places", 1);

  report->AddSectionHeading(u"Europe", 2);
  report->AddSectionHeading(u"Norway", 3);
  report->BeginDirectLinks();
  report->BeginSection(u"", u"Oslo");  // adds a link to the section here
  report->EndDirectLinks();

  report->SetSectionMode(true);  // what follows goes into the section
  report->AddText(u"<span id='Oslo'>Oslo</span> has long days in June.", false);
  report->AddText(vellomark::PicturePath(u"charts/oslo.bmp").c_str(), false);
  report->SetSectionMode(false);
  return report->Save(u".", u"places.htm") ? 0 : 1;
}
