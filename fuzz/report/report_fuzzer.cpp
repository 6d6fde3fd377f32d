// Sequences of all operations of a report, with templates and pictures on the disk. The input is
// a letter for each call, "A" for the first in the list below, and the arguments of the call.
#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <limits>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "fuzz/report/fenced_files.h"
#include "fuzz/report/plain_template.h"
#include "fuzz/support/expect.h"
#include "fuzz/support/fuzz_input.h"
#include "report/vellomark_obj.h"
#include "tests/support/fake_file.h"
#include "tests/support/fake_services.h"
#include "tests/support/temp_folder.h"
#include "xport/text/char16.h"

namespace test {
namespace {

using Xport::char16;
using Xport::ustring;
using field_array = zov_shared_array<CZovString>;

// A text argument.
using argument = std::optional<ustring>;

const char16* pointer(const argument& text) { return text ? text->c_str() : nullptr; }

// The parts of templates.
constexpr std::array<Xport::ustring_view, 32> fragments = {
    u"<html>",
    u"<head>",
    u"<title>t</title>",
    u"</head>",
    u"<body>",
    u"</body>",
    u"</html>",
    u"<p>x</p>",
    u"<p><span id='Template'>A</span></p>",
    u"<p><b id=\"Template\">B</b></p>",
    u"<p><span id='Template'><i>A</i>B</span>x</p>",
    u"<p><span id='Template'></span></p>",
    u"<span id='Template'>",
    u"<b id='Template'>",
    u"</span>",
    u"</b>",
    u"<p>",
    u"</p>",
    u"<p></p>",
    u"<div>",
    u"</div>",
    u"<table><tr><td>",
    u"</td></tr></table>",
    u"<ul><li>",
    u"</ul>",
    u"<pre>",
    u"</pre>",
    u" ",
    u"A",
    u"<!-- c -->",
    u"<style type='text/css'>p { color: red; }</style>",
    u"<ins>"};

// One folder for the process, emptied for each input.
const temp_folder& folder() {
  static const temp_folder one;
  return one;
}

void empty_folder() {
  std::vector<std::filesystem::path> entries;
  for (const auto& entry : std::filesystem::directory_iterator(folder().path()))
    entries.push_back(entry.path());
  for (const std::filesystem::path& entry : entries) std::filesystem::remove_all(entry);
}

class session {
 public:
  session(const std::uint8_t* data, std::size_t size) : in_(data, size), size_(size) {
    empty_folder();
    make_report();
  }

  // The lists of fields outlive their reports.
  ~session() {
    report_.reset();
    for (const kept_list& list : lists_) expect_fields(list.fields, list.texts);
  }

  void run() {
    for (std::size_t calls = 0; used_ < size_ && calls < 300; ++calls) {
      call();
      check_fields();
    }
  }

 private:
  struct kept_list {
    field_array fields;
    std::vector<ustring> texts;
  };

  void call();
  void close_table();
  void load();
  void set_field();
  void list_fields();
  void save();
  void check_page(const ustring& path, const ustring& end);
  void write_template();
  void write_picture();

  void make_report() {
    report_ = std::make_unique<VellomarkObj>(files_, browser_);
    template_ = plain_template();
    has_sections_ = false;
  }

  unsigned byte() {
    ++used_;
    return in_.take_byte();
  }

  bool flag() { return (byte() & 1) != 0; }

  std::int32_t number();
  ustring free_text();
  ustring path();
  argument text();

  static void expect_fields(const field_array& fields, const std::vector<ustring>& texts) {
    expect(fields.size() == texts.size(), "the list has all fields");
    for (std::size_t i = 0; i < fields.size(); ++i)
      expect(fields[i].c_str() == ustring(texts[i].c_str()), "the list has these fields");
  }

  void check_fields() {
    report_->GetTemplateFields(fields_);
    expect_fields(fields_, template_.fields);
  }

