#ifndef VEXA_CORE_TYPE_TABLE_H
#define VEXA_CORE_TYPE_TABLE_H

/// \file
/// One row per type code: what the descriptor operations need to know of a type. Every list of codes that these
/// operations would otherwise repeat is a column here.

namespace vexa {

class CGnlClass;
class CReferenceGroup;
class CRow;
class CTable;
class CValue;

namespace core {

/// A template takes the visibility of its arguments, which are exported.
#define VEXA_CORE_PRIVATE __attribute__((visibility("hidden")))

/// What the record types contribute to their rows. Defined on the floors where those types stand.
template<class Record>
VEXA_CORE_PRIVATE void* MakeRecord();
template<class Record>
VEXA_CORE_PRIVATE void DestroyRecord(void* record);
template<class Record>
VEXA_CORE_PRIVATE void ClearRecord(void* record);
bool IsNullValue(const void* value);
void SetNullValue(void* value);
void SetNotNullValue(void* value);

/// Where a type's size, name and life cycle come from.
enum class TypeSource : unsigned char {
    Row,             ///< from the row
    Detail,          ///< from the detailed descriptor
    Container,       ///< from the container descriptor, the name composed with the element type's
    UnnamedContainer ///< made and destroyed by the container descriptor, but without name or size
};

struct CTypeRow {
    const char* Name = "unkown type";
    unsigned long Size = 0;
    void* (*Make)() = nullptr;               ///< null: cannot be made
    void (*Destroy)(void* object) = nullptr; ///< accepts null; itself null: nothing is freed
    /// How a value that keeps its own null state answers; null for every type whose holder keeps it.
    bool (*IsNull)(const void* value) = nullptr;
    void (*SetNull)(void* value) = nullptr;
    void (*SetNotNull)(void* value) = nullptr;
    TypeSource Source = TypeSource::Row;
    void (*Clear)(void* record) = nullptr; ///< empties a record; null for every other type
};

/// The row of a code, assigned or not.
const CTypeRow& TypeRow(unsigned char code) noexcept;

} // namespace core
} // namespace vexa

#endif
