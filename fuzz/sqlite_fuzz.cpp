// Random queries over random objects, drawn from the fuzzer's bytes: live tables must give the rows of plain ones.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>

#include "formats/sqlite_random.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::size_t at = 0;
    // Two bytes draw one number; behind the last ones everything is the first choice.
    const auto draw = [&](std::size_t end) -> std::size_t {
        if (at + 1 >= size) return 0;
        const std::size_t number = data[at] | static_cast<std::size_t>(data[at + 1]) << 8U;
        at += 2;
        return number % end;
    };
    vexa_test::CComparison comparison(draw);
    do {
        const std::string difference = comparison.Differ();
        if (difference.empty()) continue;
        std::cerr << difference << '\n';
        std::abort();
    } while (at + 1 < size);
    return 0;
}
