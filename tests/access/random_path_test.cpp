// Random paths into random objects of every class, worked out by a walk over their C++ members, must lead to just these
// members; broken ones to a problem. ORDANA_ACCESS_OBJECTS tells how many objects of each class, ORDANA_ACCESS_SEED
// the first number.

#include <vexa/access.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <tuple>
#include <type_traits>
#include <variant>
#include <vector>

#include <gtest/gtest.h>

#include "support/described_everything.h"

namespace {

using namespace vexa_test::everything;

struct Place {
    std::string Path;
    const void* Address;
    vexa::CGnlTypeInfor Type;
};

/// The places in an object, found by its C++ members.
class Places {
public:
    template<class T>
    void Add(const std::string& path, T& value)
    {
        using Value = std::remove_const_t<T>;
        m_all.push_back({path, std::addressof(value), vexa::TypeInforOf<Value>()});
        Inside(path, value);
    }
    const std::vector<Place>& All() const { return m_all; }

private:
    static std::string Quoted(const std::string& key)
    {
        std::string text = "\"";
        for (const char byte : key) {
            char escape[8];
            std::snprintf(escape, sizeof escape, "\\u%04x", static_cast<unsigned int>(byte));
            const bool isPlain = static_cast<unsigned char>(byte) >= 0x20 && byte != '"' && byte != '\\';
            text += isPlain ? std::string(1, byte) : std::string(escape);
        }
        return text + '"';
    }
    template<class Map>
    static std::string KeyOf(const typename Map::key_type& key, std::size_t index)
    {
        using Key = typename Map::key_type;
        if constexpr (!IS_BY_KEY<Map>)
            return std::to_string(index);
        else if constexpr (std::is_same_v<Key, std::string>)
            return Quoted(key);
        else if constexpr (std::is_same_v<Key, std::filesystem::path>)
            return Quoted(key.string());
        else if constexpr (std::is_enum_v<Key>)
            return std::to_string(+static_cast<std::underlying_type_t<Key>>(key));
        else if constexpr (std::is_same_v<Key, char>)
            return std::to_string(static_cast<unsigned char>(key));
        else if constexpr (std::is_integral_v<Key> && !std::is_same_v<Key, bool>)
            return std::to_string(+key);
        else
            return std::to_string(index);
    }
    template<class Map>
    static constexpr bool
        IS_BY_KEY = (std::is_same_v<typename Map::key_type, std::string> ||
                     std::is_same_v<typename Map::key_type, std::filesystem::path> ||
                     std::is_enum_v<typename Map::key_type> ||
                     (std::is_integral_v<typename Map::key_type> && !std::is_same_v<typename Map::key_type, bool>)) &&
                    !std::is_same_v<decltype(std::declval<Map&>().insert(std::declval<typename Map::value_type>())),
                                    typename Map::iterator>;

    template<std::size_t INDEX = 0, class Tuple>
    void Members(const std::string& path, const std::vector<std::string>& names, const Tuple& members)
    {
        if constexpr (INDEX < std::tuple_size_v<Tuple>) {
            Add(path + (path.empty() ? "" : ".") + names[INDEX], std::get<INDEX>(members));
            Members<INDEX + 1>(path, names, members);
        }
    }
    template<std::size_t INDEX = 0, class Tuple>
    void Parts(const std::string& path, Tuple& parts)
    {
        if constexpr (INDEX < std::tuple_size_v<Tuple>) {
            Add(path + '[' + std::to_string(INDEX) + ']', std::get<INDEX>(parts));
            Parts<INDEX + 1>(path, parts);
        }
    }
    template<class Elements>
    void Elements_(const std::string& path, Elements& elements)
    {
        std::size_t index = 0;
        for (auto& element : elements)
            Add(path + '[' + std::to_string(index++) + ']', element);
    }
    template<class Map>
    void Entries(const std::string& path, Map& map)
    {
        std::size_t index = 0;
        for (auto& entry : map) {
            const std::string inside = path + '[' + KeyOf<Map>(entry.first, index++) + ']';
            if constexpr (IS_BY_KEY<Map>) {
                Add(inside, entry.second);
            } else {
                Add(inside + ".first", entry.first);
                Add(inside + "[1]", entry.second);
            }
        }
    }

