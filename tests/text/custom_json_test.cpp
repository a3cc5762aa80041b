// Custom basic types as JSON: what is quoted, what can be read back, and the codes of what cannot.

#include <vexa/json.h>

#include <limits>
#include <memory>
#include <string>

#include <gtest/gtest.h>

#include <vexa/custom_type_infor.h>
#include <vexa/value.h>

#include "support/captured_log.h"
#include "support/described_class.h"
#include "support/type_of.h"
#include "support/value_text.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CCustomBasicTypeInfor;
using vexa::CGnlTypeInfor;
using vexa::CRefrence;
using vexa::CValue;
using Descriptor = std::unique_ptr<CCustomBasicTypeInfor>;

template<class T>
struct Box {
    short Padding = -1;
    T Value{};
};

template<class T>
Descriptor StdOver(unsigned int code)
{
    CCustomBasicTypeInfor* slot = nullptr;
    CCustomBasicTypeInfor::InitCustomStdBasicTypeInfor(slot, "Box", sizeof(Box<T>), nullptr, nullptr, Plain(code),
                                                       offsetof(Box<T>, Value));
    return Descriptor(slot);
}

/// "code text", the text of a failed call shown too.
std::string Written(const vexa::CConstRefrence& ref)
{
    std::string text = "before";
    const int code = vexa::ToJson(text, ref);
    return std::to_string(code) + ' ' + text;
}

/// The JSON of a Std value, and the code of reading that JSON back with what it then is.
template<class T>
std::string RoundTrip(unsigned int code, const T& value)
{
    const Descriptor infor = StdOver<T>(code);
    Box<T> box;
    box.Value = value;
    CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &box);
    const std::string written = Written(ref);
    const int readCode = vexa::FromJson(ref, written.substr(2));
    EXPECT_EQ(box.Padding, -1);
    return written + " > " + std::to_string(readCode) + ' ' + ref.AsString();
}

TEST(StdCustomJson, OverAStringIsQuotedEscapedAndReadBack)
{
    EXPECT_EQ(RoundTrip<std::string>(DT_STD_STRING, "a/b\"c\t\xc3"), "0 \"a\\/b\\\"c\\t\\u00c3\" > 0 a/b\"c\t\xc3");
    EXPECT_EQ(RoundTrip<std::string>(DT_STD_STRING, ""), "0 \"\" > 0 ");
}

TEST(StdCustomJson, OverANumberIsWrittenPlainAndCannotBeReadBack)
{
    EXPECT_EQ(RoundTrip<bool>(DT_BOOL, true), "0 true > 656 false");
    EXPECT_EQ(RoundTrip<char>(DT_CHAR, static_cast<char>(200)), "0 200 > 656 ");
    EXPECT_EQ(RoundTrip<short>(DT_SHORT, -32768), "0 -32768 > 656 0");
    EXPECT_EQ(RoundTrip<int>(DT_INT, -5), "0 -5 > 656 0");
    EXPECT_EQ(RoundTrip<long>(DT_LONG, std::numeric_limits<long>::min()), "0 -9223372036854775808 > 656 0");
    EXPECT_EQ(RoundTrip<long long>(DT_LONG_LONG, 5), "0 5 > 656 0");
    EXPECT_EQ(RoundTrip<float>(DT_FLOAT, 0.5F), "0 0.500000 > 656 0.000000");
    EXPECT_EQ(RoundTrip<double>(DT_DOUBLE, 0.5), "0 0.500000 > 656 0.000000");
    EXPECT_EQ(RoundTrip<long double>(DT_LONG_DOUBLE, 0.5L), "0 0.500000 > 656 0.000000");
    EXPECT_EQ(RoundTrip<unsigned char>(DT_UNSIGNED_CHAR, 200), "0 200 > 656 0");
    EXPECT_EQ(RoundTrip<unsigned short>(DT_UNSIGNED_SHORT, 65535), "0 65535 > 656 0");
    EXPECT_EQ(RoundTrip<unsigned int>(DT_UNSIGNED_INT, 4294967295U), "0 4294967295 > 656 0");
    EXPECT_EQ(RoundTrip<unsigned long>(DT_UNSIGNED_LONG, ~0UL), "0 18446744073709551615 > 656 0");
    EXPECT_EQ(RoundTrip<unsigned long long>(DT_UNSIGNED_LONG_LONG, 7), "0 7 > 656 0");
}

