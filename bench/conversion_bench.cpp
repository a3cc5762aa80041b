// Basic values read as another type, assigned, and written as text.

#include <benchmark/benchmark.h>

#include <vexa/vexa.h>

namespace {

template<class T>
void AsInt(benchmark::State& state, T value)
{
    const vexa::CStdBasicTypeConstRefrence source = vexa::RefOf(value).AsStdBasicType();
    int read = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        benchmark::DoNotOptimize(read = source.As_int());
    }
    if (read != 123456) state.SkipWithError("another value was read");
}
BENCHMARK_CAPTURE(AsInt, int, 123456);
BENCHMARK_CAPTURE(AsInt, longLong, 123456LL);
BENCHMARK_CAPTURE(AsInt, double, 123456.0);
BENCHMARK_CAPTURE(AsInt, stdString, std::string("123456"));
BENCHMARK_CAPTURE(AsInt, CNumeric, vexa::CNumeric("123456"));

void ReadFromIntIntoDouble(benchmark::State& state)
{
    double target = 0;
    vexa::CStdBasicTypeRefrence ref = vexa::RefOf(target).AsStdBasicType();
    int value = 123456;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        ref.ReadFrom(value);
        benchmark::DoNotOptimize(target);
    }
}
void ReadFromTextIntoString(benchmark::State& state)
{
    std::string target;
    vexa::CStdBasicTypeRefrence ref = vexa::RefOf(target).AsStdBasicType();
    const std::string value = "a text that needs memory of its own";
    for (auto _ : state) {
        ref.ReadFrom(value);
        benchmark::DoNotOptimize(target.data());
    }
}
BENCHMARK(ReadFromIntIntoDouble);
BENCHMARK(ReadFromTextIntoString);

/// Appends the text of a value to a string that has room.
template<class T>
void AppendToString(benchmark::State& state, T value)
{
    const vexa::CStdBasicTypeConstRefrence source = vexa::RefOf(value).AsStdBasicType();
    std::string text;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        text.clear();
        source.AppendToString(text, false);
        benchmark::DoNotOptimize(text.data());
    }
    if (text.empty()) state.SkipWithError("nothing was appended");
}
BENCHMARK_CAPTURE(AppendToString, bool, true);
BENCHMARK_CAPTURE(AppendToString, char, 'v');
BENCHMARK_CAPTURE(AppendToString, short, static_cast<short>(-12345));
BENCHMARK_CAPTURE(AppendToString, int, -1234567890);
BENCHMARK_CAPTURE(AppendToString, long, -1234567890123456789L);
BENCHMARK_CAPTURE(AppendToString, longLong, -1234567890123456789LL);
BENCHMARK_CAPTURE(AppendToString, float, 1234.5F);
BENCHMARK_CAPTURE(AppendToString, double, 123456.789);
BENCHMARK_CAPTURE(AppendToString, longDouble, 123456.789L);
BENCHMARK_CAPTURE(AppendToString, unsignedChar, static_cast<unsigned char>(200));
BENCHMARK_CAPTURE(AppendToString, unsignedShort, static_cast<unsigned short>(54321));
BENCHMARK_CAPTURE(AppendToString, unsignedInt, 4234567890U);
BENCHMARK_CAPTURE(AppendToString, unsignedLong, 12345678901234567890UL);
BENCHMARK_CAPTURE(AppendToString, unsignedLongLong, 12345678901234567890ULL);
BENCHMARK_CAPTURE(AppendToString, CNumeric, vexa::CNumeric("-12345678901234567890.5"));
BENCHMARK_CAPTURE(AppendToString, CDateTime, vexa::CDateTime(1700000000, 0));
BENCHMARK_CAPTURE(AppendToString, stdString, std::string("a text that needs memory of its own"));

/// The same through the buffer that the JSON writer uses, a text with its escapes.
void AppendToBufferEscaped(benchmark::State& state)
{
    const std::string value = "Møre og \"Romsdal\"\n";
    const vexa::CStdBasicTypeConstRefrence source = vexa::RefOf(value).AsStdBasicType();
    char buffer[256] = {};
    unsigned long position = 0;
    for (auto _ : state) {
        position = 0;
        source.AppendToString(buffer, position, sizeof buffer, true);
        benchmark::DoNotOptimize(buffer);
    }
    if (position <= value.size()) state.SkipWithError("nothing was escaped");
}
BENCHMARK(AppendToBufferEscaped);

} // namespace
