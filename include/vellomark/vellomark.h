#ifndef VELLOMARK_VELLOMARK_H
#define VELLOMARK_VELLOMARK_H

#include <cstdint>

#include <boost/smart_ptr/shared_ptr.hpp>

#include <vellomark/export.h>
#include <zov_utils/czov_string.h>
#include <zov_utils/zov_shared_array.h>

/// One report: the host's calls are turned into one XHTML 1.0 Strict page.
///
/// Get a report from vellomark::CreateInstance. A new report has the title
/// "Report", the default stylesheet and an empty body. Content can be added at
/// once. Nothing is written to disk before Save.
///
/// Text. Every text argument points to a zero-terminated array of 16-bit code
/// units (UTF-16), which is copied before the call returns. Text is not escaped,
/// decoded or converted: "<", "&" and every other unit reach the page unchanged.
/// An operation for which a null text has a meaning says so; any other does
/// nothing when a text is null, and returns false if it has a result.
///
/// Errors. The three bool results report refusals. No operation catches
/// exceptions: std::bad_alloc and std::length_error of the standard containers
/// reach the caller, and CloseTable and Save may throw std::out_of_range as
/// described there. After an exception the report is still usable; the heading,
/// line, row or cell that was being added may be incomplete.
///
/// Threads. A report must be used by one thread at a time; it takes no locks.
/// Separate reports may be used from separate threads.
///
/// Cost. Unless an operation says otherwise, its time is linear in the length of
/// its texts, or of the prepared link, whatever the size of the report.
///
/// The order of the operations below is the order of the virtual table, on
/// which compiled hosts depend. It never changes, and no operation is added:
/// additions are functions of the namespace vellomark.
class VELLOMARK_API IVellomark {
 public:
  IVellomark();
  IVellomark(const IVellomark& other);
  IVellomark& operator=(const IVellomark& other);

  /// Writes the report to `folder` + "/Vellomark/" + name as UTF-16 little
  /// endian with a byte-order mark, and replaces an existing page of that name.
  /// Creates `folder` (its last level only) and the report folder if they are
  /// missing.
  ///
  /// If `file_name` is null, the name is Report1.htm or the one with the next
  /// free number. (A path of 260 code units or more counts as free.) The page is
  /// then opened with the user's default handler, even if it couldn't be written.
  /// Save doesn't wait for the handler.
  ///
  /// Before writing, Save moves all sections to the end of the page. Their
  /// pictures are moved into a folder next to the page: its name is the name of
  /// the page up to the first full stop, plus "_files". A picture is named after
  /// its file, with ".bmp" instead of the last four code units, and replaces an
  /// older picture of that name. If a picture can't be copied, its file stays where
  /// it is, and the page shows the path; a file that can't be removed after the copy
  /// is in both places. Neither is reported or changes the result, and
  /// another Save doesn't try again. The names of the page and of the pictures are
  /// not escaped in the page: a browser doesn't find a picture if a name contains
  /// one of "'", "&", "<", "#", "?" or "%".
  ///
  /// A section line of fewer than four code units that names a file throws
  /// std::out_of_range ("invalid string position"). After any exception, another
  /// Save continues with what isn't on the page yet.
  ///
  /// Returns true once the page file was opened; a later write error (a full
  /// disk) isn't reported. Returns false, and opens nothing, if a folder can't be
  /// created; returns false if the page file can't be opened. The page stays in
  /// the report and can be saved again. Every call whose `folder` isn't null,
  /// even if it fails, first places the next piece of a template and starts a new
  /// block.
  ///
  /// Time is linear in the size of the page, the sections and the pictures, plus
  /// one look at the disk for each line of a section and for each number that is
  /// tried. A picture is copied, even within one file system.
  virtual bool Save(const char16_t* folder, const char16_t* file_name) = 0;

