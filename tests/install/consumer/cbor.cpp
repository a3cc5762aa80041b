#include <iostream>
#include <string>
#include <vector>

#include <vexa/cbor.h>
#include <vexa/vexa.h>

namespace game {

struct Player {
    std::string name;
    std::vector<int> scores;
};

VEXA_DESCRIBE(Player, name, scores)

} // namespace game

int main()
{
    const game::Player player{"Ada", {3, 5}};
    game::Player read;
    vexa::CReport report;
    if (!vexa::ReadCbor(read, vexa::WriteCbor(player), report)) {
        std::cerr << report;
        return 1;
    }
    std::cout << vexa::WriteJson(read) << '\n';
    return 0;
}
