// Groups of references and generic classes: adding, removing and finding entries.

#include <vexa/group.h>

#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/captured_log.h"
#include "support/type_of.h"

namespace group_test {

struct Inner {
    int b = 11;
};
VEXA_DESCRIBE(Inner, b)

struct Outer {
    Inner inner;
    std::string name = "Ann";
};
VEXA_DESCRIBE(Outer, inner, name)

} // namespace group_test

namespace {

using namespace group_test;
using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CConstRefrence;
using vexa::CGnlClass;
using vexa::CReferenceGroup;
using vexa::CRefrence;
using vexa::RefOf;

/// Both records have the same lookups under different names.
template<class Out>
bool ByName(const CReferenceGroup& group, Out& out, const std::string& name)
{
    return group.FindReferenceByName(out, name);
}
bool ByName(const CGnlClass& group, CConstRefrence& out, const std::string& name)
{
    return group.FindAttribByName(out, name);
}
template<class Out>
bool ByPath(const CReferenceGroup& group, Out& out, const std::string& path)
{
    return group.FindReferenceByFlatName(out, path);
}
bool ByPath(const CGnlClass& group, CConstRefrence& out, const std::string& path)
{
    return group.FindAttribByFlatName(out, path);
}
template<class Out>
bool ByIndex(const CReferenceGroup& group, Out& out, unsigned long index)
{
    return group.FindReferenceByIndex(out, index);
}
bool ByIndex(const CGnlClass& group, CConstRefrence& out, unsigned long index)
{
    return group.FindAttribByIndex(out, index);
}

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
TYPED_TEST_SUITE(GroupLookup, Lookups);

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

TEST(Group, GivesReferencesThatWriteToTheValue)
{
    int number = 5;
    CReferenceGroup group;
    group.Add("number", RefOf(number));
    group.Add(RefOf(number));
    CRefrence found;
    ASSERT_TRUE(group.FindReferenceByName(found, "number"));
    found.AsStdBasicType().ReadFrom(6);
    EXPECT_EQ(number, 6);
    ASSERT_TRUE(group.FindReferenceByIndex(found, 0));
    found.AsStdBasicType().ReadFrom(7);
    EXPECT_EQ(number, 7);
}

TEST(Group, CopyingAnEntryOntoItselfSucceedsAndChangesNothing)
{
    int number = 5;
    CReferenceGroup group;
    group.Add("number", RefOf(number));
    group.Add(RefOf(number));

    EXPECT_TRUE(group.FindReferenceByName(group.Named["number"], "number"));
    EXPECT_TRUE(group.FindReferenceByFlatName(group.Named["number"], "number"));
    EXPECT_TRUE(group.FindReferenceByIndex(group.Indexed[0], 0));
    EXPECT_EQ(group.AsString(), "\nnumber: 5\ncolumn 0: 5");
}

TEST(Group, ClearLeavesEveryEntryInPlace)
{
    int number = 5;
    CReferenceGroup group;
    group.Add("number", RefOf(number));
    group.Add(RefOf(number));
    group.Clear();
    EXPECT_EQ(group.AsString(), "\nnumber: 5\ncolumn 0: 5");
}

TEST(Group, LinesUpNamedAndIndexedEntries)
{
    int number = 5;
    std::string text = "Ann";
    CReferenceGroup group;
    group.Add("y", RefOf(text));
    group.Add("x", RefOf(number));
    group.Add(RefOf(text));
    group.Add(RefOf(number));
    EXPECT_EQ(group.AsString(), "\nx: 5\ny: Ann\ncolumn 0: Ann\ncolumn 1: 5");
}

template<class Record>
void ExpectAddReplaceAndRemove()
{
    int number = 5;
    std::string text = "Ann";
    Record record;
    record.Add("a", RefOf(number));
    record.Add("a", RefOf(text));
    record.Add("b", RefOf(number));
    record.Add(RefOf(number));
    EXPECT_EQ(record.AsString(), "\na: Ann\nb: 5\ncolumn 0: 5");

    EXPECT_TRUE(record.Remove("a"));
    EXPECT_FALSE(record.Remove("a"));
    EXPECT_FALSE(record.Remove("column 0"));
    EXPECT_EQ(record.AsString(), "\nb: 5\ncolumn 0: 5");
}

TEST(Group, AddsReplacesAndRemovesNamedEntries)
{
    ExpectAddReplaceAndRemove<CReferenceGroup>();
    ExpectAddReplaceAndRemove<CGnlClass>();
}

TEST(Group, KeepsItsEntriesWhereTheApplicationCanReachThem)
{
    int number = 5;
    CReferenceGroup group;
    group.Named.emplace("a", RefOf(number));
    group.Indexed.push_back(RefOf(number));
    static_assert(std::is_same_v<decltype(group.Named), std::map<std::string, CRefrence>>);
    static_assert(std::is_same_v<decltype(group.Indexed), std::vector<CRefrence>>);
    EXPECT_EQ(group.AsString(), "\na: 5\ncolumn 0: 5");
}

TEST(GenericClass, ClearKeepsTheNamesAndClearsEachValue)
{
    int number = 5;
    std::string text = "Ann";
    Outer outer;
    vexa::MayNull<long> nullable = 7L;
    int indexed = 9;
    CGnlClass generic;
    generic.Add("number", RefOf(number));
    generic.Add("text", RefOf(text));
    generic.Add("outer", RefOf(outer));
    generic.Add("nullable", RefOf(nullable));
    generic.Add(RefOf(indexed));

    RefOf(generic).Clear();

    EXPECT_EQ(generic.AsString(), "\nnullable: NULL\nnumber: 0\nouter: \n  inner: \n    b: 0\n  name: \ntext: \ncolumn 0: 9");
}

TEST(GenericClass, ClearEntersGenericClassesButNotGroups)
{
    int number = 5;
    int kept = 6;
    CGnlClass inner;
    inner.Add("number", RefOf(number));
    CReferenceGroup group;
    group.Add("kept", RefOf(kept));
    CGnlClass generic;
    generic.Add("inner", RefOf(inner));
    generic.Add("group", RefOf(group));

    RefOf(generic).Clear();

    EXPECT_EQ(number, 0);
    EXPECT_EQ(kept, 6);
}

TEST(GenericClass, ClearOfOneInsideItselfEnds)
{
    int number = 5;
    CGnlClass generic;
    CGnlClass inner;
    generic.Add("inner", RefOf(inner));
    generic.Add("number", RefOf(number));
    inner.Add("outer", RefOf(generic));

    RefOf(generic).Clear();

    EXPECT_EQ(number, 0);
}

TEST(GenericClass, ClearsAnEntryThatIsThereTwiceEachTime)
{
    std::vector<int> numbers = {1, 2};
    CGnlClass shared;
    shared.Add("numbers", RefOf(numbers));
    CGnlClass generic;
    generic.Add("a", RefOf(shared));
    generic.Add("b", RefOf(shared));

    RefOf(generic).Clear();
    EXPECT_TRUE(numbers.empty());
    numbers = {3};
    RefOf(generic).Clear();
    EXPECT_TRUE(numbers.empty());
}

/// A reference whose descriptor owns the custom type that it names.
CRefrence OwnedCustom(void* object)
{
    vexa::CGnlTypeInfor type;
    type.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 7);
    return {type, object};
}

