#ifndef VEXA_TESTS_SUPPORT_SECRET_TEXTS_H
#define VEXA_TESTS_SUPPORT_SECRET_TEXTS_H

#include <atomic>
#include <bitset>
#include <chrono>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <tuple>
#include <variant>
#include <vector>

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "support/random_values.h"

/// Described classes with confidential attributes of every kind, texts for them whose confidential values are words
/// that occur nowhere else, and the search for such words in a report.

namespace vexa_test::secrets {

/// A custom type whose converter says what it was given.
struct Talkative {
    std::string text;
    void ToValue(vexa::CValue& out) const { out = text; }
    void FromValue(const vexa::CValue& in)
    {
        if (in.As_std_string().size() != 3) throw std::runtime_error("cannot take " + in.As_std_string());
        text = in.As_std_string();
    }
};
VEXA_DESCRIBE_CUSTOM_ANY(Talkative, 31)

struct Note {
    std::string words;
    int count = 0;
};
VEXA_DESCRIBE(Note, words, count)

struct Card {
    std::string owner;
    long number = 0;
    std::string code;
    int limit = 0;
};
VEXA_DESCRIBE_CLASS(Card)
{
    about.Attrib("owner", &Card::owner);
    about.Attrib("number", &Card::number).Masked();
    about.Attrib("code", &Card::code).Masked();
    about.Attrib("limit", &Card::limit);
}

enum class Metal { gold, silver };
VEXA_DESCRIBE_ENUM(Metal, gold, silver)

/// What stands for what is kept in a vault, which says what it is.
struct Treasure {
    virtual ~Treasure() = default;
    std::string story;
};
struct Coins : Treasure {
    int count = 0;
};
VEXA_DESCRIBE_CLASS(Treasure)
{
    about.Tag("kind");
    about.Attrib("story", &Treasure::story);
}
VEXA_DESCRIBE_CLASS(Coins)
{
    about.Base<Treasure>();
    about.TagValue("coins");
    about.Attrib("count", &Coins::count);
}

struct Vault {
    std::string title;
    bool isOpen = false;
    double ratio = 0;
    Card card;
    std::vector<Card> cards;
    std::map<std::string, Card> byName;
    std::unique_ptr<Vault> inner;
    std::vector<std::string> passwords;
    std::map<std::string, std::string> phrases;
    std::map<std::string, Note> notes;
    Note remark;
    vexa::MayNull<std::string> pin;
    vexa::CDateTime birthday;
    vexa::CBinary fingerprint;
    vexa::CNumeric balance;
    std::bitset<8> flags;
    char letters[4] = {};
    unsigned char age = 0;
    double height = 0;
    bool isWanted = false;
    Talkative talkative;
    vexa::CValue anything;
    vexa::CRow row;
    vexa::CTable table;
    int pair[2] = {};
    std::optional<std::string> hint;
    std::optional<Note> memo;
    std::variant<int, bool, Note> either;
    Metal metal = Metal::gold;
    std::map<Metal, int> weights;
    std::map<int, std::string> byNumber;
    std::map<double, std::string> byReal;
    std::unique_ptr<Treasure> treasure;
    std::vector<std::shared_ptr<Treasure>> treasures;
    std::tuple<int, std::string> tuple;
    std::vector<bool> bits;
    std::atomic<int> counter{0};
    std::chrono::seconds wait{};
    std::chrono::system_clock::time_point opened;
    std::filesystem::path path;
    vexa::CJsonTree tree;
};
VEXA_DESCRIBE_CLASS(Vault)
{
    about.Attrib("title", &Vault::title);
    about.Attrib("isOpen", &Vault::isOpen);
    about.Attrib("ratio", &Vault::ratio);
    about.Attrib("card", &Vault::card);
    about.Attrib("cards", &Vault::cards);
    about.Attrib("byName", &Vault::byName);
    about.Attrib("inner", &Vault::inner);
    about.Attrib("passwords", &Vault::passwords).Masked();
    about.Attrib("phrases", &Vault::phrases).Masked();
    about.Attrib("notes", &Vault::notes).Masked();
    about.Attrib("remark", &Vault::remark).Masked();
    about.Attrib("pin", &Vault::pin).Masked();
    about.Attrib("birthday", &Vault::birthday).Masked();
    about.Attrib("fingerprint", &Vault::fingerprint).Masked();
    about.Attrib("balance", &Vault::balance).Masked();
    about.Attrib("flags", &Vault::flags).Masked();
    about.Attrib("letters", &Vault::letters).Masked();
    about.Attrib("age", &Vault::age).Masked();
    about.Attrib("height", &Vault::height).Masked();
    about.Attrib("isWanted", &Vault::isWanted).Masked();
    about.Attrib("talkative", &Vault::talkative).Masked();
    about.Attrib("anything", &Vault::anything).Masked();
    about.Attrib("row", &Vault::row).Masked();
    about.Attrib("table", &Vault::table).Masked();
    about.Attrib("pair", &Vault::pair).Masked();
    about.Attrib("hint", &Vault::hint).Masked();
    about.Attrib("memo", &Vault::memo).Masked();
    about.Attrib("either", &Vault::either).Masked();
    about.Attrib("metal", &Vault::metal).Masked();
    about.Attrib("weights", &Vault::weights).Masked().Length(1, 2);
    about.Attrib("byNumber", &Vault::byNumber).Masked();
    about.Attrib("byReal", &Vault::byReal).Masked();
    about.Attrib("treasure", &Vault::treasure).Masked();
    about.Attrib("treasures", &Vault::treasures).Masked();
    about.Attrib("tuple", &Vault::tuple).Masked();
    about.Attrib("bits", &Vault::bits).Masked().Length(1, 2);
    about.Attrib("counter", &Vault::counter).Masked().Range(1, 2);
    about.Attrib("wait", &Vault::wait).Masked().Range(1, 2);
    about.Attrib("opened", &Vault::opened).Masked();
    about.Attrib("path", &Vault::path).Masked().Length(1, 2);
    about.Attrib("tree", &Vault::tree).Masked();
}

/// A word that is confidential, and all that stands between the key of its attribute and its end.
struct CSecret {
    std::string Word;
    std::string Context;
};

/// Texts for a Vault, more often than not with values that do not fit.
class RandomVault {
public:
    explicit RandomVault(Random& random) : m_random(random) {}

