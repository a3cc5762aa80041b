// Finding attributes of classes with random names, by name and by flat name, compared with the rule over the maps of
// the descriptor.

#include <vexa/class_refrence.h>

#include <algorithm>
#include <cstdint>
#include <deque>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CAttribInfor;
using vexa::CClassConstRefrence;
using vexa::CClassInfor;
using vexa::CConstRefrence;
using vexa::CFlatAttribInfor;
using vexa::CGnlTypeInfor;
using vexa_test::Plain;

constexpr std::uint64_t SEED = 19700101;

/// What the describing function, which takes no argument of the test's, is to describe.
std::vector<std::string> g_names;
const CClassInfor* g_member = nullptr;

void Describe(CClassInfor& infor, AccessSpecifierEnum access)
{
    unsigned short offset = 0;
    for (const std::string& name : g_names) {
        CAttribInfor& record = infor.AddAttribInfor(access, offset, name.c_str(), -1);
        const bool isMember = g_member != nullptr && offset % 5 == 0;
        record.TypeInfor = isMember ? Plain(DT_CLASS, g_member) : Plain(offset % 2 == 0 ? DT_INT : DT_STD_STRING);
        ++offset;
    }
}

/// Names of one alphabet of four letters, so that many of them are nearly the same.
class CNames {
public:
    explicit CNames(std::uint64_t seed) : m_random(seed) {}

    std::size_t Below(std::size_t limit) { return static_cast<std::size_t>(m_random() % limit); }
    std::string Name()
    {
        const std::size_t length = Below(20) == 0 ? 1 + Below(400) : 1 + Below(24);
        std::string name(length, 'a');
        for (std::size_t i = 0, changes = Below(4); i <= changes; ++i)
            name[Below(length)] = "b._c"[Below(4)];
        return name;
    }
    /// A name with something wrong, or nothing.
    std::string Changed(std::string name)
    {
        switch (Below(6)) {
        case 0: name.pop_back(); break;
        case 1: name.push_back('a'); break;
        case 2: name[Below(name.size())] ^= 1; break;
        case 3: std::replace(name.begin(), name.end(), '_', '.'); break;
        case 4: name[Below(name.size())] = '\0'; break;
        default: break;
        }
        return name;
    }

private:
    std::mt19937_64 m_random;
};

const CClassInfor& Register(CNames& names, std::size_t count, const CClassInfor* member)
{
    g_names.clear();
    for (std::size_t i = 0; i < count; ++i)
        g_names.push_back(names.Name());
    g_member = member;
    static auto& s_slots = *new std::deque<CClassInfor*>(); // descriptors live as long as the process
    return *CClassInfor::InitClassInfor(s_slots.emplace_back(), "Random", 1000, nullptr, nullptr, &Describe);
}

/// Expects that a look-up gives this, or leaves the reference alone.
void ExpectFound(bool isFound, const CConstRefrence& out, const CGnlTypeInfor* type, const char* address)
{
    ASSERT_EQ(type != nullptr, isFound);
    EXPECT_EQ(type != nullptr ? type->DataType : 0, out.TypeInfor.DataType);
    EXPECT_EQ(type != nullptr ? type->DetailInfor : nullptr, out.TypeInfor.DetailInfor);
    EXPECT_EQ(type != nullptr ? address : nullptr, out.Address);
}

void ExpectByName(const CClassConstRefrence& object, const std::string& name)
{
    const auto& map = object.ClassInfor().AttribNameMap;
    const auto expected = map.find(name);
    const CAttribInfor* const record = expected != map.end() ? expected->second : nullptr;
    CConstRefrence out;
    const bool isFound = object.FindAttribByName(out, name);
    ExpectFound(isFound, out, record != nullptr ? &record->TypeInfor : nullptr,
                static_cast<char*>(object.Address) + (record != nullptr ? record->Offset : 0));
}

