// Objects as CBOR, through libcbor's encoder.

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include <vexa/cbor.h>

#include "cbor_item.h"

namespace vexa {
namespace cbor {
namespace {

/// Whether a value is one of 16 bits: eleven binary digits, none below 2 to -24.
bool IsHalf(double value)
{
    constexpr double LARGEST = 65504;
    if (!std::isfinite(value)) return true;
    int exponent = 0;
    std::frexp(value, &exponent);
    const double scaled = std::ldexp(value, -std::max(exponent - 11, -24));
    return std::fabs(value) <= LARGEST && scaled == std::trunc(scaled);
}

/// The bits of such a value. libcbor's own function rounds some of the smallest ones.
unsigned int HalfBits(double value)
{
    const unsigned int sign = std::signbit(value) ? 0x8000 : 0;
    if (std::isnan(value)) return 0x7E00;
    if (std::isinf(value)) return sign | 0x7C00U;
    if (value == 0) return sign;
    int exponent = 0;
    std::frexp(value, &exponent);
    const int biased = std::max(exponent + 14, 0); // with 0 the first digit is written too
    const double digits = std::ldexp(std::fabs(value), biased == 0 ? 24 : 11 - exponent);
    return sign | static_cast<unsigned int>(biased) << 10U | (static_cast<unsigned int>(digits) & 0x3FFU);
}

bool IsSingle(double value)
{
    constexpr auto LARGEST = static_cast<double>(std::numeric_limits<float>::max());
    return std::fabs(value) <= LARGEST && static_cast<double>(static_cast<float>(value)) == value;
}

class CCborSink : public CEventSink {
public:
    explicit CCborSink(std::string& out) : m_out(out), m_levels(1) {}

    CFormatAbilities Abilities() const override
    {
        CFormatAbilities abilities;
        abilities.HasBytes = abilities.HasDateTime = abilities.HasNan = true;
        abilities.TellsIntegersFromFloats = abilities.HasIntegerKeys = true;
        abilities.HasLines = false;
        return abilities;
    }
    void Null() override { PutValue(cbor_encode_null); }
    void Bool(bool value) override { PutValue(cbor_encode_bool, value); }
    void Signed(long long value) override
    {
        value < 0 ? PutValue(cbor_encode_negint, -1 - value) : PutValue(cbor_encode_uint, value);
    }
    void Unsigned(unsigned long long value) override { PutValue(cbor_encode_uint, value); }
    void Floating(double value) override;
    void Number(std::string_view digits) override;
    void String(std::string_view text) override
    {
        PutValue(cbor_encode_string_start, text.size());
        m_out += text;
    }
    void Bytes(std::string_view bytes) override
    {
        PutValue(cbor_encode_bytestring_start, bytes.size());
        m_out += bytes;
    }
    void DateTime(const CDateTime& time) override;
    void BeginObject(std::size_t) override { Begin(); }
    void Key(std::string_view name) override
    {
        Put(cbor_encode_string_start, name.size());
        m_out += name;
    }
    void IntegerKey(long long key) override
    {
        key < 0 ? Put(cbor_encode_negint, -1 - key) : Put(cbor_encode_uint, key);
    }
    void EndObject() override { End(cbor_encode_map_start); }
    void BeginArray(std::size_t) override { Begin(); }
    void EndArray() override { End(cbor_encode_array_start); }

private:
    /// An array or map that is open; the first one is what is outside of all.
    struct CLevel {
        std::size_t At = 0;    ///< where its head will stand
        std::size_t Count = 0; ///< values so far
    };

    /// What one of libcbor's functions makes, which stays until the next one.
    std::string_view Encoded(std::size_t (*encode)(unsigned char*, std::size_t))
    {
        return {reinterpret_cast<const char*>(m_head), encode(m_head, sizeof m_head)};
    }
    template<class Argument, class Value>
    std::string_view Encoded(std::size_t (*encode)(Argument, unsigned char*, std::size_t), Value value)
    {
        const std::size_t size = encode(static_cast<Argument>(value), m_head, sizeof m_head);
        return {reinterpret_cast<const char*>(m_head), size};
    }
    template<class Encode, class... Value>
    void Put(Encode encode, Value... value)
    {
        m_out += Encoded(encode, value...);
    }
    template<class Encode, class... Value>
    void PutValue(Encode encode, Value... value)
    {
        ++m_levels.back().Count;
        Put(encode, value...);
    }
    void PutHalf(unsigned int bits)
    {
        ++m_levels.back().Count;
        m_out.append({'\xF9', static_cast<char>(bits >> 8U), static_cast<char>(bits & 0xFFU)});
    }
    void PutInteger(bool isNegative, std::string_view digits);

