#include <optional>
#include <pugixml.hpp>

#include "bench/reading/page_reader.h"

namespace bench {

namespace {

struct links {
  pugi::xml_node first_child(pugi::xml_node of) const { return of.first_child(); }
  pugi::xml_node next(pugi::xml_node of) const { return of.next_sibling(); }
  pugi::xml_node parent(pugi::xml_node of) const { return of.parent(); }

  bool is_element(pugi::xml_node node) const { return node.type() == pugi::node_element; }
  void enter(pugi::xml_node node, tree_summarizer& sum) const {
    if (is_element(node)) {
      sum.open(std::string_view(node.name()));
      for (const pugi::xml_attribute attribute : node.attributes()) {
        sum.attribute(std::string_view(attribute.name()), std::string_view(attribute.value()));
      }
    } else if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata) {
      sum.text(std::string_view(node.value()));
    }
  }
};

class pugixml_reader : public page_reader {
 public:
  std::string name() const override { return pugixml_reader_name; }
  bool needs_well_formed() const override { return true; }

  bool read(const std::string& path) override {
    document_.emplace();
    return document_->load_file(path.c_str(), pugi::parse_default, pugi::encoding_utf16_le);
  }

  tree_summary summarize() const override {
    return summarize_below<pugi::xml_node>(*document_, links{});
  }

  void destroy() override { document_.reset(); }

 private:
  std::optional<pugi::xml_document> document_;
};

}  // namespace

std::unique_ptr<page_reader> make_pugixml_reader() { return std::make_unique<pugixml_reader>(); }

}  // namespace bench
