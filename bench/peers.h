#ifndef ORDANA_BENCH_PEERS_H
#define ORDANA_BENCH_PEERS_H

// The same four jobs with well-known libraries, each used the way its manual shows for speed.
// PEERS_HAVE_... tells which of them are installed.

#include "workloads.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <vector>

#if __has_include(<rapidjson/reader.h>)
#define PEERS_HAVE_RAPIDJSON 1
// Has to come before the first inclusion of RapidJSON anywhere.
#ifndef RAPIDJSON_SSE2
#define RAPIDJSON_SSE2
#endif
#include <rapidjson/reader.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#endif

#if __has_include(<nlohmann/json.hpp>)
#define PEERS_HAVE_NLOHMANN 1
#include <nlohmann/json.hpp>
#endif

// The first version that converts described classes is 1.81.
#if __has_include(<boost/version.hpp>)
#include <boost/version.hpp>
#if BOOST_VERSION >= 108100 && __has_include(<boost/json.hpp>) && __has_include(<boost/describe.hpp>)
#define PEERS_HAVE_BOOST_JSON 1
#include <boost/describe.hpp>
#include <boost/json.hpp>
#endif
#endif

#if __has_include(<simdjson.h>)
#define PEERS_HAVE_SIMDJSON 1
#include <simdjson.h>
#endif

// ------------------------------------------------------------------------------------------------------ RapidJSON
#if defined(PEERS_HAVE_RAPIDJSON)

namespace peer_rapidjson {

using Buffer = rapidjson::StringBuffer;
using Writer = rapidjson::Writer<Buffer>;

template<std::size_t N>
void Key(Writer& writer, const char (&name)[N])
{
    writer.Key(name, static_cast<rapidjson::SizeType>(N - 1));
}

inline void Text(Writer& writer, const std::string& text)
{
    writer.String(text.data(), static_cast<rapidjson::SizeType>(text.size()));
}

inline void Write(Buffer& out, const workload::Languages& from)
{
    out.Clear();
    Writer writer(out);
    writer.StartObject();
    Key(writer, "639-3");
    writer.StartArray();
    for (const workload::Language& language : from.records) {
        writer.StartObject();
        Key(writer, "alpha_3");
        Text(writer, language.alpha_3);
        Key(writer, "name");
        Text(writer, language.name);
        Key(writer, "alpha_2");
        Text(writer, language.alpha_2);
        Key(writer, "common_name");
        Text(writer, language.common_name);
        Key(writer, "bibliographic");
        Text(writer, language.bibliographic);
        Key(writer, "scope");
        Text(writer, language.scope);
        Key(writer, "type");
        Text(writer, language.type);
        Key(writer, "inverted_name");
        Text(writer, language.inverted_name);
        writer.EndObject();
    }
    writer.EndArray();
    writer.EndObject();
}

inline void Write(Buffer& out, const workload::Orders& from)
{
    out.Clear();
    Writer writer(out);
    writer.StartObject();
    Key(writer, "orders");
    writer.StartArray();
    for (const workload::Order& order : from.orders) {
        writer.StartObject();
        Key(writer, "id");
        writer.Int(order.id);
        Key(writer, "ts");
        writer.Int64(order.ts);
        Key(writer, "paid");
        writer.Bool(order.paid);
        Key(writer, "qty");
        writer.Uint(order.qty);
        Key(writer, "code");
        writer.Int(order.code);
        Key(writer, "customer");
        Text(writer, order.customer);
        Key(writer, "items");
        writer.StartArray();
        for (const int item : order.items) {
            writer.Int(item);
        }
        writer.EndArray();
        Key(writer, "address");
        writer.StartObject();
        Key(writer, "city");
        Text(writer, order.address.city);
        Key(writer, "zip");
        Text(writer, order.address.zip);
        Key(writer, "number");
        writer.Int(order.address.number);
        writer.EndObject();
        writer.EndObject();
    }
    writer.EndArray();
    writer.EndObject();
}

// Returning false from an event stops the parser.
class LanguagesHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, LanguagesHandler> {
public:
    explicit LanguagesHandler(workload::Languages& to) : to_(to) {}

    bool Default() { return false; }

    bool StartObject()
    {
        if (++depth_ == 2) {
            to_.records.emplace_back();
        }
        return depth_ <= 2;
    }

    bool EndObject(rapidjson::SizeType)
    {
        --depth_;
        return true;
    }

    bool StartArray() { return depth_ == 1; }
    bool EndArray(rapidjson::SizeType) { return true; }

