// Finding the entries of groups of references and generic classes by name, path and index.

#include <vexa/group.h>

#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "support/group_lookup.h"
#include "support/type_of.h"

namespace {

using namespace group_model;
using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CConstRefrence;
using vexa::CGnlClass;
using vexa::CReferenceGroup;
using vexa::CRefrence;
using vexa::RefOf;

template<class Record_, class Out_>
struct Lookup {
    using Record = Record_;
    using Out = Out_;
};

/// A record and the kind of reference that is looked up in it.
template<class Types>
class GroupLookup : public testing::Test {
public:
    using Record = typename Types::Record;
    using Out = typename Types::Out;

    static std::string Shown(bool isFound, const Out& out)
    {
        return (isFound ? "found " : "missed ") + out.TypeName() + ' ' + out.AsString();
    }
    std::string Name(const std::string& name) const
    {
        Out out(Plain(DT_LONG), &m_before);
        const bool isFound = ByName(m_record, out, name);
        return Shown(isFound, out);
    }
    std::string Path(const std::string& path) const
    {
        Out out(Plain(DT_LONG), &m_before);
        const bool isFound = ByPath(m_record, out, path);
        return Shown(isFound, out);
    }
    std::string Index(unsigned long index) const
    {
        Out out(Plain(DT_LONG), &m_before);
        const bool isFound = ByIndex(m_record, out, index);
        return Shown(isFound, out);
    }

