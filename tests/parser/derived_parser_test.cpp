// Parsers and receivers of derived classes: every reader is called through the virtual table,
// and the caller owns what a reader returned.

#include <gtest/gtest.h>

#include <cstddef>
#include <memory>
#include <sstream>
#include <streambuf>
#include <string>
#include <utility>
#include <vector>

#include "tests/parser/reader_kit.h"
#include "tests/support/allocation_failure.h"
#include "tests/support/derived_nodes.h"
#include "tests/support/locale.h"
#include "tests/support/tree_check.h"
#include "tests/support/utf8.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/read_document.h"

namespace test {
namespace {

using owned_node = std::unique_ptr<xhtml_markup>;

/// A page with every construct, with short and long texts, and with recoveries.
ustring page_text() {
  const ustring longer(700, u'l');
  return u"<html><!-- stray --><head><title>" + longer + u"</title><style>p { color: red; }" +
         u"</style></head><body class='x' id='" + longer + u"'><p style='color: red'>a\n   b " +
         longer + u"<p>c<div>d</div></p><ul><li>e<li><!-- " + longer + u" --></ul><foo " + longer +
         u"><bar><b><i>g</b><pre>h\n</pre><table><tr><td>i<tr><td>j</table>k</td></tr></table>" +
         u"<?php " + longer + u"?><br/></x></body></html><li></html><";
}

// --- What a reader returned ---

/// Checks each node that a reader returned, and whether it has a parent.
class looking_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;

  int seen = 0;
  int with_parent = 0;

  xhtml_markup* read_next(xhtml_markup* parent) override {
    return look(xhtml_parser::read_next(parent));
  }
  xhtml_markup* read_start_tag(xhtml_markup* parent) override {
    return look(xhtml_parser::read_start_tag(parent));
  }
  xhtml_markup* parse_children(xhtml_markup* parent) override {
    return look(xhtml_parser::parse_children(parent));
  }

 private:
  xhtml_markup* look(xhtml_markup* node) {
    if (node == nullptr) return node;
    ++seen;
    if (node->parent() != nullptr) ++with_parent;
    return node;
  }
};

TEST(ReturnedNode, HasNoParent) {
  xhtml_doc doc(0);
  std::basic_istringstream<char16> input(page_text());
  looking_parser parser(&input);
  parse_page(parser, *doc.root());
  EXPECT_GT(parser.seen, 40);
  EXPECT_EQ(parser.with_parent, 0);
}

TEST(ReturnedNode, OfOurOwnParserIsTheCallersToo) {
  auto page = std::make_unique<xhtml_doc>(1);
  xhtml_doc other(1);
  xhtml_markup& p = *append_element(*page->body(), tag_id::p);
  parser_on<> parser(u"a<div title='a long title of the element'>b</div>");
  owned_node left(parser->parse_children(&p));
  ASSERT_NE(left, nullptr);
  EXPECT_EQ(left->parent(), nullptr);
  page.reset();
  EXPECT_FALSE(other.body()->adopt_child(left.get()) == other.body()->end());
  xhtml_markup& div = *left.release();
  EXPECT_EQ(parser->parse_children(&div), nullptr);
  EXPECT_EQ(outline_of_children(*other.body()), "div[title=\"a long title of the element\"]('b')");
}

/// Deletes each comment, and returns one of its own for it.
class deleting_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  xhtml_markup* read_comment(xhtml_markup* parent) override {
    delete xhtml_parser::read_comment(parent);
    return new xhtml_comment(u"mine");
  }
};

TEST(ReturnedNode, MayBeDeleted) {
  xhtml_doc doc(1);
  parser_on<deleting_parser> parser(u"<p>a<!-- " + ustring(700, u'l') + u" -->b<!--c--></p>");
  EXPECT_EQ(parser->parse_children(doc.body()), nullptr);
  EXPECT_EQ(outline_of_children(*doc.body()), "p('a' #mine# 'b' #mine#)");
}

