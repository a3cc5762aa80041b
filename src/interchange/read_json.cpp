#include <vexa/detail/interchange.h>

#include "interchange/json_line.h"
#include "interchange/json_source.h"
#include "interchange/read_value.h"
#include "interchange/read_whole.h"

namespace vexa {

namespace interchange {

template class CReader<CJsonSource>;

bool ReadJsonLine(const CRefrence& target, std::string_view line, const CTextPlace& start, CReport& report,
                  const CReadPolicy& policy)
{
    CJsonSource source(line, policy);
    return ReadWhole({target.TypeInfor, 0, nullptr}, target.Address, source, line, report, policy, &start);
}

} // namespace interchange

bool ReadJson(const CRefrence& target, std::string_view text, CReport& report, const CReadPolicy& policy,
              const detail::CEnumerationSlot* names)
{
    interchange::CJsonSource source(text, policy);
    return interchange::ReadWhole({target.TypeInfor, 0, names}, target.Address, source, text, report, policy);
}

} // namespace vexa
