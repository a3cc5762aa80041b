#ifndef VEXA_TYPE_INFOR_H
#define VEXA_TYPE_INFOR_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <utility>

#include <vexa/data_type.h>
#include <vexa/export.h>

/// \file
/// The general type descriptor, which says what type lives at a place in memory and how it is held there, and the
/// common head of the detailed descriptors.
///
/// Descriptors are filled once during registration and only read afterwards, so every const operation may run on any
/// number of threads at once. Operations on the same holder must not overlap.

namespace vexa {

class CClassInfor;
class CContainerInfor;
class CCustomBasicTypeInfor;
class CRefrence;

namespace detail {

/// What the library has noted of a descriptor that it has finished itself: by what shorter way it may be walked. It
/// lies in the padding of the public fields and is never copied, so a copied or a hand-made descriptor has none. Set
/// once, before the descriptor is published.
class CFinishedMark {
public:
    static constexpr std::uint32_t CLASS =
        1; ///< made by a class registration, complete, with room for a plan behind it
    static constexpr std::uint32_t VECTOR = 2; ///< the container is a std::vector with the standard allocator
    static constexpr std::uint32_t SLOTS = 4;  ///< the container's elements lie in itself, from its start to its end
    static constexpr std::uint32_t CONTAINER =
        8; ///< made by the description layer, all operations its own, with room for a plan behind it
    static constexpr std::uint32_t SHAPE = 16; ///< a custom type whose structure is known, with its shape behind it
    static constexpr std::uint32_t DRAFT = 32; ///< a class that a registration has begun, with room for notes behind it

    constexpr CFinishedMark() noexcept = default;
    constexpr CFinishedMark(const CFinishedMark&) noexcept {}
    constexpr CFinishedMark& operator=(const CFinishedMark&) noexcept { return *this; }

    /// Adds a form to those that are set.
    void Set(std::uint32_t form, unsigned long stride = 0) noexcept
    {
        if (stride > MAX_STRIDE) return;
        __atomic_fetch_or(&m_bits, form | static_cast<std::uint32_t>(stride) << STRIDE_SHIFT, __ATOMIC_RELEASE);
    }
    bool Is(std::uint32_t form) const noexcept { return (Load() & form) != 0; }
    /// Bytes from one element of a contiguous container (VECTOR, SLOTS) to the next; 0 for every other descriptor.
    /// A plain load, which a walk makes only once: it is set before anybody who walks can see the descriptor.
    unsigned long Stride() const noexcept { return m_bits >> STRIDE_SHIFT; }

private:
    static constexpr unsigned int STRIDE_SHIFT = 8;
    static constexpr unsigned long MAX_STRIDE = 0xFFFFFF;

    std::uint32_t Load() const noexcept { return __atomic_load_n(&m_bits, __ATOMIC_ACQUIRE); }

    std::uint32_t m_bits = 0;
};

} // namespace detail

/// The common head of the detailed descriptors of classes, containers and custom types.
class VEXA_API CTypeInforBase {
public:
    using FactoryFunction = void* (*)();
    using DeleterFunction = void (*)(void*);

    std::string Name;                  ///< the registered type name
    unsigned long Size = 0;            ///< bytes of one object
    unsigned int CustomTypeID = 0;     ///< the application's number for a custom type; 0 for every other type
    detail::CFinishedMark Mark;        ///< the library's own
    FactoryFunction Factory = nullptr; ///< makes a default object on the heap; null where the type cannot be made
    DeleterFunction Deleter = nullptr; ///< destroys and frees an object made by the factory

    /// Assigns all five fields.
    void SetBaseTypeInfor(const std::string& name, unsigned long size, FactoryFunction factory, DeleterFunction deleter,
                          unsigned int customTypeID);
};

/// What type a value has and how it is held: 16 bytes, copied freely.
///
/// The *holder* is the address at which a described value lives: the value itself when it is held directly, the pointer
/// variable when it is held through a pointer, the wrapper for a MayNull.
///
/// Detailed descriptors are borrowed and live as long as the process, with one exception: a descriptor of code
/// DT_CUSTOM_OWNED owns its CTypeInforBase, copies it deeply and releases it in the destructor.
class VEXA_API CGnlTypeInfor {
public:
    unsigned char DataType = Enum::DT_UNKNOWN; ///< an Enum::DataTypeEnum value
    unsigned char HoldingFlags = 0;            ///< Enum::HoldingFlagsEnum bits
    unsigned char NullFlagOffset = 0; ///< MayNull: bytes from the wrapper to its null-flag byte (nonzero: null)
    unsigned char ValueOffset = 0;    ///< MayNull: bytes from the wrapper to its value
    const CTypeInforBase* DetailInfor =
        nullptr; ///< by DataType a class, container, custom or owned descriptor, else null

