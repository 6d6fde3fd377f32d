// Readers with which a derived class replaces the parser's own.

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

#include "tests/parser/reader_kit.h"
#include "tests/support/tree_check.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"

namespace test {
namespace {

/// Records which readers are called, and leaves the work to the base class.
class noting_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;

  std::string calls;

  void normalize_references(ustring& text) override {
    note("references");
    xhtml_parser::normalize_references(text);
  }
  xhtml_markup* read_comment(xhtml_markup* parent) override {
    note("comment");
    return xhtml_parser::read_comment(parent);
  }
  xhtml_markup* read_end_tag() override {
    note("end_tag");
    return xhtml_parser::read_end_tag();
  }
  xhtml_markup* read_start_tag(xhtml_markup* parent) override {
    note("start_tag");
    return xhtml_parser::read_start_tag(parent);
  }
  xhtml_markup* read_next(xhtml_markup* parent) override {
    note("next");
    return xhtml_parser::read_next(parent);
  }
  xhtml_markup* read_pcdata(xhtml_markup* parent, const ustring& prefix) override {
    note("pcdata[" + printable(prefix) + "]");
    return xhtml_parser::read_pcdata(parent, prefix);
  }
  xhtml_markup* read_preformatted() override {
    note("preformatted");
    return xhtml_parser::read_preformatted();
  }
  xhtml_markup* read_processing_instruction() override {
    note("instruction");
    return xhtml_parser::read_processing_instruction();
  }
  xhtml_markup* read_markup(xhtml_markup* parent) override {
    note("markup");
    return xhtml_parser::read_markup(parent);
  }
  bool is_matching_end_tag(const xhtml_markup* parent, const xhtml_markup* node) override {
    note("matching");
    return xhtml_parser::is_matching_end_tag(parent, node);
  }

 private:
  void note(const std::string& call) { calls += (calls.empty() ? "" : " ") + call; }
};

/// The calls for one node of `text` in an element `parent`, with references rewritten.
std::string calls_for(ustring_view text, tag_id parent) {
  xhtml_element element(parent, {}, {});
  parser_on<noting_parser> parser(text);
  parser->normalize_text = true;
  delete parser->read_next(&element);
  return parser->calls;
}

TEST(ReaderCalls, EachReaderIsCalledThroughTheVirtualTable) {
  EXPECT_EQ(calls_for(u"", tag_id::div), "next");
  EXPECT_EQ(calls_for(u"a", tag_id::div), "next pcdata[] references");
  EXPECT_EQ(calls_for(u"\n<p>", tag_id::div), "next pcdata[] next markup start_tag");
  EXPECT_EQ(calls_for(u"\n", tag_id::div), "next pcdata[] next");
  EXPECT_EQ(calls_for(u"a", tag_id::script), "next pcdata[]");
  EXPECT_EQ(calls_for(u"a", tag_id::style), "next pcdata[]");
  EXPECT_EQ(calls_for(u"a", tag_id::pre), "next pcdata[] preformatted");
  EXPECT_EQ(calls_for(u"<b>", tag_id::pre), "next pcdata[] preformatted");
  EXPECT_EQ(calls_for(u"<p>", tag_id::div), "next markup start_tag");
  EXPECT_EQ(calls_for(u"<foo>", tag_id::div), "next markup start_tag");
  EXPECT_EQ(calls_for(u"<foo a>", tag_id::div), "next markup start_tag pcdata[<foo ] references");
  EXPECT_EQ(calls_for(u"</p>", tag_id::div), "next markup end_tag");
  EXPECT_EQ(calls_for(u"<!--a-->", tag_id::div), "next markup comment");
  EXPECT_EQ(calls_for(u"<!-a", tag_id::div), "next markup comment pcdata[<-] references");
  EXPECT_EQ(calls_for(u"<!a>", tag_id::div), "next markup");
  EXPECT_EQ(calls_for(u"<?a?>", tag_id::div), "next markup instruction");
  EXPECT_EQ(calls_for(u"<", tag_id::div), "next markup");
}

TEST(ReaderCalls, ThoseOfAParse) {
  xhtml_doc doc(0);
  parser_on<noting_parser> parser(u"<p>a<!--b--></p>c");
  EXPECT_EQ(shown(parser->parse_children(doc.root())), "null");
  EXPECT_EQ(outline_of_children(*doc.root()), "p('a' #b#) 'c'");
  EXPECT_EQ(parser->calls,
            "next markup start_tag next pcdata[] next markup comment next markup end_tag matching "
            "next pcdata[] next");
}

/// Returns nodes of its own instead of those read.
class replacing_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;

