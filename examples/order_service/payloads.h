#ifndef VEXA_EXAMPLE_PAYLOADS_H
#define VEXA_EXAMPLE_PAYLOADS_H

#include <string_view>

/// \file
/// What arrives: a file of our operators', and the payloads of a partner.

namespace shop {

inline constexpr std::string_view CONFIG = R"({
    // as of March
    "port_no": 9090,
    "timeout": 2500,
    "deadlines": {"placed": 24, "paid": 72},
}
)";

inline constexpr std::string_view BROKEN_CONFIG = R"({
    "serverPort": 99999,
    "timeuot": 2500,
    "host": "",
    "openOnWeekdays": [true, true, 1],
    "deadlines": {"placed": 24, "payed": 72},
    "timeout": 1.5,
    "timeout": 2500
}
)";

inline constexpr std::string_view PARTNER_ORDER = R"({
    "order_no": "2026-0815",
    "ordered_at": "2026-03-01T08:30:00.25+01:00",
    "utm": {"source": "newsletter", "score": 0.10},
    "customer": {
        "id": 4711,
        "name": "Zo\u00eb M\u00fcller",
        "email": "zoe@example.org",
        "phone": null,
        "segments": ["vip", {"since": 2019}],
        "address": {"street": "Am Markt 1", "postal_code": "06108", "city": "Halle"}
    },
    "lines": [
        {"product": {"sku": "TEA-1", "title": "Gr\u00fcner Tee \ud83c\udf75", "weight": 0.250},
         "quantity": 2, "amount": 1e3, "currency": "EUR"},
        {"product": {"sku": "CUP-7", "title": "Cup", "weight": 0.4},
         "quantity": 1, "discount_percent": -5, "amount": 1250, "currency": "EUR"}
    ],
    "payment": {"number": "4111111111111111", "expires": "12/27", "method": "card"},
    "delivery": {"carrier": "bicycle", "sent": "2026-03-02T10:00:00Z", "label": "labels/2026-0815.pdf"},
    "remarks": {"gift": "yes", "door": "rear"},
    "loyalty_points": 12
}
)";

inline constexpr std::string_view BROKEN_ORDER = R"({
    "order_no": "2026-0816",
    "status": "shiped",
    "ordered_at": "yesterday",
    "customer": {
        "id": 4712,
        "email": 4111111111111111,
        "address": {"street": "Am Markt 1", "zpi": "06108", "city": "Halle"}
    },
    "lines": [
        {"product": null, "quantity": 0, "discount_percent": 300, "amount": 10.5, "currency": "EUR"}
    ],
    "payment": {"number": "4111111111111111", "method": "crad"},
    "delivery": {"store": "seven"}
}
)";

/// One order a line; the second one is cut off.
inline constexpr std::string_view ORDER_LOG =
    R"({"store": 1, "window": 30}
{"store": 2, "wind
{"store": 3}
)";

} // namespace shop

#endif
