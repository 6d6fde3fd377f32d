#include "bench/templates/template_page.h"

#include "bench/workload.h"

namespace bench {

const char* const field_content = "What a host found out about this field, in one line of text";

std::u16string make_template(std::size_t fields) {
  std::string page = std::string("<!DOCTYPE ") + doctype_name + " PUBLIC '" + doctype_public_id +
                     "' '" + doctype_system_id + "'>\n<html xmlns='" + xml_namespace +
                     "'>\n<head>\n<title>" + page_title + "</title>\n<style type='text/css'>" +
                     page_stylesheet + "</style>\n</head>\n<body>\n";
  for (std::size_t field = 0; field < fields; ++field) {
    const std::string number = std::to_string(field);
    page += "<h2 class='chapter'>Chapter " + number +
            "</h2>\n"
            "<p>What stands in front of the field, with <b>a word in bold</b>, another <i>in "
            "italics</i>\nand a <a href='#c" +
            number +
            "'>link</a> to something else on the same page, and some more words.</p>\n"
            "<ul>\n<li class='first'>a first entry of the list</li>\n<li>a second one, which is "
            "a bit longer</li>\n<li>and a third</li>\n</ul>\n"
            "<p><span id='Template'>Field " +
            number + "</span></p>\n";
  }
  return widen(page + "<p>The end</p>\n</body>\n</html>\n");
}

}  // namespace bench
