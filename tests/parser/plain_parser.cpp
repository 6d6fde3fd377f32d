#include "tests/parser/plain_parser.h"

#include <sstream>
#include <utility>

#include "xport/markup/leaf_nodes.h"
#include "xport/stream/ustring_stream.h"
#include "xport/stylesheet/style_attribute.h"
#include "xport/stylesheet/stylesheet_writer.h"
#include "xport/stylesheet/xhtml_stylesheet.h"
#include "xport/text/character_class.h"

namespace test {
namespace {

using node = std::unique_ptr<xhtml_markup>;

class plain_parser {
 public:
  plain_parser(ustring_view text, const parse_case& how)
      : text_(text.substr(0, text.find(end_unit))), how_(how), references_(nullptr) {
    load_default_references(references_.references);
    rebuild_reference_indexes(references_);
  }

  node parse_children(xhtml_markup& parent) {
    if (parent.is_empty_element() || parent.tag() == tag_id::invalid_tag ||
        parent.category_flags() == category_text)
      return nullptr;
    node current = read_next(parent);
    while (current) {
      if (current->is_end_tag() ? close(parent, current) : place(parent, current)) break;
      if (!current) current = read_next(parent);
    }
    return current;
  }

  parse_result result() const {
    parse_result result;
    result.messages = messages_;
    result.line = line_;
    result.last_tag = last_tag_;
    result.rest = printable(ustring_view(text_).substr(at_));
    return result;
  }

 private:
  bool at_end() const { return at_ == text_.size(); }
  char16 unit() const { return text_[at_]; }
  bool is_next(char16 wanted) const { return !at_end() && unit() == wanted; }
  void advance() {
    if (!at_end()) ++at_;
  }
  bool space_next() const { return !at_end() && classes_.is_space(unit()); }

  void take(ustring& text) {
    if (unit() == u'\n') ++line_;
    text += unit();
    ++at_;
  }

  void report(ustring_view text, std::uint32_t level) {
    if ((how_.message_mask & level) != 0) messages_ += message(line_, printable(text));
  }

  // True if parse_children returns `current` to its caller.
  bool place(xhtml_markup& parent, node& current) {
    if (current->node_kind() == 2)
      report(current->tag_name() + u" encountered.\n", level_trace_elements);
    const bool adopted = parent.adopt_child(current.get()) != parent.end();
    xhtml_markup* const child = adopted ? current.release() : nullptr;
    if (parent.tag() == tag_id::pre) {
      current = std::make_unique<xhtml_end_tag>(u"<pre>");
    } else if (adopted) {
      current = parse_children(*child);
    } else if (current->tag() == tag_id::invalid_tag) {
      current = nullptr;
    } else {
      const ustring item = u"<" + current->tag_name() + u">";
      const ustring name = u"<" + parent.tag_name() + u">";
      const ustring text = u"Couldn't insert " + item + u" into " + name + u".\n";
      if (parent.parent() != nullptr && parent.parent()->can_contain(*current)) {
        report(text + u"Ending " + name + u" element.\n", level_structure);
        return true;
      }
      report(text + u"Skipping " + item + u" tag.\n", level_structure);
      current = nullptr;
    }
    return false;
  }

  bool close(xhtml_markup& parent, node& current) {
    const ustring source = current->tag_name();
    report(source + u" encountered.\n", level_trace_end_tags);
    if (parent.tag() != tag_id::style && parent.begin() != parent.end())
      (--parent.end())->trim_trailing_space();
    if (current->tag() == parent.tag()) {
      current = nullptr;
      return true;
    }
    ustring text =
        u"Expecting end tag " + parent.end_tag_text() + u".  Encountered " + source + u"\n";
    if (parent.parent() != nullptr && parent.parent()->tag() == current->tag()) {
      const std::string ending = "Ending <" + std::to_string(static_cast<int>(current->tag()));
      for (const char sign : ending) text += static_cast<char16>(sign);
      report(text + u"> element.\n", level_end_tag);
      return true;
    }
    report(text + u"Skipping " + source + u" tag.\n", level_end_tag);
    current = nullptr;
    return false;
  }

  node read_next(xhtml_markup& parent) {
    if (at_end()) return nullptr;
    if (unit() == u'<' && parent.tag() != tag_id::pre) return read_markup(parent);
    return read_pcdata(parent, {});
  }

