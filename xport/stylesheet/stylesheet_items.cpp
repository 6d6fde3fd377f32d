#include "xport/stylesheet/stylesheet_items.h"

#include <algorithm>

#include "xport/stylesheet/stylesheet_writer.h"

namespace Xport {

xhtml_stylesheet_item::~xhtml_stylesheet_item() = default;

stylesheet_rule_iterator xhtml_stylesheet_item::insert_declaration(stylesheet_rule_iterator,
                                                                   const stylesheet_declaration&) {
  return declarations_end();
}

stylesheet_rule_iterator xhtml_stylesheet_item::add_declaration(const stylesheet_declaration&) {
  return declarations_end();
}

void xhtml_stylesheet_item::push_declaration(const stylesheet_declaration&) {}

stylesheet_rule_iterator xhtml_stylesheet_item::declarations_end() {
  return stylesheet_rule_iterator(declarations_.end());
}

stylesheet_rule_iterator xhtml_stylesheet_item::erase_declaration(stylesheet_rule_iterator) {
  return declarations_end();
}

void xhtml_stylesheet_item::erase_property(css_property_id) {}

void xhtml_stylesheet_item::write(stylesheet_writer&) const {}

ustring xhtml_stylesheet_item::selector_text() const { return {}; }

std::int32_t xhtml_stylesheet_item::item_kind() const {
  return static_cast<std::int32_t>(item_type::none);
}

ustring xhtml_stylesheet_item::item_text() const { return {}; }

xhtml_stylesheet_item* xhtml_stylesheet_item::clone() const { return nullptr; }

xhtml_stylesheet_rule::xhtml_stylesheet_rule(ustring_view selector) : selector_(selector) {}

stylesheet_rule_iterator xhtml_stylesheet_rule::insert_declaration(
    stylesheet_rule_iterator position, const stylesheet_declaration& declaration) {
  return stylesheet_rule_iterator(declarations_.insert(position.base(), declaration));
}

stylesheet_rule_iterator xhtml_stylesheet_rule::add_declaration(
    const stylesheet_declaration& declaration) {
  return insert_declaration(declarations_end(), declaration);
}

void xhtml_stylesheet_rule::push_declaration(const stylesheet_declaration& declaration) {
  declarations_.push_back(declaration);
}

stylesheet_rule_iterator xhtml_stylesheet_rule::erase_declaration(
    stylesheet_rule_iterator position) {
  return stylesheet_rule_iterator(declarations_.erase(position.base()));
}

void xhtml_stylesheet_rule::erase_property(css_property_id property) {
  const auto found =
      std::find_if(declarations_.begin(), declarations_.end(),
                   [property](const auto& entry) { return entry.property == property; });
  if (found != declarations_.end()) declarations_.erase(found);
}

void xhtml_stylesheet_rule::write(stylesheet_writer& writer) const { writer.write_rule(*this); }

std::int32_t xhtml_stylesheet_rule::item_kind() const {
  return static_cast<std::int32_t>(item_type::rule);
}

xhtml_stylesheet_item* xhtml_stylesheet_rule::clone() const {
  return new xhtml_stylesheet_rule(*this);
}

stylesheet_rule_iterator xhtml_stylesheet_rule::erase_declarations(stylesheet_rule_iterator first,
                                                                   stylesheet_rule_iterator last) {
  return stylesheet_rule_iterator(declarations_.erase(first.base(), last.base()));
}

xhtml_stylesheet_import::xhtml_stylesheet_import(ustring_view url) : url_(url) {}

void xhtml_stylesheet_import::write(stylesheet_writer& writer) const { writer.write_import(url_); }

std::int32_t xhtml_stylesheet_import::item_kind() const {
  return static_cast<std::int32_t>(item_type::import);
}

xhtml_stylesheet_item* xhtml_stylesheet_import::clone() const {
  return new xhtml_stylesheet_import(*this);
}

xhtml_stylesheet_comment::xhtml_stylesheet_comment(ustring_view text) : text_(text) {}

void xhtml_stylesheet_comment::write(stylesheet_writer& writer) const {
  writer.write_comment(text_);
}

std::int32_t xhtml_stylesheet_comment::item_kind() const {
  return static_cast<std::int32_t>(item_type::comment);
}

xhtml_stylesheet_item* xhtml_stylesheet_comment::clone() const {
  return new xhtml_stylesheet_comment(*this);
}

}  // namespace Xport
