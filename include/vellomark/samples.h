#ifndef VELLOMARK_SAMPLES_H
#define VELLOMARK_SAMPLES_H

#include <vellomark/export.h>

/// Three samples that show, without a report object, what pages the library writes and
/// reads: a small page, a large page, and a page that is read and changed.
///
/// Paths are zero-terminated texts of 16-bit code units (UTF-16); on POSIX they are passed
/// to the system as UTF-8. Pages are written as UTF-16 little endian with a byte-order mark
/// and replace an existing file. Their folder must exist. The result says whether the file
/// could be opened; a later write error (a full disk) isn't reported.
///
/// The first and the third sample use a text of the library's string table, and return true
/// only if the table has it. The table is empty unless the library was configured with
/// VELLOMARK_SAMPLE_STRINGS: both samples then do all their work and return false.
///
/// The functions keep no state between calls and may be called from any thread. They throw
/// std::bad_alloc when memory runs out, and std::length_error for a text of 2^32 units or
/// more. The page file is opened last: an exception thrown earlier leaves it unchanged.
namespace vellomark {

/// Writes a page with two headings, the second of them string 101, and a list of four
/// lines, "Element1" to "Element4", with the `id` "elem1" to "elem4".
///
/// Without string 101 the second heading is empty, and the result is false although the
/// page is complete. Returns false and writes no page if `path` is null or can't be opened.
VELLOMARK_API bool CreateSampleVellomark1(const char16_t* path);

/// Writes a page with a menu, pictures, two tables, a stylesheet and an embedded control.
/// The content is fixed. The page refers to four picture files, which aren't created.
/// Returns false and writes no page if `path` is null or can't be opened; otherwise true.
VELLOMARK_API bool CreateWorkVellomark(const char16_t* path);

/// Reads a page of 16-bit units in either byte order, such as CreateSampleVellomark1
/// writes, changes it and writes it to `target_path`.
///
/// An `h1` with string 102 is added at the end of the `body`, if the page has one; without
/// string 102 the `h1` is empty. The first element with the `id` "elem1" gets the text
/// "Element4" instead of all its content, "elem2" gets "Element3", "elem3" gets "Element2"
/// and "elem4" gets "Element1". An element that can't hold text becomes empty. An element
/// inside replaced content is deleted, and isn't found afterwards.
///
/// Returns true if string 102 and all four elements were found. Otherwise returns false, and
/// the page is written with the changes that could be made. Returns false and leaves the
/// target unchanged if a path is null or one of the files can't be opened.
///
/// A big-endian page needs its byte-order mark. A malformed page is read as far as possible,
/// which isn't reported, and a page in UTF-8 turns into nonsense. The source is read to its
/// end and closed before the target is opened, so both may be the same file; its content is
/// then lost if it wasn't such a page. The call never returns for some stylesheets, which
/// include rules as common as `p { margin: 0 }` (docs/reading.md): don't pass files from
/// sources that you don't trust.
///
/// Time is linear in the size of the source and of the page that is written, memory in the
/// size of the source. Blocks nested deeply make a page whose size grows with the square of
/// their depth.
VELLOMARK_API bool ParseAndChangeSampleVellomark(const char16_t* source_path,
                                                 const char16_t* target_path);

}  // namespace vellomark

#endif
