#ifndef ORDANA_BENCH_REFERENCE_TABLE_H
#define ORDANA_BENCH_REFERENCE_TABLE_H

// The smallest run-time table that does the same jobs: one row per member, one loop for every structure.

#include "reference_text.h"
#include "workloads.h"

namespace reference {
namespace detail {

enum class Code { kText, kInt, kLong, kBool, kUnsigned, kShort, kInts, kStruct };

struct Row {
    std::size_t offset;
    Code code;
    const std::vector<Row>* rows;
    // `"name":`, always copied as a whole.
    char key[24] = {};
    std::size_t length;

    Row(std::size_t memberOffset, Code memberCode, const std::string& name,
        const std::vector<Row>* memberRows = nullptr)
        : offset(memberOffset), code(memberCode), rows(memberRows), length(('"' + name + "\":").copy(key, sizeof(key)))
    {
    }

    operator std::string_view() const { return std::string_view(key, length); }
};

template<class Type>
Type& As(char* member)
{
    return *reinterpret_cast<Type*>(member);
}

template<class Type>
const Type& As(const char* member)
{
    return *reinterpret_cast<const Type*>(member);
}

inline const std::vector<Row> kLanguageRows = {
    {offsetof(workload::Language, alpha_3), Code::kText, "alpha_3"},
    {offsetof(workload::Language, name), Code::kText, "name"},
    {offsetof(workload::Language, alpha_2), Code::kText, "alpha_2"},
    {offsetof(workload::Language, common_name), Code::kText, "common_name"},
    {offsetof(workload::Language, bibliographic), Code::kText, "bibliographic"},
    {offsetof(workload::Language, scope), Code::kText, "scope"},
    {offsetof(workload::Language, type), Code::kText, "type"},
    {offsetof(workload::Language, inverted_name), Code::kText, "inverted_name"},
};
inline const std::vector<Row> kAddrRows = {
    {offsetof(workload::Addr, city), Code::kText, "city"},
    {offsetof(workload::Addr, zip), Code::kText, "zip"},
    {offsetof(workload::Addr, number), Code::kInt, "number"},
};
inline const std::vector<Row> kOrderRows = {
    {offsetof(workload::Order, id), Code::kInt, "id"},
    {offsetof(workload::Order, ts), Code::kLong, "ts"},
    {offsetof(workload::Order, paid), Code::kBool, "paid"},
    {offsetof(workload::Order, qty), Code::kUnsigned, "qty"},
    {offsetof(workload::Order, code), Code::kShort, "code"},
    {offsetof(workload::Order, customer), Code::kText, "customer"},
    {offsetof(workload::Order, items), Code::kInts, "items"},
    {offsetof(workload::Order, address), Code::kStruct, "address", &kAddrRows},
};

// Every member leaves room for the brackets and commas around it.
inline char* PutStruct(std::string& out, char* at, const std::vector<Row>& rows, const char* object)
{
    *at++ = '{';
    for (const Row& row : rows) {
        const char* const member = object + row.offset;
        at = Reserve(out, at, kRoom);
        std::memcpy(at, row.key, sizeof(row.key));
        at += row.length;
        switch (row.code) {
        case Code::kText: at = Put(PutText(out, Put(at, "\""), As<std::string>(member)), "\""); break;
        case Code::kInt: at = PutInteger(at, As<int>(member)); break;
        case Code::kLong: at = PutInteger(at, As<long>(member)); break;
        case Code::kBool: at = As<bool>(member) ? Put(at, "true") : Put(at, "false"); break;
        case Code::kUnsigned: at = PutInteger(at, As<unsigned>(member)); break;
        case Code::kShort: at = PutInteger(at, As<short>(member)); break;
        case Code::kInts: at = PutInts(out, at, As<std::vector<int>>(member)); break;
        case Code::kStruct: at = PutStruct(out, at, *row.rows, member); break;
        }
        *at++ = ',';
    }
    at[-1] = '}';
    return at;
}

inline bool ReadStruct(const char*& at, const char* end, const std::vector<Row>& rows, char* object)
{
    return ReadObject(at, end, rows, [&](std::size_t index) {
        const Row& row = rows[index];
        char* const member = object + row.offset;
        switch (row.code) {
        case Code::kText: return ReadValue(at, end, As<std::string>(member));
        case Code::kInt: return ReadValue(at, end, As<int>(member));
        case Code::kLong: return ReadValue(at, end, As<long>(member));
        case Code::kBool: return ReadValue(at, end, As<bool>(member));
        case Code::kUnsigned: return ReadValue(at, end, As<unsigned>(member));
        case Code::kShort: return ReadValue(at, end, As<short>(member));
        case Code::kInts: return ReadValue(at, end, As<std::vector<int>>(member));
        case Code::kStruct: return ReadStruct(at, end, *row.rows, member);
        }
        return false;
    });
}

template<std::size_t N, class Struct>
void WriteStructs(std::string& out, const char (&head)[N], const std::vector<Struct>& list,
                  const std::vector<Row>& rows)
{
    WriteRoot(out, head, list, [&](char* at, const Struct& from) {
        return PutStruct(out, at, rows, reinterpret_cast<const char*>(&from));
    });
}

template<class Struct>
bool ReadStructs(std::string_view text, std::string_view key, std::vector<Struct>& list, const std::vector<Row>& rows)
{
    return ReadRoot(text, key, list, [&](const char*& at, const char* end, Struct& to) {
        return ReadStruct(at, end, rows, reinterpret_cast<char*>(&to));
    });
}

} // namespace detail

inline void WriteByTable(std::string& out, const workload::Languages& from)
{
    detail::WriteStructs(out, "{\"639-3\":", from.records, detail::kLanguageRows);
}

inline void WriteByTable(std::string& out, const workload::Orders& from)
{
    detail::WriteStructs(out, "{\"orders\":", from.orders, detail::kOrderRows);
}

inline bool ReadByTable(workload::Languages& to, std::string_view text)
{
    return detail::ReadStructs(text, "\"639-3\":", to.records, detail::kLanguageRows);
}

inline bool ReadByTable(workload::Orders& to, std::string_view text)
{
    return detail::ReadStructs(text, "\"orders\":", to.orders, detail::kOrderRows);
}

} // namespace reference

#endif
