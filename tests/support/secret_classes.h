#ifndef VEXA_TESTS_SUPPORT_SECRET_CLASSES_H
#define VEXA_TESTS_SUPPORT_SECRET_CLASSES_H

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
#include <utility>
#include <variant>
#include <vector>

#include <vexa/interchange.h>
#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

/// Described classes with confidential attributes of every kind, everywhere where a class can stand. The key of a
/// confidential attribute is nowhere that of another one.

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
    friend bool operator<(const Card& left, const Card& right) { return left.number < right.number; }
};
VEXA_DESCRIBE_CLASS(Card)
{
    about.Attrib("owner", &Card::owner);
    about.Attrib("number", &Card::number).Masked();
    about.Attrib("code", &Card::code).Masked().Alias("passcode");
    about.Attrib("limit", &Card::limit).Alias("at_most_so_many").Range(0, 99);
}

/// Classes told by a tag.
struct Person {
    virtual ~Person() = default;
    std::string name;
};
struct Agent : Person {
    std::string alias;
    Card card;
};
VEXA_DESCRIBE_CLASS(Person)
{
    about.Tag("kind");
    about.TagValue("person");
    about.Attrib("name", &Person::name).Required();
}
VEXA_DESCRIBE_CLASS(Agent)
{
    about.Base<Person>();
    about.TagValue("agent");
    about.Attrib("alias", &Agent::alias).Masked();
    about.Attrib("agentCard", &Agent::card);
}

/// Alternatives that are told by a tag, of which one class has it as an attribute.
struct Cash {
    int amount = 0;
};
struct Wire {
    std::string iban;
};
struct Cheque {
    std::string method;
};
VEXA_DESCRIBE_CLASS(Cash)
{
    about.Tag("method");
    about.TagValue("cash");
    about.Attrib("amount", &Cash::amount);
}
VEXA_DESCRIBE_CLASS(Wire)
{
    about.Tag("method");
    about.TagValue("wire");
    about.Attrib("iban", &Wire::iban).Masked();
}
VEXA_DESCRIBE_CLASS(Cheque) { about.Attrib("method", &Cheque::method).Masked(); }

/// Bases, unions, keys that are kept, and objects inside that show their attributes as their own.
struct Account {
    int serial = 0;
    std::string passphrase;
};
struct Savings : Account {
    short kind = 0;
    union {
        int rate;
        long answer = 0;
    };
};
VEXA_DESCRIBE_CLASS(Account)
{
    about.Attrib("serial", &Account::serial);
    about.Attrib("passphrase", &Account::passphrase).Masked();
}
VEXA_DESCRIBE_CLASS(Savings)
{
    about.Base<Account>();
    about.Attrib("sort", &Savings::kind);
    about.Attrib("rate", &Savings::rate).ActiveWhen("sort", 1);
    about.Attrib("answer", &Savings::answer).ActiveWhen("sort", 2).Masked();
}

struct Hint {
    std::string hint;
    int size = 0;
};
VEXA_DESCRIBE_CLASS(Hint)
{
    about.Attrib("hint", &Hint::hint);
    about.Attrib("hintSize", &Hint::size);
    about.Check([](const Hint& hint) { return hint.hint.empty() ? hint.hint : "not " + hint.hint; });
}
struct Keeper {
    std::map<std::string, vexa::CRawJson> kept;
    int space = 0;
    Hint hint;
    Card card;
};
VEXA_DESCRIBE_CLASS(Keeper)
{
    about.Attrib("kept", &Keeper::kept).Masked().KeepsUnknown();
    about.Attrib("space", &Keeper::space);
    about.Attrib("hint", &Keeper::hint).Masked().Flatten();
    about.Attrib("card", &Keeper::card).Flatten();
}

enum class Level { low, high };
VEXA_DESCRIBE_ENUM(Level, low, high)

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
    std::optional<std::string> tip;
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
    Level level = Level::low;
    Card drawer[2];
    std::pair<int, Card> numbered;
    std::tuple<double, Card, bool> triple;
    std::multimap<std::string, Card> many;
    std::map<Card, int> byCard;
    std::map<Level, std::vector<Card>> byLevel;
    std::optional<Card> maybe;
    std::shared_ptr<Card> shared;
    std::variant<int, bool, Card> any;
    std::variant<std::monostate, Cash, Wire> paid;
    std::variant<Cash, Wire, Cheque> owed;
    std::unique_ptr<Person> person;
    std::vector<std::shared_ptr<Person>> people;
    Savings savings;
    Keeper keeper;
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
    about.Attrib("tip", &Vault::tip).Masked();
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
    about.Attrib("level", &Vault::level).Masked();
    about.Attrib("drawer", &Vault::drawer);
    about.Attrib("numbered", &Vault::numbered);
    about.Attrib("triple", &Vault::triple);
    about.Attrib("many", &Vault::many);
    about.Attrib("byCard", &Vault::byCard);
    about.Attrib("byLevel", &Vault::byLevel);
    about.Attrib("maybe", &Vault::maybe);
    about.Attrib("shared", &Vault::shared);
    about.Attrib("any", &Vault::any);
    about.Attrib("paid", &Vault::paid);
    about.Attrib("owed", &Vault::owed);
    about.Attrib("person", &Vault::person);
    about.Attrib("people", &Vault::people);
    about.Attrib("savings", &Vault::savings);
    about.Attrib("keeper", &Vault::keeper);
}

} // namespace vexa_test::secrets

#endif
