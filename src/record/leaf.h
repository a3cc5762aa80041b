#ifndef VEXA_RECORD_LEAF_H
#define VEXA_RECORD_LEAF_H

#include <vexa/value.h>

/// \file
/// Values that a tagged value can stand for: basic ones, and custom ones by their standard value.

namespace vexa::record {

bool IsLeaf(const CGnlTypeInfor& type);

/// Sets such a value by reading \p value as its type, so that a text goes into a number and a number into a text. A
/// null empties it.
void WriteLeaf(CRefrence leaf, const CValue& value);

} // namespace vexa::record

#endif
