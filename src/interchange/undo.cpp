#include "interchange/undo.h"

#include <cstring>
#include <utility>

#include <vexa/json_tree.h>

#include "core/basic_types.h"

namespace vexa::interchange {

using detail::ShapeKind;

namespace {

constexpr std::size_t INNER_BYTES = 16;

} // namespace

struct CUndo::CBytes : CSaved {
    CBytes(void* place, std::size_t size) : Place(place), Size(size)
    {
        if (size > INNER_BYTES) Outer = std::make_unique<char[]>(size);
        std::memcpy(State(), place, size);
    }
    char* State() { return Outer != nullptr ? Outer.get() : Inner; }
    void PutBack() override { std::memcpy(Place, State(), Size); }

    void* Place;
    std::size_t Size;
    char Inner[INNER_BYTES] = {};
    std::unique_ptr<char[]> Outer;
};

struct CUndo::CPointee : CSaved {
    CPointee(const CGnlTypeInfor& type, void* pointer) : Type(type), Pointer(pointer)
    {
        std::memcpy(&Object, pointer, sizeof Object);
        std::memset(pointer, 0, sizeof Object);
    }
    ~CPointee() override
    {
        if (Object != nullptr) Type.Delete(Object);
    }
    void PutBack() override
    {
        std::memcpy(Pointer, &Object, sizeof Object);
        Object = nullptr;
    }

    const CGnlTypeInfor& Type;
    void* Pointer;
    void* Object = nullptr;
};

struct CUndo::CMade : CSaved {
    CMade(const CGnlTypeInfor& type, void* pointer) : Type(type), Pointer(pointer) {}
    void PutBack() override
    {
        void* object = nullptr;
        std::memcpy(&object, Pointer, sizeof object);
        std::memset(Pointer, 0, sizeof object);
        if (object != nullptr) Type.Delete(object);
    }

    const CGnlTypeInfor& Type;
    void* Pointer;
};

/// What has changed places with a new object.
struct CUndo::CSwapped : CSaved {
    CSwapped(const CTypeInforBase& infor, void* place, SwapFunction swap)
        : Infor(infor), Place(place), Swap(swap), Other(infor.Factory())
    {
        if (Other != nullptr) Swap(Place, Other);
    }
    ~CSwapped() override
    {
        if (Other != nullptr) Infor.Deleter(Other);
    }
    void PutBack() override
    {
        if (Other != nullptr) Swap(Place, Other);
    }

    const CTypeInforBase& Infor;
    void* Place;
    SwapFunction Swap;
    void* Other;
};

struct CUndo::CFunction : CSaved {
    explicit CFunction(std::function<void()> function) : Function(std::move(function)) {}
    void PutBack() override { Function(); }

    std::function<void()> Function;
};

CUndo::~CUndo() = default;

void CUndo::Run() noexcept
{
    for (; !m_saved.empty(); m_saved.pop_back()) {
        try {
            if (m_saved.back() != nullptr) m_saved.back()->PutBack();
        } catch (...) { // of an application's converter, or without memory: the rest is put back
        }
    }
}

void CUndo::SaveBytes(void* place, std::size_t size) { Note<CBytes>(place, size); }

void CUndo::SaveBasic(unsigned char code, void* place)
{
    core::VisitBasicType(code, [&](auto basic) {
        using T = typename decltype(basic)::Type;
        if constexpr (std::is_same_v<T, std::string> || std::is_same_v<T, CBinary> || std::is_same_v<T, CNumeric>)
            SaveMoved(*static_cast<T*>(place));
        else if constexpr (!std::is_same_v<T, core::CTextAtAddress>)
            SaveBytes(place, sizeof(T));
    });
}

void CUndo::TakePointee(const CGnlTypeInfor& type, void* pointer) { Note<CPointee>(type, pointer); }

void CUndo::NoteMade(const CGnlTypeInfor& type, void* pointer) { Note<CMade>(type, pointer); }

void CUndo::SaveBy(std::function<void()> putBack) { Note<CFunction>(std::move(putBack)); }

namespace {

/// A vector is three pointers, which may change places.
void SwapVectors(void* left, void* right)
{
    char kept[3 * sizeof(void*)];
    std::memcpy(kept, left, sizeof kept);
    std::memcpy(left, right, sizeof kept);
    std::memcpy(right, kept, sizeof kept);
}

} // namespace

bool CUndo::TakeContents(const CContainerInfor& infor, void* container)
{
    if (infor.Factory == nullptr || infor.Deleter == nullptr) return false;
    const typeinfo::CFinishedContainer* const finished = typeinfo::FinishedContainer(infor);
    if (infor.Mark.Is(detail::CFinishedMark::VECTOR)) {
        Note<CSwapped>(infor, container, &SwapVectors);
        return true;
    }
    if (finished == nullptr || finished->Swap == nullptr) return false;
    Note<CSwapped>(infor, container, finished->Swap);
    return true;
}

bool CUndo::TakeCustom(const CForm& form, char* place)
{
    const CCustomBasicTypeInfor& infor = form.CustomInfor();
    if (form.Shape->Swap == nullptr || infor.Factory == nullptr || infor.Deleter == nullptr) return false;
    Note<CSwapped>(infor, place, form.Shape->Swap);
    return true;
}

bool CUndo::SaveConverted(const CCustomBasicTypeInfor& infor, void* place)
{
    if (infor.ToValue == nullptr || infor.FromValue == nullptr) return false;
    CValue before;
    infor.ToValue(place, before);
    SaveBy([&infor, place, before] { infor.FromValue(place, before); });
    return true;
}

} // namespace vexa::interchange
