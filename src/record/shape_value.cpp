// Types with a shape as one tagged value, and back.

#include <vexa/detail/shape.h>

#include <algorithm>
#include <cstring>

#include <vexa/helper.h>
#include <vexa/value.h>

#include "core/read_time.h"
#include "core/write_time.h"
#include "record/leaf.h"
#include "reference/custom_value.h"
#include "text/one_line.h"
#include "typeinfo/source_name.h"

namespace vexa::detail {

using namespace Enum;

namespace {

template<class Operations>
const Operations& OperationsOf(const CShape& shape)
{
    return *static_cast<const Operations*>(shape.Operations);
}

// To a value. \p out is untyped and stays so for what is null.

void PartToValue(const CTypeSource& part, const void* holder, CValue& out)
{
    const CConstRefrence ref(MakeTypeInfor(part), holder);
    const auto assign = [&out](const CConstRefrence& value) {
        if (value.ValueAddress() != nullptr && value.TypeInfor.IsBasicType())
            reference::AssignValue(out, value.AsStdBasicType());
    };
    const void* const value = ref.ValueAddress();
    if (value == nullptr) return;
    if (ref.TypeInfor.IsBasicType()) return assign(ref);
    if (ref.TypeInfor.DataType == DT_VALUE) return assign(*static_cast<const CConstRefrence*>(value));
    if (ref.TypeInfor.DataType == DT_CUSTOM_BASIC) return reference::WithStandardValue(ref, assign);
    std::string line;
    text::AppendOneLine(line, ref);
    out = line;
}

void VariantToValue(const CShape& shape, const void* object, CValue& out)
{
    const auto& variant = OperationsOf<CVariantOperations>(shape);
    const void* const value = variant.Get(object);
    if (value != nullptr) PartToValue(shape.Parts[variant.Index(object)], value, out);
}

void BitsToValue(const CBitsOperations& bits, const void* object, CValue& out)
{
    std::string digits;
    const unsigned long count = bits.Count(object);
    for (unsigned long i = 0; i < count; ++i)
        digits += bits.Get(object, i) ? '1' : '0';
    out = digits;
}

/// The largest basic value that an atomic holds.
struct alignas(long) CAtomicRoom {
    char Bytes[sizeof(long)];
};

void AtomicToValue(const CShape& shape, const void* object, CValue& out)
{
    CAtomicRoom value{};
    OperationsOf<CAtomicOperations>(shape).Load(object, &value);
    PartToValue(shape.Parts[0], &value, out);
}

void TimePointToValue(const CTimePointOperations& clock, const void* object, CValue& out)
{
    long long seconds = 0;
    long nanoseconds = 0;
    clock.Load(object, seconds, nanoseconds);
    core::CTimeRoom room{};
    const std::string_view text = core::TextOfTime(room, seconds, nanoseconds);
    if (!text.empty()) out = std::string(text);
}

} // namespace

void ShapeToValue(const CShapedType& type, const void* object, CValue& out)
{
    const CShape& shape = type.Shape;
    std::string memory;
    switch (shape.Kind) {
    case ShapeKind::SIGNED_BYTE: out = static_cast<short>(*static_cast<const signed char*>(object)); break;
    case ShapeKind::OPTIONAL:
        PartToValue(shape.Parts[0], OperationsOf<COptionalOperations>(shape).Get(object), out);
        break;
    case ShapeKind::VARIANT: VariantToValue(shape, object, out); break;
    case ShapeKind::TUPLE:
        text::AppendOneLine(memory, shape, object);
        out = memory;
        break;
    case ShapeKind::BITS: BitsToValue(OperationsOf<CBitsOperations>(shape), object, out); break;
    case ShapeKind::ATOMIC: AtomicToValue(shape, object, out); break;
    case ShapeKind::TIME_POINT: TimePointToValue(OperationsOf<CTimePointOperations>(shape), object, out); break;
    case ShapeKind::DURATION: PartToValue(shape.Parts[0], object, out); break;
    case ShapeKind::TEXT: out = std::string(OperationsOf<CTextOperations>(shape).Get(object, memory)); break;
    case ShapeKind::RAW_JSON:
    case ShapeKind::JSON_TREE: break; // convert themselves
    }
}

namespace {

// From a value that is not null. \return whether it can be read from that.

bool PartFromValue(const CTypeSource& part, void* holder, const CValue& in)
{
    const CGnlTypeInfor type = MakeTypeInfor(part);
    if (holder == nullptr || type.IsFixed() || !record::IsLeaf(type)) return false;
    record::WriteLeaf({type, holder}, in);
    return true;
}
bool TakesValues(const CTypeSource& part)
{
    const CGnlTypeInfor type = MakeTypeInfor(part);
    return !type.IsFixed() && record::IsLeaf(type);
}

bool OptionalFromValue(const CShape& shape, void* object, const CValue& in)
{
    return TakesValues(shape.Parts[0]) &&
           PartFromValue(shape.Parts[0], OperationsOf<COptionalOperations>(shape).Make(object), in);
}

/// The alternative of the value's own type, else the active one, else the first that takes values.
bool VariantFromValue(const CShape& shape, void* object, const CValue& in)
{
    const auto& variant = OperationsOf<CVariantOperations>(shape);
    const CTypeSource* const end = shape.Parts + shape.PartCount;
    const CTypeSource* chosen = std::find_if(shape.Parts, end, [&](const CTypeSource& part) {
        return part.DataType == in.TypeInfor.DataType && part.HoldingFlags == 0;
    });
    const unsigned int active = variant.Index(object);
    if (chosen == end && active != CVariantOperations::VALUELESS && TakesValues(shape.Parts[active]))
        chosen = shape.Parts + active;
    if (chosen == end) chosen = std::find_if(shape.Parts, end, TakesValues);
    if (chosen == end) return false;
    return PartFromValue(*chosen, variant.Make(object, static_cast<unsigned int>(chosen - shape.Parts)), in);
}

bool BitsFromValue(const CBitsOperations& bits, void* object, const CValue& in)
{
    if (in.Type() != DT_STD_STRING) return false;
    const std::string& digits = in.As_std_string_ref();
    if (digits.find_first_not_of("01") != std::string::npos) return false;
    bits.Clear(object);
    for (const char digit : digits)
        bits.Append(object, digit == '1');
    return true;
}

bool AtomicFromValue(const CShape& shape, void* object, const CValue& in)
{
    CAtomicRoom value{};
    const auto& atomic = OperationsOf<CAtomicOperations>(shape);
    if (!PartFromValue(shape.Parts[0], &value, in)) return false;
    atomic.Store(object, &value);
    return true;
}

bool TimePointFromValue(const CTimePointOperations& clock, void* object, const CValue& in)
{
    long long seconds = 0;
    long nanoseconds = 0;
    if (in.Type() == DT_STD_STRING) {
        if (!core::ReadTime(in.As_std_string_ref(), seconds, nanoseconds)) return false;
    } else if (in.Type() == DT_DATETIME || in.Type() == DT_TM) {
        const CDateTime given = in.As_CDateTime();
        if (given.State != VS_VALID) return false;
        seconds = core::SecondsOf(given.As_tm(true));
        nanoseconds = given.msec() * 1000000L;
    } else {
        return false;
    }
    return clock.Store(object, seconds, nanoseconds);
}

bool TextFromValue(const CTextOperations& text, void* object, const CValue& in)
{
    if (text.Set != nullptr) text.Set(object, in.As_std_string());
    return text.Set != nullptr;
}

bool FromValue(const CShape& shape, void* object, const CValue& in)
{
    switch (shape.Kind) {
    case ShapeKind::SIGNED_BYTE: {
        const auto byte = static_cast<signed char>(in.As_short());
        std::memcpy(object, &byte, sizeof byte);
        return true;
    }
    case ShapeKind::OPTIONAL: return OptionalFromValue(shape, object, in);
    case ShapeKind::VARIANT: return VariantFromValue(shape, object, in);
    case ShapeKind::BITS: return BitsFromValue(OperationsOf<CBitsOperations>(shape), object, in);
    case ShapeKind::ATOMIC: return AtomicFromValue(shape, object, in);
    case ShapeKind::TIME_POINT: return TimePointFromValue(OperationsOf<CTimePointOperations>(shape), object, in);
    case ShapeKind::DURATION: return PartFromValue(shape.Parts[0], object, in);
    case ShapeKind::TEXT: return TextFromValue(OperationsOf<CTextOperations>(shape), object, in);
    default: return false;
    }
}

/// Empties what is held directly in the object.
void ClearTuple(const CShape& shape, void* object)
{
    for (unsigned int i = 0; i < shape.PartCount; ++i)
        CRefrence(MakeTypeInfor(shape.Parts[i]), OperationsOf<CTupleOperations>(shape).Part(object, i)).Clear();
}

void Clear(const CShape& shape, void* object)
{
    switch (shape.Kind) {
    case ShapeKind::SIGNED_BYTE: std::memset(object, 0, 1); break;
    case ShapeKind::OPTIONAL: OperationsOf<COptionalOperations>(shape).Reset(object); break;
    case ShapeKind::VARIANT: OperationsOf<CVariantOperations>(shape).Make(object, 0); break;
    case ShapeKind::TUPLE: ClearTuple(shape, object); break;
    case ShapeKind::BITS: OperationsOf<CBitsOperations>(shape).Clear(object); break;
    case ShapeKind::ATOMIC: {
        const CAtomicRoom zero{};
        OperationsOf<CAtomicOperations>(shape).Store(object, &zero);
        break;
    }
    case ShapeKind::TIME_POINT: OperationsOf<CTimePointOperations>(shape).Store(object, 0, 0); break;
    case ShapeKind::DURATION: CRefrence(MakeTypeInfor(shape.Parts[0]), object).Clear(); break;
    case ShapeKind::TEXT: OperationsOf<CTextOperations>(shape).Clear(object); break;
    default: break; // convert themselves
    }
}

} // namespace

void ShapeFromValue(const CShapedType& type, void* object, const CValue& in)
{
    if (in.IsNull()) return Clear(type.Shape, object);
    if (FromValue(type.Shape, object, in)) return;
    helper::LogError("%s type vexa::CValue can not be converted to %s", in.TypeInfor.TypeName().c_str(),
                     typeinfo::NameOf(type).c_str());
}

} // namespace vexa::detail
