// A table of 1,000,000 rows by 8 typed columns: built, rendered and freed. Counts every byte that the process holds on
// the heap, and ends with 1 when the table, and what rendering needs beside the text that it gives, take more than 1.2
// times the sum of the values' own sizes at any moment. A value's own size is 64 bytes and what it keeps on the heap.

#include <malloc.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <new>

#include <benchmark/benchmark.h>

#include <vexa/vexa.h>

namespace {

constexpr long ROWS = 1000 * 1000;
constexpr double LIMIT = 1.2;

std::atomic<std::size_t> liveBytes{0};
std::atomic<std::size_t> peakBytes{0};
std::atomic<bool> isWithinLimit{true};

/// What the allocator really gives, which is what the process holds.
void* Counted(void* memory)
{
    if (memory == nullptr) throw std::bad_alloc();
    const std::size_t live = liveBytes += malloc_usable_size(memory);
    if (live > peakBytes) peakBytes = live;
    return memory;
}

void Released(void* memory)
{
    liveBytes -= malloc_usable_size(memory);
    std::free(memory);
}

} // namespace

void* operator new(std::size_t size) { return Counted(std::malloc(size)); }
void* operator new(std::size_t size, std::align_val_t alignment)
{
    const auto boundary = static_cast<std::size_t>(alignment);
    return Counted(std::aligned_alloc(boundary, (size + boundary - 1) / boundary * boundary));
}
void operator delete(void* memory) noexcept { Released(memory); }
void operator delete(void* memory, std::size_t) noexcept { Released(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { Released(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { Released(memory); }

namespace {

void AddColumns(vexa::CTable& table)
{
    table.AddColumn(vexa::Enum::DT_INT, "id");
    table.AddColumn(vexa::Enum::DT_LONG_LONG, "account");
    table.AddColumn(vexa::Enum::DT_DOUBLE, "balance");
    table.AddColumn(vexa::Enum::DT_BOOL, "active");
    table.AddColumn(vexa::Enum::DT_STD_STRING, "name");
    table.AddColumn(vexa::Enum::DT_STD_STRING, "note");
    table.AddColumn(vexa::Enum::DT_DATETIME, "opened");
    table.AddColumn(vexa::Enum::DT_NUMERIC, "limit");
}

void FillRow(vexa::CRow& row, long number)
{
    row[0].ReadFrom(static_cast<int>(number));
    row[1].ReadFrom(static_cast<long long>(number) * 1000003);
    row[2].ReadFrom(static_cast<double>(number) / 4);
    row[3].ReadFrom(number % 2 == 0);
    row[4].ReadFrom("Ann Example");
    if (number % 4 == 0) row[5].ReadFrom("a note that is too long to lie in the value"); // the others stay null
    row[6].ReadFrom(vexa::CDateTime(1600000000 + number, 0));
    row[7].ReadFrom(vexa::CNumeric("2500.50"));
}

void Build(vexa::CTable& table)
{
    AddColumns(table);
    table.Reserve(ROWS);
    for (long i = 0; i < ROWS; ++i)
        FillRow(table.AddRow(), i);
}

/// What a text keeps on the heap; a short one lies inside its object.
std::size_t HeapSize(const std::string& text)
{
    const auto* const object = reinterpret_cast<const char*>(&text);
    const bool isInside = text.data() >= object && text.data() < object + sizeof text;
    return isInside ? 0 : text.capacity() + 1;
}

std::size_t OwnSize(const vexa::CValue& value)
{
    if (value.IsNull()) return sizeof value;
    switch (value.Type()) {
    case vexa::Enum::DT_STD_STRING: return sizeof value + HeapSize(value.As_std_string_ref());
    case vexa::Enum::DT_DATETIME: return sizeof value + sizeof(vexa::CDateTime);
    case vexa::Enum::DT_NUMERIC: {
        const vexa::CNumeric& number = value.As_CNumeric_ref();
        return sizeof value + sizeof number + HeapSize(number.IntegerDigits) + HeapSize(number.FractionDigits);
    }
    default: return sizeof value;
    }
}

std::size_t OwnSize(const vexa::CTable& table)
{
    std::size_t sum = 0;
    for (const vexa::CRow& row : table) {
        for (const vexa::CValue& value : row)
            sum += OwnSize(value);
    }
    return sum;
}

/// Counts from here on.
std::size_t StartCounting()
{
    peakBytes = liveBytes.load();
    return liveBytes;
}

/// Tells how much was held since, in proportion to the table's values: without the text that was made, and with it.
void Report(benchmark::State& state, const vexa::CTable& table, std::size_t liveAtStart, std::size_t text)
{
    const auto sum = static_cast<double>(OwnSize(table));
    const auto peak = static_cast<double>(peakBytes - liveAtStart);
    const double ratio = (peak - static_cast<double>(text)) / sum;
    state.counters["values_MB"] = sum / 1e6;
    state.counters["peak_to_values"] = ratio;
    if (text > 0) state.counters["with_text"] = peak / sum;
    if (ratio <= LIMIT) return;
    isWithinLimit = false;
    std::cerr << "The peak is " << ratio << " times the sum of the values.\n";
}

void BuildTable(benchmark::State& state)
{
    for (auto _ : state) {
        const std::size_t liveAtStart = StartCounting();
        auto table = std::make_unique<vexa::CTable>();
        Build(*table);
        state.PauseTiming();
        Report(state, *table, liveAtStart, 0);
        table.reset();
        state.ResumeTiming();
    }
    state.SetItemsProcessed(ROWS * state.iterations());
}

void RenderTable(benchmark::State& state)
{
    const std::size_t liveAtStart = StartCounting();
    vexa::CTable table;
    Build(table);
    std::size_t size = 0;
    std::size_t held = 0;
    for (auto _ : state) {
        const std::string text = vexa::AsString(table);
        size = text.size();
        held = text.capacity();
    }
    Report(state, table, liveAtStart, held);
    state.counters["text_MB"] = static_cast<double>(size) / 1e6;
    state.SetItemsProcessed(ROWS * state.iterations());
}

void FreeTable(benchmark::State& state)
{
    const std::size_t liveAtStart = StartCounting();
    for (auto _ : state) {
        state.PauseTiming();
        auto table = std::make_unique<vexa::CTable>();
        Build(*table);
        state.ResumeTiming();
        table.reset();
    }
    if (liveBytes != liveAtStart) {
        isWithinLimit = false;
        state.SkipWithError("something was not freed");
    }
    state.SetItemsProcessed(ROWS * state.iterations());
}

BENCHMARK(BuildTable)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(RenderTable)->Unit(benchmark::kMillisecond)->Iterations(3);
BENCHMARK(FreeTable)->Unit(benchmark::kMillisecond)->Iterations(3);

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    benchmark::RunSpecifiedBenchmarks();
    return isWithinLimit ? 0 : 1;
}
