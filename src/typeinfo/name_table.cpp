#include "typeinfo/name_table.h"

namespace vexa::typeinfo {

namespace {

/// Odd numbers with well-spread bits: the golden ratio, stepped by another one.
constexpr std::uint64_t FIRST_SEED = 0x9E3779B97F4A7C15;
constexpr std::uint64_t SEED_STEP = 0xBF58476D1CE4E5B8;
constexpr int SEEDS = 64;

unsigned int BitsFor(std::size_t names)
{
    unsigned int bits = 1;
    while ((std::size_t{1} << bits) < 2 * names)
        ++bits;
    return bits;
}

} // namespace

CNameTable::CNameTable(const std::vector<std::string_view>& names)
{
    if (names.empty()) return;
    const unsigned int bits = BitsFor(names.size());
    m_slots.resize(std::size_t{1} << bits);
    m_mask = m_slots.size() - 1;
    m_shift = 64 - bits;
    ChooseSeed(names);
    for (std::size_t i = 0; i < names.size(); ++i)
        Insert(names[i], static_cast<std::uint32_t>(i));
}

std::size_t CNameTable::CountClashes(const std::vector<std::string_view>& names, std::uint64_t seed) const
{
    std::vector<bool> isTaken(m_slots.size());
    std::size_t clashes = 0;
    for (const std::string_view name : names) {
        const std::size_t place = PlaceOf(EndsOf(name.data(), name.size()), name.size(), seed);
        if (isTaken[place]) ++clashes;
        isTaken[place] = true;
    }
    return clashes;
}

void CNameTable::ChooseSeed(const std::vector<std::string_view>& names)
{
    std::size_t fewest = names.size() + 1;
    std::uint64_t seed = FIRST_SEED;
    for (int i = 0; i < SEEDS && fewest != 0; ++i, seed += SEED_STEP) {
        const std::size_t clashes = CountClashes(names, seed);
        if (clashes >= fewest) continue;
        fewest = clashes;
        m_seed = seed;
    }
}

void CNameTable::Insert(std::string_view name, std::uint32_t number)
{
    const CNameEnds ends = EndsOf(name.data(), name.size());
    std::size_t place = PlaceOf(ends, name.size(), m_seed);
    while (m_slots[place].Number != NONE)
        place = (place + 1) & m_mask;
    m_slots[place] = {ends, name.data(), static_cast<std::uint32_t>(name.size()), number};
}

} // namespace vexa::typeinfo