    std::string Text(int depth = 2)
    {
        std::string text = "{";
        for (std::size_t left = 1 + m_random.Below(6); left > 0; --left)
            text += (text.size() > 1 ? "," : "") + Line() + Attribute(depth);
        return text + Line() + '}';
    }
    const std::vector<CSecret>& Secrets() const { return m_secrets; }

private:
    std::string Line() { return m_random.OneIn(3) ? "\n  " : ""; }

    std::string Attribute(int depth)
    {
        switch (m_random.Below(depth > 0 ? 9 : 5)) {
        case 0: return R"("title":)" + Harmless();
        case 1: return R"("isOpen":)" + Harmless();
        case 2: return R"("ratio":)" + Harmless();
        case 3: return R"("card":)" + CardText();
        case 4: return R"("cards":[)" + CardText() + ',' + CardText() + ']';
        case 5: return R"("byName":{"ann":)" + CardText() + '}';
        case 6: return R"("inner":)" + Text(depth - 1);
        default: return Confidential(MaskedKey(), 2);
        }
    }
    std::string MaskedKey()
    {
        static const char* const KEYS[] = {"passwords", "phrases", "notes", "remark", "pin", "birthday", "fingerprint",
                                           "balance", "flags", "letters", "age", "height", "isWanted", "talkative",
                                           "anything", "row", "table", "pair", "hint", "memo", "either", "metal",
                                           "weights", "byNumber", "byReal", "treasure", "treasures", "tuple", "bits",
                                           "counter", "wait", "opened", "path", "tree",
                                           // unknown, but meant for one of them
                                           "password", "Pin", "birthdate", "unheard_of"};
        return KEYS[m_random.Below(std::size(KEYS))];
    }
    std::string CardText()
    {
        std::string text = "{";
        if (m_random.OneIn(2)) text += R"("owner":)" + Harmless() + ',';
        if (m_random.OneIn(2)) text += R"("limit":)" + Harmless() + ',' + Line();
        static const char* const KEYS[] = {"number", "code", "cod", "numbers"};
        return text + Confidential(KEYS[m_random.Below(std::size(KEYS))], 1) + '}';
    }
    std::string Harmless()
    {
        return m_random.OneOf<const char*>({"7", "-1.5", "\"text\"", "true", "null", "[]", "{}", "1e400", "[1]"});
    }

