// The operations of vectors, whatever their elements: the same as the vector's own.

#include <memory>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/described_text.h"

namespace vector_operations {

/// Counts its objects, and fails to be made when it is told to.
struct Counted {
    Counted()
    {
        if (s_fails) throw std::runtime_error("no more");
        ++s_alive;
    }
    Counted(const Counted& other) : text(other.text) { ++s_alive; }
    Counted(Counted&& other) noexcept : text(std::move(other.text)) { ++s_alive; }
    Counted& operator=(const Counted&) = default;
    ~Counted() { --s_alive; }
    std::string text = "a text that is too long to lie inside a std::string object";
    static int s_alive;
    static bool s_fails;
};
int Counted::s_alive = 0;
bool Counted::s_fails = false;
VEXA_DESCRIBE(Counted, text)

/// Its moves may throw, so that the vector copies.
struct Copied {
    Copied() = default;
    Copied(const Copied& other) : number(other.number + 1000) {}
    Copied(Copied&& other) : number(other.number) {}
    Copied& operator=(const Copied&) = default;
    int number = 1;
};
VEXA_DESCRIBE(Copied, number)

struct alignas(64) Aligned {
    long number = 2;
};
VEXA_DESCRIBE(Aligned, number)

enum class Sort : short { NONE, SOME = 7 };

} // namespace vector_operations

namespace {

using namespace vector_operations;

const vexa::CContainerInfor& InforOf(const vexa::CGnlTypeInfor& type)
{
    return *static_cast<const vexa::CContainerInfor*>(type.DetailInfor);
}

template<class T>
std::vector<const void*> Walk(std::vector<T>& walked, bool isReverse)
{
    const vexa::CContainerInfor& infor = InforOf(vexa::TypeInforOf<std::vector<T>>());
    std::vector<const void*> met;
    void* element = nullptr;
    void* const cursor = (isReverse ? infor.RBegin : infor.Begin)(&walked, &element);
    EXPECT_NE(cursor, nullptr);
    while (element != nullptr) {
        met.push_back(element);
        element = (isReverse ? infor.RNext : infor.Next)(&walked, cursor);
    }
    (isReverse ? infor.RRelease : infor.Release)(cursor);
    return met;
}

template<class T>
void ExpectWalks(std::vector<T>& walked)
{
    std::vector<const void*> expected;
    for (T& element : walked)
        expected.push_back(std::addressof(element));
    EXPECT_EQ(Walk(walked, false), expected);
    EXPECT_EQ(Walk(walked, true), std::vector<const void*>(expected.rbegin(), expected.rend()));
}

/// Does the same to a vector through its operations and to another one directly.
template<class T>
void ExpectSameAsItsOwn(unsigned seed)
{
    std::mt19937 random(seed);
    const vexa::CContainerInfor& infor = InforOf(vexa::TypeInforOf<std::vector<T>>());
    std::vector<T> done;
    std::vector<T> own;
    for (int step = 0; step < 300; ++step) {
        if (random() % 40 == 0) {
            infor.Clear(&done);
            own.clear();
        } else if (random() % 60 == 0) {
            std::vector<T>().swap(done);
            std::vector<T>().swap(own);
        } else {
            void* const added = infor.Append(&done);
            own.emplace_back();
            ASSERT_EQ(added, &done.back());
        }
        ASSERT_EQ(done.size(), own.size()) << "seed " << seed;
        ASSERT_EQ(done.capacity(), own.capacity()) << "seed " << seed;
        ASSERT_EQ(infor.Count(&done), own.size());
    }
    ExpectWalks(done);
    EXPECT_EQ(vexa_test::Json(done), vexa_test::Json(own)) << "seed " << seed;
}

TEST(VectorOperations, DoWhatTheVectorDoes)
{
    for (unsigned seed = 1; seed < 20; ++seed) {
        ExpectSameAsItsOwn<int>(seed);
        ExpectSameAsItsOwn<char>(seed);
        ExpectSameAsItsOwn<long double>(seed);
        ExpectSameAsItsOwn<Sort>(seed);
        ExpectSameAsItsOwn<std::string>(seed);
        ExpectSameAsItsOwn<std::vector<int>>(seed);
        ExpectSameAsItsOwn<std::unique_ptr<Counted>>(seed);
        ExpectSameAsItsOwn<vexa::MayNull<std::string>>(seed);
        ExpectSameAsItsOwn<int*>(seed);
        ExpectSameAsItsOwn<Counted>(seed);
        ExpectSameAsItsOwn<Copied>(seed);
        ExpectSameAsItsOwn<Aligned>(seed);
    }
    EXPECT_EQ(Counted::s_alive, 0);
}

TEST(VectorOperations, AnAppendThatFailsLeavesTheVectorAsItWas)
{
    const vexa::CContainerInfor& infor = InforOf(vexa::TypeInforOf<std::vector<Counted>>());
    for (const std::size_t room : {3U, 10U}) {
        std::vector<Counted> list;
        list.reserve(room);
        list.resize(3);
        const Counted* const data = list.data();
        const std::size_t capacity = list.capacity();
        Counted::s_fails = true;
        EXPECT_THROW(infor.Append(&list), std::runtime_error);
        Counted::s_fails = false;
        EXPECT_EQ(list.data(), data);
        EXPECT_EQ(list.size(), 3U);
        EXPECT_EQ(list.capacity(), capacity);
        EXPECT_EQ(Counted::s_alive, 3);
        infor.Append(&list);
        EXPECT_EQ(Counted::s_alive, 4);
    }
    EXPECT_EQ(Counted::s_alive, 0);
}

TEST(VectorOperations, AVectorIsMadeEmptyAndDestroyedWithItsElements)
{
    const vexa::CGnlTypeInfor& type = vexa::TypeInforOf<std::vector<Counted>>();
    void* made = type.New();
    auto& list = *static_cast<std::vector<Counted>*>(made);
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.capacity(), 0U);
    list.resize(5);
    EXPECT_EQ(Counted::s_alive, 5);
    type.Delete(made);
    EXPECT_EQ(made, nullptr);
    EXPECT_EQ(Counted::s_alive, 0);
    type.Delete(made);
}

TEST(VectorOperations, TheClearedVectorKeepsItsRoom)
{
    std::vector<Counted> list(5);
    const std::size_t capacity = list.capacity();
    vexa::RefOf(list).Clear();
    EXPECT_TRUE(list.empty());
    EXPECT_EQ(list.capacity(), capacity);
    EXPECT_EQ(Counted::s_alive, 0);
}

} // namespace
