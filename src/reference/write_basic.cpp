// Storing into a basic value from any basic type.

#include <cstdlib>
#include <cstring>

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

/// Where a write lands, the value having been made not null for it; null when the value cannot be written.
void* WritableAddress(CStdBasicTypeRefrence& target)
{
    if (target.TypeInfor.Has(HF_CONST) || target.Address == nullptr) return nullptr;
    target.SetNotNull();
    return target.TypeInfor.ValueAddress(target.Address);
}

void LogNotConvertible(const char* source, const CConstRefrence& target)
{
    helper::LogError("%s type can not be converted to %s", source, target.TypeName().c_str());
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

/// Stores a text into any type that is assigned from one. \return whether the target is such a type and could be
/// written.
template<class Assign>
bool StoreText(CStdBasicTypeRefrence& target, Assign&& assign)
{
    bool isStored = false;
    core::VisitBasicType(target.TypeInfor.DataType, [&](auto type) {
        using T = typename decltype(type)::Type;
        if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, CBinary> || std::is_same_v<T, CDateTime> ||
                      std::is_same_v<T, CNumeric>) {
            void* const address = WritableAddress(target);
            if (address == nullptr) return;
            assign(*static_cast<T*>(address));
            isStored = true;
        }
    });
    return isStored;
}

CStdBasicTypeRefrence& RefuseText(CStdBasicTypeRefrence& target, const char* source)
{
    if (!target.TypeInfor.Has(HF_CONST)) target.SetNull();
    LogNotConvertible(source, target);
    return target;
}

/// A null source makes the value null; what is read-only stays, unless it is a pointer, which is only forgotten.
CStdBasicTypeRefrence& StoreNull(CStdBasicTypeRefrence& target, const std::string& source)
{
    const bool isReadOnly = target.TypeInfor.Has(HF_CONST) && !target.TypeInfor.Has(HF_POINTER);
    if (isReadOnly)
        LogNotConvertible(source.c_str(), target);
    else
        target.SetNull();
    return target;
}

/// Stores a value object into a target of its own type.
template<DataTypeEnum CODE, class T>
CStdBasicTypeRefrence& StoreObject(CStdBasicTypeRefrence& target, const T& value)
{
    void* const address = target.TypeInfor.DataType == CODE ? WritableAddress(target) : nullptr;
    if (address != nullptr)
        *static_cast<T*>(address) = value;
    else
        LogNotConvertible(core::TypeRow(CODE).Name, target);
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
    if (TypeInfor.DataType != DT_DATETIME) return StoreObject<DT_TM>(*this, value);
    void* const address = WritableAddress(*this);
    if (address != nullptr)
        *static_cast<CDateTime*>(address) = value;
    else
        LogNotConvertible("tm", *this);
    return *this;
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(const CBinary& value)
{
    return StoreObject<DT_BINARY>(*this, value);
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(const CDateTime& value)
{
    if (TypeInfor.DataType != DT_TM) return StoreObject<DT_DATETIME>(*this, value);
    void* const address = WritableAddress(*this);
    if (address != nullptr)
        *static_cast<tm*>(address) = value.As_tm(false);
    else
        LogNotConvertible("vexa::CDateTime", *this);
    return *this;
}

CStdBasicTypeRefrence& CStdBasicTypeRefrence::ReadFrom(const CNumeric& value)
{
    return StoreObject<DT_NUMERIC>(*this, value);
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
    if (code >= 12 && code <= 26) {
        return ReadFrom(data != nullptr ? strtol_l(data, nullptr, 10, core::CLocale()) : 0L);
    }
    bool isStored = false;
    if (code == DT_TM) {
        // The null state stays as it is, unlike for every other target.
        const std::string text(data);
        const bool isWritable = Address != nullptr && !TypeInfor.Has(HF_CONST);
        auto* const address = static_cast<tm*>(isWritable ? TypeInfor.ValueAddress(Address) : nullptr);
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
