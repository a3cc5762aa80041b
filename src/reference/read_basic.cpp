// Reading a basic value as any basic type.

#include <cstdarg>
#include <cstdlib>
#include <cstring>

#include <vexa/helper.h>
#include <vexa/refrence.h>

#include "core/basic_types.h"
#include "core/bounded.h"
#include "core/c_locale.h"
#include "reference/convert_number.h"

namespace vexa {

using namespace Enum;

namespace {

void LogNotConvertible(const CConstRefrence& source, const char* target)
{
    helper::LogError("%s type CStdBasicTypeConstRefrence can not be converted to %s", source.TypeName().c_str(),
                     target);
}

/// How a text becomes a number. long long goes through a floating number and long double through an integer, so that a
/// text with an exponent or a fraction reads differently from its neighbours long and double.
enum class TextParser { Truth, Integer, Floating };

template<class Target>
constexpr TextParser ParserOf()
{
    if (std::is_same_v<Target, bool>) return TextParser::Truth;
    if (std::is_same_v<Target, long long> || std::is_same_v<Target, unsigned long long>) return TextParser::Floating;
    return std::is_same_v<Target, float> || std::is_same_v<Target, double> ? TextParser::Floating : TextParser::Integer;
}

template<class Target>
Target ParseText(const char* text, std::size_t length)
{
    constexpr TextParser PARSER = ParserOf<Target>();
    if constexpr (PARSER == TextParser::Truth) {
        return length == 4 && std::memcmp(text, "true", 4) == 0;
    } else if constexpr (PARSER == TextParser::Integer) {
        return reference::ConvertNumber<Target>(strtol_l(text, nullptr, 10, core::CLocale()));
    } else {
        return reference::ConvertNumber<Target>(strtod_l(text, nullptr, core::CLocale()));
    }
}

template<class Target>
Target ReadNumber(const CConstRefrence& source, const char* targetName)
{
    const void* const value = source.ValueAddress();
    if (value == nullptr) return Target();
    Target result = Target();
    bool isConvertible = false;
    core::VisitBasicType(source.TypeInfor.DataType, [&](auto type) {
        using T = typename decltype(type)::Type;
        isConvertible = true;
        if constexpr (type.IS_NUMBER) {
            result = reference::ConvertNumber<Target>(core::Load<T>(value));
        } else if constexpr (std::is_same_v<T, std::string>) {
            const std::string& text = core::Load<T>(value);
            result = ParseText<Target>(text.c_str(), text.size());
        } else if constexpr (std::is_same_v<T, core::CTextAtAddress>) {
            const auto* const text = static_cast<const char*>(value);
            result = ParseText<Target>(text, std::strlen(text));
        } else if constexpr (std::is_same_v<T, CNumeric>) {
            const std::string text = core::Load<T>(value).AsString();
            result = ParseText<Target>(text.c_str(), text.size());
        } else {
            isConvertible = false;
        }
    });
    if (!isConvertible) LogNotConvertible(source, targetName);
    return result;
}

/// The stored object of one type, or the shared neutral one.
template<class T>
const T& StoredObject(const CConstRefrence& source, DataTypeEnum code, const char* targetName)
{
    static const T neutral{};
    if (source.IsNull()) return neutral;
    const void* const value = source.ValueAddress();
    if (source.TypeInfor.DataType == code) return value != nullptr ? *static_cast<const T*>(value) : neutral;
    LogNotConvertible(source, targetName);
    return neutral;
}

__attribute__((format(printf, 1, 2))) std::string FormatShort(const char* format, ...)
{
    char buffer[64] = {};
    std::va_list arguments;
    va_start(arguments, format);
    core::vsprintf_s(buffer, sizeof buffer, format, arguments);
    va_end(arguments);
    return buffer;
}

} // namespace

bool CStdBasicTypeConstRefrence::As_bool() const { return ReadNumber<bool>(*this, "bool"); }
char CStdBasicTypeConstRefrence::As_char() const { return static_cast<char>(ReadNumber<unsigned char>(*this, "char")); }
short CStdBasicTypeConstRefrence::As_short() const { return ReadNumber<short>(*this, "short"); }
int CStdBasicTypeConstRefrence::As_int() const { return ReadNumber<int>(*this, "int"); }
long CStdBasicTypeConstRefrence::As_long() const { return ReadNumber<long>(*this, "long"); }
long long CStdBasicTypeConstRefrence::As_long_long() const { return ReadNumber<long long>(*this, "long long"); }
unsigned char CStdBasicTypeConstRefrence::As_unsigned_char() const
{
    return ReadNumber<unsigned char>(*this, "unsigned char");
}
unsigned short CStdBasicTypeConstRefrence::As_unsigned_short() const
{
    return ReadNumber<unsigned short>(*this, "unsigned short");
}
unsigned int CStdBasicTypeConstRefrence::As_unsigned_int() const
{
    return ReadNumber<unsigned int>(*this, "unsigned int");
}
unsigned long CStdBasicTypeConstRefrence::As_unsigned_long() const
{
    return ReadNumber<unsigned long>(*this, "unsigned long");
}
unsigned long long CStdBasicTypeConstRefrence::As_unsigned_long_long() const
{
    return ReadNumber<unsigned long long>(*this, "unsigned long long");
}
float CStdBasicTypeConstRefrence::As_float() const { return ReadNumber<float>(*this, "float"); }
double CStdBasicTypeConstRefrence::As_double() const { return ReadNumber<double>(*this, "double"); }
long double CStdBasicTypeConstRefrence::As_long_double() const { return ReadNumber<long double>(*this, "long double"); }

const char* CStdBasicTypeConstRefrence::As_const_char_ptr() const
{
    if (IsNull()) return "";
    const void* const value = ValueAddress();
    switch (TypeInfor.DataType) {
    case DT_STD_STRING: return value != nullptr ? static_cast<const std::string*>(value)->c_str() : "";
    case DT_CONST_CHAR_PTR: return value != nullptr ? static_cast<const char*>(value) : "";
    default: LogNotConvertible(*this, "const char*"); return "";
    }
}

const std::string& CStdBasicTypeConstRefrence::As_std_string_ref() const
{
    return StoredObject<std::string>(*this, DT_STD_STRING, "std::string");
}
const tm& CStdBasicTypeConstRefrence::As_tm_ref() const { return StoredObject<tm>(*this, DT_TM, "tm"); }
const CBinary& CStdBasicTypeConstRefrence::As_CBinary_ref() const
{
    return StoredObject<CBinary>(*this, DT_BINARY, "vexa::CBinary");
}
const CDateTime& CStdBasicTypeConstRefrence::As_CDateTime_ref() const
{
    return StoredObject<CDateTime>(*this, DT_DATETIME, "vexa::CDateTime");
}
const CNumeric& CStdBasicTypeConstRefrence::As_CNumeric_ref() const
{
    return StoredObject<CNumeric>(*this, DT_NUMERIC, "vexa::CNumeric");
}

std::string CStdBasicTypeConstRefrence::As_std_string() const
{
    const void* const value = ValueAddress();
    if (value == nullptr) return {};
    if (TypeInfor.DataType == DT_STD_STRING) return *static_cast<const std::string*>(value);
    if (TypeInfor.DataType == DT_BINARY) {
        const auto& binary = *static_cast<const CBinary*>(value);
        return {binary.data(), binary.Size};
    }
    return AsString(ASF_VALUE);
}

CBinary CStdBasicTypeConstRefrence::As_CBinary() const
{
    const void* const value = ValueAddress();
    if (value == nullptr) return CBinary(0);
    if (TypeInfor.DataType == DT_BINARY) return *static_cast<const CBinary*>(value);
    if (IsNumberCode(TypeInfor.DataType)) {
        CBinary bytes(0);
        bytes.CopyFrom(value, TypeInfor.Sizeof(), 0);
        return bytes;
    }
    return CBinary(As_std_string());
}

CDateTime CStdBasicTypeConstRefrence::As_CDateTime() const
{
    const void* const value = ValueAddress();
    if (value == nullptr) return {};
    switch (TypeInfor.DataType) {
    case DT_DATETIME: return *static_cast<const CDateTime*>(value);
    case DT_TM: return CDateTime(*static_cast<const tm*>(value));
    default: return CDateTime(As_std_string());
    }
}

tm CStdBasicTypeConstRefrence::As_tm() const
{
    const void* const value = ValueAddress();
    if (value == nullptr) return {};
    return TypeInfor.DataType == DT_TM ? *static_cast<const tm*>(value) : As_CDateTime().As_tm(false);
}

CNumeric CStdBasicTypeConstRefrence::As_CNumeric() const
{
    const void* const value = ValueAddress();
    if (value == nullptr) return {};
    switch (TypeInfor.DataType) {
    case DT_NUMERIC: return *static_cast<const CNumeric*>(value);
    case DT_BOOL: return CNumeric(std::string(core::Load<bool>(value) ? "1" : "0"));
    case DT_CHAR: return CNumeric(FormatShort("%d", core::Load<unsigned char>(value)));
    default: return CNumeric(As_std_string());
    }
}

} // namespace vexa
