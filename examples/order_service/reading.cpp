#include <iostream>
#include <utility>

#include <vexa/interchange.h>

#include "payloads.h"
#include "steps.h"

namespace shop {

namespace {

/// What people write by hand may have comments, and a comma too many.
vexa::CReadPolicy ForPeople()
{
    vexa::CReadPolicy policy;
    policy.AllowComments = true;
    policy.AllowTrailingCommas = true;
    return policy;
}

/// What comes from outside has bounds, and either changes an object whole or not at all.
vexa::CReadPolicy ForPartners()
{
    vexa::CReadPolicy policy;
    policy.Transactional = true;
    policy.MaxBytes = 100'000;
    policy.MaxDepth = 20;
    return policy;
}

} // namespace

bool ReadConfig(Service& service)
{
    Heading("A configuration");
    vexa::CReport report;
    if (!vexa::ReadJson(service.config, CONFIG, report, ForPeople())) std::cout << report.AsString(CONFIG);
    std::cout << service.config.host << ':' << service.config.port << ", " << service.config.timeout.count()
              << " ms, spool " << service.config.spool << '\n';
    return Check("what the file does not name is as before", service.config.host == "localhost") &&
           Check("what it names is replaced whole", service.config.deadlines.size() == 2);
}

bool ReadBrokenConfig(Service& service)
{
    Heading("A broken configuration");
    ServiceConfig config = service.config;
    vexa::CReport report;
    report.SetName("config.json");
    const bool isRead = vexa::ReadJson(config, BROKEN_CONFIG, report);
    std::cout << report.AsString(BROKEN_CONFIG);
    return Check("it is refused", !isRead);
}

bool ReadPartnerOrder(Service& service)
{
    Heading("A partner's order");
    Order& order = service.order;
    vexa::CReport report;
    if (!vexa::ReadJson(order, PARTNER_ORDER, report, ForPartners())) std::cout << report.AsString(PARTNER_ORDER);
    std::cout << order.customer.fullName << " pays " << (order.payment ? order.payment->Describe() : "nothing") << '\n';
    for (const OrderLine& line : order.lines)
        std::cout << line.quantity << " x " << line.product->title << ", " << line.product->weight.AsString() << " kg, "
                  << line.price.minorUnits << " cents, " << int{line.discountPercent} << " %\n";
    for (const auto& [key, json] : order.extra)
        std::cout << "not known to us: " << key << ' ' << json.Text() << '\n';
    return Check("the card is a card", dynamic_cast<const CardPayment*>(order.payment.get()) != nullptr) &&
           Check("the delivery is a parcel", std::holds_alternative<Parcel>(order.delivery)) &&
           Check("there is no telephone", !order.customer.phone.has_value());
}

bool ReadBrokenOrder(Service& service)
{
    Heading("A broken order");
    const std::string before = vexa::WriteJson(service.order);
    vexa::CReport report;
    report.SetName("order.json");
    const bool isRead = vexa::ReadJson(service.order, BROKEN_ORDER, report, ForPartners());
    const std::string shown = report.AsString(BROKEN_ORDER);
    std::cout << shown;
    return Check("it is refused", !isRead) &&
           Check("no confidential value is shown", shown.find("4111111111111111") == std::string::npos) &&
           Check("the order is as before", vexa::WriteJson(service.order) == before);
}

bool ReadLog(Service&)
{
    Heading("A log, line by line, in pieces of 16 bytes");
    std::string_view rest = ORDER_LOG;
    const auto nextPiece = [&rest] {
        const std::string_view piece = rest.substr(0, 16);
        rest.remove_prefix(piece.size());
        return piece;
    };
    int total = 0;
    const auto take = [&total](Pickup& pickup) {
        std::cout << "store " << pickup.store << ", " << pickup.window.count() << " minutes\n";
        ++total;
        return true;
    };
    vexa::CReport report;
    report.SetName("pickups.log");
    const bool isRead = vexa::ReadJsonLines<Pickup>(nextPiece, take, report);
    std::cout << report;
    return Check("the line that is cut off is told", !isRead) && Check("the others are taken", total == 2);
}

} // namespace shop
