// Strict conversions: as reading and writing JSON would make them, whole or not at all.

#include <vexa/detail/access.h>

#include <cmath>

#include <vexa/detail/interchange.h>

#include "access/inner.h"
#include "access/scalar.h"
#include "access/step.h"
#include "access/tell.h"
#include "interchange/json_events.h"
#include "interchange/read_fit.h"
#include "interchange/read_phrase.h"
#include "interchange/write_number.h"

namespace vexa {

std::string access::CScalarSink::Text() const
{
    if (m_event.Kind == EventKind::BOOL) return m_event.Bool ? "true" : "false";
    if (m_event.Kind == EventKind::SIGNED) return std::to_string(m_event.Signed);
    if (m_event.Kind == EventKind::UNSIGNED) return std::to_string(m_event.Unsigned);
    if (!m_event.Text.empty()) return std::string(m_event.Text);
    char digits[interchange::NUMBER_ROOM];
    const char* const end = m_isFloat ? interchange::WriteShortest(digits, static_cast<float>(m_event.Floating))
                                      : interchange::WriteShortest(digits, m_event.Floating);
    return std::string(digits, static_cast<std::size_t>(end - digits));
}

namespace {

using access::CForm;
using access::CForms;
using access::CInner;
using access::CScalarSink;
using access::FormKind;
using access::Tell;
using detail::CSpot;
using detail::ShapeKind;

const CGnlTypeInfor STRING_TYPE(Enum::DT_STD_STRING);

bool Fail(CReport* report, const CSpot& told, ProblemCode code, std::string expected = {}, std::string found = {})
{
    CProblem problem;
    access::Fail(problem, code, std::move(expected), std::move(found));
    return Tell(report, std::move(problem), told);
}

/// What a value is read into, inside of what holds it.
CForm Effective(CForms& forms, CForm form)
{
    const auto isHolder = [](const CForm& holder) {
        if (holder.Kind != FormKind::SHAPE) return false;
        const ShapeKind kind = holder.Shape->Kind;
        return kind == ShapeKind::OPTIONAL || kind == ShapeKind::DURATION || kind == ShapeKind::ATOMIC;
    };
    while (isHolder(form))
        form = forms.Of(form.CustomInfor()).Parts.front();
    return form;
}

/// Whether a number may stand there as its digits.
bool IsText(const CForm& form)
{
    if (form.Kind == FormKind::SHAPE) return form.Shape->Kind == ShapeKind::TEXT;
    return form.Kind == FormKind::CHAR_ARRAY || (form.Kind == FormKind::BASIC && form.Code == Enum::DT_STD_STRING);
}

/// One reading into a target, with problems that are told of another spot.
class CSetting {
public:
    CSetting(const CSpot& target, const CSpot& told, CReport* report)
        : m_target(target), m_told(told), m_report(report),
          m_form(Effective(m_forms, CForm(target.Ref.TypeInfor, 0, target.Names)))
    {
    }

    bool TakesText() { return Takes(EventKind::STRING); }

    bool Text(std::string_view text)
    {
        if (void* const place = SamePlace(m_target, STRING_TYPE)) {
            static_cast<std::string*>(place)->assign(text.data(), text.size());
            return true;
        }
        CEvent event;
        event.Kind = EventKind::STRING;
        event.Text = text;
        if (TakesText()) return Read(event);
        if (Takes(EventKind::BOOL)) return BoolText(text, event);
        interchange::CNumber number;
        const char* const end = text.data() + text.size();
        const bool isNumber = Takes(EventKind::SIGNED) && !text.empty();
        if (isNumber && interchange::ScanNumber(text.data(), end, number) == end) {
            interchange::SetNumber(event, number);
            return Read(event);
        }
        const char* const expected = interchange::IsIntegerForm(m_form) ? "an integer" : "a number";
        return isNumber || text.empty()
                   ? Fail(m_report, m_told, ProblemCode::BAD_TEXT, expected, interchange::ShownText(text))
                   : Read(event);
    }

    bool Scalar(const CScalarSink& sink)
    {
        const CEvent& event = sink.Event();
        if (event.Kind == EventKind::STRING) return Text(event.Text);
        const bool isNan = event.Kind == EventKind::FLOATING && event.Text.empty() && !std::isfinite(event.Floating);
        const bool isDigits = event.Kind != EventKind::NULL_VALUE && !isNan;
        return isDigits && IsText(m_form) ? Text(sink.Text()) : Read(event);
    }

    std::string Expected() const { return access::NameOfType(*m_form.Type); }

private:
    bool Takes(EventKind kind) { return interchange::TakesKind(m_forms, m_form, kind); }

