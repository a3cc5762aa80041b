#include <vexa/class_refrence.h>

#include <atomic>
#include <cstddef>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/described_class.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CAttribInfor;
using vexa::CClassConstRefrence;
using vexa::CClassInfor;
using vexa::CConstRefrence;
using vexa::CGnlTypeInfor;
using vexa_test::Add;
using vexa_test::AddUnionMember;
using vexa_test::DescribedClass;
using vexa_test::LoggedLines;
using vexa_test::Plain;
using vexa_test::Wrapped;

struct Inner {
    int First = 1;
    int Value = 2;
};

struct Thing {
    short Kind = 2;
    int Number = 10;
    Inner Direct;
    Inner* Pointer = nullptr;
    long One = 11;
    double Three = 13;
};

class ClassRefrence : public testing::Test {
protected:
    const DescribedClass m_inner{"Inner", sizeof(Inner), [](CClassInfor& about) {
                                     Add(about, "first", offsetof(Inner, First), Plain(DT_INT));
                                     Add(about, "value", offsetof(Inner, Value), Plain(DT_INT));
                                 }};
    const DescribedClass m_class{
        "Thing", sizeof(Thing), [this](CClassInfor& about) {
            const CAttribInfor& kind = Add(about, "kind", offsetof(Thing, Kind), Plain(DT_SHORT), 0);
            Add(about, "number", offsetof(Thing, Number), Plain(DT_INT), 200);
            Add(about, "inner", offsetof(Thing, Direct), Plain(DT_CLASS, &*m_inner), 5);
            Add(about, "other", offsetof(Thing, Pointer), vexa_test::OwnedPointer(DT_CLASS, &*m_inner));
            AddUnionMember(about, "one", offsetof(Thing, One), Plain(DT_LONG), kind, 1);
            AddUnionMember(about, "three", offsetof(Thing, Three), Plain(DT_DOUBLE), kind, 3);
        }};
    Thing m_thing;
    CClassConstRefrence m_ref{*m_class, &m_thing};
};

void ExpectRefers(const CConstRefrence& ref, const char* typeName, const void* address)
{
    EXPECT_EQ(typeName, ref.TypeName());
    EXPECT_EQ(address, ref.Address);
}

TEST_F(ClassRefrence, IsOfCode1WithTheClassAsItsDescriptor)
{
    ExpectRefers(m_ref, "Thing", &m_thing);
    EXPECT_EQ(DT_CLASS, m_ref.TypeInfor.DataType);
    EXPECT_EQ(0, m_ref.TypeInfor.HoldingFlags);
    EXPECT_EQ(&*m_class, &m_ref.ClassInfor());
}

TEST_F(ClassRefrence, FindsAnAttributeByItsExactName)
{
    CConstRefrence out;
    ASSERT_TRUE(m_ref.FindAttribByName(out, "number"));
    ExpectRefers(out, "int", &m_thing.Number);
    ASSERT_TRUE(m_ref.FindAttribByName(out, "other"));
    ExpectRefers(out, "Inner*", &m_thing.Pointer);
    ASSERT_TRUE(m_ref.FindAttribByName(out, "one")) << "whatever the selector holds";
    ExpectRefers(out, "long", &m_thing.One);
}

TEST_F(ClassRefrence, FindsALeafByItsFlatName)
{
    for (const char* name : {"inner_value", "inner.value"}) {
        CConstRefrence out;
        ASSERT_TRUE(m_ref.FindAttribByFlatName(out, name)) << name;
        ExpectRefers(out, "int", &m_thing.Direct.Value);
    }
    CConstRefrence out;
    ASSERT_TRUE(m_ref.FindAttribByFlatName(out, "number"));
    ExpectRefers(out, "int", &m_thing.Number);
}

TEST_F(ClassRefrence, DoesNotFollowThePointerToAFlatLeaf)
{
    CConstRefrence out;
    ASSERT_TRUE(m_ref.FindAttribByFlatName(out, "other.value"));
    ExpectRefers(out, "int", reinterpret_cast<char*>(&m_thing) + offsetof(Inner, Value));
}

TEST_F(ClassRefrence, FindsAnAttributeByItsID)
{
    CConstRefrence out;
    ASSERT_TRUE(m_ref.FindAttribByID(out, 0));
    ExpectRefers(out, "short", &m_thing.Kind);
    ASSERT_TRUE(m_ref.FindAttribByID(out, 200));
    ExpectRefers(out, "int", &m_thing.Number);
    ASSERT_TRUE(m_ref.FindAttribByID(out, 5));
    ExpectRefers(out, "Inner", &m_thing.Direct);
}