  xhtml_markup* read_comment(xhtml_markup* parent) override {
    delete xhtml_parser::read_comment(parent);
    return made(u"C", parent);
  }
  xhtml_markup* read_start_tag(xhtml_markup* parent) override {
    delete xhtml_parser::read_start_tag(parent);
    return new xhtml_element(tag_id::hr, u"S", {});
  }
  xhtml_markup* read_end_tag() override {
    delete xhtml_parser::read_end_tag();
    return new xhtml_comment(u"E");
  }
  xhtml_markup* read_processing_instruction() override {
    delete xhtml_parser::read_processing_instruction();
    return new xhtml_end_tag(u"</foo>");
  }
  xhtml_markup* read_pcdata(xhtml_markup* parent, const ustring& prefix) override {
    delete xhtml_parser::read_pcdata(parent, prefix);
    return made(prefix.empty() ? u"T" : u"P", parent);
  }

 private:
  static xhtml_markup* made(ustring_view text, const xhtml_markup* parent) {
    return new xhtml_pcdata(ustring(text) + u" in " + parent->tag_name());
  }
};

TEST(ReplacedReaders, NodesOfADerivedClassGoIntoTheTree) {
  xhtml_doc doc(0);
  xhtml_markup& div = *append_element(*doc.root(), tag_id::div);
  parser_on<replacing_parser> parser(u"a<!--b--><p>c</q><?x?>d<foo x>e<!-f");
  parser->message_mask = 3;
  EXPECT_EQ(shown(parser->parse_children(&div)), "null");
  EXPECT_EQ(outline_of_children(div),
            "'T in div' 'C in div' hr[id=\"S\"] 'T in div' #E# 'T in div' hr[id=\"S\"] 'C in div'");
  EXPECT_TRUE(is_intact(*doc.root()));
  EXPECT_EQ(parser.messages(), message(1,
                                       "Expecting end tag </div>.  Encountered </foo>\n"
                                       "Skipping </foo> tag.\n"));
}

/// Stops before every comment.
class stopping_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  xhtml_markup* read_comment(xhtml_markup*) override { return nullptr; }
};

TEST(ReplacedReaders, NullEndsTheElementThatIsOpen) {
  xhtml_element div(tag_id::div, {}, {});
  parser_on<stopping_parser> parser(u"a<p>b<!--c");
  delete parser->parse_children(&div);
  // The parents read on after "<!".
  EXPECT_EQ(outline_of_children(div), "'a' p('b') '--c'");
}

/// Accepts any end tag as the one that is due.
class lenient_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  bool is_matching_end_tag(const xhtml_markup*, const xhtml_markup* node) override {
    return node->is_end_tag();
  }
};

TEST(ReplacedReaders, MatchingIsAskedOfADerivedClass) {
  xhtml_element div(tag_id::div, {}, {});
  parser_on<lenient_parser> parser(u"<p><b>a</x>b</y>c</z>d");
  EXPECT_EQ(shown(parser->parse_children(&div)), "null");
  EXPECT_EQ(outline_of_children(div), "p(b('a') 'b') 'c'");
  EXPECT_EQ(parser.rest(), "d");
}

TEST(IsMatchingEndTag, ComparesKindAndTag) {
  const xhtml_element p(tag_id::p, {}, {});
  const xhtml_element other(tag_id::p, {}, {});
  const xhtml_element invalid(tag_id::invalid_tag, {}, {});
  const xhtml_element font(tag_id::font, {}, {});
  xhtml_parser parser(nullptr);
  const auto matches = [&parser](const xhtml_markup& parent, ustring_view token) {
    const xhtml_end_tag end_tag{ustring(token)};
    return parser.is_matching_end_tag(&parent, &end_tag);
  };
  EXPECT_TRUE(matches(p, u"</P>"));
  EXPECT_FALSE(matches(p, u"</p >"));
  EXPECT_FALSE(matches(p, u"</b>"));
  EXPECT_TRUE(matches(invalid, u"</x>"));
  EXPECT_FALSE(matches(font, u"</font>"));  // the element has no tag, the end tag has
  EXPECT_TRUE(matches(font, u"</x>"));
  EXPECT_FALSE(parser.is_matching_end_tag(&p, &other));
}

}  // namespace
}  // namespace test