    std::string Confidential(const std::string& key, int depth)
    {
        std::string text = '"' + key + "\":";
        AddSecretValue(text, depth);
        return text;
    }
    /// Appends a value to \p context, which begins with its attribute's key.
    void AddSecretValue(std::string& context, int depth)
    {
        switch (m_random.Below(depth > 0 ? 8 : 5)) {
        case 0:
        case 1: AddWord(context, "\"", "\""); break;
        case 2: AddNumber(context); break;
        case 3: AddWord(context, "\"2024-13-01T", "\""); break;
        case 4: context += "null"; break;
        case 5:
            context += '[';
            AddSecretValue(context, depth - 1);
            context += ',';
            AddSecretValue(context, depth - 1);
            context += ']';
            break;
        default:
            AddWord(context += '{', "\"", "\":");
            AddSecretValue(context, depth - 1);
            if (m_random.OneIn(2)) {
                context += m_random.OneIn(2) ? R"(,"words":)" : R"(,"count":)";
                AddSecretValue(context, depth - 1);
            }
            context += '}';
        }
    }
    void AddWord(std::string& context, const char* before, const char* behind)
    {
        static constexpr std::string_view LETTERS = "qzxjkvw0123456789";
        std::string word = "z";
        while (word.size() < 14)
            word += LETTERS[m_random.Below(LETTERS.size())];
        context += before + word;
        m_secrets.push_back({word, context});
        context += behind;
    }
    void AddNumber(std::string& context)
    {
        std::string digits = std::to_string(100000000000 + m_random.Below(899999999999));
        if (m_random.OneIn(2)) digits += '.' + std::to_string(100000000 + m_random.Below(899999999));
        context += digits;
        m_secrets.push_back({digits, context});
    }

    Random& m_random;
    std::vector<CSecret> m_secrets;
};

/// So many bytes of a secret one behind the other give it away.
inline constexpr std::size_t TELLING = 6;

inline std::size_t CountOf(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + 1))
        ++count;
    return count;
}

/// Whether brackets that are missing may have made a key inside a confidential attribute one of another object's.
inline bool IsStrayKey(const std::string& text, const std::string& word)
{
    if (text.find('"' + word + "\":") == std::string::npos) return false;
    vexa::CJsonTree tree;
    vexa::CReport report;
    return !vexa::ReadJson(tree, text, report);
}

/// Whether the word still stands where it is confidential, and nowhere else: a changed text may give it away itself.
inline bool IsStillSecret(const std::string& text, const CSecret& secret)
{
    if (IsStrayKey(text, secret.Word)) return false;
    const std::size_t count = CountOf(text, secret.Context);
    for (std::size_t i = 0; i + TELLING <= secret.Word.size(); ++i) {
        if (CountOf(text, secret.Word.substr(i, TELLING)) != count) return false;
    }
    return count > 0;
}

/// Everything that a report says, in every form.
inline std::vector<std::string> AllTexts(const vexa::CReport& report, const std::string& text)
{
    std::vector<std::string> all = {report.AsString(), report.AsString(text), vexa::WriteJson(report)};
    for (const vexa::CProblem& problem : report.Problems()) {
        all.insert(all.end(), {problem.Path, problem.Pointer, problem.Class, problem.Attrib, problem.Expected,
                               problem.Found, problem.Nearest, problem.Excerpt, problem.Sentence()});
    }
    return all;
}

/// The first text in which six bytes of the secret stand one behind the other; empty if there is none.
inline std::string FindLeak(const std::vector<std::string>& texts, const std::string& word)
{
    for (const std::string& text : texts) {
        for (std::size_t i = 0; i + TELLING <= word.size(); ++i) {
            if (text.find(word.substr(i, TELLING)) != std::string::npos) return text;
        }
    }
    return "";
}

/// What of a text's secrets stands in the report of reading it; empty if nothing does.
inline std::string LeakOf(const std::vector<CSecret>& secrets, const vexa::CReport& report, const std::string& text)
{
    const std::vector<std::string> all = AllTexts(report, text);
    for (const CSecret& secret : secrets) {
        if (!IsStillSecret(text, secret)) continue;
        const std::string leak = FindLeak(all, secret.Word);
        if (!leak.empty()) return secret.Word + " in: " + leak;
    }
    return "";
}

} // namespace vexa_test::secrets

#endif
