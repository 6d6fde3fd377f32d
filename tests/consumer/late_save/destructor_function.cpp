// A host that saves its report in a function that runs after the destructors of all globals.
#include <vellomark/vellomark.h>

#include <string>

namespace {

// Not destroyed with the globals.
boost::shared_ptr<IVellomark>* report;
std::u16string* folder;

__attribute__((destructor)) void save() {
  (*report)->AddText(u"Saved by a destructor function.", false);
  (*report)->Save(folder->c_str(), u"page.htm");
  delete report;
  delete folder;
}

}  // namespace

int main(int, char** arguments) {
  const std::string path = arguments[1];
  folder = new std::u16string(path.begin(), path.end());
  report = new boost::shared_ptr<IVellomark>(vellomark::CreateInstance());
  return 0;
}
