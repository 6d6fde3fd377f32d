// One call of parse_children: what it reads, what it returns, and what it does with the
// nodes that readers of a derived class return.

#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>

#include "tests/parser/parse_kit.h"
#include "tests/support/tree_check.h"
#include "tests/support/vocabulary_numbers.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/stream/ustring_stream.h"

namespace test {
namespace {

using owned_node = std::unique_ptr<xhtml_markup>;

const std::vector<tag_id> body_path = {tag_id::html, tag_id::body};
const std::vector<tag_id> p_path = {tag_id::html, tag_id::body, tag_id::p};

parse_result parse_in(const std::vector<tag_id>& path, ustring_view text, std::uint32_t mask = 0) {
  parse_case how;
  how.path = path;
  how.message_mask = mask;
  return parse(text, how);
}

// --- Receivers that can't have content ---

template <class Node>
std::string left_by(Node&& receiver) {
  std::basic_istringstream<char16> input(u" x<p>");
  xhtml_parser parser(&input);
  EXPECT_EQ(parser.parse_children(&receiver), nullptr);
  EXPECT_TRUE(receiver.begin() == receiver.end());
  EXPECT_EQ(parser.last_tag, tag_id::doc_root);
  std::string rest;
  for (auto unit = input.get(); input.good(); unit = input.get())
    rest += printable(ustring(1, static_cast<char16>(unit)));
  return rest;
}

TEST(Driver, EmptyElementReadsNothing) {
  for (const tag_id tag : {tag_id::br, tag_id::hr, tag_id::img, tag_id::area, tag_id::basefont})
    EXPECT_EQ(left_by(xhtml_element(tag, {}, {})), " x<p>");
}

TEST(Driver, ElementsWithoutRulesReadNothing) {
  for (const tag_id tag :
       {tag_id::invalid_tag, tag_id::center, tag_id{first_number_without_record}, tag_id{-1}})
    EXPECT_EQ(left_by(xhtml_element(tag, {}, {})), " x<p>");
}

TEST(Driver, LeavesReadNothing) {
  EXPECT_EQ(left_by(xhtml_pcdata(u"t")), " x<p>");
  EXPECT_EQ(left_by(xhtml_comment(u"t")), " x<p>");
  EXPECT_EQ(left_by(xhtml_processing_instruction(u"t")), " x<p>");
  EXPECT_EQ(left_by(xhtml_doctype_declaration()), " x<p>");
  EXPECT_EQ(left_by(xhtml_markup()), " x<p>");
}

// --- Each state and event ---

TEST(Driver, EndOfTheInputInTheReceiver) {
  const parse_result result = parse_in(p_path, u"a");
  EXPECT_EQ(result.children, "'a'");
  EXPECT_EQ(result.returned, "");
}

TEST(Driver, EndTagOfTheReceiverEndsTheCall) {
  const parse_result result = parse_in(p_path, u"a</p>b");
  EXPECT_EQ(result.children, "'a'");
  EXPECT_EQ(result.returned, "");
  EXPECT_EQ(result.rest, "b");
}

TEST(Driver, ElementForTheParentOfTheReceiver) {
  const parse_result result = parse_in(p_path, u"a<div class='x'>b</div>c", 15);
  EXPECT_EQ(result.children, "'a'");
  EXPECT_EQ(result.returned, "div");
  EXPECT_EQ(result.rest, "b</div>c");
  EXPECT_EQ(result.messages,
            message(1, "div encountered.\n") +
                message(1, "Couldn't insert <div> into <p>.\nEnding <p> element.\n"));
}

TEST(Driver, EndTagOfTheParentOfTheReceiver) {
  const parse_result result = parse_in(p_path, u"a </body>c", 15);
  EXPECT_EQ(result.children, "'a'");
  EXPECT_EQ(result.returned, "</body>");
  EXPECT_EQ(result.rest, "c");
  EXPECT_EQ(result.messages,
            message(1, "</body> encountered.\n") +
                message(1, "Expecting end tag </p>.  Encountered </body>\nEnding <13> element.\n"));
}

TEST(Driver, LeftoverOfAChildThatTheReceiverCannotUseEither) {
  // The li is for the ul above the receiver; the em below it asks only the receiver.
  const std::vector<tag_id> li_path = {tag_id::html, tag_id::body, tag_id::ul, tag_id::li};
  parse_result result = parse_in(li_path, u"<em>a<li>b</em><li>c");
  EXPECT_EQ(result.children, "em('a' 'b')");
  EXPECT_EQ(result.returned, "li");
  EXPECT_EQ(result.rest, "c");
  // A cell in an open cell is handed on by it and by the receiving row.
  const std::vector<tag_id> tr_path = {tag_id::html, tag_id::body, tag_id::table, tag_id::tr};
  result = parse_in(tr_path, u"<td>a</tr>b", 15);
  EXPECT_EQ(result.children, "td('a')");
  EXPECT_EQ(result.returned, "");
  EXPECT_EQ(result.rest, "b");
  EXPECT_EQ(result.messages,
            message(1, "td encountered.\n") + message(1, "</tr> encountered.\n") +
                message(1, "Expecting end tag </td>.  Encountered </tr>\nEnding <87> element.\n") +
                message(1, "</tr> encountered.\n"));
}

TEST(Driver, LeftoverIsANodeOfItsOwn) {
  xhtml_doc doc(1);
  xhtml_markup& p = *append_element(*doc.body(), tag_id::p);
  std::basic_istringstream<char16> input(
      u"a<div class='a value of more than a few units'>b</div>c");
  xhtml_parser parser(&input);
  owned_node left(parser.parse_children(&p));
  ASSERT_NE(left, nullptr);
  EXPECT_EQ(left->tag(), tag_id::div);
  EXPECT_EQ(left->parent(), nullptr);
  EXPECT_EQ(left->get_attribute(attr_id::class_), u"a value of more than a few units");

  // The parent accepts it and reads on, as the parser does for a child.
  const markup_iterator at = doc.body()->adopt_child(left.get());
  ASSERT_TRUE(at != doc.body()->end());
  xhtml_markup* const div = left.release();
  EXPECT_EQ(parser.parse_children(div), nullptr);
  EXPECT_EQ(outline_of_children(*doc.body()),
            "p('a') div[class=\"a value of more than a few units\"]('b')");
  EXPECT_TRUE(is_intact(*doc.root()));
}

TEST(Driver, LeftoverOutlivesItsTree) {
  owned_node element;
  owned_node end_tag;
  {
    xhtml_doc doc(1);
    xhtml_markup& p = *append_element(*doc.body(), tag_id::p);
    std::basic_istringstream<char16> input(u"<div title='long enough to need memory'></body>");
    xhtml_parser parser(&input);
    element.reset(parser.parse_children(&p));
    end_tag.reset(parser.parse_children(&p));
  }
  ASSERT_NE(element, nullptr);
  EXPECT_EQ(element->get_attribute(attr_id::title), u"long enough to need memory");
  ASSERT_NE(end_tag, nullptr);
  EXPECT_TRUE(end_tag->is_end_tag());
  EXPECT_EQ(end_tag->tag(), tag_id::body);
  EXPECT_EQ(end_tag->tag_name(), u"</body>");
}

TEST(Driver, ElementOnTheHeapHasNoParentToAsk) {
  xhtml_element p(tag_id::p, {}, {});
  std::basic_istringstream<char16> input(u"a<div>b</div></body>c</p>d");
  ustring_stream messages;
  xhtml_parser parser(&input);
  parser.messages = &messages;
  parser.message_mask = 3;
  EXPECT_EQ(parser.parse_children(&p), nullptr);
  EXPECT_EQ(outline_of_children(p), "'a' 'b' 'c'");
  EXPECT_EQ(
      printable(messages.str()),
      message(1, "Couldn't insert <div> into <p>.\nSkipping <div> tag.\n") +
          message(1, "Expecting end tag </p>.  Encountered </div>\nSkipping </div> tag.\n") +
          message(1, "Expecting end tag </p>.  Encountered </body>\nSkipping </body> tag.\n"));
}

TEST(Driver, ElementOnTheHeapBelowAnother) {
  xhtml_element body(tag_id::body, {}, {});
  xhtml_markup& p = *append_element(body, tag_id::p);
  std::basic_istringstream<char16> input(u"a<div>b");
  xhtml_parser parser(&input);
  const owned_node left(parser.parse_children(&p));
  ASSERT_NE(left, nullptr);
  EXPECT_EQ(left->tag(), tag_id::div);
}

TEST(Driver, CopyOfAnElementAsksTheParentOfTheOriginal) {
  xhtml_doc doc(1);
  const xhtml_markup& original = *append_element(*doc.body(), tag_id::p);
  const owned_node copy(original.clone());
  std::basic_istringstream<char16> input(u"a<div>b");
  xhtml_parser parser(&input);
  const owned_node left(parser.parse_children(copy.get()));
  ASSERT_NE(left, nullptr);
  EXPECT_EQ(left->tag(), tag_id::div);
  EXPECT_EQ(outline_of_children(*copy), "'a'");
}

TEST(Driver, PreAsTheReceiver) {
  const parse_result result =
      parse_in({tag_id::html, tag_id::body, tag_id::pre}, u"<b>a</b> </pre>c", 15);
  EXPECT_EQ(result.children, "'<b>a</b>'");
  EXPECT_EQ(result.rest, "c");
  EXPECT_EQ(result.messages, message(1, "<pre> encountered.\n"));
  EXPECT_EQ(result.returned, "");
}

TEST(Driver, StyleAsTheReceiver) {
  const parse_result result =
      parse_in({tag_id::html, tag_id::head, tag_id::style}, u"b { color: red; } </style>c");
  EXPECT_EQ(result.children, "'b { \n   color: red;\n}\n\n'");
  EXPECT_EQ(result.rest, "c");
}

TEST(Driver, OneParserFillsSeveralNodesInTurn) {
  xhtml_doc doc(0);
  xhtml_element heap(tag_id::div, {}, {});
  std::basic_istringstream<char16> input(u"<p>a</p></doc root><p>b</p></div><p>c");
  xhtml_parser parser(&input);
  EXPECT_EQ(parser.parse_children(doc.root()), nullptr);
  EXPECT_EQ(parser.parse_children(&heap), nullptr);
  EXPECT_EQ(parser.parse_children(doc.root()), nullptr);
  EXPECT_EQ(outline_of_children(*doc.root()), "p('a') p('c')");
  EXPECT_EQ(outline_of_children(heap), "p('b')");
  EXPECT_TRUE(is_intact(*doc.root()));
  EXPECT_TRUE(is_intact(heap));
}

// --- Nodes from the readers of a derived class ---

/// A node of no kind that returns a given tag and category.
class odd_node : public xhtml_markup {
 public:
  odd_node(tag_id tag, std::uint32_t category, int& deaths)
      : tag_(tag), category_(category), deaths_(deaths) {}
  ~odd_node() override { ++deaths_; }

