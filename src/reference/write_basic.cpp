// Storing into a basic value from any basic type.

#include <cstdlib>
#include <cstring>

#include <vexa/detail/basic_code.h>
#include <vexa/helper.h>
#include <vexa/refrence.h>

#include "core/basic_types.h"
#include "core/c_locale.h"
#include "core/type_table.h"
#include "reference/convert_number.h"
#include "reference/source_value.h"

namespace vexa {

using namespace Enum;

namespace {

/// Where the value lives, if it may be written and there is something behind it.
void* ChangeableAddress(const CStdBasicTypeRefrence& target)
{
    const bool isChangeable = !target.TypeInfor.Has(HF_CONST) && target.Address != nullptr;
    return isChangeable ? target.TypeInfor.ValueAddress(target.Address) : nullptr;
}

/// Where a write lands, the value having been made not null for it; null when the value cannot be written.
void* WritableAddress(CStdBasicTypeRefrence& target)
{
    if (!target.TypeInfor.Has(HF_CONST)) target.SetNotNull();
    return ChangeableAddress(target);
}

CStdBasicTypeRefrence& LogNotConvertible(CStdBasicTypeRefrence& target, const std::string& source)
{
    helper::LogError("%s type can not be converted to %s", source.c_str(), target.TypeName().c_str());
    return target;
}

template<DataTypeEnum CODE, class Source>
CStdBasicTypeRefrence& StoreNumber(CStdBasicTypeRefrence& target, Source source)
{
    void* const address = WritableAddress(target);
    bool isStored = false;
    core::VisitBasicType(target.TypeInfor.DataType, [&](auto type) {
        if constexpr (type.IS_NUMBER) {
            if (address == nullptr) return;
            core::Store(address, reference::ConvertNumber<typename decltype(type)::Type>(source));
            isStored = true;
        }
    });
    if (!isStored) {
        helper::LogError("%s type CStdBasicTypeRefrence can not be converted to %s", core::TypeRow(CODE).Name,
                         target.TypeName().c_str());
    }
    return target;
}

/// Whether values of a type are assigned from text.
constexpr bool TakesText(unsigned char code)
{
    return code == DT_STD_STRING || code == DT_BINARY || code == DT_NUMERIC || code == DT_DATETIME;
}

/// Stores a text into any type that is assigned from one. \return whether the target is such a type and could be
/// written.
template<class Assign>
bool StoreText(CStdBasicTypeRefrence& target, Assign&& assign)
{
    bool isStored = false;
    core::VisitBasicType(target.TypeInfor.DataType, [&](auto type) {
        if constexpr (TakesText(type.CODE)) {
            void* const address = WritableAddress(target);
            if (address == nullptr) return;
            assign(*static_cast<typename decltype(type)::Type*>(address));
            isStored = true;
        }
    });
    return isStored;
}

/// Makes a value null. What is read-only stays, and is logged, unless it is a pointer, which is only forgotten.
CStdBasicTypeRefrence& StoreNull(CStdBasicTypeRefrence& target, const std::string& source)
{
    if (target.TypeInfor.IsFixed()) return LogNotConvertible(target, source);
    target.SetNull();
    return target;
}

/// A text that could not be stored leaves a null behind, but not in place of what takes texts and is read-only.
CStdBasicTypeRefrence& RefuseText(CStdBasicTypeRefrence& target, const char* source)
{
    const bool isReadOnlyText = TakesText(target.TypeInfor.DataType) && target.TypeInfor.Has(HF_CONST);
    if (!isReadOnlyText && !target.TypeInfor.IsFixed()) target.SetNull();
    return LogNotConvertible(target, source);
}

/// Stores a value object into a target of type \p Target, or else logs.
template<class Target, class Source>
CStdBasicTypeRefrence& StoreObject(CStdBasicTypeRefrence& target, const Source& value)
{
    const bool isSuitable = target.TypeInfor.DataType == detail::BASIC_CODE<Target>;
    void* const address = isSuitable ? WritableAddress(target) : nullptr;
    if (address == nullptr) return LogNotConvertible(target, core::TypeRow(detail::BASIC_CODE<Source>).Name);
    if constexpr (std::is_same_v<Target, tm> && std::is_same_v<Source, CDateTime>)
        *static_cast<tm*>(address) = value.As_tm(false);
    else
        *static_cast<Target*>(address) = value;
    return target;
}

} // namespace

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(bool value) { return StoreNumber<DT_BOOL>(*this, value); }
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(char value)
{
    return StoreNumber<DT_CHAR>(*this, static_cast<unsigned char>(value));
}
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(short value) { return StoreNumber<DT_SHORT>(*this, value); }
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(int value) { return StoreNumber<DT_INT>(*this, value); }
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(unsigned char value)
{
    return StoreNumber<DT_UNSIGNED_CHAR>(*this, value);
}
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(unsigned short value)
{
    return StoreNumber<DT_UNSIGNED_SHORT>(*this, value);
}
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(unsigned int value)
{
    return StoreNumber<DT_UNSIGNED_INT>(*this, value);
}
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(long value) { return StoreNumber<DT_LONG>(*this, value); }
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(unsigned long value)
{
    return StoreNumber<DT_UNSIGNED_LONG>(*this, value);
}
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(long long value)
{
    return StoreNumber<DT_LONG_LONG>(*this, value);
}
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(unsigned long long value)
{
    return StoreNumber<DT_UNSIGNED_LONG_LONG>(*this, value);
}
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(float value) { return StoreNumber<DT_FLOAT>(*this, value); }
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(double value) { return StoreNumber<DT_DOUBLE>(*this, value); }
CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(long double value)
{
    return StoreNumber<DT_LONG_DOUBLE>(*this, value);
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(const std::string& value)
{
    const bool isStored = StoreText(*this, [&](auto& target) { target = value; });
    return isStored ? *this : RefuseText(*this, "std::string");
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(const char* value)
{
    if (value == nullptr) return StoreNull(*this, "const char*");
    const bool isStored = StoreText(*this, [&](auto& target) {
        if constexpr (std::is_same_v<decltype(target), std::string&>)
            target.assign(value);
        else
            target = std::string(value);
    });
    return isStored ? *this : RefuseText(*this, "const char*");
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(const tm& value)
{
    return TypeInfor.DataType == DT_DATETIME ? StoreObject<CDateTime>(*this, value) : StoreObject<tm>(*this, value);
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(const CBinary& value)
{
    return StoreObject<CBinary>(*this, value);
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(const CDateTime& value)
{
    return TypeInfor.DataType == DT_TM ? StoreObject<tm>(*this, value) : StoreObject<CDateTime>(*this, value);
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(const CNumeric& value)
{
    return StoreObject<CNumeric>(*this, value);
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(NullType)
{
    Address = nullptr;
    SetNull();
    return *this;
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(const CStdBasicTypeConstRefrence& source)
{
    if (source.Address == Address) return *this;
    const void* const value = source.ValueAddress();
    if (value == nullptr) return StoreNull(*this, source.TypeName());
    reference::WithSourceValue(source.TypeInfor.DataType, value, [this](const auto& stored) { ReadFrom(stored); });
    return *this;
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFromMemBlock(const char* data, unsigned long length)
{
    const unsigned char code = TypeInfor.DataType;
    if (code == DT_BOOL) {
        return StoreNumber<DT_BOOL>(*this, length == 4 && data != nullptr && std::memcmp(data, "true", 4) == 0);
    }
    if (code > DT_BOOL && code <= DT_UNSIGNED_LONG_LONG) {
        return ReadFrom(data != nullptr ? strtol_l(data, nullptr, 10, core::CLocale()) : 0L);
    }
    bool isStored = false;
    if (code == DT_TM) {
        // The null state stays as it is, unlike for every other target.
        const std::string text(data);
        auto* const address = static_cast<tm*>(ChangeableAddress(*this));
        isStored = address != nullptr;
        if (isStored) String2Tm(*address, text);
    } else {
        isStored = StoreText(*this, [&](auto& target) {
            using T = std::remove_reference_t<decltype(target)>;
            if constexpr (std::is_same_v<T, std::string>)
                target = data != nullptr ? std::string(data, length) : std::string();
            else if constexpr (std::is_same_v<T, CBinary>)
                target.CopyFrom(data, length, 0);
            else
                target = std::string(data);
        });
    }
    if (!isStored) helper::LogError("%s type can not call ReadFromMemBlock", TypeName().c_str());
    return *this;
}

} // namespace vexa
