#include "bench/templates/fillers.h"

#include <libxml/parser.h>
#include <libxml/tree.h>
#include <libxml/xmlsave.h>
#include <vellomark/vellomark.h>

#include <cstring>
#include <memory>
#include <pugixml.hpp>

#include "bench/workload.h"

namespace bench {

bool fill_with_vellomark(const std::string& path, const page_target& target) {
  const std::u16string content = widen(field_content);
  const boost::shared_ptr<IVellomark> report = vellomark::CreateInstance();
  report->LoadTemplate(widen(path).c_str());
  zov_shared_array<CZovString> fields;
  report->GetTemplateFields(fields);
  for (const CZovString& field : fields) {
    report->SetTemplateField(field.c_str(), true, field.c_str());
    report->AddText(content.c_str(), false);
  }
  return !fields.empty() && report->Save(widen(target.folder).c_str(), widen(target.name).c_str());
}

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
