#ifndef VEXA_YAML_H
#define VEXA_YAML_H

#include <string>
#include <string_view>

#include <vexa/interchange.h>

/// \file
/// Described objects as YAML 1.2, the functions of vexa/interchange.h for that format. They lie in a library of their
/// own (CMake: ordana::yaml; pkg-config: ordana-yaml), which is there where libyaml was when the package was built.
///
/// Plain scalars mean what the core schema says (`~`, `true`, `0x1F`, `.inf`; `yes` and `1_000` are texts), quoted ones
/// are texts, whatever has the tag `!`, `!!str` or `!!binary` is a text, and of `!!int`, `!!float`, `!!bool` and
/// `!!null` what a plain scalar is; other tags are passed over. A stream has one document. A key is a scalar. An alias
/// stands for what its anchor has, within the bound that CEventSource tells; a longer text is ProblemCode::TOO_LONG.

namespace vexa {

/// See ReadJson. Bytes that are no UTF-8 are a problem whatever the policy.
VEXA_API bool ReadYaml(const CRefrence& target, std::string_view text, CReport& report, const CReadPolicy& policy = {},
                       const detail::CEnumerationSlot* names = nullptr);
/// See WriteJson. In block style, with CWritePolicy::Indentation blanks a level, two where that is 0. Texts that a
/// reader of YAML 1.1 or 1.2 would take for something else are quoted.
VEXA_API bool WriteYaml(std::string& out, const CConstRefrence& ref, const CWritePolicy& policy = {},
                        CReport* report = nullptr, const detail::CEnumerationSlot* names = nullptr);

template<class T, class = detail::IfObject<T>>
bool ReadYaml(T& object, std::string_view text, CReport& report, const CReadPolicy& policy = {})
{
    return ReadYaml(RefOf(object), text, report, policy, detail::NamesOf<T>());
}
template<class T, class = detail::IfObject<T>>
bool WriteYaml(std::string& out, const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    return WriteYaml(out, RefOf(object), policy, report, detail::NamesOf<T>());
}
template<class T, class = detail::IfObject<T>>
std::string WriteYaml(const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    std::string out;
    WriteYaml(out, RefOf(object), policy, report, detail::NamesOf<T>());
    return out;
}

} // namespace vexa

#endif
