#include "interchange/read_set_aside.h"

#include <algorithm>

#include "reference/union_member.h"
#include "reference/union_watch.h"

namespace vexa::interchange {

namespace {

bool TakeAwayAt(CForms& forms, CUndo& undo, const CForm& form, char* place)
{
    switch (form.Kind) {
    case FormKind::BASIC:
    case FormKind::ENUMERATION: undo.SaveBasic(form.Code, place); return true;
    case FormKind::SEQUENCE:
    case FormKind::INSERTED:
    case FormKind::MAP:
    case FormKind::PAIR_MAP: return undo.TakeContents(form.ContainerInfor(), place);
    case FormKind::CHAR_ARRAY:
    case FormKind::BITSET: undo.SaveBytes(place, form.ContainerInfor().Size); return true;
    case FormKind::SHAPE: return undo.TakeCustom(form, place);
    case FormKind::CLASS:
    case FormKind::PAIR:
        return forms.Of(form.ClassInfor()).IsTrueOfAll([&](const CMember& member) {
            return member.Infor->UnionSelector == nullptr && TakeAway(forms, undo, member, place);
        });
    case FormKind::ARRAY: {
        const CContainerForm& parts = forms.Of(form.ContainerInfor());
        if (!parts.IsSlots) return false;
        const unsigned long size = form.ContainerInfor().Size;
        for (unsigned long offset = 0; offset + parts.Stride <= size; offset += parts.Stride)
            if (!TakeAway(forms, undo, parts.Element, place + offset)) return false;
        return true;
    }
    default: return false;
    }
}

} // namespace

bool TakeAway(CForms& forms, CUndo& undo, const CForm& form, char* object)
{
    if (form.How == Held::POINTER) {
        if (form.IsConst)
            undo.SaveBytes(object + form.ValueOffset, sizeof(void*));
        else
            undo.TakePointee(*form.Type, object + form.ValueOffset);
        return true;
    }
    if (form.How == Held::FLAGGED) undo.SaveBytes(object + form.FlagOffset, 1);
    return TakeAwayAt(forms, undo, form, object + form.ValueOffset);
}

bool IsGuardingSelector(const CClassInfor& owner, const CAttribInfor& attrib)
{
    if (!reference::HasGuardedUnions(owner)) return false;
    return std::any_of(owner.AttribList.begin(), owner.AttribList.end(), [&](const CAttribInfor& member) {
        return member.UnionSelector != nullptr && member.UnionSelector->Offset == attrib.Offset &&
               member.UnionSelector->TypeInfor.DataType == attrib.TypeInfor.DataType &&
               reference::IsGuarded(owner, member);
    });
}

} // namespace vexa::interchange
