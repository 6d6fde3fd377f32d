// A host with a thread that saves its report after main has returned.
#include <vellomark/vellomark.h>

#include <future>
#include <string>
#include <thread>

namespace {

// Its destructor makes the thread save and waits for it.
class worker {
 public:
  worker() {}
  worker(const worker&) = delete;
  worker& operator=(const worker&) = delete;
  ~worker() {
    main_returned_.set_value();
    thread_.join();
  }

  void start(const std::string& folder) {
    thread_ = std::thread(&worker::run, this, std::u16string(folder.begin(), folder.end()));
    ready_.get_future().wait();
  }

 private:
  void run(std::u16string folder) {
    const boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
    ready_.set_value();
    main_returned_.get_future().wait();
    report->AddText(u"Saved by a thread after main returned.", false);
    report->Save(folder.c_str(), u"page.htm");
  }

  std::promise<void> ready_;
  std::promise<void> main_returned_;
  std::thread thread_;
};

// Constructed before the thread makes the report, so destroyed after everything that the
// library constructs on first use.
worker global;

}  // namespace

int main(int, char** arguments) {
  global.start(arguments[1]);
  return 0;
}
