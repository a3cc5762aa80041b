#ifndef ORDANA_FORMATS_CBOR_ITEM_H
#define ORDANA_FORMATS_CBOR_ITEM_H

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <string>
#include <string_view>

#include <cbor.h>

namespace vexa::cbor {

/// The tags that mean something here.
enum Tag : std::uint64_t {
    TAG_DATE_TEXT = 0,
    TAG_SECONDS = 1,
    TAG_BIGNUM = 2,
    TAG_NEGATIVE_BIGNUM = 3,
    TAG_DECIMAL_FRACTION = 4,
    TAG_NONE = static_cast<std::uint64_t>(-1)
};

/// One data item's head, with its contents where they follow at once.
struct CItem {
    enum class Form : unsigned char {
        NONE,
        INTEGER,    ///< Number; if IsNegative, -1 - Number
        BYTES,      ///< Text; likewise the next
        TEXT,       ///<
        MANY_BYTES, ///< byte strings follow up to a break; likewise the next
        MANY_TEXTS, ///<
        ARRAY,      ///< Number elements, or up to a break; likewise the next
        MAP,        ///<
        TAG,        ///< Number
        FLOATING,
        NOTHING, ///< null and undefined
        BOOL,
        BREAK
    };

    Form Kind = Form::NONE;
    bool IsNegative = false;
    bool IsIndefinite = false;
    bool Bool = false;
    std::uint64_t Number = 0;
    double Floating = 0;
    std::string_view Text;
};

/// Decodes the item that the bytes begin with.
cbor_decoder_result Decode(std::string_view bytes, CItem& item);

/// The decimal digits of an integer by its bytes, which stand behind tag 2, or 3 if it is negative.
std::string DigitsOf(std::string_view bytes, bool isNegative);
/// The other way round: of decimal digits without sign.
std::string BytesOf(std::string_view digits);
/// Digits times ten to the exponent, in JSON's grammar.
std::string Scaled(std::string digits, long long exponent);
/// A time by RFC 3339, of the years 0 to 9999: in seconds since 1970, to the microsecond, or in UTC.
std::string DateText(double seconds);
std::string DateText(const tm& parts, int microseconds);

} // namespace vexa::cbor

#endif
