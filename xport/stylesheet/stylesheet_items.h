#ifndef XPORT_STYLESHEET_STYLESHEET_ITEMS_H
#define XPORT_STYLESHEET_STYLESHEET_ITEMS_H

#include <cstdint>
#include <vector>

#include "xport/stylesheet/stylesheet_iterator.h"
#include "xport/text/char16.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace Xport {

class stylesheet_writer;

/// One declaration of a rule. The value is stored and written as given; a
/// property outside the table is written with an empty name.
struct stylesheet_declaration {
  css_property_id property;
  ustring value;
};

/// The values that xhtml_stylesheet_item::item_kind() returns.
enum class item_type : std::int32_t { none = 0, rule = 1, comment = 2, import = 3 };

/// An item of a stylesheet. The class itself is a neutral item that does nothing. Only
/// rules hold declarations: for the other kinds every operation on declarations returns
/// the end.
///
/// A position passed to an operation must lie in this item's declarations. Operations
/// that store a text may throw std::bad_alloc.
class xhtml_stylesheet_item {
 public:
  xhtml_stylesheet_item() = default;
  xhtml_stylesheet_item(const xhtml_stylesheet_item&) = default;
  xhtml_stylesheet_item& operator=(const xhtml_stylesheet_item&) = delete;
  virtual ~xhtml_stylesheet_item();

  /// Inserts before `position` and returns the position of the new declaration. Amortized
  /// time is linear in the number of declarations after it.
  virtual stylesheet_rule_iterator insert_declaration(stylesheet_rule_iterator position,
                                                      const stylesheet_declaration& declaration);

  /// Both add at the end. add_declaration() also returns the new declaration's position.
  virtual stylesheet_rule_iterator add_declaration(const stylesheet_declaration& declaration);
  virtual void push_declaration(const stylesheet_declaration& declaration);

  /// The end of the declarations.
  virtual stylesheet_rule_iterator declarations_end();

  /// Removes one declaration and returns the position of the next one. Time linear in the
  /// number of declarations after it.
  virtual stylesheet_rule_iterator erase_declaration(stylesheet_rule_iterator position);

  /// Removes the first declaration of that property, if any. Time linear in the number of
  /// declarations.
  virtual void erase_property(css_property_id property);

  /// Writes the item in its text form.
  virtual void write(stylesheet_writer& writer) const;

  /// The selector of a rule; empty for the other kinds.
  virtual ustring selector_text() const;

  /// One of the values of item_type.
  virtual std::int32_t item_kind() const;

  /// The selector of a rule, the text of a comment, the URL of an import.
  virtual ustring item_text() const;

  /// Returns a deep copy, which the caller owns; null for a neutral item.
  virtual xhtml_stylesheet_item* clone() const;

  /// The first declaration; the end if there is none.
  stylesheet_rule_iterator declarations_begin() {
    return stylesheet_rule_iterator(declarations_.begin());
  }
  const_stylesheet_rule_iterator declarations_begin() const {
    return const_stylesheet_rule_iterator(declarations_.begin());
  }
  const_stylesheet_rule_iterator declarations_end() const {
    return const_stylesheet_rule_iterator(declarations_.end());
  }

 protected:
  std::vector<stylesheet_declaration> declarations_;
};

/// A selector with its declarations, in the order of their positions, which is the order of
/// output. The selector is a plain text that is never analysed.
class xhtml_stylesheet_rule final : public xhtml_stylesheet_item {
 public:
  explicit xhtml_stylesheet_rule(ustring_view selector);

  stylesheet_rule_iterator insert_declaration(stylesheet_rule_iterator position,
                                              const stylesheet_declaration& declaration) override;
  stylesheet_rule_iterator add_declaration(const stylesheet_declaration& declaration) override;
  void push_declaration(const stylesheet_declaration& declaration) override;
  using xhtml_stylesheet_item::declarations_end;
  stylesheet_rule_iterator erase_declaration(stylesheet_rule_iterator position) override;
  void erase_property(css_property_id property) override;
  void write(stylesheet_writer& writer) const override;
  ustring selector_text() const override { return selector_; }
  std::int32_t item_kind() const override;
  ustring item_text() const override { return selector_; }
  xhtml_stylesheet_item* clone() const override;

  /// Removes the declarations from `first` up to but not including `last`, and returns the
  /// position of the next one. Time linear in the number of declarations from `first` on.
  stylesheet_rule_iterator erase_declarations(stylesheet_rule_iterator first,
                                              stylesheet_rule_iterator last);

  /// Copied with the rule and otherwise unused: the writer indents by its own options.
  std::int32_t indent = 3;

 private:
  ustring selector_;
};

/// An `@import` line.
class xhtml_stylesheet_import final : public xhtml_stylesheet_item {
 public:
  explicit xhtml_stylesheet_import(ustring_view url);

  void write(stylesheet_writer& writer) const override;
  std::int32_t item_kind() const override;
  ustring item_text() const override { return url_; }
  xhtml_stylesheet_item* clone() const override;

 private:
  ustring url_;
};

/// A comment. The text doesn't include the delimiters.
class xhtml_stylesheet_comment final : public xhtml_stylesheet_item {
 public:
  explicit xhtml_stylesheet_comment(ustring_view text);

  void write(stylesheet_writer& writer) const override;
  std::int32_t item_kind() const override;
  ustring item_text() const override { return text_; }
  xhtml_stylesheet_item* clone() const override;

 private:
  ustring text_;
};

}  // namespace Xport

#endif
