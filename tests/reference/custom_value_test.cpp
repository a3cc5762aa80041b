// Values of custom types registered by hand: their text, their null state and how they are cleared.

#include <vexa/custom_type_infor.h>

#include <list>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>
#include <vexa/text.h>
#include <vexa/value.h>

#include "support/captured_log.h"
#include "support/described_class.h"
#include "support/described_container.h"
#include "support/type_of.h"
#include "support/value_text.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::AsString;
using vexa::CConstRefrence;
using vexa::CCustomBasicTypeInfor;
using vexa::CGnlTypeInfor;
using vexa::CRefrence;
using vexa::CValue;
using Descriptor = std::unique_ptr<CCustomBasicTypeInfor>;

/// Wraps one standard value behind some bytes.
template<class T>
struct Box {
    short Padding = -1;
    T Value{};
};

template<class T>
Descriptor StdOver(unsigned int code)
{
    using Wrapper = Box<T>;
    CCustomBasicTypeInfor* slot = nullptr;
    CCustomBasicTypeInfor::InitCustomStdBasicTypeInfor(
        slot, "Box", sizeof(Wrapper), []() -> void* { return new Wrapper(); },
        [](void* object) { delete static_cast<Wrapper*>(object); }, Plain(code), offsetof(Wrapper, Value));
    return Descriptor(slot);
}

/// The text in format 0 of a Std value, its text in format 1, and what it is after Clear.
template<class T>
std::string StdTexts(unsigned int code, const T& value)
{
    const Descriptor infor = StdOver<T>(code);
    Box<T> box;
    box.Value = value;
    CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &box);
    std::string texts = AsString(ref) + '|' + AsString(ref, ASF_TYPE_AND_VALUE) + '|' + AsString(ref, ASF_TYPE_ONLY);
    ref.Clear();
    return texts + '|' + AsString(ref) + '|' + std::to_string(box.Padding);
}

TEST(StdCustomValue, IsItsStandardValueInPlace)
{
    EXPECT_EQ(StdTexts<std::string>(DT_STD_STRING, "Ann"), "Ann|Box: Box: Ann|Box: ||-1");
    EXPECT_EQ(StdTexts<bool>(DT_BOOL, true), "true|Box: Box: true|Box: |false|-1");
    EXPECT_EQ(StdTexts<char>(DT_CHAR, 'x'), "x|Box: Box: x|Box: ||-1");
    EXPECT_EQ(StdTexts<short>(DT_SHORT, -5), "-5|Box: Box: -5|Box: |0|-1");
    EXPECT_EQ(StdTexts<long>(DT_LONG, 7), "7|Box: Box: 7|Box: |0|-1");
    EXPECT_EQ(StdTexts<double>(DT_DOUBLE, 0.5), "0.500000|Box: Box: 0.500000|Box: |0.000000|-1");
    EXPECT_EQ(StdTexts<long double>(DT_LONG_DOUBLE, 0.5L), "0.500000|Box: Box: 0.500000|Box: |0.000000|-1");
    EXPECT_EQ(StdTexts<unsigned long long>(DT_UNSIGNED_LONG_LONG, 8), "8|Box: Box: 8|Box: |0|-1");
    EXPECT_EQ(StdTexts<vexa::CBinary>(DT_BINARY, vexa::CBinary("AB", 2)), "4142|Box: Box: 4142|Box: ||-1");
    EXPECT_EQ(StdTexts<vexa::CNumeric>(DT_NUMERIC, vexa::CNumeric(5)), "5|Box: Box: 5|Box: |(null)|-1");
    EXPECT_EQ(StdTexts<vexa::CDateTime>(DT_DATETIME, vexa::CDateTime(SampleTime())),
              "2020-01-02 03:04:05|Box: Box: 2020-01-02 03:04:05|Box: |NULL|-1");
}

TEST(StdCustomValue, OfABrokenDownTimeIsNotCleared)
{
    EXPECT_EQ(StdTexts<tm>(DT_TM, SampleTime()),
              "2020-01-02 03:04:05|Box: Box: 2020-01-02 03:04:05|Box: |2020-01-02 03:04:05|-1");
}

/// An amount that only its converters understand.
struct Money {
    long Cents = 0;
};

int g_toValue = 0;
int g_fromValue = 0;

void MoneyToValue(const void* value, CValue& out)
{
    ++g_toValue;
    out = std::to_string(static_cast<const Money*>(value)->Cents) + "c";
}
void MoneyFromValue(void* value, const CValue& in)
{
    ++g_fromValue;
    static_cast<Money*>(value)->Cents = in.IsNull() ? -1 : in.As_long();
}

Descriptor AnyMoney(const CGnlTypeInfor& underlying, bool hasTo = true, bool hasFrom = true)
{
    g_toValue = g_fromValue = 0;
    CCustomBasicTypeInfor* slot = nullptr;
    CCustomBasicTypeInfor::InitCustomAnyBasicTypeInfor(
        slot, "Money", sizeof(Money), []() -> void* { return new Money(); },
        [](void* object) { delete static_cast<Money*>(object); }, underlying, 17);
    if (hasTo) slot->ToValue = &MoneyToValue;
    if (hasFrom) slot->FromValue = &MoneyFromValue;
    return Descriptor(slot);
}