    template<class T>
    void Inside(const std::string& path, T& value)
    {
        if constexpr (std::is_same_v<T, vexa::CJsonTree>) {
        } else if constexpr (HAS_MEMBERS<T>) {
            Members(path, T::Names(), value.Members());
        } else if constexpr (std::is_same_v<std::remove_const_t<T>, const char*>) {
        } else if constexpr (IS_HELD_APART<T>) {
            if (value) Inside(path, *value);
        } else if constexpr (IS<T, std::variant>) {
            if (!value.valueless_by_exception()) std::visit([&](auto& active) { Inside(path, active); }, value);
        } else if constexpr (IS<T, std::pair> || IS<T, std::tuple>) {
            Parts(path, value);
        } else if constexpr (std::is_same_v<T, std::vector<bool>>) {
        } else if constexpr (IS_MAP<T>) {
            Entries(path, value);
        } else if constexpr (IS_ITERABLE<T> || IS_FIXED<T>) {
            Elements_(path, value);
        } else if constexpr (std::is_same_v<T, vexa::CRow>) {
            Elements_(path, value.Values);
        } else if constexpr (std::is_same_v<T, vexa::CTable>) {
            Elements_(path, value.Rows);
        }
    }

    std::vector<Place> m_all;
};

constexpr unsigned int HELD = ~static_cast<unsigned int>(vexa::Enum::HF_CONST);

void ExpectSame(const Place& place, const vexa::CConstRefrence& found, const std::string& what)
{
    ASSERT_EQ(place.Address, found.Address) << what;
    EXPECT_EQ(place.Type.DataType, found.TypeInfor.DataType) << what;
    EXPECT_EQ(place.Type.HoldingFlags & HELD, found.TypeInfor.HoldingFlags & HELD) << what;
    EXPECT_EQ(place.Type.DetailInfor, found.TypeInfor.DetailInfor) << what;
}

std::string Mutated(std::mt19937_64& random, std::string path)
{
    static const std::string BYTES = ".[]\"*-0129ax_\\ ";
    for (std::size_t edits = 1 + random() % 3; edits != 0; --edits) {
        const std::size_t at = path.empty() ? 0 : random() % (path.size() + 1);
        const char byte = BYTES[random() % BYTES.size()];
        switch (random() % 3) {
        case 0: path.insert(at, 1, byte); break;
        case 1:
            if (at < path.size()) path[at] = byte;
            break;
        default: path.erase(at, 1 + random() % 3); break;
        }
    }
    return path;
}

/// A broken path leads nowhere, or to something that can be looked at; a bound one to the same.
void ExpectSafe(const vexa::CRefrence& object, const vexa::CClassInfor& infor, const std::string& path)
{
    vexa::CReport report;
    const vexa::CRefrence found = vexa::Find(object, path, &report);
    EXPECT_EQ(found.Address == nullptr, report.Problems().size() == 1) << path << '\n' << report;
    if (found.Address != nullptr) static_cast<void>(found.AsString());
    const vexa::CBoundPath bound(infor, path);
    EXPECT_EQ(found.Address, bound ? bound.Find(object).Address : nullptr) << path;
}

unsigned long NumberOf(const char* name, unsigned long otherwise)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? std::strtoul(value, nullptr, 10) : otherwise;
}

template<class T>
void CheckObject(std::uint64_t seed)
{
    const std::unique_ptr<T> object = MakeRandom<T>(seed);
    const vexa::CRefrence ref = vexa::RefOf(*object);
    std::mt19937_64 random(seed);
    Places places;
    places.Add("", *object);
    for (const Place& place : places.All()) {
        const std::string what =
            vexa::QualifiedNameOf(vexa::ClassInforOf<T>()) + ' ' + place.Path + " of seed " + std::to_string(seed);
        vexa::CReport report;
        ExpectSame(place, vexa::Find(ref, place.Path, &report), what + '\n' + report.AsString());
        const vexa::CBoundPath bound(vexa::ClassInforOf<T>(), place.Path, &report);
        ExpectSame(place, bound.Find(*object, &report), what + ", bound\n" + report.AsString());
        if (testing::Test::HasFatalFailure()) return;
        if (random() % 4 == 0) ExpectSafe(ref, vexa::ClassInforOf<T>(), Mutated(random, place.Path));
    }
}

TEST(RandomPath, LeadsToTheMemberThatItNames)
{
    const unsigned long count = NumberOf("ORDANA_ACCESS_OBJECTS", 3);
    const unsigned long first = NumberOf("ORDANA_ACCESS_SEED", 1);
    for (unsigned long seed = first; seed < first + count; ++seed)
        ForEachClass([seed](auto tag) { CheckObject<typename decltype(tag)::Type>(seed); });
}

} // namespace
