#include "bench/reading/page_reader.h"

#include <libxml/xmlversion.h>
#include <tidy/tidy.h>

#include <pugixml.hpp>

#include "bench/reading/page_blocks.h"

namespace bench {

namespace {

/// No tree: reads the file and looks at each unit once. The floor that everything else is compared
/// with.
class bare_reader : public page_reader {
 public:
  std::string name() const override { return bare_reader_name; }
  bool needs_well_formed() const override { return false; }

  bool read(const std::string& path) override {
    page_blocks file(path);
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

std::vector<std::unique_ptr<page_reader>> all_readers() {
  std::vector<std::unique_ptr<page_reader>> all;
  all.push_back(make_vellomark_reader());
  all.push_back(make_pugixml_reader());
  all.push_back(make_rapidxml_reader());
  all.push_back(make_libxml2_xml_reader());
  all.push_back(make_libxml2_html_reader());
  all.push_back(make_gumbo_reader());
  all.push_back(make_tidy_reader());
  all.push_back(std::make_unique<bare_reader>());
  return all;
}

std::string peer_versions() {
  // gumbo doesn't tell its version.
  return "pugixml " + std::to_string(PUGIXML_VERSION / 1000) + "." +
         std::to_string(PUGIXML_VERSION / 10 % 100) + ", libxml2 " + LIBXML_DOTTED_VERSION +
         ", gumbo " + GUMBO_VERSION + ", tidy " + tidyLibraryVersion();
}

}  // namespace bench
