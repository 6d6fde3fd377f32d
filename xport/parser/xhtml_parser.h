#ifndef XPORT_PARSER_XHTML_PARSER_H
#define XPORT_PARSER_XHTML_PARSER_H

#include <cstdint>
#include <istream>
#include <memory>
#include <optional>
#include <ostream>

#include "xport/markup/node_memory.h"
#include "xport/markup/xhtml_element.h"
#include "xport/parser/character_reference.h"
#include "xport/stream/unit_input.h"
#include "xport/text/char16.h"
#include "xport/text/character_class.h"
#include "xport/vocabulary/tag_id.h"

namespace Xport {

/// The levels of messages, which are the bits of xhtml_parser::message_mask.
enum message_level : std::uint32_t {
  level_structure = 1,       ///< refused nodes, invalid tags, a bad "/>", a cut-off document
  level_end_tag = 2,         ///< end tags that don't match
  level_trace_elements = 4,  ///< each element that is read; not an error
  level_trace_end_tags = 8   ///< each end tag that is read; not an error
};

/// Reads a page into the children of a node. The parser never rejects a page: it repairs
/// misplaced nodes by local rules, at most reports a message, and stops only at the end of
/// the input. The insertion rules of the tree decide the shape of the result.
///
/// Use: set the options, load and index the references, then call parse_children(). Or let
/// parse_page() (read_document.h) perform all steps in order. A parser serves one page and
/// one thread.
///
/// The readers take units from the input's stream buffer and bypass the state of the stream.
/// Each reader leaves the cursor after the units that it used. Readers call each other
/// through the virtual table, so a derived class can replace any of them. Character classes
/// are those of the global locale at the start of the outermost call; for style text they are
/// those of the global locale at the time when it is read.
///
/// The caller owns a node that a reader returns. The node has no parent; the caller may
/// delete it or let any element of any tree adopt it.
///
/// Depth: if neither the parser nor the receiver is of a derived class, the machine stack
/// doesn't grow with the depth of the page. A derived parser, or a receiver of a derived
/// class, is used through its virtual operations: parse_children() is called for each adopted
/// node and uses some stack for each open element.
///
/// The input's buffer and the facets of a locale must not call the parser that uses them.
///
/// Throws what memory, the stream buffer and the message stream throw, and std::domain_error
/// ("pTag_trait invlaid") when an element without a rule record is asked for its end tag. The
/// tree then holds what was read so far.
class xhtml_parser {
 public:
  using input_type = std::basic_istream<char16>;
  using messages_type = std::basic_ostream<char16>;

  /// A parser that reads `stream`. Null is the same as an empty input.
  explicit xhtml_parser(input_type* stream) : input(stream) {}
  xhtml_parser(const xhtml_parser&) = delete;
  xhtml_parser& operator=(const xhtml_parser&) = delete;

  /// Deletes `input` if `owns_input`.
  virtual ~xhtml_parser();

  /// Fills `parent` from the input, up to its end tag or to the end of the input. Returns
  /// null, or a node that ends `parent` and that the caller must offer to the parent of
  /// `parent`: one that only that parent can contain, or its end tag. The caller owns it. The
  /// parent of `parent` is asked, so it must be alive. Takes time linear in the input.
  virtual xhtml_markup* parse_children(xhtml_markup* parent);

  /// Rewrites the spellings of characters in `text` to the preferred ones, by the three
  /// indexes. Units are looked up in `by_character` by their low 8 bits. Unknown and broken
  /// references stay.
  virtual void normalize_references(ustring& text);

  /// Reads a comment. The cursor is at the first "-" after "<!". Returns null if the input
  /// ends after that "-", and text if no second "-" follows.
  virtual xhtml_markup* read_comment(xhtml_markup* parent);

  /// Reads an end tag. The cursor is at the "/". Returns a node of no kind if the input ends
  /// before the ">".
  virtual xhtml_markup* read_end_tag();

  /// Reads a start tag and returns its element, without content. The cursor is after the
  /// "<". Returns text if the name is unknown and white space follows it.
  virtual xhtml_markup* read_start_tag(xhtml_markup* parent);

  /// Reads the next node of any kind for `parent`. Returns null at the end of the input.
  virtual xhtml_markup* read_next(xhtml_markup* parent);

