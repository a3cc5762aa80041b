#ifndef ORDANA_FORMATS_CBOR_SOURCE_H
#define ORDANA_FORMATS_CBOR_SOURCE_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/event.h>
#include <vexa/policy.h>

#include "cbor_item.h"

namespace vexa::cbor {

/// The events of CBOR, which must outlive it. libcbor's decoder allocates nothing, whatever size is claimed.
class CCborSource : public CEventSource {
public:
    CCborSource(std::string_view bytes, const CReadPolicy& policy) : m_bytes(bytes), m_policy(policy) {}

    CFormatAbilities Abilities() const override
    {
        CFormatAbilities abilities;
        abilities.HasBytes = abilities.HasNan = abilities.TellsIntegersFromFloats = abilities.HasIntegerKeys = true;
        abilities.HasLines = false;
        return abilities;
    }
    bool Next(CEvent& event, CProblem& problem) override
    {
        event.Text = {};
        event.Offset = m_at;
        const bool isShort = m_bytes.size() <= m_policy.MaxBytes;
        const bool isGiven = isShort ? Give(event, problem) : Fail(problem, ProblemCode::TOO_LONG, "");
        event.Length = m_at - event.Offset;
        return isGiven;
    }

private:
    /// An array or map that is open.
    struct CLevel {
        bool IsObject = false;
        bool IsIndefinite = false;
        bool IsValueNext = false; ///< behind a key
        std::uint64_t Left = 0;   ///< elements or members
    };

    bool Give(CEvent& event, CProblem& problem);
    bool GiveKey(const CItem& item, CEvent& event, CProblem& problem);
    bool GiveValue(const CItem& item, CEvent& event, CProblem& problem);
    bool GiveTagged(const CItem& item, std::uint64_t tag, CEvent& event, CProblem& problem);
    bool GiveTime(const CItem& item, CEvent& event, CProblem& problem);
    bool GiveInteger(const CItem& item, CEvent& event);
    bool GiveDigits(std::string digits, CEvent& event);
    bool GiveMemory(EventKind kind, CEvent& event);
    bool GiveChunks(bool isText, CEvent& event, CProblem& problem);
    bool GiveFraction(CEvent& event, CProblem& problem);
    bool Open(const CItem& item, CEvent& event, CProblem& problem);
    bool Close(CEvent& event);
    bool Take(CItem& item, CProblem& problem);
    bool TakeTagged(CItem& item, std::uint64_t& tag, CProblem& problem);

    bool Fail(CProblem& problem, ProblemCode code, const char* expected)
    {
        problem.Code = code;
        problem.Expected = expected;
        problem.Place.Offset = m_itemAt;
        problem.Place.Length = m_at - m_itemAt;
        return false;
    }

    const std::string_view m_bytes;
    const CReadPolicy& m_policy;
    std::size_t m_at = 0;
    std::size_t m_itemAt = 0; ///< where the last item begins
    bool m_hasValue = false;
    std::vector<CLevel> m_levels;
    std::string m_memory; ///< of a text that the bytes do not hold in one piece
};

/// An integer's digits, wherever they are.
std::string IntegerText(const CEvent& event);

} // namespace vexa::cbor

#endif
