#include "core/type_table.h"

#include <array>
#include <cstdlib>
#include <ctime>
#include <new>
#include <string>

#include <vexa/binary.h>
#include <vexa/data_type.h>
#include <vexa/date_time.h>
#include <vexa/numeric.h>

namespace vexa::core {
namespace {

using namespace Enum;

template<unsigned long SIZE>
void* MakeRaw()
{
    return ::operator new(SIZE);
}

void DestroyRaw(void* object) { ::operator delete(object); }

template<class T>
void* Make()
{
    return new T();
}

template<>
void* Make<CBinary>()
{
    return new CBinary(0);
}

template<class T>
void Destroy(void* object)
{
    delete static_cast<T*>(object);
}

/// A type whose memory needs neither constructor nor destructor.
template<class T>
constexpr CTypeRow Raw(const char* name)
{
    return {name, sizeof(T), &MakeRaw<sizeof(T)>, &DestroyRaw};
}

template<class T>
constexpr CTypeRow Object(const char* name)
{
    return {name, sizeof(T), &Make<T>, &Destroy<T>};
}

/// A record, known here by its size only.
template<class T>
constexpr CTypeRow Record(const char* name, unsigned long size)
{
    CTypeRow row{name, size, &MakeRecord<T>, &DestroyRecord<T>};
    row.Clear = &ClearRecord<T>;
    return row;
}

constexpr CTypeRow FromDetail(TypeSource source)
{
    CTypeRow row;
    row.Source = source;
    return row;
}

constexpr void SetContainerRows(std::array<CTypeRow, 256>& rows)
{
    for (unsigned code = 0; code < rows.size(); ++code) {
        if (IsContainerCode(code)) rows[code] = FromDetail(TypeSource::UnnamedContainer);
    }
    for (unsigned code : {DT_SEQUENCE_A, DT_SEQUENCE_B, DT_BITSET, DT_ARRAY, DT_SEQUENCE_C, DT_ASSOCIATIVE_A,
                          DT_ASSOCIATIVE_B, DT_ASSOCIATIVE_C, DT_ASSOCIATIVE_D, DT_ASSOCIATIVE_E}) {
        rows[code] = FromDetail(TypeSource::Container);
    }
}

constexpr void SetNumberRows(std::array<CTypeRow, 256>& rows)
{
    rows[DT_BOOL] = Raw<bool>("bool");
    rows[DT_CHAR] = Raw<char>("char");
    rows[DT_SHORT] = Raw<short>("short");
    rows[DT_INT] = Raw<int>("int");
    rows[DT_LONG] = Raw<long>("long");
    rows[DT_LONG_LONG] = Raw<long long>("long long");
    rows[DT_FLOAT] = Raw<float>("float");
    rows[DT_DOUBLE] = Raw<double>("double");
    rows[DT_LONG_DOUBLE] = Raw<long double>("long double");
    rows[DT_UNSIGNED_CHAR] = Raw<unsigned char>("unsigned char");
    rows[DT_UNSIGNED_SHORT] = Raw<unsigned short>("unsigned short");
    rows[DT_UNSIGNED_INT] = Raw<unsigned int>("unsigned int");
    rows[DT_UNSIGNED_LONG] = Raw<unsigned long>("unsigned long");
    rows[DT_UNSIGNED_LONG_LONG] = Raw<unsigned long long>("unsigned long long");
}

constexpr std::array<CTypeRow, 256> MakeRows()
{
    std::array<CTypeRow, 256> rows{};
    rows[DT_CLASS] = rows[DT_CUSTOM_BASIC] = rows[DT_CUSTOM_OWNED] = FromDetail(TypeSource::Detail);
    rows[DT_NULL] = Raw<NullType>("vexa::NullType");
    rows[DT_VOID] = {"void", 0, nullptr, &std::free};
    SetNumberRows(rows);
    rows[DT_STD_STRING] = Object<std::string>("std::string");
    rows[DT_CONST_CHAR_PTR] = Raw<const char*>("const char*");
    rows[DT_BINARY] = Object<CBinary>("vexa::CBinary");
    rows[DT_NUMERIC] = Object<CNumeric>("vexa::CNumeric");
    rows[DT_TM] = Raw<tm>("tm");
    rows[DT_DATETIME] = Object<CDateTime>("vexa::CDateTime");
    SetContainerRows(rows);
    rows[DT_GNL_CLASS] = Record<CGnlClass>("vexa::CGnlClass", 72);
    rows[DT_REFERENCE_GROUP] = Record<CReferenceGroup>("vexa::CReferenceGroup", 72);
    rows[DT_ROW] = Record<CRow>("vexa::CRow", 24);
    rows[DT_TABLE] = Record<CTable>("vexa::CTable", 48);
    rows[DT_VALUE] = {"vexa::CValue",  64, &MakeRecord<CValue>, &DestroyRecord<CValue>, &IsNullValue, &SetNullValue,
                      &SetNotNullValue};
    rows[DT_BITSET_NODE] = {"std_bitset_node", 0};
    return rows;
}

constexpr std::array<CTypeRow, 256> ROWS = MakeRows();

// The sizes are part of the interface: they are those of the LP64 data model.
static_assert(ROWS[DT_LONG].Size == 8 && ROWS[DT_LONG_DOUBLE].Size == 16 && ROWS[DT_STD_STRING].Size == 32);
static_assert(ROWS[DT_BINARY].Size == 16 && ROWS[DT_NUMERIC].Size == 72 && ROWS[DT_DATETIME].Size == 16);
static_assert(ROWS[DT_TM].Size == 56 && ROWS[DT_NULL].Size == 1 && ROWS[DT_CONST_CHAR_PTR].Size == 8);

} // namespace

const CTypeRow& TypeRow(unsigned char code) noexcept { return ROWS[code]; }

} // namespace vexa::core
