#include "xport/stream/byte_order.h"

#include <ios>
#include <locale>
#include <ostream>
#include <sstream>

#include "xport/stream/unit_input.h"
#include "xport/text/character_class.h"

namespace Xport {

namespace {

constexpr char16 little_endian_mark = 0xFEFF;
constexpr char16 big_endian_mark = 0xFFFE;

// The bytes EF BB, with which UTF-8 text may begin, in either order.
constexpr char16 utf8_mark = 0xBBEF;
constexpr char16 utf8_mark_swapped = 0xEFBB;

void skip_space(unit_input input, const std::locale& locale) {
  const character_classes classes(locale);
  while (!input.at_end() && classes.is_space(input.peek())) input.advance();
}

// Sets badbit, and rethrows the exception that is being handled if the stream's exceptions()
// include badbit.
void note_exception(std::basic_istream<char16>& stream) {
  try {
    stream.setstate(std::ios_base::badbit);
  } catch (const std::ios_base::failure&) {  // the exception that is being handled is more specific
  }
  if ((stream.exceptions() & std::ios_base::badbit) != 0) throw;
}

// The unit that formatted extraction would return next, without extracting it; `end_unit` if
// the stream isn't good afterwards. The standard library's own extraction needs facets that
// no locale has for 16-bit units.
char16 look_ahead(std::basic_istream<char16>& stream) {
  if (stream.tie() != nullptr) stream.tie()->flush();
  const unit_input input(stream.rdbuf());
  char16 unit = end_unit;
  try {
    if ((stream.flags() & std::ios_base::skipws) != 0) skip_space(input, stream.getloc());
    unit = input.peek();
  } catch (...) {
    note_exception(stream);
    return end_unit;
  }
  if (unit == end_unit) stream.setstate(std::ios_base::eofbit | std::ios_base::failbit);
  return unit;
}

void skip_second_unit(std::basic_istream<char16>& stream, char16 expected) {
  if (stream.good() && look_ahead(stream) == expected) unit_input(stream.rdbuf()).advance();
}

ustring read_swapped(unit_input input) {
  ustring text = take_rest(input);
  swap_bytes(text);
  return text;
}

}  // namespace

void swap_bytes(std::span<char16> units) noexcept {
  for (char16& unit : units) unit = static_cast<char16>((unit << 8) | (unit >> 8));
}

void detect_byte_order(std::basic_istream<char16>*& stream, bool owns_stream) {
  if (!stream->good()) return;
  unit_input input(stream->rdbuf());
  switch (look_ahead(*stream)) {
    case 0:
      input.advance();
      skip_second_unit(*stream, big_endian_mark);
      break;
    case utf8_mark:
    case utf8_mark_swapped:
      input.advance();
      break;
    case little_endian_mark:
      input.advance();
      skip_second_unit(*stream, 0);
      break;
    case big_endian_mark: {
      input.advance();
      auto* const swapped = new std::basic_istringstream<char16>(read_swapped(input));
      if (owns_stream) delete stream;
      stream = swapped;
      break;
    }
    default:
      break;
  }
}

}  // namespace Xport
