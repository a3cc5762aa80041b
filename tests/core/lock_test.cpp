#include <vexa/helper.h>

#include <atomic>
#include <chrono>
#include <stdexcept>
#include <thread>

#include <gtest/gtest.h>

namespace {

using vexa::helper::Acquire_Recursive_Thread_Mutex;
using vexa::helper::CLockGuard;
using vexa::helper::Release_Recursive_Thread_Mutex;

/// Long enough for a thread that is not held back to come through.
constexpr auto kPatience = std::chrono::milliseconds(50);

/// A thread that takes the lock, tells so, and releases it.
class OtherThread {
public:
    OtherThread()
        : m_thread([this] {
              Acquire_Recursive_Thread_Mutex();
              m_hadTheLock = true;
              Release_Recursive_Thread_Mutex();
          })
    {
    }

    bool HadTheLock() const { return m_hadTheLock; }
    void Join() { m_thread.join(); }

private:
    std::atomic<bool> m_hadTheLock{false};
    std::thread m_thread;
};

TEST(Lock, IsReleasedOnlyWhenAThreadReleasedItAsOftenAsItTookIt)
{
    Acquire_Recursive_Thread_Mutex();
    Acquire_Recursive_Thread_Mutex();
    OtherThread other;
    std::this_thread::sleep_for(kPatience);
    EXPECT_FALSE(other.HadTheLock());
    Release_Recursive_Thread_Mutex();
    std::this_thread::sleep_for(kPatience);
    EXPECT_FALSE(other.HadTheLock());
    Release_Recursive_Thread_Mutex();
    other.Join();
    EXPECT_TRUE(other.HadTheLock());
}

TEST(Lock, LetsOneThreadInAtATime)
{
    constexpr int kTimes = 20000;
    long count = 0;
    const auto work = [&count] {
        for (int i = 0; i < kTimes; ++i) {
            const CLockGuard guard;
            count = count + 1;
        }
    };
    std::thread first(work);
    std::thread second(work);
    first.join();
    second.join();
    EXPECT_EQ(2 * kTimes, count);
}

TEST(Lock, AGuardReleasesItWhenAnExceptionLeavesTheScope)
{
    try {
        const CLockGuard guard;
        throw std::runtime_error("out");
    } catch (const std::runtime_error&) {
    }
    OtherThread other;
    other.Join();
    EXPECT_TRUE(other.HadTheLock());
}

} // namespace
