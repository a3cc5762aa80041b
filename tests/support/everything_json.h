#ifndef VEXA_TESTS_SUPPORT_EVERYTHING_JSON_H
#define VEXA_TESTS_SUPPORT_EVERYTHING_JSON_H

#include <cstdlib>

#include "support/described_everything.h"
#include "support/independent_json.h"

/// Whether a JSON value, parsed by an independent library, is what the documents say of an object: a model by hand,
/// type by type.

namespace vexa_test::everything {

template<class T>
bool Agrees(Comparison& comparison, const Json& json, const T& value);

/// RFC 3339 without its zone; as many digits of the fraction as lose nothing.
inline std::string TimeText(std::time_t second, long nanosecond)
{
    tm fields{};
    gmtime_r(&second, &fields);
    char text[64];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &fields);
    if (nanosecond == 0) return text;
    std::string fraction = std::to_string(1000000000 + nanosecond).substr(1);
    fraction.resize(fraction.find_last_not_of('0') + 1);
    return text + ('.' + fraction);
}

inline bool AgreesText(Comparison& comparison, const Json& json, const std::string& text)
{
    return comparison.Expect(json.is_string() && json.get_ref<const std::string&>() == text,
                             json.dump(-1, ' ', true) + " instead of " + Json(text).dump(-1, ' ', true));
}
inline bool Agrees(Comparison& comparison, const Json& json, const std::string& value)
{
    return AgreesText(comparison, json, value);
}
inline bool Agrees(Comparison& comparison, const Json& json, const std::filesystem::path& value)
{
    return AgreesText(comparison, json, value.string());
}
inline bool Agrees(Comparison& comparison, const Json& json, const vexa::CBinary& value)
{
    return AgreesText(comparison, json, Base64Of(std::string(value.data(), value.Size)));
}
inline bool Agrees(Comparison& comparison, const Json& json, const vexa::CNumeric& value)
{
    const std::string digits = value.AsString();
    const bool isSame =
        json.is_number_integer() ? json.dump() == digits : json.get<double>() == std::strtod(digits.c_str(), nullptr);
    return comparison.Expect(json.is_number() && (isSame || digits == "-0"), json.dump() + " instead of " + digits);
}
inline bool Agrees(Comparison& comparison, const Json& json, const vexa::CDateTime& value)
{
    return AgreesText(comparison, json, TimeText(value.secs(), value.msec() * 1000000L) + 'Z');
}
inline bool Agrees(Comparison& comparison, const Json& json, const tm& value)
{
    tm fields = value;
    return AgreesText(comparison, json, TimeText(timegm(&fields), 0));
}
inline bool Agrees(Comparison& comparison, const Json& json, const Tag& value)
{
    return AgreesText(comparison, json, value.text);
}
inline bool Agrees(Comparison& comparison, const Json& json, const Money& value)
{
    return Agrees(comparison, json, value.cents);
}
inline bool Agrees(Comparison& comparison, const Json& json, const vexa::CValue& value)
{
    if (value.IsNull()) return comparison.Expect(json.is_null(), json.dump());
    switch (value.Type()) {
    case vexa::Enum::DT_BOOL: return Agrees(comparison, json, value.As_bool());
    case vexa::Enum::DT_LONG: return Agrees(comparison, json, value.As_long());
    case vexa::Enum::DT_UNSIGNED_LONG: return Agrees(comparison, json, value.As_unsigned_long());
    case vexa::Enum::DT_DOUBLE: return Agrees(comparison, json, value.As_double());
    default: return Agrees(comparison, json, value.As_std_string());
    }
}
inline bool Agrees(Comparison& comparison, const Json& json, const vexa::CRawJson& value)
{
    return comparison.Expect(json == Json::parse(value.Text()), json.dump());
}
inline bool Agrees(Comparison& comparison, const Json& json, const vexa::CJsonTree& value)
{
    return comparison.Expect(IsSame(value, json), json.dump());
}
inline bool Agrees(Comparison& comparison, const Json& json, const vexa::CRow& value)
{
    return Agrees(comparison, json, value.Values);
}
inline bool Agrees(Comparison& comparison, const Json& json, const vexa::CTable& value)
{
    if (!comparison.Expect(json.is_array() && json.size() == value.Rows.size(), json.dump())) return false;
    for (std::size_t row = 0; row < value.Rows.size(); ++row) {
        if (!comparison.Expect(json[row].size() == value.Columns.size(), "keys of a row")) return false;
        for (std::size_t i = 0; i < value.Columns.size(); ++i) {
            const std::string& name = value.Columns[i].Name;
            if (!comparison.Expect(json[row].contains(name), name) ||
                !Agrees(comparison, json[row][name], value.Rows[row][i]))
                return false;
        }
    }
    return true;
}
inline bool Agrees(Comparison& comparison, const Json& json, const vexa::NullType&)
{
    return comparison.Expect(json.is_null(), json.dump());
}
inline bool Agrees(Comparison& comparison, const Json& json, const std::monostate&)
{
    return comparison.Expect(json.is_null(), json.dump());
}
template<std::size_t SIZE>
bool Agrees(Comparison& comparison, const Json& json, const char (&text)[SIZE])
{
    return AgreesText(comparison, json, std::string(text, strnlen(text, SIZE)));
}
template<std::size_t SIZE>
bool Agrees(Comparison& comparison, const Json& json, const std::bitset<SIZE>& bits)
{
    std::string text;
    for (std::size_t i = SIZE; i > 0; --i)
        text += bits[i - 1] ? '1' : '0';
    return AgreesText(comparison, json, text);
}

