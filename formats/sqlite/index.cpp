#include "index.h"

#include <algorithm>
#include <cmath>
#include <functional>

namespace vexa::sqlite {

namespace {

constexpr std::uint64_t SIGN = std::uint64_t{1} << 63U;

/// 2^63, where the integers end.
constexpr double END_OF_INTEGERS = 9223372036854775808.0;

std::uint64_t CodeOfSigned(long long value) noexcept { return static_cast<std::uint64_t>(value) ^ SIGN; }

/// In the order of the numbers; the two zeros are one.
std::uint64_t CodeOfDouble(double value) noexcept
{
    std::uint64_t bits = 0;
    const double number = value == 0 ? 0 : value;
    std::memcpy(&bits, &number, sizeof bits);
    return (bits & SIGN) != 0 ? ~bits : bits | SIGN;
}

} // namespace

std::uint64_t CodeOfText(std::string_view text) noexcept { return std::hash<std::string_view>()(text); }

std::uint64_t CodeOfInteger(Affinity type, long long value) noexcept
{
    return type == Affinity::INTEGER ? CodeOfSigned(value) : CodeOfDouble(static_cast<double>(value));
}

/// Among integers, a number stands with the greatest one that is no greater.
std::uint64_t CodeOfReal(Affinity type, double value) noexcept
{
    if (type != Affinity::INTEGER) return CodeOfDouble(value);
    if (value >= END_OF_INTEGERS) return CodeOfSigned(std::numeric_limits<long long>::max());
    if (value < -END_OF_INTEGERS) return CodeOfSigned(std::numeric_limits<long long>::min());
    return CodeOfSigned(static_cast<long long>(std::floor(value)));
}

void CIndex::Add(const CColumn& column, const CCell& cell)
{
    const std::uint64_t row = m_rows++;
    switch (cell.Kind) {
    case CellKind::NOTHING: m_nulls.push_back({0, row}); break;
    case CellKind::INTEGER: m_values.push_back({CodeOfInteger(column.Type, cell.Integer), row}); break;
    case CellKind::REAL: m_values.push_back({CodeOfReal(column.Type, cell.Real), row}); break;
    case CellKind::TEXT:
    case CellKind::BLOB: m_values.push_back({CodeOfText(cell.Text), row}); break;
    }
}

void CIndex::Finish()
{
    std::sort(m_values.begin(), m_values.end());
    std::size_t codes = 0;
    for (std::size_t i = 0; i < m_values.size(); ++i)
        if (i == 0 || m_values[i].Code != m_values[i - 1].Code) ++codes;
    if (codes != 0) m_rowsOfOneCode = static_cast<double>(m_values.size()) / static_cast<double>(codes);
}

CIndexSpan CIndex::Between(std::uint64_t least, std::uint64_t most) const noexcept
{
    const auto first = std::lower_bound(m_values.begin(), m_values.end(), CIndexEntry{least, 0});
    const auto last = std::upper_bound(first, m_values.end(), CIndexEntry{most, ~std::uint64_t{0}});
    const CIndexEntry* const entries = m_values.data();
    return {entries + (first - m_values.begin()), entries + (last - m_values.begin())};
}

} // namespace vexa::sqlite
