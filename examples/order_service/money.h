#ifndef VEXA_EXAMPLE_MONEY_H
#define VEXA_EXAMPLE_MONEY_H

#include <string>

#include <vexa/vexa.h>

/// A library that knows nothing of ours.
namespace bank {

struct Money {
    long long minorUnits = 0; ///< cents
    std::string currency;
};

} // namespace bank

/// Its class is described from outside, without opening its namespace again.
template<>
struct vexa::Describes<bank::Money> {
    static void Describe(vexa::CDescription<bank::Money>& about)
    {
        about.Attrib("minorUnits", &bank::Money::minorUnits).Key("amount").Range(0, 100'000'000).Unit("cents");
        about.Attrib("currency", &bank::Money::currency).Length(3, 3);
    }
};

#endif
