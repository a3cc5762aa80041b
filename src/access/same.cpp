// Values of just the type that is asked for, which need no conversion.

#include <vexa/detail/access.h>

#include "access/inner.h"

namespace vexa {

namespace {

using access::CForm;
using access::CForms;
using access::CInner;
using access::FormKind;
using detail::CSpot;
using detail::ShapeKind;

/// Whether it is the same type, however it is held.
bool IsSameValue(const CGnlTypeInfor& left, const CGnlTypeInfor& right)
{
    return left.DataType == right.DataType && left.DetailInfor == right.DetailInfor;
}

constexpr unsigned int HELD = ~static_cast<unsigned int>(Enum::HF_CONST);

bool IsSameHolder(const CGnlTypeInfor& left, const CGnlTypeInfor& right)
{
    return IsSameValue(left, right) && (left.HoldingFlags & HELD) == (right.HoldingFlags & HELD) &&
           left.NullFlagOffset == right.NullFlagOffset && left.ValueOffset == right.ValueOffset;
}

/// Makes a null value a default one. \return where it lies; null where it cannot be made.
char* Made(const CForm& form, const CRefrence& ref)
{
    if (form.How == interchange::Held::FLAGGED)
        static_cast<char*>(ref.Address)[form.FlagOffset] = 0;
    else
        ref.TypeInfor.NewIfNullPointer(ref.Address);
    return const_cast<char*>(form.Value(static_cast<const char*>(ref.Address)));
}

/// Looks for a place of a type.
class CSearch {
public:
    CSearch(CForms& forms, const CGnlTypeInfor& type, bool mayMake) : m_forms(forms), m_type(type), m_mayMake(mayMake)
    {
    }

    void* In(const CRefrence& ref)
    {
        if (ref.Address == nullptr) return nullptr;
        const CForm form(ref.TypeInfor, 0, nullptr);
        const bool isHeld = (m_type.HoldingFlags & HELD) != 0;
        if (isHeld && IsSameHolder(ref.TypeInfor, m_type)) return ref.Address;
        char* value = const_cast<char*>(form.Value(static_cast<const char*>(ref.Address)));
        if (!isHeld && IsSameValue(ref.TypeInfor, m_type)) {
            if (value == nullptr) return m_mayMake ? Made(form, ref) : nullptr;
            return IsJustThat(form, value) ? value : nullptr;
        }
        if (form.Kind == FormKind::CLASS && form.How == interchange::Held::POINTER) return Derived(form, value);
        if (form.Kind != FormKind::SHAPE) return nullptr;
        if (value == nullptr && m_mayMake && IsInside(form)) value = Made(form, ref);
        if (value == nullptr) return nullptr;
        if (form.Shape->Kind == ShapeKind::OPTIONAL) return InOptional(form, value);
        return form.Shape->Kind == ShapeKind::VARIANT ? InVariant(form, value) : nullptr;
    }

private:
    /// What a pointer leads to may be more than its class says.
    bool IsJustThat(const CForm& form, const char* value) const
    {
        if (form.Kind != FormKind::CLASS || form.How != interchange::Held::POINTER) return true;
        const void* whole = nullptr;
        return &DynamicClassOf(form.ClassInfor(), value, whole) == m_type.DetailInfor;
    }
    void* Derived(const CForm& form, const char* value) const
    {
        if (value == nullptr || m_type.DataType != Enum::DT_CLASS || (m_type.HoldingFlags & HELD) != 0) return nullptr;
        const void* whole = value;
        const CClassInfor& infor = DynamicClassOf(form.ClassInfor(), value, whole);
        return &infor == m_type.DetailInfor ? const_cast<void*>(whole) : nullptr;
    }
    /// Whether some part of a shape is of the type.
    bool IsInside(const CForm& form)
    {
        const bool isHolder = form.Shape->Kind == ShapeKind::OPTIONAL || form.Shape->Kind == ShapeKind::VARIANT;
        if (!isHolder) return false;
        for (const CForm& part : m_forms.Of(form.CustomInfor()).Parts)
            if (IsPart(part)) return true;
        return false;
    }
    bool IsPart(const CForm& part)
    {
        const bool isHeld = (m_type.HoldingFlags & HELD) != 0;
        if (isHeld ? IsSameHolder(*part.Type, m_type) : IsSameValue(*part.Type, m_type)) return true;
        return part.Kind == FormKind::SHAPE && IsInside(part);
    }
    void* InOptional(const CForm& form, char* optional)
    {
        const auto& operations = form.ShapeOperations<detail::COptionalOperations>();
        const CForm& part = m_forms.Of(form.CustomInfor()).Parts.front();
        auto* held = const_cast<void*>(operations.Get(optional));
        const bool isNew = held == nullptr && m_mayMake && IsPart(part);
        if (isNew) held = operations.Make(optional);
        if (held == nullptr) return nullptr;
        if (operations.Adopt == nullptr || part.Kind != FormKind::CLASS) return In(CRefrence(*part.Type, held));
        const void* whole = held; // a std::shared_ptr, of perhaps a derived object
        const CClassInfor& infor = DynamicClassOf(part.ClassInfor(), held, whole);
        return IsSameValue(m_type, CGnlTypeInfor(Enum::DT_CLASS, 0, &infor)) ? const_cast<void*>(whole) : nullptr;
    }
    void* InVariant(const CForm& form, char* variant)
    {
        const auto& operations = form.ShapeOperations<detail::CVariantOperations>();
        const auto& parts = m_forms.Of(form.CustomInfor()).Parts;
        const unsigned int active = operations.Index(variant);
        if (active != detail::CVariantOperations::VALUELESS) {
            auto* const held = const_cast<void*>(operations.Get(variant));
            if (IsPart(parts[active])) return In(CRefrence(*parts[active].Type, held));
        }
        for (unsigned int i = 0; m_mayMake && i < parts.size(); ++i)
            if (IsPart(parts[i])) return In(CRefrence(*parts[i].Type, operations.Make(variant, i)));
        return nullptr;
    }

    CForms& m_forms;
    const CGnlTypeInfor& m_type;
    const bool m_mayMake;
};

} // namespace

const void* detail::SameValue(const CSpot& spot, const CGnlTypeInfor& type)
{
    CForms forms;
    return CSearch(forms, type, false).In(spot.Ref);
}

void* detail::SamePlace(const CSpot& spot, const CGnlTypeInfor& type)
{
    CForms forms;
    return CSearch(forms, type, true).In(spot.Ref);
}

} // namespace vexa
