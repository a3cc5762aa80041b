#ifndef VEXA_TYPEINFO_PLAN_H
#define VEXA_TYPEINFO_PLAN_H

#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include <vexa/class_infor.h>
#include <vexa/container_infor.h>

#include "typeinfo/finished_class.h"
#include "typeinfo/name_table.h"

/// \file
/// Plans: what is made from a finished descriptor once, so that its objects are walked without looking at the
/// descriptor again. A plan is a cache and never a second truth: a walk along it gives what the walk along the
/// descriptor gives, and whatever is unusual (see Operation::UNUSUAL) is left to that one.
///
/// A plan refers to other classes and containers by their descriptors, whose plans are asked for when a walk gets
/// there: so a class may hold itself, and no plan waits for another.

namespace vexa::typeinfo {

/// What is to be done with a value. The numbers of the basic types are those of their type codes.
enum class Operation : unsigned char {
    UNUSUAL = 0,      ///< left to the plain walk: custom types, records, bits, unknown codes
    CLASS = 1,        ///< an object whose class has, or may get, a plan
    CONTAINER = 2,    ///< likewise
    FIRST_BASIC = 11, ///< from here on: Enum::DT_BOOL and its kin
    STD_STRING = 41
};

/// How a value lies at its holder.
enum class Holding : unsigned char {
    DIRECT,  ///< always there
    FLAGGED, ///< null while the flag byte is not 0
    POINTER  ///< where a pointer leads; null with the pointer
};

/// One value: a record of a class, or the elements of a container. The offsets are from the start of the object, or of
/// the element.
struct CValuePlan {
    CValuePlan() = default;
    CValuePlan(const CGnlTypeInfor& type, unsigned long offset);

    /// Where the value itself lies in the object, or null for a null one. What the plain walk calls ValueAddress().
    const char* Value(const char* object) const noexcept
    {
        if (__builtin_expect(Held == Holding::DIRECT, 1)) return object + ValueOffset;
        if (Held == Holding::FLAGGED) return object[FlagOffset] != 0 ? nullptr : object + ValueOffset;
        const char* value = nullptr;
        std::memcpy(&value, object + ValueOffset, sizeof value);
        return value;
    }
    const CClassInfor& ClassInfor() const noexcept { return *static_cast<const CClassInfor*>(Type->DetailInfor); }
    const CContainerInfor& ContainerInfor() const noexcept
    {
        return *static_cast<const CContainerInfor*>(Type->DetailInfor);
    }

    Operation Op = Operation::UNUSUAL;
    Holding Held = Holding::DIRECT;
    unsigned char DirectCode = 0;   ///< the code of a basic type that is held directly; 0 for every other value
    bool IsPlain = false;           ///< directly held and writable: neither null state nor constness is in the way
    std::uint32_t HolderOffset = 0; ///< to what the descriptor calls the holder
    std::uint32_t FlagOffset = 0;   ///< FLAGGED: to the flag byte
    std::uint32_t ValueOffset = 0;  ///< to the value; POINTER: to the pointer
    const CGnlTypeInfor* Type = nullptr;
};

/// One attribute record of a class.
struct CRecordPlan : CValuePlan {
    using CValuePlan::CValuePlan;

    /// Bytes behind Key and Label that may be read with them.
    static constexpr std::size_t SPARE = 16;

    const char* Key = nullptr;     ///< `,"name":`, without the comma for the class's first record; then `"`
    const char* Label = nullptr;   ///< `name: `
    std::uint32_t KeyLength = 0;   ///< bytes of Key
    std::uint32_t LabelLength = 0; ///< bytes of Label; the name has two less
    const CAttribInfor* Infor = nullptr;

    std::string_view Name() const noexcept { return {Label, LabelLength - 2}; }
    /// `"name":`
    std::string_view QuotedKey() const noexcept { return {Label - LabelLength - 2, LabelLength + 1}; }
};

/// The plan of a class.
class CPlan {
public:
    explicit CPlan(const CClassInfor& infor);
    CPlan(const CPlan&) = delete;
    CPlan& operator=(const CPlan&) = delete;

