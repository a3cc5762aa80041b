#ifndef VEXA_TESTS_SUPPORT_TEXT_EVERYTHING_H
#define VEXA_TESTS_SUPPORT_TEXT_EVERYTHING_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <limits>
#include <list>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

#include <vexa/describe.h>

/// A class with a member of every kind that JSON can hold, and random objects of it.

namespace vexa_test {

struct Everything {
    int id = 0;
    bool truth = false;
    char letter = 0;
    unsigned char byte = 0;
    short small = 0;
    unsigned short word = 0;
    unsigned int natural = 0;
    long large = 0;
    unsigned long huge = 0;
    long long wide = 0;
    unsigned long long widest = 0;
    std::string text;
    vexa::MayNull<int> maybe;
    vexa::MayNull<std::string> note;
    std::vector<std::string> texts;
    std::list<std::vector<int>> lists;
    std::deque<bool> truths;
    std::set<int> numbers;
    std::map<std::string, long> scores;
    std::map<int, std::vector<std::string>> groups;
    std::array<short, 3> slots{};
    std::unique_ptr<Everything> next;
    std::vector<std::unique_ptr<Everything>> children;
};

VEXA_DESCRIBE(Everything, id, truth, letter, byte, small, word, natural, large, huge, wide, widest, text, maybe, note,
              texts, lists, truths, numbers, scores, groups, slots, next, children)

/// The same sequence for the same seed, on every machine: the standard's distributions are not fixed, its engines are.
class Dice {
public:
    explicit Dice(std::uint64_t seed) : m_engine(seed) {}

    std::size_t Below(std::size_t limit) { return m_engine() % limit; }
    /// Any value; the limits more often than chance would give them.
    template<class T>
    T Number()
    {
        switch (Below(4)) {
        case 0: return std::numeric_limits<T>::min();
        case 1: return std::numeric_limits<T>::max();
        case 2: return static_cast<T>(Below(200));
        default: return static_cast<T>(m_engine());
        }
    }
    std::string Bytes(std::size_t longest)
    {
        std::string bytes(Below(longest + 1), '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(Below(256));
        return bytes;
    }

private:
    std::mt19937_64 m_engine;
};

inline void FillContainers(Everything& object, Dice& dice)
{
    for (std::size_t i = dice.Below(4); i > 0; --i) {
        object.texts.push_back(dice.Bytes(10));
        object.lists.emplace_back(dice.Below(3), dice.Number<int>());
        object.truths.push_back(dice.Below(2) == 0);
        object.numbers.insert(dice.Number<int>());
        object.scores[dice.Bytes(5)] = dice.Number<long>();
        object.groups[dice.Number<int>()].push_back(dice.Bytes(5));
    }
    for (short& slot : object.slots)
        slot = dice.Number<short>();
}

/// A random object with further ones inside, so many levels deep at most.
inline void Fill(Everything& object, Dice& dice, int depth)
{
    object.id = dice.Number<int>();
    object.truth = dice.Below(2) == 0;
    object.letter = static_cast<char>(dice.Below(256));
    object.byte = dice.Number<unsigned char>();
    object.small = dice.Number<short>();
    object.word = dice.Number<unsigned short>();
    object.natural = dice.Number<unsigned int>();
    object.large = dice.Number<long>();
    object.huge = dice.Number<unsigned long>();
    object.wide = dice.Number<long long>();
    object.widest = dice.Number<unsigned long long>();
    object.text = dice.Bytes(30);
    if (dice.Below(2) == 0) object.maybe = dice.Number<int>();
    if (dice.Below(2) == 0) object.note = dice.Bytes(10);
    FillContainers(object, dice);
    if (depth <= 1) return;
    if (dice.Below(2) == 0) {
        object.next = std::make_unique<Everything>();
        Fill(*object.next, dice, depth - 1);
    }
    for (std::size_t i = dice.Below(3); i > 0; --i) {
        object.children.push_back(std::make_unique<Everything>());
        Fill(*object.children.back(), dice, depth - 1);
    }
}

} // namespace vexa_test

#endif
