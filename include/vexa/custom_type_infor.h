#ifndef VEXA_CUSTOM_TYPE_INFOR_H
#define VEXA_CUSTOM_TYPE_INFOR_H

#include <string>

#include <vexa/type_infor.h>

namespace vexa {

class CValue;

/// Describes a custom basic type: an application type that is handled as one basic value.
///
/// The Std variant wraps one standard value, which is read and written in place. The Any variant names an underlying
/// standard type of the same layout, or none (code 0): then its text and the JSON that is written go through its
/// converters, never through its bytes. FromJson reads a custom value only where its standard type is std::string.
///
/// Built once under the global lock and only read afterwards. Set the converters before the descriptor is first used.
class VEXA_API CCustomBasicTypeInfor : public CTypeInforBase {
public:
    /// Sets the custom value from a basic one, whatever its type; from a null one to its empty state.
    void (*FromValue)(void* value, const CValue& in) = nullptr;
    /// Stores the custom value's standard value into \p out, which is untyped.
    void (*ToValue)(const void* value, CValue& out) = nullptr;
    short ValueOffset = 0;    ///< Std variant: bytes from the object to its standard value
    CGnlTypeInfor Underlying; ///< descriptor of the standard value

    /// Builds the descriptor of a Std type, unless \p slot is set. Of \p valueOffset the low 16 bits are kept.
    static void InitCustomStdBasicTypeInfor(CCustomBasicTypeInfor*& slot, const char* name, unsigned long size,
                                            void* (*newFn)(), void (*deleteFn)(void*), const CGnlTypeInfor& underlying,
                                            unsigned long valueOffset);
    /// Builds the descriptor of an Any type, unless \p slot is set.
    static void InitCustomAnyBasicTypeInfor(CCustomBasicTypeInfor*& slot, const char* name, unsigned long size,
                                            void* (*newFn)(), void (*deleteFn)(void*), const CGnlTypeInfor& underlying,
                                            unsigned int customTypeID);

    /// The text of the value that ToValue gives; empty for a null \p value, and without a converter.
    std::string AsString(const void* value) const;
};

static_assert(sizeof(CCustomBasicTypeInfor) == 104, "part of the binary interface");

} // namespace vexa

#endif
