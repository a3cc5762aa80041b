// Reading JSON text into any value: the value's description and the text are walked together.

#include <cstring>

#include <vexa/class_refrence.h>
#include <vexa/container_refrence.h>
#include <vexa/group.h>
#include <vexa/json.h>

#include "reference/custom_value.h"
#include "text/json_code.h"
#include "text/json_cursor.h"
#include "text/json_keys.h"

namespace vexa {

using namespace Enum;
using namespace text;

namespace {

/// Something that the reader made through a descriptor, destroyed unless it is given away.
class CMade {
public:
    explicit CMade(const CGnlTypeInfor& type) : Object(type.New()), m_type(type) {}
    CMade(const CMade&) = delete;
    CMade& operator=(const CMade&) = delete;
    ~CMade()
    {
        if (Object != nullptr) m_type.Delete(Object);
    }

    void* Object;

private:
    const CGnlTypeInfor& m_type;
};

class CJsonReader {
public:
    explicit CJsonReader(const std::string& text) : m_cursor(text) {}

    int ReadDocument(CRefrence& target) { return m_cursor.SkipBlanks() ? ReadValue(target) : 0; }

private:
    int ReadValue(CRefrence& target)
    {
        const unsigned char code = target.TypeInfor.DataType;
        if (target.Address == nullptr) return 0;
        if (target.TypeInfor.Has(HF_CONST)) return TARGET_READ_ONLY;
        if (code == DT_STD_STRING) return ReadString(target);
        if (target.TypeInfor.IsBasicType()) return ReadBasic(target);
        if (code == DT_CUSTOM_BASIC) return ReadCustom(target);
        if (code == DT_CLASS || code == DT_GNL_CLASS || target.TypeInfor.IsContainer()) return ReadNesting(target);
        return KIND_UNREADABLE;
    }

    int ReadNesting(CRefrence& target)
    {
        if (m_depth == MAX_NESTING_DEPTH) return NESTED_TOO_DEEP;
        ++m_depth;
        int code = 0;
        if (target.TypeInfor.DataType == DT_CLASS)
            code = ReadClass(target);
        else if (target.TypeInfor.DataType == DT_GNL_CLASS)
            code = ReadGeneric(target);
        else
            code = ReadArray(target);
        --m_depth;
        return code;
    }

    int ReadString(CRefrence& target)
    {
        target.SetNotNull();
        auto* const string = static_cast<std::string*>(target.ValueAddress());
        return string != nullptr ? ReadJsonString(*string, m_cursor) : static_cast<int>(KIND_UNREADABLE);
    }

    int ReadCustom(CRefrence& target)
    {
        if (reference::HasOwnLayout(target.TypeInfor)) return ReadConverted(target);
        if (!target.TypeInfor.IsStringTypeEx()) return BASIC_UNREADABLE;
        target.SetNotNull();
        auto* const string = static_cast<std::string*>(reference::StandardValueInPlace(target).ValueAddress());
        return string != nullptr && ReadJsonString(*string, m_cursor) == 0 ? 0
                                                                           : static_cast<int>(CUSTOM_STRING_UNREADABLE);
    }

    /// A custom value that only its converter can set: the text tells the type of the standard value.
    int ReadConverted(CRefrence& target)
    {
        const auto convert = reference::CustomInfor(target.TypeInfor).FromValue;
        if (convert == nullptr) return BASIC_UNREADABLE;
        target.SetNotNull();
        void* const object = target.ValueAddress();
        if (object == nullptr) return KIND_UNREADABLE;
        const reference::CMadeValue value;
        if (const int code = ReadUntyped(value)) return code;
        convert(object, value.Get());
        return 0;
    }

    int ReadUntyped(const reference::CMadeValue& value)
    {
        std::string string;
        bool truth = false;
        long long number = 0;
        CRefrence read(CGnlTypeInfor(DT_LONG_LONG), &number);
        if (m_cursor.IsAt('"'))
            read = CRefrence(CGnlTypeInfor(DT_STD_STRING), &string);
        else if (m_cursor.IsAt('t') || m_cursor.IsAt('f'))
            read = CRefrence(CGnlTypeInfor(DT_BOOL), &truth);
        const int code = ReadValue(read);
        if (code == 0) reference::AssignValue(value.Get(), read.AsStdBasicType());
        return code;
    }

