#include "samples/work_control.h"

#include "samples/add_element.h"

using Xport::attr_id;
using Xport::tag_id;
using Xport::ustring_view;

namespace samples {

void add_control(Xport::xhtml_markup& parent) {
  Xport::xhtml_element control(tag_id::object, {}, {});
  control.set_attribute(attr_id::align, u"middle");
  control.set_attribute(attr_id::classid, u"clsid:AD5F3C4B-BD73-11D5-838B-0050042DF1E4");
  control.set_attribute(
      attr_id::codebase,
      u"http://www.example.com/downloads/hoopsatlcontrol.cab#version=-1,-1,-1,-1");
  control.set_attribute(attr_id::height, u"600");
  control.set_attribute(attr_id::name, u"atltest");
  // As an attribute like any other, so that it is written as it stands.
  control.set_attribute(attr_id::style, u"border: 1px solid #000;");
  control.set_attribute(attr_id::title,
                        u"Once the control has loaded, right-click for the Control Tools menu.");
  control.set_attribute(attr_id::width, u"800");
  Xport::xhtml_markup& added = *parent.append_copy(control);

  const auto add_parameter = [&added](ustring_view name, ustring_view value) {
    Xport::xhtml_element parameter(tag_id::param, {}, {});
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

}  // namespace samples
