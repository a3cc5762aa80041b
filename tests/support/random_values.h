#ifndef VEXA_TESTS_SUPPORT_RANDOM_VALUES_H
#define VEXA_TESTS_SUPPORT_RANDOM_VALUES_H

#include <array>
#include <bitset>
#include <ctime>
#include <iterator>
#include <limits>
#include <memory>
#include <random>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <vexa/describe.h>
#include <vexa/value.h>

/// Random values of every type that can be described, the awkward ones more often than chance would give them.

namespace vexa_test {

/// Draws numbers, the same for the same seed on every machine, and keeps what the values that it has filled point to
/// without owning it.
class Random {
public:
    explicit Random(std::uint64_t seed) : m_engine(seed) {}

    std::size_t Below(std::size_t limit) { return m_engine() % limit; }
    bool OneIn(std::size_t n) { return Below(n) == 0; }
    std::uint64_t Bits() { return m_engine(); }
    template<class T>
    T OneOf(std::initializer_list<T> choices)
    {
        return choices.begin()[Below(choices.size())];
    }
    /// An object that lives as long as this one, or until Forget.
    template<class T>
    T& Keep(T value)
    {
        auto kept = std::make_shared<T>(std::move(value));
        m_kept.push_back(kept);
        return *kept;
    }
    void Forget() { m_kept.clear(); }

