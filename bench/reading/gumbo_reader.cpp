#include <gumbo.h>

#include "bench/reading/page_blocks.h"
#include "bench/reading/page_reader.h"

namespace bench {

namespace {

const GumboVector* children_of(const GumboNode* of) {
  switch (of->type) {
    case GUMBO_NODE_DOCUMENT:
      return &of->v.document.children;
    case GUMBO_NODE_ELEMENT:
    case GUMBO_NODE_TEMPLATE:
      return &of->v.element.children;
    default:
      return nullptr;
  }
}

const GumboNode* child_at(const GumboNode* of, std::size_t index) {
  const GumboVector* const children = children_of(of);
  return children != nullptr && index < children->length
             ? static_cast<const GumboNode*>(children->data[index])
             : nullptr;
}

struct links {
  const GumboNode* first_child(const GumboNode* of) const { return child_at(of, 0); }
  const GumboNode* next(const GumboNode* of) const {
    return child_at(of->parent, of->index_within_parent + 1);
  }
  const GumboNode* parent(const GumboNode* of) const { return of->parent; }

  bool is_element(const GumboNode* node) const {
    return node->type == GUMBO_NODE_ELEMENT || node->type == GUMBO_NODE_TEMPLATE;
  }
  void enter(const GumboNode* node, tree_summarizer& sum) const {
    if (is_element(node)) {
      sum.open(std::string_view(gumbo_normalized_tagname(node->v.element.tag)));
      const GumboVector& attributes = node->v.element.attributes;
      for (unsigned at = 0; at < attributes.length; ++at) {
        const auto* const attribute = static_cast<const GumboAttribute*>(attributes.data[at]);
        sum.attribute(std::string_view(attribute->name), std::string_view(attribute->value));
      }
    } else if (node->type == GUMBO_NODE_TEXT || node->type == GUMBO_NODE_WHITESPACE ||
               node->type == GUMBO_NODE_CDATA) {
      sum.text(std::string_view(node->v.text.text));
    }
  }
};

class gumbo_reader : public page_reader {
 public:
  gumbo_reader() {
    // Errors aren't asked for, so nobody collects them.
    options_.max_errors = 0;
  }
  ~gumbo_reader() override { destroy(); }

  std::string name() const override { return "gumbo"; }
  bool needs_well_formed() const override { return false; }

  bool read(const std::string& path) override {
    page_ = read_narrow_page(path);
    if (page_.bytes == nullptr) {
      return false;
    }
    output_ = gumbo_parse_with_options(&options_, page_.bytes.get(), page_.size);
    return output_ != nullptr;
  }

  tree_summary summarize() const override {
    return summarize_below<const GumboNode*>(output_->document, links{});
  }

  void destroy() override {
    if (output_ != nullptr) gumbo_destroy_output(&options_, output_);
    output_ = nullptr;
    page_ = {};
  }

 private:
  GumboOptions options_ = kGumboDefaultOptions;
  GumboOutput* output_ = nullptr;
  // The tree points into the page.
  narrow_page page_;
};

}  // namespace

std::unique_ptr<page_reader> make_gumbo_reader() { return std::make_unique<gumbo_reader>(); }

}  // namespace bench
