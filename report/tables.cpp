#include <algorithm>
#include <stdexcept>

#include "report/vellomark_obj.h"
#include "xport/text/find_any.h"
#include "xport/text/number_format.h"

using Xport::attr_id;
using Xport::tag_id;
using Xport::ustring;
using Xport::ustring_view;
using Xport::xhtml_element;
using Xport::xhtml_markup;

namespace {

// Hosts may pass any count, so the arithmetic must be defined for all of them: it wraps.
std::int32_t WrappingAdd(std::int32_t a, std::int32_t b) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(a) + static_cast<std::uint32_t>(b));
}

// In a cell a line feed becomes a tag, because a browser shows a line feed as a blank.
ustring WithLineBreaks(ustring_view text) {
  ustring broken;
  broken.reserve(text.size() +
                 3 * static_cast<std::size_t>(std::count(text.begin(), text.end(), u'\n')));
  for (const char16_t unit : text) {
    if (unit == u'\n')
      broken += u"<BR>";
    else
      broken += unit;
  }
  return broken;
}

void SetTableAttributes(xhtml_element& table) {
  table.set_attribute(attr_id::border, u"1");
  table.set_attribute(attr_id::width, u"100%");
}

}  // namespace

bool VellomarkObj::OpenTable(std::int32_t columns) {
  if (section_mode) return OpenSectionTable(columns);
  if (!doc) return false;
  xhtml_element table(tag_id::table, {}, u"main");
  SetTableAttributes(table);
  table_pos = doc->body()->append_copy(table);
  if (table_pos == doc->root()->end()) return false;
  StartTable(columns);
  return true;
}

// All section tables share one element. Clearing it deletes the rows of an outer table, so
// the position of its last row is reset. (In states that were saved earlier it has already
// been reset.) Only the first two steps can throw. The attributes are always the same,
// so setting them again doesn't change a table that is open.
bool VellomarkObj::OpenSectionTable(std::int32_t columns) {
  SetTableAttributes(section_table);
  table_stack.push_back(state);
  section_table.clear_children();
  if (state.row_pos.owner() == &section_table) table_stack.back().row_pos = state.row_pos = {};
  StartTable(columns);
  return true;
}

void VellomarkObj::StartTable(std::int32_t columns) noexcept {
  state.table_columns = columns;
  state.in_table = true;
  state.span_rows = 0;
  state.span_rows_left = 0;
  state.next_column = 0;
}

// Starts the paragraph first: if that throws, the table stays open.
void VellomarkObj::CloseTable() {
  if (section_mode) {
    CloseSectionTable();
    return;
  }
  StartParagraph();
  state.in_table = false;
  state.span_rows = 0;
  state.span_rows_left = 0;
  state.table_columns = 0;
}

// Copies the table to the section first: if that throws, the table stays open with all its
// rows.
void VellomarkObj::CloseSectionTable() {
  if (table_stack.empty()) throw std::out_of_range("invalid vector subscript");
  if (!sections.empty()) sections.back().elements.push_back(section_table);
  state = table_stack.back();
  table_stack.pop_back();
}

void VellomarkObj::SetFirstCellRows(std::int32_t rows) {
  state.span_rows = WrappingAdd(rows, -1);
  state.span_rows_left = state.span_rows;
}

void VellomarkObj::AppendCell(const char16_t* text, bool in_section_table) {
  const bool in_row = state.next_column != 0 && state.span_rows_left >= state.span_rows;
  if (!in_row || state.row_pos.cell() == nullptr) {
    xhtml_markup& table = in_section_table ? section_table : *table_pos;
    state.row_pos = append_element(table, tag_id::tr);
  }
  xhtml_markup& row = *state.row_pos;
  if (text == nullptr) {
    FinishCell(*row.append_copy(link_cell));
  } else {
    xhtml_markup& cell = *append_element(row, tag_id::td);
    const ustring_view content(text);
    if (Xport::find_unit(content, u'\n') == content.size())
      cell << content;
    else
      cell << WithLineBreaks(content);
    FinishCell(cell);
  }
}

void VellomarkObj::FinishCell(xhtml_markup& cell) {
  cell.set_attribute(attr_id::valign, u"top");
  if (state.next_column == 0 && state.span_rows_left != 0)
    cell.set_attribute(attr_id::rowspan, Xport::to_ustring(WrappingAdd(state.span_rows, 1)));

  if (state.next_column == 0) {
    state.next_column = 1;
  } else if (state.span_rows_left != 0) {
    state.span_rows_left = WrappingAdd(state.span_rows_left, -1);
  } else {
    state.next_column = WrappingAdd(state.next_column, 1);
    if (state.next_column >= state.table_columns) {
      state.next_column = 0;
      state.span_rows = 0;
    }
  }
}
