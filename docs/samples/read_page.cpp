#include <sstream>

#include "xport/markup/descendant_markup_iterator.h"
#include "xport/parser/read_document.h"
#include "xport/stream/ustring_stream.h"

// Reads a page whose paragraphs aren't closed, and adds to the second one. Returns 0 if all
// is as the comments say.
int main() {
  std::basic_istringstream<char16_t> input(u"<html><body><p>One<p id='two'>Two</p></body></html>");
  Xport::ustring_stream messages;

  Xport::xhtml_parser parser(&input);
  parser.messages = &messages;
  parser.message_mask = Xport::level_structure | Xport::level_end_tag;

  Xport::xhtml_doc page(0);
  Xport::parse_page(parser, *page.root());
  page.reindex();

  // The messages tell what the parser repaired.
  if (messages.str() !=
      u"line #1:\n"
      u"Couldn't insert <p> into <p>.\n"
      u"Ending <p> element.\n\n")
    return 1;

  // The tree can be searched, changed and written.
  const auto second = find_by_id(page.descendant_begin(), page.descendant_end(), u"two");
  second->append_text(u" and more");
  return second->begin() != second->end() && page.body() == second->parent() ? 0 : 2;
}
