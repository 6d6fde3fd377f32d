#include "bench/reading/block_input.h"
#include "bench/reading/page_reader.h"

namespace bench {

namespace {

/// No tree: reads the file and looks at each unit once. The floor that everything else is
/// compared with.
class bare_reader : public page_reader {
 public:
  std::string name() const override { return bare_reader_name; }
  bool needs_well_formed() const override { return false; }

  bool read(const std::string& path) override {
    block_input file(path);
    std::size_t tags = 0;
    for (std::u16string_view block = file.next(); !block.empty(); block = file.next()) {
      for (const char16_t unit : block) {
        tags += unit == u'<';
      }
    }
    return tags != 0;
  }

  tree_summary summarize() const override { return {0, 0, 0}; }
  void destroy() override {}
};

}  // namespace

std::unique_ptr<page_reader> make_bare_reader() { return std::make_unique<bare_reader>(); }

}  // namespace bench
