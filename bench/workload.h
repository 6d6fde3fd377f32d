#ifndef BENCH_WORKLOAD_H
#define BENCH_WORKLOAD_H

#include <cstddef>
#include <string>
#include <vector>

namespace bench {

/// What fills a page.
enum class page_kind {
  table,  ///< one table of 10 columns, one text per cell
  lines,  ///< one block of text lines
  small   ///< 20 lines and a table of 3 columns and 12 cells, one such page after the other
};

/// Which page is made, and how large.
struct workload_plan {
  page_kind kind;
  std::size_t items;      ///< cells and lines
  std::size_t pages = 1;  ///< how often the page is made

  /// Pages of the kind `small`.
  static workload_plan small(std::size_t pages) { return {page_kind::small, 32, pages}; }

  /// "table 10,000", "lines 300,000" or "small 1,000".
  std::string label() const;

  /// The lines, which are the first items. The cells follow.
  std::size_t lines() const;

  /// The columns of the table.
  std::size_t columns() const { return kind == page_kind::small ? 3 : 10; }

  /// Nodes of the finished tree: elements, texts and the doctype.
  std::size_t nodes() const;
};

// The fixed texts of every page. A page is:
//
//   doctype, html (xmlns)
//     head: title, style (type)
//     body: h1 (class), p of the a and br of each line,
//       table (border, class, width) of tr of td (valign), p    if there are cells
//       p
extern const char* const doctype_name;
extern const char* const doctype_public_id;
extern const char* const doctype_system_id;
extern const char* const xml_namespace;
extern const char* const page_title;
extern const char* const page_stylesheet;
extern const char* const page_heading;

/// The texts of one page, prepared ahead in both forms that contenders take, so that the clock
/// doesn't count the making of them.
class workload {
 public:
  explicit workload(const workload_plan& plan);
  workload(const workload&) = delete;
  workload& operator=(const workload&) = delete;

  std::size_t lines() const { return plan_.lines(); }
  std::size_t columns() const { return plan_.columns(); }
  std::size_t items() const { return plan_.items; }

  /// The text of an item in UTF-16, zero-terminated. Lives as long as this.
  const char16_t* wide(std::size_t item) const { return wide_[item]; }

  /// The same text in UTF-8.
  const char* narrow(std::size_t item) const { return narrow_[item]; }

 private:
  workload_plan plan_;
  std::vector<char16_t> wide_units_;
  std::vector<char> narrow_units_;
  std::vector<const char16_t*> wide_;
  std::vector<const char*> narrow_;
};

/// `text`, which must be ASCII, as UTF-16.
std::u16string widen(const std::string& text);

}  // namespace bench

#endif
