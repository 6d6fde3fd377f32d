#include "tests/support/round_trip.h"

#include <memory>
#include <sstream>
#include <vector>

#include "tests/support/guarded_parser.h"
#include "tests/support/tree_check.h"
#include "tests/support/tree_outline.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/markup/xhtml_writer.h"
#include "xport/parser/read_document.h"
#include "xport/stream/ustring_stream.h"
#include "xport/text/character_class.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace test {
namespace {

// The most units of a page that a message shows.
constexpr std::size_t most_shown = 10'000;

bool holds(ustring_view text, ustring_view part) { return text.find(part) != text.npos; }

// The reader of texts ends one at a "<" outside quotes, and at the end of the page only if
// a quote stays open.
const char* text_exemption(ustring_view text, tag_id parent) {
  bool quoted = false;
  bool single = false;
  for (const char16 unit : text) {
    if (unit == u'<' && !quoted && !single)
      return "a text begins with what isn't read as a tag, but gains a blank each time, or is "
             "read as a tag where other text follows it";
    if (unit == u'"' && !single) quoted = !quoted;
    if (unit == u'\'' && !quoted && parent == tag_id::script) single = !single;
  }
  if (quoted || single) return "a quote that isn't closed hides the tags after it";
  return nullptr;
}

const char* leaf_exemption(const text_leaf& leaf) {
  const ustring_view text = leaf.text();
  if (leaf.type() == node_type::comment && holds(text, u"-->"))
    return "nothing is escaped: a comment ends at the first end in it";
  if (leaf.type() == node_type::processing_instruction &&
      (text.starts_with(u"<?") || holds(text, u"?>")))
    return "nothing is escaped: an instruction ends at the first end in it, and loses a \"<?\"";
  return nullptr;
}

const char* element_exemption(const xhtml_element& element, const round_trip_options& options) {
  const char16 quote = options.double_quotes ? u'"' : u'\'';
  for (const auto& [id, value] : *element.attributes()) {
    if (value.find(quote) != value.npos)
      return "nothing is escaped: a value ends at the first quote in it";
    const ustring_view name = xhtml_strict::attribute_name(id);
    if (name == u"style")
      return "a style attribute that was read as an attribute, since its name was in capitals, "
             "is written in small letters and read as an inline style";
  }
  bool first = true;
  for (const auto& [id, value] : *element.style_properties()) {
    if (value.find(quote) != value.npos)
      return "nothing is escaped: a value ends at the first quote in it";
    if (!first && value.find(u':') != value.npos)
      return "of an inline style the first property is read, and of the others what looks like "
             "one in a value";
    first = false;
  }
  return nullptr;
}

// The neighbouring texts from `at` on. Moves `at` past them.
ustring joined_texts(const_markup_iterator& at, int& count) {
  ustring text;
  for (; at.cell() != nullptr && at->type() == node_type::pcdata; ++at) {
    const ustring_view part = at->as_text()->text();
    text += part;
    if (!part.empty()) ++count;
  }
  return text;
}

const char* child_list_exemption(const xhtml_element& parent, const round_trip_options& options) {
  for (const_markup_iterator at = parent.begin(); at.cell() != nullptr;) {
    if (at->type() == node_type::pcdata) {
      int count = 0;
      const ustring text = joined_texts(at, count);
      if (parent.tag() == tag_id::pre) continue;
      if (parent.tag() == tag_id::style && holds(text, u"\""))
        return "a quote in a style text may be lost, and one that isn't closed hides the tags "
               "after it";
      if (const char* const why = text_exemption(text, parent.tag())) return why;
      if (options.normalize_text && count > 1 && holds(text, u"&"))
        return "a reference may come into being where two texts become one";
      continue;
    }
    if (at->type() != node_type::element)
      if (const char* const why = leaf_exemption(*at->as_text())) return why;
    ++at;
  }
  return nullptr;
}

ustring page_of(const xhtml_element& root, const round_trip_options& options) {
  ustring_stream stream;
  xhtml_writer writer(stream);
  writer.double_quotes = options.double_quotes;
  writer.spaced_equals = options.spaced_equals;
  writer.max_line_length = options.max_line_length;
  writer.indent_step = options.indent_step;
  root.write(writer);
  return u"\uFEFF" + stream.str();
}

void read_page(const ustring& page, xhtml_doc& doc, const round_trip_options& options) {
  std::basic_istringstream<char16> stream(page);
  guarded_parser parser(&stream);
  parser.normalize_text = options.normalize_text;
  parser.preserve_newlines = options.preserve_newlines;
  parse_page(parser, *doc.root());
}

bool begins_with_zero(const ustring& page) {
  const ustring_view text = character_classes().trim(ustring_view(page).substr(1));
  return text.starts_with(u'\0');
}

}  // namespace

const char* round_trip_exemption(const xhtml_element& root, const round_trip_options& options) {
  if (begins_with_zero(page_of(root, options)))
    return "a zero after the mark of little-endian pages is read as the rest of a mark";
  const xhtml_element* parent = &root;
  while (true) {
    if (const char* const why = element_exemption(*parent, options)) return why;
    if (const char* const why = child_list_exemption(*parent, options)) return why;
    // The next element in document order.
    const_markup_iterator at = parent->begin();
    const xhtml_element* next = nullptr;
    while (next == nullptr) {
      for (; at.cell() != nullptr; ++at)
        if (at->type() == node_type::element) break;
      if (at.cell() != nullptr) {
        next = at.cell()->as_element();
      } else {
        if (parent == &root) return nullptr;
        at = ++const_markup_iterator(parent, parent->parent());
        parent = parent->parent()->as_element();
      }
    }
    parent = next;
  }
}

std::string round_trip_fault(const xhtml_element& root, const round_trip_options& options) {
  const bool exempt = round_trip_exemption(root, options) != nullptr;
  outline_form first_form;
  first_form.space = options.max_line_length != 0 ? outline_space::none : outline_space::at_breaks;
  first_form.joins_texts = true;
  first_form.hides_style = true;
  outline_form later_form;
  later_form.hides_style = true;

  const xhtml_element* before = &root;
  std::vector<std::unique_ptr<xhtml_doc>> docs;
  // Where a blank was added or lost, lines may be wrapped at other places: there the texts
  // don't settle.
  const int rounds = options.max_line_length != 0 ? 2 : 4;
  for (int round = 1; round <= rounds; ++round) {
    docs.push_back(std::make_unique<xhtml_doc>(0));
    const ustring page = page_of(*before, options);
    read_page(page, *docs.back(), options);
    const xhtml_element& after = *docs.back()->root();
    std::string fault;
    if (const auto intact = is_intact(after); !intact) fault = intact.message();
    if (fault.empty() && round == 1 && !exempt)
      fault = outline_difference(outline_of(after, first_form), outline_of(*before, first_form));
    if (fault.empty() && round == 4 && !exempt)
      fault = outline_difference(outline_of(after, later_form), outline_of(*before, later_form));
    if (!fault.empty())
      return "round " + std::to_string(round) + ": " + fault + "\nof the page\n" +
             printable(ustring_view(page).substr(0, most_shown));
    before = &after;
  }
  return {};
}

}  // namespace test