template<class T>
bool AgreesNumber(Comparison& comparison, const Json& json, T value)
{
    if constexpr (std::is_same_v<T, bool>) {
        return comparison.Expect(json.is_boolean() && json.get<bool>() == value, json.dump());
    } else if constexpr (std::is_same_v<T, char>) {
        return AgreesNumber(comparison, json, static_cast<unsigned char>(value));
    } else if constexpr (std::is_integral_v<T>) {
        const bool isSame =
            value < T()
                ? json.is_number_integer() && json.get<long long>() == static_cast<long long>(value)
                : json.is_number_unsigned() && json.get<unsigned long long>() == static_cast<unsigned long long>(value);
        return comparison.Expect(isSame, json.dump() + " instead of " + std::to_string(value));
    } else {
        // The other parser knows doubles only.
        const double real = json.is_number() ? json.get<double>() : std::nan("");
        const bool isClose =
            std::abs(static_cast<T>(real) - value) <= std::abs(value) * std::numeric_limits<double>::epsilon();
        const bool isSame = std::is_same_v<T, long double> ? isClose : static_cast<T>(real) == value;
        return comparison.Expect(isSame && std::signbit(real) == std::signbit(value),
                                 json.dump() + " instead of " + std::to_string(value));
    }
}

template<class T>
bool AgreesArray(Comparison& comparison, const Json& json, const T& values)
{
    if (!comparison.Expect(json.is_array(), json.dump())) return false;
    std::size_t count = 0;
    for (const auto& value : values) {
        const bool isSame = comparison.Inside(std::to_string(count), [&] {
            return comparison.Expect(count < json.size(), "missing") && Agrees(comparison, json[count], value);
        });
        if (!isSame) return false;
        ++count;
    }
    return comparison.Expect(json.size() == count, "too many elements");
}

/// How a key stands in an object; of the types whose maps are objects.
template<class T>
std::string KeyText(const T& key)
{
    if constexpr (std::is_same_v<T, Signal>)
        return NameOf(key);
    else if constexpr (std::is_enum_v<T>)
        return std::to_string(static_cast<std::underlying_type_t<T>>(key));
    else if constexpr (std::is_same_v<T, char>)
        return std::to_string(static_cast<unsigned char>(key));
    else if constexpr (std::is_integral_v<T>)
        return std::to_string(key);
    else
        return key;
}
template<class T>
inline constexpr bool IS_KEY = std::is_same_v<T, std::string> || std::is_integral_v<T> || std::is_enum_v<T>;

