// The text of basic values, into a caller's buffer or onto a string.

#include <charconv>
#include <cstring>
#include <ctime>
#include <limits>

#include <vexa/refrence.h>

#include "core/basic_types.h"
#include "core/bounded.h"
#include "core/c_locale.h"
#include "core/escape.h"

namespace vexa {

using namespace Enum;

namespace {

/// Bytes that hold the text of any value of a number type: 20 digits and a sign, or the digits of the largest floating
/// value with six decimals.
template<class T>
constexpr std::size_t MaxTextLength()
{
    if (std::is_integral_v<T>) return 24;
    return static_cast<std::size_t>(std::numeric_limits<T>::max_exponent10) + 16;
}

/// Formats as "%d" and its kin, or "%f", in any locale. \return the length.
template<class T>
std::size_t FormatNumber(char* buffer, T value)
{
    std::to_chars_result result{};
    if constexpr (std::is_floating_point_v<T>) {
        result = std::to_chars(buffer, buffer + MaxTextLength<T>(), value, std::chars_format::fixed, 6);
    } else {
        result = std::to_chars(buffer, buffer + MaxTextLength<T>(), value);
    }
    return static_cast<std::size_t>(result.ptr - buffer);
}

constexpr std::size_t TIME_ROOM = 64;

/// \return the length, 0 for a time whose text does not fit TIME_ROOM bytes with its zero.
std::size_t FormatTime(char* buffer, const tm& value)
{
    return strftime_l(buffer, TIME_ROOM, "%Y-%m-%d %H:%M:%S", &value, core::CLocale());
}

/// Writes into a caller's buffer. Whatever is refused for lack of room, the position moves on, as the caller has
/// counted.
class CBufferSink {
public:
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
    /// Short and decimal: no look at the capacity.
    template<class T>
    void Digits(T value)
    {
        char digits[MaxTextLength<T>()];
        Put(digits, FormatNumber(digits, value));
    }
    /// As a formatting function would: all with room for a zero behind it, or nothing but that zero and a count of -1.
    template<class T>
    void Formatted(T value)
    {
        char text[MaxTextLength<T>()];
        const std::size_t length = FormatNumber(text, value);
        if (m_position < m_capacity && length < m_capacity - m_position) {
            Put(text, length);
        } else {
            if (m_position < m_capacity) m_buffer[m_position] = '\0';
            --m_position;
        }
    }
    void Time(const tm& value)
    {
        char text[TIME_ROOM];
        Put(text, FormatTime(text, value));
    }

private:
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
    explicit CStringSink(std::string& out) : m_out(out) {}
    void Copy(const char* text, std::size_t length) { m_out.append(text, length); }
    void Escape(const char* text, std::size_t length) { core::AppendStringWithEscape(m_out, text, length); }
    template<class T>
    void Digits(T value)
    {
        char text[MaxTextLength<T>()];
        m_out.append(text, FormatNumber(text, value));
    }
    template<class T>
    void Formatted(T value)
    {
        Digits(value);
    }
    void Time(const tm& value)
    {
        char text[TIME_ROOM];
        m_out.append(text, FormatTime(text, value));
    }

private:
    std::string& m_out;
};

template<class Sink>
void WriteCharacters(Sink& sink, const char* text, std::size_t length, bool escape)
{
    if (length == 0) return;
    if (escape)
        sink.Escape(text, length);
    else
        sink.Copy(text, length);
}

template<class Sink>
void WriteCopy(Sink& sink, const std::string& text)
{
    sink.Copy(text.data(), text.size());
}

template<class Sink, class Type>
void WriteNumber(Sink& sink, Type, const void* address, bool escape)
{
    const auto value = core::Load<typename Type::Type>(address);
    if constexpr (Type::CODE == DT_BOOL) {
        if (value)
            sink.Copy("true", 4);
        else
            sink.Copy("false", 5);
    } else if constexpr (Type::CODE == DT_CHAR) {
        WriteCharacters(sink, reinterpret_cast<const char*>(&value), 1, escape);
    } else if constexpr (std::is_floating_point_v<decltype(value)> || Type::CODE == DT_LONG_LONG ||
                         Type::CODE == DT_UNSIGNED_LONG_LONG) {
        sink.Formatted(value);
    } else {
        sink.Digits(value);
    }
}

template<class Sink>
void WriteValue(Sink& sink, unsigned char code, const void* address, bool escape)
{
    core::VisitBasicType(code, [&](auto type) {
        using T = typename decltype(type)::Type;
        if constexpr (type.IS_NUMBER) {
            WriteNumber(sink, type, address, escape);
        } else if constexpr (std::is_same_v<T, core::CTextAtAddress>) {
            const auto* const text = static_cast<const char*>(address);
            WriteCharacters(sink, text, std::strlen(text), escape);
        } else {
            const T& value = core::Load<T>(address);
            if constexpr (std::is_same_v<T, std::string>)
                WriteCharacters(sink, value.data(), value.size(), escape);
            else if constexpr (std::is_same_v<T, CBinary>)
                WriteCopy(sink, value.AsHexString());
            else if constexpr (std::is_same_v<T, tm>)
                sink.Time(value);
            else if constexpr (std::is_same_v<T, CDateTime>)
                WriteCopy(sink, value.AsString(nullptr, false));
            else
                WriteCopy(sink, value.AsString());
        }
    });
}

template<class Sink>
void WriteText(Sink sink, const CConstRefrence& source, bool escape)
{
    const void* const address = source.ValueAddress();
    if (address == nullptr)
        sink.Copy("NULL", 4);
    else if (source.TypeInfor.DataType == DT_UNKNOWN)
        sink.Copy("unkown", 6);
    else
        WriteValue(sink, source.TypeInfor.DataType, address, escape);
}

} // namespace

void CStdBasicTypeConstRefrence::AppendToString(char* buffer, unsigned long& position, unsigned long capacity,
                                                bool escape) const
{
    WriteText(CBufferSink(buffer, position, capacity), *this, escape);
}

void CStdBasicTypeConstRefrence::AppendToString(std::string& out, bool escape) const
{
    // A zero byte ends the text of a single character: a char of value 0 adds nothing.
    const void* const address = TypeInfor.DataType == DT_CHAR && !escape ? ValueAddress() : nullptr;
    if (address != nullptr && core::Load<unsigned char>(address) == 0) return;
    WriteText(CStringSink(out), *this, escape);
}

} // namespace vexa
