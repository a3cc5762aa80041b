#ifndef VEXA_TESTS_DESCRIPTION_TYPES_TABLE_H
#define VEXA_TESTS_DESCRIPTION_TYPES_TABLE_H

#include <cstdint>
#include <string>

#include <vexa/types.h>
#include <vexa/vexa.h>

/// The types that stand for one value to the look-ups, texts, tables and to ToJson, and how each does: one row a type
/// and case. The tests hold every row to what the library does.

namespace types_table {

enum class Light : signed char { RED = -1, GREEN = 1 };
enum class Level : unsigned short { LOW = 1, HIGH = 9 };
VEXA_DESCRIBE_ENUM(Light, RED, GREEN)
VEXA_DESCRIBE_ENUM(Level, LOW, HIGH)

struct Place {
    std::string city = "Ulm";
    int zip = 89073;
    std::string pin = "1234";
};
VEXA_DESCRIBE_CLASS(Place)
{
    about.Attrib("city", &Place::city);
    about.Attrib("zip", &Place::zip);
    about.Attrib("pin", &Place::pin).Masked();
}

/// What a member of such a type is looked at in.
template<class T>
struct Holder {
    T value{};
};

/// \tparam T the type
template<class T>
struct CRow {
    const char* Type;    ///< as the program writes it
    const char* Name;    ///< the registered name
    const char* Case;    ///< what the value is
    void (*Set)(T&);     ///< makes it so
    const char* Text;    ///< AsString, and the cell of a table
    const char* Json;    ///< ToJson of an object that has it as its member `value`
    const char* Cell;    ///< a text in a table's cell that is stored into it
    const char* Stored;  ///< AsString of what it then is; null where a text is refused
    const char* Emptied; ///< AsString after Clear
};

using std::chrono::duration;
using std::chrono::milliseconds;
using std::chrono::system_clock;
template<class Unit>
using TimeIn = std::chrono::time_point<system_clock, Unit>;

template<class Use>
void ForEachBasicRow(Use use)
{
    using std::optional;
    use(CRow<optional<int>>{"std::optional<int>", "std::optional<int>", "a value", [](auto& v) { v = 5; }, "5",
                            R"({"value":5})", "7", "7", "NULL"});
    use(CRow<optional<int>>{"std::optional<int>", "std::optional<int>", "none", [](auto&) {}, "NULL", "{}", "7", "7",
                            "NULL"});
    use(CRow<optional<std::string>>{"std::optional<std::string>", "std::optional<std::string>", "a value",
                                    [](auto& v) { v = "a\"b"; }, "a\"b", R"({"value":"a\"b"})", "c", "c", "NULL"});
    use(CRow<optional<double>>{"std::optional<double>", "std::optional<double>", "a value", [](auto& v) { v = 0.5; },
                               "0.500000", R"({"value":0.500000})", "2.5", "2.500000", "NULL"});
    use(CRow<optional<const char*>>{"std::optional<const char*>", "std::optional<const char*>", "a value",
                                    [](auto& v) { v = "x"; }, "x", R"({"value":"x"})", nullptr, nullptr, "NULL"});
    use(CRow<optional<Level>>{"std::optional<Level>", "std::optional<unsigned short>", "an enumerator",
                              [](auto& v) { v = Level::HIGH; }, "9", R"({"value":9})", "1", "1", "NULL"});
    use(CRow<signed char>{"signed char", "signed char", "a value", [](auto& v) { v = -3; }, "-3", R"({"value":-3})",
                          "12", "12", "0"});
    use(CRow<Light>{"enum class Light : signed char", "signed char", "an enumerator", [](auto& v) { v = Light::RED; },
                    "-1", R"({"value":-1})", "1", "1", "0"});
    use(CRow<std::atomic<int>>{"std::atomic<int>", "std::atomic<int>", "a value", [](auto& v) { v = 5; }, "5",
                               R"({"value":5})", "7", "7", "0"});
    use(CRow<std::atomic<bool>>{"std::atomic<bool>", "std::atomic<bool>", "a value", [](auto& v) { v = true; }, "true",
                                R"({"value":true})", "false", "false", "false"});
    use(CRow<std::vector<bool>>{"std::vector<bool>", "std::vector<bool>", "three bits",
                                [](auto& v) {
                                    v = {true, false, true};
                                },
                                "101", R"({"value":"101"})", "0011", "0011", ""});
    use(CRow<std::string_view>{"std::string_view", "std::string_view", "a text", [](auto& v) { v = "x y"; }, "x y",
                               R"({"value":"x y"})", nullptr, nullptr, ""});
    use(CRow<std::filesystem::path>{"std::filesystem::path", "std::filesystem::path", "a path",
                                    [](auto& v) { v = "a/b.txt"; }, "a/b.txt", R"({"value":"a\/b.txt"})", "c/d", "c/d",
                                    ""});
}

template<class Use>
void ForEachTimeRow(Use use)
{
    use(CRow<system_clock::time_point>{
        "std::chrono::system_clock::time_point", "std::chrono::system_clock::time_point", "an instant",
        [](auto& v) { v += std::chrono::nanoseconds(1700000000123456789); }, "2023-11-14T22:13:20.123456789Z",
        R"({"value":"2023-11-14T22:13:20.123456789Z"})", "2024-02-29T01:00:00.5+01:00", "2024-02-29T00:00:00.5Z",
        "1970-01-01T00:00:00Z"});
    use(CRow<TimeIn<std::chrono::seconds>>{
        "time_point<system_clock, seconds>",
        "std::chrono::time_point<std::chrono::system_clock, std::chrono::duration<long>>", "before 1970",
        [](auto& v) { v -= std::chrono::seconds(1); }, "1969-12-31T23:59:59Z", R"({"value":"1969-12-31T23:59:59Z"})",
        "2024-02-29T00:00:00Z", "2024-02-29T00:00:00Z", "1970-01-01T00:00:00Z"});
    use(CRow<TimeIn<std::chrono::seconds>>{
        "time_point<system_clock, seconds>",
        "std::chrono::time_point<std::chrono::system_clock, std::chrono::duration<long>>", "a text that is too exact",
        [](auto&) {}, "1970-01-01T00:00:00Z", R"({"value":"1970-01-01T00:00:00Z"})", "2024-02-29T00:00:00.5Z", nullptr,
        "1970-01-01T00:00:00Z"});
    use(CRow<milliseconds>{"std::chrono::milliseconds", "std::chrono::duration<long, 1/1000>", "a count",
                           [](auto& v) { v = milliseconds(250); }, "250", R"({"value":250})", "-4", "-4", "0"});
    use(CRow<std::chrono::hours>{"std::chrono::hours", "std::chrono::duration<long, 3600>", "a count",
                                 [](auto& v) { v = std::chrono::hours(2); }, "2", R"({"value":2})", "3", "3", "0"});
    use(CRow<duration<double>>{"std::chrono::duration<double>", "std::chrono::duration<double>", "a count",
                               [](auto& v) { v = duration<double>(0.25); }, "0.250000", R"({"value":0.250000})", "1.5",
                               "1.500000", "0.000000"});
}

template<class Use>
void ForEachCompositeRow(Use use)
{
    using Choice = std::variant<std::monostate, int, std::string, Place>;
    constexpr const char* CHOICE = "std::variant<std::monostate, int, std::string, Place>";
    constexpr const char* CHOICE_NAME = "std::variant<vexa::NullType, int, std::string, Place>";
    use(CRow<std::optional<Place>>{"std::optional<Place>", "std::optional<Place>", "an object",
                                   [](auto& v) { v.emplace(); }, "{city: Ulm, zip: 89073, pin: ***}",
                                   R"({"value":"{city: Ulm, zip: 89073, pin: ***}"})", "x", nullptr, "NULL"});
    use(CRow<std::optional<std::vector<int>>>{"std::optional<std::vector<int>>", "std::optional<std::vector<int>>",
                                              "a container",
                                              [](auto& v) {
                                                  v = {1, 2};
                                              },
                                              "[1, 2]", R"({"value":"[1, 2]"})", "x", nullptr, "NULL"});
    use(CRow<std::shared_ptr<int>>{"std::shared_ptr<int>", "std::shared_ptr<int>", "a value",
                                   [](auto& v) { v = std::make_shared<int>(5); }, "5", R"({"value":5})", "7", "7",
                                   "NULL"});
    use(CRow<std::shared_ptr<const int>>{"std::shared_ptr<const int>", "std::shared_ptr<const int>", "a value",
                                         [](auto& v) { v = std::make_shared<int>(5); }, "5", R"({"value":5})", "7",
                                         nullptr, "NULL"});
    use(CRow<std::shared_ptr<Place>>{
        "std::shared_ptr<Place>", "std::shared_ptr<Place>", "an object", [](auto& v) { v = std::make_shared<Place>(); },
        "{city: Ulm, zip: 89073, pin: ***}", R"({"value":"{city: Ulm, zip: 89073, pin: ***}"})", "x", nullptr, "NULL"});
    use(CRow<Choice>{CHOICE, CHOICE_NAME, "std::monostate", [](auto&) {}, "NULL", "{}", "x", "x", "NULL"});
    use(CRow<Choice>{CHOICE, CHOICE_NAME, "a number", [](auto& v) { v = 5; }, "5", R"({"value":5})", "7", "7", "NULL"});
    use(CRow<Choice>{CHOICE, CHOICE_NAME, "an object", [](auto& v) { v = Place(); },
                     "{city: Ulm, zip: 89073, pin: ***}", R"({"value":"{city: Ulm, zip: 89073, pin: ***}"})", "x", "x",
                     "NULL"});
    use(CRow<std::variant<double, bool>>{"std::variant<double, bool>", "std::variant<double, bool>", "the second",
                                         [](auto& v) { v = true; }, "true", R"({"value":true})", "false", "false",
                                         "0.000000"});
    use(CRow<std::tuple<int, std::string, Place>>{
        "std::tuple<int, std::string, Place>", "std::tuple<int, std::string, Place>", "three values",
        [](auto& v) {
            v = {1, "two", {}};
        },
        "[1, two, {city: Ulm, zip: 89073, pin: ***}]", R"({"value":"[1, two, {city: Ulm, zip: 89073, pin: ***}]"})",
        "x", nullptr, "[0, , {city: , zip: 0, pin: ***}]"});
    use(CRow<std::tuple<>>{"std::tuple<>", "std::tuple", "nothing", [](auto&) {}, "[]", R"({"value":"[]"})", "x",
                           nullptr, "[]"});
    use(CRow<std::optional<std::optional<int>>>{"std::optional<std::optional<int>>",
                                                "std::optional<std::optional<int>>", "an empty one",
                                                [](auto& v) { v.emplace(); }, "NULL", "{}", "7", "7", "NULL"});
    use(CRow<std::optional<std::chrono::seconds>>{
        "std::optional<std::chrono::seconds>", "std::optional<std::chrono::duration<long>>", "a count",
        [](auto& v) { v = std::chrono::seconds(3); }, "3", R"({"value":3})", "4", "4", "NULL"});
}

/// Calls \p use with every row.
template<class Use>
void ForEachRow(Use use)
{
    ForEachBasicRow(use);
    ForEachTimeRow(use);
    ForEachCompositeRow(use);
}

} // namespace types_table

template<class T>
struct vexa::Describes<types_table::Holder<T>> {
    using Holder = types_table::Holder<T>;
    static constexpr const char* NAME = "Holder";
    static void Describe(vexa::CDescription<Holder>& about) { VEXA_MEMBERS(Holder, value) }
};

#endif
