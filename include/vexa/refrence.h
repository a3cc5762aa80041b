#ifndef VEXA_REFRENCE_H
#define VEXA_REFRENCE_H

#include <cstring>
#include <ctime>
#include <string>

#include <vexa/binary.h>
#include <vexa/data_type.h>
#include <vexa/date_time.h>
#include <vexa/detail/basic_code.h>
#include <vexa/export.h>
#include <vexa/numeric.h>
#include <vexa/type_infor.h>

/// \file
/// References: a type descriptor and an address, which together stand for one value somewhere in the application's
/// memory.
///
/// A reference owns nothing and is copied freely; the value must outlive it. All reference classes have one layout and
/// no virtual functions, so that As...() below turn one into another at no cost: on an lvalue they give a reference to
/// the same object, on a temporary a copy that lives on. They check nothing: the caller knows the type, from TypeInfor.
///
/// References carry no lock. Reading one value from several threads is safe, writing it is the caller's business.

namespace vexa {

class CClassConstRefrence;
class CContainerConstRefrence;
class CContainerRefrence;
class CRefrence;
class CStdBasicTypeConstRefrence;
class CStdBasicTypeRefrence;

/// A read-only reference to any described value.
class VEXA_API CConstRefrence {
public:
    CGnlTypeInfor TypeInfor; ///< what lives at the address, and how it is held there
    void* Address = nullptr; ///< the holder; null for a reference that designates nothing

    CConstRefrence() noexcept = default;
    CConstRefrence(const CGnlTypeInfor& typeInfor, const void* address)
        : TypeInfor(typeInfor), Address(const_cast<void*>(address))
    {
    }

    bool IsNull() const { return TypeInfor.IsNull(Address); }
    std::string TypeName() const { return TypeInfor.TypeName(); }
    /// Where the value itself lives, or null when the value is null or there is no address behind it. What is not null
    /// may be read.
    void* ValueAddress() const { return IsNull() ? nullptr : TypeInfor.ValueAddress(Address); }
    /// The value as indented text; see vexa::AsString.
    std::string AsString(const Enum::AsStringFormatEnum& format = Enum::ASF_VALUE) const;

    const CStdBasicTypeConstRefrence& AsStdBasicType() const& noexcept;
    CStdBasicTypeConstRefrence AsStdBasicType() &&;
    const CClassConstRefrence& AsClass() const& noexcept;
    CClassConstRefrence AsClass() &&;
    const CContainerConstRefrence& AsContainer() const& noexcept;
    CContainerConstRefrence AsContainer() &&;
};

/// A writable reference to any described value.
class VEXA_API CRefrence : public CConstRefrence {
public:
    CRefrence() noexcept = default;
    CRefrence(const CGnlTypeInfor& typeInfor, void* address) : CConstRefrence(typeInfor, address) {}

    /// Empties the value. One that may be null becomes null; any other is emptied by its kind: attributes one after the
    /// other, containers of all elements, basic values to zero. A read-only value stays, but a pointer to one becomes
    /// null. A kind that cannot be emptied is logged and left as it was.
    void Clear();
    void SetNull() { TypeInfor.SetNull(Address); }
    void SetNotNull() { TypeInfor.SetNotNull(Address); }

    using CConstRefrence::AsContainer;
    using CConstRefrence::AsStdBasicType;
    CStdBasicTypeRefrence& AsStdBasicType() & noexcept;
    CStdBasicTypeRefrence AsStdBasicType() &&;
    CContainerRefrence& AsContainer() & noexcept;
    CContainerRefrence AsContainer() &&;
};

/// A read-only reference to a basic value (codes 11 to 52), which reads as any basic type.
///
/// A null value reads as the neutral value of the target: 0, false, an empty text, a default object. A type that cannot
/// be converted does too, and one line is logged. Nothing is thrown for a mismatch, and no range is checked: a value
/// that does not fit an integer target keeps its low bits. A floating value is cut toward zero to 32 bits first for
/// char, short, int and the unsigned forms of the former two, to 64 bits for unsigned int and everything longer, and to
/// the lowest of those where it does not fit; unsigned long and unsigned long long take 64 unsigned bits.
class VEXA_API CStdBasicTypeConstRefrence : public CConstRefrence {
public:
    using CConstRefrence::CConstRefrence;

    bool As_bool() const { return As<bool>(); } ///< of a text: whether it is exactly "true"
    char As_char() const { return As<char>(); } ///< an unsigned byte
    short As_short() const { return As<short>(); }
    int As_int() const { return As<int>(); }
    long As_long() const { return As<long>(); }                ///< of a text: its leading decimal digits
    long long As_long_long() const { return As<long long>(); } ///< of a text: its leading floating number, cut
    unsigned char As_unsigned_char() const { return As<unsigned char>(); }
    unsigned short As_unsigned_short() const { return As<unsigned short>(); }
    unsigned int As_unsigned_int() const { return As<unsigned int>(); }
    unsigned long As_unsigned_long() const { return As<unsigned long>(); }
    unsigned long long As_unsigned_long_long() const { return As<unsigned long long>(); }
    float As_float() const { return As<float>(); }
    double As_double() const { return As<double>(); }
    long double As_long_double() const { return As<long double>(); } ///< of a text: its leading decimal digits only

