#ifndef REPORT_FIELD_TEXTS_H
#define REPORT_FIELD_TEXTS_H

#include <functional>
#include <set>
#include <vector>

#include "xport/text/char16.h"

namespace report {

/// The texts of a template's fields in page order. Look-up and replacement are logarithmic
/// in their number, because a host does both for each field.
class FieldTexts {
 public:
  using const_iterator = std::vector<Xport::ustring>::const_iterator;

  FieldTexts() = default;
  explicit FieldTexts(std::vector<Xport::ustring> texts);
  FieldTexts(const FieldTexts&) = delete;
  FieldTexts& operator=(FieldTexts&&) noexcept = default;
  ~FieldTexts() = default;

  const_iterator begin() const { return texts_.begin(); }
  const_iterator end() const { return texts_.end(); }

  bool Contains(Xport::ustring_view text) const { return Find(text) != index_.end(); }

  /// Replaces the first field that equals `old` with `text`; does nothing if there is none.
  void Replace(Xport::ustring_view old, Xport::ustring text) noexcept;

 private:
  static int Compare(Xport::ustring_view left, Xport::ustring_view right);

  // Orders by text, and equal texts by their place on the page.
  struct ByTextAndPlace {
    using is_transparent = void;
    bool operator()(const Xport::ustring* left, const Xport::ustring* right) const {
      const int order = Compare(*left, *right);
      return order != 0 ? order < 0 : std::less<>()(left, right);
    }
    bool operator()(const Xport::ustring* left, Xport::ustring_view right) const {
      return Compare(*left, right) < 0;
    }
  };
  using TextIndex = std::set<Xport::ustring*, ByTextAndPlace>;

  TextIndex::const_iterator Find(Xport::ustring_view text) const;

  std::vector<Xport::ustring> texts_;
  TextIndex index_;  // points into texts_, which never grows
};

}  // namespace report

#endif
