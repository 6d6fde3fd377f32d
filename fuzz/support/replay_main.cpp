// Runs a target over kept inputs without the fuzzing engine. The arguments are files, and folders
// whose files are all run.
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/temp_folder.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace {

std::vector<std::filesystem::path> files_in(const std::filesystem::path& path) {
  if (!std::filesystem::is_directory(path)) return {path};
  std::vector<std::filesystem::path> files;
  for (const auto& entry : std::filesystem::directory_iterator(path))
    if (entry.is_regular_file()) files.push_back(entry.path());
  return files;
}

void replay(const std::filesystem::path& path) {
  const std::string bytes = test::bytes_of(path);
  LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) {
    for (const std::filesystem::path& file : files_in(argv[i])) {
      std::printf("%s\n", file.string().c_str());
      std::fflush(stdout);  // so that a file that ends the program is named
      replay(file);
      ++count;
    }
  }
  std::printf("%zu inputs passed\n", count);
  return count != 0 ? 0 : 1;
}