template<class Record, class Out>
void ExpectDeepCopies()
{
    int number = 5;
    const CRefrence original = OwnedCustom(&number);
    Record record;
    record.Add("a", original);
    record.Add("a", original);
    record.Add(original);
    Out byName;
    Out byPath = OwnedCustom(nullptr);
    Out byIndex;
    ASSERT_TRUE(ByName(record, byName, "a") && ByPath(record, byPath, "a") && ByIndex(record, byIndex, 0));
    const Record copy = record;

    const std::vector<const vexa::CTypeInforBase*> descriptors = {
        original.TypeInfor.DetailInfor,          record.Named.at("a").TypeInfor.DetailInfor,
        record.Indexed[0].TypeInfor.DetailInfor, byName.TypeInfor.DetailInfor,
        byPath.TypeInfor.DetailInfor,            byIndex.TypeInfor.DetailInfor,
        copy.Named.at("a").TypeInfor.DetailInfor, copy.Indexed[0].TypeInfor.DetailInfor};
    for (std::size_t i = 0; i < descriptors.size(); ++i) {
        EXPECT_EQ(descriptors[i]->Name, "Money");
        EXPECT_EQ(descriptors[i]->CustomTypeID, 7U);
        for (std::size_t j = 0; j < i; ++j) EXPECT_NE(descriptors[i], descriptors[j]) << i << ' ' << j;
    }
}

TEST(Group, CopiesADescriptorThatOwnsItsTypeDeeply)
{
    ExpectDeepCopies<CReferenceGroup, CRefrence>();
    ExpectDeepCopies<CReferenceGroup, CConstRefrence>();
    ExpectDeepCopies<CGnlClass, CConstRefrence>();
}

} // namespace
