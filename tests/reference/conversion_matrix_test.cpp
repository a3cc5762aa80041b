// Every basic type read as, and written from, every other one.

#include <map>

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/conversion_reading.h"
#include "support/conversion_texts.h"
#include "support/conversion_writing.h"
#include "support/time_zone.h"

namespace {

using namespace vexa_test;

/// Calls the action with the source of a row as its own type.
template<class Action>
void WithSource(const NumberRow& row, Action&& action)
{
    std::visit(
        [&](auto source) {
            SCOPED_TRACE(testing::Message() << BasicType<decltype(source)>::Name << ' ' << Shown(source));
            action(source);
        },
        row.Source);
}

/// What types show once they have taken a source, by their code; the others refuse it.
using Targets = std::map<unsigned, std::string>;

Targets ShownNumbers(const AllNumbers& numbers)
{
    Targets targets;
    ForEachType(NumberTypes{}, [&](auto tag) {
        using T = typename decltype(tag)::Type;
        targets[BasicType<T>::Code] = Shown(std::get<T>(numbers));
    });
    return targets;
}

/// Writes into every type in every form, and into codes that are no basic type.
void ExpectWrites(const Write& write, const Targets& targets, const std::string& message, WhenRefused state)
{
    for (const AnyBasicType& type : BasicTypes()) {
        const auto target = targets.find(type.Code);
        if (target != targets.end())
            ExpectStores(type, write, target->second, message);
        else
            ExpectRefuses(type, write, message, state);
    }
    ExpectRefusesUnsupported(write, message, state);
}

/// Writes a value directly, and copies it from a reference to it, into everything.
template<class Source>
void ExpectConverts(const Source& value, const Targets& targets, const std::string& message, WhenRefused state)
{
    const auto direct = [&](WritableRef& target) -> WritableRef& {
        if constexpr (std::is_same_v<Source, TextCharacters>)
            return target.ReadFrom(value.Characters);
        else
            return target.ReadFrom(value);
    };
    ExpectWrites(direct, targets, BasicType<Source>::Name + message, state);
    InEveryForm(value, [&](const Ref& source, const std::string&) {
        const auto copy = [&](WritableRef& target) -> WritableRef& { return target.ReadFrom(source); };
        ExpectWrites(copy, targets, BasicType<Source>::Name + message, state);
    });
}

constexpr char NOT_FROM_NUMBER[] = " type CStdBasicTypeRefrence can not be converted to ";
constexpr char NOT_CONVERTED[] = " type can not be converted to ";

TEST(ReadingNumbersTest, EveryNumberReadsAsEveryNumber)
{
    for (const NumberRow& row : NumberRows()) {
        WithSource(row, [&](auto value) {
            InEveryForm(value,
                        [&](const Ref& source, const std::string&) { ExpectReadsNumbers(source, row.Expected); });
        });
    }
}

TEST(ReadingNumbersTest, EveryTextReadsAsEveryNumber)
{
    for (const TextRow& row : TextRows()) {
        SCOPED_TRACE(row.Text);
        const auto expectReads = [&](const Ref& source, const std::string&) {
            ExpectReadsNumbers(source, row.Expected);
        };
        InEveryForm(std::string(row.Text), expectReads);
        InEveryForm(TextCharacters(row.Text), expectReads);
        if (row.IsDecimal) InEveryForm(vexa::CNumeric(std::string(row.Text)), expectReads);
    }
}

TEST(ReadingNumbersTest, NoOtherTypeReadsAsANumber)
{
    InEveryForm(vexa::CBinary(std::string("12")), ExpectReadsNoNumbers);
    InEveryForm(MakeTm(2020, 1, 2, 3, 4, 5), ExpectReadsNoNumbers);
    InEveryForm(vexa::CDateTime(12L, 0L), ExpectReadsNoNumbers);
}

TEST(ReadingNumbersTest, NoUnsupportedCodeReadsAsANumber)
{
    for (const UnsupportedType& type : UNSUPPORTED_TYPES) {
        SCOPED_TRACE(type.Code);
        const unsigned char memory[16] = {1, 2, 3, 4};
        ExpectReadsNoNumbers(Ref(vexa::CGnlTypeInfor(type.Code), memory), type.Name);
    }
}

TEST(ReadingNumbersTest, EveryNullReadsAsZeroWithoutAMessage)
{
    for (const AnyBasicType& type : BasicTypes()) {
        for (HoldingForm form : ALL_FORMS) {
            if (form == HoldingForm::Plain) continue;
            SCOPED_TRACE(NameIn(form, type.Name));
            ExpectReadsNumbers(type.Hold(form, true)->Ref(), AllNumbers{});
        }
        SCOPED_TRACE(testing::Message() << type.Name << " without an address");
        ExpectReadsNumbers(Ref(vexa::CGnlTypeInfor(type.Code), nullptr), AllNumbers{});
    }
    const unsigned char memory[1] = {1};
    ExpectReadsNumbers(Ref(vexa::CGnlTypeInfor(2), memory), AllNumbers{});
}

TEST(WritingNumbersTest, EveryNumberIsStoredAsEveryNumber)
{
    for (const NumberRow& row : NumberRows()) {
        const Targets targets = ShownNumbers(row.Expected);
        WithSource(row, [&](auto value) {
            const std::string message = BasicType<decltype(value)>::Name + std::string(NOT_FROM_NUMBER);
            const auto write = [&](WritableRef& target) -> WritableRef& { return target.ReadFrom(value); };
            for (const AnyBasicType& type : BasicTypes()) {
                if (IsNumberCode(type.Code)) ExpectStores(type, write, targets.at(type.Code), message);
            }
        });
    }
}

TEST(WritingNumbersTest, NoOtherTypeTakesANumberYetItIsNotNullThen)
{
    AllNumbers five{true, C(5), 5, 5, 5, 5, 5, 5, 5, 5, 5, 5.F, 5., 5.L};
    ForEachType(NumberTypes{}, [&](auto tag) {
        using T = typename decltype(tag)::Type;
        if constexpr (!std::is_same_v<T, bool>) {
            SCOPED_TRACE(BasicType<T>::Name);
            ExpectConverts(std::get<T>(five), ShownNumbers(five), NOT_FROM_NUMBER, WhenRefused::BecomesNotNull);
        }
    });
    AllNumbers one{true, C(1), 1, 1, 1, 1, 1, 1, 1, 1, 1, 1.F, 1., 1.L};
    ExpectConverts(true, ShownNumbers(one), NOT_FROM_NUMBER, WhenRefused::BecomesNotNull);
}

/// What text becomes in each type that takes it: a decimal number or a local time, or the error state.
struct WrittenText {
    const char* Text;
    const char* Numeric;
    const char* DateTime;
};

TEST(WritingTextTest, TextIsStoredInTextTypesAndMakesEveryOtherNull)
{
    const TimeZone zone("UTC0");
    for (const WrittenText& row :
         {WrittenText{"", "2/(NaN)", "2"}, WrittenText{"12.50", "1/12.50", "2"},
          WrittenText{"2020-01-02 03:04:05", "2/(NaN)", "1/1577934245000"}, WrittenText{"true", "2/(NaN)", "2"}}) {
        SCOPED_TRACE(row.Text);
        const Targets targets = {{41, row.Text}, {45, row.Text}, {47, row.Numeric}, {52, row.DateTime}};
        ExpectConverts(std::string(row.Text), targets, NOT_CONVERTED, WhenRefused::BecomesNull);
        ExpectConverts(TextCharacters(row.Text), targets, NOT_CONVERTED, WhenRefused::BecomesNull);
    }
}

TEST(WritingObjectsTest, ABinaryIsStoredInABinaryOnly)
{
    const std::string bytes("a\0b", 3);
    ExpectConverts(vexa::CBinary(bytes), {{45, bytes}}, NOT_CONVERTED, WhenRefused::StaysAsItWas);
}

TEST(WritingObjectsTest, ANumericIsStoredInANumericOnly)
{
    ExpectConverts(vexa::CNumeric(std::string("-007.500")), {{47, "1/-007.500"}}, NOT_CONVERTED,
                   WhenRefused::StaysAsItWas);
}

/// 2020-07-02 03:04:05 in central European summer time: 01:04:05 UTC, 1593651845 seconds after the epoch, a Thursday,
/// day 183 of the year.
const Targets SUMMER_TIME = {{51, "2020 7 2 3 4 5 4 183 1 7200"}, {52, "1/1593651845000"}};

TEST(WritingObjectsTest, ATmIsStoredWholeOrAsLocalTime)
{
    const TimeZone zone(kCentralEurope);
    tm t = MakeTm(2020, 7, 2, 3, 4, 5);
    t.tm_wday = 4;
    t.tm_yday = 183;
    t.tm_isdst = 1;
    t.tm_gmtoff = 7200;
    ExpectConverts(t, SUMMER_TIME, NOT_CONVERTED, WhenRefused::StaysAsItWas);
}

TEST(WritingObjectsTest, ADateTimeIsStoredWholeOrAsLocalTime)
{
    const TimeZone zone(kCentralEurope);
    ExpectConverts(vexa::CDateTime(1593651845L, 0L), SUMMER_TIME, NOT_CONVERTED, WhenRefused::StaysAsItWas);
}

TEST(CopyingReferencesTest, ANullMakesEveryTargetNullWithoutAMessage)
{
    for (const AnyBasicType& sourceType : BasicTypes()) {
        const std::unique_ptr<AnyHeld> source = sourceType.Hold(HoldingForm::MayNull, true);
        for (const AnyBasicType& type : BasicTypes()) {
            for (HoldingForm form : ALL_FORMS) {
                SCOPED_TRACE(testing::Message() << source->TypeName() << " to " << NameIn(form, type.Name));
                const std::unique_ptr<AnyHeld> target = type.Hold(form, false);
                const std::string before = target->ShownValue();
                EXPECT_EQ(LoggedLines([&] { target->Ref().ReadFrom(Ref(source->Ref())); }), "");
                EXPECT_EQ(target->IsNull(), form != HoldingForm::Plain && form != HoldingForm::NonNullPointer);
                EXPECT_EQ(target->ShownValue(), before);
            }
        }
    }
}

TEST(CopyingReferencesTest, AnUnsupportedSourceChangesNothingSilently)
{
    for (const UnsupportedType& type : UNSUPPORTED_TYPES) {
        SCOPED_TRACE(type.Code);
        const unsigned char memory[16] = {1, 2, 3, 4};
        Held<int> target(HoldingForm::MayNull, 5, true);
        EXPECT_EQ(LoggedLines([&] { target.Ref().ReadFrom(Ref(vexa::CGnlTypeInfor(type.Code), memory)); }), "");
        EXPECT_TRUE(target.IsNull());
        EXPECT_EQ(target.Value(), 5);
    }
}

} // namespace