/// Keeps each text in an element of another tree, and returns an instruction for it.
class hoarding_parser : public xhtml_parser {
 public:
  hoarding_parser(input_type* stream, xhtml_markup& hoard) : xhtml_parser(stream), hoard_(hoard) {}

  xhtml_markup* read_pcdata(xhtml_markup* parent, const ustring& prefix) override {
    owned_node node(xhtml_parser::read_pcdata(parent, prefix));
    if (node == nullptr || hoard_.adopt_child(node.get()) == hoard_.end()) return node.release();
    node.release();
    return new xhtml_processing_instruction(u"t");
  }

 private:
  xhtml_markup& hoard_;
};

TEST(ReturnedNode, MayBeAdoptedByAnElementOfItsOwn) {
  xhtml_element hoard(tag_id::p, {}, {});
  {
    xhtml_doc doc(1);
    std::basic_istringstream<char16> input(u"<p>a text that is long<b>c</b>d</p>");
    hoarding_parser parser(&input, hoard);
    EXPECT_EQ(parser.parse_children(doc.body()), nullptr);
    EXPECT_EQ(outline_of_children(*doc.body()), "p(?t? b(?t?) ?t?)");
  }
  *hoard.begin() << ustring(700, u'l');  // after the page was deleted
  EXPECT_TRUE(is_intact(hoard));
  EXPECT_EQ(outline_of_children(hoard),
            "'a text that is long" + std::string(700, 'l') + "' 'c' 'd'");
}

TEST(ReturnedNode, MayBeAdoptedByAnotherDocument) {
  xhtml_doc doc(1);
  {
    xhtml_doc other(1);
    std::basic_istringstream<char16> input(u"<p>a<b>c</b>d</p>");
    hoarding_parser parser(&input, *append_element(*other.body(), tag_id::p));
    EXPECT_EQ(parser.parse_children(doc.body()), nullptr);
    EXPECT_EQ(outline_of_children(*other.body()), "p('a' 'c' 'd')");
  }
  EXPECT_EQ(outline_of_children(*doc.body()), "p(?t? b(?t?) ?t?)");
}

/// Fills each element before it returns it, while the element has no parent.
class early_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  int leftovers = 0;

  xhtml_markup* read_start_tag(xhtml_markup* parent) override {
    owned_node node(xhtml_parser::read_start_tag(parent));
    const owned_node left(xhtml_parser::parse_children(node.get()));
    if (left != nullptr) ++leftovers;
    return node.release();
  }
};

// The second `p` is refused by the first one and by its parents, and is deleted
// with its text.
TEST(ReturnedNode, LeavesNothingOverWhileItHasNoParent) {
  xhtml_doc doc(1);
  xhtml_element heap(tag_id::body, {}, {});
  for (xhtml_markup* const receiver : {doc.body(), static_cast<xhtml_markup*>(&heap)}) {
    parser_on<early_parser> parser(u"<p>a<p>b</p>c</p>");
    EXPECT_EQ(parser->parse_children(receiver), nullptr);
    EXPECT_EQ(parser->leftovers, 0);
    EXPECT_EQ(outline_of_children(*receiver), "p('a' 'c')");
  }
}

/// Returns every two nodes in the opposite order.
class swapping_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  xhtml_markup* read_next(xhtml_markup* parent) override {
    if (held_ != nullptr) return held_.release();
    owned_node first(xhtml_parser::read_next(parent));
    if (first == nullptr || first->is_end_tag()) return first.release();
    held_ = std::move(first);
    owned_node second(xhtml_parser::read_next(parent));
    if (second == nullptr) return held_.release();
    return second.release();
  }

 private:
  owned_node held_;
};

TEST(ReturnedNode, MayBeReturnedLater) {
  xhtml_doc doc(1);
  parser_on<swapping_parser> parser(u"<!--a--><?b?><p></p><!--c-->");
  EXPECT_EQ(parser->parse_children(doc.body()), nullptr);
  // The `p` comes after its end tag, and so the last comment is in it.
  EXPECT_EQ(outline_of_children(*doc.body()), "?b? #a# p(#c#)");
  EXPECT_TRUE(is_intact(*doc.root()));
}

