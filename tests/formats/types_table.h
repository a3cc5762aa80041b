#ifndef VEXA_TESTS_FORMATS_TYPES_TABLE_H
#define VEXA_TESTS_FORMATS_TYPES_TABLE_H

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include <vexa/cbor.h>
#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>
#include <vexa/yaml.h>

/// \file
/// How a row of the table of types is made: docs/types.md shows the table, a test checks it.

namespace vexa_test::types_table {

/// Of an attribute that is not written.
inline const std::string LEFT_OUT = "left out";

/// How an attribute's value is written in each format; empty where nothing is.
struct CForms {
    std::string Dialect; ///< ToJson
    std::string Json;
    std::string Yaml;
    std::string Cbor; ///< in hexadecimal
};

/// One type, and a value of it.
struct CRow {
    std::string Type;
    CForms Expected;
    std::function<CForms()> Write; ///< the forms that the value has
    /// What is wrong with reading JSON, YAML and CBOR into new objects, and the JSON of these; null where none is read.
    std::function<std::vector<std::string>()> Rewrite;
};

struct CGroup {
    std::string Heading;
    std::vector<CRow> Rows;
};

/// One attribute of any type.
template<class T>
struct Holder {
    T value{};
};
/// What stands behind the key in the text of a Holder: all but what is around it.
inline std::string ValueIn(const std::string& text, const std::string& before, std::size_t after)
{
    if (text.compare(0, before.size(), before) != 0) return LEFT_OUT;
    return text.substr(before.size(), text.size() - before.size() - after);
}

inline std::string Hexadecimal(const std::string& bytes)
{
    constexpr char DIGITS[] = "0123456789abcdef";
    std::string text;
    for (const char byte : bytes) {
        if (!text.empty()) text += ' ';
        text += {DIGITS[static_cast<unsigned char>(byte) >> 4U], DIGITS[static_cast<unsigned char>(byte) & 0x0FU]};
    }
    return text;
}

template<class T>
CForms FormsOf(const T& holder)
{
    CForms forms;
    vexa::CReport report;
    std::string dialect;
    const int code = vexa::ToJson(dialect, holder);
    forms.Dialect = code == 0 ? ValueIn(dialect, "{\"value\":", 1) : "code " + std::to_string(code);
    forms.Json = ValueIn(vexa::WriteJson(holder, {}, &report), "{\"value\":", 1) + report.AsString();
    std::string yaml = ValueIn(vexa::WriteYaml(holder), "value:", 1);
    forms.Yaml = yaml.substr(yaml.compare(0, 1, " ") == 0 || yaml.compare(0, 1, "\n") == 0 ? 1 : 0);
    forms.Cbor = Hexadecimal(ValueIn(vexa::WriteCbor(holder), "\xA1\x65value", 0));
    return forms;
}

/// The row of a type: \p fill gives a holder its value. Where it has \p read false, it is written only.
template<class T, class Fill>
CRow Row(std::string type, Fill fill, CForms expected, bool read = true)
{
    CRow row{std::move(type), std::move(expected), nullptr, nullptr};
    row.Write = [fill] {
        Holder<T> holder;
        fill(holder.value);
        return FormsOf(holder);
    };
    if (!read) return row;
    row.Rewrite = [fill] {
        Holder<T> holder;
        fill(holder.value);
        Holder<T> fromJson, fromYaml, fromCbor;
        vexa::CReport report;
        vexa::ReadJson(fromJson, vexa::WriteJson(holder), report);
        vexa::ReadYaml(fromYaml, vexa::WriteYaml(holder), report);
        vexa::ReadCbor(fromCbor, vexa::WriteCbor(holder), report);
        return std::vector<std::string>{report.AsString(), vexa::WriteJson(fromJson), vexa::WriteJson(fromYaml),
                                        vexa::WriteJson(fromCbor)};
    };
    return row;
}

/// Where the value is what one expression gives.
#define TYPE_ROW(Type, value, ...)                                                                                     \
    Row<Type>(                                                                                                         \
        #Type, [](auto& held) { held = value; }, __VA_ARGS__)

} // namespace vexa_test::types_table

template<class T>
struct vexa::Describes<vexa_test::types_table::Holder<T>> {
    static constexpr const char* NAME = "Holder";
    static void Describe(vexa::CDescription<vexa_test::types_table::Holder<T>>& about)
    {
        about.Attrib("value", &vexa_test::types_table::Holder<T>::value);
    }
};

#endif
