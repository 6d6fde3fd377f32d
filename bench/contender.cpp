#include "bench/contender.h"

namespace bench {

const char* const bare_loop_name = "bare loop";
const char* const vellomark_name = "vellomark";
const char* const pugixml_name = "pugixml";

contender::~contender() = default;

}  // namespace bench
