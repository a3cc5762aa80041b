#ifndef VEXA_TESTS_SUPPORT_EVERYTHING_FILL_H
#define VEXA_TESTS_SUPPORT_EVERYTHING_FILL_H

#include <cmath>
#include <cstring>
#include <ctime>
#include <iterator>
#include <limits>

#include "support/everything_types.h"
#include "support/random_values.h"

/// Random values that every standard format holds without loss.

namespace vexa_test::everything {

/// Draws for Fill. Functions of this namespace are found through it.
class Filler : public Random {
public:
    using Random::Random;

    bool IsDeep() const { return Depth >= DEEPEST; }
    std::size_t Count() { return IsDeep() ? 0 : Below(4); }
};

template<class T>
void Fill(Filler& filler, T& value);

/// Text in UTF-8: mostly ASCII, sometimes with everything that JSON escapes and characters of each length.
inline std::string RandomText(Filler& filler)
{
    static const char* const STRANGE[] = {"\"",
                                          "\\",
                                          "/",
                                          "\n",
                                          "\t",
                                          "\x01",
                                          "\x1F",
                                          "\x7F",
                                          "\xC3\xA4",
                                          "\xDF\xBF",
                                          "\xE2\x82\xAC",
                                          "\xEF\xBF\xBF",
                                          "\xED\x9F\xBF",
                                          "\xF0\x9F\x98\x80",
                                          "\xF4\x8F\xBF\xBF",
                                          "\xC2\x80",
                                          "\\u0041",
                                          "</script>"};
    std::string text;
    const std::size_t strangeness = filler.OneOf<std::size_t>({0, 0, 2, 12});
    for (std::size_t left = filler.OneIn(8) ? filler.Below(70) : filler.Below(20); left > 0; --left) {
        if (strangeness != 0 && filler.OneIn(strangeness))
            text += filler.OneIn(12) ? std::string(1, '\0') : std::string(STRANGE[filler.Below(std::size(STRANGE))]);
        else
            text += static_cast<char>('a' + filler.Below(26));
    }
    return text;
}

inline std::string RandomDigits(Filler& filler, std::size_t count)
{
    std::string digits(1, static_cast<char>('1' + filler.Below(9)));
    while (digits.size() < count)
        digits += static_cast<char>('0' + filler.Below(10));
    return digits;
}

inline void Fill(Filler& filler, std::string& value) { value = RandomText(filler); }
inline void Fill(Filler& filler, std::filesystem::path& value)
{
    std::string text = RandomText(filler);
    text.resize(text.find('\0') == std::string::npos ? text.size() : text.find('\0'));
    value = text;
}
inline void Fill(Filler& filler, vexa::CBinary& value)
{
    std::string bytes;
    for (std::size_t left = filler.Below(20); left > 0; --left)
        bytes += static_cast<char>(filler.Below(256));
    value = bytes;
}
/// Digits as JSON has them: no needless zero before, at least one before the point.
inline void Fill(Filler& filler, vexa::CNumeric& value)
{
    std::string text = filler.OneIn(4) ? "0" : RandomDigits(filler, 1 + filler.Below(40));
    if (filler.OneIn(2)) text += '.' + RandomDigits(filler, 1 + filler.Below(30)) + (filler.OneIn(2) ? "00" : "");
    value = vexa::CNumeric((filler.OneIn(3) ? "-" : "") + text);
}
/// A second between 1970 and the year 9999.
inline long RandomSecond(Filler& filler)
{
    return filler.OneOf<long>({0, 1, 951782400, 4107542399, 253402300799,
                               static_cast<long>(filler.Below(253402300800UL)),
                               static_cast<long>(filler.Below(4000000000))});
}
inline void Fill(Filler& filler, tm& value)
{
    const std::time_t second = RandomSecond(filler);
    gmtime_r(&second, &value);
    value.tm_gmtoff = 0;
    value.tm_zone = nullptr;
}
inline void Fill(Filler& filler, vexa::CDateTime& value)
{
    value = vexa::CDateTime(RandomSecond(filler),
                            static_cast<long>(filler.OneOf<std::size_t>({0, 1, 100, 120, filler.Below(1000)})));
}
/// What reading can give back: null, bool, long, a large unsigned long, a double with a fraction, text.
inline void Fill(Filler& filler, vexa::CValue& value)
{
    switch (filler.Below(6)) {
    case 0: value = vexa::NullType(); break;
    case 1: value = filler.OneIn(2); break;
    case 2: value = RandomValue<long>(filler); break;
    case 3: value = static_cast<unsigned long>(filler.Bits() | 1UL << 63); break;
    case 4: value = static_cast<double>(filler.Below(1000)) + 0.5; break;
    default: value = RandomText(filler); break;
    }
}
inline void Fill(Filler& filler, vexa::CRow& row)
{
    row.Clear();
    for (std::size_t left = filler.Count(); left > 0; --left)
        Fill(filler, row.Append());
}
/// Rows that are as long as there are columns; without a row the columns are not told.
inline void Fill(Filler& filler, vexa::CTable& table)
{
    table.Clear();
    const std::size_t columns = filler.Count();
    for (std::size_t i = 0; i < columns; ++i)
        table.AddColumn(vexa::Enum::DT_LONG, "c" + std::to_string(i) + RandomText(filler));
    for (std::size_t left = filler.Below(3); left > 0 && columns > 0; --left) {
        vexa::CRow& row = table.Append({});
        for (std::size_t i = 0; i < columns; ++i)
            Fill(filler, row.Append());
    }
    if (table.Rows.empty()) table.Clear();
}
inline void Fill(Filler&, vexa::NullType&) {}
inline void Fill(Filler&, std::monostate&) {}

template<class T>
void FillFloating(Filler& filler, T& value)
{
    using Limits = std::numeric_limits<T>;
    T any = 0;
    const std::uint64_t bits = filler.Bits();
    if constexpr (sizeof(T) <= sizeof bits) std::memcpy(&any, &bits, sizeof any);
    if (!std::isfinite(any)) any = 1;
    const T plain = static_cast<T>(static_cast<long>(filler.Below(2000000000)) - 1000000000) / T(1000);
    value = filler.OneOf<T>({T(), -T(), T(1.5), T(1e15), T(0.1), T(100), Limits::epsilon(), any, any, plain, plain});
    // What is beyond a double no other parser reads.
    if (filler.OneIn(4) && sizeof(T) <= sizeof(double))
        value = filler.OneOf<T>({Limits::max(), Limits::lowest(), Limits::min(), Limits::denorm_min()});
}

template<std::size_t... INDICES, class Variant>
void FillVariant(Filler& filler, Variant& value, std::index_sequence<INDICES...>)
{
    const std::size_t chosen = filler.Below(sizeof...(INDICES));
    ((INDICES == chosen ? Fill(filler, value.template emplace<INDICES>()) : void()), ...);
}

template<class T>
void FillApart(Filler& filler, T& value)
{
    if constexpr (std::is_pointer_v<T>) delete value;
    value = T{};
    if (filler.IsDeep() || filler.OneIn(2)) return;
    if constexpr (IS<T, std::unique_ptr>)
        value = std::make_unique<typename T::element_type>();
    else if constexpr (IS<T, std::shared_ptr>)
        value = std::make_shared<typename T::element_type>();
    else if constexpr (std::is_pointer_v<T>)
        value = new std::remove_pointer_t<T>();
    else
        value.emplace();
    Fill(filler, *value);
}

template<class T>
void FillContainer(Filler& filler, T& container)
{
    using Element = vexa::detail::ElementOf<T>;
    container.clear();
    ++filler.Depth;
    for (std::size_t left = filler.Depth > Filler::DEEPEST ? 0 : filler.Below(4); left > 0; --left) {
        Element element{};
        Fill(filler, element);
        container.insert(container.end(), std::move(element));
    }
    --filler.Depth;
}

template<class T>
void Fill(Filler& filler, T& value)
{
    if constexpr (std::is_floating_point_v<T>) {
        FillFloating(filler, value);
    } else if constexpr (std::is_integral_v<T>) {
        Randomize(filler, value);
    } else if constexpr (std::is_enum_v<T>) {
        std::underlying_type_t<T> number{};
        Randomize(filler, number);
        value = static_cast<T>(number);
    } else if constexpr (IS_TIME_POINT<T>) {
        // From 1902 on, to the fraction that the type has.
        const std::chrono::seconds second(static_cast<long>(filler.Below(4102444800)) -
                                          (filler.OneIn(4) ? 4102444800 : 0) / 2);
        const auto fraction = typename T::duration(filler.OneIn(2) ? filler.Below(1000000000) : 0);
        value = T(std::chrono::duration_cast<typename T::duration>(second) + fraction);
    } else if constexpr (IS_DURATION<T>) {
        typename T::rep count{};
        Fill(filler, count);
        value = T(count);
    } else if constexpr (IS_HELD_APART<T>) {
        FillApart(filler, value);
    } else if constexpr (IS<T, vexa::NonNullPointer>) {
        if (!filler.IsDeep()) Fill(filler, *value);
    } else if constexpr (IS<T, std::variant>) {
        FillVariant(filler, value, std::make_index_sequence<std::variant_size_v<T>>());
    } else if constexpr (IS<T, std::tuple>) {
        std::apply([&](auto&... parts) { (Fill(filler, parts), ...); }, value);
    } else if constexpr (IS<T, std::pair>) {
        Fill(filler, value.first);
        Fill(filler, value.second);
    } else if constexpr (IS<T, std::atomic>) {
        auto content = value.load();
        Fill(filler, content);
        value = content;
    } else if constexpr (std::is_same_v<T, std::vector<bool>>) {
        value.resize(filler.Below(20));
        for (auto bit : value)
            bit = filler.OneIn(2);
    } else if constexpr (HAS_MEMBERS<T>) {
        ++filler.Depth;
        std::apply([&](auto&... members) { (Fill(filler, members), ...); }, value.Members());
        --filler.Depth;
    } else if constexpr (IS_FIXED<T>) {
        for (auto& element : value)
            Fill(filler, element);
    } else {
        FillContainer(filler, value);
    }
}

/// Text of a fixed size: nothing stands behind its end.
template<std::size_t SIZE>
void Fill(Filler& filler, char (&text)[SIZE])
{
    std::memset(text, 0, SIZE);
    for (std::size_t i = filler.Below(SIZE + 1); i > 0; --i)
        text[i - 1] = static_cast<char>('a' + filler.Below(26));
}
template<std::size_t SIZE>
void Fill(Filler& filler, std::bitset<SIZE>& bits)
{
    bits = std::bitset<SIZE>(filler.Bits());
}

} // namespace vexa_test::everything

#endif