    constexpr CGnlTypeInfor() noexcept = default;
    constexpr explicit CGnlTypeInfor(unsigned int dataType, unsigned int holdingFlags = 0,
                                     const CTypeInforBase* detail = nullptr) noexcept
        : DataType(static_cast<unsigned char>(dataType)), HoldingFlags(static_cast<unsigned char>(holdingFlags)),
          DetailInfor(detail)
    {
    }
    CGnlTypeInfor(const CGnlTypeInfor& other)
        : DataType(other.DataType), HoldingFlags(other.HoldingFlags), NullFlagOffset(other.NullFlagOffset),
          ValueOffset(other.ValueOffset),
          DetailInfor(other.OwnsDetail() ? CopyOfOwned(other.DetailInfor) : other.DetailInfor)
    {
    }
    CGnlTypeInfor(CGnlTypeInfor&& other) noexcept
        : DataType(other.DataType), HoldingFlags(other.HoldingFlags), NullFlagOffset(other.NullFlagOffset),
          ValueOffset(other.ValueOffset), DetailInfor(other.DetailInfor)
    {
        other.ForgetOwned();
    }
    /// Copies; on a failed allocation the target is unchanged.
    CGnlTypeInfor& operator=(const CGnlTypeInfor& other)
    {
        if (this == &other) return *this;
        const CTypeInforBase* const detail = other.OwnsDetail() ? CopyOfOwned(other.DetailInfor) : other.DetailInfor;
        if (OwnsDetail()) ReleaseOwned(DetailInfor);
        DataType = other.DataType;
        HoldingFlags = other.HoldingFlags;
        NullFlagOffset = other.NullFlagOffset;
        ValueOffset = other.ValueOffset;
        DetailInfor = detail;
        return *this;
    }
    CGnlTypeInfor& operator=(CGnlTypeInfor&& other) noexcept
    {
        if (this == &other) return *this;
        if (OwnsDetail()) ReleaseOwned(DetailInfor);
        DataType = other.DataType;
        HoldingFlags = other.HoldingFlags;
        NullFlagOffset = other.NullFlagOffset;
        ValueOffset = other.ValueOffset;
        DetailInfor = other.DetailInfor;
        other.ForgetOwned();
        return *this;
    }
    ~CGnlTypeInfor()
    {
        if (OwnsDetail()) ReleaseOwned(DetailInfor);
    }

    /// Whether all of \p mask is set in the holding flags. Not for the wrapper kind: see WrapperKind().
    bool Has(unsigned int mask) const noexcept { return (HoldingFlags & mask) == mask; }
    /// 0 for none, else HF_MAY_NULL or HF_NON_NULL_POINTER.
    unsigned int WrapperKind() const noexcept { return HoldingFlags & Enum::HF_KIND_MASK; }
    /// Whether not even the null state may be changed: read-only, and no pointer, which may still be set to null.
    bool IsFixed() const noexcept { return Has(Enum::HF_CONST) && !Has(Enum::HF_POINTER); }
    bool IsBasicType() const noexcept { return Enum::IsBasicCode(DataType); }
    bool IsContainer() const noexcept { return Enum::IsContainerCode(DataType); }
    bool IsAssociative() const noexcept { return Enum::IsAssociativeCode(DataType); }

    /// Where the value lives: through the stored pointer with HF_POINTER, else inside the MayNull wrapper, else at the
    /// holder. Does not look at the null state: ask IsNull first. \p holder must not be null.
    void* ValueAddress(const void* holder) const noexcept
    {
        void* address = nullptr;
        if (Has(Enum::HF_POINTER)) {
            std::memcpy(&address, holder, sizeof address);
        } else if (WrapperKind() == Enum::HF_MAY_NULL) {
            address = static_cast<char*>(const_cast<void*>(holder)) + ValueOffset;
        } else {
            address = const_cast<void*>(holder);
        }
        return address;
    }

