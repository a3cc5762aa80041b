#include "interchange/read_key.h"

#include <charconv>
#include <cstring>

#include "core/basic_types.h"

namespace vexa::interchange {

bool FindEnumerator(const detail::CEnumerationSlot& enumeration, std::string_view name, long long& value)
{
    const char* next = enumeration.Names;
    for (unsigned long i = 0; i < enumeration.Count; ++i) {
        next += std::strspn(next, ", ");
        const std::size_t length = std::strcspn(next, ", ");
        if (std::string_view(next, length) == name) {
            value = enumeration.Values[i];
            return true;
        }
        next += length;
    }
    return false;
}

namespace {

template<class T>
ProblemCode Parse(char* key, std::string_view text)
{
    T value{};
    const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
    if (result.ec == std::errc::invalid_argument || result.ptr != text.data() + text.size())
        return ProblemCode::BAD_TEXT;
    if (result.ec != std::errc()) return ProblemCode::OUT_OF_RANGE;
    std::memcpy(key, &value, sizeof value);
    return ProblemCode::NONE;
}

} // namespace

ProblemCode SetIntegerKey(const CForm& form, char* key, std::string_view text)
{
    if (form.Kind == FormKind::SHAPE) return Parse<signed char>(key, text);
    ProblemCode code = ProblemCode::CANNOT_BE_MADE;
    core::VisitBasicType(form.Code, [&](auto basic) {
        using T = typename decltype(basic)::Type;
        if constexpr (std::is_integral_v<T> && !std::is_same_v<T, bool>) code = Parse<T>(key, text);
    });
    return code;
}

} // namespace vexa::interchange
