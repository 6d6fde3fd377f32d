#include <tidy/tidy.h>
#include <tidy/tidybuffio.h>

#include "bench/reading/page_blocks.h"
#include "bench/reading/page_reader.h"

namespace bench {

namespace {

std::string_view view(ctmbstr text) { return text != nullptr ? text : ""; }

struct links {
  TidyNode first_child(TidyNode of) const { return tidyGetChild(of); }
  TidyNode next(TidyNode of) const { return tidyGetNext(of); }
  TidyNode parent(TidyNode of) const { return tidyGetParent(of); }

  bool is_element(TidyNode node) const {
    return tidyNodeGetType(node) == TidyNode_Start || tidyNodeGetType(node) == TidyNode_StartEnd;
  }
  void enter(TidyNode node, tree_summarizer& sum) const {
    if (is_element(node)) {
      sum.open(view(tidyNodeGetName(node)));
      for (TidyAttr attribute = tidyAttrFirst(node); attribute != nullptr;
           attribute = tidyAttrNext(attribute)) {
        sum.attribute(view(tidyAttrName(attribute)), view(tidyAttrValue(attribute)));
      }
    } else if (tidyNodeGetType(node) == TidyNode_Text || tidyNodeGetType(node) == TidyNode_CDATA) {
      // The public interface returns texts only as they are printed, so they are just counted.
      sum.text(std::string_view());
    }
  }
};

Bool TIDY_CALL say_nothing(TidyDoc, TidyReportLevel, uint, uint, ctmbstr) { return no; }

class tidy_reader : public page_reader {
 public:
  ~tidy_reader() override { destroy(); }

  std::string name() const override { return "tidy"; }
  bool needs_well_formed() const override { return false; }

  bool read(const std::string& path) override {
    const narrow_page page = read_narrow_page(path);
    if (page.bytes == nullptr) {
      return false;
    }
    document_ = tidyCreate();
    tidySetReportFilter(document_, say_nothing);
    tidyOptSetBool(document_, TidyQuiet, yes);
    tidyOptSetBool(document_, TidyShowWarnings, no);
    tidyOptSetInt(document_, TidyShowErrors, 0);
    // Otherwise empty elements are removed.
    tidyOptSetBool(document_, TidyDropEmptyElems, no);
    tidyOptSetBool(document_, TidyDropEmptyParas, no);
    tidySetInCharEncoding(document_, "utf8");
    TidyBuffer input;
    tidyBufInit(&input);
    tidyBufAttach(&input, reinterpret_cast<byte*>(page.bytes.get()), static_cast<uint>(page.size));
    const int status = tidyParseBuffer(document_, &input);
    tidyBufDetach(&input);
    // 2 means errors in the page, a negative number one of the machine.
    return status >= 0;
  }

  tree_summary summarize() const override {
    return summarize_below(tidyGetRoot(document_), links{});
  }

  void destroy() override {
    if (document_ != nullptr) tidyRelease(document_);
    document_ = nullptr;
  }

 private:
  TidyDoc document_ = nullptr;
};

}  // namespace

std::unique_ptr<page_reader> make_tidy_reader() { return std::make_unique<tidy_reader>(); }

}  // namespace bench
