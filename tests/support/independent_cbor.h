#ifndef VEXA_TESTS_SUPPORT_INDEPENDENT_CBOR_H
#define VEXA_TESTS_SUPPORT_INDEPENDENT_CBOR_H

#include <cmath>
#include <cstdint>
#include <string>
#include <string_view>

#include "support/independent_json.h"

/// Whether an independent parser has found in CBOR what it finds in JSON.

namespace vexa_test {

/// Items of told lengths, as they are written, without the tags before them, of which the other parser refuses those of
/// times and numbers.
inline std::string WithoutTags(std::string_view bytes)
{
    std::string items;
    while (!bytes.empty()) {
        const unsigned int first = static_cast<unsigned char>(bytes[0]);
        const unsigned int kind = first >> 5U;
        const unsigned int argument = first & 0x1FU;
        const std::size_t head = argument < 24 ? 1 : 1 + (std::size_t{1} << (argument - 24U));
        std::uint64_t size = argument < 24 ? argument : 0;
        for (std::size_t i = 1; i < head; ++i)
            size = size << 8U | static_cast<unsigned char>(bytes[i]);
        const std::size_t whole = head + (kind == 2 || kind == 3 ? size : 0);
        if (kind != 6) items += bytes.substr(0, whole);
        bytes.remove_prefix(whole);
    }
    return items;
}

/// What the other parser reads; discarded where it reads nothing, as where a key is no text.
inline Json ParsedCbor(const std::string& bytes)
{
    try {
        return Json::from_cbor(bytes);
    } catch (const Json::exception&) {
        return Json(Json::value_t::discarded);
    }
}

/// The absolute value of an integer by its bytes.
inline double NumberOf(const Json::binary_t& bytes)
{
    double number = 0;
    for (const unsigned char byte : bytes)
        number = number * 256 + byte;
    return number;
}

/// An integer, which may be a bignum. The other parser makes positive ones of negative ones beyond 64 bits with sign.
inline double IntegerOf(const Json& cbor, double expected)
{
    if (cbor.is_binary()) return std::copysign(NumberOf(cbor.get_binary()), expected);
    const auto value = cbor.get<double>();
    return expected < 0 && value > 0 ? value - 18446744073709551616.0 : value;
}

/// A number, a bignum or a decimal fraction, whose tags the other parser leaves out.
inline bool IsNumberOf(const Json& cbor, const Json& json)
{
    if (json.is_number_integer() && cbor.is_number_integer()) return cbor == json;
    const auto expected = json.get<double>();
    double value = std::nan("");
    if (cbor.is_number_float()) value = cbor.get<double>();
    if (cbor.is_number_integer() || cbor.is_binary()) value = IntegerOf(cbor, expected);
    if (cbor.is_array() && cbor.size() == 2 && (cbor[1].is_number() || cbor[1].is_binary()))
        value = IntegerOf(cbor[1], expected) * std::pow(10.0, cbor[0].get<double>());
    return value == expected || static_cast<float>(value) == static_cast<float>(expected) ||
           std::fabs(value - expected) <= std::fabs(expected) * 1e-12;
}

/// Whether the other parser has found in CBOR what it finds in JSON.
inline bool IsSameValue(const Json& cbor, const Json& json)
{
    if (json.is_number()) return IsNumberOf(cbor, json);
    if (cbor.is_binary()) {
        const auto& bytes = cbor.get_binary();
        return json.is_string() && json == Base64Of(std::string(bytes.begin(), bytes.end()));
    }
    if (cbor.type() != json.type() || cbor.size() != json.size()) return false;
    if (!json.is_structured()) return cbor == json;
    for (auto member = json.begin(); member != json.end(); ++member) {
        if (json.is_object() && !cbor.contains(member.key())) return false;
        const auto& other =
            json.is_object() ? cbor[member.key()] : cbor[static_cast<std::size_t>(member - json.begin())];
        if (!IsSameValue(other, *member)) return false;
    }
    return true;
}

} // namespace vexa_test

#endif
