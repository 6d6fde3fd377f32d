#ifndef REPORT_FIELD_TEXTS_H
#define REPORT_FIELD_TEXTS_H

#include <functional>
#include <set>
#include <vector>

#include "xport/text/char16.h"

/// The texts of a template's fields in the order of its page. A text is looked up in a time
/// that grows with the logarithm of their number, as a host does it for each field.
class field_texts {
 public:
  using const_iterator = std::vector<Xport::ustring>::const_iterator;

  field_texts() = default;
  explicit field_texts(std::vector<Xport::ustring> texts);
  field_texts(const field_texts&) = delete;
  field_texts& operator=(field_texts&&) noexcept = default;
  ~field_texts() = default;

  const_iterator begin() const { return texts_.begin(); }
  const_iterator end() const { return texts_.end(); }

  bool contains(Xport::ustring_view text) const { return find(text) != index_.end(); }

  /// Puts `text` in place of the first field that equals `old`. Throws nothing; does nothing
  /// if there is none.
  void replace(Xport::ustring_view old, Xport::ustring text) noexcept;

 private:
  static int compare(Xport::ustring_view left, Xport::ustring_view right);

  // By size, units and, where texts are equal, their order on the page.
  struct by_text_and_place {
    using is_transparent = void;
    bool operator()(const Xport::ustring* left, const Xport::ustring* right) const {
      const int order = compare(*left, *right);
      return order != 0 ? order < 0 : std::less<>()(left, right);
    }
    bool operator()(const Xport::ustring* left, Xport::ustring_view right) const {
      return compare(*left, right) < 0;
    }
  };
  using text_index = std::set<Xport::ustring*, by_text_and_place>;

  text_index::const_iterator find(Xport::ustring_view text) const;

  std::vector<Xport::ustring> texts_;
  text_index index_;  // into texts_, which never grows
};

#endif
