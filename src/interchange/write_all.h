#ifndef VEXA_INTERCHANGE_WRITE_ALL_H
#define VEXA_INTERCHANGE_WRITE_ALL_H

#include "interchange/write_basic.h"
#include "interchange/write_container.h"
#include "interchange/write_object.h"
#include "interchange/write_record.h"
#include "interchange/write_shape.h"
#include "interchange/write_walk.h"

/// \file
/// The whole walk, for whoever instantiates it.

namespace vexa::interchange {

/// Writes a value that is not inside another. A reference without address is null.
template<class Sink>
typename Sink::Cursor WriteTop(Sink& sink, CWriteContext& context, typename Sink::Cursor at, const CConstRefrence& ref)
{
    if (ref.Address == nullptr) return sink.Null(at);
    const CForm form(ref.TypeInfor, 0, nullptr);
    CWriteFrame outside;
    return CWritingWalk<Sink>(sink, context).Holder(at, form, ref.Address, outside);
}

} // namespace vexa::interchange

#endif
