#include "samples/work_stylesheet.h"

#include <initializer_list>

namespace samples {

void add_work_rules(Xport::xhtml_stylesheet& sheet) {
  using enum Xport::css_property_id;
  const auto add = [&sheet](Xport::ustring_view selector,
                            std::initializer_list<Xport::stylesheet_declaration> declarations) {
    Xport::xhtml_stylesheet_rule rule(selector);
    for (const Xport::stylesheet_declaration& each : declarations) rule.add_declaration(each);
    sheet.add_item(rule);
  };

  add(u"body", {{background_color, u"#eeff41"}});
  add(u"h1", {{text_align, u"center"}});
  add(u"#id_img", {{height, u"229px"}, {border, u"thin solid blue"}});
  add(u"#left_pict", {{left, u"50px"}, {position, u"absolute"}, {border, u"thin solid red"}});
  add(u"#right_pict", {{right, u"50px"}, {position, u"absolute"}, {border, u"thin solid red"}});
  add(u"#right_pict2",
      {{right, u"50px"}, {top, u"400px"}, {position, u"absolute"}, {border, u"thin solid red"}});
  add(u"#center_pict",
      {{left, u"50px"}, {top, u"420px"}, {position, u"absolute"}, {border, u"thin solid red"}});
  add(u"#abzac", {{border, u"thin solid green"}});
  add(u"table.main_table", {{border_collapse, u"collapse"},
                            {border, u"thin bold blue"},
                            {width, u"97%"},
                            {background_color, u"#aabbcc"}});
  add(u"table.main_table .main_table_hdr", {{background_color, u"#cc33cc"}});
  add(u"table.main_table th", {{background_color, u"#776655"}});
}

}  // namespace samples
