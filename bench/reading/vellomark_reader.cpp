#include <filesystem>
#include <optional>

#include "bench/reading/page_reader.h"
#include "platform/file_system.h"
#include "xport/markup/leaf_nodes.h"
#include "xport/markup/xhtml_doc.h"
#include "xport/parser/read_document.h"
#include "xport/vocabulary/xhtml_strict.h"

namespace bench {

namespace {

using node_pointer = const Xport::xhtml_markup*;

struct links {
  node_pointer first_child(node_pointer of) const { return of->begin().cell(); }
  node_pointer next(node_pointer of) const {
    Xport::const_markup_iterator position(of, of->parent());
    return (++position).cell();
  }
  node_pointer parent(node_pointer of) const { return of->parent(); }

  bool is_element(node_pointer node) const { return node->type() == Xport::node_type::element; }
  void enter(node_pointer node, tree_summarizer& sum) const {
    if (is_element(node)) {
      const Xport::ustring name = node->tag_name();
      sum.open(Xport::ustring_view(name));
      for (const auto& [attribute, value] : *node->attributes())
        sum.attribute(Xport::xhtml_strict::attribute_name(attribute), value);
    } else if (node->type() == Xport::node_type::pcdata) {
      sum.text(node->as_text()->text());
    }
  }
};

bool read_page(Xport::xhtml_doc& document, const std::string& path) {
  return Xport::read_document(document, platform::file_system::native().open_for_reading(
                                            std::filesystem::path(path).u16string()));
}

/// The library's parser. It isn't part of the installed interface, which reads pages
/// as templates only.
class vellomark_reader : public page_reader {
 public:
  std::string name() const override { return vellomark_reader_name; }
  bool needs_well_formed() const override { return false; }

  bool read(const std::string& path) override {
    document_.emplace(0);
    return read_page(*document_, path);
  }

  tree_summary summarize() const override {
    return summarize_below<node_pointer>(document_->root(), links{});
  }

  void destroy() override { document_.reset(); }

 private:
  std::optional<Xport::xhtml_doc> document_;
};

}  // namespace

std::unique_ptr<page_reader> make_vellomark_reader() {
  return std::make_unique<vellomark_reader>();
}

bool rewrite_page(const std::string& from, const std::string& to) {
  Xport::xhtml_doc document(0);
  return read_page(document, from) &&
         Xport::write_document(document, platform::file_system::native().open_for_writing(
                                             std::filesystem::path(to).u16string()));
}

}  // namespace bench
