#ifndef BENCH_READING_PAGE_READER_H
#define BENCH_READING_PAGE_READER_H

#include <memory>
#include <string>
#include <vector>

#include "bench/reading/tree_summary.h"

namespace bench {

/// One way to read a page of UTF-16LE with a mark into a tree.
class page_reader {
 public:
  page_reader() = default;
  page_reader(const page_reader&) = delete;
  page_reader& operator=(const page_reader&) = delete;
  virtual ~page_reader() = default;

  /// Short name, as in the table and on the command line.
  virtual std::string name() const = 0;

  /// Whether it reads nothing but XML.
  virtual bool needs_well_formed() const = 0;

  /// Reads the file into a tree. False if that failed.
  virtual bool read(const std::string& path) = 0;

  /// Sums the tree up. For the bare read, which has none, all is 0.
  virtual tree_summary summarize() const = 0;

  /// Frees the tree.
  virtual void destroy() = 0;
};

std::unique_ptr<page_reader> make_vellomark_reader();
std::unique_ptr<page_reader> make_pugixml_reader();
std::unique_ptr<page_reader> make_rapidxml_reader();
std::unique_ptr<page_reader> make_libxml2_xml_reader();
std::unique_ptr<page_reader> make_libxml2_html_reader();
std::unique_ptr<page_reader> make_gumbo_reader();
std::unique_ptr<page_reader> make_tidy_reader();

/// All of them and the bare read, in the order of the table.
std::vector<std::unique_ptr<page_reader>> all_readers();

/// Reads a page with the library and writes the tree to another file. False if either failed.
bool rewrite_page(const std::string& from, const std::string& to);

/// The versions of the other libraries, for the foot of the table.
std::string peer_versions();

// Names by which the tables find their units of measure.
inline constexpr const char* bare_reader_name = "bare read";
inline constexpr const char* vellomark_reader_name = "vellomark";
inline constexpr const char* pugixml_reader_name = "pugixml";
inline constexpr const char* rapidxml_reader_name = "rapidxml";

}  // namespace bench

#endif
