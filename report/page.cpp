#include <utility>

#include "report/vellomark_obj.h"

using Xport::attr_id;
using Xport::tag_id;
using Xport::ustring;
using Xport::ustring_view;

namespace {

// With its "#", a link is at most 254 units long.
constexpr std::size_t longest_target = 253;

struct Heading {
  tag_id tag;
  ustring_view class_name;
};

// Styles below 1 make an `h5` with a class that is present but empty.
Heading HeadingOf(std::int32_t style) {
  switch (style) {
    case 1:
      return {tag_id::h1, u"Style1"};
    case 2:
      return {tag_id::h2, u"Style2"};
    case 3:
      return {tag_id::h3, u"Style3"};
    case 4:
      return {tag_id::h4, u"Style4"};
    default:
      return {tag_id::h5, u""};
  }
}

}  // namespace

void VellomarkObj::StartParagraph() {
  if (!doc) return;
  state.cursor = append_element(*doc->body(), tag_id::p);
  cursor_ready = true;
}

// A row of the section table isn't part of the page, so its position stays valid. Saved
// states never hold one: OpenSectionTable resets it.
void VellomarkObj::ClearPage() {
  if (!doc) return;
  doc->body()->as_element()->clear_children();
  state.cursor = table_pos = {};
  if (state.row_pos.owner() != &section_table) state.row_pos = {};
  for (SavedTableState& saved : table_stack) saved.cursor = saved.row_pos = {};
}

void VellomarkObj::NewParagraph() { StartParagraph(); }

void VellomarkObj::AddHeading(const char16_t* text, std::int32_t style) {
  if (!doc || text == nullptr) return;
  if (style >= 5) {
    AppendPlainText(text);
    return;
  }
  const ustring id = std::exchange(pending_id, ustring());
  const Heading heading = HeadingOf(style);
  Xport::xhtml_markup& added = *append_element(*doc->body(), heading.tag);
  added.set_attribute(attr_id::class_, heading.class_name);
  if (!id.empty()) added.set_attribute(attr_id::id, id);
  added.push_back_text(text);
  StartParagraph();
}

void VellomarkObj::AddText(const char16_t* text, bool to_section) {
  if (!doc) return;
  const bool in_section = to_section || (section_mode && !direct_links);
  if (in_section)
    AppendSectionText(text);
  else
    AppendPlainText(text);
}

// A line is an anchor, with the text or the prepared link, and a `br`. The first text of a
// report starts a paragraph even if it becomes a cell; a paragraph that LoadTemplate
// deleted is replaced only for a line.
void VellomarkObj::AppendPlainText(const char16_t* text) {
  if (!cursor_ready) StartParagraph();
  if (state.in_table) {
    AppendCell(text, false);
    return;
  }
  if (state.cursor.cell() == nullptr) StartParagraph();
  if (text != nullptr)
    append_element(*state.cursor, tag_id::a)->push_back_text(text);
  else
    state.cursor->push_back_copy(link_anchor);
  append_element(*state.cursor, tag_id::br);
}

void VellomarkObj::AddLink(const char16_t* text, const char16_t* target) {
  if (target != nullptr && ustring_view(target).size() > longest_target) return;
  link_cell.clear_children();
  link_anchor.clear_children();
  if (text != nullptr) link_cell << text;
  if (target != nullptr) {
    link_anchor.set_attribute(attr_id::href, ustring(u"#") + target);
    link_anchor.append_text(target);
    link_cell.append_copy(link_anchor);
  }
  if (text == nullptr && target == nullptr) return;
  AddText(nullptr, false);
}
