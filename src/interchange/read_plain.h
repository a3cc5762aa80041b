#ifndef VEXA_INTERCHANGE_READ_PLAIN_H
#define VEXA_INTERCHANGE_READ_PLAIN_H

#include "interchange/json_plain.h"
#include "interchange/reader.h"

/// \file
/// The part of the walk over a whole JSON text that takes what most texts hold without asking the source for each
/// value. Whatever else is met is left where it stands, to the walk value by value: both give the same.

namespace vexa::interchange {

/// Whether values may be stored as they are met: nothing need be undone, bounded or looked at besides.
template<class Source>
inline bool CReader<Source>::IsPlainReading() const noexcept
{
    constexpr std::size_t NO_LIMIT = CReadPolicy::NO_LIMIT;
    return IS_JSON && m_context.Undo == nullptr && m_context.Policy.MaxTextLength == NO_LIMIT &&
           m_context.Policy.MaxElements == NO_LIMIT;
}

/// Reads members of a class without notes and unions, from \p next on, as long as they stand in the text as most do:
/// in the order of the class, their basic values in their usual form. \p next is the one to be expected then.
/// \return a member whose key has been taken but whose value has not; null if another key or the end is next.
///
/// Apart from the functions that call themselves for what is nested, so that it takes nothing of their stack.
template<class Source>
__attribute__((noinline)) const CMember* CReader<Source>::ReadPlainMembers([[maybe_unused]] const CObjectFrame& frame,
                                                                           [[maybe_unused]] const CMember*& next,
                                                                           [[maybe_unused]] const CMember* last)
{
    if constexpr (IS_JSON) {
        const char* at = m_source.Place();
        const char* const end = m_source.End();
        bool isFirst = m_source.IsAtFirst();
        char* const object = frame.Object;
        std::uint32_t* const firsts = m_context.Firsts.From(frame.Base);
        const CMember* member = next;
        for (; member != last; ++member, isFirst = false) {
            const std::size_t length = member->JsonKey.size();
            const char* const key = m_source.KeyAt(at, isFirst, member->JsonKey);
            if (key == nullptr) break;
            std::uint32_t& first = firsts[member->Number];
            const bool isPlain = first == 0 && member->Kind == FormKind::BASIC && member->How == Held::DIRECT;
            const char* behind = nullptr;
            if (isPlain && !member->IsConst)
                behind = PlainBasicInto(*member, object + member->ValueOffset, key + length, end);
            if (behind == nullptr) {
                m_source.MoveBehindKey(key, length);
                return member;
            }
            first = FirstOf(m_source.OffsetOf(key));
            at = behind;
        }
        next = member;
        if (!isFirst) m_source.MoveBehindValue(at);
    }
    return nullptr;
}

/// \return how many elements have been added in one go.
template<class Source>
template<class T>
inline std::size_t CReader<Source>::TakePlainElements([[maybe_unused]] std::vector<T>& vector)
{
    if constexpr (IS_JSON) {
        if (IsPlainReading()) return m_source.TakeElements(vector);
    }
    return 0;
}

} // namespace vexa::interchange

#endif
