#ifndef TESTS_SUPPORT_NAMES_H
#define TESTS_SUPPORT_NAMES_H

namespace Xport {}

/// The namespace of all tests. They name what they test without a prefix.
namespace test {
using namespace Xport;
}

#endif
