#include "bench/reading/page_reader.h"

#include <libxml/xmlversion.h>
#include <tidy/tidy.h>

#include <pugixml.hpp>

namespace bench {

const char* const bare_reader_name = "bare read";
const char* const vellomark_reader_name = "vellomark";
const char* const pugixml_reader_name = "pugixml";

page_reader::~page_reader() = default;

std::vector<std::unique_ptr<page_reader>> all_readers() {
  std::vector<std::unique_ptr<page_reader>> all;
  all.push_back(make_vellomark_reader());
  all.push_back(make_pugixml_reader());
  all.push_back(make_libxml2_xml_reader());
  all.push_back(make_libxml2_html_reader());
  all.push_back(make_gumbo_reader());
  all.push_back(make_tidy_reader());
  all.push_back(make_bare_reader());
  return all;
}

std::string peer_versions() {
  // gumbo doesn't tell its version.
  return "pugixml " + std::to_string(PUGIXML_VERSION / 1000) + "." +
         std::to_string(PUGIXML_VERSION / 10 % 100) + ", libxml2 " + LIBXML_DOTTED_VERSION +
         ", gumbo " + GUMBO_VERSION + ", tidy " + tidyLibraryVersion();
}

}  // namespace bench
