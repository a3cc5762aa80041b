#include "interchange/read_fit.h"

#include <algorithm>

#include "interchange/read_phrase.h"

namespace vexa::interchange {

using namespace Enum;
using detail::ShapeKind;

namespace {

bool BasicTakes(unsigned char code, EventKind kind)
{
    if (code == DT_BOOL) return kind == EventKind::BOOL;
    if (IsNumberCode(code)) return IsNumber(kind);
    switch (code) {
    case DT_NUMERIC: return IsNumber(kind) || kind == EventKind::NULL_VALUE;
    case DT_DATETIME: return kind == EventKind::STRING || kind == EventKind::DATE_TIME || kind == EventKind::NULL_VALUE;
    case DT_BINARY: return kind == EventKind::STRING || kind == EventKind::BYTES;
    default: return kind == EventKind::STRING;
    }
}

bool OnePartTakes(CForms& forms, const CForm& form, EventKind kind)
{
    const std::vector<CForm>& parts = forms.Of(form.CustomInfor()).Parts;
    return std::any_of(parts.begin(), parts.end(), [&](const CForm& part) { return TakesKind(forms, part, kind); });
}

bool ShapeTakes(CForms& forms, const CForm& form, EventKind kind)
{
    const detail::CShape& shape = *form.Shape;
    switch (shape.Kind) {
    case ShapeKind::OPTIONAL: return kind == EventKind::NULL_VALUE || OnePartTakes(forms, form, kind);
    case ShapeKind::VARIANT: return OnePartTakes(forms, form, kind);
    case ShapeKind::DURATION: return IsNumber(kind);
    case ShapeKind::TUPLE:
    case ShapeKind::BITS: return kind == EventKind::BEGIN_ARRAY;
    case ShapeKind::SIGNED_BYTE: // of an enumeration with names, which are its operations
        return IsNumber(kind) || (kind == EventKind::STRING && shape.Operations != nullptr);
    case ShapeKind::ATOMIC: // an arithmetic value, or an enumeration, whose details are its names
        return IsNumber(kind) || kind == EventKind::BOOL ||
               (kind == EventKind::STRING && shape.Parts->Detail != nullptr);
    case ShapeKind::TIME_POINT: return kind == EventKind::STRING || kind == EventKind::DATE_TIME;
    case ShapeKind::TEXT: return kind == EventKind::STRING;
    default: return true;
    }
}

} // namespace

bool TakesKind(CForms& forms, const CForm& form, EventKind kind)
{
    if (kind == EventKind::NULL_VALUE && form.IsNullable) return true;
    switch (form.Kind) {
    case FormKind::BASIC: return BasicTakes(form.Code, kind);
    case FormKind::ENUMERATION: return IsNumber(kind) || kind == EventKind::STRING;
    case FormKind::CLASS:
    case FormKind::MAP:
    case FormKind::GENERIC:
    case FormKind::GROUP: return kind == EventKind::BEGIN_OBJECT;
    case FormKind::SEQUENCE:
    case FormKind::INSERTED:
    case FormKind::PAIR_MAP:
    case FormKind::PAIR:
    case FormKind::ARRAY:
    case FormKind::ROW:
    case FormKind::TABLE: return kind == EventKind::BEGIN_ARRAY;
    case FormKind::CHAR_ARRAY:
    case FormKind::BITSET: return kind == EventKind::STRING;
    case FormKind::VALUE:
    case FormKind::CUSTOM: return !IsLong(kind);
    case FormKind::SHAPE: return ShapeTakes(forms, form, kind);
    case FormKind::NULL_TYPE: return kind == EventKind::NULL_VALUE;
    default: return false;
    }
}

bool IsIntegerForm(const CForm& form) noexcept
{
    if (form.Kind == FormKind::SHAPE) return form.Shape->Kind == ShapeKind::SIGNED_BYTE;
    const bool isNumber = form.Kind == FormKind::BASIC || form.Kind == FormKind::ENUMERATION;
    return isNumber && IsNumberCode(form.Code) && form.Code != DT_FLOAT && form.Code != DT_DOUBLE &&
           form.Code != DT_LONG_DOUBLE;
}

} // namespace vexa::interchange
