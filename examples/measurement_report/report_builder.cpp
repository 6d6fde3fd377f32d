#include "report_builder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "../support/page_text.h"

namespace measurement_report {

using examples::anchored;
using examples::counted;
using examples::escape;
using examples::number;
using examples::strong;

namespace {

std::u16string joined(const std::vector<std::u16string>& texts) {
  std::u16string all;
  for (const std::u16string& text : texts) all += (all.empty() ? u"" : u", ") + text;
  return all;
}

std::u16string with_label(const measurement& value) {
  return escape(value.text + u" (" + value.label + u")");
}

bool is_lower(const measurement& a, const measurement& b) { return a.value < b.value; }

class builder {
 public:
  builder(IVellomark& report, const measurement_table& table) : report_(report), table_(table) {}

  void build(const std::vector<std::u16string>& pictures, const std::u16string& source) {
    heading(examples::titled(table_.value_title), 1);
    heading(u"Overview", 2);
    text(counted(table_.groups.size(), u"group", u"groups") + u", in the order of " +
         escape(source));
    report_.OpenTable(3);
    text(strong(examples::titled(table_.name_title)));
    text(strong(u"Lowest"));
    text(strong(u"Highest"));
    for (std::size_t i = 0; i < table_.groups.size(); ++i) add_group(table_.groups[i], pictures[i]);
    report_.CloseTable();
  }

 private:
  void heading(const std::u16string& title, std::int32_t style) {
    report_.AddHeading(escape(title).c_str(), style);
  }
  void text(const std::u16string& markup) { report_.AddText(markup.c_str(), false); }

  // Adds a row of the overview and the section, which Save adds to the page.
  void add_group(const measurement_group& group, const std::u16string& picture) {
    const std::u16string anchor = anchors_.make(group.name);
    begin_section(group, anchor);
    const std::vector<measurement>& all = group.measurements;
    text(with_label(*std::min_element(all.begin(), all.end(), is_lower)));
    text(with_label(*std::max_element(all.begin(), all.end(), is_lower)));

    report_.SetSectionMode(true);
    add_section_content(group, anchor, picture);
    report_.SetSectionMode(false);
  }

  // With direct links the section's name is its anchor, and the link to it is added to the table
  // that is open on the page.
  void begin_section(const measurement_group& group, const std::u16string& anchor) {
    std::int32_t style = 2;
    for (const std::u16string& title : group.path)
      report_.AddSectionHeading(escape(title).c_str(), std::min(style++, 4));
    const std::u16string where = group.path.empty() ? u"" : joined(group.path) + u": ";
    report_.BeginDirectLinks();
    report_.BeginSection(escape(where).c_str(), anchor.c_str());
    report_.EndDirectLinks();
  }

  void add_section_content(const measurement_group& group, const std::u16string& anchor,
                           const std::u16string& picture) {
    // Links don't find the id of a section's heading, so the host makes an anchor.
    text(anchored(anchor, group.name) + u": " + escape(table_.value_title) + u", " +
         counted(group.measurements.size(), u"value", u"values"));
    // A line with nothing but the path of a file becomes the picture.
    text(picture);
    report_.OpenTable(3);
    text(strong(u"Bar"));
    text(strong(examples::titled(table_.label_title)));
    text(strong(examples::titled(table_.value_title)));
    for (std::size_t i = 0; i < group.measurements.size(); ++i) {
      text(number(i + 1));
      text(escape(group.measurements[i].label));
      text(escape(group.measurements[i].text));
    }
    report_.CloseTable();
  }

  IVellomark& report_;
  const measurement_table& table_;
  examples::anchor_names anchors_;
};

}  // namespace

void build_report(IVellomark& report, const measurement_table& table,
                  const std::vector<std::u16string>& pictures, const std::u16string& source) {
  builder(report, table).build(pictures, source);
}

}  // namespace measurement_report
