// The numbers by which types are known, and what each number alone decides: name, size, string or numeric type.

#include <ctime>
#include <ostream>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/container_infor.h>
#include <vexa/custom_type_infor.h>
#include <vexa/refrence.h>

#include "support/type_of.h"

namespace {

using namespace vexa::Enum;
using vexa::CContainerInfor;
using vexa::CCustomBasicTypeInfor;
using vexa::CGnlTypeInfor;
using vexa::CTypeInforBase;
using vexa_test::Plain;

struct CodeRow {
    DataTypeEnum Enumerator;
    unsigned int Code;
    const char* Name;
    unsigned long Size;
};

void PrintTo(const CodeRow& row, std::ostream* out) { *out << row.Code; }

/// Every code whose name and size do not come from a detailed descriptor.
constexpr CodeRow kFixedRows[] = {
    {DT_UNKNOWN, 0, "unkown type", 0},
    {DT_NULL, 2, "vexa::NullType", 1},
    {DT_VOID, 3, "void", 0},
    {DT_BOOL, 11, "bool", 1},
    {DT_CHAR, 12, "char", 1},
    {DT_SHORT, 13, "short", 2},
    {DT_INT, 14, "int", 4},
    {DT_LONG, 15, "long", 8},
    {DT_LONG_LONG, 16, "long long", 8},
    {DT_FLOAT, 17, "float", 4},
    {DT_DOUBLE, 18, "double", 8},
    {DT_LONG_DOUBLE, 19, "long double", 16},
    {DT_UNSIGNED_CHAR, 22, "unsigned char", 1},
    {DT_UNSIGNED_SHORT, 23, "unsigned short", 2},
    {DT_UNSIGNED_INT, 24, "unsigned int", 4},
    {DT_UNSIGNED_LONG, 25, "unsigned long", 8},
    {DT_UNSIGNED_LONG_LONG, 26, "unsigned long long", 8},
    {DT_STD_STRING, 41, "std::string", 32},
    {DT_CONST_CHAR_PTR, 42, "const char*", 8},
    {DT_BINARY, 45, "vexa::CBinary", 16},
    {DT_NUMERIC, 47, "vexa::CNumeric", 72},
    {DT_TM, 51, "tm", 56},
    {DT_DATETIME, 52, "vexa::CDateTime", 16},
    {DT_GNL_CLASS, 101, "vexa::CGnlClass", 72},
    {DT_REFERENCE_GROUP, 102, "vexa::CReferenceGroup", 72},
    {DT_ROW, 105, "vexa::CRow", 24},
    {DT_TABLE, 106, "vexa::CTable", 48},
    {DT_VALUE, 111, "vexa::CValue", 64},
    {DT_BITSET_NODE, 121, "std_bitset_node", 0},
};

struct ContainerRow {
    DataTypeEnum Enumerator;
    unsigned int Code;
};

void PrintTo(const ContainerRow& row, std::ostream* out) { *out << row.Code; }

constexpr ContainerRow kContainerRows[] = {
    {DT_SEQUENCE_A, 61},    {DT_SEQUENCE_B, 62},    {DT_BITSET, 63},        {DT_ARRAY, 64},
    {DT_SEQUENCE_C, 78},    {DT_ASSOCIATIVE_A, 81}, {DT_ASSOCIATIVE_B, 82}, {DT_ASSOCIATIVE_C, 83},
    {DT_ASSOCIATIVE_D, 84}, {DT_ASSOCIATIVE_E, 98},
};

std::set<unsigned int> AssignedContainerCodes()
{
    std::set<unsigned int> codes;
    for (const ContainerRow& row : kContainerRows)
        codes.insert(row.Code);
    return codes;
}

static_assert(DT_CLASS == 1 && DT_CUSTOM_BASIC == 112 && DT_CUSTOM_OWNED == 114);
static_assert(HF_KIND_MASK == 0x07 && HF_MAY_NULL == 1 && HF_NON_NULL_POINTER == 2 && HF_NULLABLE == 0x08 &&
              HF_POINTER == 0x10 && HF_CONST == 0x20);
static_assert(AS_PUBLIC == 0 && AS_PROTECTED == 1 && AS_PRIVATE == 2);
static_assert(ASF_VALUE == 0 && ASF_TYPE_AND_VALUE == 1 && ASF_TYPE_ONLY == 2 && sizeof(AsStringFormatEnum) == 4);
static_assert(std::is_empty_v<vexa::NullType> && std::is_same_v<decltype(vexa::null), const vexa::NullType>);

// Applications compile these sizes in.
static_assert(sizeof(vexa::NullType) == 1 && sizeof(long) == 8 && sizeof(long double) == 16 &&
              sizeof(std::string) == 32 && sizeof(const char*) == 8 && sizeof(tm) == 56);
static_assert(sizeof(vexa::CBinary) == 16 && sizeof(vexa::CNumeric) == 72 && sizeof(vexa::CDateTime) == 16);

// The bands reach from their first to their last code, assigned or not, and no further.
static_assert(!IsNumberCode(9) && IsNumberCode(10) && IsNumberCode(20) && IsNumberCode(39) && !IsNumberCode(40));
static_assert(!IsBasicCode(10) && IsBasicCode(11) && IsBasicCode(40) && IsBasicCode(58) && !IsBasicCode(59));
static_assert(!IsContainerCode(60) && IsContainerCode(61) && IsContainerCode(98) && !IsContainerCode(99));
static_assert(!IsAssociativeCode(80) && IsAssociativeCode(81) && IsAssociativeCode(98) && !IsAssociativeCode(99));
static_assert(!IsNumberCode(256 + 14) && !IsBasicCode(256 + 14), "a code that no byte holds is in no band");

class FixedCode : public testing::TestWithParam<CodeRow> {};

TEST_P(FixedCode, HasItsNumberNameAndSize)
{
    const CodeRow& row = GetParam();
    EXPECT_EQ(row.Code, static_cast<unsigned int>(row.Enumerator));
    EXPECT_EQ(row.Name, Plain(row.Code).RealTypeName());
    EXPECT_EQ(row.Name, Plain(row.Code).TypeName());
    EXPECT_EQ(row.Size, Plain(row.Code).Sizeof());
}

TEST_P(FixedCode, HasTheSizeOfTheValueHoweverItIsHeld)
{
    const CodeRow& row = GetParam();
    for (unsigned int flags = 0; flags < 0x40; ++flags) {
        EXPECT_EQ(row.Size, CGnlTypeInfor(row.Code, flags).Sizeof()) << flags;
        EXPECT_EQ(row.Name, CGnlTypeInfor(row.Code, flags).RealTypeName()) << flags;
    }
}

INSTANTIATE_TEST_SUITE_P(TypeCodes, FixedCode, testing::ValuesIn(kFixedRows), testing::PrintToStringParamName());

class ContainerCode : public testing::TestWithParam<ContainerRow> {};

TEST_P(ContainerCode, HasItsNumberAndTheNameAndSizeOfItsDescriptor)
{
    CContainerInfor infor;
    infor.SetBaseTypeInfor("Basket", 40, nullptr, nullptr, 0);
    infor.ElementType = vexa_test::ConstPointer(DT_INT);
    EXPECT_EQ(GetParam().Code, static_cast<unsigned int>(GetParam().Enumerator));
    EXPECT_EQ("Basket<const int*>", Plain(GetParam().Code, &infor).RealTypeName());
    EXPECT_EQ("Basket<const int*>*", vexa_test::OwnedPointer(GetParam().Code, &infor).TypeName());
    EXPECT_EQ(40U, Plain(GetParam().Code, &infor).Sizeof());
}

INSTANTIATE_TEST_SUITE_P(TypeCodes, ContainerCode, testing::ValuesIn(kContainerRows),
                         testing::PrintToStringParamName());

TEST(TypeCodes, OtherCodesOfTheContainerBandHaveNeitherNameNorSize)
{
    CContainerInfor infor;
    infor.SetBaseTypeInfor("Basket", 40, nullptr, nullptr, 0);
    const std::set<unsigned int> assigned = AssignedContainerCodes();
    for (unsigned int code = 61; code <= 98; ++code) {
        if (assigned.count(code) != 0) continue;
        EXPECT_EQ("unkown type", Plain(code, &infor).RealTypeName()) << code;
        EXPECT_EQ(0U, Plain(code, &infor).Sizeof()) << code;
    }
}

TEST(TypeCodes, ClassesAndCustomTypesHaveTheRegisteredNameAndSize)
{
    CTypeInforBase registered;
    registered.SetBaseTypeInfor("shop::Customer", 88, nullptr, nullptr, 7);
    for (const unsigned int code : {DT_CLASS, DT_CUSTOM_BASIC}) {
        EXPECT_EQ("shop::Customer", Plain(code, &registered).RealTypeName()) << code;
        EXPECT_EQ(88U, Plain(code, &registered).Sizeof()) << code;
    }
    CGnlTypeInfor owned;
    owned.ChangeTypeTo_CustomType("shop::Money", 24, nullptr, nullptr, 7);
    EXPECT_EQ("shop::Money", owned.RealTypeName());
    EXPECT_EQ(24U, owned.Sizeof());
}

TEST(TypeCodes, UnassignedCodesAreUnknownAndHaveNoSize)
{
    std::set<unsigned int> assigned = {DT_CLASS, DT_CUSTOM_BASIC, DT_CUSTOM_OWNED};
    for (const CodeRow& row : kFixedRows)
        assigned.insert(row.Code);
    for (unsigned int code = 0; code < 256; ++code) {
        if (assigned.count(code) != 0 || (code >= 61 && code <= 98)) continue;
        EXPECT_EQ("unkown type", Plain(code).RealTypeName()) << code;
        EXPECT_EQ("unkown type*", vexa_test::OwnedPointer(code).TypeName()) << code;
        EXPECT_EQ(0U, Plain(code).Sizeof()) << code;
        EXPECT_EQ(nullptr, Plain(code).New()) << code;
    }
}

TEST(TypeCodes, NumericAreTheCodes10To39AndTheDecimalNumber)
{
    for (unsigned int code = 0; code < 256; ++code) {
        const bool isNumeric = (code >= 10 && code <= 39) || code == 47;
        EXPECT_EQ(isNumeric, Plain(code).IsNumericTypeEx()) << code;
    }
}

TEST(TypeCodes, ANumericCodeWithoutATypeIsNumericAndUnknown)
{
    EXPECT_TRUE(Plain(20).IsNumericTypeEx());
    EXPECT_EQ("unkown type", Plain(20).RealTypeName());
}

TEST(TypeCodes, BoolAndCharAreNumericBinaryAndDateTimeAreNeitherNumericNorText)
{
    EXPECT_TRUE(Plain(DT_BOOL).IsNumericTypeEx());
    EXPECT_TRUE(Plain(DT_CHAR).IsNumericTypeEx());
    EXPECT_TRUE(Plain(DT_NUMERIC).IsNumericTypeEx());
    for (const unsigned int code : {DT_BINARY, DT_DATETIME}) {
        EXPECT_FALSE(Plain(code).IsNumericTypeEx()) << code;
        EXPECT_FALSE(Plain(code).IsStringTypeEx()) << code;
    }
}

TEST(TypeCodes, OfTheCodesAloneOnlyTheTwoTextsAreStringTypes)
{
    for (unsigned int code = 0; code < 256; ++code) {
        if (code == DT_CUSTOM_BASIC || code == DT_ARRAY) continue;
        EXPECT_EQ(code == 41 || code == 42, Plain(code).IsStringTypeEx()) << code;
    }
}

TEST(TypeCodes, ACustomTypeIsAStringTypeOverStdStringOnly)
{
    CCustomBasicTypeInfor custom;
    for (unsigned int code = 0; code < 256; ++code) {
        if (code == DT_CUSTOM_OWNED) continue;
        custom.Underlying = Plain(code);
        EXPECT_EQ(code == 41, Plain(DT_CUSTOM_BASIC, &custom).IsStringTypeEx()) << code;
    }
}

TEST(TypeCodes, AnArrayIsAStringTypeOverDirectlyHeldCharOnly)
{
    CContainerInfor array;
    const CGnlTypeInfor type = Plain(DT_ARRAY, &array);
    array.ElementType = Plain(DT_CHAR);
    EXPECT_TRUE(type.IsStringTypeEx());
    for (const CGnlTypeInfor& element :
         {vexa_test::OwnedPointer(DT_CHAR), vexa_test::ConstPointer(DT_CHAR), vexa_test::MayNull<char>(DT_CHAR),
          Plain(DT_UNSIGNED_CHAR), Plain(DT_INT), Plain(DT_STD_STRING)}) {
        array.ElementType = element;
        EXPECT_FALSE(type.IsStringTypeEx()) << element.TypeName();
    }
}

TEST(TypeCodes, ContainersOtherThanArraysAreNoStringTypesOverChar)
{
    CContainerInfor infor;
    infor.ElementType = Plain(DT_CHAR);
    for (unsigned int code = 61; code <= 98; ++code) {
        if (code != DT_ARRAY) {
            EXPECT_FALSE(Plain(code, &infor).IsStringTypeEx()) << code;
        }
    }
}

TEST(TypeCodes, BandsAreToldByRange)
{
    for (unsigned int code = 0; code < 256; ++code) {
        EXPECT_EQ(code >= 11 && code <= 58, Plain(code).IsBasicType()) << code;
        EXPECT_EQ(code >= 61 && code <= 98, Plain(code).IsContainer()) << code;
        EXPECT_EQ(code >= 81 && code <= 98, Plain(code).IsAssociative()) << code;
    }
}

} // namespace
