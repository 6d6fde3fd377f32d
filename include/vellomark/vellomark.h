#ifndef VELLOMARK_VELLOMARK_H
#define VELLOMARK_VELLOMARK_H

#include <cstdint>

#include <boost/smart_ptr/shared_ptr.hpp>

#include <vellomark/export.h>
#include <zov_utils/czov_string.h>
#include <zov_utils/zov_shared_array.h>

/// One report: calls go in, an XHTML 1.0 Strict page comes out.
///
/// Get one from vellomark::CreateInstance. A fresh report has the title
/// "Report", the default stylesheet and an empty body; nothing has to be called
/// before content is added, and nothing is written before Save.
///
/// Text. Every text argument points to a zero-terminated array of 16-bit code
/// units (UTF-16). It is copied before the call returns. Text is not escaped,
/// decoded or converted: "<", "&" and every other unit reach the page as they
/// stand. Where a null text has a meaning the operation says so; elsewhere a
/// null text makes the call do nothing (and return false where it has a result).
///
/// Errors. Refusals are answers: the three bool results tell of them. No
/// operation catches exceptions, so std::bad_alloc and std::length_error of the
/// standard containers reach the caller, and CloseTable and Save may throw
/// std::out_of_range as told there. After an exception the report can be used on;
/// the heading, line, row or cell that was being added may be incomplete.
///
/// Threads. One report serves one thread at a time and takes no locks. Separate
/// reports may be used from separate threads.
///
/// The order of the operations below is the order of the virtual table, on
/// which compiled hosts depend. New operations can't be inserted.
class VELLOMARK_API IVellomark {
 public:
  IVellomark();
  IVellomark(const IVellomark& other);
  IVellomark& operator=(const IVellomark& other);

  /// Writes the report to `folder` + "/Vellomark/" + name as UTF-16 little
  /// endian with a byte-order mark. Creates `folder` (its last level only) and
  /// the report folder where they are missing, and replaces a page of that name.
  ///
  /// With `file_name` null the name is Report1.htm or the one with the next free
  /// number (a path of 260 code units or more counts as free), and the page is
  /// then opened with the user's default handler, without waiting and whether or
  /// not it could be written.
  ///
  /// Before the page is written, it puts all sections on the page and moves their
  /// pictures into the folder named after the page, up to its first full stop, with
  /// "_files". There a picture has the name of its file with ".bmp" in place of the
  /// last four code units, and takes the place of an older one of that name. A
  /// picture that can't be copied stays where it is, and its path stays as text. A
  /// line of fewer than four code units that names a file throws std::out_of_range
  /// ("invalid string position"); what isn't on the page by then is still there for
  /// another Save. The page's and the pictures' names go into the page as they are: a
  /// browser finds no picture by a name with one of "'", "&", "<", "#", "?" or "%".
  ///
  /// Returns true as soon as the page file was opened; an error in writing it
  /// (a full disk) isn't reported. Returns false, without opening anything, if a
  /// folder can't be made, and false if the page file can't be opened. The page
  /// stays in the report and may be saved again; each call, whatever comes of it,
  /// first places the next piece of a template and starts a new block.
  virtual bool Save(const char16_t* folder, const char16_t* file_name) = 0;

  /// Adds a line of text: to the current block of the page, as a cell to the
  /// open table, or to the last section (`to_section`, or section mode without
  /// direct links). In a cell each line feed becomes "<BR>"; elsewhere line feeds
  /// stay. A null `text` adds the link that AddLink prepared last, in a table the
  /// cell with the text in front of it; for a section it adds nothing. Without a
  /// section, text for one is dropped.
  ///
  /// A line of a section that is the path of an existing file is a picture: Save
  /// moves the file into the page's folder of pictures and shows it. Paths have the
  /// form that vellomark::PicturePath makes (<vellomark/picture_path.h>).
  virtual void AddText(const char16_t* text, bool to_section) = 0;

  /// Starts a new block, a `p`, at the end of the page. Later text goes there.
  virtual void NewParagraph() = 0;

  /// Adds a heading at the end of the page and a new block behind it. Styles 1
  /// to 4 give `h1` to `h4` with the class "Style1" to "Style4", 0 and below an
  /// `h5` with an empty class. 5 and above add the text as a line of the page or a
  /// cell of the open table, whatever the section mode.
  virtual void AddHeading(const char16_t* text, std::int32_t style) = 0;

  /// Opens a table at the end of the page, with `columns` cells in a row, and
  /// returns true. Each AddText is then one cell; rows start by themselves. A
  /// row takes its first two cells even where `columns` is 1 or less. In section
  /// mode the table is kept aside until CloseTable hands it to the last section;
  /// a table that is opened while another one is kept there empties that one. If an
  /// exception is thrown, no table was opened and nothing has changed.
  virtual bool OpenTable(std::int32_t columns) = 0;

  /// Closes the table and starts a new block. Without an open table it does just
  /// the latter. In section mode no block is started; with no table opened in it
  /// it throws std::out_of_range ("invalid vector subscript"). If an exception is
  /// thrown, nothing has changed: a table that was open still is, with all its rows.
  virtual void CloseTable() = 0;

