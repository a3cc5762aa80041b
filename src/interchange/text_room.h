#ifndef VEXA_INTERCHANGE_TEXT_ROOM_H
#define VEXA_INTERCHANGE_TEXT_ROOM_H

#include <cstddef>
#include <string>

#include <vexa/policy.h>

namespace vexa::interchange {

/// The output function wants no more.
struct COutputStopped {};

/// Room for a text that grows: a string, which keeps the memory that it has, or pieces of a bounded size that go to a
/// function. Where the text ends is in the hand of whoever writes it.
class CTextRoom {
public:
    /// Bytes behind what has been reserved that may be written, so that blocks are copied whole.
    static constexpr std::size_t SPARE = 32;
    /// Bytes of one piece at most.
    static constexpr std::size_t PIECE = 16384;
    /// The most that may be reserved at once.
    static constexpr std::size_t MAX_RESERVED = PIECE / 2;

    /// What \p out holds goes.
    explicit CTextRoom(std::string& out) : m_out(out), m_output(nullptr) { m_end = EndOfRoom(); }
    /// \p memory is where the pieces are made.
    CTextRoom(std::string& memory, const OutputFunction& output);
    CTextRoom(const CTextRoom&) = delete;
    CTextRoom& operator=(const CTextRoom&) = delete;

    char* Start() noexcept { return m_out.data(); }
    /// \return where the text goes on, once there are so many bytes. The last one written can still be taken back.
    char* Reserve(char* at, std::size_t need)
    {
        return __builtin_expect(m_end - at < static_cast<std::ptrdiff_t>(need), 0) ? More(at, need) : at;
    }
    /// The text ends here.
    void Finish(const char* at);

private:
    char* EndOfRoom() noexcept { return m_out.data() + (m_out.size() > SPARE ? m_out.size() - SPARE : 0); }
    __attribute__((noinline)) char* More(char* at, std::size_t need);
    void HandOver(const char* first, const char* last);

    std::string& m_out;
    const OutputFunction* m_output;
    char* m_end; ///< of the room without the spare one
};

} // namespace vexa::interchange

#endif