    const CRecordPlan* begin() const noexcept { return m_records.data(); }
    const CRecordPlan* end() const noexcept { return m_records.data() + m_records.size(); }
    std::size_t Size() const noexcept { return m_records.size(); }
    /// Bytes of the keys of all basic values that are always there.
    unsigned long DirectKeys() const noexcept { return m_directKeys; }
    /// Whether which records are visited depends on the object: then its attributes are walked plainly. Look-ups are
    /// the same.
    bool HasUnions() const noexcept { return m_hasUnions; }
    /// Whether a name holds a quotation mark, so that it cannot be told from a key by the bytes of `"name":`.
    bool HasQuotedNames() const noexcept { return m_hasQuotedNames; }
    /// The record of a name, or null.
    const CRecordPlan* Find(const char* name, std::size_t length) const noexcept
    {
        const std::uint32_t number = m_names.Find(name, length);
        return number != CNameTable::NONE ? m_records.data() + number : nullptr;
    }

private:
    void PlaceTexts();

    std::vector<CRecordPlan> m_records; ///< in list order
    std::vector<char> m_texts;          ///< what Key and Label point into
    CNameTable m_names;
    unsigned long m_directKeys = 0;
    bool m_hasUnions = false;
    bool m_hasQuotedNames = false;
};

/// The plan of a container.
class CContainerPlan {
public:
    enum class Form : unsigned char {
        UNUSUAL, ///< left to the plain walk
        VECTOR,  ///< a std::vector: two pointers at its address
        SLOTS,   ///< the elements are the container
        CURSOR   ///< walked by the operations of the descriptor, which are the library's own
    };

    explicit CContainerPlan(const CContainerInfor& infor);
    CContainerPlan(const CContainerPlan&) = delete;
    CContainerPlan& operator=(const CContainerPlan&) = delete;

    Form Shape() const noexcept { return m_form; }
    bool IsContiguous() const noexcept { return m_form == Form::VECTOR || m_form == Form::SLOTS; }
    const CValuePlan& Element() const noexcept { return m_element; }
    /// Bytes from one element to the next. VECTOR and SLOTS only.
    unsigned long Stride() const noexcept { return m_stride; }
    /// The elements of a contiguous container.
    detail::CElementSpan Elements(const char* container) const noexcept
    {
        return detail::ElementsOf(m_form == Form::VECTOR, m_infor->Size, container);
    }
    const CContainerInfor& Infor() const noexcept { return *m_infor; }

private:
    Form m_form = Form::UNUSUAL;
    unsigned long m_stride = 0;
    CValuePlan m_element;
    const CContainerInfor* m_infor;
};

/// Makes the plan and publishes it, unless another thread is first. Null when there is no memory for it.
const CPlan* MakePlan(const CFinishedClass& infor) noexcept;
const CContainerPlan* MakePlan(const CFinishedContainer& infor) noexcept;

/// The plan of a descriptor; null for one that no registration has finished, and when there is no memory for it.
/// Whoever gets null walks the descriptor.
inline const CPlan* PlanOf(const CClassInfor& infor) noexcept
{
    const CFinishedClass* const finished = FinishedClass(infor);
    if (finished == nullptr) return nullptr;
    const CPlan* const plan = finished->Plan.load(std::memory_order_acquire);
    return __builtin_expect(plan != nullptr, 1) ? plan : MakePlan(*finished);
}

inline const CContainerPlan* PlanOf(const CContainerInfor& infor) noexcept
{
    const CFinishedContainer* const finished = FinishedContainer(infor);
    if (finished == nullptr) return nullptr;
    const CContainerPlan* const plan = finished->Plan.load(std::memory_order_acquire);
    return __builtin_expect(plan != nullptr, 1) ? plan : MakePlan(*finished);
}

/// Frees what lies behind a class descriptor that goes away.
void ReleasePlan(const CClassInfor& infor) noexcept;

} // namespace vexa::typeinfo

#endif
