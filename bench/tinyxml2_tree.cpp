#include <tinyxml2.h>

#include <cstdio>
#include <optional>

#include "bench/contender.h"
#include "bench/page_tree.h"
#include "tests/support/utf8.h"

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

/// Writes UTF-8 as UTF-16LE with a mark, in blocks of 64 KiB.
bool write_as_utf16(const char* text, const char* end, const std::string& path) {
  std::FILE* file = std::fopen(path.c_str(), "wb");
  if (file == nullptr) return false;
  constexpr std::size_t block_units = 32 * 1024;
  static char16_t block[block_units];
  char16_t* at = block;
  bool good = true;
  *at++ = u'\uFEFF';
  while (text < end) {
    at = test::put_utf16(test::next_code_point(text, end), at);
    if (at > block + block_units - 2 || text == end) {
      const auto used = static_cast<std::size_t>(at - block);
      good = std::fwrite(block, sizeof(char16_t), used, file) == used && good;
      at = block;
    }
  }
  return std::fclose(file) == 0 && good;
}

struct tinyxml2_calls {
  tinyxml2::XMLElement* add(tinyxml2::XMLElement* parent, word name) const {
    tinyxml2::XMLElement* element = parent->GetDocument()->NewElement(name.narrow);
    parent->InsertEndChild(element);
    return element;
  }
  void text(tinyxml2::XMLElement* parent, word text) const {
    parent->InsertEndChild(parent->GetDocument()->NewText(text.narrow));
  }
  void attribute(tinyxml2::XMLElement* element, word name, word value) const {
    element->SetAttribute(name.narrow, value.narrow);
  }
};

class tinyxml2_tree : public contender {
 public:
  std::string name() const override { return "tinyxml2"; }

  void build(const workload& work) override {
    document_.emplace();
    document_->InsertEndChild(document_->NewUnknown(("DOCTYPE " + doctype_text()).c_str()));
    tinyxml2::XMLElement* html = document_->NewElement("html");
    document_->InsertEndChild(html);
    html->SetAttribute("xmlns", xml_namespace);
    build_page(tinyxml2_calls{}, html, work);
  }

  bool save(const workload&, const page_target& target) override {
    // The library writes UTF-8 only. It prints to memory here, and the page is converted on its
    // way to the file.
    narrow_printer printer;
    document_->Print(&printer);
    return write_as_utf16(printer.CStr(), printer.CStr() + printer.CStrSize() - 1, target.path());
  }

  void destroy() override { document_.reset(); }

 private:
  std::optional<tinyxml2::XMLDocument> document_;
};

}  // namespace

std::unique_ptr<contender> make_tinyxml2_tree() { return std::make_unique<tinyxml2_tree>(); }

std::string tinyxml2_version() {
  return std::to_string(TIXML2_MAJOR_VERSION) + "." + std::to_string(TIXML2_MINOR_VERSION) + "." +
         std::to_string(TIXML2_PATCH_VERSION);
}

}  // namespace bench
