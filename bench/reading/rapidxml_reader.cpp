#include <cstring>
#include <exception>
#include <memory>
#include <rapidxml/rapidxml.hpp>
#include <string_view>

#include "bench/reading/page_blocks.h"
#include "bench/reading/page_reader.h"

namespace bench {

namespace {

using node = rapidxml::xml_node<char16_t>;

struct links {
  const node* first_child(const node* of) const { return of->first_node(); }
  const node* next(const node* of) const { return of->parent() ? of->next_sibling() : nullptr; }
  const node* parent(const node* of) const { return of->parent(); }

  bool is_element(const node* of) const { return of->type() == rapidxml::node_element; }
  void enter(const node* of, tree_summarizer& sum) const {
    if (is_element(of)) {
      sum.open(std::u16string_view(of->name(), of->name_size()));
      for (const rapidxml::xml_attribute<char16_t>* attribute = of->first_attribute();
           attribute != nullptr; attribute = attribute->next_attribute())
        sum.attribute(std::u16string_view(attribute->name(), attribute->name_size()),
                      std::u16string_view(attribute->value(), attribute->value_size()));
    } else if (of->type() == rapidxml::node_data || of->type() == rapidxml::node_cdata) {
      sum.text(std::u16string_view(of->value(), of->value_size()));
    }
  }
};

// Reads the whole file and parses it in place, without a conversion. It has no checks of names and
// tells units apart by their low bytes.
class rapidxml_reader : public page_reader {
 public:
  std::string name() const override { return rapidxml_reader_name; }
  bool needs_well_formed() const override { return true; }

  bool read(const std::string& path) override {
    page_blocks file(path);
    if (!file.opened()) return false;
    units_ = std::make_unique_for_overwrite<char16_t[]>(file.size() / sizeof(char16_t) + 1);
    char16_t* end = units_.get();
    for (std::u16string_view block = file.next(); !block.empty(); block = file.next()) {
      std::memcpy(end, block.data(), block.size() * sizeof(char16_t));
      end += block.size();
    }
    *end = 0;
    document_ = std::make_unique<rapidxml::xml_document<char16_t>>();
    try {
      document_->parse<rapidxml::parse_no_element_values>(units_.get() + (*units_.get() == 0xFEFF));
    } catch (const std::exception&) {
      return false;
    }
    return true;
  }

  tree_summary summarize() const override {
    return summarize_below<const node*>(document_.get(), links{});
  }

  void destroy() override {
    document_.reset();
    units_.reset();
  }

 private:
  std::unique_ptr<char16_t[]> units_;
  std::unique_ptr<rapidxml::xml_document<char16_t>> document_;
};

}  // namespace

std::unique_ptr<page_reader> make_rapidxml_reader() { return std::make_unique<rapidxml_reader>(); }

}  // namespace bench
