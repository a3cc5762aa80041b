#ifndef VEXA_CBOR_H
#define VEXA_CBOR_H

#include <string>
#include <string_view>

#include <vexa/interchange.h>

/// \file
/// Described objects as CBOR (RFC 8949), the functions of vexa/interchange.h for that format. They lie in a library of
/// their own (CMake: ordana::cbor; pkg-config: ordana-cbor), which is there where libcbor was when the package was
/// built.
///
/// Written is the shortest form of every number, and every length is told. A decimal number that no integer or double
/// holds is a bignum or a decimal fraction (tags 2 to 4), a date a text with tag 0. Whatever is well-formed is read:
/// lengths that are not told, floating values of all sizes, `undefined` as null, dates of tags 0 and 1 as their RFC
/// 3339 text, integers as keys; other tags are passed over. A key that is no text and no integer is a problem, and so
/// is a bignum of more than 4153 bytes. Places in reports are bytes; there are no lines.

namespace vexa {

/// See ReadJson.
VEXA_API bool ReadCbor(const CRefrence& target, std::string_view bytes, CReport& report, const CReadPolicy& policy = {},
                       const detail::CEnumerationSlot* names = nullptr);
/// See WriteJson.
VEXA_API bool WriteCbor(std::string& out, const CConstRefrence& ref, const CWritePolicy& policy = {},
                        CReport* report = nullptr, const detail::CEnumerationSlot* names = nullptr);

template<class T, class = detail::IfObject<T>>
bool ReadCbor(T& object, std::string_view bytes, CReport& report, const CReadPolicy& policy = {})
{
    return ReadCbor(RefOf(object), bytes, report, policy, detail::NamesOf<T>());
}
template<class T, class = detail::IfObject<T>>
bool WriteCbor(std::string& out, const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    return WriteCbor(out, RefOf(object), policy, report, detail::NamesOf<T>());
}
template<class T, class = detail::IfObject<T>>
std::string WriteCbor(const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    std::string out;
    WriteCbor(out, RefOf(object), policy, report, detail::NamesOf<T>());
    return out;
}

} // namespace vexa

#endif
