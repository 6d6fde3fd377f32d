#ifndef BENCH_PAGE_TREE_H
#define BENCH_PAGE_TREE_H

#include <string>

#include "bench/workload.h"

namespace bench {

/// A text in UTF-8 and in UTF-16.
struct word {
  const char* narrow;
  const char16_t* wide;
};

/// The longer texts of a page. They live as long as the program.
struct page_words {
  static const page_words& get() {
    static const page_words words;
    return words;
  }

  word title() const { return {page_title, title_.c_str()}; }
  word stylesheet() const { return {page_stylesheet, stylesheet_.c_str()}; }
  word heading() const { return {page_heading, heading_.c_str()}; }

 private:
  const std::u16string title_ = widen(page_title);
  const std::u16string stylesheet_ = widen(page_stylesheet);
  const std::u16string heading_ = widen(page_heading);
};

/// Builds the tree of a page below `html` through the calls of an XML library: `to` has
/// add(parent, name), which returns the new element, text(parent, text) and
/// attribute(element, name, value). Names and texts are given as a word.
template <typename node, typename library>
void build_page(const library& to, node html, const workload& work) {
  const page_words& words = page_words::get();
  const node head = to.add(html, {"head", u"head"});
  to.text(to.add(head, {"title", u"title"}), words.title());
  const node style = to.add(head, {"style", u"style"});
  to.attribute(style, {"type", u"type"}, {"text/css", u"text/css"});
  to.text(style, words.stylesheet());
  const node body = to.add(html, {"body", u"body"});
  const node heading = to.add(body, {"h1", u"h1"});
  to.attribute(heading, {"class", u"class"}, {"Style1", u"Style1"});
  to.text(heading, words.heading());
  const node block = to.add(body, {"p", u"p"});
  for (std::size_t item = 0; item < work.lines(); ++item) {
    to.text(to.add(block, {"a", u"a"}), {work.narrow(item), work.wide(item)});
    to.add(block, {"br", u"br"});
  }
  if (work.lines() < work.items()) {
    const node table = to.add(body, {"table", u"table"});
    to.attribute(table, {"border", u"border"}, {"1", u"1"});
    to.attribute(table, {"class", u"class"}, {"main", u"main"});
    to.attribute(table, {"width", u"width"}, {"100%", u"100%"});
    node row = table;
    for (std::size_t item = work.lines(); item < work.items(); ++item) {
      if ((item - work.lines()) % work.columns() == 0) row = to.add(table, {"tr", u"tr"});
      const node cell = to.add(row, {"td", u"td"});
      to.attribute(cell, {"valign", u"valign"}, {"top", u"top"});
      to.text(cell, {work.narrow(item), work.wide(item)});
    }
    to.add(body, {"p", u"p"});
  }
  to.add(body, {"p", u"p"});
}

/// What a doctype declaration holds: the name and the identifiers.
inline std::string doctype_text() {
  return std::string(doctype_name) + " PUBLIC \"" + doctype_public_id + "\" \"" +
         doctype_system_id + "\"";
}

}  // namespace bench

#endif
