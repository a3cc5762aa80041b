#ifndef VEXA_TESTS_SUPPORT_DEPTHS_JSON_H
#define VEXA_TESTS_SUPPORT_DEPTHS_JSON_H

#include "support/everything_json.h"

/// The model of everything_json.h for the classes of described_depths.h.

namespace vexa_test::everything {

/// The active member of a union that owns, and how many keys there are.
inline bool AgreesCell(Comparison& comparison, const Json& json, const Cell& cell, std::size_t count)
{
    const bool isActive = VisitActive(cell, [&](const char* name, auto member) {
        ++count;
        return comparison.Inside(name, [&] {
            return comparison.Expect(json.contains(name), "missing") && Agrees(comparison, json[name], cell.*member);
        });
    });
    return isActive && comparison.Expect(json.size() == count + 1, json.dump()) &&
           Agrees(comparison, json.at("kind"), cell.kind);
}
inline bool Agrees(Comparison& comparison, const Json& json, const Cell& cell)
{
    return AgreesCell(comparison, json, cell, 0);
}
inline bool Agrees(Comparison& comparison, const Json& json, const Labelled& labelled)
{
    return AgreesCell(comparison, json, labelled, 1) && Agrees(comparison, json.at("label"), labelled.label);
}
inline bool Agrees(Comparison& comparison, const Json& json, const Cells& cells)
{
    Json members = json;
    for (const char* const name : {"kind", "number", "text", "point", "elsewhere", "maybe", "inners", "owned"})
        members.erase(name);
    return AgreesCell(comparison, json, cells, CELLS_MEMBERS.size()) &&
           AgreesMembers(comparison, members, CELLS_MEMBERS, MembersOf(cells));
}

/// Whether a key is there just when its attribute is not as in a new object, and agrees then.
template<class T>
bool AgreesUnlessDefault(Comparison& comparison, Json& json, const char* key, const T& value, const T& unused)
{
    const auto found = json.find(key);
    if (value == unused || found == json.end())
        return comparison.Expect(value == unused && found == json.end(), std::string(key) + " in " + json.dump());
    const Json member = *found;
    json.erase(found);
    return comparison.Inside(key, [&] { return Agrees(comparison, member, value); });
}
inline bool Agrees(Comparison& comparison, const Json& json, const Noted& noted)
{
    const Noted unused;
    Json members = json;
    if (!AgreesUnlessDefault(comparison, members, "retry-delays", noted.retryDelays, unused.retryDelays) ||
        !AgreesUnlessDefault(comparison, members, "most_value", noted.bounds.mostValue, unused.bounds.mostValue) ||
        !AgreesUnlessDefault(comparison, members, "last-signal", noted.lastSignal, unused.lastSignal))
        return false;
    std::vector<std::string> names = {"server-port", "Host name", "least_value", "fallback"};
    Json own;
    for (const std::string& name : names) {
        if (!comparison.Expect(members.contains(name), name)) return false;
        own[name] = members[name];
        members.erase(name);
    }
    return AgreesMembers(comparison, own, names,
                         std::tie(noted.serverPort, noted.hostName, noted.bounds.leastValue, noted.fallback)) &&
           comparison.Inside("rest", [&] { return AgreesObject(comparison, members, noted.rest); });
}

} // namespace vexa_test::everything

#endif
