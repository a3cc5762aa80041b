#include <vexa/event.h>

#include "interchange/json_source.h"
#include "interchange/raw_json.h"

namespace vexa {

CEventSource::~CEventSource() = default;

void CEventSource::Locate(CTextPlace&) {}

CEventSink::~CEventSink() = default;

void CEventSink::RawJson(std::string_view json)
{
    CReadPolicy policy;
    policy.MaxDepth = CReadPolicy::NO_LIMIT; // nothing recurses here
    interchange::CJsonSource source(json, policy);
    interchange::CopyValue(source, *this);
}

} // namespace vexa
