// The library beside what an engineer writes by hand for one purpose: text of an object, look-up by name, one held
// value, a walk, a decimal number. Each pair of rows is named <purpose>/library and <purpose>/hand, and has been shown
// to give the same before it is timed.

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <numeric>
#include <random>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include <benchmark/benchmark.h>

#include <vexa/vexa.h>

namespace access_bench {

/// Twenty attributes as records of a service have them: texts most of all, numbers, flags.
struct Account {
    int id = 4711;
    std::string name = "Ada Lovelace";
    std::string street = "12 St James's Square";
    std::string city = "London";
    std::string zip = "SW1Y 4JH";
    std::string country = "GB";
    long created = 1700000000123L;
    long changed = 1712345678901L;
    bool active = true;
    bool verified = false;
    unsigned int visits = 12345;
    short grade = -7;
    double balance = 1234.5678;
    std::string currency = "EUR";
    std::string email = "ada@analytical.example";
    std::string phone = "+44 20 7946 0958";
    int orders = 42;
    int returns = 3;
    std::string note = "prefers to be written to";
    std::string language = "en";
};
VEXA_DESCRIBE(Account, id, name, street, city, zip, country, created, changed, active, verified, visits, grade, balance,
              currency, email, phone, orders, returns, note, language)

void Append(std::string& out, const char* name, const std::string& value) { out.append(name).append(value); }

template<class Number>
void Append(std::string& out, const char* name, Number value)
{
    char text[32];
    out.append(name).append(text, std::to_chars(text, text + sizeof text, value).ptr);
}

void Append(std::string& out, const char* name, bool value) { out.append(name).append(value ? "true" : "false"); }

void Append(std::string& out, const char* name, double value)
{
    char text[400];
    out.append(name).append(text, std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 6).ptr);
}

void AppendByHand(std::string& out, const Account& account)
{
    Append(out, "\nid: ", account.id);
    Append(out, "\nname: ", account.name);
    Append(out, "\nstreet: ", account.street);
    Append(out, "\ncity: ", account.city);
    Append(out, "\nzip: ", account.zip);
    Append(out, "\ncountry: ", account.country);
    Append(out, "\ncreated: ", account.created);
    Append(out, "\nchanged: ", account.changed);
    Append(out, "\nactive: ", account.active);
    Append(out, "\nverified: ", account.verified);
    Append(out, "\nvisits: ", account.visits);
    Append(out, "\ngrade: ", account.grade);
    Append(out, "\nbalance: ", account.balance);
    Append(out, "\ncurrency: ", account.currency);
    Append(out, "\nemail: ", account.email);
    Append(out, "\nphone: ", account.phone);
    Append(out, "\norders: ", account.orders);
    Append(out, "\nreturns: ", account.returns);
    Append(out, "\nnote: ", account.note);
    Append(out, "\nlanguage: ", account.language);
}

void Require(bool isSame, const char* what)
{
    if (isSame) return;
    std::fprintf(stderr, "%s: the candidates differ\n", what);
    std::exit(1);
}

void TextLibrary(benchmark::State& state)
{
    const Account account;
    std::string out;
    for (auto _ : state) {
        vexa::AsString(out, account);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
    std::string expected;
    AppendByHand(expected, account);
    Require(out == expected, "Text20");
}
void TextHand(benchmark::State& state)
{
    const Account account;
    std::string out;
    for (auto _ : state) {
        out.clear();
        AppendByHand(out, account);
        benchmark::DoNotOptimize(out.data());
        benchmark::ClobberMemory();
    }
}
BENCHMARK(TextLibrary)->Name("Text20/library");
BENCHMARK(TextHand)->Name("Text20/hand");

/// The names of an Account in random order, long enough for no branch predictor to know it by heart.
std::vector<std::string> RandomNames()
{
    std::vector<std::string> names;
    for (const vexa::CAttribInfor& attrib : vexa::ClassInforOf<Account>().AttribList)
        names.push_back(attrib.Name);
    std::mt19937 random(20);
    std::vector<std::string> drawn;
    for (int i = 0; i < 4096; ++i)
        drawn.push_back(names[random() % names.size()]);
    return drawn;
}

void LookUpLibrary(benchmark::State& state)
{
    const Account account;
    const std::vector<std::string> names = RandomNames();
    const vexa::CConstRefrence object = vexa::RefOf(account);
    vexa::CConstRefrence found;
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(object.AsClass().FindAttribByName(found, names[i]));
        benchmark::DoNotOptimize(found.Address);
        i = (i + 1) % names.size();
    }
    Require(object.AsClass().FindAttribByName(found, "note") && found.Address == &account.note, "LookUp");
}
void LookUpHand(benchmark::State& state)
{
    const std::vector<std::string> names = RandomNames();
    std::unordered_map<std::string_view, const vexa::CAttribInfor*> map;
    for (const vexa::CAttribInfor& attrib : vexa::ClassInforOf<Account>().AttribList)
        map.emplace(attrib.Name, &attrib);
    std::size_t i = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(map.find(names[i])->second);
        i = (i + 1) % names.size();
    }
    Require(map.at("note")->Name == "note", "LookUp");
}
BENCHMARK(LookUpLibrary)->Name("LookUp/library");
BENCHMARK(LookUpHand)->Name("LookUp/hand");