    operator bool() const { return As_bool(); }
    operator short() const { return As_short(); }
    operator int() const { return As_int(); }
    operator long() const { return As_long(); }
    operator long long() const { return As_long_long(); }
    operator unsigned char() const { return As_unsigned_char(); }
    operator unsigned short() const { return As_unsigned_short(); }
    operator unsigned int() const { return As_unsigned_int(); }
    operator unsigned long() const { return As_unsigned_long(); }
    operator unsigned long long() const { return As_unsigned_long_long(); }
    operator float() const { return As_float(); }
    operator double() const { return As_double(); }
    operator long double() const { return As_long_double(); }

    void WriteTo(bool& target) const { target = As_bool(); }
    void WriteTo(char& target) const { target = As_char(); }
    void WriteTo(short& target) const { target = As_short(); }
    void WriteTo(int& target) const { target = As_int(); }
    void WriteTo(long& target) const { target = As_long(); }
    void WriteTo(long long& target) const { target = As_long_long(); }
    void WriteTo(unsigned char& target) const { target = As_unsigned_char(); }
    void WriteTo(unsigned short& target) const { target = As_unsigned_short(); }
    void WriteTo(unsigned int& target) const { target = As_unsigned_int(); }
    void WriteTo(unsigned long& target) const { target = As_unsigned_long(); }
    void WriteTo(unsigned long long& target) const { target = As_unsigned_long_long(); }
    void WriteTo(float& target) const { target = As_float(); }
    void WriteTo(double& target) const { target = As_double(); }

    /// The stored text of a std::string or const char*, valid while the value is unchanged; an empty text for a null.
    const char* As_const_char_ptr() const;
    operator const char*() const { return As_const_char_ptr(); }

    /// The stored object itself, of exactly that type. A null gives a shared neutral object, which must not be changed;
    /// another type does too, and is logged.
    const std::string& As_std_string_ref() const;
    const tm& As_tm_ref() const;
    const CBinary& As_CBinary_ref() const;
    const CDateTime& As_CDateTime_ref() const;
    const CNumeric& As_CNumeric_ref() const;

    std::string As_std_string() const; ///< the value's text
    CBinary As_CBinary() const;        ///< of a number: its bytes; else the bytes of its text
    CDateTime As_CDateTime() const;
    tm As_tm() const;
    CNumeric As_CNumeric() const;

    operator CBinary() const { return As_CBinary(); }
    operator CDateTime() const { return As_CDateTime(); }
    operator CNumeric() const { return As_CNumeric(); }

    void WriteTo(CBinary& target) const { target = As_CBinary(); }
    void WriteTo(CDateTime& target) const { target = As_CDateTime(); }
    void WriteTo(tm& target) const { target = As_tm(); }
    void WriteTo(CNumeric& target) const { target = As_CNumeric(); }

    /// Writes the value's text into \p buffer at \p position and moves \p position past it; no terminating zero.
    ///
    /// \p capacity is the buffer's whole size. It is the caller's duty that the text fits, in a zero-filled buffer with
    /// 64 bytes of room: a text that does not fit is left out, yet \p position still moves; the digits of bool's and
    /// char's larger siblings short to unsigned long (at most 20 bytes) and a tm (at most 64) are written without
    /// looking at the capacity; a formatted number that does not fit moves \p position back by one. \param escape
    /// whether texts and characters are escaped as for JSON; quotes are never added.
    void AppendToString(char* buffer, unsigned long& position, unsigned long capacity, bool escape) const;
    /// Appends the value's text to \p out. Throws std::length_error or std::bad_alloc, \p out then keeps what came
    /// before.
    void AppendToString(std::string& out, bool escape) const;

private:
    /// A value of the target's own type that lies at the address as it is, which most are, is loaded right here; by its
    /// bytes, since the application may have stored an enumeration there, whose type is another, and a bool whose
    /// memory has not been initialised may hold any byte.
    template<class T>
    T As() const
    {
        constexpr unsigned int CODE = detail::BASIC_CODE<T>;
        const unsigned int otherwiseHeld = TypeInfor.HoldingFlags & ~static_cast<unsigned int>(Enum::HF_CONST);
        if (((TypeInfor.DataType ^ CODE) | otherwiseHeld) != 0 || Address == nullptr) {
            return Convert<T>({TypeInfor.DataType, TypeInfor.HoldingFlags, TypeInfor.NullFlagOffset,
                               TypeInfor.ValueOffset, TypeInfor.DetailInfor, Address});
        }
        if constexpr (std::is_same_v<T, bool>) return *static_cast<const unsigned char*>(Address) != 0;
        T value;
        std::memcpy(&value, Address, sizeof value);
        return value;
    }
    /// The fields of a reference, lent. Given by value, so that a reference which nothing else asks for its address,
    /// that in a walk's iterator above all, can live in registers.
    struct CFields {
        unsigned char DataType;
        unsigned char HoldingFlags;
        unsigned char NullFlagOffset;
        unsigned char ValueOffset;
        const CTypeInforBase* DetailInfor;
        const void* Address;
    };
    /// The value, whatever it is. Instantiated in the library for each T of the getters.
    template<class T>
    static T Convert(CFields source);
};

/// A writable reference to a basic value.
///
/// Every ReadFrom stores into the value, converting to its type, and returns this reference, so that calls chain. It
/// makes the value not null first where the type can be stored. What cannot be stored is logged in one line. A value
/// that cannot be written (read-only, or a pointer with nothing behind it) stores nothing and is logged likewise.
class VEXA_API CStdBasicTypeRefrence : public CStdBasicTypeConstRefrence {
public:
    CStdBasicTypeRefrence() noexcept = default;
    CStdBasicTypeRefrence(const CGnlTypeInfor& typeInfor, void* address)
        : CStdBasicTypeConstRefrence(typeInfor, address)
    {
    }

