// A host whose global object holds the report and saves it in its destructor.
#include <vellomark/vellomark.h>

#include <string>

namespace {

class saver {
 public:
  saver() {}
  saver(const saver&) = delete;
  saver& operator=(const saver&) = delete;
  ~saver() {
    report->AddText(u"Saved by the destructor of a global.", false);
    report->Save(folder.c_str(), u"page.htm");
  }

  boost::shared_ptr<IVellomark> report;
  std::u16string folder;
};

// Constructed before main makes the report, so destroyed after everything that the library
// constructs on first use.
saver global;

}  // namespace

int main(int, char** arguments) {
  const std::string folder = arguments[1];
  global.folder.assign(folder.begin(), folder.end());
  global.report = vellomark::CreateInstance();
  return 0;
}
