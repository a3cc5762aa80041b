#include "reference/saved_selector.h"

#include <cstring>
#include <memory>
#include <utility>

#include "core/basic_types.h"

namespace vexa::reference {

using namespace Enum;

namespace {

bool HasFlag(const CGnlTypeInfor& type) { return type.WrapperKind() == HF_MAY_NULL && !type.Has(HF_POINTER); }

/// Numbers go by their bytes: a bool may hold any.
void Exchange(unsigned char code, void* left, void* right) noexcept
{
    core::VisitBasicType(code, [&](auto basic) {
        using T = typename decltype(basic)::Type;
        if constexpr (basic.IS_NUMBER) {
            const T value = core::Load<T>(left);
            std::memcpy(left, right, sizeof(T));
            core::Store(right, value);
        } else if constexpr (!std::is_same_v<T, core::CTextAtAddress>) {
            std::swap(*static_cast<T*>(left), *static_cast<T*>(right));
        }
    });
}

void Copy(unsigned char code, void* to, const void* from)
{
    core::VisitBasicType(code, [&](auto basic) {
        using T = typename decltype(basic)::Type;
        if constexpr (basic.IS_NUMBER)
            std::memcpy(to, from, sizeof(T));
        else if constexpr (!std::is_same_v<T, core::CTextAtAddress>)
            *static_cast<T*>(to) = *static_cast<const T*>(from);
    });
}

} // namespace

CSavedSelector::CSavedSelector(const CGnlTypeInfor& type, void* holder) : m_type(&type), m_holder(holder)
{
    if (type.Has(HF_POINTER)) std::memcpy(&m_pointee, holder, sizeof m_pointee);
    if (HasFlag(type)) m_flag = static_cast<const char*>(holder)[type.NullFlagOffset];
    const void* const value = type.ValueAddress(holder);
    if (!IsOwner() || value == nullptr) return;
    const CGnlTypeInfor direct(type.DataType);
    const auto destroy = [&](void* made) { direct.Delete(made); };
    std::unique_ptr<void, decltype(destroy)> made(direct.New(), destroy);
    Copy(type.DataType, made.get(), value);
    m_value = made.release();
}

CSavedSelector::CSavedSelector(CSavedSelector&& other) noexcept
    : m_type(other.m_type), m_holder(other.m_holder), m_pointee(other.m_pointee), m_flag(other.m_flag),
      m_value(std::exchange(other.m_value, nullptr))
{
}

CSavedSelector::~CSavedSelector()
{
    if (m_value != nullptr) CGnlTypeInfor(m_type->DataType).Delete(m_value);
}

/// Whether the selector is or owns its value. Others than basic ones select nothing and do not change.
bool CSavedSelector::IsOwner() const
{
    return m_type->IsBasicType() && m_type->DataType != DT_CONST_CHAR_PTR && !m_type->Has(HF_CONST);
}

void CSavedSelector::PutBack() noexcept
{
    if (m_type->Has(HF_POINTER)) return PutBackPointer();
    if (HasFlag(*m_type)) static_cast<char*>(m_holder)[m_type->NullFlagOffset] = m_flag;
    if (m_value != nullptr) Exchange(m_type->DataType, m_type->ValueAddress(m_holder), m_value);
}

void CSavedSelector::PutBackPointer() noexcept
{
    if (!IsOwner()) {
        std::memcpy(m_holder, &m_pointee, sizeof m_pointee);
        return;
    }
    void* now = nullptr;
    std::memcpy(&now, m_holder, sizeof now);
    if (now != nullptr && m_value != nullptr) return Exchange(m_type->DataType, now, m_value);
    std::memcpy(m_holder, &m_value, sizeof m_value);
    m_value = now;
}

} // namespace vexa::reference
