#ifndef VEXA_INTERCHANGE_READ_VALUE_H
#define VEXA_INTERCHANGE_READ_VALUE_H

#include "interchange/read_class.h"
#include "interchange/read_map.h"
#include "interchange/read_record.h"
#include "interchange/read_shape.h"
#include "interchange/read_union.h"
#include "interchange/read_variant.h"

/// \file
/// The whole walk: what is compiled for each kind of source.

namespace vexa::interchange {

template<class Source>
bool CReader<Source>::ReadAt(const CForm& form, char* place)
{
    switch (form.Kind) {
    case FormKind::BASIC: return ReadBasic(form, place);
    case FormKind::CLASS: return ReadClass(form.ClassInfor(), place);
    case FormKind::SEQUENCE: return ReadSequence(form, place);
    case FormKind::MAP: return ReadMap(form, place);
    case FormKind::ENUMERATION: return ReadEnumeration(form, place);
    case FormKind::SHAPE: return ReadShape(form, place);
    case FormKind::INSERTED:
    case FormKind::PAIR_MAP: return ReadInserted(form, place);
    case FormKind::PAIR: return ReadPair(form, place);
    case FormKind::ARRAY: return ReadArray(form, place);
    case FormKind::CHAR_ARRAY: return ReadCharArray(form, place);
    case FormKind::BITSET: return ReadBitset(form, place);
    case FormKind::VALUE: return ReadAnyValue(*reinterpret_cast<CValue*>(place));
    case FormKind::ROW: return ReadRow(*reinterpret_cast<CRow*>(place));
    case FormKind::TABLE: return ReadTable(*reinterpret_cast<CTable*>(place));
    case FormKind::GENERIC: return ReadEntries(*reinterpret_cast<CGnlClass*>(place));
    case FormKind::GROUP: return ReadEntries(*reinterpret_cast<CReferenceGroup*>(place));
    case FormKind::CUSTOM: return ReadCustom(form, place);
    case FormKind::NULL_TYPE:
        return m_source.Peek() == EventKind::NULL_VALUE ? m_source.Null() || Broken() : WrongKind("null");
    case FormKind::UNSUPPORTED: break;
    }
    return Refuse(ProblemCode::CANNOT_BE_MADE);
}

} // namespace vexa::interchange

#endif
