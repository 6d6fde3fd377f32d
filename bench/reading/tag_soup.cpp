#include "bench/reading/tag_soup.h"

#include <cstdint>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace bench {

namespace {

using text = std::u16string_view;

// With blanks between them.
constexpr text word_list =
    u"the of and a to in is you that it he was for on are as with his they I at be "
    u"this have from or one had by word but not what all were we when your can said "
    u"there use an each which she do how their if will up other about out many then "
    u"them these so some her would make like him into time has look two more write go "
    u"see number way could people than first water been called who oil its now find "
    u"long down day did get come made may part measured pressure voltage interval "
    u"sequence instrument calibration don't isn't users' e.g. 1999, (3.14) 50% "
    u"caf\u00E9 \u00FCber na\u00EFve \u2013 \u201Cso\u201D \u65E5\u672C \U0001F600";
constexpr text references[] = {u"&amp;",   u"&nbsp;",    u"&lt;",    u"&gt;",
                               u"&copy;",  u"&eacute;",  u"&#8217;", u"&#169;",
                               u"&mdash;", u"&unknown;", u"AT&T",    u"&"};
constexpr text unknown_names[] = {u"blink", u"nobr", u"xnote", u"acme", u"spacer2", u"wbrx"};
constexpr text stray_end_tags[] = {u"</font>", u"</xnote>", u"</span>", u"</b>",
                                   u"</i>",    u"</nobr>",  u"</foo >", u"</a>"};
constexpr text attribute_names[] = {u"class", u"id",    u"title", u"align",
                                    u"name",  u"width", u"lang",  u"onclick"};

std::vector<text> split_at_blanks(text list) {
  std::vector<text> parts;
  for (std::size_t end = list.find(u' '); end != text::npos; end = list.find(u' ')) {
    parts.push_back(list.substr(0, end));
    list.remove_prefix(end + 1);
  }
  parts.push_back(list);
  return parts;
}

/// The generator of the page's choices: 64 bits of state, steps of a linear congruence
/// and an output stirred from it.
class choices {
 public:
  /// A number below `limit`.
  std::size_t below(std::size_t limit) {
    state_ = state_ * 6364136223846793005u + 1442695040888963407u;
    const std::uint64_t stirred = (state_ ^ (state_ >> 31)) * 0x9E3779B97F4A7C15u;
    return static_cast<std::size_t>((stirred >> 32) * limit >> 32);
  }

  bool percent(std::size_t share) { return below(100) < share; }

  text one_of(std::span<const text> list) { return list[below(list.size())]; }

 private:
  std::uint64_t state_ = 20240229;
};

/// What an element does with the tag that ends it.
enum class ending { written, left_out };

class soup_page {
 public:
  explicit soup_page(std::size_t units) : units_(units) { page_.reserve(units + 4096); }

  std::u16string made() && {
    put(u"<HTML>\n<head>\n<title>Soup</title>\n"
        u"<META name=generator content=\"bench\">\n</head>\n<body bgcolor=#ffffff>\n");
    // The end of the page and a paragraph to fill it up need less than this.
    while (page_.size() + 64 < units_) {
      block(0);
    }
    put(u"<p>The end</body>\n</HTML>\n");
    return std::move(page_);
  }

 private:
  void put(text units) { page_ += units; }
  void put(char16_t unit) { page_ += unit; }

  bool full() const { return page_.size() >= units_; }

  void break_line(std::size_t depth) {
    put(u'\n');
    page_.append(2 * depth, u' ');
  }

  // Tags.

  void name(text spelled, bool capitals) {
    for (const char16_t unit : spelled) {
      put(capitals && unit >= u'a' && unit <= u'z' ? static_cast<char16_t>(unit - 32) : unit);
    }
  }

  void value() {
    switch (any_.below(4)) {
      case 0:
        put(u"\"");
        put(any_.one_of(words_));
        put(u" ");
        put(any_.one_of(words_));
        put(u"\"");
        break;
      case 1:
        put(u"'x");
        number();
        put(u"'");
        break;
      case 2:
        number();
        break;
      default:
        put(u"\"v");
        number();
        put(u"\"");
    }
  }

  void number() {
    for (const char digit : std::to_string(any_.below(2000))) {
      put(static_cast<char16_t>(digit));
    }
  }