    /// How deep the value that is being filled lies: containers and pointers below the limit stay empty.
    int Depth = 0;
    static constexpr int DEEPEST = 4;

private:
    std::mt19937_64 m_engine;
    std::vector<std::shared_ptr<void>> m_kept;
};

inline void Randomize(Random& random, std::string& value)
{
    const auto length = random.OneIn(3)
                            ? random.OneOf<std::size_t>({0, 1, 7, 8, 15, 16, 17, 31, 32, 33, 47, 48, 49, 300})
                            : random.Below(24);
    const std::size_t strangeness = random.OneOf<std::size_t>({0, 0, 20, 3});
    value.clear();
    if (random.OneIn(4)) value.reserve(length + random.Below(40)); // a short text on the heap
    for (std::size_t i = 0; i < length; ++i) {
        const bool isAnyByte = strangeness != 0 && random.OneIn(strangeness);
        value += static_cast<char>(isAnyByte ? random.Below(256) : 'a' + random.Below(26));
    }
}

template<class T, std::enable_if_t<std::is_integral_v<T>, int> = 0>
void Randomize(Random& random, T& value)
{
    using Limits = std::numeric_limits<T>;
    if constexpr (std::is_same_v<T, bool>) {
        value = random.OneIn(2);
    } else {
        const auto any = static_cast<T>(random.Bits() >> random.Below(64));
        const auto power = static_cast<T>(random.OneOf({9UL, 10UL, 99UL, 100UL, 99999999UL, 100000000UL, 9999999999UL,
                                                        10000000000UL, 10000000000000000UL, 9999999999999999UL}));
        value = random.OneOf<T>({Limits::min(), Limits::max(), T(), any, any, any, power});
        if (std::is_signed_v<T> && random.OneIn(2) && value != Limits::min()) value = static_cast<T>(-value);
    }
}

template<class T, std::enable_if_t<std::is_floating_point_v<T>, int> = 0>
void Randomize(Random& random, T& value)
{
    using Limits = std::numeric_limits<T>;
    const T plain = static_cast<T>(static_cast<long>(random.Below(2000000000)) - 1000000000) / T(1000);
    const T tie = (static_cast<T>(random.Below(100000)) + T(0.5)) / T(1 << 20);
    value = random.OneOf<T>({T(),
                             -T(),
                             T(1.5),
                             Limits::max(),
                             Limits::lowest(),
                             Limits::min(),
                             Limits::denorm_min(),
                             Limits::infinity(),
                             -Limits::infinity(),
                             Limits::quiet_NaN(),
                             Limits::epsilon(),
                             T(1e15),
                             T(1e30),
                             T(0.9999995),
                             T(4503599627370495.5),
                             tie,
                             plain,
                             plain,
                             plain,
                             plain,
                             plain});
}

template<class T, std::enable_if_t<std::is_enum_v<T>, int> = 0>
void Randomize(Random& random, T& value)
{
    std::underlying_type_t<T> number{};
    Randomize(random, number);
    value = static_cast<T>(number);
}

inline void Randomize(Random& random, vexa::CBinary& value)
{
    std::string bytes;
    Randomize(random, bytes);
    value = bytes;
}

inline void Randomize(Random& random, vexa::CNumeric& value)
{
    value =
        vexa::CNumeric(random.OneOf<std::string>({"", "0", "-0.5", "123456789012345678901234567890.123", "+7", "x"}));
    if (random.OneIn(8)) value.Init();
}

inline void Randomize(Random& random, tm& value)
{
    value = tm{};
    value.tm_year =
        random.OneOf({0, 70, 120, -1900, 8099, 8100, 100000, -3000, std::numeric_limits<int>::max() - 1900});
    value.tm_mon = static_cast<int>(random.Below(12));
    value.tm_mday = static_cast<int>(random.Below(32));
    value.tm_hour = random.OneOf({0, 5, 23, 123456});
    value.tm_min = static_cast<int>(random.Below(60));
    value.tm_sec = static_cast<int>(random.Below(62));
}

inline void Randomize(Random& random, vexa::CDateTime& value)
{
    value = vexa::CDateTime(static_cast<long>(random.OneOf({0UL, 1UL, random.Below(4000000000), 253402300799UL,
                                                            253402300800UL, 99999999999999UL})),
                            static_cast<long>(random.Below(1000)));
    if (random.OneIn(6)) value.Init();
    if (random.OneIn(6)) value = vexa::CDateTime(std::string("1955-03-04 05:06:07"));
    if (random.OneIn(6)) value = vexa::CDateTime(std::string("no time"));
}

inline void Randomize(Random&, vexa::NullType&) {}

inline void Randomize(Random& random, vexa::CValue& value)
{
    std::string text;
    Randomize(random, text);
    switch (random.Below(4)) {
    case 0: value = static_cast<long>(random.Bits()); break;
    case 1: value = text; break;
    case 2: value.SetNull(vexa::Enum::DT_DOUBLE); break;
    default: value = vexa::CNumeric(std::string("1.50")); break;
    }
}

inline void Randomize(Random& random, vexa::CRow& row)
{
    row.Values.resize(random.Below(3));
    for (vexa::CValue& value : row.Values)
        Randomize(random, value);
}

inline void Randomize(Random& random, vexa::CTable& table)
{
    table.Columns.resize(random.Below(3));
    table.Rows.resize(random.Below(3));
    for (vexa::CRow& row : table.Rows)
        Randomize(random, row);
}

/// The members of a class that says what they are: `auto Members() { return std::tie(first, second); }`.
template<class T>
auto Randomize(Random& random, T& object) -> decltype(object.Members(), void());

template<class T>
void Randomize(Random& random, vexa::MayNull<T>& value);
template<class T>
void Randomize(Random& random, std::unique_ptr<T>& value);
template<class T>
void Randomize(Random& random, vexa::NonNullPointer<T>& value);
template<class T>
void Randomize(Random& random, T*& value);
template<class T, std::size_t SIZE>
void Randomize(Random& random, T (&values)[SIZE]);
template<class T, std::size_t SIZE>
void Randomize(Random& random, std::array<T, SIZE>& values);
template<std::size_t SIZE>
void Randomize(Random& random, std::bitset<SIZE>& bits);
template<class K, class V>
void Randomize(Random& random, std::pair<K, V>& pair);
template<class C>
auto Randomize(Random& random, C& container) -> decltype(container.insert(container.end(), *container.begin()), void());

template<class T>
T RandomValue(Random& random)
{
    T value{};
    Randomize(random, value);
    return value;
}

template<class T>
auto Randomize(Random& random, T& object) -> decltype(object.Members(), void())
{
    ++random.Depth;
    std::apply([&](auto&... members) { (Randomize(random, members), ...); }, object.Members());
    --random.Depth;
}

template<class T>
void Randomize(Random& random, vexa::MayNull<T>& value)
{
    Randomize(random, value.emplace());
    if (random.OneIn(2)) vexa::RefOf(value).SetNull(); // what was there stays below the flag
}

template<class T>
void Randomize(Random& random, std::unique_ptr<T>& value)
{
    value.reset();
    if (random.Depth >= Random::DEEPEST || random.OneIn(2)) return;
    value = std::make_unique<T>();
    Randomize(random, *value);
}

template<class T>
void Randomize(Random& random, vexa::NonNullPointer<T>& value)
{
    if (random.Depth < Random::DEEPEST && random.OneIn(2)) Randomize(random, *value);
}

/// An owned pointee when it is not const, for the class to delete; else one that the random source keeps.
template<class T>
void Randomize(Random& random, T*& value)
{
    using Pointee = std::remove_const_t<T>;
    if constexpr (std::is_same_v<T, const char>) {
        std::string& kept = random.Keep(RandomValue<std::string>(random));
        kept.shrink_to_fit();
        value = random.OneIn(3) ? nullptr : kept.c_str();
    } else if constexpr (std::is_void_v<T>) {
        value = random.OneIn(2) ? nullptr : &random.Keep(5);
    } else if constexpr (std::is_const_v<T>) {
        value =
            random.Depth >= Random::DEEPEST || random.OneIn(2) ? nullptr : &random.Keep(RandomValue<Pointee>(random));
    } else {
        delete value;
        value = random.Depth >= Random::DEEPEST || random.OneIn(2) ? nullptr : new T();
        if (value != nullptr) Randomize(random, *value);
    }
}

template<class T, std::size_t SIZE>
void Randomize(Random& random, T (&values)[SIZE])
{
    for (T& value : values)
        Randomize(random, value);
}

template<class T, std::size_t SIZE>
void Randomize(Random& random, std::array<T, SIZE>& values)
{
    for (T& value : values)
        Randomize(random, value);
}

template<std::size_t SIZE>
void Randomize(Random& random, std::bitset<SIZE>& bits)
{
    bits = std::bitset<SIZE>(random.Bits());
}

template<class K, class V>
void Randomize(Random& random, std::pair<K, V>& pair)
{
    Randomize(random, pair.first);
    Randomize(random, pair.second);
}

template<class C>
auto Randomize(Random& random, C& container) -> decltype(container.insert(container.end(), *container.begin()), void())
{
    using Element = vexa::detail::ElementOf<C>;
    container.clear();
    ++random.Depth;
    for (std::size_t i = random.Depth > Random::DEEPEST ? 0 : random.Below(4); i > 0; --i)
        container.insert(container.end(), RandomValue<Element>(random));
    --random.Depth;
}

} // namespace vexa_test

#endif
