#include "xport/text/byte_file.h"

namespace Xport {

byte_output::~byte_output() = default;

}  // namespace Xport
