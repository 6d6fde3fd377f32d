#include "xport/vocabulary/tag_table.h"

#include <array>
#include <cstddef>
#include <cstdint>

#include "xport/vocabulary/attribute_rules.h"
#include "xport/vocabulary/content_rules.h"

namespace Xport {

namespace {

using rule_records = std::array<Tag_trait, tag_record_count + 1>;

constexpr std::size_t row(tag_id id) { return static_cast<std::size_t>(id); }

constexpr bool has_content_rule(tag_id id) {
  for (const detail::content_rule& rule : detail::content_rules::rules)
    if (rule.elements.contains(id)) return true;
  return false;
}

constexpr void set_names(rule_records& records) {
  for (const auto& [id, name] : detail::tag_rows) {
    records[row(id)].id = id;
    records[row(id)].name = name;
  }
  records[row(tag_id::doc_root)].name = u"document root";
  records[row(tag_id::invalid_tag)].id = tag_id::invalid_tag;
  records[row(tag_id::invalid_tag)].name = u"invalid tag";
}

constexpr void set_content(rule_records& records) {
  for (const detail::content_rule& rule : detail::content_rules::rules)
    for (const auto& tag : detail::tag_rows)
      if (rule.elements.contains(tag.id)) {
        Tag_trait& record = records[row(tag.id)];
        record.category_flags = rule.category_flags;
        record.content_flags = rule.content_flags;
        record.allowed_children = rule.allowed_children;
        record.excluded_children = rule.excluded_children;
      }
}

constexpr void set_attributes(rule_records& records) {
  for (const detail::attribute_rule& rule : detail::attribute_rules::rules)
    for (const auto& tag : detail::tag_rows)
      if (rule.elements.contains(tag.id)) {
        attribute_set& allowed = records[row(tag.id)].allowed_attributes;
        allowed.insert(rule.groups);
        allowed.insert(rule.own);
      }
  for (const detail::attribute_departure& departure : detail::attribute_rules::departures) {
    attribute_set& allowed = records[row(departure.element)].allowed_attributes;
    allowed.insert(departure.additions);
    allowed.erase(departure.losses);
  }
}

// Makes the rows of the elements that Strict lacks unusable: `invalid_tag` as id, no name and
// empty sets. Each gets the two flags of the row before it, which decide whether such an
// element is void. Rows are therefore handled in ascending order.
constexpr void empty_unusable_rows(rule_records& records) {
  for (const auto& tag : detail::tag_rows)
    if (!has_content_rule(tag.id)) {
      const Tag_trait& before = records[row(tag.id) - 1];
      Tag_trait unusable{};
      unusable.id = tag_id::invalid_tag;
      unusable.category_flags = before.category_flags;
      unusable.content_flags = before.content_flags;
      records[row(tag.id)] = unusable;
    }
}

constexpr void set_runs(rule_records& records) {
  for (Tag_trait& record : records) {
    record.start_run = {u"<", record.name};
    record.end_run = {u"</", record.name, u">"};
  }
}

constexpr rule_records make_records() {
  rule_records records{};
  set_names(records);
  set_content(records);
  set_attributes(records);
  empty_unusable_rows(records);
  set_runs(records);
  records.back() = records[row(tag_id::invalid_tag)];
  return records;
}

}  // namespace

constinit const rule_records detail::tag_records = make_records();

static_assert([] {
  for (const Tag_trait& record : make_records())
    if (record.start_run.size == 0 || record.end_run.size == 0) return false;
  return true;
}());

}  // namespace Xport
