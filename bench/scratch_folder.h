#ifndef BENCH_SCRATCH_FOLDER_H
#define BENCH_SCRATCH_FOLDER_H

#include <string>

namespace bench {

/// A folder of its own below another one, with the library's report folder inside. Both
/// go with the object, and all files in them.
class scratch_folder {
 public:
  /// Makes "`parent`/`program`.XXXXXX", where the X are any letters.
  scratch_folder(const std::string& parent, const std::string& program);
  scratch_folder(const scratch_folder&) = delete;
  scratch_folder& operator=(const scratch_folder&) = delete;
  ~scratch_folder();

  bool made() const { return made_; }
  const std::string& path() const { return path_; }

 private:
  std::string path_;
  bool made_;
};

}  // namespace bench

#endif