  /// Reads character data. It begins with `prefix`, which was taken from the input before.
  /// If no text is left, reads and returns the node after it.
  virtual xhtml_markup* read_pcdata(xhtml_markup* parent, const ustring& prefix);

  /// Reads the whole content of a `pre` as one text, and consumes its end tag.
  virtual xhtml_markup* read_preformatted();

  /// Reads a processing instruction. The cursor is after the "<?".
  virtual xhtml_markup* read_processing_instruction();

  /// Reads whatever begins with the "<" at the cursor.
  virtual xhtml_markup* read_markup(xhtml_markup* parent);

  /// Whether `node` is an end tag that closes `parent`.
  virtual bool is_matching_end_tag(const xhtml_markup* parent, const xhtml_markup* node);

  /// Writes the line number and `text` to `messages` and flushes it. Does nothing if
  /// `messages` is null or `message_mask` has no bit of `level`.
  void report_message(ustring_view text, std::uint32_t level);

  /// Skips white space. Returns true if there was some, without a newline in it.
  bool skip_leading_space();

  /// Returns `prefix` followed by the text from the cursor up to and including the next ">".
  ustring read_declaration(ustring_view prefix);

  bool normalize_text = false;         ///< text goes through normalize_references
  std::uint32_t message_mask = 0;      ///< the levels to report
  bool preserve_newlines = false;      ///< text keeps its newlines
  bool owns_input = false;             ///< the destructor deletes the stream `input`
  std::uint32_t line = 1;              ///< the current line; readers don't count all newlines
  tag_id last_tag = tag_id::doc_root;  ///< stored by most readers; if `pre`, newlines stay
  input_type* input;                   ///< the stream that is read
  messages_type* messages = nullptr;   ///< receives messages, not owned; may be null
  references_by_character by_character;
  references_by_code by_code;
  references_by_name by_name;
  references_by_code references;  ///< the master table

 private:
  class place_scope;
  using held_node = std::unique_ptr<xhtml_markup>;

  unit_input units() const { return unit_input(input != nullptr ? input->rdbuf() : nullptr); }
  bool reports(std::uint32_t level) const {
    return messages != nullptr && (message_mask & level) != 0;
  }

  void report_encounter(const xhtml_markup& node, std::uint32_t level);
  void report_refusal(const xhtml_markup& parent, const xhtml_markup& refused, bool passes_up);
  void report_mismatch(const xhtml_markup& parent, const xhtml_markup& end_tag, bool passes_up);
  xhtml_markup* fill(xhtml_element& receiver);
  xhtml_markup* fill_by_calls(xhtml_markup& parent);
  bool adopt(xhtml_markup& parent, held_node& current, xhtml_markup*& child, bool leaves_pool);
  bool close(xhtml_markup& parent, held_node& current);
  void trim_last_text(xhtml_markup& parent);

  static constexpr node_place on_heap_{};

  // Not for `script`, where newlines are always kept.
  bool folds_newlines() const { return !preserve_newlines && last_tag != tag_id::pre; }

  bool skip_space();
  void append_run(ustring_view run);
  void gather_text(tag_id parent);
  void gather_newline(bool script);
  xhtml_markup* make_text(xhtml_markup* parent, ustring_view text);
  xhtml_markup* make_rewritten(ustring text);

  // See shortcuts.h.
  class plain_reader;
  std::optional<ustring_view> take_plain_text();

  std::optional<character_classes> classes_;  // holds a value during the outermost call
  const node_place* nodes_ = &on_heap_;       // where readers make nodes: see place_scope
  ustring gathered_;                          // see take_until()
  ustring text_;                              // the text that is being read
};

/// While it exists, the readers make their nodes at `where`, which must outlive it. Only fill() can
/// handle nodes in a pool, so it calls its readers in such a scope. The message stream may call
/// readers too; a scope of its own gives it nodes on the heap.
class xhtml_parser::place_scope {
 public:
  place_scope(xhtml_parser& parser, const node_place& where)
      : parser_(parser), before_(parser.nodes_) {
    parser_.nodes_ = &where;
  }
  place_scope(const place_scope&) = delete;
  place_scope& operator=(const place_scope&) = delete;
  ~place_scope() { parser_.nodes_ = before_; }

 private:
  xhtml_parser& parser_;
  const node_place* before_;
};

}  // namespace Xport

#endif
