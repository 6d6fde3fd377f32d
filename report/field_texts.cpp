#include "report/field_texts.h"

#include <cstring>
#include <utility>

using Xport::ustring;
using Xport::ustring_view;

namespace report {

FieldTexts::FieldTexts(std::vector<ustring> texts) : texts_(std::move(texts)) {
  for (ustring& text : texts_) index_.insert(&text);
}

// Any total order will do. Comparing sizes and then bytes is faster than comparing units.
int FieldTexts::Compare(ustring_view left, ustring_view right) {
  if (left.size() != right.size()) return left.size() < right.size() ? -1 : 1;
  return left.empty() ? 0
                      : std::memcmp(left.data(), right.data(), left.size() * sizeof(Xport::char16));
}

FieldTexts::TextIndex::const_iterator FieldTexts::Find(ustring_view text) const {
  const auto found = index_.lower_bound(text);
  return found != index_.end() && **found == text ? found : index_.end();
}

// The node of the index is reused, so nothing is allocated.
void FieldTexts::Replace(ustring_view old, ustring text) noexcept {
  const auto found = Find(old);
  if (found == index_.end()) return;
  TextIndex::node_type entry = index_.extract(found);
  entry.value()->swap(text);
  index_.insert(std::move(entry));
}

}  // namespace report
