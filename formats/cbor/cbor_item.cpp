#include "cbor_item.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

namespace vexa::cbor {
namespace {

using Form = CItem::Form;

CItem& ItemOf(void* context) { return *static_cast<CItem*>(context); }

template<bool IS_NEGATIVE, class T>
void TakeInteger(void* context, T number)
{
    ItemOf(context).Kind = Form::INTEGER;
    ItemOf(context).IsNegative = IS_NEGATIVE;
    ItemOf(context).Number = number;
}
template<Form KIND>
void TakeText(void* context, cbor_data data, std::size_t size)
{
    ItemOf(context).Kind = KIND;
    ItemOf(context).Text = {reinterpret_cast<const char*>(data), size};
}
template<Form KIND, class T>
void TakeNumber(void* context, T number)
{
    ItemOf(context).Kind = KIND;
    ItemOf(context).Number = number;
}
template<Form KIND>
void TakeStart(void* context)
{
    ItemOf(context).Kind = KIND;
    ItemOf(context).IsIndefinite = true;
}
template<class T>
void TakeFloating(void* context, T value)
{
    ItemOf(context).Kind = Form::FLOATING;
    ItemOf(context).Floating = static_cast<double>(value);
}
void TakeBool(void* context, bool value)
{
    ItemOf(context).Kind = Form::BOOL;
    ItemOf(context).Bool = value;
}

constexpr cbor_callbacks CALLBACKS = {
    &TakeInteger<false, std::uint8_t>,
    &TakeInteger<false, std::uint16_t>,
    &TakeInteger<false, std::uint32_t>,
    &TakeInteger<false, std::uint64_t>,
    &TakeInteger<true, std::uint64_t>,
    &TakeInteger<true, std::uint32_t>,
    &TakeInteger<true, std::uint16_t>,
    &TakeInteger<true, std::uint8_t>,
    &TakeStart<Form::MANY_BYTES>,
    &TakeText<Form::BYTES>,
    &TakeText<Form::TEXT>,
    &TakeStart<Form::MANY_TEXTS>,
    &TakeStart<Form::ARRAY>,
    &TakeNumber<Form::ARRAY, std::size_t>,
    &TakeStart<Form::MAP>,
    &TakeNumber<Form::MAP, std::size_t>,
    &TakeNumber<Form::TAG, std::uint64_t>,
    &TakeFloating<float>,
    &TakeFloating<float>,
    &TakeFloating<double>,
    &TakeStart<Form::NOTHING>,
    &TakeStart<Form::NOTHING>,
    &TakeBool,
    &TakeStart<Form::BREAK>,
};

} // namespace

cbor_decoder_result Decode(std::string_view bytes, CItem& item)
{
    item = CItem();
    return cbor_stream_decode(reinterpret_cast<cbor_data>(bytes.data()), bytes.size(), &CALLBACKS, &item);
}

std::string DigitsOf(std::string_view bytes, bool isNegative)
{
    constexpr std::uint32_t PLACE = 1000000000; // a large number's places hold nine digits, the lowest first
    constexpr std::size_t PLACE_DIGITS = 9;
    std::vector<std::uint32_t> places(1, 0);
    const auto multiplyAndAdd = [&places](std::uint32_t factor, std::uint32_t summand) {
        std::uint64_t carry = summand;
        for (std::uint32_t& place : places) {
            carry += std::uint64_t{place} * factor;
            place = static_cast<std::uint32_t>(carry % PLACE);
            carry /= PLACE;
        }
        if (carry != 0) places.push_back(static_cast<std::uint32_t>(carry));
    };
    for (const char byte : bytes)
        multiplyAndAdd(256, static_cast<unsigned char>(byte));
    if (isNegative) multiplyAndAdd(1, 1); // it is -1 - n
    std::string digits = (isNegative ? "-" : "") + std::to_string(places.back());
    for (auto place = places.rbegin() + 1; place != places.rend(); ++place) {
        const std::string text = std::to_string(*place);
        digits.append(PLACE_DIGITS - text.size(), '0').append(text);
    }
    return digits;
}

std::string BytesOf(std::string_view digits)
{
    std::string bytes; // the lowest first
    for (const char digit : digits) {
        auto carry = static_cast<unsigned int>(digit - '0');
        for (char& byte : bytes) {
            carry += static_cast<unsigned char>(byte) * 10U;
            byte = static_cast<char>(carry & 0xFFU);
            carry >>= 8U;
        }
        if (carry != 0) bytes += static_cast<char>(carry);
    }
    std::reverse(bytes.begin(), bytes.end());
    return bytes;
}

std::string Scaled(std::string digits, long long exponent)
{
    constexpr long long MOST_PLACES = 1000;
    if (exponent == 0) return digits;
    if (exponent > 0 || exponent < -MOST_PLACES) return digits + 'e' + std::to_string(exponent);
    const auto places = static_cast<std::size_t>(-exponent);
    const std::size_t start = digits[0] == '-' ? 1 : 0;
    const std::size_t count = digits.size() - start;
    if (count <= places) digits.insert(start, places + 1 - count, '0');
    digits.insert(digits.size() - places, 1, '.');
    return digits;
}

std::string DateText(double seconds)
{
    constexpr int MICROSECONDS = 1000000;
    const double whole = std::floor(seconds);
    const auto fraction = static_cast<int>(std::nearbyint((seconds - whole) * MICROSECONDS));
    const auto time = static_cast<std::time_t>(whole) + fraction / MICROSECONDS;
    tm parts{};
    gmtime_r(&time, &parts);
    return DateText(parts, fraction % MICROSECONDS);
}

std::string DateText(const tm& parts, int microseconds)
{
    char text[80];
    std::snprintf(text, sizeof text, "%04d-%02d-%02dT%02d:%02d:%02d.%06d", parts.tm_year + 1900, parts.tm_mon + 1,
                  parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec, microseconds);
    std::string result = text;
    result.erase(result.find_last_not_of('0') + 1);
    if (result.back() == '.') result.pop_back();
    return result + 'Z';
}

} // namespace vexa::cbor
