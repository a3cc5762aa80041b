#include "interchange/read_text.h"

#include <cstdint>
#include <utility>

#include "core/packed_time.h"
#include "core/read_time.h"

namespace vexa::interchange {

namespace {

constexpr long NANOSECONDS = 1'000'000; // of a millisecond

/// The date and time of an instant in UTC, as tm has them.
tm FieldsOf(long long seconds)
{
    const auto time = static_cast<std::time_t>(seconds);
    tm fields{};
    gmtime_r(&time, &fields);
    return fields;
}

} // namespace

bool InstantOf(std::string_view text, CInstant& instant)
{
    return core::ReadTime(text, instant.Seconds, instant.Nanoseconds);
}

bool DateTimeOf(const CInstant& instant, CDateTime& time)
{
    if (instant.Nanoseconds % NANOSECONDS != 0) return false;
    const long milliseconds = instant.Nanoseconds / NANOSECONDS;
    if (instant.Seconds >= 0) {
        time = CDateTime(static_cast<long>(instant.Seconds), milliseconds);
        return time.State == Enum::VS_VALID;
    }
    const tm fields = FieldsOf(instant.Seconds);
    if (fields.tm_year < -1900) return false;
    time.ReadFrom(fields, true);
    time.TimeWord |= core::PACKED_MILLISECOND.Put(static_cast<int>(milliseconds));
    return time.State == Enum::VS_VALID;
}

bool InstantOf(const CDateTime& time, CInstant& instant)
{
    if (time.State != Enum::VS_VALID) return false;
    const bool isPacked = core::IsPacked(time.TimeWord);
    instant = {isPacked ? core::SecondsOf(time.As_tm(true)) : time.secs(), time.msec() * NANOSECONDS};
    return true;
}

namespace {

constexpr int NO_DIGIT = -1;

constexpr int Base64Digit(char byte)
{
    if (byte >= 'A' && byte <= 'Z') return byte - 'A';
    if (byte >= 'a' && byte <= 'z') return byte - 'a' + 26;
    if (byte >= '0' && byte <= '9') return byte - '0' + 52;
    return byte == '+' ? 62 : byte == '/' ? 63 : NO_DIGIT;
}

} // namespace

bool BytesOfBase64(std::string_view text, CBinary& bytes)
{
    if (text.size() % 4 != 0) return false;
    std::size_t padding = 0;
    while (padding < 2 && padding < text.size() && text[text.size() - 1 - padding] == '=')
        ++padding;
    const std::string_view digits = text.substr(0, text.size() - padding);
    CBinary read(text.size() / 4 * 3 - padding);
    std::uint32_t bits = 0;
    int count = 0;
    std::size_t next = 0;
    for (const char byte : digits) {
        const int digit = Base64Digit(byte);
        if (digit == NO_DIGIT) return false;
        bits = bits << 6U | static_cast<std::uint32_t>(digit);
        count += 6;
        if (count < 8) continue;
        count -= 8;
        read.Data[next++] = static_cast<unsigned char>(bits >> static_cast<unsigned>(count));
    }
    if ((bits & ((1U << static_cast<unsigned>(count)) - 1)) != 0) return false; // what the padding cuts off
    bytes = std::move(read);
    return true;
}

} // namespace vexa::interchange
