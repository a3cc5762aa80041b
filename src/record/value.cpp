#include <vexa/value.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <new>

#include "core/basic_types.h"
#include "reference/source_value.h"

namespace vexa {

using namespace Enum;

namespace {

/// What a value of a type becomes when its code is set.
DataTypeEnum Normalised(DataTypeEnum type)
{
    switch (type) {
    case DT_CONST_CHAR_PTR: return DT_STD_STRING;
    case DT_UNKNOWN: return DT_NULL;
    case DT_STD_STRING:
    case DT_BINARY:
    case DT_NUMERIC:
    case DT_TM:
    case DT_DATETIME:
    case DT_NULL: return type;
    default: return IsNumberCode(type) ? type : DT_UNKNOWN;
    }
}

/// Calls \p f with the type of a value that has to be constructed: in the storage, or on the heap.
template<class F>
void VisitObject(unsigned char code, F&& f)
{
    core::VisitBasicType(code, [&](auto type) {
        using T = typename decltype(type)::Type;
        if constexpr (!type.IS_NUMBER && !std::is_same_v<T, core::CTextAtAddress>) f(type);
    });
}

template<class T>
constexpr bool LiesInStorage()
{
    return std::is_same_v<T, std::string> || std::is_same_v<T, CBinary>;
}

} // namespace

// Constructed before it copies, so that its destructor releases what was made when the memory for the rest is not to be
// had.
CValue::CValue(const CValue& other) : CValue()
{
    TypeInfor = other.TypeInfor;
    CopyContents(other);
}

CValue::CValue(CValue&& other) noexcept : CStdBasicTypeRefrence(CGnlTypeInfor(), nullptr) { *this = std::move(other); }

CValue& CValue::operator=(const CValue& other)
{
    if (this != &other) *this = CValue(other);
    return *this;
}

CValue& CValue::operator=(CValue&& other) noexcept
{
    if (this == &other) return *this;
    Release();
    if (other.TypeInfor.DataType == DT_CUSTOM_OWNED) {
        TypeInfor = std::move(other.TypeInfor);
        other.TypeInfor = CGnlTypeInfor(); // an owner without its descriptor has no name to give
    } else {
        TypeInfor = CGnlTypeInfor(other.Type());
    }
    const bool isNull = other.IsNull();
    m_made = other.m_made;
    if (m_made == DT_STD_STRING) {
        new (m_storage) std::string(std::move(*static_cast<std::string*>(other.Made())));
    } else {
        std::memcpy(m_storage, other.m_storage, STORAGE_SIZE); // numbers, a CBinary's two fields, or a pointer
        other.m_made = DT_UNKNOWN;                             // which now belongs to this value
    }
    Address = isNull ? nullptr : Made();
    other.Release();
    return *this;
}

CValue::~CValue() { Release(); }

void CValue::CopyContents(const CValue& other)
{
    if (other.IsNull()) return;
    Make(other.m_made); // not by the type code, which an application may have made that of a custom type
    if (IsNumberCode(m_made))
        std::memcpy(m_storage, other.m_storage, STORAGE_SIZE);
    else
        CopyObject(other);
}

void CValue::CopyObject(const CValue& other)
{
    VisitObject(m_made, [&](auto type) {
        using T = typename decltype(type)::Type;
        *static_cast<T*>(Address) = *static_cast<const T*>(other.Address);
    });
}

void CValue::Make(unsigned char code)
{
    if (IsNumberCode(code)) {
        Address = m_storage;
        m_made = code;
    }
    VisitObject(code, [&](auto type) {
        using T = typename decltype(type)::Type;
        if constexpr (LiesInStorage<T>()) {
            Address = new (m_storage) T();
        } else {
            void* const object = new T();
            std::memcpy(m_storage, &object, sizeof object);
            Address = object;
        }
        m_made = code;
    });
}

void* CValue::Made()
{
    void* made = m_storage;
    VisitObject(m_made, [&](auto type) {
        if constexpr (!LiesInStorage<typename decltype(type)::Type>()) std::memcpy(&made, m_storage, sizeof made);
    });
    return made;
}

void CValue::Release()
{
    VisitObject(m_made, [this](auto type) {
        using T = typename decltype(type)::Type;
        auto* const object = static_cast<T*>(Made());
        if constexpr (LiesInStorage<T>())
            std::launder(object)->~T();
        else
            delete object;
    });
    std::memset(m_storage, 0, sizeof(long)); // a bool that is made here later must be one
    m_made = DT_UNKNOWN;
    Address = nullptr;
}

void CValue::SetNull() { Release(); }

void CValue::SetNotNull()
{
    if (Address != nullptr) return;
    // What was made is out of reach, if the address was cleared through the reference; a number still lies in the
    // storage.
    if (!IsNumberCode(m_made)) Release();
    Make(TypeInfor.DataType);
}

void CValue::SetNull(DataTypeEnum type)
{
    SetNull();
    TypeInfor = CGnlTypeInfor(Normalised(type));
}

void CValue::ChangeValueTypeEnum(DataTypeEnum type)
{
    if (Normalised(type) == TypeInfor.DataType && !IsNull()) {
        CStdBasicTypeRefrence::Clear();
        return;
    }
    if (Normalised(type) != TypeInfor.DataType) SetNull(type);
    SetNotNull();
}

bool CValue::CanStore(DataTypeEnum source) const
{
    const unsigned char target = TypeInfor.DataType;
    const bool isText = source == DT_STD_STRING || source == DT_CONST_CHAR_PTR;
    if (isText) return target == DT_STD_STRING || target == DT_BINARY || target == DT_NUMERIC || target == DT_DATETIME;
    if (source == DT_TM || source == DT_DATETIME) return target == DT_TM || target == DT_DATETIME;
    return IsNumberCode(static_cast<unsigned char>(source)) || source == target;
}

CValue& CValue::ReadFrom(const CValue& other)
{
    if (this == &other) return *this;
    ChangeValueTypeEnum(other.Type());
    if (other.IsNull()) {
        SetNull();
    } else if (IsNumberCode(m_made)) {
        std::memcpy(m_storage, other.m_storage, 8);
    } else if (m_made == other.m_made) {
        CopyObject(other);
    }
    return *this;
}

CValue& CValue::ReadFrom(const std::string& value)
{
    const bool canStore = CanStore(DT_STD_STRING);
    if (canStore) SetNotNull();
    CStdBasicTypeRefrence::ReadFrom(value);
    if (!canStore) SetNull();
    return *this;
}

CValue& CValue::ReadFrom(const char* value)
{
    const bool canStore = CanStore(DT_CONST_CHAR_PTR) && value != nullptr;
    if (canStore) SetNotNull();
    if (value != nullptr) CStdBasicTypeRefrence::ReadFrom(value);
    if (!canStore) SetNull();
    return *this;
}

CValue& CValue::ReadFrom(const CStdBasicTypeConstRefrence& source)
{
    const void* const value = source.ValueAddress();
    if (value != nullptr && value == Address) return *this;
    if (value == nullptr) {
        SetNull();
        return *this;
    }
    reference::WithSourceValue(source.TypeInfor.DataType, value, [this](const auto& stored) { ReadFrom(stored); });
    return *this;
}

std::size_t CValue::OwnBytesFrom(const char* data) const
{
    if (IsNull() || (m_made != DT_STD_STRING && m_made != DT_BINARY)) return 0;
    const bool isText = m_made == DT_STD_STRING;
    const char* const begin = isText ? As_std_string_ref().data() : As_CBinary_ref().data();
    const char* const end = begin + (isText ? As_std_string_ref().size() : As_CBinary_ref().Size);
    const bool isOwn = !std::less<>()(data, begin) && std::less<>()(data, end);
    return isOwn ? static_cast<std::size_t>(end - data) : 0;
}

CValue& CValue::ReadFromMemBlock(DataTypeEnum type, const char* data, unsigned long size)
{
    if (const std::size_t rest = OwnBytesFrom(data)) {
        const std::string copy(data, rest); // the change of type is about to release what the data lies in
        ChangeValueTypeEnum(type);
        return ReadFromMemBlock(copy.c_str(), std::min(size, rest));
    }
    ChangeValueTypeEnum(type);
    if (!IsNull()) CStdBasicTypeRefrence::ReadFromMemBlock(data, size);
    return *this;
}

CValue& CValue::ReadFromMemBlock(const char* data, unsigned long size)
{
    SetNotNull();
    CStdBasicTypeRefrence::ReadFromMemBlock(data, size);
    return *this;
}

bool CValue::operator!=(const char* text) const
{
    return std::strcmp(As_const_char_ptr(), text != nullptr ? text : "") != 0;
}

} // namespace vexa
