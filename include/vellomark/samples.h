#ifndef VELLOMARK_SAMPLES_H
#define VELLOMARK_SAMPLES_H

#include <vellomark/export.h>

/// Three samples, which show without a report object what pages the library makes and
/// reads: a small page, a large one, and the way from one page to another.
///
/// Paths are zero-terminated texts of 16-bit code units (UTF-16); on POSIX they go to
/// the system as UTF-8. Pages are UTF-16 little endian with a byte-order mark, and take
/// the place of a file that is there. Their folder has to be there. Whether a page was
/// written to its end isn't told (a full disk), only whether its file could be opened.
///
/// The first and the third sample show a text of the library's string table, and answer
/// true only if it is there. The table is empty unless the library was configured with
/// VELLOMARK_SAMPLE_STRINGS: both then do all their work and answer false.
///
/// No function keeps anything between calls, and all may be used from any thread.
/// std::bad_alloc passes through when memory runs out, and std::length_error for a text
/// of 2^32 units or more; before the page is opened, which comes last, that leaves its
/// file as it was.
namespace vellomark {

/// Writes a page with two headings, the second of them string 101, and a list of four
/// lines, "Element1" to "Element4", whose `id` is "elem1" to "elem4".
///
/// Without string 101 the second heading is empty, and the result is false although the
/// page is complete. False without a page if `path` is null or can't be opened.
VELLOMARK_API bool CreateSampleVellomark1(const char16_t* path);

/// Writes a page with a menu, pictures, two tables, a stylesheet and an embedded
/// control, all of it fixed. It names four picture files, which aren't made. False
/// without a page if `path` is null or can't be opened, true otherwise.
VELLOMARK_API bool CreateWorkVellomark(const char16_t* path);

/// Reads a page of 16-bit units in either byte order, such as CreateSampleVellomark1
/// writes, changes it and writes it to `target_path`. An `h1` with string 102 goes to
/// the end of its `body`; a page without one goes without. The first element with
/// the `id` "elem1" gets the text "Element4" in place of all its content, that with
/// "elem2" gets "Element3", "elem3" gets "Element2" and "elem4" gets "Element1". An
/// element that takes no text is left empty, and one that lay in replaced content is gone.
/// Without string 102 the `h1` is empty.
///
/// True if string 102 and all four elements are there. Otherwise false, and the page is
/// written with the changes that could be made. False without a page if a path is
/// null, or one of the files can't be opened; the target is then as it was.
///
/// A big-endian page needs its byte-order mark. A bad page is read as far as it goes,
/// nothing tells of it, and a page in UTF-8 comes out as nonsense. The source is read to its
/// end and closed before the target is opened, so both may be one file, which then is lost
/// if it was no such page. Reading never ends for some stylesheets, rules as common as
/// `p { margin: 0 }` among them (docs/reading.md): don't name files from sources that you
/// don't trust.
VELLOMARK_API bool ParseAndChangeSampleVellomark(const char16_t* source_path,
                                                 const char16_t* target_path);

}  // namespace vellomark

#endif
