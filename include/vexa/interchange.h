#ifndef VEXA_INTERCHANGE_H
#define VEXA_INTERCHANGE_H

#include <functional>
#include <string>
#include <string_view>

#include <vexa/describe.h>
#include <vexa/detail/interchange.h>
#include <vexa/policy.h>
#include <vexa/report.h>

/// \file
/// Described objects in and out of standard formats without loss: JSON (RFC 8259) and, through vexa/event.h, others.
/// Where a peer of this library is at the other end, ToJson and FromJson of vexa/json.h speak its own dialect.

namespace vexa {

// Of objects themselves.

template<class T, class = detail::IfObject<T>>
bool ReadJson(T& object, std::string_view text, CReport& report, const CReadPolicy& policy = {})
{
    return ReadJson(RefOf(object), text, report, policy, detail::NamesOf<T>());
}
template<class T, class = detail::IfObject<T>>
bool ReadJson(T& object, const InputFunction& input, CReport& report, const CReadPolicy& policy = {})
{
    return ReadJson(RefOf(object), input, report, policy, detail::NamesOf<T>());
}
template<class T, class = detail::IfObject<T>>
bool ReadEvents(T& object, CEventSource& source, CReport& report, const CReadPolicy& policy = {})
{
    return ReadEvents(RefOf(object), source, report, policy, detail::NamesOf<T>());
}
template<class T, class = detail::IfObject<T>>
bool WriteJson(std::string& out, const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    return WriteJson(out, RefOf(object), policy, report, detail::NamesOf<T>());
}
template<class T, class = detail::IfObject<T>>
bool WriteJson(const OutputFunction& out, const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    return WriteJson(out, RefOf(object), policy, report, detail::NamesOf<T>());
}
template<class T, class = detail::IfObject<T>>
std::string WriteJson(const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    std::string out;
    WriteJson(out, RefOf(object), policy, report, detail::NamesOf<T>());
    return out;
}
template<class T, class = detail::IfObject<T>>
bool WriteEvents(CEventSink& sink, const T& object, const CWritePolicy& policy = {}, CReport* report = nullptr)
{
    return WriteEvents(sink, RefOf(object), policy, report, detail::NamesOf<T>());
}

/// The same of an object of its own, emptied by assigning a default one.
template<class T>
bool ReadJsonLines(const InputFunction& input, const std::function<bool(T&)>& take, CReport& report,
                   const CReadPolicy& policy = {})
{
    T object{};
    return ReadJsonLines(
        RefOf(object), input, [&object] { object = T{}; }, [&] { return take(object); }, report, policy);
}

} // namespace vexa

#endif
