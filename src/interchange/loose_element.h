#ifndef VEXA_INTERCHANGE_LOOSE_ELEMENT_H
#define VEXA_INTERCHANGE_LOOSE_ELEMENT_H

#include <list>

#include "interchange/form.h"

/// \file
/// Elements of containers that take them as a whole.

namespace vexa::interchange {

/// An element that is made by itself, before it is inserted.
class CLooseElement {
public:
    explicit CLooseElement(const CForm& form) : m_form(form), m_object(IsPointer() ? nullptr : form.Type->New()) {}
    CLooseElement(const CLooseElement&) = delete;
    CLooseElement& operator=(const CLooseElement&) = delete;
    ~CLooseElement() { m_form.Type->Delete(m_object); }

    bool IsThere() const noexcept { return IsPointer() || m_object != nullptr; }
    /// What holds the element.
    char* Holder() noexcept { return static_cast<char*>(IsPointer() ? &m_object : m_object); }
    /// Hands it over. The pointee then belongs to the container; anything else is left to be destroyed.
    void InsertInto(const CContainerInfor& infor, char* container)
    {
        infor.Insert(container, Holder());
        if (IsPointer()) m_object = nullptr;
    }

private:
    bool IsPointer() const noexcept { return m_form.How == Held::POINTER; }

    const CForm& m_form;
    void* m_object;
};

/// Elements that are inserted when all of them have been read: the last one first, so that of equal keys the last one
/// stays.
class CLateElements {
public:
    CLooseElement& Add(const CForm& form) { return m_elements.emplace_back(form); }
    void DropLast() { m_elements.pop_back(); }
    void InsertInto(const CContainerInfor& infor, char* container)
    {
        for (; !m_elements.empty(); m_elements.pop_back())
            m_elements.back().InsertInto(infor, container);
    }

private:
    std::list<CLooseElement> m_elements;
};

} // namespace vexa::interchange

#endif
