#ifndef VEXA_TESTS_SUPPORT_SECRET_TEXTS_H
#define VEXA_TESTS_SUPPORT_SECRET_TEXTS_H

#include <string>
#include <utility>
#include <vector>

#include "support/random_values.h"
#include "support/secret_classes.h"
#include "support/secret_leaks.h"

/// Texts for a Vault whose confidential values are words that occur nowhere else.

namespace vexa_test::secrets {

/// Texts for a Vault, more often than not with values that do not fit.
class RandomVault {
public:
    explicit RandomVault(Random& random) : m_random(random) {}

    std::string Text()
    {
        m_text.clear();
        AddVault(2);
        return std::move(m_text);
    }
    const std::vector<CSecret>& Secrets() const { return m_secrets; }

private:
    using Add = void (RandomVault::*)();

    void Put(const char* text) { m_text += text; }
    void AddLine() { Put(m_random.OneIn(3) ? "\n  " : ""); }
    const char* OneOf(std::initializer_list<const char*> choices) { return m_random.OneOf(choices); }

    /// A key, and what \p add puts behind it: all of it belongs to one attribute.
    template<class AddRest>
    void AddAttribute(const char* key, AddRest add)
    {
        const std::size_t outer = std::exchange(m_start, m_text.size());
        m_text.append("\"").append(key).append("\":");
        add();
        m_start = outer;
    }
    template<class AddOne>
    void AddMembers(std::size_t count, AddOne addOne)
    {
        Put("{");
        for (std::size_t i = 0; i < count; ++i) {
            if (i != 0) Put(",");
            AddLine();
            addOne();
        }
        AddLine();
        Put("}");
    }

    void AddVault(int depth)
    {
        AddMembers(1 + m_random.Below(6), [&] {
            const std::size_t kind = m_random.Below(8);
            if (kind == 0)
                AddHarmless({"title", "isOpen", "ratio"});
            else if (kind < 3)
                AddConfidential(MaskedKey(), 2);
            else if (kind == 3 && depth > 0)
                AddAttribute("inner", [&] { AddVault(depth - 1); });
            else
                AddStructure();
        });
    }
    const char* MaskedKey()
    {
        return OneOf({"passwords", "phrases", "notes", "remark", "pin", "birthday", "fingerprint", "balance", "flags",
                      "letters", "age", "height", "isWanted", "talkative", "anything", "row", "table", "pair", "level",
                      "tip", "memo", "either", "metal", "weights", "byNumber", "byReal", "treasure", "treasures",
                      "tuple", "bits", "counter", "wait", "opened", "path", "tree",
                      // unknown, but meant for one of them
                      "password", "Pin", "birthdate", "unheard_of"});
    }
    void AddHarmless(std::initializer_list<const char*> keys)
    {
        AddAttribute(OneOf(keys), [&] {
            Put(OneOf({"7", "-1.5", "\"text\"", "true", "null", "[]", "{}", "1e400", "[1]"}));
        });
    }
    /// An attribute that has confidential ones somewhere inside.
    void AddStructure()
    {
        static const std::pair<const char*, Add> STRUCTURES[] = {
            {"card", &RandomVault::AddCard},       {"cards", &RandomVault::AddCards},
            {"drawer", &RandomVault::AddCards},    {"byName", &RandomVault::AddNamed},
            {"byLevel", &RandomVault::AddLevels},  {"numbered", &RandomVault::AddTuple},
            {"triple", &RandomVault::AddTuple},    {"many", &RandomVault::AddPairs},
            {"byCard", &RandomVault::AddPairs},    {"maybe", &RandomVault::AddCard},
            {"shared", &RandomVault::AddCard},     {"any", &RandomVault::AddCard},
            {"paid", &RandomVault::AddPayment},    {"owed", &RandomVault::AddDebt},
            {"person", &RandomVault::AddPerson},   {"people", &RandomVault::AddPeople},
            {"savings", &RandomVault::AddSavings}, {"keeper", &RandomVault::AddKeeper}};
        const auto& [key, add] = STRUCTURES[m_random.Below(std::size(STRUCTURES))];
        AddAttribute(key, [&, part = add] { AddPart(part); });
    }
    /// A value, or something confidential in the wrong place.
    void AddPart(Add add)
    {
        if (!m_random.OneIn(5)) return (this->*add)();
        if (m_random.OneIn(2)) return AddSecretScalar();
        Put("[");
        AddSecretScalar();
        Put("]");
    }
    template<class... Parts>
    void AddArray(Add first, Parts... others)
    {
        Put("[");
        AddPart(first);
        ((Put(","), AddPart(others)), ...);
        Put("]");
    }

