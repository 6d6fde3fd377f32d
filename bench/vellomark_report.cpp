#include <vellomark/vellomark.h>

#include <cstdint>

#include "bench/contender.h"

namespace bench {

namespace {

/// The library, used as a host uses it: through the interface alone.
class vellomark_report : public contender {
 public:
  std::string name() const override { return vellomark_name; }

  void build(const workload& work) override {
    report_ = vellomark::CreateInstance();
    report_->AddHeading(widen(page_heading).c_str(), 1);
    add_items(work, 0, work.lines());
    if (work.lines() < work.items()) {
      report_->OpenTable(static_cast<std::int32_t>(work.columns()));
      add_items(work, work.lines(), work.items());
      report_->CloseTable();
    }
  }

  bool save(const workload&, const page_target& target) override {
    return report_->Save(widen(target.folder).c_str(), widen(target.name).c_str());
  }

  void destroy() override { report_.reset(); }

 private:
  void add_items(const workload& work, std::size_t first, std::size_t end) {
    for (std::size_t item = first; item < end; ++item) {
      report_->AddText(work.wide(item), false);
    }
  }

  boost::shared_ptr<IVellomark> report_;
};

}  // namespace

std::unique_ptr<contender> make_vellomark_report() { return std::make_unique<vellomark_report>(); }

}  // namespace bench
