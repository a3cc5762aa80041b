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

/// A value that is not inside another. A reference without address is null.
struct CTop {
    const CConstRefrence& Ref;
    const detail::CEnumerationSlot* Names; ///< of its values, where it is an enumeration
};

template<class Sink>
typename Sink::Cursor WriteTop(Sink& sink, CWriteContext& context, typename Sink::Cursor at, const CTop& top)
{
    if (top.Ref.Address == nullptr) return sink.Null(at);
    const CForm form(top.Ref.TypeInfor, 0, top.Names);
    CWriteFrame outside;
    return CWritingWalk<Sink>(sink, context).Holder(at, form, top.Ref.Address, outside);
}

} // namespace vexa::interchange

#endif
