#include "interchange/read_bound.h"

#include <cstring>
#include <optional>

#include <vexa/refrence.h>

#include "interchange/read_phrase.h"

namespace vexa::interchange {

namespace {

using detail::ShapeKind;

/// What a bound can be of, where it lies: a basic value, a container, a text or bits.
struct CLeaf {
    const CForm* Form;
    const char* Place; ///< null for a null
};

/// Through wrappers, pointers, optionals and durations.
CLeaf LeafOf(CForms& forms, const CForm& form, const char* object)
{
    const char* const place = form.Value(object);
    if (place == nullptr || form.Kind != FormKind::SHAPE) return {&form, place};
    if (form.Shape->Kind == ShapeKind::OPTIONAL) {
        const void* const value = form.ShapeOperations<detail::COptionalOperations>().Get(place);
        const CForm& part = forms.Of(form.CustomInfor()).Parts.front();
        if (value == nullptr) return {&form, nullptr};
        return LeafOf(forms, part, static_cast<const char*>(value));
    }
    if (form.Shape->Kind == ShapeKind::DURATION)
        return LeafOf(forms, forms.Of(form.CustomInfor()).Parts.front(), place);
    return {&form, place};
}

std::optional<long double> NumberAt(CForms& forms, const CLeaf& leaf)
{
    const auto load = [](unsigned char code, const void* place) -> std::optional<long double> {
        if (!Enum::IsNumberCode(code)) return std::nullopt;
        if (code == Enum::DT_UNSIGNED_LONG || code == Enum::DT_UNSIGNED_LONG_LONG)
            return CStdBasicTypeConstRefrence(CGnlTypeInfor(code), place).As_unsigned_long();
        if (code == Enum::DT_DOUBLE || code == Enum::DT_FLOAT || code == Enum::DT_LONG_DOUBLE)
            return CStdBasicTypeConstRefrence(CGnlTypeInfor(code), place).As_long_double();
        return CStdBasicTypeConstRefrence(CGnlTypeInfor(code), place).As_long();
    };
    if (leaf.Form->Kind != FormKind::SHAPE) return load(leaf.Form->Code, leaf.Place);
    if (leaf.Form->Shape->Kind == ShapeKind::SIGNED_BYTE) return *reinterpret_cast<const signed char*>(leaf.Place);
    if (leaf.Form->Shape->Kind != ShapeKind::ATOMIC) return std::nullopt;
    alignas(16) char value[16] = {};
    leaf.Form->ShapeOperations<detail::CAtomicOperations>().Load(leaf.Place, value);
    return load(forms.Of(leaf.Form->CustomInfor()).Parts.front().Code, value);
}

struct CLength {
    unsigned long Count = 0;
    bool IsContainer = false;
};

std::optional<CLength> LengthAt(const CLeaf& leaf)
{
    const CForm& form = *leaf.Form;
    switch (form.Kind) {
    case FormKind::BASIC:
        if (form.Code == Enum::DT_STD_STRING) return CLength{reinterpret_cast<const std::string*>(leaf.Place)->size()};
        if (form.Code == Enum::DT_BINARY) return CLength{reinterpret_cast<const CBinary*>(leaf.Place)->Size};
        return std::nullopt;
    case FormKind::CHAR_ARRAY: return CLength{strnlen(leaf.Place, form.ContainerInfor().Size)};
    case FormKind::SEQUENCE:
    case FormKind::INSERTED:
    case FormKind::MAP:
    case FormKind::PAIR_MAP: return CLength{form.ContainerInfor().Count(const_cast<char*>(leaf.Place)), true};
    case FormKind::SHAPE: break;
    default: return std::nullopt;
    }
    if (form.Shape->Kind == ShapeKind::BITS)
        return CLength{form.ShapeOperations<detail::CBitsOperations>().Count(leaf.Place), true};
    if (form.Shape->Kind != ShapeKind::TEXT) return std::nullopt;
    std::string memory;
    return CLength{form.ShapeOperations<detail::CTextOperations>().Get(leaf.Place, memory).size()};
}

/// A long double holds every integer of 64 bits.
long double NumberOf(const typeinfo::CBound& bound)
{
    if (!bound.IsInteger) return static_cast<long double>(bound.Floating);
    return bound.IsUnsigned ? static_cast<long double>(static_cast<unsigned long long>(bound.Integer))
                            : static_cast<long double>(bound.Integer);
}

/// A char is a number here.
std::string TextOfBasic(unsigned char code, const void* place)
{
    const CGnlTypeInfor type(code == Enum::DT_CHAR ? static_cast<unsigned char>(Enum::DT_UNSIGNED_CHAR) : code);
    return CStdBasicTypeConstRefrence(type, place).As_std_string();
}

std::string FoundNumber(const CLeaf& leaf, long double number)
{
    const CForm& form = *leaf.Form;
    if (form.Kind == FormKind::BASIC || form.Kind == FormKind::ENUMERATION) return TextOfBasic(form.Code, leaf.Place);
    return std::to_string(static_cast<long long>(number));
}

CBoundProblem OfRange(const typeinfo::CMemberNotes& notes, const CLeaf& leaf, long double number)
{
    const bool isBelow = notes.Least && number < NumberOf(*notes.Least);
    const bool isAbove = notes.Most && !(number <= NumberOf(*notes.Most));
    if (!isBelow && !isAbove) return {};
    std::string expected = !notes.Most    ? "at least " + BoundText(*notes.Least)
                           : !notes.Least ? "at most " + BoundText(*notes.Most)
                                          : BoundText(*notes.Least) + " to " + BoundText(*notes.Most);
    return {isBelow ? ProblemCode::BELOW_RANGE : ProblemCode::ABOVE_RANGE, false, std::move(expected),
            FoundNumber(leaf, number)};
}

CBoundProblem OfLength(const typeinfo::CMemberNotes& notes, const CLength& length)
{
    const bool isShort = notes.ShortestLength && length.Count < *notes.ShortestLength;
    const bool isLong = notes.LongestLength && length.Count > *notes.LongestLength;
    if (!isShort && !isLong) return {};
    const char* const unit = length.IsContainer ? "element" : "byte";
    const unsigned long bound = isShort ? *notes.ShortestLength : *notes.LongestLength;
    return {isShort ? ProblemCode::TOO_SHORT : ProblemCode::TOO_MANY, length.IsContainer,
            (isShort ? "at least " : "at most ") + CountText(bound, unit), std::to_string(length.Count)};
}

} // namespace

CBoundProblem CheckBounds(CForms& forms, const CMember& member, const char* object)
{
    const CLeaf leaf = LeafOf(forms, member, object);
    if (leaf.Place == nullptr) return {};
    if (const std::optional<long double> number = NumberAt(forms, leaf)) return OfRange(*member.Notes, leaf, *number);
    if (const std::optional<CLength> length = LengthAt(leaf)) return OfLength(*member.Notes, *length);
    return {};
}

} // namespace vexa::interchange
