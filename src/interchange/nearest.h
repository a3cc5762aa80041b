#ifndef VEXA_INTERCHANGE_NEAREST_H
#define VEXA_INTERCHANGE_NEAREST_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

/// \file
/// The known name that an unknown one was most likely meant to be.

namespace vexa::interchange {

/// Longer names than this are not compared, which bounds what a text full of long keys can cost.
inline constexpr std::size_t LONGEST_COMPARED_NAME = 64;

/// How many edits apart two names may be to be taken for one another: a third of the longer one, but four at most.
constexpr std::size_t NearEdits(std::size_t longerLength) { return std::min<std::size_t>((longerLength + 1) / 3, 4); }

/// How a byte is compared: by itself, or as the small letter of ASCII.
inline char SameByte(char byte) { return byte; }
inline char SmallByte(char byte) { return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte; }

/// The number of edits between two names of at most LONGEST_COMPARED_NAME bytes: bytes inserted, left out or replaced,
/// and neighbours exchanged (the optimal string alignment distance). A distance above \p most is told as `most + 1`.
template<class Fold>
std::size_t EditDistance(std::string_view left, std::string_view right, std::size_t most, Fold fold)
{
    using Row = std::array<std::size_t, LONGEST_COMPARED_NAME + 1>;
    Row rows[3];
    for (std::size_t j = 0; j <= right.size(); ++j)
        rows[0][j] = j;
    std::size_t leastBefore = 0;
    for (std::size_t i = 1; i <= left.size(); ++i) {
        Row& row = rows[i % 3];
        const Row& above = rows[(i + 2) % 3];
        const Row& aboveThat = rows[(i + 1) % 3];
        std::size_t least = row[0] = i;
        for (std::size_t j = 1; j <= right.size(); ++j) {
            const bool isSame = fold(left[i - 1]) == fold(right[j - 1]);
            row[j] = std::min({above[j] + 1, row[j - 1] + 1, above[j - 1] + (isSame ? 0 : 1)});
            if (i > 1 && j > 1 && fold(left[i - 1]) == fold(right[j - 2]) && fold(left[i - 2]) == fold(right[j - 1]))
                row[j] = std::min(row[j], aboveThat[j - 2] + 1);
            least = std::min(least, row[j]);
        }
        if (least > most && leastBefore > most) return most + 1;
        leastBefore = least;
    }
    return std::min(rows[left.size() % 3][right.size()], most + 1);
}

/// Finds the nearest of the names that are offered. Case counts only between names that are equally near without it,
/// and between those that are equally near with it, the first in the order of bytes is taken: the result does not
/// depend on the order of the offers.
class CNearestName {
public:
    /// \p wanted must stay until the last offer.
    explicit CNearestName(std::string_view wanted) noexcept : m_wanted(wanted) {}

    void Offer(std::string_view name)
    {
        const std::size_t longer = std::max(m_wanted.size(), name.size());
        const std::size_t shorter = std::min(m_wanted.size(), name.size());
        if (longer > LONGEST_COMPARED_NAME || longer - shorter > NearEdits(longer)) return;
        const std::size_t edits = EditDistance(m_wanted, name, NearEdits(longer), SmallByte);
        if (edits > NearEdits(longer)) return;
        const std::pair distance(edits, EditDistance(m_wanted, name, LONGEST_COMPARED_NAME, SameByte));
        if (m_name.empty() || distance < m_distance || (distance == m_distance && name < m_name)) {
            m_name = name;
            m_distance = distance;
        }
    }
    /// Empty where no name was near enough.
    const std::string& Name() const noexcept { return m_name; }

private:
    std::string_view m_wanted;
    std::string m_name;
    std::pair<std::size_t, std::size_t> m_distance; ///< without case, with it
};

/// The nearest of \p names, a range of texts; empty where none is near enough.
template<class Names>
std::string NearestName(std::string_view wanted, const Names& names)
{
    CNearestName nearest(wanted);
    for (const auto& name : names)
        nearest.Offer(name);
    return nearest.Name();
}

} // namespace vexa::interchange

#endif
