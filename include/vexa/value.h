#ifndef VEXA_VALUE_H
#define VEXA_VALUE_H

#include <cstddef>
#include <initializer_list>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include <vexa/detail/basic_code.h>
#include <vexa/refrence.h>

/// \file
/// Generic values: a tagged value that can hold any basic type, and a row of them.
///
/// Values own their contents. One value belongs to one thread at a time; several threads may read it.

namespace vexa {

/// A value of any basic type, which owns its storage and is a writable reference to it: every conversion of the
/// references works on it. 64 bytes; numbers, std::string and CBinary lie inside, the other types on the heap.
///
/// A value has a type code also while it is null. It never holds a const char*: that becomes a std::string. The code 2
/// (DT_NULL) is that of a value without type; so is 0, which a fresh value has.
class VEXA_API CValue : public CStdBasicTypeRefrence {
    template<class T>
    using IfBasic = std::enable_if_t<detail::BASIC_CODE<T> != Enum::DT_UNKNOWN>;

public:
    CValue() noexcept = default;
    CValue(NullType) noexcept { TypeInfor.DataType = Enum::DT_NULL; }
    CValue(const char* text) { *this = text; } ///< a null pointer gives a null std::string
    template<class T, class = IfBasic<T>>
    CValue(const T& value)
    {
        *this = value;
    }
    /// Copies everything, all bytes of a long double included.
    CValue(const CValue& other);
    /// Leaves \p other null, with its type; without type, if that was a custom one of its own.
    CValue(CValue&& other) noexcept;
    CValue& operator=(const CValue& other);
    CValue& operator=(CValue&& other) noexcept;
    ~CValue();

    /// Takes the type of what is assigned, which may be part of this value.
    template<class T, class = IfBasic<T>>
    CValue& operator=(const T& value)
    {
        return Assign(detail::BASIC_CODE<T>, value);
    }
    CValue& operator=(const char* text) { return Assign(Enum::DT_STD_STRING, text); }
    CValue& operator=(NullType)
    {
        SetNull(Enum::DT_NULL);
        return *this;
    }

    bool IsNull() const { return Address == nullptr; }
    Enum::DataTypeEnum Type() const { return static_cast<Enum::DataTypeEnum>(TypeInfor.DataType); }
    /// Releases the contents; the type stays.
    void SetNull();
    /// Gives a null value the default of its type; a number is what its storage held. Nothing without a type.
    void SetNotNull();
    /// Makes it a null of type \p type. What is no basic type becomes 0, without type; 0 becomes 2.
    void SetNull(Enum::DataTypeEnum type);
    /// Makes it a value of type \p type, not null: with the default contents, except that a tm of a value that has the
    /// type already stays as it is, and that a long double begins with 8 zero bytes and keeps what the storage held
    /// behind them, as it does for SetNotNull: set it before it is read.
    void ChangeValueTypeEnum(Enum::DataTypeEnum type);

    /// Takes type, null state and contents of another value. Of a long double only the first 8 bytes are taken: sign
    /// and exponent stay those of the long double that was there, and behind another type those of whatever the storage
    /// held. Copy a long double by the copy constructor or by assignment.
    CValue& ReadFrom(const CValue& other);
    /// The conversions of CStdBasicTypeRefrence, into the type that the value has. A null value is made not null first
    /// where the type can be stored; a text that cannot be stored leaves it null.
    CValue& ReadFrom(const std::string& value);
    CValue& ReadFrom(const char* value);
    CValue& ReadFrom(const CStdBasicTypeConstRefrence& source);
    CValue& ReadFrom(NullType)
    {
        SetNull();
        return *this;
    }
    template<class T, class = IfBasic<T>>
    CValue& ReadFrom(const T& value)
    {
        if (CanStore(detail::BASIC_CODE<T>)) SetNotNull();
        CStdBasicTypeRefrence::ReadFrom(value);
        return *this;
    }
    /// Changes the type, then parses raw text or bytes; see CStdBasicTypeRefrence::ReadFromMemBlock.
    CValue& ReadFromMemBlock(Enum::DataTypeEnum type, const char* data, unsigned long size);
    CValue& ReadFromMemBlock(const char* data, unsigned long size);

