#include "bench/contender.h"

namespace bench {

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
