// Writing any value to a sink of any format.

#include <vexa/detail/interchange.h>
#include <vexa/format.h>

#include "core/packed_time.h"
#include "interchange/event_writer.h"
#include "interchange/raw_json.h"
#include "interchange/write_all.h"

namespace vexa {

namespace interchange {

template<class T>
CEventWriter::Cursor CEventWriter::Floating(Cursor at, T value)
{
    if constexpr (std::is_same_v<T, long double>)
        m_sink.LongDouble(value);
    else if constexpr (std::is_same_v<T, float>)
        m_sink.Float(value);
    else
        m_sink.Floating(value);
    return at;
}

/// Where digits are none of the format's, only what reads back digit for digit is a number.
CEventWriter::Cursor CEventWriter::Decimal(Cursor at, const CDecimal& value)
{
    std::string digits(value.IsNegative ? "-" : "");
    digits += value.Integer.empty() ? "0" : value.Integer;
    if (!value.Fraction.empty()) digits.append(".").append(value.Fraction);
    const CNumberChoice choice = m_abilities.HasDecimals ? CNumberChoice() : ChoiceOf(digits);
    if (m_abilities.HasDecimals)
        m_sink.Number(digits);
    else if (choice.Kind == CNumberChoice::Form::SIGNED && std::to_string(choice.Signed) == digits)
        m_sink.Signed(choice.Signed);
    else if (choice.Kind == CNumberChoice::Form::FLOATING && PlainNumber(choice.Floating) == digits)
        m_sink.Floating(choice.Floating);
    else
        m_sink.String(digits);
    return at;
}

CEventWriter::Cursor CEventWriter::Bytes(Cursor at, const CBinary& bytes)
{
    if (m_abilities.HasBytes) {
        m_sink.Bytes({bytes.data(), bytes.Size});
    } else {
        std::string text(Base64Length(bytes.Size), '\0');
        WriteBase64(text.data(), bytes.Data, bytes.Size);
        m_sink.String(text);
    }
    return at;
}

/// A local time before 1970 is no instant in UTC.
CEventWriter::Cursor CEventWriter::Time(Cursor at, const CDateTime& time, std::string_view text)
{
    const bool isLocal = core::IsPacked(time.TimeWord) && core::PACKED_UTC.Get(time.TimeWord) == 0;
    if (m_abilities.HasDateTime && !isLocal)
        m_sink.DateTime(time);
    else if (isLocal)
        m_sink.String(text);
    else
        m_sink.TimeText(text);
    return at;
}

std::string CEventWriter::Mended(std::string_view text, const CPathStep& where)
{
    BadText policy = m_context.Policy().Text;
    if (policy == BadText::PROBLEM) {
        m_context.Tell(ProblemCode::BAD_UTF8, where, {});
        policy = BadText::REPLACE;
    }
    std::string mended;
    AppendMended(mended, text, policy);
    return mended;
}

} // namespace interchange

bool WriteEvents(CEventSink& sink, const CConstRefrence& ref, const CWritePolicy& policy, CReport* report,
                 const detail::CEnumerationSlot* names)
{
    CWritePolicy bounded = policy;
    bounded.AllowNan = policy.AllowNan || sink.Abilities().HasNan;
    interchange::CWriteContext context(bounded, report);
    interchange::CEventWriter writer(sink, context);
    interchange::WriteTop(writer, context, {}, {ref, names});
    return !context.HasProblems();
}

} // namespace vexa
