#include <libxml/HTMLparser.h>
#include <libxml/parser.h>
#include <libxml/tree.h>

#include "bench/reading/page_reader.h"

namespace bench {

namespace {

std::string_view view(const xmlChar* text) {
  return text != nullptr ? std::string_view(reinterpret_cast<const char*>(text))
                         : std::string_view();
}

struct links {
  // Entities aren't replaced, and the children of their nodes lie elsewhere.
  xmlNodePtr first_child(xmlNodePtr of) const {
    return of->type == XML_ENTITY_REF_NODE || of->type == XML_DTD_NODE ? nullptr : of->children;
  }
  xmlNodePtr next(xmlNodePtr of) const { return of->next; }
  xmlNodePtr parent(xmlNodePtr of) const { return of->parent; }

  bool is_element(xmlNodePtr node) const { return node->type == XML_ELEMENT_NODE; }
  void enter(xmlNodePtr node, tree_summarizer& sum) const {
    if (node->type == XML_TEXT_NODE || node->type == XML_CDATA_SECTION_NODE)
      sum.text(view(node->content));
    if (!is_element(node)) return;
    sum.open(view(node->name));
    for (const xmlNs* space = node->nsDef; space != nullptr; space = space->next)
      sum.attribute(std::string_view("xmlns"), view(space->href));
    for (const xmlAttr* attribute = node->properties; attribute != nullptr;
         attribute = attribute->next) {
      const xmlNode* const value = attribute->children;
      sum.attribute(view(attribute->name), view(value != nullptr ? value->content : nullptr));
    }
  }
};

/// What the two readers have in common.
class libxml2_reader : public page_reader {
 public:
  ~libxml2_reader() override { xmlFreeDoc(document_); }

  tree_summary summarize() const override {
    return summarize_below(reinterpret_cast<xmlNodePtr>(document_), links{});
  }

  void destroy() override {
    xmlFreeDoc(document_);
    document_ = nullptr;
  }

 protected:
  xmlDocPtr document_ = nullptr;
};

class libxml2_xml_reader : public libxml2_reader {
 public:
  std::string name() const override { return "libxml2"; }
  bool needs_well_formed() const override { return true; }

  // The document type definition that the page names is neither looked for nor loaded.
  bool read(const std::string& path) override {
    document_ =
        xmlReadFile(path.c_str(), nullptr, XML_PARSE_NOBLANKS | XML_PARSE_HUGE | XML_PARSE_NONET);
    return document_ != nullptr;
  }
};

class libxml2_html_reader : public libxml2_reader {
 public:
  std::string name() const override { return "libxml2html"; }
  bool needs_well_formed() const override { return false; }

  bool read(const std::string& path) override {
    htmlParserCtxtPtr context = htmlNewParserCtxt();
    if (context == nullptr) {
      return false;
    }
    // This version of the HTML parser has no option that lifts the limit of 256 levels, but it
    // obeys that of the XML parser.
    context->options |= XML_PARSE_HUGE;
    document_ = htmlCtxtReadFile(
        context, path.c_str(), nullptr,
        HTML_PARSE_RECOVER | HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_NONET);
    htmlFreeParserCtxt(context);
    return document_ != nullptr;
  }
};

}  // namespace

std::unique_ptr<page_reader> make_libxml2_xml_reader() {
  return std::make_unique<libxml2_xml_reader>();
}

std::unique_ptr<page_reader> make_libxml2_html_reader() {
  return std::make_unique<libxml2_html_reader>();
}

}  // namespace bench
