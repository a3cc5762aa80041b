#ifndef VEXA_CORE_PACKED_TIME_H
#define VEXA_CORE_PACKED_TIME_H

#include <cstdint>

namespace vexa::core {

/// The top bit of a time word: set when the word is a packed date and time.
constexpr std::uint64_t PACKED_FLAG = std::uint64_t{1} << 63U;

constexpr bool IsPacked(std::uint64_t word) { return (word & PACKED_FLAG) != 0; }

/// The place of one field in a packed word.
struct PackedField {
    unsigned Shift;
    unsigned Width;

    constexpr std::uint64_t Mask() const { return (std::uint64_t{1} << Width) - 1; }
    constexpr std::uint64_t Get(std::uint64_t word) const { return (word >> Shift) & Mask(); }
    /// A value that is too wide loses its upper bits, and never touches the fields above it.
    constexpr std::uint64_t Put(int value) const { return (static_cast<std::uint64_t>(value) & Mask()) << Shift; }
};

// From the most significant field down, so that packed words compare as the times do.
constexpr PackedField PACKED_YEAR{51, 12};
constexpr PackedField PACKED_MONTH{47, 4};
constexpr PackedField PACKED_DAY{42, 5};
constexpr PackedField PACKED_HOUR{37, 5};
constexpr PackedField PACKED_MINUTE{31, 6};
constexpr PackedField PACKED_SECOND{25, 6};
constexpr PackedField PACKED_MILLISECOND{15, 10};
constexpr PackedField PACKED_YEAR_DAY{6, 9};
constexpr PackedField PACKED_WEEK_DAY{3, 3};
constexpr PackedField PACKED_DAYLIGHT{1, 2};
constexpr PackedField PACKED_UTC{0, 1};

} // namespace vexa::core

#endif
