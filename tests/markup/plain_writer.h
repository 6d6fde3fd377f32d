#ifndef TESTS_MARKUP_PLAIN_WRITER_H
#define TESTS_MARKUP_PLAIN_WRITER_H

#include <cstdint>

#include "tests/support/names.h"
#include "xport/markup/xhtml_markup.h"
#include "xport/markup/xhtml_writer.h"
#include "xport/text/char16.h"

namespace test {

/// A second writer, which the library's is compared with. It does one step of the
/// layout rules after the other, calls itself for each child, keeps the whole output
/// in one string and asks nodes through their common interface only. The fields mean
/// what those of xhtml_writer mean.
class plain_writer {
 public:
  std::int32_t indent_step = 2;
  std::int16_t indent_level = 0;
  std::uint64_t max_line_length = 0;
  std::uint64_t column = 0;
  layout_flags_table layout_table{};
  bool double_quotes = false;
  bool spaced_equals = false;

  ustring output;

  void write(const xhtml_markup& node);

 private:
  std::uint32_t layout_of(const xhtml_markup& node) const;
  void write_element(const xhtml_markup& element);
  void write_start_tag(const xhtml_markup& element);
  void write_child(const xhtml_markup& child, std::uint32_t layout, bool at_line_start);
  void write_end_tag(const xhtml_markup& element, std::uint32_t layout);
  void write_piece(const ustring& piece);
  void write_text(const ustring& text, const xhtml_markup* parent);
  ustring flow(const ustring& text, std::int64_t blanks);
  void write_comment(const ustring& text);
  void set_column(std::int64_t blanks);
};

}  // namespace test

#endif
