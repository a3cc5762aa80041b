#ifndef ORDANA_BENCH_DESCRIBED_WORKLOADS_H
#define ORDANA_BENCH_DESCRIBED_WORKLOADS_H

#include <vexa/vexa.h>

#include "workloads.h"

// The library's view of the workloads, which know nothing of it.

namespace workload {

VEXA_DESCRIBE(Language, alpha_3, name, alpha_2, common_name, bibliographic, scope, type, inverted_name)
VEXA_DESCRIBE_CLASS(Languages) { about.Attrib("639-3", &Languages::records); }
VEXA_DESCRIBE(Addr, city, zip, number)
VEXA_DESCRIBE(Order, id, ts, paid, qty, code, customer, items, address)
VEXA_DESCRIBE(Orders, orders)

} // namespace workload

#endif
