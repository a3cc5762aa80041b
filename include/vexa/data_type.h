#ifndef VEXA_DATA_TYPE_H
#define VEXA_DATA_TYPE_H

/// \file
/// The numbers by which the library tells types, holding forms and formats apart. Every value here is part of the
/// binary interface: applications compile them into their class descriptions.

namespace vexa {

/// The type of the null marker. A value of this type is always null.
struct NullType {};

/// The null marker: stands for the absence of a value, for example in `ReadFrom(vexa::null)`.
inline constexpr NullType null{};

namespace Enum {

/// One code per kind of type; a descriptor keeps it in one unsigned byte. Codes that are not listed are unassigned.
enum DataTypeEnum : unsigned int {
    DT_UNKNOWN = 0,             ///< no type, or not yet typed
    DT_CLASS = 1,               ///< a described class
    DT_NULL = 2,                ///< vexa::NullType
    DT_VOID = 3,                ///< untyped memory
    DT_BOOL = 11,               ///< bool
    DT_CHAR = 12,               ///< char, an unsigned byte
    DT_SHORT = 13,              ///< short
    DT_INT = 14,                ///< int
    DT_LONG = 15,               ///< long, 64 bits
    DT_LONG_LONG = 16,          ///< long long
    DT_FLOAT = 17,              ///< float
    DT_DOUBLE = 18,             ///< double
    DT_LONG_DOUBLE = 19,        ///< long double, 16 bytes
    DT_UNSIGNED_CHAR = 22,      ///< unsigned char
    DT_UNSIGNED_SHORT = 23,     ///< unsigned short
    DT_UNSIGNED_INT = 24,       ///< unsigned int
    DT_UNSIGNED_LONG = 25,      ///< unsigned long, 64 bits
    DT_UNSIGNED_LONG_LONG = 26, ///< unsigned long long
    DT_STD_STRING = 41,         ///< std::string
    DT_CONST_CHAR_PTR = 42,     ///< const char*, a NUL-terminated text that the value does not own
    DT_BINARY = 45,             ///< vexa::CBinary
    DT_NUMERIC = 47,            ///< vexa::CNumeric
    DT_TM = 51,                 ///< the C library's tm
    DT_DATETIME = 52,           ///< vexa::CDateTime
    DT_SEQUENCE_A = 61,         ///< sequence container; std::vector in descriptions made by describe.h
    DT_SEQUENCE_B = 62,         ///< sequence container; std::list
    DT_BITSET = 63,             ///< bit set; its elements are DT_BITSET_NODE
    DT_ARRAY = 64,              ///< fixed-size array, its elements stored inline
    DT_SEQUENCE_C = 78,         ///< sequence container; std::deque
    DT_ASSOCIATIVE_A = 81,      ///< associative container; std::set
    DT_ASSOCIATIVE_B = 82,      ///< associative container; std::multiset
    DT_ASSOCIATIVE_C = 83,      ///< associative container; std::map
    DT_ASSOCIATIVE_D = 84,      ///< associative container; std::multimap
    DT_ASSOCIATIVE_E = 98,      ///< associative container; the four unordered ones
    DT_GNL_CLASS = 101,         ///< vexa::CGnlClass
    DT_REFERENCE_GROUP = 102,   ///< vexa::CReferenceGroup
    DT_ROW = 105,               ///< vexa::CRow
    DT_TABLE = 106,             ///< vexa::CTable
    DT_VALUE = 111,             ///< vexa::CValue
    DT_CUSTOM_BASIC = 112,      ///< custom basic type, described by a CCustomBasicTypeInfor
    DT_CUSTOM_OWNED = 114,      ///< custom type whose CTypeInforBase the general descriptor owns
    DT_BITSET_NODE = 121        ///< one element of a bit set: its address designates one bool
};

// Bands of codes, told by range: every code inside one counts, assigned or not.

/// The arithmetic types, bool and char included.
constexpr bool IsNumberCode(unsigned int code) noexcept { return code >= 10 && code <= 39; }
/// The built-in value types: what a basic-value reference reads and writes.
constexpr bool IsBasicCode(unsigned int code) noexcept { return code >= 11 && code <= 58; }
/// What a container descriptor describes.
constexpr bool IsContainerCode(unsigned int code) noexcept { return code >= 61 && code <= 98; }
/// The containers whose elements are inserted, not placed.
constexpr bool IsAssociativeCode(unsigned int code) noexcept { return code >= 81 && code <= 98; }

/// The holding flags of a general descriptor: how a value is held at the place it is looked at.
enum HoldingFlagsEnum : unsigned int {
    HF_KIND_MASK = 0x07,     ///< the bits that hold the wrapper kind
    HF_MAY_NULL = 1,         ///< wrapper kind: a value beside a null-flag byte
    HF_NON_NULL_POINTER = 2, ///< wrapper kind: a pointer that is kept pointing at an object
    HF_NULLABLE = 0x08,      ///< the value may be null
    HF_POINTER = 0x10,       ///< the holder is a pointer to the value
    HF_CONST = 0x20          ///< read-only; with HF_POINTER the pointee is not owned
};

/// Access of a class member; a descriptor keeps it in 3 bits.
enum AccessSpecifierEnum : unsigned int { AS_PUBLIC = 0, AS_PROTECTED = 1, AS_PRIVATE = 2 };

/// What a text rendering holds. Any other value behaves as ASF_VALUE.
enum AsStringFormatEnum : unsigned int {
    ASF_VALUE = 0,          ///< names and values
    ASF_TYPE_AND_VALUE = 1, ///< a header, and the type before each name
    ASF_TYPE_ONLY = 2       ///< types and names, no value
};

} // namespace Enum
} // namespace vexa

#endif
