#include <tinyxml2.h>

#include <cstdio>
#include <optional>

#include "bench/contender.h"

namespace bench {

namespace {

/// The printer with two blanks for a level, as everybody else writes.
class narrow_printer : public tinyxml2::XMLPrinter {
 public:
  void PrintSpace(int depth) override {
    for (int level = 0; level < depth; ++level) {
      Write("  ");
    }
  }
};

/// One code point of well-formed UTF-8; moves `at` behind it.
char32_t next_code_point(const char*& at) {
  const auto lead = static_cast<unsigned char>(*at++);
  if (lead < 0x80) {
    return lead;
  }
  const int following = lead < 0xE0 ? 1 : lead < 0xF0 ? 2 : 3;
  char32_t point = lead & (0x3Fu >> following);
  for (int count = 0; count < following; ++count) {
    point = (point << 6) | (static_cast<unsigned char>(*at++) & 0x3Fu);
  }
  return point;
}

/// Writes UTF-8 as UTF-16LE with a mark, in blocks of 64 KiB.
bool write_as_utf16(const char* text, const char* end, const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) {
    return false;
  }
  constexpr std::size_t block_units = 32 * 1024;
  static char16_t block[block_units];
  std::size_t used = 0;
  bool good = true;
  block[used++] = u'\uFEFF';
  while (text < end) {
    const char32_t point = next_code_point(text);
    if (point < 0x10000) {
      block[used++] = static_cast<char16_t>(point);
    } else {
      block[used++] = static_cast<char16_t>(0xD7C0 + (point >> 10));
      block[used++] = static_cast<char16_t>(0xDC00 + (point & 0x3FF));
    }
    if (used > block_units - 2 || text == end) {
      good = std::fwrite(block, sizeof(char16_t), used, file) == used && good;
      used = 0;
    }
  }
  return std::fclose(file) == 0 && good;
}

class tinyxml2_tree : public contender {
 public:
  std::string name() const override { return "tinyxml2"; }

  void build(const workload& work) override {
    document_.emplace();
    const std::string doctype = std::string("DOCTYPE ") + doctype_name + " PUBLIC \"" +
                                doctype_public_id + "\" \"" + doctype_system_id + "\"";
    document_->InsertEndChild(document_->NewUnknown(doctype.c_str()));
    tinyxml2::XMLElement* html = document_->NewElement("html");
    document_->InsertEndChild(html);
    html->SetAttribute("xmlns", xml_namespace);
    tinyxml2::XMLElement* head = add_element(html, "head");
    add_text(add_element(head, "title"), page_title);
    tinyxml2::XMLElement* style = add_element(head, "style");
    style->SetAttribute("type", "text/css");
    add_text(style, page_stylesheet);
    tinyxml2::XMLElement* body = add_element(html, "body");
    tinyxml2::XMLElement* heading = add_element(body, "h1");
    heading->SetAttribute("class", "Style1");
    add_text(heading, page_heading);
    tinyxml2::XMLElement* block = add_element(body, "p");
    if (work.kind() == page_kind::table) {
      add_table(body, work);
      add_element(body, "p");
    } else {
      add_lines(block, work);
    }
    add_element(body, "p");
  }

  bool save(const workload&, const page_target& target) override {
    // The library writes UTF-8 only. It prints to memory here, and the page is
    // converted on its way to the file.
    narrow_printer printer;
    document_->Print(&printer);
    return write_as_utf16(printer.CStr(), printer.CStr() + printer.CStrSize() - 1, target.path());
  }

  void destroy() override { document_.reset(); }

 private:
  tinyxml2::XMLElement* add_element(tinyxml2::XMLElement* parent, const char* name) {
    tinyxml2::XMLElement* element = document_->NewElement(name);
    parent->InsertEndChild(element);
    return element;
  }

  void add_text(tinyxml2::XMLElement* parent, const char* text) {
    parent->InsertEndChild(document_->NewText(text));
  }

  void add_table(tinyxml2::XMLElement* body, const workload& work) {
    tinyxml2::XMLElement* table = add_element(body, "table");
    table->SetAttribute("border", "1");
    table->SetAttribute("class", "main");
    table->SetAttribute("width", "100%");
    tinyxml2::XMLElement* row = nullptr;
    for (std::size_t item = 0; item < work.items(); ++item) {
      if (item % table_columns == 0) {
        row = add_element(table, "tr");
      }
      tinyxml2::XMLElement* cell = add_element(row, "td");
      cell->SetAttribute("valign", "top");
      add_text(cell, work.narrow(item));
    }
  }

  void add_lines(tinyxml2::XMLElement* block, const workload& work) {
    for (std::size_t item = 0; item < work.items(); ++item) {
      add_text(add_element(block, "a"), work.narrow(item));
      add_element(block, "br");
    }
  }

  std::optional<tinyxml2::XMLDocument> document_;
};

}  // namespace

std::unique_ptr<contender> make_tinyxml2_tree() { return std::make_unique<tinyxml2_tree>(); }

std::string tinyxml2_version() {
  return std::to_string(TIXML2_MAJOR_VERSION) + "." + std::to_string(TIXML2_MINOR_VERSION) + "." +
         std::to_string(TIXML2_PATCH_VERSION);
}

}  // namespace bench
