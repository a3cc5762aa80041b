// Groups of references and generic classes: what they hold, and how they are cleared and copied.

#include <vexa/group.h>

#include <map>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "support/group_lookup.h"

namespace {

using namespace group_model;
using namespace vexa_test;
using vexa::CConstRefrence;
using vexa::CGnlClass;
using vexa::CReferenceGroup;
using vexa::CRefrence;
using vexa::RefOf;

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

    EXPECT_EQ(generic.AsString(),
              "\nnullable: NULL\nnumber: 0\nouter: \n  inner: \n    b: 0\n  name: \ntext: \ncolumn 0: 9");
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

    const std::vector<const vexa::CTypeInforBase*> descriptors = {original.TypeInfor.DetailInfor,
                                                                  record.Named.at("a").TypeInfor.DetailInfor,
                                                                  record.Indexed[0].TypeInfor.DetailInfor,
                                                                  byName.TypeInfor.DetailInfor,
                                                                  byPath.TypeInfor.DetailInfor,
                                                                  byIndex.TypeInfor.DetailInfor,
                                                                  copy.Named.at("a").TypeInfor.DetailInfor,
                                                                  copy.Indexed[0].TypeInfor.DetailInfor};
    for (std::size_t i = 0; i < descriptors.size(); ++i) {
        EXPECT_EQ(descriptors[i]->Name, "Money");
        EXPECT_EQ(descriptors[i]->CustomTypeID, 7U);
        for (std::size_t j = 0; j < i; ++j)
            EXPECT_NE(descriptors[i], descriptors[j]) << i << ' ' << j;
    }
}

TEST(Group, CopiesADescriptorThatOwnsItsTypeDeeply)
{
    ExpectDeepCopies<CReferenceGroup, CRefrence>();
    ExpectDeepCopies<CReferenceGroup, CConstRefrence>();
    ExpectDeepCopies<CGnlClass, CConstRefrence>();
}

} // namespace
