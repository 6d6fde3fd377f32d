#include <optional>
#include <pugixml.hpp>

#include "bench/contender.h"
#include "bench/page_tree.h"

namespace bench {

namespace {

struct pugixml_calls {
  pugi::xml_node add(pugi::xml_node parent, word name) const {
    return parent.append_child(name.narrow);
  }
  void text(pugi::xml_node parent, word text) const {
    parent.append_child(pugi::node_pcdata).set_value(text.narrow);
  }
  void attribute(pugi::xml_node element, word name, word value) const {
    element.append_attribute(name.narrow).set_value(value.narrow);
  }
};

class pugixml_tree : public contender {
 public:
  std::string name() const override { return pugixml_name; }

  void build(const workload& work) override {
    document_.emplace();
    document_->append_child(pugi::node_doctype).set_value(doctype_text().c_str());
    pugi::xml_node html = document_->append_child("html");
    html.append_attribute("xmlns").set_value(xml_namespace);
    build_page(pugixml_calls{}, html, work);
  }

  bool save(const workload&, const page_target& target) override {
    return document_->save_file(
        target.path().c_str(), "  ",
        pugi::format_indent | pugi::format_write_bom | pugi::format_no_declaration,
        pugi::encoding_utf16_le);
  }

  void destroy() override { document_.reset(); }

 private:
  std::optional<pugi::xml_document> document_;
};

}  // namespace

std::unique_ptr<contender> make_pugixml_tree() { return std::make_unique<pugixml_tree>(); }

std::string pugixml_version() {
  return std::to_string(PUGIXML_VERSION / 1000) + "." + std::to_string(PUGIXML_VERSION / 10 % 100);
}

}  // namespace bench
