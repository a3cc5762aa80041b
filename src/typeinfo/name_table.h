#ifndef VEXA_TYPEINFO_NAME_TABLE_H
#define VEXA_TYPEINFO_NAME_TABLE_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

namespace vexa::typeinfo {

/// The first and the last bytes of a name. Up to 16 bytes they are, with the length, the whole name.
struct CNameEnds {
    std::uint64_t Head = 0;
    std::uint64_t Tail = 0;
};

/// Reads no byte outside the name.
inline CNameEnds EndsOf(const char* name, std::size_t length) noexcept
{
    CNameEnds ends;
    if (length >= 8) {
        std::memcpy(&ends.Head, name, 8);
        std::memcpy(&ends.Tail, name + length - 8, 8);
    } else if (length >= 4) {
        std::uint32_t half = 0;
        std::memcpy(&half, name, 4);
        ends.Head = half;
        std::memcpy(&half, name + length - 4, 4);
        ends.Tail = half;
    } else if (length != 0) {
        const auto byte = [name](std::size_t i) { return std::uint64_t{static_cast<unsigned char>(name[i])}; };
        ends.Head = byte(0) | byte(length / 2) << 8U | byte(length - 1) << 16U;
    }
    return ends;
}

/// Finds the number of a name among names that are given once and stay where they are. A look-up hashes the length and
/// the ends of the name; the seed is chosen so that as few names as possible share a place.
class CNameTable {
public:
    static constexpr std::uint32_t NONE = 0xFFFFFFFF;

    CNameTable() = default;
    /// The names must be different, and stay.
    explicit CNameTable(const std::vector<std::string_view>& names);

    /// The place of \p name in the list that was given, or NONE.
    std::uint32_t Find(const char* name, std::size_t length) const noexcept
    {
        if (m_slots.empty()) return NONE;
        const CNameEnds ends = EndsOf(name, length);
        for (std::size_t place = PlaceOf(ends, length, m_seed);; place = (place + 1) & m_mask) {
            const CSlot& slot = m_slots[place];
            if (slot.Number == NONE || IsName(slot, ends, name, length)) return slot.Number;
        }
    }
    std::uint32_t Find(std::string_view name) const noexcept { return Find(name.data(), name.size()); }

private:
    struct CSlot {
        CNameEnds Ends;
        const char* Name = nullptr;
        std::uint32_t Length = 0;
        std::uint32_t Number = NONE;
    };

    static bool IsName(const CSlot& slot, const CNameEnds& ends, const char* name, std::size_t length) noexcept
    {
        return slot.Ends.Head == ends.Head && slot.Ends.Tail == ends.Tail && slot.Length == length &&
               (length <= 16 || std::memcmp(slot.Name + 8, name + 8, length - 16) == 0);
    }
    std::size_t PlaceOf(const CNameEnds& ends, std::size_t length, std::uint64_t seed) const noexcept
    {
        const std::uint64_t mixed = (ends.Head ^ (ends.Tail << 31U | ends.Tail >> 33U)) + length;
        return static_cast<std::size_t>((mixed * seed) >> m_shift);
    }
    std::size_t CountClashes(const std::vector<std::string_view>& names, std::uint64_t seed) const;
    void ChooseSeed(const std::vector<std::string_view>& names);
    void Insert(std::string_view name, std::uint32_t number);

    std::vector<CSlot> m_slots; ///< a power of two, at least half of them empty
    std::size_t m_mask = 0;
    unsigned int m_shift = 0;
    std::uint64_t m_seed = 0;
};

} // namespace vexa::typeinfo

#endif
