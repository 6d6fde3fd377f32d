#ifndef BENCH_TEMPLATES_TEMPLATE_PAGE_H
#define BENCH_TEMPLATES_TEMPLATE_PAGE_H

#include <cstddef>
#include <string>

namespace bench {

/// The content that everybody puts in place of each marker: an `a` with this text and a `br`.
extern const char* const field_content;

/// A template page with `fields` markers. In front of each stand a heading, a block of text
/// with inline elements and a list, about 450 units in all. Its head is that of a report,
/// so that all pages made of it can be equal.
std::u16string make_template(std::size_t fields);

}  // namespace bench

#endif