    /// Whether the value at \p holder counts as null; a null holder is null. Allocates nothing.
    ///
    /// A DT_VALUE answers for itself at the holder, even with HF_POINTER set: the pointer variable is then taken for
    /// the value. A caller that holds a CValue through a pointer must test the pointer itself.
    bool IsNull(const void* holder) const
    {
        if (holder == nullptr || DataType == Enum::DT_NULL) return true;
        if (DataType == Enum::DT_VALUE) return IsNullValue(holder);
        switch (KeeperOfNull()) {
        case NullKeeper::Pointer: return ValueAddress(holder) == nullptr;
        case NullKeeper::Flag: return static_cast<const unsigned char*>(holder)[NullFlagOffset] != 0;
        default: return false;
        }
    }
    /// Bytes of one value (not of its holder); 0 for a type without size.
    unsigned long Sizeof() const;
    /// A new default value on the heap, for Delete to release; arithmetic values and tm are not initialised.
    /// \return null where the type cannot be made. Throws std::bad_alloc.
    void* New() const;
    /// Destroys and frees what New made, and sets \p object to null. A type that cannot be made frees nothing.
    void Delete(void*& object) const;
    /// Makes the value at \p holder null: frees an owned pointee, only forgets a const one, sets a MayNull's flag.
    void SetNull(void* holder) const;
    /// Makes the value at \p holder not null: gives a null owned pointer a new pointee, clears a MayNull's flag. A
    /// const null pointer stays null.
    void SetNotNull(void* holder) const;
    /// Gives a null pointer that is not const a new default pointee.
    void NewIfNullPointer(void* holder) const;
    /// std::string, const char*, a custom type over std::string, an array of directly held char.
    bool IsStringTypeEx() const;
    /// Codes 10 to 39 and DT_NUMERIC; bool and char count.
    bool IsNumericTypeEx() const;
    /// The underlying standard type of a DT_CUSTOM_BASIC; the code is not checked.
    const CGnlTypeInfor& GetStdTypeInforFromCustomType() const;
    /// The custom type ID of DT_CUSTOM_BASIC and DT_CUSTOM_OWNED; 0 for every other code.
    unsigned int GetCustomTypeID() const;
    /// The type's name, however it is held; a container's composed name is cut at 254 characters.
    std::string RealTypeName() const;
    /// The type's name with its holding form, for example "MayNull<int>" or "const int*".
    std::string TypeName() const;
    /// Turns this descriptor into the owner of a new custom type, DT_CUSTOM_OWNED; flags and offsets stay. What it
    /// owned before is not released. A null \p name throws std::logic_error and leaves the new descriptor without a
    /// name.
    void ChangeTypeTo_CustomType(const char* name, unsigned long size, void* (*factory)(), void (*deleter)(void*),
                                 unsigned int customTypeID);

private:
    /// What keeps the null state of a value. Every operation on the null state goes by it.
    enum class NullKeeper : unsigned char { Nothing, Pointer, Value, Flag };
    NullKeeper KeeperOfNull() const noexcept
    {
        const bool isNullable = Has(Enum::HF_NULLABLE);
        if (Has(Enum::HF_POINTER))
            return isNullable || DataType == Enum::DT_VALUE ? NullKeeper::Pointer : NullKeeper::Nothing;
        if (DataType == Enum::DT_VALUE) return NullKeeper::Value;
        return isNullable && WrapperKind() == Enum::HF_MAY_NULL ? NullKeeper::Flag : NullKeeper::Nothing;
    }
    bool OwnsDetail() const noexcept { return DataType == Enum::DT_CUSTOM_OWNED && DetailInfor != nullptr; }
    static bool IsNullValue(const void* value);
    /// A descriptor that has been moved from is that of no type.
    void ForgetOwned() noexcept
    {
        if (!OwnsDetail()) return;
        DataType = Enum::DT_UNKNOWN;
        DetailInfor = nullptr;
    }
    static const CTypeInforBase* CopyOfOwned(const CTypeInforBase* owned);
    static void ReleaseOwned(const CTypeInforBase* owned) noexcept;
};

static_assert(sizeof(CGnlTypeInfor) == 16 && offsetof(CGnlTypeInfor, DetailInfor) == 8, "part of the binary interface");
static_assert(sizeof(CTypeInforBase) == 64, "part of the binary interface");

namespace helper {

/// Sets the reference's type code to DT_CLASS, its detailed descriptor to \p classInfor and its address to \p object;
/// holding flags and offsets stay as they are.
VEXA_API void ChangeTypeTo_ClassType(CRefrence& ref, const CClassInfor& classInfor, const void* object);

} // namespace helper
} // namespace vexa

#endif
