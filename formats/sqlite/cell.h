#ifndef ORDANA_FORMATS_SQLITE_CELL_H
#define ORDANA_FORMATS_SQLITE_CELL_H

#include <cmath>
#include <limits>
#include <string>
#include <string_view>

#include <vexa/sqlite.h>

namespace vexa::sqlite {

enum class CellKind : unsigned char { NOTHING, INTEGER, REAL, TEXT, BLOB };

/// One value, as SQLite has it.
struct CCell {
    CellKind Kind = CellKind::NOTHING;
    long long Integer = 0;
    double Real = 0;
    std::string_view Text; ///< TEXT, BLOB: in the object, or in Memory
    std::string Memory;    ///< kept from one value to the next, so that few need an allocation

    void SetNothing() noexcept { Kind = CellKind::NOTHING; }
    void SetInteger(long long value) noexcept
    {
        Kind = CellKind::INTEGER;
        Integer = value;
    }
    void SetUnsigned(unsigned long long value) noexcept
    {
        if (value > static_cast<unsigned long long>(std::numeric_limits<long long>::max()))
            SetReal(static_cast<double>(value));
        else
            SetInteger(static_cast<long long>(value));
    }
    /// SQLite has no NaN.
    void SetReal(double value) noexcept
    {
        Kind = std::isnan(value) ? CellKind::NOTHING : CellKind::REAL;
        Real = value;
    }
    void SetText(std::string_view text, CellKind kind = CellKind::TEXT) noexcept
    {
        Kind = kind;
        Text = text;
    }
};

} // namespace vexa::sqlite

#endif