  tag_id tag() const override { return tag_; }
  ustring tag_name() const override { return u"odd"; }
  std::uint32_t category_flags() const override { return category_; }

 private:
  tag_id tag_;
  std::uint32_t category_;
  int& deaths_;
};

/// Returns an odd node for each instruction.
class odd_parser : public xhtml_parser {
 public:
  odd_parser(input_type* stream, tag_id tag, std::uint32_t category, int& deaths)
      : xhtml_parser(stream), tag_(tag), category_(category), deaths_(deaths) {}

  xhtml_markup* read_processing_instruction() override {
    delete xhtml_parser::read_processing_instruction();
    return new odd_node(tag_, category_, deaths_);
  }

 private:
  tag_id tag_;
  std::uint32_t category_;
  int& deaths_;
};

struct odd_result {
  std::string children;
  std::string messages;
  int deaths;
};

odd_result parse_odd(const char16_t* text, tag_id tag, std::uint32_t category,
                     tag_id receiver_tag = tag_id::div) {
  odd_result result{};
  xhtml_doc doc(1);
  xhtml_markup& receiver = *append_element(*doc.body(), receiver_tag);
  std::basic_istringstream<char16> input(text);
  ustring_stream messages;
  odd_parser parser(&input, tag, category, result.deaths);
  parser.messages = &messages;
  parser.message_mask = 15;
  EXPECT_EQ(parser.parse_children(&receiver), nullptr);
  EXPECT_TRUE(is_intact(*doc.root()));
  result.children = outline_of_children(receiver);
  result.messages = printable(messages.str());
  doc.root()->clear_children();
  return result;
}

TEST(DerivedParser, NodeOfTheCategoryOfTextIsAcceptedWhereTextIs) {
  const odd_result result = parse_odd(u"a<?x?>b", tag_id::b, category_text);
  EXPECT_EQ(result.children, "'a' odd 'b'");
  EXPECT_EQ(result.messages, "");
  EXPECT_EQ(result.deaths, 1) << "with the tree";
}

TEST(DerivedParser, NodeOfTextThatIsNoElementIsRefusedSilently) {
  const odd_result result = parse_odd(u"<?x?>", tag_id::invalid_tag, category_text, tag_id::table);
  EXPECT_EQ(result.children, "");
  EXPECT_EQ(result.messages, "");
  EXPECT_EQ(result.deaths, 1);
}

TEST(DerivedParser, NodeOfTextThatSaysItIsAnElement) {
  const odd_result result = parse_odd(u"<?x?>", tag_id::b, category_text, tag_id::table);
  EXPECT_EQ(result.children, "");
  EXPECT_EQ(result.messages,
            message(1, "Couldn't insert pc data into <table>.\nSkipping pc data tag.\n"));
  EXPECT_EQ(result.deaths, 1);
}

TEST(DerivedParser, NodeOfNoKindThatSaysItIsAnElement) {
  const odd_result result = parse_odd(u"<p><?x?></p>", tag_id::b, category_inline);
  EXPECT_EQ(result.children, "p");
  EXPECT_EQ(result.messages,
            message(1, "p encountered.\n") +
                message(1, "Couldn't insert <odd> into <p>.\nSkipping <odd> tag.\n") +
                message(1, "</p> encountered.\n"));
  EXPECT_EQ(result.deaths, 1);
}

/// Makes elements of its own with new, and on request texts.
class heap_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;

