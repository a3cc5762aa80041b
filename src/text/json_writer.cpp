// Writing any value as compact JSON: one walk, made first to measure and then to write.

#include <vexa/json.h>

#include <cassert>

#include "text/json_code.h"
#include "text/json_pass.h"
#include "text/json_walk.h"

namespace vexa {

namespace {

/// Writes what has been measured. Of what \p out holds only the memory is kept.
int WriteInto(std::string& out, unsigned long room, const CConstRefrence& ref)
{
    const unsigned long size = room + text::SPARE_ROOM;
    if (size > out.capacity()) out.clear(); // not to be moved
    out.resize(size);
    text::CWritingPass pass;
    text::CJsonWalk<text::CWritingPass> walk(pass);
    const char* const end = walk.Walk(out.data(), ref, nullptr);
    const auto length = static_cast<std::size_t>(end - out.data());
    assert(length <= room);
    out.resize(length);
    return walk.IsUnsupported() ? text::WRITE_UNSUPPORTED : 0;
}

/// Writes what may have grown since it was measured.
int WriteGrowing(std::string& out, unsigned long room, const CConstRefrence& ref)
{
    text::CGrowingPass pass(room);
    text::CJsonWalk<text::CGrowingPass> walk(pass);
    char* const end = walk.Walk(pass.Start(), ref, nullptr);
    out.swap(pass.Finish(end));
    if (!walk.IsTooDeep()) return 0;
    out.clear();
    return text::NESTED_TOO_DEEP;
}

} // namespace

// Nothing is left of a kind that has no JSON: its measured length is 0.
int ToJson(std::string& out, const CConstRefrence& ref)
{
    text::CMeasuringPass measure(out);
    text::CJsonWalk<text::CMeasuringPass> walk(measure);
    const unsigned long room = walk.Walk(0, ref, nullptr);
    if (walk.IsTooDeep()) {
        out.clear();
        return text::NESTED_TOO_DEEP;
    }
    if (measure.IsForeign()) return WriteGrowing(out, room, ref);
    if (!measure.MeetsOut()) return WriteInto(out, room, ref);
    std::string aside;
    const int code = WriteInto(aside, room, ref);
    out.swap(aside);
    return code;
}

} // namespace vexa
