#include "fuzz/report/fenced_files.h"

#include <array>
#include <new>

namespace test {

using Xport::ustring;
using Xport::ustring_view;

std::optional<ustring> fenced_files::units_of(const ustring& path) const {
  const std::unique_ptr<Xport::byte_input> file =
      is_inside(path) ? disk_.open_for_reading(path) : nullptr;
  if (!file) return {};
  ustring units;
  std::array<unsigned char, 4096> bytes;
  while (const std::size_t count = file->read(bytes.data(), bytes.size()))
    for (std::size_t i = 0; i + 1 < count; i += 2)
      units += static_cast<Xport::char16>(bytes[i] | bytes[i + 1] << 8);
  return units;
}

bool fenced_files::is_inside(ustring_view path) const {
  constexpr ustring_view separators = u"/\\";
  if (!path.starts_with(folder_)) return false;
  path.remove_prefix(folder_.size());
  if (path.empty() || separators.find(path.front()) == separators.npos) return false;
  for (std::size_t depth = 1; !path.empty();) {
    path.remove_prefix(1);
    const ustring_view name = path.substr(0, path.find_first_of(separators));
    path.remove_prefix(name.size());
    if (name == u"..")
      --depth;
    else if (!name.empty() && name != u".")
      ++depth;
    if (depth == 0) return false;
  }
  return true;
}

bool fenced_files::passes(const ustring& path) {
  if (left_ != 0 && --left_ == 0) throw std::bad_alloc();
  return is_inside(path);
}

}  // namespace test
