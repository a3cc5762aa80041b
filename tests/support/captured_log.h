#ifndef VEXA_TESTS_SUPPORT_CAPTURED_LOG_H
#define VEXA_TESTS_SUPPORT_CAPTURED_LOG_H

#include <string>
#include <utility>

#include <gtest/gtest.h>

namespace vexa_test {

/// Runs the action and returns everything that it writes to standard output, newlines included: the logged lines.
/// Not to be nested.
template<typename Action>
std::string LoggedLines(Action&& action)
{
    testing::internal::CaptureStdout();
    std::forward<Action>(action)();
    return testing::internal::GetCapturedStdout();
}

} // namespace vexa_test

#endif
