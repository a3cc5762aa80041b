#include <vexa/detail/interchange.h>

#include "interchange/event_reader.h"
#include "interchange/json_pieces.h"
#include "interchange/read_value.h"
#include "interchange/read_whole.h"

namespace vexa {

namespace interchange {

template class CReader<CEventReader>;

} // namespace interchange

bool ReadEvents(const CRefrence& target, CEventSource& source, CReport& report, const CReadPolicy& policy,
                const detail::CEnumerationSlot* names)
{
    interchange::CEventReader events(source, policy);
    return interchange::ReadWhole({target.TypeInfor, 0, names}, target.Address, events, {}, report, policy);
}

bool ReadJson(const CRefrence& target, const InputFunction& input, CReport& report, const CReadPolicy& policy,
              const detail::CEnumerationSlot* names)
{
    interchange::CJsonPieces source(input, policy);
    return ReadEvents(target, source, report, policy, names);
}

} // namespace vexa