  /// Lets the first cell of the next row span `rows` rows. The cells behind it
  /// are stacked beside it, which is laid out correctly for two columns. 1 means
  /// no span; 0 and below have no meaning and do no harm.
  virtual void SetFirstCellRows(std::int32_t rows) = 0;

  /// Adds a link to the anchor `target` of this page; the visible text of the
  /// link is the target. `text` appears in front of it in a table cell only.
  /// Either may be null; with both null the prepared link is emptied and nothing
  /// is added. With `target` null outside a table, an empty anchor with the target
  /// of the last link is added and `text` is lost. In section mode without direct
  /// links the link is prepared, but not added. A target of 254 code units or more
  /// makes the call do nothing.
  virtual void AddLink(const char16_t* text, const char16_t* target) = 0;

  /// Sends later text and tables to the last section (true) or the page (false).
  virtual void SetSectionMode(bool on) = 0;

  /// Makes a deferred section, which Save puts on the page; its path is made of
  /// the headings that AddSectionHeading has queued. The section takes what comes in
  /// section mode, or through AddText with `to_section`, until the next one begins.
  /// `name` becomes its own heading, with "#" and the name as its `id`; an empty
  /// name makes none.
  ///
  /// With direct links on, the section is named `target`, and AddLink(name, target)
  /// leaves a link on the page where it stands; in section mode with direct links
  /// on, the call does nothing. (The "#" is part of the `id`, so a browser doesn't
  /// find the heading by that link: put an anchor of your own into the section.)
  ///
  /// A null `name` makes the call do nothing, and so does a null `target` with
  /// direct links on; otherwise `target` isn't read.
  virtual void BeginSection(const char16_t* name, const char16_t* target) = 0;

  /// Queues a heading for the path of the next section, outermost first, with a
  /// style as AddHeading takes it. Sections with the same first headings come
  /// together on the page, and each heading is written once.
  virtual void AddSectionHeading(const char16_t* text, std::int32_t style) = 0;

  /// Reads the template page `path`, UTF-16 in either byte order, and empties the
  /// body of the report's page. A marker is an element with the `id` "Template"; its
  /// first child, as it is written, is the text of a field. The template's body is cut
  /// at each `p` that stands in it directly and begins with a marker, and the pieces
  /// wait to be placed on the page; the `p` vanishes, and so does what stands in the body
  /// directly and is no element. Nothing else of the template is used. A page without a
  /// body has fields, but no pieces; of several bodies the first is used.
  ///
  /// A marker in any other place is a field without a cut, and keeps all cuts behind
  /// it from being made: docs/templates.md tells where markers work. One without a
  /// child is no field.
  ///
  /// Nothing tells whether the file is a template: look at the fields. A file that
  /// can't be opened changes nothing, and neither does a null `path`; any other takes
  /// the place of the template that was loaded before, and of its pieces. A table that
  /// is open on the page is gone with it: until CloseTable its cells go nowhere.
  /// Sections stay, and a table in one of them.
  ///
  /// The call never returns from a template with style text that never ends
  /// (docs/reading.md): load no pages from sources that you don't trust. If an
  /// exception is thrown, the page is as it was and there may be no template.
  virtual void LoadTemplate(const char16_t* path) = 0;

  /// Tells whether the template has the field `name`, compared unit by unit. If it
  /// has, and with `replace` and a `value` that isn't null, it also places the next
  /// piece of the template on the page, whichever field is named, and starts a new
  /// block behind it, where content goes on; when no piece is left it only does
  /// the latter. `value` then takes the place of `name` in the list of fields; it isn't
  /// put on the page. Of equal fields the first one is meant. A null `name` is no field.
  ///
  /// If an exception is thrown, the field keeps its text. The same call again places
  /// what is left of the piece.
  virtual bool SetTemplateField(const char16_t* name, bool replace, const char16_t* value) = 0;

  /// Empties `fields` and fills it with the texts of the template's fields in the
  /// order of the page, values that were set among them. The array is the host's and
  /// may outlive the report; other copies of it keep what they have. A text ends at
  /// its first zero. After an exception it holds the first fields.
  virtual void GetTemplateFields(zov_shared_array<CZovString>& fields) = 0;

  /// Forgets the fields of the template: SetTemplateField then returns false. The
  /// pieces stay, and Save places them.
  virtual void ClearTemplateFields() = 0;

  /// Keeps AddText and AddLink on the page while section mode is on.
  virtual void BeginDirectLinks() = 0;

  /// Ends what BeginDirectLinks began.
  virtual void EndDirectLinks() = 0;

 protected:
  /// Reports are deleted by the pointer that CreateInstance returned.
  virtual ~IVellomark();
};

namespace vellomark {

/// Makes a new, independent report. The report lives as long as the last copy of
/// the pointer; what no Save has written is then lost. Throws std::bad_alloc
/// when memory runs out.
VELLOMARK_API boost::shared_ptr<IVellomark> CreateInstance();

}  // namespace vellomark

#endif
