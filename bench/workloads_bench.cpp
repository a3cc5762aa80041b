// JSON of two workloads, objects to text (W) and text to objects (R): the library beside hand-written code, beside the
// smallest table that does it at run time, and beside other libraries, where those are installed. Rows are named
// <workload>/<candidate>. Each candidate has been shown to give the same before anything is timed.
//
// The library stands there twice: `library` is its own dialect, `standard` the standard one, which is checked to be
// UTF-8 both ways. What is read is the same plain text for all. What is written differs in one point: the dialect
// escapes every byte outside ASCII and the slash, the others leave them as they are.

#include <cstdio>
#include <functional>
#include <string>

#include <benchmark/benchmark.h>
#include <vexa/interchange.h>

#include "described_workloads.h"
#include "peers.h"
#include "reference_hand.h"
#include "reference_table.h"

namespace {

bool g_areAllRight = true;

void Check(bool isRight, const std::string& what)
{
    if (isRight) return;
    std::fprintf(stderr, "Wrong: %s\n", what.c_str());
    g_areAllRight = false;
}

/// The library's text with the escapes undone that the others do without: slashes, and bytes from 0x80 on.
std::string WithoutExtraEscapes(const std::string& text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const bool isEscape = text[i] == '\\' && i + 1 < text.size();
        if (isEscape && text[i + 1] == '/') {
            plain += text[++i];
        } else if (isEscape && text.compare(i, 4, "\\u00") == 0 && text[i + 4] >= '8') {
            plain += static_cast<char>(std::stoi(text.substr(i + 4, 2), nullptr, 16));
            i += 5;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

/// `write(out, object)` into a buffer that is used again and again; `text(out)` shows what it holds as plain text.
template<class Buffer, class Object, class Write, class Text>
void AddWriter(const std::string& name, const Object& object, const std::string& plain, Write write, Text text)
{
    Buffer buffer;
    write(buffer, object);
    write(buffer, object);
    Check(text(buffer) == plain, name);
    benchmark::RegisterBenchmark(name.c_str(), [&object, &plain, write](benchmark::State& state) {
        Buffer out;
        for (auto _ : state) {
            write(out, object);
            benchmark::DoNotOptimize(out);
            benchmark::ClobberMemory();
        }
        state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * plain.size()));
    })->Unit(benchmark::kMicrosecond);
}

/// `read(object)` into an object that is made, and goes, with every iteration.
template<class Object, class Read>
void AddReader(const std::string& name, const Object& expected, const std::string& plain, Read read)
{
    Object object;
    Check(read(object) && object == expected, name);
    benchmark::RegisterBenchmark(name.c_str(), [&plain, read](benchmark::State& state) {
        for (auto _ : state) {
            Object made;
            bool isRead = read(made);
            benchmark::DoNotOptimize(isRead);
            benchmark::DoNotOptimize(made);
            benchmark::ClobberMemory();
        }
        state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * plain.size()));
    })->Unit(benchmark::kMicrosecond);
}

template<class Object>
struct CWorkload {
    Object Data;
    std::string Plain;
#if defined(PEERS_HAVE_SIMDJSON)
    simdjson::padded_string Padded;
    simdjson::ondemand::parser Parser;
#endif
};

template<class Object>
void AddWriters(const std::string& number, const CWorkload<Object>& workload)
{
    const auto same = [](const std::string& out) { return out; };
    const auto add = [&](const char* candidate, auto write, auto text) {
        AddWriter<std::string>("W" + number + "/" + candidate, workload.Data, workload.Plain, write, text);
    };
    add(
        "library", [](std::string& out, const Object& from) { vexa::ToJson(out, from); }, WithoutExtraEscapes);
    add(
        "standard", [](std::string& out, const Object& from) { vexa::WriteJson(out, from); }, same);
    add(
        "hand", [](std::string& out, const Object& from) { reference::WriteByHand(out, from); }, same);
    add(
        "table", [](std::string& out, const Object& from) { reference::WriteByTable(out, from); }, same);
#if defined(PEERS_HAVE_RAPIDJSON)
    AddWriter<peer_rapidjson::Buffer>(
        "W" + number + "/rapidjson", workload.Data, workload.Plain,
        [](peer_rapidjson::Buffer& out, const Object& from) { peer_rapidjson::Write(out, from); },
        [](const peer_rapidjson::Buffer& out) { return std::string(out.GetString(), out.GetSize()); });
#endif
#if defined(PEERS_HAVE_BOOST_JSON)
    add(
        "boost", [](std::string& out, const Object& from) { peer_boost::Write(out, from); }, same);
#endif
#if defined(PEERS_HAVE_NLOHMANN)
    add(
        "nlohmann", [](std::string& out, const Object& from) { peer_nlohmann::Write(out, from); }, same);
#endif
}

template<class Object>
void AddReaders(const std::string& number, CWorkload<Object>& workload)
{
    const std::string& plain = workload.Plain;
    const auto add = [&](const char* candidate, auto read) {
        AddReader("R" + number + "/" + candidate, workload.Data, plain, read);
    };
    add("library", [&plain](Object& to) { return vexa::FromJson(to, plain) == 0; });
    add("standard", [&plain](Object& to) {
        vexa::CReport report;
        return vexa::ReadJson(to, plain, report);
    });
    add("hand", [&plain](Object& to) { return reference::ReadByHand(to, plain); });
    add("table", [&plain](Object& to) { return reference::ReadByTable(to, plain); });
#if defined(PEERS_HAVE_RAPIDJSON)
    add("rapidjson", [&plain](Object& to) { return peer_rapidjson::Read(to, plain); });
#endif
#if defined(PEERS_HAVE_SIMDJSON)
    workload.Padded = simdjson::padded_string(plain);
    add("simdjson", [&workload](Object& to) { return peer_simdjson::Read(to, workload.Parser, workload.Padded); });
#endif
#if defined(PEERS_HAVE_BOOST_JSON)
    add("boost", [&plain](Object& to) { return peer_boost::Read(to, plain); });
#endif
#if defined(PEERS_HAVE_NLOHMANN)
    add("nlohmann", [&plain](Object& to) { return peer_nlohmann::Read(to, plain); });
#endif
}

template<class Object>
void AddAll(const std::string& number, CWorkload<Object>& workload, const Object& data)
{
    workload.Data = data;
    reference::WriteByHand(workload.Plain, data);
    AddWriters(number, workload);
    AddReaders(number, workload);
}

} // namespace

int main(int argc, char** argv)
{
    const workload::Languages languages = workload::MakeLanguages();
    if (languages.records.empty()) {
        std::fprintf(stderr, "%s is missing or has another layout (package iso-codes)\n", workload::kLanguagesFile);
        return 1;
    }
    static CWorkload<workload::Languages> first;
    static CWorkload<workload::Orders> second;
    AddAll("1", first, languages);
    AddAll("2", second, workload::MakeOrders());
    if (!g_areAllRight) return 1;
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 1;
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
