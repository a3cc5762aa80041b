#include "interchange/read_bound.h"

#include <charconv>
#include <cmath>
#include <cstring>
#include <type_traits>

#include <vexa/table.h>

#include "core/basic_types.h"
#include "interchange/read_phrase.h"
#include "interchange/tree_number.h"
#include "interchange/write_number.h"

namespace vexa::interchange {

namespace {

using detail::ShapeKind;
using typeinfo::CBound;
using typeinfo::CMemberNotes;

/// Calls \p look with the form of what a bound is of (a basic value, a container, a text or bits) and where that lies:
/// through wrappers, pointers, optionals, variants, atomics, durations, custom types over a standard value, and values
/// of any type. A null has no bounds.
template<class Look>
CBoundProblem AtLeaf(CForms& forms, const CForm& form, const char* object, const Look& look)
{
    const char* const place = form.Value(object);
    const auto part = [&](std::size_t number, const void* inner) -> CBoundProblem {
        const auto& parts = forms.Of(form.CustomInfor()).Parts;
        if (inner == nullptr || number >= parts.size()) return {};
        return AtLeaf(forms, parts[number], static_cast<const char*>(inner), look);
    };
    if (place == nullptr) return {};
    if (form.Kind == FormKind::VALUE) {
        const auto& value = *reinterpret_cast<const CValue*>(place);
        if (value.IsNull()) return {};
        return AtLeaf(forms, CForm(value.TypeInfor, 0, nullptr), static_cast<const char*>(value.Address), look);
    }
    if (form.Kind == FormKind::CUSTOM) {
        const CCustomBasicTypeInfor& infor = form.CustomInfor();
        if (infor.Underlying.DataType == Enum::DT_UNKNOWN || infor.ValueOffset < 0) return {};
        const CForm standard(infor.Underlying, static_cast<unsigned long>(infor.ValueOffset), nullptr);
        return AtLeaf(forms, standard, place, look);
    }
    if (form.Kind != FormKind::SHAPE) return look(form, place);
    switch (form.Shape->Kind) {
    case ShapeKind::OPTIONAL: return part(0, form.ShapeOperations<detail::COptionalOperations>().Get(place));
    case ShapeKind::DURATION: return part(0, place);
    case ShapeKind::VARIANT: {
        const auto& operations = form.ShapeOperations<detail::CVariantOperations>();
        const unsigned int number = operations.Index(place);
        return number != detail::CVariantOperations::VALUELESS ? part(number, operations.Get(place)) : CBoundProblem{};
    }
    case ShapeKind::ATOMIC: {
        alignas(16) char value[16] = {};
        form.ShapeOperations<detail::CAtomicOperations>().Load(place, value);
        return part(0, value);
    }
    default: return look(form, place);
    }
}

std::string ExpectedRange(const CMemberNotes& notes)
{
    if (!notes.Most) return "at least " + BoundText(*notes.Least);
    if (!notes.Least) return "at most " + BoundText(*notes.Most);
    return BoundText(*notes.Least) + " to " + BoundText(*notes.Most);
}

/// A long double holds every integer of 64 bits. A float is compared with the nearest floats.
template<class T>
auto NumberOf(const CBound& bound)
{
    using Number = std::conditional_t<std::is_same_v<T, float>, float, long double>;
    if (!bound.IsInteger) return static_cast<Number>(bound.Floating);
    return bound.IsUnsigned ? static_cast<Number>(static_cast<unsigned long long>(bound.Integer))
                            : static_cast<Number>(bound.Integer);
}

/// A char is a number here.
template<class T>
std::string TextOf(T number)
{
    if constexpr (std::is_floating_point_v<T>) {
        if (!std::isfinite(number)) return NameOfNotFinite(number);
        char text[NUMBER_ROOM];
        return {text, std::to_chars(text, text + sizeof text, number).ptr};
    } else {
        return std::to_string(+number);
    }
}

/// NaN is in no range.
template<class T>
CBoundProblem OfNumber(const CMemberNotes& notes, T number)
{
    const auto value = static_cast<decltype(NumberOf<T>(CBound()))>(number);
    const bool isAbove = notes.Most && !(value <= NumberOf<T>(*notes.Most));
    const bool isBelow = notes.Least && !(value >= NumberOf<T>(*notes.Least));
    if (!isBelow && !isAbove) return {};
    return {isAbove ? ProblemCode::ABOVE_RANGE : ProblemCode::BELOW_RANGE, false, ExpectedRange(notes), TextOf(number)};
}

std::string DigitsOf(const CNumeric& number)
{
    std::string digits = number.Negative != 0 ? "-" : "";
    digits += number.IntegerDigits.empty() ? "0" : number.IntegerDigits;
    return number.FractionDigits.empty() ? digits : digits + '.' + number.FractionDigits;
}

/// Digit for digit; a floating bound counts by its shortest digits.
CBoundProblem OfNumeric(const CMemberNotes& notes, const CNumeric& number)
{
    if (number.State != Enum::VS_VALID) return {};
    const std::string digits = DigitsOf(number);
    const auto compare = [&digits](const CBound& bound) {
        if (!bound.IsInteger && !std::isfinite(bound.Floating)) return bound.Floating < 0 ? 1 : -1;
        return CompareNumbers(digits, BoundText(bound));
    };
    const bool isAbove = notes.Most && compare(*notes.Most) > 0;
    const bool isBelow = notes.Least && compare(*notes.Least) < 0;
    if (!isBelow && !isAbove) return {};
    return {isAbove ? ProblemCode::ABOVE_RANGE : ProblemCode::BELOW_RANGE, false, ExpectedRange(notes), digits};
}

CBoundProblem OfRange(const CMemberNotes& notes, const CForm& form, const char* place)
{
    CBoundProblem problem;
    if (form.Kind == FormKind::SHAPE && form.Shape->Kind == ShapeKind::SIGNED_BYTE)
        return OfNumber(notes, *reinterpret_cast<const signed char*>(place));
    if (form.Kind != FormKind::BASIC && form.Kind != FormKind::ENUMERATION) return problem;
    core::VisitBasicType(form.Code, [&](auto basic) {
        using T = typename decltype(basic)::Type;
        if constexpr (std::is_same_v<T, CNumeric>) {
            problem = OfNumeric(notes, *reinterpret_cast<const CNumeric*>(place));
        } else if constexpr (std::is_arithmetic_v<T>) {
            std::conditional_t<std::is_same_v<T, char>, unsigned char, T> number;
            std::memcpy(&number, place, sizeof number);
            problem = OfNumber(notes, number);
        }
    });
    return problem;
}

/// A number of bytes, or of elements; none where what lies there has no length.
struct CLength {
    enum class Unit : unsigned char { NONE, BYTE, ELEMENT };

