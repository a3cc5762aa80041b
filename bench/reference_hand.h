#ifndef ORDANA_BENCH_REFERENCE_HAND_H
#define ORDANA_BENCH_REFERENCE_HAND_H

// Written by hand for exactly these structures.

#include "reference_text.h"
#include "workloads.h"

namespace reference {
namespace detail {

inline char* PutRecord(std::string& out, char* at, const workload::Language& from)
{
    at = PutText(out, Put(at, "{\"alpha_3\":\""), from.alpha_3);
    at = PutText(out, Put(at, "\",\"name\":\""), from.name);
    at = PutText(out, Put(at, "\",\"alpha_2\":\""), from.alpha_2);
    at = PutText(out, Put(at, "\",\"common_name\":\""), from.common_name);
    at = PutText(out, Put(at, "\",\"bibliographic\":\""), from.bibliographic);
    at = PutText(out, Put(at, "\",\"scope\":\""), from.scope);
    at = PutText(out, Put(at, "\",\"type\":\""), from.type);
    at = PutText(out, Put(at, "\",\"inverted_name\":\""), from.inverted_name);
    return Put(at, "\"}");
}

inline char* PutRecord(std::string& out, char* at, const workload::Order& from)
{
    at = PutInteger(Put(at, "{\"id\":"), from.id);
    at = PutInteger(Put(at, ",\"ts\":"), from.ts);
    at = from.paid ? Put(at, ",\"paid\":true") : Put(at, ",\"paid\":false");
    at = PutInteger(Put(at, ",\"qty\":"), from.qty);
    at = PutInteger(Put(at, ",\"code\":"), from.code);
    at = PutText(out, Put(at, ",\"customer\":\""), from.customer);
    at = PutInts(out, Put(at, "\",\"items\":"), from.items);
    at = PutText(out, Put(at, ",\"address\":{\"city\":\""), from.address.city);
    at = PutText(out, Put(at, "\",\"zip\":\""), from.address.zip);
    at = PutInteger(Put(at, "\",\"number\":"), from.address.number);
    return Put(at, "}}");
}

inline bool ReadRecord(const char*& at, const char* end, workload::Language& to)
{
    static constexpr std::string_view kKeys[] = {
        "\"alpha_3\":",       "\"name\":",  "\"alpha_2\":", "\"common_name\":",
        "\"bibliographic\":", "\"scope\":", "\"type\":",    "\"inverted_name\":"};
    std::string* const members[] = {&to.alpha_3,       &to.name,  &to.alpha_2, &to.common_name,
                                    &to.bibliographic, &to.scope, &to.type,    &to.inverted_name};
    return ReadObject(at, end, kKeys, [&](std::size_t index) { return ReadValue(at, end, *members[index]); });
}

inline bool ReadAddress(const char*& at, const char* end, workload::Addr& to)
{
    static constexpr std::string_view kKeys[] = {"\"city\":", "\"zip\":", "\"number\":"};
    return ReadObject(at, end, kKeys, [&](std::size_t index) {
        return index == 0   ? ReadValue(at, end, to.city)
               : index == 1 ? ReadValue(at, end, to.zip)
                            : ReadValue(at, end, to.number);
    });
}

inline bool ReadRecord(const char*& at, const char* end, workload::Order& to)
{
    static constexpr std::string_view kKeys[] = {
        "\"id\":", "\"ts\":", "\"paid\":", "\"qty\":", "\"code\":", "\"customer\":", "\"items\":", "\"address\":"};
    return ReadObject(at, end, kKeys, [&](std::size_t index) {
        switch (index) {
        case 0: return ReadValue(at, end, to.id);
        case 1: return ReadValue(at, end, to.ts);
        case 2: return ReadValue(at, end, to.paid);
        case 3: return ReadValue(at, end, to.qty);
        case 4: return ReadValue(at, end, to.code);
        case 5: return ReadValue(at, end, to.customer);
        case 6: return ReadValue(at, end, to.items);
        default: return ReadAddress(at, end, to.address);
        }
    });
}

inline constexpr auto kReadRecord = [](const char*& at, const char* end, auto& to) { return ReadRecord(at, end, to); };

template<std::size_t N, class Record>
void WriteRecords(std::string& out, const char (&head)[N], const std::vector<Record>& records)
{
    WriteRoot(out, head, records, [&out](char* at, const Record& from) { return PutRecord(out, at, from); });
}

} // namespace detail

inline void WriteByHand(std::string& out, const workload::Languages& from)
{
    detail::WriteRecords(out, "{\"639-3\":", from.records);
}

inline void WriteByHand(std::string& out, const workload::Orders& from)
{
    detail::WriteRecords(out, "{\"orders\":", from.orders);
}

inline bool ReadByHand(workload::Languages& to, std::string_view text)
{
    return detail::ReadRoot(text, "\"639-3\":", to.records, detail::kReadRecord);
}

inline bool ReadByHand(workload::Orders& to, std::string_view text)
{
    return detail::ReadRoot(text, "\"orders\":", to.orders, detail::kReadRecord);
}

} // namespace reference

#endif
