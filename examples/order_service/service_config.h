#ifndef VEXA_EXAMPLE_SERVICE_CONFIG_H
#define VEXA_EXAMPLE_SERVICE_CONFIG_H

#include <chrono>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

#include <vexa/types.h>
#include <vexa/vexa.h>

#include "orders.h"

namespace shop {

/// How the service is set up. What a file does not name keeps the value that it has here.
struct ServiceConfig {
    std::string host = "localhost";
    unsigned short port = 8080;
    std::chrono::milliseconds timeout{30'000};
    std::filesystem::path spool = "/var/spool/orders";
    std::vector<bool> openOnWeekdays = {true, true, true, true, true, false, false};
    std::map<Status, std::chrono::hours> deadlines = {{Status::placed, std::chrono::hours{48}}};
};

VEXA_DESCRIBE_CLASS(ServiceConfig)
{
    about.Attrib("host", &ServiceConfig::host).Length(1, 255).Doc("The name or address to listen on");
    about.Attrib("port", &ServiceConfig::port).Key("serverPort").Alias("port_no").Required().Range(1024, 65535);
    about.Attrib("timeout", &ServiceConfig::timeout).Unit("ms").Doc("How long a request may take");
    about.Attrib("spool", &ServiceConfig::spool).OmitIfDefault();
    about.Attrib("openOnWeekdays", &ServiceConfig::openOnWeekdays).Length(7, 7);
    about.Attrib("deadlines", &ServiceConfig::deadlines).Unit("h").Doc("How long an order may stay in a state");
}

} // namespace shop

#endif
