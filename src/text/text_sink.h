#ifndef VEXA_TEXT_TEXT_SINK_H
#define VEXA_TEXT_TEXT_SINK_H

#include <ctime>
#include <string>
#include <string_view>

#include "reference/basic_text.h"
#include "text/ready_text.h"

namespace vexa::text {

/// Gathers text in a small memory of its own and adds it to a string in large pieces, so that a short text costs no
/// call and no look at the string. Nothing is in the string for certain before Flush().
class CTextSink {
public:
    static constexpr bool ESCAPES = false;
    /// The most that can be reserved at once.
    static constexpr std::size_t MAX_RESERVED = 1024;

    explicit CTextSink(std::string& out) : m_out(out), m_at(m_memory) {}
    CTextSink(const CTextSink&) = delete;
    CTextSink& operator=(const CTextSink&) = delete;

    /// The string, with all of the text in it.
    std::string& Flush()
    {
        m_out.append(m_memory, static_cast<std::size_t>(m_at - m_memory));
        m_at = m_memory;
        return m_out;
    }

    /// Where up to \p length bytes may be written, MAX_RESERVED at most; what is written counts once it is accepted.
    char* Reserve(std::size_t length)
    {
        if (__builtin_expect(Room() < length, 0)) Flush();
        return m_at;
    }
    void Accept(char* end) { m_at = end; }

    void Copy(std::string_view text) { Copy(text.data(), text.size()); }
    void Copy(const char* text, std::size_t length)
    {
        if (length <= MAX_RESERVED)
            Accept(WriteText(Reserve(length), text, length));
        else
            Flush().append(text, length);
    }
    /// Of a string 16 bytes may be read however short it is: its own, or of at least 17 on the heap.
    void Copy(const std::string& text)
    {
        if (text.size() <= READY_SPARE)
            Accept(WriteReady(Reserve(READY_SPARE), text.data(), text.size()));
        else
            Copy(text.data(), text.size());
    }
    /// What a plan holds ready, with READY_SPARE bytes behind it.
    void Ready(const char* text, std::size_t length)
    {
        if (length + READY_SPARE <= MAX_RESERVED)
            Accept(WriteReady(Reserve(length + READY_SPARE), text, length));
        else
            Copy(text, length);
    }
    /// Blanks behind a line break.
    void Line(std::size_t indent)
    {
        constexpr char BLANKS[] = "                ";
        char* at = Reserve(1 + READY_SPARE);
        *at++ = '\n';
        for (; __builtin_expect(indent > READY_SPARE, 0); indent -= READY_SPARE) {
            Accept(WriteText(at, BLANKS, READY_SPARE));
            at = Reserve(READY_SPARE);
        }
        std::memcpy(at, BLANKS, READY_SPARE);
        Accept(at + indent);
    }
    char* Claim(std::size_t length)
    {
        if (length > MAX_RESERVED) {
            std::string& out = Flush();
            out.append(length, '\0');
            return out.data() + out.size() - length;
        }
        char* const at = Reserve(length);
        Accept(at + length);
        return at;
    }
    /// A zero byte ends the text of a single character: a char of value 0 adds nothing.
    void Character(char byte)
    {
        if (byte != '\0') Copy(&byte, 1);
    }
    template<class T>
    void Digits(T value)
    {
        Accept(reference::WriteNumber(Reserve(reference::NUMBER_ROOM<T>), value));
    }
    template<class T>
    void Formatted(T value)
    {
        if constexpr (reference::NUMBER_ROOM<T> <= MAX_RESERVED) {
            Digits(value);
        } else {
            char text[reference::NUMBER_ROOM<T>];
            Copy(text, static_cast<std::size_t>(reference::WriteNumber(text, value) - text));
        }
    }
    void Time(const tm& value)
    {
        char* const at = Reserve(reference::TIME_ROOM);
        Accept(at + reference::FormatTime(at, value));
    }
    /// The string that is written to may be part of what is rendered: it then holds the text up to here.
    void Reading(const std::string& text)
    {
        if (__builtin_expect(&text == &m_out, 0)) Flush();
    }

private:
    std::size_t Room() const { return static_cast<std::size_t>(m_memory + sizeof m_memory - m_at); }

    std::string& m_out;
    char* m_at;
    char m_memory[2 * MAX_RESERVED];
};

} // namespace vexa::text

#endif
