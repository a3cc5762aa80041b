// How the value of each type is read.

#include <algorithm>

#include <vexa/event.h>
#include <vexa/interchange.h>

#include "column.h"

namespace vexa::sqlite {

using namespace Enum;
using detail::ShapeKind;

namespace {

template<class T>
T Load(const char* value)
{
    T loaded;
    std::memcpy(&loaded, value, sizeof loaded);
    return loaded;
}

template<class T>
void ReadNumber(const CColumn&, const char* value, CCell& cell)
{
    const T number = Load<T>(value);
    if constexpr (std::is_floating_point_v<T>)
        cell.SetReal(static_cast<double>(number));
    else if constexpr (std::is_unsigned_v<T> && sizeof(T) == sizeof(long long))
        cell.SetUnsigned(number);
    else
        cell.SetInteger(number);
}

void ReadString(const CColumn&, const char* value, CCell& cell)
{
    cell.SetText(*reinterpret_cast<const std::string*>(value));
}
void ReadChars(const CColumn&, const char* value, CCell& cell) { cell.SetText(value); }
void ReadCharArray(const CColumn& column, const char* value, CCell& cell)
{
    cell.SetText({value, strnlen(value, column.Infor->DetailInfor->Size)});
}
void ReadBinary(const CColumn&, const char* value, CCell& cell)
{
    const auto& binary = *reinterpret_cast<const CBinary*>(value);
    cell.SetText({binary.data(), binary.Size}, CellKind::BLOB);
}
void ReadText(const CColumn& column, const char* value, CCell& cell)
{
    cell.SetText(column.Text->Get(value, cell.Memory));
}

/// A value without a name is shown by its digits, so that the column has one type.
template<class T>
void ReadEnumeration(const CColumn& column, const char* value, CCell& cell)
{
    const T number = Load<T>(value);
    const auto bits = static_cast<long long>(number);
    const auto isLess = [](const auto& name, long long other) { return name.first < other; };
    const auto found = std::lower_bound(column.Names.begin(), column.Names.end(), bits, isLess);
    if (found != column.Names.end() && found->first == bits) return cell.SetText(found->second);
    cell.Memory = std::to_string(number);
    cell.SetText(cell.Memory);
}

/// Takes the events of a value: what is one value is the cell's.
class CCellSink : public CEventSink {
public:
    explicit CCellSink(CCell& cell) : m_cell(cell) { cell.SetNothing(); }
    /// Whether the value has parts: it is not in the cell then.
    bool IsComposed() const { return m_isComposed; }

    CFormatAbilities Abilities() const override
    {
        CFormatAbilities abilities;
        abilities.HasBytes = abilities.HasNan = abilities.TellsIntegersFromFloats = true;
        return abilities;
    }
    void Null() override {}
    void Bool(bool value) override { m_cell.SetInteger(value ? 1 : 0); }
    void Signed(long long value) override { m_cell.SetInteger(value); }
    void Unsigned(unsigned long long value) override { m_cell.SetUnsigned(value); }
    void Floating(double value) override { m_cell.SetReal(value); }
    void Number(std::string_view digits) override { String(digits); }
    void String(std::string_view text) override { Keep(text, CellKind::TEXT); }
    void Bytes(std::string_view bytes) override { Keep(bytes, CellKind::BLOB); }
    void BeginObject(std::size_t) override { m_isComposed = true; }
    void Key(std::string_view) override {}
    void EndObject() override {}
    void BeginArray(std::size_t) override { m_isComposed = true; }
    void EndArray() override {}
    void RawJson(std::string_view) override { m_isComposed = true; }

private:
    void Keep(std::string_view text, CellKind kind)
    {
        m_cell.Memory = text;
        m_cell.SetText(m_cell.Memory, kind);
    }

