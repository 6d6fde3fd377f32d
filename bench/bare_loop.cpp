#include <string_view>

#include "bench/block_file.h"
#include "bench/contender.h"

namespace bench {

namespace {

/// Everything before the first table or line, laid out as the library does it.
std::u16string page_front() {
  std::string sheet = page_stylesheet;
  for (std::size_t at = sheet.find('\n'); at != std::string::npos; at = sheet.find('\n', at + 1)) {
    sheet.insert(at + 1, 6, ' ');
  }
  const std::string front = std::string("<!DOCTYPE ") + doctype_name + " PUBLIC \"" +
                            doctype_public_id + "\"\n     \"" + doctype_system_id + "\">\n\n" +
                            "<html xmlns='" + xml_namespace + "'>\n" +
                            "  <head>\n"
                            "    <title>\n"
                            "      " +
                            page_title +
                            "\n"
                            "    </title>\n"
                            "    <style type='text/css'>\n"
                            "      " +
                            sheet +
                            "\n"
                            "    </style>\n"
                            "  </head>\n"
                            "  <body>\n"
                            "    <h1 class='Style1'>\n"
                            "      " +
                            page_heading +
                            "\n"
                            "    </h1>\n"
                            "    <p>\n";
  return u'\uFEFF' + widen(front);
}

constexpr std::u16string_view empty_block = u"    <p>\n    </p>\n";

/// No tree and no rules: writes the bytes of the page as fast as a plain loop can. The floor that
/// everything else is compared with.
class bare_loop : public contender {
 public:
  std::string name() const override { return bare_loop_name; }
  void build(const workload&) override {}
  void destroy() override {}

  bool save(const workload& work, const page_target& target) override {
    block_file file(target.path());
    file.put(page_front());
    put_lines(file, work);
    file.put(u"    </p>\n");
    if (work.lines() < work.items()) {
      put_table(file, work);
      file.put(empty_block);
    }
    file.put(empty_block);
    file.put(u"  </body>\n</html>\n");
    return file.finish();
  }

 private:
  static void put_table(block_file& file, const workload& work) {
    file.put(u"    <table border='1' class='main' width='100%'>\n");
    for (std::size_t item = work.lines(); item < work.items(); ++item) {
      if ((item - work.lines()) % work.columns() == 0) {
        file.put(item == work.lines() ? u"      <tr>\n" : u"      </tr>\n      <tr>\n");
      }
      file.put(u"        <td valign='top'>\n          ");
      file.put(work.wide(item));
      file.put(u"\n        </td>\n");
    }
    file.put(u"      </tr>\n");
    file.put(u"    </table>\n");
  }

  static void put_lines(block_file& file, const workload& work) {
    for (std::size_t item = 0; item < work.lines(); ++item) {
      file.put(u"      <a>");
      file.put(work.wide(item));
      file.put(u"</a><br/>\n");
    }
  }
};

}  // namespace

std::unique_ptr<contender> make_bare_loop() { return std::make_unique<bare_loop>(); }

}  // namespace bench
