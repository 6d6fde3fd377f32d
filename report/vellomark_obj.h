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
#include "report/report_section.h"
#include "report/section_index.h"
#include "xport/markup/markup_iterator.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/markup/xhtml_element.h"
#include "xport/text/char16.h"

/// The report behind IVellomark; see there for what the operations do.
///
/// The page is flat: headings, tables and blocks stand in the body, lines of
/// text in the blocks. Positions into what this object holds are kept valid or
/// made invalid with what they point to; an invalid position takes content that
/// then goes nowhere, or is replaced by a new block or row.
class VellomarkObj final : public IVellomark {
 public:
  /// A report that uses the operating system's services.
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
  /// Where the next line or cell goes. OpenTable in section mode saves it on
  /// `table_stack`, and CloseTable restores it.
  struct SavedTableState {
    Xport::markup_iterator cursor;    // the paragraph that receives the next line
    bool in_table = false;            // text becomes cells
    std::int32_t span_rows = 0;       // rows that the first cell spans, minus one
    std::int32_t span_rows_left = 0;  // how many of them are not started yet
    std::int32_t table_columns = 0;   // as passed to OpenTable
    std::int32_t next_column = 0;     // 0 at the start of a row
    Xport::markup_iterator row_pos;   // the row that receives the next cell
  };

  /// The headings of sections that the page has at this moment.
  struct PagePath {
    std::vector<Xport::ustring> texts;
    section_index::node* node = nullptr;  // null for an empty path
  };

  // page.cpp
  void StartParagraph();
  void ClearPage();
  void AppendPlainText(const char16_t* text);

  // tables.cpp
  bool OpenSectionTable(std::int32_t columns);
  void StartTable(std::int32_t columns) noexcept;
  void CloseSectionTable();
  void AppendCell(const char16_t* text, bool in_section_table);
  void FinishCell(Xport::xhtml_markup& cell);

  // styles.cpp
  void InstallDefaultStyles();

  // saving.cpp
  Xport::ustring UniqueReportName(const Xport::ustring& folder) const;
  bool EnsureFolder(const Xport::ustring& path) const;

  // sections.cpp
  void AppendSectionText(const char16_t* text);
  void WriteSections(Xport::ustring folder, Xport::ustring stem);
  static const section_index::entry* NextSection(section_index& index, PagePath& path);
  void PlaceHeadings(const section_index::entry& next, PagePath& path);
  void PlaceElement(std::list<Xport::xhtml_element>& elements, const Xport::ustring& picture_folder,
                    const Xport::ustring& picture_link);

  // pictures.cpp
  void RelocatePicture(std::list<Xport::xhtml_element>& elements,
                       const Xport::ustring& picture_folder, const Xport::ustring& picture_link);

  // templates.cpp
  void FlushTemplateSegment();

  platform::file_system& files;
  platform::url_opener& browser;

  std::unique_ptr<Xport::xhtml_doc> doc;  // the report page
  bool cursor_ready = false;              // whether `cursor` has been set
  Xport::markup_iterator table_pos;       // the open table on the page
  SavedTableState state;                  // the present state
  std::vector<SavedTableState> table_stack;
  Xport::xhtml_element section_table;    // the table being filled in section mode
  Xport::xhtml_element link_cell;        // the prepared cell of AddLink
  Xport::xhtml_element link_anchor;      // the prepared anchor of AddLink
  bool section_mode = false;             // content goes into the last section
  bool direct_links = false;             // but text and links stay on the page
  Xport::ustring pending_id;             // the `id` of the next heading, used once
  std::list<Xport::ustring> path_texts;  // headings queued for the next section
  std::list<std::int32_t> path_styles;
  std::list<ReportSection> sections;  // in order of creation, but for one that Save began
  field_texts template_fields;
  std::list<std::vector<Xport::markup_iterator>> template_segments;  // wait for the page
  Xport::xhtml_doc template_doc;                                     // the loaded template
};

#endif
