// Reading the stored object itself.

#include <thread>

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/captured_log.h"
#include "support/conversion_reading.h"

namespace {

using namespace vexa_test;

/// An accessor of stored objects.
struct ObjectReader {
    unsigned Code;
    const char* Name;
    const void* (*Read)(const Ref& source);
};

const ObjectReader OBJECT_READERS[] = {
    {41, "std::string", [](const Ref& source) -> const void* { return &source.As_std_string_ref(); }},
    {51, "tm", [](const Ref& source) -> const void* { return &source.As_tm_ref(); }},
    {45, "vexa::CBinary", [](const Ref& source) -> const void* { return &source.As_CBinary_ref(); }},
    {52, "vexa::CDateTime", [](const Ref& source) -> const void* { return &source.As_CDateTime_ref(); }},
    {47, "vexa::CNumeric", [](const Ref& source) -> const void* { return &source.As_CNumeric_ref(); }},
};

TEST(ReadObjectTest, AnObjectIsGivenWhereItIsStored)
{
    for (const ObjectReader& reader : OBJECT_READERS) {
        for (const AnyBasicType& type : BasicTypes()) {
            if (type.Code != reader.Code) continue;
            for (HoldingForm form : ALL_FORMS) {
                SCOPED_TRACE(testing::Message() << reader.Name << ", " << form);
                const std::unique_ptr<AnyHeld> held = type.Hold(form, false);
                const Ref source = held->Ref();
                EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(reader.Read(source), source.ValueAddress()); }), "");
            }
        }
    }
}

TEST(ReadObjectTest, EveryOtherTypeGivesTheSharedNeutralObjectAndAMessage)
{
    for (const ObjectReader& reader : OBJECT_READERS) {
        const void* const neutral = reader.Read(Ref());
        for (const AnyBasicType& type : BasicTypes()) {
            if (type.Code == reader.Code) continue;
            for (HoldingForm form : ALL_FORMS) {
                const std::unique_ptr<AnyHeld> held = type.Hold(form, false);
                const std::string log = LoggedLines([&] { EXPECT_EQ(reader.Read(held->Ref()), neutral); });
                EXPECT_EQ(log, held->TypeName() + " type CStdBasicTypeConstRefrence can not be converted to " +
                                   reader.Name + "\n");
            }
        }
    }
}

TEST(ReadObjectTest, EveryNullGivesTheSharedNeutralObjectWithoutAMessage)
{
    for (const ObjectReader& reader : OBJECT_READERS) {
        const void* const neutral = reader.Read(Ref());
        for (const AnyBasicType& type : BasicTypes()) {
            for (HoldingForm form : {HoldingForm::MayNull, HoldingForm::OwnedPointer, HoldingForm::ConstPointer}) {
                const std::unique_ptr<AnyHeld> held = type.Hold(form, true);
                EXPECT_EQ(LoggedLines([&] { EXPECT_EQ(reader.Read(held->Ref()), neutral); }), "");
            }
        }
    }
}

TEST(ReadObjectTest, ANonNullPointerWithNothingBehindItGivesTheNeutralObject)
{
    for (const ObjectReader& reader : OBJECT_READERS) {
        for (const AnyBasicType& type : BasicTypes()) {
            if (type.Code != reader.Code) continue;
            const std::unique_ptr<AnyHeld> held = type.Hold(HoldingForm::NonNullPointer, true);
            EXPECT_EQ(reader.Read(held->Ref()), reader.Read(Ref()));
        }
    }
}

TEST(ReadObjectTest, AllThreadsShareTheNeutralObjects)
{
    for (const ObjectReader& reader : OBJECT_READERS) {
        const void* ofThread = nullptr;
        std::thread([&] { ofThread = reader.Read(Ref()); }).join();
        EXPECT_EQ(ofThread, reader.Read(Ref())) << reader.Name;
    }
}

TEST(ReadObjectTest, TheNeutralObjectsAreEmpty)
{
    const Ref nothing;
    EXPECT_EQ(nothing.As_std_string_ref(), "");
    EXPECT_EQ(Shown(nothing.As_tm_ref()), Shown(tm{}));
    EXPECT_EQ(nothing.As_CBinary_ref().Size, 0U);
    EXPECT_EQ(Shown(nothing.As_CDateTime_ref()), "0");
    EXPECT_EQ(Shown(nothing.As_CNumeric_ref()), "0/(null)");
}

TEST(ReadObjectTest, AnIntGivesTheSameEmptyBinaryOnEveryCall)
{
    const int number = 1;
    const Ref source(vexa::CGnlTypeInfor(14), &number);
    const vexa::CBinary* first = nullptr;
    const vexa::CBinary* second = nullptr;
    EXPECT_EQ(LoggedLines([&] { first = &source.As_CBinary_ref(); }),
              "int type CStdBasicTypeConstRefrence can not be converted to vexa::CBinary\n");
    LoggedLines([&] { second = &source.As_CBinary_ref(); });
    EXPECT_EQ(first, second);
    EXPECT_EQ(first->Size, 0U);
}

} // namespace
