#ifndef EXAMPLES_MEASUREMENT_REPORT_BMP_FILE_H
#define EXAMPLES_MEASUREMENT_REPORT_BMP_FILE_H

#include <filesystem>
#include <string>

#include "image.h"

namespace measurement_report {

/// The bytes of the picture as a Windows bitmap: 24 bits for a pixel, not
/// compressed, the lowest row first.
std::string to_bmp(const image& picture);

/// Creates or replaces the file. Throws std::runtime_error if it can't be written.
void write_bmp(const std::filesystem::path& path, const image& picture);

}  // namespace measurement_report

#endif
