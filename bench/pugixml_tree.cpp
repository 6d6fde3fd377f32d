#include <optional>
#include <pugixml.hpp>

#include "bench/contender.h"

namespace bench {

namespace {

void add_text(pugi::xml_node parent, const char* text) {
  parent.append_child(pugi::node_pcdata).set_value(text);
}

class pugixml_tree : public contender {
 public:
  std::string name() const override { return pugixml_name; }

  void build(const workload& work) override {
    document_.emplace();
    const std::string doctype = std::string(doctype_name) + " PUBLIC \"" + doctype_public_id +
                                "\" \"" + doctype_system_id + "\"";
    document_->append_child(pugi::node_doctype).set_value(doctype.c_str());
    pugi::xml_node html = document_->append_child("html");
    html.append_attribute("xmlns").set_value(xml_namespace);
    pugi::xml_node head = html.append_child("head");
    add_text(head.append_child("title"), page_title);
    pugi::xml_node style = head.append_child("style");
    style.append_attribute("type").set_value("text/css");
    add_text(style, page_stylesheet);
    pugi::xml_node body = html.append_child("body");
    pugi::xml_node heading = body.append_child("h1");
    heading.append_attribute("class").set_value("Style1");
    add_text(heading, page_heading);
    pugi::xml_node block = body.append_child("p");
    if (work.kind() == page_kind::table) {
      add_table(body, work);
      body.append_child("p");
    } else {
      add_lines(block, work);
    }
    body.append_child("p");
  }

  bool save(const workload&, const page_target& target) override {
    return document_->save_file(
        target.path().c_str(), "  ",
        pugi::format_indent | pugi::format_write_bom | pugi::format_no_declaration,
        pugi::encoding_utf16_le);
  }

  void destroy() override { document_.reset(); }

 private:
  static void add_table(pugi::xml_node body, const workload& work) {
    pugi::xml_node table = body.append_child("table");
    table.append_attribute("border").set_value("1");
    table.append_attribute("class").set_value("main");
    table.append_attribute("width").set_value("100%");
    pugi::xml_node row;
    for (std::size_t item = 0; item < work.items(); ++item) {
      if (item % table_columns == 0) {
        row = table.append_child("tr");
      }
      pugi::xml_node cell = row.append_child("td");
      cell.append_attribute("valign").set_value("top");
      add_text(cell, work.narrow(item));
    }
  }

  static void add_lines(pugi::xml_node block, const workload& work) {
    for (std::size_t item = 0; item < work.items(); ++item) {
      add_text(block.append_child("a"), work.narrow(item));
      block.append_child("br");
    }
  }

  std::optional<pugi::xml_document> document_;
};

}  // namespace

std::unique_ptr<contender> make_pugixml_tree() { return std::make_unique<pugixml_tree>(); }

std::string pugixml_version() {
  return std::to_string(PUGIXML_VERSION / 1000) + "." + std::to_string(PUGIXML_VERSION / 10 % 100);
}

}  // namespace bench