// --- Calls ---

/// Records which node is filled by each call, and how deep the calls are nested.
class noting_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  std::string calls;

  xhtml_markup* parse_children(xhtml_markup* parent) override {
    calls += (calls.empty() ? "" : " ") + std::to_string(depth_++) + outline_of_one(*parent);
    xhtml_markup* const left = xhtml_parser::parse_children(parent);
    --depth_;
    return left;
  }

 private:
  int depth_ = 0;
};

TEST(ParseChildren, IsCalledForEachNodeThatWasAdopted) {
  xhtml_element div(tag_id::div, {}, {});
  parser_on<noting_parser> parser(u"<p>a<b>c</b><br><!--d--></p>e");
  EXPECT_EQ(parser->parse_children(&div), nullptr);
  EXPECT_EQ(parser->calls, "0div 1p 2'a' 2b 3'c' 2br 2#d# 1'e'");
  EXPECT_EQ(outline_of_children(div), "p('a' b('c') br #d#) 'e'");
}

TEST(ParseChildren, LeftoverOfAChildIsDealtWithAsIfItHadBeenRead) {
  xhtml_doc doc(1);
  parser_on<noting_parser> parser(u"<p>a<p>b<div>c</div>");
  EXPECT_EQ(parser->parse_children(doc.body()), nullptr);
  EXPECT_EQ(outline_of_children(*doc.body()), "p('a') p('b') div('c')");
  EXPECT_EQ(parser->calls, "0body 1p 2'a' 1p 2'b' 1div 2'c'");
}

/// Reads the content of `b` as one text.
class skipping_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  xhtml_markup* parse_children(xhtml_markup* parent) override {
    if (parent->tag() != tag_id::b) return xhtml_parser::parse_children(parent);
    parent->append_text(u"skipped");
    return nullptr;
  }
};

TEST(ParseChildren, CanBeReplacedForInnerElements) {
  xhtml_doc doc(1);
  parser_on<skipping_parser> parser(u"<p><b>a<i>b</i></b></p>");
  EXPECT_EQ(parser->parse_children(doc.body()), nullptr);
  EXPECT_EQ(outline_of_children(*doc.body()), "p(b('skipped') 'a' i('b'))");
}

// --- Receivers ---

/// Adds what it is offered to another element.
struct forwarding_element : xhtml_element {
  explicit forwarding_element(xhtml_element& other)
      : xhtml_element(tag_id::div, {}, {}), target(other) {}
  markup_iterator adopt_child(xhtml_markup* node) override { return target.adopt_child(node); }
  xhtml_element& target;
};

TEST(DerivedReceiver, ContentIsAddedWhereAdoptChildPutsIt) {
  for (const bool derived : {false, true}) {
    xhtml_doc other(1);
    xhtml_element* const target = append_element(*other.body(), tag_id::div)->as_element();
    forwarding_element receiver(*target);
    std::basic_istringstream<char16> input(u"<p>a<b>c</b></p>d<p>e<p>f</p></div>g");
    std::unique_ptr<xhtml_parser> parser =
        derived ? std::make_unique<derived_parser>(&input) : std::make_unique<xhtml_parser>(&input);
    EXPECT_EQ(parser->parse_children(&receiver), nullptr);
    EXPECT_TRUE(receiver.begin() == receiver.end());
    EXPECT_TRUE(is_intact(*other.root()));
    EXPECT_EQ(outline_of_children(*target), "p('a' b('c')) 'd' p('e') p('f')");
  }
}

/// Counts the calls of can_contain(), and those for a node with a parent.
struct asked_element : xhtml_element {
  explicit asked_element(node_pool* content = nullptr)
      : xhtml_element(tag_id::div, {}, {}, content) {}
  bool can_contain(const xhtml_markup& node) const override {
    ++asked;
    if (node.parent() != nullptr) ++with_parent;
    return xhtml_element::can_contain(node);
  }
  mutable int asked = 0;
  mutable int with_parent = 0;
};

