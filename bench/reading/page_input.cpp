#include "bench/reading/page_input.h"

#include "bench/reading/tag_soup.h"
#include "bench/text_table.h"

namespace bench {

namespace {

constexpr std::size_t mega = 1'000'000;

bool save_report(const workload_plan& plan, const page_target& target) {
  const workload work(plan);
  const auto report = make_vellomark_report();
  report->build(work);
  return report->save(work, target);
}

std::u16string make_nested_page(std::size_t levels) {
  std::u16string page =
      u"<html><head><title>Depth</title></head><body>"
      u"<p>";
  for (std::size_t level = 0; level < levels; ++level) {
    page += level % 2 == 0 ? u"<b>" : u"<i>";
  }
  page += u"x";
  for (std::size_t level = levels; level > 0; --level) {
    page += level % 2 == 1 ? u"</b>" : u"</i>";
  }
  return page + u"</p></body></html>\n";
}

}  // namespace

std::string page_input::label() const {
  switch (kind) {
    case input_kind::table:
      return "table " + grouped(size);
    case input_kind::lines:
      return "lines " + grouped(size);
    case input_kind::depth:
      return "depth " + grouped(size);
    case input_kind::soup:
      break;
  }
  return size % mega == 0 ? "soup " + grouped(size / mega) + " MB"
                          : "soup " + grouped(size / 1000) + " kB";
}

page_input page_input::small() const { return {kind, kind == input_kind::soup ? 4000u : 20u}; }

std::optional<input_kind> input_kind_of(const std::string& name) {
  if (name == "table") return input_kind::table;
  if (name == "lines") return input_kind::lines;
  if (name == "soup") return input_kind::soup;
  if (name == "depth") return input_kind::depth;
  return std::nullopt;
}

bool make_input(const page_input& input, const page_target& target) {
  switch (input.kind) {
    case input_kind::table:
      return save_report({page_kind::table, input.size}, target);
    case input_kind::lines:
      return save_report({page_kind::lines, input.size}, target);
    case input_kind::soup:
      return write_page(make_tag_soup(input.size), target.path());
    case input_kind::depth:
      return write_page(make_nested_page(input.size), target.path());
  }
  return false;
}

}  // namespace bench
