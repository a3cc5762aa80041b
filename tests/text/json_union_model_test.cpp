// Random texts into unions, beside a model of the rule; no number of the text may ever serve as an address, which a
// build with an address sanitizer shows.

#include <vexa/json.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <vexa/describe.h>

#include "support/random_json.h"
#include "support/text_model.h"

namespace {

using namespace vexa_test;
using vexa::FromJson;

struct Pointed {
    int depth = 3;
    std::string* text = nullptr;
};
VEXA_DESCRIBE(Pointed, depth, text)

/// The members of the two unions follow one selector.
struct Mixed {
    int kind = 0;
    union {
        long number;
        std::string text;
        Pointed pointed;
    };
    union {
        long other;
        std::vector<int>* list;
    };
    Mixed() : number(0), other(0) {}
    Mixed(const Mixed&) = delete;
    Mixed& operator=(const Mixed&) = delete;
    ~Mixed()
    {
        const auto selected = static_cast<short>(kind);
        if (selected == 2) text.~basic_string();
        if (selected == 2) delete list;
        if (selected == 3) delete pointed.text;
    }
};
VEXA_DESCRIBE_CLASS(Mixed)
{
    about.Attrib("kind", &Mixed::kind);
    about.Attrib("number", &Mixed::number).ActiveWhen("kind", 1);
    about.Attrib("text", &Mixed::text).ActiveWhen("kind", 2);
    about.Attrib("pointed", &Mixed::pointed).ActiveWhen("kind", 3);
    about.Attrib("other", &Mixed::other).ActiveWhen("kind", 3);
    about.Attrib("list", &Mixed::list).ActiveWhen("kind", 2);
}

/// What a Mixed holds, as the rule says: each member apart, a default one when its turn comes.
struct Model {
    int kind = 0;
    long number = 0;
    std::string text;
    int depth = 3;
    std::optional<std::string> pointedText;
    long other = 0;
    std::optional<std::vector<int>> list;

