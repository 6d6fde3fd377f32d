#include "bench/workload.h"

#include "bench/text_table.h"

namespace bench {

namespace {

constexpr std::size_t longest_text = 60;

std::string item_text(bool is_line, std::size_t item) {
  if (!is_line) {
    return "Cell " + std::to_string(item);
  }
  std::string line = "Line " + std::to_string(item) +
                     " of the report: the quick brown fox jumps over the lazy dog";
  if (line.size() > longest_text) {
    line.resize(longest_text);
  }
  // Reading a page removes white space before an end tag, so a page with a blank there
  // wouldn't be written as it was read.
  if (line.back() == ' ') {
    line.back() = '.';
  }
  return line;
}

}  // namespace

const char* const doctype_name = "html";
const char* const doctype_public_id = "-//W3C//DTD XHTML 1.0 Strict//EN";
const char* const doctype_system_id = "http://www.w3.org/TR/xhtml1/DTD/xhtml1-strict.dtd";
const char* const xml_namespace = "http://www.w3.org/1999/xhtml";
const char* const page_title = "Report";
const char* const page_stylesheet =
    ".Style1 { \n   text-align: center;\n}\n\n"
    ".Style2 { \n   text-align: left;\n}\n\n"
    ".Style3 { \n   text-align: left;\n   font-weight: bold;\n}\n\n"
    ".Style4 { \n   text-align: left;\n   font-weight: bold;\n   font-style: italic;\n}\n\n"
    "table.main { \n   width: 100%;\n}\n\n"
    ".main td { \n   width: 10%;\n}\n\n";
const char* const page_heading = "Benchmark";

std::string workload_plan::label() const {
  switch (kind) {
    case page_kind::table:
      return "table " + grouped(items);
    case page_kind::lines:
      return "lines " + grouped(items);
    case page_kind::small:
      break;
  }
  return "small " + grouped(pages);
}

std::size_t workload_plan::lines() const {
  if (kind == page_kind::small) return 20;
  return kind == page_kind::lines ? items : 0;
}

std::size_t workload_plan::nodes() const {
  // doctype, html, head, title and its text, style and its text, body, h1 and its
  // text, the block after the heading and the one that saving adds.
  constexpr std::size_t fixed = 12;
  const std::size_t cells = items - lines();
  const std::size_t rows = (cells + columns() - 1) / columns();
  const std::size_t table = cells == 0 ? 0 : 2 + rows + 2 * cells;  // with the block after it
  return fixed + 3 * lines() + table;                               // a, its text, br
}

workload::workload(const workload_plan& plan) : plan_(plan) {
  // Room for the longest texts is reserved at once: there are pointers into the buffers, and a
  // buffer that grows would leave a used heap.
  wide_units_.reserve(plan.items * (longest_text + 1));
  narrow_units_.reserve(plan.items * (longest_text + 1));
  wide_.reserve(plan.items);
  narrow_.reserve(plan.items);
  for (std::size_t item = 0; item < plan.items; ++item) {
    const std::string text = item_text(item < plan.lines(), item);
    wide_.push_back(wide_units_.data() + wide_units_.size());
    narrow_.push_back(narrow_units_.data() + narrow_units_.size());
    wide_units_.insert(wide_units_.end(), text.c_str(), text.c_str() + text.size() + 1);
    narrow_units_.insert(narrow_units_.end(), text.c_str(), text.c_str() + text.size() + 1);
  }
}

std::u16string widen(const std::string& text) { return {text.begin(), text.end()}; }

}  // namespace bench