  node read_markup(xhtml_markup& parent) {
    advance();
    if (at_end()) {
      report(u"Invalid end of document.", level_structure);
      return std::make_unique<xhtml_markup>();
    }
    if (is_next(u'!')) {
      advance();
      if (is_next(u'-')) return read_comment(parent);
      while (!at_end()) {
        ustring taken;
        take(taken);
        if (taken == u">") break;
      }
      return std::make_unique<xhtml_doctype_declaration>();
    }
    if (is_next(u'?')) {
      advance();
      return read_instruction();
    }
    if (is_next(u'/')) return read_end_tag();
    if (is_next(u'\n')) ++line_;
    return read_start_tag(parent);
  }

  node read_start_tag(xhtml_markup& parent) {
    ustring text = u"<";
    bool spaced = false;
    while (!at_end()) {
      if (is_next(u'>')) {
        take(text);
        break;
      }
      if (space_next() && !spaced) {
        spaced = true;
        last_tag_ = xhtml_strict::tag_from_name(text.substr(1));
        if (last_tag_ == tag_id::invalid_tag) {
          text += unit();
          return read_pcdata(parent, text);
        }
      }
      take(text);
    }
    node element = make_element(text);
    last_tag_ = element->tag();
    return element;
  }

  node make_element(ustring text) {
    if (text.front() == u'<') text.erase(0, 1);
    ustring name;
    while (name.size() < text.size() && classes_.is_alnum(text[name.size()]))
      name += text[name.size()];
    const tag_id tag = name.empty() ? tag_id::invalid_tag : xhtml_strict::tag_from_name(name);
    auto element = std::make_unique<xhtml_element>(tag, u"", u"");
    if (name.empty()) return element;
    if (tag == tag_id::invalid_tag) {
      report(u"Invalid Tag", level_structure);
      return element;
    }
    text.erase(0, name.size());
    if (!text.empty() && text.front() == u'/' && !element->is_empty_element())
      report(u"Invalid />", level_structure);
    if (text.empty() || !classes_.is_space(text.front())) return element;
    while (!text.empty()) {
      const auto [attribute, value] = cut_attribute(text);
      if (attribute.empty()) continue;
      const attr_id id = xhtml_strict::attribute_from_name(attribute);
      if (attribute == u"style")
        parse_style_attribute(*element, value);
      else if (id != attr_id::not_found && !element->attributes()->contains(id))
        element->attributes()->insert_or_assign(id, value);
    }
    return element;
  }

  void skip_space(ustring& text) const {
    while (!text.empty() && classes_.is_space(text.front())) text.erase(0, 1);
  }

  std::pair<ustring, ustring> cut_attribute(ustring& text) const {
    skip_space(text);
    ustring name;
    while (!text.empty() && text.front() != u'=' && !classes_.is_space(text.front())) {
      name += text.front();
      text.erase(0, 1);
    }
    if (name.empty() || text.empty()) {
      text.clear();
      return {};
    }
    skip_space(text);
    if (text.empty() || text.front() != u'=') {
      text.clear();
      return {};
    }
    text.erase(0, 1);
    return {name, cut_value(text)};
  }

  ustring cut_value(ustring& text) const {
    skip_space(text);
    if (text.empty()) return {};
    const bool quoted = text.front() == u'\'' || text.front() == u'"';
    const std::size_t end = text.find(quoted ? text.front() : u' ', 1);
    if (end == ustring::npos) {
      text.clear();
      return {};
    }
    const ustring value = text.substr(1, end - 1);
    text.erase(0, end + 1);
    return value;
  }

  node read_end_tag() {
    ustring text = u"<";
    while (!at_end()) {
      text += unit();
      advance();
      if (text.back() != u'>') continue;
      auto end_tag = std::make_unique<xhtml_end_tag>(text);
      last_tag_ = end_tag->tag();
      return end_tag;
    }
    last_tag_ = tag_id::invalid_tag;
    return std::make_unique<xhtml_markup>();
  }

