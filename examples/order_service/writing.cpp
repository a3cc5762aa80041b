#include <iostream>

#include <vexa/find_class.h>
#include <vexa/interchange.h>

#include "payloads.h"
#include "steps.h"

namespace shop {

bool WriteForPeople(Service& service)
{
    Heading("For people: indented, without what is confidential");
    vexa::CWritePolicy policy;
    policy.Indentation = 4;
    policy.Masked = vexa::MaskedValues::MASK;
    policy.LeaveOutNulls = true;
    const std::string text = vexa::WriteJson(service.order, policy);
    std::cout << text << '\n' << vexa::WriteJson(service.config) << '\n';
    return Check("the card's number is not shown", text.find("4111111111111111") == std::string::npos);
}

bool WriteAndReadAgain(Service& service)
{
    Heading("Written, read and written again");
    const std::string text = vexa::WriteJson(service.order);
    Order again;
    vexa::CReport report;
    const bool isRead = vexa::ReadJson(again, text, report);
    std::cout << report.AsString(text);
    return Check("it is read without a problem", isRead) &&
           Check("it is written as before", vexa::WriteJson(again) == text);
}

bool WriteReport(Service&)
{
    Heading("Problems for programs");
    Pickup pickup;
    vexa::CReport report;
    vexa::ReadJson(pickup, R"({"store": "seven"})", report);
    vexa::CWritePolicy policy;
    policy.Indentation = 4;
    std::cout << vexa::WriteJson(report, policy) << '\n';
    return Check("there is one", report.Problems().size() == 1);
}

bool ListClasses(Service&)
{
    Heading("The classes");
    vexa::ForEachClass([](const vexa::CClassInfor& infor) { std::cout << vexa::QualifiedNameOf(infor) << '\n'; });
    return Check("a class is found by its name", vexa::FindClass("shop::CardPayment") != nullptr);
}

} // namespace shop