    CCell& m_cell;
    bool m_isComposed = false;
};

CWritePolicy PolicyOf(const CColumn& column)
{
    CWritePolicy policy;
    policy.Text = BadText::REPLACE;
    policy.Masked = column.ShowsMasked ? MaskedValues::WRITE : MaskedValues::LEAVE_OUT;
    return policy;
}

void ReadJsonText(const CColumn& column, const char* value, CCell& cell)
{
    WriteJson(cell.Memory, CConstRefrence(*column.Infor, value), PolicyOf(column));
    cell.SetText(cell.Memory);
}

/// Whatever the standard formats can write.
void ReadAny(const CColumn& column, const char* value, CCell& cell)
{
    CCellSink sink(cell);
    WriteEvents(sink, CConstRefrence(*column.Infor, value), PolicyOf(column));
    if (sink.IsComposed()) ReadJsonText(column, value, cell);
}

template<class T>
CReading NumberReading(const detail::CEnumerationSlot* names)
{
    if constexpr (std::is_floating_point_v<T>)
        return {&ReadNumber<T>, Affinity::REAL};
    else if (names != nullptr)
        return {&ReadEnumeration<T>, Affinity::TEXT};
    else
        return {&ReadNumber<T>, Affinity::INTEGER};
}

CReading ContainerReading(const CGnlTypeInfor& type)
{
    const auto& infor = *static_cast<const CContainerInfor*>(type.DetailInfor);
    if (type.DataType == DT_BITSET) return {&ReadAny, Affinity::TEXT};
    const bool isText = type.DataType == DT_ARRAY && infor.ElementType.DataType == DT_CHAR &&
                        infor.ElementType.HoldingFlags == 0 && infor.Mark.Is(detail::CFinishedMark::SLOTS) &&
                        detail::EnumerationOf(infor) == nullptr;
    return {isText ? &ReadCharArray : &ReadJsonText, Affinity::TEXT};
}

} // namespace

CReading ReadingOf(const CGnlTypeInfor& type, const detail::CEnumerationSlot* names)
{
    switch (type.DataType) {
    case DT_BOOL:
    case DT_CHAR:
    case DT_UNSIGNED_CHAR: return NumberReading<unsigned char>(names);
    case DT_SHORT: return NumberReading<short>(names);
    case DT_UNSIGNED_SHORT: return NumberReading<unsigned short>(names);
    case DT_INT: return NumberReading<int>(names);
    case DT_UNSIGNED_INT: return NumberReading<unsigned int>(names);
    case DT_LONG: return NumberReading<long>(names);
    case DT_LONG_LONG: return NumberReading<long long>(names);
    case DT_UNSIGNED_LONG: return NumberReading<unsigned long>(names);
    case DT_UNSIGNED_LONG_LONG: return NumberReading<unsigned long long>(names);
    case DT_FLOAT: return NumberReading<float>(names);
    case DT_DOUBLE: return NumberReading<double>(names);
    case DT_LONG_DOUBLE: return NumberReading<long double>(names);
    case DT_STD_STRING: return {&ReadString, Affinity::TEXT};
    case DT_CONST_CHAR_PTR: return {&ReadChars, Affinity::TEXT};
    case DT_BINARY: return {&ReadBinary, Affinity::BLOB};
    case DT_NUMERIC:
    case DT_TM:
    case DT_DATETIME: return {&ReadAny, Affinity::TEXT};
    case DT_VALUE:
    case DT_CUSTOM_BASIC: return {&ReadAny, Affinity::NONE};
    case DT_GNL_CLASS:
    case DT_REFERENCE_GROUP:
    case DT_ROW:
    case DT_TABLE: return {&ReadJsonText, Affinity::TEXT};
    default: return type.IsContainer() ? ContainerReading(type) : CReading();
    }
}

CReading ReadingOf(const detail::CShape& shape)
{
    switch (shape.Kind) {
    case ShapeKind::SIGNED_BYTE:
        return shape.Operations != nullptr ? CReading{&ReadAny, Affinity::TEXT}
                                           : CReading{&ReadNumber<signed char>, Affinity::INTEGER};
    case ShapeKind::ATOMIC: {
        const CReading part = ReadingOf(detail::MakeTypeInfor(shape.Parts[0]), nullptr);
        return {&ReadAny, shape.Parts[0].Detail != nullptr ? Affinity::NONE : part.Type};
    }
    case ShapeKind::TEXT: return {&ReadText, Affinity::TEXT};
    case ShapeKind::TIME_POINT: return {&ReadAny, Affinity::TEXT};
    case ShapeKind::TUPLE:
    case ShapeKind::BITS:
    case ShapeKind::RAW_JSON:
    case ShapeKind::JSON_TREE: return {&ReadJsonText, Affinity::TEXT};
    default: return {&ReadAny, Affinity::NONE};
    }
}

} // namespace vexa::sqlite
