// Reads arbitrary bytes as JSON into an object of every readable kind, then renders and writes what came of it.
// Whatever the text, the reader must return a known code, and the object must stay usable.

#include <cstdlib>
#include <list>
#include <map>
#include <memory>
#include <set>

#include <vexa/vexa.h>

namespace fuzzed {

struct Text {
    std::string text;
};
VEXA_DESCRIBE_CUSTOM_STD(Text, &Text::text)

/// A union of whatever text must not be taken for.
struct Variant {
    int kind = 0;
    union {
        long number;
        std::string text;
        std::string* raw;
        std::unique_ptr<Variant> next;
        vexa::MayNull<std::string> maybe;
        long words[4];
    };
    Variant() : number(0) {}
    Variant(const Variant&) = delete;
    Variant& operator=(const Variant&) = delete;
    ~Variant()
    {
        switch (static_cast<short>(kind)) {
        case 2: text.~basic_string(); break;
        case 3: delete raw; break;
        case 4: next.~unique_ptr(); break;
        case 5: maybe.~MayNull(); break;
        default: break;
        }
    }
};
VEXA_DESCRIBE_CLASS(Variant)
{
    about.Attrib("kind", &Variant::kind);
    about.Attrib("number", &Variant::number).ActiveWhen("kind", 1);
    about.Attrib("vtext", &Variant::text).ActiveWhen("kind", 2);
    about.Attrib("raw", &Variant::raw).ActiveWhen("kind", 3);
    about.Attrib("vnext", &Variant::next).ActiveWhen("kind", 4);
    about.Attrib("maybe", &Variant::maybe).ActiveWhen("kind", 5);
    about.Attrib("words", &Variant::words).ActiveWhen("kind", 6);
}

struct Everything {
    bool truth = false;
    char letter = 0;
    int number = 0;
    double real = 0;
    std::string text;
    Text custom;
    vexa::MayNull<std::string> maybe;
    vexa::NonNullPointer<long> always;
    std::unique_ptr<Everything> next;
    std::vector<Everything> children;
    std::vector<std::vector<int>> grid;
    std::map<std::string, std::unique_ptr<int>> named;
    std::set<std::string> words;
    int slots[3] = {};
    const char* fixed = nullptr;
    vexa::CNumeric exact;
    std::unique_ptr<Variant> variant;
    std::list<Variant> variants;
};
VEXA_DESCRIBE(Everything, truth, letter, number, real, text, custom, maybe, always, next, children, grid, named, words,
              slots, fixed, exact, variant, variants)

} // namespace fuzzed

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    static fuzzed::Everything object; // what earlier texts left must do no harm
    const int code = vexa::FromJson(object, text);
    const std::string unknown = vexa::JsonResultText(-1);
    if (vexa::JsonResultText(code) == unknown) std::abort();

    std::string written;
    if (vexa::ToJson(written, object) != 0) std::abort();
    vexa::AsString(object);

    // What was written from one object reads back as the same, unless a value stands in it that cannot be read.
    fuzzed::Everything again;
    std::string rewritten;
    if (vexa::FromJson(again, written) == 0 && (vexa::ToJson(rewritten, again) != 0 || rewritten.empty())) std::abort();
    return 0;
}
