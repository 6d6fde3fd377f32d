#include "csv_reader.h"

#include <algorithm>
#include <map>
#include <utility>

#include "unicode.h"

namespace examples {
namespace {

std::u16string decode(std::string_view utf8) {
  try {
    return to_utf16(utf8);
  } catch (const invalid_utf8& error) {
    const auto bad = utf8.begin() + static_cast<std::ptrdiff_t>(error.offset());
    const auto line_ends = std::count(utf8.begin(), bad, '\n');
    throw csv_error(static_cast<std::size_t>(line_ends) + 1, "invalid UTF-8");
  }
}

// Reads the text record by record.
class record_reader {
 public:
  explicit record_reader(std::u16string_view text) : text_(text) {}

  bool at_end() const { return next_ == text_.size(); }
  std::size_t line() const { return line_; }

  // Reads one record and its line end.
  csv_record read() {
    csv_record record;
    do {
      record.push_back(at(u'"') ? quoted_field() : plain_field());
    } while (take(u','));
    take_record_end();
    return record;
  }

 private:
  bool at(char16_t unit) const { return !at_end() && text_[next_] == unit; }

  bool take(char16_t unit) {
    if (!at(unit)) return false;
    if (unit == u'\n') ++line_;
    ++next_;
    return true;
  }

  std::u16string plain_field() {
    const std::size_t end = std::min(text_.find_first_of(u",\r\n\"", next_), text_.size());
    std::u16string field(text_.substr(next_, end - next_));
    next_ = end;
    if (at(u'"')) throw csv_error(line_, "a quote inside a field without quotes");
    return field;
  }

  std::u16string quoted_field() {
    const std::size_t opening_line = line_;
    std::u16string field;
    ++next_;
    for (;;) {
      if (at_end()) throw csv_error(opening_line, "a quote is not closed");
      if (take(u'"') && !at(u'"')) break;
      field += text_[next_];
      take(text_[next_]);
    }
    if (!at_end() && !at(u',') && !at(u'\r') && !at(u'\n'))
      throw csv_error(line_, "text after a closing quote");
    return field;
  }

  void take_record_end() {
    const bool carriage_return = take(u'\r');
    if (!take(u'\n') && carriage_return)
      throw csv_error(line_, "a carriage return without a line feed");
  }

  std::u16string_view text_;
  std::size_t next_ = 0;
  std::size_t line_ = 1;
};

}  // namespace

csv_table read_csv(std::string_view utf8) {
  const std::string_view mark = "\xEF\xBB\xBF";
  if (utf8.substr(0, mark.size()) == mark) utf8.remove_prefix(mark.size());
  const std::u16string text = decode(utf8);
  record_reader reader(text);
  if (reader.at_end()) throw csv_error(1, "there is no header");
  csv_table table;
  table.header = reader.read();
  while (!reader.at_end()) {
    const std::size_t line = reader.line();
    csv_record record = reader.read();
    if (record.size() != table.header.size()) {
      throw csv_error(line, "the record has " + std::to_string(record.size()) +
                                " fields where the header has " +
                                std::to_string(table.header.size()));
    }
    table.records.push_back(std::move(record));
  }
  return table;
}

std::vector<record_group> group_records(const csv_table& table) {
  std::vector<record_group> groups;
  std::map<std::u16string, std::size_t> places;
  for (std::size_t i = 0; i < table.records.size(); ++i) {
    const std::u16string& name = table.records[i][0];
    const auto [place, is_new] = places.emplace(name, groups.size());
    if (is_new) groups.push_back({name, {}});
    groups[place->second].records.push_back(i);
  }
  return groups;
}

}  // namespace examples
