#ifndef VEXA_TESTS_SUPPORT_DESCRIBED_EVERYTHING_H
#define VEXA_TESTS_SUPPORT_DESCRIBED_EVERYTHING_H

#include "support/described_depths.h"

/// Described classes that together hold every type that can be described, with what fills and compares them by hand.

namespace vexa_test::everything {

template<class T>
struct ClassTag {
    using Type = T;
};

/// Calls \p f with the tag of each class.
template<class F>
void ForEachClass(F f)
{
    const auto callWith = [&f](auto... tags) { (f(tags), ...); };
    callWith(ClassTag<Inner>(), ClassTag<Direct>(), ClassTag<MayBeNull>(), ClassTag<ByUnique>(), ClassTag<ByNonNull>(),
             ClassTag<ByOwned>(), ClassTag<Records>(), ClassTag<AnyJson>(), ClassTag<Arrays>(), ClassTag<Vectors>(),
             ClassTag<Others>(), ClassTag<Maps>(), ClassTag<Node>(), ClassTag<Nothing>(), ClassTag<Derived>(),
             ClassTag<Choice>(), ClassTag<Choices>(), ClassTag<Groups>(), ClassTag<Signals>(), ClassTag<Optionals>(),
             ClassTag<Structures>(), ClassTag<Times>(), ClassTag<Circle>(), ClassTag<Drawing>(), ClassTag<Pets>(),
             ClassTag<Mixes>(), ClassTag<Cells>(), ClassTag<Noted>());
}

/// The same object for the same number, whatever the class can do: what cannot be copied is made twice.
template<class T>
std::unique_ptr<T> MakeRandom(std::uint64_t seed)
{
    Filler filler(seed);
    auto object = std::make_unique<T>();
    Fill(filler, *object);
    return object;
}

} // namespace vexa_test::everything

#endif
