#ifndef BENCH_READING_TAG_SOUP_H
#define BENCH_READING_TAG_SOUP_H

#include <cstddef>
#include <string>

namespace bench {

/// A page of tag soup, as people and old programs write it: `bytes` bytes of UTF-16 and the rest of
/// the last block. Without a byte-order mark. The same number gives the same page on every machine.
///
/// Nested paragraphs, lists, tables and blocks, some of them with: end tags left
/// out, of another element, in the wrong order or for nothing; unknown elements, bare and
/// with attributes; names in capitals; attribute values in either quote or in none, and
/// attributes without a value; comments; references, right and wrong; texts of words with
/// line breaks and indentation, some with units outside ASCII.
///
/// Left out on purpose, so that all parsers make trees of much the same size and the
/// table compares their speed and not their rules:
/// - A lone double quote in text. The library reads all up to the next one as text, tags included.
///   There are quoted phrases, with both quotes and no tag in between.
/// - More than one element left open where an end tag or a new element must close them.
///   The library looks at an element and its parent, HTML 5 at all open elements.
/// - A `b` or `i` that is never closed. HTML 5 opens it anew in every block to the end of
///   the page.
/// - Stylesheets and scripts.
std::u16string make_tag_soup(std::size_t bytes);

}  // namespace bench

#endif
