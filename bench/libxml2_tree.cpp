#include <libxml/tree.h>
#include <libxml/xmlsave.h>
#include <libxml/xmlversion.h>

#include "bench/contender.h"
#include "bench/page_tree.h"

namespace bench {

namespace {

const xmlChar* as_xml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

struct libxml2_calls {
  xmlNodePtr add(xmlNodePtr parent, word name) const {
    return xmlAddChild(parent, xmlNewDocNode(parent->doc, nullptr, as_xml(name.narrow), nullptr));
  }
  void text(xmlNodePtr parent, word text) const {
    xmlAddChild(parent, xmlNewDocText(parent->doc, as_xml(text.narrow)));
  }
  void attribute(xmlNodePtr element, word name, word value) const {
    xmlNewProp(element, as_xml(name.narrow), as_xml(value.narrow));
  }
};

class libxml2_tree : public contender {
 public:
  ~libxml2_tree() override { xmlFreeDoc(document_); }

  std::string name() const override { return "libxml2"; }

  void build(const workload& work) override {
    document_ = xmlNewDoc(as_xml("1.0"));
    xmlCreateIntSubset(document_, as_xml(doctype_name), as_xml(doctype_public_id),
                       as_xml(doctype_system_id));
    xmlNodePtr html = xmlNewDocNode(document_, nullptr, as_xml("html"), nullptr);
    xmlDocSetRootElement(document_, html);
    xmlNewNs(html, as_xml(xml_namespace), nullptr);
    build_page(libxml2_calls{}, html, work);
  }

  bool save(const workload&, const page_target& target) override {
    // The encoding named "UTF-16" is little endian with a mark, "UTF-16LE" has none. Written as
    // XML: the XHTML form would add an element of its own.
    xmlSaveCtxtPtr context = xmlSaveToFilename(
        target.path().c_str(), "UTF-16", XML_SAVE_FORMAT | XML_SAVE_NO_XHTML | XML_SAVE_NO_DECL);
    return context != nullptr && xmlSaveDoc(context, document_) >= 0 && xmlSaveClose(context) >= 0;
  }

  void destroy() override {
    xmlFreeDoc(document_);
    document_ = nullptr;
  }

 private:
  xmlDocPtr document_ = nullptr;
};

}  // namespace

std::unique_ptr<contender> make_libxml2_tree() { return std::make_unique<libxml2_tree>(); }

std::string libxml2_version() { return LIBXML_DOTTED_VERSION; }

}  // namespace bench