  /// Adds a line of text: to the current block of the page, as a cell to the
  /// open table, or to the last section (with `to_section`, or in section mode
  /// without direct links). Each line feed in a cell becomes "<BR>"; elsewhere
  /// line feeds are kept. A null `text` adds the link that AddLink prepared last;
  /// in a table it adds that link's cell, with its text before the link; to a
  /// section it adds nothing. Text for a section is dropped if there is none.
  ///
  /// A line of a section that is the path of an existing file is a picture: Save
  /// moves the file into the page's folder of pictures and shows it. Pass such
  /// paths in the form that vellomark::PicturePath returns
  /// (<vellomark/picture_path.h>).
  virtual void AddText(const char16_t* text, bool to_section) = 0;

  /// Starts a new block, a `p`, at the end of the page. Later text is added to
  /// it. Constant time.
  virtual void NewParagraph() = 0;

  /// Adds a heading at the end of the page, then a new block. Styles 1 to 4 make
  /// an `h1` to `h4` with the class "Style1" to "Style4"; 0 and below make an
  /// `h5` with an empty class. Styles from 5 on add the text as a line of the
  /// page, or as a cell of the open table, whatever the section mode.
  virtual void AddHeading(const char16_t* text, std::int32_t style) = 0;

  /// Opens a table with `columns` cells in a row at the end of the page and
  /// returns true. Each AddText then adds one cell; a new row starts by itself
  /// when a row is full. A row holds two cells if `columns` is 1 or less.
  ///
  /// In section mode the table is not on the page: CloseTable adds it to the last
  /// section. Opening another table there before CloseTable empties the first
  /// one.
  ///
  /// If an exception is thrown, no table was opened and nothing has changed.
  /// Constant time, plus the deletion of the table that is emptied.
  virtual bool OpenTable(std::int32_t columns) = 0;

  /// Closes the table and starts a new block; without an open table it only
  /// starts the block. In section mode it starts no block, and throws
  /// std::out_of_range ("invalid vector subscript") if no table was opened in
  /// that mode. If an exception is thrown, nothing has changed: an open table
  /// stays open with all its rows.
  ///
  /// Constant time; in section mode linear in the size of the table, which is
  /// copied.
  virtual void CloseTable() = 0;

  /// Lets the first cell of the next row span `rows` rows. The cells after it are
  /// stacked beside it, which is laid out correctly for two columns. 1 means no
  /// span; 0 and below have no meaning and do no harm. Constant time.
  virtual void SetFirstCellRows(std::int32_t rows) = 0;

  /// Adds a link to the anchor `target` of this page. The link shows the target;
  /// `text` appears before it, and only in a table cell. Either may be null. If
  /// both are null, the prepared link is emptied and nothing is added. If only
  /// `target` is null, outside a table, an empty anchor with the target of the
  /// last link is added and `text` is lost. In section mode without direct links
  /// the link is prepared but not added. A target of 254 code units or more makes
  /// the call do nothing.
  virtual void AddLink(const char16_t* text, const char16_t* target) = 0;

  /// Directs later text and tables to the last section (true) or to the page
  /// (false). Constant time.
  virtual void SetSectionMode(bool on) = 0;

  /// Creates a deferred section, which Save puts on the page. Its path consists
  /// of the headings queued by AddSectionHeading. Until the next section begins,
  /// it receives what is added in section mode or by AddText with `to_section`.
  /// `name` becomes the section's own heading, whose `id` is "#" plus the name; an
  /// empty name makes no heading.
  ///
  /// With direct links on, the section is named `target` instead, and the call
  /// AddLink(name, target) leaves a link at the current place of the page. With
  /// direct links on in section mode, the call does nothing. (The "#" is part of
  /// the `id`, so a browser doesn't find the heading by that link: put an anchor
  /// of your own into the section.)
  ///
  /// A null `name` makes the call do nothing, and so does a null `target` with
  /// direct links on; otherwise `target` isn't read.
  virtual void BeginSection(const char16_t* name, const char16_t* target) = 0;

