#ifndef VEXA_TEXT_JSON_KEYS_H
#define VEXA_TEXT_JSON_KEYS_H

#include <cstring>
#include <iterator>
#include <string>

#include <vexa/class_refrence.h>
#include <vexa/group.h>

#include "reference/union_watch.h"
#include "text/json_code.h"

// What the kinds of JSON objects have each for themselves: their codes, and where a key leads.

namespace vexa::text {

/// The codes of one kind of object, whose grammar the kinds share.
struct CObjectCodes {
    int NoBrace, EndsBeforeKey, NoKey, KeyNotClosed, NoColon, NoValue, EndsAfterValue, NoSeparator;
};

inline constexpr CObjectCodes CLASS_CODES = {CLASS_NO_BRACE,         CLASS_ENDS_BEFORE_KEY, CLASS_NO_KEY,
                                             CLASS_KEY_NOT_CLOSED,   CLASS_NO_COLON,        CLASS_NO_VALUE,
                                             CLASS_ENDS_AFTER_VALUE, CLASS_NO_SEPARATOR};

inline constexpr CObjectCodes GENERIC_CODES = {GENERIC_NO_BRACE,         GENERIC_ENDS_BEFORE_KEY, GENERIC_NO_KEY,
                                               GENERIC_KEY_NOT_CLOSED,   GENERIC_NO_COLON,        GENERIC_NO_VALUE,
                                               GENERIC_ENDS_AFTER_VALUE, GENERIC_NO_SEPARATOR};

/// Finds the entries of a generic object by their keys; a null one has none.
class CGenericKeys {
public:
    static constexpr bool IS_CLASS = false;

    explicit CGenericKeys(const CGnlClass* object) : m_object(object) {}
    CRefrence Find(const char* key, std::size_t length) const
    {
        CRefrence found;
        if (m_object != nullptr) m_object->FindAttribByName(found, std::string(key, length));
        return found;
    }

private:
    const CGnlClass* m_object;
};

/// Finds the attributes of one object by their keys, as the index has them. Text that was written from such an object
/// has them in the order of the class, so the next few records are tried before the index: all of them are in it, since
/// indexing takes out the others, but a list that is longer than its index has records that cannot be found by name.
class CClassKeys {
public:
    static constexpr bool IS_CLASS = true;

    explicit CClassKeys(const CClassConstRefrence& object)
        : m_infor(object.ClassInfor()), m_address(static_cast<char*>(object.ValueAddress())),
          m_next(m_infor.AttribList.begin()),
          m_end(m_infor.AttribNameMap.size() == m_infor.AttribList.size() ? m_infor.AttribList.end() : m_next),
          m_isGuarded(reference::HasGuardedUnions(m_infor))
    {
    }

    /// The attribute, or a reference without address.
    CRefrence Find(const char* key, std::size_t length)
    {
        auto candidate = m_next;
        for (int tries = 0; tries < 4 && candidate != m_end; ++tries, ++candidate) {
            if (candidate->Name.size() != length || std::memcmp(candidate->Name.data(), key, length) != 0) continue;
            m_next = std::next(candidate);
            return RefrenceOf(&*candidate);
        }
        const auto named = m_infor.AttribNameMap.find(std::string(key, length));
        return RefrenceOf(named != m_infor.AttribNameMap.end() ? named->second : nullptr);
    }

    /// Whether the class has unions that must be watched while one of its attributes is read.
    bool IsGuarded() const { return m_isGuarded; }
    /// Whether the attribute that was found last may be touched.
    bool IsFoundOpen() const { return reference::IsOpen(m_infor, *m_found, m_address); }
    reference::CUnionWatch Watch() const { return {m_infor, m_address}; }

private:
    CRefrence RefrenceOf(const CAttribInfor* attrib)
    {
        m_found = attrib;
        return attrib != nullptr ? CRefrence(attrib->TypeInfor, m_address + attrib->Offset) : CRefrence();
    }

    const CClassInfor& m_infor;
    char* m_address;
    std::list<CAttribInfor>::const_iterator m_next;
    std::list<CAttribInfor>::const_iterator m_end;
    const CAttribInfor* m_found = nullptr;
    bool m_isGuarded;
};

} // namespace vexa::text

#endif
