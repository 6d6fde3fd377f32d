#include <vellomark/samples.h>

#include <initializer_list>

#include "platform/file_system.h"
#include "samples/add_element.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/stylesheet/xhtml_stylesheet.h"

using samples::add_element;
using samples::add_text_element;
using Xport::attr_id;
using Xport::tag_id;
using Xport::ustring;
using Xport::ustring_view;
using Xport::xhtml_element;
using Xport::xhtml_markup;

namespace {

// A debugger's log of loaded modules fills the page.
constexpr ustring_view description_lines[] = {
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\ntdll.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\kernel32.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\user32.dll', Symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\msvcrt.dll', "
    u"Binary was not built with debug information.",
};

constexpr ustring_view result_lines[] = {
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\advapi32.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\rpcrt4.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\gdi32.dll', Symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\ole32.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\oleaut32.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\shell32.dll', Symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\shlwapi.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\comctl32.dll', "
    u"Binary was not built with debug information.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\comdlg32.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\version.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\winmm.dll', Symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\ws2_32.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\wininet.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\urlmon.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\imm32.dll', Symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\uxtheme.dll', "
    u"Binary was not built with debug information.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\opengl32.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\glu32.dll', No symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\ddraw.dll', Symbols loaded.",
    u"'work.exe': Loaded 'C:\\WINDOWS\\system32\\crypt32.dll', No symbols loaded.",
};

void add_rules(Xport::xhtml_stylesheet& sheet) {
  using enum Xport::css_property_id;
  const auto add = [&sheet](ustring_view selector,
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

// `attribute` is colspan or rowspan.
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

// An embedded control that shows a model.
void add_control(xhtml_markup& parent) {
  xhtml_element control(tag_id::object, {}, {});
  control.set_attribute(attr_id::align, u"middle");
  control.set_attribute(attr_id::classid, u"clsid:AD5F3C4B-BD73-11D5-838B-0050042DF1E4");
  control.set_attribute(
      attr_id::codebase,
      u"http://www.example.com/downloads/hoopsatlcontrol.cab#version=-1,-1,-1,-1");
  control.set_attribute(attr_id::height, u"600");
  control.set_attribute(attr_id::name, u"atltest");
  // A plain attribute, so it is written among the other attributes; the inline style would
  // follow them.
  control.set_attribute(attr_id::style, u"border: 1px solid #000;");
  control.set_attribute(attr_id::title,
                        u"Once the control has loaded, right-click for the Control Tools menu.");
  control.set_attribute(attr_id::width, u"800");
  xhtml_markup& added = *parent.append_copy(control);

  const auto add_parameter = [&added](ustring_view name, ustring_view value) {
    xhtml_element parameter(tag_id::param, {}, {});
    parameter.set_attribute(attr_id::name, name);
    parameter.set_attribute(attr_id::value, value);
    added.append_copy(parameter);
  };
  add_parameter(u"_Version", u"65536");
  add_parameter(u"ShadedBackground", u"0");
  add_parameter(u"Filename", u"fork_pipe.hsf");
  add_text_element(added, tag_id::p,
                   u"The HOOPS 3D Stream Control did not load correctly.  Please check your "
                   u"browser security settings.");
}

void add_body(xhtml_markup& body) {
  add_text_element(body, tag_id::h1, u"Menu");
  add_menu(body);
  add_text_element(body, tag_id::h1, u"Picture", u"Picture");
  add_pictures(body);
  add_text_element(body, tag_id::h1, u"Decription", u"Decription");
  for (const ustring_view line : description_lines) add_text_element(body, tag_id::p, line);
  add_text_element(body, tag_id::h1, u"Result Table", u"Result Table");
  add_first_table(body);
  add_text_element(body, tag_id::h1, u"Results", u"Results");
  xhtml_markup& results = add_element(body, tag_id::p, u"abzac");
  for (const ustring_view line : result_lines) results.append_copy(Xport::xhtml_pcdata(line));
  add_text_element(body, tag_id::h1, u"Total solution", u"Total solution");
  add_second_table(body);
  add_control(add_element(body, tag_id::div));
}

}  // namespace

namespace vellomark {

bool CreateWorkVellomark(const char16_t* path) {
  if (path == nullptr) return false;

  Xport::xhtml_doc doc(1);
  doc.title()->append_text(u"Document 2");
  Xport::xhtml_stylesheet sheet;
  add_rules(sheet);
  doc.add_stylesheet(sheet);
  add_body(*doc.body());

  return Xport::write_document(doc, platform::file_system::native().open_for_writing(path));
}

}  // namespace vellomark
