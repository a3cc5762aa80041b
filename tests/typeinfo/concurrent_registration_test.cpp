// Registration from several threads, and from a description that throws.

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/class_infor.h>
#include <vexa/helper.h>

#include "support/described_class.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CClassInfor;
using vexa_test::Add;
using vexa_test::DescribedClass;
using vexa_test::ListOf;
using vexa_test::Plain;

/// A slot whose descriptor goes away with the test.
struct Slot {
    ~Slot() { delete Infor; }
    CClassInfor* Infor = nullptr;
};

CClassInfor* RegisterThing(CClassInfor*& slot, CClassInfor::DescribeFunction describe)
{
    return CClassInfor::InitClassInfor(slot, "Thing", 24, nullptr, nullptr, describe);
}

std::atomic<int> g_descriptions{0};

void DescribeSlowly(CClassInfor& about, AccessSpecifierEnum)
{
    ++g_descriptions;
    Add(about, "a", 0, Plain(DT_INT), 1);
    std::this_thread::sleep_for(std::chrono::milliseconds(20)); // so that the other threads come meanwhile
    Add(about, "b", 4, Plain(DT_INT), 2);
}

constexpr std::size_t kThreads = 8;

/// Runs the action on eight threads at once, with the number of the thread.
template<class Action>
void OnEightThreads(Action action)
{
    std::atomic<std::size_t> ready{0};
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < kThreads; ++i) {
        threads.emplace_back([&, i] {
            ++ready;
            while (ready < kThreads)
                std::this_thread::yield();
            action(i);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
}

TEST(ConcurrentRegistration, EightThreadsGetOneCompleteDescriptor)
{
    g_descriptions = 0;
    Slot slot;
    std::array<CClassInfor*, kThreads> got{};
    std::array<std::string, kThreads> lists;
    OnEightThreads([&](std::size_t i) {
        got[i] = RegisterThing(slot.Infor, &DescribeSlowly);
        lists[i] = ListOf(*got[i]);
    });
    EXPECT_EQ(1, g_descriptions);
    for (std::size_t i = 0; i < kThreads; ++i) {
        EXPECT_EQ(slot.Infor, got[i]);
        EXPECT_EQ("a@0 b@4 ", lists[i]);
    }
}

TEST(ConcurrentRegistration, EightThreadsRegisterClassesOfTheirOwn)
{
    DescribedClass base("Base", 8, [](CClassInfor& about) { Add(about, "base", 0, Plain(DT_INT)); });
    std::array<Slot, kThreads> slots;
    OnEightThreads([&](std::size_t i) {
        for (std::size_t j = 0; j < kThreads; ++j) {
            CClassInfor*& slot = slots[(i + j) % kThreads].Infor; // in another order on each thread
            const auto describe = [](CClassInfor& about, AccessSpecifierEnum) {
                Add(about, "own", 8, Plain(DT_INT), 7);
            };
            CClassInfor::InitClassInforWithBaseClass(slot, "Thing", 24, nullptr, nullptr, describe, *base, 16);
            EXPECT_NE(nullptr, slot->AttribIDMap().FindAttrib(7));
        }
    });
    for (const Slot& slot : slots)
        EXPECT_EQ("base+@16 own@8 ", ListOf(*slot.Infor));
}

/// What a describing function that throws leaves behind. Runs in a process of its own, since the lock stays taken.
[[noreturn]] void ThrowWhileDescribing()
{
    static CClassInfor* slot = nullptr;
    const auto describe = [](CClassInfor& about, AccessSpecifierEnum) {
        Add(about, "before", 0, Plain(DT_INT));
        throw std::runtime_error("described no further");
    };
    std::string caught;
    try {
        RegisterThing(slot, describe);
    } catch (const std::runtime_error& error) {
        caught = error.what();
    }
    static std::atomic<bool> gotLock{false}; // outlives this function: the thread is left behind
    std::thread([] {
        vexa::helper::Acquire_Recursive_Thread_Mutex();
        gotLock = true;
    }).detach();
    const CClassInfor* const inProgress = RegisterThing(slot, describe);
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
    std::fprintf(stderr, "caught \"%s\", slot %s, lock %s, in progress \"%s\"", caught.c_str(),
                 slot == nullptr ? "null" : "set", gotLock ? "free" : "held", ListOf(*inProgress).c_str());
    std::fflush(stderr);
    std::_Exit(0);
}

TEST(RegistrationDeathTest, AnExceptionLeavesTheLockHeldAndTheClassInProgress)
{
    EXPECT_EXIT(ThrowWhileDescribing(), testing::ExitedWithCode(0),
                "caught \"described no further\", slot null, lock held, in progress \"before@0 \"");
}

} // namespace
