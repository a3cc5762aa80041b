#ifndef VEXA_CUSTOM_TYPE_INFOR_H
#define VEXA_CUSTOM_TYPE_INFOR_H

#include <vexa/type_infor.h>

namespace vexa {

class CValue;

/// Describes a custom basic type: an application type that is handled as one basic value. Built once under the global lock
/// and only read afterwards.
class VEXA_API CCustomBasicTypeInfor : public CTypeInforBase {
public:
    void (*FromValue)(void* value, const CValue& in) = nullptr;     ///< fills the custom value; the library itself reads JSON
    void (*ToValue)(const void* value, CValue& out) = nullptr;      ///< gives the custom value's standard value
    short ValueOffset = 0;                                          ///< bytes from the object to its standard value
    CGnlTypeInfor Underlying;                                       ///< descriptor of the standard value
};

static_assert(sizeof(CCustomBasicTypeInfor) == 104, "part of the binary interface");

} // namespace vexa

#endif