    bool Key(const char* name, rapidjson::SizeType length, bool)
    {
        const std::string_view key(name, length);
        if (depth_ == 1) {
            return key == "639-3";
        }
        workload::Language& language = to_.records.back();
        member_ = key == "alpha_3"         ? &language.alpha_3
                  : key == "name"          ? &language.name
                  : key == "alpha_2"       ? &language.alpha_2
                  : key == "common_name"   ? &language.common_name
                  : key == "bibliographic" ? &language.bibliographic
                  : key == "scope"         ? &language.scope
                  : key == "type"          ? &language.type
                  : key == "inverted_name" ? &language.inverted_name
                                           : nullptr;
        return member_ != nullptr;
    }

    bool String(const char* text, rapidjson::SizeType length, bool)
    {
        if (member_ == nullptr) {
            return false;
        }
        member_->assign(text, length);
        return true;
    }

private:
    workload::Languages& to_;
    std::string* member_ = nullptr;
    int depth_ = 0;
};

class OrdersHandler : public rapidjson::BaseReaderHandler<rapidjson::UTF8<>, OrdersHandler> {
public:
    explicit OrdersHandler(workload::Orders& to) : to_(to) {}

    bool Default() { return false; }

    bool StartObject()
    {
        ++depth_;
        if (depth_ == 2) {
            to_.orders.emplace_back();
        }
        return depth_ <= 2 || (depth_ == 3 && member_ == Member::kAddress);
    }

    bool EndObject(rapidjson::SizeType)
    {
        --depth_;
        return true;
    }

    bool StartArray() { return depth_ == 1 || (depth_ == 2 && member_ == Member::kItems); }
    bool EndArray(rapidjson::SizeType) { return true; }

    bool Key(const char* name, rapidjson::SizeType length, bool)
    {
        const std::string_view key(name, length);
        member_ = Member::kNone;
        if (depth_ == 1) {
            return key == "orders";
        }
        if (depth_ == 3) {
            member_ = key == "city"     ? Member::kCity
                      : key == "zip"    ? Member::kZip
                      : key == "number" ? Member::kNumber
                                        : Member::kNone;
            return member_ != Member::kNone;
        }
        member_ = key == "id"         ? Member::kId
                  : key == "ts"       ? Member::kTs
                  : key == "paid"     ? Member::kPaid
                  : key == "qty"      ? Member::kQty
                  : key == "code"     ? Member::kCode
                  : key == "customer" ? Member::kCustomer
                  : key == "items"    ? Member::kItems
                  : key == "address"  ? Member::kAddress
                                      : Member::kNone;
        return member_ != Member::kNone;
    }

    bool String(const char* text, rapidjson::SizeType length, bool)
    {
        if (to_.orders.empty()) {
            return false;
        }
        workload::Order& order = to_.orders.back();
        switch (member_) {
        case Member::kCustomer: order.customer.assign(text, length); return true;
        case Member::kCity: order.address.city.assign(text, length); return true;
        case Member::kZip: order.address.zip.assign(text, length); return true;
        default: return false;
        }
    }

    bool Bool(bool value)
    {
        if (member_ != Member::kPaid) {
            return false;
        }
        to_.orders.back().paid = value;
        return true;
    }

    bool Int(int value) { return Number(value); }
    bool Uint(unsigned value) { return Number(value); }
    bool Int64(std::int64_t value) { return Number(value); }
    bool Uint64(std::uint64_t value) { return value <= INT64_MAX && Number(static_cast<std::int64_t>(value)); }

private:
    enum class Member { kNone, kId, kTs, kPaid, kQty, kCode, kCustomer, kItems, kAddress, kCity, kZip, kNumber };

    template<class Integer>
    static bool Narrow(Integer& to, std::int64_t value)
    {
        to = static_cast<Integer>(value);
        return static_cast<std::int64_t>(to) == value;
    }

    bool Number(std::int64_t value)
    {
        if (to_.orders.empty()) {
            return false;
        }
        workload::Order& order = to_.orders.back();
        switch (member_) {
        case Member::kItems: return Narrow(order.items.emplace_back(), value);
        case Member::kId: return Narrow(order.id, value);
        case Member::kTs: return Narrow(order.ts, value);
        case Member::kQty: return Narrow(order.qty, value);
        case Member::kCode: return Narrow(order.code, value);
        case Member::kNumber: return Narrow(order.address.number, value);
        default: return false;
        }
    }

