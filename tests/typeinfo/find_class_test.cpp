// The registered classes by their qualified names.

#include <vexa/find_class.h>

#include <algorithm>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

namespace {
namespace unnamed {

struct Hidden {
    int a = 0;
};
VEXA_DESCRIBE(Hidden, a)

} // namespace unnamed
} // namespace

namespace found {

struct Circle {
    int radius = 0;
    struct Center {
        int x = 0;
    };
    Center center;
    std::map<std::string, int> pairs;
};
VEXA_DESCRIBE(Circle::Center, x)
VEXA_DESCRIBE(Circle, radius, center, pairs)

template<class T, class U = int>
struct Box {
    T content{};
};
VEXA_DESCRIBE(Box<int>, content)
VEXA_DESCRIBE(Box<unsigned long>, content)
VEXA_DESCRIBE(Box<std::vector<std::string>>, content)
using Text = std::string;
VEXA_DESCRIBE(Box<Text>, content)

namespace inner {

struct Circle {
    int other = 0;
};
VEXA_DESCRIBE(Circle, other)

} // namespace inner
} // namespace found

struct FoundGlobally {
    int a = 0;
};
VEXA_DESCRIBE(FoundGlobally, a)

namespace {

using vexa::FindClass;
using vexa::QualifiedNameOf;

std::vector<std::string> NamesFrom(const std::string& start)
{
    std::vector<std::string> names;
    vexa::ForEachClass([&](const vexa::CClassInfor& infor) {
        const std::string& name = QualifiedNameOf(infor);
        if (name.compare(0, start.size(), start) == 0) names.push_back(name);
    });
    return names;
}

TEST(FindClass, TakesTheQualifiedName)
{
    EXPECT_EQ(FindClass("found::Circle"), &vexa::ClassInforOf<found::Circle>());
    EXPECT_EQ(FindClass("found::Circle::Center"), &vexa::ClassInforOf<found::Circle::Center>());
    EXPECT_EQ(FindClass("found::inner::Circle"), &vexa::ClassInforOf<found::inner::Circle>());
    EXPECT_EQ(FindClass("FoundGlobally"), &vexa::ClassInforOf<FoundGlobally>());
    EXPECT_EQ(FindClass("(anonymous namespace)::unnamed::Hidden"), &vexa::ClassInforOf<unnamed::Hidden>());
    EXPECT_EQ(FindClass("Circle"), nullptr);
    EXPECT_EQ(FindClass("found::Circ"), nullptr);
    EXPECT_EQ(FindClass("found::Circle "), FindClass("found::Circle"));
    EXPECT_EQ(FindClass(""), nullptr);
    EXPECT_EQ(FindClass("std::pair"), nullptr);
}

TEST(FindClass, LeavesTheRegisteredName)
{
    const vexa::CClassInfor& infor = vexa::ClassInforOf<found::Circle>();
    EXPECT_EQ(infor.Name, "Circle");
    EXPECT_EQ(QualifiedNameOf(infor), "found::Circle");
    EXPECT_EQ(vexa::TypeInforOf<found::Circle>().TypeName(), "Circle");
}

TEST(FindClass, TakesTemplatesAsEitherCompilerWritesThem)
{
    const vexa::CClassInfor* const ofNumber = &vexa::ClassInforOf<found::Box<unsigned long>>();
    EXPECT_EQ(FindClass("found::Box<unsigned long>"), ofNumber);
    EXPECT_EQ(FindClass("found::Box<long unsigned int>"), ofNumber);
    const vexa::CClassInfor* const ofTexts = &vexa::ClassInforOf<found::Box<std::vector<std::string>>>();
    EXPECT_EQ(FindClass("found::Box<std::vector<std::string>>"), ofTexts);
    EXPECT_EQ(FindClass("found::Box<std::vector<std::string> >"), ofTexts);
    EXPECT_EQ(NamesFrom("found::Box"),
              (std::vector<std::string>{"found::Box<int>", "found::Box<std::string>",
                                        "found::Box<std::vector<std::string>>", "found::Box<unsigned long>"}));
}

TEST(ForEachClass, GoesInTheOrderOfTheNames)
{
    const std::vector<std::string> names = NamesFrom("");
    EXPECT_TRUE(std::is_sorted(names.begin(), names.end()));
    EXPECT_EQ(NamesFrom("found::C"), (std::vector<std::string>{"found::Circle", "found::Circle::Center"}));
    EXPECT_EQ(std::count(names.begin(), names.end(), "std::pair"), 0);
}

vexa::CClassInfor* RegisterByHand(vexa::CClassInfor*& slot, const char* name)
{
    return vexa::CClassInfor::InitClassInfor(slot, name, 4, nullptr, nullptr,
                                             [](vexa::CClassInfor&, vexa::Enum::AccessSpecifierEnum) {});
}

TEST(FindClass, TakesTheNameThatAClassIsRegisteredWithByHand)
{
    vexa::CClassInfor *slot = nullptr, *other = nullptr;
    EXPECT_EQ(FindClass("made by hand <"), nullptr);
    const vexa::CClassInfor* const first = RegisterByHand(slot, "made by hand <");
    EXPECT_EQ(FindClass("made by hand <"), first);
    EXPECT_EQ(QualifiedNameOf(*first), "made by hand <");
    const vexa::CClassInfor* const second = RegisterByHand(other, "made by hand <");
    EXPECT_EQ(FindClass("made by hand <"), first);
    EXPECT_EQ(NamesFrom("made by hand").size(), 2u);
    delete slot;
    EXPECT_EQ(FindClass("made by hand <"), second);
    delete other;
    EXPECT_EQ(FindClass("made by hand <"), nullptr);
}

TEST(FindClass, DoesNotKnowADescriptorThatNoRegistrationMakes)
{
    vexa::CClassInfor infor;
    infor.Name = "never registered";
    infor.CreateIndex();
    EXPECT_EQ(FindClass("never registered"), nullptr);
    EXPECT_EQ(QualifiedNameOf(infor), "never registered");
}

TEST(ForEachClass, LetsTheFunctionRegisterClasses)
{
    std::vector<vexa::CClassInfor*> slots(3, nullptr);
    std::size_t next = 0;
    vexa::ForEachClass([&](const vexa::CClassInfor&) {
        if (next == slots.size()) return;
        RegisterByHand(slots[next++], "zzz registered meanwhile");
    });
    EXPECT_EQ(NamesFrom("zzz registered meanwhile").size(), 3u);
    for (const vexa::CClassInfor* const slot : slots)
        delete slot;
    EXPECT_EQ(NamesFrom("zzz registered meanwhile").size(), 0u);
}

TEST(FindClass, IsSafeBesideConcurrentRegistrations)
{
    constexpr std::size_t THREADS = 4, CLASSES = 100;
    std::vector<vexa::CClassInfor*> slots(THREADS * CLASSES, nullptr);
    std::vector<std::thread> threads;
    for (std::size_t number = 0; number < THREADS; ++number) {
        threads.emplace_back([&slots, number] {
            for (std::size_t i = number * CLASSES; i < (number + 1) * CLASSES; ++i) {
                const std::string name = "thread " + std::to_string(i);
                RegisterByHand(slots[i], name.c_str());
                EXPECT_EQ(FindClass(name), slots[i]);
                EXPECT_EQ(FindClass("found::Circle")->Name, "Circle");
                EXPECT_GE(NamesFrom("thread").size(), i % CLASSES + 1);
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(NamesFrom("thread").size(), slots.size());
    for (const vexa::CClassInfor* const slot : slots)
        delete slot;
    EXPECT_EQ(NamesFrom("thread").size(), 0u);
}

} // namespace
