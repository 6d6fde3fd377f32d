#include "xport/stream/byte_file.h"

namespace Xport {

byte_output::~byte_output() = default;

byte_input::~byte_input() = default;

}  // namespace Xport
