#ifndef VEXA_EXAMPLE_ORDERS_H
#define VEXA_EXAMPLE_ORDERS_H

#include <chrono>
#include <cstdint>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include <vexa/json_tree.h>
#include <vexa/types.h>
#include <vexa/vexa.h>

#include "money.h"

/// \file
/// The orders of a shop, as its partners send them: members have the names of our style, keys those of theirs.

namespace shop {

enum class Status { placed, paid, shipped, delivered, cancelled };
VEXA_DESCRIBE_ENUM(Status, placed, paid, shipped, delivered, cancelled)

enum class Carrier : unsigned char { dhl = 1, ups = 2, bicycle = 7 };
VEXA_DESCRIBE_ENUM(Carrier, dhl, ups, bicycle)

struct Address {
    std::string street;
    std::string zip;
    std::string city;
    std::string country = "DE";
};

VEXA_DESCRIBE_CLASS(Address)
{
    about.Attrib("street", &Address::street).Required();
    about.Attrib("zip", &Address::zip).Alias("postal_code").Required().Length(4, 10);
    about.Attrib("city", &Address::city).Required();
    about.Attrib("country", &Address::country).Length(2, 2).OmitIfDefault();
}

struct Customer {
    long long id = 0;
    std::string fullName;
    std::string email;
    std::optional<std::string> phone;
    Address address;
};

VEXA_DESCRIBE_CLASS(Customer)
{
    about.KeyStyle(vexa::KeyStyle::SNAKE);
    about.UnknownKeys(vexa::UnknownKeys::SKIP); // what else partners know of their customers is none of our business
    about.Attrib("id", &Customer::id).Required();
    about.Attrib("fullName", &Customer::fullName).Alias("name");
    about.Attrib("email", &Customer::email).Masked();
    about.Attrib("phone", &Customer::phone);
    about.Attrib("address", &Customer::address).Required();
}

struct Product {
    std::string sku;
    std::string title;
    vexa::CNumeric weight; ///< digit for digit as it is given
};

VEXA_DESCRIBE_CLASS(Product)
{
    about.Attrib("sku", &Product::sku).Required().Length(1, 32);
    about.Attrib("title", &Product::title);
    about.Attrib("weight", &Product::weight).Unit("kg");
}

struct OrderLine {
    std::shared_ptr<Product> product;
    unsigned short quantity = 1;
    std::int8_t discountPercent = 0; ///< negative for a surcharge
    bank::Money price;
};

VEXA_DESCRIBE_CLASS(OrderLine)
{
    about.KeyStyle(vexa::KeyStyle::SNAKE);
    about.Attrib("product", &OrderLine::product).Required();
    about.Attrib("quantity", &OrderLine::quantity).Range(1, 999);
    about.Attrib("discountPercent", &OrderLine::discountPercent).Range(-50, 50).OmitIfDefault();
    about.Attrib("price", &OrderLine::price).Flatten(); // its amount and currency stand in the line itself
}

/// One of several ways to pay: the key `method` tells which, wherever it stands in the object.
struct Payment {
    virtual ~Payment() = default;
    virtual std::string Describe() const = 0;
};

VEXA_DESCRIBE_CLASS(Payment) { about.Tag("method"); }

struct CardPayment : Payment {
    std::string number;
    std::string expires;

    std::string Describe() const override { return "by card until " + expires; }
};

VEXA_DESCRIBE_CLASS(CardPayment)
{
    about.Base<Payment>();
    about.TagValue("card");
    about.Attrib("number", &CardPayment::number).Masked().Required();
    about.Attrib("expires", &CardPayment::expires);
}

struct InvoicePayment : Payment {
    unsigned int daysToPay = 14;

    std::string Describe() const override { return "by invoice within " + std::to_string(daysToPay) + " days"; }
};

VEXA_DESCRIBE_CLASS(InvoicePayment)
{
    about.Base<Payment>();
    about.KeyStyle(vexa::KeyStyle::SNAKE);
    about.TagValue("invoice");
    about.Attrib("daysToPay", &InvoicePayment::daysToPay).Range(1, 90);
}

struct Parcel {
    Carrier carrier = Carrier::dhl;
    std::chrono::system_clock::time_point sent;
    std::filesystem::path label;
};
VEXA_DESCRIBE(Parcel, carrier, sent, label)

struct Pickup {
    int store = 0;
    std::chrono::minutes window{60}; ///< how long the order is kept ready
};
VEXA_DESCRIBE(Pickup, store, window)

struct Order {
    std::string orderNumber;
    Status status = Status::placed;
    std::chrono::system_clock::time_point orderedAt;
    Customer customer;
    std::vector<OrderLine> lines;
    std::unique_ptr<Payment> payment;
    std::variant<std::monostate, Parcel, Pickup> delivery; ///< the one whose attributes are given
    std::map<std::string, std::string> remarks;
    std::map<std::string, vexa::CRawJson> extra; ///< what partners send that we do not know, as it stands
};

/// What no single attribute can tell. Gives what is wrong, or an empty text.
inline std::string CheckOrder(const Order& order)
{
    if (order.lines.empty()) return "an order needs a line";
    for (const OrderLine& line : order.lines)
        if (line.price.currency != order.lines.front().price.currency) return "the lines are in several currencies";
    return {};
}

VEXA_DESCRIBE_CLASS(Order)
{
    about.KeyStyle(vexa::KeyStyle::SNAKE);
    about.Attrib("orderNumber", &Order::orderNumber).Alias("order_no").Required();
    about.Attrib("status", &Order::status);
    about.Attrib("orderedAt", &Order::orderedAt).Required();
    about.Attrib("customer", &Order::customer).Required();
    about.Attrib("lines", &Order::lines).Length(0, 100);
    about.Attrib("payment", &Order::payment);
    about.Attrib("delivery", &Order::delivery);
    about.Attrib("remarks", &Order::remarks).OmitIfDefault();
    about.Attrib("extra", &Order::extra).KeepsUnknown();
    about.Check(CheckOrder);
}

} // namespace shop

#endif