    int ReadBasic(CRefrence& target)
    {
        const unsigned char code = target.TypeInfor.DataType;
        if (code == DT_BOOL) return ReadBool(target);
        if (code > DT_UNSIGNED_LONG_LONG) return BASIC_UNREADABLE;
        target.AsStdBasicType().ReadFrom(ReadInteger());
        return 0;
    }

    int ReadBool(CRefrence& target)
    {
        const auto isNext = [this](const char* word, std::size_t length) {
            return m_cursor.Left() >= length && std::memcmp(m_cursor.Next(), word, length) == 0;
        };
        if (m_cursor.Left() < 4) return BOOL_TOO_SHORT;
        const bool isTrue = isNext("true", 4);
        if (!isTrue && !isNext("false", 5)) return BOOL_UNKNOWN;
        m_cursor.MoveTo(m_cursor.Next() + (isTrue ? 4 : 5));
        target.AsStdBasicType().ReadFrom(isTrue);
        return 0;
    }

    /// An optional minus and digits; more digits than fit wrap around.
    long long ReadInteger()
    {
        const bool isNegative = m_cursor.Take('-');
        const char* next = m_cursor.Next();
        unsigned long long value = 0;
        for (; next != m_cursor.End() && *next >= '0' && *next <= '9'; ++next) {
            value = value * 10 + static_cast<unsigned long long>(*next - '0');
        }
        m_cursor.MoveTo(next);
        return static_cast<long long>(isNegative ? 0 - value : value);
    }

    int ReadClass(CRefrence& target)
    {
        if (!m_cursor.IsAt('{')) return CLASS_CODES.NoBrace;
        target.SetNotNull();
        if (target.ValueAddress() == nullptr) return KIND_UNREADABLE;
        return ReadMembers(CClassKeys(target.AsClass()), CLASS_CODES);
    }

    int ReadGeneric(const CRefrence& target)
    {
        if (!m_cursor.IsAt('{')) return GENERIC_CODES.NoBrace;
        const auto* const object = static_cast<const CGnlClass*>(target.ValueAddress());
        return object != nullptr ? ReadMembers(CGenericKeys(*object), GENERIC_CODES)
                                 : static_cast<int>(KIND_UNREADABLE);
    }

    /// Stands before the brace.
    template<class Keys>
    int ReadMembers(Keys keys, const CObjectCodes& codes)
    {
        m_cursor.Take('{');
        do {
            if (m_cursor.AtEnd()) return codes.EndsBeforeKey;
            CRefrence member;
            int code = ReadKey(member, keys, codes);
            if (code == 0) code = ReadValue(member);
            if (code != 0) return code;
            if (!m_cursor.SkipBlanks()) return codes.EndsAfterValue;
            if (m_cursor.Take('}')) return 0;
        } while (m_cursor.Take(','));
        return codes.NoSeparator;
    }

    template<class Keys>
    int ReadKey(CRefrence& member, Keys& keys, const CObjectCodes& codes)
    {
        if (!m_cursor.SkipBlanks() || !m_cursor.Take('"')) return codes.NoKey;
        const char* const key = m_cursor.Next();
        const auto* const quote = static_cast<const char*>(std::memchr(key, '"', m_cursor.Left()));
        if (quote == nullptr) return codes.KeyNotClosed;
        member = keys.Find(key, static_cast<std::size_t>(quote - key));
        m_cursor.MoveTo(quote + 1);
        if (!m_cursor.SkipBlanks() || !m_cursor.Take(':')) return codes.NoColon;
        return m_cursor.SkipBlanks() ? 0 : codes.NoValue;
    }

