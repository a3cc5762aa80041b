// Reading a basic value as any basic type.

#include <cstdlib>
#include <cstring>

#include <vexa/helper.h>
#include <vexa/refrence.h>

#include "core/basic_types.h"
#include "core/c_locale.h"
#include "core/type_table.h"
#include "reference/convert_number.h"

namespace vexa {

using namespace Enum;

namespace {

void LogNotConvertible(const CConstRefrence& source, DataTypeEnum target)
{
    helper::LogError("%s type CStdBasicTypeConstRefrence can not be converted to %s", source.TypeName().c_str(),
                     core::TypeRow(static_cast<unsigned char>(target)).Name);
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

/// \param targetCode tells char, whose values are those of an unsigned byte, from unsigned char in the log.
template<class Target>
Target ReadNumber(const CConstRefrence& source, DataTypeEnum targetCode)
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
    if (!isConvertible) LogNotConvertible(source, targetCode);
    return result;
}

/// A reference whose descriptor is another's, and gives nothing back.
struct CLentRefrence {
    CConstRefrence Ref;
    ~CLentRefrence() { Ref.TypeInfor.DetailInfor = nullptr; }
};

/// The stored object of one type, or the shared neutral one.
template<class T>
const T& StoredObject(const CConstRefrence& source)
{
    constexpr DataTypeEnum CODE = detail::BASIC_CODE<T>;
    static const T neutral{};
    if (source.IsNull()) return neutral;
    const void* const value = source.ValueAddress();
    if (source.TypeInfor.DataType == CODE) return value != nullptr ? *static_cast<const T*>(value) : neutral;
    LogNotConvertible(source, CODE);
    return neutral;
}

} // namespace

template<class T>
T CStdBasicTypeConstRefrence::Convert(CFields source)
{
    CLentRefrence lent;
    lent.Ref.TypeInfor.DataType = source.DataType;
    lent.Ref.TypeInfor.HoldingFlags = source.HoldingFlags;
    lent.Ref.TypeInfor.NullFlagOffset = source.NullFlagOffset;
    lent.Ref.TypeInfor.ValueOffset = source.ValueOffset;
    lent.Ref.TypeInfor.DetailInfor = source.DetailInfor;
    lent.Ref.Address = const_cast<void*>(source.Address);
    if constexpr (std::is_same_v<T, char>)
        return static_cast<char>(ReadNumber<unsigned char>(lent.Ref, DT_CHAR));
    else
        return ReadNumber<T>(lent.Ref, detail::BASIC_CODE<T>);
}
template VEXA_API bool CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API char CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API short CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API int CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API long CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API long long CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API unsigned char CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API unsigned short CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API unsigned int CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API unsigned long CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API unsigned long long CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API float CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API double CStdBasicTypeConstRefrence::Convert(CFields);
template VEXA_API long double CStdBasicTypeConstRefrence::Convert(CFields);

const char* CStdBasicTypeConstRefrence::As_const_char_ptr() const
{
    if (IsNull()) return "";
    const void* const value = ValueAddress();
    switch (TypeInfor.DataType) {
    case DT_STD_STRING: return value != nullptr ? static_cast<const std::string*>(value)->c_str() : "";
    case DT_CONST_CHAR_PTR: return value != nullptr ? static_cast<const char*>(value) : "";
    default: LogNotConvertible(*this, DT_CONST_CHAR_PTR); return "";
    }
}

const std::string& CStdBasicTypeConstRefrence::As_std_string_ref() const { return StoredObject<std::string>(*this); }
const tm& CStdBasicTypeConstRefrence::As_tm_ref() const { return StoredObject<tm>(*this); }
const CBinary& CStdBasicTypeConstRefrence::As_CBinary_ref() const { return StoredObject<CBinary>(*this); }
const CDateTime& CStdBasicTypeConstRefrence::As_CDateTime_ref() const { return StoredObject<CDateTime>(*this); }
const CNumeric& CStdBasicTypeConstRefrence::As_CNumeric_ref() const { return StoredObject<CNumeric>(*this); }

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
    case DT_CHAR: return CNumeric(static_cast<int>(core::Load<unsigned char>(value)));
    default: return CNumeric(As_std_string());
    }
}

} // namespace vexa
