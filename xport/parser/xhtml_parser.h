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

/// Levels of messages: the bits of xhtml_parser::message_mask.
enum message_level : std::uint32_t {
  level_structure = 1,       ///< refused nodes, invalid tags, a bad "/>", a cut-off document
  level_end_tag = 2,         ///< end tags that don't match
  level_trace_elements = 4,  ///< each element that is read; no error
  level_trace_end_tags = 8   ///< each end tag that is read; no error
};

/// Reads a page into the children of a node. It never rejects one: what doesn't fit
/// is repaired by local rules and costs a message at most, and only the end of the
/// input stops it. The insertion rules of the tree decide the shape of the result.
///
/// Use: set the options, load and index the references, then parse_children; or
/// let parse_page (read_document.h) do all steps in their order. A parser serves
/// one page and one thread.
///
/// The readers take units from the input's stream buffer, past the stream's state. Each
/// leaves the cursor after what it used, and calls the others through the virtual
/// table, so that a derived class can put one of its own in their place. Character classes
/// are those of the global locale when the outermost call began; style text uses the
/// global locale at the moment when it is read.
///
/// The caller owns a node that a reader returned. The node has no parent; it may be
/// deleted, and adopted by any element of any tree.
///
/// Depth. A parser of this class, filling an element of our own class, takes no machine
/// stack by the depth of the page. A derived parser, or a receiver of a derived class,
/// is used as its virtual operations say: parse_children() is called for each node that
/// was adopted, and so takes some of the stack for each open element.
///
/// The buffer of the input and the facets of a locale must not call the parser that uses them.
///
/// Exceptions: those of memory, of the stream buffer and of the message
/// stream, and std::domain_error ("pTag_trait invlaid") where an element without a
/// rule record is asked for its end tag. The tree then holds what was read so far.
class xhtml_parser {
 public:
  using input_type = std::basic_istream<char16>;
  using messages_type = std::basic_ostream<char16>;

  /// A parser of `stream`, which may be null, the same as an empty input.
  explicit xhtml_parser(input_type* stream) : input(stream) {}
  xhtml_parser(const xhtml_parser&) = delete;
  xhtml_parser& operator=(const xhtml_parser&) = delete;

  /// Deletes the stream behind `input` if `owns_input`.
  virtual ~xhtml_parser();

  /// Fills `parent` from the input up to its end tag, or to the end of the input.
  /// A result that isn't null is a node which `parent` couldn't use and its own parent
  /// can; the caller owns it. That parent is asked, so it must be alive. Takes time linear
  /// in the input.
  virtual xhtml_markup* parse_children(xhtml_markup* parent);

  /// Rewrites each spelling of a character in `text` to the preferred one, by the
  /// three indexes. Keys of characters are cut to their low 8 bits. References that
  /// aren't known or are broken stay.
  virtual void normalize_references(ustring& text);

  /// A comment; the cursor is on the first "-" behind "<!". Null if the input ends
  /// behind it. Text if no second "-" follows.
  virtual xhtml_markup* read_comment(xhtml_markup* parent);

  /// An end tag; the cursor is on the "/". A node of no kind if the input ends
  /// before ">".
  virtual xhtml_markup* read_end_tag();

  /// An element without its content; the cursor is behind "<". Text if the name is
  /// unknown and white space follows it.
  virtual xhtml_markup* read_start_tag(xhtml_markup* parent);

  /// The next node of any kind for `parent`; null at the end of the input.
  virtual xhtml_markup* read_next(xhtml_markup* parent);

  /// Character data behind `prefix`, which was taken from the input already. If
  /// nothing is left of it, the node behind it.
  virtual xhtml_markup* read_pcdata(xhtml_markup* parent, const ustring& prefix);

  /// The whole content of a `pre`, through its end tag, as one text.
  virtual xhtml_markup* read_preformatted();

  /// An instruction; the cursor is behind "<?".
  virtual xhtml_markup* read_processing_instruction();

  /// Whatever the "<" begins on which the cursor is.
  virtual xhtml_markup* read_markup(xhtml_markup* parent);

  /// Whether `node` is an end tag and closes `parent`.
  virtual bool is_matching_end_tag(const xhtml_markup* parent, const xhtml_markup* node);

  /// Writes the line number and `text` to `messages`, if there is such a stream and
  /// `message_mask` has a bit of `level`; then flushes.
  void report_message(ustring_view text, std::uint32_t level);

  /// Moves over white space. True if there was some and no newline in it.
  bool skip_leading_space();

  /// `prefix` and the text from the cursor up to and with the next ">".
  ustring read_declaration(ustring_view prefix);

  bool normalize_text = false;         ///< text goes through normalize_references
  std::uint32_t message_mask = 0;      ///< the levels that are reported
  bool preserve_newlines = false;      ///< text keeps its newlines
  bool owns_input = false;             ///< the destructor deletes the stream `input`
  std::uint32_t line = 1;              ///< the current line, as far as the readers count
  tag_id last_tag = tag_id::doc_root;  ///< what the last reader stored
  input_type* input;                   ///< what is read
  messages_type* messages = nullptr;   ///< where messages go, not owned; null: nowhere
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

  // Outside `script`, which keeps its newlines.
  bool folds_newlines() const { return !preserve_newlines && last_tag != tag_id::pre; }

  bool skip_space();
  void append_run(ustring_view run);
  void gather_text(tag_id parent);
  void gather_newline(bool script);
  xhtml_markup* make_text(xhtml_markup* parent, ustring_view text);
  xhtml_markup* make_rewritten(ustring text);

  // See shortcuts.h.
  std::optional<ustring_view> take_plain_text();
  bool take_plain_end_tag(const Tag_trait& rules);

  std::optional<character_classes> classes_;  // during the outermost call
  const node_place* nodes_ = &on_heap_;       // where readers make nodes: see place_scope
  ustring gathered_;                          // what isn't whole in the input's window
  ustring text_;                              // a text that is being read
};

/// Lets readers make nodes at `where`, which must outlive it, in its lifetime. Nodes outside the
/// heap are for fill() alone, which calls its readers in such a scope. The stream of the messages
/// may call readers meanwhile; it gets nodes on the heap.
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