TEST(DerivedReceiver, ParentOfTheReceiverIsShownANodeWithoutAParent) {
  node_pool pool;
  for (node_pool* const content : {static_cast<node_pool*>(nullptr), &pool}) {
    asked_element above(content);
    xhtml_element& ul = *append_element(above, tag_id::ul)->as_element();
    EXPECT_EQ(ul.pool(), content);
    const int before = above.asked;
    parser_on<> parser(u"<li>a</li><td>");
    EXPECT_EQ(parser->parse_children(&ul), nullptr);
    EXPECT_EQ(above.asked - before, 1);
    EXPECT_EQ(above.with_parent, 0);
  }
}

/// Reports its kind as that of a comment, and must not be made to read anything.
struct silent_node : xhtml_markup {
  std::int32_t node_kind() const override { return 3; }
};

TEST(DerivedReceiver, NodeThatIsNoElementReadsNothing) {
  silent_node node;
  parser_on<> parser(u"<p>a");
  EXPECT_EQ(parser->parse_children(&node), nullptr);
  EXPECT_EQ(parser.rest(), "<p>a");
}

/// Claims to be an element of any kind, and gathers what it is offered.
struct gathering_node : xhtml_markup {
  tag_id tag() const override { return tag_id::div; }
  ustring tag_name() const override { return u"gathering"; }
  ustring end_tag_text() const override { return u"</gathering>"; }
  markup_iterator adopt_child(xhtml_markup* node) override { return content.adopt_child(node); }
  xhtml_element content{tag_id::div, {}, {}};
};

TEST(DerivedReceiver, MayBeNoElementOfOurs) {
  gathering_node node;
  parser_on<> parser(u"a<p>b</p><li></ul></div>c");
  EXPECT_EQ(parser->parse_children(&node), nullptr);
  EXPECT_EQ(outline_of_children(node.content), "'a' p('b')");
  EXPECT_EQ(parser.rest(), "c");
  EXPECT_NE(parser.messages().find("Couldn't insert <li> into <gathering>."), std::string::npos);
  EXPECT_NE(parser.messages().find("Expecting end tag </gathering>.  Encountered </ul>"),
            std::string::npos);
}

TEST(DerivedReceiver, LastTextIsTrimmedByItsOwnOperation) {
  struct untrimmed_text : xhtml_pcdata {
    using xhtml_pcdata::xhtml_pcdata;
    void trim_trailing_space() override { *this << u"!"; }
  };
  xhtml_doc doc(1);
  xhtml_markup& p = *append_element(*doc.body(), tag_id::p);
  p.adopt_child(new untrimmed_text(u"a "));
  parser_on<> parser(u"</p>");
  EXPECT_EQ(parser->parse_children(&p), nullptr);
  EXPECT_EQ(outline_of_children(p), "'a !'");
}

// --- What an operation fetches at its start ---

TEST(ParserLocale, IsThatAtTheStartOfEachParse) {
  const std::locale changed = locale_with(L'x', std::ctype_base::space);
  xhtml_element p(tag_id::p, {}, {});
  xhtml_element second(tag_id::p, {}, {});
  parser_on<> parser(u"axx</p>axx</p>axx</p>");
  delete parser->parse_children(&p);
  {
    const global_locale scope(changed);
    delete parser->parse_children(&second);
  }
  delete parser->parse_children(&p);
  EXPECT_EQ(outline_of_children(p), "'axx' 'axx'");
  EXPECT_EQ(outline_of_children(second), "'a'");
}

