#include "report/field_texts.h"

#include <cstring>
#include <utility>

using Xport::ustring;
using Xport::ustring_view;

field_texts::field_texts(std::vector<ustring> texts) : texts_(std::move(texts)) {
  for (ustring& text : texts_) index_.insert(&text);
}

// Any order will do. The bytes of units are compared faster than the units.
int field_texts::compare(ustring_view left, ustring_view right) {
  if (left.size() != right.size()) return left.size() < right.size() ? -1 : 1;
  return left.empty() ? 0
                      : std::memcmp(left.data(), right.data(), left.size() * sizeof(Xport::char16));
}

field_texts::text_index::const_iterator field_texts::find(ustring_view text) const {
  const auto found = index_.lower_bound(text);
  return found != index_.end() && **found == text ? found : index_.end();
}

void field_texts::replace(ustring_view old, ustring text) noexcept {
  const auto found = find(old);
  if (found == index_.end()) return;
  text_index::node_type entry = index_.extract(found);
  entry.value()->swap(text);
  index_.insert(std::move(entry));
}
