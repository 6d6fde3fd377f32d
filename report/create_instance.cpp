#include <vellomark/vellomark.h>

#include "report/vellomark_obj.h"

namespace vellomark {

boost::shared_ptr<IVellomark> CreateInstance() {
  return boost::shared_ptr<IVellomark>(new VellomarkObj);
}

}  // namespace vellomark
