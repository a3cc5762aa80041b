#ifndef VEXA_INTERCHANGE_SINK_H
#define VEXA_INTERCHANGE_SINK_H

#include <cstddef>
#include <string_view>

#include <vexa/event.h>

/// \file
/// What the writing walk asks of a sink. CJsonSink is compiled into walks of its own, so that the seam costs nothing;
/// CEventWriter passes everything on to a CEventSink.
///
/// Where a sink has got to is its Cursor, a small value that is handed from place to place and so stays in a register:
/// every function takes the one that the last has given. The walk sees to the order: a key before each value of an
/// object, Element() before each of an array. `where` is the way to the value, for a problem.
///
///     Cursor Null(Cursor);
///     Cursor Bool(Cursor, bool);
///     Cursor Integer(Cursor, T);                       any integer type
///     Cursor Floating(Cursor, T);                      finite, or with CWritePolicy::AllowNan
///     Cursor Decimal(Cursor, const CDecimal&);         a number by its digits
///     Cursor Text(Cursor, std::string_view, where);    checked: what is no UTF-8 goes by the policy
///     Cursor Text(Cursor, const std::string&, where);
///     Cursor Plain(Cursor, std::string_view);          a short text of ASCII without anything to escape
///     Cursor Bytes(Cursor, const CBinary&);
///     Cursor Time(Cursor, const CDateTime&, std::string_view text);   with its RFC 3339 text
///     Cursor BeginObject(Cursor, std::size_t size);    CEvent::UNKNOWN_SIZE where that is not known beforehand
///     Cursor Key(Cursor, const CMember&, where);
///     Cursor Key(Cursor, std::string_view, where);
///     Cursor IntegerKey(Cursor, long long number, std::string_view text, where);
///     Cursor EndObject(Cursor);
///     Cursor BeginArray(Cursor, std::size_t size);
///     Cursor Element(Cursor);
///     Cursor EndArray(Cursor);
///     Cursor Raw(Cursor, std::string_view json);       a JSON value as it stands, which has been checked
///     Cursor Integers(Cursor, const char* first, const char* last, T);   elements of an array, one behind the other

namespace vexa::interchange {

/// A decimal number: digits only, none before the point meaning 0.
struct CDecimal {
    bool IsNegative = false;
    std::string_view Integer; ///< without leading zeros
    std::string_view Fraction;
};

} // namespace vexa::interchange

#endif
