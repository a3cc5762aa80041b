#ifndef VEXA_INTERCHANGE_SOURCE_H
#define VEXA_INTERCHANGE_SOURCE_H

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <vexa/event.h>

/// \file
/// What the reader asks of a source. CJsonSource (over a whole text) is compiled into a reader of its own, so that the
/// seam costs nothing; CEventReader gives the same over any CEventSource: other formats, JSON in pieces, events that
/// are replayed.
///
///     bool HasFailed() const;        the grammar is broken: the problem is told by Problem(); everything else gives
///                                    false, END or nothing from then on
///     CProblem& Problem();
///     EventKind Peek();              the kind of the next value, which stays. Any number may be told as SIGNED. At the
///                                    end of an array or object END_ARRAY, END_OBJECT; behind the value END
///     bool Null();                   these consume the value of that kind that Peek() has told
///     bool Bool(bool&);
///     bool Number(CNumber&);         its text is valid until the next call
///     bool String(CText&);
///     bool Bytes(CText&);            only where the format has the ability; likewise the next
///     bool DateTime(CDateTime&);
///     bool EnterArray();             false too deep, or broken. Then for each element NextElement(); when that gives
///     bool NextElement();            false, the array is left or the source has failed
///     bool EnterObject();            likewise: NextKey(), a value
///     bool NextKey(CText&);
///     bool Skip();                   the next value, whatever it is, checked like any other
///     bool AtEnd();                  whether nothing follows the value; tells the problem otherwise
///     std::size_t Offset() const;    where the value last told by Peek(), or the last key, starts; and where the last
///     std::size_t EndOffset() const; one consumed has ended
///     void Locate(CTextPlace&);      line and column
///     CFormatAbilities Abilities() const;
///     std::size_t SizeHint();        of the array or object just entered: how many elements at least are worth
///                                    reserving for; 0 if not known
///
/// Peek() and the calls that consume are for where a value is due: first, and after NextElement() or NextKey() has
/// given true. A source may have, to be found out at compile time:
///
///     bool NextKeyIs(std::string_view written);  NextKey() for the key that is expected: true if the next one is
///                                    written just so, as `"key":`; otherwise nothing has happened, and NextKey() is
///                                    to be asked
///     std::string_view Text() const; the whole text, of which Offset() and EndOffset() tell the places

namespace vexa::interchange {

/// A number as its source has found it. Digits are of JSON's grammar.
struct CNumber {
    enum class Form : unsigned char {
        INTEGER, ///< Magnitude and IsNegative tell it exactly
        DIGITS,  ///< Digits tell it; its value is that of the decimal text: a fraction, an exponent or many digits
        FLOATING ///< Floating tells it: a format without decimal text, or NaN and the infinities
    };

    Form Kind = Form::INTEGER;
    bool IsNegative = false;
    std::uint64_t Magnitude = 0;
    double Floating = 0;
    std::string_view Digits; ///< the text, for INTEGER too where the format has one; else empty
};

/// A text of the source's, in UTF-8 that has been checked.
struct CText {
    std::string_view Text;
    bool IsKept = false; ///< stays as long as the source's input; otherwise until the next call
};

} // namespace vexa::interchange

#endif