// Small letters and blanks differ from those in the locales of the standard library.
TEST(ParserLocale, EveryUnitIsAskedWhereTheClassesAreAHosts) {
  xhtml_element p(tag_id::p, {}, {});
  {
    const global_locale scope(locale_with(L'x', std::ctype_base::space));
    delete parser_on<>(u"<bxclass='a' >xxc</b><Bxidx='d' >")->parse_children(&p);
    EXPECT_EQ(outline_of_children(p), "b[class=\"a\"](' c') b[id=\"d\"]");
  }
  p.clear_children();
  {
    const global_locale scope(locale_with(L' ', std::ctype_base::punct));
    delete parser_on<>(u"<b>  a</b>")->parse_children(&p);
    EXPECT_EQ(outline_of_children(p), "b('  a')");
  }
}

TEST(ParserLocale, IsThatAtTheStartOfEachReader) {
  const std::locale changed = locale_with(L'x', std::ctype_base::space);
  xhtml_element p(tag_id::p, {}, {});
  parser_on<> parser(u"axx<axx<axx");
  EXPECT_EQ(shown(parser->read_pcdata(&p, {})), "'axx'");
  {
    const global_locale scope(changed);
    EXPECT_EQ(shown(parser->read_pcdata(&p, u"<")), "'<'") << "stops at once";
    parser->input->get();
    EXPECT_EQ(shown(parser->read_pcdata(&p, {})), "'a'");
  }
  parser->input->get();
  EXPECT_EQ(shown(parser->read_pcdata(&p, {})), "'axx'");
}

TEST(ParserLocale, OfAParseHoldsForItsReaders) {
  class changing_parser : public xhtml_parser {
   public:
    using xhtml_parser::xhtml_parser;
    xhtml_markup* read_comment(xhtml_markup* parent) override {
      std::locale::global(locale_with(L'x', std::ctype_base::space));
      return xhtml_parser::read_comment(parent);
    }
  };
  const global_locale restored{std::locale()};
  xhtml_element p(tag_id::p, {}, {});
  parser_on<changing_parser> parser(u"axx<!--bxx-->cxx</p>");
  delete parser->parse_children(&p);
  EXPECT_EQ(outline_of_children(p), "'axx' #bxx# 'cxx'");
}

// --- Calls from within ---

/// A stream of messages that reads a node with the parser whenever it is flushed.
class reading_messages : public std::basic_streambuf<char16> {
 public:
  xhtml_parser* parser = nullptr;
  xhtml_element keep{tag_id::p, {}, {}};
  int with_parent = 0;

 protected:
  int_type overflow(int_type unit) override { return traits_type::not_eof(unit); }
  int sync() override {
    owned_node node(parser->read_next(&keep));
    if (node == nullptr) return 0;
    if (node->parent() != nullptr) ++with_parent;
    if (keep.adopt_child(node.get()) != keep.end()) node.release();
    return 0;
  }
};

TEST(CallsFromWithin, StreamOfTheMessagesReadsNodesOfItsOwn) {
  reading_messages buffer;
  std::basic_ostream<char16> messages(&buffer);
  {
    xhtml_doc doc(1);
    std::basic_istringstream<char16> input(u"<p><li><b class='x'>a text</b><foo><i>c</i>d</p>");
    xhtml_parser parser(&input);
    buffer.parser = &parser;
    parser.messages = &messages;
    parser.message_mask = 1;
    EXPECT_EQ(parser.parse_children(doc.body()), nullptr);
    EXPECT_TRUE(is_intact(*doc.root()));
    EXPECT_EQ(outline_of_children(*doc.body()), "p('a text' 'c' 'd')");
  }
  EXPECT_EQ(buffer.with_parent, 0);
  EXPECT_EQ(outline_of_children(buffer.keep), "b[class=\"x\"] i");
}

/// Continues in another input at each instruction.
class including_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  std::basic_istringstream<char16> more{u"<p>included</p>"};

  xhtml_markup* read_processing_instruction() override {
    delete xhtml_parser::read_processing_instruction();
    input = &more;
    return new xhtml_comment(u"from here on");
  }
};