  void attributes() {
    std::size_t count = any_.below(10);
    count = count < 5 ? 0 : count < 8 ? 1 : count < 9 ? 2 : 3;
    const std::size_t first = any_.below(std::size(attribute_names));
    for (std::size_t at = 0; at < count; ++at) {
      put(u" ");
      name(attribute_names[(first + at) % std::size(attribute_names)], any_.percent(15));
      put(any_.percent(5) ? text(u" = ") : text(u"="));
      value();
    }
    if (any_.percent(3)) put(u" style=\"color: red; margin-left: 4px\"");
    if (any_.percent(2)) put(u" nowrap");
  }

  /// Writes the start tag and returns whether its name is in capitals.
  bool start(text spelled, text fixed_attributes = {}) {
    const bool capitals = any_.percent(20);
    put(u"<");
    name(spelled, capitals);
    put(fixed_attributes);
    attributes();
    put(u">");
    return capitals;
  }

  void end(text spelled, bool capitals) {
    put(u"</");
    name(spelled, capitals != any_.percent(5));
    put(u">");
  }

  // Text and inline content.

  void words_of_text(std::size_t count, std::size_t depth) {
    for (std::size_t at = 0; at < count; ++at) {
      if (at != 0) {
        if (page_.size() - line_start_ > 90) {
          break_line(depth);
          line_start_ = page_.size();
        } else {
          put(u' ');
        }
      }
      put(any_.one_of(words_));
    }
    if (any_.percent(8)) {
      put(u' ');
      put(any_.one_of(references));
      put(u' ');
    }
    if (any_.percent(3)) put(u" \"as they say\" ");
  }

  void some_text(std::size_t depth) { words_of_text(2 + any_.below(9), depth); }

  void bare_tag() {
    static constexpr text tags[] = {u"<br>",
                                    u"<br/>",
                                    u"<BR>",
                                    u"<br />",
                                    u"<br clear=all>",
                                    u"<img src=\"pic.gif\" alt=\"a picture\">",
                                    u"<img src='a/b.png' width=10 height=20 />",
                                    u"<IMG SRC=logo.gif ALT=\"\" border=0>"};
    put(any_.one_of(tags));
  }

  void unknown(std::size_t depth) {
    const text spelled = any_.one_of(unknown_names);
    const bool capitals = any_.percent(20);
    put(u"<");
    name(spelled, capitals);
    if (any_.percent(40)) {
      put(u" kind=");
      value();
    }
    put(u">");
    some_text(depth);
    if (any_.percent(80)) end(spelled, capitals);
  }

  void presentational(std::size_t depth) {
    static constexpr text tags[] = {u"u", u"center", u"strike"};
    const text spelled = any_.one_of(tags);
    const bool capitals = start(spelled);
    some_text(depth);
    end(spelled, capitals);
  }

  void comment() {
    put(u"<!-- ");
    words_of_text(1 + any_.below(8), 0);
    put(any_.percent(30) ? text(u"\n  <b>old</b>\n-->") : text(u" -->"));
  }

  void link(std::size_t depth) {
    const bool capitals =
        start(u"a", any_.percent(70) ? text(u" href=\"http://www.example.org/index.html?a=1&b=2\"")
                                     : text(u" href='page.htm#top'"));
    some_text(depth);
    end(u"a", capitals);
  }

  /// An inline element with text, and with another one in it while `levels` last.
  void inline_element(std::size_t depth, std::size_t levels) {
    static constexpr text names[] = {u"b", u"i", u"span", u"em", u"tt", u"code"};
    const text spelled = any_.one_of(names);
    const bool capitals = start(spelled);
    some_text(depth);
    if (levels > 0 && any_.percent(40)) {
      put(u' ');
      inline_element(depth, levels - 1);
      put(u' ');
      some_text(depth);
    }
    end(spelled, capitals);
  }

  /// Two elements that end in the wrong order.
  void crossed_elements(std::size_t depth) {
    put(u"<b>");
    some_text(depth);
    put(u"<i>");
    some_text(depth);
    put(u"</b>");
    some_text(depth);
    put(u"</i>");
  }

  void inline_piece(std::size_t depth) {
    const std::size_t which = any_.below(100);
    if (which < 30) {
      inline_element(depth, 2);
    } else if (which < 50) {
      link(depth);
    } else if (which < 70) {
      bare_tag();
    } else if (which < 75) {
      unknown(depth);
    } else if (which < 79) {
      presentational(depth);
    } else if (which < 84) {
      crossed_elements(depth);
    } else if (which < 90) {
      comment();
    } else if (which < 94) {
      put(any_.one_of(stray_end_tags));
    } else {
      put(any_.one_of(references));
    }
  }

