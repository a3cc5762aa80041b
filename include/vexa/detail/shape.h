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
    SIGNED_BYTE, ///< signed char; lies in place
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
};

struct COptionalOperations {
    const void* (*Get)(const void* optional); ///< the value, null where there is none
    void* (*Make)(void* optional);            ///< replaces the value by a default one; null where it cannot be made
    void (*Reset)(void* optional);
    /// Takes over an object of the part's class, or of one derived from it, made by its factory; only of a
    /// std::shared_ptr.
    void (*Adopt)(void* optional, void* object);
    /// Destroys a moved-from value: used by the undo record. Moves the whole state of \p from to \p to, both
    /// constructed.
    void (*Swap)(void* left, void* right) noexcept;
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

struct CTextOperations {
    /// The text; \p memory holds it where the type does not itself.
    std::string_view (*Get)(const void* object, std::string& memory);
    void (*Set)(void* object, std::string_view text); ///< null where the type does not keep a text of its own
};

} // namespace vexa::detail

#endif