using ReadFunction = int (*)(const void*);

/// Out of the optimiser's sight, as a getter that is registered at run time is.
ReadFunction Reader()
{
    ReadFunction reader = [](const void* address) { return *static_cast<const int*>(address); };
    benchmark::DoNotOptimize(reader);
    return reader;
}

void HeldLibrary(benchmark::State& state)
{
    int value = 42;
    vexa::CStdBasicTypeConstRefrence ref = vexa::RefOf(value).AsStdBasicType();
    benchmark::DoNotOptimize(ref);
    int read = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(read = ref.As_int());
        benchmark::ClobberMemory();
    }
    Require(read == 42, "HeldInt");
}
void HeldHand(benchmark::State& state)
{
    int value = 42;
    const void* address = &value;
    benchmark::DoNotOptimize(address);
    const ReadFunction reader = Reader();
    int read = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(read = reader(address));
        benchmark::ClobberMemory();
    }
    Require(read == 42, "HeldInt");
}
BENCHMARK(HeldLibrary)->Name("HeldInt/library");
BENCHMARK(HeldHand)->Name("HeldInt/hand");

std::vector<int> Numbers()
{
    std::vector<int> numbers(100000);
    std::iota(numbers.begin(), numbers.end(), -50000);
    return numbers;
}

void WalkLibrary(benchmark::State& state)
{
    const std::vector<int> numbers = Numbers();
    const vexa::CConstRefrence container = vexa::RefOf(numbers);
    long sum = 0;
    for (auto _ : state) {
        sum = 0;
        for (const vexa::CConstRefrence& element : container.AsContainer())
            sum += element.AsStdBasicType().As_int();
        benchmark::DoNotOptimize(sum);
    }
    Require(sum == -50000, "Walk");
}
void WalkHand(benchmark::State& state)
{
    const std::vector<int> numbers = Numbers();
    const ReadFunction reader = Reader();
    long sum = 0;
    for (auto _ : state) {
        sum = 0;
        for (const int& number : numbers)
            sum += reader(&number);
        benchmark::DoNotOptimize(sum);
    }
    Require(sum == -50000, "Walk");
}
BENCHMARK(WalkLibrary)->Name("Walk/library")->Unit(benchmark::kMicrosecond);
BENCHMARK(WalkHand)->Name("Walk/hand")->Unit(benchmark::kMicrosecond);

void NumericLibrary(benchmark::State& state)
{
    double value = 1234.5678;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        vexa::CNumeric number(value);
        benchmark::DoNotOptimize(number);
    }
    Require(vexa::CNumeric(value).AsString() == "1234.567800000000033833202905952930450439453125", "Numeric");
}
void NumericHand(benchmark::State& state)
{
    double value = 1234.5678;
    char text[64];
    char* end = text;
    for (auto _ : state) {
        benchmark::DoNotOptimize(value);
        end = std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, 6).ptr;
        benchmark::DoNotOptimize(text);
    }
    Require(std::string(text, end) == "1234.567800", "Numeric");
}
BENCHMARK(NumericLibrary)->Name("Numeric/library");
BENCHMARK(NumericHand)->Name("Numeric/hand");

} // namespace access_bench
