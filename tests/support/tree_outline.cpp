#include "tests/support/tree_outline.h"

#include <algorithm>
#include <cstddef>

#include "tests/support/text.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_element.h"
#include "xport/text/character_class.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace test {
namespace {

std::string start_of(const xhtml_element& element) {
  std::string text = printable(element.tag_name());
  std::string attributes;
  for (const auto& [id, value] : *element.attributes())
    attributes += (attributes.empty() ? "" : " ") + printable(xhtml_strict::attribute_name(id)) +
                  "=\"" + printable(value) + "\"";
  if (!attributes.empty()) text += "[" + attributes + "]";
  std::string style;
  for (const auto& [id, value] : *element.style_properties())
    style += printable(xhtml_strict::css_property_name(id)) + ":" + printable(value) + ";";
  if (!style.empty()) text += "{" + style + "}";
  return text;
}

std::string one_node(const xhtml_markup& node, bool with_attributes) {
  if (node.type() == node_type::element && with_attributes) return start_of(*node.as_element());
  if (node.as_text() == nullptr) return printable(node.tag_name());
  const std::string text = printable(node.as_text()->text());
  switch (node.type()) {
    case node_type::doctype:
      return "!" + text + "!";
    case node_type::comment:
      return "#" + text + "#";
    case node_type::processing_instruction:
      return "?" + text + "?";
    default:
      return "'" + text + "'";
  }
}

std::string children_of(const xhtml_markup& node, bool with_attributes) {
  std::string text;
  const xhtml_markup* parent = &node;
  const_markup_iterator at = node.begin();
  while (true) {
    if (at.cell() == nullptr) {
      if (parent == &node) return text;
      text += ")";
      at = ++const_markup_iterator(parent, parent->parent());
      parent = parent->parent();
      continue;
    }
    if (at != parent->begin()) text += " ";
    text += one_node(*at, with_attributes);
    if (at->begin().cell() == nullptr) {
      ++at;
      continue;
    }
    text += "(";
    parent = at.cell();
    at = parent->begin();
  }
}

ustring start_line(const xhtml_element& element, const outline_form& form) {
  ustring line = u"<" + element.tag_name();
  for (const auto& [id, value] : *element.attributes())
    line.append(u" ").append(xhtml_strict::attribute_name(id)).append(u"=[").append(value) += u"]";
  for (const auto& [id, value] : *element.style_properties()) {
    line.append(u" ").append(xhtml_strict::css_property_name(id)).append(u":[").append(value) +=
        u"]";
    if (form.hides_style) break;
  }
  return line;
}

// `text` with as much white space as `space` keeps.
ustring with_space(ustring_view text, outline_space space) {
  if (space == outline_space::exact) return ustring(text);
  const character_classes classes;
  text = classes.trim(text);
  ustring result;
  for (std::size_t i = 0; i < text.size();) {
    if (!classes.is_space(text[i])) {
      result += text[i++];
      continue;
    }
    const std::size_t first = i;
    while (i < text.size() && classes.is_space(text[i])) ++i;
    const ustring_view run = text.substr(first, i - first);
    if (space == outline_space::none) continue;
    if (space == outline_space::single || run.find(u'\n') != run.npos)
      result += u' ';
    else
      result += run;
  }
  return result;
}

class outliner {
 public:
  explicit outliner(const outline_form& form) : form_(form) {}

  std::vector<ustring> run(const xhtml_markup& top) {
    const xhtml_markup* parent = &top;
    const_markup_iterator at = top.begin();
    while (true) {
      if (at.cell() == nullptr) {
        end_text(parent->tag());
        if (parent == &top) return std::move(lines_);
        lines_.push_back(u"/");
        at = ++const_markup_iterator(parent, parent->parent());
        parent = parent->parent();
      } else if (at->type() == node_type::element) {
        end_text(parent->tag());
        lines_.push_back(start_line(*at->as_element(), form_));
        parent = at.cell();
        at = parent->begin();
      } else {
        add_leaf(*at->as_text(), parent->tag());
        ++at;
      }
    }
  }

 private:
  void add_leaf(const text_leaf& leaf, tag_id parent) {
    if (leaf.type() == node_type::pcdata) {
      text_ += leaf.text();
      if (!form_.joins_texts) end_text(parent, true);
      return;
    }
    end_text(parent);
    switch (leaf.type()) {
      case node_type::comment:
        // The writer changes the white space of comments.
        lines_.push_back(u"#" + with_space(leaf.text(), form_.space == outline_space::exact
                                                            ? outline_space::exact
                                                            : outline_space::single));
        break;
      case node_type::processing_instruction:
        lines_.push_back(ustring(u"?").append(leaf.text()));
        break;
      default:
        lines_.push_back(ustring(u"!").append(leaf.text()));
    }
  }

  void end_text(tag_id parent, bool even_empty = false) {
    const outline_space space = parent == tag_id::pre ? outline_space::exact : form_.space;
    const ustring text = with_space(text_, space);
    text_.clear();
    if (form_.hides_style && parent == tag_id::style) return;
    if (even_empty || !text.empty()) lines_.push_back(u"'" + text);
  }

  const outline_form form_;
  std::vector<ustring> lines_;
  ustring text_;  // of the texts that were joined
};

}  // namespace

std::string bare_outline(const xhtml_markup& node) {
  const std::string children = children_of(node, false);
  return one_node(node, false) + (children.empty() ? "" : "(" + children + ")");
}

std::string outline_of_one(const xhtml_markup& node) { return one_node(node, true); }

std::string outline_of_children(const xhtml_markup& node) { return children_of(node, true); }

std::vector<ustring> outline_of(const xhtml_markup& top, const outline_form& form) {
  return outliner(form).run(top);
}

std::string outline_difference(const std::vector<ustring>& actual,
                               const std::vector<ustring>& expected) {
  if (actual == expected) return {};
  const auto at = std::mismatch(actual.begin(), actual.end(), expected.begin(), expected.end());
  std::string text = "line " + std::to_string(at.first - actual.begin()) + " of an outline is\n";
  text += at.first != actual.end() ? printable(*at.first) : "(nothing more)";
  text += "\nfor\n";
  text += at.second != expected.end() ? printable(*at.second) : "(nothing more)";
  return text;
}

}  // namespace test
