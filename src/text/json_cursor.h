#ifndef VEXA_TEXT_JSON_CURSOR_H
#define VEXA_TEXT_JSON_CURSOR_H

#include <array>
#include <string>

namespace vexa::text {

inline constexpr std::array<bool, 256> MakeBlanks()
{
    std::array<bool, 256> blanks{};
    for (const std::size_t byte : {0x20U, 0x09U, 0x0AU, 0x0DU})
        blanks[byte] = true;
    return blanks;
}
inline bool IsBlank(char byte)
{
    static constexpr std::array<bool, 256> BLANKS = MakeBlanks();
    return BLANKS[static_cast<unsigned char>(byte)];
}

/// Where the blanks from \p next on end; a byte that is none must follow the text.
inline const char* SkipBlanks(const char* next)
{
    if (!IsBlank(*next)) return next;
    while (IsBlank(*++next)) {
    }
    return next;
}

/// Where the reader is in the text. All of its moves stop at the end. Behind the text there is a zero.
class CJsonCursor {
public:
    explicit CJsonCursor(const std::string& text) : m_next(text.data()), m_end(text.data() + text.size()) {}

    bool AtEnd() const { return m_next == m_end; }
    bool IsAt(char byte) const { return m_next != m_end && *m_next == byte; }
    /// Steps over \p byte if it is next.
    bool Take(char byte)
    {
        if (!IsAt(byte)) return false;
        ++m_next;
        return true;
    }
    /// \return whether something is left behind the blanks.
    bool SkipBlanks()
    {
        while (m_next != m_end && IsBlank(*m_next))
            ++m_next;
        return m_next != m_end;
    }
    const char* Next() const { return m_next; }
    const char* End() const { return m_end; }
    std::size_t Left() const { return static_cast<std::size_t>(m_end - m_next); }
    void MoveTo(const char* next) { m_next = next; }

private:
    const char* m_next;
    const char* m_end;
};

/// Reads a string in quotation marks onto the end of \p out. \return 0 or a code.
int ReadJsonString(std::string& out, CJsonCursor& cursor);

} // namespace vexa::text

#endif
