// Any sequence of changes to generic values, against a model of their types and null states. What leaks or is released
// twice is found by the address sanitizer.

#include <vexa/value.h>

#include <array>
#include <random>
#include <string>
#include <utility>

#include <gtest/gtest.h>

#include "support/captured_log.h"
#include "support/value_text.h"

namespace {

using namespace vexa::Enum;
using namespace vexa_test;
using vexa::CBinary;
using vexa::CDateTime;
using vexa::CNumeric;
using vexa::CStdBasicTypeConstRefrence;
using vexa::CStdBasicTypeRefrence;
using vexa::CValue;

constexpr int STEPS = 100'000;
constexpr unsigned int SEED = 20'201'102;

bool IsNumber(unsigned int code) { return (code >= 11 && code <= 19) || (code >= 22 && code <= 26); }
bool IsText(unsigned int code) { return code == 41 || code == 45 || code == 47 || code == 52; }
bool CanHold(unsigned int code)
{
    return (code >= 10 && code <= 39) || code == 41 || code == 45 || code == 47 || code == 51 || code == 52;
}

/// What is expected of one value.
struct Model {
    unsigned int Code = 0;
    bool IsNull = true;

    void ChangeType(unsigned int code)
    {
        Code = NormalisedCode(code);
        IsNull = !CanHold(Code);
    }
    void SetNotNull() { IsNull = IsNull && !CanHold(Code); }
    /// A value of a type is read in: what becomes of one that cannot be stored depends on the type.
    void Read(unsigned int code)
    {
        if (IsNumber(code))
            SetNotNull();
        else if (code == 41)
            IsNull = !IsText(Code);
        else if (code == 51 || code == 52)
            IsNull = IsNull && Code != 51 && Code != 52;
        else if (code == 45 || code == 47)
            IsNull = IsNull && Code != code;
    }
};

class RandomWalk {
public:
    /// \return what did not go as expected; empty if nothing.
    std::string Run()
    {
        for (int step = 0; step < STEPS; ++step) {
            const std::string name = Step();
            for (std::size_t i = 0; i < COUNT; ++i) {
                const CValue& value = m_values[i];
                if (value.Type() == m_models[i].Code && value.IsNull() == m_models[i].IsNull &&
                    value.IsNull() == (value.Address == nullptr)) {
                    continue;
                }
                return "step " + std::to_string(step) + ", " + name + ": value " + std::to_string(i) + " is " +
                       Show(value) + " instead of type " + std::to_string(m_models[i].Code) +
                       (m_models[i].IsNull ? ", null" : "");
            }
        }
        return {};
    }

private:
    static constexpr std::size_t COUNT = 8;

    unsigned int Pick(unsigned int count)
    {
        return std::uniform_int_distribution<unsigned int>(0, count - 1)(m_random);
    }
    /// Mostly a code that means something.
    DataTypeEnum PickCode()
    {
        constexpr unsigned int STORED = std::size(STORED_CODES);
        const unsigned int picked = Pick(STORED + 4);
        return picked < STORED ? STORED_CODES[picked] : static_cast<DataTypeEnum>(Pick(256));
    }

    const char* Step()
    {
        const std::size_t target = Pick(COUNT);
        const std::size_t source = Pick(COUNT);
        switch (Pick(4)) {
        case 0: return ChangeNullState(m_values[target], m_models[target]);
        case 1: return ReadSomething(m_values[target], m_models[target]);
        case 2: return Assign(m_values[target], m_models[target]);
        default: return TakeFrom(target, source);
        }
    }

    const char* ChangeNullState(CValue& value, Model& model)
    {
        const DataTypeEnum code = PickCode();
        switch (Pick(5)) {
        case 0:
            value.ChangeValueTypeEnum(code);
            model.ChangeType(code);
            return "ChangeValueTypeEnum";
        case 1:
            value.SetNull(code);
            model = {NormalisedCode(code), true};
            return "SetNull with a type";
        case 2:
            value.SetNull();
            model.IsNull = true;
            return "SetNull";
        case 3:
            if (code % 2 == 0)
                value.ReadFrom(vexa::null);
            else
                static_cast<CStdBasicTypeRefrence&>(value).ReadFrom(vexa::null);
            model.IsNull = true;
            return "ReadFrom null";
        default:
            value.SetNotNull();
            model.SetNotNull();
            return "SetNotNull";
        }
    }