    bool BoolText(std::string_view text, CEvent& event)
    {
        event.Kind = EventKind::BOOL;
        event.Bool = text == "true";
        if (event.Bool || text == "false") return Read(event);
        return Fail(m_report, m_told, ProblemCode::BAD_TEXT, "true or false", interchange::ShownText(text));
    }

    bool Read(const CEvent& event)
    {
        CReadPolicy policy;
        policy.Transactional = true;
        CReport report;
        access::CScalarSource source(event);
        if (ReadEvents(m_target.Ref, source, report, policy, m_target.Names)) return true;
        for (CProblem problem : report.Problems()) {
            if (problem.Code == ProblemCode::READ_ONLY) problem.Code = ProblemCode::CANNOT_BE_CHANGED;
            Tell(m_report, std::move(problem), m_told);
        }
        return false;
    }

    CForms m_forms;
    const CSpot& m_target;
    const CSpot& m_told;
    CReport* m_report;
    const CForm m_form;
};

/// Whether a value may be a basic one.
bool IsScalar(const CInner& inner)
{
    switch (inner.Kind) {
    case FormKind::BASIC:
    case FormKind::ENUMERATION:
    case FormKind::CHAR_ARRAY:
    case FormKind::BITSET:
    case FormKind::VALUE:
    case FormKind::CUSTOM:
    case FormKind::NULL_TYPE: return true;
    case FormKind::SHAPE: return inner.Shape->Kind != ShapeKind::TUPLE && inner.Shape->Kind != ShapeKind::BITS;
    default: return false;
    }
}

/// The bytes of a text, whatever they are.
bool TextOf(const CInner& inner, std::string& text)
{
    const bool isShape = inner.Kind == FormKind::SHAPE && inner.Shape->Kind == ShapeKind::TEXT;
    if (isShape) {
        std::string memory;
        text = inner.ShapeOperations<detail::CTextOperations>().Get(inner.Value, memory);
        return true;
    }
    if (inner.Kind != FormKind::BASIC) return false;
    if (inner.Type.DataType == Enum::DT_STD_STRING)
        text = *reinterpret_cast<const std::string*>(inner.Value);
    else if (inner.Type.DataType == Enum::DT_CONST_CHAR_PTR)
        text = inner.Value;
    else
        return false;
    return true;
}

/// \p names are those of an enumeration, which is its number to targets that take no text.
const detail::CEnumerationSlot* NamesFor(CSetting& setting, const CSpot& source)
{
    return setting.TakesText() ? source.Names : nullptr;
}

bool Convert(const CSpot& target, const CSpot& source, const CSpot& told, CReport* report)
{
    CForms forms;
    CSetting setting(target, told, report);
    const CInner inner = access::Innermost(forms, source);
    CScalarSink sink;
    if (inner.Value == nullptr) {
        sink.Null();
        return setting.Scalar(sink);
    }
    std::string text;
    if (TextOf(inner, text)) return setting.Text(text);
    CReport writing;
    const bool isWritten = IsScalar(inner) && WriteEvents(sink, source.Ref, {}, &writing, NamesFor(setting, source));
    if (isWritten && !sink.IsStructured()) return setting.Scalar(sink);
    for (const CProblem& problem : writing.Problems())
        Tell(report, problem, told);
    if (!writing.IsEmpty()) return false;
    return Fail(report, told, ProblemCode::WRONG_KIND, setting.Expected(), access::NameOfType(inner.Type));
}

} // namespace

bool detail::IsChangeable(const CSpot& spot, CReport* report)
{
    if (spot.Ref.Address == nullptr) return false;
    const bool isFixed = spot.IsConst || spot.IsReadOnly || spot.Ref.TypeInfor.Has(Enum::HF_CONST);
    return !isFixed || Fail(report, spot, ProblemCode::CANNOT_BE_CHANGED);
}

bool detail::SetText(const CSpot& target, std::string_view text, CReport* report)
{
    return CSetting(target, target, report).Text(text);
}

bool detail::SetNull(const CSpot& target, CReport* report)
{
    CScalarSink sink;
    sink.Null();
    return CSetting(target, target, report).Scalar(sink);
}

bool detail::SetFrom(const CSpot& target, const CSpot& source, CReport* report)
{
    return Convert(target, source, target, report);
}

bool detail::GetInto(const CSpot& target, const CSpot& source, CReport* report)
{
    return source.Ref.Address != nullptr && Convert(target, source, source, report);
}

} // namespace vexa