    /// A number into any number. Any other target is logged, and is then not null.
    CStdBasicTypeRefrence& ReadFrom(bool value);
    CStdBasicTypeRefrence& ReadFrom(char value);
    CStdBasicTypeRefrence& ReadFrom(short value);
    CStdBasicTypeRefrence& ReadFrom(int value);
    CStdBasicTypeRefrence& ReadFrom(unsigned char value);
    CStdBasicTypeRefrence& ReadFrom(unsigned short value);
    CStdBasicTypeRefrence& ReadFrom(unsigned int value);
    CStdBasicTypeRefrence& ReadFrom(long value);
    CStdBasicTypeRefrence& ReadFrom(unsigned long value);
    CStdBasicTypeRefrence& ReadFrom(long long value);
    CStdBasicTypeRefrence& ReadFrom(unsigned long long value);
    CStdBasicTypeRefrence& ReadFrom(float value);
    CStdBasicTypeRefrence& ReadFrom(double value);
    CStdBasicTypeRefrence& ReadFrom(long double value);
    /// A text into std::string, CBinary, CDateTime or CNumeric. Any other target is logged and becomes null, a pointer
    /// to const too; text is parsed into numbers only by ReadFromMemBlock. A null pointer makes the value null.
    CStdBasicTypeRefrence& ReadFrom(const std::string& value);
    CStdBasicTypeRefrence& ReadFrom(const char* value);
    /// A value object into its own type (tm and CDateTime into each other too). Any other target is logged and
    /// unchanged.
    CStdBasicTypeRefrence& ReadFrom(const tm& value);
    CStdBasicTypeRefrence& ReadFrom(const CBinary& value);
    CStdBasicTypeRefrence& ReadFrom(const CDateTime& value);
    CStdBasicTypeRefrence& ReadFrom(const CNumeric& value);
    /// Detaches the reference, which then designates nothing; the value that it designated keeps its state.
    CStdBasicTypeRefrence& ReadFrom(NullType value);
    /// Another value of any basic type, null included. Does nothing when both references have the same address.
    CStdBasicTypeRefrence& ReadFrom(const CStdBasicTypeConstRefrence& source);
    /// Raw text or bytes: numbers are parsed as decimal integers from text that must end in a zero byte, "true" of 4
    /// bytes is true, std::string and CBinary take \p length bytes, tm, CDateTime and CNumeric the text up to its zero
    /// byte. A null \p data for one of these three throws std::logic_error.
    CStdBasicTypeRefrence& ReadFromMemBlock(const char* data, unsigned long length);

    /// Sets the value to the empty value of its type; never means to change the null state. Numbers are zeroed at the
    /// address itself, without following a pointer or looking into a MayNull: empty those through CRefrence::Clear.
    void Clear();
    void SetNull() { TypeInfor.SetNull(Address); }
    void SetNotNull() { TypeInfor.SetNotNull(Address); }
};

static_assert(sizeof(CConstRefrence) == 24 && sizeof(CRefrence) == 24, "one layout for all references");
static_assert(sizeof(CStdBasicTypeConstRefrence) == 24 && sizeof(CStdBasicTypeRefrence) == 24, "one layout");

inline const CStdBasicTypeConstRefrence& CConstRefrence::AsStdBasicType() const& noexcept
{
    return static_cast<const CStdBasicTypeConstRefrence&>(*this);
}
inline CStdBasicTypeConstRefrence CConstRefrence::AsStdBasicType() && { return {TypeInfor, Address}; }
inline CStdBasicTypeRefrence& CRefrence::AsStdBasicType() & noexcept
{
    return static_cast<CStdBasicTypeRefrence&>(static_cast<CConstRefrence&>(*this));
}
inline CStdBasicTypeRefrence CRefrence::AsStdBasicType() && { return {TypeInfor, Address}; }

} // namespace vexa

#endif
