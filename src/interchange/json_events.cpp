#include "interchange/json_events.h"

#include <charconv>
#include <limits>
#include <memory>

#include <vexa/event.h>

#include "interchange/json_pieces.h"
#include "interchange/json_source.h"

namespace vexa {
namespace interchange {
namespace {

constexpr auto MAX_SIGNED = static_cast<std::uint64_t>(std::numeric_limits<long long>::max());

/// The magnitude of a number without fraction and exponent. \return false if it has more than 64 bits.
bool ReadMagnitude(const CNumber& number, std::uint64_t& magnitude) noexcept
{
    magnitude = number.Magnitude;
    if (number.Kind == CNumber::Form::INTEGER) return true;
    const std::string_view digits = number.Digits.substr(number.IsNegative ? 1 : 0);
    const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), magnitude);
    return result.ec == std::errc() && result.ptr == digits.data() + digits.size();
}

} // namespace

void SetNumber(CEvent& event, const CNumber& number) noexcept
{
    event.Text = number.Digits;
    std::uint64_t magnitude = 0;
    const bool isFloating = number.Kind == CNumber::Form::FLOATING;
    const bool isZeroBelow = number.IsNegative && number.Digits == "-0";
    if (isFloating || isZeroBelow || !ReadMagnitude(number, magnitude) ||
        (number.IsNegative && magnitude > MAX_SIGNED + 1)) {
        event.Kind = EventKind::FLOATING;
        event.Floating = isFloating ? number.Floating : NearestDouble(number.Digits);
    } else if (!number.IsNegative && magnitude > MAX_SIGNED) {
        event.Kind = EventKind::UNSIGNED;
        event.Unsigned = magnitude;
    } else {
        event.Kind = EventKind::SIGNED;
        event.Signed = static_cast<long long>(number.IsNegative ? 0 - magnitude : magnitude);
    }
}

} // namespace interchange

std::unique_ptr<CEventSource> JsonEvents(std::string_view text, const CReadPolicy& policy)
{
    return std::make_unique<interchange::CJsonEvents<interchange::CJsonSource>>(text, policy);
}

std::unique_ptr<CEventSource> JsonEvents(InputFunction input, const CReadPolicy& policy)
{
    return std::make_unique<interchange::CJsonPieces>(std::move(input), policy);
}

} // namespace vexa