  bool texts_too = false;

  xhtml_markup* read_start_tag(xhtml_markup* parent) override {
    const owned_node read(xhtml_parser::read_start_tag(parent));
    return new xhtml_element(read->tag(), {}, u"mine");
  }

  xhtml_markup* read_pcdata(xhtml_markup* parent, const ustring& prefix) override {
    owned_node read(xhtml_parser::read_pcdata(parent, prefix));
    if (!texts_too || read == nullptr || read->type() != node_type::pcdata) return read.release();
    return new xhtml_pcdata(read->as_text()->text());
  }
};

TEST(DerivedParser, NodesOfTheHeapInADocument) {
  for (const bool texts_too : {false, true}) {
    xhtml_doc doc(1);
    std::basic_istringstream<char16> input(
        u"<p title='x'>a text that is longer than a few units<b>c<!--d--></b></p><p>e<?f?>");
    heap_parser parser(&input);
    parser.texts_too = texts_too;
    EXPECT_EQ(parser.parse_children(doc.body()), nullptr);
    EXPECT_EQ(outline_of_children(*doc.body()),
              "p[class=\"mine\"]('a text that is longer than a few units' "
              "b[class=\"mine\"]('c' #d#)) p[class=\"mine\"]('e' ?f?)");
    EXPECT_TRUE(is_intact(*doc.root()));
    doc.body()->begin()->push_back_text(u"more");
    doc.body()->as_element()->clear_children();
  }
}

TEST(DerivedParser, LeftoverOfTheHeapMovesUpIntoTheDocument) {
  xhtml_doc doc(1);
  std::basic_istringstream<char16> input(u"<p>a<p>b<div>c</b></div>d<p>e");
  heap_parser parser(&input);
  EXPECT_EQ(parser.parse_children(doc.body()), nullptr);
  EXPECT_EQ(outline_of_children(*doc.body()),
            "p[class=\"mine\"]('a') p[class=\"mine\"]('b') div[class=\"mine\"]('c') "
            "p[class=\"mine\"]('e')");
  EXPECT_TRUE(is_intact(*doc.root()));
}

/// Accepts any end tag as the one that closes the open element.
class lenient_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  bool is_matching_end_tag(const xhtml_markup*, const xhtml_markup* node) override {
    return node->is_end_tag();
  }
};

