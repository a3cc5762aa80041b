// Descriptors of custom basic types: registration and text.

#include <vexa/custom_type_infor.h>

#include <atomic>
#include <chrono>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/helper.h>
#include <vexa/value.h>

#include "support/captured_log.h"
#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CCustomBasicTypeInfor;
using vexa::CGnlTypeInfor;
using vexa::CValue;
using Descriptor = std::unique_ptr<CCustomBasicTypeInfor>;

struct Tag {
    long Padding = 0;
    std::string Text;
};

void* NewTag() { return new Tag(); }
void DeleteTag(void* object) { delete static_cast<Tag*>(object); }
void* NewOther() { return nullptr; }
void DeleteOther(void*) {}

Descriptor Std(const CGnlTypeInfor& underlying = Plain(DT_STD_STRING), unsigned long offset = offsetof(Tag, Text))
{
    CCustomBasicTypeInfor* slot = nullptr;
    CCustomBasicTypeInfor::InitCustomStdBasicTypeInfor(slot, "Tag", sizeof(Tag), &NewTag, &DeleteTag, underlying,
                                                       offset);
    return Descriptor(slot);
}

Descriptor Any(const CGnlTypeInfor& underlying = CGnlTypeInfor())
{
    CCustomBasicTypeInfor* slot = nullptr;
    CCustomBasicTypeInfor::InitCustomAnyBasicTypeInfor(slot, "Money", 24, &NewTag, &DeleteTag, underlying, 17);
    return Descriptor(slot);
}

TEST(CustomTypeInfor, OfTheStdVariantHasAnOffsetAndNoID)
{
    const Descriptor infor = Std();
    EXPECT_EQ(infor->Name, "Tag");
    EXPECT_EQ(infor->Size, sizeof(Tag));
    EXPECT_EQ(infor->CustomTypeID, 0U);
    EXPECT_EQ(infor->Factory, &NewTag);
    EXPECT_EQ(infor->Deleter, &DeleteTag);
    EXPECT_EQ(infor->FromValue, nullptr);
    EXPECT_EQ(infor->ToValue, nullptr);
    EXPECT_EQ(infor->ValueOffset, 8);
    EXPECT_EQ(infor->Underlying.DataType, DT_STD_STRING);
}

TEST(CustomTypeInfor, OfTheAnyVariantHasAnIDAndNoOffset)
{
    const Descriptor infor = Any(MayNull<int>(DT_INT));
    EXPECT_EQ(infor->Name, "Money");
    EXPECT_EQ(infor->Size, 24U);
    EXPECT_EQ(infor->CustomTypeID, 17U);
    EXPECT_EQ(infor->Factory, &NewTag);
    EXPECT_EQ(infor->Deleter, &DeleteTag);
    EXPECT_EQ(infor->FromValue, nullptr);
    EXPECT_EQ(infor->ToValue, nullptr);
    EXPECT_EQ(infor->ValueOffset, 0);
    EXPECT_EQ(infor->Underlying.TypeName(), "MayNull<int>");
    EXPECT_EQ(infor->Underlying.ValueOffset, 4);
}

TEST(CustomTypeInfor, KeepsTheLow16BitsOfTheOffset)
{
    EXPECT_EQ(Std(Plain(DT_INT), 70000)->ValueOffset, 4464);
    EXPECT_EQ(Std(Plain(DT_INT), 32767)->ValueOffset, 32767);
    EXPECT_EQ(Std(Plain(DT_INT), 65535)->ValueOffset, -1);
}

TEST(CustomTypeInfor, CopiesTheUnderlyingTypeDeeply)
{
    CGnlTypeInfor underlying;
    underlying.ChangeTypeTo_CustomType("Owned", 8, nullptr, nullptr, 7);
    for (const Descriptor& infor : {Std(underlying), Any(underlying)}) {
        EXPECT_EQ(infor->Underlying.TypeName(), "Owned");
        EXPECT_NE(infor->Underlying.DetailInfor, underlying.DetailInfor);
    }
}

TEST(CustomTypeInfor, IsNotChangedByASecondRegistration)
{
    const Descriptor infor = Std();
    CCustomBasicTypeInfor* slot = infor.get();
    CCustomBasicTypeInfor::InitCustomStdBasicTypeInfor(slot, "Other", 1, &NewOther, &DeleteOther, Plain(DT_INT), 4);
    CCustomBasicTypeInfor::InitCustomAnyBasicTypeInfor(slot, "Other", 1, &NewOther, &DeleteOther, Plain(DT_INT), 5);

    EXPECT_EQ(slot, infor.get());
    EXPECT_EQ(infor->Name, "Tag");
    EXPECT_EQ(infor->Size, sizeof(Tag));
    EXPECT_EQ(infor->CustomTypeID, 0U);
    EXPECT_EQ(infor->Factory, &NewTag);
    EXPECT_EQ(infor->Deleter, &DeleteTag);
    EXPECT_EQ(infor->ValueOffset, 8);
    EXPECT_EQ(infor->Underlying.DataType, DT_STD_STRING);
}