    void AddCard()
    {
        AddMembers(m_random.Below(4), [&] { AddCardMember(); });
    }
    void AddCardMember()
    {
        if (m_random.OneIn(2)) return AddHarmless({"owner", "limit", "at_most_so_many", "\\u006cimit"});
        AddConfidential(OneOf({"number", "code", "passcode", "c\\u006fde", "cod", "numbers"}), 1);
    }
    void AddCards()
    {
        if (m_random.OneIn(3)) return AddArray(&RandomVault::AddCard);
        AddArray(&RandomVault::AddCard, &RandomVault::AddCard, &RandomVault::AddCard);
    }
    void AddNumber() { Put(OneOf({"1", "1.5", "\"one\"", "300", "null"})); }
    void AddTuple() { AddArray(&RandomVault::AddNumber, &RandomVault::AddCard, &RandomVault::AddNumber); }
    void AddOnePair()
    {
        if (m_random.OneIn(2)) return AddArray(&RandomVault::AddNumber, &RandomVault::AddCard);
        AddArray(&RandomVault::AddCard, &RandomVault::AddNumber);
    }
    void AddPairs() { AddArray(&RandomVault::AddOnePair, &RandomVault::AddOnePair); }
    void AddNamed() { AddEntry({"ann", "bob"}, &RandomVault::AddCard); }
    void AddLevels() { AddEntry({"low", "high", "hihg", "1"}, &RandomVault::AddCards); }
    void AddEntry(std::initializer_list<const char*> keys, Add add)
    {
        AddMembers(2, [&] {
            m_text.append("\"").append(OneOf(keys)).append("\":");
            AddPart(add);
        });
    }
    /// A tag may be anything, even an object with confidential attributes.
    void AddTag(const char* key, std::initializer_list<const char*> values)
    {
        AddAttribute(key, [&] { m_random.OneIn(4) ? AddCard() : Put(OneOf(values)); });
    }
    void AddPayment()
    {
        AddMembers(2, [&] {
            m_random.OneIn(2) ? AddTag("method", {"\"cash\"", "\"wire\"", "\"wirre\"", "7"})
                              : AddConfidential("iban", 1);
        });
    }
    /// Here the key of a tag is that of a confidential attribute too.
    void AddDebt()
    {
        if (m_random.OneIn(2)) return AddPayment();
        Put("{\"method\":");
        AddSecretScalar();
        Put("}");
    }
    void AddPerson()
    {
        AddMembers(1 + m_random.Below(3), [&] {
            switch (m_random.Below(4)) {
            case 0: return AddHarmless({"name", "nmae"});
            case 1: return AddTag("kind", {"\"agent\"", "\"person\"", "\"agnet\"", "7", "[\"agent\"]"});
            case 2: return AddConfidential("alias", 1);
            default: return AddAttribute("agentCard", [&] { AddPart(&RandomVault::AddCard); });
            }
        });
    }
    void AddPeople() { AddArray(&RandomVault::AddPerson, &RandomVault::AddPerson); }
    void AddSavings()
    {
        AddMembers(1 + m_random.Below(4), [&] {
            if (m_random.OneIn(3)) return AddConfidential(OneOf({"passphrase", "answer"}), 1);
            if (m_random.OneIn(2)) return AddHarmless({"serial", "rate", "rat"});
            AddAttribute("sort", [&] { Put(OneOf({"1", "2", "\"two\""})); });
        });
    }
    void AddKeeper()
    {
        AddMembers(1 + m_random.Below(4), [&] {
            switch (m_random.Below(4)) {
            case 0: return AddHarmless({"space", "limit"});
            case 1: return AddConfidential(OneOf({"hint", "hintSize"}), 1);
            case 2: return AddCardMember();
            default: AddWord("\"", "\":"); return AddSecretScalar(); // a key that is kept
            }
        });
    }

    void AddConfidential(const char* key, int depth)
    {
        AddAttribute(key, [&] { AddSecret(depth); });
    }
    void AddSecret(int depth)
    {
        const std::size_t kind = depth > 0 ? m_random.Below(8) : 0;
        if (kind < 5) return AddSecretScalar();
        if (kind == 5) {
            Put("[");
            AddSecret(depth - 1);
            Put(",");
            AddSecret(depth - 1);
            return Put("]");
        }
        Put("{");
        AddWord("\"", "\":");
        AddSecret(depth - 1);
        if (m_random.OneIn(2)) {
            Put(m_random.OneIn(2) ? ",\"words\":" : ",\"count\":");
            AddSecret(depth - 1);
        }
        Put("}");
    }
    void AddSecretScalar()
    {
        switch (m_random.Below(5)) {
        case 0:
        case 1: return AddWord("\"", "\"");
        case 2: return AddSecretNumber();
        case 3: return AddWord("\"2024-13-01T", "\"");
        default: Put("null");
        }
    }
    void AddWord(const char* before, const char* behind)
    {
        static constexpr std::string_view LETTERS = "qzxjkvw0123456789";
        std::string word = "z";
        while (word.size() < 14)
            word += LETTERS[m_random.Below(LETTERS.size())];
        Put(before);
        Hide(word);
        Put(behind);
    }
    void AddSecretNumber()
    {
        std::string digits = std::to_string(100000000000 + m_random.Below(899999999999));
        if (m_random.OneIn(2)) digits += '.' + std::to_string(100000000 + m_random.Below(899999999));
        Hide(digits);
    }
    void Hide(const std::string& word)
    {
        m_text += word;
        m_secrets.push_back({word, m_text.substr(m_start)});
    }

    Random& m_random;
    std::string m_text;
    std::size_t m_start = 0; ///< where the innermost attribute begins
    std::vector<CSecret> m_secrets;
};

} // namespace vexa_test::secrets

#endif
