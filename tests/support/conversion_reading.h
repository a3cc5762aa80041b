#ifndef VEXA_TESTS_SUPPORT_CONVERSION_READING_H
#define VEXA_TESTS_SUPPORT_CONVERSION_READING_H

#include <functional>

#include <gtest/gtest.h>

#include <vexa/refrence.h>

#include "support/captured_log.h"
#include "support/conversion_holder.h"
#include "support/conversion_numbers.h"

namespace vexa_test {

using Ref = vexa::CStdBasicTypeConstRefrence;

/// The ways of reading one target type; null where there is none.
template<class T>
struct Readers {
    T (Ref::*As)() const;
    T (Ref::*Convert)() const;
    void (Ref::*WriteTo)(T&) const;
};

template<class T>
constexpr Readers<T> READERS;
template<>
inline constexpr Readers<bool> READERS<bool> = {&Ref::As_bool, &Ref::operator bool, &Ref::WriteTo};
template<>
inline constexpr Readers<char> READERS<char> = {&Ref::As_char, nullptr, &Ref::WriteTo};
template<>
inline constexpr Readers<short> READERS<short> = {&Ref::As_short, &Ref::operator short, &Ref::WriteTo};
template<>
inline constexpr Readers<int> READERS<int> = {&Ref::As_int, &Ref::operator int, &Ref::WriteTo};
template<>
inline constexpr Readers<long> READERS<long> = {&Ref::As_long, &Ref::operator long, &Ref::WriteTo};
template<>
inline constexpr Readers<long long> READERS<long long> = {&Ref::As_long_long, &Ref::operator long long, &Ref::WriteTo};
template<>
inline constexpr Readers<unsigned char> READERS<unsigned char> = {&Ref::As_unsigned_char, &Ref::operator unsigned char,
                                                                  &Ref::WriteTo};
template<>
inline constexpr Readers<unsigned short> READERS<unsigned short> = {&Ref::As_unsigned_short,
                                                                    &Ref::operator unsigned short, &Ref::WriteTo};
template<>
inline constexpr Readers<unsigned int> READERS<unsigned int> = {&Ref::As_unsigned_int, &Ref::operator unsigned int,
                                                                &Ref::WriteTo};
template<>
inline constexpr Readers<unsigned long> READERS<unsigned long> = {&Ref::As_unsigned_long, &Ref::operator unsigned long,
                                                                  &Ref::WriteTo};
template<>
inline constexpr Readers<unsigned long long> READERS<unsigned long long> = {
    &Ref::As_unsigned_long_long, &Ref::operator unsigned long long, &Ref::WriteTo};
template<>
inline constexpr Readers<float> READERS<float> = {&Ref::As_float, &Ref::operator float, &Ref::WriteTo};
template<>
inline constexpr Readers<double> READERS<double> = {&Ref::As_double, &Ref::operator double, &Ref::WriteTo};
template<>
inline constexpr Readers<long double> READERS<long double> = {&Ref::As_long_double, &Ref::operator long double,
                                                              nullptr};
template<>
inline constexpr Readers<std::string> READERS<std::string> = {&Ref::As_std_string, nullptr, nullptr};
template<>
inline constexpr Readers<vexa::CBinary> READERS<vexa::CBinary> = {&Ref::As_CBinary, &Ref::operator vexa::CBinary,
                                                                  &Ref::WriteTo};
template<>
inline constexpr Readers<vexa::CNumeric> READERS<vexa::CNumeric> = {&Ref::As_CNumeric, &Ref::operator vexa::CNumeric,
                                                                    &Ref::WriteTo};
template<>
inline constexpr Readers<vexa::CDateTime> READERS<vexa::CDateTime> = {&Ref::As_CDateTime,
                                                                      &Ref::operator vexa::CDateTime, &Ref::WriteTo};
template<>
inline constexpr Readers<tm> READERS<tm> = {&Ref::As_tm, nullptr, &Ref::WriteTo};

/// The number of ways of reading a target type.
template<class T>
int WaysOfReading()
{
    constexpr Readers<T> READ = READERS<T>;
    return (READ.As != nullptr) + (READ.Convert != nullptr) + (READ.WriteTo != nullptr);
}

/// Reads one target type in every way there is; the results must all show so.
template<class T>
void ExpectReads(const Ref& source, const std::string& shown)
{
    constexpr Readers<T> READ = READERS<T>;
    EXPECT_EQ(Shown((source.*READ.As)()), shown) << "As_ of " << BasicType<T>::Name;
    if (READ.Convert != nullptr) {
        EXPECT_EQ(Shown((source.*READ.Convert)()), shown) << "operator " << BasicType<T>::Name;
    }
    if (READ.WriteTo != nullptr) {
        T target = Untouched<T>();
        (source.*READ.WriteTo)(target);
        EXPECT_EQ(Shown(target), shown) << "WriteTo of " << BasicType<T>::Name;
    }
}

/// Reads all number types in every way there is, without a logged line.
inline void ExpectReadsNumbers(const Ref& source, const AllNumbers& expected)
{
    const std::string log = LoggedLines([&] {
        ForEachType(NumberTypes{}, [&](auto tag) {
            using T = typename decltype(tag)::Type;
            ExpectReads<T>(source, Shown(std::get<T>(expected)));
        });
    });
    EXPECT_EQ(log, "");
}

/// Reads all number types in every way there is: each gives zero and logs one line that names both types.
inline void ExpectReadsNoNumbers(const Ref& source, const std::string& sourceName)
{
    ForEachType(NumberTypes{}, [&](auto tag) {
        using T = typename decltype(tag)::Type;
        const std::string log = LoggedLines([&] { ExpectReads<T>(source, Shown(T())); });
        std::string expected;
        for (int i = 0; i < WaysOfReading<T>(); ++i) {
            expected +=
                sourceName + " type CStdBasicTypeConstRefrence can not be converted to " + BasicType<T>::Name + "\n";
        }
        EXPECT_EQ(log, expected);
    });
}

/// What to do with a source, whose type's name in messages is given too.
using ReadAction = std::function<void(const Ref& source, const std::string& typeName)>;

/// Calls the action with a reference to the value in each holding form.
template<class T>
void InEveryForm(const T& value, const ReadAction& action)
{
    for (HoldingForm form : ALL_FORMS) {
        SCOPED_TRACE(testing::Message() << form);
        Held<T> held(form, value);
        action(Ref(held.Ref()), held.TypeName());
        EXPECT_FALSE(held.IsNull());
        EXPECT_EQ(held.ShownValue(), Shown(value)) << "changed by reading";
    }
}

} // namespace vexa_test

#endif
