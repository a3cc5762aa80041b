#ifndef VEXA_REFERENCE_SAVED_SELECTOR_H
#define VEXA_REFERENCE_SAVED_SELECTOR_H

#include <vexa/class_infor.h>

namespace vexa::reference {

/// What a union's selector, a basic value, held: it can be put back without memory.
class CSavedSelector {
public:
    CSavedSelector(const CGnlTypeInfor& type, void* holder);
    CSavedSelector(CSavedSelector&& other) noexcept;
    CSavedSelector(const CSavedSelector&) = delete;
    CSavedSelector& operator=(const CSavedSelector&) = delete;
    ~CSavedSelector();

    /// Once. What the selector holds now is given up.
    void PutBack() noexcept;

private:
    bool IsOwner() const;
    void PutBackPointer() noexcept;

    const CGnlTypeInfor* m_type;
    void* m_holder;
    void* m_pointee = nullptr; ///< what a pointer pointed at, which may be gone
    char m_flag = 0;
    void* m_value = nullptr; ///< a copy on the heap; null where there is no value
};

} // namespace vexa::reference

#endif
