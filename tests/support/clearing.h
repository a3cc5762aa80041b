#ifndef VEXA_TESTS_SUPPORT_CLEARING_H
#define VEXA_TESTS_SUPPORT_CLEARING_H

#include <string>

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/captured_log.h"

namespace vexa_test {

/// Clears a value through a general reference. Gives what was logged.
inline std::string Cleared(const vexa::CGnlTypeInfor& type, void* address)
{
    return LoggedLines([&] { vexa::CRefrence(type, address).Clear(); });
}

/// Clears a value and expects that nothing is logged.
inline void ClearSilently(const vexa::CGnlTypeInfor& type, void* address)
{
    EXPECT_EQ("", Cleared(type, address)) << type.TypeName();
}

} // namespace vexa_test

#endif
