#include "report_builder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "../support/page_text.h"

namespace table_report {

using examples::anchor_names;
using examples::anchored;
using examples::counted;
using examples::csv_record;
using examples::csv_table;
using examples::escape;
using examples::record_group;
using examples::strong;
using examples::titled;

namespace {

class builder {
 public:
  builder(IVellomark& report, const csv_table& table, const std::u16string& source)
      : report_(report), table_(table), source_(source), groups_(examples::group_records(table)) {
    groups_anchor_ = anchors_.make(u"By " + table.header[0]);
    records_anchor_ = anchors_.make(u"All rows");
    for (const record_group& group : groups_) group_anchors_.push_back(anchors_.make(group.name));
  }

  void build() {
    add_overview();
    add_group_table();
    add_record_table();
    heading(u"Source", 0);
    line(escape(source_) + u", " + counted(table_.header.size(), u"column", u"columns") + u", " +
         counted(table_.records.size(), u"row", u"rows") + u" after the header");
  }

 private:
  void heading(const std::u16string& markup, std::int32_t style) {
    report_.AddHeading(markup.c_str(), style);
  }
  void line(const std::u16string& markup) { report_.AddText(markup.c_str(), false); }
  void cell(const std::u16string& markup) { report_.AddText(markup.c_str(), false); }

  void open_table(std::size_t columns) { report_.OpenTable(static_cast<std::int32_t>(columns)); }

  void add_overview() {
    heading(escape(titled(source_.substr(0, source_.find(u'.'))) + u" by " + table_.header[0]), 1);
    heading(u"Overview", 2);
    line(counted(table_.records.size(), u"row", u"rows") + u" in " +
         counted(groups_.size(), u"group", u"groups") + u", read from " + escape(source_));
    if (!groups_.empty()) add_largest_group();
    report_.NewParagraph();
    report_.AddLink(nullptr, groups_anchor_.c_str());
    report_.AddLink(nullptr, records_anchor_.c_str());

    heading(u"Groups and their sizes", 3);
    open_table(2);
    cell(strong(titled(table_.header[0])));
    cell(strong(u"Rows"));
    for (std::size_t i = 0; i < groups_.size(); ++i) {
      cell(escape(groups_[i].name));
      const std::u16string text = counted(groups_[i].records.size(), u"row", u"rows") + u": ";
      report_.AddLink(text.c_str(), group_anchors_[i].c_str());
    }
    report_.CloseTable();
  }

  void add_largest_group() {
    const auto largest = std::max_element(groups_.begin(), groups_.end(),
                                          [](const record_group& a, const record_group& b) {
                                            return a.records.size() < b.records.size();
                                          });
    line(u"The largest group is " + strong(largest->name) + u" with " +
         counted(largest->records.size(), u"row", u"rows"));
  }

  // The first cell of a group spans one row for each of its records.
  void add_group_table() {
    heading(anchored(groups_anchor_, u"By " + table_.header[0]), 2);
    line(u"Each row shows " + escape(joined(table_.header)));
    open_table(2);
    cell(strong(titled(table_.header[0])));
    cell(strong(titled(table_.header[1])));
    for (std::size_t i = 0; i < groups_.size(); ++i) {
      report_.SetFirstCellRows(static_cast<std::int32_t>(groups_[i].records.size()));
      cell(anchored(group_anchors_[i], groups_[i].name));
      for (const std::size_t record : groups_[i].records)
        cell(escape(joined(table_.records[record])));
    }
    report_.CloseTable();
  }

  void add_record_table() {
    heading(anchored(records_anchor_, u"All rows"), 2);
    heading(u"In the order of the file", 4);
    open_table(table_.header.size());
    for (const std::u16string& name : table_.header) cell(strong(titled(name)));
    for (const csv_record& record : table_.records) {
      for (const std::u16string& field : record) cell(escape(field));
    }
    report_.CloseTable();
  }

  // The fields after the first one, such as "Egypt (name, name)".
  static std::u16string joined(const csv_record& record) {
    std::u16string text = record[1];
    for (std::size_t i = 2; i < record.size(); ++i) text += (i == 2 ? u" (" : u", ") + record[i];
    if (record.size() > 2) text += u")";
    return text;
  }

  IVellomark& report_;
  const csv_table& table_;
  const std::u16string& source_;
  const std::vector<record_group> groups_;
  anchor_names anchors_;
  std::u16string groups_anchor_;
  std::u16string records_anchor_;
  std::vector<std::u16string> group_anchors_;  // one for each of groups_
};

}  // namespace

void build_report(IVellomark& report, const csv_table& table, const std::u16string& source) {
  builder(report, table, source).build();
}

}  // namespace table_report
