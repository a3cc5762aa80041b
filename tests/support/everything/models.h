#ifndef VEXA_TESTS_SUPPORT_EVERYTHING_MODELS_H
#define VEXA_TESTS_SUPPORT_EVERYTHING_MODELS_H

#include <vector>

#include "support/everything_objects.h"

namespace vexa_test::everything {

/// The model of each class, in the order of ForEachClass. Compiled beside what fills and compares objects.
std::vector<decltype(CKind::Agrees)> Models();

} // namespace vexa_test::everything

#endif
