// A service that takes orders: reads its configuration and a partner's payload into plain C++ objects, says what is
// wrong with broken ones, and writes JSON again. All that the library is told are the descriptions in orders.h,
// service_config.h and money.h.
//
// Usage: order_service_demo
// Ends with 0 when every check held, 1 when one did not, and 2 for a wrong usage.

#include <exception>
#include <iostream>

#include "steps.h"

namespace shop {

void Heading(const char* text) { std::cout << "\n== " << text << '\n'; }

bool Check(const char* what, bool held)
{
    std::cout << (held ? "ok: " : "FAILED: ") << what << '\n';
    return held;
}

namespace {

using Step = bool (*)(Service&);

constexpr Step STEPS[] = {ReadConfig,     ReadBrokenConfig,  ReadPartnerOrder, ReadBrokenOrder, ReadLog,
                          WriteForPeople, WriteAndReadAgain, WriteReport,      ListClasses};

bool Run()
{
    Service service;
    bool held = true;
    for (const Step step : STEPS)
        held = step(service) && held;
    return held;
}

} // namespace
} // namespace shop

int main(int argc, char** argv)
{
    if (argc > 1) {
        std::cerr << "Usage: " << argv[0] << '\n';
        return 2;
    }
    try {
        return shop::Run() ? 0 : 1;
    } catch (const std::exception& error) {
        std::cerr << error.what() << '\n';
        return 1;
    }
}
