#include "report_builder.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>
#include <vector>

#include "../support/host.h"
#include "../support/page_text.h"

namespace template_report {

using examples::anchored;
using examples::counted;
using examples::csv_table;
using examples::escape;
using examples::record_group;
using examples::strong;
using examples::titled;

namespace {

constexpr std::size_t groups_in_overview = 8;

class builder {
 public:
  builder(IVellomark& report, const csv_table& table, const std::u16string& source)
      : report_(report), table_(table), source_(source), groups_(examples::group_records(table)) {
    examples::anchor_names anchors;
    for (const record_group& group : groups_) anchors_.push_back(anchors.make(group.name));
  }

  void build(const std::filesystem::path& page) {
    report_.LoadTemplate(examples::name_to_utf16(page.string()).c_str());
    // LoadTemplate reports no failure: a page that can't be read has no fields.
    zov_shared_array<CZovString> fields;
    report_.GetTemplateFields(fields);
    if (fields.empty()) throw std::runtime_error("the template has no field");

    std::vector<adder> adders;
    for (const CZovString& field : fields) {
      adders.push_back(adder_of(field.c_str()));
      if (adders.back() == nullptr) {
        throw std::runtime_error("field " + std::to_string(adders.size()) +
                                 " of the template is none that can be filled");
      }
    }
    // In the order of the page: the content that is added next replaces this field's marker.
    for (std::size_t i = 0; i < adders.size(); ++i) {
      report_.SetTemplateField(fields[i].c_str(), true, u"(filled)");
      (this->*adders[i])();
    }
  }

 private:
  using adder = void (builder::*)();

  // The function that fills the field of that name; null if there is none.
  static adder adder_of(std::u16string_view name) {
    static constexpr struct {
      std::u16string_view name;
      adder add;
    } parts[] = {
        {u"Title", &builder::add_title},   {u"Overview", &builder::add_overview},
        {u"Groups", &builder::add_groups}, {u"Rows", &builder::add_rows},
        {u"Source", &builder::add_source},
    };
    for (const auto& part : parts) {
      if (part.name == name) return part.add;
    }
    return nullptr;
  }

  void text(const std::u16string& markup) { report_.AddText(markup.c_str(), false); }

  void add_title() {
    const std::u16string title =
        titled(source_.substr(0, source_.find(u'.'))) + u" by " + table_.header[0];
    report_.AddHeading(escape(title).c_str(), 1);
  }

  void add_overview() {
    text(counted(table_.records.size(), u"row", u"rows") + u" in " +
         counted(groups_.size(), u"group", u"groups") + u". The largest ones:");
    std::vector<const record_group*> by_size;
    for (const record_group& group : groups_) by_size.push_back(&group);
    std::stable_sort(by_size.begin(), by_size.end(),
                     [](const record_group* a, const record_group* b) {
                       return a->records.size() > b->records.size();
                     });
    by_size.resize(std::min(by_size.size(), groups_in_overview));
    for (const record_group* group : by_size)
      text(strong(group->name) + u", " + counted(group->records.size(), u"row", u"rows"));
  }

  void add_groups() {
    report_.OpenTable(2);
    text(strong(titled(table_.header[0])));
    text(strong(u"Rows"));
    for (std::size_t i = 0; i < groups_.size(); ++i) {
      text(escape(groups_[i].name));
      const std::u16string size = counted(groups_[i].records.size(), u"row", u"rows") + u": ";
      report_.AddLink(size.c_str(), anchors_[i].c_str());
    }
    report_.CloseTable();
  }

  // Links to a group lead to its first row.
  void add_rows() {
    report_.OpenTable(static_cast<std::int32_t>(table_.header.size()));
    for (const std::u16string& name : table_.header) text(strong(titled(name)));
    for (std::size_t i = 0; i < groups_.size(); ++i) {
      for (const std::size_t record : groups_[i].records) {
        const bool first = record == groups_[i].records.front();
        text(first ? anchored(anchors_[i], groups_[i].name) : escape(groups_[i].name));
        const examples::csv_record& fields = table_.records[record];
        for (std::size_t column = 1; column < fields.size(); ++column) text(escape(fields[column]));
      }
    }
    report_.CloseTable();
  }

  void add_source() {
    text(escape(source_) + u", " + counted(table_.header.size(), u"column", u"columns"));
  }

  IVellomark& report_;
  const csv_table& table_;
  const std::u16string& source_;
  const std::vector<record_group> groups_;
  std::vector<std::u16string> anchors_;  // one for each of groups_
};

}  // namespace

void fill_template(IVellomark& report, const std::filesystem::path& page, const csv_table& table,
                   const std::u16string& source) {
  builder(report, table, source).build(page);
}

}  // namespace template_report