    int ReadArray(CRefrence& target)
    {
        if (!m_cursor.Take('[')) return ARRAY_NO_BRACKET;
        if (!m_cursor.SkipBlanks()) return ARRAY_ENDS_AFTER_BRACKET;
        if (m_cursor.Take(']')) return 0;
        target.SetNotNull();
        const CContainerRefrence& container = target.AsContainer();
        const CContainerInfor& infor = container.ContainerInfor();
        if (container.ValueAddress() == nullptr || target.TypeInfor.DataType == DT_BITSET) return KIND_UNREADABLE;
        if (target.TypeInfor.DataType == DT_ARRAY) return ReadSlots(container);
        if (!target.TypeInfor.IsAssociative())
            return infor.Append != nullptr ? ReadAppended(container) : KIND_UNREADABLE;
        if (infor.Insert == nullptr || infor.ElementType.WrapperKind() == HF_MAY_NULL) return KIND_UNREADABLE;
        return infor.ElementType.Has(HF_POINTER) ? ReadInsertedPointers(container) : ReadInserted(container);
    }

    /// Reads what stands between the brackets, each element with \p readElement, which gives 0 or a code.
    template<class ReadElement>
    int ReadElements(ReadElement&& readElement)
    {
        do {
            if (m_cursor.AtEnd()) return ARRAY_NO_ELEMENT;
            if (!m_cursor.SkipBlanks()) return ARRAY_ENDS_BEFORE_ELEMENT;
            if (const int code = readElement()) return code;
            if (!m_cursor.SkipBlanks()) return ARRAY_ENDS_AFTER_ELEMENT;
            if (m_cursor.Take(']')) return 0;
        } while (m_cursor.Take(','));
        return ARRAY_NO_SEPARATOR;
    }

    int ReadAppended(const CContainerConstRefrence& container)
    {
        const CContainerInfor& infor = container.ContainerInfor();
        void* const address = container.ValueAddress();
        return ReadElements([&] {
            CRefrence element(infor.ElementType, infor.Append(address));
            return ReadValue(element);
        });
    }

    /// A fixed array keeps its elements where they are: there is no room for one more than its slots.
    int ReadSlots(const CContainerConstRefrence& array)
    {
        CContainerConstIterator slot(array);
        return ReadElements([&] {
            if (slot.IsEnd()) return static_cast<int>(ARRAY_NO_SEPARATOR);
            CRefrence element(slot.Current.TypeInfor, slot.Current.Address);
            ++slot;
            return ReadValue(element);
        });
    }

    /// One scratch element serves for all: the container takes its contents.
    int ReadInserted(const CContainerConstRefrence& container)
    {
        const CContainerInfor& infor = container.ContainerInfor();
        void* const address = container.ValueAddress();
        const CMade made(infor.ElementType);
        if (made.Object == nullptr) return KIND_UNREADABLE;
        CRefrence scratch(infor.ElementType, made.Object);
        return ReadElements([&] {
            scratch.Clear();
            const int code = ReadValue(scratch);
            if (code == 0) infor.Insert(address, scratch.Address);
            return code;
        });
    }

    /// The pointee of each element belongs to the container, so each is read into a pointer of its own.
    int ReadInsertedPointers(const CContainerConstRefrence& container)
    {
        const CContainerInfor& infor = container.ContainerInfor();
        void* const address = container.ValueAddress();
        return ReadElements([&] {
            if (infor.ElementType.Has(HF_CONST)) return static_cast<int>(TARGET_READ_ONLY);
            CMade pointee(infor.ElementType);
            CRefrence element(infor.ElementType, &pointee.Object);
            const int code = ReadValue(element);
            if (code == 0) {
                infor.Insert(address, &pointee.Object);
                pointee.Object = nullptr;
            }
            return code;
        });
    }

    CJsonCursor m_cursor;
    unsigned long m_depth = 0;
};

} // namespace

int FromJson(CRefrence& target, const std::string& text)
{
    if (target.TypeInfor.Has(HF_CONST)) return TARGET_READ_ONLY;
    target.Clear();
    return CJsonReader(text).ReadDocument(target);
}

} // namespace vexa