TEST(DerivedParser, DecidesWhatMatches) {
  xhtml_element div(tag_id::div, {}, {});
  std::basic_istringstream<char16> input(u"<p>a<b>c</x>d</y>e</z>f");
  lenient_parser parser(&input);
  EXPECT_EQ(parser.parse_children(&div), nullptr);
  EXPECT_EQ(outline_of_children(div), "p('a' b('c') 'd') 'e'");
  EXPECT_EQ(input.rdbuf()->sgetc(), u'f');
}

/// Ends each element at the sign "|".
class short_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  xhtml_markup* read_next(xhtml_markup* parent) override {
    if (input->rdbuf()->sgetc() != u'|') return xhtml_parser::read_next(parent);
    input->rdbuf()->sbumpc();
    return nullptr;
  }
};

TEST(DerivedParser, NothingReadEndsOneElement) {
  xhtml_element div(tag_id::div, {}, {});
  std::basic_istringstream<char16> input(u"<p>a<b>|<i>|</p><em>|<p>c");
  short_parser parser(&input);
  EXPECT_EQ(parser.parse_children(&div), nullptr);
  EXPECT_EQ(outline_of_children(div), "p('a' b i) em p('c')");
  std::basic_istringstream<char16> more(u"d<b>|</b>|e");
  xhtml_element p(tag_id::p, {}, {});
  short_parser next(&more);
  EXPECT_EQ(next.parse_children(&p), nullptr);
  EXPECT_EQ(outline_of_children(p), "'d' b");
  EXPECT_EQ(more.rdbuf()->sgetc(), u'e');
}

