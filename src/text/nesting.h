#ifndef VEXA_TEXT_NESTING_H
#define VEXA_TEXT_NESTING_H

#include <vexa/helper.h>
#include <vexa/refrence.h>
#include <vexa/text.h>

namespace vexa::text {

/// One object on the way from the top of a walk to where it is now: a chain of these lies on the stack.
///
/// Objects that point to each other would be walked for ever, and a long chain of them would use up the thread's stack.
/// So a walk does not enter an object that it is inside of already, nor one below MAX_NESTING_DEPTH.
class CNesting {
public:
    explicit CNesting(const CConstRefrence& top) : CNesting(nullptr, top) {}
    CNesting(const CNesting& outer, const CConstRefrence& inner) : CNesting(&outer, inner) {}
    /// The same for an object at its value address.
    CNesting(const CNesting& outer, const void* object, const CGnlTypeInfor& type) : CNesting(&outer, object, type) {}
    /// \param outer null at the top.
    CNesting(const CNesting* outer, const void* object, const CGnlTypeInfor& type)
        : m_outer(outer), m_object(object), m_type(type.DetailInfor),
          m_depth(outer != nullptr ? outer->m_depth + 1 : 1), m_isReached(IsReachedByPointer(type))
    {
    }

    bool IsEntered() const { return m_depth <= MAX_NESTING_DEPTH && !IsInsideItself(); }

    static void LogNotEntered(const CConstRefrence& ref)
    {
        helper::LogError("%s type is nested in itself or deeper than %lu levels", ref.TypeName().c_str(),
                         MAX_NESTING_DEPTH);
    }

private:
    CNesting(const CNesting* outer, const CConstRefrence& object)
        : CNesting(outer, object.ValueAddress(), object.TypeInfor)
    {
    }
    /// Only these lead back to where the walk has come from; the entries of a group are references, that is pointers.
    static bool IsReachedByPointer(const CGnlTypeInfor& type)
    {
        return type.Has(Enum::HF_POINTER) || type.DataType == Enum::DT_GNL_CLASS ||
               type.DataType == Enum::DT_REFERENCE_GROUP;
    }
    bool IsInsideItself() const
    {
        if (!m_isReached) return false;
        for (const CNesting* outer = m_outer; outer != nullptr; outer = outer->m_outer) {
            if (outer->m_object == m_object && outer->m_type == m_type) return true;
        }
        return false;
    }

    const CNesting* m_outer;
    const void* m_object;
    const CTypeInforBase* m_type;
    unsigned long m_depth;
    bool m_isReached;
};

/// Stands in where the same value has been walked before and nothing can have changed.
struct CNoNesting {
    template<class... Arguments>
    explicit CNoNesting(const Arguments&...)
    {
    }
    static constexpr bool IsEntered() { return true; }
};

} // namespace vexa::text

#endif