TEST(CallsFromWithin, InputThatAReaderExchangesStaysItsOwners) {
  const ustring text = u"\uFEFF<b>a</b><?x?><i>b</i>";
  for (const ustring& page : {text, swapped(text)}) {
    std::basic_istringstream<char16> input(page);
    including_parser parser(&input);
    xhtml_element div(tag_id::div, {}, {});
    parse_page(parser, div);
    EXPECT_EQ(outline_of_children(div), "b('a') #from here on# p('included')");
    EXPECT_EQ(parser.input, &parser.more);
  }
}

/// Reads on while a text is rewritten.
class looking_ahead_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  void normalize_references(ustring& text) override {
    ahead = read_declaration(u"");
    text += u"!";
  }
  ustring ahead;
};

TEST(CallsFromWithin, TextThatIsRewrittenIsNoneOfTheParsers) {
  xhtml_element p(tag_id::p, {}, {});
  parser_on<looking_ahead_parser> parser(u"hello<b>c");
  parser->normalize_text = true;
  EXPECT_EQ(shown(parser->read_pcdata(&p, {})), "'hello!'");
  EXPECT_EQ(printable(parser->ahead), "<b>");
}

// --- Where memory is refused ---

/// All of the above in one: deletes, replaces, adopts elsewhere and reorders.
class busy_parser : public xhtml_parser {
 public:
  busy_parser(input_type* stream, xhtml_markup& hoard) : xhtml_parser(stream), hoard_(hoard) {}

  xhtml_markup* read_comment(xhtml_markup* parent) override {
    delete xhtml_parser::read_comment(parent);
    return new xhtml_comment(u"mine");
  }
  xhtml_markup* read_pcdata(xhtml_markup* parent, const ustring& prefix) override {
    owned_node node(xhtml_parser::read_pcdata(parent, prefix));
    if (++texts_ % 3 != 0 || node == nullptr || node->category_flags() != 4) return node.release();
    if (hoard_.adopt_child(node.get()) == hoard_.end()) return node.release();
    return node.release()->clone();
  }
  xhtml_markup* read_start_tag(xhtml_markup* parent) override {
    owned_node node(xhtml_parser::read_start_tag(parent));
    const xhtml_element* const element = node->as_element();
    return element != nullptr ? new derived_element(*element) : node.release();
  }
  xhtml_markup* read_processing_instruction() override {
    owned_node node(xhtml_parser::read_processing_instruction());
    held_.swap(node);
    return node != nullptr ? node.release() : new xhtml_comment(u"first");
  }

 private:
  xhtml_markup& hoard_;
  owned_node held_;
  int texts_ = 0;
};

TEST(DerivedParserInRefusedMemory, LosesNothing) {
  for (const bool in_document : {false, true}) {
    const ustring text = page_text() + u"<?a?><?b?>";
    std::string whole;
    whole.reserve(10'000);  // not to be counted below
    const auto fails = [&](std::size_t number) {
      const std::size_t before = live_allocations();
      bool failed = false;
      {
        xhtml_doc doc(1);
        xhtml_element heap(tag_id::doc_root, {}, {});
        xhtml_element& receiver = in_document ? *doc.root() : heap;
        xhtml_doc other(1);
        std::basic_istringstream<char16> input(text);
        ustring_stream messages;
        busy_parser parser(&input, *append_element(*other.body(), tag_id::p));
        parser.messages = &messages;
        parser.message_mask = 15;
        failed = try_without_memory(number, [&] { parse_page(parser, receiver); }).ran_out;
        EXPECT_TRUE(is_intact(receiver));
        EXPECT_TRUE(is_intact(*other.root()));
        if (number == 0) whole = outline_of_children(receiver);
        if (!failed) {
          EXPECT_EQ(outline_of_children(receiver), whole);
        }
      }
      EXPECT_EQ(live_allocations(), before);
      return failed;
    };
    EXPECT_FALSE(fails(0));
    EXPECT_GT(for_each_allocation(fails), 100u);
  }
}

}  // namespace
}  // namespace test
