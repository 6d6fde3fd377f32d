#ifndef BENCH_CONTENDER_H
#define BENCH_CONTENDER_H

#include <memory>
#include <string>

#include "bench/page_file.h"
#include "bench/workload.h"

namespace bench {

/// One way to make a page. The three phases are called once each, in order.
class contender {
 public:
  contender() = default;
  contender(const contender&) = delete;
  contender& operator=(const contender&) = delete;
  virtual ~contender() = default;

  /// Short name, as in the table and on the command line.
  virtual std::string name() const = 0;

  /// Builds the whole tree in memory.
  virtual void build(const workload& work) = 0;

  /// Writes the page as UTF-16LE with a byte-order mark. False if that failed.
  virtual bool save(const workload& work, const page_target& target) = 0;

  /// Frees the tree.
  virtual void destroy() = 0;
};

std::unique_ptr<contender> make_bare_loop();
std::unique_ptr<contender> make_vellomark_report();
std::unique_ptr<contender> make_pugixml_tree();
std::unique_ptr<contender> make_rapidxml_tree();
std::unique_ptr<contender> make_libxml2_tree();
std::unique_ptr<contender> make_tinyxml2_tree();

/// The versions of the other libraries, for the foot of the table.
std::string pugixml_version();
std::string libxml2_version();
std::string tinyxml2_version();

// Names by which the table finds its units of measure.
inline constexpr const char* bare_loop_name = "bare loop";
inline constexpr const char* vellomark_name = "vellomark";
inline constexpr const char* pugixml_name = "pugixml";
inline constexpr const char* rapidxml_name = "rapidxml";

}  // namespace bench

#endif
