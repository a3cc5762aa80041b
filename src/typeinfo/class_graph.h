#ifndef VEXA_TYPEINFO_CLASS_GRAPH_H
#define VEXA_TYPEINFO_CLASS_GRAPH_H

#include <vector>

#include <vexa/detail/slot.h>

namespace vexa::typeinfo {

/// The classes that hold this one as a base or by value, at any depth, that this one leads back to, and that have not
/// been started. They must take over its finished records: each is to be started first, asks for this one while it is
/// in progress, and is given back no more than its address, which is all that this one needs. In the order in which
/// they are met on the way from this one, so that every run builds the same descriptors.
///
/// Each description is looked at once until ForgetClassGraph. Call under the global lock.
std::vector<detail::CClassSlot*> UnstartedWholesOf(detail::CClassSlot& slot);

/// Frees what has been noted of the classes.
void ForgetClassGraph() noexcept;

} // namespace vexa::typeinfo

#endif
