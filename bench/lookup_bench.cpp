// Finding an attribute of an object: by name, by flat name, by ID, by the first and the last of them; and the way from
// a type to its descriptor.

#include <benchmark/benchmark.h>

#include "../examples/iso_codes/iso_codes.h"

namespace iso_codes {
namespace {

const Locale& SampleLocale()
{
    static const Locale locale = [] {
        Locale sample;
        sample.country.name = "Norway";
        return sample;
    }();
    return locale;
}

/// Measures `find(out, object, key)` and reads the attribute once, so that a look-up that finds nothing is told.
template<class Find, class Key>
void MeasureFinding(benchmark::State& state, vexa::CConstRefrence object, Find find, const Key& key)
{
    const vexa::CClassConstRefrence owner = object.AsClass();
    vexa::CConstRefrence found;
    for (auto _ : state) {
        benchmark::DoNotOptimize(find(found, owner, key));
        benchmark::DoNotOptimize(found.Address);
    }
    if (found.Address != &SampleLocale().country.name) state.SkipWithError("not found");
}

void FindByName(benchmark::State& state)
{
    const auto find = [](auto& out, const auto& owner, const std::string& name) {
        return owner.FindAttribByName(out, name);
    };
    MeasureFinding(state, vexa::RefOf(SampleLocale().country), find, std::string("name"));
}
void FindByID(benchmark::State& state)
{
    const auto find = [](auto& out, const auto& owner, short id) { return owner.FindAttribByID(out, id); };
    MeasureFinding(state, vexa::RefOf(SampleLocale().country), find, static_cast<short>(COUNTRY_NAME));
}
void FindByFlatName(benchmark::State& state, const std::string& path)
{
    const auto find = [](auto& out, const auto& owner, const std::string& name) {
        return owner.FindAttribByFlatName(out, name);
    };
    MeasureFinding(state, vexa::RefOf(SampleLocale()), find, path);
}
BENCHMARK(FindByName);
BENCHMARK(FindByID);
BENCHMARK_CAPTURE(FindByFlatName, underscore, std::string("country_name"));
BENCHMARK_CAPTURE(FindByFlatName, dot, std::string("country.name"));

/// The descriptor stands: what remains is a load and a branch.
void ClassInforOf(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(&vexa::ClassInforOf<Country>());
}
void TypeInforOf(benchmark::State& state)
{
    for (auto _ : state)
        benchmark::DoNotOptimize(&vexa::TypeInforOf<std::vector<Country>>());
}
BENCHMARK(ClassInforOf);
BENCHMARK(TypeInforOf);

/// Country has seven attributes, and a detailed language eight, of which five come from base classes.
template<class T>
void WalkAttributes(benchmark::State& state)
{
    const T object{};
    const vexa::CClassConstRefrence owner = vexa::RefOf(object).AsClass();
    std::int64_t count = 0;
    for (auto _ : state) {
        for (const auto& attrib : owner.Attribs()) {
            benchmark::DoNotOptimize(attrib.Value().Address);
            ++count;
        }
    }
    state.SetItemsProcessed(count);
}
BENCHMARK_TEMPLATE(WalkAttributes, Country);
BENCHMARK_TEMPLATE(WalkAttributes, DetailedLanguage);

} // namespace
} // namespace iso_codes
