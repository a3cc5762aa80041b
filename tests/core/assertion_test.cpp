#include <vexa/helper.h>

#include <csignal>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

TEST(AssertionDeathTest, TellsExpressionFileLineAndFunctionWithoutANewlineAndAborts)
{
    EXPECT_EXIT(___Coredump_due_to_assertion_failure___("n > 0", "dir/file.cpp", 1234567, "Count"),
                testing::KilledBySignal(SIGABRT),
                testing::Eq("Coredump due to assertion failure: assertExpression=n > 0, "
                            "assertFilePath=dir/file.cpp, assertLine=1234567, assertFunc=Count"));
}

TEST(AssertionDeathTest, PrintsEachNullTextAsNULL)
{
    EXPECT_EXIT(___Coredump_due_to_assertion_failure___(nullptr, nullptr, 7, nullptr), testing::KilledBySignal(SIGABRT),
                testing::Eq("Coredump due to assertion failure: assertExpression=NULL, assertFilePath=NULL, "
                            "assertLine=7, assertFunc=NULL"));
}

} // namespace
