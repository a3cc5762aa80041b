#include <iostream>
#include <string>
#include <vector>

#include <sqlite3.h>

#include <vexa/sqlite.h>
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
    const std::vector<game::Player> players{{"Bob", {1}}, {"Ada", {3, 5}}};
    sqlite3* db = nullptr;
    sqlite3_open(":memory:", &db);
    vexa::CSqlView(db).Add("players", players);
    const auto print = [](void*, int, char** values, char**) {
        std::cout << values[0] << '\n';
        return 0;
    };
    const int result =
        sqlite3_exec(db, "SELECT json_object('name', name, 'scores', json(scores)) FROM players WHERE name = 'Ada'",
                     print, nullptr, nullptr);
    sqlite3_close(db);
    return result;
}
