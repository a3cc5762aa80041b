#ifndef VEXA_TESTS_SUPPORT_RANDOM_STANDARD_JSON_H
#define VEXA_TESTS_SUPPORT_RANDOM_STANDARD_JSON_H

#include <iterator>
#include <string>

#include "support/random_values.h"

/// Random texts of standard JSON (RFC 8259): every form that the grammar has, and texts that are broken a little.

namespace vexa_test {

class RandomStandardJson {
public:
    /// Some exponents are up to \p largestExponent; a double holds them up to about 300.
    explicit RandomStandardJson(Random& random, std::size_t largestExponent = 340)
        : m_random(random), m_largestExponent(largestExponent)
    {
    }

    /// A value, with blanks around and in it.
    std::string Text(int depth = 5) { return Blank() + Value(depth) + Blank(); }

    /// The same with a few bytes changed, left out, put in, doubled or moved. It may still be JSON.
    std::string Mutated(std::string text)
    {
        for (std::size_t left = 1 + m_random.Below(3); left > 0; --left)
            MutateOnce(text);
        return text;
    }

    std::string Number()
    {
        std::string text = m_random.OneIn(3) ? "-" : "";
        text += m_random.OneIn(3) ? "0" : Digits(true);
        if (m_random.OneIn(3)) text += '.' + Digits(false);
        if (m_random.OneIn(4))
            text += std::string(1, "eE"[m_random.Below(2)]) + std::string(SIGNS[m_random.Below(3)]) +
                    std::to_string(m_random.Below(m_random.OneIn(4) ? m_largestExponent : 12));
        return text;
    }
    std::string String()
    {
        std::string text = "\"";
        for (std::size_t left = m_random.OneIn(6) ? m_random.Below(60) : m_random.Below(9); left > 0; --left)
            text += m_random.OneIn(4) ? PARTS[m_random.Below(std::size(PARTS))]
                                      : std::string(1, static_cast<char>('a' + m_random.Below(26)));
        return text + '"';
    }

private:
    static constexpr const char* SIGNS[] = {"", "+", "-"};
    static constexpr const char* PARTS[] = {" ",
                                            "\\\"",
                                            "\\\\",
                                            "\\/",
                                            "\\b",
                                            "\\f",
                                            "\\n",
                                            "\\r",
                                            "\\t",
                                            "\\u0000",
                                            "\\u00e4",
                                            "\\uFFFF",
                                            "\\ud83d\\ude00",
                                            "\\uDBFF\\uDFFF",
                                            "\x7F",
                                            "\xC2\x80",
                                            "\xC3\xA4",
                                            "\xDF\xBF",
                                            "\xE0\xA0\x80",
                                            "\xED\x9F\xBF",
                                            "\xEE\x80\x80",
                                            "\xEF\xBF\xBF",
                                            "\xF0\x90\x80\x80",
                                            "\xF4\x8F\xBF\xBF",
                                            "/",
                                            "{",
                                            "]",
                                            "\\u0041"};
    /// What breaks a text in a way that a scanner may miss.
    static constexpr const char* BREAKS[] = {",",
                                             ":",
                                             "[",
                                             "]",
                                             "{",
                                             "}",
                                             "\"",
                                             "\\",
                                             "0",
                                             "-",
                                             "+",
                                             ".",
                                             "e",
                                             "E5",
                                             "01",
                                             "1.",
                                             ".5",
                                             "1e",
                                             "nan",
                                             "NaN",
                                             "inf",
                                             "tru",
                                             "true",
                                             "null",
                                             "nul",
                                             "[]",
                                             "{}",
                                             "\x01",
                                             "\x1F",
                                             "\x80",
                                             "\xC0\x80",
                                             "\xC3",
                                             "\xE0\x80\x80",
                                             "\xED\xA0\x80",
                                             "\xF5\x80\x80\x80",
                                             "\xF4\x90\x80\x80",
                                             "\xF0\x80\x80\x80",
                                             "\xFF",
                                             "\\u",
                                             "\\u12",
                                             "\\uD800",
                                             "\\uDC00",
                                             "\\uD800\\u0041",
                                             "\\ud83d\\ude0",
                                             "\\x",
                                             "\\u00G0",
                                             " ",
                                             "\t",
                                             "\n",
                                             "\r",
                                             "\f",
                                             "\v",
                                             "//",
                                             "/**/",
                                             "#",
                                             "'a'",
                                             "\"\"",
                                             "\"a\":",
                                             "\xEF\xBB\xBF",
                                             "\xC2\xA0",
                                             "1e400",
                                             "-0",
                                             "--1"};

    std::string Blank()
    {
        std::string blank;
        while (m_random.OneIn(6))
            blank += " \t\r\n"[m_random.Below(4)];
        return blank;
    }
    std::string Digits(bool isWhole)
    {
        std::string digits;
        for (std::size_t left = 1 + m_random.Below(m_random.OneIn(5) ? 30 : 6); left > 0; --left)
            digits += static_cast<char>('0' + m_random.Below(10));
        if (isWhole && digits[0] == '0') digits[0] = '7';
        return digits;
    }
    std::string Value(int depth)
    {
        switch (m_random.Below(depth > 0 ? 9 : 5)) {
        case 0: return m_random.OneOf<const char*>({"true", "false", "null"});
        case 1:
        case 2: return Number();
        case 3:
        case 4: return String();
        case 5:
        case 6: return Array(depth - 1);
        default: return Object(depth - 1);
        }
    }
    std::string Array(int depth)
    {
        std::string text = "[" + Blank();
        for (std::size_t i = 0, count = m_random.Below(5); i < count; ++i)
            text += (i > 0 ? "," : "") + Blank() + Value(depth) + Blank();
        return text + ']';
    }
    std::string Object(int depth)
    {
        std::string text = "{" + Blank();
        for (std::size_t i = 0, count = m_random.Below(5); i < count; ++i)
            text += (i > 0 ? "," : "") + Blank() + (m_random.OneIn(6) ? "\"again\"" : String()) + Blank() + ':' +
                    Blank() + Value(depth) + Blank();
        return text + '}';
    }

    void MutateOnce(std::string& text)
    {
        const std::size_t at = m_random.Below(text.size() + 1);
        const std::size_t length = m_random.Below(m_random.OneIn(4) ? 20 : 3);
        switch (m_random.Below(6)) {
        case 0: text.insert(at, BREAKS[m_random.Below(std::size(BREAKS))]); break;
        case 1: text.erase(at, 1 + length); break;
        case 2: text.resize(at); break;
        case 3: text.insert(m_random.Below(text.size() + 1), text.substr(at, 1 + length)); break;
        case 4: text.replace(at, length, BREAKS[m_random.Below(std::size(BREAKS))]); break;
        default:
            if (at < text.size()) text[at] = static_cast<char>(m_random.Bits());
        }
    }

    Random& m_random;
    std::size_t m_largestExponent;
};

} // namespace vexa_test

#endif
