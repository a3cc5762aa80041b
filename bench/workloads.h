#ifndef ORDANA_BENCH_WORKLOADS_H
#define ORDANA_BENCH_WORKLOADS_H

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace workload {

struct Language {
    std::string alpha_3;
    std::string name;
    std::string alpha_2;
    std::string common_name;
    std::string bibliographic;
    std::string scope;
    std::string type;
    std::string inverted_name;
};

// In text: {"639-3":[...]}
struct Languages {
    std::vector<Language> records;
};

struct Addr {
    std::string city;
    std::string zip;
    int number = 0;
};

struct Order {
    int id = 0;
    long ts = 0;
    bool paid = false;
    unsigned qty = 0;
    short code = 0;
    std::string customer;
    std::vector<int> items;
    Addr address;
};

// In text: {"orders":[...]}
struct Orders {
    std::vector<Order> orders;
};

inline bool operator==(const Language& a, const Language& b)
{
    return a.alpha_3 == b.alpha_3 && a.name == b.name && a.alpha_2 == b.alpha_2 && a.common_name == b.common_name &&
           a.bibliographic == b.bibliographic && a.scope == b.scope && a.type == b.type &&
           a.inverted_name == b.inverted_name;
}

inline bool operator==(const Languages& a, const Languages& b) { return a.records == b.records; }

inline bool operator==(const Addr& a, const Addr& b)
{
    return a.city == b.city && a.zip == b.zip && a.number == b.number;
}

inline bool operator==(const Order& a, const Order& b)
{
    return a.id == b.id && a.ts == b.ts && a.paid == b.paid && a.qty == b.qty && a.code == b.code &&
           a.customer == b.customer && a.items == b.items && a.address == b.address;
}

inline bool operator==(const Orders& a, const Orders& b) { return a.orders == b.orders; }

inline bool operator!=(const Language& a, const Language& b) { return !(a == b); }
inline bool operator!=(const Languages& a, const Languages& b) { return !(a == b); }
inline bool operator!=(const Addr& a, const Addr& b) { return !(a == b); }
inline bool operator!=(const Order& a, const Order& b) { return !(a == b); }
inline bool operator!=(const Orders& a, const Orders& b) { return !(a == b); }

constexpr const char* kLanguagesFile = "/usr/share/iso-codes/json/iso_639-3.json";

// The file as it is; empty when it is not installed.
inline std::string LoadFile(const char* path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

// Reads the file's own layout only: one `"key": "value"` per line, no escapes. Independent of every candidate on
// purpose, so that it can serve as their check. Returns an empty list when the layout is another one.
inline Languages ParseLanguagesFile(std::string_view text)
{
    Languages all;
    if (text.find('\\') != std::string_view::npos) {
        return all;
    }
    while (!text.empty()) {
        const std::size_t length = text.find('\n');
        const std::string_view line = text.substr(0, length);
        text.remove_prefix(length == std::string_view::npos ? text.size() : length + 1);
        if (line == "    {") {
            all.records.emplace_back();
            continue;
        }
        const std::size_t open = line.find('"');
        const std::size_t separator = line.find("\": \"");
        const std::size_t close = line.rfind('"');
        if (separator == std::string_view::npos || all.records.empty()) {
            continue;
        }
        const std::string_view key = line.substr(open + 1, separator - open - 1);
        const std::string_view value = line.substr(separator + 4, close - separator - 4);
        Language& to = all.records.back();
        std::string* const member = key == "alpha_3"         ? &to.alpha_3
                                    : key == "name"          ? &to.name
                                    : key == "alpha_2"       ? &to.alpha_2
                                    : key == "common_name"   ? &to.common_name
                                    : key == "bibliographic" ? &to.bibliographic
                                    : key == "scope"         ? &to.scope
                                    : key == "type"          ? &to.type
                                    : key == "inverted_name" ? &to.inverted_name
                                                             : nullptr;
        if (member == nullptr) {
            return Languages();
        }
        member->assign(value);
    }
    return all;
}

inline Languages MakeLanguages() { return ParseLanguagesFile(LoadFile(kLanguagesFile)); }

// SplitMix64: the same numbers on every machine and with every standard library.
class Random {
public:
    explicit Random(std::uint64_t seed) : state_(seed) {}

    std::uint64_t Next()
    {
        std::uint64_t z = (state_ += 0x9E3779B97F4A7C15u);
        z = (z ^ (z >> 30)) * 0xBF58476D1CE4E5B9u;
        z = (z ^ (z >> 27)) * 0x94D049BB133111EBu;
        return z ^ (z >> 31);
    }

    std::uint64_t Below(std::uint64_t bound) { return Next() % bound; }

private:
    std::uint64_t state_;
};

inline Orders MakeOrders(std::size_t count = 10000, std::uint64_t seed = 20240229)
{
    // clang-format off
    static const char* const kCities[] = {
        "Berlin", "München", "Köln", "Düsseldorf", "Paris", "Saint-Étienne", "Lyon", "Zürich", "Genève", "Wien",
        "Graz", "Kraków", "Łódź", "Warszawa", "Praha", "Plzeň", "Madrid", "Málaga", "A Coruña", "Lisboa", "São Paulo",
        "New York", "Los Angeles", "Chicago", "Philadelphia", "San Francisco", "London", "Manchester", "Dublin",
        "Stockholm", "Göteborg", "Malmö", "København", "Århus", "Oslo", "Tromsø", "Helsinki", "Jyväskylä", "Tallinn",
        "Rīga", "Vilnius", "Αθήνα", "София", "Москва", "Київ", "東京", "大阪", "서울", "İstanbul", "Villingen-Schwenningen",
        "Frankfurt am Main", "Santiago de Compostela",
    };
    // clang-format on
    static const char kLetters[] = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789._";
    // Decimal lengths evenly spread, as of real identifiers and amounts, not nearly always the longest one.
    static const std::uint64_t kPowers[] = {10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000, 1000000000};
    Random random(seed);
    Orders all;
    all.orders.resize(count);
    for (Order& order : all.orders) {
        const int magnitude = static_cast<int>(random.Below(kPowers[4 + random.Below(5)]));
        order.id = random.Below(16) == 0 ? -magnitude : magnitude;
        order.ts = 1700000000000L + static_cast<long>(random.Below(50000000000u));
        order.paid = random.Below(2) != 0;
        order.qty = static_cast<unsigned>(random.Below(kPowers[random.Below(4)]));
        order.code = static_cast<short>(static_cast<int>(random.Below(65536)) - 32768);
        for (int i = 0; i < 12; ++i) {
            order.customer.push_back(kLetters[random.Below(sizeof(kLetters) - 1)]);
        }
        order.items.resize(8);
        for (int& item : order.items) {
            item = static_cast<int>(random.Below(kPowers[random.Below(6)]));
        }
        order.address.city = kCities[random.Below(sizeof(kCities) / sizeof(kCities[0]))];
        for (int i = 0; i < 5; ++i) {
            order.address.zip.push_back(static_cast<char>('0' + random.Below(10)));
        }
        order.address.number = static_cast<int>(1 + random.Below(300));
    }
    return all;
}

} // namespace workload

#endif
