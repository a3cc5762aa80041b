// Writing any value as JSON.

#include <vexa/detail/interchange.h>

#include "interchange/json_sink.h"
#include "interchange/write_all.h"

namespace vexa {

namespace interchange {

namespace {

template<bool STYLED, class... Room>
void Write(CWriteContext& context, const CTop& top, Room&&... room)
{
    CJsonSink<STYLED> sink(context, std::forward<Room>(room)...);
    sink.End(WriteTop(sink, context, sink.Begin(), top));
}

template<class... Room>
void WriteStyled(CWriteContext& context, const CTop& top, Room&&... room)
{
    const bool isStyled = context.Policy().Indentation != 0 || context.Policy().AsciiOnly;
    if (isStyled)
        Write<true>(context, top, std::forward<Room>(room)...);
    else
        Write<false>(context, top, std::forward<Room>(room)...);
}

} // namespace

bool CompactText(std::string& out, const CForm& form, const void* holder)
{
    CWritePolicy policy;
    policy.AllowNan = true; // equal to itself here
    CWriteContext context(policy, nullptr, true);
    CJsonSink<false> sink(context, out);
    CWriteFrame outside;
    sink.End(CWritingWalk<CJsonSink<false>>(sink, context).Holder(sink.Begin(), form, holder, outside));
    return !context.HasProblems();
}

} // namespace interchange

bool WriteJson(std::string& out, const CConstRefrence& ref, const CWritePolicy& policy, CReport* report,
               const detail::CEnumerationSlot* names)
{
    interchange::CWriteContext context(policy, report);
    try {
        interchange::WriteStyled(context, {ref, names}, out);
    } catch (...) {
        out.clear(); // half a text
        throw;
    }
    return !context.HasProblems();
}

bool WriteJson(const OutputFunction& out, const CConstRefrence& ref, const CWritePolicy& policy, CReport* report,
               const detail::CEnumerationSlot* names)
{
    interchange::CWriteContext context(policy, report);
    std::string memory;
    try {
        interchange::WriteStyled(context, {ref, names}, memory, out);
    } catch (const interchange::COutputStopped&) {
        return false;
    }
    return !context.HasProblems();
}

} // namespace vexa
