// 100,000 random doubles, every bit pattern alike, as a JSON array: the library beside std::to_chars and
// std::from_chars alone, which only put a comma between two, or pass over it.

#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>
#include <vexa/interchange.h>
#include <vexa/vexa.h>

#include "workloads.h"

namespace {

constexpr std::size_t COUNT = 100000;
constexpr std::size_t LONGEST = 32;

struct Doubles {
    std::vector<double> values;
};
VEXA_DESCRIBE(Doubles, values)

std::vector<double> RandomDoubles()
{
    workload::Random random(19730401);
    std::vector<double> values;
    while (values.size() < COUNT) {
        const std::uint64_t bits = random.Next();
        double value = 0;
        std::memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value)) values.push_back(value);
    }
    return values;
}

const Doubles& Data()
{
    static const Doubles data{RandomDoubles()};
    return data;
}

/// The digits with a comma behind each number, into room that is large enough. \return their end.
char* WriteAlone(char* at, const std::vector<double>& values)
{
    for (const double value : values) {
        at = std::to_chars(at, at + LONGEST, value).ptr;
        *at++ = ',';
    }
    return at;
}

/// As the library writes it, but by std::to_chars.
std::string ExpectedText()
{
    std::vector<char> room(COUNT * LONGEST);
    std::string text(room.data(), WriteAlone(room.data(), Data().values));
    text.back() = ']';
    return "{\"values\":[" + text + '}';
}

bool ReadAlone(std::vector<double>& values, const char* at, const char* end)
{
    for (double& value : values) {
        const std::from_chars_result result = std::from_chars(at, end, value);
        if (result.ec != std::errc()) return false;
        at = result.ptr + 1;
    }
    return true;
}

void WriteStandard(benchmark::State& state)
{
    std::string text;
    for (auto _ : state) {
        vexa::WriteJson(text, Data());
        benchmark::DoNotOptimize(text);
    }
    Doubles read;
    vexa::CReport report;
    if (!vexa::ReadJson(read, text, report) || read.values != Data().values)
        state.SkipWithError("not what was written");
}
BENCHMARK(WriteStandard)->Name("DoublesOut/standard")->Unit(benchmark::kMicrosecond);

void WriteByHand(benchmark::State& state)
{
    std::vector<char> room(COUNT * LONGEST);
    for (auto _ : state)
        benchmark::DoNotOptimize(WriteAlone(room.data(), Data().values));
}
BENCHMARK(WriteByHand)->Name("DoublesOut/hand")->Unit(benchmark::kMicrosecond);

void ReadStandard(benchmark::State& state)
{
    const std::string text = ExpectedText();
    Doubles read;
    for (auto _ : state) {
        vexa::CReport report;
        benchmark::DoNotOptimize(vexa::ReadJson(read, text, report));
        benchmark::ClobberMemory();
    }
    if (read.values != Data().values) state.SkipWithError("not what was written");
}
BENCHMARK(ReadStandard)->Name("DoublesIn/standard")->Unit(benchmark::kMicrosecond);

void ReadByHand(benchmark::State& state)
{
    const std::string text = ExpectedText();
    const char* const first = text.data() + text.find('[') + 1;
    std::vector<double> read(COUNT);
    for (auto _ : state) {
        benchmark::DoNotOptimize(ReadAlone(read, first, text.data() + text.size()));
        benchmark::ClobberMemory();
    }
    if (read != Data().values) state.SkipWithError("not what was written");
}
BENCHMARK(ReadByHand)->Name("DoublesIn/hand")->Unit(benchmark::kMicrosecond);

} // namespace