    /// Compares the stored text; a value that is no text is logged and compared as an empty one.
    bool operator!=(const char* text) const;
    bool operator==(const char* text) const { return !(*this != text); }
    friend bool operator==(const char* text, const CValue& value) { return value == text; }
    friend bool operator!=(const char* text, const CValue& value) { return value != text; }

    // Friends, so that only an operand that is a CValue leads to them: as functions of the namespace they would take
    // the comparisons of every type that converts to one.

    /// Two nulls are equal, whatever their types; otherwise type and contents must be.
    friend VEXA_API bool operator==(const CValue& left, const CValue& right);
    friend bool operator!=(const CValue& left, const CValue& right) { return !(left == right); }
    /// Orders nulls first, then by type code, then by contents.
    friend VEXA_API bool operator<(const CValue& left, const CValue& right);

    /// A value against a plain one, which counts as a value of its own type.
    template<class T, class = IfBasic<T>>
    friend bool operator==(const CValue& left, const T& right)
    {
        return left == CValue(right);
    }
    template<class T, class = IfBasic<T>>
    friend bool operator!=(const CValue& left, const T& right)
    {
        return !(left == right);
    }
    template<class T, class = IfBasic<T>>
    friend bool operator==(const T& left, const CValue& right)
    {
        return right == left;
    }
    template<class T, class = IfBasic<T>>
    friend bool operator!=(const T& left, const CValue& right)
    {
        return !(right == left);
    }

private:
    static constexpr unsigned long STORAGE_SIZE = 32;

    template<class T>
    CValue& Assign(Enum::DataTypeEnum type, const T& value)
    {
        if (Type() == type) return ReadFrom(value);
        CValue assigned;
        assigned.SetNull(type);
        assigned.ReadFrom(value);
        return *this = std::move(assigned);
    }
    bool CanStore(Enum::DataTypeEnum source) const;
    std::size_t OwnBytesFrom(const char* data) const; // how many bytes of a text of its own begin there
    void Make(unsigned char code);
    void* Made(); // where what has been made lies: in the storage or on the heap
    void Release();
    void CopyContents(const CValue& other);
    void CopyObject(const CValue& other);

    // The code of what has been made in the storage, 0 for nothing. It lies between the fields of the reference and the
    // aligned storage. The address alone would not do: it can be cleared through the reference.
    unsigned char m_made = Enum::DT_UNKNOWN;
    alignas(16) unsigned char m_storage[STORAGE_SIZE] = {};
};

static_assert(sizeof(CValue) == 64, "part of the binary interface");

/// A sequence of values.
class VEXA_API CRow {
public:
    std::vector<CValue> Values;

    CRow() = default;
    CRow(std::initializer_list<CValue> values) : Values(values) {}

    /// Adds a value at the end and gives it.
    CValue& Append(CValue value = {}) { return Values.emplace_back(std::move(value)); }
    void Reserve(unsigned long count) { Values.reserve(count); }
    void Clear() { Values.clear(); }
    unsigned long Size() const { return Values.size(); }
    /// \p index must be below Size().
    CValue& operator[](unsigned long index) { return Values[index]; }
    const CValue& operator[](unsigned long index) const { return Values[index]; }
    auto begin() { return Values.begin(); }
    auto end() { return Values.end(); }
    auto begin() const { return Values.begin(); }
    auto end() const { return Values.end(); }

    /// Every value as text, each followed by a comma, the last one too.
    std::string AsString(const Enum::AsStringFormatEnum& format = Enum::ASF_VALUE) const;
};

static_assert(sizeof(CRow) == 24, "part of the binary interface");

inline bool operator==(const CRow& left, const CRow& right) { return left.Values == right.Values; }
inline bool operator!=(const CRow& left, const CRow& right) { return !(left == right); }

} // namespace vexa

#endif
