// The byte order of inputs. The input is two bytes that choose the stream, and the units.
#include <cstdint>
#include <istream>
#include <memory>
#include <sstream>

#include "fuzz/support/expect.h"
#include "fuzz/support/fuzz_input.h"
#include "tests/support/fake_file.h"
#include "tests/support/tree_outline.h"
#include "tests/support/unit_buffers.h"
#include "xport/stream/byte_order.h"
#include "xport/stream/file_input_stream.h"
#include "xport/stream/unit_input.h"

namespace test {
namespace {

using Xport::char16;
using Xport::ustring;
using input_stream = std::basic_istream<char16>;

// A stream that owns its buffer and reports its destruction.
class watched_stream : public input_stream {
 public:
  watched_stream(std::unique_ptr<std::basic_streambuf<char16>> buffer, bool& deleted)
      : input_stream(buffer.get()), buffer_(std::move(buffer)), deleted_(deleted) {}
  ~watched_stream() override { deleted_ = true; }

 private:
  std::unique_ptr<std::basic_streambuf<char16>> buffer_;
  bool& deleted_;
};

std::unique_ptr<std::basic_streambuf<char16>> make_buffer(unsigned kind, std::size_t block,
                                                          const ustring& text,
                                                          input_record& record) {
  switch (kind & 3) {
    case 0:
      return std::make_unique<std::basic_stringbuf<char16>>(text);
    case 1:
      return std::make_unique<dribble_buffer>(text, block);
    case 2:
      return std::make_unique<unbuffered_buffer>(text);
    default:
      record.bytes = file_bytes(text);
      return std::make_unique<Xport::file_input_buffer>(std::make_unique<fake_input>(record));
  }
}

ustring rest_of(input_stream& stream) {
  ustring text;
  for (Xport::unit_input in(stream.rdbuf()); !in.at_end(); in.advance()) text += in.peek();
  return text;
}

// What detection must leave of an input, by the rules: the units left to read, whether the stream
// has ended and whether it is a new one.
struct plain_detection {
  plain_detection(const ustring& units, bool skips_space)
      : rest(units.substr(0, units.find(u'\uFFFF'))), skips_space_(skips_space) {
    switch (look()) {
      case 0:
        rest.erase(0, 1);
        if (look() == 0xFFFE) rest.erase(0, 1);
        break;
      case 0xBBEF:
      case 0xEFBB:
        rest.erase(0, 1);
        break;
      case 0xFEFF:
        rest.erase(0, 1);
        if (look() == 0) rest.erase(0, 1);
        break;
      case 0xFFFE:
        rest.erase(0, 1);
        for (char16& unit : rest) unit = static_cast<char16>((unit << 8 | unit >> 8) & 0xFFFF);
        swapped = true;
        break;
      default:
        break;
    }
  }

  ustring rest;
  bool ended = false;
  bool swapped = false;

 private:
  char16 look() {
    while (skips_space_ && !rest.empty() && (rest[0] == u' ' || (rest[0] >= 9 && rest[0] <= 13)))
      rest.erase(0, 1);
    ended = rest.empty();
    return ended ? u'\uFFFF' : rest[0];
  }

  bool skips_space_;
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  fuzz_input in(data, size);
  const unsigned flags = in.take_byte();
  const std::size_t block = 1 + (in.take_byte() & 31);
  const bool owns = (flags & 4) != 0;
  const bool skips_space = (flags & 8) == 0;
  const bool is_good = (flags & 48) != 48;
  const ustring units = in.take_units();

  input_record record;
  bool deleted = false;
  auto given = std::make_unique<watched_stream>(make_buffer(flags, block, units, record), deleted);
  if (!skips_space) given->unsetf(std::ios_base::skipws);
  if (!is_good) given->setstate((flags & 64) != 0 ? std::ios_base::eofbit : std::ios_base::badbit);
  const auto before = given->rdstate();

  input_stream* stream = given.get();
  Xport::detect_byte_order(stream, owns);
  if (!is_good) {
    expect(stream == given.get() && stream->rdstate() == before,
           "a stream that isn't good is left alone");
    expect_no(outline_difference({rest_of(*stream)}, {units.substr(0, units.find(u'\uFFFF'))}));
    return 0;
  }
  const plain_detection expected(units, skips_space);
  expect((stream != given.get()) == expected.swapped, "a big-endian input has a new stream");
  std::unique_ptr<input_stream> made;
  if (expected.swapped) {
    made.reset(stream);
    expect(deleted == owns, "the old stream is deleted if it is owned");
    if (owns) given.release();
    expect(stream->good(), "the new stream is good");
  } else {
    const auto state =
        expected.ended ? std::ios_base::eofbit | std::ios_base::failbit : std::ios_base::goodbit;
    expect(stream->rdstate() == state, "the state tells whether the input has ended");
  }
  expect_no(outline_difference({rest_of(*stream)}, {expected.rest}));
  return 0;
}

}  // namespace test