    Record m_record;
    mutable long m_before = 99;
};

using Lookups = testing::Types<Lookup<CReferenceGroup, CRefrence>, Lookup<CReferenceGroup, CConstRefrence>,
                               Lookup<CGnlClass, CConstRefrence>>;

struct LookupNames {
    template<class Types>
    static std::string GetName(int)
    {
        const std::string record = std::is_same_v<typename Types::Record, CGnlClass> ? "GenericClass" : "Group";
        return record + (std::is_same_v<typename Types::Out, CRefrence> ? "Writable" : "ReadOnly");
    }
};
TYPED_TEST_SUITE(GroupLookup, Lookups, LookupNames);

TYPED_TEST(GroupLookup, ByNameIsExact)
{
    int number = 5;
    this->m_record.Add("number", RefOf(number));

    EXPECT_EQ(this->Name("number"), "found int 5");
    EXPECT_EQ(this->Name("Number"), "missed long 99");
    EXPECT_EQ(this->Name("numbe"), "missed long 99");
    EXPECT_EQ(this->Name(""), "missed long 99");
}

TYPED_TEST(GroupLookup, ByIndexEndsAtTheNumberOfIndexedEntries)
{
    int number = 5;
    std::string text = "Ann";
    this->m_record.Add("named", RefOf(number));
    this->m_record.Add(RefOf(number));
    this->m_record.Add(RefOf(text));

    EXPECT_EQ(this->Index(0), "found int 5");
    EXPECT_EQ(this->Index(1), "found std::string Ann");
    EXPECT_EQ(this->Index(2), "missed long 99");
    EXPECT_EQ(this->Index(~0UL), "missed long 99");
}

TYPED_TEST(GroupLookup, OfAnEmptyRecordFindsNothing)
{
    EXPECT_EQ(this->Name("a"), "missed long 99");
    EXPECT_EQ(this->Path("a.b"), "missed long 99");
    EXPECT_EQ(this->Path("."), "missed long 99");
    EXPECT_EQ(this->Index(0), "missed long 99");
}

TYPED_TEST(GroupLookup, ByPathFindsAWholeKeyWithDotsBeforeItSplits)
{
    Inner inner;
    long plain = 7;
    this->m_record.Add("a", RefOf(inner));
    EXPECT_EQ(this->Path("a.b"), "found int 11");

    this->m_record.Add("a.b", RefOf(plain));
    EXPECT_EQ(this->Path("a.b"), "found long 7");
}

TYPED_TEST(GroupLookup, ByPathLeadsThroughTheMembersOfAClass)
{
    Outer outer;
    this->m_record.Add("o", RefOf(outer));

    EXPECT_EQ(this->Path("o.inner.b"), "found int 11");
    EXPECT_EQ(this->Path("o.inner_b"), "found int 11");
    EXPECT_EQ(this->Path("o.name"), "found std::string Ann");
}

TYPED_TEST(GroupLookup, ByPathLeadsThroughGenericClasses)
{
    Outer outer;
    CGnlClass innermost;
    innermost.Add("o", RefOf(outer));
    CGnlClass inner;
    inner.Add("g", RefOf(innermost));
    this->m_record.Add("g", RefOf(inner));

    EXPECT_EQ(this->Path("g.g.o.name"), "found std::string Ann");
}

TYPED_TEST(GroupLookup, ByPathSplitsAtTheFirstDotOnly)
{
    int number = 5;
    CGnlClass inner;
    inner.Add("b.c", RefOf(number));
    this->m_record.Add("a", RefOf(inner));
    this->m_record.Add("x.y", RefOf(inner));

    EXPECT_EQ(this->Path("a.b.c"), "found int 5");
    EXPECT_EQ(this->Path("x.y.b.c"), "missed long 99");
}

TYPED_TEST(GroupLookup, ByPathAllowsEmptyNames)
{
    int number = 5;
    CGnlClass inner;
    inner.Add("", RefOf(number));
    this->m_record.Add("", RefOf(inner));

    EXPECT_EQ(this->Path("."), "found int 5");
}

TYPED_TEST(GroupLookup, ByPathLeavesTheEntryWhereItCannotGoOn)
{
    int number = 5;
    Inner inner;
    CGnlClass generic;
    this->m_record.Add("number", RefOf(number));
    this->m_record.Add("inner", RefOf(inner));
    this->m_record.Add("generic", RefOf(generic));

    EXPECT_EQ(this->Path("number.b"), "missed int 5");
    EXPECT_EQ(this->Path("inner.c"), "missed Inner \nb: 11");
    EXPECT_EQ(this->Path("generic.b"), "missed vexa::CGnlClass ");
    EXPECT_EQ(this->Path("other.b"), "missed long 99");
}

TYPED_TEST(GroupLookup, ByPathDoesNotGoThroughANull)
{
    Inner* noInner = nullptr;
    CGnlClass* noGeneric = nullptr;
    CReferenceGroup* noGroup = nullptr;
    this->m_record.Add("class", RefOf(noInner));
    this->m_record.Add("generic", RefOf(noGeneric));
    this->m_record.Add("group", RefOf(noGroup));

    EXPECT_EQ(this->Path("class.b"), "missed Inner* NULL");
    EXPECT_EQ(this->Path("generic.b"), "missed vexa::CGnlClass* NULL");
    EXPECT_EQ(this->Path("group.b"), "missed vexa::CReferenceGroup* NULL");
}

TYPED_TEST(GroupLookup, ByPathFollowsAPointerToAClassOrGenericClass)
{
    Inner inner;
    Inner* pointer = &inner;
    CGnlClass generic;
    generic.Add("inner", RefOf(pointer));
    CGnlClass* genericPointer = &generic;
    this->m_record.Add("p", RefOf(pointer));
    this->m_record.Add("g", RefOf(genericPointer));

    EXPECT_EQ(this->Path("p.b"), "found int 11");
    EXPECT_EQ(this->Path("g.inner.b"), "found int 11");
}

TEST(GroupPath, LeadsThroughGroupsFromAGroupOnly)
{
    Outer outer;
    CReferenceGroup inner;
    inner.Add("o", RefOf(outer));
    CReferenceGroup* pointer = &inner;
    CReferenceGroup group;
    group.Add("g", RefOf(inner));
    group.Add("p", RefOf(pointer));
    CGnlClass generic;
    generic.Add("g", RefOf(inner));
    group.Add("generic", RefOf(generic));

    CRefrence found;
    EXPECT_TRUE(group.FindReferenceByFlatName(found, "g.o.name"));
    EXPECT_EQ(found.AsString(), "Ann");
    EXPECT_TRUE(group.FindReferenceByFlatName(found, "p.o.inner.b"));
    EXPECT_EQ(found.AsString(), "11");
    CConstRefrence out;
    EXPECT_FALSE(generic.FindAttribByFlatName(out, "g.o.name"));
    EXPECT_EQ(out.Address, &inner);
    EXPECT_FALSE(group.FindReferenceByFlatName(found, "generic.g.o.name"));
}

} // namespace
