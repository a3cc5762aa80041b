#ifndef VEXA_INTERCHANGE_H
#define VEXA_INTERCHANGE_H

#include <functional>
#include <new>
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

namespace detail {

/// An object that can be made anew where it lies, also one that cannot be assigned.
template<class T>
class CRenewed {
public:
    CRenewed() { Make(); }
    CRenewed(const CRenewed&) = delete;
    CRenewed& operator=(const CRenewed&) = delete;
    ~CRenewed() { Destroy(); }

    T& Get() noexcept { return *std::launder(reinterpret_cast<T*>(m_place)); }
    void Renew()
    {
        Destroy();
        Make();
    }

private:
    void Make()
    {
        ::new (static_cast<void*>(m_place)) T{};
        m_isThere = true;
    }
    void Destroy()
    {
        if (m_isThere) Get().~T();
        m_isThere = false;
    }

    alignas(T) unsigned char m_place[sizeof(T)];
    bool m_isThere = false;
};

} // namespace detail

/// The same of an object of its own, which is made anew for each line: it need be neither copied nor moved.
template<class T>
bool ReadJsonLines(const InputFunction& input, const std::function<bool(T&)>& take, CReport& report,
                   const CReadPolicy& policy = {})
{
    detail::CRenewed<T> object;
    return ReadJsonLines(
        RefOf(object.Get()), input, [&object] { object.Renew(); }, [&] { return take(object.Get()); }, report, policy);
}

} // namespace vexa

#endif
