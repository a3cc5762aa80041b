#ifndef VEXA_DETAIL_SHAPE_H
#define VEXA_DETAIL_SHAPE_H

#include <cstddef>
#include <string>
#include <string_view>

#include <vexa/detail/slot.h>

/// \file
/// What the library knows of a type that it handles as one custom basic value (DT_CUSTOM_BASIC) in the look-ups,
/// conversions and texts, and by its structure in the standard formats: a std::optional, a std::variant and the like.
/// A shape is constant data beside the custom descriptor; it is found through CFinishedMark::SHAPE.

namespace vexa::detail {

enum class ShapeKind : unsigned char {
    SIGNED_BYTE, ///< signed char; lies in place. Operations is a CEnumerationSlot where its values have names, else
                 ///< null
    OPTIONAL,    ///< COptionalOperations; one part. std::optional, std::shared_ptr
    VARIANT,     ///< CVariantOperations; a part for each alternative
    TUPLE,       ///< CTupleOperations; a part for each element
    BITS,        ///< CBitsOperations. std::vector<bool>
    ATOMIC,      ///< CAtomicOperations; one part, a basic type
    TIME_POINT,  ///< CTimePointOperations
    DURATION,    ///< one part, the count, which lies in place
    TEXT,        ///< CTextOperations. std::filesystem::path, std::string_view
    RAW_JSON,    ///< vexa::CRawJson; lies in place
    JSON_TREE    ///< vexa::CJsonTree; lies in place
};

/// Of one type. Everything it points to is constant.
struct CShape {
    ShapeKind Kind;
    unsigned int PartCount;
    const CTypeSource* Parts; ///< how the parts are described
    const void* Operations;   ///< by Kind
    /// Exchanges the whole states of two objects; null where that cannot be done without an exception.
    void (*Swap)(void* left, void* right) noexcept;
};

/// The shape of a custom type; null for one that only converts itself.
VEXA_API const CShape* ShapeOf(const CCustomBasicTypeInfor& infor) noexcept;

/// What the custom descriptor of a type with a shape is made from.
struct CShapedType {
    CShape Shape;
    const char* Name;
    void (*AppendName)(std::string& name); ///< what follows Name; null for the names of the parts in angle brackets
    unsigned long Size;
    void* (*Factory)();
    void (*Deleter)(void*);
    void (*ToValue)(const void* object, CValue& out);
    void (*FromValue)(void* object, const CValue& in);
};

/// The standard value of an object with that shape, for the custom descriptor's converters: what is inside where that
/// is one basic value, else one line of text, in which confidential attributes are masked.
VEXA_API void ShapeToValue(const CShapedType& type, const void* object, CValue& out);
/// The other way round. A null \p in leaves the empty state; what cannot be read from one value is logged, and the
/// object stays as it was.
VEXA_API void ShapeFromValue(const CShapedType& type, void* object, const CValue& in);

struct COptionalOperations {
    const void* (*Get)(const void* optional); ///< the value, null where there is none
    void* (*Make)(void* optional);            ///< replaces the value by a default one; null where it cannot be made
    void (*Reset)(void* optional);
    /// Lets a std::shared_ptr share \p object, which is of the part's class and lies in \p whole, or is that itself;
    /// \p whole goes to \p deleter with the last pointer, and at once where there is no memory (std::bad_alloc). Null
    /// for every other type.
    void (*Adopt)(void* optional, void* object, void* whole, void (*deleter)(void* whole));
};

struct CVariantOperations {
    static constexpr unsigned int VALUELESS = static_cast<unsigned int>(-1);

    unsigned int (*Index)(const void* variant);
    const void* (*Get)(const void* variant); ///< the value of the active alternative
    void* (*Make)(void* variant,
                  unsigned int alternative); ///< replaces it by a default one; null where it cannot be made
};

struct CTupleOperations {
    void* (*Part)(void* tuple, unsigned int number);
};

struct CBitsOperations {
    unsigned long (*Count)(const void* bits);
    bool (*Get)(const void* bits, unsigned long number);
    void (*Append)(void* bits, bool bit);
    void (*Clear)(void* bits);
};

struct CAtomicOperations {
    void (*Load)(const void* atomic, void* value);
    void (*Store)(void* atomic, const void* value);
};

struct CTimePointOperations {
    void (*Load)(const void* time, long long& seconds, long& nanoseconds); ///< since 1970 in UTC; 0 to 999,999,999
    /// \return false where the clock's type cannot hold it: nothing is stored then.
    bool (*Store)(void* time, long long seconds, long nanoseconds);
};

/// For a unit of \p numerator / \p denominator seconds: the time of so many of them, rounded down.
VEXA_API void TimeOfCount(long long count, long long numerator, long long denominator, long long& seconds,
                          long& nanoseconds) noexcept;
VEXA_API void TimeOfCount(long double count, long long numerator, long long denominator, long long& seconds,
                          long& nanoseconds) noexcept;
/// How many units a time is. \return false where it is not a whole number of them, or too many.
VEXA_API bool CountOfTime(long long seconds, long nanoseconds, long long numerator, long long denominator,
                          long long& count) noexcept;
VEXA_API long double FloatingCountOfTime(long long seconds, long nanoseconds, long long numerator,
                                         long long denominator) noexcept;

struct CTextOperations {
    /// The text; \p memory holds it where the type does not itself.
    std::string_view (*Get)(const void* object, std::string& memory);
    void (*Set)(void* object, std::string_view text); ///< null where the type does not keep a text of its own
    void (*Clear)(void* object);                      ///< leaves an empty text
};

} // namespace vexa::detail

#endif