TEST(StdCustomJson, OverAValueTypeIsWrittenWithoutQuotesAndCannotBeReadBack)
{
    EXPECT_EQ(RoundTrip<vexa::CBinary>(DT_BINARY, vexa::CBinary("AB", 2)), "0 4142 > 656 ");
    EXPECT_EQ(RoundTrip<vexa::CNumeric>(DT_NUMERIC, vexa::CNumeric(std::string("-1.50"))), "0 -1.50 > 656 (null)");
    EXPECT_EQ(RoundTrip<tm>(DT_TM, SampleTime()), "0 2020-01-02 03:04:05 > 656 2020-01-02 03:04:05");
    EXPECT_EQ(RoundTrip<vexa::CDateTime>(DT_DATETIME, vexa::CDateTime(SampleTime())),
              "0 2020-01-02 03:04:05 > 656 NULL");
}

TEST(StdCustomJson, OverAStringThatIsNoStringInTheTextGives939)
{
    const Descriptor infor = StdOver<std::string>(DT_STD_STRING);
    Box<std::string> box;
    CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &box);
    EXPECT_EQ(vexa::FromJson(ref, "5"), 939);
    EXPECT_EQ(vexa::FromJson(ref, "\"open"), 939);
    EXPECT_EQ(vexa::FromJson(ref, "\"\\"), 939);
    EXPECT_EQ(vexa::FromJson(ref, ""), 0);
}

TEST(StdCustomJson, OverATextPointerIsNoStringType)
{
    const Descriptor infor = StdOver<char[4]>(DT_CONST_CHAR_PTR);
    Box<char[4]> box{-1, {'a', 'b', 'c', 0}};
    CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &box);
    EXPECT_EQ(Written(ref), "0 abc");
    EXPECT_EQ(vexa::FromJson(ref, "\"x\""), 656);
}

TEST(StdCustomJson, ThatIsNullIsEmptyAndIsMadeByReading)
{
    const Descriptor infor = StdOver<std::string>(DT_STD_STRING);
    Wrapped<Box<std::string>> wrapped{1, {}};
    CRefrence ref(MayNull<Box<std::string>>(DT_CUSTOM_BASIC, infor.get()), &wrapped);
    EXPECT_EQ(Written(ref), "0 ");
    EXPECT_EQ(vexa::FromJson(ref, "\"x\""), 0);
    EXPECT_EQ(wrapped.IsNull, 0);
    EXPECT_EQ(Written(ref), "0 \"x\"");
}

TEST(StdCustomJson, ThatIsReadOnlyIsRefused)
{
    const Descriptor infor = StdOver<std::string>(DT_STD_STRING);
    Box<std::string> box{-1, "kept"};
    CRefrence ref(CGnlTypeInfor(DT_CUSTOM_BASIC, HF_CONST, infor.get()), &box);
    EXPECT_EQ(vexa::FromJson(ref, "\"x\""), 965);
    EXPECT_EQ(box.Value, "kept");
}

/// A custom value that is nothing but the generic value that it converts to and from.
struct Any {
    CValue Content;
};

Descriptor AnyInfor(const CGnlTypeInfor& underlying = CGnlTypeInfor())
{
    CCustomBasicTypeInfor* slot = nullptr;
    CCustomBasicTypeInfor::InitCustomAnyBasicTypeInfor(slot, "Any", sizeof(Any), nullptr, nullptr, underlying, 17);
    slot->ToValue = [](const void* value, CValue& out) { out = static_cast<const Any*>(value)->Content; };
    slot->FromValue = [](void* value, const CValue& in) { static_cast<Any*>(value)->Content = in; };
    return Descriptor(slot);
}

std::string AnyWritten(const CValue& content)
{
    const Descriptor infor = AnyInfor();
    const Any any{content};
    return Written(vexa::CConstRefrence(Plain(DT_CUSTOM_BASIC, infor.get()), &any));
}

/// The code of reading a text, and the value that the converter was given last.
std::string AnyRead(const std::string& text)
{
    const Descriptor infor = AnyInfor();
    Any any{5.5};
    CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &any);
    const int code = vexa::FromJson(ref, text);
    return std::to_string(code) + ' ' + Show(any.Content);
}