TEST(AnyCustomValue, OverAStandardTypeIsReadAndClearedInPlace)
{
    const Descriptor infor = AnyMoney(Plain(DT_LONG));
    Money money{250};
    CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &money);
    EXPECT_EQ(AsString(ref), "250");
    ref.Clear();
    EXPECT_EQ(money.Cents, 0);
    EXPECT_EQ(g_toValue + g_fromValue, 0);
}

TEST(AnyCustomValue, OverAStandardTypeStillHasItsOwnTextByItsConverter)
{
    const Descriptor infor = AnyMoney(Plain(DT_LONG));
    const Money money{250};
    EXPECT_EQ(infor->AsString(&money), "250c");
}

TEST(AnyCustomValue, WithALayoutOfItsOwnIsWhatItsConverterGives)
{
    const Descriptor infor = AnyMoney(CGnlTypeInfor());
    Money money{250};
    const CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &money);
    EXPECT_EQ(AsString(ref), "250c");
    EXPECT_EQ(AsString(ref, ASF_TYPE_AND_VALUE), "Money: Money: 250c");
    EXPECT_EQ(AsString(ref, ASF_TYPE_ONLY), "Money: ");
    EXPECT_EQ(g_toValue, 2);
}

TEST(AnyCustomValue, WithALayoutOfItsOwnIsClearedByANullForItsConverter)
{
    const Descriptor infor = AnyMoney(CGnlTypeInfor());
    Money money{250};
    CRefrence(Plain(DT_CUSTOM_BASIC, infor.get()), &money).Clear();
    EXPECT_EQ(money.Cents, -1);
    EXPECT_EQ(g_fromValue, 1);
}

TEST(AnyCustomValue, WithoutAConverterFromAValueStaysAsItIsWhenItIsCleared)
{
    const Descriptor infor = AnyMoney(CGnlTypeInfor(), true, false);
    Money money{250};
    CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &money);
    const std::string log = LoggedLines([&] { ref.Clear(); });
    EXPECT_EQ(AsString(ref), "250c");
    EXPECT_EQ(log, "Not supported type unkown type In function CRefrence::Clear()\n");
}

TEST(AnyCustomValue, OverAnUnsupportedTypeLogsWhenItIsClearedWithoutAnObject)
{
    for (const bool hasFromValue : {false, true}) {
        const Descriptor infor = AnyMoney(CGnlTypeInfor(), true, hasFromValue);
        CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), nullptr);
        EXPECT_EQ(LoggedLines([&] { ref.Clear(); }), "Not supported type unkown type In function CRefrence::Clear()\n");
        EXPECT_EQ(g_fromValue, 0);
    }
}

TEST(AnyCustomValue, ThatIsReadOnlyIsNotCleared)
{
    const Descriptor infor = AnyMoney(CGnlTypeInfor());
    Money money{250};
    CRefrence ref(CGnlTypeInfor(DT_CUSTOM_BASIC, vexa::Enum::HF_CONST, infor.get()), &money);
    EXPECT_EQ(LoggedLines([&] { ref.Clear(); }), "Not supported type unkown type In function CRefrence::Clear()\n");
    EXPECT_EQ(money.Cents, 250);
    EXPECT_EQ(g_fromValue, 0);
}

TEST(AnyCustomValue, WithoutAConverterToAValueIsUnkown)
{
    const Descriptor infor = AnyMoney(CGnlTypeInfor(), false, true);
    Money money{250};
    EXPECT_EQ(AsString(CRefrence(Plain(DT_CUSTOM_BASIC, infor.get()), &money)), "unkown");
}

TEST(AnyCustomValue, WithoutAnyConverterIsUnkownAndCannotBeCleared)
{
    const Descriptor infor = AnyMoney(CGnlTypeInfor(), false, false);
    Money money{250};
    CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &money);
    EXPECT_EQ(AsString(ref), "unkown");
    EXPECT_EQ(LoggedLines([&] { ref.Clear(); }), "Not supported type unkown type In function CRefrence::Clear()\n");
    EXPECT_EQ(money.Cents, 250);
}

TEST(AnyCustomValue, ThatIsConvertedToANullIsNull)
{
    const Descriptor infor = AnyMoney(CGnlTypeInfor());
    infor->ToValue = [](const void*, CValue&) {};
    Money money{250};
    EXPECT_EQ(AsString(CRefrence(Plain(DT_CUSTOM_BASIC, infor.get()), &money)), "NULL");
}

