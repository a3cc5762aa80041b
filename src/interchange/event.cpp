#include <vexa/event.h>

#include <cmath>
#include <string>

#include <vexa/format.h>

#include "interchange/json_source.h"
#include "interchange/raw_json.h"
#include "interchange/tagged.h"

namespace vexa {

CEventSource::~CEventSource() = default;

void CEventSource::Locate(CTextPlace&) {}

bool CEventSource::RawJson(std::string&, CProblem&) { return false; }

CEventSink::~CEventSink() = default;

void CEventSink::Float(float value) { Floating(static_cast<double>(value)); }

void CEventSink::LongDouble(long double value)
{
    const auto nearest = static_cast<double>(value);
    if (!std::isfinite(value) || static_cast<long double>(nearest) == value) return Floating(nearest);
    const std::string digits = PlainNumber(value);
    Abilities().HasDecimals ? Number(digits) : String(digits);
}

void CEventSink::Negative(unsigned long long below) { interchange::PutNegative(*this, below); }

void CEventSink::Number(std::string_view digits)
{
    if (!Abilities().HasTags || !interchange::PutDecimal(*this, digits)) String(digits);
}

void CEventSink::Bytes(std::string_view bytes) { String(interchange::BytesAsText(bytes)); }

void CEventSink::DateTime(const CDateTime& time) { TimeText(interchange::DateTimeAsText(time)); }

void CEventSink::TimeText(std::string_view text)
{
    if (Abilities().HasTags) Tag(ValueTag::TIME_TEXT);
    String(text);
}

void CEventSink::Tag(ValueTag) {}

void CEventSink::IntegerKey(long long key) { Key(std::to_string(key)); }

void CEventSink::RawJson(std::string_view json)
{
    CReadPolicy policy;
    policy.MaxDepth = CReadPolicy::NO_LIMIT; // nothing recurses here
    interchange::CJsonSource source(json, policy);
    interchange::CopyValue(source, *this);
}

} // namespace vexa
