// Reads arbitrary bytes as JSON into an object of every readable kind, then renders and writes what came of it.
// Whatever the text, the reader must return a known code, and the object must stay usable.

#include <cstdlib>
#include <map>
#include <memory>
#include <set>

#include <vexa/vexa.h>

namespace fuzzed {

struct Text {
    std::string text;
};
VEXA_DESCRIBE_CUSTOM_STD(Text, &Text::text)

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
};
VEXA_DESCRIBE(Everything, truth, letter, number, real, text, custom, maybe, always, next, children, grid, named, words,
              slots, fixed, exact)

} // namespace fuzzed

extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size)
{
    const std::string text(reinterpret_cast<const char*>(data), size);
    fuzzed::Everything object;
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