    /// The number of values is known at the end only: a head without it keeps the place.
    void Begin()
    {
        ++m_levels.back().Count;
        m_levels.push_back({m_out.size(), 0});
        m_out += '\0';
    }
    void End(std::size_t (*encode)(std::size_t, unsigned char*, std::size_t))
    {
        const CLevel level = m_levels.back();
        m_levels.pop_back();
        m_out.replace(level.At, 1, Encoded(encode, level.Count));
    }

    std::string& m_out;
    std::vector<CLevel> m_levels;
    unsigned char m_head[9] = {};
};

void CCborSink::Floating(double value)
{
    if (IsHalf(value))
        PutHalf(HalfBits(value));
    else if (IsSingle(value))
        PutValue(cbor_encode_single, value);
    else
        PutValue(cbor_encode_double, value);
}

/// An integer, with tags where it has more than 64 bits. Nothing is counted.
void CCborSink::PutInteger(bool isNegative, std::string_view digits)
{
    unsigned long long magnitude = 0;
    const bool fits = std::from_chars(digits.data(), digits.data() + digits.size(), magnitude).ec == std::errc();
    if (fits && (!isNegative || magnitude == 0)) return Put(cbor_encode_uint, magnitude);
    if (fits) return Put(cbor_encode_negint, magnitude - 1);
    std::string bytes = BytesOf(digits);
    if (isNegative) { // -1 - n is written: one less
        auto last = bytes.rbegin();
        while ((*last)-- == '\0')
            ++last;
        bytes.erase(0, bytes[0] == '\0' ? 1 : 0);
        if (bytes.size() == sizeof magnitude) return Put(cbor_encode_negint, std::numeric_limits<std::uint64_t>::max());
    }
    Put(cbor_encode_tag, isNegative ? TAG_NEGATIVE_BIGNUM : TAG_BIGNUM);
    Put(cbor_encode_bytestring_start, bytes.size());
    m_out += bytes;
}

/// The exponent that a number has behind its `e`. \return false for one beyond all that is calculated with.
bool ReadExponent(std::string_view text, long long& exponent)
{
    constexpr long long MOST = 1'000'000'000'000'000'000;
    text.remove_prefix(text[0] == '+' ? 1 : 0);
    const bool isRead = std::from_chars(text.data(), text.data() + text.size(), exponent).ec == std::errc();
    return isRead && exponent < MOST && exponent > -MOST;
}

/// An integer, or a decimal fraction: an exponent and the digits. What even that cannot hold is a text.
void CCborSink::Number(std::string_view digits)
{
    const std::string_view number = digits.substr(digits[0] == '-' ? 1 : 0);
    const bool isNegative = number.size() != digits.size();
    const std::size_t e = std::min(number.find_first_of("eE"), number.size());
    const std::size_t point = std::min(number.find('.'), e);
    long long exponent = 0;
    if (e != number.size() && !ReadExponent(number.substr(e + 1), exponent)) return String(digits);
    std::string whole(number.substr(0, point));
    if (point != e) {
        whole += number.substr(point + 1, e - point - 1);
        exponent -= static_cast<long long>(e - point - 1);
    }
    whole.erase(0, std::min(whole.find_first_not_of('0'), whole.size() - 1));
    if (isNegative && whole == "0") return Floating(-0.0);
    ++m_levels.back().Count;
    if (exponent != 0) {
        Put(cbor_encode_tag, TAG_DECIMAL_FRACTION);
        Put(cbor_encode_array_start, 2);
        IntegerKey(exponent);
    }
    PutInteger(isNegative, whole);
}

/// A text by RFC 3339 with its tag.
void CCborSink::DateTime(const CDateTime& time)
{
    Put(cbor_encode_tag, TAG_DATE_TEXT);
    String(DateText(time.As_tm(true), time.msec() * 1000));
}

} // namespace
} // namespace cbor

bool WriteCbor(std::string& out, const CConstRefrence& ref, const CWritePolicy& policy, CReport* report,
               const detail::CEnumerationSlot* names)
{
    out.clear();
    cbor::CCborSink sink(out);
    return WriteEvents(sink, ref, policy, report, names);
}

} // namespace vexa