  /// Alternating texts and inline pieces.
  void phrase(std::size_t pieces, std::size_t depth) {
    some_text(depth);
    for (std::size_t at = 0; at < pieces; ++at) {
      put(u' ');
      inline_piece(depth);
      put(u' ');
      some_text(depth);
    }
  }

  // Blocks. Each is complete, or leaves one element open that the next tag closes.

  void paragraph(std::size_t depth) {
    const bool capitals = start(u"p");
    phrase(any_.below(5), depth);
    const std::size_t which = any_.below(100);
    if (which < 20) {
      return;  // open, until the next block
    }
    if (which < 28) {
      put(u" <span class=open>");  // closed with the paragraph
      some_text(depth);
    }
    end(u"p", capitals);
  }

  void heading() {
    static constexpr text names[] = {u"h1", u"h2", u"h3", u"h4"};
    const text spelled = any_.one_of(names);
    const bool capitals = start(spelled);
    phrase(any_.below(2), 0);
    end(any_.percent(95) ? spelled : text(u"h5"), capitals);
  }

  /// The content of a `li`, `td` or `div`. With `closed` nothing in it is left open.
  void content(std::size_t depth, bool closed) {
    phrase(any_.below(3), depth);
    if (depth < 6 && any_.percent(18) && !full()) {
      break_line(depth);
      block(depth + 1);
      // Nothing after this block would close it.
      if (closed) {
        break_line(depth);
        put(u"<hr>");
      }
    }
  }

  ending element_with_content(text spelled, std::size_t depth, std::size_t open_share) {
    const bool left_out = any_.percent(open_share);
    const bool capitals = start(spelled);
    content(depth, left_out);
    if (left_out) return ending::left_out;
    end(spelled, capitals);
    return ending::written;
  }

  void list(std::size_t depth) {
    const text spelled = any_.percent(75) ? u"ul" : u"ol";
    const bool capitals = start(spelled);
    for (std::size_t items = 1 + any_.below(6); items > 0; --items) {
      break_line(depth);
      element_with_content(u"li", depth + 1, 30);
    }
    break_line(depth);
    end(spelled, capitals);
  }

  void table(std::size_t depth) {
    const bool capitals = start(u"table", u" border=\"1\"");
    const std::size_t columns = 1 + any_.below(5);
    for (std::size_t rows = 1 + any_.below(6); rows > 0; --rows) {
      break_line(depth);
      const bool row_capitals = start(u"tr");
      ending last = ending::written;
      for (std::size_t column = 0; column < columns; ++column) {
        break_line(depth + 1);
        last = element_with_content(any_.percent(90) ? text(u"td") : text(u"th"), depth + 2, 25);
      }
      // Only one of the last cell and the row may be open.
      if (last == ending::left_out || any_.percent(75)) end(u"tr", row_capitals);
    }
    break_line(depth);
    end(u"table", capitals);
  }

  void division(std::size_t depth) {
    const bool capitals = start(u"div");
    for (std::size_t parts = 1 + any_.below(3); parts > 0 && !full(); --parts) {
      break_line(depth + 1);
      block(depth + 1);
    }
    break_line(depth);
    end(u"div", capitals);
  }

  void preformatted() {
    put(u"<pre>");
    for (std::size_t lines = 1 + any_.below(5); lines > 0; --lines) {
      put(u"\n    ");
      words_of_text(1 + any_.below(8), 4);
    }
    put(u"</pre>");
  }

  void block(std::size_t depth) {
    line_start_ = page_.size();
    const std::size_t which = any_.below(100);
    if (which < 45 || depth > 6) {
      paragraph(depth);
    } else if (which < 53) {
      heading();
    } else if (which < 68) {
      list(depth);
    } else if (which < 78) {
      table(depth);
    } else if (which < 92) {
      division(depth);
    } else if (which < 94) {
      preformatted();
    } else if (which < 97) {
      comment();
    } else {
      put(any_.percent(50) ? text(u"<hr>") : text(u"<HR size=1 />"));
    }
    break_line(depth);
  }

  const std::vector<text> words_ = split_at_blanks(word_list);
  std::size_t units_;
  std::size_t line_start_ = 0;
  std::u16string page_;
  choices any_;
};

}  // namespace

std::u16string make_tag_soup(std::size_t bytes) { return soup_page(bytes / 2).made(); }

}  // namespace bench
