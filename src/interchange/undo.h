#ifndef VEXA_INTERCHANGE_UNDO_H
#define VEXA_INTERCHANGE_UNDO_H

#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

#include <vexa/custom_type_infor.h>
#include <vexa/table.h>

#include "interchange/form.h"

namespace vexa::interchange {

/// What a reading has changed, so that it can be undone. Nothing is copied that can be moved: what is replaced is taken
/// away into the record and put back from there, pointees, contents of containers and all. What is new is not noted.
class CUndo {
public:
    CUndo() = default;
    CUndo(const CUndo&) = delete;
    CUndo& operator=(const CUndo&) = delete;
    /// What has been taken away goes.
    ~CUndo();

    /// Puts everything back, in the opposite order.
    void Run() noexcept;

    // To be called before the change.

    void SaveBytes(void* place, std::size_t size);
    /// A value of a basic type; what owns memory is left empty.
    void SaveBasic(unsigned char code, void* place);
    void SaveString(std::string& string) { SaveMoved(string); }
    void SaveValue(CValue& value) { SaveMoved(value); }
    void SaveRow(CRow& row) { SaveMoved(row); }
    void SaveTable(CTable& table) { SaveMoved(table); }
    template<class T>
    void SaveMoved(T& object);
    /// Takes the pointee away; the pointer is null then.
    void TakePointee(const CGnlTypeInfor& type, void* pointer);
    /// The pointer has a pointee that is new.
    void NoteMade(const CGnlTypeInfor& type, void* pointer);
    /// Takes the contents of a container away. \return false where they cannot be taken.
    bool TakeContents(const CContainerInfor& infor, void* container);
    /// Takes the state of a custom value away, which is then a default one. \return false where it cannot be taken.
    bool TakeCustom(const CForm& form, char* place);
    /// What a custom type's converters tell of its value. \return false where they cannot.
    bool SaveConverted(const CCustomBasicTypeInfor& infor, void* place);
    /// Puts something back by a function of its own, which must not throw.
    void SaveBy(std::function<void()> putBack);

    /// Exchanges the states of two objects of one type.
    using SwapFunction = void (*)(void*, void*);

private:
    struct CSaved {
        virtual ~CSaved() = default;
        virtual void PutBack() = 0;
    };
    template<class T>
    struct CMoved;
    struct CBytes;
    struct CPointee;
    struct CMade;
    struct CSwapped;
    struct CFunction;

    template<class Saved, class... Arguments>
    void Note(Arguments&&... arguments);

    std::vector<std::unique_ptr<CSaved>> m_saved;
};

template<class T>
struct CUndo::CMoved : CSaved {
    explicit CMoved(T& object) : Object(object), State(std::move(object)) { object = T(); }
    void PutBack() override { Object = std::move(State); }

    T& Object;
    T State;
};

/// There is room for the note before anything is changed.
template<class Saved, class... Arguments>
void CUndo::Note(Arguments&&... arguments)
{
    m_saved.push_back(nullptr);
    m_saved.back() = std::make_unique<Saved>(std::forward<Arguments>(arguments)...);
}

template<class T>
void CUndo::SaveMoved(T& object)
{
    Note<CMoved<T>>(object);
}

} // namespace vexa::interchange

#endif
