// JSON of all records of ISO 639-3, objects to text and text to objects: the library beside hand-written code for two
// other JSON libraries, where those are installed. bytes_per_second counts the text, items_per_second the records.
//
// Each of them starts and ends with the same objects. What the three write differs: the library writes compact text
// with every byte outside ASCII escaped, the others leave UTF-8 as it is.

#include <fstream>
#include <iostream>
#include <iterator>

#include <benchmark/benchmark.h>

#include "../examples/iso_codes/iso_codes.h"

#if __has_include(<nlohmann/json.hpp>)
#include <nlohmann/json.hpp>
#define HAS_NLOHMANN 1
#endif
#if __has_include(<rapidjson/document.h>)
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#define HAS_RAPIDJSON 1
#endif

namespace iso_codes {
namespace {

constexpr const char* FILE_NAME = "/usr/share/iso-codes/json/iso_639-3.json";

using Languages = IsoFile<DetailedLanguage>;

const std::string& FileText()
{
    static const std::string text = [] {
        std::ifstream file(FILE_NAME, std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }();
    return text;
}

const Languages& AllLanguages()
{
    static const Languages languages = [] {
        Languages read;
        const int code = vexa::FromJson(read, FileText());
        if (code != 0) std::cerr << FILE_NAME << ": " << vexa::JsonResultText(code) << '\n';
        return read;
    }();
    return languages;
}

/// What text is the same for the same objects, by a way that none of the candidates takes.
std::string TextOf(const Languages& languages) { return vexa::AsString(languages); }

void Count(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
    state.SetItemsProcessed(static_cast<std::int64_t>(AllLanguages().records.size()) * state.iterations());
}

/// Measures `write(text, languages)`; `read(languages, text)` shows that the text holds everything.
template<class Write, class Read>
void MeasureWriting(benchmark::State& state, Write write, Read read)
{
    const Languages& languages = AllLanguages();
    std::string text;
    for (auto _ : state) {
        text = std::string();
        write(text, languages);
        benchmark::DoNotOptimize(text.data());
    }
    Count(state, text.size());
    Languages again;
    read(again, text);
    if (languages.records.empty() || TextOf(again) != TextOf(languages)) state.SkipWithError("the text lost something");
}

/// Measures `read(languages, text)` over the text of the file.
template<class Read>
void MeasureReading(benchmark::State& state, Read read)
{
    Languages languages;
    for (auto _ : state) {
        languages = Languages();
        read(languages, FileText());
        benchmark::DoNotOptimize(languages.records.data());
    }
    Count(state, FileText().size());
    if (languages.records.empty() || TextOf(languages) != TextOf(AllLanguages()))
        state.SkipWithError("something was not read");
}

void WriteByLibrary(std::string& text, const Languages& languages) { vexa::ToJson(text, languages); }
void ReadByLibrary(Languages& languages, const std::string& text) { vexa::FromJson(languages, text); }
void ToJson(benchmark::State& state) { MeasureWriting(state, WriteByLibrary, ReadByLibrary); }
void FromJson(benchmark::State& state) { MeasureReading(state, ReadByLibrary); }
BENCHMARK(ToJson)->Unit(benchmark::kMillisecond);
BENCHMARK(FromJson)->Unit(benchmark::kMillisecond);

#ifdef HAS_NLOHMANN

void Put(nlohmann::json& object, const char* key, const vexa::MayNull<std::string>& value)
{
    if (value) object[key] = *value;
}

nlohmann::json ObjectOf(const DetailedLanguage& language)
{
    nlohmann::json object = {{"alpha_3", language.alpha_3}, {"name", language.name}};
    Put(object, "alpha_2", language.alpha_2);
    Put(object, "common_name", language.common_name);
    Put(object, "bibliographic", language.bibliographic);
    object["scope"] = language.scope;
    object["type"] = language.type;
    Put(object, "inverted_name", language.inverted_name);
    return object;
}

void Take(vexa::MayNull<std::string>& value, const nlohmann::json& object, const char* key)
{
    const auto found = object.find(key);
    if (found != object.end()) value = found->get_ref<const std::string&>();
}

DetailedLanguage LanguageOf(const nlohmann::json& object)
{
    DetailedLanguage language;
    object.at("alpha_3").get_to(language.alpha_3);
    object.at("name").get_to(language.name);
    Take(language.alpha_2, object, "alpha_2");
    Take(language.common_name, object, "common_name");
    Take(language.bibliographic, object, "bibliographic");
    object.at("scope").get_to(language.scope);
    object.at("type").get_to(language.type);
    Take(language.inverted_name, object, "inverted_name");
    return language;
}

void WriteByNlohmann(std::string& text, const Languages& languages)
{
    nlohmann::json records = nlohmann::json::array();
    for (const DetailedLanguage& language : languages.records)
        records.push_back(ObjectOf(language));
    text = nlohmann::json{{"639-3", std::move(records)}}.dump();
}
void ReadByNlohmann(Languages& languages, const std::string& text)
{
    const nlohmann::json document = nlohmann::json::parse(text);
    for (const nlohmann::json& object : document.at("639-3"))
        languages.records.push_back(LanguageOf(object));
}
void ToJsonNlohmann(benchmark::State& state) { MeasureWriting(state, WriteByNlohmann, ReadByNlohmann); }
void FromJsonNlohmann(benchmark::State& state) { MeasureReading(state, ReadByNlohmann); }
BENCHMARK(ToJsonNlohmann)->Unit(benchmark::kMillisecond);
BENCHMARK(FromJsonNlohmann)->Unit(benchmark::kMillisecond);

#endif
#ifdef HAS_RAPIDJSON

using Writer = rapidjson::Writer<rapidjson::StringBuffer>;

void Put(Writer& writer, const char* key, const std::string& value)
{
    writer.Key(key);
    writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
}
void Put(Writer& writer, const char* key, const vexa::MayNull<std::string>& value)
{
    if (value) Put(writer, key, *value);
}

void WriteObject(Writer& writer, const DetailedLanguage& language)
{
    writer.StartObject();
    Put(writer, "alpha_3", language.alpha_3);
    Put(writer, "name", language.name);
    Put(writer, "alpha_2", language.alpha_2);
    Put(writer, "common_name", language.common_name);
    Put(writer, "bibliographic", language.bibliographic);
    Put(writer, "scope", language.scope);
    Put(writer, "type", language.type);
    Put(writer, "inverted_name", language.inverted_name);
    writer.EndObject();
}

template<class Text>
void Take(Text& value, const rapidjson::Value& object, const char* key)
{
    const auto found = object.FindMember(key);
    if (found != object.MemberEnd()) value = std::string(found->value.GetString(), found->value.GetStringLength());
}

void ReadObject(DetailedLanguage& language, const rapidjson::Value& object)
{
    Take(language.alpha_3, object, "alpha_3");
    Take(language.name, object, "name");
    Take(language.alpha_2, object, "alpha_2");
    Take(language.common_name, object, "common_name");
    Take(language.bibliographic, object, "bibliographic");
    Take(language.scope, object, "scope");
    Take(language.type, object, "type");
    Take(language.inverted_name, object, "inverted_name");
}

void WriteByRapid(std::string& text, const Languages& languages)
{
    rapidjson::StringBuffer buffer;
    Writer writer(buffer);
    writer.StartObject();
    writer.Key("639-3");
    writer.StartArray();
    for (const DetailedLanguage& language : languages.records)
        WriteObject(writer, language);
    writer.EndArray();
    writer.EndObject();
    text.assign(buffer.GetString(), buffer.GetSize());
}
void ReadByRapid(Languages& languages, const std::string& text)
{
    rapidjson::Document document;
    document.Parse(text.data(), text.size());
    if (document.HasParseError()) return;
    for (const rapidjson::Value& object : document["639-3"].GetArray())
        ReadObject(languages.records.emplace_back(), object);
}
void ToJsonRapid(benchmark::State& state) { MeasureWriting(state, WriteByRapid, ReadByRapid); }
void FromJsonRapid(benchmark::State& state) { MeasureReading(state, ReadByRapid); }
BENCHMARK(ToJsonRapid)->Unit(benchmark::kMillisecond);
BENCHMARK(FromJsonRapid)->Unit(benchmark::kMillisecond);

#endif

} // namespace
} // namespace iso_codes