    /// Selectors are compared as short.
    bool Is(short selected) const { return static_cast<short>(kind) == selected; }
    void Select(int selected)
    {
        if (!Is(static_cast<short>(selected))) *this = Model();
        kind = selected;
    }
    std::string Json() const
    {
        std::string json = "{\"kind\":" + std::to_string(kind);
        if (Is(1)) json += ",\"number\":" + std::to_string(number);
        if (Is(2)) json += ",\"text\":\"" + text + '"';
        if (Is(3)) json += ",\"pointed\":{\"depth\":" + std::to_string(depth);
        if (Is(3) && pointedText) json += ",\"text\":\"" + *pointedText + '"';
        if (Is(3)) json += "},\"other\":" + std::to_string(other);
        if (Is(2) && list) json += ",\"list\":" + ListText();
        return json + "}";
    }
    std::string ListText() const
    {
        std::string json = "[";
        for (const int element : *list)
            json += (json.size() > 1 ? "," : "") + std::to_string(element);
        return json + "]";
    }
};

/// Writes one more member into the text and sets it in the model. \return the code that it must give.
int AddMember(std::string& json, Model& model, Dice& dice)
{
    const long address = 0x4141414141414141;
    const auto add = [&](const char* key, const std::string& value) {
        json += std::string(json.size() > 1 ? "," : "") + '"' + key + "\":" + value;
    };
    switch (dice.Below(8)) {
    case 0: add("number", std::to_string(address)); return model.Is(1) ? (model.number = address, 0) : 998;
    case 1: add("text", R"("t")"); return model.Is(2) ? (model.text += "t", 0) : 998;
    case 2:
        add("pointed", R"({"depth":9,"text":"p"})");
        if (!model.Is(3)) return 998;
        model.depth = 9;
        model.pointedText = model.pointedText.value_or("") + "p";
        return 0;
    case 3: add("other", std::to_string(address)); return model.Is(3) ? (model.other = address, 0) : 998;
    case 4:
        add("list", "[7]");
        if (!model.Is(2)) return 998;
        if (!model.list) model.list.emplace();
        model.list->push_back(7);
        return 0;
    default: {
        const int kind = static_cast<int>(dice.Below(5)) + (dice.Below(8) == 0 ? 65536 : 0);
        add("kind", std::to_string(kind));
        model.Select(kind);
        return 0;
    }
    }
}

TEST(JsonUnionModel, AgreesWithTheRuleForRandomTexts)
{
    const std::uint64_t seed = 77;
    Dice dice(seed);
    auto object = std::make_unique<Mixed>();
    for (int round = 0; round < 20000; ++round) {
        std::string json = "{";
        Model model;
        int code = 0;
        for (std::size_t i = 1 + dice.Below(8); i > 0 && code == 0; --i)
            code = AddMember(json, model, dice);
        if (dice.Below(10) == 0) object = std::make_unique<Mixed>();
        ASSERT_EQ(FromJson(*object, json + "}"), code) << "seed " << seed << " round " << round << ": " << json;
        ASSERT_EQ(Json(*object), model.Json()) << "seed " << seed << " round " << round << ": " << json;
    }
}

// Unions at every place: elements, pointees, members of members, below the flag of a wrapper.

struct Inner {
    unsigned char kind = 0;
    union {
        unsigned long word;
        std::unique_ptr<Inner> next;
        vexa::MayNull<std::string> maybe;
    };
    Inner() : word(0) {}
    ~Inner()
    {
        if (kind == 1) next.~unique_ptr();
        if (kind == 2) maybe.~MayNull();
    }
};
VEXA_DESCRIBE_CLASS(Inner)
{
    about.Attrib("kind", &Inner::kind);
    about.Attrib("word", &Inner::word).ActiveWhen("kind", 3);
    about.Attrib("next", &Inner::next).ActiveWhen("kind", 1);
    about.Attrib("maybe", &Inner::maybe).ActiveWhen("kind", 2);
}

struct Outer {
    std::unique_ptr<short> kind;
    union {
        unsigned long words[4];
        Inner inner;
        Inner inners[2];
        std::vector<std::string*> pointers;
    };
    std::vector<std::unique_ptr<Inner>> list;
    Outer() : words{0, 0, 0, 0} {}
    ~Outer()
    {
        switch (kind != nullptr ? *kind : 0) {
        case 1: inner.~Inner(); break;
        case 2: inners[0].~Inner(), inners[1].~Inner(); break;
        case 4:
            vexa::RefOf(pointers).Clear();
            pointers.~vector();
            break;
        default: break;
        }
    }
};
VEXA_DESCRIBE_CLASS(Outer)
{
    about.Attrib("kind", &Outer::kind);
    about.Attrib("words", &Outer::words).ActiveWhen("kind", 3);
    about.Attrib("inner", &Outer::inner).ActiveWhen("kind", 1);
    about.Attrib("inners", &Outer::inners).ActiveWhen("kind", 2);
    about.Attrib("pointers", &Outer::pointers).ActiveWhen("kind", 4);
    about.Attrib("list", &Outer::list);
}

struct Everywhere {
    Outer outer;
    std::vector<std::unique_ptr<Outer>> list;
    std::unique_ptr<Outer> pointed;
    Mixed mixed;
};
VEXA_DESCRIBE(Everywhere, outer, list, pointed, mixed)

TEST(JsonUnionModel, NoNumberOfATextServesAsAnAddress)
{
    const std::uint64_t seed = 78;
    Dice dice(seed);
    RandomJson random(dice);
    auto object = std::make_unique<Everywhere>();
    int read = 0;
    for (int round = 0; round < 5000; ++round) {
        std::string text = random.Text(vexa::TypeInforOf<Everywhere>(), 5);
        if (dice.Below(4) == 0) text.resize(1 + dice.Below(text.size()));
        const int code = FromJson(*object, text);
        read += code == 0 ? 1 : 0;
        ASSERT_FALSE(Json(*object).empty()) << "seed " << seed << ": " << text;
        ASSERT_FALSE(vexa::AsString(*object).empty());
        if (dice.Below(20) == 0) object = std::make_unique<Everywhere>();
        if (dice.Below(20) == 0) {
            EXPECT_EQ(FromJson(*object, ""), 0);
        }
    }
    EXPECT_GT(read, 100);
    EXPECT_EQ(FromJson(*object, ""), 0);
}

} // namespace
