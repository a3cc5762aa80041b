#ifndef VEXA_REFERENCE_CUSTOM_VALUE_H
#define VEXA_REFERENCE_CUSTOM_VALUE_H

#include <vexa/custom_type_infor.h>
#include <vexa/refrence.h>

namespace vexa::reference {

/// A tagged value, made and destroyed through the type table, since the type itself stands on a higher floor.
class CMadeValue {
public:
    CMadeValue() : m_value(CGnlTypeInfor(Enum::DT_VALUE).New()) {}
    CMadeValue(const CMadeValue&) = delete;
    CMadeValue& operator=(const CMadeValue&) = delete;
    ~CMadeValue() { CGnlTypeInfor(Enum::DT_VALUE).Delete(m_value); }

    CValue& Get() const { return *static_cast<CValue*>(m_value); }
    /// The value as the reference that it is.
    CStdBasicTypeRefrence& AsRefrence() const { return *static_cast<CStdBasicTypeRefrence*>(m_value); }
    /// The value as something to be described: kind DT_VALUE.
    CRefrence Described() const { return {CGnlTypeInfor(Enum::DT_VALUE), m_value}; }

private:
    void* m_value;
};

/// Gives a value the type and the contents of a basic one. Defined on the floor of the value.
void AssignValue(CValue& value, const CStdBasicTypeConstRefrence& source);

inline const CCustomBasicTypeInfor& CustomInfor(const CGnlTypeInfor& type)
{
    return *static_cast<const CCustomBasicTypeInfor*>(type.DetailInfor);
}

/// Whether a custom type has a layout of its own, which only its converters know.
inline bool HasOwnLayout(const CGnlTypeInfor& custom)
{
    const CCustomBasicTypeInfor& infor = CustomInfor(custom);
    return infor.Underlying.DataType == Enum::DT_UNKNOWN && (infor.ToValue != nullptr || infor.FromValue != nullptr);
}

/// The standard value where it lies inside the custom value at \p object; without address when that is null.
inline CRefrence StandardValueAt(const CCustomBasicTypeInfor& infor, void* object)
{
    return {infor.Underlying, object != nullptr ? static_cast<char*>(object) + infor.ValueOffset : nullptr};
}
inline CRefrence StandardValueInPlace(const CConstRefrence& custom)
{
    return StandardValueAt(CustomInfor(custom.TypeInfor), custom.ValueAddress());
}

/// Calls \p use with a reference to the standard value of a custom value, in place or converted, and gives its result.
template<class Use>
auto WithStandardValue(const CConstRefrence& custom, Use&& use)
{
    const void* const object = custom.ValueAddress();
    const auto convert = CustomInfor(custom.TypeInfor).ToValue;
    if (object == nullptr || convert == nullptr || !HasOwnLayout(custom.TypeInfor))
        return use(StandardValueInPlace(custom));
    const CMadeValue value;
    convert(object, value.Get());
    return use(static_cast<const CConstRefrence&>(value.AsRefrence()));
}

} // namespace vexa::reference

#endif
