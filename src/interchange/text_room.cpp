#include "interchange/text_room.h"

#include <algorithm>
#include <string_view>

namespace vexa::interchange {

namespace {

/// What is filled with zeros at a time, before it is written over: still in the nearest cache then.
constexpr std::size_t LEAST_STEP = 512;
constexpr std::size_t LARGEST_STEP = 4096;

} // namespace

CTextRoom::CTextRoom(std::string& memory, const OutputFunction& output) : m_out(memory), m_output(&output)
{
    m_out.resize(PIECE + SPARE);
    m_end = EndOfRoom();
}

char* CTextRoom::More(char* at, std::size_t need)
{
    if (m_output != nullptr) {
        char* const first = m_out.data();
        if (at == first) return at;
        HandOver(first, at - 1);
        *first = at[-1];
        return first + 1;
    }
    const auto used = static_cast<std::size_t>(at - m_out.data());
    m_out.resize(used + SPARE + std::max(need, std::clamp(used, LEAST_STEP, LARGEST_STEP)));
    m_end = EndOfRoom();
    return m_out.data() + used;
}

void CTextRoom::Finish(const char* at)
{
    if (m_output != nullptr)
        HandOver(m_out.data(), at);
    else
        m_out.resize(static_cast<std::size_t>(at - m_out.data()));
}

void CTextRoom::HandOver(const char* first, const char* last)
{
    if (first != last && !(*m_output)(std::string_view(first, static_cast<std::size_t>(last - first))))
        throw COutputStopped();
}

} // namespace vexa::interchange
