#ifndef VEXA_TESTS_SUPPORT_CONVERSION_WRITING_H
#define VEXA_TESTS_SUPPORT_CONVERSION_WRITING_H

#include <functional>

#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/conversion_holder.h"

namespace vexa_test {

using WritableRef = vexa::CStdBasicTypeRefrence;

/// A call that writes to its argument and returns what that call returned.
using Write = std::function<WritableRef&(WritableRef&)>;

/// What becomes of the null state when a target cannot take a source.
enum class WhenRefused { BecomesNotNull, BecomesNull, StaysAsItWas };

/// Whether SetNull and SetNotNull have an effect, and the value is not read-only.
constexpr bool CanBecomeNull(HoldingForm form)
{
    return form == HoldingForm::MayNull || form == HoldingForm::OwnedPointer ||
           form == HoldingForm::NullableNonNullPointer;
}

/// A target before a write: a type's Untouched() in one holding form, null or not.
class WriteCase {
public:
    WriteCase(const AnyBasicType& type, HoldingForm form, bool isNull)
        : m_form(form), m_isNull(isNull), m_held(type.Hold(form, isNull)), m_before(m_held->ShownValue())
    {
    }

    /// Whether there is a place that takes a value: not read-only, nor a pointer that stays null.
    bool IsWritable() const
    {
        return m_form != HoldingForm::ConstPointer && !(m_form == HoldingForm::NonNullPointer && m_isNull);
    }
    void ExpectStores(const Write& write, const std::string& shown)
    {
        EXPECT_EQ(LoggedLines([&] { CallAndExpectItself(write); }), "");
        EXPECT_FALSE(m_held->IsNull());
        EXPECT_EQ(m_held->ShownValue(), shown);
    }
    void ExpectRefuses(const Write& write, const std::string& message, WhenRefused state)
    {
        EXPECT_EQ(LoggedLines([&] { CallAndExpectItself(write); }), message + m_held->TypeName() + "\n");
        // A pointer to const can be forgotten, but never gets anything to point at.
        const bool isForgotten = m_form == HoldingForm::ConstPointer && state == WhenRefused::BecomesNull;
        if (!CanBecomeNull(m_form) && !isForgotten) state = WhenRefused::StaysAsItWas;
        const bool isNullAfter = state == WhenRefused::StaysAsItWas ? m_isNull : state == WhenRefused::BecomesNull;
        EXPECT_EQ(m_held->IsNull(), isNullAfter);
        // A pointer that was null has a new object behind it, which is nobody's value yet.
        const bool isNew = IsPointerForm(m_form) && m_isNull && !isNullAfter;
        if (!isNew) {
            EXPECT_EQ(m_held->ShownValue(), m_before);
        }
    }

private:
    void CallAndExpectItself(const Write& write)
    {
        WritableRef ref = m_held->Ref();
        const WritableRef* const returned = &write(ref);
        EXPECT_EQ(returned, &ref) << "calls chain";
        EXPECT_EQ(ref.Address, m_held->Ref().Address);
    }

    HoldingForm m_form;
    bool m_isNull;
    std::unique_ptr<AnyHeld> m_held;
    std::string m_before;
};

/// Runs the action on a fresh target for every holding form, null and not null.
inline void ForEachWriteCase(const AnyBasicType& type, const std::function<void(WriteCase&)>& action)
{
    for (HoldingForm form : ALL_FORMS) {
        for (bool isNull : {false, true}) {
            if (isNull && form == HoldingForm::Plain) continue;
            SCOPED_TRACE(testing::Message() << "into " << type.Name << ", " << form << (isNull ? ", null" : ""));
            WriteCase target(type, form, isNull);
            action(target);
        }
    }
}

/// The write stores what is shown so, wherever a value can be stored; elsewhere it logs the message, which ends with
/// the target's type name, and leaves everything alone.
inline void ExpectStores(const AnyBasicType& type, const Write& write, const std::string& shown,
                         const std::string& message)
{
    ForEachWriteCase(type, [&](WriteCase& target) {
        if (target.IsWritable())
            target.ExpectStores(write, shown);
        else
            target.ExpectRefuses(write, message, WhenRefused::StaysAsItWas);
    });
}

/// The write stores nothing anywhere, and logs the message, which ends with the target's type name.
inline void ExpectRefuses(const AnyBasicType& type, const Write& write, const std::string& message, WhenRefused state)
{
    ForEachWriteCase(type, [&](WriteCase& target) { target.ExpectRefuses(write, message, state); });
}

/// The write into codes that are no basic type logs the message, which ends with the target's type name.
inline void ExpectRefusesUnsupported(const Write& write, const std::string& message, WhenRefused state)
{
    for (const UnsupportedType& type : UNSUPPORTED_TYPES) {
        for (unsigned char before : {0, 1}) {
            SCOPED_TRACE(testing::Message() << "into code " << type.Code << ", null flag " << unsigned{before});
            unsigned char wrapper[32] = {before, 5, 6, 7};
            vexa::CGnlTypeInfor infor(type.Code, 0x09);
            infor.ValueOffset = 16;
            WritableRef ref(infor, wrapper);
            EXPECT_EQ(LoggedLines([&] { write(ref); }), message + "MayNull<" + type.Name + ">\n");
            const unsigned char after = state == WhenRefused::StaysAsItWas ? before : state == WhenRefused::BecomesNull;
            const unsigned char expected[32] = {after, 5, 6, 7};
            EXPECT_EQ(std::memcmp(wrapper, expected, sizeof wrapper), 0) << unsigned{wrapper[0]};
        }
    }
}

} // namespace vexa_test

#endif