TEST_F(ClassRefrence, FindsAUnionMemberWhateverTheSelectorHolds)
{
    for (const short kind : {1, 2, 3}) {
        m_thing.Kind = kind;
        CConstRefrence out;
        ASSERT_TRUE(m_ref.FindAttribByUnionAttribEnum(out, 3));
        ExpectRefers(out, "double", &m_thing.Three);
        ASSERT_TRUE(m_ref.FindAttribByUnionAttribEnum(out, 1));
        ExpectRefers(out, "long", &m_thing.One);
    }
}

TEST_F(ClassRefrence, LeavesTheResultUntouchedWhenNothingIsFound)
{
    int other = 0;
    CConstRefrence out(vexa_test::ConstPointer(DT_INT), &other);
    EXPECT_EQ("", LoggedLines([&] {
                  for (const char* name : {"", "Number", "inner_value", "inner.value", "number "}) {
                      EXPECT_FALSE(m_ref.FindAttribByName(out, name)) << name;
                  }
                  for (const char* name : {"", "inner", "inner.none", "other", "."}) {
                      EXPECT_FALSE(m_ref.FindAttribByFlatName(out, name)) << name;
                  }
                  for (const short key : {-32768, -1, 4, 6, 63, 64, 201, 32767}) {
                      EXPECT_FALSE(m_ref.FindAttribByID(out, key)) << key;
                      EXPECT_FALSE(m_ref.FindAttribByUnionAttribEnum(out, key)) << key;
                  }
                  EXPECT_FALSE(m_ref.FindAttribByUnionAttribEnum(out, 2));
                  EXPECT_FALSE(m_ref.FindAttribByUnionAttribEnum(out, 0));
              }));
    ExpectRefers(out, "const int*", &other);
}

TEST_F(ClassRefrence, ANameWithoutARecordIsNotFound)
{
    DescribedClass broken("Broken", 8, [](CClassInfor&) {});
    broken.Writable().AttribNameMap["gone"] = nullptr;
    CConstRefrence out;
    EXPECT_FALSE(CClassConstRefrence(*broken, &m_thing).FindAttribByName(out, "gone"));
    EXPECT_EQ(nullptr, out.Address);
}

TEST_F(ClassRefrence, FindsInTheObjectHoweverItIsHeld)
{
    Thing* pointer = &m_thing;
    Wrapped<Thing> wrapper{0, {}};
    const struct {
        CGnlTypeInfor Type;
        const void* Holder;
        const Thing* Object;
    } forms[] = {
        {Plain(DT_CLASS, &*m_class), &m_thing, &m_thing},
        {vexa_test::OwnedPointer(DT_CLASS, &*m_class), &pointer, &m_thing},
        {vexa_test::ConstPointer(DT_CLASS, &*m_class), &pointer, &m_thing},
        {vexa_test::NonNullPointer(DT_CLASS, &*m_class), &pointer, &m_thing},
        {vexa_test::MayNull<Thing>(DT_CLASS, &*m_class), &wrapper, &wrapper.Value},
    };
    for (const auto& form : forms) {
        SCOPED_TRACE(form.Type.TypeName());
        const CClassConstRefrence ref(form.Type, form.Holder);
        CConstRefrence out;
        EXPECT_TRUE(ref.FindAttribByName(out, "number"));
        EXPECT_EQ(&form.Object->Number, out.Address);
        EXPECT_TRUE(ref.FindAttribByFlatName(out, "inner.value"));
        EXPECT_EQ(&form.Object->Direct.Value, out.Address);
        EXPECT_TRUE(ref.FindAttribByID(out, 0));
        EXPECT_EQ(&form.Object->Kind, out.Address);
        EXPECT_TRUE(ref.FindAttribByUnionAttribEnum(out, 3));
        EXPECT_EQ(&form.Object->Three, out.Address);
    }
}

