// Between counts of a std::chrono unit and seconds with nanoseconds, without loss on the way.

#include <vexa/detail/shape.h>

#include <cmath>
#include <limits>

namespace vexa::detail {
namespace {

__extension__ using Wide = __int128;

constexpr long NANOSECONDS = 1000000000;

long long Clamp(Wide value)
{
    using Limits = std::numeric_limits<long long>;
    if (value > Limits::max()) return Limits::max();
    return value < Limits::min() ? Limits::min() : static_cast<long long>(value);
}

} // namespace

void TimeOfCount(long long count, long long numerator, long long denominator, long long& seconds,
                 long& nanoseconds) noexcept
{
    const Wide parts = static_cast<Wide>(count) * numerator;
    Wide whole = parts / denominator;
    Wide rest = parts % denominator;
    if (rest < 0) {
        --whole;
        rest += denominator;
    }
    seconds = Clamp(whole);
    nanoseconds = static_cast<long>(rest * NANOSECONDS / denominator);
}

void TimeOfCount(long double count, long long numerator, long long denominator, long long& seconds,
                 long& nanoseconds) noexcept
{
    constexpr long double BEYOND = 9.2e18L;
    const long double time = count * static_cast<long double>(numerator) / static_cast<long double>(denominator);
    seconds = 0;
    nanoseconds = 0;
    if (std::isnan(time)) return;
    const long double whole = std::floor(std::fmin(std::fmax(time, -BEYOND), BEYOND));
    seconds = static_cast<long long>(whole);
    if (time - whole < 1) nanoseconds = std::lround((time - whole) * NANOSECONDS);
    if (nanoseconds < NANOSECONDS) return;
    ++seconds;
    nanoseconds = 0;
}

bool CountOfTime(long long seconds, long nanoseconds, long long numerator, long long denominator,
                 long long& count) noexcept
{
    Wide parts = static_cast<Wide>(seconds) * NANOSECONDS + nanoseconds;
    if (__builtin_mul_overflow(parts, static_cast<Wide>(denominator), &parts)) return false;
    const Wide unit = static_cast<Wide>(numerator) * NANOSECONDS;
    const Wide exact = parts / unit;
    count = Clamp(exact);
    return parts % unit == 0 && count == exact;
}

long double FloatingCountOfTime(long long seconds, long nanoseconds, long long numerator,
                                long long denominator) noexcept
{
    const long double time = static_cast<long double>(seconds) + static_cast<long double>(nanoseconds) / NANOSECONDS;
    return time * static_cast<long double>(denominator) / static_cast<long double>(numerator);
}

} // namespace vexa::detail
