// What a generic value takes from other values, from references and from plain values of each type.

#include <vexa/value.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/type_of.h"
#include "support/value_text.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CBinary;
using vexa::CDateTime;
using vexa::CNumeric;
using vexa::CStdBasicTypeConstRefrence;
using vexa::CStdBasicTypeRefrence;
using vexa::CValue;

TEST(ValueReadFrom, AnotherValueTakesItsTypeAndContents)
{
    for (const auto target : STORED_CODES) {
        for (const auto source : STORED_CODES) {
            if (source == DT_LONG_DOUBLE) continue;
            CValue value = Sample(target);
            value.ReadFrom(Sample(source));
            EXPECT_EQ(Show(value), std::to_string(source) + ": " + SampleText(source)) << "into " << target;
        }
    }
}

TEST(ValueReadFrom, ANullValueLeavesANullWithTheSourcesType)
{
    CValue source;
    source.SetNull(DT_NUMERIC);
    CValue value = "a text that is too long to lie inside a std::string object";
    EXPECT_EQ(Show(value.ReadFrom(source)), "47: NULL");
    EXPECT_EQ(Show(value.ReadFrom(CValue())), "2: NULL");
}

TEST(ValueReadFrom, ItselfChangesNothing)
{
    CValue value = "text";
    EXPECT_EQ(Show(value.ReadFrom(value)), "41: text");
}

TEST(ValueReadFrom, TakesTheFirstEightBytesOfALongDouble)
{
    const CValue source = 1.5L;
    CValue fresh;
    CValue used = 2.5L;
    for (CValue* const value : {&fresh, &used}) {
        value->ReadFrom(source);
        ASSERT_EQ(value->Type(), DT_LONG_DOUBLE);
        unsigned char bytes[10] = {};
        std::memcpy(bytes, value->Address, sizeof bytes);
        const unsigned char expected[10] = {0, 0, 0, 0, 0, 0, 0, 0xc0, 0, 0}; // the mantissa alone
        EXPECT_EQ(std::memcmp(bytes, expected, sizeof bytes), 0);
    }
}

TEST(ValueReadFrom, ConvertsIntoTheTypeThatItHas)
{
    CValue value;
    value.ChangeValueTypeEnum(DT_INT);
    EXPECT_EQ(Show(value.ReadFrom(3.99)), "14: 3");
    EXPECT_EQ(Show(value.ReadFrom(static_cast<char>(200))), "14: 200");
    value.ChangeValueTypeEnum(DT_UNSIGNED_CHAR);
    EXPECT_EQ(Show(value.ReadFrom(300)), "22: 44");
    value.ChangeValueTypeEnum(DT_NUMERIC);
    EXPECT_EQ(Show(value.ReadFrom("1.5")), "47: 1.5");
    value.ChangeValueTypeEnum(DT_DATETIME);
    EXPECT_EQ(Show(value.ReadFrom(SampleTime())), "52: 2020-01-02 03:04:05");
    value.ChangeValueTypeEnum(DT_TM);
    EXPECT_EQ(Show(value.ReadFrom(CDateTime(SampleTime()))), "51: 2020-01-02 03:04:05");
}

TEST(ValueReadFrom, TheNullMarkerKeepsTheType)
{
    CValue value = CNumeric(5);
    EXPECT_EQ(Show(value.ReadFrom(vexa::null)), "47: NULL");
}

/// One way to set a value from outside: what it is called in a message, and what becomes of a null of a given type.
struct Source {
    const char* Message;
    std::function<void(CValue&)> Read;
    std::function<void(CStdBasicTypeRefrence&)> ReadAsRefrence;
    std::vector<unsigned int> Stores; ///< the codes it can be stored in
    bool MakesNotNull = false;        ///< even where it cannot be stored
};

template<class T>
Source SourceOf(const char* message, const T& value, std::vector<unsigned int> stores, bool makesNotNull = false)
{
    return {message, [value](CValue& target) { target.ReadFrom(value); },
            [value](CStdBasicTypeRefrence& target) { target.ReadFrom(value); }, std::move(stores), makesNotNull};
}

const std::vector<unsigned int> NUMBERS = {11, 12, 13, 14, 15, 16, 17, 18, 19, 22, 23, 24, 25, 26};
const std::vector<unsigned int> TEXTS = {41, 45, 47, 52};

std::vector<Source> AllSources()
{
    const auto number = [](const char* name, auto value) { return SourceOf(name, value, NUMBERS, true); };
    return {number("bool type CStdBasicTypeRefrence", true),
            number("char type CStdBasicTypeRefrence", 'A'),
            number("short type CStdBasicTypeRefrence", static_cast<short>(1)),
            number("int type CStdBasicTypeRefrence", 1),
            number("long type CStdBasicTypeRefrence", 1L),
            number("long long type CStdBasicTypeRefrence", 1LL),
            number("float type CStdBasicTypeRefrence", 1.0F),
            number("double type CStdBasicTypeRefrence", 1.0),
            number("long double type CStdBasicTypeRefrence", 1.0L),
            number("unsigned char type CStdBasicTypeRefrence", static_cast<unsigned char>(1)),
            number("unsigned short type CStdBasicTypeRefrence", static_cast<unsigned short>(1)),
            number("unsigned int type CStdBasicTypeRefrence", 1U),
            number("unsigned long type CStdBasicTypeRefrence", 1UL),
            number("unsigned long long type CStdBasicTypeRefrence", 1ULL),
            SourceOf("std::string type", std::string("1"), TEXTS),
            SourceOf("const char* type", static_cast<const char*>("1"), TEXTS),
            SourceOf("vexa::CBinary type", CBinary("1", 1), {45}),
            SourceOf("vexa::CNumeric type", CNumeric(1), {47}),
            SourceOf("tm type", SampleTime(), {51, 52}),
            SourceOf("vexa::CDateTime type", CDateTime(SampleTime()), {51, 52})};
}

