// Whatever begins with "<": read_markup tells the kinds apart. Comments, instructions and
// declarations are read here, tags in tag_reader.cpp.

#include <algorithm>

#include "xport/markup/leaf_nodes.h"
#include "xport/parser/take_until.h"
#include "xport/parser/xhtml_parser.h"

namespace Xport {

namespace {

// The next unit, or `stale` at the end of the input. That is why a comment or an
// instruction that is cut off within its end mark gets one unit of the mark too many.
char16 next_or(unit_input in, char16 stale) {
  const char16 unit = in.peek();
  return unit != end_unit ? unit : stale;
}

}  // namespace

xhtml_markup* xhtml_parser::read_markup(xhtml_markup* parent) {
  unit_input in = units();
  in.advance();
  switch (in.peek()) {
    case end_unit:
      report_message(u"Invalid end of document.", level_structure);
      return new xhtml_markup;
    case u'!':
      in.advance();
      if (in.peek() == u'-') return read_comment(parent);
      read_declaration(u"<");
      return nodes_->make_leaf<xhtml_doctype_declaration>({});
    case u'?':
      in.advance();
      return read_processing_instruction();
    case u'/':
      return read_end_tag();
    case u'\n':
      ++line;
      break;
    default:
      break;
  }
  return read_start_tag(parent);
}

xhtml_markup* xhtml_parser::read_comment(xhtml_markup* parent) {
  const operation_classes scope(classes_);
  unit_input in = units();
  in.advance();
  if (in.at_end()) {
    report_message(u"Invalid end of document.", level_structure);
    return nullptr;
  }
  if (in.peek() != u'-') return read_pcdata(parent, u"<-");
  in.advance();
  text_.clear();
  while (true) {
    append_run(take_until(in, gathered_, any_of<u'-', end_unit>));
    if (in.at_end()) break;
    in.advance();
    char16 unit = next_or(in, u'-');
    if (unit == u'-') {
      in.advance();
      unit = next_or(in, u'-');
      if (unit == u'>') {
        in.advance();
        break;
      }
      text_ += u'-';
    }
    text_ += u'-';
    append_run({&unit, 1});
    in.advance();
  }
  return nodes_->make_leaf<xhtml_comment>(xhtml_comment::body(text_, *classes_));
}

xhtml_markup* xhtml_parser::read_processing_instruction() {
  const operation_classes scope(classes_);
  unit_input in = units();
  text_.clear();
  while (true) {
    append_run(take_until(in, gathered_, any_of<u'?', end_unit>));
    if (in.at_end()) break;
    in.advance();
    const char16 unit = next_or(in, u'?');
    if (unit == u'>') {
      in.advance();
      break;
    }
    text_ += u'?';
    append_run({&unit, 1});
    in.advance();
  }
  last_tag = tag_id::invalid_tag;
  return nodes_->make_leaf<xhtml_processing_instruction>(
      xhtml_processing_instruction::body(text_, *classes_));
}

ustring xhtml_parser::read_declaration(ustring_view prefix) {
  unit_input in = units();
  text_.assign(prefix);
  append_run(take_until(in, gathered_, any_of<u'>', end_unit>));
  if (!in.at_end()) {
    in.advance();
    text_ += u'>';
  }
  return text_;
}

void xhtml_parser::append_run(ustring_view run) {
  text_ += run;
  line += static_cast<std::uint32_t>(std::count(run.begin(), run.end(), u'\n'));
}

}  // namespace Xport
