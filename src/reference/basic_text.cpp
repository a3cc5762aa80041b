// The text of basic values, into a caller's buffer or onto a string.

#include <vexa/refrence.h>

#include "core/bounded.h"
#include "core/escape.h"
#include "reference/basic_text.h"

namespace vexa {

using namespace Enum;

namespace {

/// Writes into a caller's buffer. Whatever is refused for lack of room, the position moves on, as the caller has
/// counted.
class CBufferSink {
public:
    static constexpr bool ESCAPES = true;

    CBufferSink(char* buffer, unsigned long& position, unsigned long capacity)
        : m_buffer(buffer), m_position(position), m_capacity(capacity)
    {
    }
    void Copy(const char* text, std::size_t length)
    {
        core::memcpy_s(m_buffer + m_position, m_capacity - m_position, text, length);
        m_position += length;
    }
    void Escape(const char* text, std::size_t length)
    {
        core::SetStringWithEscape(m_buffer, m_position, m_capacity, text, length);
    }
    char* Claim(std::size_t length)
    {
        const bool fits = m_position <= m_capacity && length <= m_capacity - m_position;
        char* const at = fits ? m_buffer + m_position : nullptr;
        m_position += length;
        return at;
    }
    void Character(char byte) { Copy(&byte, 1); }
    /// Short and decimal: no look at the capacity.
    template<class T>
    void Digits(T value)
    {
        char digits[reference::NUMBER_ROOM<T>];
        Put(digits, LengthOf(digits, reference::WriteNumber(digits, value)));
    }
    /// As a formatting function would: all with room for a zero behind it, or nothing but that zero and a count of -1.
    template<class T>
    void Formatted(T value)
    {
        char text[reference::NUMBER_ROOM<T>];
        const std::size_t length = LengthOf(text, reference::WriteNumber(text, value));
        if (m_position < m_capacity && length < m_capacity - m_position) {
            Put(text, length);
        } else {
            if (m_position < m_capacity) m_buffer[m_position] = '\0';
            --m_position;
        }
    }
    void Time(const tm& value)
    {
        char text[reference::TIME_ROOM];
        Put(text, reference::FormatTime(text, value));
    }
    void Reading(const std::string&) {}

private:
    static std::size_t LengthOf(const char* text, const char* end) { return static_cast<std::size_t>(end - text); }
    void Put(const char* text, std::size_t length)
    {
        std::memcpy(m_buffer + m_position, text, length);
        m_position += length;
    }

    char* m_buffer;
    unsigned long& m_position;
    unsigned long m_capacity;
};

class CStringSink {
public:
    static constexpr bool ESCAPES = true;

    explicit CStringSink(std::string& out) : m_out(out) {}
    void Copy(const char* text, std::size_t length) { m_out.append(text, length); }
    void Escape(const char* text, std::size_t length) { core::AppendStringWithEscape(m_out, text, length); }
    char* Claim(std::size_t length)
    {
        m_out.append(length, '\0');
        return m_out.data() + m_out.size() - length;
    }
    /// A zero byte ends the text of a single character: a char of value 0 adds nothing.
    void Character(char byte)
    {
        if (byte != '\0') m_out += byte;
    }
    template<class T>
    void Digits(T value)
    {
        char text[reference::NUMBER_ROOM<T>];
        m_out.append(text, reference::WriteNumber(text, value));
    }
    template<class T>
    void Formatted(T value)
    {
        Digits(value);
    }
    void Time(const tm& value)
    {
        char text[reference::TIME_ROOM];
        m_out.append(text, reference::FormatTime(text, value));
    }
    void Reading(const std::string&) {}

private:
    std::string& m_out;
};

template<class Sink>
void WriteText(Sink sink, const CConstRefrence& source, bool escape)
{
    const void* const address = source.ValueAddress();
    if (address == nullptr)
        sink.Copy("NULL", 4);
    else if (source.TypeInfor.DataType == DT_UNKNOWN)
        sink.Copy("unkown", 6);
    else
        core::VisitBasicType(source.TypeInfor.DataType,
                             [&](auto type) { reference::WriteBasic(sink, type, address, escape); });
}

} // namespace

void CStdBasicTypeConstRefrence::AppendToString(char* buffer, unsigned long& position, unsigned long capacity,
                                                bool escape) const
{
    WriteText(CBufferSink(buffer, position, capacity), *this, escape);
}

void CStdBasicTypeConstRefrence::AppendToString(std::string& out, bool escape) const
{
    WriteText(CStringSink(out), *this, escape);
}

} // namespace vexa
