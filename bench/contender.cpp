#include "bench/contender.h"

namespace bench {

const char* const bare_loop_name = "bare loop";
const char* const vellomark_name = "vellomark";
const char* const pugixml_name = "pugixml";

contender::~contender() = default;

std::vector<std::unique_ptr<contender>> all_contenders() {
  std::vector<std::unique_ptr<contender>> all;
  all.push_back(make_vellomark_report());
  all.push_back(make_pugixml_tree());
  all.push_back(make_libxml2_tree());
  all.push_back(make_tinyxml2_tree());
  all.push_back(make_bare_loop());
  return all;
}

}  // namespace bench