/// The rule: as given, else with every dot an underscore.
const CFlatAttribInfor* ExpectedFlat(const CClassInfor& infor, std::string name)
{
    auto found = infor.FlatAttribMap.find(name);
    if (found == infor.FlatAttribMap.end()) {
        std::replace(name.begin(), name.end(), '.', '_');
        found = infor.FlatAttribMap.find(name);
    }
    return found != infor.FlatAttribMap.end() ? &found->second : nullptr;
}

void ExpectByFlatName(const CClassConstRefrence& object, const std::string& name)
{
    const CFlatAttribInfor* const entry = ExpectedFlat(object.ClassInfor(), name);
    EXPECT_EQ(entry, object.ClassInfor().FindAttribInforByFlatName(name));
    CConstRefrence out;
    const bool isFound = object.FindAttribByFlatName(out, name);
    ExpectFound(isFound, out, entry != nullptr ? &entry->AttribInfor->TypeInfor : nullptr,
                static_cast<char*>(object.Address) + (entry != nullptr ? entry->Offset : 0));
}

TEST(RandomLookup, FindsWhatTheMapsHold)
{
    CNames names(SEED);
    std::vector<char> memory(2000);
    std::size_t found = 0;
    for (int round = 0; round < 300 && !HasFailure(); ++round) {
        SCOPED_TRACE("seed " + std::to_string(SEED) + ", class " + std::to_string(round));
        const CClassInfor& member = Register(names, names.Below(12), nullptr);
        const CClassInfor& infor = Register(names, names.Below(70), &member);
        const CClassConstRefrence object(infor, memory.data());
        std::vector<std::string> asked = {"", ".", "_", "absent"};
        for (const auto& [name, record] : infor.AttribNameMap)
            asked.insert(asked.end(), {name, names.Changed(name)});
        for (const auto& [name, entry] : infor.FlatAttribMap)
            asked.insert(asked.end(), {name, names.Changed(name)});
        for (const std::string& name : asked) {
            ExpectByName(object, name);
            ExpectByFlatName(object, name);
            found += infor.FindAttribInforByFlatName(name) != nullptr ? 1 : 0;
        }
    }
    EXPECT_GT(found, 10000U) << "seed " << SEED;
}

/// The tables are made by the look-up that needs them first.
TEST(RandomLookup, ConcurrentFirstLookUpsFindTheSame)
{
    CNames names(SEED + 1);
    std::vector<char> memory(2000);
    for (int round = 0; round < 20; ++round) {
        const CClassInfor& member = Register(names, 5, nullptr);
        const CClassInfor& infor = Register(names, 40, &member);
        const CClassConstRefrence object(infor, memory.data());
        std::vector<std::thread> threads;
        for (int i = 0; i < 4; ++i) {
            threads.emplace_back([&] {
                for (const auto& [name, record] : infor.AttribNameMap)
                    ExpectByName(object, name);
                for (const auto& [name, entry] : infor.FlatAttribMap)
                    ExpectByFlatName(object, name);
            });
        }
        for (std::thread& thread : threads)
            thread.join();
    }
}

/// One filled by hand has no table and is searched by its maps.
TEST(RandomLookup, ADescriptorThatNoRegistrationHasFinishedIsSearchedToo)
{
    CNames names(SEED + 2);
    std::vector<char> memory(2000);
    const CClassInfor& member = Register(names, 5, nullptr);
    g_names = {"first", "second.part", "third_part"};
    g_member = &member;
    CClassInfor infor;
    Describe(infor, AS_PUBLIC);
    infor.CreateIndex();
    const CClassConstRefrence object(infor, memory.data());
    for (const char* name : {"first", "second.part", "second_part", "third.part", "third_part", "", "absent"}) {
        ExpectByName(object, name);
        ExpectByFlatName(object, name);
    }
    for (const auto& [name, entry] : infor.FlatAttribMap)
        ExpectByFlatName(object, names.Changed(name));
}

} // namespace