  fuzz_input in_;
  std::size_t size_;
  std::size_t used_ = 0;
  std::size_t pages_ = 0;  // those read and written
  ustring last_page_;
  fenced_files files_{folder().text()};
  recording_opener browser_;
  std::unique_ptr<VellomarkObj> report_;
  plain_template template_;
  bool has_sections_ = false;  // some may be left
  field_array fields_;
  std::vector<kept_list> lists_;
};

std::int32_t session::number() {
  constexpr std::int32_t numbers[] = {0,
                                      1,
                                      2,
                                      3,
                                      4,
                                      5,
                                      6,
                                      100,
                                      -1,
                                      -2,
                                      -100,
                                      1'000'000'000,
                                      std::numeric_limits<std::int32_t>::max(),
                                      std::numeric_limits<std::int32_t>::min()};
  return numbers[byte() % std::size(numbers)];
}

// A length, and for each unit its byte or, from 0x80 on, an odd unit.
ustring session::free_text() {
  constexpr char16 odd[] = {0xFFFF, 0xFFFE, 0xFEFF, 0xD800, 0xDC00, 0xA0, 0x2028, 0x7300, 0x3C00};
  ustring units;
  for (unsigned left = byte() & 63; left != 0; --left) {
    const unsigned unit = byte();
    units += unit < 0x80 ? static_cast<char16>(unit) : odd[unit % std::size(odd)];
  }
  return units;
}

// Templates, pictures, the last page, a folder, and paths with any end.
ustring session::path() {
  const unsigned choice = byte() & 15;
  if (choice < 4) return folder().text(u"/t") + static_cast<char16>(u'0' + choice);
  if (choice < 6) return folder().text(u"\\p") + static_cast<char16>(u'0' + choice) + u".tmp";
  if (choice == 6) return last_page_;
  if (choice == 7) return folder().text();
  return folder().text(u"/") + free_text().c_str();
}

argument session::text() {
  const unsigned choice = byte() & 31;
  switch (choice) {
    case 0:
      return {};
    case 1:
      return u"";
    case 2:
      return u"two\nlines";
    case 3:
      return ustring(253, u't');
    case 4:
      return ustring(254, u't');
    case 5:
      return u"<span id='Template'>A</span>";
    case 6:
      return u"</p><p><span id='Template'>B</span></p>";
    case 7:
      return u"<style>a {";
    case 8:
      return u"\"";
    case 9:
      return path();
    case 10:
      return ustring(free_text().c_str());
    case 11:
      return u"<i>A</i>";
    default:
      return ustring(1, static_cast<char16>(u'A' + choice % 3));
  }
}

void session::call() {
  try {
    switch (byte() & 31) {
      case 1: {
        const argument line = text();
        return report_->AddText(pointer(line), flag());
      }
      case 2:
        return report_->NewParagraph();
      case 3: {
        const argument line = text();
        return report_->AddHeading(pointer(line), number());
      }
      case 4:
        return expect(report_->OpenTable(number()), "a table can be opened");
      case 5:
        return close_table();
      case 6:
        return report_->SetFirstCellRows(number());
      case 7: {
        const argument line = text();
        const argument target = text();
        return report_->AddLink(pointer(line), pointer(target));
      }
      case 8:
        return report_->SetSectionMode(flag());
      case 9: {
        const argument name = text();
        const argument target = text();
        has_sections_ = true;
        return report_->BeginSection(pointer(name), pointer(target));
      }
      case 10: {
        const argument heading = text();
        return report_->AddSectionHeading(pointer(heading), number());
      }
      case 11:
        return report_->BeginDirectLinks();
      case 12:
        return report_->EndDirectLinks();
      case 13:
        return load();
      case 14:
        return set_field();
      case 15:
        return list_fields();
      case 16:
        template_.fields.clear();
        return report_->ClearTemplateFields();
      case 17:
        return save();
      case 18:
        return write_template();
      case 19:
        return write_picture();
      case 20:
        return files_.throw_at(byte() & 15);
      case 21:
        return make_report();
      default:
        return;
    }
  } catch (const std::bad_alloc&) {
    // Thrown by files_: the report stays usable.
  }
}

void session::close_table() {
  try {
    report_->CloseTable();
  } catch (const std::out_of_range&) {
    // None is open in a section.
  }
}

// Skips templates whose reading never returns.
void session::load() {
  const ustring file = path();
  if (++pages_ > 20) return;
  const std::optional<ustring> units = files_.units_of(file);
  plain_template loaded = units ? plain_template(*units) : template_;
  if (loaded.is_endless) return;
  const bool gives_path = flag() || units;
  report_->LoadTemplate(gives_path ? file.c_str() : nullptr);
  template_ = std::move(loaded);
}

void session::set_field() {
  const argument name = text();
  const bool replace = flag();
  const argument value = text();
  const auto found = name ? std::find(template_.fields.begin(), template_.fields.end(), *name)
                          : template_.fields.end();
  const bool exists = report_->SetTemplateField(pointer(name), replace, pointer(value));
  expect(exists == (found != template_.fields.end()), "a field is there or not");
  if (!exists || !replace || !value) return;
  *found = *value;
  if (!template_.pieces.empty()) template_.pieces.pop_front();
}

// Sometimes into an array that others share.
void session::list_fields() {
  kept_list list;
  if (flag() && !lists_.empty()) list.fields = lists_.back().fields;
  report_->GetTemplateFields(list.fields);
  list.texts = template_.fields;
  lists_.push_back(std::move(list));
}

void session::save() {
  const argument name = text();
  const bool deeper = flag();
  if (++pages_ > 20) return;
  ustring end = empty_block();
  if (!template_.pieces.empty()) {
    end = template_.pieces.front();
    template_.pieces.pop_front();
  }
  const ustring out = folder().text(deeper ? u"/missing/out" : u"/out");
  browser_.urls.clear();
  if (!report_->Save(out.c_str(), pointer(name))) return;
  expect(browser_.urls.size() == (name ? 0u : 1u), "only a page without a name is opened");
  last_page_ = name ? out + u"/Vellomark/" + *name : browser_.urls.back().substr(8);
  check_page(last_page_, end);
  has_sections_ = false;
}

// The piece of the template that was next is the end of the page, if no section is.
void session::check_page(const ustring& path, const ustring& end) {
  const std::optional<ustring> page = files_.units_of(path);
  expect(page && page->starts_with(u'\xFEFF'), "there is a page");
  const ustring expected = (has_sections_ ? ustring() : end) + ustring(page_end);
  expect(page->ends_with(expected), "the page ends with the piece that was next");
}

void session::write_template() {
  const char digit = static_cast<char>('0' + (byte() & 3));
  const unsigned form = byte();
  ustring page;
  if ((form & 4) != 0) page = u"<html><head><title>t</title></head><body>";
  for (unsigned left = byte() & 31; left != 0; --left) {
    const unsigned choice = byte();
    page += (choice & 32) != 0 ? free_text() : fragments[choice & 31];
  }
  if ((form & 1) != 0) page.insert(0, 1, u'\xFEFF');
  std::string bytes = file_bytes(page);
  if ((form & 2) != 0)
    for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) std::swap(bytes[i], bytes[i + 1]);
  if ((form & 8) != 0) bytes += '<';
  make_file(folder().path() / (std::string("t") + digit), bytes);
}

void session::write_picture() {
  const char digit = static_cast<char>('4' + (byte() & 1));
  make_file(folder().path() / (std::string("p") + digit + ".tmp"), "a picture");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  session(data, size).run();
  return 0;
}

}  // namespace test