    const char* ReadSomething(CValue& value, Model& model)
    {
        const DataTypeEnum code = PickCode();
        switch (Pick(8)) {
        case 0: value.ReadFrom(12), model.Read(14); return "ReadFrom int";
        case 1: value.ReadFrom(1.5L), model.Read(19); return "ReadFrom long double";
        case 2: value.ReadFrom(std::string(60, 'x')), model.Read(41); return "ReadFrom string";
        case 3: value.ReadFrom("12.5"), model.Read(41); return "ReadFrom text";
        case 4: value.ReadFrom(SampleTime()), model.Read(51); return "ReadFrom tm";
        case 5: value.ReadFrom(CBinary("AB", 2)), model.Read(45); return "ReadFrom binary";
        case 6: value.ReadFrom(CNumeric(std::string(60, '7'))), model.Read(47); return "ReadFrom numeric";
        default:
            value.ReadFromMemBlock(code, "2020", 4);
            model.ChangeType(code);
            return "ReadFromMemBlock";
        }
    }

    const char* Assign(CValue& value, Model& model)
    {
        switch (Pick(7)) {
        case 0: value = 'x', model = {12, false}; return "= char";
        case 1: value = 2.5L, model = {19, false}; return "= long double";
        case 2: value = std::string(60, 'y').c_str(), model = {41, false}; return "= text";
        case 3: value = CDateTime(SampleTime()), model = {52, false}; return "= date-time";
        case 4: value = static_cast<const char*>(nullptr), model = {41, true}; return "= null text";
        case 5: value = vexa::null, model = {2, true}; return "= null";
        default:
            if (model.Code != DT_CUSTOM_OWNED) value.TypeInfor.ChangeTypeTo_CustomType("Money", 8, nullptr, nullptr, 7);
            model.Code = DT_CUSTOM_OWNED;
            return "custom type";
        }
    }

    const char* TakeFrom(std::size_t target, std::size_t source)
    {
        CValue& value = m_values[target];
        Model& model = m_models[target];
        const Model from = m_models[source];
        switch (Pick(6)) {
        case 0:
            value = m_values[source];
            model = from;
            return "= value";
        case 1:
            value = std::move(m_values[source]);
            if (target != source) m_models[source] = LeftBehind(from);
            model = from;
            return "= moved value";
        case 2:
            value.ReadFrom(m_values[source]);
            if (target != source) ReadValue(model, from);
            return "ReadFrom value";
        case 3:
            value.ReadFrom(static_cast<const CStdBasicTypeConstRefrence&>(m_values[source]));
            if (target != source) ReadReference(model, from);
            return "ReadFrom reference";
        case 4:
            std::swap(value, m_values[source]);
            std::swap(model, m_models[source]);
            return "swap";
        default: return DestroyAndCopy(target, source);
        }
    }

    const char* DestroyAndCopy(std::size_t target, std::size_t source)
    {
        CValue copy(m_values[source]);
        const CValue moved(std::move(copy));
        m_values[target].~CValue();
        new (&m_values[target]) CValue();
        m_models[target] = {};
        if (target == source) return "destroyed";
        m_values[target] = moved;
        m_models[target] = m_models[source];
        return "destroyed and copied";
    }

    static Model LeftBehind(const Model& from) { return {from.Code == DT_CUSTOM_OWNED ? 0 : from.Code, true}; }
    static void ReadValue(Model& model, const Model& from)
    {
        model.ChangeType(from.Code);
        model.IsNull = model.IsNull || from.IsNull;
    }
    static void ReadReference(Model& model, const Model& from)
    {
        if (from.IsNull)
            model.IsNull = true;
        else
            model.Read(from.Code);
    }

    std::mt19937 m_random{SEED};
    std::array<CValue, COUNT> m_values;
    std::array<Model, COUNT> m_models;
};

TEST(ValueRandom, HasTheExpectedTypeAndNullStateAfterEveryStep)
{
    std::string unexpected;
    LoggedLines([&] { unexpected = RandomWalk().Run(); });
    EXPECT_EQ(unexpected, "");
}

} // namespace
