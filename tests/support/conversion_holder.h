#ifndef VEXA_TESTS_SUPPORT_CONVERSION_HOLDER_H
#define VEXA_TESTS_SUPPORT_CONVERSION_HOLDER_H

#include <cstddef>
#include <memory>
#include <new>
#include <ostream>
#include <string>
#include <vector>

#include <vexa/refrence.h>

#include "support/conversion_types.h"

namespace vexa_test {

enum class HoldingForm { Plain, MayNull, OwnedPointer, ConstPointer, NonNullPointer, NullableNonNullPointer };

constexpr HoldingForm ALL_FORMS[] = {HoldingForm::Plain,          HoldingForm::MayNull,
                                     HoldingForm::OwnedPointer,   HoldingForm::ConstPointer,
                                     HoldingForm::NonNullPointer, HoldingForm::NullableNonNullPointer};

constexpr bool IsPointerForm(HoldingForm form) { return form != HoldingForm::Plain && form != HoldingForm::MayNull; }

inline unsigned HoldingFlags(HoldingForm form)
{
    switch (form) {
    case HoldingForm::Plain: return 0;
    case HoldingForm::MayNull: return 0x09;
    case HoldingForm::OwnedPointer: return 0x18;
    case HoldingForm::ConstPointer: return 0x38;
    case HoldingForm::NonNullPointer: return 0x12;
    case HoldingForm::NullableNonNullPointer: return 0x1A;
    }
    return 0;
}

/// The full name of a type in a holding form.
inline std::string NameIn(HoldingForm form, const std::string& name)
{
    switch (form) {
    case HoldingForm::MayNull: return "MayNull<" + name + ">";
    case HoldingForm::NonNullPointer:
    case HoldingForm::NullableNonNullPointer: return "NonNullPointer<" + name + ">";
    case HoldingForm::Plain: return name;
    default: break;
    }
    if (name == "const char*") return name;
    return form == HoldingForm::ConstPointer ? "const " + name + "*" : name + "*";
}

/// One value of a basic type, held in one form, null or not.
class AnyHeld {
public:
    AnyHeld() = default;
    virtual ~AnyHeld() = default;
    AnyHeld(const AnyHeld&) = delete;
    AnyHeld& operator=(const AnyHeld&) = delete;

    virtual vexa::CStdBasicTypeRefrence Ref() = 0;
    /// The state as it lies in memory, without the library's help.
    virtual bool IsNull() const = 0;
    /// The value as it lies in memory, where a null MayNull keeps it too.
    virtual std::string ShownValue() const = 0;
    virtual std::string TypeName() const = 0;
};

template<class T>
class Held : public AnyHeld {
public:
    Held(HoldingForm form, const T& value, bool isNull = false) : m_form(form), m_storage{isNull, value}
    {
        m_type.NullFlagOffset = offsetof(Storage, IsNull);
        m_type.ValueOffset = offsetof(Storage, Value);
        if (!IsPointerForm(form) || isNull) return;
        m_pointer = form == HoldingForm::ConstPointer ? &m_storage.Value : Allocate(value);
    }
    ~Held() override
    {
        if (m_form != HoldingForm::ConstPointer && m_pointer != nullptr) m_type.Delete(m_pointer);
    }

    vexa::CStdBasicTypeRefrence Ref() override
    {
        if (IsPointerForm(m_form)) return {m_type, &m_pointer};
        if (m_form == HoldingForm::MayNull) return {m_type, &m_storage};
        return {m_type, &m_storage.Value};
    }
    bool IsNull() const override { return IsPointerForm(m_form) ? m_pointer == nullptr : m_storage.IsNull != 0; }
    std::string ShownValue() const override { return Shown(Value()); }
    std::string TypeName() const override { return NameIn(m_form, BasicType<T>::Name); }
    const T& Value() const
    {
        const bool isElsewhere = IsPointerForm(m_form) && m_pointer != nullptr;
        return isElsewhere ? *static_cast<const T*>(m_pointer) : m_storage.Value;
    }

private:
    struct Storage {
        unsigned char IsNull;
        T Value;
    };

    /// As the descriptor would allocate it, so that the descriptor can release it.
    static void* Allocate(const T& value)
    {
        if constexpr (std::is_trivially_destructible_v<T>)
            return new (::operator new(sizeof(T))) T(value);
        else
            return new T(value);
    }

    HoldingForm m_form;
    vexa::CGnlTypeInfor m_type{BasicType<T>::Code, HoldingFlags(m_form)};
    Storage m_storage;
    void* m_pointer = nullptr;
};

/// One of the twenty basic types, for tests that go through all of them.
struct AnyBasicType {
    unsigned Code;
    const char* Name;
    /// Holds the type's Untouched().
    std::unique_ptr<AnyHeld> (*Hold)(HoldingForm form, bool isNull);
};

inline const std::vector<AnyBasicType>& BasicTypes()
{
    static const std::vector<AnyBasicType> types = [] {
        std::vector<AnyBasicType> all;
        ForEachBasicType([&](auto tag) {
            using T = typename decltype(tag)::Type;
            const auto hold = [](HoldingForm form, bool isNull) -> std::unique_ptr<AnyHeld> {
                return std::make_unique<Held<T>>(form, Untouched<T>(), isNull);
            };
            all.push_back({BasicType<T>::Code, BasicType<T>::Name, hold});
        });
        return all;
    }();
    return types;
}

constexpr bool IsNumberCode(unsigned code) { return code <= 26; }

inline std::ostream& operator<<(std::ostream& out, HoldingForm form) { return out << NameIn(form, "T"); }

/// Codes that are no basic type, with the names that messages give them.
struct UnsupportedType {
    unsigned Code;
    const char* Name;
};

constexpr UnsupportedType UNSUPPORTED_TYPES[] = {
    {0, "unkown type"},  {3, "void"},         {10, "unkown type"},      {20, "unkown type"},  {21, "unkown type"},
    {27, "unkown type"}, {39, "unkown type"}, {40, "unkown type"},      {43, "unkown type"},  {58, "unkown type"},
    {59, "unkown type"}, {99, "unkown type"}, {121, "std_bitset_node"}, {255, "unkown type"},
};

} // namespace vexa_test

#endif