  node read_comment(xhtml_markup& parent) {
    advance();
    if (at_end()) {
      report(u"Invalid end of document.", level_structure);
      return nullptr;
    }
    if (!is_next(u'-')) return read_pcdata(parent, u"<-");
    advance();
    ustring text;
    while (!at_end()) {
      if (!is_next(u'-')) {
        take(text);
        continue;
      }
      // At the end the dash that was read last is read again.
      advance();
      if (!at_end() && !is_next(u'-')) {
        text += u'-';
        take(text);
        continue;
      }
      advance();
      if (is_next(u'>')) {
        advance();
        break;
      }
      text += u"--";
      if (at_end())
        text += u'-';
      else
        take(text);
    }
    return std::make_unique<xhtml_comment>(text);
  }

  node read_instruction() {
    ustring text;
    while (!at_end()) {
      if (!is_next(u'?')) {
        take(text);
        continue;
      }
      advance();
      if (is_next(u'>')) {
        advance();
        break;
      }
      text += u'?';
      if (at_end())
        text += u'?';
      else
        take(text);
    }
    last_tag_ = tag_id::invalid_tag;
    return std::make_unique<xhtml_processing_instruction>(text);
  }

  bool skip_leading_space() {
    bool any = false;
    bool newline = false;
    for (; space_next(); ++at_) {
      any = true;
      if (unit() == u'\n') {
        newline = true;
        ++line_;
      }
    }
    return any && !newline;
  }

  node read_pcdata(xhtml_markup& parent, const ustring& prefix) {
    const tag_id tag = parent.tag();
    if (tag == tag_id::pre) return read_preformatted();
    ustring text = prefix;
    if (prefix.empty() && skip_leading_space()) text = u" ";
    enum { none, single, twice } quotes = none;
    while (!at_end()) {
      const char16 next = unit();
      if (next == u'<' && quotes == none) break;
      if (next == u'\n') {
        if (!how_.preserve_newlines && last_tag_ != tag_id::pre && tag != tag_id::script) {
          while (!text.empty() && classes_.is_space(text.back())) text.pop_back();
          text += u' ';
        } else {
          take(text);
        }
        skip_leading_space();
        continue;
      }
      text += next;
      advance();
      if (next == u'"') {
        if (quotes == none)
          quotes = twice;
        else if (quotes == twice)
          quotes = none;
      } else if (next == u'\'' && tag == tag_id::script) {
        if (quotes == none)
          quotes = single;
        else if (quotes == single)
          quotes = none;
      }
    }
    bool mark = false;
    while (!text.empty() && classes_.is_space(text.back())) {
      if (text.back() == u' ') mark = true;
      if (text.back() == u'\n') mark = false;
      text.pop_back();
    }
    if (mark) text += u' ';
    last_tag_ = tag_id::invalid_tag;
    if (text.empty()) return read_next(parent);
    if (how_.normalize_text && tag != tag_id::script && tag != tag_id::style)
      references_.normalize_references(text);
    if (tag == tag_id::style) {
      xhtml_stylesheet sheet;
      std::basic_istringstream<char16> source(text);
      sheet.parse(source);
      ustring_stream target;
      stylesheet_writer writer(target);
      for (const auto& item : sheet) item.write(writer);
      text = target.str();
    }
    return std::make_unique<xhtml_pcdata>(text);
  }

  node read_preformatted() {
    const ustring end_tag = u"</pre>";
    ustring text;
    while (!at_end()) {
      ustring kept;
      while (kept.size() < end_tag.size() && !at_end() &&
             classes_.to_lower(unit()) == end_tag[kept.size()]) {
        kept += unit();
        advance();
      }
      if (kept.size() == end_tag.size()) break;
      text += kept;
      if (kept.empty()) {
        text += unit();
        advance();
      }
    }
    last_tag_ = tag_id::doc_root;
    return std::make_unique<xhtml_pcdata>(text);
  }

  const ustring text_;
  const parse_case& how_;
  character_classes classes_;
  xhtml_parser references_;
  std::size_t at_ = 0;
  std::uint32_t line_ = 1;
  tag_id last_tag_ = tag_id::doc_root;
  std::string messages_;
};

}  // namespace

parse_result parse_plainly(ustring_view text, const parse_case& how) {
  xhtml_element root(tag_id::doc_root, u"", u"");
  xhtml_markup* receiver = &root;
  for (const tag_id tag : how.path) receiver = &*append_element(*receiver, tag);
  plain_parser parser(text, how);
  const node returned = parser.parse_children(*receiver);
  parse_result result = parser.result();
  result.children = outline_of_children(*receiver);
  if (returned) result.returned = printable(returned->tag_name());
  return result;
}

}  // namespace test