TEST(CustomTypeInfor, WaitsForTheGlobalLockAndReleasesIt)
{
    CCustomBasicTypeInfor* slot = nullptr;
    std::atomic<bool> isDone{false};
    std::thread other;
    {
        const vexa::helper::CLockGuard held;
        other = std::thread([&] {
            CCustomBasicTypeInfor::InitCustomStdBasicTypeInfor(slot, "Tag", 8, nullptr, nullptr, Plain(DT_INT), 0);
            isDone = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        EXPECT_FALSE(isDone);
    }
    other.join();
    ASSERT_NE(slot, nullptr);
    const Descriptor owner(slot);
    const Descriptor next = Std(); // would wait for ever, had the other thread kept the lock
    EXPECT_EQ(next->Name, "Tag");
}

TEST(CustomTypeInfor, IsRegisteredOnAThreadThatHoldsTheLock)
{
    const vexa::helper::CLockGuard held;
    EXPECT_EQ(Std()->Name, "Tag");
}

TEST(CustomTypeInfor, IsBuiltOnceByManyThreads)
{
    CCustomBasicTypeInfor* slot = nullptr;
    std::vector<CCustomBasicTypeInfor*> seen(8);
    std::vector<std::thread> threads;
    for (auto& own : seen) {
        threads.emplace_back([&slot, &own] {
            CCustomBasicTypeInfor::InitCustomAnyBasicTypeInfor(slot, "Money", 24, nullptr, nullptr, CGnlTypeInfor(),
                                                               17);
            own = __atomic_load_n(&slot, __ATOMIC_ACQUIRE);
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    const Descriptor owner(slot);
    EXPECT_EQ(seen, std::vector<CCustomBasicTypeInfor*>(8, slot));
}

TEST(CustomTypeInfor, GivesItsTypeNameSizeAndObjects)
{
    const Descriptor infor = Any();
    const CGnlTypeInfor type = Plain(DT_CUSTOM_BASIC, infor.get());
    EXPECT_EQ(type.TypeName(), "Money");
    EXPECT_EQ(OwnedPointer(DT_CUSTOM_BASIC, infor.get()).TypeName(), "Money*");
    EXPECT_EQ(MayNull<Tag>(DT_CUSTOM_BASIC, infor.get()).TypeName(), "MayNull<Money>");
    EXPECT_EQ(type.Sizeof(), 24U);
    EXPECT_EQ(type.GetCustomTypeID(), 17U);
    EXPECT_EQ(&type.GetStdTypeInforFromCustomType(), &infor->Underlying);

    void* object = type.New();
    static_cast<Tag*>(object)->Text = "a text that is too long to lie inside a std::string object";
    type.Delete(object);
    EXPECT_EQ(object, nullptr);
}

/// What AsString makes of the value that a converter gives.
template<class Convert>
std::string TextOf(Convert)
{
    const Descriptor infor = Any();
    infor->ToValue = [](const void* value, CValue& out) { Convert::Do(*static_cast<const int*>(value), out); };
    const int object = 250;
    return infor->AsString(&object);
}

struct AsNumber {
    static void Do(int value, CValue& out) { out = value; }
};
struct AsLongText {
    static void Do(int value, CValue& out) { out = std::string(60, 'x') + std::to_string(value); }
};
struct AsNumeric {
    static void Do(int, CValue& out) { out = vexa::CNumeric(std::string("2.50")); }
};
struct AsNothing {
    static void Do(int, CValue&) {}
};
struct AsNull {
    static void Do(int, CValue& out) { out.SetNull(DT_INT); }
};
struct AsType {
    static void Do(int, CValue& out) { out = std::to_string(out.Type()) + (out.IsNull() ? " null" : ""); }
};

TEST(CustomTypeInfor, AsStringIsTheTextOfTheConvertedValue)
{
    EXPECT_EQ(TextOf(AsNumber()), "250");
    EXPECT_EQ(TextOf(AsLongText()), std::string(60, 'x') + "250");
    EXPECT_EQ(TextOf(AsNumeric()), "2.50");
}

TEST(CustomTypeInfor, AsStringOfANullValueIsNull)
{
    EXPECT_EQ(TextOf(AsNothing()), "NULL");
    EXPECT_EQ(TextOf(AsNull()), "NULL");
}

TEST(CustomTypeInfor, AsStringGivesTheConverterAValueWithoutType) { EXPECT_EQ(TextOf(AsType()), "0 null"); }

int g_conversions = 0;

TEST(CustomTypeInfor, AsStringOfNoObjectIsEmptyWithoutCallingTheConverter)
{
    const Descriptor infor = Any();
    infor->ToValue = [](const void*, CValue&) { ++g_conversions; };
    EXPECT_EQ(infor->AsString(nullptr), "");
    EXPECT_EQ(g_conversions, 0);
}

TEST(CustomTypeInfor, AsStringWithoutAConverterIsEmpty)
{
    const int object = 250;
    EXPECT_EQ(Any()->AsString(&object), "");
}

} // namespace