    Unit Of = Unit::NONE;
    unsigned long Count = 0;
};

CLength LengthAt(const CForm& form, const char* place)
{
    using Unit = CLength::Unit;
    switch (form.Kind) {
    case FormKind::BASIC:
        if (form.Code == Enum::DT_STD_STRING) return {Unit::BYTE, reinterpret_cast<const std::string*>(place)->size()};
        if (form.Code == Enum::DT_BINARY) return {Unit::BYTE, reinterpret_cast<const CBinary*>(place)->Size};
        return {};
    case FormKind::CHAR_ARRAY: return {Unit::BYTE, strnlen(place, form.ContainerInfor().Size)};
    case FormKind::ROW: return {Unit::ELEMENT, reinterpret_cast<const CRow*>(place)->Size()};
    case FormKind::TABLE: return {Unit::ELEMENT, reinterpret_cast<const CTable*>(place)->Rows.size()};
    case FormKind::SEQUENCE:
    case FormKind::INSERTED:
    case FormKind::MAP:
    case FormKind::PAIR_MAP: {
        const auto count = form.ContainerInfor().Count;
        return count != nullptr ? CLength{Unit::ELEMENT, count(const_cast<char*>(place))} : CLength();
    }
    case FormKind::SHAPE: break;
    default: return {};
    }
    if (form.Shape->Kind == ShapeKind::BITS)
        return {Unit::ELEMENT, form.ShapeOperations<detail::CBitsOperations>().Count(place)};
    if (form.Shape->Kind != ShapeKind::TEXT) return {};
    std::string memory;
    return {Unit::BYTE, form.ShapeOperations<detail::CTextOperations>().Get(place, memory).size()};
}

CBoundProblem OfLength(const CMemberNotes& notes, const CLength& length)
{
    if (length.Of == CLength::Unit::NONE) return {};
    const bool isShort = notes.ShortestLength && length.Count < *notes.ShortestLength;
    const bool isLong = notes.LongestLength && length.Count > *notes.LongestLength;
    if (!isShort && !isLong) return {};
    const bool isContainer = length.Of == CLength::Unit::ELEMENT;
    const unsigned long bound = isShort ? *notes.ShortestLength : *notes.LongestLength;
    return {isShort ? ProblemCode::TOO_SHORT : ProblemCode::TOO_MANY, isContainer,
            (isShort ? "at least " : "at most ") + CountText(bound, isContainer ? "element" : "byte"),
            std::to_string(length.Count)};
}

} // namespace

CBoundProblem CheckBounds(CForms& forms, const CMember& member, const char* object)
{
    const CMemberNotes& notes = *member.Notes;
    return AtLeaf(forms, member, object, [&notes](const CForm& form, const char* place) {
        CBoundProblem problem = OfRange(notes, form, place);
        return problem.Code != ProblemCode::NONE ? problem : OfLength(notes, LengthAt(form, place));
    });
}

} // namespace vexa::interchange
