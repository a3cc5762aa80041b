#ifndef VEXA_TYPEINFO_QUALIFIED_NAME_H
#define VEXA_TYPEINFO_QUALIFIED_NAME_H

#include <algorithm>
#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace vexa::typeinfo {

namespace qualified_name {

inline bool IsWordByte(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z') ||
           byte == '_' || byte == '$' || byte >= 0x80;
}

template<std::size_t SIZE>
inline bool IsAnyOf(std::string_view text, const std::array<std::string_view, SIZE>& texts)
{
    return std::find(texts.begin(), texts.end(), text) != texts.end();
}

/// The words of one arithmetic type, which the compilers put in different orders.
class CArithmeticWords {
public:
    bool Take(std::string_view word)
    {
        if (word == "long")
            ++m_longs;
        else if (word == "unsigned" || word == "signed")
            m_sign = word;
        else if (word == "short" || word == "char" || word == "double")
            m_kind = word;
        else if (word != "int")
            return false;
        m_isEmpty = false;
        return true;
    }
    bool IsEmpty() const { return m_isEmpty; }
    std::string Text() const
    {
        const bool isChar = m_kind == "char";
        std::string text(m_sign == "signed" && !isChar ? "" : m_sign);
        const auto append = [&text](std::string_view word) {
            if (!text.empty()) text += ' ';
            text += word;
        };
        for (int i = 0; i < m_longs; ++i)
            append("long");
        if (!m_kind.empty()) append(m_kind);
        if (m_longs == 0 && m_kind.empty()) append("int");
        return text;
    }

private:
    bool m_isEmpty = true;
    int m_longs = 0;
    std::string_view m_sign, m_kind;
};

inline constexpr std::array<std::string_view, 12> CONTAINERS = {
    "std::vector",        "std::deque",         "std::list",
    "std::set",           "std::multiset",      "std::map",
    "std::multimap",      "std::unordered_set", "std::unordered_multiset",
    "std::unordered_map", "std::basic_string",  "std::unordered_multimap"};
inline constexpr std::array<std::string_view, 5> DEFAULTS = {"std::allocator", "std::char_traits", "std::less",
                                                             "std::hash", "std::equal_to"};

inline std::string_view TemplateOf(std::string_view type) { return type.substr(0, type.find('<')); }

/// GCC also writes the arguments that the standard library has by default.
inline void DropDefaults(std::string_view name, std::vector<std::string>& arguments)
{
    const bool isPointer = name == "std::unique_ptr";
    if (!isPointer && !IsAnyOf(name, CONTAINERS)) return;
    const auto isDefault = [isPointer](std::string_view argument) {
        return isPointer ? argument == "std::default_delete" : IsAnyOf(argument, DEFAULTS);
    };
    while (arguments.size() > 1 && isDefault(TemplateOf(arguments.back())))
        arguments.pop_back();
}

/// Reads a type's name and writes it anew.
class CNameReader {
public:
    explicit CNameReader(std::string_view text) : m_rest(text) {}

    /// Up to what does not belong to it.
    std::string Name()
    {
        std::string name;
        if (++m_depth > MAX_DEPTH) m_hasFailed = true;
        while (!m_rest.empty() && !m_hasFailed && NameGoesOn(name)) {
        }
        --m_depth;
        return name;
    }
    /// Whether all of it has been read.
    bool IsWhole() const { return m_rest.empty() && !m_hasFailed; }

private:
    static constexpr int MAX_DEPTH = 100;

    bool NameGoesOn(std::string& name)
    {
        constexpr std::string_view UNNAMED = "{anonymous}";
        const char c = m_rest.front();
        if (c == ',' || c == '>' || c == ')' || c == ']' || c == ';') return false;
        if (IsWordByte(c)) {
            AppendWords(name);
        } else if (m_rest.substr(0, UNNAMED.size()) == UNNAMED) {
            m_rest.remove_prefix(UNNAMED.size());
            if (!name.empty() && IsWordByte(name.back())) name += ' ';
            name += "(anonymous namespace)";
        } else if (c == '<') {
            AppendArguments(name);
        } else if (c == '(' || c == '[') {
            AppendEnclosed(name, c, c == '(' ? ')' : ']');
        } else if (c == '\'') {
            AppendCharacter(name);
        } else {
            m_rest.remove_prefix(1);
            if (c != ' ') name += c;
        }
        return true;
    }

