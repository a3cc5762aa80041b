#ifndef VEXA_TESTS_ACCEPTANCE_ISO_TEXT_H
#define VEXA_TESTS_ACCEPTANCE_ISO_TEXT_H

#include <cstddef>
#include <map>
#include <string>
#include <vector>

/// \file
/// A second opinion about the JSON files of iso-codes, which shares no code with the library: one object with one key
/// that holds an array of objects, all of whose values are strings.

namespace vexa_test {

using IsoRecord = std::map<std::string, std::string>;

inline bool IsBlank(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; }

/// The string that begins at text[position], which is a quotation mark; moves position past it. Of the escapes it knows
/// \/ and \u00XX, all that text without quotation marks and control characters needs. A string that is not closed is
/// empty, and position is then the end.
inline std::string TakeString(const std::string& text, std::size_t& position)
{
    std::string string;
    for (++position; position < text.size(); ++position) {
        if (text[position] == '"') {
            ++position;
            return string;
        }
        if (text[position] != '\\') {
            string += text[position];
        } else if (text[++position] == 'u') {
            string += static_cast<char>(std::stoi(text.substr(position + 1, 4), nullptr, 16));
            position += 4;
        } else {
            string += text[position];
        }
    }
    return "";
}

/// The records of a file, or of the beginning of one. A value whose string has begun counts, as an empty one.
inline std::vector<IsoRecord> IsoRecordsOf(const std::string& text)
{
    std::vector<IsoRecord> objects;
    std::string key;
    bool isValue = false;
    for (std::size_t position = 0; position < text.size();) {
        const char c = text[position];
        if (c == '"') {
            const std::string string = TakeString(text, position);
            if (isValue)
                objects.back()[key] = string;
            else
                key = string;
            continue;
        }
        if (c == '{') objects.emplace_back();
        if (c == ':') isValue = true;
        if (c == ',' || c == '{') isValue = false;
        ++position;
    }
    if (!objects.empty()) objects.erase(objects.begin()); // the file itself
    return objects;
}

/// The same text as a compact writer gives it: without blanks, and every byte outside printable ASCII escaped.
inline std::string CompactIsoText(const std::string& text)
{
    static const char* const DIGITS = "0123456789abcdef";
    std::string compact;
    bool isString = false;
    for (const char c : text) {
        if (c == '"') isString = !isString;
        if (!isString && IsBlank(c)) continue;
        const auto byte = static_cast<unsigned char>(c);
        if (isString && c == '/') {
            compact += "\\/";
        } else if (byte < 0x20 || byte > 0x7E) {
            compact += std::string("\\u00") + DIGITS[byte >> 4] + DIGITS[byte & 15];
        } else {
            compact += c;
        }
    }
    return compact;
}

/// What a reader that looks for a file finds missing where its text ends: the result code of vexa::FromJson, 0 for a
/// whole one.
class IsoEnd {
public:
    int Code() const { return m_code; }

    void Take(char c)
    {
        if (m_isString)
            TakeInString(c);
        else if (IsBlank(c))
            m_code = m_code == 725 ? 674 : m_code == 891 ? 842 : m_code;
        else
            TakeSign(c);
    }

private:
    void TakeInString(char c)
    {
        if (c != '"') return;
        m_isString = false;
        m_code = m_isKey ? 693 : 708;
    }
    void TakeSign(char c)
    {
        switch (c) {
        case '"':
            m_isString = true;
            m_code = m_isKey ? 683 : 596;
            break;
        case ':':
            m_isKey = false;
            m_code = 698;
            break;
        case ',':
            m_isKey = m_open.back() == '{';
            m_code = m_isKey ? 725 : 891;
            break;
        case '{':
        case '[':
            m_open += c;
            m_isKey = true;
            m_code = c == '{' ? 725 : 805;
            break;
        default: m_open.pop_back(); m_code = m_open.empty() ? 0 : m_open.back() == '{' ? 708 : 873;
        }
    }

    std::string m_open; // the braces and brackets that are not closed yet
    bool m_isString = false;
    bool m_isKey = false;
    int m_code = 0;
};

} // namespace vexa_test

#endif