TEST(AnyCustomJson, IsWrittenAsTheValueThatItsConverterGives)
{
    EXPECT_EQ(AnyWritten("a \"text\""), R"(0 "a \"text\"")");
    EXPECT_EQ(AnyWritten(true), "0 true");
    EXPECT_EQ(AnyWritten('A'), "0 65");
    EXPECT_EQ(AnyWritten(-5), "0 -5");
    EXPECT_EQ(AnyWritten(std::numeric_limits<long>::min()), "0 -9223372036854775808");
    EXPECT_EQ(AnyWritten(1e20), "0 100000000000000000000.000000");
    EXPECT_EQ(AnyWritten(vexa::CNumeric(std::string("1.50"))), "0 1.50");
    EXPECT_EQ(AnyWritten(vexa::CBinary("AB", 2)), "0 4142");
    EXPECT_EQ(AnyWritten(SampleTime()), "0 2020-01-02 03:04:05");
    EXPECT_EQ(AnyWritten(vexa::CDateTime(SampleTime())), "0 2020-01-02 03:04:05");
    EXPECT_EQ(AnyWritten(std::string(5000, '\xff')).size(), 2 + 2 + 5000UL * 6);
}

TEST(AnyCustomJson, ThatIsConvertedToANullIsEmpty)
{
    EXPECT_EQ(AnyWritten(CValue()), "0 ");
    EXPECT_EQ(AnyWritten(vexa::null), "0 ");
}

TEST(AnyCustomJson, IsNotReadWhateverTheTextHoldsAndIsThenEmpty)
{
    for (const char* text : {R"("a")", R"("")", "true", "false", "-12", " 7 ", "1.5", R"("open)", "\"\\", "tru", "{}"})
        EXPECT_EQ(AnyRead(text), "656 0: NULL") << text;
}

TEST(AnyCustomJson, IsEmptiedThroughItsConverterBeforeItIsRead)
{
    EXPECT_EQ(AnyRead(""), "0 0: NULL");
    EXPECT_EQ(AnyRead(" \t\n\r"), "0 0: NULL");
}

TEST(AnyCustomJson, WithoutAConverterFromAValueCannotBeRead)
{
    const Descriptor infor = AnyInfor();
    infor->FromValue = nullptr;
    Any any{5};
    CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &any);
    EXPECT_EQ(vexa::FromJson(ref, "7"), 656);
    EXPECT_EQ(Show(any.Content), "14: 5");
}

TEST(AnyCustomJson, OverAStandardTypeIsWrittenInPlace)
{
    CCustomBasicTypeInfor* slot = nullptr;
    CCustomBasicTypeInfor::InitCustomAnyBasicTypeInfor(slot, "Name", sizeof(std::string), nullptr, nullptr,
                                                       Plain(DT_STD_STRING), 17);
    const Descriptor infor(slot);
    infor->ToValue = [](const void*, CValue& out) { out = "never"; };
    infor->FromValue = [](void*, const CValue&) { ADD_FAILURE(); };
    std::string name = "Ann";
    CRefrence ref(Plain(DT_CUSTOM_BASIC, infor.get()), &name);
    EXPECT_EQ(Written(ref), "0 \"Ann\"");
    EXPECT_EQ(vexa::FromJson(ref, "\"Bob\""), 0);
    EXPECT_EQ(name, "Bob");
}

/// A class of three custom members, described by hand.
struct Three {
    Box<std::string> Text;
    Any First;
    Any Second;
};

TEST(CustomJson, StopsAtTheMemberThatCannotBeReadAndKeepsThoseBefore)
{
    const Descriptor text = StdOver<std::string>(DT_STD_STRING);
    const Descriptor any = AnyInfor();
    const DescribedClass infor("Three", sizeof(Three), [&](vexa::CClassInfor& about) {
        Add(about, "text", offsetof(Three, Text), Plain(DT_CUSTOM_BASIC, text.get()));
        Add(about, "first", offsetof(Three, First), Plain(DT_CUSTOM_BASIC, any.get()));
        Add(about, "second", offsetof(Three, Second), Plain(DT_CUSTOM_BASIC, any.get()));
    });
    Three three;
    CRefrence ref(Plain(DT_CLASS, &*infor), &three);

    three.First.Content = true;
    EXPECT_EQ(vexa::FromJson(ref, R"({"text":"x"})"), 0);
    EXPECT_EQ(Written(ref), R"(0 {"text":"x"})");
    EXPECT_EQ(vexa::FromJson(ref, R"({"text":"y","first":true,"second":-7})"), 656);
    EXPECT_EQ(three.Text.Value, "y");
    EXPECT_EQ(Show(three.First.Content) + ' ' + Show(three.Second.Content), "0: NULL 0: NULL");
    EXPECT_EQ(vexa::FromJson(ref, R"({"text":2,"first":1})"), 939);
    EXPECT_EQ(vexa::FromJson(ref, R"({"first":null})"), 656);
}

} // namespace
