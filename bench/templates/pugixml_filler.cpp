#include <cstring>
#include <pugixml.hpp>

#include "bench/templates/template_filler.h"
#include "bench/templates/template_page.h"

namespace bench {

bool fill_with_pugixml(const std::string& path, const page_target& target) {
  pugi::xml_document page;
  if (!page.load_file(path.c_str(), pugi::parse_default | pugi::parse_doctype,
                      pugi::encoding_utf16_le)) {
    return false;
  }
  pugi::xml_node body = page.child("html").child("body");
  for (pugi::xml_node block = body.first_child(); block; block = block.next_sibling()) {
    const pugi::xml_node marker = block.first_child();
    if (std::strcmp(block.name(), "p") != 0 ||
        std::strcmp(marker.attribute("id").value(), "Template") != 0) {
      continue;
    }
    block.remove_child(marker);
    block.append_child("a").append_child(pugi::node_pcdata).set_value(field_content);
    block.append_child("br");
  }
  body.append_child("p");
  return page.save_file(target.path().c_str(), "  ",
                        pugi::format_indent | pugi::format_write_bom | pugi::format_no_declaration,
                        pugi::encoding_utf16_le);
}

}  // namespace bench
