#ifndef EXAMPLES_TEMPLATE_REPORT_TEMPLATE_PAGE_H
#define EXAMPLES_TEMPLATE_REPORT_TEMPLATE_PAGE_H

#include <filesystem>
#include <string>

namespace template_report {

/// Writes the page `source`, which is in UTF-8 so that people can edit it, to `target` in the
/// encoding that the library reads: UTF-16 little endian with a byte-order mark. Throws
/// std::runtime_error with the path if a file can't be read, isn't UTF-8 or can't be written.
void write_template_page(const std::string& source, const std::filesystem::path& target);

}  // namespace template_report

#endif
