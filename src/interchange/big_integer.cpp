#include "interchange/big_integer.h"

#include <charconv>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace vexa::interchange {
namespace {

constexpr std::uint64_t DECIMAL = 1'000'000'000;
constexpr std::size_t DECIMAL_DIGITS = 9;
constexpr std::uint64_t WORD = std::uint64_t{1} << 32U;
constexpr std::size_t WORD_BYTES = 4;

/// An integer in places of a base, the lowest first.
template<std::uint64_t BASE>
class CPlaces {
public:
    /// Makes n the integer n * factor + summand, where the factor and the summand are at most 2 to the power of 32.
    void MultiplyAndAdd(std::uint64_t factor, std::uint64_t summand)
    {
        std::uint64_t carry = summand;
        for (std::uint32_t& place : m_places) {
            carry += place * factor;
            place = static_cast<std::uint32_t>(carry % BASE);
            carry /= BASE;
        }
        for (; carry != 0; carry /= BASE)
            m_places.push_back(static_cast<std::uint32_t>(carry % BASE));
    }
    const std::vector<std::uint32_t>& Places() const { return m_places; }

private:
    std::vector<std::uint32_t> m_places;
};

std::uint64_t WordOf(std::string_view bytes)
{
    std::uint64_t word = 0;
    for (const char byte : bytes)
        word = word << 8U | static_cast<unsigned char>(byte);
    return word;
}

std::uint64_t NumberOf(std::string_view digits)
{
    std::uint64_t number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
}

/// Calls \p take with parts of the size, of which the first may be shorter.
template<class F>
void ForEachPart(std::string_view text, std::size_t size, F take)
{
    for (std::size_t part = text.size() % size; !text.empty(); part = size) {
        if (part == 0) continue;
        take(text.substr(0, part));
        text.remove_prefix(part);
    }
}

} // namespace

std::string DigitsOfBytes(std::string_view bytes)
{
    CPlaces<DECIMAL> integer;
    ForEachPart(bytes, WORD_BYTES, [&integer](std::string_view part) { integer.MultiplyAndAdd(WORD, WordOf(part)); });
    const std::vector<std::uint32_t>& places = integer.Places();
    if (places.empty()) return "0";
    std::string digits = std::to_string(places.back());
    for (auto place = places.rbegin() + 1; place != places.rend(); ++place) {
        const std::string text = std::to_string(*place);
        digits.append(DECIMAL_DIGITS - text.size(), '0').append(text);
    }
    return digits;
}

std::string BytesOfDigits(std::string_view digits)
{
    CPlaces<WORD> integer;
    ForEachPart(digits, DECIMAL_DIGITS,
                [&integer](std::string_view part) { integer.MultiplyAndAdd(DECIMAL, NumberOf(part)); });
    std::string bytes;
    for (auto place = integer.Places().rbegin(); place != integer.Places().rend(); ++place)
        for (unsigned int shift = 32; shift != 0; shift -= 8)
            bytes += static_cast<char>(*place >> (shift - 8) & 0xFFU);
    bytes.erase(0, bytes.find_first_not_of('\0'));
    return bytes;
}

void Increment(std::string& digits)
{
    std::size_t at = digits.size();
    for (; at != 0 && digits[at - 1] == '9'; --at)
        digits[at - 1] = '0';
    if (at == 0)
        digits.insert(0, 1, '1');
    else
        ++digits[at - 1];
}

void Decrement(std::string& digits)
{
    std::size_t at = digits.size();
    for (; digits[at - 1] == '0'; --at)
        digits[at - 1] = '9';
    --digits[at - 1];
    if (digits.size() > 1 && digits[0] == '0') digits.erase(0, 1);
}

} // namespace vexa::interchange