    workload::Orders& to_;
    Member member_ = Member::kNone;
    int depth_ = 0;
};

// `text` has to end in a null byte, as the one of a std::string does.
template<class Handler, class Object>
bool ReadWith(Object& to, const char* text)
{
    rapidjson::Reader reader;
    rapidjson::StringStream stream(text);
    Handler handler(to);
    return !reader.Parse<rapidjson::kParseDefaultFlags>(stream, handler).IsError();
}

inline bool Read(workload::Languages& to, const std::string& text)
{
    to.records.clear();
    return ReadWith<LanguagesHandler>(to, text.c_str());
}

inline bool Read(workload::Orders& to, const std::string& text)
{
    to.orders.clear();
    return ReadWith<OrdersHandler>(to, text.c_str());
}

} // namespace peer_rapidjson

#endif

// -------------------------------------------------------------------------------------------------------- nlohmann
#if defined(PEERS_HAVE_NLOHMANN)

namespace peer_nlohmann {

// Keeps the order of the members, and is the faster one for objects as small as these.
using Json = nlohmann::ordered_json;

// An object with all members at once: neither a search for each key nor the copies of an initializer list.
template<class... Values>
Json Object(const char* const (&names)[sizeof...(Values)], const Values&... values)
{
    Json::object_t members;
    members.reserve(sizeof...(Values));
    std::size_t next = 0;
    (static_cast<Json::object_t::Container&>(members).emplace_back(names[next++], Json(values)), ...);
    return Json(std::move(members));
}

inline void Write(std::string& out, const workload::Languages& from)
{
    static const char* const kNames[] = {"alpha_3",       "name",  "alpha_2", "common_name",
                                         "bibliographic", "scope", "type",    "inverted_name"};
    Json list = Json::array();
    list.get_ref<Json::array_t&>().reserve(from.records.size());
    for (const workload::Language& language : from.records) {
        list.push_back(Object(kNames, language.alpha_3, language.name, language.alpha_2, language.common_name,
                              language.bibliographic, language.scope, language.type, language.inverted_name));
    }
    Json root = Json::object();
    root["639-3"] = std::move(list);
    out = root.dump();
}

inline Json ToJson(const workload::Addr& from)
{
    static const char* const kNames[] = {"city", "zip", "number"};
    return Object(kNames, from.city, from.zip, from.number);
}

inline void Write(std::string& out, const workload::Orders& from)
{
    static const char* const kNames[] = {"id", "ts", "paid", "qty", "code", "customer", "items", "address"};
    Json list = Json::array();
    list.get_ref<Json::array_t&>().reserve(from.orders.size());
    for (const workload::Order& order : from.orders) {
        list.push_back(Object(kNames, order.id, order.ts, order.paid, order.qty, order.code, order.customer,
                              order.items, ToJson(order.address)));
    }
    Json root = Json::object();
    root["orders"] = std::move(list);
    out = root.dump();
}

inline bool Read(workload::Languages& to, std::string_view text)
{
    const Json root = Json::parse(text);
    const Json& list = root.at("639-3");
    to.records.clear();
    to.records.reserve(list.size());
    for (const Json& from : list) {
        workload::Language& language = to.records.emplace_back();
        from.at("alpha_3").get_to(language.alpha_3);
        from.at("name").get_to(language.name);
        from.at("alpha_2").get_to(language.alpha_2);
        from.at("common_name").get_to(language.common_name);
        from.at("bibliographic").get_to(language.bibliographic);
        from.at("scope").get_to(language.scope);
        from.at("type").get_to(language.type);
        from.at("inverted_name").get_to(language.inverted_name);
    }
    return true;
}

inline bool Read(workload::Orders& to, std::string_view text)
{
    const Json root = Json::parse(text);
    const Json& list = root.at("orders");
    to.orders.clear();
    to.orders.reserve(list.size());
    for (const Json& from : list) {
        workload::Order& order = to.orders.emplace_back();
        from.at("id").get_to(order.id);
        from.at("ts").get_to(order.ts);
        from.at("paid").get_to(order.paid);
        from.at("qty").get_to(order.qty);
        from.at("code").get_to(order.code);
        from.at("customer").get_to(order.customer);
        from.at("items").get_to(order.items);
        const Json& address = from.at("address");
        address.at("city").get_to(order.address.city);
        address.at("zip").get_to(order.address.zip);
        address.at("number").get_to(order.address.number);
    }
    return true;
}

} // namespace peer_nlohmann

#endif

// ------------------------------------------------------------------------------------------------------ Boost.JSON
#if defined(PEERS_HAVE_BOOST_JSON)