template<class T>
bool AgreesObject(Comparison& comparison, const Json& json, const T& map)
{
    if (!comparison.Expect(json.is_object() && json.size() == map.size(), json.dump())) return false;
    for (const auto& [key, value] : map) {
        const std::string name = KeyText(key);
        if (!comparison.Expect(json.contains(name), name + " is missing")) return false;
        if (!comparison.Inside(name, [&, &mapped = value] { return Agrees(comparison, json[name], mapped); }))
            return false;
    }
    return true;
}

template<std::size_t INDEX = 0, class T>
bool AgreesMembers(Comparison& comparison, const Json& json, const std::vector<std::string>& names, const T& members)
{
    if constexpr (INDEX == std::tuple_size_v<T>) {
        return comparison.Expect(json.is_object() && json.size() == names.size(), json.dump());
    } else {
        const bool isSame = comparison.Inside(names[INDEX], [&] {
            return comparison.Expect(json.is_object() && json.contains(names[INDEX]), "missing") &&
                   Agrees(comparison, json[names[INDEX]], std::get<INDEX>(members));
        });
        return isSame && AgreesMembers<INDEX + 1>(comparison, json, names, members);
    }
}

template<class T>
bool AgreesParts(Comparison& comparison, const Json& json, const T& parts)
{
    return std::apply(
        [&](const auto&... part) {
            std::size_t number = 0;
            const bool isArray = json.is_array() && json.size() == sizeof...(part);
            return comparison.Expect(isArray, json.dump()) && (Agrees(comparison, json[number++], part) && ...);
        },
        parts);
}

template<class T>
bool Agrees(Comparison& comparison, const Json& json, const T& value)
{
    if constexpr (std::is_enum_v<T>) {
        return AgreesNumber(comparison, json, static_cast<std::underlying_type_t<T>>(value));
    } else if constexpr (std::is_arithmetic_v<T>) {
        return AgreesNumber(comparison, json, value);
    } else if constexpr (IS_TIME_POINT<T>) {
        const auto second = std::chrono::floor<std::chrono::seconds>(value);
        const auto fraction = std::chrono::duration_cast<std::chrono::nanoseconds>(value - second);
        return AgreesText(comparison, json,
                          TimeText(second.time_since_epoch().count(), static_cast<long>(fraction.count())) + 'Z');
    } else if constexpr (IS_DURATION<T>) {
        return AgreesNumber(comparison, json, value.count());
    } else if constexpr (IS_HELD_APART<T>) {
        return value ? Agrees(comparison, json, *value) : comparison.Expect(json.is_null(), json.dump());
    } else if constexpr (IS<T, vexa::NonNullPointer>) {
        return Agrees(comparison, json, *value);
    } else if constexpr (IS<T, std::variant>) {
        return std::visit([&](const auto& active) { return Agrees(comparison, json, active); }, value);
    } else if constexpr (IS<T, std::tuple>) {
        return AgreesParts(comparison, json, value);
    } else if constexpr (IS<T, std::pair>) {
        return AgreesParts(comparison, json, std::tie(value.first, value.second));
    } else if constexpr (IS<T, std::atomic>) {
        return Agrees(comparison, json, value.load());
    } else if constexpr (HAS_MEMBERS<T>) {
        return AgreesMembers(comparison, json, T::Names(), value.Members());
    } else if constexpr (IS_MAP<T>) {
        constexpr bool IS_MULTI =
            !vexa::detail::IS_SPECIALIZATION<T, std::map> && !vexa::detail::IS_SPECIALIZATION<T, std::unordered_map>;
        if constexpr (!IS_MULTI && IS_KEY<typename T::key_type>)
            return AgreesObject(comparison, json, value);
        else
            return AgreesArray(comparison, json, value);
    } else {
        return AgreesArray(comparison, json, value);
    }
}

inline bool Agrees(Comparison& comparison, const Json& json, const Signal& value)
{
    return HasName(value) ? AgreesText(comparison, json, NameOf(value))
                          : AgreesNumber(comparison, json, static_cast<signed char>(value));
}

