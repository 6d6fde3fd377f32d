#ifndef BENCH_TEMPLATES_FILLERS_H
#define BENCH_TEMPLATES_FILLERS_H

#include <string>

#include "bench/page_file.h"

namespace bench {

/// The content that everybody puts in place of each marker: an `a` with this text and a `br`.
inline constexpr const char* field_content =
    "What a host found out about this field, in one line of text";

// Each of them reads the template page from the file `path`, puts the content in place of every
// marker and an empty block at the end, writes the page as UTF-16LE with a byte-order mark, and
// frees its memory. False if one of these failed.

/// The library, used as a host uses it: LoadTemplate, GetTemplateFields, and for each field
/// SetTemplateField and AddText.
bool fill_with_vellomark(const std::string& path, const page_target& target);

/// A loop over the children of `body`.
bool fill_with_pugixml(const std::string& path, const page_target& target);

/// The same loop.
bool fill_with_libxml2(const std::string& path, const page_target& target);

}  // namespace bench

#endif
