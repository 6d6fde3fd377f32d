#ifndef BENCH_TEMPLATES_TEMPLATE_FILLER_H
#define BENCH_TEMPLATES_TEMPLATE_FILLER_H

#include <string>

#include "bench/contender.h"

namespace bench {

/// Each of them reads the template page from the file `path`, puts the content in place of
/// every marker and an empty block at the end, writes the page as UTF-16LE with a byte-order
/// mark, and gives its memory back. False if one of these failed.

/// The library, used as a host uses it: LoadTemplate, GetTemplateFields, and for each field
/// SetTemplateField and AddText.
bool fill_with_vellomark(const std::string& path, const page_target& target);

/// A loop over the children of `body`.
bool fill_with_pugixml(const std::string& path, const page_target& target);

/// The same loop.
bool fill_with_libxml2(const std::string& path, const page_target& target);

}  // namespace bench

#endif
