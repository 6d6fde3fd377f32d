#ifndef REPORT_VELLOMARK_OBJ_H
#define REPORT_VELLOMARK_OBJ_H

#include <cstdint>
#include <list>
#include <memory>
#include <vector>

#include <vellomark/vellomark.h>

#include "platform/file_system.h"
#include "platform/url_opener.h"
#include "report/field_texts.h"
#include "report/section_index.h"
#include "xport/markup/markup_iterator.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/markup/xhtml_element.h"
#include "xport/text/char16.h"

/// Implements IVellomark; see that class for the public operations.
///
/// The page is flat: headings, tables and paragraphs are children of the body, and
/// lines of text are children of a paragraph.
///
/// A position never dangles: a function that deletes a node also resets the positions that
/// point to it. A reset paragraph or row is replaced by a new one when it is needed; a
/// cell whose table is reset is dropped.
class VellomarkObj final : public IVellomark {
 public:
  /// A report that uses the services of the operating system.
  VellomarkObj();

  /// A report that uses the given services, which must outlive it.
  VellomarkObj(platform::file_system& files, platform::url_opener& browser);

  VellomarkObj(const VellomarkObj&) = delete;
  VellomarkObj& operator=(const VellomarkObj&) = delete;
  ~VellomarkObj() override;

  bool Save(const char16_t* folder, const char16_t* file_name) override;
  void AddText(const char16_t* text, bool to_section) override;
  void NewParagraph() override;
  void AddHeading(const char16_t* text, std::int32_t style) override;
  bool OpenTable(std::int32_t columns) override;
  void CloseTable() override;
  void SetFirstCellRows(std::int32_t rows) override;
  void AddLink(const char16_t* text, const char16_t* target) override;
  void SetSectionMode(bool on) override;
  void BeginSection(const char16_t* name, const char16_t* target) override;
  void AddSectionHeading(const char16_t* text, std::int32_t style) override;
  void LoadTemplate(const char16_t* path) override;
  bool SetTemplateField(const char16_t* name, bool replace, const char16_t* value) override;
  void GetTemplateFields(zov_shared_array<CZovString>& fields) override;
  void ClearTemplateFields() override;
  void BeginDirectLinks() override;
  void EndDirectLinks() override;

 private:
  /// The current table state, and the form in which `table_stack` keeps it: OpenTable in
  /// section mode saves it there, and CloseTable restores it.
  struct SavedTableState {
    Xport::markup_iterator cursor;    // the paragraph that receives the next line
    bool in_table = false;            // text becomes cells
    std::int32_t span_rows = 0;       // rows that the first cell spans, minus one
    std::int32_t span_rows_left = 0;  // how many of them are not started yet
    std::int32_t table_columns = 0;   // as passed to OpenTable
    std::int32_t next_column = 0;     // 0 at the start of a row
    Xport::markup_iterator row_pos;   // the row that receives the next cell
  };

  // page.cpp

  /// Appends a paragraph to the page and moves the cursor to it.
  void StartParagraph();

  /// Empties the body and resets the positions in it.
  void ClearPage();

  /// Appends a line to the page, or a cell to the open table. A null `text` appends the
  /// prepared link.
  void AppendPlainText(const char16_t* text);

  // styles.cpp

  /// Adds the stylesheet of every report to the page.
  void InstallDefaultStyles();

  // tables.cpp

  /// OpenTable and CloseTable in section mode.
  bool OpenSectionTable(std::int32_t columns);
  void CloseSectionTable();

  /// Resets the counters for a table that was just opened.
  void StartTable(std::int32_t columns) noexcept;

  /// Appends a cell to the current row, after starting a new row if one is due. A null
  /// `text` appends the prepared link cell.
  void AppendCell(const char16_t* text, bool in_section_table);

  /// Sets the attributes of a cell that is in its row, and advances the counters.
  void FinishCell(Xport::xhtml_markup& cell);

  // sections.cpp

  /// Appends a cell to the open section table, or else a line to the last section. Ignores
  /// a null `text`, and a line if there is no section.
  void AppendSectionText(const char16_t* text);

  /// Moves all sections to the page, in the order that brings shared headings together.
  /// `folder` is the folder of the page with a final separator. The pictures go to the folder
  /// `stem` + "_files" in it.
  void WriteSections(const Xport::ustring& folder, const Xport::ustring& stem);

  /// Adds those headings of the section that `path` lacks. If it added any, sets `path` to
  /// the path of the section.
  void PlaceHeadings(const report::SectionIndex::Entry& next, report::PagePath& path);

  /// Moves the first of `elements` to the page. `picture_folder` is the folder of
  /// pictures on the disk, `picture_link` the same folder relative to the page.
  void PlaceElement(std::list<Xport::xhtml_element>& elements, const Xport::ustring& picture_folder,
                    const Xport::ustring& picture_link);

  // pictures.cpp

  /// If the text of the first element is the path of an existing file, moves that file to
  /// `picture_folder` and replaces the element with an `img`. A file that can't be copied
  /// stays where it is, and the element, with the path as its text, stays too. If the file
  /// can't be removed after the copy, it is in both places. Neither failure is reported.
  /// Throws std::out_of_range if the path of an existing file has fewer than 4 units.
  void RelocatePicture(std::list<Xport::xhtml_element>& elements,
                       const Xport::ustring& picture_folder, const Xport::ustring& picture_link);

  // templates.cpp

  /// Appends the next segment of the template, if one is left, and a new paragraph.
  void FlushTemplateSegment();

  platform::file_system& files;
  platform::url_opener& browser;

  std::unique_ptr<Xport::xhtml_doc> doc;     // the page
  bool cursor_ready = false;                 // some paragraph has been started
  Xport::markup_iterator table_pos;          // the open table of the page
  SavedTableState state;                     // the current state
  std::vector<SavedTableState> table_stack;  // one for each open section table
  Xport::xhtml_element section_table;        // shared by all nesting depths
  Xport::xhtml_element link_cell;            // the cell that AddLink prepared
  Xport::xhtml_element link_anchor;          // the anchor that AddLink prepared
  bool section_mode = false;                 // text and tables go to the last section
  bool direct_links = false;                 // text and links stay on the page even in section mode
  Xport::ustring pending_id;                 // the `id` of the next heading; used once
  std::list<Xport::ustring> path_texts;      // headings queued for the next section
  std::list<std::int32_t> path_styles;       // their styles
  std::list<report::ReportSection> sections;  // in order of creation; one that an exception
                                              // interrupted in Save comes first
  report::FieldTexts template_fields;
  std::list<std::vector<Xport::markup_iterator>> template_segments;  // not yet on the page
  Xport::xhtml_doc template_doc;  // the loaded template, into which the segments point
};

#endif