/// Counts how often the driver calls its readers.
class counting_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  int texts = 0;
  int start_tags = 0;
  int end_tags = 0;
  int comments = 0;

  xhtml_markup* read_pcdata(xhtml_markup* parent, const ustring& prefix) override {
    ++texts;
    return xhtml_parser::read_pcdata(parent, prefix);
  }
  xhtml_markup* read_start_tag(xhtml_markup* parent) override {
    ++start_tags;
    return xhtml_parser::read_start_tag(parent);
  }
  xhtml_markup* read_end_tag() override {
    ++end_tags;
    return xhtml_parser::read_end_tag();
  }
  xhtml_markup* read_comment(xhtml_markup* parent) override {
    ++comments;
    return xhtml_parser::read_comment(parent);
  }
};

TEST(DerivedParser, ReadersCallEachOtherThroughTheTable) {
  xhtml_doc doc(1);
  std::basic_istringstream<char16> input(
      u"<p>a<b>c</b></p>\n<p>d</p><!--e--><!-f<foo g></p></body>");
  counting_parser parser(&input);
  EXPECT_EQ(parser.parse_children(doc.body()), nullptr);
  EXPECT_EQ(outline_of_children(*doc.body()), "p('a' b('c')) p('d') #e#");
  EXPECT_EQ(parser.start_tags, 4);  // with <foo g>
  EXPECT_EQ(parser.end_tags, 5);
  EXPECT_EQ(parser.comments, 2);
  EXPECT_EQ(parser.texts, 6);  // a, c, the newline, d, "<-f", "<foo  g>"
}

/// Fills a node of its own for each comment.
class nested_parser : public xhtml_parser {
 public:
  using xhtml_parser::xhtml_parser;
  xhtml_markup* read_comment(xhtml_markup* parent) override {
    delete xhtml_parser::read_comment(parent);
    auto box = std::make_unique<xhtml_element>(tag_id::span, ustring_view{}, ustring_view{});
    const owned_node left(parse_children(box.get()));
    return box.release();
  }
};

TEST(DerivedParser, FillsAnotherNodeInBetween) {
  xhtml_doc doc(1);
  xhtml_markup& p = *append_element(*doc.body(), tag_id::p);
  std::basic_istringstream<char16> input(u"<b>a<!--x-->in<i>side</i></span>c</b>d");
  nested_parser parser(&input);
  EXPECT_EQ(parser.parse_children(&p), nullptr);
  // A node that a reader returned is then filled from where it left off, as any other element.
  EXPECT_EQ(outline_of_children(p), "b('a' span('in' i('side') 'c')) 'd'");
  EXPECT_TRUE(is_intact(*doc.root()));
}

/// Fills a document of its own at each instruction, and then reads the instruction.
class two_page_parser : public xhtml_parser {
 public:
  two_page_parser(input_type* stream, xhtml_doc& other) : xhtml_parser(stream), other_(other) {}
  xhtml_markup* read_processing_instruction() override {
    const owned_node left(parse_children(other_.root()));
    return xhtml_parser::read_processing_instruction();
  }

 private:
  xhtml_doc& other_;
};

TEST(DerivedParser, FillsAnotherDocumentInBetween) {
  auto other = std::make_unique<xhtml_doc>(0);
  xhtml_doc doc(1);
  xhtml_element heap(tag_id::div, {}, {});
  std::basic_istringstream<char16> input(u"<p><?<b>a</doc root>c?></p>d");
  two_page_parser parser(&input, *other);
  EXPECT_EQ(parser.parse_children(doc.body()), nullptr);
  std::basic_istringstream<char16> more(u"<p><?<i>b</doc root>d?></p>e");
  parser.input = &more;
  EXPECT_EQ(parser.parse_children(&heap), nullptr);
  EXPECT_EQ(outline_of_children(*other->root()), "b('a') i('b')");
  other.reset();
  EXPECT_EQ(outline_of_children(*doc.body()), "p(?c?)");
  EXPECT_EQ(outline_of_children(heap), "p(?d?) 'e'");
}

}  // namespace
}  // namespace test