TEST(AnyCustomValue, ThatIsNullIsNotGivenToItsConverters)
{
    const Descriptor infor = AnyMoney(CGnlTypeInfor());
    Wrapped<Money> wrapped{1, {250}};
    CRefrence wrapper(MayNull<Money>(DT_CUSTOM_BASIC, infor.get()), &wrapped);
    Money* pointer = nullptr;
    CRefrence pointee(OwnedPointer(DT_CUSTOM_BASIC, infor.get()), &pointer);

    EXPECT_EQ(AsString(wrapper) + AsString(pointee), "NULLNULL");
    wrapper.Clear();
    pointee.Clear();
    EXPECT_EQ(wrapped.Value.Cents, 250);
    EXPECT_EQ(g_toValue + g_fromValue, 0);
}

TEST(AnyCustomValue, InAWrapperOrBehindAPointerIsReadWhereItLies)
{
    const Descriptor infor = AnyMoney(CGnlTypeInfor());
    Wrapped<Money> wrapped{0, {250}};
    CRefrence wrapper(MayNull<Money>(DT_CUSTOM_BASIC, infor.get()), &wrapped);
    Money* pointer = nullptr;
    CRefrence pointee(OwnedPointer(DT_CUSTOM_BASIC, infor.get()), &pointer);
    pointee.SetNotNull();
    pointer->Cents = 7;

    EXPECT_EQ(AsString(wrapper), "250c");
    EXPECT_EQ(AsString(pointee, ASF_TYPE_AND_VALUE), "Money*: Money: 7c");
    wrapper.Clear();
    pointee.Clear();
    EXPECT_EQ(wrapped.IsNull, 1);
    EXPECT_EQ(wrapped.Value.Cents, 250);
    EXPECT_EQ(pointer, nullptr);
}

/// A descriptor that owns the custom type that it names.
CGnlTypeInfor OwnedType()
{
    CGnlTypeInfor type;
    type.ChangeTypeTo_CustomType("Owned", 4, nullptr, nullptr, 7);
    return type;
}

void ExpectOwnCopy(const CConstRefrence& ref, const CGnlTypeInfor& original)
{
    EXPECT_EQ(ref.TypeName(), "Owned");
    EXPECT_EQ(ref.TypeInfor.GetCustomTypeID(), 7U);
    EXPECT_NE(ref.TypeInfor.DetailInfor, original.DetailInfor);
}

TEST(OwnedCustomType, IsCopiedDeeplyByReferences)
{
    int number = 5;
    const CRefrence original(OwnedType(), &number);
    const CRefrence copy = original;
    CConstRefrence assigned(OwnedType(), nullptr);
    assigned = original;
    const auto basic = CRefrence(original).AsStdBasicType();
    for (const CConstRefrence& ref : std::vector<CConstRefrence>{copy, assigned, basic})
        ExpectOwnCopy(ref, original.TypeInfor);
    EXPECT_NE(copy.TypeInfor.DetailInfor, assigned.TypeInfor.DetailInfor);
}

TEST(OwnedCustomType, IsCopiedDeeplyByAttributeIteratorsAndLookups)
{
    struct Pair {
        int A = 1;
        int B = 2;
    } object;
    const DescribedClass infor("Pair", sizeof(Pair), [](vexa::CClassInfor& about) {
        Add(about, "a", offsetof(Pair, A), OwnedType(), 1);
        Add(about, "b", offsetof(Pair, B), OwnedType(), 2);
    });
    const vexa::CClassConstRefrence ref(*infor, &object);

    std::size_t place = 0;
    for (vexa::CAttribConstIterator walk(ref); !walk.IsEnd(); ++walk) {
        const vexa::CAttribConstIterator copy = walk;
        ExpectOwnCopy(walk.Value(), RecordAt(*infor, place).TypeInfor);
        ExpectOwnCopy(copy.Value(), walk.Value().TypeInfor);
        ++place;
    }
    for (vexa::CAttribConstReverseIterator walk(ref); !walk.IsEnd(); ++walk) {
        ExpectOwnCopy(walk.Value(), RecordAt(*infor, --place).TypeInfor);
    }
    EXPECT_EQ(place, 0U);
    CConstRefrence out(OwnedType(), nullptr);
    ASSERT_TRUE(ref.FindAttribByName(out, "a") && ref.FindAttribByFlatName(out, "a") && ref.FindAttribByID(out, 1));
    ExpectOwnCopy(out, RecordAt(*infor, 0).TypeInfor);
}

TEST(OwnedCustomType, IsCopiedDeeplyByContainerIterators)
{
    std::list<int> numbers = {1, 2, 3};
    const vexa::CContainerInfor infor = SequenceContainer<std::list<int>>("std::list", OwnedType());
    vexa::CContainerRefrence ref(Plain(DT_SEQUENCE_B, &infor), &numbers);

    int count = 0;
    for (const CConstRefrence& element : ref) {
        ExpectOwnCopy(element, infor.ElementType);
        ++count;
    }
    for (vexa::CContainerConstReverseIterator walk(ref); !walk.IsEnd(); ++walk) {
        ExpectOwnCopy(*walk, infor.ElementType);
        ++count;
    }
    ExpectOwnCopy(ref.Append(), infor.ElementType);
    EXPECT_EQ(count, 6);
}

} // namespace
