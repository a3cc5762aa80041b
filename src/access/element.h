#ifndef VEXA_ACCESS_ELEMENT_H
#define VEXA_ACCESS_ELEMENT_H

#include <string>

#include "access/inner.h"
#include "access/path_text.h"

/// \file
/// Elements of containers and entries of maps.

namespace vexa::access {

/// A cursor of a container's, released with it.
class CCursor {
public:
    CCursor(const CContainerInfor& infor, char* container);
    CCursor(const CCursor&) = delete;
    CCursor& operator=(const CCursor&) = delete;
    ~CCursor();

    /// Null at the end.
    char* Element() const noexcept { return static_cast<char*>(m_element); }
    void Next() { m_element = m_infor.Next(m_container, m_cursor); }

private:
    const CContainerInfor& m_infor;
    char* m_container;
    void* m_element = nullptr;
    void* m_cursor = nullptr;
};

/// The address of an element; null beyond the end, \p count then being the number of them.
char* ElementAt(const interchange::CContainerForm& form, const CContainerInfor& infor, char* container,
                unsigned long index, unsigned long& count);

/// A key of a map whose keys can stand in a path.
class CMapKey {
public:
    /// \return false with a problem where the part is no such key. \p form is that of the map's keys, and must stay.
    bool Set(const CForm& form, const CPathPart& part, CProblem& problem);
    /// Whether an entry of a map has the key.
    bool IsOf(const char* entry) const;
    /// The address of a key of the map's own type; null where there is none.
    const void* Address() const noexcept;

private:
    const CForm* m_form = nullptr;
    std::string m_text;
    alignas(8) char m_bytes[8] = {};
};

/// Whether the key is a text; otherwise it is an integer or an enumerator.
bool IsTextKey(const CForm& key) noexcept;
/// The text of a key of an entry, as it stands in a path.
std::string TextOfKey(const CForm& key, const char* entry);

/// The address of the entry that has a key; null where there is none.
char* EntryOf(const CContainerInfor& infor, char* map, const CMapKey& key);
/// The nearest known key, of the first thousand.
std::string NearestKey(const CContainerInfor& infor, char* map, const CForm& key, const std::string& wanted);

} // namespace vexa::access

#endif
