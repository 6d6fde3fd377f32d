#include <initializer_list>

#include "report/vellomark_obj.h"
#include "xport/stylesheet/xhtml_stylesheet.h"

using Xport::css_property_id;

namespace {

struct StyleRule {
  Xport::ustring_view selector;
  std::initializer_list<Xport::stylesheet_declaration> declarations;
};

}  // namespace

// AddHeading and OpenTable set these classes.
void VellomarkObj::InstallDefaultStyles() {
  if (!doc) return;
  const std::initializer_list<StyleRule> rules = {
      {u".Style1", {{css_property_id::text_align, u"center"}}},
      {u".Style2", {{css_property_id::text_align, u"left"}}},
      {u".Style3",
       {{css_property_id::text_align, u"left"}, {css_property_id::font_weight, u"bold"}}},
      {u".Style4",
       {{css_property_id::text_align, u"left"},
        {css_property_id::font_weight, u"bold"},
        {css_property_id::font_style, u"italic"}}},
      {u"table.main", {{css_property_id::width, u"100%"}}},
      {u".main td", {{css_property_id::width, u"10%"}}},
  };
  Xport::xhtml_stylesheet sheet;
  for (const StyleRule& rule : rules) {
    const Xport::stylesheet_iterator added =
        sheet.add_item(Xport::xhtml_stylesheet_rule(rule.selector));
    for (const Xport::stylesheet_declaration& declaration : rule.declarations)
      added->add_declaration(declaration);
  }
  doc->add_stylesheet(sheet);
}
