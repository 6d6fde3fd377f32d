#include <libxml/tree.h>
#include <libxml/xmlsave.h>
#include <libxml/xmlversion.h>

#include "bench/contender.h"

namespace bench {

namespace {

const xmlChar* as_xml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

xmlNodePtr add_element(xmlNodePtr parent, const char* name) {
  return xmlAddChild(parent, xmlNewDocNode(parent->doc, nullptr, as_xml(name), nullptr));
}

void add_text(xmlNodePtr parent, const char* text) {
  xmlAddChild(parent, xmlNewDocText(parent->doc, as_xml(text)));
}

void set_attribute(xmlNodePtr element, const char* name, const char* value) {
  xmlNewProp(element, as_xml(name), as_xml(value));
}

class libxml2_tree : public contender {
 public:
  ~libxml2_tree() override { destroy(); }

  std::string name() const override { return "libxml2"; }

  void build(const workload& work) override {
    document_ = xmlNewDoc(as_xml("1.0"));
    xmlCreateIntSubset(document_, as_xml(doctype_name), as_xml(doctype_public_id),
                       as_xml(doctype_system_id));
    xmlNodePtr html = xmlNewDocNode(document_, nullptr, as_xml("html"), nullptr);
    xmlDocSetRootElement(document_, html);
    xmlNewNs(html, as_xml(xml_namespace), nullptr);
    xmlNodePtr head = add_element(html, "head");
    add_text(add_element(head, "title"), page_title);
    xmlNodePtr style = add_element(head, "style");
    set_attribute(style, "type", "text/css");
    add_text(style, page_stylesheet);
    xmlNodePtr body = add_element(html, "body");
    xmlNodePtr heading = add_element(body, "h1");
    set_attribute(heading, "class", "Style1");
    add_text(heading, page_heading);
    xmlNodePtr block = add_element(body, "p");
    if (work.kind() == page_kind::table) {
      add_table(body, work);
      add_element(body, "p");
    } else {
      add_lines(block, work);
    }
    add_element(body, "p");
  }

  bool save(const workload&, const page_target& target) override {
    // The encoding named "UTF-16" is little endian with a mark, "UTF-16LE" has
    // none. Written as XML: the XHTML form would add an element of its own.
    xmlSaveCtxtPtr context = xmlSaveToFilename(
        target.path().c_str(), "UTF-16", XML_SAVE_FORMAT | XML_SAVE_NO_XHTML | XML_SAVE_NO_DECL);
    return context != nullptr && xmlSaveDoc(context, document_) >= 0 && xmlSaveClose(context) >= 0;
  }

  void destroy() override {
    xmlFreeDoc(document_);
    document_ = nullptr;
  }

 private:
  static void add_table(xmlNodePtr body, const workload& work) {
    xmlNodePtr table = add_element(body, "table");
    set_attribute(table, "border", "1");
    set_attribute(table, "class", "main");
    set_attribute(table, "width", "100%");
    xmlNodePtr row = nullptr;
    for (std::size_t item = 0; item < work.items(); ++item) {
      if (item % table_columns == 0) {
        row = add_element(table, "tr");
      }
      xmlNodePtr cell = add_element(row, "td");
      set_attribute(cell, "valign", "top");
      add_text(cell, work.narrow(item));
    }
  }

  static void add_lines(xmlNodePtr block, const workload& work) {
    for (std::size_t item = 0; item < work.items(); ++item) {
      add_text(add_element(block, "a"), work.narrow(item));
      add_element(block, "br");
    }
  }

  xmlDocPtr document_ = nullptr;
};

}  // namespace

std::unique_ptr<contender> make_libxml2_tree() { return std::make_unique<libxml2_tree>(); }

std::string libxml2_version() { return LIBXML_DOTTED_VERSION; }

}  // namespace bench
