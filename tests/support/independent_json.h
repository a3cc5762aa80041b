#ifndef VEXA_TESTS_SUPPORT_INDEPENDENT_JSON_H
#define VEXA_TESTS_SUPPORT_INDEPENDENT_JSON_H

#include <cstdio>
#include <cstdlib>
#include <string>

#include <nlohmann/json.hpp>
#include <vexa/json_tree.h>

/// What an independent parser says of a text, and whether a tree holds the same value.

namespace vexa_test {

using Json = nlohmann::json;

/// By hand.
inline std::string Base64Of(const std::string& bytes)
{
    static const char LETTERS[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    for (std::size_t i = 0; i < bytes.size(); i += 3) {
        unsigned long word = 0;
        for (std::size_t j = i; j < i + 3; ++j)
            word = word << 8 | (j < bytes.size() ? static_cast<unsigned char>(bytes[j]) : 0U);
        for (std::size_t j = 0; j < 4; ++j)
            text += i + j > bytes.size() ? '=' : LETTERS[word >> (18 - 6 * j) & 63];
    }
    return text;
}

enum class Verdict { REFUSED, ACCEPTED, UNKNOWN };

/// What the other parser says. It knows doubles only, ends a text at a NUL byte and passes over a mark of the byte
/// order: of such texts it says nothing.
inline Verdict VerdictOnText(const std::string& text, Json& value)
{
    const bool hasMark = !text.empty() && text[0] == '\xEF';
    if (hasMark || text.find('\0') != std::string::npos) return Verdict::UNKNOWN;
    try {
        value = Json::parse(text);
        return Verdict::ACCEPTED;
    } catch (const Json::out_of_range&) {
        return Verdict::UNKNOWN;
    } catch (const Json::exception&) {
        return Verdict::REFUSED;
    }
}

inline bool IsSame(const vexa::CJsonTree& tree, const Json& json);

inline bool IsSameNumber(const vexa::CJsonTree& tree, const Json& json)
{
    if (!json.is_number()) return false;
    const std::string digits(tree.AsDigits().value_or(""));
    if (json.is_number_integer() && digits != "-0") return json.dump() == digits;
    return tree.AsDouble() == json.get<double>() && json.get<double>() == std::strtod(digits.c_str(), nullptr);
}
inline bool IsSameArray(const vexa::CJsonTree& tree, const Json& json)
{
    if (!json.is_array() || json.size() != tree.Size()) return false;
    for (std::size_t i = 0; i < json.size(); ++i) {
        if (!IsSame(tree[i], json[i])) return false;
    }
    return true;
}
inline bool IsSameObject(const vexa::CJsonTree& tree, const Json& json)
{
    if (!json.is_object() || json.size() != tree.Size()) return false;
    for (const vexa::CJsonTree::CMember& member : tree.Members()) {
        const auto found = json.find(member.Key());
        if (found == json.end() || !IsSame(member.Value, *found)) return false;
    }
    return true;
}
inline bool IsSame(const vexa::CJsonTree& tree, const Json& json)
{
    switch (tree.Kind()) {
    case vexa::JsonKind::NULL_VALUE: return json.is_null();
    case vexa::JsonKind::BOOL: return json.is_boolean() && tree.AsBool() == json.get<bool>();
    case vexa::JsonKind::NUMBER: return IsSameNumber(tree, json);
    case vexa::JsonKind::TEXT: return json.is_string() && tree.AsText() == json.get_ref<const std::string&>();
    case vexa::JsonKind::ARRAY: return IsSameArray(tree, json);
    case vexa::JsonKind::OBJECT: return IsSameObject(tree, json);
    }
    return false;
}

/// Bytes as a message shows them.
inline std::string Shown(const std::string& text)
{
    std::string shown;
    for (const char byte : text) {
        char form[8];
        const auto code = static_cast<unsigned char>(byte);
        std::snprintf(form, sizeof form, code >= 0x20 && code < 0x7F ? "%c" : "\\x%02X", code);
        shown += form;
    }
    return shown;
}

} // namespace vexa_test

#endif
