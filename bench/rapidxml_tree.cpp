#include <memory>
#include <rapidxml/rapidxml.hpp>
#include <rapidxml/rapidxml_print.hpp>
#include <string>

#include "bench/block_file.h"
#include "bench/contender.h"
#include "bench/page_tree.h"

namespace bench {

namespace {

using document = rapidxml::xml_document<char16_t>;
using node = rapidxml::xml_node<char16_t>;

// Names and texts are referred to and not copied, as the library's users do it.
struct rapidxml_calls {
  node* add(node* parent, word name) const {
    node* const element = parent->document()->allocate_node(rapidxml::node_element, name.wide);
    parent->append_node(element);
    return element;
  }
  void text(node* parent, word text) const {
    parent->append_node(parent->document()->allocate_node(rapidxml::node_data, nullptr, text.wide));
  }
  void attribute(node* element, word name, word value) const {
    element->append_attribute(element->document()->allocate_attribute(name.wide, value.wide));
  }
};

/// Where RapidXML prints to: puts each unit into a file.
class file_iterator {
 public:
  explicit file_iterator(block_file& file) : file_(&file) {}
  file_iterator& operator*() { return *this; }
  file_iterator& operator++() { return *this; }
  file_iterator operator++(int) { return *this; }
  file_iterator& operator=(char16_t unit) {
    file_->put(unit);
    return *this;
  }

 private:
  block_file* file_;
};

class rapidxml_tree : public contender {
 public:
  std::string name() const override { return rapidxml_name; }

  void build(const workload& work) override {
    document_ = std::make_unique<document>();
    document_->append_node(
        document_->allocate_node(rapidxml::node_doctype, nullptr,
                                 document_->allocate_string(widen(doctype_text()).c_str())));
    node* const html = document_->allocate_node(rapidxml::node_element, u"html");
    document_->append_node(html);
    html->append_attribute(document_->allocate_attribute(
        u"xmlns", document_->allocate_string(widen(xml_namespace).c_str())));
    build_page(rapidxml_calls{}, html, work);
  }

  bool save(const workload&, const page_target& target) override {
    block_file file(target.path());
    file.put(u'\uFEFF');
    rapidxml::print(file_iterator(file), *document_, 0);
    return file.finish();
  }

  void destroy() override { document_.reset(); }

 private:
  std::unique_ptr<document> document_;
};

}  // namespace

std::unique_ptr<contender> make_rapidxml_tree() { return std::make_unique<rapidxml_tree>(); }

}  // namespace bench