/// The members of a class that is told by a tag: \p names begin with the tag.
template<class... Members>
bool AgreesTagged(Comparison& comparison, const Json& json, const std::vector<std::string>& names,
                  const std::string& tag, const Members&... members)
{
    return AgreesMembers(comparison, json, names, std::tie(tag, members...));
}
inline bool Agrees(Comparison& comparison, const Json& json, const Cat& cat)
{
    return AgreesTagged(comparison, json, {"species", "lives"}, "cat", cat.lives);
}
inline bool Agrees(Comparison& comparison, const Json& json, const Dog& dog)
{
    return AgreesTagged(comparison, json, {"species", "name", "lives"}, "dog", dog.name, dog.lives);
}
inline bool Agrees(Comparison& comparison, const Json& json, const Circle& circle)
{
    return AgreesMembers(comparison, json, {"label", "radius"}, std::tie(circle.label, circle.radius));
}
inline bool Agrees(Comparison& comparison, const Json& json, const Drawing& drawing)
{
    std::vector<std::string> names = DRAWING_MEMBERS;
    names.insert(names.begin(), "label");
    return AgreesMembers(comparison, json, names, std::tuple_cat(std::tie(drawing.label), MembersOf(drawing)));
}
/// What a pointer leads to says what it is.
inline bool AgreesPointee(Comparison& comparison, const Json& json, const Figure* figure)
{
    if (figure == nullptr) return comparison.Expect(json.is_null(), json.dump());
    if (!comparison.Expect(json.is_object() && json.contains("kind"), json.dump())) return false;
    Json members = json;
    members.erase("kind");
    if (const auto* const circle = dynamic_cast<const Circle*>(figure))
        return comparison.Expect(json["kind"] == "circle") && Agrees(comparison, members, *circle);
    if (const auto* const drawing = dynamic_cast<const Drawing*>(figure))
        return comparison.Expect(json["kind"] == "drawing") && Agrees(comparison, members, *drawing);
    return comparison.Expect(json["kind"] == "vexa_test::everything::Figure") &&
           AgreesMembers(comparison, members, {"label"}, std::tie(figure->label));
}
inline bool Agrees(Comparison& comparison, const Json& json, const std::unique_ptr<Figure>& figure)
{
    return AgreesPointee(comparison, json, figure.get());
}
inline bool Agrees(Comparison& comparison, const Json& json, const std::shared_ptr<Figure>& figure)
{
    return AgreesPointee(comparison, json, figure.get());
}
inline bool Agrees(Comparison& comparison, const Json& json, const std::shared_ptr<Circle>& circle)
{
    return AgreesPointee(comparison, json, circle.get());
}

/// The active members of a union, and how many keys they are.
inline bool AgreesActive(Comparison& comparison, const Json& json, const Choice& value, std::size_t& count)
{
    return ForEachActive(value, [&](const char* name, auto member) {
        ++count;
        return comparison.Inside(name, [&] {
            return comparison.Expect(json.contains(name), "missing") && Agrees(comparison, json[name], value.*member);
        });
    });
}
inline bool Agrees(Comparison& comparison, const Json& json, const Choice& value)
{
    std::size_t count = 0;
    return AgreesActive(comparison, json, value, count) && comparison.Expect(json.size() == count, json.dump());
}
inline bool Agrees(Comparison& comparison, const Json& json, const Choices& value)
{
    std::size_t count = 3;
    return AgreesActive(comparison, json, value, count) && Agrees(comparison, json.at("one"), value.one) &&
           Agrees(comparison, json.at("all"), value.all) && Agrees(comparison, json.at("elsewhere"), value.elsewhere) &&
           comparison.Expect(json.size() == count, json.dump());
}

inline bool Agrees(Comparison& comparison, const Json& json, const Groups& value)
{
    return comparison.Expect(json.is_object() && json.size() == 3, json.dump()) &&
           Agrees(comparison, json.at("before"), value.before) &&
           AgreesMembers(comparison, json.at("object"), {"number", "text"}, std::tie(value.number, value.text)) &&
           AgreesMembers(comparison, json.at("group"), {"inner", "numbers"}, std::tie(value.inner, value.numbers));
}

} // namespace vexa_test::everything

#endif
