// The first use of a type may come after everything static of the library is gone: from the destructor of an object
// that was made before it. The program ends with 0 when the text is right even then.

#include <cstdlib>
#include <list>

#include <vexa/vexa.h>

namespace {

struct Late {
    Late() = default;
    Late(const Late&) = delete;
    Late& operator=(const Late&) = delete;
    ~Late()
    {
        const std::list<std::vector<int>> lists{{1}, {2}};
        const std::string text = vexa::AsString(lists);
        std::_Exit(text == "\n- - 1\n- - 2" ? 0 : 1);
    }
};

const Late late;

} // namespace

int main()
{
    // Registers something, after `late` was made, so that the library's statics go first.
    const std::vector<int> numbers{3};
    return vexa::AsString(numbers) == "\n- 3" ? 0 : 2;
}
