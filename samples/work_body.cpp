#include "samples/work_body.h"

#include <initializer_list>
#include <string>

#include "samples/add_element.h"
#include "samples/filler_lines.h"
#include "samples/work_control.h"
#include "xport/markup/leaf_nodes.h"

using Xport::attr_id;
using Xport::tag_id;
using Xport::ustring;
using Xport::ustring_view;
using Xport::xhtml_element;
using Xport::xhtml_markup;

namespace samples {

namespace {

void add_menu(xhtml_markup& body) {
  xhtml_markup& entries = add_element(add_element(body, tag_id::dl), tag_id::dd);
  const auto add_link = [&entries](ustring_view target, ustring_view text) {
    xhtml_element link(tag_id::a, {}, {});
    link.set_attribute(attr_id::href, target);
    entries.append_copy(link)->append_text(text);
    add_element(entries, tag_id::br);
  };
  add_link(u"#Picture", u"Go to Picture");
  add_link(u"#Decription", u"Go to Decription");
  add_link(u"#Result Table", u"Go to Result Table");
  add_link(u"#Results", u"Go to Results");
  add_link(u"#Total solution", u"Go to Total solution");
  add_link(u"temp.htm", u"Open Template.html");
  add_link(u"temp1.htm", u"Open Template1.html");
  add_link(u"http:\\\\www.example.com", u"Open MSDN site");
}

void add_pictures(xhtml_markup& body) {
  xhtml_markup& pictures = add_element(body, tag_id::div, u"id_img");
  const auto add_picture = [&pictures](ustring_view id, ustring_view source) {
    xhtml_element picture(tag_id::img, id, {});
    picture.set_attribute(attr_id::src, source);
    pictures.append_copy(picture);
  };
  add_picture(u"left_pict", u"picture1.jpg");
  add_picture(u"right_pict", u"picture2.jpg");
  add_picture(u"center_pict", u"picture3.jpg");
  add_picture(u"right_pict2", u"picture4.jpg");
}

xhtml_markup& add_table(xhtml_markup& body, ustring_view border, ustring_view class_name) {
  xhtml_element table(tag_id::table, {}, class_name);
  table.set_attribute(attr_id::border, border);
  return *body.append_copy(table);
}

// `attribute` is the one by which the cell spans others.
void add_spanning_header(xhtml_markup& row, ustring_view class_name, attr_id attribute,
                         ustring_view count, ustring_view text) {
  xhtml_element header(tag_id::th, {}, class_name);
  header.set_attribute(attribute, count);
  row.append_copy(header)->append_text(text);
}

void add_first_table(xhtml_markup& body) {
  xhtml_markup& table = add_table(body, u"3", u"title2");
  xhtml_markup& headers = add_element(table, tag_id::tr);
  add_text_element(headers, tag_id::th, u"Title 1", {}, u"alias_hdr");
  add_spanning_header(headers, u"alias_hdr", attr_id::colspan, u"2", u"Title 2");

  const auto add_row = [&table](std::initializer_list<ustring_view> cells) {
    xhtml_markup& row = add_element(table, tag_id::tr);
    for (const ustring_view cell : cells) add_text_element(row, tag_id::td, cell);
  };
  add_row({u"field 1-1", u"field 1-2", u"field 1-3"});
  add_row({u"field 2-1", u"field 2-2", u"field 2-3"});
  add_row({u"field 2-1", u"field 2-2", u"field 2-3"});
}

void add_second_table(xhtml_markup& body) {
  xhtml_markup& table = add_table(body, u"4", u"main_table");
  xhtml_markup& titles = add_element(table, tag_id::tr);
  add_spanning_header(titles, u"main_table_hdr", attr_id::rowspan, u"2", u"Sign 1");
  add_spanning_header(titles, u"main_table_hdr", attr_id::colspan, u"4", u"Sign 2");
  xhtml_markup& headers = add_element(table, tag_id::tr);
  for (const ustring_view text : {u"Sign 3", u"Sign 4", u"Sign 5", u"Sign 6"})
    add_text_element(headers, tag_id::th, text);

  for (const char16_t number : {u'1', u'2', u'3', u'4', u'5'}) {
    const ustring head = ustring(u"Head ") + number;
    xhtml_markup& row = add_element(table, tag_id::tr);
    add_text_element(row, tag_id::th, head);
    for (const char16_t field : {u'1', u'2', u'3', u'4'})
      add_text_element(row, tag_id::td, ustring(u"Field ") + field + u"(" + head + u")");
  }
}

}  // namespace

void add_work_body(xhtml_markup& body) {
  add_text_element(body, tag_id::h1, u"Menu");
  add_menu(body);
  add_text_element(body, tag_id::h1, u"Picture", u"Picture");
  add_pictures(body);
  add_text_element(body, tag_id::h1, u"Decription", u"Decription");
  for (const ustring_view line : description_lines()) add_text_element(body, tag_id::p, line);
  add_text_element(body, tag_id::h1, u"Result Table", u"Result Table");
  add_first_table(body);
  add_text_element(body, tag_id::h1, u"Results", u"Results");
  xhtml_markup& results = add_element(body, tag_id::p, u"abzac");
  for (const ustring_view line : result_lines()) results.append_copy(Xport::xhtml_pcdata(line));
  add_text_element(body, tag_id::h1, u"Total solution", u"Total solution");
  add_second_table(body);
  add_control(add_element(body, tag_id::div));
}

}  // namespace samples