    std::string_view TakeWord()
    {
        const auto end = std::find_if_not(m_rest.begin(), m_rest.end(), IsWordByte);
        const std::string_view word = m_rest.substr(0, static_cast<std::size_t>(end - m_rest.begin()));
        m_rest.remove_prefix(word.size());
        return word;
    }
    void AppendWords(std::string& name)
    {
        CArithmeticWords arithmetic;
        std::string_view word;
        for (;;) {
            const std::string_view before = m_rest;
            word = TakeWord();
            if (word.empty()) break;
            if (!arithmetic.Take(word)) {
                if (!arithmetic.IsEmpty()) m_rest = before;
                break;
            }
            m_rest.remove_prefix(std::min(m_rest.find_first_not_of(' '), m_rest.size()));
        }
        if (!name.empty() && (IsWordByte(name.back()) || name.back() == '>')) name += ' ';
        if (!arithmetic.IsEmpty())
            name += arithmetic.Text();
        else
            AppendWord(name, word);
    }
    void AppendWord(std::string& name, std::string_view word)
    {
        constexpr std::array<std::string_view, 2> INLINE_NAMESPACES = {"__cxx11", "__1"};
        const bool isOfStd = name.size() >= 5 && name.compare(name.size() - 5, 5, "std::") == 0;
        if (isOfStd && IsAnyOf(word, INLINE_NAMESPACES) && m_rest.substr(0, 2) == "::") return m_rest.remove_prefix(2);
        const bool isNumber = word.front() >= '0' && word.front() <= '9';
        name += isNumber ? word.substr(0, word.find_last_not_of("uUlL") + 1) : word;
    }

    /// What stands between brackets, separated by commas.
    std::vector<std::string> List(char end)
    {
        std::vector<std::string> items;
        m_rest.remove_prefix(1);
        while (!m_rest.empty() && !m_hasFailed) {
            items.push_back(Name());
            if (m_rest.empty() || (m_rest.front() != ',' && m_rest.front() != end)) break;
            const bool isEnd = m_rest.front() == end;
            m_rest.remove_prefix(1);
            if (isEnd) return items;
        }
        m_hasFailed = true;
        return items;
    }
    static std::string Joined(const std::vector<std::string>& items)
    {
        std::string text;
        for (const std::string& item : items) {
            if (&item != &items.front()) text += ", ";
            text += item;
        }
        return text;
    }
    void AppendEnclosed(std::string& name, char begin, char end)
    {
        const std::string text = Joined(List(end));
        if (text == "anonymous namespace" && !name.empty() && IsWordByte(name.back())) name += ' ';
        name += begin;
        name += text;
        name += end;
    }
    void AppendArguments(std::string& name)
    {
        std::vector<std::string> arguments = List('>');
        const auto isOfName = [](char c) { return IsWordByte(c) || c == ':'; };
        const auto start = std::find_if_not(name.rbegin(), name.rend(), isOfName).base();
        const auto place = static_cast<std::size_t>(start - name.begin());
        DropDefaults(std::string_view(name).substr(place), arguments);
        name += '<' + Joined(arguments) + '>';
        constexpr std::array<std::array<std::string_view, 2>, 4> TEXTS = {
            {{"std::basic_string<char>", "std::string"},
             {"std::basic_string<wchar_t>", "std::wstring"},
             {"std::basic_string<char16_t>", "std::u16string"},
             {"std::basic_string<char32_t>", "std::u32string"}}};
        for (const auto& [text, usual] : TEXTS)
            if (name.compare(place, std::string::npos, text) == 0) name.replace(place, std::string::npos, usual);
    }
    void AppendCharacter(std::string& name)
    {
        const std::size_t escape = m_rest.size() > 1 && m_rest[1] == '\\' ? 3 : 2;
        const std::size_t end = std::min(m_rest.find('\'', escape), m_rest.size() - 1) + 1;
        name += m_rest.substr(0, end);
        m_rest.remove_prefix(end);
    }

    std::string_view m_rest;
    int m_depth = 0;
    bool m_hasFailed = false;
};

} // namespace qualified_name

/// The name of a class out of the text in which GCC or Clang describes a function template made for it, `... [with T =
/// shop::Circle]` or `... [T = shop::Circle]`, normalized.
inline std::string QualifiedName(std::string_view spelled)
{
    constexpr std::string_view START = "T = ";
    const std::size_t place = spelled.find(START);
    return place != std::string_view::npos ? qualified_name::CNameReader(spelled.substr(place + START.size())).Name()
                                           : std::string();
}

/// A type's name as both compilers agree on it, from what either of them writes, or an application.
inline std::string NormalizedName(std::string_view name)
{
    qualified_name::CNameReader reader(name);
    std::string normalized = reader.Name();
    return reader.IsWhole() ? normalized : std::string(name);
}

} // namespace vexa::typeinfo

#endif