  /// Queues a heading for the path of the next section, outermost first, with a
  /// style as in AddHeading. Sections with the same first headings are placed
  /// together on the page, and each of these headings is written once.
  virtual void AddSectionHeading(const char16_t* text, std::int32_t style) = 0;

  /// Reads the template page `path`, UTF-16 in either byte order, and empties the
  /// body of the report's page.
  ///
  /// A marker is an element with the `id` "Template". The text of its first child,
  /// as it is written, is a field. The template's body is cut at each `p` that is
  /// a direct child of the body and begins with a marker, and the pieces wait to be
  /// placed on the page. The `p` itself is dropped, and so are direct children of
  /// the body that aren't elements. Nothing else of the template is used. A page
  /// without a body has fields but no pieces; of several bodies the first is used.
  ///
  /// A marker in any other place is a field without a cut, and prevents all later
  /// cuts: docs/templates.md explains where markers work. A marker without a child is
  /// no field.
  ///
  /// The call doesn't report whether the file is a template: look at the fields. A
  /// null `path`, or a file that can't be opened, changes nothing. Any other file
  /// replaces the template that was loaded before, and its pieces. A table that is
  /// open on the page is deleted: until CloseTable its cells are dropped. Sections
  /// stay, and so does the table of a section.
  ///
  /// The call never returns if the template has style text that never ends
  /// (docs/reading.md): don't load pages from sources that you don't trust. If an
  /// exception is thrown, the page is unchanged, but the report may have no template
  /// any more.
  ///
  /// Time and memory are linear in the size of the template and of the texts of
  /// its fields as they are written; time also in the size of the body that is
  /// emptied. Markers inside markers and blocks nested in a marker make these
  /// texts grow with the square of their depth.
  virtual void LoadTemplate(const char16_t* path) = 0;

  /// Returns whether the template has the field `name`, compared unit by unit. A
  /// null `name` is no field.
  ///
  /// If there is such a field, `replace` is true and `value` isn't null, the call
  /// also places the next piece of the template at the end of the page, whichever
  /// field is named. It then starts a new block, which receives the text that
  /// follows. If no piece is left, it only starts the block. `value` then replaces
  /// `name` in the list of fields; it isn't added to the page. Of equal fields the
  /// first is replaced.
  ///
  /// If an exception is thrown, the field keeps its text, and the same call again
  /// places the rest of the piece.
  ///
  /// Time is logarithmic in the number of fields, plus linear in the size of the
  /// piece.
  virtual bool SetTemplateField(const char16_t* name, bool replace, const char16_t* value) = 0;

  /// Empties `fields` and fills it with the texts of the template's fields in the
  /// order of the page, including values that replaced a name. The host owns the
  /// array, which may outlive the report; other copies of the array keep their
  /// elements. A text ends at its first zero unit. After an exception the array
  /// holds the first of the fields. Time is linear in the length of all texts.
  virtual void GetTemplateFields(zov_shared_array<CZovString>& fields) = 0;

  /// Drops the fields of the template, so that SetTemplateField returns false. The
  /// pieces stay, and Save places them. Time is linear in the number of fields.
  virtual void ClearTemplateFields() = 0;

  /// Lets AddText and AddLink add to the page even in section mode. Constant time.
  virtual void BeginDirectLinks() = 0;

  /// Ends the effect of BeginDirectLinks. Constant time.
  virtual void EndDirectLinks() = 0;

 protected:
  /// Reports are deleted through the pointer that CreateInstance returned.
  virtual ~IVellomark();
};

namespace vellomark {

/// Creates a new, independent report. It lives as long as the last copy of the
/// pointer; content that wasn't saved is then lost. Throws std::bad_alloc when
/// memory runs out. May be called from any thread. Constant time.
VELLOMARK_API boost::shared_ptr<IVellomark> CreateInstance();

}  // namespace vellomark

#endif
