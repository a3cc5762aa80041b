#include <vexa/vexa.h>

#include <iostream>
#include <string>
#include <vector>

namespace game {

struct Player {
    std::string name;
    std::vector<int> scores;
};

VEXA_DESCRIBE(Player, name, scores)

} // namespace game

int main()
{
    game::Player player;
    const int code = vexa::FromJson(player, R"({"name": "Ada", "scores": [3, 5]})");
    if (code != 0) {
        std::cerr << vexa::JsonResultText(code) << '\n';
        return 1;
    }

    std::string json;
    if (vexa::ToJson(json, player) != 0) {
        return 1;
    }
    std::cout << json << '\n';
    return 0;
}
