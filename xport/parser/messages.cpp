#include "xport/parser/xhtml_parser.h"
#include "xport/text/number_format.h"

namespace Xport {

namespace {

ustring in_brackets(const xhtml_markup& node) {
  ustring text(u"<");
  text += node.tag_name();
  return text += u'>';
}

}  // namespace

void xhtml_parser::report_message(ustring_view text, std::uint32_t level) {
  if (!reports(level)) return;
  const place_scope heap(*this, on_heap_);
  const auto put = [this](ustring_view part) {
    messages->write(part.data(), static_cast<std::streamsize>(part.size()));
  };
  put(u"line #");
  put(to_ustring(line));
  put(u":\n");
  put(text);
  put(u"\n");
  messages->flush();
}

void xhtml_parser::report_encounter(const xhtml_markup& node, std::uint32_t level) {
  if (reports(level)) report_message(node.tag_name() + u" encountered.\n", level);
}

void xhtml_parser::report_refusal(const xhtml_markup& parent, const xhtml_markup& refused,
                                  bool passes_up) {
  if (!reports(level_structure)) return;
  const ustring item =
      refused.category_flags() == category_text ? ustring(u"pc data") : in_brackets(refused);
  ustring text = u"Couldn't insert " + item + u" into " + in_brackets(parent) + u".\n";
  if (passes_up)
    text += u"Ending " + in_brackets(parent) + u" element.\n";
  else
    text += u"Skipping " + item + u" tag.\n";
  report_message(text, level_structure);
}

void xhtml_parser::report_mismatch(const xhtml_markup& parent, const xhtml_markup& end_tag,
                                   bool passes_up) {
  if (!reports(level_end_tag)) return;
  const ustring source = end_tag.tag_name();
  ustring text =
      u"Expecting end tag " + parent.end_tag_text() + u".  Encountered " + source + u"\n";
  // The element is reported by number, not by name.
  if (passes_up)
    text += u"Ending <" + to_ustring(static_cast<std::int32_t>(end_tag.tag())) + u"> element.\n";
  else
    text += u"Skipping " + source + u" tag.\n";
  report_message(text, level_end_tag);
}

}  // namespace Xport
