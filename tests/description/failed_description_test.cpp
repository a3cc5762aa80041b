// A description that fails: nothing of it is kept, and the next use tries again.

#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>
#include <vexa/helper.h>

#include "support/described_text.h"

namespace failed_description {

struct Whole;
struct Part {
    int number = 1;
    Whole* whole = nullptr;
};
struct Whole {
    std::vector<Part> parts;
    std::unique_ptr<Whole> next;
    int last = 2;
};

/// How often the description of Whole still fails, while its descriptor is half built.
int s_failures = 3;

std::string TextOfFailure()
{
    try {
        vexa::ClassInforOf<Part>();
    } catch (const std::runtime_error& failure) {
        return failure.what();
    }
    return "none";
}

bool IsLockFree()
{
    std::thread([] {
        vexa::helper::Acquire_Recursive_Thread_Mutex();
        vexa::helper::Release_Recursive_Thread_Mutex();
    }).join();
    return true;
}

// Before the descriptions take effect by themselves.
const std::string g_first = TextOfFailure();
const std::string g_second = TextOfFailure();
const bool g_isLockFree = IsLockFree();

VEXA_DESCRIBE(Part, number, whole)
VEXA_DESCRIBE_CLASS(Whole)
{
    about.Attrib("parts", &Whole::parts);
    about.Attrib("next", &Whole::next);
    // Looked at once before it is built; the second failure comes while it is being built.
    if (s_failures > 0 && --s_failures != 1) throw std::runtime_error("not yet " + std::to_string(s_failures));
    about.Attrib("last", &Whole::last);
}

} // namespace failed_description

namespace {

using namespace failed_description;

TEST(FailedDescription, GivesItsExceptionOutAndIsTriedAgain)
{
    EXPECT_EQ(g_first, "not yet 2");
    EXPECT_EQ(g_second, "not yet 0");
    EXPECT_TRUE(g_isLockFree);
    EXPECT_EQ(TextOfFailure(), "none");
    const vexa::CClassInfor& whole = vexa::ClassInforOf<Whole>();
    EXPECT_EQ(vexa_test::FlatNamesOf(whole), "last@32 parts@0 ");
    EXPECT_EQ(vexa::ClassInforOf<Part>().AttribNameMap.at("whole")->TypeInfor.DetailInfor, &whole);
    const std::string text = R"({"parts":[{"number":6}],"next":{"parts":[],"last":8},"last":7})";
    EXPECT_EQ(vexa_test::ReadBack<Whole>(text), text);
}

} // namespace
