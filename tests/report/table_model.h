#ifndef TESTS_REPORT_TABLE_MODEL_H
#define TESTS_REPORT_TABLE_MODEL_H

#include <cstdint>
#include <deque>
#include <memory>
#include <vector>

#include "tests/report/page_tables.h"
#include "xport/text/char16.h"
#include "xport/text/number_format.h"

namespace report_test {

/// What the tables of a report have to come to, by the rules' own words and
/// nothing of the library: rows and cells of the page's tables after any calls.
/// A position that is gone is an expired pointer.
class table_model {
 public:
  bool open_table(std::int32_t columns) {
    if (section_mode) {
      stack.push_back({in_table, span_rows, span_rows_left, table_columns, next_column, row_pos});
      section_table = std::make_shared<table>();
    } else {
      page.push_back(std::make_shared<table>());
      table_pos = page.back();
    }
    table_columns = columns;
    in_table = true;
    span_rows = span_rows_left = next_column = 0;
    return true;
  }

  /// False where the call has to raise.
  bool close_table() {
    if (!section_mode) {
      in_table = false;
      span_rows = span_rows_left = table_columns = 0;
      return true;
    }
    if (stack.empty()) return false;
    const saved top = stack.back();
    stack.pop_back();
    in_table = top.in_table;
    span_rows = top.span_rows;
    span_rows_left = top.span_rows_left;
    table_columns = top.table_columns;
    next_column = top.next_column;
    row_pos = top.row_pos;
    return true;
  }

  void set_first_cell_rows(std::int32_t rows) { span_rows = span_rows_left = wrapped(rows, -1); }

  void add_text(const char16_t* text, bool to_section) {
    const bool in_section = section_mode ? (!direct_links || to_section) : to_section;
    if (in_section) {
      if (text != nullptr && !stack.empty() && in_table) append_cell(text, section_table);
    } else if (in_table) {
      append_cell(text != nullptr ? text : link_cell, table_pos.lock());
    }
  }

  void add_link(const char16_t* text, const char16_t* target) {
    link_cell.clear();
    if (text != nullptr) link_cell += text;
    if (target != nullptr)
      link_cell += Xport::ustring(u"<a href='#") + target + u"'>" + target + u"</a>";
    if (text != nullptr || target != nullptr) add_text(nullptr, false);
  }

  page_tables tables() const {
    page_tables all;
    for (const std::shared_ptr<table>& each : page) {
      all.emplace_back();
      for (const std::shared_ptr<page_row>& row : *each) all.back().push_back(*row);
    }
    return all;
  }

  bool section_mode = false;
  bool direct_links = false;

 private:
  using table = std::vector<std::shared_ptr<page_row>>;

  struct saved {
    bool in_table;
    std::int32_t span_rows, span_rows_left, table_columns, next_column;
    std::weak_ptr<page_row> row_pos;
  };

  static std::int32_t wrapped(std::int64_t a, std::int64_t b) {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(a + b));
  }

  void append_cell(const Xport::ustring& content, const std::shared_ptr<table>& target) {
    const bool stays = next_column != 0 && span_rows_left >= span_rows;
    if (!stays || row_pos.expired()) {
      row_pos.reset();
      if (target) {
        target->push_back(std::make_shared<page_row>());
        row_pos = target->back();
      }
    }
    page_cell cell{content};
    if (next_column == 0 && span_rows_left != 0)
      cell.rowspan = Xport::to_ustring(wrapped(span_rows, 1));
    if (const std::shared_ptr<page_row> row = row_pos.lock()) row->push_back(cell);

    if (next_column == 0) {
      next_column = 1;
    } else if (span_rows_left != 0) {
      span_rows_left = wrapped(span_rows_left, -1);
    } else {
      next_column = wrapped(next_column, 1);
      if (next_column >= table_columns) next_column = span_rows = 0;
    }
  }

  std::vector<std::shared_ptr<table>> page;
  std::shared_ptr<table> section_table = std::make_shared<table>();
  std::weak_ptr<table> table_pos;
  bool in_table = false;
  std::int32_t span_rows = 0, span_rows_left = 0, table_columns = 0, next_column = 0;
  std::weak_ptr<page_row> row_pos;
  std::vector<saved> stack;
  Xport::ustring link_cell;
};

}  // namespace report_test

#endif
