#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlsave.h>

#include <memory>

#include "bench/templates/template_filler.h"
#include "bench/templates/template_page.h"

namespace bench {

namespace {

const xmlChar* as_xml(const char* text) { return reinterpret_cast<const xmlChar*>(text); }

bool is_marker(xmlNodePtr node) {
  if (node == nullptr || node->type != XML_ELEMENT_NODE) {
    return false;
  }
  const xmlAttr* const id = xmlHasProp(node, as_xml("id"));
  return id != nullptr && id->children != nullptr &&
         xmlStrEqual(id->children->content, as_xml("Template"));
}

void fill(xmlNodePtr block) {
  xmlNodePtr marker = block->children;
  xmlUnlinkNode(marker);
  xmlFreeNode(marker);
  xmlNodePtr anchor = xmlAddChild(block, xmlNewDocNode(block->doc, nullptr, as_xml("a"), nullptr));
  xmlAddChild(anchor, xmlNewDocText(block->doc, as_xml(field_content)));
  xmlAddChild(block, xmlNewDocNode(block->doc, nullptr, as_xml("br"), nullptr));
}

}  // namespace

bool fill_with_libxml2(const std::string& path, const page_target& target) {
  const std::unique_ptr<xmlDoc, decltype(&xmlFreeDoc)> page(
      xmlReadFile(path.c_str(), nullptr, XML_PARSE_NOBLANKS | XML_PARSE_HUGE | XML_PARSE_NONET),
      xmlFreeDoc);
  if (!page) {
    return false;
  }
  xmlNodePtr body = xmlLastElementChild(xmlDocGetRootElement(page.get()));
  for (xmlNodePtr block = body->children; block != nullptr; block = block->next) {
    if (xmlStrEqual(block->name, as_xml("p")) && is_marker(block->children)) {
      fill(block);
    }
  }
  xmlAddChild(body, xmlNewDocNode(page.get(), nullptr, as_xml("p"), nullptr));
  xmlSaveCtxtPtr context = xmlSaveToFilename(
      target.path().c_str(), "UTF-16", XML_SAVE_FORMAT | XML_SAVE_NO_XHTML | XML_SAVE_NO_DECL);
  return context != nullptr && xmlSaveDoc(context, page.get()) >= 0 && xmlSaveClose(context) >= 0;
}

}  // namespace bench