bool Contains(const std::vector<unsigned int>& codes, unsigned int code)
{
    return std::find(codes.begin(), codes.end(), code) != codes.end();
}

std::vector<unsigned int> AllCodes()
{
    std::vector<unsigned int> codes(std::begin(STORED_CODES), std::end(STORED_CODES));
    codes.insert(codes.end(), {0, 2});
    return codes;
}

CValue NullOf(unsigned int code)
{
    CValue value;
    if (code != 0) value.SetNull(static_cast<DataTypeEnum>(code));
    return value;
}

TEST(ValueReadFrom, ANullTakesWhatItsTypeCanStoreAndLogsTheRest)
{
    for (const Source& source : AllSources()) {
        for (const unsigned int code : AllCodes()) {
            CValue value = NullOf(code);
            const std::string log = LoggedLines([&] { source.Read(value); });

            const bool isStored = Contains(source.Stores, code);
            const bool hasType = code != 0 && code != 2;
            const std::string message =
                std::string(source.Message) + " can not be converted to " + value.TypeName() + '\n';
            EXPECT_EQ(log, isStored ? "" : message) << code;
            EXPECT_EQ(value.IsNull(), !isStored && !(source.MakesNotNull && hasType)) << source.Message << code;
            EXPECT_EQ(value.Type(), code);
        }
    }
}

TEST(ValueReadFrom, ANullStaysNullAndLogsWhenItIsSetAsABasicReference)
{
    for (const Source& source : AllSources()) {
        for (const unsigned int code : AllCodes()) {
            CValue value = NullOf(code);
            const std::string log = LoggedLines([&] { source.ReadAsRefrence(value); });

            EXPECT_EQ(log, std::string(source.Message) + " can not be converted to " + value.TypeName() + '\n') << code;
            EXPECT_EQ(Show(value), std::to_string(code) + ": NULL");
        }
    }
}

TEST(ValueReadFrom, ATextThatCannotBeStoredLeavesANull)
{
    CValue value = 5;
    const std::string log = LoggedLines([&] { value.ReadFrom(std::string("12")); });
    EXPECT_EQ(Show(value), "14: NULL");
    EXPECT_EQ(log, "std::string type can not be converted to int\n");
}

TEST(ValueReadFrom, AnObjectThatCannotBeStoredLeavesTheValue)
{
    CValue value = 5;
    const std::string log = LoggedLines([&] { value.ReadFrom(CNumeric(7)); });
    EXPECT_EQ(Show(value), "14: 5");
    EXPECT_EQ(log, "vexa::CNumeric type can not be converted to int\n");
}

TEST(ValueReadFrom, TakesAReferenceByTheConversions)
{
    const double number = 7.9;
    const CStdBasicTypeConstRefrence ref(Plain(DT_DOUBLE), &number);
    CValue value;
    value.SetNull(DT_INT);
    EXPECT_EQ(Show(value.ReadFrom(ref)), "14: 7");

    const CValue text = "8.5";
    value.SetNull(DT_NUMERIC);
    EXPECT_EQ(Show(value.ReadFrom(static_cast<const CStdBasicTypeConstRefrence&>(text))), "47: 8.5");
}

TEST(ValueReadFrom, ANullReferenceMakesItNull)
{
    CValue value = 5;
    EXPECT_EQ(Show(value.ReadFrom(CStdBasicTypeConstRefrence(Plain(DT_INT), nullptr))), "14: NULL");
}

TEST(ValueReadFrom, AReferenceToItselfChangesNothing)
{
    CValue value = "text";
    EXPECT_EQ(Show(value.ReadFrom(static_cast<const CStdBasicTypeConstRefrence&>(value))), "41: text");
}

TEST(ValueReadFrom, TheNullMarkerThroughTheBasicReferenceDetachesItAndLosesNothing)
{
    for (const auto code : STORED_CODES) {
        CValue value = Sample(code);
        static_cast<CStdBasicTypeRefrence&>(value).ReadFrom(vexa::null);
        EXPECT_EQ(Show(value), std::to_string(code) + ": NULL");

        CValue copy = value;
        EXPECT_EQ(Show(copy), std::to_string(code) + ": NULL");
        value.SetNotNull();
        EXPECT_FALSE(value.IsNull());
    }
}

TEST(ValueReadFrom, ANumberThatWasDetachedIsWhatItsStorageHeld)
{
    CValue value = 5;
    static_cast<CStdBasicTypeRefrence&>(value).ReadFrom(vexa::null);
    value.SetNotNull();
    EXPECT_EQ(Show(value), "14: 5");
}

} // namespace