TEST_F(ClassRefrence, FindsNothingInANullObject)
{
    Thing* pointer = nullptr;
    Wrapped<Thing> wrapper{1, {}};
    const CClassConstRefrence nulls[] = {
        {Plain(DT_CLASS, &*m_class), nullptr},
        {vexa_test::OwnedPointer(DT_CLASS, &*m_class), &pointer},
        {vexa_test::ConstPointer(DT_CLASS, &*m_class), &pointer},
        {vexa_test::NonNullPointer(DT_CLASS, &*m_class), &pointer},
        {vexa_test::MayNull<Thing>(DT_CLASS, &*m_class), &wrapper},
    };
    for (const CClassConstRefrence& ref : nulls) {
        SCOPED_TRACE(ref.TypeName());
        CConstRefrence out(Plain(DT_INT), this);
        EXPECT_FALSE(ref.FindAttribByName(out, "number"));
        EXPECT_FALSE(ref.FindAttribByFlatName(out, "inner.value"));
        EXPECT_FALSE(ref.FindAttribByID(out, 0));
        EXPECT_FALSE(ref.FindAttribByUnionAttribEnum(out, 3));
        ExpectRefers(out, "int", this);
    }
}

TEST_F(ClassRefrence, OfAnIDThatTwoAttributesShareTheLaterIsFound)
{
    CConstRefrence out;
    LoggedLines([&] {
        const DescribedClass shared("Shared", sizeof(Inner), [](CClassInfor& about) {
            Add(about, "first", offsetof(Inner, First), Plain(DT_INT), 7);
            Add(about, "value", offsetof(Inner, Value), Plain(DT_INT), 7);
        });
        EXPECT_TRUE(CClassConstRefrence(*shared, &m_thing.Direct).FindAttribByID(out, 7));
    });
    ExpectRefers(out, "int", &m_thing.Direct.Value);
}

TEST_F(ClassRefrence, GivesTheResultADescriptorOfItsOwn)
{
    const DescribedClass priced("Priced", 8, [](CClassInfor& about) {
        Add(about, "price", 0, CGnlTypeInfor()).TypeInfor.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 0);
    });
    long price = 0;
    CGnlTypeInfor old;
    old.ChangeTypeTo_CustomType("Weight", 8, nullptr, nullptr, 0);
    CConstRefrence out(old, nullptr); // the address sanitizer finds it if this descriptor is not released
    ASSERT_TRUE(CClassConstRefrence(*priced, &price).FindAttribByName(out, "price"));
    ExpectRefers(out, "Money", &price);
    EXPECT_NE(priced->AttribList.front().TypeInfor.DetailInfor, out.TypeInfor.DetailInfor);
}

TEST_F(ClassRefrence, GoesDownInPlaceWhenTheResultIsTheReferenceItself)
{
    ASSERT_TRUE(m_ref.FindAttribByName(m_ref, "inner"));
    ExpectRefers(m_ref, "Inner", &m_thing.Direct);
    ASSERT_TRUE(m_ref.FindAttribByFlatName(m_ref, "value"));
    ExpectRefers(m_ref, "int", &m_thing.Direct.Value);
}

TEST_F(ClassRefrence, FindsInheritedAttributesAtTheirPlace)
{
    struct Derived {
        long Own;
        Thing Base;
    };
    const DescribedClass derived(
        "Derived", sizeof(Derived), [](CClassInfor& about) { Add(about, "own", 0, Plain(DT_LONG), 9); }, m_class,
        offsetof(Derived, Base));
    Derived object{};
    const CClassConstRefrence ref(*derived, &object);
    CConstRefrence out;
    ASSERT_TRUE(ref.FindAttribByName(out, "number"));
    ExpectRefers(out, "int", &object.Base.Number);
    ASSERT_TRUE(ref.FindAttribByFlatName(out, "inner.value"));
    ExpectRefers(out, "int", &object.Base.Direct.Value);
    ASSERT_TRUE(ref.FindAttribByID(out, 200));
    ExpectRefers(out, "int", &object.Base.Number);
    ASSERT_TRUE(ref.FindAttribByUnionAttribEnum(out, 1));
    ExpectRefers(out, "long", &object.Base.One);
    ASSERT_TRUE(ref.FindAttribByID(out, 9));
    ExpectRefers(out, "long", &object.Own);
}

TEST_F(ClassRefrence, ConcurrentLookupsFindTheSame)
{
    std::atomic<int> found{0};
    std::vector<std::thread> threads;
    for (int i = 0; i < 8; ++i) {
        threads.emplace_back([&] {
            for (int j = 0; j < 200; ++j) {
                CConstRefrence out;
                found += m_ref.FindAttribByName(out, "number") && out.Address == &m_thing.Number;
                found += m_ref.FindAttribByFlatName(out, "inner.value") && out.Address == &m_thing.Direct.Value;
                found += m_ref.FindAttribByID(out, 200) && out.Address == &m_thing.Number;
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(8 * 200 * 3, found);
}

} // namespace