namespace workload {

BOOST_DESCRIBE_STRUCT(Language, (), (alpha_3, name, alpha_2, common_name, bibliographic, scope, type, inverted_name))
BOOST_DESCRIBE_STRUCT(Addr, (), (city, zip, number))
BOOST_DESCRIBE_STRUCT(Order, (), (id, ts, paid, qty, code, customer, items, address))

} // namespace workload

namespace peer_boost {

inline void Print(std::string& out, const boost::json::value& root)
{
    boost::json::serializer serializer;
    serializer.reset(&root);
    out.clear();
    char block[16384];
    while (!serializer.done()) {
        const boost::json::string_view part = serializer.read(block);
        out.append(part.data(), part.size());
    }
}

// All values of one document go into one arena, as the manual advises for values that are not changed.
inline void Write(std::string& out, const workload::Languages& from)
{
    boost::json::monotonic_resource arena;
    boost::json::object root(&arena);
    root.emplace("639-3", boost::json::value_from(from.records, &arena));
    Print(out, boost::json::value(std::move(root)));
}

inline void Write(std::string& out, const workload::Orders& from)
{
    boost::json::monotonic_resource arena;
    boost::json::object root(&arena);
    root.emplace("orders", boost::json::value_from(from.orders, &arena));
    Print(out, boost::json::value(std::move(root)));
}

inline boost::json::string_view View(std::string_view text) { return {text.data(), text.size()}; }

inline bool Read(workload::Languages& to, std::string_view text)
{
    boost::json::monotonic_resource arena;
    const boost::json::value root = boost::json::parse(View(text), &arena);
    to.records = boost::json::value_to<std::vector<workload::Language>>(root.at("639-3"));
    return true;
}

inline bool Read(workload::Orders& to, std::string_view text)
{
    boost::json::monotonic_resource arena;
    const boost::json::value root = boost::json::parse(View(text), &arena);
    to.orders = boost::json::value_to<std::vector<workload::Order>>(root.at("orders"));
    return true;
}

} // namespace peer_boost

#endif

// -------------------------------------------------------------------------------------------------------- simdjson
#if defined(PEERS_HAVE_SIMDJSON)

namespace peer_simdjson {

inline void Assign(std::string& to, simdjson::ondemand::object& from, std::string_view key)
{
    const std::string_view text = from.find_field_unordered(key).get_string();
    to.assign(text);
}

template<class Integer>
void Assign(Integer& to, simdjson::ondemand::object& from, std::string_view key)
{
    const std::int64_t value = from.find_field_unordered(key).get_int64();
    to = static_cast<Integer>(value);
    if (static_cast<std::int64_t>(to) != value) {
        throw simdjson::simdjson_error(simdjson::NUMBER_OUT_OF_RANGE);
    }
}

// The parser is kept by the caller, and the text needs the padding of padded_string. Errors are thrown.
inline bool Read(workload::Languages& to, simdjson::ondemand::parser& parser, const simdjson::padded_string& text)
{
    simdjson::ondemand::document root = parser.iterate(text);
    to.records.clear();
    for (simdjson::ondemand::object from : root.find_field("639-3").get_array()) {
        workload::Language& language = to.records.emplace_back();
        Assign(language.alpha_3, from, "alpha_3");
        Assign(language.name, from, "name");
        Assign(language.alpha_2, from, "alpha_2");
        Assign(language.common_name, from, "common_name");
        Assign(language.bibliographic, from, "bibliographic");
        Assign(language.scope, from, "scope");
        Assign(language.type, from, "type");
        Assign(language.inverted_name, from, "inverted_name");
    }
    return true;
}

inline bool Read(workload::Orders& to, simdjson::ondemand::parser& parser, const simdjson::padded_string& text)
{
    simdjson::ondemand::document root = parser.iterate(text);
    to.orders.clear();
    for (simdjson::ondemand::object from : root.find_field("orders").get_array()) {
        workload::Order& order = to.orders.emplace_back();
        Assign(order.id, from, "id");
        Assign(order.ts, from, "ts");
        order.paid = from.find_field_unordered("paid").get_bool();
        Assign(order.qty, from, "qty");
        Assign(order.code, from, "code");
        Assign(order.customer, from, "customer");
        for (const std::int64_t item : from.find_field_unordered("items").get_array()) {
            order.items.push_back(static_cast<int>(item));
        }
        simdjson::ondemand::object address = from.find_field_unordered("address").get_object();
        Assign(order.address.city, address, "city");
        Assign(order.address.zip, address, "zip");
        Assign(order.address.number, address, "number");
    }
    return true;
}

} // namespace peer_simdjson

#endif

#endif
